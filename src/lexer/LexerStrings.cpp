#include <array>
#include <optional>

#include "diagnostics/DiagnosticCodes.h"
#include "lexer/CharClass.h"
#include "lexer/Lexer.h"

namespace quor::lexer {

namespace {

using diagnostics::CODE_SYNTAX;

struct SimpleEscape {
    char selector;
    char value;
};

// Escapes shared by string and character literals. "\u" exists only in
// strings and is handled on its own.
constexpr std::array<SimpleEscape, 7> SIMPLE_ESCAPES = {{
    {'"', '"'},
    {'\'', '\''},
    {'0', '\0'},
    {'\\', '\\'},
    {'n', '\n'},
    {'r', '\r'},
    {'t', '\t'},
}};

std::optional<char> decodeSimpleEscape(char selector) {
    for (const SimpleEscape& escape : SIMPLE_ESCAPES) {
        if (escape.selector == selector) {
            return escape.value;
        }
    }
    return std::nullopt;
}

// One UTF-16 code unit written as UTF-8; surrogates are encoded alone.
void appendUtf8(std::string& buffer, unsigned unit) {
    if (unit <= 0x7F) {
        buffer.push_back(static_cast<char>(unit));
    } else if (unit <= 0x7FF) {
        buffer.push_back(static_cast<char>(0xC0 | (unit >> 6)));
        buffer.push_back(static_cast<char>(0x80 | (unit & 0x3F)));
    } else {
        buffer.push_back(static_cast<char>(0xE0 | (unit >> 12)));
        buffer.push_back(static_cast<char>(0x80 | ((unit >> 6) & 0x3F)));
        buffer.push_back(static_cast<char>(0x80 | (unit & 0x3F)));
    }
}

constexpr int UNICODE_ESCAPE_DIGITS = 4;

}  // namespace

// Entered with "\u" consumed. Reads up to four hex digits, one at a time;
// a byte that is no hex digit is left unread.
bool Lexer::scanUnicodeEscape(std::string& buffer) {
    unsigned unit = 0;
    for (int i = 0; i < UNICODE_ESCAPE_DIGITS; ++i) {
        if (isAtEnd() || !isHexDigit(peek())) {
            return false;
        }
        unit = unit * 16 + hexDigitValue(advance());
    }
    appendUtf8(buffer, unit);
    return true;
}

// Entered with the opening quote consumed. The lexeme is the decoded text.
// "$" and "{" mean nothing here: interpolation is taken apart by the parser.
Token Lexer::scanString() {
    std::string buffer;
    while (!isAtEnd()) {
        char c = advance();
        if (c == '"') {
            return makeToken(TokenType::StringLiteral, std::move(buffer));
        }
        if (c == '\n') {
            return errorToken(CODE_SYNTAX, "Unclosed string literal before newline",
                              "Close the string with a double quote '\"'");
        }
        if (c != '\\') {
            buffer.push_back(c);
            continue;
        }
        if (isAtEnd()) {
            return errorToken(CODE_SYNTAX, "Unfinished escape sequence at end of file", "");
        }
        char selector = advance();
        if (selector == 'u') {
            if (!scanUnicodeEscape(buffer)) {
                return errorToken(CODE_SYNTAX, "Invalid unicode escape sequence, expected 4 hex digits",
                                  "Example: \\u0041");
            }
        } else if (std::optional<char> decoded = decodeSimpleEscape(selector)) {
            buffer.push_back(*decoded);
        } else {
            // Unknown escapes are kept verbatim, backslash included.
            buffer.push_back('\\');
            buffer.push_back(selector);
        }
    }
    return errorToken(CODE_SYNTAX, "Unclosed string literal at end of file", "Add closing '\"' at end of string");
}

// Entered with the opening quote consumed. An immediately following quote is
// left unread, so "''" reports an empty literal and then opens another one.
Token Lexer::scanChar() {
    if (isAtEnd() || peek() == '\'') {
        return errorToken(CODE_SYNTAX, "Empty character literal",
                          "Character literals must contain exactly one character");
    }
    char content = advance();
    if (content == '\\') {
        if (isAtEnd()) {
            return errorToken(CODE_SYNTAX, "Unfinished escape sequence in character literal", "");
        }
        char selector = advance();
        // Unknown escapes stand for the escaped byte itself.
        content = decodeSimpleEscape(selector).value_or(selector);
    }
    if (!match('\'')) {
        return errorToken(CODE_SYNTAX, "Unclosed character literal", "Close the character with a single quote ''");
    }
    return makeToken(TokenType::CharLiteral, std::string(1, content));
}

}  // namespace quor::lexer
