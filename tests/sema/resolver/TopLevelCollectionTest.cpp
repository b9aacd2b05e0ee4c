// The first walk over the top level: one type and symbol per declared name,
// function signatures resolved as the walk meets them, duplicates against
// the global scope, imports noted, and enums lifted out of function bodies.
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {


struct ReportCase {
    const char* title;
    std::string source;
    Records records;
};

const ReportCase REPORT_CASES[] = {
    // Duplicate type declarations, checked against the scope alone.
    {"ASecondClassIsReportedAtItsKeyword", "class A {}\nabstract class A {}\n", {duplicateType("class", "A", "2:10")}},
    {"AnInterfaceAfterAClass", "class A {}\ninterface A {}\n", {duplicateType("interface", "A", "2:1")}},
    {"AStructAfterAnEnumWithModifiers", "enum A { X }\n  private struct A { int x; }\n",
     {duplicateType("struct", "A", "2:11")}},
    {"AnEnumAfterAStruct", "struct A { int x; }\nenum A { X }\n", {duplicateType("enum", "A", "2:1")}},
    {"AClassAfterAFunction", "fn A() {}\nclass A {}\n", {duplicateType("class", "A", "2:1")}},
    {"EachRepeatIsReported", "class A {}\nclass A {}\nclass A {}\n",
     {duplicateType("class", "A", "2:1"), duplicateType("class", "A", "3:1")}},
    {"AClassNamedLikeABuiltinFunction", "class print {}\n", {duplicateType("class", "print", "1:1")}},
    {"AStructNamedLikeABuiltinConstant", "struct PI { int x; }\n", {duplicateType("struct", "PI", "1:1")}},
    {"AClassNamedLikeABuiltinClassIsNoDuplicate", "class File {}\nclass Console {}\n", {}},

    // Functions.
    {"OverloadsWithOtherParametersAreKept", "fn f(x: int) {}\nfn f(x: int64) {}\nfn f() {}\n", {}},
    {"SameParametersWithAnotherReturnType", "fn f(x: int) -> int {}\nfn f(y: int) -> string {}\n",
     {duplicateFunction("f", "2:1")}},
    {"ATypeFirstDuplicateIsReportedAtItsName", "int f(int a) {}\nstring f(int b) {}\n",
     {duplicateFunction("f", "2:8")}},
    {"AFunctionAfterAClassOfItsName", "class Shape {}\nfn Shape() {}\n", {duplicateFunction("Shape", "2:1")}},
    {"AFunctionNamedLikeABuiltinConstant", "fn E() {}\n", {duplicateFunction("E", "1:1")}},
    {"TwoTestsWhoseNamesMapAlike", "test \"a b\" { }\ntest \"a-b\" { }\n",
     {duplicateFunction("__quor_test_a_b", "2:1")}},

    // Signatures meet the names declared above them only.
    {"AParameterOfAClassDeclaredBelow", "fn draw(s: Shape) {}\nclass Shape {}\n", {undefinedType("Shape", "1:1")}},
    {"AReturnOfAnEnumDeclaredBelow", "  fn mode() -> Mode {}\nenum Mode { A }\n", {undefinedType("Mode", "1:3")}},
    {"AParameterOfAClassDeclaredAbove", "class Shape {}\nfn draw(s: Shape) -> Shape {}\n", {}},
    {"AMemberTypeMayNameALaterClass", "class A {\n  B b;\n  fn m(x: B) -> B {}\n}\nclass B {}\n", {}},
    {"ParametersInOrderThenTheReturnEachTime", "fn f(a: X, b: int, c: X) -> Y {}\n",
     {undefinedType("X", "1:1"), undefinedType("X", "1:1"), undefinedType("Y", "1:1")}},
    {"ABareFunctionIsReportedAtItsName", "\ndraw(s: Shape) {}\n", {undefinedType("Shape", "2:1")}},
    {"AFunctionOfABlockIsReportedAtItsName", "extern \"c\" {\n  Handle open(string path);\n}\n",
     {undefinedType("Handle", "2:10")}},
    {"ADefaultValueIsNotLookedAt", "fn f(x: int = missing) {}\n", {}},
    {"TheBodyIsNotLookedAt", "fn f() { Ghost g = nothing(); }\n", {}},

    // Generic texts: only a name that resolves to nothing at all is reported.
    {"AnUndefinedGenericHeadIsReportedWithItsArguments", "fn f(x: Box<int,string>) {}\n",
     {undefinedType("Box<int, string>", "1:1")}},
    {"AGenericInterfaceIsNoType", "interface I {}\nfn f(x: I<int>) {}\n", {undefinedType("I<int>", "2:1")}},
    {"AGenericClassAboveTakesArguments", "class Box<T> {}\nfn f(x: Box<int>) -> Box<string> {}\n", {}},
    {"AnUndefinedMapValueIsSilent", "fn f(x: Map<string, Foo>) {}\n", {}},
    // Type parameters stand for any, as whole texts only.
    {"ATypeParameterIsAny", "fn id<T>(x: T) -> T {}\n", {}},
    {"ATypeParameterHidesAClassOfItsName", "class Shape {}\nfn id<Shape>(x: Shape) -> Shape {}\n", {}},
    {"WrappedTypeParametersAreSilent", "fn f<T, K, V>(a: T[], b: T?, c: Map<K, V>, d: List<T>) {}\n", {}},
    {"WrappedUndefinedNamesAreSilent", "fn f(a: Foo[], b: Foo?, c: List<Foo>, d: Set<Foo>) {}\n", {}},
    {"ATypeParameterEndsWithItsFunction", "fn f<T>(x: T) {}\nfn g(y: T) {}\n", {undefinedType("T", "2:1")}},
    {"AClassTypeParameterDoesNotReachAFunction", "class Box<T> {}\nfn g(y: T) {}\n", {undefinedType("T", "2:1")}},

    // What the walk does not declare.
    {"ATopLevelVariableIsNotDeclared", "int count = 1;\nvar count = 2;\nfn count() {}\n", {}},
    {"AModuleDeclaresNothing", "module shapes;\nfn f(s: shapes) {}\n", {undefinedType("shapes", "2:1")}},
    {"AnImportBringsNoName", "import geometry.Point;\nfn f(p: Point) {}\n", {undefinedType("Point", "2:1")}},
    {"ImportsMayRepeat", "import a.b;\nimport a.b;\nimport a.*;\n", {}},
    {"AClassInABlockIsNotDeclared", "extern {\n  class Hidden {}\n}\nfn f(h: Hidden) {}\n",
     {undefinedType("Hidden", "4:1")}},
    {"ADuplicateInABlockIsReported", "extern {\n  fn f();\n  fn f();\n}\n", {duplicateFunction("f", "3:3")}},
    {"ABlockInsideABlockIsNotEntered", "extern {\n  extern {\n    fn inner(x: int);\n  }\n}\nfn inner(y: int) {}\n", {}},

    // Enums lifted out of bodies.
    {"ANestedEnumServesALaterSignature", "fn setup() {\n  enum Mode { A }\n}\nfn run(m: Mode) {}\n", {}},
    {"ANestedEnumDoesNotServeAnEarlierSignature", "fn run(m: Mode) {}\nfn setup() {\n  enum Mode { A }\n}\n",
     {undefinedType("Mode", "1:1")}},
    {"ANestedEnumThroughPlainBlocks", "fn setup() {\n  { { enum Mode { A } } }\n}\nfn run(m: Mode) {}\n", {}},
    {"ANestedEnumInAFunctionOfABlock", "extern {\n  fn setup() {\n    enum Mode { A }\n  }\n}\nfn run(m: Mode) {}\n",
     {}},
    {"AnEnumInsideAnIfIsNotLifted", "fn setup() {\n  if (true) { enum Mode { A } }\n}\nfn run(m: Mode) {}\n",
     {undefinedType("Mode", "4:1")}},
    {"AnEnumInsideALoopIsNotLifted", "fn setup() {\n  while (true) { enum Mode { A } }\n}\nfn run(m: Mode) {}\n",
     {undefinedType("Mode", "4:1")}},
    {"AnEnumInsideAMethodIsNotLifted", "class C {\n  fn m() {\n    enum Mode { A }\n  }\n}\nfn run(m: Mode) {}\n",
     {undefinedType("Mode", "6:1")}},
    {"ANestedEnumOfADuplicateFunctionIsLiftedToo",
     "fn f(x: int) {}\nfn f(y: int) {\n  enum Mode { A }\n}\nfn run(m: Mode) {}\n", {duplicateFunction("f", "2:1")}},
    {"ANestedEnumInATestBody", "test \"modes\" {\n  enum Mode { A }\n}\nfn run(m: Mode) {}\n", {}},
    {"AnEnumInATopLevelBlockIsNotLifted", "{\n  enum Mode { A }\n}\nfn run(m: Mode) {}\n",
     {undefinedType("Mode", "4:1")}},
    {"AnEnumInATopLevelIfIsNotLifted", "if (true) {\n  enum Mode { A }\n}\nfn run(m: Mode) {}\n",
     {undefinedType("Mode", "4:1")}},
    {"ATopLevelEnumAfterANestedOneIsTheDuplicate", "fn f() {\n  enum Mode { A }\n}\nenum Mode { B }\n",
     {duplicateType("enum", "Mode", "4:1")}},
    {"ANestedEnumNamedLikeItsFunctionIsTheDuplicate", "fn Mode() {\n  enum Mode { A }\n}\n",
     {duplicateType("enum", "Mode", "2:3")}},
    {"AnEnumOfTheOwnBodyDoesNotServeTheOwnSignature", "fn f(m: Mode) {\n  enum Mode { A }\n}\n",
     {undefinedType("Mode", "1:1")}},
    {"TheSignatureIsReportedBeforeTheNestedEnum", "fn f(x: Ghost) {\n  enum M { A, A }\n}\n",
     {undefinedType("Ghost", "1:1"), "E1004|Duplicate enum variant 'A' in enum 'M'||2:3"}},
    {"ANestedEnumIsADuplicateOfATopLevelName", "class Mode {}\nfn f() {\n  enum Mode { A }\n}\n",
     {duplicateType("enum", "Mode", "3:3")}},
    {"ATopLevelClassAfterANestedEnumIsTheDuplicate", "fn f() {\n  enum Mode { A }\n}\nclass Mode {}\n",
     {duplicateType("class", "Mode", "4:1")}},
    {"ANestedEnumsVariantsAreCheckedDuringTheFirstWalk",
     "class C {\n  Ghost g;\n}\nfn f() {\n  enum M { A, A }\n}\nfn g(x: Phantom) {}\n",
     {"E1004|Duplicate enum variant 'A' in enum 'M'||5:3", undefinedType("Phantom", "7:1"),
      undefinedType("Ghost", "2:9")}},
};

class TopLevelReports : public ::testing::TestWithParam<ReportCase> {};

TEST_P(TopLevelReports, AreAsExpected) {
    const auto& c = GetParam();
    auto a = resolved(c.source);
    EXPECT_EQ(a->records(), c.records) << c.source;
    EXPECT_TRUE(a->analyzer->resolver.currentTypeParams.empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, TopLevelReports, ::testing::ValuesIn(REPORT_CASES),
                         [](const ::testing::TestParamInfo<ReportCase>& info) { return std::string(info.param.title); });

// ---------------------------------------------------------------------------
// What the walk leaves behind.

std::vector<std::string> setOf(Analysis& a, const std::string& name) {
    std::vector<std::string> out;
    for (const auto& f : a.symbols().lookupFunctions(name)) out.push_back(f->functionType->toString());
    return out;
}

TEST(TopLevelCollection, OverloadsAreKeptInSourceOrderAndADuplicateIsDropped) {
    auto a = resolved("fn f(x: int) -> int {}\nfn f(x: string) {}\nfn f(y: int) -> bool {}\nfn f() {}\n");
    EXPECT_EQ(setOf(*a, "f"), (std::vector<std::string>{"fn(int) -> int", "fn(string) -> void", "fn() -> void"}));
}

TEST(TopLevelCollection, ADuplicateTypeKeepsTheFirstSymbolAndType) {
    auto a = resolved("struct A { int x; }\nclass A {}\n");
    EXPECT_EQ(a->symbols().lookup("A")->kind, SymbolKind::Struct);
    EXPECT_EQ(a->types().findUserType("A")->kind, TypeKind::Struct);
    EXPECT_EQ(a->symbols().lookup("A")->location.line, 1u);
}

TEST(TopLevelCollection, GenericSignaturesUseAnyAndTheErrorType) {
    auto a = resolved("fn f<T, K, V>(a: T, b: T[], c: T?, d: Map<K, V>, e: List<T>) -> T {}\n");
    auto f = functionNamed(*a, "f");
    ASSERT_TRUE(f);
    const auto& params = f->functionType->paramTypes;
    ASSERT_EQ(params.size(), 5u);
    EXPECT_EQ(params[0], a->types().anyType);
    EXPECT_EQ(params[1], a->types().errorType);
    EXPECT_EQ(params[2], a->types().errorType);
    EXPECT_EQ(params[3], a->types().errorType);
    EXPECT_EQ(params[4]->toString(), "List<any>");
    EXPECT_EQ(f->functionType->returnType, a->types().anyType);
    EXPECT_EQ(f->typeParams, (std::vector<std::string>{"T", "K", "V"}));
}

TEST(TopLevelCollection, SignatureTypesAndMissingAnnotations) {
    auto a = resolved("fn f(x, y: int32) => x;\nint64 g(byte b);\nh(s: string?) {}\n");
    EXPECT_TRUE(a->records().empty());
    // An untyped parameter is void, and no annotation means a void return.
    EXPECT_EQ(functionNamed(*a, "f")->functionType->toString(), "fn(void, int) -> void");
    EXPECT_EQ(functionNamed(*a, "g")->functionType->toString(), "fn(uint8) -> int64");
    EXPECT_EQ(functionNamed(*a, "h")->functionType->toString(), "fn(string?) -> void");
}

TEST(TopLevelCollection, AFunctionSymbolCarriesItsDeclaration) {
    auto a = resolved("public static abstract override fn f<T>(x: T);\nfn g() {}\n");
    auto f = functionNamed(*a, "f");
    ASSERT_TRUE(f);
    EXPECT_EQ(f->kind, SymbolKind::Function);
    EXPECT_FALSE(f->isMethod);
    EXPECT_EQ(f->visibility, "public");
    EXPECT_TRUE(f->isStatic && f->isAbstract && f->isOverride);
    EXPECT_EQ(f->decl, a->program->declarations[0].get());
    EXPECT_EQ(f->location.line, 1u);
    EXPECT_EQ(f->location.column, 33u);
    auto g = functionNamed(*a, "g");
    EXPECT_EQ(g->visibility, "");
    EXPECT_FALSE(g->isStatic || g->isAbstract || g->isOverride);
    EXPECT_TRUE(g->typeParams.empty());
}

TEST(TopLevelCollection, TypesAreMadeWithTheirSymbols) {
    auto a = resolved("abstract class Box<K, V> {}\ninternal interface I {}\nstruct S { int x; }\nenum M { A }\n");
    EXPECT_TRUE(a->records().empty());
    auto box = classNamed(*a, "Box");
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->isAbstract);
    EXPECT_EQ(box->typeParams, (std::vector<std::string>{"K", "V"}));
    EXPECT_EQ(box->decl, a->program->declarations[0].get());
    auto symbol = std::dynamic_pointer_cast<ClassSymbol>(a->symbols().lookup("Box"));
    ASSERT_TRUE(symbol);
    EXPECT_EQ(symbol->classType, box);
    EXPECT_EQ(symbol->location.column, 10u);
    EXPECT_EQ(a->symbols().lookup("I")->visibility, "internal");
    EXPECT_EQ(a->symbols().lookup("I")->type, a->types().findUserType("I"));
    EXPECT_EQ(a->symbols().lookup("S")->type, a->types().findUserType("S"));
    EXPECT_EQ(a->symbols().lookup("M")->type, a->types().findUserType("M"));
}

TEST(TopLevelCollection, ANestedEnumIsFilledDuringTheFirstWalk) {
    Analysis a("fn f() {\n  enum Mode { A, B = 7, C }\n}\n");
    a.analyzer->resolver.pass1_collectTopLevel(*a.program);
    auto mode = userType<EnumType>(a, "Mode");
    ASSERT_TRUE(mode);
    EXPECT_EQ(mode->variants, (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(mode->variantValues.at("C"), 8);
    EXPECT_EQ(a.symbols().lookup("Mode")->kind, SymbolKind::Enum);
    EXPECT_EQ(a.symbols().lookup("Mode")->location.line, 2u);
}

TEST(TopLevelCollection, ANestedEnumOfATakenNameFillsTheEnumOfThatName) {
    auto a = resolved("enum Mode { A }\nfn f() {\n  enum Mode { B }\n}\n");
    EXPECT_EQ(a->records(), (Records{duplicateType("enum", "Mode", "3:3")}));
    auto mode = userType<EnumType>(*a, "Mode");
    // The nested variants land during the first walk, the top-level ones in the second.
    EXPECT_EQ(mode->variants, (std::vector<std::string>{"B", "A"}));
    EXPECT_EQ(mode->variantValues.at("A"), 0);
    EXPECT_EQ(mode->variantValues.at("B"), 0);
}

TEST(TopLevelCollection, ATopLevelEnumOfANestedEnumsNameAddsItsVariantsInTheSecondWalk) {
    auto a = resolved("fn f() {\n  enum Mode { A, B }\n}\nenum Mode { C, A }\n");
    EXPECT_EQ(a->records(), (Records{duplicateType("enum", "Mode", "4:1"),
                                     "E1004|Duplicate enum variant 'A' in enum 'Mode'||4:1"}));
    auto mode = userType<EnumType>(*a, "Mode");
    EXPECT_EQ(mode->variants, (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(mode->variantValues.at("C"), 0);
    EXPECT_EQ(mode->variantValues.at("B"), 1);
}

TEST(TopLevelCollection, TheFirstWalkAloneResolvesNoMembers) {
    Analysis a("class C extends Missing {\n  Ghost g;\n}\nenum M { A }\n");
    a.analyzer->resolver.pass1_collectTopLevel(*a.program);
    EXPECT_TRUE(a.records().empty());
    EXPECT_TRUE(classNamed(a, "C")->fields.empty());
    EXPECT_TRUE(userType<EnumType>(a, "M")->variants.empty());
}

// The parser makes no empty import path from text, so these are built by hand.
std::unique_ptr<ast::Program> programOf(std::vector<ast::NodePtr> declarations) {
    return std::make_unique<ast::Program>(std::move(declarations), diagnostics::SourceLocation{TEST_FILE, 1, 1});
}

TEST(TopLevelCollection, AnEmptyImportPathIsReportedOnceAndNotNoted) {
    Analysis a("");
    std::vector<ast::NodePtr> declarations;
    declarations.push_back(std::make_unique<ast::ImportDecl>("", false, diagnostics::SourceLocation{TEST_FILE, 2, 5}));
    declarations.push_back(nullptr);
    declarations.push_back(std::make_unique<ast::ImportDecl>("x.y", true, diagnostics::SourceLocation{TEST_FILE, 3, 1}));
    a.program = programOf(std::move(declarations));
    a.resolve();
    EXPECT_EQ(a.records(), (Records{"E1009|Empty import path specified||2:5"}));
    EXPECT_EQ(a.analyzer->resolver.importedModules, (std::unordered_set<std::string>{"x.y"}));
}

TEST(TopLevelCollection, TheImportStepAloneReportsTheSame) {
    Analysis a("");
    a.analyzer->resolver.resolveImportDecl(ast::ImportDecl("", false, diagnostics::SourceLocation{TEST_FILE, 4, 2}));
    a.analyzer->resolver.resolveImportDecl(ast::ImportDecl("p.q", false, diagnostics::SourceLocation{TEST_FILE, 5, 2}));
    EXPECT_EQ(a.records(), (Records{"E1009|Empty import path specified||4:2"}));
    EXPECT_EQ(a.analyzer->resolver.importedModules, (std::unordered_set<std::string>{"p.q"}));
}

struct TypeTextCase {
    const char* text;
    std::vector<std::string> typeParams;
    const char* printed;  // the printed type
    bool reported;
};

TEST(TopLevelCollection, ResolvingATypeTextWithItsDiagnostic) {
    const TypeTextCase cases[] = {
        {"", {}, "void", false},
        {"T", {"T"}, "any", false},
        {"U", {"T", "U"}, "any", false},
        {"T[]", {"T"}, "<type-error>", false},
        {"Map<T, T>", {"T"}, "<type-error>", false},
        {"int", {"int"}, "any", false},
        {"   ", {}, "unknown", false},
        {"int32", {}, "int", false},
        {"string?", {}, "string?", false},
        {"T", {}, "<type-error>", true},
        {"Widget", {"T"}, "<type-error>", true},
        {"Map<string>", {}, "<type-error>", true},
        {"fn(int) -> int", {}, "<type-error>", true},
    };
    for (const auto& c : cases) {
        Analysis a("");
        auto& resolver = a.analyzer->resolver;
        resolver.currentTypeParams = c.typeParams;
        auto type = resolver.resolveTypeWithDiagnostic(c.text, {TEST_FILE, 6, 3});
        ASSERT_TRUE(type) << c.text;
        EXPECT_EQ(type->toString(), c.printed) << c.text;
        const Records expected =
            c.reported ? Records{undefinedType(c.text, "6:3")} : Records{};
        EXPECT_EQ(a.records(), expected) << c.text;
    }
}

}  // namespace
}  // namespace quor::sema::testing
