// The document store and the notifications that fill it.
#include "lsp/LspServer.h"

namespace quor::lsp {

void LspServer::handleDidOpen(const JsonValue& params) {
    const JsonValue& textDocument = params["textDocument"];
    const std::string uri = textDocument["uri"].getString();
    documents[uri] = textDocument["text"].getString();
    publishDiagnostics(uri);
}

void LspServer::handleDidChange(const JsonValue& params) {
    const std::string uri = params["textDocument"]["uri"].getString();
    const JsonValue& changes = params["contentChanges"];
    if (!changes.isArray() || changes.arrayValue.empty()) return;
    // Full synchronisation: the first change holds the whole text; ranges
    // and any further changes are not looked at.
    documents[uri] = changes[0]["text"].getString();
    publishDiagnostics(uri);
}

void LspServer::handleDidClose(const JsonValue& params) {
    documents.erase(params["textDocument"]["uri"].getString());
}

void LspServer::openDocument(const std::string& uri, const std::string& text) { documents[uri] = text; }

void LspServer::updateDocument(const std::string& uri, const std::string& text) { documents[uri] = text; }

void LspServer::closeDocument(const std::string& uri) { documents.erase(uri); }

std::string LspServer::getDocument(const std::string& uri) const { return storedText(uri); }

const std::string& LspServer::storedText(const std::string& uri) const {
    static const std::string NO_TEXT;
    auto found = documents.find(uri);
    return found != documents.end() ? found->second : NO_TEXT;
}

}  // namespace quor::lsp
