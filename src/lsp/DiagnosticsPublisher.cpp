// Runs the front end over a document and publishes what it reported.
#include <memory>
#include <sstream>

#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"
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
    // Kept for the analysis stage; dies with the pass.
    std::unique_ptr<ast::Program> program;

    bool clean() const { return engine.getErrorCount() == 0; }

    void scan() {
        lexer::Lexer scanner(text, uri, &engine);
        tokens = scanner.tokenizeAll();
    }

    void parse() {
        parser::Parser syntax(tokens, uri, &engine);
        program = syntax.parseProgram();
    }

    void run() {
        scan();
        if (!clean()) return;
        parse();
        // The analysis stage slots in here, behind the same check.
    }
};

}  // namespace

std::vector<Diagnostic> LspServer::computeDiagnostics(const std::string& uri, const std::string& text) {
    std::ostringstream report;  // the engine's printed form is not used here
    diagnostics::DiagnosticEngine engine(report);
    FrontEndPass pass{uri, text, engine, {}, nullptr};
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
