#include <gtest/gtest.h>

#include "fmt/FormatTestSupport.h"

using quor::fmt::testing::formatSource;

TEST(FormatterLiterals, StringLiteralIsWrittenAsItsContentWithoutQuotes) {
    EXPECT_EQ(formatSource("print(\"hi\");"), "print(hi);\n");
}

TEST(FormatterLiterals, StringWithSpacesLosesItsQuotes) {
    EXPECT_EQ(formatSource("s = \"a b\";"), "s = a b;\n");
}

TEST(FormatterLiterals, EmptyStringLiteralLeavesNothing) {
    EXPECT_EQ(formatSource("f(\"\");"), "f();\n");
}

TEST(FormatterLiterals, EscapesAreWrittenDecoded) {
    EXPECT_EQ(formatSource("s = \"a\\tb\";"), "s = a\tb;\n");
    EXPECT_EQ(formatSource("s = \"a\\nb\";"), "s = a\nb;\n");
    EXPECT_EQ(formatSource("s = \"\\q\";"), "s = \\q;\n");
}

TEST(FormatterLiterals, CharacterLiteralIsWrittenAsItsContent) {
    EXPECT_EQ(formatSource("c = 'x';"), "c = x;\n");
    EXPECT_EQ(formatSource("c = '\\q';"), "c = q;\n");
}

TEST(FormatterLiterals, NumbersKeepTheirSourceText) {
    EXPECT_EQ(formatSource("n = 1_000+0xFF*2.5e-3f;"), "n = 1_000 + 0xFF * 2.5e-3f;\n");
}

TEST(FormatterLiterals, BooleansAndNullKeepTheirWords) {
    EXPECT_EQ(formatSource("f(true,false,null);"), "f(true, false, null);\n");
}
