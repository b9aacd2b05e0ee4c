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

const LambdaExpr& asLambda(const ExprPtr& expr) {
    EXPECT_NE(expr, nullptr);
    EXPECT_EQ(expr->nodeKind, NodeKind::LambdaExpr);
    return static_cast<const LambdaExpr&>(*expr);
}

TEST(ExpressionLambda, SingleParameterWithoutParentheses) {
    ParseRun run("  x => x + 1");
    auto expr = run.expression();
    const LambdaExpr& lambda = asLambda(expr);
    ASSERT_EQ(lambda.params.size(), 1u);
    EXPECT_EQ(lambda.params[0].name, "x");
    EXPECT_EQ(lambda.params[0].type, "");
    EXPECT_EQ(lambda.returnType, "");
    EXPECT_EQ(show(lambda.body.get()), "(+ x 1)");
    EXPECT_EQ(lambda.location.column, 3u);  // the identifier
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionLambda, ParenthesisedParameterWithBlockBody) {
    ParseRun run("(x) => { return x; }");
    auto expr = run.expression();
    const LambdaExpr& lambda = asLambda(expr);
    ASSERT_EQ(lambda.params.size(), 1u);
    EXPECT_EQ(lambda.params[0].name, "x");
    ASSERT_NE(lambda.body, nullptr);
    ASSERT_EQ(lambda.body->nodeKind, NodeKind::BlockStmt);
    const auto& block = static_cast<const BlockStmt&>(*lambda.body);
    ASSERT_EQ(block.statements.size(), 1u);
    EXPECT_EQ(show(block.statements[0].get()), "(return x)");
    EXPECT_EQ(lambda.location.column, 1u);  // the opening parenthesis
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionLambda, EmptyParenthesesBeforeAnArrowAreALambdaWithoutParameters) {
    ParseRun run("() => 42");
    auto expr = run.expression();
    const LambdaExpr& lambda = asLambda(expr);
    EXPECT_TRUE(lambda.params.empty());
    EXPECT_EQ(show(lambda.body.get()), "42");
    EXPECT_EQ(show(expr.get()), "(lambda () 42)");
}

TEST(ExpressionLambda, EmptyParenthesesWithoutArrowAreReportedAtTheClosingOne) {
    ParseRun run("( ) + 1");
    auto expr = run.expression();
    EXPECT_EQ(expr, nullptr);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Empty parentheses '()' are only allowed in lambda definitions");
    EXPECT_EQ(run.diagnostics()[0].hint, "");
    EXPECT_EQ(run.diagnostics()[0].location.column, 3u);
    EXPECT_EQ(run.access().peek().lexeme, "+");
}

TEST(ExpressionLambda, SeveralParametersWithKeywordTypes) {
    EXPECT_EQ(showExpression("(a, b) => a"), "(lambda (a b) a)");
    EXPECT_EQ(showExpression("(int a, string b) => a"), "(lambda (a:int b:string) a)");
    EXPECT_EQ(showExpression("(int[] a, string? b) => a"), "(lambda (a:int[] b:string?) a)");
    EXPECT_EQ(showExpression("(a, int b) => b"), "(lambda (a b:int) b)");
}

TEST(ExpressionLambda, TrailingCommaAmongParametersIsTolerated) {
    ParseRun run("(a, b,) => a");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(lambda (a b) a)");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionLambda, ParenthesisedNameIsTheNameItself) {
    ParseRun run("(a)");
    auto expr = run.expression();
    ASSERT_NE(expr, nullptr);
    EXPECT_EQ(expr->nodeKind, NodeKind::IdentifierExpr);
    EXPECT_EQ(expr->location.column, 2u);  // no grouping node: the name keeps its place
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionLambda, GroupingChangesTheNesting) {
    EXPECT_EQ(showExpression("(a + b) * c"), "(* (+ a b) c)");
    EXPECT_EQ(showExpression("((a))"), "a");
    EXPECT_EQ(showExpression("(1)"), "1");
}

TEST(ExpressionLambda, TwoNamesInParenthesesWithoutArrowFailAfterTheRewind) {
    ParseRun run("(a, b)");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "a");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Expected ')' after expression");
    EXPECT_EQ(run.diagnostics()[0].location.column, 3u);  // at the comma
}

TEST(ExpressionLambda, ClassTypedParameterCannotBeWritten) {
    ParseRun run("(Point p) => p");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "Point");
    ASSERT_FALSE(run.diagnostics().empty());
    EXPECT_EQ(run.diagnostics()[0].message, "Expected ')' after expression");
    EXPECT_EQ(run.diagnostics()[0].location.column, 8u);  // at "p"
}

TEST(ExpressionLambda, ReportsOfTheTentativeLambdaReadingStayAfterTheRewind) {
    // The attempt reads "int<" as the start of a generic type, fails on the
    // number and reports twice; the rewind then parses "int < 5" as a
    // comparison without complaint.
    ParseRun run("(int < 5)");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(< int 5)");
    EXPECT_EQ(run.messages(), (Messages{"Expected type name", "Expected '>' after generic type arguments"}));
    EXPECT_EQ(run.diagnostics()[0].location.column, 8u);
    EXPECT_EQ(run.diagnostics()[1].location.column, 8u);
}

TEST(ExpressionLambda, LambdaBodyCanBeAnAssignment) {
    EXPECT_EQ(showExpression("x => y = x"), "(lambda (x) (= y x))");
}

TEST(ExpressionLambda, LambdaAsACallArgument) {
    EXPECT_EQ(showExpression("list.map(x => x * 2)"), "(call (. list map) (lambda (x) (* x 2)))");
    EXPECT_EQ(showExpression("f((a, b) => a + b, 0)"), "(call f (lambda (a b) (+ a b)) 0)");
}

TEST(ExpressionLambda, MissingBodyIsNull) {
    ParseRun run("x =>");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(lambda (x) <null>)");
    EXPECT_EQ(run.messages(), Messages{"Expected expression, found: "});
}

TEST(ExpressionLambda, LambdaWithoutParametersStandsAtTheOpeningParenthesis) {
    ParseRun run("  () => {}");
    auto expr = run.expression();
    const LambdaExpr& lambda = asLambda(expr);
    EXPECT_EQ(lambda.location.column, 3u);
    ASSERT_NE(lambda.body, nullptr);
    EXPECT_EQ(lambda.body->nodeKind, NodeKind::BlockStmt);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionLambda, SingleParameterLambdaInsideParentheses) {
    ParseRun run("(x => 1)");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(lambda (x) 1)");
    EXPECT_EQ(expr->location.column, 2u);  // the identifier
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionLambda, TypedParameterWithoutArrowIsReadAgainAsAnExpression) {
    ParseRun run("(int x)");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "int");
    EXPECT_EQ(run.messages(), Messages{"Expected ')' after expression"});
    EXPECT_EQ(run.diagnostics()[0].location.column, 6u);  // at "x"
}

}  // namespace
