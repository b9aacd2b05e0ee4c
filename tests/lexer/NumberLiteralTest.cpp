#include <gtest/gtest.h>

#include <array>
#include <string>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

using testing::isDiagnostic;
using testing::isToken;
using testing::scan;

struct SingleNumberRow {
    std::string_view text;
    TokenType type;
};

// Sources that must scan as exactly one number token holding the raw text.
constexpr std::array<SingleNumberRow, 28> SINGLE_NUMBERS = {{
    {"0", TokenType::IntegerLiteral},      {"7", TokenType::IntegerLiteral},
    {"1234567890", TokenType::IntegerLiteral}, {"1__0_", TokenType::IntegerLiteral},
    {"1_000_000", TokenType::IntegerLiteral}, {"007", TokenType::IntegerLiteral},
    {"0b1010", TokenType::IntegerLiteral}, {"0B1_0", TokenType::IntegerLiteral},
    {"0o755", TokenType::IntegerLiteral},  {"0O7_7_", TokenType::IntegerLiteral},
    {"0xFF", TokenType::IntegerLiteral},   {"0Xdead_BEEF", TokenType::IntegerLiteral},
    {"0x0", TokenType::IntegerLiteral},    {"1.5", TokenType::FloatLiteral},
    {"1.5f", TokenType::FloatLiteral},     {"1.5F", TokenType::FloatLiteral},
    {"1e6", TokenType::FloatLiteral},      {"1e6F", TokenType::FloatLiteral},
    {"1E6", TokenType::FloatLiteral},      {"2.5e-3f", TokenType::FloatLiteral},
    {"2.5E+3", TokenType::FloatLiteral},   {"1_0.2_5", TokenType::FloatLiteral},
    {"3.0_", TokenType::FloatLiteral},     {"1_e5", TokenType::FloatLiteral},
    {"0.5", TokenType::FloatLiteral},      {"0e0", TokenType::FloatLiteral},
    {"12.34e56", TokenType::FloatLiteral}, {"9e-0f", TokenType::FloatLiteral},
}};

TEST(LexerNumbers, EachWellFormedNumberIsOneTokenWithItsRawText) {
    for (const SingleNumberRow& row : SINGLE_NUMBERS) {
        auto result = scan(row.text);
        ASSERT_EQ(result.tokens.size(), 2u) << row.text;
        EXPECT_TRUE(isToken(result.tokens[0], row.type, row.text, 1, 1)) << row.text;
        EXPECT_TRUE(result.diagnostics.empty()) << row.text;
    }
}

TEST(LexerNumbers, ZeroAtTheVeryEndIsAnInteger) {
    auto result = scan("x = 0");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::IntegerLiteral, "0", 1, 5));
}

TEST(LexerNumbers, RangeBetweenIntegersIsThreeTokens) {
    auto result = scan("1..2");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::IntegerLiteral, "1", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::DotDot, "..", 1, 2));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::IntegerLiteral, "2", 1, 4));
}

TEST(LexerNumbers, SecondPointEndsAFloat) {
    auto result = scan("1.5.3");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::FloatLiteral, "1.5", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Dot, ".", 1, 4));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::IntegerLiteral, "3", 1, 5));
}

TEST(LexerNumbers, LeadingPointIsADotThenAnInteger) {
    auto result = scan(".5");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Dot, ".", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::IntegerLiteral, "5", 1, 2));
}

TEST(LexerNumbers, PointWithoutDigitIsMemberAccessOnAnInteger) {
    auto kinds = testing::kindsOf(scan("1.foo").tokens);
    std::vector<TokenType> expected = {TokenType::IntegerLiteral, TokenType::Dot, TokenType::Identifier,
                                       TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerNumbers, TrailingPointAtTheEndIsNotConsumed) {
    auto result = scan("1.");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::IntegerLiteral, "1", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Dot, ".", 1, 2));
}

TEST(LexerNumbers, PointFollowedByUnderscoreIsNotAFraction) {
    auto kinds = testing::kindsOf(scan("1._5").tokens);
    std::vector<TokenType> expected = {TokenType::IntegerLiteral, TokenType::Dot, TokenType::Identifier,
                                       TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerNumbers, IntegerTakesNoFloatSuffix) {
    auto result = scan("10f");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::IntegerLiteral, "10", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "f", 1, 3));
}

TEST(LexerNumbers, FloatTakesOnlyOneSuffixByte) {
    auto result = scan("1.5ff");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::FloatLiteral, "1.5f", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "f", 1, 5));
}

TEST(LexerNumbers, OtherSuffixLettersAreSeparateIdentifiers) {
    auto result = scan("1.5d");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::FloatLiteral, "1.5", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "d", 1, 4));
}

TEST(LexerNumbers, UnderscoreEndsAnExponent) {
    auto result = scan("1e6_0");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::FloatLiteral, "1e6", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "_0", 1, 4));
}

TEST(LexerNumbers, ExponentWithoutDigitsReportsTheIntegerFormHint) {
    auto result = scan("1e");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "1e", 1, 1));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Floating-point exponent requires digits", "Example: 1e6", 1, 1));
}

