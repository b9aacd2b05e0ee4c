// Hover: the word under the cursor, explained from the keyword and type
// tables or from the document's declaration of that name.
#include <cctype>
#include <cstddef>
#include <optional>

#include "doc/DocLookup.h"
#include "lsp/LspServer.h"
#include "lsp/WordTables.h"

namespace quor::lsp {

namespace {

bool isWordByte(char byte) { return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '_'; }

// The line with that zero-based number, read up to each line feed; false
// when the text has fewer lines. A final line feed starts no further line.
bool lineAt(const std::string& text, std::int32_t number, std::string& line) {
    if (number < 0) return false;
    std::size_t start = 0;
    for (std::int32_t current = 0; start < text.size(); ++current) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        if (current == number) {
            line = text.substr(start, end - start);
            return true;
        }
        start = end + 1;
    }
    return false;
}

std::string keywordMarkdown(const KeywordRow& row) {
    std::string markdown = "**Keyword** `";
    markdown.append(row.first);
    markdown.append("`\n\n");
    markdown.append(row.second);
    return markdown;
}

std::string primitiveTypeMarkdown(const std::string& word) {
    std::string markdown = "**Type** `";
    markdown.append(word);
    markdown.append("`\n\nBuilt-in primitive type in Quor.");
    return markdown;
}

std::string declarationMarkdown(const doc::DocEntry& entry) {
    std::string markdown = "```quor\n";
    markdown.append(entry.signature);
    markdown.append("\n```\n");
    if (!entry.description.empty()) {
        markdown.push_back('\n');
        markdown.append(entry.description);
        markdown.push_back('\n');
    }
    return markdown;
}

}  // namespace

std::string LspServer::extractWordAtPosition(const std::string& text, std::int32_t line, std::int32_t character) {
    std::string lineText;
    if (!lineAt(text, line, lineText) || lineText.empty()) return "";
    const auto length = static_cast<std::int64_t>(lineText.size());
    std::int64_t index = character < length ? character : length - 1;
    if (index < 0) return "";
    // A cursor directly behind a word still finds it.
    if (!isWordByte(lineText[static_cast<std::size_t>(index)])) {
        if (index == 0 || !isWordByte(lineText[static_cast<std::size_t>(index - 1)])) return "";
        --index;
    }
    auto start = static_cast<std::size_t>(index);
    auto end = static_cast<std::size_t>(index) + 1;
    while (start > 0 && isWordByte(lineText[start - 1])) --start;
    while (end < lineText.size() && isWordByte(lineText[end])) ++end;
    return lineText.substr(start, end - start);
}

JsonValue LspServer::handleHover(const JsonValue&, const JsonValue& params) {
    const std::string uri = params["textDocument"]["uri"].getString();
    const Position position = Position::fromJson(params["position"]);
    const std::string& text = storedText(uri);
    const std::string word = extractWordAtPosition(text, position.line, position.character);
    if (word.empty()) return JsonValue();

    Hover hover;
    if (const KeywordRow* row = findKeyword(word)) {
        hover.contents = keywordMarkdown(*row);
    } else if (isPrimitiveTypeName(word)) {
        hover.contents = primitiveTypeMarkdown(word);
    } else {
        // The declaration that a lookup over the extracted module would find,
        // read without building the entries of every other declaration.
        const std::optional<doc::DocEntry> entry = doc::lookupDeclaration(text, uri, word);
        if (!entry) return JsonValue();
        hover.contents = declarationMarkdown(*entry);
    }
    return hover.toJson();
}

}  // namespace quor::lsp
