#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace {

using namespace quor::ast;
using quor::lexer::Token;
using quor::lexer::TokenType;
using quor::parser::testing::ParseRun;
using quor::parser::testing::show;
using quor::parser::testing::showExpression;
using quor::parser::testing::tok;

struct LiteralRow {
    const char* source;
    LiteralKind kind;
    const char* value;
};

TEST(ExpressionPrefix, LiteralsKeepTheirKindAndText) {
    const LiteralRow rows[] = {
        {"42", LiteralKind::Integer, "42"},        {"0xFF", LiteralKind::Integer, "0xFF"},
        {"1_000", LiteralKind::Integer, "1_000"},  {"3.25", LiteralKind::Float, "3.25"},
        {"\"hi\\tthere\"", LiteralKind::String, "hi\tthere"},
        {"'c'", LiteralKind::Char, "c"},            {"true", LiteralKind::Boolean, "true"},
        {"false", LiteralKind::Boolean, "false"},  {"null", LiteralKind::Null, "null"},
    };
    for (const LiteralRow& row : rows) {
        ParseRun run(row.source);
        auto expr = run.expression();
        ASSERT_NE(expr, nullptr) << row.source;
        ASSERT_EQ(expr->nodeKind, NodeKind::LiteralExpr) << row.source;
        const auto& literal = static_cast<const LiteralExpr&>(*expr);
        EXPECT_EQ(literal.literalKind, row.kind) << row.source;
        EXPECT_EQ(literal.value, row.value) << row.source;
        EXPECT_EQ(literal.location.column, 1u);
        EXPECT_TRUE(run.diagnostics().empty()) << row.source;
    }
}

TEST(ExpressionPrefix, KeywordsThatStandForNamesBecomeIdentifiers) {
    for (const char* word : {"this", "super", "assert", "spawn"}) {
        ParseRun run(word);
        auto expr = run.expression();
        ASSERT_NE(expr, nullptr);
        ASSERT_EQ(expr->nodeKind, NodeKind::IdentifierExpr) << word;
        EXPECT_EQ(static_cast<const IdentifierExpr&>(*expr).name, word);
    }
}

TEST(ExpressionPrefix, AssertAndSpawnAreCallsOfANamedValue) {
    EXPECT_EQ(showExpression("assert(x)"), "(call assert x)");
    EXPECT_EQ(showExpression("spawn(work)"), "(call spawn work)");
}

TEST(ExpressionPrefix, TypeKeywordsUsedAsValuesAreIdentifiers) {
    EXPECT_EQ(showExpression("string.valueOf(x)"), "(call (. string valueOf) x)");
    EXPECT_EQ(showExpression("int(x)"), "(call int x)");
    ParseRun run("uint64");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::IdentifierExpr);
    EXPECT_EQ(static_cast<const IdentifierExpr&>(*expr).name, "uint64");
}

TEST(ExpressionPrefix, IdentifierTakesItsTokensLocation) {
    ParseRun run("\n   name");
    auto expr = run.expression();
    ASSERT_NE(expr, nullptr);
    EXPECT_EQ(expr->location.file, "test.qr");
    EXPECT_EQ(expr->location.line, 2u);
    EXPECT_EQ(expr->location.column, 4u);
}

TEST(ExpressionPrefix, PrefixOperatorsBuildPrefixUnaryNodes) {
    for (const char* op : {"!", "-", "+", "~", "++", "--"}) {
        std::string source(op);
        source.append("x");
        ParseRun run(source);
        auto expr = run.expression();
        ASSERT_NE(expr, nullptr) << op;
        ASSERT_EQ(expr->nodeKind, NodeKind::UnaryExpr) << op;
        const auto& unary = static_cast<const UnaryExpr&>(*expr);
        EXPECT_TRUE(unary.isPrefix);
        EXPECT_EQ(quor::lexer::tokenTypeToString(unary.op), op);
        EXPECT_EQ(show(unary.operand.get()), "x");
        EXPECT_EQ(unary.location.column, 1u);
    }
}

TEST(ExpressionPrefix, PrefixOperatorWithoutOperandKeepsANullOperand) {
    ParseRun run("-");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(- <null>)");
    EXPECT_EQ(run.messages(), std::vector<std::string>{"Expected expression, found: "});
}

TEST(ExpressionPrefix, TokenThatCannotStartAnExpressionIsReportedAndConsumed) {
    ParseRun run("] x");
    auto expr = run.expression();
    EXPECT_EQ(expr, nullptr);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].code, "E1000");
    EXPECT_EQ(run.diagnostics()[0].message, "Expected expression, found: ]");
    EXPECT_EQ(run.diagnostics()[0].hint, "");
    EXPECT_EQ(run.diagnostics()[0].location.column, 1u);
    EXPECT_EQ(run.access().peek().lexeme, "x");
}

TEST(ExpressionPrefix, KeywordsWithoutExpressionMeaningAreRejected) {
    for (const char* word : {"await", "async", "thread", "channel", "mutex", "fn", "class", "if"}) {
        ParseRun run(word);
        auto expr = run.expression();
        EXPECT_EQ(expr, nullptr) << word;
        std::string message = "Expected expression, found: ";
        message.append(word);
        EXPECT_EQ(run.messages(), std::vector<std::string>{message});
    }
}

TEST(ExpressionPrefix, AwaitIsNotAnOperator) {
    ParseRun run("await x");
    auto expr = run.expression();
    EXPECT_EQ(expr, nullptr);
    EXPECT_EQ(run.messages(), std::vector<std::string>{"Expected expression, found: await"});
    EXPECT_EQ(run.access().peek().lexeme, "x");
}

TEST(ExpressionPrefix, EndOfInputIsReportedWithAnEmptyLexeme) {
    ParseRun run("");
    auto expr = run.expression();
    EXPECT_EQ(expr, nullptr);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Expected expression, found: ");
    EXPECT_EQ(run.diagnostics()[0].location.line, 1u);
    EXPECT_EQ(run.diagnostics()[0].location.column, 1u);
    EXPECT_TRUE(run.access().isAtEnd());
}

TEST(ExpressionPrefix, InvalidTokenIsReportedWithItsText) {
    std::vector<Token> tokens{tok(TokenType::Invalid, "#", 1, 3), tok(TokenType::EndOfFile, "", 1, 4)};
    ParseRun run(tokens);
    EXPECT_EQ(run.expression(), nullptr);
    EXPECT_EQ(run.messages(), std::vector<std::string>{"Expected expression, found: #"});
    EXPECT_EQ(run.diagnostics()[0].location.column, 3u);
}

TEST(ExpressionPrefix, FailedOperandStaysNullInsideItsParent) {
    ParseRun run("a + ]");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(+ a <null>)");
    EXPECT_EQ(run.messages(), std::vector<std::string>{"Expected expression, found: ]"});
}

}  // namespace
