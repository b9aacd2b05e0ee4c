// Pass 1 for functions: signatures are resolved as the walk meets them, and
// overloads live in the scope.
#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {


TEST(ResolverFunctions, ASignatureNamingAClassDeclaredBelowReportsTheUndefinedType) {
    auto a = resolved("fn draw(s: Shape) {}\nclass Shape {}\n");
    EXPECT_EQ(a->records(), (Records{undefinedType("Shape", "1:1")}));
    auto draw = functionNamed(*a, "draw");
    ASSERT_TRUE(draw);
    EXPECT_EQ(draw->functionType->toString(), "fn(<type-error>) -> void");
}

TEST(ResolverFunctions, ASignatureNamingAClassDeclaredAboveResolvesIt) {
    auto a = resolved("class Shape {}\nfn draw(s: Shape) -> Shape {}\n");
    EXPECT_TRUE(a->records().empty());
    auto draw = functionNamed(*a, "draw");
    ASSERT_TRUE(draw);
    EXPECT_EQ(draw->functionType->paramTypes.at(0), a->types().findUserType("Shape"));
    EXPECT_EQ(draw->functionType->returnType, a->types().findUserType("Shape"));
}

TEST(ResolverFunctions, UndefinedTypesAreReportedAtTheFunctionInParameterOrderThenTheReturn) {
    auto a = resolved("\n  fn f(a: A, b: int, c: C) -> R {}\n");
    EXPECT_EQ(a->records(), (Records{undefinedType("A", "2:3"), undefinedType("C", "2:3"), undefinedType("R", "2:3")}));
    // The error type stands for every name that did not resolve, the return type included.
    EXPECT_EQ(functionNamed(*a, "f")->functionType->toString(), "fn(<type-error>, int, <type-error>) -> <type-error>");
}

TEST(ResolverFunctions, ATypeFirstFunctionIsReportedAtItsName) {
    auto a = resolved("Missing make() { }\n");
    EXPECT_EQ(a->records(), (Records{undefinedType("Missing", "1:9")}));
}

TEST(ResolverFunctions, ATypeParameterIsAnyInsideItsFunction) {
    auto a = resolved("fn first<T>(x: T, rest: T[]) -> T { return x; }\n");
    EXPECT_TRUE(a->records().empty());
    auto first = functionNamed(*a, "first");
    ASSERT_TRUE(first);
    EXPECT_EQ(first->functionType->paramTypes.at(0), a->types().anyType);
    // Only the whole text is a type parameter: "T[]" is an array of an
    // unknown name, which is the error type with no diagnostic.
    EXPECT_EQ(first->functionType->paramTypes.at(1), a->types().errorType);
    EXPECT_EQ(first->functionType->returnType, a->types().anyType);
    EXPECT_EQ(first->typeParams, (std::vector<std::string>{"T"}));
}

TEST(ResolverFunctions, GenericWrappersOfATypeParameterGiveNoDiagnostic) {
    auto a = resolved("fn g<K, V>(m: Map<K, V>, l: List<K>, n: V?) {}\n");
    EXPECT_TRUE(a->records().empty());
    auto g = functionNamed(*a, "g");
    EXPECT_EQ(g->functionType->paramTypes.at(0), a->types().errorType);
    EXPECT_EQ(g->functionType->paramTypes.at(1)->toString(), "List<any>");
    EXPECT_EQ(g->functionType->paramTypes.at(2), a->types().errorType);
}

