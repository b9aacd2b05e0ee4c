#include <gtest/gtest.h>

#include "fmt/FormatTestSupport.h"

using quor::fmt::FormatOptions;
using quor::fmt::testing::formatSource;
using quor::fmt::testing::serverOptions;

namespace {

FormatOptions tightOperators() {
    FormatOptions options = serverOptions();
    options.spaceAroundOperators = false;
    return options;
}

}  // namespace

// Rule 1: closers and separators never take a space in front.
TEST(FormatterSpacing, ClosersAndSeparatorsHugThePreviousToken) {
    EXPECT_EQ(formatSource("f( a , b )"), "f(a, b)\n");
    EXPECT_EQ(formatSource("a [ 0 ]"), "a[0]\n");
}

TEST(FormatterSpacing, ClosersHugEvenAKeyword) {
    EXPECT_EQ(formatSource("f(null)"), "f(null)\n");
    EXPECT_EQ(formatSource("a[this]"), "a[this]\n");
    EXPECT_EQ(formatSource("f(null, 1)"), "f(null, 1)\n");
}

TEST(FormatterSpacing, ClosersHugAnOperator) { EXPECT_EQ(formatSource("f(a+)"), "f(a +)\n"); }

// Rule 2: a colon behind a name or ")" hugs it.
TEST(FormatterSpacing, ColonHugsIdentifierAndClosingParen) {
    EXPECT_EQ(formatSource("x : int"), "x: int\n");
    EXPECT_EQ(formatSource("fn f() : int"), "fn f(): int\n");
}

TEST(FormatterSpacing, ColonAfterKeywordTakesASpace) { EXPECT_EQ(formatSource("default:"), "default :\n"); }

TEST(FormatterSpacing, ColonAfterLiteralHugsIt) { EXPECT_EQ(formatSource("case 1 :"), "case 1:\n"); }

TEST(FormatterSpacing, ConditionalColonHugsTheMiddleOperand) {
    EXPECT_EQ(formatSource("a?b:c"), "a ? b: c\n");
}

// Rule 3: the operand of a prefix operator hugs it, whatever it is.
TEST(FormatterSpacing, OperandAfterPrefixHugsIt) {
    EXPECT_EQ(formatSource("x = -(y)"), "x = -(y)\n");
    EXPECT_EQ(formatSource("x = !super"), "x = !super\n");
}

// Rule 4: a prefix behind a two-operand operator or a keyword takes a space.
TEST(FormatterSpacing, PrefixBehindOperatorOrKeywordIsSpaced) {
    EXPECT_EQ(formatSource("a<-b"), "a < -b\n");
    EXPECT_EQ(formatSource("return~b"), "return ~b\n");
}

TEST(FormatterSpacing, PrefixBehindOperatorIsSpacedEvenWithTightOperators) {
    EXPECT_EQ(formatSource("a=-b", tightOperators()), "a= -b\n");
}

// Rule 5: any other prefix hugs what stands before it.
TEST(FormatterSpacing, OtherPrefixesHugTheirPredecessor) {
    EXPECT_EQ(formatSource("f(a, -b)"), "f(a,-b)\n");
    EXPECT_EQ(formatSource("x: -1"), "x:-1\n");
    EXPECT_EQ(formatSource("[ !a]"), "[!a]\n");
}

// Rule 6: behind a comma, as spaceAfterComma says.
TEST(FormatterSpacing, SpaceAfterCommaFollowsTheOption) {
    FormatOptions options = serverOptions();
    EXPECT_EQ(formatSource("f(a,b)", options), "f(a, b)\n");
    options.spaceAfterComma = false;
    EXPECT_EQ(formatSource("f(a, b)", options), "f(a,b)\n");
    // The option also wins over the keyword rule further down.
    EXPECT_EQ(formatSource("f(a, null)", options), "f(a,null)\n");
}

// Rule 7: behind a colon, as spaceAfterColon says.
TEST(FormatterSpacing, SpaceAfterColonFollowsTheOption) {
    FormatOptions options = serverOptions();
    EXPECT_EQ(formatSource("x:int", options), "x: int\n");
    options.spaceAfterColon = false;
    EXPECT_EQ(formatSource("x: int", options), "x:int\n");
    EXPECT_EQ(formatSource("a ? b : c", options), "a ? b:c\n");
}

// Rule 8: behind a keyword.
TEST(FormatterSpacing, KeywordIsFollowedByASpace) {
    EXPECT_EQ(formatSource("super(x)"), "super (x)\n");
    EXPECT_EQ(formatSource("this.x"), "this .x\n");
    EXPECT_EQ(formatSource("return(x)"), "return (x)\n");
    EXPECT_EQ(formatSource("new Foo()"), "new Foo()\n");
    EXPECT_EQ(formatSource("var a:int[]"), "var a: int []\n");
}

