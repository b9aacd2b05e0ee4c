#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Token.h"

namespace quor::lexer {

// Single-pass scanner over a byte view. Never stops on bad input: each fault
// is reported (when an engine is given), becomes one Invalid token, and
// scanning resumes behind it.
class Lexer {
public:
    Lexer(std::string_view source, std::string filename, diagnostics::DiagnosticEngine* diagnostics);

    Token nextToken();
    std::vector<Token> tokenizeAll();

    // The reserved word's kind, or Identifier for any other text.
    static TokenType lookupKeyword(std::string_view word);

private:
    Token scanIdentifierOrKeyword();
    Token scanNumber();
    Token scanString();
    Token scanChar();
    Token scanSingleLineComment();
    Token scanMultiLineComment();

    // Helpers of the scanners above.
    Token scanToken(char first);
    Token scanOperator(char first);
    Token unexpectedCharacter(char byte);
    Token scanRadixLiteral();
    Token scanExponent(bool hasFraction);
    Token finishFloat();
    bool scanUnicodeEscape(std::string& buffer);
    void consumeWhile(bool (*accepts)(char));

    bool isAtEnd() const;
    char advance();
    char peek() const;
    char peekNext() const;
    bool match(char expected);
    void skipWhitespace();

    Token makeToken(TokenType type) const;
    Token makeToken(TokenType type, std::string value) const;
    Token errorToken(std::string_view code, std::string_view message, std::string_view hint);

    std::string_view source;
    diagnostics::SourceName filename;  // shared by every token
    diagnostics::DiagnosticEngine* diagnostics;
    std::uint64_t tokenStart = 0;
    std::uint64_t current = 0;
    std::uint32_t line = 1;
    std::uint32_t column = 1;
    std::uint32_t tokenLine = 1;
    std::uint32_t tokenColumn = 1;

public:
    // When true, comments come back as Comment / DocComment tokens. Set it
    // after construction and before the first token.
    bool preserveComments = false;
};

}  // namespace quor::lexer
