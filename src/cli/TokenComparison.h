#pragma once

#include <optional>
#include <string>

#include "lexer/Token.h"

namespace quor::cli {

// The first token of a text that a rewrite of it changes: the token as it
// stands in the original, and what stands in its place in the rewrite.
struct TokenChange {
    lexer::Token before;
    lexer::Token after;
};

// Scans both texts, comments included, and compares them token by token by
// kind and lexeme; positions may differ. Nothing when they are the same
// sequence. Both scans end in an end-of-file token, so whichever text runs
// out first shows up as that token against one of the other.
std::optional<TokenChange> firstChangedToken(const std::string& original, const std::string& rewritten);

// "L:C: Kind 'lexeme' would become Kind 'lexeme'", with the place in the original.
std::string describeChange(const TokenChange& change);

}  // namespace quor::cli
