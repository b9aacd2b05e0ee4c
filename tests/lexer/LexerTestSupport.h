#pragma once

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

// Builds a std::string from bytes that may contain NUL.
template <std::size_t N>
std::string bytes(const char (&text)[N]) {
    return std::string(text, N - 1);
}

}  // namespace quor::lexer::testing
