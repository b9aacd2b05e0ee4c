// Compact JSON writer: sorted keys, integers without a fraction.
#include <cstdint>
#include <cstdio>
#include <sstream>
#include <string>

#include "lsp/JsonValue.h"

namespace quor::lsp {

namespace {

void writeNumber(std::ostringstream& out, double value) {
    // A double that survives a round trip through a 64-bit integer is written
    // as that integer; everything else, beyond-range values included, in the
    // stream's default format.
    constexpr double lowest = -9223372036854775808.0;
    constexpr double beyondHighest = 9223372036854775808.0;
    if (value >= lowest && value < beyondHighest) {
        auto integer = static_cast<std::int64_t>(value);
        if (static_cast<double>(integer) == value) {
            out << integer;
            return;
        }
    }
    out << value;
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

void writeString(std::ostringstream& out, const std::string& text) {
    out << '"';
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        if (const char* escape = namedEscape(byte)) {
            out << escape;
        } else if (byte < 0x20) {
            char buffer[8];
            std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(byte));
            out << buffer;
        } else {
            out << c;
        }
    }
    out << '"';
}

// Writes `value` and everything below it into the one stream, so that a
// deeply nested value costs time in proportion to its size.
void writeValue(std::ostringstream& out, const JsonValue& value) {
    using Type = JsonValue::Type;
    switch (value.type) {
        case Type::Null: out << "null"; break;
        case Type::Bool: out << (value.boolValue ? "true" : "false"); break;
        case Type::Number: writeNumber(out, value.numberValue); break;
        case Type::String: writeString(out, value.stringValue); break;
        case Type::Array: {
            out << '[';
            const char* separator = "";
            for (const JsonValue& element : value.arrayValue) {
                out << separator;
                writeValue(out, element);
                separator = ",";
            }
            out << ']';
            break;
        }
        case Type::Object: {
            out << '{';
            const char* separator = "";
            for (const auto& [key, member] : value.objectValue) {
                // Keys go out raw, without escaping.
                out << separator << '"' << key << "\":";
                writeValue(out, member);
                separator = ",";
            }
            out << '}';
            break;
        }
    }
}

}  // namespace

std::string JsonValue::serialize() const {
    std::ostringstream out;
    writeValue(out, *this);
    return out.str();
}

}  // namespace quor::lsp
