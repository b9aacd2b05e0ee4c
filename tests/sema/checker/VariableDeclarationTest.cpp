// Local variable declarations: typed and inferred, the two literal
// allowances, null safety, and duplicates in one scope.
#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

using Records = std::vector<std::string>;

std::string withParams(const std::string& params, const std::string& statements) {
    return "fn f(" + params + ") {\n    " + statements + "\n}\n";
}

std::string inFunction(const std::string& statements) { return withParams("", statements); }

TEST(CheckerVarDecl, VarWithNullIsReportedAndDefinedWithTheErrorType) {
    const std::string source = inFunction("var x = null;\n    var probe = x;");
    Probe result = probe(source);
    EXPECT_EQ(result.records, Records{record("E1001", "Cannot infer type from 'null' without explicit type annotation",
                                             at(source, 2, "var"))});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerVarDecl, NullIntoAPlainIntIsANullSafetyErrorWhoseHintNamesTheNullableType) {
    const std::string source = inFunction("int x = null;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1008", "Null safety violation: cannot assign null to non-nullable variable 'x' of type "
                                      "'int'", at(source, 2, "x ="), "Use 'int?' to declare a nullable variable")});
}

TEST(CheckerVarDecl, NullIntoANullableIsClean) {
    EXPECT_EQ(probe(inFunction("int? x = null;")).records, Records{});
}

TEST(CheckerVarDecl, NullIntoAnyIsANullSafetyError) {
    const std::string source = inFunction("any x = null;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1008", "Null safety violation: cannot assign null to non-nullable variable 'x' of type "
                                      "'any'", at(source, 2, "x ="), "Use 'any?' to declare a nullable variable")});
}

TEST(CheckerVarDecl, AnyIntegerLiteralFitsAnyIntegerType) {
    EXPECT_EQ(probe(inFunction("uint8 b = 1000;")).records, Records{});
    EXPECT_EQ(probe(inFunction("int8 x = 300;")).records, Records{});
}

TEST(CheckerVarDecl, ANonLiteralIntegerGoesThroughAssignability) {
    const std::string source = withParams("someInt: int", "uint8 b = someInt;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Type mismatch: cannot initialize variable of type 'uint8' with value of type "
                                      "'int'", at(source, 2, "b ="))});
    EXPECT_EQ(probe(withParams("small: uint8", "int b = small;")).records, Records{});
}

TEST(CheckerVarDecl, ANegatedLiteralIsNoLiteral) {
    const std::string source = inFunction("int8 x = -1;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Type mismatch: cannot initialize variable of type 'int8' with value of type "
                                      "'int'", at(source, 2, "x ="))});
}

TEST(CheckerVarDecl, AFloatTakesADoubleLiteral) {
    EXPECT_EQ(probe(inFunction("float f = 1.5;")).records, Records{});
}

TEST(CheckerVarDecl, AFloatDoesNotTakeADoubleValue) {
    const std::string source = withParams("someDouble: double", "float f = someDouble;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Type mismatch: cannot initialize variable of type 'float' with value of type "
                                      "'double'", at(source, 2, "f ="))});
}

TEST(CheckerVarDecl, AFloatDoesNotTakeAnIntLiteralWhichDoesNotWidenToFloat) {
    const std::string source = inFunction("float f = 1;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Type mismatch: cannot initialize variable of type 'float' with value of type "
                                      "'int'", at(source, 2, "f ="))});
}

TEST(CheckerVarDecl, ADoubleTakesAnIntByWidening) {
    EXPECT_EQ(probe(inFunction("double d = 1;")).records, Records{});
}

TEST(CheckerVarDecl, AMismatchReportsOnlyTheTypeError) {
    const std::string source = inFunction("string s = 1;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Type mismatch: cannot initialize variable of type 'string' with value of type "
                                      "'int'", at(source, 2, "s ="))});
}

