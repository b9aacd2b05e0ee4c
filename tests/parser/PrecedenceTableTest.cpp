#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace {

using quor::lexer::Token;
using quor::lexer::TokenType;
using quor::parser::Precedence;
using quor::parser::testing::ParseRun;
using quor::parser::testing::showExpression;
using quor::parser::testing::tok;

TEST(PrecedenceLevels, LevelsAreNumberedLowestFirst) {
    const Precedence order[] = {
        Precedence::None,     Precedence::Assignment, Precedence::Ternary,    Precedence::NullCoalesce,
        Precedence::LogicalOr, Precedence::LogicalAnd, Precedence::BitOr,     Precedence::BitXor,
        Precedence::BitAnd,   Precedence::Equality,   Precedence::Comparison, Precedence::Shift,
        Precedence::Range,    Precedence::Term,       Precedence::Factor,     Precedence::Unary,
        Precedence::Postfix,
    };
    for (std::uint32_t i = 0; i < 17; ++i) EXPECT_EQ(static_cast<std::uint32_t>(order[i]), i);
}

TEST(PrecedenceTable, EveryTokenKindHasItsBindingPower) {
    const std::map<TokenType, Precedence> expected = {
        {TokenType::Equal, Precedence::Assignment},
        {TokenType::PlusEqual, Precedence::Assignment},
        {TokenType::MinusEqual, Precedence::Assignment},
        {TokenType::StarEqual, Precedence::Assignment},
        {TokenType::SlashEqual, Precedence::Assignment},
        {TokenType::PercentEqual, Precedence::Assignment},
        {TokenType::Question, Precedence::Ternary},
        {TokenType::QuestionQuestion, Precedence::NullCoalesce},
        {TokenType::PipePipe, Precedence::LogicalOr},
        {TokenType::AmpAmp, Precedence::LogicalAnd},
        {TokenType::Pipe, Precedence::BitOr},
        {TokenType::Caret, Precedence::BitXor},
        {TokenType::Amp, Precedence::BitAnd},
        {TokenType::EqualEqual, Precedence::Equality},
        {TokenType::BangEqual, Precedence::Equality},
        {TokenType::Less, Precedence::Comparison},
        {TokenType::Greater, Precedence::Comparison},
        {TokenType::LessEqual, Precedence::Comparison},
        {TokenType::GreaterEqual, Precedence::Comparison},
        {TokenType::LessLess, Precedence::Shift},
        {TokenType::GreaterGreater, Precedence::Shift},
        {TokenType::DotDot, Precedence::Range},
        {TokenType::Plus, Precedence::Term},
        {TokenType::Minus, Precedence::Term},
        {TokenType::Star, Precedence::Factor},
        {TokenType::Slash, Precedence::Factor},
        {TokenType::Percent, Precedence::Factor},
        {TokenType::PlusPlus, Precedence::Postfix},
        {TokenType::MinusMinus, Precedence::Postfix},
        {TokenType::QuestionDot, Precedence::Postfix},
        {TokenType::LeftParen, Precedence::Postfix},
        {TokenType::LeftBracket, Precedence::Postfix},
        {TokenType::Dot, Precedence::Postfix},
    };
    ParseRun run(std::vector<Token>{tok(TokenType::EndOfFile, "")});
    auto p = run.access();
    for (std::uint32_t value = 0; value < quor::lexer::TOKEN_TYPE_COUNT; ++value) {
        auto type = static_cast<TokenType>(value);
        auto found = expected.find(type);
        Precedence want = found == expected.end() ? Precedence::None : found->second;
        EXPECT_EQ(p.getPrecedence(type), want) << quor::lexer::tokenTypeToString(type);
    }
}

TEST(PrecedenceTable, OperatorsWithoutInfixMeaningStopTheClimb) {
    ParseRun run(std::vector<Token>{tok(TokenType::EndOfFile, "")});
    auto p = run.access();
    for (TokenType type : {TokenType::Bang, TokenType::Tilde, TokenType::Arrow, TokenType::FatArrow}) {
        EXPECT_EQ(p.getPrecedence(type), Precedence::None);
    }
}

TEST(PrecedenceTable, KindsOutsideTheOperatorRangeGiveNone) {
    ParseRun run(std::vector<Token>{tok(TokenType::EndOfFile, "")});
    auto p = run.access();
    EXPECT_EQ(p.getPrecedence(static_cast<TokenType>(200)), Precedence::None);
    EXPECT_EQ(p.getPrecedence(TokenType::Identifier), Precedence::None);
    EXPECT_EQ(p.getPrecedence(TokenType::Byte), Precedence::None);
}

