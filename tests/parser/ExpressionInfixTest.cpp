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

TEST(ExpressionInfix, BinaryNodeStandsAtItsOperator) {
    ParseRun run("a  *  b");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::BinaryExpr);
    const auto& binary = static_cast<const BinaryExpr&>(*expr);
    EXPECT_EQ(binary.op, TokenType::Star);
    EXPECT_EQ(binary.location.column, 4u);
    EXPECT_EQ(binary.left->location.column, 1u);
    EXPECT_EQ(binary.right->location.column, 7u);
}

TEST(ExpressionInfix, RangeAndNullCoalesceAreBinaryNodes) {
    ParseRun run("a ?? b");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::BinaryExpr);
    EXPECT_EQ(static_cast<const BinaryExpr&>(*expr).op, TokenType::QuestionQuestion);
    ParseRun range("1..10");
    auto rangeExpr = range.expression();
    ASSERT_EQ(rangeExpr->nodeKind, NodeKind::BinaryExpr);
    EXPECT_EQ(static_cast<const BinaryExpr&>(*rangeExpr).op, TokenType::DotDot);
}

TEST(ExpressionInfix, AssignmentOperatorsBuildAssignNodes) {
    const TokenType ops[] = {TokenType::Equal,     TokenType::PlusEqual,  TokenType::MinusEqual,
                             TokenType::StarEqual, TokenType::SlashEqual, TokenType::PercentEqual};
    for (TokenType op : ops) {
        std::string source = "a ";
        source.append(quor::lexer::tokenTypeToString(op)).append(" 1");
        ParseRun run(source);
        auto expr = run.expression();
        ASSERT_NE(expr, nullptr) << source;
        ASSERT_EQ(expr->nodeKind, NodeKind::AssignExpr) << source;
        const auto& assign = static_cast<const AssignExpr&>(*expr);
        EXPECT_EQ(assign.op, op);
        EXPECT_EQ(assign.location.column, 3u);
        EXPECT_EQ(show(assign.target.get()), "a");
        EXPECT_EQ(show(assign.value.get()), "1");
    }
}

TEST(ExpressionInfix, PostfixIncrementAndDecrement) {
    ParseRun run("i++");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::UnaryExpr);
    const auto& unary = static_cast<const UnaryExpr&>(*expr);
    EXPECT_FALSE(unary.isPrefix);
    EXPECT_EQ(unary.op, TokenType::PlusPlus);
    EXPECT_EQ(unary.location.column, 2u);
    EXPECT_EQ(showExpression("a[i]--"), "(([] a i) --)");
    EXPECT_EQ(showExpression("i++ + 1"), "(+ (i ++) 1)");
}

TEST(ExpressionInfix, MemberAccessTakesNamesTypeKeywordsAndSpawn) {
    EXPECT_EQ(showExpression("a.b.c"), "(. (. a b) c)");
    EXPECT_EQ(showExpression("a.int"), "(. a int)");
    EXPECT_EQ(showExpression("a.spawn"), "(. a spawn)");
    ParseRun run("a.b");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::MemberExpr);
    const auto& member = static_cast<const MemberExpr&>(*expr);
    EXPECT_FALSE(member.isSafe);
    EXPECT_EQ(member.member, "b");
    EXPECT_EQ(member.location.column, 2u);
}

TEST(ExpressionInfix, SafeNavigationSetsTheFlag) {
    ParseRun run("a?.b");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::MemberExpr);
    EXPECT_TRUE(static_cast<const MemberExpr&>(*expr).isSafe);
    EXPECT_EQ(showExpression("a?.b?.c()"), "(call (?. (?. a b) c))");
}

TEST(ExpressionInfix, KeywordAfterDotIsReportedAndTheNameIsEmpty) {
    ParseRun run("a.class");
    auto expr = run.expression();
    ASSERT_NE(expr, nullptr);
    ASSERT_EQ(expr->nodeKind, NodeKind::MemberExpr);
    EXPECT_EQ(static_cast<const MemberExpr&>(*expr).member, "");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Expected member identifier after '.'");
    EXPECT_EQ(run.diagnostics()[0].location.column, 3u);
    EXPECT_EQ(run.access().peek().lexeme, "class");  // not consumed
}

TEST(ExpressionInfix, IndexExpression) {
    ParseRun run("a[1 + 2]");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "([] a (+ 1 2))");
    EXPECT_EQ(expr->location.column, 2u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionInfix, UnclosedIndexIsReported) {
    ParseRun run("a[1");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "([] a 1)");
    EXPECT_EQ(run.messages(), Messages{"Expected ']' after index"});
}

TEST(ExpressionInfix, TernaryNodeStandsAtTheQuestionMark) {
    ParseRun run("c ? a : b");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::TernaryExpr);
    EXPECT_EQ(expr->location.column, 3u);
    EXPECT_EQ(show(expr.get()), "(? c a b)");
}

TEST(ExpressionInfix, TernaryWithoutColonIsReportedAndStillBuilt) {
    ParseRun run("c ? a");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(? c a <null>)");
    EXPECT_EQ(run.messages(), (Messages{"Expected ':' in ternary operator", "Expected expression, found: "}));
}

TEST(ExpressionInfix, ElseBranchOfATernaryStopsBeforeAnAssignment) {
    EXPECT_EQ(showExpression("c ? a : b = d"), "(= (? c a b) d)");
}

TEST(ExpressionInfix, CallArguments) {
    EXPECT_EQ(showExpression("f()"), "(call f)");
    EXPECT_EQ(showExpression("f(a, b = 1, c ? d : e)"), "(call f a (= b 1) (? c d e))");
    EXPECT_EQ(showExpression("f(1)(2)"), "(call (call f 1) 2)");
}

TEST(ExpressionInfix, TrailingCommaInACallLeavesANullArgumentAndTwoReports) {
    ParseRun run("f(1,)");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(call f 1 <null>)");
    EXPECT_EQ(run.messages(), (Messages{"Expected expression, found: )", "Expected ')' after argument list"}));
}

TEST(ExpressionInfix, UnclosedCallIsReportedAtTheEnd) {
    ParseRun run("f(1");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(call f 1)");
    EXPECT_EQ(run.messages(), Messages{"Expected ')' after argument list"});
    EXPECT_EQ(run.diagnostics()[0].location.column, 4u);
}

TEST(ExpressionInfix, GenericCallWithUnclosedArgumentListReportsItsOwnMessages) {
    ParseRun run("f<int>(1");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(call f <int> 1)");
    EXPECT_EQ(run.messages(), Messages{"Expected ')' after argument list"});
}

TEST(ExpressionInfix, MiddleOfATernaryIsAFullExpression) {
    EXPECT_EQ(showExpression("a ? b = c : d"), "(? a (= b c) d)");
    EXPECT_EQ(showExpression("a ? b ? c : d : e"), "(? a (? b c d) e)");
}

TEST(ExpressionInfix, PostfixOperatorsChainLeftToRight) {
    EXPECT_EQ(showExpression("a.b[c](d)?.e++"), "((?. (call ([] (. a b) c) d) e) ++)");
}

}  // namespace
