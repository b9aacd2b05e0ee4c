#include <gtest/gtest.h>

#include <array>
#include <string>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

using testing::isDiagnostic;
using testing::isToken;
using testing::scan;

TEST(LexerChars, PlainCharacterLiteral) {
    auto result = scan("c = 'a';");
    ASSERT_EQ(result.tokens.size(), 5u);
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::CharLiteral, "a", 1, 5));
    EXPECT_TRUE(isToken(result.tokens[3], TokenType::Semicolon, ";", 1, 8));
}

struct CharEscapeRow {
    std::string_view source;
    std::string_view value;
};

const std::array<CharEscapeRow, 10> CHAR_ESCAPES = {{
    {"'\\n'", "\n"},
    {"'\\t'", "\t"},
    {"'\\r'", "\r"},
    {"'\\\\'", "\\"},
    {"'\\\"'", "\""},
    {"'\\''", "'"},
    {"'\\0'", std::string_view("\0", 1)},
    {"'\\q'", "q"},
    {"'\\$'", "$"},
    {"'\"'", "\""},
}};

TEST(LexerChars, EachEscapeDecodesToItsValue) {
    for (const CharEscapeRow& row : CHAR_ESCAPES) {
        auto result = scan(row.source);
        ASSERT_EQ(result.tokens.size(), 2u) << row.source;
        EXPECT_EQ(result.tokens[0].type, TokenType::CharLiteral) << row.source;
        EXPECT_EQ(result.tokens[0].lexeme, row.value) << row.source;
        EXPECT_TRUE(result.diagnostics.empty()) << row.source;
    }
}

TEST(LexerChars, UnknownEscapeStandsForTheByteAlone) {
    auto result = scan("'\\q'");
    EXPECT_EQ(result.tokens[0].lexeme, "q");
}

TEST(LexerChars, EscapedLineFeedStandsForItselfAndCountsTheLine) {
    auto result = scan("'\\\n' x");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::CharLiteral, "\n", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x", 2, 3));
}

TEST(LexerChars, RawLineFeedIsAcceptedAsContentAndCounted) {
    auto result = scan("'\n' x");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::CharLiteral, "\n", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x", 2, 3));
    EXPECT_TRUE(result.diagnostics.empty());
}

TEST(LexerChars, EmptyLiteralLeavesTheSecondQuoteToOpenAnotherLiteral) {
    auto result = scan("''");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "'", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Invalid, "'", 1, 2));
    ASSERT_EQ(result.diagnostics.size(), 2u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Empty character literal",
                             "Character literals must contain exactly one character", 1, 1));
    EXPECT_TRUE(isDiagnostic(result.diagnostics[1], "Empty character literal",
                             "Character literals must contain exactly one character", 1, 2));
}

TEST(LexerChars, EmptyLiteralFollowedByACharacterFormsAnotherLiteral) {
    auto result = scan("''a'");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "'", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::CharLiteral, "a", 1, 2));
    EXPECT_EQ(result.diagnostics.size(), 1u);
}

TEST(LexerChars, LoneQuoteAtTheEndIsEmpty) {
    auto result = scan("'");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "'", 1, 1));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_EQ(result.diagnostics[0].message, "Empty character literal");
}

TEST(LexerChars, BackslashAtTheEndOfTheSource) {
    auto result = scan("x '\\");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Invalid, "'\\", 1, 3));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Unfinished escape sequence in character literal", "", 1, 3));
}

TEST(LexerChars, TwoLettersFailAsUnclosedAndNothingMoreIsConsumed) {
    auto result = scan("'ab'");
    ASSERT_GE(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "'a", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "b", 1, 3));
    ASSERT_GE(result.diagnostics.size(), 1u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Unclosed character literal",
                             "Close the character with a single quote ''", 1, 1));
}

TEST(LexerChars, MultiByteCharacterFailsAsUnclosed) {
    auto result = scan("'\xC3\xA9'");
    ASSERT_GE(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "'\xC3", 1, 1));
    ASSERT_GE(result.diagnostics.size(), 1u);
    EXPECT_EQ(result.diagnostics[0].message, "Unclosed character literal");
}

TEST(LexerChars, NoUnicodeEscapeInCharacterLiterals) {
    auto result = scan("'\\u0041'");
    ASSERT_GE(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "'\\u", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::IntegerLiteral, "0041", 1, 4));
    ASSERT_GE(result.diagnostics.size(), 1u);
    EXPECT_EQ(result.diagnostics[0].message, "Unclosed character literal");
}

TEST(LexerChars, CharacterAtTheEndWithoutClosingQuote) {
    auto result = scan("'a");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "'a", 1, 1));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_EQ(result.diagnostics[0].message, "Unclosed character literal");
}

TEST(LexerChars, NulByteIsAValidContent) {
    auto result = scan(testing::bytes("'\0'"));
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::CharLiteral, std::string(1, '\0'), 1, 1));
}

}  // namespace
}  // namespace quor::lexer
