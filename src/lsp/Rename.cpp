// Rename: every identifier token spelled like the word under the cursor,
// in the one document, gets the new name. Strings and comments are not
// identifier tokens and stay as they are.
#include <sstream>

#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"
#include "lsp/LspServer.h"

namespace quor::lsp {

namespace {

TextEdit renameEdit(const lexer::Token& token, std::size_t wordLength, const std::string& newName) {
    const std::int32_t line = token.location.line < 2 ? 0 : static_cast<std::int32_t>(token.location.line) - 1;
    const std::int32_t column = token.location.column < 2 ? 1 : static_cast<std::int32_t>(token.location.column);
    TextEdit edit;
    edit.range.start = Position{line, column - 1};
    edit.range.end = Position{line, column - 1 + static_cast<std::int32_t>(wordLength)};
    edit.newText = newName;
    return edit;
}

}  // namespace

JsonValue LspServer::handleRename(const JsonValue&, const JsonValue& params) {
    const std::string uri = params["textDocument"]["uri"].getString();
    const Position position = Position::fromJson(params["position"]);
    const std::string newName = params["newName"].getString();
    const std::string& text = storedText(uri);
    const std::string word = extractWordAtPosition(text, position.line, position.character);
    if (word.empty() || newName.empty()) return JsonValue();

    // Scanner faults are collected and ignored; every token made is used.
    std::ostringstream discarded;
    diagnostics::DiagnosticEngine engine(discarded);
    lexer::Lexer scanner(text, uri, &engine);
    scanner.preserveComments = false;
    JsonValue edits = JsonValue::makeArray();
    // Tokens are looked at one by one as they are scanned; none is kept.
    for (lexer::Token token = scanner.nextToken(); token.type != lexer::TokenType::EndOfFile;
         token = scanner.nextToken()) {
        if (token.type == lexer::TokenType::Identifier && token.lexeme == word) {
            edits.push(renameEdit(token, word.size(), newName).toJson());
        }
    }
    JsonValue changes = JsonValue::makeObject();
    changes[uri] = std::move(edits);
    JsonValue result = JsonValue::makeObject();
    result["changes"] = std::move(changes);
    return result;
}

}  // namespace quor::lsp
