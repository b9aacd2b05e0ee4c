#include <gtest/gtest.h>

#include <array>
#include <string>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

using testing::isDiagnostic;
using testing::isToken;
using testing::scan;

struct OperatorRow {
    std::string_view text;
    TokenType type;
};

constexpr std::array<OperatorRow, 45> ALL_OPERATORS = {{
    {"!=", TokenType::BangEqual},    {"!", TokenType::Bang},
    {"%=", TokenType::PercentEqual}, {"%", TokenType::Percent},
    {"&&", TokenType::AmpAmp},       {"&", TokenType::Amp},
    {"*=", TokenType::StarEqual},    {"*", TokenType::Star},
    {"++", TokenType::PlusPlus},     {"+=", TokenType::PlusEqual},
    {"+", TokenType::Plus},          {"--", TokenType::MinusMinus},
    {"->", TokenType::Arrow},        {"-=", TokenType::MinusEqual},
    {"-", TokenType::Minus},         {"..", TokenType::DotDot},
    {".", TokenType::Dot},           {"/=", TokenType::SlashEqual},
    {"/", TokenType::Slash},         {"<=", TokenType::LessEqual},
    {"<<", TokenType::LessLess},     {"<", TokenType::Less},
    {"==", TokenType::EqualEqual},   {"=>", TokenType::FatArrow},
    {"=", TokenType::Equal},         {">=", TokenType::GreaterEqual},
    {">>", TokenType::GreaterGreater}, {">", TokenType::Greater},
    {"?.", TokenType::QuestionDot},  {"??", TokenType::QuestionQuestion},
    {"?", TokenType::Question},      {"||", TokenType::PipePipe},
    {"|", TokenType::Pipe},          {"(", TokenType::LeftParen},
    {")", TokenType::RightParen},    {"[", TokenType::LeftBracket},
    {"]", TokenType::RightBracket},  {"{", TokenType::LeftBrace},
    {"}", TokenType::RightBrace},    {",", TokenType::Comma},
    {";", TokenType::Semicolon},     {":", TokenType::Colon},
    {"@", TokenType::At},            {"^", TokenType::Caret},
    {"~", TokenType::Tilde},
}};

TEST(LexerOperators, EachOperatorAloneIsOneTokenOfItsKind) {
    for (const OperatorRow& row : ALL_OPERATORS) {
        auto result = scan(row.text);
        ASSERT_EQ(result.tokens.size(), 2u) << row.text;
        EXPECT_TRUE(isToken(result.tokens[0], row.type, row.text, 1, 1)) << row.text;
        EXPECT_TRUE(result.diagnostics.empty()) << row.text;
    }
}

TEST(LexerOperators, EachOperatorIsFollowedCorrectlyByAnIdentifier) {
    for (const OperatorRow& row : ALL_OPERATORS) {
        auto result = scan(std::string(row.text).append("x"));
        ASSERT_EQ(result.tokens.size(), 3u) << row.text;
        EXPECT_EQ(result.tokens[0].type, row.type) << row.text;
        EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x", 1,
                            static_cast<std::uint32_t>(row.text.size() + 1)))
            << row.text;
    }
}

TEST(LexerOperators, ShiftAssignIsShiftThenEqual) {
    auto result = scan(">>=");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::GreaterGreater, ">>", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Equal, "=", 1, 3));
}

