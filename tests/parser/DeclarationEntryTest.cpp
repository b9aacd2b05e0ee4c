// The declaration entry: modifiers and the choice among the declaration
// forms, module and import paths, extern blocks, and statements standing at
// the top level.
#include <gtest/gtest.h>

#include <string>

#include "parser/ParserTestSupport.h"

namespace quor::parser::testing {
namespace {

using Parsed = ParsedProgram;

// ---- modifiers ----

TEST(DeclarationModifiers, AnyCombinationIsAcceptedAndTheLastVisibilityWins) {
    Parsed p("private public abstract static fn f();");
    const auto* fn = p.get<ast::FunctionDecl>();
    ASSERT_NE(fn, nullptr);
    EXPECT_EQ(fn->visibility, "public");
    EXPECT_TRUE(fn->isAbstract);
    EXPECT_TRUE(fn->isStatic);
    EXPECT_FALSE(fn->isOverride);
    EXPECT_FALSE(fn->isAsync);
    EXPECT_EQ(fn->body, nullptr);
    EXPECT_EQ(fn->exprBody, nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModifiers, RepeatsAreAcceptedAndEachVisibilityWordHasItsText) {
    const std::pair<const char*, const char*> cases[] = {
        {"public fn f() {}", "public"},
        {"private fn f() {}", "private"},
        {"protected fn f() {}", "protected"},
        {"internal fn f() {}", "internal"},
        {"public public internal fn f() {}", "internal"},
        {"static static fn f() {}", ""},
    };
    for (const auto& [source, visibility] : cases) {
        Parsed p(source);
        const auto* fn = p.get<ast::FunctionDecl>();
        ASSERT_NE(fn, nullptr) << source;
        EXPECT_EQ(fn->visibility, visibility) << source;
        EXPECT_EQ(p.reports(), 0u) << source;
    }
}

TEST(DeclarationModifiers, OverrideAndStaticSetTheirFlags) {
    Parsed p("override fn f() {} static fn g() {}");
    ASSERT_EQ(p.count(), 2u);
    EXPECT_TRUE(p.get<ast::FunctionDecl>(0)->isOverride);
    EXPECT_FALSE(p.get<ast::FunctionDecl>(0)->isStatic);
    EXPECT_TRUE(p.get<ast::FunctionDecl>(1)->isStatic);
    EXPECT_FALSE(p.get<ast::FunctionDecl>(1)->isOverride);
}

TEST(DeclarationModifiers, AbstractClassSetsTheFlag) {
    Parsed p("abstract class A {}");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    EXPECT_TRUE(cls->isAbstract);
    EXPECT_EQ(cls->visibility, "");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModifiers, AbstractFunctionWithoutBody) {
    Parsed p("abstract fn f();");
    const auto* fn = p.get<ast::FunctionDecl>();
    ASSERT_NE(fn, nullptr);
    EXPECT_TRUE(fn->isAbstract);
    EXPECT_EQ(fn->body, nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModifiers, VisibilityReachesTypeDeclarations) {
    Parsed p("protected class C {} public interface I {} internal struct S {} private enum E {}");
    ASSERT_EQ(p.count(), 4u);
    EXPECT_EQ(p.get<ast::ClassDecl>(0)->visibility, "protected");
    EXPECT_EQ(p.get<ast::InterfaceDecl>(1)->visibility, "public");
    EXPECT_EQ(p.get<ast::StructDecl>(2)->visibility, "internal");
    EXPECT_EQ(p.get<ast::EnumDecl>(3)->visibility, "private");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModifiers, StaticTypedFieldKeepsTheFlagAndVisibility) {
    Parsed p("public static int x = 1;");
    const auto* var = p.get<ast::VarDeclStmt>();
    ASSERT_NE(var, nullptr);
    EXPECT_TRUE(var->isStatic);
    EXPECT_EQ(var->visibility, "public");
    EXPECT_EQ(var->typeName, "int");
    EXPECT_EQ(var->name, "x");
    EXPECT_FALSE(var->isConst);
    EXPECT_FALSE(var->isVarOrLet);
    EXPECT_EQ(show(var->initializer.get()), "1");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModifiers, StaticVarLosesTheFlag) {
    Parsed p("public static var x = 1;");
    const auto* var = p.get<ast::VarDeclStmt>();
    ASSERT_NE(var, nullptr);
    EXPECT_FALSE(var->isStatic);
    EXPECT_EQ(var->visibility, "");
    EXPECT_TRUE(var->isVarOrLet);
    EXPECT_EQ(var->location.column, 15u);  // the `var` keyword
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModifiers, ConstAndLetDropModifiers) {
    Parsed p("private static const int c = 1; static let y = 2;");
    ASSERT_EQ(p.count(), 2u);
    const auto* c = p.get<ast::VarDeclStmt>(0);
    ASSERT_NE(c, nullptr);
    EXPECT_TRUE(c->isConst);
    EXPECT_FALSE(c->isVarOrLet);
    EXPECT_EQ(c->typeName, "int");
    EXPECT_EQ(c->visibility, "");
    EXPECT_FALSE(c->isStatic);
    const auto* y = p.get<ast::VarDeclStmt>(1);
    ASSERT_NE(y, nullptr);
    EXPECT_TRUE(y->isVarOrLet);
    EXPECT_FALSE(y->isStatic);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModifiers, ModifiersInFrontOfAStatementVanishSilently) {
    Parsed p("public static x = 1;");
    ASSERT_EQ(p.count(), 1u);
    EXPECT_EQ(show(p.get<ast::ExprStmt>()), "(expr (= x 1))");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModifiers, AsyncIsNoModifier) {
    Parsed p("async fn f() {}");
    // `async` can't start a declaration or an expression: it is reported
    // as a stray expression and the function behind it is read on its own.
    ASSERT_GE(p.reports(), 1u);
    expectReport(p.report(0), "Expected expression, found: async", 1, 1);
    bool sawFunction = false;
    for (const auto& d : p.program->declarations) {
        if (const auto* fn = dynamic_cast<const ast::FunctionDecl*>(d.get())) {
            sawFunction = true;
            EXPECT_FALSE(fn->isAsync);
        }
    }
    EXPECT_TRUE(sawFunction);
}

// ---- statements at the top level ----

TEST(DeclarationEntry, StatementsAreLegalAtTheTopLevel) {
    Parsed p("if (a) b; x; while (c) {}");
    ASSERT_EQ(p.count(), 3u);
    EXPECT_NE(p.get<ast::IfStmt>(0), nullptr);
    EXPECT_NE(p.get<ast::ExprStmt>(1), nullptr);
    EXPECT_NE(p.get<ast::WhileStmt>(2), nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationEntry, TopLevelVarDeclarations) {
    Parsed p("var a = 1; let b; const c = 2;");
    ASSERT_EQ(p.count(), 3u);
    EXPECT_TRUE(p.get<ast::VarDeclStmt>(0)->isVarOrLet);
    EXPECT_TRUE(p.get<ast::VarDeclStmt>(1)->isVarOrLet);
    EXPECT_TRUE(p.get<ast::VarDeclStmt>(2)->isConst);
    EXPECT_EQ(p.reports(), 0u);
}

// ---- module ----

TEST(DeclarationModule, DottedName) {
    Parsed p("module a.b.c;");
    const auto* mod = p.get<ast::ModuleDecl>();
    ASSERT_NE(mod, nullptr);
    EXPECT_EQ(mod->name, "a.b.c");
    EXPECT_EQ(mod->location.column, 1u);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModule, TypeKeywordsArePathParts) {
    Parsed p("module int.string;");
    const auto* mod = p.get<ast::ModuleDecl>();
    ASSERT_NE(mod, nullptr);
    EXPECT_EQ(mod->name, "int.string");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModule, ModifiersAreDropped) {
    Parsed p("public static module m;");
    const auto* mod = p.get<ast::ModuleDecl>();
    ASSERT_NE(mod, nullptr);
    EXPECT_EQ(mod->name, "m");
    EXPECT_EQ(mod->location.column, 15u);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationModule, MissingFirstPart) {
    Parsed p("module ;");
    const auto* mod = p.get<ast::ModuleDecl>();
    ASSERT_NE(mod, nullptr);
    EXPECT_EQ(mod->name, "");
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected module identifier", 1, 8);
}

TEST(DeclarationModule, MissingPartBehindADot) {
    Parsed p("module a.;");
    const auto* mod = p.get<ast::ModuleDecl>();
    ASSERT_NE(mod, nullptr);
    EXPECT_EQ(mod->name, "a.");
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected identifier after '.' in module name", 1, 10);
}

TEST(DeclarationModule, MissingSemicolon) {
    Parsed p("module a");
    ASSERT_NE(p.get<ast::ModuleDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReportAtEnd(p, 0, "Expected ';' after module declaration");
}

// ---- import ----

TEST(DeclarationImport, PlainPath) {
    Parsed p("import a.b;");
    const auto* imp = p.get<ast::ImportDecl>();
    ASSERT_NE(imp, nullptr);
    EXPECT_EQ(imp->path, "a.b");
    EXPECT_FALSE(imp->isWildcard);
    EXPECT_EQ(imp->location.column, 1u);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationImport, WildcardEndsThePathWithoutTrailingDot) {
    Parsed p("import a.b.*;");
    const auto* imp = p.get<ast::ImportDecl>();
    ASSERT_NE(imp, nullptr);
    EXPECT_EQ(imp->path, "a.b");
    EXPECT_TRUE(imp->isWildcard);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationImport, StarInTheMiddleFailsAtTheNextDot) {
    Parsed p("import a.*.b;");
    const auto* imp = p.get<ast::ImportDecl>();
    ASSERT_NE(imp, nullptr);
    EXPECT_EQ(imp->path, "a");
    EXPECT_TRUE(imp->isWildcard);
    ASSERT_GE(p.reports(), 1u);
    expectReport(p.report(0), "Expected ';' after import statement", 1, 11);
}

TEST(DeclarationImport, TypeKeywordsArePathParts) {
    Parsed p("import int.x;");
    ASSERT_NE(p.get<ast::ImportDecl>(), nullptr);
    EXPECT_EQ(p.get<ast::ImportDecl>()->path, "int.x");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationImport, MissingPath) {
    Parsed p("import ;");
    const auto* imp = p.get<ast::ImportDecl>();
    ASSERT_NE(imp, nullptr);
    EXPECT_EQ(imp->path, "");
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected import path", 1, 8);
}

TEST(DeclarationImport, MissingPartBehindADot) {
    Parsed p("import a.;");
    ASSERT_NE(p.get<ast::ImportDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected identifier after '.' in import path", 1, 10);
}

TEST(DeclarationImport, MissingSemicolon) {
    Parsed p("import a\nimport b;");
    ASSERT_EQ(p.count(), 2u);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected ';' after import statement", 2, 1);
}

// ---- extern ----

TEST(DeclarationExtern, ExternBlockWithNameIsABlockOfDeclarations) {
    Parsed p("extern \"x\" { int f(); }");
    const auto* block = p.get<ast::BlockStmt>();
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(block->location.column, 1u);
    ASSERT_EQ(block->statements.size(), 1u);
    const auto* fn = dynamic_cast<const ast::FunctionDecl*>(block->statements[0].get());
    ASSERT_NE(fn, nullptr);
    EXPECT_EQ(fn->name, "f");
    EXPECT_EQ(fn->returnType, "int");
    EXPECT_EQ(fn->body, nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationExtern, ExternBlockWithoutNameMeansTheSame) {
    Parsed p("extern { int f(); public void g(string s); }");
    const auto* block = p.get<ast::BlockStmt>();
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(block->statements.size(), 2u);
    const auto* g = dynamic_cast<const ast::FunctionDecl*>(block->statements[1].get());
    ASSERT_NE(g, nullptr);
    EXPECT_EQ(g->visibility, "public");
    EXPECT_EQ(g->returnType, "void");
    ASSERT_EQ(g->params.size(), 1u);
    EXPECT_EQ(g->params[0].type, "string");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationExtern, MissingOpeningBraceStillReadsDeclarations) {
    Parsed p("extern \"C\" int f();");
    const auto* block = p.get<ast::BlockStmt>();
    ASSERT_NE(block, nullptr);
    ASSERT_EQ(block->statements.size(), 1u);
    ASSERT_EQ(p.reports(), 2u);
    expectReport(p.report(0), "Expected '{' to start extern block", 1, 12);
    expectReportAtEnd(p, 1, "Expected '}' after extern block");
}

TEST(DeclarationExtern, UnclosedBlockReportsAtTheEnd) {
    Parsed p("extern { int f();");
    ASSERT_NE(p.get<ast::BlockStmt>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReportAtEnd(p, 0, "Expected '}' after extern block");
}

}  // namespace
}  // namespace quor::parser::testing
