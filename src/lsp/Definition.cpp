// Go to definition: the line of the first declaration named like the word
// under the cursor, in the same document.
#include "doc/DocGenerator.h"
#include "doc/DocLookup.h"
#include "lsp/LspServer.h"

namespace quor::lsp {

JsonValue LspServer::handleDefinition(const JsonValue&, const JsonValue& params) {
    const std::string uri = params["textDocument"]["uri"].getString();
    const Position position = Position::fromJson(params["position"]);
    const std::string text = getDocument(uri);
    const std::string word = extractWordAtPosition(text, position.line, position.character);
    if (word.empty()) return JsonValue();

    const doc::DocGenerator generator(doc::defaultDocOptions());
    const doc::DocModule module = generator.extractModule(text, uri);
    const doc::DocEntry* entry = doc::findEntryByName(module, word);
    if (entry == nullptr) return JsonValue();

    // The range brings the cursor to the declaration's line; it does not
    // mark the name itself.
    const std::int32_t line = entry->line < 2 ? 0 : entry->line - 1;
    Location location;
    location.uri = uri;
    location.range.start = Position{line, 0};
    location.range.end = Position{line, static_cast<std::int32_t>(word.size())};
    return location.toJson();
}

}  // namespace quor::lsp
