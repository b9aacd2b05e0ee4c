// Completion, hover, definition and rename at fuzzed positions of a fuzzed
// document, and formatting of it, through the server's handlers. The first
// bytes choose the place (lines and characters from below 0 to past the
// end), the rest is the document. Every request gets an answer that
// serializes.
#include <climits>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "FuzzSupport.h"
#include "lsp/JsonValue.h"
#include "lsp/LspServer.h"

using quor::lsp::JsonValue;

namespace {

const char* const URI = "file:///fuzz/features.quor";

std::int32_t place(quor::fuzz::ByteReader& reader) {
    switch (reader.byte() % 8) {
        case 0: return -1;
        case 1: return INT_MAX;
        case 2: return INT_MIN;
        default: return static_cast<std::int32_t>(reader.number(600));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quor::fuzz::ByteReader reader(data, size);
    const std::int32_t line = place(reader);
    const std::int32_t character = place(reader);
    const std::uint8_t nameChoice = reader.byte();
    const std::string text = reader.rest();
    quor::fuzz::runGuarded(quor::fuzz::ALLOW_ENUM_OVERFLOW, [&] {
        std::istringstream none;
        std::ostringstream out;
        quor::lsp::LspServer server(none, out);
        server.openDocument(URI, text);

        JsonValue params;
        params["textDocument"]["uri"] = URI;
        params["position"]["line"] = line;
        params["position"]["character"] = character;
        JsonValue id(7);
        (void)server.handleCompletion(id, params).serialize();
        (void)server.handleHover(id, params).serialize();
        (void)server.handleDefinition(id, params).serialize();
        static const char* const NAMES[] = {"renamed", "", "x", "1abc", "a\"b", "fn"};
        params["newName"] = NAMES[nameChoice % 6];
        (void)server.handleRename(id, params).serialize();
        JsonValue formatting;
        formatting["textDocument"]["uri"] = URI;
        (void)server.handleFormatting(id, formatting).serialize();
        (void)quor::lsp::LspServer::extractWordAtPosition(text, line, character);
    });
    return 0;
}
