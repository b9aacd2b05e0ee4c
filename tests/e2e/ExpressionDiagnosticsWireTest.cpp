// Calls, member access, indexing, collection literals, lambdas, assignment and
// `new` as an editor sees them: each case opens one document in the server and
// compares the published diagnostics byte for byte. Where a case is about the
// type of an expression, a typed declaration of the wrong type makes that type
// show in the published message.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "e2e/PublishedDiagnostics.h"

using quor::e2e::diagnosticAt;
using quor::e2e::expectPublished;
using quor::e2e::Published;

namespace {

const std::string UNDEFINED_HINT = " (Ensure the variable is declared before use)";

std::string mismatch(const std::string& declared, const std::string& value) {
    return "Type mismatch: cannot initialize variable of type '" + declared + "' with value of type '" + value + "'";
}

}  // namespace

// ---- calls ----

TEST(ExpressionDiagnosticsWire, DefaultedParameterCallsWithNoneOneAndTwoArguments) {
    const std::string src =
        "fn f(int a, int b = 2): int { return a + b; }\n"
        "fn main() {\n"
        "    var none = f();\n"
        "    var one = f(1);\n"
        "    var two = f(1, 2);\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 3, "(", "E1001",
                                       "No matching overload for function 'f' with argument types ()")});
}

TEST(ExpressionDiagnosticsWire, OverloadsPickTheExactOneElseTheFirstViableOne) {
    const std::string src =
        "fn g(double d): string { return \"d\"; }\n"
        "fn g(int i): bool { return true; }\n"
        "fn main() {\n"
        "    int a = 1;\n"
        "    uint8 b = 1;\n"
        "    char exact = g(a);\n"
        "    char viable = g(b);\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 6, "exact", "E1001", mismatch("char", "bool")),
                          diagnosticAt(src, 7, "viable", "E1001", mismatch("char", "string"))});
}

TEST(ExpressionDiagnosticsWire, MethodDefaultsAreNotHonoured) {
    const std::string src =
        "class C {\n"
        "    fn m(int a, int b = 2): int { return a; }\n"
        "}\n"
        "fn main() {\n"
        "    var c = new C();\n"
        "    var r = c.m(1);\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 6, "(", "E1001",
                                       "No matching overload for function 'm' with argument types (int)")});
}

TEST(ExpressionDiagnosticsWire, GenericCallWithExplicitTypeArgumentsTakesItsResultFromThem) {
    const std::string src =
        "fn identity<T>(T value): T { return value; }\n"
        "fn main() {\n"
        "    int r = identity<string>(5);\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 3, "r", "E1001", mismatch("int", "string"))});
}

TEST(ExpressionDiagnosticsWire, GenericParameterBindsToTheWholeArrayArgument) {
    const std::string src =
        "fn firstOf<T>(T[] items): T { throw \"unused\"; }\n"
        "fn main() {\n"
        "    var nums = [1, 2, 3];\n"
        "    int r = firstOf(nums);\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 4, "r", "E1001", mismatch("int", "int[]"))});
}

TEST(ExpressionDiagnosticsWire, SafeCallOnANonNullableReceiverIsSilent) {
    const std::string src =
        "fn main() {\n"
        "    string s = \"x\";\n"
        "    var r = s?.upper();\n"
        "}\n";
    expectPublished(src, {});
}

TEST(ExpressionDiagnosticsWire, MapOfAnIntArrayIsAnIntArrayWhateverTheLambdaReturns) {
    const std::string src =
        "fn main() {\n"
        "    var nums = [1, 2];\n"
        "    string[] mapped = nums.map((int n) => \"s\");\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 3, "mapped", "E1001", mismatch("string[]", "int[]"))});
}

TEST(ExpressionDiagnosticsWire, SizeOnAStringIsIntAndAnUnknownStringMethodNamesString) {
    const std::string src =
        "fn main() {\n"
        "    string s = \"x\";\n"
        "    int n = s.size();\n"
        "    var r = s.shout();\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 4, "(", "E1003", "Type 'string' has no method named 'shout'")});
}

TEST(ExpressionDiagnosticsWire, GetOnAMapIsTheNullableValue) {
    const std::string src =
        "fn main() {\n"
        "    var ages = {\"ann\": 31};\n"
        "    int r = ages.get(\"ann\");\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 3, "r", "E1001", mismatch("int", "int?"))});
}

TEST(ExpressionDiagnosticsWire, ParseOnAUint8ValueIsInt) {
    const std::string src =
        "fn main() {\n"
        "    uint8 small = 1;\n"
        "    string parsed = small.parse(\"7\");\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 3, "parsed", "E1001", mismatch("string", "int"))});
}

TEST(ExpressionDiagnosticsWire, MethodCallOnABrokenReceiverReportsTwice) {
    const std::string src =
        "fn main() {\n"
        "    var r = nope.size();\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 2, "nope", "E1002", "Undefined variable or symbol 'nope'" + UNDEFINED_HINT),
                          diagnosticAt(src, 2, "(", "E1003", "Type '<type-error>' has no method named 'size'")});
}