TEST(PrecedenceTable, LessOpeningACallsTypeArgumentsBindsAsPostfix) {
    ParseRun run("< int > (");
    auto p = run.access();
    EXPECT_EQ(p.getPrecedence(TokenType::Less), Precedence::Postfix);
}

TEST(PrecedenceTable, LessLooksAtTheTokenVectorNotAtItsArgument) {
    // The cursor stands on "<" of a generic call: even a question about
    // another kind's power is unaffected, but Less itself answers Postfix.
    ParseRun run("< int > (");
    auto p = run.access();
    EXPECT_EQ(p.getPrecedence(TokenType::Greater), Precedence::Comparison);
    p.advance();  // behind the "<": the lookahead no longer finds a Less
    EXPECT_EQ(p.getPrecedence(TokenType::Less), Precedence::Comparison);
}

struct ShapeRow {
    const char* source;
    const char* tree;
};

TEST(PrecedenceShapes, OperatorsNestByTheirLevels) {
    const ShapeRow rows[] = {
        {"a = b ? c : d", "(= a (? b c d))"},
        {"a ? b : c ?? d", "(? a b (?? c d))"},
        {"a ?? b || c", "(?? a (|| b c))"},
        {"a || b && c", "(|| a (&& b c))"},
        {"a && b | c", "(&& a (| b c))"},
        {"a | b ^ c", "(| a (^ b c))"},
        {"a ^ b & c", "(^ a (& b c))"},
        {"a & b == c", "(& a (== b c))"},
        {"a == b < c", "(== a (< b c))"},
        {"a != b >= c", "(!= a (>= b c))"},
        {"a < b << c", "(< a (<< b c))"},
        {"a <= b >> c", "(<= a (>> b c))"},
        {"a >> b .. c", "(>> a (.. b c))"},
        {"a .. b + c", "(.. a (+ b c))"},
        {"a + b * c", "(+ a (* b c))"},
        {"a - b % c", "(- a (% b c))"},
        {"a * b / c", "(/ (* a b) c)"},
        {"a - b - c", "(- (- a b) c)"},
        {"a < b > c", "(> (< a b) c)"},
        {"a & b | c ^ d", "(| (& a b) (^ c d))"},
    };
    for (const ShapeRow& row : rows) {
        EXPECT_EQ(showExpression(row.source), row.tree) << row.source;
    }
}

TEST(PrecedenceShapes, BitOperatorsBindLooserThanComparison) {
    EXPECT_EQ(showExpression("a & b < c"), "(& a (< b c))");
    EXPECT_EQ(showExpression("a | b == c"), "(| a (== b c))");
}

TEST(PrecedenceShapes, PrefixOperatorsBindTighterThanBinaryOnes) {
    EXPECT_EQ(showExpression("-a.b"), "(- (. a b))");
    EXPECT_EQ(showExpression("!a == b"), "(== (! a) b)");
    EXPECT_EQ(showExpression("-a * b"), "(* (- a) b)");
    EXPECT_EQ(showExpression("~a + +b"), "(+ (~ a) (+ b))");
    EXPECT_EQ(showExpression("++a[0]"), "(++ ([] a 0))");
    EXPECT_EQ(showExpression("--f(x)"), "(-- (call f x))");
}

TEST(PrecedenceShapes, TernaryAndAssignmentNestToTheRight) {
    EXPECT_EQ(showExpression("a ? b : c ? d : e"), "(? a b (? c d e))");
    EXPECT_EQ(showExpression("a = b = c"), "(= a (= b c))");
    EXPECT_EQ(showExpression("a += b -= c"), "(+= a (-= b c))");
}

TEST(PrecedenceShapes, NullCoalesceAndRangeNestToTheLeft) {
    EXPECT_EQ(showExpression("a ?? b ?? c"), "(?? (?? a b) c)");
    EXPECT_EQ(showExpression("1..2..3"), "(.. (.. 1 2) 3)");
}

TEST(PrecedenceShapes, RangeTakesTheSumAsItsRightOperand) {
    EXPECT_EQ(showExpression("a..b + 1"), "(.. a (+ b 1))");
    EXPECT_EQ(showExpression("a + 1..b"), "(.. (+ a 1) b)");
}

TEST(PrecedenceShapes, AssignmentTargetIsNotCheckedByTheParser) {
    ParseRun run("a + b = c");
    auto expr = run.expression();
    EXPECT_EQ(quor::parser::testing::show(expr.get()), "(= (+ a b) c)");
    EXPECT_TRUE(run.diagnostics().empty());
}

}  // namespace
