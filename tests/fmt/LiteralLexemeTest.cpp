#include <gtest/gtest.h>

#include <string>

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

TEST(FormatterLiterals, NullEscapeIsWrittenAsAZeroByte) {
    EXPECT_EQ(formatSource("c = '\\0';"), std::string("c = \0;\n", 7));
    EXPECT_EQ(formatSource("s = \"a\\0b\";"), std::string("s = a\0b;\n", 9));
}

TEST(FormatterLiterals, UnicodeEscapeIsWrittenAsUtf8) {
    EXPECT_EQ(formatSource("s = \"\\u0041\\u00e9\";"), "s = A\xC3\xA9;\n");
}

TEST(FormatterLiterals, InterpolationTextStaysAsItStands) {
    EXPECT_EQ(formatSource("print(\"n = ${ n + 1 }\");"), "print(n = ${ n + 1 });\n");
}
