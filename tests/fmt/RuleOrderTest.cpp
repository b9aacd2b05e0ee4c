#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <set>

#include "fmt/FormatTestSupport.h"
#include "fmt/SpacingRules.h"
#include "lexer/TokenType.h"

using quor::fmt::FormatOptions;
using quor::fmt::isPrefixOperator;
using quor::fmt::needsSpaceBefore;
using quor::fmt::SpacingContext;
using quor::fmt::testing::formatSource;
using quor::fmt::testing::serverOptions;
using quor::lexer::TokenType;

// Where two spacing rules could both apply, the earlier one decides.

namespace {

FormatOptions allOff() {
    FormatOptions options = serverOptions();
    options.spaceAroundOperators = false;
    options.spaceAfterColon = false;
    options.spaceAfterComma = false;
    return options;
}

bool spaced(TokenType token, TokenType prev, const FormatOptions& options = serverOptions(), bool isUnary = false,
            bool afterUnary = false) {
    return needsSpaceBefore(SpacingContext{token, prev, isUnary, afterUnary}, options);
}

}  // namespace

TEST(FormatterRuleOrder, ClosersWinOverEveryLaterRule) {
    // Behind a keyword, an operator, a "?" and a ")" alike.
    EXPECT_FALSE(spaced(TokenType::RightParen, TokenType::Return));
    EXPECT_FALSE(spaced(TokenType::Comma, TokenType::Plus));
    EXPECT_FALSE(spaced(TokenType::RightBracket, TokenType::Question));
    EXPECT_FALSE(spaced(TokenType::RightParen, TokenType::RightParen));
    EXPECT_FALSE(spaced(TokenType::Comma, TokenType::Comma));
    EXPECT_FALSE(spaced(TokenType::RightParen, TokenType::Minus, serverOptions(), false, true));
}

TEST(FormatterRuleOrder, ColonBehindNameWinsOverTheQuestionRule) {
    EXPECT_FALSE(spaced(TokenType::Colon, TokenType::Identifier));
    EXPECT_FALSE(spaced(TokenType::Colon, TokenType::RightParen));
    // Behind "?" the colon is no longer behind a name, and rule 11 spaces it.
    EXPECT_TRUE(spaced(TokenType::Colon, TokenType::Question));
    EXPECT_EQ(formatSource("a ?: b"), "a ? : b\n");
}

TEST(FormatterRuleOrder, OperandOfAPrefixHugsItEvenBehindAKeywordOperand) {
    EXPECT_FALSE(spaced(TokenType::Identifier, TokenType::Minus, serverOptions(), false, true));
    EXPECT_FALSE(spaced(TokenType::Minus, TokenType::Minus, serverOptions(), true, true));
}

TEST(FormatterRuleOrder, PrefixRulesComeBeforeTheCommaAndColonOptions) {
    EXPECT_FALSE(spaced(TokenType::Minus, TokenType::Comma, serverOptions(), true, false));
    EXPECT_FALSE(spaced(TokenType::Minus, TokenType::Colon, serverOptions(), true, false));
    EXPECT_EQ(formatSource("f(a, !b, ~c, ++d, --e, +f)"), "f(a,!b,~c,++d,--e,+f)\n");
}

TEST(FormatterRuleOrder, PrefixBehindOperatorIsSpacedWhateverTheOptions) {
    EXPECT_TRUE(spaced(TokenType::Minus, TokenType::Equal, allOff(), true, false));
    EXPECT_TRUE(spaced(TokenType::Bang, TokenType::Return, allOff(), true, false));
    EXPECT_EQ(formatSource("x=!y", allOff()), "x= !y\n");
}

TEST(FormatterRuleOrder, CommaOptionWinsOverTheKeywordAndOperatorRules) {
    EXPECT_FALSE(spaced(TokenType::Return, TokenType::Comma, allOff()));
    EXPECT_FALSE(spaced(TokenType::Question, TokenType::Comma, allOff()));
    EXPECT_EQ(formatSource("f(a,this,b)", allOff()), "f(a,this,b)\n");
}

TEST(FormatterRuleOrder, ColonOptionWinsOverTheQuestionRule) {
    EXPECT_FALSE(spaced(TokenType::Question, TokenType::Colon, allOff()));
    EXPECT_TRUE(spaced(TokenType::Question, TokenType::Colon));
}

TEST(FormatterRuleOrder, KeywordRuleWinsOverTheOperatorOption) {
    EXPECT_EQ(formatSource("this+1", allOff()), "this +1\n");
    EXPECT_EQ(formatSource("int?", allOff()), "int ?\n");
}

TEST(FormatterRuleOrder, QuestionMarkIsSpacedWhateverTheOperatorOption) {
    EXPECT_EQ(formatSource("a?b:c", allOff()), "a ? b:c\n");
}

TEST(FormatterRuleOrder, ClosersSpaceWhatFollowsWhateverTheOptions) {
    EXPECT_EQ(formatSource("(a)b", allOff()), "(a) b\n");
    EXPECT_EQ(formatSource("f()?", allOff()), "f() ?\n");
}

TEST(FormatterRuleOrder, RuleTwelveDoesNotApplyBehindABrace) {
    EXPECT_FALSE(spaced(TokenType::Identifier, TokenType::RightBrace));
}

TEST(FormatterPrefixTest, ExactlyTheListedPredecessorsMakeAPrefix) {
    const std::set<TokenType> listed = {
        TokenType::Return,       TokenType::Plus,       TokenType::Minus,          TokenType::Star,
        TokenType::Slash,        TokenType::Percent,    TokenType::EqualEqual,     TokenType::BangEqual,
        TokenType::Less,         TokenType::Greater,    TokenType::LessEqual,      TokenType::GreaterEqual,
        TokenType::AmpAmp,       TokenType::PipePipe,   TokenType::Amp,            TokenType::Pipe,
        TokenType::Caret,        TokenType::LessLess,   TokenType::GreaterGreater, TokenType::Equal,
        TokenType::PlusEqual,    TokenType::MinusEqual, TokenType::StarEqual,      TokenType::SlashEqual,
        TokenType::PercentEqual, TokenType::Arrow,      TokenType::FatArrow,       TokenType::QuestionQuestion,
        TokenType::LeftParen,    TokenType::LeftBracket, TokenType::Colon,         TokenType::Comma,
    };
    ASSERT_EQ(listed.size(), 32U);
    for (std::uint32_t value = 0; value < quor::lexer::TOKEN_TYPE_COUNT; ++value) {
        const auto prev = static_cast<TokenType>(value);
        EXPECT_EQ(isPrefixOperator(TokenType::Tilde, prev), listed.count(prev) == 1) << value;
    }
}
