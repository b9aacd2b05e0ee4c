#include <gtest/gtest.h>

#include <cstdint>

#include "fmt/TokenSets.h"
#include "lexer/TokenType.h"

using quor::fmt::isInKeywordRange;
using quor::fmt::SPACED_OPERATORS;
using quor::lexer::TokenType;

namespace {

TokenType kindAt(std::uint32_t value) { return static_cast<TokenType>(value); }

}  // namespace

TEST(FormatterTokenSets, KeywordRangeRunsFromFnToByte) {
    EXPECT_FALSE(isInKeywordRange(TokenType::Identifier));
    EXPECT_TRUE(isInKeywordRange(TokenType::Fn));
    EXPECT_TRUE(isInKeywordRange(TokenType::Comment));
    EXPECT_TRUE(isInKeywordRange(TokenType::DocComment));
    EXPECT_TRUE(isInKeywordRange(TokenType::At));
    EXPECT_TRUE(isInKeywordRange(TokenType::Byte));
    EXPECT_FALSE(isInKeywordRange(TokenType::Plus));
    std::uint32_t count = 0;
    for (std::uint32_t value = 0; value < quor::lexer::TOKEN_TYPE_COUNT; ++value) {
        if (isInKeywordRange(kindAt(value))) ++count;
    }
    EXPECT_EQ(count, 71U);
}

TEST(FormatterTokenSets, SpacedOperatorsAreTheTwentySevenTwoOperandOperators) {
    const TokenType spaced[] = {
        TokenType::Plus,         TokenType::Minus,          TokenType::Star,       TokenType::Slash,
        TokenType::Percent,      TokenType::EqualEqual,     TokenType::BangEqual,  TokenType::Less,
        TokenType::Greater,      TokenType::LessEqual,      TokenType::GreaterEqual, TokenType::AmpAmp,
        TokenType::PipePipe,     TokenType::Amp,            TokenType::Pipe,       TokenType::Caret,
        TokenType::LessLess,     TokenType::GreaterGreater, TokenType::Equal,      TokenType::PlusEqual,
        TokenType::MinusEqual,   TokenType::StarEqual,      TokenType::SlashEqual, TokenType::PercentEqual,
        TokenType::Arrow,        TokenType::FatArrow,       TokenType::QuestionQuestion,
    };
    for (TokenType kind : spaced) EXPECT_TRUE(SPACED_OPERATORS.contains(kind)) << static_cast<int>(kind);
    std::uint32_t count = 0;
    for (std::uint32_t value = 0; value < quor::lexer::TOKEN_TYPE_COUNT; ++value) {
        if (SPACED_OPERATORS.contains(kindAt(value))) ++count;
    }
    EXPECT_EQ(count, 27U);
}

TEST(FormatterTokenSets, NeverSpacedOperatorsAreLeftOut) {
    const TokenType tight[] = {TokenType::Bang,        TokenType::Tilde,  TokenType::PlusPlus, TokenType::MinusMinus,
                               TokenType::QuestionDot, TokenType::DotDot, TokenType::Dot,      TokenType::Question};
    for (TokenType kind : tight) EXPECT_FALSE(SPACED_OPERATORS.contains(kind)) << static_cast<int>(kind);
}

TEST(FormatterTokenSets, KindsPastTheEndAreInNoSet) {
    EXPECT_FALSE(SPACED_OPERATORS.contains(kindAt(123)));
    EXPECT_FALSE(SPACED_OPERATORS.contains(kindAt(100000)));
    EXPECT_FALSE(isInKeywordRange(kindAt(100000)));
}
