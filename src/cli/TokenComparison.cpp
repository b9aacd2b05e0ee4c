#include "cli/TokenComparison.h"

#include <vector>

#include "lexer/Lexer.h"

namespace quor::cli {

namespace {

std::vector<lexer::Token> scanWithComments(const std::string& text) {
    lexer::Lexer scanner(text, "", nullptr);
    scanner.preserveComments = true;
    return scanner.tokenizeAll();
}

bool sameToken(const lexer::Token& a, const lexer::Token& b) { return a.type == b.type && a.lexeme == b.lexeme; }

// The lexeme on one line: a decoded string literal may hold line breaks and
// other control bytes, which are shown as escapes.
std::string printable(const std::string& lexeme) {
    constexpr std::string_view DIGITS = "0123456789abcdef";
    std::string out;
    for (char byte : lexeme) {
        auto value = static_cast<unsigned char>(byte);
        if (byte == '\n') {
            out += "\\n";
        } else if (byte == '\t') {
            out += "\\t";
        } else if (value < 0x20 || value == 0x7F) {
            out += "\\x";
            out += DIGITS[value >> 4];
            out += DIGITS[value & 0xF];
        } else {
            out += byte;
        }
    }
    return out;
}

std::string describeToken(const lexer::Token& token) {
    return std::string(lexer::tokenTypeToString(token.type)) + " '" + printable(token.lexeme) + "'";
}

}  // namespace

std::optional<TokenChange> firstChangedToken(const std::string& original, const std::string& rewritten) {
    std::vector<lexer::Token> before = scanWithComments(original);
    std::vector<lexer::Token> after = scanWithComments(rewritten);
    std::size_t shared = std::min(before.size(), after.size());
    for (std::size_t i = 0; i < shared; ++i) {
        if (!sameToken(before[i], after[i])) return TokenChange{before[i], after[i]};
    }
    return std::nullopt;
}

std::string describeChange(const TokenChange& change) {
    return std::to_string(change.before.location.line) + ":" + std::to_string(change.before.location.column) +
           ": " + describeToken(change.before) + " would become " + describeToken(change.after);
}

}  // namespace quor::cli
