// String interpolation. The scanner hands over a string literal with any
// "${...}" markers still in its text; here each marked piece is scanned and
// parsed on its own, and the literal becomes a left-nested chain of string
// concatenations. No interpolation node exists in the tree.
#include <string_view>
#include <utility>

#include "lexer/Lexer.h"
#include "parser/Parser.h"

namespace quor::parser {

using ast::ExprPtr;
using lexer::TokenType;

namespace {

constexpr std::string_view MARKER = "${";
constexpr std::string_view PIECE_FILE = "<anonymous>";

ExprPtr textPiece(std::string text, const diagnostics::SourceLocation& location) {
    return std::make_unique<ast::LiteralExpr>(ast::LiteralKind::String, std::move(text), location);
}

bool isStringLiteral(const ast::ExpressionNode* node) {
    const auto* literal = dynamic_cast<const ast::LiteralExpr*>(node);
    return literal != nullptr && literal->literalKind == ast::LiteralKind::String;
}

// Folds the parts into (((p0 + p1) + p2) + ...). A chain that would start
// with an interpolated value gets a leading empty string, so that "+"
// means concatenation from the left end on.
ExprPtr foldParts(std::vector<ExprPtr> parts, const diagnostics::SourceLocation& location) {
    if (parts.empty()) return textPiece("", location);
    std::size_t next = 0;
    ExprPtr accumulator;
    if (isStringLiteral(parts[0].get())) {
        accumulator = std::move(parts[0]);
        next = 1;
    } else {
        accumulator = textPiece("", location);
    }
    for (; next < parts.size(); ++next) {
        accumulator =
            std::make_unique<ast::BinaryExpr>(std::move(accumulator), TokenType::Plus, std::move(parts[next]), location);
    }
    return accumulator;
}

}  // namespace

ExprPtr Parser::parseStringLiteral() {
    const lexer::Token& token = previous();
    const std::string& text = token.lexeme;
    const diagnostics::SourceLocation& location = token.location;
    if (text.find(MARKER) == std::string::npos) return textPiece(text, location);

    std::vector<ExprPtr> parts;
    std::size_t pos = 0;
    while (true) {
        std::size_t marker = text.find(MARKER, pos);
        if (marker == std::string::npos) {
            if (pos < text.size() || parts.empty()) parts.push_back(textPiece(text.substr(pos), location));
            break;
        }
        if (marker > pos) parts.push_back(textPiece(text.substr(pos, marker - pos), location));
        std::size_t start = marker + MARKER.size();
        std::size_t end = start < text.size() ? text.find('}', start) : std::string::npos;
        if (end == std::string::npos) {
            // No closing brace: the marker and the rest stay plain text.
            parts.push_back(textPiece(text.substr(marker), location));
            break;
        }
        ExprPtr value = parseInterpolatedPiece(std::string_view(text).substr(start, end - start));
        if (value) parts.push_back(std::move(value));
        pos = end + 1;
        if (pos >= text.size()) break;
    }
    return foldParts(std::move(parts), location);
}

ExprPtr Parser::parseInterpolatedPiece(std::string_view piece) {
    lexer::Lexer scanner(piece, std::string(PIECE_FILE), nullptr);
    std::vector<lexer::Token> pieceTokens = scanner.tokenizeAll();
    Parser nested(pieceTokens, filename, diagnostics);
    return nested.parseExpression(Precedence::Assignment);
}

}  // namespace quor::parser
