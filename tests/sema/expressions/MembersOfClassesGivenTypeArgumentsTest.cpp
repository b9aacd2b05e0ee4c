// Members read through a class made with type arguments: the textual
// substitution of the arguments into the member types (whole words only,
// one parameter after the other), members without a written type, built-in
// classes given type arguments, and classes that name themselves.
#include <string>
#include <vector>

#include "RuleTableSupport.h"

using namespace quor::sema::testing;

namespace {

class SpecializedClassMembers : public ::testing::TestWithParam<RuleCase> {};

TEST_P(SpecializedClassMembers, ReportsAndTypes) { expectRuleCase(GetParam()); }

const std::vector<RuleCase> CASES = {
    {"ArgumentsAreWrittenIntoMemberTypesAsWholeWords",
     R"q(class Thing { }
class Box<T> {
    Thing t;
    T v;
    T[] many;
    List<T> list;
    fn get(): T { return v; }
    fn put(T item, Thing other): bool { return true; }
}
fn main() {
    var a = new Box<int>().t;
    var b = new Box<int?>().many;
    var c = new Box<string>().list;
    var d = new Box<int[]>().get;
    var e = new Box<bool>().put;
    var f = new Box<Box<int> >().v.v;
}
)q",
     {},
     {{"a", "Thing"},
      {"b", "int?[]"},
      {"c", "List<string>"},
      {"d", "fn() -> int[]"},
      {"e", "fn(bool, Thing) -> bool"},
      {"f", "int"}}},
    {"ParametersAreReplacedOneAfterTheOther",
     R"q(class Pair<K, V> {
    K first;
    V second;
    Map<K, V> both;
}
fn main() {
    var a = new Pair<V, int>().both;
    var b = new Pair<V, int>().first;
    var c = new Pair<V, int>().second;
    var d = new Pair<string, K>().both;
}
)q",
     {},
     {{"a", "Map<int, int>"}, {"b", "any"}, {"c", "int"}, {"d", "<type-error>"}}},
    {"NestedGenericArgumentsSurviveOnlyOutsideAMapKey",
     R"q(class Pair<K, V> {
    K first;
    Map<K, V> both;
}
fn main() {
    var a = new Pair<Map<string, int>, bool>().first;
    var b = new Pair<Map<string, int>, bool>().both;
    var c = new Pair<bool, Map<string, int> >().both;
    var d = new Pair<List<int>, int>().first;
}
)q",
     {},
     {{"a", "Map<string, int>"},
      {"b", "<type-error>"},
      {"c", "Map<bool, Map<string, int>>"},
      {"d", "List<int>"}}},
    {"FieldWithoutAWrittenTypeIsUnknownInASpecialisationAndVoidInItsBase",
     R"q(class Box<T> {
    var loose;
    fn run() { }
}
fn main() {
    var a = new Box<int>().loose;
    var b = new Box<int>().run;
    var c = new Box().loose;
    var d = new Box().run;
}
)q",
     {},
     {{"a", "unknown"}, {"b", "fn() -> void"}, {"c", "void"}, {"d", "fn() -> void"}}},
    {"BuiltinClassWithTypeArgumentsKeepsItsMembers",
     R"q(fn main() {
    var a = new Duration<int>().millis;
    var b = new Duration<int>().toMillis;
    var c = new Duration<int>().fromMillis;
    var d = new Math<int>().PI;
    var e = new Math<int>().nothing;
}
)q",
     {{"E1002", "Class 'Math<int>' has no member named 'nothing'", "", 6, "."}},
     {{"a", "int"}, {"b", "fn() -> int"}, {"c", "fn(int) -> Duration"}, {"d", "double"}, {"e", "<type-error>"}}},
    {"ClassThatNamesItsOwnSpecialisationFindsItself",
     R"q(class Node<T> {
    T value;
    Node<T>? next;
}
fn main(Node<string> n) {
    var a = n.next;
    var b = n.next?.value;
    var c = n.next.next;
}
)q",
     {{"E1008", "Null safety violation: access on nullable type 'Node<string>?' requires safe navigation '?.'",
       "Use obj?.next", 8, ".", 2}},
     {{"a", "Node<string>?"}, {"b", "string"}, {"c", "Node<string>?"}}},
    {"PrivateMembersOfASpecialisationKeepTheirVisibility",
     R"q(class Box<T> {
    private T hidden;
    protected T shared;
}
fn main(Box<int> b) {
    var a = b.hidden;
    var c = b.shared;
}
)q",
     {{"E1006", "Cannot access private field 'hidden' of class 'Box<int>'", "", 6, "."}},
     {{"a", "<type-error>"}, {"c", "int"}}},
};

INSTANTIATE_TEST_SUITE_P(Specialized, SpecializedClassMembers, ::testing::ValuesIn(CASES), ruleCaseName);

}  // namespace
