#pragma once

#include <cstdint>
#include <string_view>

namespace quor::lexer {

// The closed list of token kinds. The numeric order is part of the design:
// ranges over it stand for "type keyword", "operator" and "keyword".
enum class TokenType : std::uint32_t {
#define QUOR_TOKEN(name, text) name,
#include "lexer/token_kind.def"
};

inline constexpr std::uint32_t TOKEN_TYPE_COUNT = 0
#define QUOR_TOKEN(name, text) +1
#include "lexer/token_kind.def"
    ;

// The printed text of a kind ("fn", "+", "Identifier"); "<Unknown>" past the end.
std::string_view tokenTypeToString(TokenType type);

// True when `type` lies in [first, last] of the fixed order.
constexpr bool isTokenInRange(TokenType type, TokenType first, TokenType last) {
    auto value = static_cast<std::uint32_t>(type);
    return value >= static_cast<std::uint32_t>(first) && value <= static_cast<std::uint32_t>(last);
}

}  // namespace quor::lexer
