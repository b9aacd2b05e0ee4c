// The checker's statement and declaration messages carry the full text of
// the types involved: arrays, nullables, maps, generic class
// specialisations, enums, function values, and the error type where a
// generic signature gives it. Each row is a whole program, the records it
// must produce in report order, and optionally the type of `probe`.
#include <cctype>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

Expected condition(const std::string& statement, const std::string& type, int line, const std::string& keyword) {
    return {"E1001", statement + " must be of type bool, got '" + type + "'", line, keyword};
}

Expected mismatch(const std::string& declared, const std::string& value, int line, const std::string& needle) {
    return {"E1001",
            "Type mismatch: cannot initialize variable of type '" + declared + "' with value of type '" + value + "'",
            line, needle};
}

Expected nullSafety(const std::string& name, const std::string& declared, int line, const std::string& needle) {
    return {"E1008",
            "Null safety violation: cannot assign null to non-nullable variable '" + name + "' of type '" + declared +
                "'",
            line, needle, 1, "Use '" + declared + "?' to declare a nullable variable"};
}

Expected notIterable(const std::string& type, int line) {
    return {"E1001", "For-in loop requires an iterable collection or array, got '" + type + "'", line, "for"};
}

class TypeTextsInStatementMessages : public ::testing::TestWithParam<Case> {};

