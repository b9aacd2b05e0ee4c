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

TEST(ExpressionNew, ObjectCreationWithArguments) {
    ParseRun run(" new Point(1, 2)");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::NewExpr);
    const auto& created = static_cast<const NewExpr&>(*expr);
    EXPECT_EQ(created.className, "Point");
    EXPECT_TRUE(created.typeArgs.empty());
    EXPECT_EQ(created.args.size(), 2u);
    EXPECT_EQ(created.location.column, 2u);  // at "new"
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionNew, TypeArgumentsAreKept) {
    ParseRun run("new Box<int>(1)");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, NodeKind::NewExpr);
    EXPECT_EQ(static_cast<const NewExpr&>(*expr).typeArgs, std::vector<std::string>{"int"});
    EXPECT_EQ(showExpression("new Map<string, List<int> >()"), "(new Map <string, List<int>>)");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(ExpressionNew, QualifiedClassNameFailsAtTheDot) {
    ParseRun run("new a.b()");
    auto expr = run.expression();
    ASSERT_NE(expr, nullptr);
    EXPECT_EQ(static_cast<const NewExpr&>(*expr).className, "a");
    ASSERT_FALSE(run.diagnostics().empty());
    EXPECT_EQ(run.diagnostics()[0].message, "Expected '(' after class name in new expression");
    EXPECT_EQ(run.diagnostics()[0].location.column, 6u);
}

TEST(ExpressionNew, MissingClassNameIsReported) {
    ParseRun run("new (1)");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(new  1)");
    EXPECT_EQ(run.messages(), Messages{"Expected class name after 'new'"});
}

TEST(ExpressionNew, UnclosedTypeArgumentsAreReported) {
    ParseRun run("new Box<int(1)");
    auto expr = run.expression();
    EXPECT_EQ(run.messages(), Messages{"Expected '>' after generic type arguments"});
    EXPECT_EQ(show(expr.get()), "(new Box <int> 1)");
}

TEST(ExpressionNew, UnclosedArgumentsAreReported) {
    ParseRun run("new Box(1");
    run.expression();
    EXPECT_EQ(run.messages(), Messages{"Expected ')' after constructor arguments"});
}

TEST(ExpressionNew, CreatedObjectTakesPostfixOperators) {
    EXPECT_EQ(showExpression("new A().b"), "(. (new A) b)");
}

}  // namespace