TEST(CheckerVarDecl, ConstWithoutTypeOrValueGetsTheVarAndLetMessage) {
    const std::string source = inFunction("const c;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Variable 'c' declared with 'var' or 'let' must have an initializer for type "
                                      "inference", at(source, 2, "const"))});
}

TEST(CheckerVarDecl, VarAndLetWithoutValueAreReportedAndDefined) {
    const std::string source = inFunction("let x;\n    var y;\n    var probe = x;");
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              (Records{record("E1001", "Variable 'x' declared with 'var' or 'let' must have an initializer for type "
                                       "inference", at(source, 2, "let")),
                       record("E1001", "Variable 'y' declared with 'var' or 'let' must have an initializer for type "
                                       "inference", at(source, 3, "var"))}));
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerVarDecl, TypedConstWithoutValueIsClean) {
    EXPECT_EQ(probe(inFunction("const int c;")).records, Records{});
}

TEST(CheckerVarDecl, InferenceTakesTheValueTypeAsItStands) {
    Probe result = probe(withParams("small: uint8", "var x = small;\n    var probe = x;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "uint8");
}

TEST(CheckerVarDecl, AnUndefinedTypeIsReportedAndTheValueIsStillChecked) {
    const std::string source = inFunction("Widget w = missing;\n    var probe = w;");
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              (Records{record("E1002", "Undefined type 'Widget' in declaration of variable 'w'", at(source, 2, "w =")),
                       record("E1002", "Undefined variable or symbol 'missing'", at(source, 2, "missing"),
                              "Ensure the variable is declared before use")}));
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerVarDecl, NullIntoAnUndefinedTypeIsAlsoANullSafetyError) {
    const std::string source = inFunction("Widget w = null;");
    EXPECT_EQ(probe(source).records,
              (Records{record("E1002", "Undefined type 'Widget' in declaration of variable 'w'", at(source, 2, "w =")),
                       record("E1008", "Null safety violation: cannot assign null to non-nullable variable 'w' of "
                                       "type '<type-error>'", at(source, 2, "w ="),
                              "Use '<type-error>?' to declare a nullable variable")}));
}

TEST(CheckerVarDecl, TheWrittenTypeIsKeptAfterAMismatch) {
    Probe result = probe(inFunction("string s = 1;\n    var probe = s;"));
    EXPECT_EQ(result.type, "string");
}

TEST(CheckerVarDecl, ASecondDeclarationInOneBlockIsADuplicate) {
    const std::string source = inFunction("int x;\n    int x;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1004", "Duplicate declaration of variable 'x' in this scope", at(source, 3, "x"))});
}

TEST(CheckerVarDecl, TheFirstDeclarationStaysAfterADuplicate) {
    Probe result = probe(inFunction("int x = 1;\n    string x = \"s\";\n    var probe = x;"));
    EXPECT_EQ(result.records.size(), 1u);
    EXPECT_EQ(result.type, "int");
}

TEST(CheckerVarDecl, ADeclarationInANestedBlockShadowsWithoutReport) {
    Probe result = probe(inFunction("int x = 1;\n    {\n        string x = \"s\";\n        var probe = x;\n    }"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "string");
}

TEST(CheckerVarDecl, ALocalMayShadowAParameter) {
    Probe result = probe(withParams("x: int", "string x = \"s\";\n    var probe = x;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "string");
}

TEST(CheckerVarDecl, ABlockVariableIsGoneBehindTheBlock) {
    const std::string source = inFunction("{\n        int inner = 1;\n    }\n    var probe = inner;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1002", "Undefined variable or symbol 'inner'", at(source, 5, "inner"),
                             "Ensure the variable is declared before use")});
}

TEST(CheckerVarDecl, AVariableHidesTheBuiltInFunctionOfItsName) {
    Probe result = probe(inFunction("int print = 1;\n    var probe = print;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "int");
}

}  // namespace
}  // namespace quor::sema::testing
