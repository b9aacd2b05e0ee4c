#include <gtest/gtest.h>

#include "doc/DocBlock.h"
#include "doc/DocGenerator.h"

using quor::doc::DocGenerator;
using quor::doc::parseDocBlock;
using quor::doc::RawDocBlock;
using quor::doc::trim;

TEST(DocTrim, RemovesSpacesTabsLineFeedsAndCarriageReturnsAtBothEnds) {
    EXPECT_EQ(trim(" \t\r\nabc d\n\r\t "), "abc d");
    EXPECT_EQ(trim("x"), "x");
}

TEST(DocTrim, BlankTextBecomesEmpty) {
    EXPECT_EQ(trim(" \t\r\n"), "");
    EXPECT_EQ(trim(""), "");
}

TEST(DocTrim, KeepsOtherWhitespaceLikeBytes) { EXPECT_EQ(trim("\vx\f"), "\vx\f"); }

TEST(DocBlockParse, StoresRawTextAndLines) {
    RawDocBlock block = parseDocBlock("/// a\n", 3, 7);
    EXPECT_EQ(block.raw, "/// a\n");
    EXPECT_EQ(block.startLine, 3);
    EXPECT_EQ(block.endLine, 7);
    EXPECT_FALSE(block.used);
}

TEST(DocBlockParse, TripleSlashLinesLoseMarkerAndOneSpace) {
    RawDocBlock block = parseDocBlock("/// First line\n///   indented\n///no space\n", 1, 3);
    EXPECT_EQ(block.description, "First line\n  indented\nno space");
}

TEST(DocBlockParse, OneLineBlockCommentGivesItsText) {
    EXPECT_EQ(parseDocBlock("/** Text */\n", 1, 1).description, "Text");
}

TEST(DocBlockParse, StarLinesInsideBlockCommentLoseTheStar) {
    RawDocBlock block = parseDocBlock("/**\n * Text\n *  more\n */\n", 1, 1);
    EXPECT_EQ(block.description, "Text\n more");
}

TEST(DocBlockParse, ClosingMarkerLineIsSkipped) {
    RawDocBlock block = parseDocBlock("/** A\n   */\n/// B\n", 1, 3);
    EXPECT_EQ(block.description, "A\nB");
}

TEST(DocBlockParse, TextBehindLastClosingMarkerIsDropped) {
    EXPECT_EQ(parseDocBlock("/** a */ b */ c\n", 1, 1).description, "a */ b");
}

TEST(DocBlockParse, OtherLinesKeepTheirIndentation) {
    RawDocBlock block = parseDocBlock("/// head\n    code here\n", 1, 2);
    EXPECT_EQ(block.description, "head\n    code here");
}

TEST(DocBlockParse, PlainLineCommentStaysWithItsSlashes) {
    EXPECT_EQ(parseDocBlock("/// doc\n// plain\n", 1, 2).description, "doc\n// plain");
}

TEST(DocBlockParse, OneTrailingCarriageReturnIsRemoved) {
    EXPECT_EQ(parseDocBlock("/// a\r\n/// b\r\n", 1, 2).description, "a\nb");
}

TEST(DocBlockParse, ParamTagNamesParameterAndTakesTrimmedText) {
    RawDocBlock block = parseDocBlock("/// Adds.\n/// @param a   the first  \n/// @param\tb second\n", 1, 3);
    ASSERT_EQ(block.params.size(), 2u);
    EXPECT_EQ(block.params.at("a"), "the first");
    EXPECT_EQ(block.params.at("b"), "second");
    EXPECT_EQ(block.description, "Adds.");
}

TEST(DocBlockParse, ParamTagWithOnlyNameHasEmptyText) {
    RawDocBlock block = parseDocBlock("/// @param x\n", 1, 1);
    ASSERT_EQ(block.params.count("x"), 1u);
    EXPECT_EQ(block.params.at("x"), "");
}

TEST(DocBlockParse, ParamTagWithoutNameAddsNothing) {
    RawDocBlock block = parseDocBlock("/// @param   \n/// text\n", 1, 2);
    EXPECT_TRUE(block.params.empty());
    EXPECT_EQ(block.description, "text");
}

TEST(DocBlockParse, LaterParamOfSameNameReplacesEarlier) {
    RawDocBlock block = parseDocBlock("/// @param a one\n/// @param a two\n", 1, 2);
    EXPECT_EQ(block.params.at("a"), "two");
}

TEST(DocBlockParse, ParamPrefixNeedsNoSpace) {
    RawDocBlock block = parseDocBlock("/// @paramfoo bar\n", 1, 1);
    EXPECT_EQ(block.params.at("foo"), "bar");
}

TEST(DocBlockParse, ReturnAndReturnsFillReturnsAndLaterWins) {
    EXPECT_EQ(parseDocBlock("/// @return the sum\n", 1, 1).returns, "the sum");
    EXPECT_EQ(parseDocBlock("/// @returns  the total \n", 1, 1).returns, "the total");
    EXPECT_EQ(parseDocBlock("/// @return one\n/// @returns two\n", 1, 2).returns, "two");
}

TEST(DocBlockParse, ReturnsPrefixNeedsNoSpace) {
    EXPECT_EQ(parseDocBlock("/// @returnsvalue\n", 1, 1).returns, "value");
    EXPECT_EQ(parseDocBlock("/// @returnvalue\n", 1, 1).returns, "value");
}

TEST(DocBlockParse, UnknownTagIsPlainDescription) {
    RawDocBlock block = parseDocBlock("/// @throws Error\n/// @see other\n", 1, 2);
    EXPECT_EQ(block.description, "@throws Error\n@see other");
}

TEST(DocBlockParse, TagsInsideBlockCommentAreRead) {
    RawDocBlock block = parseDocBlock("/**\n * Sum.\n * @param a left\n * @return total\n */\n", 1, 1);
    EXPECT_EQ(block.description, "Sum.");
    EXPECT_EQ(block.params.at("a"), "left");
    EXPECT_EQ(block.returns, "total");
}

TEST(DocBlockParse, BriefIsFirstLineOfTwoParagraphs) {
    RawDocBlock block = parseDocBlock("/// First paragraph\n/// goes on.\n///\n/// Second one.\n", 1, 4);
    EXPECT_EQ(block.description, "First paragraph\ngoes on.\n\nSecond one.");
    EXPECT_EQ(block.brief, "First paragraph");
}

TEST(DocBlockParse, LeadingBlankLinesAreTrimmedFromDescription) {
    RawDocBlock block = parseDocBlock("///\n///\n///   Text\n", 1, 3);
    EXPECT_EQ(block.description, "Text");
    EXPECT_EQ(block.brief, "Text");
}

TEST(DocCleanComment, ReturnsTheCleanedDescription) {
    EXPECT_EQ(DocGenerator::cleanDocComment("/// Hello\n/// @param a x\n/// world"), "Hello\nworld");
    EXPECT_EQ(DocGenerator::cleanDocComment("/** Text */"), "Text");
    EXPECT_EQ(DocGenerator::cleanDocComment(""), "");
}

TEST(DocExtractBrief, FirstNonBlankLineTrimmed) {
    EXPECT_EQ(DocGenerator::extractBrief("\n  \n\t first line \nsecond"), "first line");
    EXPECT_EQ(DocGenerator::extractBrief("only"), "only");
}

TEST(DocExtractBrief, BlankTextGivesEmpty) {
    EXPECT_EQ(DocGenerator::extractBrief(""), "");
    EXPECT_EQ(DocGenerator::extractBrief(" \n\r\n\t"), "");
}
