#include "sema/SemanticAnalyzer.h"

namespace quor::sema {

SemanticAnalyzer::SemanticAnalyzer(diagnostics::DiagnosticEngine& diagnostics)
    : diagnostics(diagnostics),
      resolver(types, symbols, diagnostics),
      checker(types, symbols, diagnostics) {
    symbols.initBuiltins(types);
}

bool SemanticAnalyzer::analyze(const ast::Program& program) {
    const auto before = diagnostics.getErrorCount();
    resolver.resolve(program);
    // Name errors first: the checker would only repeat them as type errors.
    if (diagnostics.getErrorCount() != before) return false;
    checker.check(program);
    return diagnostics.getErrorCount() == before;
}

}  // namespace quor::sema
