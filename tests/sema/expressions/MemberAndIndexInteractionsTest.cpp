// Member access and indexing where they meet other rules: map lookups that
// come back nullable, arrays and lists whose elements print with marks or
// generics, enums behind a nullable, untyped lambda parameters, assignment
// through members and subscripts, and members of what `new` makes.
#include <string>
#include <vector>

#include "RuleTableSupport.h"

using namespace quor::sema::testing;

namespace {

class MemberAndIndexInteractions : public ::testing::TestWithParam<RuleCase> {};

TEST_P(MemberAndIndexInteractions, ReportsAndTypes) { expectRuleCase(GetParam()); }

const std::string UNDEFINED_HINT = "Ensure the variable is declared before use";
const std::string NULLABLE_ACCESS_PREFIX = "Null safety violation: access on nullable type '";
const std::string NULLABLE_ACCESS_SUFFIX = "' requires safe navigation '?.'";

std::string nullableAccess(const std::string& type) { return NULLABLE_ACCESS_PREFIX + type + NULLABLE_ACCESS_SUFFIX; }

const std::vector<RuleCase> CASES = {
    {"MapLookupIsNullableSoItsMembersNeedSafeNavigationAndItCannotBeIndexed",
     R"q(fn main(Map<string, int[]> m, Map<string, string> w) {
    var a = m["k"];
    var b = m["k"].length;
    var c = m["k"]?.length;
    var d = m["k"][0];
    var e = w["k"]?.size;
}
)q",
     {{"E1008", nullableAccess("int[]?"), "Use obj?.length", 3, "."},
      {"E1001", "Type 'int[]?' does not support indexing", "", 5, "[", 2}},
     {{"a", "int[]?"}, {"b", "int"}, {"c", "int"}, {"d", "<type-error>"}, {"e", "int"}}},
    {"ArraysOfFunctionsPrintTheElementTextWhole",
     R"q(fn main() {
    var fs = [(int x) => x, (int y) => y];
    var ns = [(int x) => x, null];
    var a = fs[0];
    var b = fs["0"];
    var c = ns[0];
    var d = ns[0].x;
    var e = fs.size;
}
)q",
     {{"E1001", "Array index must be an integer, got 'string'", "", 5, "["},
      {"E1008", nullableAccess("fn(int) -> unknown?"), "Use obj?.x", 7, "."},
      {"E1002", "Type 'fn(int) -> unknown' has no member 'x'", "", 7, "."}},
     {{"fs", "fn(int) -> unknown[]"},
      {"ns", "fn(int) -> unknown?[]"},
      {"a", "fn(int) -> unknown"},
      {"b", "fn(int) -> unknown"},
      {"c", "fn(int) -> unknown?"},
      {"d", "<type-error>"},
      {"e", "int"}}},
    {"ListElementKeepsItsMarksAndGenericArguments",
     R"q(class Box<T> { T value; }
fn main(List<int?> a, List<int[]> b, List<Box<string> > c, List<Map<string, bool> > d) {
    var r1 = a[0];
    var r2 = b[0][1];
    var r3 = c[0].value;
    var r4 = d[0]["k"];
    var r5 = b[true];
    var r6 = c[0];
}
)q",
     {{"E1001", "List index must be an integer, got 'bool'", "", 7, "["}},
     {{"r1", "int?"}, {"r2", "int"}, {"r3", "string"}, {"r4", "bool?"}, {"r5", "int[]"}, {"r6", "Box<string>"}}},
    {"MapKeyIsJudgedByAssignabilityWithWideningAndSubtypes",
     R"q(class Base { }
class Derived extends Base { }
fn main(Map<int64, string> a, Map<Base, int> b, Map<float, int> c, Map<any, int> d, Derived x, uint8 small) {
    var r1 = a[small];
    var r2 = b[x];
    var r3 = c[1];
    var r4 = d["k"];
    var r5 = a[1.5];
    var r6 = b[small];
}
)q",
     {{"E1001", "Map key type mismatch: expected 'float', got 'int'", "", 6, "["},
      {"E1001", "Map key type mismatch: expected 'int64', got 'double'", "", 8, "["},
      {"E1001", "Map key type mismatch: expected 'Base', got 'uint8'", "", 9, "["}},
     {{"r1", "string?"}, {"r2", "int?"}, {"r3", "int?"}, {"r4", "int?"}, {"r5", "string?"}, {"r6", "int?"}}},
    {"EnumBehindANullableIsUnwrappedBeforeItsVariants",
     R"q(enum Color { Red, Green }
fn main(Color? c) {
    var a = c.Green;
    var b = c?.Red;
    var d = c?.parse;
    var e = Color.Red.Green;
}
)q",
     {{"E1008", nullableAccess("Color?"), "Use obj?.Green", 3, "."},
      {"E1002", "Enum 'Color' has no variant named 'parse'", "", 5, "?."}},
     {{"a", "Color"}, {"b", "Color"}, {"d", "<type-error>"}, {"e", "Color"}}},
    {"UntypedLambdaParameterIsUnknownToMembersIndexesAndAssignment",
     R"q(fn main() {
    var a = x => x.length;
    var b = x => x[0];
    var c = x => x = 1;
    var d = x => x = null;
    var e = (int? n) => n.parse;
}
)q",
     {{"E1002", "Type 'unknown' has no member 'length'", "", 2, "."},
      {"E1001", "Type 'unknown' does not support indexing", "", 3, "["},
      {"E1001", "Cannot assign value of type 'int' to variable of type 'unknown'", "", 4, "=", 3},
      {"E1008", "Null safety violation: cannot assign null to non-nullable type 'unknown'",
       "Change variable type to 'unknown?' to allow null", 5, "=", 3},
      {"E1008", nullableAccess("int?"), "Use obj?.parse", 6, "."}},
     {{"a", "fn(unknown) -> unknown"},
      {"b", "fn(unknown) -> unknown"},
      {"c", "fn(unknown) -> unknown"},
      {"e", "fn(int?) -> unknown"}}},
    {"DuplicateLambdaParameterLeavesTheFirstVisibleToTheBody",
     R"q(fn main() {
    var f = (int a, string a) => a.length;
    var g = (string a, int a) => a.length;
}
)q",
     {{"E1002", "Type 'int' has no member 'length'", "", 2, "."}},
     {{"f", "fn(int, string) -> unknown"}, {"g", "fn(string, int) -> unknown"}}},
    {"AssignmentThroughMembersAndSubscriptsUsesTheirTypes",
     R"q(class Holder {
    float ratio = 0.5f;
    private int secret = 0;
}
fn main(Holder h, Map<string, int> m, Map<string, int8> small, int[] xs) {
    h.ratio = 1.5;
    m["k"] = 1;
    m["k"] = null;
    small["k"] = 1;
    xs[0] = null;
    h.secret = null;
    h.secret = 1;
    "abc".length = 4;
    var r = xs[0] = 7;
}
)q",
     {{"E1001", "Cannot assign value of type 'int' to variable of type 'int8?'", "", 9, "="},
      {"E1008", "Null safety violation: cannot assign null to non-nullable type 'int'",
       "Change variable type to 'int?' to allow null", 10, "="},
      {"E1006", "Cannot access private field 'secret' of class 'Holder'", "", 11, "."},
      {"E1008", "Null safety violation: cannot assign null to non-nullable type '<type-error>'",
       "Change variable type to '<type-error>?' to allow null", 11, "="},
      {"E1006", "Cannot access private field 'secret' of class 'Holder'", "", 12, "."}},
     {{"r", "int"}}},
    {"PrivateFieldIsReadableFromALambdaInsideItsClass",
     R"q(class Vault {
    private int code = 1;
    fn open(Vault other) {
        var f = () => other.code + this.code;
    }
}
fn main(Vault v) {
    var g = () => v.code;
}
)q",
     {{"E1006", "Cannot access private field 'code' of class 'Vault'", "", 8, "."}},
     {{"f", "fn() -> unknown"}, {"g", "fn() -> unknown"}}},
    {"MembersOfWhatNewMakes",
     R"q(class Pair<K, V> {
    K first;
    V second;
    Map<K, V> both;
    V[] many;
    K? maybe;
}
abstract class Shape { int sides = 0; }
fn main() {
    var a = new Pair<string, int>().both;
    var b = new Pair<int, string>().many;
    var c = new Pair<int, string>().maybe;
    var d = new List<int[]>()[0];
    var e = new Shape().sides;
    var f = new Ghost().sides;
    var g = new Pair<int, string>().first;
}
)q",
     {{"E1001", "Cannot instantiate abstract class 'Shape'", "", 14, "new"},
      {"E1002", "Type '<type-error>' has no member 'sides'", "", 14, "."},
      {"E1002", "Undefined class 'Ghost' in 'new' expression", "", 15, "new"},
      {"E1002", "Type '<type-error>' has no member 'sides'", "", 15, "."}},
     {{"a", "Map<string, int>"},
      {"b", "string[]"},
      {"c", "int?"},
      {"d", "int[]"},
      {"e", "<type-error>"},
      {"f", "<type-error>"},
      {"g", "int"}}},
    {"BuiltinLibraryMembersReadAsValues",
     R"q(fn main(Duration d) {
    var a = d.toMillis;
    var b = Math.abs;
    var c = Time.sleep;
    var e = Console.nothing;
    var f = Duration.fromMillis;
    var g = d.millis.parse;
    var h = "abc".size;
    var i = 'c'.length;
    var j = Math.E;
}
)q",
     {{"E1002", "Class 'Console' has no member named 'nothing'", "", 5, "."},
      {"E1002", "Type 'char' has no member 'length'", "", 9, "."}},
     {{"a", "fn() -> int"},
      {"b", "fn(int) -> int"},
      {"c", "fn(int) -> void"},
      {"e", "<type-error>"},
      {"f", "fn(int) -> Duration"},
      {"g", "fn(string) -> int"},
      {"h", "int"},
      {"i", "<type-error>"},
      {"j", "double"}}},
    {"TypeNamesStandAsObjectsOfMembersAndSubscripts",
     R"q(class Box { }
fn main() {
    var a = byte.parse;
    var b = string.length;
    var c = void.x;
    var d = unknown.x;
    var e = any.x;
    var f = Box[0];
    var g = int[0];
}
)q",
     {{"E1002", "Type 'void' has no member 'x'", "", 5, "."},
      {"E1002", "Type 'unknown' has no member 'x'", "", 6, "."},
      {"E1002", "Type 'any' has no member 'x'", "", 7, "."},
      {"E1001", "Type 'Box' does not support indexing", "", 8, "["},
      {"E1001", "Type 'int' does not support indexing", "", 9, "["}},
     {{"a", "fn(string) -> int"}, {"b", "int"}, {"c", "<type-error>"}, {"f", "<type-error>"}}},
    {"ReportsFollowTheOrderOfCheckingAcrossNestedForms",
     R"q(class Box { private int hidden = 0; }
fn main(int[] xs, Box box) {
    xs[nope1] = nope2.m;
    var r = {box.hidden: xs["i"], nope3: box.missing};
    var s = [box?.hidden, xs[true].size];
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope1'", UNDEFINED_HINT, 3, "nope1"},
      {"E1001", "Array index must be an integer, got '<type-error>'", "", 3, "["},
      {"E1002", "Undefined variable or symbol 'nope2'", UNDEFINED_HINT, 3, "nope2"},
      {"E1002", "Type '<type-error>' has no member 'm'", "", 3, "."},
      {"E1006", "Cannot access private field 'hidden' of class 'Box'", "", 4, "."},
      {"E1001", "Array index must be an integer, got 'string'", "", 4, "["},
      {"E1002", "Undefined variable or symbol 'nope3'", UNDEFINED_HINT, 4, "nope3"},
      {"E1002", "Class 'Box' has no member named 'missing'", "", 4, ".", 2},
      {"E1006", "Cannot access private field 'hidden' of class 'Box'", "", 5, "?."},
      {"E1001", "Array index must be an integer, got 'bool'", "", 5, "[", 2},
      {"E1002", "Type 'int' has no member 'size'", "", 5, ".", 2}},
     {{"r", "Map<<type-error>, <type-error>>"}, {"s", "<type-error>[]"}}},
    {"UserClassesWithLibraryNamesAreReadAsPlainClasses",
     R"q(class List { int n = 0; }
class Map { }
class Console { int width = 80; }
fn main(List l, Map m) {
    var a = l.n;
    var b = l[0];
    var c = m["k"];
    var d = new List();
    var e = new Map();
    var f = Console.width;
    var g = Console.println;
}
)q",
     {{"E1001", "Type 'List' does not support indexing", "", 6, "["},
      {"E1001", "Type 'Map' does not support indexing", "", 7, "["},
      {"E1002", "Class 'Console' has no member named 'println'", "", 11, "."}},
     {{"a", "int"},
      {"b", "<type-error>"},
      {"c", "<type-error>"},
      {"d", "List<any>"},
      {"e", "Map<string, any>"},
      {"f", "int"},
      {"g", "<type-error>"}}},
    {"PrivateTestComparesTheCurrentClassWithTheObjectsClass",
     R"q(class A {
    private int x = 0;
    fn peek(B b): int { return b.x; }
    fn own(A a): int { return a.x; }
    fn viaSuper(): int { return this.x; }
}
class B extends A {
    fn back(A a): int { return a.x; }
    fn mine(B b): int { return b.x; }
}
)q",
     {{"E1006", "Cannot access private field 'x' of class 'B'", "", 3, "."},
      {"E1006", "Cannot access private field 'x' of class 'A'", "", 8, "."}},
     {}},
    {"SubclassDeclaredFirstMayHideABaseFieldAndThePrivateTestReadsTheNearest",
     R"q(class B extends A {
    int x = 1;
    private int y = 1;
}
class A {
    private int x = 0;
    int y = 0;
}
fn main(A a, B b) {
    var r1 = b.x;
    var r2 = b.y;
    var r3 = a.y;
    var r4 = a.x;
}
)q",
     {{"E1006", "Cannot access private field 'y' of class 'B'", "", 11, "."},
      {"E1006", "Cannot access private field 'x' of class 'A'", "", 13, "."}},
     {{"r1", "int"}, {"r2", "<type-error>"}, {"r3", "int"}, {"r4", "<type-error>"}}},
    {"SafeNavigationTargetIsNotNullableForAssignment",
     R"q(class Box { int n = 0; int? m = null; }
fn main(Box? b) {
    b.n = 1;
    b?.n = null;
    b?.m = null;
    var r = b?.n = 2;
}
)q",
     {{"E1008", nullableAccess("Box?"), "Use obj?.n", 3, "."},
      {"E1008", "Null safety violation: cannot assign null to non-nullable type 'int'",
       "Change variable type to 'int?' to allow null", 4, "="}},
     {{"r", "int"}}},
    {"CompositeOfAnUndefinedNameIsTheErrorTypeWhichIndexingAndMembersStillReport",
     R"q(fn main(Map<Missing, int> m, Missing[] xs, List<Missing[]> l) {
    var a = m["k"];
    var b = xs.length;
    var c = xs[0];
    var d = l[0];
    var e = m.size;
}
)q",
     {{"E1001", "Type '<type-error>' does not support indexing", "", 2, "["},
      {"E1002", "Type '<type-error>' has no member 'length'", "", 3, "."},
      {"E1001", "Type '<type-error>' does not support indexing", "", 4, "["},
      {"E1002", "Type '<type-error>' has no member 'size'", "", 6, "."}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}, {"c", "<type-error>"}, {"d", "any"}}},
    {"NullableMapCannotBeIndexedAndItsSizeIsNoProperty",
     R"q(fn main(Map<string, int>? m) {
    var xs = [1, null];
    var a = m["k"];
    var b = m?.size;
    var c = xs[0];
    var d = xs.length;
    var e = xs[0].parse;
}
)q",
     {{"E1001", "Type 'Map<string, int>?' does not support indexing", "", 3, "["},
      {"E1002", "Type 'Map<string, int>' has no member 'size'", "", 4, "?."},
      {"E1008", nullableAccess("int?"), "Use obj?.parse", 7, "."}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}, {"c", "int?"}, {"d", "int"}, {"e", "fn(string) -> int"}}},
};

INSTANTIATE_TEST_SUITE_P(Interactions, MemberAndIndexInteractions, ::testing::ValuesIn(CASES), ruleCaseName);

}  // namespace
