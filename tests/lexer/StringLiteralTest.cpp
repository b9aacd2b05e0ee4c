#include <gtest/gtest.h>

#include <array>
#include <string>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

using testing::bytes;
using testing::isDiagnostic;
using testing::isToken;
using testing::scan;

TEST(LexerStrings, LexemeIsTheTextWithoutQuotesAndLocationIsTheOpeningQuote) {
    auto result = scan("x = \"hello\";");
    ASSERT_EQ(result.tokens.size(), 5u);
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::StringLiteral, "hello", 1, 5));
    EXPECT_TRUE(isToken(result.tokens[3], TokenType::Semicolon, ";", 1, 12));
}

TEST(LexerStrings, EmptyString) {
    auto result = scan("\"\"");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::StringLiteral, "", 1, 1));
}

struct EscapeRow {
    std::string_view source;
    std::string_view value;
};

// Each source is a complete string literal; value is the decoded content.
const std::array<EscapeRow, 12> STRING_ESCAPES = {{
    {"\"\\\"\"", "\""},
    {"\"\\'\"", "'"},
    {"\"\\0\"", std::string_view("\0", 1)},
    {"\"\\\\\"", "\\"},
    {"\"\\n\"", "\n"},
    {"\"\\r\"", "\r"},
    {"\"\\t\"", "\t"},
    {"\"\\q\"", "\\q"},
    {"\"\\$\"", "\\$"},
    {"\"\\{\"", "\\{"},
    {"\"\\N\"", "\\N"},
    {"\"a\\tb\"", "a\tb"},
}};

TEST(LexerStrings, EachEscapeDecodesToItsValue) {
    for (const EscapeRow& row : STRING_ESCAPES) {
        auto result = scan(row.source);
        ASSERT_EQ(result.tokens.size(), 2u) << row.source;
        EXPECT_EQ(result.tokens[0].type, TokenType::StringLiteral) << row.source;
        EXPECT_EQ(result.tokens[0].lexeme, row.value) << row.source;
        EXPECT_TRUE(result.diagnostics.empty()) << row.source;
    }
}

TEST(LexerStrings, UnknownEscapeKeepsBackslashAndByte) {
    auto result = scan("\"\\q\"");
    EXPECT_EQ(result.tokens[0].lexeme.size(), 2u);
    EXPECT_EQ(result.tokens[0].lexeme, "\\q");
}

TEST(LexerStrings, EscapedDollarDoesNotShieldInterpolation) {
    auto result = scan("\"\\${x}\"");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_EQ(result.tokens[0].lexeme, "\\${x}");
}

TEST(LexerStrings, InterpolationTextStaysInTheToken) {
    auto result = scan("\"sum: ${a + b}!\"");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::StringLiteral, "sum: ${a + b}!", 1, 1));
}

TEST(LexerStrings, FirstUnescapedQuoteEndsTheLiteralEvenInsideInterpolation) {
    auto result = scan("\"${f(\"x\")}\"");
    auto kinds = testing::kindsOf(result.tokens);
    ASSERT_GE(kinds.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::StringLiteral, "${f(", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x", 1, 7));
}

TEST(LexerStrings, EscapedQuotesInsideInterpolationAreDecoded) {
    auto result = scan("\"${f(\\\"x\\\")}\"");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_EQ(result.tokens[0].lexeme, "${f(\"x\")}");
}

TEST(LexerStrings, BackslashBeforeLineFeedKeepsBothBytesAndCountsTheLine) {
    auto result = scan("\"a\\\nb\" c");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::StringLiteral, "a\\\nb", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "c", 2, 4));
    EXPECT_TRUE(result.diagnostics.empty());
}

TEST(LexerStrings, OtherBytesAreKeptUnchanged) {
    std::string source = bytes("\"\t\r\x01\0\xC3\xA9\x7F'\"");
    auto result = scan(source);
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_EQ(result.tokens[0].lexeme, bytes("\t\r\x01\0\xC3\xA9\x7F'"));
    EXPECT_TRUE(result.diagnostics.empty());
}

struct UnicodeRow {
    std::string_view source;
    std::string_view value;
};

const std::array<UnicodeRow, 8> UNICODE_ESCAPES = {{
    {"\"\\u0041\"", "A"},
    {"\"\\u0000\"", std::string_view("\0", 1)},
    {"\"\\u007F\"", "\x7F"},
    {"\"\\u0080\"", "\xC2\x80"},
    {"\"\\u00e9\"", "\xC3\xA9"},
    {"\"\\u07FF\"", "\xDF\xBF"},
    {"\"\\u0800\"", "\xE0\xA0\x80"},
    {"\"\\u20AC\"", "\xE2\x82\xAC"},
}};

