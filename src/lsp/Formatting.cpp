// Document formatting: one edit that replaces the whole text by the
// formatter's output. The client's formatting options are not read; the
// server always formats with its own fixed settings.
#include <algorithm>
#include <cstdint>

#include "fmt/Formatter.h"
#include "lsp/LspServer.h"

namespace quor::lsp {

namespace {

fmt::FormatOptions serverFormatOptions() {
    fmt::FormatOptions options;
    options.indentSize = 4;
    options.useTabs = false;
    options.maxBlankLines = 1;
    options.spaceAroundOperators = true;
    options.spaceAfterColon = true;
    options.spaceAfterComma = true;
    return options;
}

// The position just behind the last byte: the line is the number of line
// feeds, the character the number of bytes behind the last one.
Position endOfText(const std::string& text) {
    const std::size_t lineFeeds = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    const std::size_t lastFeed = text.rfind('\n');
    const std::size_t tail = lastFeed == std::string::npos ? text.size() : text.size() - lastFeed - 1;
    Position end;
    end.line = static_cast<std::int32_t>(lineFeeds);
    end.character = static_cast<std::int32_t>(tail);
    return end;
}

}  // namespace

JsonValue LspServer::handleFormatting(const JsonValue&, const JsonValue& params) {
    JsonValue edits = JsonValue::makeArray();
    const std::string& text = storedText(params["textDocument"]["uri"].getString());
    if (text.empty()) return edits;

    TextEdit edit;
    edit.range.start = Position{};
    edit.range.end = endOfText(text);
    edit.newText = fmt::Formatter(serverFormatOptions()).format(text);
    edits.push(edit.toJson());
    return edits;
}

}  // namespace quor::lsp
