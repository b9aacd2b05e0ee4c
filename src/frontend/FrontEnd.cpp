#include "frontend/FrontEnd.h"

#include "lexer/Lexer.h"
#include "parser/Parser.h"
#include "sema/SemanticAnalyzer.h"

namespace quor::frontend {

FrontEndResult runFrontEnd(const std::string& text, const std::string& fileName,
                           diagnostics::DiagnosticEngine& engine) {
    FrontEndResult result;
    lexer::Lexer scanner(text, fileName, &engine);
    result.tokens = scanner.tokenizeAll();
    if (engine.hasErrors()) return result;

    parser::Parser syntax(result.tokens, fileName, &engine);
    result.program = syntax.parseProgram();
    if (engine.hasErrors() || !result.program) return result;

    result.analyzer = std::make_unique<sema::SemanticAnalyzer>(engine);
    result.analyzer->analyzeReleasingBodies(*result.program);
    return result;
}

}  // namespace quor::frontend
