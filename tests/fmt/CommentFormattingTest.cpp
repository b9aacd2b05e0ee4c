#include <gtest/gtest.h>

#include "fmt/FormatTestSupport.h"

using quor::fmt::testing::formatSource;

TEST(FormatterComments, SourceOfOnlyCommentsKeepsEachOnItsOwnLine) {
    EXPECT_EQ(formatSource("// a\n   // b\n/// c"), "// a\n// b\n/// c\n");
}

TEST(FormatterComments, CommentsOnOneLineAreSplit) {
    EXPECT_EQ(formatSource("/* a */ /* b */"), "/* a */\n/* b */\n");
}

TEST(FormatterComments, TrailingCommentStaysOnItsLine) {
    EXPECT_EQ(formatSource("f(a, // note\nb);"), "f(a, // note\nb);\n");
    EXPECT_EQ(formatSource("x = 1 // one\n;"), "x = 1 // one\n;\n");
}

TEST(FormatterComments, CommentAfterSemicolonMovesToItsOwnLine) {
    EXPECT_EQ(formatSource("x;  // c"), "x;\n// c\n");
}

TEST(FormatterComments, CommentInsideBlockIsIndented) {
    EXPECT_EQ(formatSource("{\n// c\nx;\n}"), "{\n    // c\n    x;\n}\n");
}

TEST(FormatterComments, CommentBehindOpeningBraceGoesToTheNextLine) {
    EXPECT_EQ(formatSource("if (a) { // c\nb;\n}"), "if (a) {\n    // c\n    b;\n}\n");
}

TEST(FormatterComments, BlockCommentInnerLinesAreWrittenAsTheyStand) {
    EXPECT_EQ(formatSource("{\n/* a\n   b */ x;\n}"), "{\n    /* a\n   b */\n    x;\n}\n");
}

TEST(FormatterComments, WhatFollowsACommentStartsANewLine) {
    EXPECT_EQ(formatSource("a /* c */ b"), "a /* c */\nb\n");
}

TEST(FormatterComments, SemicolonAfterCommentLandsAtLineStartWithoutIndent) {
    EXPECT_EQ(formatSource("// c\n;"), "// c\n;\n");
    EXPECT_EQ(formatSource("{\nx // c\n;\n}"), "{\n    x // c\n;\n}\n");
}

TEST(FormatterComments, DocCommentAboveDeclaration) {
    EXPECT_EQ(formatSource("/// Adds.\nfn add(a:int,b:int):int{return a+b;}"),
              "/// Adds.\nfn add(a: int, b: int): int {\n    return a + b;\n}\n");
}

TEST(FormatterComments, CommentBetweenBraceAndElseSplitsThem) {
    EXPECT_EQ(formatSource("if (a) {} /* c */ else {}"), "if (a) {\n}\n/* c */\nelse {\n}\n");
}

TEST(FormatterComments, CommentAfterASpaceGetsNoSecondSpace) {
    // Inside a for header ";" leaves a space behind it.
    EXPECT_EQ(formatSource("for(a; // c\nb)"), "for (a; // c\nb)\n");
}

TEST(FormatterComments, CarriageReturnBeforeLineFeedStaysInALineComment) {
    // The comment runs up to the line feed, so the carriage return is part of
    // its text and is written back; the one behind `x;` is white space.
    EXPECT_EQ(formatSource("// c\r\nx;\r\n/// d\r\n"), "// c\r\nx;\n/// d\r\n");
}

TEST(FormatterComments, BlockCommentKeepsItsCarriageReturns) {
    EXPECT_EQ(formatSource("/* a\r\n b */\r\nx;"), "/* a\r\n b */\n\nx;\n");
}
