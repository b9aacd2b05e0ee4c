// The program walks, functions (parameters, defaults, missing returns,
// short forms and their inferred results), classes and the interfaces a
// class names.
#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

using Records = std::vector<std::string>;

const std::string UNDEFINED_HINT = "Ensure the variable is declared before use";

const ast::FunctionDecl& topFunction(const Analysis& analysis, std::size_t index) {
    return static_cast<const ast::FunctionDecl&>(*analysis.program->declarations.at(index));
}

std::shared_ptr<ClassType> classNamed(Analysis& analysis, const std::string& name) {
    return std::dynamic_pointer_cast<ClassType>(analysis.types().findUserType(name));
}

TEST(CheckerProgram, AResolverErrorKeepsTheCheckerFromRunning) {
    const std::string source = "class Derived extends Missing {\n    fn m(): int {\n        var x = null;\n"
                               "    }\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1002", "Undefined base class or interface 'Missing'", at(source, 1, "class"))});
}

TEST(CheckerProgram, TopLevelStatementsThatAreNoDeclarationsAreNotChecked) {
    EXPECT_EQ(analyzeSource("var x = missing;\nint y = \"s\";\nmissing + 1;\nif (1) {}\n"), Records{});
}

TEST(CheckerProgram, FunctionsDirectlyInATopLevelBlockAreCheckedAndNothingElseInIt) {
    const std::string source = "extern {\n    fn inner(): int {\n    }\n    var ignored = missing;\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1005", "Missing return statement: function 'inner' must return a value of type 'int' "
                                      "along all code paths", at(source, 2, "fn"))});
}

TEST(CheckerProgram, InterfacesStructsAndEnumsHaveNothingToCheck) {
    EXPECT_EQ(analyzeSource("interface Named {\n    fn name(): string;\n}\nstruct Point {\n    x: float;\n}\n"
                            "enum Colour { Red, Green }\nmodule geometry;\nimport std.math;\n"),
              Records{});
}

TEST(CheckerProgram, ShortFormsAreSettledFirstSoTheirErrorsComeFirstAndTwice) {
    const std::string source = "fn above() {\n    first;\n}\nfn shortOne() => \"a\" - 1;\n";
    const std::string mismatch = record("E1001", "Operator '-' cannot be applied to types 'string' and 'int'",
                                        at(source, 4, "-"), "Operands must be numeric");
    EXPECT_EQ(analyzeSource(source),
              (Records{mismatch,
                       undefinedRecord(source, 2, "first"),
                       mismatch}));
}

TEST(CheckerShortForm, AnUnannotatedShortFormReturnsItsExpressionsTypeToCallersAbove) {
    const std::string source = "fn caller() {\n    var probe = later();\n}\nfn later() => 42;\n";
    Analysis analysis(source);
    analysis.analyze();
    EXPECT_EQ(analysis.records(), Records{});
    EXPECT_EQ(typeOfInitializer(analysis, "probe"), "int");
    EXPECT_EQ(topFunction(analysis, 1).returnType, "int");
    auto symbols = analysis.symbols().lookupFunctions("later");
    ASSERT_EQ(symbols.size(), 1u);
    EXPECT_EQ(symbols[0]->functionType->toString(), "fn() -> int");
    EXPECT_EQ(symbols[0]->type->toString(), "fn() -> int");
}

TEST(CheckerShortForm, TheInferredTypeKeepsTheParameters) {
    Analysis analysis("fn half(x: double) => x / 2;\n");
    analysis.analyze();
    EXPECT_EQ(analysis.records(), Records{});
    EXPECT_EQ(topFunction(analysis, 0).returnType, "double");
    EXPECT_EQ(analysis.symbols().lookupFunctions("half").at(0)->functionType->toString(), "fn(double) -> double");
}

TEST(CheckerShortForm, AnExplicitVoidIsInferredLikeNone) {
    Analysis analysis("fn answer(): void => \"yes\";\n");
    analysis.analyze();
    EXPECT_EQ(analysis.records(), Records{});
    EXPECT_EQ(topFunction(analysis, 0).returnType, "string");
    EXPECT_EQ(analysis.symbols().lookupFunctions("answer").at(0)->functionType->toString(), "fn() -> string");
}