TEST(ResolverFunctions, AnArrayOfAnUndefinedNameGivesNoDiagnostic) {
    auto a = resolved("fn f(xs: Foo[]) {}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(functionNamed(*a, "f")->functionType->paramTypes.at(0), a->types().errorType);
}

TEST(ResolverFunctions, TypeParametersDoNotOutliveTheirFunction) {
    auto a = resolved("fn f<T>(x: T) {}\nfn g(y: T) {}\n");
    EXPECT_EQ(a->records(), (Records{undefinedType("T", "2:1")}));
    EXPECT_TRUE(a->analyzer->resolver.currentTypeParams.empty());
}

TEST(ResolverFunctions, AnUntypedParameterIsVoid) {
    auto a = resolved("fn f(x) {}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(functionNamed(*a, "f")->functionType->paramTypes.at(0), a->types().voidType);
}

TEST(ResolverFunctions, NoReturnAnnotationIsVoidEvenWithAnExpressionBody) {
    auto a = resolved("fn f() => 42;\nfn g(): string => \"s\";\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(functionNamed(*a, "f")->functionType->returnType, a->types().voidType);
    EXPECT_EQ(functionNamed(*a, "g")->functionType->returnType, a->types().stringType);
}

TEST(ResolverFunctions, OverloadsWithDifferentParametersAreBothKept) {
    auto a = resolved("fn area(r: double) -> double {}\nfn area(w: int, h: int) -> int {}\n");
    EXPECT_TRUE(a->records().empty());
    auto overloads = a->symbols().lookupFunctions("area");
    ASSERT_EQ(overloads.size(), 2u);
    EXPECT_EQ(overloads[0]->functionType->toString(), "fn(double) -> double");
    EXPECT_EQ(overloads[1]->functionType->toString(), "fn(int, int) -> int");
}

TEST(ResolverFunctions, SameParametersWithAnotherReturnTypeIsADuplicate) {
    auto a = resolved("fn f(x: int) -> int {}\nfn f(y: int) -> string {}\n");
    EXPECT_EQ(a->records(),
              (Records{std::string("E1004|Duplicate declaration of function 'f' with identical parameter types|") +
                       FUNCTION_HINT + "|2:1"}));
    auto overloads = a->symbols().lookupFunctions("f");
    ASSERT_EQ(overloads.size(), 1u);
    EXPECT_EQ(overloads[0]->functionType->toString(), "fn(int) -> int");
}

TEST(ResolverFunctions, AFunctionNamedLikeAClassAboveItIsADuplicateFunction) {
    auto a = resolved("class Shape {}\nfn Shape() {}\n");
    EXPECT_EQ(a->records(),
              (Records{std::string("E1004|Duplicate declaration of function 'Shape' with identical parameter types|") +
                       FUNCTION_HINT + "|2:1"}));
}

TEST(ResolverFunctions, AFunctionWithTheParametersOfABuiltinIsDroppedSilently) {
    auto a = resolved("fn print(s: string) {}\nfn print(n: int64) {}\n");
    EXPECT_TRUE(a->records().empty());
    auto overloads = a->symbols().lookupFunctions("print");
    // The built-in string and any overloads, then the new int64 one.
    ASSERT_EQ(overloads.size(), 3u);
    EXPECT_EQ(overloads[0]->location.file, BUILTIN_FILE);
    EXPECT_EQ(overloads[2]->functionType->toString(), "fn(int64) -> void");
}

TEST(ResolverFunctions, TheSymbolCarriesTheDeclarationAndItsModifiers) {
    auto a = resolved("private static fn helper<T>(x: T) {}\nabstract fn shape();\noverride fn toText() {}\n");
    auto helper = functionNamed(*a, "helper");
    ASSERT_TRUE(helper);
    EXPECT_EQ(helper->kind, SymbolKind::Function);
    EXPECT_FALSE(helper->isMethod);
    EXPECT_EQ(helper->visibility, "private");
    EXPECT_TRUE(helper->isStatic);
    EXPECT_EQ(helper->decl, a->program->declarations[0].get());
    EXPECT_EQ(helper->typeParams, (std::vector<std::string>{"T"}));
    EXPECT_EQ(helper->type, helper->functionType);
    EXPECT_EQ(helper->location.line, 1u);
    EXPECT_EQ(helper->location.column, 16u);
    auto shape = functionNamed(*a, "shape");
    EXPECT_TRUE(shape->isAbstract);
    EXPECT_FALSE(shape->isOverride);
    EXPECT_EQ(shape->visibility, "");
    EXPECT_TRUE(functionNamed(*a, "toText")->isOverride);
}

TEST(ResolverFunctions, FunctionsDirectlyInsideAnExternBlockAreDeclared) {
    auto a = resolved("extern \"c\" {\n  int count(string s);\n  fn reset();\n}\n");
    EXPECT_TRUE(a->records().empty());
    ASSERT_TRUE(functionNamed(*a, "count"));
    EXPECT_EQ(functionNamed(*a, "count")->functionType->toString(), "fn(string) -> int");
    EXPECT_TRUE(functionNamed(*a, "reset"));
}

TEST(ResolverFunctions, OnlyFunctionsOfATopLevelBlockAreDeclared) {
    auto a = resolved("extern {\n  class Hidden {}\n  enum Gone { A }\n}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(a->symbols().lookup("Hidden"), nullptr);
    EXPECT_EQ(a->symbols().lookup("Gone"), nullptr);
}

TEST(ResolverFunctions, ATestDeclarationIsAnOrdinaryFunction) {
    auto a = resolved("test \"adds two\" { }\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_TRUE(functionNamed(*a, "__quor_test_adds_two"));
}

TEST(ResolverTypes, AnEmptyTypeTextIsVoid) {
    Analysis a("");
    EXPECT_EQ(a.analyzer->resolver.resolveTypeWithDiagnostic("", {TEST_FILE, 1, 1}), a.types().voidType);
    EXPECT_TRUE(a.records().empty());
}

TEST(ResolverTypes, ATypeParameterInForceIsAnyOnlyAsAWholeText) {
    Analysis a("");
    auto& resolver = a.analyzer->resolver;
    resolver.currentTypeParams = {"T"};
    EXPECT_EQ(resolver.resolveTypeWithDiagnostic("T", {TEST_FILE, 1, 1}), a.types().anyType);
    EXPECT_EQ(resolver.resolveTypeWithDiagnostic("T?", {TEST_FILE, 1, 1}), a.types().errorType);
    EXPECT_TRUE(a.records().empty());
}

TEST(ResolverTypes, AKnownTypeIsResolvedWithoutADiagnostic) {
    Analysis a("");
    EXPECT_EQ(a.analyzer->resolver.resolveTypeWithDiagnostic("int32", {TEST_FILE, 1, 1}), a.types().intType);
    EXPECT_EQ(a.analyzer->resolver.resolveTypeWithDiagnostic("Console", {TEST_FILE, 1, 1})->toString(), "Console");
    EXPECT_TRUE(a.records().empty());
}

TEST(ResolverTypes, AnUnknownNameIsReportedWithItsTextAndIsTheErrorType) {
    Analysis a("");
    EXPECT_EQ(a.analyzer->resolver.resolveTypeWithDiagnostic("Widget", {TEST_FILE, 4, 7}), a.types().errorType);
    EXPECT_EQ(a.records(), (Records{undefinedType("Widget", "4:7")}));
}

}  // namespace
}  // namespace quor::sema::testing