TEST(FormatterSpacing, AtSignCountsAsKeyword) { EXPECT_EQ(formatSource("@Foo"), "@ Foo\n"); }

TEST(FormatterSpacing, KeywordSpaceDoesNotDependOnOperatorOption) {
    EXPECT_EQ(formatSource("return(x)", tightOperators()), "return (x)\n");
}

TEST(FormatterSpacing, GenericBracketsAreSpacedAsComparisons) {
    EXPECT_EQ(formatSource("List<int>"), "List < int >\n");
}

// Rule 9: in front of a two-operand operator.
TEST(FormatterSpacing, BinaryOperatorsAreSpaced) {
    EXPECT_EQ(formatSource("a+b*c-d/e%f"), "a + b * c - d / e % f\n");
    EXPECT_EQ(formatSource("a==b!=c<d>e<=f>=g"), "a == b != c < d > e <= f >= g\n");
    EXPECT_EQ(formatSource("a&&b||c&d|e^f<<g>>h"), "a && b || c & d | e ^ f << g >> h\n");
    EXPECT_EQ(formatSource("a=b;a+=b;a-=b;a*=b;a/=b;a%=b;"),
              "a = b;\na += b;\na -= b;\na *= b;\na /= b;\na %= b;\n");
    EXPECT_EQ(formatSource("a->b=>c??d"), "a -> b => c ?? d\n");
}

TEST(FormatterSpacing, BinaryOperatorsAreTightWhenTheOptionIsOff) {
    EXPECT_EQ(formatSource("a + b * c", tightOperators()), "a+b*c\n");
    EXPECT_EQ(formatSource("x = y", tightOperators()), "x=y\n");
}

// Rule 10: behind a two-operand operator.
TEST(FormatterSpacing, TokenBehindBinaryOperatorIsSpaced) {
    EXPECT_EQ(formatSource("a+(b)"), "a + (b)\n");
    EXPECT_EQ(formatSource("a+[b]"), "a + [b]\n");
}

// Rule 11: around "?".
TEST(FormatterSpacing, QuestionMarkIsSpacedOnBothSides) {
    EXPECT_EQ(formatSource("a?b"), "a ? b\n");
    EXPECT_EQ(formatSource("a?b", tightOperators()), "a ? b\n");
    EXPECT_EQ(formatSource("x?"), "x ?\n");
}

TEST(FormatterSpacing, NullableTypeMarkAfterTypeKeyword) { EXPECT_EQ(formatSource("int?"), "int ?\n"); }

// Rule 12: behind ")" or "]".
TEST(FormatterSpacing, TokenBehindClosingParenOrBracketIsSpaced) {
    EXPECT_EQ(formatSource("foo()()"), "foo() ()\n");
    EXPECT_EQ(formatSource("foo()[0]"), "foo() [0]\n");
    EXPECT_EQ(formatSource("a[0](x)"), "a[0] (x)\n");
    EXPECT_EQ(formatSource("(a)b"), "(a) b\n");
}

TEST(FormatterSpacing, MemberAccessAndIndexCloserStayTightBehindClosers) {
    EXPECT_EQ(formatSource("f().x"), "f().x\n");
    EXPECT_EQ(formatSource("f()?.x"), "f()?.x\n");
    EXPECT_EQ(formatSource("a[b[0]]"), "a[b[0]]\n");
}

TEST(FormatterSpacing, OperatorBehindCloserIsSpacedEvenWithTightOperators) {
    EXPECT_EQ(formatSource("f()+1", tightOperators()), "f() +1\n");
    EXPECT_EQ(formatSource("a[0]..b", tightOperators()), "a[0] ..b\n");
}

// Rule 13: everything else is tight.
TEST(FormatterSpacing, MemberAccessAndRangesAreTight) {
    EXPECT_EQ(formatSource("a . b"), "a.b\n");
    EXPECT_EQ(formatSource("a ?. b"), "a?.b\n");
    EXPECT_EQ(formatSource("1 .. 2"), "1..2\n");
}

TEST(FormatterSpacing, NeighbouringNonOperatorsAreJoined) {
    EXPECT_EQ(formatSource("class Foo extends Bar"), "class Fooextends Bar\n");
    EXPECT_EQ(formatSource("for item in items"), "for iteminitems\n");
    EXPECT_EQ(formatSource("a b c"), "abc\n");
}

TEST(FormatterSpacing, UnspacedOperatorsStayTight) {
    EXPECT_EQ(formatSource("a ++ b"), "a++b\n");
    EXPECT_EQ(formatSource("x = a ! b"), "x = a!b\n");
}