TEST_P(TypeTextsInStatementMessages, ReportWithTheFullTypeText) {
    expectCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Conditions, TypeTextsInStatementMessages,
    ::testing::Values(
        Case{"IfOfAnArray", body("xs: int[]", "if (xs) {}"), {condition("If condition", "int[]", 2, "if")}},
        Case{"WhileOfAMap", body("m: Map<string, int>", "while (m) {}"),
             {condition("While condition", "Map<string, int>", 2, "while")}},
        Case{"DoWhileOfAFunctionValue",
             "fn g(a: int, b: string?): bool {\n    return true;\n}\nfn f() {\n    do {} while (g);\n}\n",
             {condition("Do-while condition", "fn(int, string?) -> bool", 5, "do")}},
        Case{"ForOfAnArrayOfNullables", body("", "var xs = [1, null];\n    for (;xs;) {}"),
             {condition("For loop condition", "int?[]", 3, "for")}},
        Case{"IfOfAVoidCall", "fn n() {}\nfn f() {\n    if (n()) {}\n}\n", {condition("If condition", "void", 3, "if")}},
        Case{"IfOfNull", body("", "if (null) {}"), {condition("If condition", "null", 2, "if")}},
        Case{"IfOfAClassSpecialisation", "class Box<T> {}\nfn f(b: Box<int>) {\n    if (b) {}\n}\n",
             {condition("If condition", "Box<int>", 3, "if")}},
        Case{"WhileOfAnEnum", "enum Colour { Red }\nfn f(c: Colour) {\n    while (c) {}\n}\n",
             {condition("While condition", "Colour", 3, "while")}},
        Case{"IfOfAnUntypedParameter", body("u", "if (u) {}"), {condition("If condition", "unknown", 2, "if")}},
        Case{"IfOfANullableMapArray", body("m: Map<string, int[]>[]?", "if (m) {}"),
             {condition("If condition", "Map<string, int[]>[]?", 2, "if")}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Declarations, TypeTextsInStatementMessages,
    ::testing::Values(
        Case{"NullIntoAMapNamesTheMapInTheHint", body("", "Map<string, int> m = null;"),
             {nullSafety("m", "Map<string, int>", 2, "m =")}},
        Case{"NullIntoAClassSpecialisation", "class Box<T> {}\nfn f() {\n    Box<int> b = null;\n}\n",
             {nullSafety("b", "Box<int>", 3, "b =")}},
        Case{"NullIntoANestedArray", body("", "string[][] grid = null;"), {nullSafety("grid", "string[][]", 2, "grid")}},
        Case{"AnArrayOfNullablesIntoAPlainArray", body("", "var xs = [1, null];\n    int[] ys = xs;"),
             {mismatch("int[]", "int?[]", 3, "ys")}},
        Case{"MapsAreInvariant", body("m: Map<string, int>", "Map<string, int64> n = m;"),
             {mismatch("Map<string, int64>", "Map<string, int>", 2, "n =")}},
        Case{"AFunctionValueIntoAnInt",
             "fn g(a: int[], b: string?): bool {\n    return true;\n}\nfn f() {\n    int x = g;\n}\n",
             {mismatch("int", "fn(int[], string?) -> bool", 5, "x")}},
        Case{"ANullableIntoItsPlainType", body("x: string?", "string s = x;"), {mismatch("string", "string?", 2, "s =")}},
        Case{"SpecialisationsOfOneClassDiffer", "class Box<T> {}\nfn f(b: Box<int>) {\n    Box<string> c = b;\n}\n",
             {mismatch("Box<string>", "Box<int>", 3, "c =")}},
        Case{"ANullableFloatTakesNoDoubleLiteral", body("", "float? x = 1.5;"), {mismatch("float?", "double", 2, "x")}},
        Case{"ANullableSmallIntegerTakesNoLiteralAllowance", body("", "int8? x = 300;"),
             {mismatch("int8?", "int", 2, "x")}},
        Case{"NullablesTakeWideningValues", body("", "int64? x = 1;\n    double? d = 1;\n    any? a = null;"), {}},
        Case{"AParenthesisedLiteralIsStillALiteral", body("", "float x = (1.5);\n    int8 y = (300);"), {}},
        Case{"ACharTakesNoIntegerLiteral", body("", "char c = 65;"), {mismatch("char", "int", 2, "c =")}},
        Case{"AnUnsignedTakesNoCharLiteral", body("", "uint u = 'a';"), {mismatch("uint", "char", 2, "u =")}},
        Case{"ATernaryOfLiteralsIsNoLiteral", body("c: bool", "int8 x = c ? 1 : 2;"), {mismatch("int8", "int", 2, "x")}},
        Case{"SuffixedFloatLiteralsFitFloatAndDouble", body("", "float x = 1.5f;\n    double y = 2.5f;"), {}},
        Case{"AnIntTakesNoFloatLiteral", body("", "int x = 1.5f;"), {mismatch("int", "float", 2, "x")}},
        // Only a type text that resolves to nothing at all is undefined: an
        // array or nullable of an unknown name is the error type, silently.
        Case{"AnUndefinedGenericClassIsUndefined", body("", "Missing<int> m;"),
             {{"E1002", "Undefined type 'Missing<int>' in declaration of variable 'm'", 2, "m;"}}},
        Case{"AnArrayOfAnUndefinedNameIsTheErrorTypeSilently", body("", "Missing[] xs = 1;\n    var probe = xs;"), {},
             "<type-error>"},
        Case{"ANullableOfAnUndefinedNameTakesNoNull", body("", "Missing? m = null;"),
             {nullSafety("m", "<type-error>", 2, "m =")}},
        Case{"AListOfAnUndefinedNameIsAListOfAny", body("", "List<Missing> l;\n    var probe = l;"), {}, "List<any>"},
        Case{"ATypedVarWithNullReportsAtTheKeyword", body("", "var int x = null;"), {nullSafety("x", "int", 2, "var")}},
        Case{"AnAnnotatedLetWithNullReportsAtTheKeyword", body("", "let s: string = null;"),
             {nullSafety("s", "string", 2, "let")}},
        Case{"ATypedConstTakesTheLiteralAllowances", body("", "const uint8 small = 1000;\n    const float f = 2.5;"),
             {}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    ReturnsAndFunctions, TypeTextsInStatementMessages,
    ::testing::Values(
        Case{"AReturnIntoANullable", "fn f(): int? {\n    return \"s\";\n}\n",
             {{"E1005", "Return type mismatch: expected 'int?', got 'string'", 2, "return"}}},
        Case{"AReturnedMapIsInvariant", "fn f(m: Map<string, int>): Map<string, int64> {\n    return m;\n}\n",
             {{"E1005", "Return type mismatch: expected 'Map<string, int64>', got 'Map<string, int>'", 2, "return"}}},
        Case{"NullReturnedForAClass", "class A {}\nfn f(): A {\n    return null;\n}\n",
             {{"E1005", "Return type mismatch: expected 'A', got 'null'", 3, "return"}}},
        Case{"ABareReturnNamesANullableArray", "fn f(): string[]? {\n    return;\n}\n",
             {{"E1005", "Non-void function must return a value of type 'string[]?'", 2, "return"}}},
        Case{"AMissingReturnNamesAMapOfArrays", "fn f(): Map<string, int[]> {\n}\n",
             {{"E1005",
               "Missing return statement: function 'f' must return a value of type 'Map<string, int[]>' along all code "
               "paths",
               1, "fn"}}},
        Case{"AnArrayOfATypeParameterIsTheErrorType", "fn f<T>(a: T[]): T[] {\n}\n",
             {{"E1005",
               "Missing return statement: function 'f' must return a value of type '<type-error>' along all code paths",
               1, "fn"}}},
        Case{"AParameterOfAnArrayOfATypeParameterIsTheErrorType",
             "fn f<T>(a: T[]) {\n    var probe = a;\n    int n = a;\n}\n", {}, "<type-error>"},
        Case{"AShortFormMismatchOfArrays", "fn f(xs: int[]): int64[] => xs;\n",
             {{"E1005", "Short function body return type mismatch: expected 'int64[]', got 'int[]'", 1, "fn"}}},
        Case{"ANullDefaultForAPlainParameter", "fn f(a: int = null) {}\n",
             {{"E1001", "Default value type 'null' does not match parameter type 'int'", 1, "fn"}}},
        Case{"AnArrayDefaultIsInvariant", "fn f(a: int64[] = [1, 2]) {}\n",
             {{"E1001", "Default value type 'int[]' does not match parameter type 'int64[]'", 1, "fn"}}},
        Case{"AnEmptyArrayDefaultIsAnArrayOfAny", "fn f(a: string[] = []) {}\n",
             {{"E1001", "Default value type 'any[]' does not match parameter type 'string[]'", 1, "fn"}}},
        Case{"NullIntoAFieldIsAMismatchAndNoNullSafetyError", "class A {\n    int x = null;\n}\n",
             {{"E1001", "Type mismatch in field initializer for 'x': expected 'int', got 'null'", 2, "x"}}},
        Case{"AFieldOfANullableMap", "class A {\n    Map<string, int>? m = 1;\n}\n",
             {{"E1001", "Type mismatch in field initializer for 'm': expected 'Map<string, int>?', got 'int'", 2,
               "m ="}}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    SwitchMatchAndLoops, TypeTextsInStatementMessages,
    ::testing::Values(
        Case{"ANullCaseOnAPlainInt", body("n: int", "switch (n) {\n        case null:\n            break;\n    }"),
             {{"E1001", "Case value type 'null' does not match switch expression type 'int'", 2, "switch"}}},
        Case{"ANullCaseOnANullableIsClean", body("n: int?", "switch (n) {\n        case null:\n        case 1:\n"
                                                            "            break;\n    }"),
             {}},
        Case{"AnEnumCaseOnAnIntIsClean",
             "enum Colour { Red }\nfn f(n: int) {\n    switch (n) {\n        case Colour.Red:\n            break;\n"
             "    }\n}\n",
             {}},
        Case{"AnIntCaseOnAnEnum",
             "enum Colour { Red }\nfn f(c: Colour) {\n    switch (c) {\n        case 1:\n            break;\n"
             "    }\n}\n",
             {{"E1001", "Case value type 'int' does not match switch expression type 'Colour'", 3, "switch"}}},
        Case{"APatternOnANullableSubject", body("s: string?", "match s {\n        1 => {},\n        null => {}\n    }"),
             {{"E1001", "Match pattern type 'int' does not match subject type 'string?'", 2, "match"}}},
        Case{"ForInOverAClassSpecialisation", "class Box<T> {}\nfn f(b: Box<int>) {\n    for (x in b) {}\n}\n",
             {notIterable("Box<int>", 3)}},
        Case{"ForInOverAFunctionValue", "fn g() {}\nfn f() {\n    for (x in g) {}\n}\n", {notIterable("fn() -> void", 3)}},
        Case{"ForInOverANullableMap", body("m: Map<string, int>?", "for (k in m) {}"),
             {notIterable("Map<string, int>?", 2)}},
        Case{"ForInOverAnEnum", "enum Colour { Red }\nfn f() {\n    for (c in Colour) {}\n}\n", {notIterable("Colour", 3)}},
        Case{"ForInOverAnArrayOfNullables",
             body("", "var xs = [1, null];\n    for (x in xs) {\n        var probe = x;\n    }"), {}, "int?"},
        Case{"ForInOverANestedArray", body("xs: int[][]", "for (x in xs) {\n        var probe = x;\n    }"), {}, "int[]"},
        Case{"ForInOverAListOfArrays", body("xs: List<int[]>", "for (x in xs) {\n        var probe = x;\n    }"), {},
             "int[]"},
        Case{"ForInOverAListOfMaps",
             body("xs: List<Map<string, int> >", "for (x in xs) {\n        var probe = x;\n    }"), {},
             "Map<string, int>"},
        Case{"ForInOverAListOfNullables", body("xs: List<int?>", "for (x in xs) {\n        var probe = x;\n    }"), {},
             "int?"},
        Case{"ForInOverAMapOfArraysGivesTheKey",
             body("m: Map<int64, string[]>", "for (k in m) {\n        var probe = k;\n    }"), {}, "int64"},
        Case{"AWrittenWiderElementTypeWins", body("xs: int[]", "for (int64 x in xs) {\n        var probe = x;\n    }"),
             {}, "int64"}),
    caseName);

}  // namespace
}  // namespace quor::sema::testing