TEST(CheckerShortForm, ADeclaredTypeThatDoesNotFitIsAMismatchAndStands) {
    const std::string source = "fn count(): int => \"many\";\n";
    Analysis analysis(source);
    analysis.analyze();
    EXPECT_EQ(analysis.records(), Records{record("E1005", "Short function body return type mismatch: expected 'int', "
                                                          "got 'string'", at(source, 1, "fn"))});
    EXPECT_EQ(topFunction(analysis, 0).returnType, "int");
    EXPECT_EQ(analysis.symbols().lookupFunctions("count").at(0)->functionType->toString(), "fn() -> int");
}

TEST(CheckerShortForm, ADeclaredTypeThatFitsIsClean) {
    EXPECT_EQ(analyzeSource("fn wide(): int64 => 1;\n"), Records{});
}

TEST(CheckerShortForm, AnUnannotatedShortFormMethodKeepsAVoidMemberMethod) {
    Analysis analysis("class Counter {\n    fn total() => 42;\n}\n");
    analysis.analyze();
    EXPECT_EQ(analysis.records(), Records{});
    auto counter = classNamed(analysis, "Counter");
    ASSERT_NE(counter, nullptr);
    auto methods = counter->findMethods("total");
    ASSERT_EQ(methods.size(), 1u);
    EXPECT_EQ(methods[0].type->toString(), "fn() -> void");
    // Only the declaration's text learns the result.
    const auto& decl = static_cast<const ast::ClassDecl&>(*analysis.program->declarations.at(0));
    EXPECT_EQ(static_cast<const ast::FunctionDecl&>(*decl.members.at(0)).returnType, "int");
}

TEST(CheckerShortForm, CallersOfAnUnannotatedShortFormMethodSeeVoid) {
    Probe result = probe("class Counter {\n    fn total() => 42;\n}\nfn f(c: Counter) {\n"
                         "    var probe = c.total();\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "void");
}

TEST(CheckerShortForm, AFunctionValueResultIsReportedOnTheSecondVisit) {
    // The inferred text "fn() -> int" names no type when read back, so the
    // second visit holds the expression to void.
    const std::string source = "fn seven(): int {\n    return 7;\n}\nfn maker() => seven;\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1005", "Short function body return type mismatch: expected 'void', got 'fn() -> int'",
                             at(source, 4, "fn"))});
}

TEST(CheckerFunctions, TwoParametersOfOneNameReportTheSecondAndTheBodySeesTheFirst) {
    const std::string source = "fn pair(a: int, a: string) {\n    var probe = a;\n}\n";
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              Records{record("E1004", "Duplicate parameter name 'a' in function 'pair'", at(source, 1, "fn"))});
    EXPECT_EQ(result.type, "int");
}

TEST(CheckerFunctions, AStringDefaultForAnIntParameterIsReported) {
    const std::string source = "fn f(a: int = \"s\") {\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1001", "Default value type 'string' does not match parameter type 'int'",
                             at(source, 1, "fn"))});
}

TEST(CheckerFunctions, ADefaultMayReferToAnEarlierParameter) {
    EXPECT_EQ(analyzeSource("fn f(a: int, b: int64 = a) {\n}\n"), Records{});
}

TEST(CheckerFunctions, AParameterWithoutTypeIsUnknown) {
    Probe result = probe("fn f(a) {\n    var probe = a;\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "unknown");
}

TEST(CheckerFunctions, ATypeParameterIsAnyInTheBody) {
    Probe result = probe("fn first<T>(a: T): T {\n    var probe = a;\n    return a;\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "any");
}

TEST(CheckerFunctions, AMissingReturnInANonVoidFunctionIsReported) {
    const std::string source = "fn f(): int {\n    int x = 1;\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1005", "Missing return statement: function 'f' must return a value of type 'int' "
                                      "along all code paths", at(source, 1, "fn"))});
}

TEST(CheckerFunctions, TheMissingReturnComesAfterTheBodysOwnReports) {
    const std::string source = "fn f(): bool {\n    missing;\n}\n";
    EXPECT_EQ(analyzeSource(source),
              (Records{undefinedRecord(source, 2, "missing"),
                       record("E1005", "Missing return statement: function 'f' must return a value of type 'bool' "
                                       "along all code paths", at(source, 1, "fn"))}));
}

