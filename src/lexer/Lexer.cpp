#include "lexer/Lexer.h"

#include <utility>

#include "diagnostics/DiagnosticCodes.h"
#include "lexer/CharClass.h"

namespace quor::lexer {

namespace {

using diagnostics::CODE_SYNTAX;

bool isComment(TokenType type) { return type == TokenType::Comment || type == TokenType::DocComment; }

// Bytes that can never start a token although they are printable.
bool isStrayPrintable(char c) { return c == '#' || c == '$' || c == '\\' || c == '`'; }

bool isOutsidePrintableAscii(char c) {
    auto byte = static_cast<unsigned char>(c);
    return byte < 33 || byte > 126;
}

}  // namespace

Lexer::Lexer(std::string_view source, std::string filename, diagnostics::DiagnosticEngine* diagnostics)
    : source(source), filename(std::move(filename)), diagnostics(diagnostics) {}

// ---- primitives ---------------------------------------------------------

bool Lexer::isAtEnd() const { return current >= source.size(); }

char Lexer::advance() {
    char c = source[current];
    ++current;
    if (c == '\n') {
        ++line;
        column = 1;
    } else {
        ++column;
    }
    return c;
}

char Lexer::peek() const { return isAtEnd() ? '\0' : source[current]; }

char Lexer::peekNext() const { return current + 1 >= source.size() ? '\0' : source[current + 1]; }

bool Lexer::match(char expected) {
    if (isAtEnd() || source[current] != expected) {
        return false;
    }
    ++current;
    ++column;
    return true;
}

// The loops below keep the position in locals: written through `this` at
// every byte, the compiler must store and reload it around each byte read.
void Lexer::skipWhitespace() {
    std::uint64_t at = current;
    std::uint32_t atLine = line;
    std::uint32_t atColumn = column;
    for (; at < source.size(); ++at) {
        const char c = source[at];
        if (c == '\n') {
            ++atLine;
            atColumn = 1;
        } else if (c == ' ' || c == '\t' || c == '\r') {
            ++atColumn;
        } else {
            break;
        }
    }
    current = at;
    line = atLine;
    column = atColumn;
}

// For byte classes without the line break, so only the column moves.
void Lexer::consumeWhile(bool (*accepts)(char)) {
    std::uint64_t at = current;
    while (at < source.size() && accepts(source[at])) ++at;
    column += static_cast<std::uint32_t>(at - current);
    current = at;
}

// ---- token construction -------------------------------------------------

Token Lexer::makeToken(TokenType type) const {
    return Token{type, std::string(source.substr(tokenStart, current - tokenStart)),
                 diagnostics::SourceLocation{filename, tokenLine, tokenColumn}};
}

Token Lexer::makeToken(TokenType type, std::string value) const {
    return Token{type, std::move(value), diagnostics::SourceLocation{filename, tokenLine, tokenColumn}};
}

Token Lexer::errorToken(std::string_view code, std::string_view message, std::string_view hint) {
    diagnostics::SourceLocation location{filename, tokenLine, tokenColumn};
    if (diagnostics != nullptr) {
        diagnostics->reportError(code, message, location, hint);
    }
    return Token{TokenType::Invalid, std::string(source.substr(tokenStart, current - tokenStart)),
                 std::move(location)};
}

Token Lexer::unexpectedCharacter(char byte) {
    std::string message = "Unexpected character: '";
    message.push_back(byte);
    message.push_back('\'');
    return errorToken(CODE_SYNTAX, message, "Remove or replace the invalid character");
}

// ---- driver ---------------------------------------------------------------

Token Lexer::nextToken() {
    // Each round either returns or has consumed at least one byte, so the
    // loop ends; it repeats only to drop comments the caller does not want.
    for (;;) {
        skipWhitespace();
        tokenStart = current;
        tokenLine = line;
        tokenColumn = column;
        if (isAtEnd()) {
            return makeToken(TokenType::EndOfFile, "");
        }
        Token token = scanToken(advance());
        if (preserveComments || !isComment(token.type)) {
            return token;
        }
    }
}

Token Lexer::scanToken(char first) {
    if (isIdentifierStart(first)) {
        return scanIdentifierOrKeyword();
    }
    if (isDecimalDigit(first)) {
        return scanNumber();
    }
    if (isOutsidePrintableAscii(first) || isStrayPrintable(first)) {
        return unexpectedCharacter(first);
    }
    if (first == '"') {
        return scanString();
    }
    if (first == '\'') {
        return scanChar();
    }
    if (first == '/' && match('/')) {
        return scanSingleLineComment();
    }
    if (first == '/' && match('*')) {
        return scanMultiLineComment();
    }
    return scanOperator(first);
}

std::vector<Token> Lexer::tokenizeAll() {
    std::vector<Token> tokens;
    // Real sources average well over four bytes a token; reserving up front
    // spares the vector its regrowth copies on large documents.
    tokens.reserve(source.size() / 4 + 1);
    for (;;) {
        tokens.push_back(nextToken());
        if (tokens.back().type == TokenType::EndOfFile) {
            return tokens;
        }
    }
}

Token Lexer::scanIdentifierOrKeyword() {
    consumeWhile(isIdentifierPart);
    return makeToken(lookupKeyword(source.substr(tokenStart, current - tokenStart)));
}

}  // namespace quor::lexer
