#include <array>

#include "diagnostics/DiagnosticCodes.h"
#include "lexer/CharClass.h"
#include "lexer/Lexer.h"

namespace quor::lexer {

namespace {

using diagnostics::CODE_SYNTAX;

struct RadixRule {
    char letter;  // lower case; the upper-case letter is accepted too
    unsigned base;
    std::string_view missingDigitMessage;
    std::string_view hint;
};

constexpr std::array<RadixRule, 3> RADIX_RULES = {{
    {'b', 2, "Binary literal requires at least one binary digit (0 or 1)", "Example: 0b1010"},
    {'o', 8, "Octal literal requires at least one octal digit (0-7)", "Example: 0o755"},
    {'x', 16, "Hexadecimal literal requires at least one hex digit", "Example: 0xFF"},
}};

char toLower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

const RadixRule* findRadix(char letter) {
    for (const RadixRule& rule : RADIX_RULES) {
        if (rule.letter == toLower(letter)) {
            return &rule;
        }
    }
    return nullptr;
}

bool isDigitOfBase(char c, unsigned base) { return isHexDigit(c) && hexDigitValue(c) < base; }

bool isExponentLetter(char c) { return c == 'e' || c == 'E'; }

bool isFloatSuffix(char c) { return c == 'f' || c == 'F'; }

}  // namespace

// Entered with the first digit consumed.
Token Lexer::scanNumber() {
    if (source[tokenStart] == '0' && !isAtEnd() && findRadix(peek()) != nullptr) {
        return scanRadixLiteral();
    }
    consumeWhile(isDecimalDigitOrUnderscore);
    if (isExponentLetter(peek())) {
        return scanExponent(false);
    }
    if (peek() == '.' && isDecimalDigit(peekNext())) {
        advance();
        consumeWhile(isDecimalDigitOrUnderscore);
        if (isExponentLetter(peek())) {
            return scanExponent(true);
        }
        return finishFloat();
    }
    return makeToken(TokenType::IntegerLiteral);
}

// Entered with "0" consumed and the radix letter next. A digit of a larger
// radix simply ends the literal; only a missing first digit is a fault.
Token Lexer::scanRadixLiteral() {
    const RadixRule& rule = *findRadix(advance());
    if (isAtEnd() || !isDigitOfBase(peek(), rule.base)) {
        return errorToken(CODE_SYNTAX, rule.missingDigitMessage, rule.hint);
    }
    while (!isAtEnd() && (isDigitOfBase(peek(), rule.base) || peek() == '_')) {
        advance();
    }
    return makeToken(TokenType::IntegerLiteral);
}

// Entered with the exponent letter next. Underscores are not taken here.
Token Lexer::scanExponent(bool hasFraction) {
    advance();
    if (peek() == '+' || peek() == '-') {
        advance();
    }
    if (!isDecimalDigit(peek())) {
        return errorToken(CODE_SYNTAX, "Floating-point exponent requires digits",
                          hasFraction ? "Example: 1.5e-3" : "Example: 1e6");
    }
    consumeWhile(isDecimalDigit);
    return finishFloat();
}

Token Lexer::finishFloat() {
    if (isFloatSuffix(peek())) {
        advance();
    }
    return makeToken(TokenType::FloatLiteral);
}

}  // namespace quor::lexer
