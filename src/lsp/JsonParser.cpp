// The forgiving JSON reader: never fails, skips what it cannot use.
#include <algorithm>
#include <cctype>
#include <string>

#include "lsp/JsonValue.h"

namespace quor::lsp {

namespace {

bool isJsonSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

void skipSpace(const std::string& text, std::size_t& pos) {
    while (pos < text.size() && isJsonSpace(text[pos])) ++pos;
}

bool startsWith(const std::string& text, std::size_t pos, const char* word, std::size_t length) {
    return text.size() - pos >= length && text.compare(pos, length, word) == 0;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The minus sign is only taken in front: "1e-5" ends at its minus sign.
bool isNumberTail(char c) { return isDigit(c) || c == '+' || c == '.' || c == 'e' || c == 'E'; }

JsonValue parseNumber(const std::string& text, std::size_t& pos) {
    std::size_t start = pos;
    if (text[pos] == '-') ++pos;
    while (pos < text.size() && isNumberTail(text[pos])) ++pos;
    // std::stod reads the longest usable prefix and throws when there is
    // none or the value is out of range; that is left uncaught on purpose.
    return JsonValue(std::stod(text.substr(start, pos - start)));
}

JsonValue parseObject(const std::string& text, std::size_t& pos) {
    ++pos;  // '{'
    JsonValue object(JsonValue::Type::Object);
    skipSpace(text, pos);
    while (pos < text.size()) {
        char c = text[pos];
        if (c == '"') {
            std::string key = JsonValue::parseString(text, pos);
            skipSpace(text, pos);
            if (pos < text.size() && text[pos] == ':') ++pos;
            object.objectValue[key] = JsonValue::parseValue(text, pos);
            skipSpace(text, pos);
        } else if (c == '}') {
            ++pos;
            return object;
        } else {
            ++pos;  // commas and junk between members
            skipSpace(text, pos);
        }
    }
    return object;
}

JsonValue parseArray(const std::string& text, std::size_t& pos) {
    ++pos;  // '['
    JsonValue array(JsonValue::Type::Array);
    skipSpace(text, pos);
    while (pos < text.size()) {
        char c = text[pos];
        if (c == ',') {
            ++pos;
            skipSpace(text, pos);
        } else if (c == ']') {
            ++pos;
            return array;
        } else {
            array.arrayValue.push_back(JsonValue::parseValue(text, pos));
            skipSpace(text, pos);
        }
    }
    return array;
}

// The byte an escape letter stands for, or the letter itself.
char simpleEscape(char letter) {
    struct Row {
        char letter;
        char byte;
    };
    static constexpr Row ESCAPES[] = {
        {'"', '"'}, {'\\', '\\'}, {'/', '/'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'},
    };
    for (const Row& row : ESCAPES) {
        if (row.letter == letter) return row.byte;
    }
    return letter;
}

}  // namespace

JsonValue JsonValue::parseValue(const std::string& text, std::size_t& pos) {
    skipSpace(text, pos);
    if (pos >= text.size()) return JsonValue();
    char c = text[pos];
    if (c == '{') return parseObject(text, pos);
    if (c == '[') return parseArray(text, pos);
    if (c == '"') return JsonValue(parseString(text, pos));
    if (startsWith(text, pos, "true", 4)) {
        pos += 4;
        return JsonValue(true);
    }
    if (startsWith(text, pos, "false", 5)) {
        pos += 5;
        return JsonValue(false);
    }
    if (startsWith(text, pos, "null", 4)) {
        pos += 4;
        return JsonValue();
    }
    if (isDigit(c) || c == '-') return parseNumber(text, pos);
    ++pos;  // a byte no value starts with
    return JsonValue();
}

std::string JsonValue::parseString(const std::string& text, std::size_t& pos) {
    ++pos;  // opening quote
    std::string result;
    // Where the next quote and the next backslash are, each found by one
    // library search and looked for again only once passed: a document's
    // text is one string with an escape on every line, and testing every
    // byte against both cost more than the rest of the message's reading.
    auto next = [&](char wanted) { return std::min(text.find(wanted, pos), text.size()); };
    std::size_t nextQuote = next('"');
    std::size_t nextBackslash = next('\\');
    while (pos < text.size()) {
        // Plain bytes up to the next quote or backslash go over as one run.
        if (nextQuote < pos) nextQuote = next('"');
        if (nextBackslash < pos) nextBackslash = next('\\');
        const std::size_t special = std::min(nextQuote, nextBackslash);
        result.append(text, pos, special - pos);
        pos = special;
        if (pos >= text.size()) break;
        char c = text[pos++];
        if (c == '"') break;
        if (pos >= text.size()) {
            result += '\\';  // a backslash as the last byte stays
            break;
        }
        char letter = text[pos++];
        if (letter == 'u') {
            // Not decoded: four bytes become one '?'; fewer than four are left to be read on.
            if (text.size() - pos >= 4) {
                pos += 4;
                result += '?';
            }
            continue;
        }
        result += simpleEscape(letter);
    }
    return result;
}

}  // namespace quor::lsp
