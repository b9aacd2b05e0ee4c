#include <gtest/gtest.h>

#include "fmt/FormatTestSupport.h"

using quor::fmt::Formatter;
using quor::fmt::testing::formatSource;
using quor::fmt::testing::serverOptions;

TEST(FormatterSetup, EmptySourceGivesEmptyResult) { EXPECT_EQ(formatSource(""), ""); }

TEST(FormatterSetup, WhitespaceOnlySourceGivesEmptyResult) {
    EXPECT_EQ(formatSource("   \n\n\t \r\n"), "");
}

TEST(FormatterSetup, ResultAlwaysEndsWithOneLineFeed) {
    EXPECT_EQ(formatSource("a"), "a\n");
    EXPECT_EQ(formatSource("a;"), "a;\n");
    EXPECT_EQ(formatSource("a;\n\n\n"), "a;\n");
}

TEST(FormatterSetup, SourceWhitespaceIsNotKept) {
    EXPECT_EQ(formatSource("   x    =\n  1  ;"), "x = 1;\n");
    EXPECT_EQ(formatSource("x\r\n=\r\n1;"), "x = 1;\n");
}

TEST(FormatterSetup, UnexpectedCharacterReturnsSourceUnchanged) {
    EXPECT_EQ(formatSource("a   =  #;"), "a   =  #;");
    EXPECT_EQ(formatSource("x=1;$"), "x=1;$");
}

TEST(FormatterSetup, UnclosedStringReturnsSourceUnchanged) {
    EXPECT_EQ(formatSource("print(\"hi);\n  x=1;"), "print(\"hi);\n  x=1;");
}

TEST(FormatterSetup, UnclosedBlockCommentReturnsSourceUnchanged) {
    EXPECT_EQ(formatSource("x=1;\n/* never closed"), "x=1;\n/* never closed");
}

TEST(FormatterSetup, BadNumberReturnsSourceUnchanged) {
    EXPECT_EQ(formatSource("x  =  0x;"), "x  =  0x;");
    EXPECT_EQ(formatSource("y=1e;"), "y=1e;");
}

TEST(FormatterSetup, EmptyCharacterLiteralReturnsSourceUnchanged) {
    EXPECT_EQ(formatSource("c='' ;"), "c='' ;");
}

TEST(FormatterSetup, NonAsciiOutsideStringsReturnsSourceUnchanged) {
    const std::string source = "x = \xC3\xA9;";
    EXPECT_EQ(formatSource(source), source);
}

TEST(FormatterIsFormatted, TextWithoutFinalLineFeedIsNotFormatted) {
    Formatter formatter(serverOptions());
    EXPECT_FALSE(formatter.isFormatted("a"));
    EXPECT_TRUE(formatter.isFormatted("a\n"));
}

TEST(FormatterIsFormatted, ComparesWholeOutputByteForByte) {
    Formatter formatter(serverOptions());
    EXPECT_TRUE(formatter.isFormatted("x = 1;\n"));
    EXPECT_FALSE(formatter.isFormatted("x=1;\n"));
    EXPECT_FALSE(formatter.isFormatted("x = 1;\n\n"));
    EXPECT_TRUE(formatter.isFormatted("if (a) {\n    b();\n} else {\n    c();\n}\n"));
}

TEST(FormatterIsFormatted, EmptyTextIsFormatted) {
    EXPECT_TRUE(Formatter(serverOptions()).isFormatted(""));
}

TEST(FormatterIsFormatted, TextTheScannerRejectsCountsAsFormatted) {
    // It comes back unchanged, so it equals itself.
    EXPECT_TRUE(Formatter(serverOptions()).isFormatted("a  =  #"));
}

TEST(FormatterIsFormatted, WhitespaceOnlyTextIsNotFormatted) {
    EXPECT_FALSE(Formatter(serverOptions()).isFormatted("\n"));
}

TEST(FormatterSetup, UnclosedCharacterLiteralReturnsSourceUnchanged) {
    EXPECT_EQ(formatSource("c =  'ab';"), "c =  'ab';");
}

TEST(FormatterSetup, BadUnicodeEscapeReturnsSourceUnchanged) {
    EXPECT_EQ(formatSource("s =  \"\\u12\";"), "s =  \"\\u12\";");
}

TEST(FormatterSetup, StringBrokenByLineFeedReturnsSourceUnchanged) {
    EXPECT_EQ(formatSource("s = \"a\nb\";\n"), "s = \"a\nb\";\n");
}
