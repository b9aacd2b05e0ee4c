// Calls, row by row: overload choice, the routes a call by name takes,
// generic results, calls on receivers with the built-in method tables, and
// calls of values. Each row states the reports and the result types.
#include <string>
#include <vector>

#include "RuleTableSupport.h"

using namespace quor::sema::testing;

namespace {

class CallRules : public ::testing::TestWithParam<RuleCase> {};

TEST_P(CallRules, ReportsAndTypes) { expectRuleCase(GetParam()); }

const std::vector<RuleCase> CALL_CASES = {
    // Overload resolution.
    {"RequiredCountIgnoresWhereTheDefaultStands",
     R"q(fn f(int a = 1, int b): int { return b; }
fn main() {
    var one = f(5);
    var none = f();
}
)q",
     {{"E1001", "No matching overload for function 'f' with argument types ()", "", 4, "("}},
     {{"one", "int"}, {"none", "<type-error>"}}},
    {"ExactNeedsAllParametersCovered",
     R"q(fn h(int a, int b = 1): string { return ""; }
fn h(int a): bool { return true; }
fn main() {
    var r1 = h(1);
    var r2 = h(1, 2);
}
)q",
     {},
     {{"r1", "bool"}, {"r2", "string"}}},
    {"FirstViableWhenNoneIsExactEvenWithDefaults",
     R"q(fn k(double a, int b = 1): string { return ""; }
fn k(double a): bool { return true; }
fn main() {
    var r = k(1);
}
)q",
     {},
     {{"r", "string"}}},
    {"NoArgumentsPicksTheFirstCandidateWithoutParameters",
     R"q(fn z(int a = 1): string { return ""; }
fn z(): int { return 1; }
fn main() {
    var r = z();
}
)q",
     {},
     {{"r", "int"}}},
    {"ExactOverloadWithTwoArguments",
     R"q(fn g(double a, int b): string { return ""; }
fn g(int a, int b): bool { return true; }
fn main() {
    var r = g(1, 2);
    uint8 small = 1;
    var s = g(small, small);
}
)q",
     {},
     {{"r", "bool"}, {"s", "string"}}},
    {"NullArgumentFitsANullableParameter",
     R"q(fn n(int? a): int { return 1; }
fn main() {
    var r = n(null);
    var s = n(3);
}
)q",
     {},
     {{"r", "int"}, {"s", "int"}}},
    {"ErrorTypedArgumentFitsAnyParameterButIsListedInAMismatch",
     R"q(fn e(int a): int { return a; }
fn e2(int a, int b): int { return a; }
fn main() {
    var r = e(nope);
    var s = e2(nope, "x");
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 4, "nope"},
      {"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 5, "nope"},
      {"E1001", "No matching overload for function 'e2' with argument types (<type-error>, string)", "", 5, "("}},
     {{"r", "int"}, {"s", "<type-error>"}}},
    {"BuiltinOverloadSetsFollowTheirTableOrder",
     R"q(fn main() {
    uint8 small = 1;
    int64 wide = 1;
    var a = abs(small);
    var b = min(1, 2.5);
    var c = max(wide, 1);
    var d = len([1]);
    var e = abs(1.5);
}
)q",
     {},
     {{"a", "int"}, {"b", "double"}, {"c", "double"}, {"d", "int"}, {"e", "double"}}},
    {"MismatchListsTypesOfABuiltinCall",
     R"q(fn main() {
    var r = sqrt("x", true);
}
)q",
     {{"E1001", "No matching overload for function 'sqrt' with argument types (string, bool)", "", 2, "("}},
     {{"r", "<type-error>"}}},

    {"UserOverloadsJoinTheBuiltinSetBehindIt",
     R"q(fn print(int x): int { return x; }
fn println(string s): int { return 1; }
fn main() {
    var a = print(5);
    var b = print(true);
    var c = println("x");
}
)q",
     {},
     {{"a", "int"}, {"b", "void"}, {"c", "void"}}},
    // Calls by name.
    {"LocalVariableHidesABuiltinFunctionFromCalls",
     R"q(fn main() {
    int print = 1;
    print("x");
}
)q",
     {{"E1003", "Undefined function or callable symbol 'print'", "", 3, "("}},
     {}},
    {"GlobalFunctionComesBeforeAMethodOfTheSameName",
     R"q(fn note(string s): string { return s; }
class Journal {
    fn note(int n): int { return n; }
    fn run() {
        var a = note("x");
        var b = note(1);
    }
}
)q",
     {{"E1001", "No matching overload for function 'note' with argument types (int)", "", 6, "("}},
     {{"a", "string"}, {"b", "<type-error>"}}},
    {"BareMethodCallReachesInheritedAndPrivateMethods",
     R"q(class Base {
    private fn hidden(int x): int { return x; }
    fn shown(string s): string { return s; }
}
class Derived extends Base {
    fn run() {
        var a = hidden(1);
        var b = shown("s");
    }
}
)q",
     {},
     {{"a", "int"}, {"b", "string"}}},
    {"BareMethodCallIgnoresDefaultsAndReportsAMismatch",
     R"q(class Tool {
    fn use(int a, int b = 2): int { return a; }
    fn run() {
        var a = use(1);
        var b = use(1, 2);
    }
}
)q",
     {{"E1001", "No matching overload for function 'use' with argument types (int)", "", 4, "("}},
     {{"a", "<type-error>"}, {"b", "int"}}},
    {"ClassNameCallChecksItsArgumentsOnly",
     R"q(class Point { }
fn main() {
    var p = Point(1, nope);
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 3, "nope"}},
     {{"p", "Point"}}},
    {"StructNameIsNotCallable",
     R"q(struct Pair { int a; }
fn main() {
    var p = Pair(1);
}
)q",
     {{"E1003", "Undefined function or callable symbol 'Pair'", "", 3, "("}},
     {{"p", "<type-error>"}}},
    {"SuperCallChecksItsArgumentsAndIsVoid",
     R"q(class Base { }
class Derived extends Base {
    fn init() {
        var r = super(nope);
    }
}
fn main() {
    super(nope);
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 4, "nope"},
      {"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 8, "nope"},
      {"E1001", "Cannot call 'super' constructor outside of a subclass", "", 8, "("}},
     {{"r", "void"}}},

    {"AssertAndSpawnAreCallsOfBuiltinFunctions",
     R"q(fn main() {
    assert(1);
    assert(true, "fine");
    var p = spawn("ls");
}
)q",
     {{"E1001", "No matching overload for function 'assert' with argument types (int)", "", 2, "("}},
     {{"p", "int"}}},
    {"ThisCalledLikeAFunctionIsAnUndefinedCallable",
     R"q(class Box {
    fn run() {
        this();
    }
}
fn main() {
    this();
}
)q",
     {{"E1003", "Undefined function or callable symbol 'this'", "", 3, "("},
      {"E1003", "Undefined function or callable symbol 'this'", "", 7, "("}},
     {}},
    {"NameRoutesAreTriedInTheirOrder",
     R"q(class Point { }
class Pt {
    Pt(int x) { }
    fn make() {
        var p = Pt(1);
    }
}
class Shape {
    fn Point(): string { return ""; }
    fn run() {
        var a = Point();
    }
}
fn main() {
    var Point = (int x) => x;
    var b = Point(1);
}
)q",
     {},
     {{"p", "void"}, {"a", "string"}, {"b", "Point"}}},
    // Generic results.
    {"GenericResultIsTheDeclaredTextWithTheBindingsPutIn",
     R"q(fn wrap<T>(T x): T[] { return [x]; }
fn maybe<T>(T x): T? { return x; }
fn both<A, B>(A a, B b): Map<A, B> { return {}; }
fn main() {
    var w = wrap(1);
    var m = maybe("s");
    var b = both("k", 1.5);
    var e = wrap<string>(1);
}
)q",
     {},
     {{"w", "int[]"}, {"m", "string?"}, {"b", "Map<string, double>"}, {"e", "string[]"}}},
    {"InferenceIsByPositionWhateverTheParameterTypes",
     R"q(fn second<T>(int a, T b): T { return b; }
fn one<T>(T a, int b): T { return a; }
fn main() {
    var s = second(1, "s");
    var o = one("s", 2);
}
)q",
     {},
     {{"s", "int"}, {"o", "string"}}},
    {"BindingThatNamesNothingFallsBackToTheFunctionsReturnType",
     R"q(fn id<T>(T x): T { return x; }
fn main() {
    var e = id(nope);
    var f = id((int v) => v);
    int? n = id(null);
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 3, "nope"}},
     {{"e", "any"}, {"f", "any"}, {"n", "null"}}},
    {"GenericAndPlainOverloadsShareOneSet",
     R"q(fn g<T>(T x): T { return x; }
fn g(int x): string { return ""; }
fn d<T>(T a, int b = 1): T { return a; }
fn main() {
    var a = g(1);
    var b = g(true);
    var c = d("s");
}
)q",
     {},
     {{"a", "string"}, {"b", "bool"}, {"c", "string"}}},
    {"MarksOnABindingStayInTheText",
     R"q(fn wrap<T>(T x): T[] { return [x]; }
fn maybe<T>(T x): T? { return x; }
fn main(int? n) {
    var a = wrap(n);
    var b = maybe(n);
    var c = wrap(nope);
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 6, "nope"}},
     {{"a", "int?[]"}, {"b", "int?"}, {"c", "<type-error>"}}},
    {"TooFewExplicitTypeArgumentsAreNotCounted",
     R"q(fn pair<A, B>(A a, B b): B { return b; }
fn main() {
    var r = pair<int>(1, 2);
    var s = pair<int, string, bool>(1, "x");
}
)q",
     {},
     {{"r", "any"}, {"s", "string"}}},

    {"BindingsAreReplacedOneAfterTheOther",
     R"q(fn pick<K, V>(K k, V v): Map<K, V> { return {}; }
fn first<K, V>(K k, V v): K { return k; }
fn main() {
    var r = pick<V, int>(1, 2);
    var s = first<V, int>(1, 2);
}
)q",
     {},
     {{"r", "Map<int, int>"}, {"s", "any"}}},
    {"TypeArgumentsMeanNothingOutsideAGenericFunction",
     R"q(fn plain(int x): int { return x; }
fn main() {
    int a = 1;
    int b = 2;
    int c = 3;
    int[] xs = [1];
    var r = plain<string>(1);
    var s = xs.map<string>(x => "s");
    var t = a < b > (c);
}
)q",
     {{"E1003", "Undefined function or callable symbol 'a'", "", 9, "<"}},
     {{"r", "int"}, {"s", "int[]"}, {"t", "<type-error>"}}},
    {"GenericResultsFeedTheCallsAfterThem",
     R"q(fn apply<T>(T value, int times): T { return value; }
fn main() {
    var f = (int x) => x * 2;
    var r = apply(f, "3");
    var s = apply([1, 2], 3).size();
    var t = apply<string>(1, 2).upper();
    var u = f(1) + 1;
}
)q",
     {{"E1001", "No matching overload for function 'apply' with argument types (fn(int) -> unknown, string)", "", 4,
       "("},
      {"E1001", "Operator '+' cannot be applied to types 'unknown' and 'int'", "Operands must be numeric", 7, "+"}},
     {{"r", "<type-error>"}, {"s", "int"}, {"t", "string"}, {"u", "<type-error>"}}},
    // Calls on receivers.
    {"NullableReceiverWithoutSafeCallReportsThenCallsOnTheInnerType",
     R"q(fn main() {
    string? s = "a";
    var n = s.length();
    var bad = s.nope();
    var safe = s?.upper();
    string t = "b";
    var plain = t?.lower();
    uint8 small = 1;
    var parsed = small?.parse("1");
}
)q",
     {{"E1008", "Null safety violation: call on nullable type 'string?' requires safe navigation '?.'",
       "Use obj?.length(...)", 3, "("},
      {"E1008", "Null safety violation: call on nullable type 'string?' requires safe navigation '?.'",
       "Use obj?.nope(...)", 4, "("},
      {"E1003", "Type 'string' has no method named 'nope'", "", 4, "("}},
     {{"n", "int"}, {"bad", "<type-error>"}, {"safe", "string"}, {"plain", "string"}, {"parsed", "int"}}},
    {"SafeCallOnANullableArrayOrMap",
     R"q(fn main() {
    int[]? xs = null;
    Map<string, int>? m = null;
    var a = xs?.pop();
    var b = m?.get("k");
    var c = xs.size();
}
)q",
     {{"E1008", "Null safety violation: call on nullable type 'int[]?' requires safe navigation '?.'",
       "Use obj?.size(...)", 6, "("}},
     {{"a", "int"}, {"b", "int?"}, {"c", "int"}}},
    {"StringMethodTable",
     R"q(fn main() {
    string s = "abc";
    var a = s.indexOf("b");
    var b = s.repeat(2);
    var c = s.isEmpty();
    var d = s.charAt(0);
    var e = s.split(",");
    var f = s.size();
    var g = s.reverse();
    var h = s.startsWith("a");
}
)q",
     {},
     {{"a", "int"},
      {"b", "string"},
      {"c", "bool"},
      {"d", "char"},
      {"e", "string[]"},
      {"f", "int"},
      {"g", "string"},
      {"h", "bool"}}},
    {"StringHasNoParseAndNoArrayMethods",
     R"q(fn main() {
    string s = "abc";
    var a = s.parse();
    var b = s.push("x");
    var c = string.parse("1");
}
)q",
     {{"E1003", "Type 'string' has no method named 'parse'", "", 3, "("},
      {"E1003", "Type 'string' has no method named 'push'", "", 4, "("},
      {"E1003", "Type 'string' has no method named 'parse'", "", 5, "("}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}, {"c", "<type-error>"}}},
    {"ArrayMethodTable",
     R"q(fn main() {
    string[] xs = ["a"];
    var a = xs.length();
    var b = xs.contains("a");
    var c = xs.removeAt(0);
    var d = xs.removeLast();
    var e = xs.get(0);
    var f = xs.reduce((p, q) => p);
    var g = xs.filter(x => true);
    var h = xs.map(x => 1);
    var i = xs.set(0, "b");
}
)q",
     {},
     {{"a", "int"},
      {"b", "bool"},
      {"c", "void"},
      {"d", "string"},
      {"e", "string"},
      {"f", "string"},
      {"g", "string[]"},
      {"h", "string[]"},
      {"i", "void"}}},
    {"ArrayHasNoStringOrMapMethods",
     R"q(fn main() {
    int[] xs = [1];
    var a = xs.indexOf(1);
    var b = xs.containsKey(1);
}
)q",
     {{"E1003", "Type 'int[]' has no method named 'indexOf'", "", 3, "("},
      {"E1003", "Type 'int[]' has no method named 'containsKey'", "", 4, "("}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}}},
    {"MapMethodTable",
     R"q(fn main(Map<string, int?> n) {
    Map<string, int> m = {"a": 1};
    var a = m.length();
    var b = m.containsKey("a");
    var c = m.contains("a");
    var d = m.get("a");
    var e = n.get("a");
    var f = m.remove("a");
    var g = m.isEmpty();
    var h = m.keys();
}
)q",
     {{"E1003", "Type 'Map<string, int>' has no method named 'keys'", "", 10, "("}},
     {{"a", "int"},
      {"b", "bool"},
      {"c", "bool"},
      {"d", "int?"},
      {"e", "int?"},
      {"f", "void"},
      {"g", "bool"},
      {"h", "<type-error>"}}},
    {"ScalarParseTable",
     R"q(fn main() {
    int64 wide = 1;
    char c = 'a';
    var a = int64.parse("1");
    var b = byte.parse("1");
    var d = double.parse("1");
    var f = float.parse("1");
    var g = bool.parse("true");
    var h = wide.parse("2");
    var i = char.parse("a");
    var j = c.parse("a");
    var l = int.toString();
}
)q",
     {{"E1003", "Type 'char' has no method named 'parse'", "", 10, "("},
      {"E1003", "Type 'char' has no method named 'parse'", "", 11, "("},
      {"E1003", "Type 'int' has no method named 'toString'", "", 12, "("}},
     {{"a", "int"},
      {"b", "int"},
      {"d", "double"},
      {"f", "float"},
      {"g", "bool"},
      {"h", "int"},
      {"i", "<type-error>"},
      {"j", "<type-error>"},
      {"l", "<type-error>"}}},
    {"OtherKindsOfReceiverHaveNoMethods",
     R"q(enum Color { Red }
struct Pair { int a; }
fn main(Pair p) {
    any a = 1;
    var f = (int x) => x;
    var r1 = a.foo();
    var r2 = Color.values();
    var r3 = Color.Red.name();
    var r4 = f.call(1);
    var r5 = null.foo();
    var r6 = (x => x.foo());
    var r7 = p.m();
}
)q",
     {{"E1003", "Type 'any' has no method named 'foo'", "", 6, "("},
      {"E1003", "Type 'Color' has no method named 'values'", "", 7, "("},
      {"E1003", "Type 'Color' has no method named 'name'", "", 8, "("},
      {"E1003", "Type 'fn(int) -> unknown' has no method named 'call'", "", 9, "("},
      {"E1003", "Type 'null' has no method named 'foo'", "", 10, "("},
      {"E1003", "Type 'unknown' has no method named 'foo'", "", 11, "(", 2},
      {"E1003", "Type 'Pair' has no method named 'm'", "", 12, "("}},
     {{"r1", "<type-error>"}, {"r4", "<type-error>"}, {"r6", "fn(unknown) -> unknown"}}},
    {"UnknownMethodOnAClassOrInterfaceIsAnUndefinedFunction",
     R"q(interface Shape { fn area(): double; }
class Box {
    int size = 1;
}
fn measure(Shape s, Box b) {
    var a = s.perimeter();
    var c = b.grow(1);
    var d = b.size();
    var e = s.area();
}
)q",
     {{"E1003", "Undefined function or method 'perimeter'", "", 6, "("},
      {"E1003", "Undefined function or method 'grow'", "", 7, "("},
      {"E1003", "Undefined function or method 'size'", "", 8, "("}},
     {{"a", "<type-error>"}, {"c", "<type-error>"}, {"d", "<type-error>"}, {"e", "double"}}},
    {"ClassMethodsFollowTheSameOverloadOrder",
     R"q(class Base {
    fn m(int x): int { return x; }
}
class Meter extends Base {
    fn f(double d): string { return ""; }
    fn f(int i): bool { return true; }
    fn m(string s): string { return s; }
    fn run() {
        var e = (() => m(1));
        var g = super.m(2);
    }
}
fn main(Meter meter) {
    uint8 small = 1;
    var a = meter.f(1);
    var b = meter.f(small);
    var c = meter.m(1);
    var d = meter.m("s");
    var h = Duration.fromMillis(1).millis;
}
)q",
     {},
     {{"e", "fn() -> unknown"},
      {"g", "int"},
      {"a", "bool"},
      {"b", "string"},
      {"c", "int"},
      {"d", "string"},
      {"h", "int"}}},
    {"ClassMethodMismatchNamesTheMethod",
     R"q(class Box {
    fn put(int x): int { return x; }
}
fn main() {
    Box b = new Box();
    var r = b.put("x");
}
)q",
     {{"E1001", "No matching overload for function 'put' with argument types (string)", "", 6, "("}},
     {{"r", "<type-error>"}}},
    {"PrivateOverloadAnywhereInTheListRefusesACallFromOutside",
     R"q(class Vault {
    fn open(int code): int { return code; }
    private fn open(string word): string { return word; }
    protected fn peek(): int { return 1; }
}
fn main() {
    Vault v = new Vault();
    var r = v.open(nope);
    var p = v.peek();
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 8, "nope"},
      {"E1006", "Cannot access private method 'open' of class 'Vault'", "", 8, "("}},
     {{"r", "<type-error>"}, {"p", "int"}}},
    {"PrivateMethodThroughSuperIsRefused",
     R"q(class Base {
    private fn secret(): int { return 1; }
}
class Derived extends Base {
    fn run() {
        var r = super.secret();
        var s = this.secret();
    }
}
)q",
     {{"E1006", "Cannot access private method 'secret' of class 'Base'", "", 6, "("}},
     {{"r", "<type-error>"}, {"s", "int"}}},
    {"SuperAsAReceiverWithoutASuperclass",
     R"q(class Alone {
    fn run() {
        var r = super.foo();
    }
}
)q",
     {{"E1001", "'super' cannot be used outside of a subclass", "", 3, "super"},
      {"E1003", "Type '<type-error>' has no method named 'foo'", "", 3, "("}},
     {{"r", "<type-error>"}}},
    {"MethodsOfAClassWithTypeArgumentsCarryThem",
     R"q(class Box<T> {
    T value;
    fn get(): T { return value; }
    fn put(T item) { }
}
fn main(Box<string> b) {
    var v = b.get();
    b.put("x");
    b.put(1);
}
)q",
     {{"E1001", "No matching overload for function 'put' with argument types (int)", "", 9, "("}},
     {{"v", "string"}}},
    {"ListAndSetClassesAnswerWithTheirOwnMethods",
     R"q(fn main(Set<int> set) {
    var l = new List<int>();
    var a = l.size();
    var b = l.get(1);
    var c = l.map(x => "s");
    var d = l.push(1);
    var e = l.push("x");
    var f = set.contains(1);
    var g = set.length();
    var h = l.first();
}
)q",
     {{"E1001", "No matching overload for function 'push' with argument types (string)", "", 7, "("},
      {"E1003", "Undefined function or method 'first'", "", 10, "("}},
     {{"l", "List<int>"},
      {"a", "int64"},
      {"b", "int"},
      {"c", "List<int>"},
      {"d", "void"},
      {"e", "<type-error>"},
      {"f", "bool"},
      {"g", "int64"},
      {"h", "<type-error>"}}},
    {"FieldOfALibraryClassIsNoMethod",
     R"q(fn main() {
    var r = Math.PI();
}
)q",
     {{"E1003", "Undefined function or method 'PI'", "", 2, "("}},
     {{"r", "<type-error>"}}},
    {"BuiltinClassMethodsResolveByTheirOverloads",
     R"q(fn main() {
    int64 wide = 1;
    var a = Math.abs(1);
    var b = Math.abs(wide);
    var c = Duration.fromSeconds(1).toMillis();
    var d = String.length("x");
    var e = Console.println(1);
}
)q",
     {{"E1001", "No matching overload for function 'println' with argument types (int)", "", 7, "("}},
     {{"a", "int"}, {"b", "int64"}, {"c", "int"}, {"d", "int64"}, {"e", "<type-error>"}}},

    // Calls of values.
    {"CalleeOfAnyOtherShapeMustBeAFunction",
     R"q(fn three(): int { return 3; }
fn main() {
    var a = (x => x)(1);
    var b = three()(1);
    var c = nope[0](1);
}
)q",
     {{"E1001", "Expression is not callable, has type 'int'", "", 4, "(", 2},
      {"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 5, "nope"},
      {"E1001", "Type '<type-error>' does not support indexing", "", 5, "["},
      {"E1001", "Expression is not callable, has type '<type-error>'", "", 5, "("}},
     {{"a", "unknown"}, {"b", "<type-error>"}, {"c", "<type-error>"}}},
};

INSTANTIATE_TEST_SUITE_P(Calls, CallRules, ::testing::ValuesIn(CALL_CASES), ruleCaseName);

}  // namespace
