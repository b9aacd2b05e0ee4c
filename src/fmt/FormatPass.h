#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "fmt/FormatOptions.h"
#include "lexer/Token.h"

namespace quor::fmt {

// Writes the formatted text of a token list in one pass. The list is read up
// to its first EndOfFile; comments are tokens like any other. `capacity` is
// reserved for the output up front.
std::string formatTokens(const std::vector<lexer::Token>& tokens, const FormatOptions& options,
                         std::size_t capacity);

// The same pass, given up as soon as the output grows past `limit` bytes:
// deep nesting makes indentation grow with the square of the depth, and a
// text of absurd size helps no one.
std::optional<std::string> formatTokensWithin(const std::vector<lexer::Token>& tokens, const FormatOptions& options,
                                              std::size_t capacity, std::size_t limit);

}  // namespace quor::fmt
