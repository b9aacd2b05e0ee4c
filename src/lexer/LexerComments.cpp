#include <algorithm>
#include <string_view>

#include "diagnostics/DiagnosticCodes.h"
#include "lexer/Lexer.h"

namespace quor::lexer {

// Entered with "//" consumed. A third slash makes it a documentation comment.
Token Lexer::scanSingleLineComment() {
    TokenType type = peek() == '/' ? TokenType::DocComment : TokenType::Comment;
    // Up to the line break, which stays for the next token; only the column moves.
    const std::string_view rest = source.substr(current);
    const std::size_t length = std::min(rest.find('\n'), rest.size());
    current += length;
    column += static_cast<std::uint32_t>(length);
    return makeToken(type);
}

// Entered with "/*" consumed. Block comments nest; each opener and closer is
// taken as a pair so that "/*/" does not close anything.
Token Lexer::scanMultiLineComment() {
    std::uint64_t depth = 1;
    while (!isAtEnd()) {
        if (peek() == '/' && peekNext() == '*') {
            advance();
            advance();
            ++depth;
        } else if (peek() == '*' && peekNext() == '/') {
            advance();
            advance();
            if (--depth == 0) {
                return makeToken(TokenType::Comment);
            }
        } else {
            advance();
        }
    }
    return errorToken(diagnostics::CODE_SYNTAX, "Unclosed multi-line comment",
                      "Add '*/' to close the multi-line comment");
}

}  // namespace quor::lexer
