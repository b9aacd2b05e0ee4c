// Table-driven cases for the checker's rules: every operator rule and its
// message, names and literals, each statement, functions, classes and the
// interfaces a class names. Each row is a whole program, the records it
// must produce in report order, and optionally the type of the local
// `probe`'s initializer.
#include <cctype>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

// One expected record; the place is the nth occurrence of `needle` on `line`.
struct Expected {
    std::string code;
    std::string message;
    int line;
    std::string needle;
    int nth = 1;
    std::string hint = "";
};

struct Case {
    std::string title;
    std::string source;
    std::vector<Expected> reports;
    std::string probeType = "";  // empty: the probe is not looked at
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.title; }

std::string body(const std::string& params, const std::string& statements) {
    return "fn f(" + params + ") {\n    " + statements + "\n}\n";
}

std::string probeOf(const std::string& params, const std::string& expression) {
    return body(params, "var probe = " + expression + ";");
}

Expected r2(const std::string& op, const std::string& l, const std::string& r, int line, int nth = 1) {
    return {"E1001", "Operator '" + op + "' cannot be applied to types '" + l + "' and '" + r + "'", line, op, nth,
            "Operands must be numeric"};
}

std::string caseName(const ::testing::TestParamInfo<Case>& info) {
    std::string name;
    for (char c : info.param.title) name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    return name;
}

class CheckerRuleTable : public ::testing::TestWithParam<Case> {};

TEST_P(CheckerRuleTable, ReportsAndTypesAsTheRuleSays) {
    const Case& c = GetParam();
    std::vector<std::string> expected;
    for (const Expected& e : c.reports) {
        expected.push_back(record(e.code, e.message, at(c.source, e.line, e.needle, e.nth), e.hint));
    }
    Analysis analysis(c.source);
    analysis.analyze();
    EXPECT_EQ(analysis.records(), expected) << c.source;
    if (!c.probeType.empty()) {
        EXPECT_EQ(typeOfInitializer(analysis, "probe"), c.probeType) << c.source;
    }
    EXPECT_EQ(Analysis(c.source).analyzeReleasingBodies().records(), analysis.records()) << c.source;
}

// ---- literals and names ----

