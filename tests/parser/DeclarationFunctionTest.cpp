// Functions in their three spellings (with `fn`, type first, bare), the
// lookahead that picks the spelling, type parameters, return types, bodies
// and parameter lists.
#include <gtest/gtest.h>

#include <string>

#include "parser/ParserTestSupport.h"

namespace quor::parser::testing {
namespace {

using Parsed = ParsedProgram;

// "type name" for each parameter, "?" marking a default value.
std::string params(const ast::FunctionDecl& fn) {
    std::string out;
    for (const auto& param : fn.params) {
        if (!out.empty()) out.append(", ");
        out.append(param.type).append(" ").append(param.name);
        if (param.defaultValue) out.append(" = ").append(show(param.defaultValue.get()));
    }
    return out;
}

// ---- fn form ----

TEST(DeclarationFnForm, FullFunction) {
    Parsed p("fn add(a: int, b: int) -> int { return a + b; }");
    const auto* fn = p.fn();
    ASSERT_NE(fn, nullptr);
    EXPECT_EQ(fn->name, "add");
    EXPECT_TRUE(fn->typeParams.empty());
    EXPECT_EQ(params(*fn), "int a, int b");
    EXPECT_EQ(fn->returnType, "int");
    ASSERT_NE(fn->body, nullptr);
    EXPECT_EQ(show(fn->body.get()), "{(return (+ a b))}");
    EXPECT_EQ(fn->exprBody, nullptr);
    EXPECT_EQ(fn->visibility, "");
    EXPECT_FALSE(fn->isStatic || fn->isOverride || fn->isAbstract || fn->isAsync);
    EXPECT_EQ(fn->location.column, 1u);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationFnForm, ReturnTypeDefaultsToVoid) {
    Parsed p("fn f() {}");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->returnType, "void");
    EXPECT_TRUE(p.fn()->params.empty());
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationFnForm, ArrowAndColonBothIntroduceTheReturnType) {
    Parsed p("fn f() -> int {} fn g(): List<string>? {}");
    ASSERT_EQ(p.count(), 2u);
    EXPECT_EQ(p.fn(0)->returnType, "int");
    EXPECT_EQ(p.fn(1)->returnType, "List<string>?");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationFnForm, GenericShortFormWithThreeParameterSpellings) {
    Parsed p("fn f<T>(x: T, int y = 2, z): int => x;");
    const auto* fn = p.fn();
    ASSERT_NE(fn, nullptr);
    ASSERT_EQ(fn->typeParams.size(), 1u);
    EXPECT_EQ(fn->typeParams[0], "T");
    EXPECT_EQ(params(*fn), "T x, int y = 2,  z");
    EXPECT_EQ(fn->returnType, "int");
    EXPECT_EQ(show(fn->exprBody.get()), "x");
    EXPECT_EQ(fn->body, nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationFnForm, SeveralTypeParameters) {
    Parsed p("fn pair<K, V>(k: K, v: V) {}");
    ASSERT_NE(p.fn(), nullptr);
    ASSERT_EQ(p.fn()->typeParams.size(), 2u);
    EXPECT_EQ(p.fn()->typeParams[0], "K");
    EXPECT_EQ(p.fn()->typeParams[1], "V");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationFnForm, TypeKeywordAndSpawnAreFunctionNames) {
    Parsed p("fn int() {} fn spawn() {}");
    ASSERT_EQ(p.count(), 2u);
    EXPECT_EQ(p.fn(0)->name, "int");
    EXPECT_EQ(p.fn(1)->name, "spawn");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationFnForm, SemicolonLeavesNoBody) {
    Parsed p("fn f();");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->body, nullptr);
    EXPECT_EQ(p.fn()->exprBody, nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationFnForm, MissingNameLeavesAnEmptyNameAndReadsTheParameters) {
    Parsed p("fn (x) {}");
    const auto* fn = p.fn();
    ASSERT_NE(fn, nullptr);
    EXPECT_EQ(fn->name, "");
    EXPECT_EQ(params(*fn), " x");
    ASSERT_NE(fn->body, nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected function name", 1, 4);
}

TEST(DeclarationFnForm, MissingTypeParameterName) {
    Parsed p("fn f<>() {}");
    ASSERT_NE(p.fn(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected type parameter name", 1, 6);
}

TEST(DeclarationFnForm, UnclosedTypeParameters) {
    Parsed p("fn f<T() {}");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->typeParams.size(), 1u);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected '>' after generic type parameters", 1, 7);
}

TEST(DeclarationFnForm, ShortFormWithoutSemicolon) {
    Parsed p("fn f() => 1");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(show(p.fn()->exprBody.get()), "1");
    ASSERT_EQ(p.reports(), 1u);
    expectReportAtEnd(p, 0, "Expected ';' after short-form function expression");
}

TEST(DeclarationFnForm, MissingBodyReportsAndConsumesNothing) {
    Parsed p("fn f() x;");
    ASSERT_EQ(p.count(), 2u);
    EXPECT_EQ(p.fn(0)->body, nullptr);
    EXPECT_EQ(p.fn(0)->exprBody, nullptr);
    EXPECT_EQ(show(p.get<ast::ExprStmt>(1)), "(expr x)");
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected '{' or '=>' for function body", 1, 8);
}

// ---- parameter lists ----

TEST(DeclarationParameters, EveryTypeFirstShape) {
    Parsed p("fn f(Point q, List<int> xs, int[] a, string? s, Map<string, int> m, b = 1) {}");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(params(*p.fn()), "Point q, List<int> xs, int[] a, string? s, Map<string, int> m,  b = 1");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationParameters, NameFirstTakesAFullType) {
    Parsed p("fn f(x: int[]?, y: Map<string, int>) {}");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(params(*p.fn()), "int[]? x, Map<string, int> y");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationParameters, DefaultMayPrecedeAParameterWithout) {
    Parsed p("fn f(a = 1, b) {}");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(params(*p.fn()), " a = 1,  b");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationParameters, MissingOpeningParenthesis) {
    Parsed p("fn f {}");
    ASSERT_NE(p.fn(), nullptr);
    ASSERT_EQ(p.reports(), 3u);
    expectReport(p.report(0), "Expected '(' to begin parameter list", 1, 6);
    expectReport(p.report(1), "Expected parameter name", 1, 6);
    expectReport(p.report(2), "Expected ')' to end parameter list", 1, 6);
}

TEST(DeclarationParameters, KeywordTypeWithoutName) {
    Parsed p("fn f(int) {}");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(params(*p.fn()), "int ");
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected parameter name", 1, 9);
}

TEST(DeclarationParameters, TrailingCommaAsksForAName) {
    Parsed p("fn f(a, ) {}");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->params.size(), 2u);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected parameter name", 1, 9);
}

TEST(DeclarationParameters, UnclosedList) {
    Parsed p("fn f(a {}");
    ASSERT_NE(p.fn(), nullptr);
    ASSERT_NE(p.fn()->body, nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected ')' to end parameter list", 1, 8);
}

TEST(DeclarationParameters, TwoNamesAreTypeAndName) {
    Parsed p("fn f(a b) {}");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(params(*p.fn()), "a b");
    EXPECT_EQ(p.reports(), 0u);
}

// ---- bare form ----

TEST(DeclarationBareForm, ArrowReturnTypeAndBlock) {
    Parsed p("f(int a) -> int { }");
    const auto* fn = p.fn();
    ASSERT_NE(fn, nullptr);
    EXPECT_EQ(fn->name, "f");
    EXPECT_EQ(params(*fn), "int a");
    EXPECT_EQ(fn->returnType, "int");
    ASSERT_NE(fn->body, nullptr);
    EXPECT_EQ(fn->location.column, 1u);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationBareForm, ExpressionBody) {
    Parsed p("f() => 1;");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->returnType, "void");
    EXPECT_EQ(show(p.fn()->exprBody.get()), "1");
    EXPECT_EQ(p.fn()->body, nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationBareForm, ArrowTypeThenExpressionBody) {
    Parsed p("twice(x) -> int => x * 2;");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->returnType, "int");
    EXPECT_EQ(show(p.fn()->exprBody.get()), "(* x 2)");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationBareForm, BlockBody) {
    Parsed p("f() { }");
    ASSERT_NE(p.fn(), nullptr);
    ASSERT_NE(p.fn()->body, nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationBareForm, CallStatementIsNoFunction) {
    Parsed p("f(); foo(1);");
    ASSERT_EQ(p.count(), 2u);
    EXPECT_EQ(show(p.get<ast::ExprStmt>(0)), "(expr (call f))");
    EXPECT_EQ(show(p.get<ast::ExprStmt>(1)), "(expr (call foo 1))");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationBareForm, NestedParenthesesAreCountedToTheClosingOne) {
    Parsed p("g((a)) { }");
    // The lookahead pairs the parentheses, finds the brace behind the outer
    // one and takes the function path.
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->name, "g");
}

TEST(DeclarationBareForm, UnclosedCallIsAnExpression) {
    Parsed p("f(x");
    ASSERT_EQ(p.count(), 1u);
    EXPECT_NE(p.get<ast::ExprStmt>(), nullptr);
    ASSERT_GE(p.reports(), 1u);
    expectReportAtEnd(p, 0, "Expected ')' after argument list");
}

TEST(DeclarationBareForm, ModifiersAreKept) {
    Parsed p("public static override abstract f() { }");
    const auto* fn = p.fn();
    ASSERT_NE(fn, nullptr);
    EXPECT_EQ(fn->visibility, "public");
    EXPECT_TRUE(fn->isStatic);
    EXPECT_TRUE(fn->isOverride);
    EXPECT_TRUE(fn->isAbstract);
    EXPECT_EQ(fn->location.column, 33u);
}

TEST(DeclarationBareForm, ExpressionBodyWithoutSemicolon) {
    Parsed p("f() => 1");
    ASSERT_NE(p.fn(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReportAtEnd(p, 0, "Expected ';' after expression body");
}

// ---- type-first form ----

TEST(DeclarationTypeFirst, SignatureWithoutBody) {
    Parsed p("int f(int a);");
    const auto* fn = p.fn();
    ASSERT_NE(fn, nullptr);
    EXPECT_EQ(fn->name, "f");
    EXPECT_EQ(fn->returnType, "int");
    EXPECT_EQ(params(*fn), "int a");
    EXPECT_EQ(fn->body, nullptr);
    EXPECT_EQ(fn->exprBody, nullptr);
    EXPECT_EQ(fn->location.column, 5u);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTypeFirst, FunctionWithBody) {
    Parsed p("int f(int a) { return a; }");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(show(p.fn()->body.get()), "{(return a)}");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTypeFirst, ReturnTypesWithArgumentsAndMarks) {
    Parsed p("List<int> a(); Point? b(); int[] c(); Point d(); void e();");
    ASSERT_EQ(p.count(), 5u);
    EXPECT_EQ(p.fn(0)->returnType, "List<int>");
    EXPECT_EQ(p.fn(1)->returnType, "Point?");
    EXPECT_EQ(p.fn(2)->returnType, "int[]");
    EXPECT_EQ(p.fn(3)->returnType, "Point");
    EXPECT_EQ(p.fn(4)->returnType, "void");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTypeFirst, ModifiersAreKept) {
    Parsed p("protected static int f();");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->visibility, "protected");
    EXPECT_TRUE(p.fn()->isStatic);
}

TEST(DeclarationTypeFirst, MissingSemicolonAfterSignature) {
    Parsed p("int f()");
    ASSERT_NE(p.fn(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReportAtEnd(p, 0, "Expected ';' after function signature");
}

TEST(DeclarationTypeFirst, ShortFormIsNotPartOfTheTypeFirstSpelling) {
    Parsed p("int f() => 1;");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->exprBody, nullptr);
    ASSERT_GE(p.reports(), 1u);
    expectReport(p.report(0), "Expected ';' after function signature", 1, 9);
}

TEST(DeclarationTypeFirst, GlobalVariable) {
    Parsed p("int x = 1; Point p;");
    ASSERT_EQ(p.count(), 2u);
    const auto* x = p.get<ast::VarDeclStmt>(0);
    ASSERT_NE(x, nullptr);
    EXPECT_EQ(show(x), "(var int x 1)");
    EXPECT_EQ(x->location.column, 5u);
    EXPECT_EQ(x->visibility, "");
    EXPECT_FALSE(x->isStatic);
    EXPECT_EQ(show(p.get<ast::VarDeclStmt>(1)), "(var Point p <null>)");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTypeFirst, FieldWithVisibilityAndStatic) {
    Parsed p("private static Point origin;");
    const auto* var = p.get<ast::VarDeclStmt>();
    ASSERT_NE(var, nullptr);
    EXPECT_EQ(var->typeName, "Point");
    EXPECT_EQ(var->visibility, "private");
    EXPECT_TRUE(var->isStatic);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTypeFirst, CommaBehindTheNameReportsTheMissingSemicolon) {
    Parsed p("int a, b;");
    const auto* var = p.get<ast::VarDeclStmt>();
    ASSERT_NE(var, nullptr);
    EXPECT_EQ(var->name, "a");
    ASSERT_GE(p.reports(), 1u);
    expectReport(p.report(0), "Expected ';' after variable declaration", 1, 6);
}

TEST(DeclarationTypeFirst, ArrayTypeNeedsBothBrackets) {
    Parsed p("x[] y; x[0] = 1;");
    ASSERT_EQ(p.count(), 2u);
    EXPECT_EQ(show(p.get<ast::VarDeclStmt>(0)), "(var x[] y <null>)");
    EXPECT_EQ(show(p.get<ast::ExprStmt>(1)), "(expr (= ([] x 0) 1))");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTypeFirst, KeywordCallFallsBackToAStatement) {
    Parsed p("int(x);");
    EXPECT_EQ(show(p.get<ast::ExprStmt>()), "(expr (call int x))");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTypeFirst, NamesWithoutEndingAreStatements) {
    Parsed p("String s");
    ASSERT_EQ(p.count(), 2u);
    EXPECT_EQ(show(p.get<ast::ExprStmt>(0)), "(expr String)");
    EXPECT_EQ(show(p.get<ast::ExprStmt>(1)), "(expr s)");
    ASSERT_EQ(p.reports(), 2u);
    expectReport(p.report(0), "Expected ';' after expression", 1, 8);
    expectReportAtEnd(p, 1, "Expected ';' after expression");
}

}  // namespace
}  // namespace quor::parser::testing
