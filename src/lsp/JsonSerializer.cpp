// Compact JSON writer: sorted keys, integers without a fraction.
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <sstream>
#include <string>

#include "lsp/JsonValue.h"

namespace quor::lsp {

namespace {

// The text is built in one string: each byte is appended directly, and runs
// of bytes that need no escape are appended as a whole, rather than going
// through a stream's formatting one character at a time.

void writeNumber(std::string& out, double value) {
    // A double that survives a round trip through a 64-bit integer is written
    // as that integer; everything else, beyond-range values included, in the
    // stream's default format.
    constexpr double lowest = -9223372036854775808.0;
    constexpr double beyondHighest = 9223372036854775808.0;
    if (value >= lowest && value < beyondHighest) {
        auto integer = static_cast<std::int64_t>(value);
        if (static_cast<double>(integer) == value) {
            char digits[24];
            auto written = std::to_chars(std::begin(digits), std::end(digits), integer);
            out.append(digits, written.ptr);
            return;
        }
    }
    std::ostringstream formatted;
    formatted << value;
    out.append(formatted.str());
}

const char* namedEscape(unsigned char byte) {
    switch (byte) {
        case '"': return "\\\"";
        case '\\': return "\\\\";
        case '\b': return "\\b";
        case '\f': return "\\f";
        case '\n': return "\\n";
        case '\r': return "\\r";
        case '\t': return "\\t";
        default: return nullptr;
    }
}

bool needsEscape(unsigned char byte) { return byte < 0x20 || byte == '"' || byte == '\\'; }

void writeString(std::string& out, const std::string& text) {
    out.push_back('"');
    const char* run = text.data();
    const char* const end = text.data() + text.size();
    for (const char* at = run; at != end; ++at) {
        auto byte = static_cast<unsigned char>(*at);
        if (!needsEscape(byte)) continue;
        out.append(run, at);
        run = at + 1;
        if (const char* escape = namedEscape(byte)) {
            out.append(escape);
        } else {
            char buffer[8];
            std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(byte));
            out.append(buffer);
        }
    }
    out.append(run, end);
    out.push_back('"');
}

// Writes `value` and everything below it into the one string, so that a
// deeply nested value costs time in proportion to its size.
void writeValue(std::string& out, const JsonValue& value) {
    using Type = JsonValue::Type;
    switch (value.type) {
        case Type::Null: out.append("null"); break;
        case Type::Bool: out.append(value.boolValue ? "true" : "false"); break;
        case Type::Number: writeNumber(out, value.numberValue); break;
        case Type::String: writeString(out, value.stringValue); break;
        case Type::Array: {
            out.push_back('[');
            bool first = true;
            for (const JsonValue& element : value.arrayValue) {
                if (!first) out.push_back(',');
                writeValue(out, element);
                first = false;
            }
            out.push_back(']');
            break;
        }
        case Type::Object: {
            out.push_back('{');
            bool first = true;
            for (const auto& [key, member] : value.objectValue) {
                // Keys go out raw, without escaping.
                if (!first) out.push_back(',');
                out.push_back('"');
                out.append(key);
                out.append("\":");
                writeValue(out, member);
                first = false;
            }
            out.push_back('}');
            break;
        }
    }
}

}  // namespace

std::string JsonValue::serialize() const {
    std::string out;
    writeValue(out, *this);
    return out;
}

}  // namespace quor::lsp
