// Blocks, expression statements and the simple keyword statements
// (return, break, continue, throw).
#include <gtest/gtest.h>

#include <string>

#include "parser/ParserTestSupport.h"

namespace quor::parser::testing {
namespace {

using lexer::TokenType;

TEST(StatementBlock, EmptyBracesAreAnEmptyBlockNotAMap) {
    ParseRun run("{}");
    auto stmt = run.access().parseStatement();
    const auto* block = as<ast::BlockStmt>(stmt.get());
    ASSERT_NE(block, nullptr);
    EXPECT_TRUE(block->statements.empty());
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementBlock, BlockTakesTheLocationOfItsBrace) {
    ParseRun run("\n  { a; b; }");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "{(expr a) (expr b)}");
    EXPECT_EQ(stmt->location.line, 2u);
    EXPECT_EQ(stmt->location.column, 3u);
}

TEST(StatementBlock, MapLiteralCannotOpenAnExpressionStatement) {
    ParseRun run("{a: 1};");
    auto stmt = run.access().parseStatement();
    ASSERT_NE(as<ast::BlockStmt>(stmt.get()), nullptr);
    EXPECT_FALSE(run.diagnostics().empty());
}

TEST(StatementBlock, BlockWithoutOpeningBraceReportsAtTheNextToken) {
    ParseRun run("a; }");
    auto block = run.access().parseBlock();
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block->location.column, 1u);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected '{' to start block", 1, 1);
    EXPECT_EQ(show(block.get()), "{(expr a)}");
}

TEST(StatementBlock, UnclosedBlockReportsAtTheEndOfInput) {
    ParseRun run("{ a;\n");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "{(expr a)}");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected '}' to close block", 2, 1);
}

TEST(StatementBlock, NestedBlocks) {
    ParseRun run("{ { x; } {} }");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "{{(expr x)} {}}");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementExpression, ExpressionStatementTakesTheLocationOfItsFirstToken) {
    ParseRun run("  f(1) + 2;");
    auto stmt = run.access().parseStatement();
    const auto* expr = as<ast::ExprStmt>(stmt.get());
    ASSERT_NE(expr, nullptr);
    EXPECT_EQ(show(stmt.get()), "(expr (+ (call f 1) 2))");
    EXPECT_EQ(expr->location.column, 3u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementExpression, MissingSemicolonReportsAndTheNextWordBecomesTheNextStatement) {
    ParseRun run("{ a b }");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "{(expr a) (expr b)}");
    ASSERT_EQ(run.diagnostics().size(), 2u);
    expectReport(run.diagnostics()[0], "Expected ';' after expression", 1, 5);
    expectReport(run.diagnostics()[1], "Expected ';' after expression", 1, 7);
}

TEST(StatementExpression, ExpressionStatementIsBuiltEvenWhenTheExpressionFails) {
    ParseRun run(");");
    auto stmt = run.access().parseStatement();
    const auto* expr = as<ast::ExprStmt>(stmt.get());
    ASSERT_NE(expr, nullptr);
    EXPECT_EQ(expr->expression, nullptr);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected expression, found: )", 1, 1);
}

TEST(StatementExpression, AssignmentAndCallStatements) {
    ParseRun run("{ a = b; a.b(c); a[i] = 1; x++; }");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "{(expr (= a b)) (expr (call (. a b) c)) (expr (= ([] a i) 1)) (expr (x ++))}");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementReturn, ReturnWithValue) {
    ParseRun run("return a + 1;");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "(return (+ a 1))");
    EXPECT_EQ(stmt->location.column, 1u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementReturn, ReturnWithoutValueHasNullValue) {
    ParseRun run("  return;");
    auto stmt = run.access().parseStatement();
    const auto* ret = as<ast::ReturnStmt>(stmt.get());
    ASSERT_NE(ret, nullptr);
    EXPECT_EQ(ret->value, nullptr);
    EXPECT_EQ(ret->location.column, 3u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementReturn, MissingSemicolonAfterReturn) {
    ParseRun run("return 1 }");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "(return 1)");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected ';' after return statement", 1, 10);
}

