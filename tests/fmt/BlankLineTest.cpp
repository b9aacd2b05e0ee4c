#include <gtest/gtest.h>

#include "fmt/FormatTestSupport.h"

using quor::fmt::FormatOptions;
using quor::fmt::testing::formatSource;
using quor::fmt::testing::serverOptions;

namespace {

FormatOptions withMaxBlankLines(int count) {
    FormatOptions options = serverOptions();
    options.maxBlankLines = count;
    return options;
}

}  // namespace

TEST(FormatterBlankLines, ThreeBlankLinesShrinkToOne) {
    EXPECT_EQ(formatSource("a;\n\n\n\nb;"), "a;\n\nb;\n");
}

TEST(FormatterBlankLines, OneBlankLineIsKept) { EXPECT_EQ(formatSource("a;\n\nb;\n"), "a;\n\nb;\n"); }

TEST(FormatterBlankLines, NoBlankLineIsAdded) { EXPECT_EQ(formatSource("a;\nb;\n"), "a;\nb;\n"); }

TEST(FormatterBlankLines, BlankLineDirectlyAfterOpeningBraceIsKept) {
    EXPECT_EQ(formatSource("{\n\n  x;\n}"), "{\n\n    x;\n}\n");
}

TEST(FormatterBlankLines, BlankLineBeforeClosingBraceIsKept) {
    EXPECT_EQ(formatSource("{\nx;\n\n}"), "{\n    x;\n\n}\n");
}

TEST(FormatterBlankLines, MaxBlankLinesTwoKeepsTwo) {
    EXPECT_EQ(formatSource("a;\n\n\n\n\nb;", withMaxBlankLines(2)), "a;\n\n\nb;\n");
    EXPECT_EQ(formatSource("a;\n\nb;", withMaxBlankLines(2)), "a;\n\nb;\n");
}

TEST(FormatterBlankLines, MaxBlankLinesZeroRemovesThem) {
    EXPECT_EQ(formatSource("a;\n\n\n\nb;", withMaxBlankLines(0)), "a;\nb;\n");
}

TEST(FormatterBlankLines, NegativeMaxBlankLinesRemovesThem) {
    EXPECT_EQ(formatSource("a;\n\n\n\nb;", withMaxBlankLines(-3)), "a;\nb;\n");
}

TEST(FormatterBlankLines, GapInsideAnExpressionEndsTheLineFirst) {
    // The line is closed, then the blank line follows, and the next token
    // starts a fresh line.
    EXPECT_EQ(formatSource("a\n\nb"), "a\n\nb\n");
    EXPECT_EQ(formatSource("x = a +\n\n\n b;"), "x = a +\n\nb;\n");
}

TEST(FormatterBlankLines, TokenAfterBlankLineIsIndented) {
    EXPECT_EQ(formatSource("{\nx = 1\n\n+ 2;\n}"), "{\n    x = 1\n\n    + 2;\n}\n");
}

TEST(FormatterBlankLines, BlankLinesBetweenCommentsAreKept) {
    EXPECT_EQ(formatSource("// a\n\n\n// b"), "// a\n\n// b\n");
}

TEST(FormatterBlankLines, GapIsMeasuredFromTheLineWhereABlockCommentStarts) {
    // A block comment is one token whose line is its first line, so the two
    // lines it spans count as a gap before the next token.
    EXPECT_EQ(formatSource("/* a\n   b */\nx;"), "/* a\n   b */\n\nx;\n");
}

TEST(FormatterBlankLines, LeadingBlankLinesAreDropped) { EXPECT_EQ(formatSource("\n\n\nx;"), "x;\n"); }
