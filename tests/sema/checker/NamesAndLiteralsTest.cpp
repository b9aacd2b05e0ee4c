// Literals and names: the type of each literal kind, and the seven steps by
// which a name is typed (super, this, a symbol, a field of the class, a user
// type, a built-in type's name, and the report when none applies).
#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

using Records = std::vector<std::string>;

std::string inFunction(const std::string& statement) { return "fn f() {\n    " + statement + "\n}\n"; }

TEST(CheckerLiterals, IntegerLiteralIsIntAlsoWhenItWouldFitASmallerKind) {
    Probe result = probe(inFunction("var probe = 10;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "int");
}

TEST(CheckerLiterals, IntegerLiteralIsIntWhateverItsSizeOrBase) {
    EXPECT_EQ(probe(inFunction("var probe = 99999999999999;")).type, "int");
    EXPECT_EQ(probe(inFunction("var probe = 0xFF;")).type, "int");
}

TEST(CheckerLiterals, FloatLiteralWithoutSuffixIsDouble) {
    EXPECT_EQ(probe(inFunction("var probe = 1.5;")).type, "double");
}

TEST(CheckerLiterals, FloatLiteralWithLowerOrUpperSuffixIsFloat) {
    EXPECT_EQ(probe(inFunction("var probe = 1.5f;")).type, "float");
    EXPECT_EQ(probe(inFunction("var probe = 1.5F;")).type, "float");
}

TEST(CheckerLiterals, StringCharBooleanAndNullLiterals) {
    EXPECT_EQ(probe(inFunction("var probe = \"text\";")).type, "string");
    EXPECT_EQ(probe(inFunction("var probe = 'c';")).type, "char");
    EXPECT_EQ(probe(inFunction("var probe = false;")).type, "bool");
    EXPECT_EQ(probe(inFunction("int? probe = null;")).type, "null");
}

TEST(CheckerNames, ThisOutsideAnyClassIsReportedAndIsTheErrorType) {
    const std::string source = "fn f() {\n    var probe = this;\n}\n";
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              Records{record("E1001", "'this' cannot be used outside of an instance method", at(source, 2, "this"))});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerNames, ThisInsideAMethodIsTheClass) {
    Probe result = probe("class Account {\n    fn m() {\n        var probe = this;\n    }\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "Account");
}

TEST(CheckerNames, SuperInAClassWithoutBaseIsReportedAndNotALookupFailure) {
    const std::string source = "class Base {\n    fn m() {\n        var probe = super;\n    }\n}\n";
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              Records{record("E1001", "'super' cannot be used outside of a subclass", at(source, 3, "super"))});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerNames, SuperOutsideAnyClassIsReported) {
    const std::string source = "fn f() {\n    var probe = super;\n}\n";
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "'super' cannot be used outside of a subclass", at(source, 2, "super"))});
}

TEST(CheckerNames, SuperInASubclassIsTheSuperclass) {
    Probe result = probe("class Base {}\nclass Derived extends Base {\n    fn m() {\n        var probe = super;\n"
                         "    }\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "Base");
}

TEST(CheckerNames, ALocalWinsOverAFieldOfTheSameName) {
    Probe result = probe("class Person {\n    string label;\n    fn m() {\n        int label = 1;\n"
                         "        var probe = label;\n    }\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "int");
}

TEST(CheckerNames, AnOwnFieldIsAVariableOfTheClassScope) {
    Probe result = probe("class Person {\n    string label;\n    fn m() {\n        var probe = label;\n    }\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "string");
}

TEST(CheckerNames, AnInheritedFieldIsFoundThroughTheClass) {
    Probe result = probe("class Base {\n    int count;\n}\nclass Derived extends Base {\n    fn m() {\n"
                         "        var probe = count;\n    }\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "int");
}

TEST(CheckerNames, AMethodNameUsedAsAValueIsUndefined) {
    const std::string source = "class Worker {\n    fn helper() {}\n    fn m() {\n        var v = helper;\n"
                               "    }\n}\n";
    EXPECT_EQ(probe(source).records,
              Records{record("E1002", "Undefined variable or symbol 'helper'", at(source, 4, "helper"),
                             "Ensure the variable is declared before use")});
}

TEST(CheckerNames, AFunctionNameGivesItsFunctionType) {
    Probe result = probe("fn g(a: int): string {\n    return \"\";\n}\nfn f() {\n    var probe = g;\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "fn(int) -> string");
}

TEST(CheckerNames, AClassNameGivesTheClassType) {
    Probe result = probe("class Shape {}\nfn f() {\n    var probe = Shape;\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "Shape");
}

TEST(CheckerNames, ABuiltInConstantIsItsSymbolsType) {
    EXPECT_EQ(probe(inFunction("var probe = PI;")).type, "double");
}

TEST(CheckerNames, ABuiltInClassWithoutSymbolIsFoundAmongUserTypes) {
    Probe result = probe(inFunction("var probe = Math;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "Math");
}

TEST(CheckerNames, ABuiltInTypeNameStandsForItsType) {
    EXPECT_EQ(probe(inFunction("var probe = int;")).type, "int");
    EXPECT_EQ(probe(inFunction("var probe = int32;")).type, "int");
    EXPECT_EQ(probe(inFunction("var probe = string;")).type, "string");
}

TEST(CheckerNames, AnUnknownNameIsReportedWithItsHintAndIsTheErrorType) {
    const std::string source = "fn f() {\n    var probe = missing;\n}\n";
    Probe result = probe(source);
    EXPECT_EQ(result.records, Records{record("E1002", "Undefined variable or symbol 'missing'",
                                             at(source, 2, "missing"), "Ensure the variable is declared before use")});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerNames, AParameterIsASymbolOfTheFunction) {
    Probe result = probe("fn f(count: int64) {\n    var probe = count;\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "int64");
}

}  // namespace
}  // namespace quor::sema::testing
