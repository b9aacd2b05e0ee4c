// Collection literals, lambdas, assignment and object creation where they
// meet other rules: the common type of related classes, enums and mixed
// integer kinds, constants hidden by lambda parameters, compound operators
// with literal narrowing, nested lambda returns, and generic classes made
// with odd type arguments.
#include <string>
#include <vector>

#include "RuleTableSupport.h"

using namespace quor::sema::testing;

namespace {

class LiteralLambdaAndAssignmentInteractions : public ::testing::TestWithParam<RuleCase> {};

TEST_P(LiteralLambdaAndAssignmentInteractions, ReportsAndTypes) { expectRuleCase(GetParam()); }

const std::string UNDEFINED_HINT = "Ensure the variable is declared before use";
const std::string CONSTANT_HINT = "Constants are immutable and cannot be reassigned";

const std::vector<RuleCase> CASES = {
    {"ArrayLiteralOfRelatedTypesMeetsWhereOneAssignsToTheOther",
     R"q(interface Shape { fn area(): double; }
class Base { }
class Derived extends Base { }
class Other extends Base { }
class Circle implements Shape { fn area(): double { return 1.0; } }
enum Color { Red }
fn main(Base b, Derived d, Other o, Circle c, Shape s) {
    var a1 = [d, b];
    var a2 = [b, d];
    var a3 = [d, o];
    var a4 = [c, s];
    var a5 = [d, null];
    var a6 = [Color.Red, 1];
    var a7 = [1, Color.Red];
    var a8 = [Color.Red, 1.5];
    var a9 = [d, b, o];
    var a10 = [null, d, b];
}
)q",
     {},
     {{"a1", "Base[]"},
      {"a2", "Base[]"},
      {"a3", "any[]"},
      {"a4", "Shape[]"},
      {"a5", "Derived?[]"},
      {"a6", "int[]"},
      {"a7", "int[]"},
      {"a8", "any[]"},
      {"a9", "Base[]"},
      {"a10", "any[]"}}},
    {"ArrayLiteralOfIntegerKindsThatDoNotWidenMeetsByTheNumericLadder",
     R"q(fn main(int i, uint64 u, int64 l, int8 t, uint16 w, float f, uint n) {
    var a1 = [i, u];
    var a2 = [l, u];
    var a3 = [t, w];
    var a4 = [f, l];
    var a5 = [n, l];
    var a6 = [u, 1.5];
    var a7 = [1, 'c'];
    var a8 = [[1], []];
    var a9 = [{"a": 1}, {}];
}
)q",
     {},
     {{"a1", "uint64[]"},
      {"a2", "int64[]"},
      {"a3", "int[]"},
      {"a4", "float[]"},
      {"a5", "int64[]"},
      {"a6", "double[]"},
      {"a7", "any[]"},
      {"a8", "any[]"},
      {"a9", "any[]"}}},
    {"LiteralsHoldFunctionsVoidsAndBrokenKeys",
     R"q(fn nothing() { }
fn main() {
    var a = {null: 1, "a": 2};
    var b = {"f": (int x) => x};
    var c = {"a": [1], "b": [1.5]};
    var d = {"a": 1}["a"];
    var e = {}["k"];
    var f = [][0];
    var g = [nothing()];
    var h = [nothing(), 1];
    var i = {nope: 1};
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 11, "nope"}},
     {{"a", "Map<string?, int>"},
      {"b", "Map<string, fn(int) -> unknown>"},
      {"c", "Map<string, any>"},
      {"d", "int?"},
      {"e", "any?"},
      {"f", "any"},
      {"g", "void[]"},
      {"h", "any[]"},
      {"i", "Map<<type-error>, int>"}}},
    {"NullBesideAnotherElementWrapsItUnlessThatCannotBeNullable",
     R"q(fn nothing() { }
fn main(int? maybe, any a) {
    var a1 = [null, nothing()];
    var a2 = [nothing(), null];
    var a3 = [null, maybe];
    var a4 = [null, a];
    var a5 = [null, [1]];
    var a6 = [(int x) => x, (string s) => s];
    var a7 = [null, (int x) => x];
    var m1 = {"a": null, "b": "x"};
    var m2 = {null: null};
}
)q",
     {},
     {{"a1", "void[]"},
      {"a2", "void[]"},
      {"a3", "int?[]"},
      {"a4", "any[]"},
      {"a5", "int[]?[]"},
      {"a6", "any[]"},
      {"a7", "fn(int) -> unknown?[]"},
      {"m1", "Map<string, string?>"},
      {"m2", "Map<null, null>"}}},
    {"ConstantHiddenByALambdaParameterCanBeAssigned",
     R"q(fn main() {
    const int c = 1;
    var f = (int c) => c = 2;
    var g = () => c = 3;
    (c) = 4;
    var h = x => c = x;
}
)q",
     {{"E1005", "Cannot assign to constant 'c'", CONSTANT_HINT, 4, "=", 3},
      {"E1005", "Cannot assign to constant 'c'", CONSTANT_HINT, 5, "="},
      {"E1005", "Cannot assign to constant 'c'", CONSTANT_HINT, 6, "=", 3}},
     {{"f", "fn(int) -> unknown"}, {"g", "fn() -> unknown"}, {"h", "fn(unknown) -> unknown"}}},
    {"ConstantsOfEveryScopeAreProtectedInsideLambdas",
     R"q(class Limits {
    const int top = 9;
    fn change() {
        var f = () => top = 1;
    }
}
fn main() {
    var f = () => { const int k = 1; k = 2; };
    var g = () => PI = 3.0;
}
)q",
     {{"E1005", "Cannot assign to constant 'top'", CONSTANT_HINT, 4, "=", 3},
      {"E1005", "Cannot assign to constant 'k'", CONSTANT_HINT, 8, "=", 4},
      {"E1005", "Cannot assign to constant 'PI'", CONSTANT_HINT, 9, "=", 3}},
     {{"f", "fn() -> unknown"}, {"g", "fn() -> unknown"}}},
    {"BuiltinConstantsAreProtectedUntilALocalHidesThem",
     R"q(fn main() {
    E = 2.0;
    TAU += 1.0;
    println = 1;
    len = null;
}
fn other() {
    double E = 1.0;
    E = 2.0;
    var PI = 3;
    PI = "s";
}
)q",
     {{"E1005", "Cannot assign to constant 'E'", CONSTANT_HINT, 2, "="},
      {"E1005", "Cannot assign to constant 'TAU'", CONSTANT_HINT, 3, "+="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'fn(string) -> void'", "", 4, "="},
      {"E1008", "Null safety violation: cannot assign null to non-nullable type 'fn(any) -> int'",
       "Change variable type to 'fn(any) -> int?' to allow null", 5, "="},
      {"E1001", "Cannot assign value of type 'string' to variable of type 'int'", "", 11, "="}},
     {}},
    {"CompoundOperatorsNarrowLiteralsLikePlainAssignment",
     R"q(fn main() {
    float f = 0.5;
    int8 t = 1;
    int i = 0;
    double d = 0.0;
    f += 1.5;
    t -= 200;
    i *= 'a';
    i /= 2.5;
    d %= 1.5f;
    f += d;
    t += i;
}
)q",
     {{"E1001", "Cannot assign value of type 'char' to variable of type 'int'", "", 8, "*="},
      {"E1001", "Cannot assign value of type 'double' to variable of type 'int'", "", 9, "/="},
      {"E1001", "Cannot assign value of type 'double' to variable of type 'float'", "", 11, "+="},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'int8'", "", 12, "+="}},
     {}},
    {"AssignmentOfNullOrBrokenValuesToOddTargets",
     R"q(fn nothing() { }
fn main() {
    nothing() = null;
    ghost = phantom;
    int x = 0;
    x = ghost;
    var r = x = ghost;
}
)q",
     {{"E1008", "Null safety violation: cannot assign null to non-nullable type 'void'",
       "Change variable type to 'void?' to allow null", 3, "="},
      {"E1002", "Undefined variable or symbol 'ghost'", UNDEFINED_HINT, 4, "ghost"},
      {"E1002", "Undefined variable or symbol 'phantom'", UNDEFINED_HINT, 4, "phantom"},
      {"E1002", "Undefined variable or symbol 'ghost'", UNDEFINED_HINT, 6, "ghost"},
      {"E1002", "Undefined variable or symbol 'ghost'", UNDEFINED_HINT, 7, "ghost"}},
     {{"r", "int"}}},
    {"NestedLambdaReturnsAreDroppedAndTheOuterReturnTypeComesBack",
     R"q(fn outer(): string {
    var f = () => {
        var g = () => { return 1; };
        return "s";
        return 2;
    };
    return f;
}
)q",
     {{"E1005", "Return type mismatch: expected 'string', got 'int'", "", 5, "return"},
      {"E1005", "Return type mismatch: expected 'string', got 'fn() -> unknown'", "", 7, "return"}},
     {{"f", "fn() -> unknown"}}},
    {"GenericClassMadeWithUnknownOrTooFewTypeArguments",
     R"q(class Pair<K, V> {
    K first;
    V second;
}
fn main() {
    var a = new Pair<Missing, int>();
    var b = new Pair<Missing, int>().first;
    var c = new Pair<int>().second;
    var d = new Pair<int>().first;
    var e = new Pair().first;
}
)q",
     {},
     {{"a", "Pair<Missing, int>"}, {"b", "any"}, {"c", "any"}, {"d", "int"}, {"e", "any"}}},
    {"CollectionsFromNewTakeNestedAndMarkedTypeArguments",
     R"q(fn main() {
    var a = new Map<string, List<int> >();
    var b = new List<Map<string, int> >();
    var c = new Array<int[]>();
    var d = new Set<int?>();
    var e = new Map<int?, string[]>();
    var f = new List<int, string>();
    var g = new Array<Missing[]>();
    var h = new List<Missing[]>();
}
)q",
     {},
     {{"a", "Map<string, List<int>>"},
      {"b", "List<Map<string, int>>"},
      {"c", "int[][]"},
      {"d", "Set<int?>"},
      {"e", "Map<int?, string[]>"},
      {"f", "List<int>"},
      {"g", "<type-error>[]"},
      {"h", "List<any>"}}},
};

INSTANTIATE_TEST_SUITE_P(Interactions, LiteralLambdaAndAssignmentInteractions, ::testing::ValuesIn(CASES),
                         ruleCaseName);

}  // namespace