TEST(LexerOperators, NoCompoundAssignForBitwiseOrShiftLeft) {
    auto kinds = testing::kindsOf(scan("&= |= ^= <<=").tokens);
    std::vector<TokenType> expected = {TokenType::Amp,      TokenType::Equal, TokenType::Pipe,
                                       TokenType::Equal,    TokenType::Caret, TokenType::Equal,
                                       TokenType::LessLess, TokenType::Equal, TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerOperators, NoThreeByteFormsExist) {
    auto kinds = testing::kindsOf(scan("... === !== ??? --> <<< >>> &&& |||").tokens);
    std::vector<TokenType> expected = {
        TokenType::DotDot,     TokenType::Dot,       TokenType::EqualEqual,       TokenType::Equal,
        TokenType::BangEqual,  TokenType::Equal,     TokenType::QuestionQuestion, TokenType::Question,
        TokenType::MinusMinus, TokenType::Greater,   TokenType::LessLess,         TokenType::Less,
        TokenType::GreaterGreater, TokenType::Greater, TokenType::AmpAmp,         TokenType::Amp,
        TokenType::PipePipe,   TokenType::Pipe,      TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerOperators, NestedTypeArgumentsCloseWithOneShiftToken) {
    auto kinds = testing::kindsOf(scan("List<List<int>>").tokens);
    std::vector<TokenType> expected = {TokenType::Identifier, TokenType::Less, TokenType::Identifier,
                                       TokenType::Less,       TokenType::Int,  TokenType::GreaterGreater,
                                       TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerOperators, LongestMatchDecidesOnTheVeryNextByteOnly) {
    auto result = scan("a-->b");
    auto kinds = testing::kindsOf(result.tokens);
    std::vector<TokenType> expected = {TokenType::Identifier, TokenType::MinusMinus, TokenType::Greater,
                                       TokenType::Identifier, TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerOperators, WhitespaceSplitsTwoByteForms) {
    auto kinds = testing::kindsOf(scan("= = + +").tokens);
    std::vector<TokenType> expected = {TokenType::Equal, TokenType::Equal, TokenType::Plus, TokenType::Plus,
                                       TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerUnexpected, StrayPrintableBytesAreUnexpected) {
    for (char c : {'#', '$', '\\', '`'}) {
        std::string source(1, c);
        auto result = scan(source);
        ASSERT_EQ(result.tokens.size(), 2u) << c;
        EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, source, 1, 1)) << c;
        ASSERT_EQ(result.diagnostics.size(), 1u) << c;
        std::string message = "Unexpected character: '";
        message.append(source).append("'");
        EXPECT_TRUE(isDiagnostic(result.diagnostics[0], message, "Remove or replace the invalid character", 1, 1));
    }
}

TEST(LexerUnexpected, ControlAndHighBytesAreUnexpectedOnePerByte) {
    for (int value : {0, 1, 8, 11, 12, 27, 31, 127, 128, 200, 255}) {
        std::string source(1, static_cast<char>(value));
        auto result = scan(source);
        ASSERT_EQ(result.tokens.size(), 2u) << value;
        EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, source, 1, 1)) << value;
        ASSERT_EQ(result.diagnostics.size(), 1u) << value;
        std::string message = "Unexpected character: '";
        message.append(source).append("'");
        EXPECT_EQ(result.diagnostics[0].message, message) << value;
    }
}

TEST(LexerUnexpected, NulByteDoesNotEndTheText) {
    auto result = scan(testing::bytes("a\0b"));
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Identifier, "a", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Invalid, std::string(1, '\0'), 1, 2));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "b", 1, 3));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_EQ(result.diagnostics[0].message, testing::bytes("Unexpected character: '\0'"));
}

TEST(LexerUnexpected, NonAsciiCharacterGivesOneDiagnosticPerByte) {
    auto result = scan("\xE2\x82\xAC");  // the euro sign, three bytes
    ASSERT_EQ(result.tokens.size(), 4u);
    for (std::uint32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(result.tokens[i].type, TokenType::Invalid);
        EXPECT_EQ(result.tokens[i].lexeme.size(), 1u);
        EXPECT_EQ(result.tokens[i].location.column, i + 1);
    }
    ASSERT_EQ(result.diagnostics.size(), 3u);
    EXPECT_EQ(result.diagnostics[2].location.column, 3u);
}

TEST(LexerUnexpected, VerticalTabAndFormFeedAreNotWhitespace) {
    auto result = scan("a\vb\fc");
    auto kinds = testing::kindsOf(result.tokens);
    std::vector<TokenType> expected = {TokenType::Identifier, TokenType::Invalid, TokenType::Identifier,
                                       TokenType::Invalid, TokenType::Identifier, TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerUnexpected, EveryPrintableByteIsATokenStartOrOneOfTheFourStrays) {
    for (int value = 33; value <= 126; ++value) {
        char c = static_cast<char>(value);
        if (c == '"' || c == '\'') {
            continue;  // literal openers, covered by their own tests
        }
        auto result = scan(std::string(1, c));
        bool stray = c == '#' || c == '$' || c == '\\' || c == '`';
        EXPECT_EQ(result.tokens[0].type == TokenType::Invalid, stray) << c;
        EXPECT_EQ(result.diagnostics.size(), stray ? 1u : 0u) << c;
    }
}

}  // namespace
}  // namespace quor::lexer
