#include <gtest/gtest.h>

#include <optional>

#include "fmt/FormatTestSupport.h"
#include "fmt/SpacingRules.h"

using quor::fmt::isPrefixOperator;
using quor::fmt::testing::formatSource;
using quor::lexer::TokenType;

TEST(FormatterPrefix, MinusAfterAssignmentIsPrefix) { EXPECT_EQ(formatSource("a=-b;"), "a = -b;\n"); }

TEST(FormatterPrefix, PostfixDecrementStaysTight) { EXPECT_EQ(formatSource("x--;"), "x--;\n"); }

TEST(FormatterPrefix, PostfixIncrementBeforeBinaryPlus) { EXPECT_EQ(formatSource("a++ +b;"), "a++ + b;\n"); }

TEST(FormatterPrefix, PrefixAfterCommaGetsNoSpace) { EXPECT_EQ(formatSource("f(a, -b);"), "f(a,-b);\n"); }

TEST(FormatterPrefix, PrefixAfterColonGetsNoSpace) { EXPECT_EQ(formatSource("x: -1"), "x:-1\n"); }

TEST(FormatterPrefix, MinusStartingAStatementIsNotPrefix) {
    EXPECT_EQ(formatSource("a;-x;"), "a;\n- x;\n");
}

TEST(FormatterPrefix, MinusAfterBracesIsNotPrefix) {
    EXPECT_EQ(formatSource("{-x;}"), "{\n    - x;\n}\n");
    EXPECT_EQ(formatSource("{}\n-x;"), "{\n}\n- x;\n");
}

TEST(FormatterPrefix, MinusAtTheVeryStartIsPrefix) {
    EXPECT_EQ(formatSource("-x"), "-x\n");
    EXPECT_EQ(formatSource("++i;"), "++i;\n");
}

TEST(FormatterPrefix, PrefixAfterReturnGetsSpaceThenHugsOperand) {
    EXPECT_EQ(formatSource("return -x;"), "return -x;\n");
    EXPECT_EQ(formatSource("return !ok;"), "return !ok;\n");
}

TEST(FormatterPrefix, PrefixAfterBinaryOperators) {
    EXPECT_EQ(formatSource("a*-b"), "a * -b\n");
    EXPECT_EQ(formatSource("a&&!b"), "a && !b\n");
    EXPECT_EQ(formatSource("a+ +b"), "a + +b\n");
    EXPECT_EQ(formatSource("x=>-1"), "x => -1\n");
    EXPECT_EQ(formatSource("a??~b"), "a ?? ~b\n");
}

TEST(FormatterPrefix, PrefixAfterOpeningParenOrBracket) {
    EXPECT_EQ(formatSource("f( -a )"), "f(-a)\n");
    EXPECT_EQ(formatSource("[ -1 ]"), "[-1]\n");
    EXPECT_EQ(formatSource("-(x)"), "-(x)\n");
}

TEST(FormatterPrefix, BangAfterBangIsNotPrefixButHugsIt) {
    EXPECT_EQ(formatSource("!!a"), "!!a\n");
}

TEST(FormatterPrefix, SecondPrefixMinusHugsTheFirst) {
    // Both minuses are prefixes; the second follows one, so no space.
    EXPECT_EQ(formatSource("a = - -x;"), "a = --x;\n");
}

TEST(FormatterPrefix, OperandAfterPrefixHugsEvenAKeyword) {
    EXPECT_EQ(formatSource("!this.x"), "!this .x\n");
}

TEST(FormatterPrefixTest, OnlyTheSixOperatorsCanBePrefixes) {
    const TokenType candidates[] = {TokenType::Plus,  TokenType::Minus,    TokenType::Bang,
                                    TokenType::Tilde, TokenType::PlusPlus, TokenType::MinusMinus};
    for (TokenType kind : candidates) {
        EXPECT_TRUE(isPrefixOperator(kind, std::nullopt));
        EXPECT_TRUE(isPrefixOperator(kind, TokenType::Equal));
    }
    const TokenType others[] = {TokenType::Star, TokenType::Identifier, TokenType::Question,
                                TokenType::QuestionDot, TokenType::Dot, TokenType::Amp};
    for (TokenType kind : others) {
        EXPECT_FALSE(isPrefixOperator(kind, std::nullopt));
        EXPECT_FALSE(isPrefixOperator(kind, TokenType::Equal));
    }
}

TEST(FormatterPrefixTest, EveryListedPredecessorMakesAPrefix) {
    const TokenType listed[] = {
        TokenType::Return,       TokenType::Plus,       TokenType::Minus,          TokenType::Star,
        TokenType::Slash,        TokenType::Percent,    TokenType::EqualEqual,     TokenType::BangEqual,
        TokenType::Less,         TokenType::Greater,    TokenType::LessEqual,      TokenType::GreaterEqual,
        TokenType::AmpAmp,       TokenType::PipePipe,   TokenType::Amp,            TokenType::Pipe,
        TokenType::Caret,        TokenType::LessLess,   TokenType::GreaterGreater, TokenType::Equal,
        TokenType::PlusEqual,    TokenType::MinusEqual, TokenType::StarEqual,      TokenType::SlashEqual,
        TokenType::PercentEqual, TokenType::Arrow,      TokenType::FatArrow,       TokenType::QuestionQuestion,
        TokenType::LeftParen,    TokenType::LeftBracket, TokenType::Colon,         TokenType::Comma,
    };
    for (TokenType prev : listed) EXPECT_TRUE(isPrefixOperator(TokenType::Minus, prev)) << static_cast<int>(prev);
}

TEST(FormatterPrefixTest, UnlistedPredecessorsDoNotMakeAPrefix) {
    const TokenType unlisted[] = {TokenType::Bang,       TokenType::Tilde,       TokenType::PlusPlus,
                                  TokenType::MinusMinus, TokenType::Semicolon,   TokenType::LeftBrace,
                                  TokenType::RightBrace, TokenType::Identifier,  TokenType::RightParen,
                                  TokenType::RightBracket, TokenType::IntegerLiteral, TokenType::Question,
                                  TokenType::If,         TokenType::Else,        TokenType::Comment,
                                  TokenType::Dot,        TokenType::QuestionDot, TokenType::DotDot};
    for (TokenType prev : unlisted) EXPECT_FALSE(isPrefixOperator(TokenType::Minus, prev)) << static_cast<int>(prev);
}

TEST(FormatterPrefix, PrefixAfterElseIsNotPrefix) {
    // `else` is a keyword but not in the list: the minus takes a space
    // behind the keyword and gives one to its operand.
    EXPECT_EQ(formatSource("} else -x"), "} else - x\n");
}
