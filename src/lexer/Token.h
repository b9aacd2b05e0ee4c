#pragma once

#include <string>

#include "diagnostics/SourceLocation.h"
#include "lexer/TokenType.h"

namespace quor::lexer {

// One token: its kind, its text and the place of its first byte.
// String and character literals carry their decoded content, without quotes.
struct Token {
    TokenType type = TokenType::EndOfFile;
    std::string lexeme;
    diagnostics::SourceLocation location;
};

}  // namespace quor::lexer
