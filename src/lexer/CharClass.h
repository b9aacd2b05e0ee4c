#pragma once

namespace quor::lexer {

// Byte classes of the scanner. Only ASCII counts: bytes of multi-byte UTF-8
// characters never belong to an identifier or a number.

constexpr bool isAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

constexpr bool isDecimalDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool isHexDigit(char c) {
    return isDecimalDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

constexpr bool isIdentifierStart(char c) { return isAsciiLetter(c) || c == '_'; }

constexpr bool isIdentifierPart(char c) { return isIdentifierStart(c) || isDecimalDigit(c); }

constexpr bool isDecimalDigitOrUnderscore(char c) { return isDecimalDigit(c) || c == '_'; }

// The value of a hex digit; only meaningful when isHexDigit(c).
constexpr unsigned hexDigitValue(char c) {
    if (isDecimalDigit(c)) {
        return static_cast<unsigned>(c - '0');
    }
    if (c >= 'a' && c <= 'f') {
        return static_cast<unsigned>(c - 'a' + 10);
    }
    return static_cast<unsigned>(c - 'A' + 10);
}

}  // namespace quor::lexer
