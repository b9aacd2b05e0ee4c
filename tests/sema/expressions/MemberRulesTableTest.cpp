// Member access and indexing, row by row: properties of strings and arrays,
// null safety, class, struct and enum members, private fields, the parse
// functions read as values, and subscripts of arrays, lists and maps.
#include <string>
#include <vector>

#include "RuleTableSupport.h"

using namespace quor::sema::testing;

namespace {

class MemberRules : public ::testing::TestWithParam<RuleCase> {};

TEST_P(MemberRules, ReportsAndTypes) { expectRuleCase(GetParam()); }

const std::string UNDEFINED_HINT = "Ensure the variable is declared before use";

const std::vector<RuleCase> MEMBER_CASES = {
    {"LengthAndSizeAreTheOnlyPropertiesOfStringsAndArrays",
     R"q(fn main(Map<string, int> m) {
    string s = "abc";
    int[] xs = [1];
    var a = s.length;
    var b = s.size;
    var c = xs.length;
    var d = xs.size;
    var e = s.upper;
    var f = xs.first;
    var g = m.size;
    var h = m.length;
}
)q",
     {{"E1002", "Type 'string' has no member 'upper'", "", 8, "."},
      {"E1002", "Type 'int[]' has no member 'first'", "", 9, "."},
      {"E1002", "Type 'Map<string, int>' has no member 'size'", "", 10, "."},
      {"E1002", "Type 'Map<string, int>' has no member 'length'", "", 11, "."}},
     {{"a", "int"}, {"b", "int"}, {"c", "int"}, {"d", "int"}, {"e", "<type-error>"}, {"g", "<type-error>"}}},
    {"NullableObjectNeedsSafeNavigationAndIsThenUnwrapped",
     R"q(class Box {
    int n = 1;
}
fn main(Box? b, string? s) {
    var a = b.n;
    var c = b?.n;
    var d = b.missing;
    var e = s?.length;
    var f = s.size;
}
)q",
     {{"E1008", "Null safety violation: access on nullable type 'Box?' requires safe navigation '?.'", "Use obj?.n",
       5, "."},
      {"E1008", "Null safety violation: access on nullable type 'Box?' requires safe navigation '?.'",
       "Use obj?.missing", 7, "."},
      {"E1002", "Class 'Box' has no member named 'missing'", "", 7, "."},
      {"E1008", "Null safety violation: access on nullable type 'string?' requires safe navigation '?.'",
       "Use obj?.size", 9, "."}},
     {{"a", "int"}, {"c", "int"}, {"d", "<type-error>"}, {"e", "int"}, {"f", "int"}}},
    {"SafeNavigationOnAPlainObjectIsSilent",
     R"q(class Box {
    int n = 1;
}
fn main(Box b) {
    var a = b?.n;
}
)q",
     {},
     {{"a", "int"}}},
    {"ClassFieldsComeBeforeMethodsAndAMethodIsItsFirstOverload",
     R"q(class Base {
    string label = "";
}
class Box extends Base {
    int n = 1;
    fn put(int x): int { return x; }
    fn put(string s): string { return s; }
    private fn hide(): bool { return true; }
}
fn main(Box b) {
    var a = b.n;
    var c = b.label;
    var d = b.put;
    var e = b.hide;
    var f = b.nothing;
}
)q",
     {{"E1002", "Class 'Box' has no member named 'nothing'", "", 15, "."}},
     {{"a", "int"}, {"c", "string"}, {"d", "fn(int) -> int"}, {"e", "fn() -> bool"}, {"f", "<type-error>"}}},
    {"PrivateFieldIsReadOnlyInsideTheClassOfTheObject",
     R"q(class Base {
    private int secret = 1;
    protected int guarded = 2;
    fn peek(Base other): int {
        var a = other.secret;
        return a;
    }
}
class Derived extends Base {
    fn look(Base b) {
        var c = b.secret;
        var d = super.secret;
        var e = this.secret;
        var g = b.guarded;
    }
}
fn main(Base b, Derived d) {
    var h = b.secret;
    var i = d.secret;
    var j = b.guarded;
}
)q",
     {{"E1006", "Cannot access private field 'secret' of class 'Base'", "", 11, "."},
      {"E1006", "Cannot access private field 'secret' of class 'Base'", "", 12, "."},
      {"E1006", "Cannot access private field 'secret' of class 'Base'", "", 18, "."},
      {"E1006", "Cannot access private field 'secret' of class 'Derived'", "", 19, "."}},
     {{"a", "int"}, {"c", "<type-error>"}, {"e", "int"}, {"g", "int"}, {"h", "<type-error>"}, {"j", "int"}}},
    {"StructFieldsHaveNoVisibilityTest",
     R"q(struct Pair {
    int left;
    string right;
}
fn main(Pair p) {
    var a = p.left;
    var b = p.right;
    var c = p.middle;
}
)q",
     {{"E1002", "Struct 'Pair' has no field named 'middle'", "", 8, "."}},
     {{"a", "int"}, {"b", "string"}, {"c", "<type-error>"}}},
    {"EnumVariantsAreOfTheEnumType",
     R"q(enum Color { Red, Green }
fn main() {
    Color c = Color.Red;
    var a = Color.Green;
    var b = c.Red;
    var d = Color.Blue;
}
)q",
     {{"E1002", "Enum 'Color' has no variant named 'Blue'", "", 6, "."}},
     {{"a", "Color"}, {"b", "Color"}, {"d", "<type-error>"}}},
    {"ParseReadAsAValueIsAFunctionFromString",
     R"q(fn main() {
    uint8 small = 1;
    var a = int.parse;
    var b = small.parse;
    var c = double.parse;
    var d = float.parse;
    var e = bool.parse;
    var f = int64.parse;
    var g = char.parse;
    var h = string.parse;
}
)q",
     {{"E1002", "Type 'char' has no member 'parse'", "", 9, "."},
      {"E1002", "Type 'string' has no member 'parse'", "", 10, "."}},
     {{"a", "fn(string) -> int"},
      {"b", "fn(string) -> int"},
      {"c", "fn(string) -> double"},
      {"d", "fn(string) -> float"},
      {"e", "fn(string) -> bool"},
      {"f", "fn(string) -> int"},
      {"g", "<type-error>"}}},
    {"OtherKindsHaveNoReadableMembers",
     R"q(interface Shape { fn area(): double; }
fn main(Shape s) {
    any a = 1;
    var f = (int x) => x;
    var r1 = s.area;
    var r2 = a.x;
    var r3 = f.x;
    var r4 = nope.x;
    var r5 = (x => x.y);
}
)q",
     {{"E1002", "Type 'Shape' has no member 'area'", "", 5, "."},
      {"E1002", "Type 'any' has no member 'x'", "", 6, "."},
      {"E1002", "Type 'fn(int) -> unknown' has no member 'x'", "", 7, "."},
      {"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 8, "nope"},
      {"E1002", "Type '<type-error>' has no member 'x'", "", 8, "."},
      {"E1002", "Type 'unknown' has no member 'y'", "", 9, "."}},
     {{"r1", "<type-error>"}, {"r4", "<type-error>"}, {"r5", "fn(unknown) -> unknown"}}},
    {"NullLiteralAndThisOutsideAClassHaveNoMembers",
     R"q(fn main() {
    var a = null.x;
    var b = this.x;
}
)q",
     {{"E1002", "Type 'null' has no member 'x'", "", 2, "."},
      {"E1001", "'this' cannot be used outside of an instance method", "", 3, "this"},
      {"E1002", "Type '<type-error>' has no member 'x'", "", 3, "."}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}}},
    {"ClassNameAsObjectReachesItsMembers",
     R"q(fn main() {
    var a = Math.PI;
    var b = Duration.millis;
    var c = Math.sqrt;
    var d = Math.nothing;
}
)q",
     {{"E1002", "Class 'Math' has no member named 'nothing'", "", 5, "."}},
     {{"a", "double"}, {"b", "int"}, {"c", "fn(double) -> double"}, {"d", "<type-error>"}}},

    {"SafeNavigationDoesNotCarryAlongAChain",
     R"q(class Inner { int n = 1; }
class Outer { Inner? inner = null; }
fn main(Outer? o) {
    var a = o?.inner;
    var b = o?.inner.n;
    var c = o?.inner?.n;
}
)q",
     {{"E1008", "Null safety violation: access on nullable type 'Inner?' requires safe navigation '?.'", "Use obj?.n",
       5, ".", 2}},
     {{"a", "Inner?"}, {"b", "int"}, {"c", "int"}}},
    {"ClassWithTypeArgumentsHasOnlyItsOwnFields",
     R"q(class Base { int n = 1; }
class Box<T> extends Base {
    T value;
    private int secret = 0;
    fn peek(Box<int> other): int { return other.secret; }
    fn mine(): int { return this.secret; }
}
fn main(Box<string> b) {
    var w = b.value;
    var x = b.n;
}
)q",
     {{"E1006", "Cannot access private field 'secret' of class 'Box<int>'", "", 5, "."},
      {"E1002", "Class 'Box<string>' has no member named 'n'", "", 10, "."}},
     {{"w", "string"}, {"x", "<type-error>"}}},
    {"ListLengthReadWithoutACallIsItsMethod",
     R"q(fn main(List<int> l) {
    var a = l.length;
    var b = l.count;
    var c = l[0];
}
)q",
     {{"E1002", "Class 'List<int>' has no member named 'count'", "", 3, "."}},
     {{"a", "fn() -> int64"}, {"b", "<type-error>"}, {"c", "int"}}},
    {"ReportsOfAChainComeInTheOrderOfItsParts",
     R"q(class Node {
    int value = 0;
    Node? next = null;
    private string tag = "";
    fn link(Node other): Node { return other; }
}
fn walk(Node? head): int {
    var total = head.value + head?.next.value;
    var n = new Node(nope);
    n.tag = 5;
    n.link(null).value = "x";
    return total;
}
)q",
     {{"E1008", "Null safety violation: access on nullable type 'Node?' requires safe navigation '?.'",
       "Use obj?.value", 8, "."},
      {"E1008", "Null safety violation: access on nullable type 'Node?' requires safe navigation '?.'",
       "Use obj?.value", 8, ".", 3},
      {"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 9, "nope"},
      {"E1006", "Cannot access private field 'tag' of class 'Node'", "", 10, "."},
      {"E1001", "No matching overload for function 'link' with argument types (null)", "", 11, "("},
      {"E1002", "Type '<type-error>' has no member 'value'", "", 11, ".", 2}},
     {{"total", "int"}, {"n", "Node"}}},
    // Indexing.
    {"ArrayIndexMustBeAnIntegerAndKeepsTheElementType",
     R"q(fn main() {
    string[] xs = ["a"];
    uint8 small = 0;
    var a = xs[0];
    var b = xs[small];
    var c = xs["x"];
    var d = xs[1.5];
    var e = xs['c'];
    var f = xs[nope];
}
)q",
     {{"E1001", "Array index must be an integer, got 'string'", "", 6, "["},
      {"E1001", "Array index must be an integer, got 'double'", "", 7, "["},
      {"E1001", "Array index must be an integer, got 'char'", "", 8, "["},
      {"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 9, "nope"},
      {"E1001", "Array index must be an integer, got '<type-error>'", "", 9, "["}},
     {{"a", "string"}, {"b", "string"}, {"c", "string"}, {"d", "string"}, {"e", "string"}, {"f", "string"}}},
    {"ListIndexIsTheElementTakenFromTheName",
     R"q(fn main(List<string> l, List<List<int> > ll) {
    var a = l[0];
    var b = l["x"];
    var c = ll[0];
    var d = ll[0][1];
}
)q",
     {{"E1001", "List index must be an integer, got 'string'", "", 3, "["}},
     {{"a", "string"}, {"b", "string"}, {"c", "List<int>"}, {"d", "int"}}},
    {"MapKeyMustAssignToTheKeyTypeAndTheValueIsNullable",
     R"q(fn main(Map<string, int> m, Map<int64, bool> w, Map<string, int?> n) {
    var a = m["k"];
    var b = m[1];
    var c = m[nope];
    var d = w[1];
    var e = n["k"];
}
)q",
     {{"E1001", "Map key type mismatch: expected 'string', got 'int'", "", 3, "["},
      {"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 4, "nope"}},
     {{"a", "int?"}, {"b", "int?"}, {"c", "int?"}, {"d", "bool?"}, {"e", "int?"}}},
    {"KeysAndIndicesAreHeldToTheirRulesWithoutExceptions",
     R"q(enum Color { Red }
fn main(Map<string, int> m, Map<string?, int> n) {
    int[] xs = [1];
    var a = xs[Color.Red];
    var b = m[null];
    var c = n[null];
}
)q",
     {{"E1001", "Array index must be an integer, got 'Color'", "", 4, "["},
      {"E1001", "Map key type mismatch: expected 'string', got 'null'", "", 5, "["}},
     {{"a", "int"}, {"b", "int?"}, {"c", "int?"}}},
    {"OtherTypesCannotBeIndexed",
     R"q(class Box { }
fn main(Set<int> set, Box box, int[]? maybe, List<int>? list) {
    string s = "abc";
    any a = 1;
    var r1 = s[0];
    var r2 = maybe[0];
    var r3 = a[0];
    var r4 = set[0];
    var r5 = box[0];
    var r6 = nope[other];
    var r7 = list[0];
}
)q",
     {{"E1001", "Type 'string' does not support indexing", "", 5, "["},
      {"E1001", "Type 'int[]?' does not support indexing", "", 6, "["},
      {"E1001", "Type 'any' does not support indexing", "", 7, "["},
      {"E1001", "Type 'Set<int>' does not support indexing", "", 8, "["},
      {"E1001", "Type 'Box' does not support indexing", "", 9, "["},
      {"E1002", "Undefined variable or symbol 'nope'", UNDEFINED_HINT, 10, "nope"},
      {"E1002", "Undefined variable or symbol 'other'", UNDEFINED_HINT, 10, "other"},
      {"E1001", "Type '<type-error>' does not support indexing", "", 10, "["},
      {"E1001", "Type 'List<int>?' does not support indexing", "", 11, "["}},
     {{"r1", "<type-error>"}, {"r2", "<type-error>"}, {"r4", "<type-error>"}, {"r6", "<type-error>"}}},
};

INSTANTIATE_TEST_SUITE_P(Members, MemberRules, ::testing::ValuesIn(MEMBER_CASES), ruleCaseName);

}  // namespace
