#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"

namespace quor::lexer::testing {

// The outcome of scanning one source: every token and every diagnostic.
struct ScanResult {
    std::vector<Token> tokens;
    std::vector<diagnostics::Diagnostic> diagnostics;
};

inline ScanResult scan(std::string_view source, bool preserveComments = false) {
    std::ostringstream sink;
    diagnostics::DiagnosticEngine engine(sink);
    Lexer lexer(source, "test.quor", &engine);
    lexer.preserveComments = preserveComments;
    ScanResult result;
    result.tokens = lexer.tokenizeAll();
    result.diagnostics = engine.getDiagnostics();
    return result;
}

inline std::vector<TokenType> kindsOf(const std::vector<Token>& tokens) {
    std::vector<TokenType> kinds;
    kinds.reserve(tokens.size());
    for (const Token& token : tokens) {
        kinds.push_back(token.type);
    }
    return kinds;
}

inline std::vector<std::string> lexemesOf(const std::vector<Token>& tokens) {
    std::vector<std::string> lexemes;
    lexemes.reserve(tokens.size());
    for (const Token& token : tokens) {
        lexemes.push_back(token.lexeme);
    }
    return lexemes;
}

// Checks kind, text and place of one token in a single assertion.
inline ::testing::AssertionResult isToken(const Token& token, TokenType type, std::string_view lexeme,
                                          std::uint32_t line, std::uint32_t column) {
    if (token.type == type && token.lexeme == lexeme && token.location.line == line &&
        token.location.column == column) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << "got " << tokenTypeToString(token.type) << " '" << token.lexeme << "' at " << token.location.line << ':'
           << token.location.column << ", expected " << tokenTypeToString(type) << " '" << lexeme << "' at " << line
           << ':' << column;
}

// Checks code, message, hint and place of one diagnostic.
inline ::testing::AssertionResult isDiagnostic(const diagnostics::Diagnostic& diagnostic, std::string_view message,
                                               std::string_view hint, std::uint32_t line, std::uint32_t column) {
    if (diagnostic.code == "E1000" && diagnostic.message == message && diagnostic.hint == hint &&
        diagnostic.location.line == line && diagnostic.location.column == column &&
        diagnostic.severity == diagnostics::DiagnosticSeverity::Error) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "got [" << diagnostic.code << "] '" << diagnostic.message << "' hint '"
                                         << diagnostic.hint << "' at " << diagnostic.location.line << ':'
                                         << diagnostic.location.column;
}

// Builds a std::string from bytes that may contain NUL.
template <std::size_t N>
std::string bytes(const char (&text)[N]) {
    return std::string(text, N - 1);
}

}  // namespace quor::lexer::testing
