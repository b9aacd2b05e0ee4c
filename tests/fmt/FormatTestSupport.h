#pragma once

// Helpers shared by the formatter tests.

#include <cstdint>
#include <string>
#include <vector>

#include "fmt/FormatOptions.h"
#include "fmt/FormatPass.h"
#include "fmt/Formatter.h"
#include "lexer/Token.h"

namespace quor::fmt::testing {

// The settings the language server formats with.
inline FormatOptions serverOptions() {
    FormatOptions options;
    options.indentSize = 4;
    options.useTabs = false;
    options.maxBlankLines = 1;
    options.spaceAroundOperators = true;
    options.spaceAfterColon = true;
    options.spaceAfterComma = true;
    return options;
}

inline std::string formatSource(const std::string& source, const FormatOptions& options = serverOptions()) {
    return Formatter(options).format(source);
}

// A hand-made token on the given line, for tests that bypass the scanner.
inline lexer::Token tok(lexer::TokenType type, std::string lexeme, std::uint32_t line = 1) {
    lexer::Token token;
    token.type = type;
    token.lexeme = std::move(lexeme);
    token.location.file = "<format>";
    token.location.line = line;
    token.location.column = 1;
    return token;
}

inline std::string formatList(const std::vector<lexer::Token>& tokens,
                              const FormatOptions& options = serverOptions()) {
    return formatTokens(tokens, options, 0);
}

}  // namespace quor::fmt::testing
