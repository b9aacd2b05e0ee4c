// Runs the front end over a document and publishes what it reported.
#include <sstream>

#include "diagnostics/DiagnosticEngine.h"
#include "frontend/FrontEnd.h"
#include "lsp/DiagnosticConversion.h"
#include "lsp/LspServer.h"

namespace quor::lsp {

std::vector<Diagnostic> LspServer::computeDiagnostics(const std::string& uri, const std::string& text) {
    frontend::FrontEndResult pass;
    return computeDiagnostics(uri, text, pass);
}

std::vector<Diagnostic> LspServer::computeDiagnostics(const std::string& uri, const std::string& text,
                                                      frontend::FrontEndResult& pass) {
    std::ostringstream report;  // the engine's printed form is not used here
    diagnostics::DiagnosticEngine engine(report);
    // Scanner, parser, analyzer: the first failing stage's errors alone.
    pass = frontend::runFrontEnd(text, uri, engine);

    std::vector<Diagnostic> result;
    for (const diagnostics::Diagnostic& reported : engine.getDiagnostics()) {
        result.push_back(toProtocolDiagnostic(reported));
    }
    return result;
}

// The pass outlives the notification: freeing a large document's tree and
// tables node by node takes a sixth of its pass, and the editor need not
// wait for that. It is gone before the next message is read.
void LspServer::publishDiagnostics(const std::string& uri) {
    frontend::FrontEndResult pass;
    std::vector<Diagnostic> found = computeDiagnostics(uri, storedText(uri), pass);
    JsonValue list(JsonValue::Type::Array);
    for (const Diagnostic& diagnostic : found) list.push(diagnostic.toJson());
    JsonValue params(JsonValue::Type::Object);
    params["uri"] = uri;
    params["diagnostics"] = std::move(list);
    sendNotification("textDocument/publishDiagnostics", params);
}

}  // namespace quor::lsp