TEST(ExpressionDiagnosticsWire, PrivateMethodOnAnotherObjectOfTheClassButNotFromASubclass) {
    const std::string src =
        "class Vault {\n"
        "    private fn code(): int { return 42; }\n"
        "    fn peek(Vault other): int { return other.code(); }\n"
        "}\n"
        "class Spy extends Vault {\n"
        "    fn steal(Vault other): int { return other.code(); }\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 6, "(", "E1006", "Cannot access private method 'code' of class 'Vault'",
                                       2)});
}

TEST(ExpressionDiagnosticsWire, CallOnANullableReceiverReportsWithItsHintAndGoesOn) {
    const std::string src =
        "fn main() {\n"
        "    string? maybe = null;\n"
        "    var r = maybe.shout();\n"
        "}\n";
    expectPublished(src,
                    {diagnosticAt(src, 3, "(", "E1008",
                                  "Null safety violation: call on nullable type 'string?' requires safe navigation "
                                  "'?.' (Use obj?.shout(...))"),
                     diagnosticAt(src, 3, "(", "E1003", "Type 'string' has no method named 'shout'")});
}

TEST(ExpressionDiagnosticsWire, UndefinedCallables) {
    const std::string src =
        "class C { }\n"
        "fn main() {\n"
        "    ghost();\n"
        "    var c = new C();\n"
        "    c.ghost();\n"
        "    var xs = [1];\n"
        "    xs[0]();\n"
        "    super();\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 3, "(", "E1003", "Undefined function or callable symbol 'ghost'"),
                          diagnosticAt(src, 5, "(", "E1003", "Undefined function or method 'ghost'"),
                          diagnosticAt(src, 7, "(", "E1001", "Expression is not callable, has type 'int'"),
                          diagnosticAt(src, 8, "(", "E1001", "Cannot call 'super' constructor outside of a subclass")});
}

// ---- member access and indexing ----

TEST(ExpressionDiagnosticsWire, LengthAndSizeAreIntPropertiesOfStringsAndArraysButNotOfMaps) {
    const std::string src =
        "fn main() {\n"
        "    string s = \"abc\";\n"
        "    var nums = [1];\n"
        "    var ages = {\"a\": 1};\n"
        "    int a = s.length;\n"
        "    int b = s.size;\n"
        "    int c = nums.length;\n"
        "    int d = nums.size;\n"
        "    var e = ages.size;\n"
        "    var f = ages.length;\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 9, ".", "E1002", "Type 'Map<string, int>' has no member 'size'"),
                          diagnosticAt(src, 10, ".", "E1002", "Type 'Map<string, int>' has no member 'length'")});
}

TEST(ExpressionDiagnosticsWire, SafeAccessGivesTheMembersOwnTypeAndPlainAccessOnANullableReports) {
    const std::string src =
        "class Box {\n"
        "    int value;\n"
        "}\n"
        "fn main() {\n"
        "    Box? maybe = null;\n"
        "    string a = maybe?.value;\n"
        "    string b = maybe.value;\n"
        "    var sure = new Box();\n"
        "    int c = sure?.value;\n"
        "}\n";
    expectPublished(src,
                    {diagnosticAt(src, 6, "a", "E1001", mismatch("string", "int")),
                     diagnosticAt(src, 7, ".", "E1008",
                                  "Null safety violation: access on nullable type 'Box?' requires safe navigation "
                                  "'?.' (Use obj?.value)"),
                     diagnosticAt(src, 7, "b", "E1001", mismatch("string", "int"))});
}

TEST(ExpressionDiagnosticsWire, EnumVariantsAndAnUnknownVariant) {
    const std::string src =
        "enum Color { Red, Green }\n"
        "fn main() {\n"
        "    int shade = Color.Red;\n"
        "    var other = Color.Purple;\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 4, ".", "E1002", "Enum 'Color' has no variant named 'Purple'")});
}

