// Variable declarations in their three spellings (var/let, const, type
// first) and the tie-break between a typed declaration and an expression.
#include <gtest/gtest.h>

#include <string>

#include "parser/ParserTestSupport.h"

namespace quor::parser::testing {
namespace {

struct VarShape {
    std::string typeName;
    std::string name;
    bool isConst;
    bool isVarOrLet;
};

void expectVar(const ast::StatementNode* stmt, const VarShape& shape) {
    const auto* var = as<ast::VarDeclStmt>(stmt);
    ASSERT_NE(var, nullptr) << show(stmt);
    EXPECT_EQ(var->typeName, shape.typeName);
    EXPECT_EQ(var->name, shape.name);
    EXPECT_EQ(var->isConst, shape.isConst);
    EXPECT_EQ(var->isVarOrLet, shape.isVarOrLet);
    EXPECT_EQ(var->visibility, "");
    EXPECT_FALSE(var->isStatic);
}

TEST(StatementVarDecl, VarWithInitializerHasNoType) {
    ParseRun run("  var x = 1;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"", "x", false, true});
    EXPECT_EQ(show(stmt.get()), "(var  x 1)");
    EXPECT_EQ(stmt->location.column, 3u);  // the keyword
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementVarDecl, LetIsTheSameAsVar) {
    ParseRun run("let x;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"", "x", false, true});
    EXPECT_EQ(as<ast::VarDeclStmt>(stmt.get())->initializer, nullptr);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementVarDecl, VarWithKeywordType) {
    ParseRun run("var int x = 2;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"int", "x", false, true});
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementVarDecl, KeywordTypeMayCarryMarks) {
    ParseRun run("var int[]? xs;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"int[]?", "xs", false, true});
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementVarDecl, ConstWithKeywordType) {
    ParseRun run("const string s = \"a\";");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"string", "s", true, false});
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementVarDecl, ConstWithoutInitializerParses) {
    ParseRun run("const x;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"", "x", true, false});
    EXPECT_EQ(as<ast::VarDeclStmt>(stmt.get())->initializer, nullptr);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementVarDecl, ColonTypeAfterTheName) {
    ParseRun run("var p: Point = make();");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"Point", "p", false, true});
    EXPECT_EQ(show(stmt.get()), "(var Point p (call make))");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementVarDecl, ColonTypeReplacesAKeywordType) {
    ParseRun run("var int x: Map<string, int[]>?;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"Map<string, int[]>?", "x", false, true});
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementVarDecl, ClassNameCannotStandInFrontOfTheNameAfterVar) {
    ParseRun run("var Point p;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"", "Point", false, true});
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected ';' after variable declaration", 1, 11);
}

TEST(StatementVarDecl, MissingNameIsReportedAndLeftEmpty) {
    ParseRun run("var = 1;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"", "", false, true});
    EXPECT_EQ(show(stmt.get()), "(var   1)");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected variable name in declaration", 1, 5);
}

TEST(StatementVarDecl, MissingSemicolonIsReported) {
    ParseRun run("let x = 1\n");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"", "x", false, true});
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected ';' after variable declaration", 2, 1);
}

TEST(StatementTieBreak, SingleNameIsAnExpressionStatement) {
    ParseRun run("x;");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "(expr x)");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementTieBreak, TwoNamesAreADeclarationOfTheFirstAsType) {
    ParseRun run("  x y;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"x", "y", false, false});
    EXPECT_EQ(stmt->location.column, 5u);  // the declared name
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementTieBreak, NullableTypeDeclaration) {
    ParseRun run("x? y = null;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"x?", "y", false, false});
    EXPECT_EQ(show(stmt.get()), "(var x? y null)");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementTieBreak, ArrayTypeDeclaration) {
    ParseRun run("x[] y;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"x[]", "y", false, false});
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementTieBreak, GenericTypeDeclaration) {
    ParseRun run("List<int> y;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"List<int>", "y", false, false});
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementTieBreak, KeywordTypedDeclarationWithInitializer) {
    ParseRun run("int x = 1;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"int", "x", false, false});
    EXPECT_EQ(show(stmt.get()), "(var int x 1)");
    EXPECT_EQ(stmt->location.column, 5u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementTieBreak, ClassTypedDeclarationWithoutInitializer) {
    ParseRun run("Point p;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"Point", "p", false, false});
    EXPECT_EQ(as<ast::VarDeclStmt>(stmt.get())->initializer, nullptr);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(StatementTieBreak, NamesWithoutSemicolonAreNotADeclaration) {
    ParseRun run("x y");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "(expr x)");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected ';' after expression", 1, 3);
}

TEST(StatementTieBreak, CommaBehindTheNameSelectsADeclarationButNoList) {
    ParseRun run("int a, b;");
    auto stmt = run.access().parseStatement();
    expectVar(stmt.get(), {"int", "a", false, false});
    ASSERT_EQ(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected ';' after variable declaration", 1, 6);
}

// Statements that open like a typed declaration but are expressions: the
// tentative declaration read rewinds and leaves no report behind.
TEST(StatementTieBreak, ExpressionStatementsRewindCleanly) {
    struct Row {
        const char* name;
        const char* source;
        const char* tree;
    };
    const Row rows[] = {
        {"index assignment", "a[i] = 1;", "(expr (= ([] a i) 1))"},
        {"ternary", "a ? b : c;", "(expr (? a b c))"},
        {"generic call", "f<int>(x);", "(expr (call f <int> x))"},
        {"keyword used as a value", "int(x);", "(expr (call int x))"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ParseRun run(row.source);
        auto stmt = run.access().parseStatement();
        EXPECT_EQ(show(stmt.get()), row.tree);
        EXPECT_TRUE(run.diagnostics().empty());
    }
}

TEST(StatementTieBreak, LeadingComparisonKeepsTheReportsOfTheTypeAttempt) {
    // The tentative type read of `a < 5` fails on the number; its reports
    // stay after the rewind, and the statement is the comparison.
    ParseRun run("a < 5;");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "(expr (< a 5))");
    ASSERT_GE(run.diagnostics().size(), 1u);
    expectReport(run.diagnostics()[0], "Expected type name", 1, 5);
}

TEST(StatementTieBreak, SimpleComparisonBetweenNamesWithoutNumbers) {
    ParseRun run("a < b;");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "(expr (< a b))");
}

}  // namespace
}  // namespace quor::parser::testing
