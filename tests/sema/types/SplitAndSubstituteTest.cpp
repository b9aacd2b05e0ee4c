#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sema/TypeContext.h"

namespace {

using quor::sema::TypeContext;
using Texts = std::vector<std::string>;

Texts split(const std::string& text) { return TypeContext::splitTypeArgs(text); }

std::string substitute(const std::string& text, const Texts& params, const Texts& args) {
    return TypeContext::substituteType(text, params, args);
}

TEST(SplitTypeArgs, TrimsEachArgumentAndKeepsNestedCommas) {
    EXPECT_EQ(split(" a , Map<b, c> "), (Texts{"a", "Map<b, c>"}));
}

TEST(SplitTypeArgs, EmptySegmentsVanish) {
    EXPECT_EQ(split("a,,b"), (Texts{"a", "b"}));
    EXPECT_EQ(split(", a ,"), (Texts{"a"}));
    EXPECT_EQ(split(""), Texts{});
    EXPECT_EQ(split(" , "), Texts{});
}

TEST(SplitTypeArgs, TheArrowOfAFunctionTextDropsTheDepthBelowZeroSoLaterCommasDoNotSplit) {
    EXPECT_EQ(split("fn(a) -> b, c"), (Texts{"fn(a) -> b, c"}));
    EXPECT_EQ(split("x>, y, z"), (Texts{"x>, y, z"}));
}

TEST(SplitTypeArgs, AnOpeningBracketAfterANegativeDepthBringsItBackToZero) {
    // ">" takes the depth to -1, "<" back to 0, and the next comma splits.
    EXPECT_EQ(split("a>,<b, c"), (Texts{"a>,<b", "c"}));
}

TEST(SplitTypeArgs, AnUnclosedBracketKeepsEveryLaterCommaInside) {
    EXPECT_EQ(split("Map<a, b"), (Texts{"Map<a, b"}));
}

TEST(SplitTypeArgs, RoundAndSquareBracketsAreNotCounted) {
    EXPECT_EQ(split("(a, b)"), (Texts{"(a", "b)"}));
    EXPECT_EQ(split("int[], string?"), (Texts{"int[]", "string?"}));
}

TEST(SplitTypeArgs, TrimsTabsAndLineBreaks) {
    EXPECT_EQ(split("\ta\r\n,\nb "), (Texts{"a", "b"}));
}

TEST(SubstituteType, AWholeTextEqualToAParameterReturnsTheArgument) {
    EXPECT_EQ(substitute("T", {"T"}, {"int"}), "int");
}

TEST(SubstituteType, AParameterWithArrayOrNullableMarkReturnsTheArgumentWithTheMark) {
    EXPECT_EQ(substitute("T[]", {"T"}, {"int"}), "int[]");
    EXPECT_EQ(substitute("T?", {"T"}, {"int"}), "int?");
}

TEST(SubstituteType, OnlyWholeWordsAreReplaced) {
    EXPECT_EQ(substitute("TT", {"T"}, {"int"}), "TT");
    EXPECT_EQ(substitute("List<T>", {"T"}, {"int"}), "List<int>");
    EXPECT_EQ(substitute("T_1", {"T"}, {"int"}), "T_1");
    EXPECT_EQ(substitute("_T", {"T"}, {"int"}), "_T");
    EXPECT_EQ(substitute("T2<T>", {"T"}, {"int"}), "T2<int>");
    EXPECT_EQ(substitute("Map<T, T[]>", {"T"}, {"int"}), "Map<int, int[]>");
    EXPECT_EQ(substitute("T[][]", {"T"}, {"int"}), "int[][]");
}

TEST(SubstituteType, ParametersAreReplacedOneAfterTheOtherInTheSameText) {
    EXPECT_EQ(substitute("K", {"K", "V"}, {"V", "int"}), "V");
    EXPECT_EQ(substitute("Map<K, V>", {"K", "V"}, {"V", "int"}), "Map<int, int>");
}

TEST(SubstituteType, AnEarlyWholeMatchReturnsBeforeLaterParametersAreApplied) {
    EXPECT_EQ(substitute("K[]", {"K", "V"}, {"V", "int"}), "V[]");
    EXPECT_EQ(substitute("K?", {"K", "V"}, {"V", "int"}), "V?");
}

TEST(SubstituteType, AWholeMatchOfALaterParameterSeesTheTextAfterEarlierReplacements) {
    EXPECT_EQ(substitute("K", {"K", "V"}, {"V", "int"}), "V");
    EXPECT_EQ(substitute("List<K>", {"K", "V"}, {"V", "int"}), "List<int>");
}

TEST(SubstituteType, TheScanGoesOnBehindTheInsertedText) {
    EXPECT_EQ(substitute("Map<T, T>", {"T"}, {"List<T>"}), "Map<List<T>, List<T>>");
}

TEST(SubstituteType, OnlyAsManyParametersAsArgumentsAreUsed) {
    EXPECT_EQ(substitute("Map<K, V>", {"K", "V"}, {"string"}), "Map<string, V>");
    EXPECT_EQ(substitute("Map<K, V>", {"K"}, {"string", "int"}), "Map<string, V>");
    EXPECT_EQ(substitute("T", {}, {}), "T");
}

TEST(SubstituteType, NonAsciiBytesAroundAParameterDoNotJoinTheWord) {
    EXPECT_EQ(substitute("\xC3\xA9T", {"T"}, {"int"}), "\xC3\xA9int");
}

TEST(SubstituteType, AnEmptyParameterReplacesNothingAndEnds) {
    EXPECT_EQ(substitute("a", {""}, {"int"}), "a");
    EXPECT_EQ(substitute("<a, b>", {""}, {"int"}), "<a, b>");
    EXPECT_EQ(substitute("", {""}, {"int"}), "int");
}

}  // namespace
