#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace {

using namespace quor::ast;
using quor::lexer::TokenType;
using quor::parser::testing::ParseRun;
using quor::parser::testing::show;
using quor::parser::testing::showExpression;

using Messages = std::vector<std::string>;

const LiteralExpr& asStringLiteral(const ASTNode* node) {
    EXPECT_NE(node, nullptr);
    EXPECT_EQ(node->nodeKind, NodeKind::LiteralExpr);
    const auto& literal = static_cast<const LiteralExpr&>(*node);
    EXPECT_EQ(literal.literalKind, LiteralKind::String);
    return literal;
}

TEST(Interpolation, PlainStringIsOneLiteral) {
    ParseRun run("  \"plain\"");
    auto expr = run.expression();
    const LiteralExpr& literal = asStringLiteral(expr.get());
    EXPECT_EQ(literal.value, "plain");
    EXPECT_EQ(literal.location.column, 3u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(Interpolation, DollarOrBraceAloneStaysPlain) {
    for (const char* source : {"\"a$b\"", "\"a{b}\"", "\"$\"", "\"$ {x}\""}) {
        ParseRun run(source);
        auto expr = run.expression();
        ASSERT_NE(expr, nullptr) << source;
        EXPECT_EQ(expr->nodeKind, NodeKind::LiteralExpr) << source;
    }
    EXPECT_EQ(showExpression("\"a$b\""), "\"a$b\"");
    EXPECT_EQ(showExpression("\"a{b}\""), "\"a{b}\"");
    EXPECT_EQ(showExpression("\"$\""), "\"$\"");
    EXPECT_EQ(showExpression("\"\""), "\"\"");
}

TEST(Interpolation, LoneMarkerStaysAPlainLiteral) {
    ParseRun run("\"${\"");
    auto expr = run.expression();
    EXPECT_EQ(asStringLiteral(expr.get()).value, "${");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(Interpolation, MarkerAtTheEndGivesTwoTextParts) {
    ParseRun run("\"x${\"");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(+ \"x\" \"${\")");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(Interpolation, MarkerWithoutClosingBraceKeepsTheRestAsText) {
    ParseRun run("\"x${y\"");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(+ \"x\" \"${y\")");
    EXPECT_TRUE(run.diagnostics().empty());
    EXPECT_EQ(showExpression("\"${a}b${c\""), "(+ (+ (+ \"\" a) \"b\") \"${c\")");
}

TEST(Interpolation, TextAndValuesFoldToTheLeft) {
    EXPECT_EQ(showExpression("\"a${x}b${y}\""), "(+ (+ (+ \"a\" x) \"b\") y)");
    EXPECT_EQ(showExpression("\"a${x}b\""), "(+ (+ \"a\" x) \"b\")");
}

TEST(Interpolation, LeadingValueGetsAnEmptyStringInFront) {
    ParseRun run("\"${x}\"");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(+ \"\" x)");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(Interpolation, AdjacentValuesAddNoEmptyPiece) {
    EXPECT_EQ(showExpression("\"${a}${b}\""), "(+ (+ \"\" a) b)");
}

TEST(Interpolation, ValueAtTheEndAddsNoTrailingEmptyPiece) {
    EXPECT_EQ(showExpression("\"${a}\""), "(+ \"\" a)");
    EXPECT_EQ(showExpression("\"a${b}\""), "(+ \"a\" b)");
}

TEST(Interpolation, EmptyPieceAfterTextLeavesTheTextAloneAndReports) {
    ParseRun run("\"a${}\"");
    auto expr = run.expression();
    EXPECT_EQ(asStringLiteral(expr.get()).value, "a");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    const auto& report = run.diagnostics()[0];
    EXPECT_EQ(report.code, "E1000");
    EXPECT_EQ(report.message, "Expected expression, found: ");
    EXPECT_EQ(report.hint, "");
    EXPECT_EQ(report.location.file, "<anonymous>");
    EXPECT_EQ(report.location.line, 1u);
    EXPECT_EQ(report.location.column, 1u);
}

TEST(Interpolation, EmptyPieceAloneGivesAnEmptyLiteralAndReports) {
    ParseRun run("\"${}\"");
    auto expr = run.expression();
    EXPECT_EQ(asStringLiteral(expr.get()).value, "");
    EXPECT_EQ(run.messages(), Messages{"Expected expression, found: "});
}

TEST(Interpolation, FailedPieceVanishesBetweenTexts) {
    ParseRun run("\"a${)}b\"");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(+ \"a\" \"b\")");
    EXPECT_EQ(run.messages(), Messages{"Expected expression, found: )"});
}

TEST(Interpolation, PieceIsAFullExpression) {
    EXPECT_EQ(showExpression("\"sum: ${a + b * 2}\""), "(+ \"sum: \" (+ a (* b 2)))");
    EXPECT_EQ(showExpression("\"${p.name}!\""), "(+ (+ \"\" (. p name)) \"!\")");
    EXPECT_EQ(showExpression("\"${f(1, 2)}\""), "(+ \"\" (call f 1 2))");
    EXPECT_EQ(showExpression("\"${x = 1}\""), "(+ \"\" (= x 1))");
}

TEST(Interpolation, OnlyTheFirstExpressionOfAPieceIsTaken) {
    ParseRun run("\"${a b}\"");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(+ \"\" a)");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(Interpolation, BackslashGivesNoProtection) {
    ParseRun run("\"\\${x}\"");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(+ \"\\\" x)");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(Interpolation, EscapedQuotesInsideAPieceMakeAString) {
    EXPECT_EQ(showExpression("\"${a + \\\"b\\\"}\""), "(+ \"\" (+ a \"b\"))");
}

TEST(Interpolation, FirstClosingBraceEndsThePiece) {
    ParseRun run("\"${ {1: 2} }\"");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(+ (+ \"\" {1:2}) \" }\")");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Expected '}' at end of map literal");
    // Reported at the end of the piece " {1: 2", counted from the piece.
    EXPECT_EQ(run.diagnostics()[0].location.file, "<anonymous>");
    EXPECT_EQ(run.diagnostics()[0].location.column, 7u);
}

TEST(Interpolation, TextPartsAndJoinsStandAtTheLiteral) {
    ParseRun run("x = \"a${b}c\"");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::AssignExpr);
    const ExpressionNode* value = static_cast<const AssignExpr&>(*expr).value.get();
    ASSERT_EQ(value->nodeKind, NodeKind::BinaryExpr);
    const auto& outer = static_cast<const BinaryExpr&>(*value);
    EXPECT_EQ(outer.op, TokenType::Plus);
    EXPECT_EQ(outer.location.file, "test.qr");
    EXPECT_EQ(outer.location.column, 5u);
    EXPECT_EQ(outer.right->location.column, 5u);  // "c"
    const auto& inner = static_cast<const BinaryExpr&>(*outer.left);
    EXPECT_EQ(inner.location.column, 5u);
    EXPECT_EQ(inner.left->location.column, 5u);  // "a"
    EXPECT_EQ(inner.left->location.file, "test.qr");
}

TEST(Interpolation, ValueNodesCountTheirPlaceFromThePiece) {
    ParseRun run("\n   \"abc${  value}\"");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::BinaryExpr);
    const auto& join = static_cast<const BinaryExpr&>(*expr);
    EXPECT_EQ(join.location.line, 2u);
    EXPECT_EQ(join.location.column, 4u);
    const ExpressionNode* value = join.right.get();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->location.file, "<anonymous>");
    EXPECT_EQ(value->location.line, 1u);
    EXPECT_EQ(value->location.column, 3u);
}

TEST(Interpolation, LineBreakInsideAPieceCountsLines) {
    ParseRun run("\"${a +\\n  b}\"");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::BinaryExpr);
    const auto* sum = static_cast<const BinaryExpr&>(*expr).right.get();
    ASSERT_EQ(sum->nodeKind, NodeKind::BinaryExpr);
    const ExpressionNode* b = static_cast<const BinaryExpr&>(*sum).right.get();
    EXPECT_EQ(b->location.file, "<anonymous>");
    EXPECT_EQ(b->location.line, 2u);
    EXPECT_EQ(b->location.column, 3u);
}

TEST(Interpolation, PieceScannerFaultsShowOnlyAsTheParsersReaction) {
    ParseRun run("\"x${#}\"");
    auto expr = run.expression();
    EXPECT_EQ(asStringLiteral(expr.get()).value, "x");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Expected expression, found: #");
    EXPECT_EQ(run.diagnostics()[0].location.file, "<anonymous>");
    EXPECT_EQ(run.diagnostics()[0].location.column, 1u);
}

TEST(Interpolation, PieceReportsGoToTheEnclosingEngine) {
    ParseRun run("\"${f(}\" + \"${g[}\"");
    run.expression();
    EXPECT_EQ(run.messages(), (Messages{"Expected expression, found: ", "Expected ')' after argument list",
                                        "Expected expression, found: ", "Expected ']' after index"}));
}

TEST(Interpolation, InterpolatedLiteralTakesPartInTheSurroundingExpression) {
    EXPECT_EQ(showExpression("\"n=${n}\" + 1"), "(+ (+ \"n=\" n) 1)");
    EXPECT_EQ(showExpression("print(\"${a}\")"), "(call print (+ \"\" a))");
}

TEST(Interpolation, TreeKeepsItsStringsAfterThePieceTokensAreGone) {
    ParseRun run("\"${someName}\"");
    auto expr = run.expression();
    run.tokens.clear();
    run.tokens.shrink_to_fit();
    EXPECT_EQ(show(expr.get()), "(+ \"\" someName)");
}

TEST(Interpolation, LeadingPieceThatIsItselfAStringNeedsNoEmptyStringInFront) {
    ParseRun run("\"${\\\"s\\\"}\"");
    auto expr = run.expression();
    const LiteralExpr& literal = asStringLiteral(expr.get());
    EXPECT_EQ(literal.value, "s");
    EXPECT_EQ(literal.location.file, "<anonymous>");
    EXPECT_EQ(literal.location.column, 1u);
    EXPECT_EQ(showExpression("\"${\\\"s\\\"}x\""), "(+ \"s\" \"x\")");
    EXPECT_EQ(showExpression("\"${1}\""), "(+ \"\" 1)");
    EXPECT_EQ(showExpression("\"${'c'}\""), "(+ \"\" 'c')");
}

}  // namespace
