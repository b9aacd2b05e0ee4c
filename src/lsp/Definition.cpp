// Go to definition: the line of the first declaration named like the word
// under the cursor, in the same document.
#include <optional>

#include "doc/DocLookup.h"
#include "lsp/LspServer.h"

namespace quor::lsp {

JsonValue LspServer::handleDefinition(const JsonValue&, const JsonValue& params) {
    const std::string uri = params["textDocument"]["uri"].getString();
    const Position position = Position::fromJson(params["position"]);
    const std::string& text = storedText(uri);
    const std::string word = extractWordAtPosition(text, position.line, position.character);
    if (word.empty()) return JsonValue();

    // Only the line of the declaration that a lookup over the extracted
    // module would find is needed, so no doc comment is read.
    const std::optional<std::int32_t> declared = doc::lookupDeclarationLine(text, uri, word);
    if (!declared) return JsonValue();

    // The range brings the cursor to the declaration's line; it does not
    // mark the name itself.
    const std::int32_t line = *declared < 2 ? 0 : *declared - 1;
    Location location;
    location.uri = uri;
    location.range.start = Position{line, 0};
    location.range.end = Position{line, static_cast<std::int32_t>(word.size())};
    return location.toJson();
}

}  // namespace quor::lsp
