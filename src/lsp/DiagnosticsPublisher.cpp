// Runs the front end over a document and publishes what it reported.
#include <sstream>

#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"
#include "lsp/DiagnosticConversion.h"
#include "lsp/LspServer.h"

namespace quor::lsp {

namespace {

// One pass of the front end over a single text. Each stage runs only while
// the engine has no errors, so the client sees the first failing stage alone.
struct FrontEndPass {
    const std::string& uri;
    const std::string& text;
    diagnostics::DiagnosticEngine& engine;
    std::vector<lexer::Token> tokens;

    bool clean() const { return engine.getErrorCount() == 0; }

    void scan() {
        lexer::Lexer scanner(text, uri, &engine);
        tokens = scanner.tokenizeAll();
    }

    void run() {
        scan();
        if (!clean()) return;
        // Later stages slot in here, each behind the same check:
        //   parse();    a Parser over `tokens` with `uri` as file name and the
        //               engine; the program is kept as a member for the next stage
        //   if (!clean()) return;
        //   analyze();  the semantic analyzer over that program
    }
};

}  // namespace

std::vector<Diagnostic> LspServer::computeDiagnostics(const std::string& uri, const std::string& text) {
    std::ostringstream report;  // the engine's printed form is not used here
    diagnostics::DiagnosticEngine engine(report);
    FrontEndPass pass{uri, text, engine, {}};
    pass.run();

    std::vector<Diagnostic> result;
    for (const diagnostics::Diagnostic& reported : engine.getDiagnostics()) {
        result.push_back(toProtocolDiagnostic(reported));
    }
    return result;
}

void LspServer::publishDiagnostics(const std::string& uri) {
    std::vector<Diagnostic> found = computeDiagnostics(uri, getDocument(uri));
    JsonValue list(JsonValue::Type::Array);
    for (const Diagnostic& diagnostic : found) list.push(diagnostic.toJson());
    JsonValue params(JsonValue::Type::Object);
    params["uri"] = uri;
    params["diagnostics"] = std::move(list);
    sendNotification("textDocument/publishDiagnostics", params);
}

}  // namespace quor::lsp
