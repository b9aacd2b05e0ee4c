#include <array>

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

}  // namespace

Token Lexer::scanOperator(char first) {
    for (const TwoByteOperator& op : TWO_BYTE_OPERATORS) {
        if (op.first == first && match(op.second)) {
            return makeToken(op.type);
        }
    }
    for (const OneByteOperator& op : ONE_BYTE_OPERATORS) {
        if (op.byte == first) {
            return makeToken(op.type);
        }
    }
    return unexpectedCharacter(first);
}

}  // namespace quor::lexer
