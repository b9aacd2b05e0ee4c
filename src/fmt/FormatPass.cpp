#include "fmt/FormatPass.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

#include "fmt/SpacingRules.h"
#include "fmt/TokenSets.h"

namespace quor::fmt {

namespace {

using lexer::Token;
using lexer::TokenType;

// The output under construction and the handful of counters that steer it.
class FormatPass {
public:
    FormatPass(const FormatOptions& options, std::size_t capacity) : options(options) { out.reserve(capacity); }

    // False when the output grew past `limit` and the pass stopped.
    bool run(const std::vector<Token>& tokens, std::size_t limit) {
        for (std::size_t i = 0; i < tokens.size() && tokens[i].type != TokenType::EndOfFile; ++i) {
            const Token* prev = i > 0 ? &tokens[i - 1] : nullptr;
            const Token* next = nullptr;
            if (i + 1 < tokens.size() && tokens[i + 1].type != TokenType::EndOfFile) next = &tokens[i + 1];
            keepBlankLines(tokens[i], prev);
            handle(tokens[i], prev, next);
            if (out.size() > limit) return false;
        }
        if (!out.empty() && out.back() != '\n') out += '\n';
        return true;
    }

    std::string take() { return std::move(out); }

private:
    void handle(const Token& token, const Token* prev, const Token* next) {
        switch (token.type) {
            case TokenType::Comment:
            case TokenType::DocComment: writeComment(token); return;
            case TokenType::LeftBrace: openBrace(); return;
            case TokenType::RightBrace: closeBrace(next); return;
            case TokenType::Semicolon: writeSemicolon(); return;
            case TokenType::LeftParen: openParen(prev); break;
            case TokenType::RightParen: closeParen(); break;
            default: break;
        }
        place(token, prev);
    }

    // Blank lines come from the gap between the line numbers of two tokens,
    // capped at maxBlankLines.
    void keepBlankLines(const Token& token, const Token* prev) {
        if (prev == nullptr) return;
        const std::int64_t gap = std::int64_t{token.location.line} - std::int64_t{prev->location.line};
        if (gap <= 1) return;
        const std::int64_t count = std::min<std::int64_t>(options.maxBlankLines, gap - 1);
        for (std::int64_t n = 0; n < count; ++n) {
            if (!out.empty() && out.back() != '\n') out += '\n';
            out += '\n';
            atLineStart = true;
        }
    }

    // A comment stays on the line it trails, and always ends its line.
    void writeComment(const Token& token) {
        if (atLineStart) {
            writeIndent();
        } else if (!out.empty() && out.back() != ' ') {
            out += ' ';
        }
        out += token.lexeme;
        endLine();
        lastWasUnary = false;
    }

    void openBrace() {
        if (atLineStart) {
            writeIndent();
        } else {
            appendSpace();
        }
        out += '{';
        endLine();
        ++indentLevel;
        lastWasUnary = false;
    }

    // "}" sits on a line of its own, except that else/catch/finally follow it
    // on the same line and ")", ";" and "," are glued to it.
    void closeBrace(const Token* next) {
        if (!atLineStart) endLine();
        indentLevel = std::max(indentLevel - 1, std::int64_t{0});
        writeIndent();
        out += '}';
        if (next != nullptr && BRACE_CONTINUATIONS.contains(next->type)) {
            out += ' ';
        } else if (next == nullptr || !BRACE_CLOSERS.contains(next->type)) {
            endLine();
        }
        lastWasUnary = false;
    }

    // Inside the parentheses of a `for` header a ";" is followed by a space;
    // everywhere else it ends the line. It never writes an indent.
    void writeSemicolon() {
        out += ';';
        if (parenDepth >= 1 && forParenDepth >= 0) {
            out += ' ';
        } else {
            endLine();
        }
        lastWasUnary = false;
    }

    void openParen(const Token* prev) {
        if (prev != nullptr) {
            if (CONTROL_KEYWORDS.contains(prev->type) && !out.empty() && out.back() != ' ') out += ' ';
            if (prev->type == TokenType::For) forParenDepth = parenDepth;
        }
        ++parenDepth;
    }

    // The `for` marker is dropped only when the depth before closing is not
    // above it; closing the `for` header itself at depth 0 keeps it.
    void closeParen() {
        const std::int64_t depth = std::max(parenDepth, std::int64_t{1});
        if (depth <= forParenDepth) forParenDepth = -1;
        parenDepth = depth - 1;
    }

    // Every other token: decide on a space in front, then write the lexeme.
    void place(const Token& token, const Token* prev) {
        std::optional<TokenType> prevType;
        if (prev != nullptr) prevType = prev->type;
        const bool isUnary = isPrefixOperator(token.type, prevType);
        const bool afterUnary = lastWasUnary;
        lastWasUnary = isUnary;

        if (atLineStart) {
            writeIndent();
        } else if (prevType.has_value() &&
                   needsSpaceBefore(SpacingContext{token.type, *prevType, isUnary, afterUnary}, options)) {
            appendSpace();
        }
        out += token.lexeme;
    }

    void writeIndent() {
        const std::int64_t level = std::max(indentLevel, std::int64_t{0});
        if (options.useTabs) {
            out.append(static_cast<std::size_t>(level), '\t');
        } else {
            const std::int64_t width = std::max<std::int64_t>(options.indentSize, 0);
            out.append(static_cast<std::size_t>(level * width), ' ');
        }
        atLineStart = false;
    }

    void appendSpace() {
        if (!out.empty() && out.back() != '\n' && out.back() != ' ') out += ' ';
    }

    void endLine() {
        out += '\n';
        atLineStart = true;
    }

    const FormatOptions& options;
    std::string out;
    std::int64_t indentLevel = 0;
    std::int64_t parenDepth = 0;
    std::int64_t forParenDepth = -1;
    bool atLineStart = true;
    bool lastWasUnary = false;
};

}  // namespace

std::string formatTokens(const std::vector<Token>& tokens, const FormatOptions& options, std::size_t capacity) {
    // With no limit the pass always completes.
    return *formatTokensWithin(tokens, options, capacity, std::numeric_limits<std::size_t>::max());
}

std::optional<std::string> formatTokensWithin(const std::vector<Token>& tokens, const FormatOptions& options,
                                              std::size_t capacity, std::size_t limit) {
    FormatPass pass(options, capacity);
    if (!pass.run(tokens, limit)) return std::nullopt;
    return pass.take();
}

}  // namespace quor::fmt
