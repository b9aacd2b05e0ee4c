#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace {

using namespace quor::ast;
using quor::parser::testing::ParseRun;
using quor::parser::testing::show;
using quor::parser::testing::showExpression;

using Messages = std::vector<std::string>;

TEST(ExpressionCollections, BracketLiteral) {
    ParseRun run(" [1, 2, 3]");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::ArrayExpr);
    EXPECT_EQ(show(expr.get()), "[1 2 3]");
    EXPECT_EQ(expr->location.column, 2u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionCollections, EmptyBracketsAreAnEmptyArray) {
    ParseRun run("[]");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::ArrayExpr);
    EXPECT_TRUE(static_cast<const ArrayExpr&>(*expr).elements.empty());
}

TEST(ExpressionCollections, TrailingCommaInBracketsIsAnError) {
    ParseRun run("[1, 2,]");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "[1 2 <null>]");
    EXPECT_EQ(run.messages(), (Messages{"Expected expression, found: ]", "Expected ']' at end of array literal"}));
}

TEST(ExpressionCollections, UnclosedBracketLiteralIsReported) {
    ParseRun run("[1 2");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "[1]");
    EXPECT_EQ(run.messages(), Messages{"Expected ']' at end of array literal"});
    EXPECT_EQ(run.diagnostics()[0].location.column, 4u);
}

TEST(ExpressionCollections, EmptyBracesAreAlwaysAMap) {
    ParseRun run("{}");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::MapExpr);
    EXPECT_TRUE(static_cast<const MapExpr&>(*expr).entries.empty());
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionCollections, BracesWithOneValueAreAnArray) {
    ParseRun run("{1}");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::ArrayExpr);
    EXPECT_EQ(show(expr.get()), "[1]");
}

TEST(ExpressionCollections, BraceMapAcceptsATrailingComma) {
    ParseRun run("  {1: 2,}");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::MapExpr);
    EXPECT_EQ(show(expr.get()), "{1:2}");
    EXPECT_EQ(expr->location.column, 3u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionCollections, BraceArrayAcceptsATrailingComma) {
    ParseRun run("{1, 2,}");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::ArrayExpr);
    EXPECT_EQ(static_cast<const ArrayExpr&>(*expr).elements.size(), 2u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionCollections, MapWithSeveralEntries) {
    EXPECT_EQ(showExpression("{\"a\": 1, \"b\": x + 1}"), "{\"a\":1 \"b\":(+ x 1)}");
}

TEST(ExpressionCollections, MapEntryWithoutColonIsReported) {
    ParseRun run("{a: 1, b}");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::MapExpr);
    EXPECT_EQ(run.messages(),
              (Messages{"Expected ':' between key and value in map entry", "Expected expression, found: }",
                        "Expected '}' at end of map literal"}));
    EXPECT_EQ(run.diagnostics()[0].location.column, 9u);
    EXPECT_EQ(show(expr.get()), "{a:1 b:<null>}");
}

TEST(ExpressionCollections, UnclosedBraceLiteralsReportTheirOwnMessage) {
    ParseRun map("{a: 1");
    map.expression();
    EXPECT_EQ(map.messages(), Messages{"Expected '}' at end of map literal"});
    ParseRun array("{1, 2");
    array.expression();
    EXPECT_EQ(array.messages(), Messages{"Expected '}' at end of array literal"});
}

TEST(ExpressionCollections, NestedLiterals) {
    EXPECT_EQ(showExpression("[[1], {2}, {}]"), "[[1] [2] {}]");
    EXPECT_EQ(showExpression("{1: [2, 3]}"), "{1:[2 3]}");
}

}  // namespace