TEST(ExpressionDiagnosticsWire, MethodReadWithoutACallIsItsFirstOverload) {
    const std::string src =
        "class Box {\n"
        "    fn scale(int by): int { return by; }\n"
        "    fn scale(double by): double { return by; }\n"
        "}\n"
        "fn main() {\n"
        "    var box = new Box();\n"
        "    int f = box.scale;\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 7, "f", "E1001", mismatch("int", "fn(int) -> int"))});
}

TEST(ExpressionDiagnosticsWire, ParseReadWithoutACallIsAFunctionFromString) {
    const std::string src =
        "fn main() {\n"
        "    int a = int.parse;\n"
        "    int n = 1;\n"
        "    int b = n.parse;\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 2, "a", "E1001", mismatch("int", "fn(string) -> int")),
                          diagnosticAt(src, 4, "b", "E1001", mismatch("int", "fn(string) -> int"))});
}

TEST(ExpressionDiagnosticsWire, BadArrayIndexKeepsTheElementAndAStringIsNotIndexable) {
    const std::string src =
        "fn main() {\n"
        "    var nums = [1, 2];\n"
        "    string a = nums[\"x\"];\n"
        "    string s = \"abc\";\n"
        "    int c = s[0];\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 3, "[", "E1001", "Array index must be an integer, got 'string'"),
                          diagnosticAt(src, 3, "a", "E1001", mismatch("string", "int")),
                          diagnosticAt(src, 5, "[", "E1001", "Type 'string' does not support indexing")});
}

TEST(ExpressionDiagnosticsWire, MapIndexedByAWrongKeyIsTheNullableValue) {
    const std::string src =
        "fn main() {\n"
        "    var ages = {\"ann\": 31};\n"
        "    int v = ages[1];\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 3, "[", "E1001", "Map key type mismatch: expected 'string', got 'int'"),
                          diagnosticAt(src, 3, "v", "E1001", mismatch("int", "int?"))});
}

TEST(ExpressionDiagnosticsWire, ListOfListsIndexesToTheInnerList) {
    const std::string src =
        "fn main() {\n"
        "    var grid = new List<List<int> >();\n"
        "    int row = grid[0];\n"
        "    var bad = grid[\"x\"];\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 3, "row", "E1001", mismatch("int", "List<int>")),
                          diagnosticAt(src, 4, "[", "E1001", "List index must be an integer, got 'string'")});
}

TEST(ExpressionDiagnosticsWire, ClassStructAndPrivateFieldReports) {
    const std::string src =
        "struct Point { int x; }\n"
        "class Safe {\n"
        "    private int pin;\n"
        "}\n"
        "fn main(Point p) {\n"
        "    var s = new Safe();\n"
        "    var a = s.pin;\n"
        "    var b = s.code;\n"
        "    var c = p.z;\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 7, ".", "E1006", "Cannot access private field 'pin' of class 'Safe'"),
                          diagnosticAt(src, 8, ".", "E1002", "Class 'Safe' has no member named 'code'"),
                          diagnosticAt(src, 9, ".", "E1002", "Struct 'Point' has no field named 'z'")});
}

// ---- collection literals, lambdas, assignment, new ----

TEST(ExpressionDiagnosticsWire, EmptyLiteralsAreAnyArrayAndStringToAnyMap) {
    const std::string src =
        "fn main() {\n"
        "    int a = [];\n"
        "    int m = {};\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 2, "a", "E1001", mismatch("int", "any[]")),
                          diagnosticAt(src, 3, "m", "E1001", mismatch("int", "Map<string, any>"))});
}

TEST(ExpressionDiagnosticsWire, ArrayElementsMeetAtTheirCommonTypeWithoutAReport) {
    const std::string src =
        "fn main() {\n"
        "    int a = [1, 2.0];\n"
        "    int b = [1, \"a\"];\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 2, "a", "E1001", mismatch("int", "double[]")),
                          diagnosticAt(src, 3, "b", "E1001", mismatch("int", "any[]"))});
}

TEST(ExpressionDiagnosticsWire, LambdaBodyTypeDoesNotReachItsFunctionType) {
    const std::string src =
        "fn main() {\n"
        "    int f = (int x) => x + 1;\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 2, "f", "E1001", mismatch("int", "fn(int) -> unknown"))});
}