TEST(CheckerFunctions, AGenericResultMustBeReturnedAsAny) {
    const std::string source = "fn make<T>(): T {\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1005", "Missing return statement: function 'make' must return a value of type 'any' "
                                      "along all code paths", at(source, 1, "fn"))});
}

TEST(CheckerFunctions, AnAbstractMethodWithoutBodyGivesNothing) {
    EXPECT_EQ(analyzeSource("abstract class Shape {\n    abstract fn area(): float;\n}\n"), Records{});
}

TEST(CheckerFunctions, AnAbstractMethodWithABodyIsNotHeldToReturn) {
    EXPECT_EQ(analyzeSource("abstract class Shape {\n    abstract fn area(): float {\n    }\n}\n"), Records{});
}

TEST(CheckerFunctions, AVoidFunctionNeedsNoReturn) {
    EXPECT_EQ(analyzeSource("fn f() {\n    int x = 1;\n}\n"), Records{});
}

TEST(CheckerFunctions, AFunctionVisitRestoresTheReturnTypeAndScopeAroundIt) {
    Analysis analysis("fn inner(a: int): string {\n    return \"s\";\n}\n");
    analysis.analyze();
    TypeChecker& checker = analysis.checker();
    checker.currentReturnType = analysis.types().boolType;
    auto scopeBefore = analysis.symbols().currentScope;
    checker.visit(topFunction(analysis, 0));
    EXPECT_EQ(checker.currentReturnType, analysis.types().boolType);
    EXPECT_EQ(analysis.symbols().currentScope, scopeBefore);
    EXPECT_EQ(analysis.records(), Records{});
}

TEST(CheckerClasses, AClassVisitRestoresTheClassAroundIt) {
    Analysis analysis("class Outer {\n}\nclass Inner {\n    fn m() {\n    }\n}\n");
    analysis.analyze();
    TypeChecker& checker = analysis.checker();
    auto outer = classNamed(analysis, "Outer");
    checker.currentClass = outer;
    checker.visit(static_cast<const ast::ClassDecl&>(*analysis.program->declarations.at(1)));
    EXPECT_EQ(checker.currentClass, outer);
    EXPECT_EQ(analysis.symbols().currentScope, analysis.symbols().globalScope);
}

TEST(CheckerFunctions, ParametersAreGoneBehindTheFunction) {
    const std::string source = "fn f(a: int) {\n}\nfn g() {\n    var x = a;\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1002", "Undefined variable or symbol 'a'", at(source, 4, "a;"), UNDEFINED_HINT)});
}

TEST(CheckerClasses, AFieldInitializerOfTheWrongTypeIsReportedAtTheField) {
    const std::string source = "class Settings {\n    int retries = \"three\";\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1001", "Type mismatch in field initializer for 'retries': expected 'int', got 'string'",
                             at(source, 2, "retries"))});
}

TEST(CheckerClasses, AFieldWithoutTypeIsVoidSoItsInitializerFails) {
    const std::string source = "class Settings {\n    var retries = 3;\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1001", "Type mismatch in field initializer for 'retries': expected 'void', got 'int'",
                             at(source, 2, "var"))});
}

TEST(CheckerClasses, FieldInitializersFittingTheirTypesAreClean) {
    EXPECT_EQ(analyzeSource("class Settings {\n    int64 retries = 3;\n    string? name = null;\n}\n"), Records{});
}

TEST(CheckerClasses, MethodsSeeThisFieldsAndTheClassesTypeParameters) {
    EXPECT_EQ(analyzeSource("class Box<T> {\n    private T value;\n    fn get(): T {\n        return value;\n    }\n"
                            "    fn itself(): Box {\n        return this;\n    }\n}\n"),
              Records{});
}

TEST(CheckerClasses, TheClassIsLeftBehindItsBody) {
    const std::string source = "class Box {\n    int size;\n}\nfn f() {\n    var a = this;\n    var b = size;\n}\n";
    EXPECT_EQ(analyzeSource(source),
              (Records{record("E1001", "'this' cannot be used outside of an instance method", at(source, 5, "this")),
                       undefinedRecord(source, 6, "size")}));
}

