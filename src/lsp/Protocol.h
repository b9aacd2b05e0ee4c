#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "lsp/JsonValue.h"

namespace quor::lsp {

// Zero-based line and character, characters counted in bytes.
struct Position {
    std::int32_t line = 0;
    std::int32_t character = 0;

    // Reads "line" and "character"; a missing or non-number member is 0.
    static Position fromJson(const JsonValue& value);
    JsonValue toJson() const;
};

struct Range {
    Position start;
    Position end;

    JsonValue toJson() const;
};

struct Location {
    std::string uri;
    Range range;

    JsonValue toJson() const;
};

struct TextEdit {
    Range range;
    std::string newText;

    JsonValue toJson() const;
};

// The protocol's diagnostic, as published to the client.
struct Diagnostic {
    Range range;
    std::int32_t severity = 1;
    std::string code;
    std::string source;
    std::string message;

    JsonValue toJson() const;
};

struct CompletionItem {
    std::string label;
    std::int32_t kind = 1;
    std::string detail;
    std::string documentation;  // Markdown
    std::string insertText;

    JsonValue toJson() const;
};

struct Hover {
    std::string contents;  // Markdown
    std::optional<Range> range;

    JsonValue toJson() const;
};

}  // namespace quor::lsp