TEST(StatementReturn, ReturnAtTheEndOfInputParsesAnExpressionAndReportsFromIt) {
    ParseRun run("return");
    auto stmt = run.access().parseStatement();
    const auto* ret = as<ast::ReturnStmt>(stmt.get());
    ASSERT_NE(ret, nullptr);
    EXPECT_EQ(ret->value, nullptr);
    ASSERT_EQ(run.diagnostics().size(), 2u);
    expectReport(run.diagnostics()[0], "Expected expression, found: ", 1, 7);
    expectReport(run.diagnostics()[1], "Expected ';' after return statement", 1, 7);
}

TEST(StatementBreakContinue, BreakAndContinueHaveNoFields) {
    ParseRun run("{ break; continue; }");
    auto stmt = run.access().parseStatement();
    const auto* block = as<ast::BlockStmt>(stmt.get());
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(block->statements.size(), 2u);
    EXPECT_NE(as<ast::BreakStmt>(block->statements[0].get()), nullptr);
    EXPECT_NE(as<ast::ContinueStmt>(block->statements[1].get()), nullptr);
    EXPECT_EQ(block->statements[0]->location.column, 3u);
    EXPECT_EQ(block->statements[1]->location.column, 10u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementBreakContinue, MissingSemicolonsAreReported) {
    ParseRun run("{ break continue }");
    run.access().parseStatement();
    ASSERT_EQ(run.diagnostics().size(), 2u);
    expectReport(run.diagnostics()[0], "Expected ';' after break", 1, 9);
    expectReport(run.diagnostics()[1], "Expected ';' after continue", 1, 18);
}

TEST(StatementBreakContinue, LabelsAreNotPartOfTheLanguage) {
    ParseRun run("break outer;");
    auto stmt = run.access().parseStatement();
    EXPECT_NE(as<ast::BreakStmt>(stmt.get()), nullptr);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected ';' after break", 1, 7);
}

TEST(StatementThrow, ThrowCarriesItsValue) {
    ParseRun run("throw new Error(\"x\");");
    auto stmt = run.access().parseStatement();
    const auto* thrown = as<ast::ThrowStmt>(stmt.get());
    ASSERT_NE(thrown, nullptr);
    EXPECT_EQ(show(thrown->value.get()), "(new Error \"x\")");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementThrow, MissingSemicolonAfterThrow) {
    ParseRun run("throw e");
    auto stmt = run.access().parseStatement();
    ASSERT_NE(as<ast::ThrowStmt>(stmt.get()), nullptr);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected ';' after throw statement", 1, 8);
}

TEST(StatementThrow, ThrowWithoutValueHasNullValue) {
    ParseRun run("throw;");
    auto stmt = run.access().parseStatement();
    const auto* thrown = as<ast::ThrowStmt>(stmt.get());
    ASSERT_NE(thrown, nullptr);
    EXPECT_EQ(thrown->value, nullptr);
    ASSERT_GE(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected expression, found: ;", 1, 6);
}

TEST(StatementEnum, EnumInsideABlockIsADeclarationWithoutVisibility) {
    ParseRun run("{ enum Color { Red, Green } }");
    auto stmt = run.access().parseStatement();
    const auto* block = as<ast::BlockStmt>(stmt.get());
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(block->statements.size(), 1u);
    const auto* decl = as<ast::EnumDecl>(block->statements[0].get());
    ASSERT_NE(decl, nullptr);
    EXPECT_EQ(decl->name, "Color");
    EXPECT_EQ(decl->visibility, "");
    EXPECT_EQ(decl->variants.size(), 2u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementEnum, TheProgramSaysWhetherAnyEnumStandsBelowTheTopLevel) {
    struct Case {
        const char* source;
        bool mayNest;
    };
    const Case cases[] = {
        {"enum A { X }\nfn f() { let a = 1; { a; } }\npublic enum B { Y }\n", false},
        {"fn f() { return 1; }\n", false},
        {"enum A { X }\nfn f() { { enum Inner { Y } } }\n", true},
        {"{ enum Inner { Y } }\n", true},
        // The declaration fails after its keyword; counting it anyway can
        // only make the resolver look where nothing is.
        {"fn f() { enum }\n", true},
    };
    for (const Case& c : cases) {
        ParsedProgram parsed(c.source);
        ASSERT_NE(parsed.program, nullptr) << c.source;
        EXPECT_EQ(parsed.program->mayNestEnums, c.mayNest) << c.source;
    }
    EXPECT_EQ(ParsedProgram(cases[0].source).program->declarations.size(), 3u);
}

}  // namespace
}  // namespace quor::parser::testing
