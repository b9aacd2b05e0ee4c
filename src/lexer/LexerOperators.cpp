#include <array>
#include <cstddef>
#include <cstdint>

#include "lexer/Lexer.h"

namespace quor::lexer {

namespace {

struct TwoByteOperator {
    char first;
    char second;
    TokenType type;
};

struct OneByteOperator {
    char byte;
    TokenType type;
};

// Two-byte forms win over their one-byte prefixes. Comment openers are
// handled before this table is consulted.
constexpr std::array<TwoByteOperator, 20> TWO_BYTE_OPERATORS = {{
    {'!', '=', TokenType::BangEqual},
    {'%', '=', TokenType::PercentEqual},
    {'&', '&', TokenType::AmpAmp},
    {'*', '=', TokenType::StarEqual},
    {'+', '+', TokenType::PlusPlus},
    {'+', '=', TokenType::PlusEqual},
    {'-', '-', TokenType::MinusMinus},
    {'-', '>', TokenType::Arrow},
    {'-', '=', TokenType::MinusEqual},
    {'.', '.', TokenType::DotDot},
    {'/', '=', TokenType::SlashEqual},
    {'<', '=', TokenType::LessEqual},
    {'<', '<', TokenType::LessLess},
    {'=', '=', TokenType::EqualEqual},
    {'=', '>', TokenType::FatArrow},
    {'>', '=', TokenType::GreaterEqual},
    {'>', '>', TokenType::GreaterGreater},
    {'?', '.', TokenType::QuestionDot},
    {'?', '?', TokenType::QuestionQuestion},
    {'|', '|', TokenType::PipePipe},
}};

constexpr std::array<OneByteOperator, 25> ONE_BYTE_OPERATORS = {{
    {'!', TokenType::Bang},         {'%', TokenType::Percent},      {'&', TokenType::Amp},
    {'*', TokenType::Star},         {'+', TokenType::Plus},         {'-', TokenType::Minus},
    {'.', TokenType::Dot},          {'/', TokenType::Slash},        {'<', TokenType::Less},
    {'=', TokenType::Equal},        {'>', TokenType::Greater},      {'?', TokenType::Question},
    {'|', TokenType::Pipe},         {'(', TokenType::LeftParen},    {')', TokenType::RightParen},
    {'[', TokenType::LeftBracket},  {']', TokenType::RightBracket}, {'{', TokenType::LeftBrace},
    {'}', TokenType::RightBrace},   {',', TokenType::Comma},        {';', TokenType::Semicolon},
    {':', TokenType::Colon},        {'@', TokenType::At},           {'^', TokenType::Caret},
    {'~', TokenType::Tilde},
}};

// What the tables above say about one first byte: where its two-byte forms
// sit in TWO_BYTE_OPERATORS and its one-byte form, if any. Made from the
// tables when compiling, so that scanning an operator looks at one entry
// instead of walking both tables.
struct OperatorStart {
    std::uint8_t firstTwoByte = 0;
    std::uint8_t twoByteCount = 0;
    bool hasOneByte = false;
    TokenType oneByte = TokenType::Invalid;
};

constexpr bool twoByteFormsGroupedByFirstByte() {
    for (std::size_t i = 1; i < TWO_BYTE_OPERATORS.size(); ++i) {
        for (std::size_t j = 0; j + 1 < i; ++j) {
            if (TWO_BYTE_OPERATORS[j].first == TWO_BYTE_OPERATORS[i].first &&
                TWO_BYTE_OPERATORS[i - 1].first != TWO_BYTE_OPERATORS[i].first) {
                return false;
            }
        }
    }
    return true;
}
static_assert(twoByteFormsGroupedByFirstByte(), "two-byte operators must be grouped by their first byte");

constexpr std::array<OperatorStart, 256> OPERATOR_STARTS = [] {
    std::array<OperatorStart, 256> starts{};
    for (std::size_t i = 0; i < TWO_BYTE_OPERATORS.size(); ++i) {
        OperatorStart& start = starts[static_cast<unsigned char>(TWO_BYTE_OPERATORS[i].first)];
        if (start.twoByteCount == 0) start.firstTwoByte = static_cast<std::uint8_t>(i);
        ++start.twoByteCount;
    }
    for (const OneByteOperator& op : ONE_BYTE_OPERATORS) {
        OperatorStart& start = starts[static_cast<unsigned char>(op.byte)];
        start.hasOneByte = true;
        start.oneByte = op.type;
    }
    return starts;
}();

}  // namespace

Token Lexer::scanOperator(char first) {
    const OperatorStart& start = OPERATOR_STARTS[static_cast<unsigned char>(first)];
    for (std::size_t i = start.firstTwoByte; i < start.firstTwoByte + start.twoByteCount; ++i) {
        if (match(TWO_BYTE_OPERATORS[i].second)) {
            return makeToken(TWO_BYTE_OPERATORS[i].type);
        }
    }
    if (start.hasOneByte) {
        return makeToken(start.oneByte);
    }
    return unexpectedCharacter(first);
}

}  // namespace quor::lexer