TEST(CheckerClasses, MembersAreCheckedInOrder) {
    const std::string source = "class Mixed {\n    fn a() {\n        one;\n    }\n    int b = \"s\";\n"
                               "    fn c() {\n        two;\n    }\n}\n";
    EXPECT_EQ(analyzeSource(source),
              (Records{undefinedRecord(source, 3, "one"),
                       record("E1001", "Type mismatch in field initializer for 'b': expected 'int', got 'string'",
                              at(source, 5, "b")),
                       undefinedRecord(source, 7, "two")}));
}

TEST(CheckerInterfaces, AMissingInterfaceMethodIsReportedAtTheClass) {
    const std::string source = "interface Shape {\n    fn area(): float;\n    fn name(): string;\n}\n"
                               "class Square implements Shape {\n    fn name(): string => \"square\";\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1001", "Class 'Square' does not implement interface method 'area': fn() -> float from "
                                      "interface 'Shape'", at(source, 5, "class"))});
}

TEST(CheckerInterfaces, EachMissingMethodOfEachInterfaceIsReportedInOrder) {
    const std::string source = "interface A {\n    fn one(x: int): bool;\n    fn two();\n}\ninterface B {\n"
                               "    fn three(s: string, n: int64): string;\n}\nclass C implements A, B {\n}\n";
    const std::string place = at(source, 8, "class");
    EXPECT_EQ(analyzeSource(source),
              (Records{record("E1001", "Class 'C' does not implement interface method 'one': fn(int) -> bool from "
                                       "interface 'A'", place),
                       record("E1001", "Class 'C' does not implement interface method 'two': fn() -> void from "
                                       "interface 'A'", place),
                       record("E1001", "Class 'C' does not implement interface method 'three': fn(string, int64) -> "
                                       "string from interface 'B'", place)}));
}

TEST(CheckerInterfaces, AWiderReturnTypeDoesNotImplement) {
    const std::string source = "interface Counter {\n    fn count(): int;\n}\nclass Impl implements Counter {\n"
                               "    fn count(): int64 {\n        return 1;\n    }\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1001", "Class 'Impl' does not implement interface method 'count': fn() -> int from "
                                      "interface 'Counter'", at(source, 4, "class"))});
}

TEST(CheckerInterfaces, ExactSignaturesImplementWhateverTheirVisibility) {
    EXPECT_EQ(analyzeSource("interface Counter {\n    fn count(): int;\n}\nclass Impl implements Counter {\n"
                            "    private static fn count(): int {\n        return 1;\n    }\n}\n"),
              Records{});
}

TEST(CheckerInterfaces, AnInheritedMethodCounts) {
    EXPECT_EQ(analyzeSource("interface Counter {\n    fn count(): int;\n}\nclass Base {\n"
                            "    fn count(): int => 1;\n}\nclass Impl extends Base implements Counter {\n}\n"),
              Records{});
}

TEST(CheckerInterfaces, AnInterfaceInTheBasePositionIsVerified) {
    const std::string source = "interface Counter {\n    fn count(): int;\n}\nclass Impl : Counter {\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1001", "Class 'Impl' does not implement interface method 'count': fn() -> int from "
                                      "interface 'Counter'", at(source, 4, "class"))});
}

TEST(CheckerInterfaces, AnAbstractClassMayLeaveInterfaceMethodsOpen) {
    EXPECT_EQ(analyzeSource("interface Shape {\n    fn area(): float;\n}\nabstract class Base implements Shape {\n}\n"
                            "class Square extends Base {\n}\n"),
              Records{});
}

TEST(CheckerInterfaces, AConcreteSubclassAnswersForTheInterfacesItNamesItself) {
    const std::string source = "interface Shape {\n    fn area(): float;\n}\nabstract class Base implements Shape {\n"
                               "}\nclass Square extends Base implements Shape {\n}\n";
    EXPECT_EQ(analyzeSource(source),
              Records{record("E1001", "Class 'Square' does not implement interface method 'area': fn() -> float from "
                                      "interface 'Shape'", at(source, 6, "class"))});
}

}  // namespace
}  // namespace quor::sema::testing