TEST(ExpressionDiagnosticsWire, LambdaParameterTypeThatNamesNothingIsIntSilently) {
    const std::string src =
        "fn main() {\n"
        "    int f = (int<Nothing> v) => v;\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 2, "f", "E1001", mismatch("int", "fn(int) -> unknown"))});
}

TEST(ExpressionDiagnosticsWire, AssignmentToAConstantReportsOnlyThat) {
    const std::string src =
        "fn main() {\n"
        "    const c = 1;\n"
        "    c = 1;\n"
        "    c = undefinedName;\n"
        "}\n";
    const std::string message = "Cannot assign to constant 'c' (Constants are immutable and cannot be reassigned)";
    expectPublished(src, {diagnosticAt(src, 3, "=", "E1005", message), diagnosticAt(src, 4, "=", "E1005", message)});
}

TEST(ExpressionDiagnosticsWire, CompoundAssignmentsAreJudgedAsPlainOnes) {
    const std::string src =
        "fn main() {\n"
        "    int x = 1;\n"
        "    x += \"s\";\n"
        "    string s = \"a\";\n"
        "    s += 1;\n"
        "}\n";
    expectPublished(src,
                    {diagnosticAt(src, 3, "+=", "E1001", "Cannot assign value of type 'string' to variable of type 'int'"),
                     diagnosticAt(src, 5, "+=", "E1001",
                                  "Cannot assign value of type 'int' to variable of type 'string'")});
}

TEST(ExpressionDiagnosticsWire, LiteralNarrowingInAssignment) {
    const std::string src =
        "fn main() {\n"
        "    float f = 1.0f;\n"
        "    f = 1.5;\n"
        "    double d = 2.5;\n"
        "    f = d;\n"
        "    int8 small = 1;\n"
        "    small = 300;\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 5, "=", "E1001",
                                       "Cannot assign value of type 'double' to variable of type 'float'")});
}

TEST(ExpressionDiagnosticsWire, NullIntoANullableIsFineAndIntoAnyIsAViolation) {
    const std::string src =
        "fn main(any thing) {\n"
        "    int? x = 1;\n"
        "    x = null;\n"
        "    thing = null;\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 4, "=", "E1008",
                                       "Null safety violation: cannot assign null to non-nullable type 'any' (Change "
                                       "variable type to 'any?' to allow null)")});
}

TEST(ExpressionDiagnosticsWire, CallAsAssignmentTargetIsOnlyJudgedByTypes) {
    const std::string src =
        "fn number(): int { return 1; }\n"
        "fn main() {\n"
        "    number() = 1;\n"
        "}\n";
    expectPublished(src, {});
}

TEST(ExpressionDiagnosticsWire, NewOfTheBuiltInCollections) {
    const std::string src =
        "fn main() {\n"
        "    int a = new List<int>();\n"
        "    int b = new List();\n"
        "    int c = new Map();\n"
        "    int d = new Array<int>();\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 2, "a", "E1001", mismatch("int", "List<int>")),
                          diagnosticAt(src, 3, "b", "E1001", mismatch("int", "List<any>")),
                          diagnosticAt(src, 4, "c", "E1001", mismatch("int", "Map<string, any>")),
                          diagnosticAt(src, 5, "d", "E1001", mismatch("int", "int[]"))});
}

TEST(ExpressionDiagnosticsWire, NewOfAClassTakesAnyArgumentsButChecksThem) {
    const std::string src =
        "class Foo { }\n"
        "fn main() {\n"
        "    var a = new Foo(1, 2);\n"
        "    var b = new Foo(missing);\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 4, "missing", "E1002",
                                       "Undefined variable or symbol 'missing'" + UNDEFINED_HINT)});
}

TEST(ExpressionDiagnosticsWire, NewOfAnAbstractClassReportsAndLeavesItsArgumentsUnchecked) {
    const std::string src =
        "abstract class Shape { }\n"
        "struct Point { int x; }\n"
        "fn main() {\n"
        "    var s = new Shape(missing);\n"
        "    var p = new Point();\n"
        "    var n = new Nothing(missing);\n"
        "}\n";
    expectPublished(src, {diagnosticAt(src, 4, "new", "E1001", "Cannot instantiate abstract class 'Shape'"),
                          diagnosticAt(src, 5, "new", "E1001", "Cannot instantiate non-class type 'Point' with 'new'"),
                          diagnosticAt(src, 6, "new", "E1002", "Undefined class 'Nothing' in 'new' expression")});
}
