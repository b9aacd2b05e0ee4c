#pragma once

#include <cstdint>
#include <istream>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "lsp/JsonValue.h"
#include "lsp/Protocol.h"

namespace quor::frontend {
struct FrontEndResult;
}

namespace quor::lsp {

// The language server: reads framed JSON-RPC messages from `input`, answers
// on `output`, and keeps the text of every open document.
class LspServer {
public:
    LspServer(std::istream& input, std::ostream& output);

    // Transport and message loop.
    void run();
    static bool parseHeader(std::istream& stream, std::uint64_t& length);
    static std::string frameMessage(const std::string& body);

    // Dispatch: the serialized response, or "" when nothing is to be sent.
    std::string handleMessage(const std::string& body);

    void sendNotification(const std::string& method, const JsonValue& params);
    void sendResponse(const JsonValue& id, const JsonValue& result);
    void sendError(const JsonValue& id, std::int32_t code, const std::string& message);

    // Requests.
    JsonValue handleInitialize(const JsonValue& id, const JsonValue& params);
    JsonValue handleShutdown(const JsonValue& id);
    JsonValue handleCompletion(const JsonValue& id, const JsonValue& params);
    JsonValue handleHover(const JsonValue& id, const JsonValue& params);
    JsonValue handleDefinition(const JsonValue& id, const JsonValue& params);
    JsonValue handleFormatting(const JsonValue& id, const JsonValue& params);
    JsonValue handleRename(const JsonValue& id, const JsonValue& params);

    // Document notifications.
    void handleDidOpen(const JsonValue& params);
    void handleDidChange(const JsonValue& params);
    void handleDidClose(const JsonValue& params);

    // Document store.
    void openDocument(const std::string& uri, const std::string& text);
    void updateDocument(const std::string& uri, const std::string& text);
    void closeDocument(const std::string& uri);
    std::string getDocument(const std::string& uri) const;

    // Diagnostics.
    void publishDiagnostics(const std::string& uri);
    std::vector<Diagnostic> computeDiagnostics(const std::string& uri, const std::string& text);
    // The same, leaving the pass (tokens, tree, analyzer) in `pass` for the
    // caller to free when it suits it.
    std::vector<Diagnostic> computeDiagnostics(const std::string& uri, const std::string& text,
                                               frontend::FrontEndResult& pass);

    // The identifier-like word under (or directly behind) a position.
    static std::string extractWordAtPosition(const std::string& text, std::int32_t line,
                                             std::int32_t character);

    bool isRunning() const { return running; }
    bool isInitialized() const { return initialized; }

private:
    // The stored text itself, for the handlers that only read it while they
    // run (nothing changes the store meanwhile); empty for an unknown URI.
    // A large document is not copied for every keystroke and request.
    const std::string& storedText(const std::string& uri) const;

    std::istream& input;
    std::ostream& output;
    bool running = true;
    bool initialized = false;
    std::map<std::string, std::string> documents;
};

}  // namespace quor::lsp
