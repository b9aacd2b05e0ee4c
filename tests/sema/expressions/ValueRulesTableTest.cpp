// Collection literals, lambdas, assignments and `new`, row by row: the
// types they come out as and what they report, in order and in place.
#include <string>
#include <vector>

#include "RuleTableSupport.h"

using namespace quor::sema::testing;

namespace {

class ValueRules : public ::testing::TestWithParam<RuleCase> {};

TEST_P(ValueRules, ReportsAndTypes) { expectRuleCase(GetParam()); }

const std::string UNDEFINED_HINT = "Ensure the variable is declared before use";
const std::string CONSTANT_HINT = "Constants are immutable and cannot be reassigned";

const std::vector<RuleCase> VALUE_CASES = {
    // Collection literals.
    {"ArrayLiteralFoldsItsElementsByTheirCommonType",
     R"q(fn main() {
    uint8 small = 1;
    uint big = 1;
    var a = [];
    var b = [1, 2.0];
    var c = [1, "a"];
    var d = [1, null];
    var e = [null, 1];
    var f = [null];
    var g = [[1], [2.0]];
    var h = [big, 1];
    var i = [small, 1];
    var j = [1.5f, 1];
    var k = {1, 2,};
}
)q",
     {},
     {{"a", "any[]"},
      {"b", "double[]"},
      {"c", "any[]"},
      {"d", "int?[]"},
      {"e", "int?[]"},
      {"f", "null[]"},
      {"g", "any[]"},
      {"h", "int[]"},
      {"i", "int[]"},
      {"j", "float[]"},
      {"k", "int[]"}}},
    {"BrokenElementMakesAnArrayOfTheErrorType",
     R"q(fn main() {
    var a = [1, nope];
    var b = [nope, 1];
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 2, "nope"},
      {"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 3, "nope"}},
     {{"a", "<type-error>[]"}, {"b", "<type-error>[]"}}},
    {"MapLiteralFoldsKeysAndValuesApart",
     R"q(fn main() {
    var a = {};
    var b = {"a": 1, "b": 2.5};
    var c = {1: "a", 2.5: null};
    var d = {k1: v1, k2: v2};
}
)q",
     {{"E1002", "Undefined variable or symbol 'k1'", UNDEFINED_HINT, 5, "k1"},
      {"E1002", "Undefined variable or symbol 'v1'", UNDEFINED_HINT, 5, "v1"},
      {"E1002", "Undefined variable or symbol 'k2'", UNDEFINED_HINT, 5, "k2"},
      {"E1002", "Undefined variable or symbol 'v2'", UNDEFINED_HINT, 5, "v2"}},
     {{"a", "Map<string, any>"}, {"b", "Map<string, double>"}, {"c", "Map<double, string?>"}}},

    // Lambdas.
    {"LambdaTypeIsItsParametersAndAnUnknownResult",
     R"q(fn main() {
    var a = (int x, string y) => x;
    var b = (int[] xs, string? s) => xs;
    var c = (int a, string a) => a;
    var d = (int<Missing> v) => v;
    var e = (int x) => { return x; };
    var f = (int x) => x - "a";
    var g = (int<Missing>[] v, int<Missing>? w) => v;
}
)q",
     {{"E1001", "Operator '-' cannot be applied to types 'int' and 'string'", "Operands must be numeric", 7, "-"}},
     {{"a", "fn(int, string) -> unknown"},
      {"b", "fn(int[], string?) -> unknown"},
      {"c", "fn(int, string) -> unknown"},
      {"d", "fn(int) -> unknown"},
      {"e", "fn(int) -> unknown"},
      {"f", "fn(int) -> unknown"},
      {"g", "fn(<type-error>, <type-error>) -> unknown"}}},
    {"LambdaBlockReturnsAreHeldToAnUnknownResult",
     R"q(fn main() {
    var a = () => { return; };
    var b = () => { return 1; };
    return 2;
}
)q",
     {{"E1005", "Non-void function must return a value of type 'unknown'", "", 2, "return"},
      {"E1005", "Void function cannot return a value", "", 4, "return"}},
     {{"a", "fn() -> unknown"}, {"b", "fn() -> unknown"}}},
    {"LambdaParametersShadowAndThenGo",
     R"q(fn main() {
    int x = 1;
    var f = (string x) => x + 1;
    var g = x + 1;
}
)q",
     {},
     {{"f", "fn(string) -> unknown"}, {"g", "int"}}},

    {"LambdaBodySeesTheClassAndTheLoopsAroundIt",
     R"q(class Counter {
    int n = 1;
    fn run() {
        var f = () => this.n + n;
        while (true) {
            var g = () => { break; };
        }
        var h = () => { continue; };
    }
}
)q",
     {{"E1001", "'continue' statement outside of loop", "", 8, "continue"}},
     {{"f", "fn() -> unknown"}, {"g", "fn() -> unknown"}}},
    // Assignment.
    {"AssignmentToAConstantReportsOnceAndChecksNothing",
     R"q(fn main() {
    const int c = 1;
    c = 2;
    c = nope;
    c += "s";
    var r = c = 3;
    PI = 3.0;
}
)q",
     {{"E1005", "Cannot assign to constant 'c'", CONSTANT_HINT, 3, "="},
      {"E1005", "Cannot assign to constant 'c'", CONSTANT_HINT, 4, "="},
      {"E1005", "Cannot assign to constant 'c'", CONSTANT_HINT, 5, "+="},
      {"E1005", "Cannot assign to constant 'c'", CONSTANT_HINT, 6, "=", 2},
      {"E1005", "Cannot assign to constant 'PI'", CONSTANT_HINT, 7, "="}},
     {{"r", "<type-error>"}}},
    {"InheritedConstantFieldIsNotProtectedByItsName",
     R"q(class Base {
    const int limit = 1;
}
class Derived extends Base {
    fn change() {
        limit = 2;
    }
}
)q",
     {},
     {}},
    {"AssignmentIsTheTargetsType",
     R"q(fn main() {
    int x = 0;
    int64 w = 0;
    var a = x = 5;
    var b = w = x;
    var c = x = w;
}
)q",
     {{"E1001", "Cannot assign value of type 'int64' to variable of type 'int'", "", 6, "=", 2}},
     {{"a", "int"}, {"b", "int64"}, {"c", "<type-error>"}}},
    {"FloatTargetTakesOnlyADoubleLiteral",
     R"q(fn main() {
    float f = 0.5;
    double d = 1.5;
    f = 1.5;
    f = (2.5);
    f = 1.5f;
    f = -1.5;
    f = d;
    f = 1;
}
)q",
     {{"E1001", "Cannot assign value of type 'double' to variable of type 'float'", "", 7, "="},
      {"E1001", "Cannot assign value of type 'double' to variable of type 'float'", "", 8, "="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'float'", "", 9, "="}},
     {}},
    {"IntegerTargetTakesAnyIntegerLiteralButNotANegatedOne",
     R"q(enum Color { Red }
fn main() {
    int8 tiny = 0;
    uint u = 0;
    uint8 b = 0;
    int i = 0;
    char ch = 'a';
    Color c = Color.Red;
    tiny = 300;
    u = 4000000000;
    u = -1;
    b = i;
    ch = 65;
    c = 1;
    i = Color.Red;
}
)q",
     {{"E1001", "Cannot assign value of type 'int' to variable of type 'uint'", "", 11, "="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'uint8'", "", 12, "="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'char'", "", 13, "="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'Color'", "", 14, "="}},
     {}},
    {"NullableTargetGetsNoLiteralNarrowing",
     R"q(fn main() {
    float? f = null;
    int8? t = null;
    int? n = null;
    f = 1.5;
    t = 5;
    n = 5;
}
)q",
     {{"E1001", "Cannot assign value of type 'double' to variable of type 'float?'", "", 5, "="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'int8?'", "", 6, "="}},
     {}},
    {"NullNeedsANullableTarget",
     R"q(fn main() {
    int x = 0;
    int? n = 0;
    any a = 1;
    x = null;
    n = null;
    a = null;
    ghost = null;
}
)q",
     {{"E1008", "Null safety violation: cannot assign null to non-nullable type 'int'",
       "Change variable type to 'int?' to allow null", 5, "="},
      {"E1008", "Null safety violation: cannot assign null to non-nullable type 'any'",
       "Change variable type to 'any?' to allow null", 7, "="},
      {"E1002", "Undefined variable or symbol 'ghost'", UNDEFINED_HINT, 8, "ghost"},
      {"E1008", "Null safety violation: cannot assign null to non-nullable type '<type-error>'",
       "Change variable type to '<type-error>?' to allow null", 8, "="}},
     {}},
    {"NullTestGoesByTheValuesKindNotItsForm",
     R"q(fn main() {
    int x = 0;
    int? y = 0;
    x = y = null;
    x = true ? null : null;
    y = true ? 1 : null;
}
)q",
     {{"E1001", "Cannot assign value of type 'int?' to variable of type 'int'", "", 4, "="},
      {"E1008", "Null safety violation: cannot assign null to non-nullable type 'int'",
       "Change variable type to 'int?' to allow null", 5, "="}},
     {}},
    {"CompoundOperatorsAreJudgedAsPlainAssignment",
     R"q(fn main() {
    int x = 0;
    string s = "";
    x += "s";
    s += 1;
    x -= 1.5;
    x *= 2;
    s += "t";
}
)q",
     {{"E1001", "Cannot assign value of type 'string' to variable of type 'int'", "", 4, "+="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'string'", "", 5, "+="},
      {"E1001", "Cannot assign value of type 'double' to variable of type 'int'", "", 6, "-="}},
     {}},
    {"AnyExpressionMayStandAsTheTarget",
     R"q(class Box { }
fn three(): int { return 3; }
fn nothing() { }
fn main() {
    var a = three() = 1;
    nothing() = 1;
    three = 1;
    Box = 1;
    ghost = 1;
    var b = 1 + 2 = 3;
}
)q",
     {{"E1001", "Cannot assign value of type 'int' to variable of type 'void'", "", 6, "="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'fn() -> int'", "", 7, "="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'Box'", "", 8, "="},
      {"E1002", "Undefined variable or symbol 'ghost'", UNDEFINED_HINT, 9, "ghost"}},
     {{"a", "int"}, {"b", "int"}}},

    // Object creation.
    {"BuiltinCollectionsAreMadeFromTheirTypeArguments",
     R"q(fn main() {
    var a = new Array<int>();
    var b = new Array();
    var c = new Array<Missing>();
    var d = new List<int>();
    var e = new List();
    var f = new Set<string>();
    var g = new Set();
    var h = new Map<string, int>();
    var i = new Map<int>();
    var j = new Map();
    var k = new Map<Missing, Missing>();
    var l = new Array<Missing[]>();
    var m = new List<Missing>();
}
)q",
     {},
     {{"a", "int[]"},
      {"b", "any[]"},
      {"c", "any[]"},
      {"d", "List<int>"},
      {"e", "List<any>"},
      {"f", "Set<string>"},
      {"g", "Set<any>"},
      {"h", "Map<string, int>"},
      {"i", "Map<int, any>"},
      {"j", "Map<string, any>"},
      {"k", "Map<string, any>"},
      {"l", "<type-error>[]"},
      {"m", "List<any>"}}},
    {"BuiltinCollectionArgumentsAreChecked",
     R"q(fn main() {
    var a = new List<int>(nope);
    var b = new Map(other);
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 2, "nope"},
      {"E1002", "Undefined variable or symbol 'other'", UNDEFINED_HINT, 3, "other"}},
     {{"a", "List<int>"}, {"b", "Map<string, any>"}}},
    {"ClassesAreMadeWithoutAConstructorLookup",
     R"q(class Box<T> { }
class Point { }
fn main() {
    var a = new Box<int>();
    var b = new Box();
    var c = new Point(1, "x", nope);
    var d = new Point<int>();
    var e = new Console();
    var f = new Duration(5);
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 6, "nope"}},
     {{"a", "Box<int>"}, {"b", "Box"}, {"c", "Point"}, {"d", "Point<int>"}, {"e", "Console"}, {"f", "Duration"}}},
    {"WhatCannotBeMadeReportsAndLeavesTheArgumentsUnchecked",
     R"q(interface Shape { fn area(): double; }
struct Pair { int a; }
enum Color { Red }
abstract class Base { }
abstract class Holder<T> { }
fn main() {
    var a = new Ghost(nope);
    var b = new Ghost<int>(nope);
    var c = new Shape(nope);
    var d = new Pair<int>(nope);
    var e = new Color(nope);
    var f = new Base(nope);
    var g = new Holder<int>(nope);
}
)q",
     {{"E1002", "Undefined class 'Ghost' in 'new' expression", "", 7, "new"},
      {"E1002", "Undefined class 'Ghost' in 'new' expression", "", 8, "new"},
      {"E1001", "Cannot instantiate non-class type 'Shape' with 'new'", "", 9, "new"},
      {"E1001", "Cannot instantiate non-class type 'Pair' with 'new'", "", 10, "new"},
      {"E1001", "Cannot instantiate non-class type 'Color' with 'new'", "", 11, "new"},
      {"E1001", "Cannot instantiate abstract class 'Base'", "", 12, "new"},
      {"E1001", "Cannot instantiate abstract class 'Holder'", "", 13, "new"}},
     {{"a", "<type-error>"}, {"c", "<type-error>"}, {"f", "<type-error>"}, {"g", "<type-error>"}}},
};

INSTANTIATE_TEST_SUITE_P(Values, ValueRules, ::testing::ValuesIn(VALUE_CASES), ruleCaseName);

}  // namespace
