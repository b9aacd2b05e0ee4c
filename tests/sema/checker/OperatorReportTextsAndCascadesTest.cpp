// Operators whose reports name composite types (specialised classes,
// nullable maps, function types, arrays of nullables, enums), the order of
// the reports of nested operators, the silencing that stops a cascade, the
// place of each report in a multi-line expression, and how names stand as
// values beside the operators.
#include <string>
#include <vector>

#include "sema/expressions/RuleTableSupport.h"

using namespace quor::sema::testing;

namespace {

class OperatorReportTexts : public ::testing::TestWithParam<RuleCase> {};

TEST_P(OperatorReportTexts, ReportsAndTypes) { expectRuleCase(GetParam()); }

const char* const NUMERIC_HINT = "Operands must be numeric";

const std::vector<RuleCase> OPERATOR_TEXT_CASES = {
    {"ArithmeticMessagesNameCompositeTypes",
     R"q(class Box<T> { T value; }
enum Color { Red }
fn g(int a): string { return ""; }
fn main(Box<int> b, Map<string, int?>? m) {
    var a = b + 1;
    var c = 1 * m;
    var d = g - g;
    var e = Color % 2;
    var f = [1, null] / 2;
}
)q",
     {{"E1001", "Operator '+' cannot be applied to types 'Box<int>' and 'int'", NUMERIC_HINT, 5, "+"},
      {"E1001", "Operator '*' cannot be applied to types 'int' and 'Map<string, int?>?'", NUMERIC_HINT, 6, "*"},
      {"E1001", "Operator '-' cannot be applied to types 'fn(int) -> string' and 'fn(int) -> string'",
       NUMERIC_HINT, 7, "-"},
      {"E1001", "Operator '%' cannot be applied to types 'Color' and 'int'", NUMERIC_HINT, 8, "%"},
      {"E1001", "Operator '/' cannot be applied to types 'int?[]' and 'int'", NUMERIC_HINT, 9, "/"}},
     {{"a", "<type-error>"}, {"c", "<type-error>"}, {"d", "<type-error>"}, {"e", "<type-error>"},
      {"f", "<type-error>"}}},
    {"ComparisonLogicalBitwiseAndRangeMessagesNameCompositeTypes",
     R"q(class Box<T> { T value; }
fn main(Box<int> b, Box<string> s, List<int> l, string[]? names) {
    var a = b == s;
    var c = l < 1;
    var d = names && true;
    var e = b | 1;
    var f = l .. 2;
}
)q",
     {{"E1001", "Cannot compare incompatible types 'Box<int>' and 'Box<string>'", "", 3, "=="},
      {"E1001", "Comparison operator '<' cannot be applied to types 'List<int>' and 'int'",
       "Both operands must be numeric", 4, "<"},
      {"E1001", "Logical operator '&&' requires boolean operands, got 'string[]?' and 'bool'", "", 5, "&&"},
      {"E1001", "Bitwise operator requires integer operands, got 'Box<int>' and 'int'", "", 6, "|"},
      {"E1001", "Range operator '..' requires integer operands, got 'List<int>' and 'int'", "", 7, ".."}},
     {{"a", "<type-error>"}, {"c", "<type-error>"}, {"d", "<type-error>"}, {"e", "<type-error>"},
      {"f", "<type-error>"}}},
    {"UnaryAndTernaryMessagesNameCompositeTypes",
     R"q(fn g(): bool? { return null; }
fn main(Map<string, bool> flags, bool[] bs) {
    var a = -flags;
    var b = !g();
    var c = ~bs;
    var d = g++;
    var e = flags.get("x") ? 1 : 2;
}
)q",
     {{"E1001", "Unary operator '-' requires numeric operand, got 'Map<string, bool>'", "", 3, "-"},
      {"E1001", "Logical negation '!' requires boolean operand, got 'bool?'", "", 4, "!"},
      {"E1001", "Bitwise NOT '~' requires integer operand, got 'bool[]'", "", 5, "~"},
      {"E1001", "Increment/decrement operator requires numeric operand, got 'fn() -> bool?'", "", 6, "++"},
      {"E1001", "Ternary condition must be of type bool, got 'bool?'", "", 7, "?"}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}, {"c", "<type-error>"}, {"d", "<type-error>"},
      {"e", "int"}}},
    {"CoalesceIsTheCommonTypeWhateverTheLeftSide",
     R"q(fn main(int? x, string? s, uint8? u) {
    var a = null ?? 1;
    var b = x ?? "s";
    var c = s ?? null;
    var d = u ?? 300;
    var e = x ?? x;
}
)q",
     {},
     {{"a", "int?"}, {"b", "any"}, {"c", "string?"}, {"d", "int"}, {"e", "int?"}}},
    {"EqualityAcrossEnumsNullsAndFunctions",
     R"q(enum Color { Red }
fn g() {}
fn main(Color c, int? x, string s) {
    var a = c == 1;
    var b = 1 == c;
    var d = s == null;
    var e = g == g;
    var f = x == c;
    var h = null == s;
}
)q",
     {{"E1001", "Cannot compare incompatible types 'string' and 'null'", "", 6, "=="},
      {"E1001", "Cannot compare incompatible types 'null' and 'string'", "", 9, "=="}},
     {{"a", "bool"}, {"b", "bool"}, {"d", "<type-error>"}, {"e", "bool"}, {"f", "bool"},
      {"h", "<type-error>"}}},
    {"NestedOperatorsReportInnermostFirstAndSilenceTheirParents",
     R"q(fn main(bool flag) {
    var a = -(flag + 1) * ~nope - !(2 < "x");
}
)q",
     {{"E1001", "Operator '+' cannot be applied to types 'bool' and 'int'", NUMERIC_HINT, 2, "+"},
      {"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 2, "nope"},
      {"E1001", "Comparison operator '<' cannot be applied to types 'int' and 'string'",
       "Both operands must be numeric", 2, "<"}},
     {{"a", "<type-error>"}}},
    {"BrokenConditionThenEachBranchReportsInOrder",
     R"q(fn main() {
    var a = (1 - true) ? nope : "s" - 1;
}
)q",
     {{"E1001", "Operator '-' cannot be applied to types 'int' and 'bool'", NUMERIC_HINT, 2, "-", 1},
      {"E1001", "Ternary condition must be of type bool, got '<type-error>'", "", 2, "?"},
      {"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 2, "nope"},
      {"E1001", "Operator '-' cannot be applied to types 'string' and 'int'", NUMERIC_HINT, 2, "-", 2}},
     {{"a", "<type-error>"}}},
    {"ConcatenationAbsorbsEveryOperandButTheErrorType",
     R"q(fn v() {}
enum Color { Red }
fn main(int? x, Map<string, int> m) {
    var a = "a" + v + m + x + Color + [null] + (y => y);
    var b = "a" + nope + 1;
    var c = 1 + 2 - "a";
}
)q",
     {{"E1002", "Undefined variable or symbol 'nope'", "Ensure the variable is declared before use", 5, "nope"},
      {"E1001", "Operator '-' cannot be applied to types 'int' and 'string'", NUMERIC_HINT, 6, "-"}},
     {{"a", "string"}, {"b", "<type-error>"}, {"c", "<type-error>"}}},
    {"ReportsStandAtTheirOperatorInAMultiLineExpression",
     R"q(fn main() {
    var a = 1 +
        2 *
        true;
    var b = true
        ? 1
        : "s" < 2;
}
)q",
     {{"E1001", "Operator '*' cannot be applied to types 'int' and 'bool'", NUMERIC_HINT, 3, "*"},
      {"E1001", "Comparison operator '<' cannot be applied to types 'string' and 'int'",
       "Both operands must be numeric", 7, "<"}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}}},
    {"IntegerOperatorsMeetAtTheCommonTypeOfMixedWidths",
     R"q(fn main(uint u, int64 l, uint64 w, int8 i) {
    var a = u << i;
    var b = l >> w;
    var c = w & u;
    var d = (1 + 2)++;
    var e = -w;
    var f = i ^ u;
    var g = w + l;
    var h = u .. w;
}
)q",
     {},
     {{"a", "int"}, {"b", "int64"}, {"c", "uint64"}, {"d", "int"}, {"e", "uint64"}, {"f", "int"},
      {"g", "int64"}, {"h", "int[]"}}},
    {"TypeNamesAndAliasesStandAsValues",
     R"q(class Box<T> { T value; }
fn main() {
    var a = int32;
    var b = byte;
    var c = Box;
    var d = Math;
    var e = List;
    var f = uint32.parse("1") + byte.parse("2");
}
)q",
     {{"E1002", "Undefined variable or symbol 'List'", "Ensure the variable is declared before use", 7, "List"}},
     {{"a", "int"}, {"b", "uint8"}, {"c", "Box"}, {"d", "Math"}, {"e", "<type-error>"}, {"f", "int"}}},
    {"AFieldComesBeforeATypeNameAndALocalBeforeBoth",
     R"q(class Box {}
class A {
    string Math;
    fn m() {
        var a = Math;
        var Box = 1;
        var b = Box;
    }
}
)q",
     {},
     {{"a", "string"}, {"b", "int"}}},
    {"MessagesNameNestedAndMultiArgumentSpecialisations",
     R"q(class Box<T> { T value; }
class Pair<A, B> { A first; B second; }
fn main(Box<Box<int> > bb, Pair<int, string?> p, Map<Box<int>, int[]> m, Set<string> s) {
    var a = bb + 1;
    var b = p < 1;
    var c = -m;
    var d = !s;
    var e = bb == p;
}
)q",
     {{"E1001", "Operator '+' cannot be applied to types 'Box<Box<int>>' and 'int'", NUMERIC_HINT, 4, "+"},
      {"E1001", "Comparison operator '<' cannot be applied to types 'Pair<int, string?>' and 'int'",
       "Both operands must be numeric", 5, "<"},
      {"E1001", "Unary operator '-' requires numeric operand, got 'Map<Box<int>, int[]>'", "", 6, "-"},
      {"E1001", "Logical negation '!' requires boolean operand, got 'Set<string>'", "", 7, "!"},
      {"E1001", "Cannot compare incompatible types 'Box<Box<int>>' and 'Pair<int, string?>'", "", 8, "=="}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}, {"c", "<type-error>"}, {"d", "<type-error>"},
      {"e", "<type-error>"}}},
    {"AnOverloadedNameAsAValueIsItsFirstSignature",
     R"q(fn twice(int a): int { return a; }
fn twice(string a): string { return a; }
fn main() {
    var a = println;
    var b = twice;
    var c = println + 1;
    var d = "p" + println;
}
)q",
     {{"E1001", "Operator '+' cannot be applied to types 'fn(string) -> void' and 'int'", NUMERIC_HINT, 6, "+"}},
     {{"a", "fn(string) -> void"}, {"b", "fn(int) -> int"}, {"c", "<type-error>"}, {"d", "string"}}},
    {"ChainsApplyEachLinkToTheResultOfTheLinkBefore",
     R"q(fn main(int? a, int? b, char k, bool q, uint8 u) {
    var p1 = -1 .. 3;
    var p2 = 1 .. 2 .. 3;
    var p3 = a ?? b ?? 2.5;
    var p4 = u++ + ++u;
    var p5 = !!q;
    var p6 = --k;
    var p7 = ~-u;
    var p8 = 1 < 2 < 3;
    var p9 = 1 == 2 == true;
    var p10 = 1 | 2 == 3;
}
)q",
     {{"E1001", "Range operator '..' requires integer operands, got 'int[]' and 'int'", "", 3, "..", 2},
      {"E1001", "Increment/decrement operator requires numeric operand, got 'char'", "", 7, "--"},
      {"E1001", "Comparison operator '<' cannot be applied to types 'bool' and 'int'",
       "Both operands must be numeric", 9, "<", 2},
      {"E1001", "Bitwise operator requires integer operands, got 'int' and 'bool'", "", 11, "|"}},
     {{"p1", "int[]"}, {"p2", "<type-error>"}, {"p3", "double"}, {"p4", "uint8"}, {"p5", "bool"},
      {"p6", "<type-error>"}, {"p7", "uint8"}, {"p8", "<type-error>"}, {"p9", "bool"}, {"p10", "<type-error>"}}},
    {"ShortFormOperatorReportsComeFirstAndAgainInTheirPlace",
     R"q(fn main() {
    var a = "x" < 1;
    var b = f() + 1;
}
fn f() => 1 - true;
fn g(): int => f() * 2;
)q",
     {{"E1001", "Operator '-' cannot be applied to types 'int' and 'bool'", NUMERIC_HINT, 5, "-"},
      {"E1001", "Comparison operator '<' cannot be applied to types 'string' and 'int'",
       "Both operands must be numeric", 2, "<"},
      {"E1001", "Operator '-' cannot be applied to types 'int' and 'bool'", NUMERIC_HINT, 5, "-"}},
     {{"a", "<type-error>"}, {"b", "<type-error>"}}},
};