TEST(LexerStrings, UnicodeEscapeIsWrittenAsUtf8OfOneTwoOrThreeBytes) {
    for (const UnicodeRow& row : UNICODE_ESCAPES) {
        auto result = scan(row.source);
        ASSERT_EQ(result.tokens.size(), 2u) << row.source;
        EXPECT_EQ(result.tokens[0].type, TokenType::StringLiteral) << row.source;
        EXPECT_EQ(result.tokens[0].lexeme, row.value) << row.source;
    }
}

TEST(LexerStrings, HighestCodeUnitIsThreeBytes) {
    auto result = scan("\"\\uFFFF\"");
    EXPECT_EQ(result.tokens[0].lexeme, "\xEF\xBF\xBF");
}

TEST(LexerStrings, SurrogatePairIsEncodedUnitByUnitIntoSixBytes) {
    auto result = scan("\"\\uD83D\\uDE00\"");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_EQ(result.tokens[0].type, TokenType::StringLiteral);
    EXPECT_EQ(result.tokens[0].lexeme.size(), 6u);
    EXPECT_EQ(result.tokens[0].lexeme, "\xED\xA0\xBD\xED\xB8\x80");
}

TEST(LexerStrings, UnicodeEscapeTakesExactlyFourDigits) {
    auto result = scan("\"\\u00411\"");
    EXPECT_EQ(result.tokens[0].lexeme, "A1");
}

TEST(LexerStrings, ShortUnicodeEscapeIsInvalidAndLeavesTheNonHexByteUnread) {
    auto result = scan("\"\\u12G4\"");
    ASSERT_GE(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "\"\\u12", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "G4", 1, 6));
    ASSERT_GE(result.diagnostics.size(), 1u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Invalid unicode escape sequence, expected 4 hex digits",
                             "Example: \\u0041", 1, 1));
}

TEST(LexerStrings, UnicodeEscapeCutByTheEndOfTheSource) {
    auto result = scan("\"\\u00");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "\"\\u00", 1, 1));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_EQ(result.diagnostics[0].message, "Invalid unicode escape sequence, expected 4 hex digits");
}

TEST(LexerStrings, UnicodeEscapeWithNoDigitsAtAll) {
    auto result = scan("x \"\\u\" y");
    ASSERT_GE(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Invalid, "\"\\u", 1, 3));
    ASSERT_GE(result.diagnostics.size(), 1u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Invalid unicode escape sequence, expected 4 hex digits",
                             "Example: \\u0041", 1, 3));
}

TEST(LexerStrings, LineFeedInsideIsAFaultAndTheNextTokenIsOnTheNextLine) {
    auto result = scan("  \"abc\nx");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "\"abc\n", 1, 3));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x", 2, 1));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Unclosed string literal before newline",
                             "Close the string with a double quote '\"'", 1, 3));
}

TEST(LexerStrings, CarriageReturnBeforeTheLineFeedIsPartOfTheFailedToken) {
    auto result = scan("\"a\r\nb");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "\"a\r\n", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "b", 2, 1));
}

TEST(LexerStrings, EndOfSourceBeforeTheClosingQuote) {
    auto result = scan("s = \"abc");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Invalid, "\"abc", 1, 5));
    EXPECT_TRUE(isToken(result.tokens[3], TokenType::EndOfFile, "", 1, 9));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Unclosed string literal at end of file",
                             "Add closing '\"' at end of string", 1, 5));
}

TEST(LexerStrings, LoneOpeningQuoteAtTheEnd) {
    auto result = scan("\"");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "\"", 1, 1));
    EXPECT_EQ(result.diagnostics[0].message, "Unclosed string literal at end of file");
}

TEST(LexerStrings, BackslashAtTheEndOfTheSource) {
    auto result = scan("\"abc\\");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "\"abc\\", 1, 1));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Unfinished escape sequence at end of file", "", 1, 1));
}

TEST(LexerStrings, EachFaultIsReportedOnceAndScanningResumes) {
    auto result = scan("\"a\n\"b\" c");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_EQ(result.tokens[0].type, TokenType::Invalid);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::StringLiteral, "b", 2, 1));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "c", 2, 5));
    EXPECT_EQ(result.diagnostics.size(), 1u);
}

TEST(LexerStrings, SingleQuoteInsideAStringNeedsNoEscape) {
    auto result = scan("\"it's\"");
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::StringLiteral, "it's", 1, 1));
}

}  // namespace
}  // namespace quor::lexer
