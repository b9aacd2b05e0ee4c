// Calls whose reports carry unusual type texts (lambdas, void, nullable
// maps, arrays of nullables, specialised classes, function values), the
// order of several reports in one call, where they stand, and how the call
// routes meet the other rules of the checker.
#include <string>
#include <vector>

#include "RuleTableSupport.h"

using namespace quor::sema::testing;

namespace {

class CallReportTexts : public ::testing::TestWithParam<RuleCase> {};

TEST_P(CallReportTexts, ReportsAndTypes) { expectRuleCase(GetParam()); }

const std::vector<RuleCase> CALL_TEXT_CASES = {
    {"MismatchListsALambdaAVoidCallAndMixedArguments",
     R"q(fn v() {}
fn main() {
    var a = sqrt(x => x);
    var b = sqrt(v());
    var c = pow(1, "two");
}
)q",
     {{"E1001", "No matching overload for function 'sqrt' with argument types (fn(unknown) -> unknown)", "", 3,
       "("},
      {"E1001", "No matching overload for function 'sqrt' with argument types (void)", "", 4, "("},
      {"E1001", "No matching overload for function 'pow' with argument types (int, string)", "", 5, "("}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}, {"c", "<type-error>"}}},
    {"VoidArgumentFitsAnAnyParameter",
     R"q(fn v() {}
fn main() {
    println(v());
    var n = len(v());
}
)q",
     {},
     {{"n", "int"}}},
    {"MismatchOfAGenericCallStandsAtItsOpeningAngle",
     R"q(fn id<T>(T x): T { return x; }
fn main() {
    var a = id<int>(1, 2);
}
)q",
     {{"E1001", "No matching overload for function 'id' with argument types (int, int)", "", 3, "<"}},
     {{"a", "<type-error>"}}},
    {"BrokenArgumentBindsATextThatNamesNothing",
     R"q(fn id<T>(T x): T { return x; }
fn main() {
    var a = id(nope);
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 3, "nope"}},
     {{"a", "any"}}},
    {"NullArgumentBindsTheNullType",
     R"q(fn id<T>(T x): T { return x; }
fn main() {
    int? a = id(null);
}
)q",
     {},
     {{"a", "null"}}},
    {"ParenthesesAroundANameKeepACallByName",
     R"q(fn g(int x): int { return x; }
fn main() {
    var a = (g)(1, 2, 3);
    var b = (g)(4);
    var c = (nope)(5);
}
)q",
     {{"E1001", "No matching overload for function 'g' with argument types (int, int, int)", "", 3, "(", 2},
      {"E1003", "Undefined function or callable symbol 'nope'", "", 5, "(", 2}},
     {{"a", "<type-error>"}, {"b", "int"}, {"c", "<type-error>"}}},
    {"CalledLambdaGivesUnknownThatOperatorsRefuse",
     R"q(fn main() {
    var a = (x => x)(1);
    var b = (x => x)(1) + 1;
}
)q",
     {{"E1001", "Operator '+' cannot be applied to types 'unknown' and 'int'", "Operands must be numeric", 3,
       "+"}},
     {{"a", "unknown"}, {"b", "<type-error>"}}},
    {"LiteralAndIndexedCalleesAreNotCallable",
     R"q(fn main() {
    var a = "s"(1);
    var b = [1][0](2);
    var c = [true, null](3);
}
)q",
     {{"E1001", "Expression is not callable, has type 'string'", "", 2, "("},
      {"E1001", "Expression is not callable, has type 'int'", "", 3, "(", 1},
      {"E1001", "Expression is not callable, has type 'bool?[]'", "", 4, "("}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}, {"c", "<type-error>"}}},
    {"InterfaceAndEnumNamesAreNotCallableByName",
     R"q(interface Shape { fn area(): double; }
enum Color { Red }
fn main() {
    var a = Shape();
    var b = Color();
}
)q",
     {{"E1003", "Undefined function or callable symbol 'Shape'", "", 4, "("},
      {"E1003", "Undefined function or callable symbol 'Color'", "", 5, "("}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}}},
    {"BuiltinClassNameCalledLikeAFunctionIsThatClass",
     R"q(fn main() {
    var m = Math(1, "x");
}
)q",
     {},
     {{"m", "Math"}}},
    {"MethodOnAFunctionValueNamesItsSignature",
     R"q(fn v() {}
fn g(int a, string? b): int[] { return [a]; }
fn main() {
    var a = v.run();
    var b = g.apply(1);
}
)q",
     {{"E1003", "Type 'fn() -> void' has no method named 'run'", "", 4, "("},
      {"E1003", "Type 'fn(int, string?) -> int[]' has no method named 'apply'", "", 5, "("}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}}},
    {"UnknownMethodOnANullableMapReportsTwiceAtTheCall",
     R"q(fn main() {
    Map<string, int[]>? m = null;
    var a = m.keys();
    var b = m?.keys();
}
)q",
     {{"E1008", "Null safety violation: call on nullable type 'Map<string, int[]>?' requires safe navigation '?.'",
       "Use obj?.keys(...)", 3, "("},
      {"E1003", "Type 'Map<string, int[]>' has no method named 'keys'", "", 3, "("},
      {"E1003", "Type 'Map<string, int[]>' has no method named 'keys'", "", 4, "("}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}}},
    {"ArrayOfNullablesKeepsItsElementType",
     R"q(fn main() {
    var a = [1, null].get(0);
    var b = [1, null].map(x => "s");
    var c = [1, null].reduce(0);
    var d = [1, null].find(0);
}
)q",
     {{"E1003", "Type 'int?[]' has no method named 'find'", "", 5, "("}},
     {{"a", "int?"}, {"b", "int?[]"}, {"c", "int?"}, {"d", "<type-error>"}}},
    {"MapGetOfANullableValueIsNullableOnce",
     R"q(fn main(Map<string, int?> m, Map<string, Map<string, bool> > n) {
    var a = m.get("a");
    var b = n.get("x");
}
)q",
     {},
     {{"a", "int?"}, {"b", "Map<string, bool>?"}}},
    {"ParseThroughANullableScalar",
     R"q(fn main() {
    uint16? u = null;
    var a = u?.parse("1");
    bool? b = null;
    var c = b.parse("true");
    char? k = null;
    var d = k?.parse("x");
}
)q",
     {{"E1008", "Null safety violation: call on nullable type 'bool?' requires safe navigation '?.'",
       "Use obj?.parse(...)", 5, "("},
      {"E1003", "Type 'char' has no method named 'parse'", "", 7, "("}},
     {{"a", "int"}, {"c", "bool"}, {"d", "<type-error>"}}},
    {"ArgumentReportsComeBeforeTheNullSafetyReport",
     R"q(fn main() {
    string? s = null;
    var a = s.substring(1 - true, missing);
}
)q",
     {{"E1001", "Operator '-' cannot be applied to types 'int' and 'bool'", "Operands must be numeric", 3, "-"},
      {"E1002", "Undefined variable or symbol 'missing'", "Ensure the variable is declared before use", 3,
       "missing"},
      {"E1008", "Null safety violation: call on nullable type 'string?' requires safe navigation '?.'",
       "Use obj?.substring(...)", 3, "("}},
     {{"a", "string"}}},
    {"PrivateInheritedMethodNamesTheReceiversClass",
     R"q(class Base {
    private fn secret(): int { return 1; }
}
class Sub extends Base {
    fn m(): int {
        return this.secret();
    }
}
fn main() {
    Sub s = new Sub();
    var a = s.secret();
    Base b = new Base();
    var c = b.secret();
}
)q",
     {{"E1006", "Cannot access private method 'secret' of class 'Sub'", "", 11, "("},
      {"E1006", "Cannot access private method 'secret' of class 'Base'", "", 13, "("}},
     {{"a", "<type-error>"}, {"c", "<type-error>"}}},
    {"PrivateMethodOfASpecialisationIsRefusedInsideTheGenericClass",
     R"q(class Box<T> {
    private fn hide(): int { return 1; }
    fn peek(Box<int> other): int {
        var a = other.hide();
        var b = this.hide();
        return a;
    }
}
)q",
     {{"E1006", "Cannot access private method 'hide' of class 'Box<int>'", "", 4, "("}},
     {{"a", "<type-error>"}, {"b", "int"}}},
    {"ExplicitTypeArgumentsWithANestedMapAndAMark",
     R"q(fn id<T>(T x): T { return x; }
fn wrap<T>(T x): T[] { return [x]; }
fn main() {
    Map<string, int> m = {"a": 1};
    var a = id<Map<string, int> >(m);
    var b = wrap<Map<string, int>?>(m);
    var c = wrap(m);
}
)q",
     {},
     {{"a", "Map<string, int>"}, {"b", "Map<string, int>?[]"}, {"c", "Map<string, int>[]"}}},
    {"ExactOverloadAmongNullableParametersWinsOverAnEarlierWidening",
     R"q(fn f(int64? a): string { return ""; }
fn f(int? a): bool { return true; }
fn main() {
    int? x = 1;
    var a = f(x);
    var b = f(1);
    var c = f(null);
}
)q",
     {},
     {{"a", "bool"}, {"b", "string"}, {"c", "string"}}},
    {"ShortFormCallerKeepsTheBindingOfItsFirstCheck",
     R"q(fn id<T>(T x): T { return x; }
fn a() => id(b());
fn b() => 1;
fn c() => id(1);
fn main() {
    var r = a() + 1;
    var s = c() + 1;
}
)q",
     {{"E1001", "Operator '+' cannot be applied to types 'void' and 'int'", "Operands must be numeric", 6, "+"}},
     {{"r", "<type-error>"}, {"s", "int"}}},
    {"NullableClassAndInterfaceReceiversReportThenGoOn",
     R"q(class A { private fn p(): int { return 1; } }
interface Shape { fn area(): double; }
fn main(A? a, Shape? s) {
    var x = a.p();
    var y = a?.p();
    var z = s.area();
    var w = s.nope();
    var v = a.p<int>();
}
)q",
     {{"E1008", "Null safety violation: call on nullable type 'A?' requires safe navigation '?.'",
       "Use obj?.p(...)", 4, "("},
      {"E1006", "Cannot access private method 'p' of class 'A'", "", 4, "("},
      {"E1006", "Cannot access private method 'p' of class 'A'", "", 5, "("},
      {"E1008", "Null safety violation: call on nullable type 'Shape?' requires safe navigation '?.'",
       "Use obj?.area(...)", 6, "("},
      {"E1008", "Null safety violation: call on nullable type 'Shape?' requires safe navigation '?.'",
       "Use obj?.nope(...)", 7, "("},
      {"E1003", "Undefined function or method 'nope'", "", 7, "("},
      {"E1008", "Null safety violation: call on nullable type 'A?' requires safe navigation '?.'",
       "Use obj?.p(...)", 8, "<"},
      {"E1006", "Cannot access private method 'p' of class 'A'", "", 8, "<"}},
     {{"x", "<type-error>"}, {"y", "<type-error>"}, {"z", "double"}, {"w", "<type-error>"},
      {"v", "<type-error>"}}},
    {"MethodOfTheClassComesBeforeALocalOfFunctionType",
     R"q(class A {
    fn run(int x): string { return ""; }
    fn m() {
        var run = (int y) => y;
        var r = run(1);
        var s = run("no");
    }
}
fn main() {
    var run = (int y) => y;
    var t = run("anything");
}
)q",
     {{"E1001", "No matching overload for function 'run' with argument types (string)", "", 6, "("}},
     {{"r", "string"}, {"s", "<type-error>"}, {"t", "unknown"}}},
    {"BindingToAFunctionTypeNamesNoType",
     R"q(class Box<T> { T value; }
fn id<T>(T x): T { return x; }
fn wrap<T>(T x): T[] { return [x]; }
fn maybe<T>(T x): T? { return x; }
fn g(int a): string { return ""; }
fn main(Box<int> b) {
    var a = id(g);
    var c = wrap(g);
    var d = maybe(x => x);
    var e = id({"k": g});
    var f = wrap(b);
    var h = id([1, null]);
}
)q",
     {},
     {{"a", "any"}, {"c", "<type-error>"}, {"d", "<type-error>"}, {"e", "<type-error>"}, {"f", "Box<int>[]"},
      {"h", "int?[]"}}},
    {"GlobalOverloadsFollowTheWideningTable",
     R"q(fn main(uint u, float f, char k, int64 w, bool b) {
    var a = abs(u);
    var c = abs(f);
    var d = min(u, 1);
    println(k);
    var e = sleep(w);
    assert(b, 1);
    var g = max(k, k);
}
)q",
     {{"E1001", "No matching overload for function 'sleep' with argument types (int64)", "", 6, "("},
      {"E1001", "No matching overload for function 'assert' with argument types (bool, int)", "", 7, "("},
      {"E1001", "No matching overload for function 'max' with argument types (char, char)", "", 8, "("}},
     {{"a", "double"}, {"c", "double"}, {"d", "double"}, {"e", "<type-error>"}, {"g", "<type-error>"}}},
};

INSTANTIATE_TEST_SUITE_P(Calls, CallReportTexts, ::testing::ValuesIn(CALL_TEXT_CASES), ruleCaseName);

}  // namespace
