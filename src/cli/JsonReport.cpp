#include "cli/DiagnosticReport.h"

#include <array>
#include <cstdint>

namespace quor::cli {

namespace {

struct ShortEscape {
    char byte;
    std::string_view text;
};

constexpr std::array<ShortEscape, 7> SHORT_ESCAPES = {{
    {'"', "\\\""},
    {'\\', "\\\\"},
    {'\b', "\\b"},
    {'\f', "\\f"},
    {'\n', "\\n"},
    {'\r', "\\r"},
    {'\t', "\\t"},
}};

void appendHexEscape(std::string& out, unsigned char byte) {
    constexpr std::string_view DIGITS = "0123456789abcdef";
    out += "\\u00";
    out += DIGITS[byte >> 4];
    out += DIGITS[byte & 0xF];
}

bool isContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

// Length of the valid UTF-8 sequence that starts at `at`, or 0 if there is
// none: overlong forms, surrogates and code points past U+10FFFF are refused.
std::size_t utf8SequenceLength(std::string_view text, std::size_t at) {
    auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
    unsigned char lead = byte(0);
    std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || at + length > text.size()) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if (!isContinuation(byte(i))) return 0;
    }
    unsigned char second = byte(1);
    bool overlongOrOutside = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                             (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
    return overlongOrOutside ? 0 : length;
}

// Appends the byte at `at` (and the rest of its UTF-8 sequence) escaped as
// needed; returns how many bytes were used.
std::size_t appendEscaped(std::string& out, std::string_view text, std::size_t at) {
    auto byte = static_cast<unsigned char>(text[at]);
    for (const ShortEscape& escape : SHORT_ESCAPES) {
        if (text[at] == escape.byte) {
            out += escape.text;
            return 1;
        }
    }
    if (byte < 0x20) {
        appendHexEscape(out, byte);
        return 1;
    }
    if (byte < 0x80) {
        out += text[at];
        return 1;
    }
    std::size_t length = utf8SequenceLength(text, at);
    if (length == 0) {
        appendHexEscape(out, byte);
        return 1;
    }
    out.append(text.substr(at, length));
    return length;
}

}  // namespace

std::string jsonString(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 2);
    out += '"';
    for (std::size_t at = 0; at < text.size();) at += appendEscaped(out, text, at);
    out += '"';
    return out;
}

void writeJsonLine(const diagnostics::Diagnostic& diagnostic, std::ostream& out) {
    out << "{\"file\":" << jsonString(diagnostic.location.file) << ",\"line\":" << diagnostic.location.line
        << ",\"column\":" << diagnostic.location.column << ",\"code\":" << jsonString(diagnostic.code)
        << ",\"message\":" << jsonString(diagnostic.message) << ",\"hint\":" << jsonString(diagnostic.hint)
        << "}\n";
}

}  // namespace quor::cli