INSTANTIATE_TEST_SUITE_P(Operators, OperatorReportTexts, ::testing::ValuesIn(OPERATOR_TEXT_CASES), ruleCaseName);

// An interpolated string is a chain of concatenations whose pieces were
// parsed on their own: a report inside a piece stands where the piece puts
// it, counted from the first byte behind the marker, in no file of the
// document; the operators around the literal stand where they are written.
TEST(OperatorReportPlaces, InsideAnInterpolationTheyCountFromThePiece) {
    const std::string source = R"q(fn main(int n) {
    var a = "n=${n - true} and ${nope}!";
    var b = "${n}" - 1;
    var c = "x${n * 2}" + 1;
}
)q";
    Analysis analysis(source);
    analysis.analyze();
    EXPECT_EQ(analysis.records(),
              (std::vector<std::string>{
                  record("E1001", "Operator '-' cannot be applied to types 'int' and 'bool'", "1:3", NUMERIC_HINT),
                  record("E1002", "Undefined variable or symbol 'nope'", "1:1",
                         "Ensure the variable is declared before use"),
                  record("E1001", "Operator '-' cannot be applied to types 'string' and 'int'", at(source, 3, "-"),
                         NUMERIC_HINT)}));
    const auto& reports = analysis.engine.getDiagnostics();
    ASSERT_EQ(reports.size(), 3u);
    EXPECT_EQ(reports[0].location.file, "<anonymous>");
    EXPECT_EQ(reports[1].location.file, "<anonymous>");
    EXPECT_EQ(reports[2].location.file, TEST_FILE);
    EXPECT_EQ(typeOfInitializer(analysis, "a"), "<type-error>");
    EXPECT_EQ(typeOfInitializer(analysis, "b"), "<type-error>");
    EXPECT_EQ(typeOfInitializer(analysis, "c"), "string");
}

}  // namespace