TEST(LexerNumbers, SignedExponentWithoutDigitsReportsTheFractionFormHint) {
    auto result = scan("x 1.5e+");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Invalid, "1.5e+", 1, 3));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_TRUE(
        isDiagnostic(result.diagnostics[0], "Floating-point exponent requires digits", "Example: 1.5e-3", 1, 3));
}

TEST(LexerNumbers, ExponentStartingWithUnderscoreIsAFault) {
    auto result = scan("1e_5");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "1e", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "_5", 1, 3));
    EXPECT_EQ(result.diagnostics.size(), 1u);
}

TEST(LexerNumbers, ExponentFaultResumesBehindTheSign) {
    auto result = scan("2E-x");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "2E-", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x", 1, 4));
}

struct RadixFaultRow {
    std::string_view prefix;
    std::string_view message;
    std::string_view hint;
};

constexpr std::array<RadixFaultRow, 6> RADIX_FAULTS = {{
    {"0b", "Binary literal requires at least one binary digit (0 or 1)", "Example: 0b1010"},
    {"0B", "Binary literal requires at least one binary digit (0 or 1)", "Example: 0b1010"},
    {"0o", "Octal literal requires at least one octal digit (0-7)", "Example: 0o755"},
    {"0O", "Octal literal requires at least one octal digit (0-7)", "Example: 0o755"},
    {"0x", "Hexadecimal literal requires at least one hex digit", "Example: 0xFF"},
    {"0X", "Hexadecimal literal requires at least one hex digit", "Example: 0xFF"},
}};

TEST(LexerNumbers, RadixPrefixWithoutDigitIsInvalidTokenWithItsMessage) {
    for (const RadixFaultRow& row : RADIX_FAULTS) {
        auto result = scan(row.prefix);
        ASSERT_EQ(result.tokens.size(), 2u) << row.prefix;
        EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, row.prefix, 1, 1)) << row.prefix;
        ASSERT_EQ(result.diagnostics.size(), 1u) << row.prefix;
        EXPECT_TRUE(isDiagnostic(result.diagnostics[0], row.message, row.hint, 1, 1)) << row.prefix;
    }
}

TEST(LexerNumbers, UnderscoreDoesNotCountAsTheFirstRadixDigit) {
    auto result = scan("0b_1");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "0b", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "_1", 1, 3));
    EXPECT_EQ(result.diagnostics.size(), 1u);
}

TEST(LexerNumbers, DigitOfALargerRadixEndsTheLiteralQuietly) {
    auto result = scan("0b102");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::IntegerLiteral, "0b10", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::IntegerLiteral, "2", 1, 5));
    EXPECT_TRUE(result.diagnostics.empty());
}

TEST(LexerNumbers, OctalStopsAtEightAndHexAtG) {
    auto octal = scan("0o78");
    EXPECT_TRUE(isToken(octal.tokens[0], TokenType::IntegerLiteral, "0o7", 1, 1));
    EXPECT_TRUE(isToken(octal.tokens[1], TokenType::IntegerLiteral, "8", 1, 4));
    auto hex = scan("0xfg");
    EXPECT_TRUE(isToken(hex.tokens[0], TokenType::IntegerLiteral, "0xf", 1, 1));
    EXPECT_TRUE(isToken(hex.tokens[1], TokenType::Identifier, "g", 1, 4));
}

TEST(LexerNumbers, RadixWithWrongFirstDigitIsInvalidPrefixThenTheRest) {
    auto result = scan("0b2");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "0b", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::IntegerLiteral, "2", 1, 3));
    EXPECT_EQ(result.diagnostics.size(), 1u);
}

TEST(LexerNumbers, RadixLiteralsHaveNoFractionExponentOrSuffix) {
    auto fraction = testing::kindsOf(scan("0x1.5").tokens);
    std::vector<TokenType> expectedFraction = {TokenType::IntegerLiteral, TokenType::Dot,
                                               TokenType::IntegerLiteral, TokenType::EndOfFile};
    EXPECT_EQ(fraction, expectedFraction);
    auto binary = scan("0b1e5");
    EXPECT_TRUE(isToken(binary.tokens[0], TokenType::IntegerLiteral, "0b1", 1, 1));
    EXPECT_TRUE(isToken(binary.tokens[1], TokenType::Identifier, "e5", 1, 4));
    // In hexadecimal, e and f are digits.
    auto hex = scan("0x1e5f");
    ASSERT_EQ(hex.tokens.size(), 2u);
    EXPECT_TRUE(isToken(hex.tokens[0], TokenType::IntegerLiteral, "0x1e5f", 1, 1));
}

TEST(LexerNumbers, RadixLetterAfterANonZeroDigitIsAnIdentifier) {
    auto result = scan("1x5");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::IntegerLiteral, "1", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x5", 1, 2));
}

TEST(LexerNumbers, ExponentDirectlyAfterIntegerPartNeedsNoPoint) {
    auto result = scan("5e2.5");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::FloatLiteral, "5e2", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Dot, ".", 1, 4));
}

TEST(LexerNumbers, NegativeNumberIsMinusThenLiteral) {
    auto kinds = testing::kindsOf(scan("-1.5").tokens);
    std::vector<TokenType> expected = {TokenType::Minus, TokenType::FloatLiteral, TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

}  // namespace
}  // namespace quor::lexer
