#pragma once

#include <cstdint>
#include <initializer_list>

#include "lexer/TokenType.h"

namespace quor::fmt {

// A constant set of token kinds, one bit per kind.
class TokenSet {
public:
    constexpr TokenSet(std::initializer_list<lexer::TokenType> kinds) {
        for (lexer::TokenType kind : kinds) add(kind);
    }

    constexpr bool contains(lexer::TokenType kind) const {
        auto value = static_cast<std::uint32_t>(kind);
        if (value >= WORDS * 64) return false;
        return (bits[value / 64] >> (value % 64)) & 1U;
    }

private:
    static constexpr std::uint32_t WORDS = (lexer::TOKEN_TYPE_COUNT + 63) / 64;

    constexpr void add(lexer::TokenType kind) {
        auto value = static_cast<std::uint32_t>(kind);
        if (value < WORDS * 64) bits[value / 64] |= std::uint64_t{1} << (value % 64);
    }

    std::uint64_t bits[WORDS] = {};
};

using lexer::TokenType;

// The six operators that may stand in front of an operand.
inline constexpr TokenSet PREFIX_OPERATORS = {TokenType::Plus,  TokenType::Minus,    TokenType::Bang,
                                   TokenType::Tilde, TokenType::PlusPlus, TokenType::MinusMinus};

// Kinds after which one of the prefix operators is taken as a prefix.
inline constexpr TokenSet PREFIX_CONTEXT = {
    TokenType::Return,       TokenType::Plus,           TokenType::Minus,       TokenType::Star,
    TokenType::Slash,        TokenType::Percent,        TokenType::EqualEqual,  TokenType::BangEqual,
    TokenType::Less,         TokenType::Greater,        TokenType::LessEqual,   TokenType::GreaterEqual,
    TokenType::AmpAmp,       TokenType::PipePipe,       TokenType::Amp,         TokenType::Pipe,
    TokenType::Caret,        TokenType::LessLess,       TokenType::GreaterGreater, TokenType::Equal,
    TokenType::PlusEqual,    TokenType::MinusEqual,     TokenType::StarEqual,   TokenType::SlashEqual,
    TokenType::PercentEqual, TokenType::Arrow,          TokenType::FatArrow,    TokenType::QuestionQuestion,
    TokenType::LeftParen,    TokenType::LeftBracket,    TokenType::Colon,       TokenType::Comma,
};

// Two-operand operators that get a space on both sides.
inline constexpr TokenSet SPACED_OPERATORS = {
    TokenType::Plus,         TokenType::Minus,          TokenType::Star,        TokenType::Slash,
    TokenType::Percent,      TokenType::EqualEqual,     TokenType::BangEqual,   TokenType::Less,
    TokenType::Greater,      TokenType::LessEqual,      TokenType::GreaterEqual, TokenType::AmpAmp,
    TokenType::PipePipe,     TokenType::Amp,            TokenType::Pipe,        TokenType::Caret,
    TokenType::LessLess,     TokenType::GreaterGreater, TokenType::Equal,       TokenType::PlusEqual,
    TokenType::MinusEqual,   TokenType::StarEqual,      TokenType::SlashEqual,  TokenType::PercentEqual,
    TokenType::Arrow,        TokenType::FatArrow,       TokenType::QuestionQuestion,
};

// Keywords after which "(" is pushed away by a space, as in `if (`.
inline constexpr TokenSet CONTROL_KEYWORDS = {TokenType::If,     TokenType::For,   TokenType::While,
                                   TokenType::Switch, TokenType::Match, TokenType::Catch};

// Keywords that stay on the line of a closing brace: `} else`.
inline constexpr TokenSet BRACE_CONTINUATIONS = {TokenType::Else, TokenType::Catch, TokenType::Finally};

// Tokens glued directly to a closing brace: `})`, `};`, `},`.
inline constexpr TokenSet BRACE_CLOSERS = {TokenType::RightParen, TokenType::Semicolon, TokenType::Comma};

// Tokens that never take a space in front of them.
inline constexpr TokenSet TIGHT_BEFORE = {TokenType::RightParen, TokenType::RightBracket, TokenType::Semicolon,
                               TokenType::Comma};

// Tokens after ")" or "]" that stay tight: `f()?.x`, `a[0]]`, `f().x`.
inline constexpr TokenSet TIGHT_AFTER_CLOSE = {TokenType::QuestionDot, TokenType::RightBracket, TokenType::Dot};

// Every word from `fn` through `byte` in the token order, which also takes in
// the comment kinds and "@".
constexpr bool isInKeywordRange(lexer::TokenType kind) {
    return lexer::isTokenInRange(kind, lexer::TokenType::Fn, lexer::TokenType::Byte);
}

}  // namespace quor::fmt