INSTANTIATE_TEST_SUITE_P(
    Literals, CheckerRuleTable,
    ::testing::Values(Case{"FloatSuffixLower", probeOf("", "1.5f"), {}, "float"},
                      Case{"FloatSuffixUpper", probeOf("", "1.5F"), {}, "float"},
                      Case{"FloatWithoutSuffixIsDouble", probeOf("", "1.5"), {}, "double"},
                      Case{"SmallIntegerIsInt", probeOf("", "10"), {}, "int"},
                      Case{"HugeIntegerIsInt", probeOf("", "99999999999999999999"), {}, "int"},
                      Case{"StringLiteral", probeOf("", "\"s\""), {}, "string"},
                      Case{"CharLiteral", probeOf("", "'c'"), {}, "char"},
                      Case{"BooleanLiteral", probeOf("", "false"), {}, "bool"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Names, CheckerRuleTable,
    ::testing::Values(
        Case{"ThisInAFunctionOutsideAClass",
             probeOf("", "this"),
             {{"E1001", "'this' cannot be used outside of an instance method", 2, "this"}},
             "<type-error>"},
        Case{"SuperInAFunctionOutsideAClass",
             probeOf("", "super"),
             {{"E1001", "'super' cannot be used outside of a subclass", 2, "super"}},
             "<type-error>"},
        Case{"SuperInAClassWithoutSuperclass",
             "class A {\n    fn m() {\n        var probe = super;\n    }\n}\n",
             {{"E1001", "'super' cannot be used outside of a subclass", 3, "super"}},
             "<type-error>"},
        Case{"SuperInASubclassIsTheSuperclass",
             "class B {}\nclass A extends B {\n    fn m() {\n        var probe = super;\n    }\n}\n", {}, "B"},
        Case{"ThisInAMethodIsTheClass", "class A {\n    fn m() {\n        var probe = this;\n    }\n}\n", {}, "A"},
        Case{"ALocalWinsOverAField",
             "class A {\n    string x;\n    fn m() {\n        var x = 1;\n        var probe = x;\n    }\n}\n", {},
             "int"},
        Case{"AnInheritedFieldIsFoundThroughTheClass",
             "class B {\n    string x;\n}\nclass A extends B {\n    fn m() {\n        var probe = x;\n    }\n}\n", {},
             "string"},
        Case{"AMethodNameIsNoValue",
             "class A {\n    fn n() {}\n    fn m() {\n        var probe = n;\n    }\n}\n",
             {{"E1002", "Undefined variable or symbol 'n'", 4, "n", 1, "Ensure the variable is declared before use"}},
             "<type-error>"},
        Case{"AFunctionNameIsItsFunctionType",
             "fn g(a: int): string {\n    return \"\";\n}\nfn f() {\n    var probe = g;\n}\n", {},
             "fn(int) -> string"},
        Case{"AClassNameIsItsType", "class A {}\nfn f() {\n    var probe = A;\n}\n", {}, "A"},
        Case{"AnUndefinedName",
             probeOf("", "nowhere"),
             {{"E1002", "Undefined variable or symbol 'nowhere'", 2, "nowhere", 1,
               "Ensure the variable is declared before use"}},
             "<type-error>"}),
    caseName);

// ---- binary, unary and ternary operators ----

INSTANTIATE_TEST_SUITE_P(
    OperatorTypes, CheckerRuleTable,
    ::testing::Values(
        Case{"StringPlusInt", probeOf("", "\"a\" + 1"), {}, "string"},
        Case{"IntPlusString", probeOf("", "1 + \"a\""), {}, "string"},
        Case{"StringPlusNull", probeOf("", "\"a\" + null"), {}, "string"},
        Case{"NullPlusString", probeOf("", "null + \"a\""), {}, "string"},
        Case{"StringPlusAny", probeOf("a: any", "\"a\" + a"), {}, "string"},
        Case{"StringPlusVoidCall", "fn n() {}\nfn f() {\n    var probe = \"a\" + n();\n}\n", {}, "string"},
        Case{"LeftChainBecomesStringOnlyAtTheString", probeOf("", "1 + 2 + \"a\""), {}, "string"},
        Case{"RangeOfSmallIntegersIsIntArray", probeOf("x: uint8, y: uint8", "x .. y"), {}, "int[]"},
        Case{"ArithmeticOfSameKindKeepsIt", probeOf("x: uint8, y: uint8", "x + y"), {}, "uint8"},
        Case{"ArithmeticOfUintAndIntIsInt", probeOf("x: uint, y: int", "x * y"), {}, "int"},
        Case{"ArithmeticWithDoubleIsDouble", probeOf("x: int64", "x / 2.0"), {}, "double"},
        Case{"ModuloOfFloatAndInt8", probeOf("x: float, y: int8", "x % y"), {}, "float"},
        Case{"BitwiseIsTheCommonType", probeOf("x: uint8, y: int64", "x & y"), {}, "int64"},
        Case{"ShiftIsTheCommonType", probeOf("x: uint8", "x << 1"), {}, "int"},
        Case{"ComparisonOfMixedNumbers", probeOf("x: uint, y: double", "x >= y"), {}, "bool"},
        Case{"NullEqualsNullable", probeOf("x: int?", "null == x"), {}, "bool"},
        Case{"NullableNotEqualsNull", probeOf("x: int?", "x != null"), {}, "bool"},
        Case{"EqualityWidensEitherWay", probeOf("x: int64", "1 == x"), {}, "bool"},
        Case{"NullEqualsNull", probeOf("", "null == null"), {}, "bool"},
        Case{"AnyEqualsInt", probeOf("a: any", "a != 1"), {}, "bool"},
        Case{"NullableEqualsItsInnerType", probeOf("x: int?", "x == 1"), {}, "bool"},
        Case{"SubclassEqualsBase", "class B {}\nclass A extends B {}\nfn f(a: A, b: B) {\n    var probe = b == a;\n}\n",
             {}, "bool"},
        Case{"CharPlusString", probeOf("", "'c' + \"s\""), {}, "string"},
        Case{"CoalesceWithNullIsNullable", probeOf("x: int?", "x ?? null"), {}, "int?"},
        Case{"CoalesceOfNullableIsItsInnerType", probeOf("x: int?", "x ?? 1"), {}, "int"},
        Case{"CoalesceOfNullableWithWiderRight", probeOf("x: int?", "x ?? 2.5"), {}, "double"},
        Case{"CoalesceOfNonNullableIsSilent", probeOf("x: int, y: string", "x ?? y"), {}, "any"},
        Case{"LogicalOfBools", probeOf("a: bool", "a && !a || true"), {}, "bool"},
        Case{"NegateUnsignedStaysUnsigned", probeOf("u: uint", "-u"), {}, "uint"},
        Case{"UnaryPlusKeepsTheType", probeOf("u: int16", "+u"), {}, "int16"},
        Case{"BitwiseNotKeepsTheIntegerKind", probeOf("u: uint8", "~u"), {}, "uint8"},
        Case{"PostfixIncrementKeepsTheType", probeOf("d: double", "d++"), {}, "double"},
        Case{"PrefixDecrementKeepsTheType", probeOf("d: float", "--d"), {}, "float"},
        Case{"TernaryIsTheCommonTypeOfItsBranches", probeOf("c: bool", "c ? 1 : 2.0"), {}, "double"},
        Case{"TernaryWithNullBranchIsNullable", probeOf("c: bool", "c ? 1 : null"), {}, "int?"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    OperatorReports, CheckerRuleTable,
    ::testing::Values(
        Case{"RangeWithDouble",
             probeOf("", "1 .. 2.5"),
             {{"E1001", "Range operator '..' requires integer operands, got 'int' and 'double'", 2, ".."}},
             "<type-error>"},
        Case{"RangeOfChars",
             probeOf("", "'a' .. 'z'"),
             {{"E1001", "Range operator '..' requires integer operands, got 'char' and 'char'", 2, ".."}},
             "<type-error>"},
        Case{"MinusOnBool", probeOf("", "true - 1"), {r2("-", "bool", "int", 2)}, "<type-error>"},
        Case{"PlusOfAnyAndInt", probeOf("a: any", "a + 1"), {r2("+", "any", "int", 2)}, "<type-error>"},
        Case{"PlusOfIntAndBoolWithoutString", probeOf("", "1 + true"), {r2("+", "int", "bool", 2)}, "<type-error>"},
        Case{"TimesOfUnknown", probeOf("u", "u * 2"), {r2("*", "unknown", "int", 2)}, "<type-error>"},
        Case{"DivideChar", probeOf("", "'a' / 2"), {r2("/", "char", "int", 2)}, "<type-error>"},
        Case{"ModuloNullable", probeOf("x: int?", "x % 2"), {r2("%", "int?", "int", 2)}, "<type-error>"},
        Case{"ErrorOperandSilencesTheStringRule", probeOf("", "(true - 1) + \"a\""), {r2("-", "bool", "int", 2)},
             "<type-error>"},
        Case{"ErrorOperandOnTheRight", probeOf("", "\"a\" < (1 - false)"), {r2("-", "int", "bool", 2)},
             "<type-error>"},
        Case{"ErrorOperandOfEquality", probeOf("", "(1 - true) == null"), {r2("-", "int", "bool", 2)},
             "<type-error>"},
        Case{"ErrorOperandOfUnary", probeOf("", "!(1 - true)"), {r2("-", "int", "bool", 2)}, "<type-error>"},
        Case{"ErrorOperandOfRange", probeOf("", "(1 - true) .. 2.5"), {r2("-", "int", "bool", 2)}, "<type-error>"},
        Case{"BothSidesReportInOrder",
             probeOf("", "(1 - true) * (2 / false)"),
             {r2("-", "int", "bool", 2), r2("/", "int", "bool", 2)},
             "<type-error>"},
        Case{"CompareStrings",
             probeOf("", "\"a\" < \"b\""),
             {{"E1001", "Comparison operator '<' cannot be applied to types 'string' and 'string'", 2, "<", 1,
               "Both operands must be numeric"}},
             "<type-error>"},
        Case{"CompareChars",
             probeOf("", "'a' >= 'b'"),
             {{"E1001", "Comparison operator '>=' cannot be applied to types 'char' and 'char'", 2, ">=", 1,
               "Both operands must be numeric"}},
             "<type-error>"},
        Case{"LogicalOnNullableBool",
             probeOf("b: bool?", "b || true"),
             {{"E1001", "Logical operator '||' requires boolean operands, got 'bool?' and 'bool'", 2, "||"}},
             "<type-error>"},
        Case{"LogicalOnInt",
             probeOf("", "1 && true"),
             {{"E1001", "Logical operator '&&' requires boolean operands, got 'int' and 'bool'", 2, "&&"}},
             "<type-error>"},
        Case{"EqualityOfIntAndString",
             probeOf("", "1 == \"one\""),
             {{"E1001", "Cannot compare incompatible types 'int' and 'string'", 2, "=="}},
             "<type-error>"},
        Case{"NullEqualsPlainIntIsIncompatible",
             probeOf("", "null != 1"),
             {{"E1001", "Cannot compare incompatible types 'null' and 'int'", 2, "!="}},
             "<type-error>"},
        Case{"UnknownEqualsIntIsIncompatible",
             probeOf("u", "u == 1"),
             {{"E1001", "Cannot compare incompatible types 'unknown' and 'int'", 2, "=="}},
             "<type-error>"},
        Case{"NullableEqualsAnotherType",
             probeOf("x: int?", "x == \"s\""),
             {{"E1001", "Cannot compare incompatible types 'int?' and 'string'", 2, "=="}},
             "<type-error>"},
        Case{"CharPlusChar", probeOf("", "'a' + 'b'"), {r2("+", "char", "char", 2)}, "<type-error>"},
        Case{"BitwiseAndOfDouble",
             probeOf("", "1.5 & 1"),
             {{"E1001", "Bitwise operator requires integer operands, got 'double' and 'int'", 2, "&"}},
             "<type-error>"},
        Case{"ShiftOfChar",
             probeOf("", "'a' << 1"),
             {{"E1001", "Bitwise operator requires integer operands, got 'char' and 'int'", 2, "<<"}},
             "<type-error>"},
        Case{"XorOfBools",
             probeOf("", "true ^ false"),
             {{"E1001", "Bitwise operator requires integer operands, got 'bool' and 'bool'", 2, "^"}},
             "<type-error>"},
        Case{"NegateString",
             probeOf("", "-\"a\""),
             {{"E1001", "Unary operator '-' requires numeric operand, got 'string'", 2, "-"}},
             "<type-error>"},
        Case{"UnaryPlusOnBool",
             probeOf("", "+true"),
             {{"E1001", "Unary operator '+' requires numeric operand, got 'bool'", 2, "+"}},
             "<type-error>"},
        Case{"NotOfInt",
             probeOf("", "!1"),
             {{"E1001", "Logical negation '!' requires boolean operand, got 'int'", 2, "!"}},
             "<type-error>"},
        Case{"NotOfNullableBool",
             probeOf("b: bool?", "!b"),
             {{"E1001", "Logical negation '!' requires boolean operand, got 'bool?'", 2, "!"}},
             "<type-error>"},
        Case{"BitwiseNotOfDouble",
             probeOf("", "~1.5"),
             {{"E1001", "Bitwise NOT '~' requires integer operand, got 'double'", 2, "~"}},
             "<type-error>"},
        Case{"BitwiseNotOfChar",
             probeOf("", "~'a'"),
             {{"E1001", "Bitwise NOT '~' requires integer operand, got 'char'", 2, "~"}},
             "<type-error>"},
        Case{"PostfixIncrementOfString",
             probeOf("s: string", "s++"),
             {{"E1001", "Increment/decrement operator requires numeric operand, got 'string'", 2, "++"}},
             "<type-error>"},
        Case{"PrefixDecrementOfBool",
             probeOf("b: bool", "--b"),
             {{"E1001", "Increment/decrement operator requires numeric operand, got 'bool'", 2, "--"}},
             "<type-error>"},
        Case{"TernaryWithIntCondition",
             probeOf("", "1 ? 1 : 2.0"),
             {{"E1001", "Ternary condition must be of type bool, got 'int'", 2, "?"}},
             "double"},
        Case{"TernaryWithBrokenConditionIsNotSilenced",
             probeOf("", "(true - 1) ? 1 : 2.0"),
             {r2("-", "bool", "int", 2), {"E1001", "Ternary condition must be of type bool, got '<type-error>'", 2, "?"}},
             "double"},
        Case{"TernaryConditionBeforeBranches",
             probeOf("", "1 ? (2 - true) : 2"),
             {{"E1001", "Ternary condition must be of type bool, got 'int'", 2, "?"}, r2("-", "int", "bool", 2)},
             "<type-error>"}),
    caseName);

// ---- variables ----

INSTANTIATE_TEST_SUITE_P(
    Variables, CheckerRuleTable,
    ::testing::Values(
        Case{"VarOfNullIsRefusedAndTheVariableIsBroken",
             body("", "var x = null;\n    var probe = x + 1;"),
             {{"E1001", "Cannot infer type from 'null' without explicit type annotation", 2, "var"}},
             "<type-error>"},
        Case{"IntOfNullIsANullSafetyViolation",
             body("", "int x = null;"),
             {{"E1008", "Null safety violation: cannot assign null to non-nullable variable 'x' of type 'int'", 2, "x",
               1, "Use 'int?' to declare a nullable variable"}}},
        Case{"ArrayOfNullNamesTheArrayInTheHint",
             body("", "string[] xs = null;"),
             {{"E1008",
               "Null safety violation: cannot assign null to non-nullable variable 'xs' of type 'string[]'", 2, "xs",
               1, "Use 'string[]?' to declare a nullable variable"}}},
        Case{"NullableOfNullIsClean", body("", "int? x = null;"), {}},
        Case{"AnyIntegerLiteralFitsAnyIntegerType", body("", "uint8 b = 1000;\n    int8 c = 300;"), {}},
        Case{"ANonLiteralIntegerIsHeldToAssignability",
             body("n: int", "uint8 b = n;"),
             {{"E1001", "Type mismatch: cannot initialize variable of type 'uint8' with value of type 'int'", 2, "b"}}},
        Case{"ANegatedLiteralIsNoLiteral",
             body("", "int8 b = -1;"),
             {{"E1001", "Type mismatch: cannot initialize variable of type 'int8' with value of type 'int'", 2, "b"}}},
        Case{"AWideningNonLiteralIsClean", body("n: int", "int64 b = n;"), {}},
        Case{"FloatTakesADoubleLiteral", body("", "float x = 1.5;"), {}},
        Case{"FloatTakesNoDoubleVariable",
             body("d: double", "float x = d;"),
             {{"E1001", "Type mismatch: cannot initialize variable of type 'float' with value of type 'double'", 2,
               "x"}}},
        Case{"FloatTakesNoNegatedDoubleLiteral",
             body("", "float x = -1.5;"),
             {{"E1001", "Type mismatch: cannot initialize variable of type 'float' with value of type 'double'", 2,
               "x"}}},
        Case{"FloatTakesNoIntLiteral",
             body("", "float x = 1;"),
             {{"E1001", "Type mismatch: cannot initialize variable of type 'float' with value of type 'int'", 2,
               "x"}}},
        Case{"DoubleTakesAnInt", body("", "double x = 1;"), {}},
        Case{"IntTakesNoDouble",
             body("", "int x = 1.5;"),
             {{"E1001", "Type mismatch: cannot initialize variable of type 'int' with value of type 'double'", 2,
               "x"}}},
        Case{"StringTakesNoChar",
             body("", "string s = 'c';"),
             {{"E1001", "Type mismatch: cannot initialize variable of type 'string' with value of type 'char'", 2,
               "s", 2}}},
        Case{"ConstWithoutInitializer",
             body("", "const c;"),
             {{"E1001", "Variable 'c' declared with 'var' or 'let' must have an initializer for type inference", 2,
               "const"}}},
        Case{"LetWithoutInitializer",
             body("", "let c;\n    var probe = c;"),
             {{"E1001", "Variable 'c' declared with 'var' or 'let' must have an initializer for type inference", 2,
               "let"}},
             "<type-error>"},
        Case{"TypedConstWithoutInitializerIsClean", body("", "const int c;\n    int d;"), {}},
        Case{"InferredTypeIsTakenAsItStands", body("x: int?", "var probe = x;\n    let y = probe;"), {}, "int?"},
        Case{"DuplicateInOneBlock",
             body("", "int x;\n    int x;"),
             {{"E1004", "Duplicate declaration of variable 'x' in this scope", 3, "x"}}},
        Case{"TheFirstDeclarationStays",
             body("", "int x = 1;\n    string x = \"s\";\n    var probe = x;"),
             {{"E1004", "Duplicate declaration of variable 'x' in this scope", 3, "x"}},
             "int"},
        Case{"ABrokenDeclarationIsStillDefined",
             body("", "var x = null;\n    var x = 1;"),
             {{"E1001", "Cannot infer type from 'null' without explicit type annotation", 2, "var"},
              {"E1004", "Duplicate declaration of variable 'x' in this scope", 3, "var"}}},
        Case{"ANestedBlockShadows", body("", "int x;\n    {\n        string x;\n    }"), {}},
        Case{"ALocalShadowsAParameter", body("a: int", "var a = \"s\";"), {}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    LocalTypesAndScopes, CheckerRuleTable,
    ::testing::Values(
        Case{"ATypeParameterIsNoLocalType",
             "fn f<T>(x: T) {\n    T y = x;\n    var probe = y;\n}\n",
             {{"E1002", "Undefined type 'T' in declaration of variable 'y'", 2, "y"}},
             "<type-error>"},
        Case{"AnUndefinedLocalTypeStillTakesAnInitializer",
             body("", "Nowhere y = 1;"),
             {{"E1002", "Undefined type 'Nowhere' in declaration of variable 'y'", 2, "y"}}},
        Case{"AnUndefinedLocalTypeWithNullIsAlsoANullSafetyViolation",
             body("", "Nowhere y = null;"),
             {{"E1002", "Undefined type 'Nowhere' in declaration of variable 'y'", 2, "y"},
              {"E1008",
               "Null safety violation: cannot assign null to non-nullable variable 'y' of type '<type-error>'", 2,
               "y", 1, "Use '<type-error>?' to declare a nullable variable"}}},
        Case{"AnUndefinedLoopAnnotationIsPassedOver",
             body("xs: int[]", "for (Nowhere e in xs) {\n        var probe = e;\n    }"), {}, "int"},
        Case{"AnUndefinedCaughtTypeIsAny",
             body("", "try {} catch (Nowhere e) {\n        var probe = e;\n    }"), {}, "any"},
        Case{"DoWhileConditionDoesNotSeeTheBody",
             body("", "do {\n        var y = true;\n    } while (y);"),
             {{"E1002", "Undefined variable or symbol 'y'", 4, "y", 1, "Ensure the variable is declared before use"},
              {"E1001", "Do-while condition must be of type bool, got '<type-error>'", 2, "do"}}},
        Case{"ForVariableIsGoneBehindTheLoop",
             body("", "for (var i = 0; i < 2; i++) {}\n    var probe = i;"),
             {{"E1002", "Undefined variable or symbol 'i'", 3, "i", 1, "Ensure the variable is declared before use"}},
             "<type-error>"},
        Case{"ForInVariableIsGoneBehindTheLoop",
             body("xs: int[]", "for (e in xs) {}\n    var probe = e;"),
             {{"E1002", "Undefined variable or symbol 'e'", 3, "e", 2, "Ensure the variable is declared before use"}},
             "<type-error>"},
        Case{"CaughtVariableIsGoneBehindTheClause",
             body("", "try {} catch (string e) {}\n    var probe = e;"),
             {{"E1002", "Undefined variable or symbol 'e'", 3, "e", 2, "Ensure the variable is declared before use"}},
             "<type-error>"},
        Case{"CaseLocalsStayInTheEnclosingScope",
             body("n: int", "switch (n) { case 1: var y = 1; }\n    var probe = y;"), {}, "int"},
        Case{"ADefaultSeesOnlyEarlierParameters",
             "fn f(a: int = b, b: int = 1) {}\n",
             {{"E1002", "Undefined variable or symbol 'b'", 1, "b", 1, "Ensure the variable is declared before use"}}},
        Case{"AnEnumNameIsItsType", "enum Color { Red }\nfn f() {\n    var probe = Color;\n}\n", {}, "Color"}),
    caseName);

// An expression that failed a check is the error type, which every later
// assignability test accepts: only conditions and for-in report it again.
INSTANTIATE_TEST_SUITE_P(
    ErrorTypeSilences, CheckerRuleTable,
    ::testing::Values(
        Case{"ATypedInitializer", body("", "int x = true - 1;"), {r2("-", "bool", "int", 2)}},
        Case{"AnInferredVariableLaterUsed", body("", "var x = true - 1;\n    var probe = x * 2;"),
             {r2("-", "bool", "int", 2)}, "<type-error>"},
        Case{"ASwitchSubject", body("", "switch (true - 1) { case 1: break; }"), {r2("-", "bool", "int", 2)}},
        Case{"ACaseValue", body("n: int", "switch (n) { case true - 1: break; }"), {r2("-", "bool", "int", 2)}},
        Case{"AMatchSubject", body("", "match true - 1 { 1 => 2 }"), {r2("-", "bool", "int", 2)}},
        Case{"AMatchPattern", body("n: string", "match n { true - 1 => 2 }"), {r2("-", "bool", "int", 2)}},
        Case{"AReturnedValue", "fn f(): int {\n    return true - 1;\n}\n", {r2("-", "bool", "int", 2)}},
        Case{"ADefaultValue", "fn f(a: string = true - 1) {}\n", {r2("-", "bool", "int", 1)}},
        Case{"AFieldInitializer", "class A {\n    string x = true - 1;\n}\n", {r2("-", "bool", "int", 2)}},
        Case{"ATypedShortForm", "fn f(): string => true - 1;\n", {r2("-", "bool", "int", 1)}},
        Case{"AWhileCondition",
             body("", "while (true - 1) {}"),
             {r2("-", "bool", "int", 2),
              {"E1001", "While condition must be of type bool, got '<type-error>'", 2, "while"}}}),
    caseName);

// ---- conditions, loops, switch, match ----

INSTANTIATE_TEST_SUITE_P(
    ControlFlow, CheckerRuleTable,
    ::testing::Values(
        Case{"IfOfInt", body("", "if (1) {}"), {{"E1001", "If condition must be of type bool, got 'int'", 2, "if"}}},
        Case{"IfOfBrokenConditionCascades",
             body("", "if (true - 1) {}"),
             {r2("-", "bool", "int", 2), {"E1001", "If condition must be of type bool, got '<type-error>'", 2, "if"}}},
        Case{"WhileOfNullableBool",
             body("b: bool?", "while (b) {}"),
             {{"E1001", "While condition must be of type bool, got 'bool?'", 2, "while"}}},
        Case{"DoWhileOfStringAfterItsBody",
             body("", "do { 1 - true; } while (\"s\");"),
             {r2("-", "int", "bool", 2), {"E1001", "Do-while condition must be of type bool, got 'string'", 2, "do"}}},
        Case{"ForOfAny",
             body("a: any", "for (; a; ) {}"),
             {{"E1001", "For loop condition must be of type bool, got 'any'", 2, "for"}}},
        Case{"ForChecksConditionThenUpdateThenBody",
             body("", "for (var i = 0; i; i - true) { 1 - false; }"),
             {{"E1001", "For loop condition must be of type bool, got 'int'", 2, "for"}, r2("-", "int", "bool", 2),
              r2("-", "int", "bool", 2, 2)}},
        Case{"ABlockBodyMayShadowTheForVariable", body("", "for (var i = 0; ; ) {\n        var i = 1;\n    }"), {}},
        Case{"AnUnbracedForBodySharesTheLoopsScope",
             body("", "for (var i = 0; ; ) int i = 1;"),
             {{"E1004", "Duplicate declaration of variable 'i' in this scope", 2, "i = 1"}}},
        Case{"AnUnbracedWhileBodyDeclaresInTheEnclosingScope",
             body("a: bool", "while (a) int x = 1;\n    int x = 2;"),
             {{"E1004", "Duplicate declaration of variable 'x' in this scope", 3, "x"}}},
        Case{"ForVariableIsLocalToTheLoop",
             body("", "for (var i = 0; i < 3; i++) {}\n    string i = \"s\";"), {}},
        Case{"IfBranchesAreChecked",
             body("a: bool", "if (a) { 1 - true; } else { 2 - false; }"),
             {r2("-", "int", "bool", 2), r2("-", "int", "bool", 2, 2)}},
        Case{"ForInOverString",
             body("s: string", "for (c in s) {}"),
             {{"E1001", "For-in loop requires an iterable collection or array, got 'string'", 2, "for"}}},
        Case{"ForInOverAnyGivesAny",
             body("a: any", "for (e in a) {\n        var probe = e;\n    }"),
             {{"E1001", "For-in loop requires an iterable collection or array, got 'any'", 2, "for"}},
             "any"},
        Case{"ForInOverBrokenIterableIsReported",
             body("", "for (e in true - 1) {}"),
             {r2("-", "bool", "int", 2),
              {"E1001", "For-in loop requires an iterable collection or array, got '<type-error>'", 2, "for"}}},
        Case{"ForInOverSetIsRefused",
             body("s: Set<int>", "for (e in s) {}"),
             {{"E1001", "For-in loop requires an iterable collection or array, got 'Set<int>'", 2, "for"}}},
        Case{"ForInOverANullableArrayIsRefused",
             body("xs: int[]?", "for (e in xs) {}"),
             {{"E1001", "For-in loop requires an iterable collection or array, got 'int[]?'", 2, "for"}}},
        Case{"ForInOverAnArrayWrittenAsAClassName",
             body("xs: Array<bool>", "for (e in xs) {\n        var probe = e;\n    }"), {}, "bool"},
        Case{"ForInOverArrayGivesElements", body("xs: int[]", "for (var e in xs) {\n        var probe = e;\n    }"),
             {}, "int"},
        Case{"ForInOverMapGivesKeys",
             body("m: Map<string, int>", "for (k in m) {\n        var probe = k;\n    }"), {}, "string"},
        Case{"ForInOverListGivesItsElement",
             body("l: List<int64>", "for (let e in l) {\n        var probe = e;\n    }"), {}, "int64"},
        Case{"ForInAnnotationWinsUnchecked",
             body("xs: int[]", "for (string e in xs) {\n        var probe = e;\n    }"), {}, "string"},
        Case{"ForInVariableIsLocalToTheLoop", body("xs: int[]", "for (e in xs) {}\n    string e = \"s\";"), {}},
        Case{"BreakOutsideLoop",
             body("", "break;"),
             {{"E1001", "'break' statement outside of loop or switch", 2, "break"}}},
        Case{"ContinueOutsideLoop",
             body("", "continue;"),
             {{"E1001", "'continue' statement outside of loop", 2, "continue"}}},
        Case{"BreakAndContinueInLoops",
             body("a: bool, xs: int[]",
                  "while (a) { break; }\n    do { continue; } while (a);\n    for (;;) { break; }\n"
                  "    for (e in xs) { continue; }"),
             {}},
        Case{"BreakInSwitchButNotContinue",
             body("n: int", "switch (n) { case 1: break; default: continue; }"),
             {{"E1001", "'continue' statement outside of loop", 2, "continue"}}},
        Case{"ContinueInSwitchInLoop", body("n: int", "while (true) { switch (n) { case 1: continue; } }"), {}},
        Case{"BreakInMatchIsOutsideASwitch",
             body("n: int", "match n { 1 => { break; } }"),
             {{"E1001", "'break' statement outside of loop or switch", 2, "break"}}},
        Case{"CaseValueOfAnotherType",
             body("n: int", "switch (n) { case \"a\": 1 - true; case 2: break; }"),
             {{"E1001", "Case value type 'string' does not match switch expression type 'int'", 2, "switch"},
              r2("-", "int", "bool", 2)}},
        Case{"CaseValueThatWidensIsClean", body("n: int64", "switch (n) { case 1: break; }"), {}},
        Case{"CaseValueThatWouldNarrow",
             body("n: int, m: int64", "switch (n) { case m: break; }"),
             {{"E1001", "Case value type 'int64' does not match switch expression type 'int'", 2, "switch"}}},
        Case{"CasesShareTheEnclosingScope",
             body("n: int", "switch (n) {\n        case 1: var y = 1;\n        case 2: var y = 2;\n    }"),
             {{"E1004", "Duplicate declaration of variable 'y' in this scope", 4, "var"}}},
        Case{"DefaultBodyIsChecked",
             body("n: int", "switch (n) { default: 1 - true; }"),
             {r2("-", "int", "bool", 2)}},
        Case{"MatchPatternOfAnotherType",
             body("n: int", "match n { \"a\" => 1, _ => 2 }"),
             {{"E1001", "Match pattern type 'string' does not match subject type 'int'", 2, "match"}}},
        Case{"MatchArmExpressionsAndBlocksAreChecked",
             body("n: int", "match n { 1 => true - 1, _ => { 2 - false; } }"),
             {r2("-", "bool", "int", 2), r2("-", "int", "bool", 2, 2)}},
        Case{"MatchArmTypesAreNotCompared", body("n: int", "match n { 1 => \"a\", 2 => true, _ => 3.5 }"), {}}),
    caseName);

// ---- return, try, throw ----

INSTANTIATE_TEST_SUITE_P(
    Returns, CheckerRuleTable,
    ::testing::Values(
        Case{"VoidFunctionReturningAValueDoesNotCheckIt",
             "fn f() {\n    return true - 1;\n}\n",
             {{"E1005", "Void function cannot return a value", 2, "return"}}},
        Case{"BareReturnInNonVoid",
             "fn f(): int {\n    return;\n}\n",
             {{"E1005", "Non-void function must return a value of type 'int'", 2, "return"}}},
        Case{"ReturnMismatch",
             "fn f(): int {\n    return \"a\";\n}\n",
             {{"E1005", "Return type mismatch: expected 'int', got 'string'", 2, "return"}}},
        Case{"ReturnOfNullToPlainInt",
             "fn f(): int {\n    return null;\n}\n",
             {{"E1005", "Return type mismatch: expected 'int', got 'null'", 2, "return"}}},
        Case{"ReturnWidensAndNullFitsNullable",
             "fn f(): int64 {\n    return 1;\n}\nfn g(): int? {\n    return null;\n}\n", {}},
        Case{"AnyResultIsSettledByTheFirstReturn",
             "fn f<T>(): T {\n    return 1;\n    return \"s\";\n}\n",
             {{"E1005", "Return type mismatch: expected 'int', got 'string'", 3, "return"}}},
        Case{"ReturnInATestIsAVoidReturn",
             "test \"adds\" {\n    return 1;\n}\n",
             {{"E1005", "Void function cannot return a value", 2, "return"}}},
        Case{"ReturnInAConstructorIsAVoidReturn",
             "class A {\n    A(x: int) {\n        return x;\n    }\n}\n",
             {{"E1005", "Void function cannot return a value", 3, "return"}}},
        Case{"ALambdaResultIsSettledByItsFirstReturn",
             body("", "var g = () => {\n        return 1;\n        return \"s\";\n    };"),
             {{"E1005", "Return type mismatch: expected 'int', got 'string'", 4, "return"}}},
        Case{"ABareReturnInALambdaExpectsUnknown",
             body("", "var g = () => {\n        return;\n    };"),
             {{"E1005", "Non-void function must return a value of type 'unknown'", 3, "return"}}},
        Case{"ALambdaReturnLeavesTheFunctionsResultAlone",
             "fn f(): int {\n    var g = () => {\n        return \"s\";\n    };\n    return \"t\";\n}\n",
             {{"E1005", "Return type mismatch: expected 'int', got 'string'", 5, "return"}}},
        Case{"BreakInALambdaIsJudgedByTheLoopsAroundIt",
             body("a: bool", "while (a) {\n        var g = () => {\n            break;\n        };\n    }\n"
                             "    var h = () => {\n        continue;\n    };"),
             {{"E1001", "'continue' statement outside of loop", 8, "continue"}}},
        Case{"CatchVariableHasTheWrittenType",
             body("", "try {\n        1 - true;\n    } catch (string e) {\n        var probe = e;\n    } finally {\n"
                      "        2 - false;\n    }"),
             {r2("-", "int", "bool", 3), r2("-", "int", "bool", 7)},
             "string"},
        Case{"CatchVariableIsLocalToItsClause",
             body("", "try {} catch (string e) {} catch (int e) {}\n    bool e = true;"), {}},
        Case{"AnythingMayBeThrown", body("", "throw 1;\n    throw \"s\";\n    throw null;"), {}},
        Case{"AThrownValueIsChecked", body("", "throw true - 1;"), {r2("-", "bool", "int", 2)}}),
    caseName);

// Whether a body of `fn f(a: bool, b: bool, n: int): int` counts as returning on every path.
struct ReturnCase {
    std::string body;
    bool guaranteed;
};

void PrintTo(const ReturnCase& c, std::ostream* out) { *out << c.body; }

class CheckerGuaranteedReturn : public ::testing::TestWithParam<ReturnCase> {};

TEST_P(CheckerGuaranteedReturn, MissingReturnIsReportedOnlyWithoutAGuaranteedReturn) {
    const std::string source = "fn f(a: bool, b: bool, n: int): int {\n    " + GetParam().body + "\n}\n";
    std::vector<std::string> expected;
    if (!GetParam().guaranteed) {
        expected.push_back(record("E1005",
                                  "Missing return statement: function 'f' must return a value of type 'int' along "
                                  "all code paths",
                                  at(source, 1, "fn")));
    }
    EXPECT_EQ(analyzeSource(source), expected) << source;
}

INSTANTIATE_TEST_SUITE_P(
    Bodies, CheckerGuaranteedReturn,
    ::testing::Values(ReturnCase{"return 1;", true}, ReturnCase{"throw \"x\";", true}, ReturnCase{"", false},
                      ReturnCase{"{ { return 1; } }", true}, ReturnCase{"return 1;\n    var z = 2;", true},
                      ReturnCase{"var z = 1;\n    return z;", true}, ReturnCase{"if (a) { return 1; }", false},
                      ReturnCase{"if (a) { return 1; } else { throw 1; }", true},
                      ReturnCase{"if (a) return 1; else return 2;", true},
                      ReturnCase{"if (a) { } else { return 1; }", false},
                      ReturnCase{"if (a) { return 1; } else if (b) { return 2; }", false},
                      ReturnCase{"if (a) { return 1; } else if (b) { return 2; } else { return 3; }", true},
                      ReturnCase{"if (a) { return 1; } else if (b) { } else { return 3; }", false},
                      ReturnCase{"while (true) { return 1; }", false},
                      ReturnCase{"do { return 1; } while (true);", false}, ReturnCase{"for (;;) { return 1; }", false},
                      ReturnCase{"switch (n) { case 1: return 1; default: return 2; }", false},
                      ReturnCase{"try { return 1; } catch (string e) { return 2; }", false},
                      ReturnCase{"match n { _ => { return 1; } }", false}));

// ---- functions and classes ----

INSTANTIATE_TEST_SUITE_P(
    Functions, CheckerRuleTable,
    ::testing::Values(
        Case{"ShortFormResultIsSeenByACallerAbove",
             "fn a(): string {\n    return b();\n}\nfn b() => 1;\n",
             {{"E1005", "Return type mismatch: expected 'string', got 'int'", 2, "return"}}},
        Case{"ShortFormsAreCheckedFirstAndTwice",
             "fn a() {\n    1 - true;\n}\nfn b() => 2 - false;\n",
             {r2("-", "int", "bool", 4), r2("-", "int", "bool", 2), r2("-", "int", "bool", 4)}},
        Case{"AnExplicitVoidShortFormIsInferredAndCheckedTwice",
             "fn b(): void => 2 - false;\n",
             {r2("-", "int", "bool", 1), r2("-", "int", "bool", 1)}},
        Case{"ATypedShortFormIsCheckedOnce", "fn b(): int => 2 - false;\n", {r2("-", "int", "bool", 1)}},
        Case{"ATypedShortFormThatDoesNotFitKeepsItsType",
             "fn b(): int => \"s\";\nfn c(): string {\n    return b();\n}\n",
             {{"E1005", "Short function body return type mismatch: expected 'int', got 'string'", 1, "fn"},
              {"E1005", "Return type mismatch: expected 'string', got 'int'", 3, "return"}}},
        Case{"AShortFormMethodKeepsVoid",
             "class A {\n    fn m() => 1;\n    fn n(): int {\n        return this.m();\n    }\n}\n",
             {{"E1005", "Return type mismatch: expected 'int', got 'void'", 4, "return"}}},
        Case{"AParameterNamedLikeItsShortFormHidesTheSymbolFromInference",
             "fn g(g: int) => g;\nfn c(): string {\n    return g(1);\n}\n",
             {{"E1005", "Return type mismatch: expected 'string', got 'void'", 3, "return"}}},
        Case{"AShortFormIsSettledAgainInTheSecondWalk",
             "fn c(): string {\n    return a();\n}\nfn a() => b();\nfn b() => 1;\nfn d(): string {\n"
             "    return a();\n}\n",
             {{"E1005", "Return type mismatch: expected 'string', got 'void'", 2, "return"},
              {"E1005", "Return type mismatch: expected 'string', got 'int'", 7, "return"}}},
        Case{"EachOverloadOfAShortFormIsInferredOnItsOwn",
             "fn g(a: int) => 1;\nfn g(a: string) => \"s\";\nfn c(): string {\n    return g(\"x\");\n}\n"
             "fn d(): string {\n    return g(1);\n}\n",
             {{"E1005", "Return type mismatch: expected 'string', got 'int'", 7, "return"}}},
        Case{"DuplicateParameterKeepsTheFirst",
             "fn f(a: int, a: string) {\n    var probe = a;\n}\n",
             {{"E1004", "Duplicate parameter name 'a' in function 'f'", 1, "fn"}},
             "int"},
        Case{"DefaultOfTheWrongType",
             "fn f(a: int = \"s\") {}\n",
             {{"E1001", "Default value type 'string' does not match parameter type 'int'", 1, "fn"}}},
        Case{"DuplicateIsReportedBeforeItsDefault",
             "fn f(a: int, a: string = 1) {}\n",
             {{"E1004", "Duplicate parameter name 'a' in function 'f'", 1, "fn"},
              {"E1001", "Default value type 'int' does not match parameter type 'string'", 1, "fn"}}},
        Case{"DefaultsThatFit", "fn f(a: int, b: int = a, c: int64 = 1, d: int? = null, e: any = 1.5) {}\n", {}},
        Case{"AnUntypedParameterTakesNoDefault",
             "fn f(e = 1.5) {}\n",
             {{"E1001", "Default value type 'double' does not match parameter type 'unknown'", 1, "fn"}}},
        Case{"AnUntypedParameterIsUnknown", "fn f(a) {\n    var probe = a;\n}\n", {}, "unknown"},
        Case{"ATypeParameterIsAny", "fn f<T>(x: T) {\n    var probe = x;\n}\n", {}, "any"},
        Case{"AMissingReturnComesAfterTheBody",
             "fn f(): int {\n    1 - true;\n}\n",
             {r2("-", "int", "bool", 2),
              {"E1005", "Missing return statement: function 'f' must return a value of type 'int' along all code paths",
               1, "fn"}}},
        Case{"AbstractMethodsAreNotHeldToReturn",
             "abstract class A {\n    abstract fn f(): int;\n    abstract fn g(): int {}\n}\n", {}},
        Case{"AClassTypeParameterResultIsAny",
             "class Box<T> {\n    fn get(): T {\n        return 1;\n    }\n}\n", {}},
        Case{"TopLevelStatementsAreNotChecked",
             "var x = null;\n1 - true;\nif (1) {}\nreturn 1;\nbreak;\n{ 2 - false; }\n", {}},
        Case{"AClassInATopLevelBlockIsNotChecked",
             "extern {\n    class A {\n        fn m(): int {}\n    }\n}\n", {}},
        Case{"AShortFormInATopLevelBlockIsSettledOnlyInTheSecondWalk",
             "fn c(): string {\n    return g();\n}\nextern {\n    fn g() => 1;\n}\nfn d(): string {\n"
             "    return g();\n}\n",
             {{"E1005", "Return type mismatch: expected 'string', got 'void'", 2, "return"},
              {"E1005", "Return type mismatch: expected 'string', got 'int'", 8, "return"}}},
        Case{"FunctionsInATopLevelBlockAreChecked",
             "extern {\n    fn g(): int {\n        return \"s\";\n    }\n    int h();\n}\n",
             {{"E1005", "Return type mismatch: expected 'int', got 'string'", 3, "return"}}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Classes, CheckerRuleTable,
    ::testing::Values(
        Case{"FieldInitializerOfTheWrongType",
             "class A {\n    int x = \"s\";\n}\n",
             {{"E1001", "Type mismatch in field initializer for 'x': expected 'int', got 'string'", 2, "x"}}},
        Case{"FieldInitializerHasNoLiteralAllowance",
             "class A {\n    int8 x = 300;\n    float y = 1.5;\n}\n",
             {{"E1001", "Type mismatch in field initializer for 'x': expected 'int8', got 'int'", 2, "x"},
              {"E1001", "Type mismatch in field initializer for 'y': expected 'float', got 'double'", 3, "y"}}},
        Case{"AnUntypedFieldIsVoid",
             "class A {\n    var x = 1;\n}\n",
             {{"E1001", "Type mismatch in field initializer for 'x': expected 'void', got 'int'", 2, "var"}}},
        Case{"StatementsAmongTheMembersAreNotChecked", "class A {\n    1 - true;\n    if (1) {}\n}\n", {}},
        Case{"AnUntypedConstFieldIsVoid",
             "class A {\n    const x = 1;\n}\n",
             {{"E1001", "Type mismatch in field initializer for 'x': expected 'void', got 'int'", 2, "const"}}},
        Case{"AMethodNameIsNoValueInAFieldInitializer",
             "class A {\n    fn m(): int {\n        return 1;\n    }\n    int x = m;\n}\n",
             {{"E1002", "Undefined variable or symbol 'm'", 5, "m", 1, "Ensure the variable is declared before use"}}},
        Case{"FieldsSeeEarlierFieldsAndThis", "class A {\n    int x = 1;\n    int64 y = x;\n    A z = this;\n}\n", {}},
        Case{"MethodsSeeFieldsAndMayShadowThem",
             "class A {\n    int x;\n    fn m(x: string): int {\n        var y = x;\n        return this.x;\n    }\n"
             "    fn n(): int {\n        return x;\n    }\n}\n",
             {}},
        Case{"MissingInterfaceMethod",
             "interface I {\n    fn m(a: int): int;\n}\nclass A implements I {}\n",
             {{"E1001", "Class 'A' does not implement interface method 'm': fn(int) -> int from interface 'I'", 4,
               "class"}}},
        Case{"EachMissingMethodInOrderBeforeTheMembers",
             "interface I {\n    fn m();\n    fn n(s: string, b: bool): string;\n}\n"
             "class A implements I {\n    fn k(): int {}\n}\n",
             {{"E1001", "Class 'A' does not implement interface method 'm': fn() -> void from interface 'I'", 5,
               "class"},
              {"E1001",
               "Class 'A' does not implement interface method 'n': fn(string, bool) -> string from interface 'I'", 5,
               "class"},
              {"E1005", "Missing return statement: function 'k' must return a value of type 'int' along all code paths",
               6, "fn"}}},
        Case{"AWiderReturnTypeDoesNotImplement",
             "interface I {\n    fn m(): int;\n}\nclass A implements I {\n    fn m(): int64 {\n        return 1;\n"
             "    }\n}\n",
             {{"E1001", "Class 'A' does not implement interface method 'm': fn() -> int from interface 'I'", 4,
               "class"}}},
        Case{"AnInheritedMethodImplements",
             "interface I {\n    fn m(a: int): int;\n}\nclass B {\n    fn m(a: int): int {\n        return a;\n"
             "    }\n}\nclass A extends B implements I {}\n",
             {}},
        Case{"AStaticMethodImplements",
             "interface I {\n    fn m();\n}\nclass A implements I {\n    static fn m() {}\n}\n", {}},
        Case{"AnAbstractInheritedMethodImplements",
             "interface I {\n    fn m();\n}\nabstract class B {\n    abstract fn m();\n}\n"
             "class A extends B implements I {}\n",
             {}},
        Case{"DeclarationOrderDoesNotMatterToTheVerification",
             "class A extends B implements I {}\nclass C implements I {}\ninterface I {\n    fn m();\n}\n"
             "class B {\n    fn m() {}\n}\n",
             {{"E1001", "Class 'C' does not implement interface method 'm': fn() -> void from interface 'I'", 2,
               "class"}}},
        Case{"AnAbstractClassAndItsSubclassAreNotHeldToItsInterfaces",
             "interface I {\n    fn m();\n}\nabstract class A implements I {}\nclass C extends A {}\n", {}},
        Case{"AResolverErrorKeepsTheCheckerQuiet",
             "class A extends Nowhere {\n    fn m() {\n        1 - true;\n    }\n}\n",
             {{"E1002", "Undefined base class or interface 'Nowhere'", 1, "class"}}}),
    caseName);

// ---- a return statement visited outside any function ----

TEST(CheckerReturnVisit, OutsideAnyFunctionItIsReportedAndItsValueIsNotChecked) {
    const std::string source = "return true - 1;\n";
    Analysis analysis(source);
    analysis.analyze();
    ASSERT_EQ(analysis.records(), std::vector<std::string>{});  // the walk never reaches it
    ASSERT_EQ(analysis.program->declarations.size(), 1u);
    const auto* statement = dynamic_cast<const ast::StatementNode*>(analysis.program->declarations[0].get());
    ASSERT_NE(statement, nullptr);
    analysis.checker().checkStmt(*statement);
    EXPECT_EQ(analysis.records(),
              std::vector<std::string>{record("E1005", "Return statement outside of any function", at(source, 1, "return"))});
}

}  // namespace
}  // namespace quor::sema::testing
