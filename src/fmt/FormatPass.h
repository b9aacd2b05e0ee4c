#pragma once

#include <cstddef>
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

}  // namespace quor::fmt
