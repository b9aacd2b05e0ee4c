#include <gtest/gtest.h>

#include "fmt/FormatTestSupport.h"

using quor::fmt::testing::formatSource;

// The line-start flag is cleared by writing an indent, even an empty one, and
// set only by line feeds the formatter itself writes. An empty string literal
// at the start of a line leaves the output ending in a line feed with the flag
// cleared; these tests pin what each action does then.

TEST(FormatterLineStart, CommentAfterEmptyStringAtLineStartTakesASpace) {
    // A comment only looks for a space before it, not for a line feed.
    EXPECT_EQ(formatSource("a;\n\"\" // c"), "a;\n // c\n");
}

TEST(FormatterLineStart, ClosingBraceAfterEmptyStringAtLineStartAddsALineFeed) {
    EXPECT_EQ(formatSource("a;\n\"\"}"), "a;\n\n}\n");
}

TEST(FormatterLineStart, OpeningBraceAfterALineFeedTakesNoSpace) {
    EXPECT_EQ(formatSource("a;\n\"\"{"), "a;\n{\n");
}

TEST(FormatterLineStart, OperatorAfterALineFeedTakesNoSpace) {
    EXPECT_EQ(formatSource("a;\n\"\" + b"), "a;\n+ b\n");
}

TEST(FormatterLineStart, EmptyStringAloneGivesEmptyText) { EXPECT_EQ(formatSource("\"\""), ""); }

TEST(FormatterLineStart, SemicolonInForModeLeavesTheLineStartSet) {
    // The ";" behind the comment starts the line without an indent and keeps
    // the line-start flag, so the next token writes the indent behind "; ".
    EXPECT_EQ(formatSource("{for(a; // c\n;b)}"), "{\n    for (a; // c\n;     b)\n}\n");
}

TEST(FormatterLineStart, OpeningParenAfterControlKeywordAlwaysTakesASpace) {
    EXPECT_EQ(formatSource("while(x)"), "while (x)\n");
    EXPECT_EQ(formatSource("switch(x)"), "switch (x)\n");
    EXPECT_EQ(formatSource("match(x)"), "match (x)\n");
    EXPECT_EQ(formatSource("try{}catch(e){}"), "try {\n} catch (e) {\n}\n");
}

TEST(FormatterLineStart, OpeningParenAfterOtherKeywordsSpacedByTheKeywordRule) {
    EXPECT_EQ(formatSource("fn(x)"), "fn (x)\n");
    EXPECT_EQ(formatSource("assert(x)"), "assert (x)\n");
}

TEST(FormatterLineStart, OpeningParenAfterAnIdentifierIsTight) { EXPECT_EQ(formatSource("iff(x)"), "iff(x)\n"); }

TEST(FormatterLineStart, ClosingBraceBeforeKeywordOtherThanElseCatchFinallyEndsTheLine) {
    EXPECT_EQ(formatSource("do{x;}while(y);"), "do {\n    x;\n}\nwhile (y);\n");
}

TEST(FormatterLineStart, ClosingBraceBeforeClosingBracketEndsTheLine) {
    EXPECT_EQ(formatSource("[{}]"), "[ {\n}\n]\n");
}

TEST(FormatterLineStart, EmptyStringFirstLeavesTheOutputEmpty) {
    // Nothing is written for the literal, so what follows sees an empty output.
    EXPECT_EQ(formatSource("\"\" // c"), "// c\n");
    EXPECT_EQ(formatSource("\"\"{"), "{\n");
    EXPECT_EQ(formatSource("\"\" + b"), "+ b\n");
    EXPECT_EQ(formatSource("\"\"}"), "\n}\n");
}

TEST(FormatterLineStart, BlankLineInsideAForHeaderKeepsTheSpaceBehindTheSemicolon) {
    EXPECT_EQ(formatSource("for(a;\n\n\nb;c)"), "for (a; \n\nb; c)\n");
}
