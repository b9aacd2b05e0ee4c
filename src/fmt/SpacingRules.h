#pragma once

#include <optional>

#include "fmt/FormatOptions.h"
#include "lexer/TokenType.h"

namespace quor::fmt {

// What the spacing decision sees of one token that is not at a line start
// and has a token before it.
struct SpacingContext {
    lexer::TokenType token;
    lexer::TokenType prev;
    bool isUnary;     // the token was taken as a prefix operator
    bool afterUnary;  // the token before it was taken as a prefix operator
};

// Whether a space goes in front of the token: the first rule of the fixed
// decision list that fits decides.
bool needsSpaceBefore(const SpacingContext& context, const FormatOptions& options);

// Whether the token counts as a prefix operator, given the kind before it
// (no kind before it at the start of the text).
bool isPrefixOperator(lexer::TokenType token, std::optional<lexer::TokenType> prev);

}  // namespace quor::fmt
