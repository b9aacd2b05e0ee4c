#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ast/AST.h"
#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Token.h"
#include "sema/SemanticAnalyzer.h"

namespace quor::frontend {

// What one pass of the front end leaves behind. The tree outlives the
// analyzer that ran over it (members go in reverse order): the analyzer's
// tables point into the tree.
struct FrontEndResult {
    std::vector<lexer::Token> tokens;
    std::unique_ptr<ast::Program> program;  // null when scanning failed
    std::unique_ptr<sema::SemanticAnalyzer> analyzer;  // null when it did not run
};

// Runs the whole chain over one text: scanner, parser, then the semantic
// analyzer, each stage only while the engine holds no error, so a reader
// sees the errors of the first failing stage alone. `fileName` is the name
// every location carries (a document URI in the server, a path in `quor`).
// The pass is for its reports: once the checker ran, the tree keeps its
// declarations but not the bodies of functions and methods, each freed as
// soon as it was checked (SemanticAnalyzer::analyzeReleasingBodies).
FrontEndResult runFrontEnd(const std::string& text, const std::string& fileName,
                           diagnostics::DiagnosticEngine& engine);

}  // namespace quor::frontend
