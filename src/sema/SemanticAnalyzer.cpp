#include "sema/SemanticAnalyzer.h"

namespace quor::sema {

SemanticAnalyzer::SemanticAnalyzer(diagnostics::DiagnosticEngine& diagnostics)
    : diagnostics(diagnostics),
      resolver(types, symbols, diagnostics),
      checker(types, symbols, diagnostics) {
    symbols.initBuiltins(types);
}

bool SemanticAnalyzer::analyze(const ast::Program& program) { return resolveThenCheck(program, nullptr); }

bool SemanticAnalyzer::analyzeReleasingBodies(ast::Program& program) { return resolveThenCheck(program, &program); }

bool SemanticAnalyzer::resolveThenCheck(const ast::Program& program, ast::Program* releasing) {
    const auto before = diagnostics.getErrorCount();
    resolver.resolve(program);
    // Name errors first: the checker would only repeat them as type errors.
    if (diagnostics.getErrorCount() != before) return false;
    if (releasing) {
        checker.checkReleasingBodies(*releasing);
    } else {
        checker.check(program);
    }
    return diagnostics.getErrorCount() == before;
}

}  // namespace quor::sema
