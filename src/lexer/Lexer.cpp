// Temporary stub so the tree links; the scanner proper replaces this file.
#include "lexer/Lexer.h"

namespace quor::lexer {

Lexer::Lexer(std::string_view source, std::string filename, diagnostics::DiagnosticEngine* diagnostics)
    : source(source), filename(std::move(filename)), diagnostics(diagnostics) {}

Token Lexer::nextToken() { return Token{TokenType::EndOfFile, "", {filename, line, column}}; }

std::vector<Token> Lexer::tokenizeAll() { return {nextToken()}; }

TokenType Lexer::lookupKeyword(std::string_view) { return TokenType::Identifier; }

}  // namespace quor::lexer
