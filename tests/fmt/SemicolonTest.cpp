#include <gtest/gtest.h>

#include "fmt/FormatTestSupport.h"

using quor::fmt::testing::formatSource;

TEST(FormatterSemicolons, SemicolonEndsTheLine) { EXPECT_EQ(formatSource("a;b;c;"), "a;\nb;\nc;\n"); }

TEST(FormatterSemicolons, SemicolonInsideParenthesesWithoutForEndsTheLine) {
    EXPECT_EQ(formatSource("f(a;b);"), "f(a;\nb);\n");
}

TEST(FormatterSemicolons, ForHeaderKeepsItsSemicolonsOnOneLine) {
    EXPECT_EQ(formatSource("for(i=0;i<n;i++){x();}"), "for (i = 0; i < n; i++) {\n    x();\n}\n");
}

TEST(FormatterSemicolons, EmptyForHeader) {
    EXPECT_EQ(formatSource("for(;;){}"), "for (; ; ) {\n}\n");
}

TEST(FormatterSemicolons, ForMarkerOutlivesATopLevelForHeader) {
    // Closing the header at depth 0 does not clear the marker, so every later
    // ";" inside parentheses is followed by a space.
    EXPECT_EQ(formatSource("for(;;){}f(a;b);"), "for (; ; ) {\n}\nf(a; b);\n");
}

TEST(FormatterSemicolons, SemicolonOutsideParenthesesStillEndsTheLineAfterFor) {
    EXPECT_EQ(formatSource("for(;;){}a;b;"), "for (; ; ) {\n}\na;\nb;\n");
}

TEST(FormatterSemicolons, ForMarkerIsClearedWhenClosingAtItsOwnDepth) {
    // The `for` inside one parenthesis sets the marker to 1; the closing
    // parenthesis of the outer pair finds depth 1 and clears it.
    EXPECT_EQ(formatSource("(for(a;b);c;d);f(x;y);"), "(for (a; b); c; d);\nf(x;\ny);\n");
}

TEST(FormatterSemicolons, SemicolonWritesNoIndent) {
    EXPECT_EQ(formatSource("{\nx;\n// c\n;\n}"), "{\n    x;\n    // c\n;\n}\n");
}

TEST(FormatterSemicolons, LoneSemicolons) { EXPECT_EQ(formatSource(";;"), ";\n;\n"); }

TEST(FormatterSemicolons, StrayClosingParenthesisDoesNotUnderflowTheDepth) {
    // Were the depth to drop below zero, the ";" inside the call would be
    // taken as outside any parentheses and end the line.
    EXPECT_EQ(formatSource("for(;;){})f(a;b);"), "for (; ; ) {\n}) f(a; b);\n");
}
