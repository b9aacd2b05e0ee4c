#pragma once

#include "ast/AST.h"
#include "diagnostics/DiagnosticEngine.h"
#include "sema/NameResolver.h"
#include "sema/Symbol.h"
#include "sema/TypeChecker.h"
#include "sema/TypeContext.h"

namespace quor::sema {

// The analysis stage: owns the types, the symbols, the resolver and the
// checker of one program, and reports through the engine it is given. The
// checker runs only when name resolution reported nothing. The tables point
// into the tree, so an analyzer must die before the program it analysed.
class SemanticAnalyzer {
public:
    explicit SemanticAnalyzer(diagnostics::DiagnosticEngine& diagnostics);

    // True when the analysis reported nothing.
    bool analyze(const ast::Program& program);
    // The same analysis for a caller that wants only the reports: the
    // checker frees each function's body once it is done with it (see
    // TypeChecker::checkReleasingBodies). The declarations stay.
    bool analyzeReleasingBodies(ast::Program& program);

    diagnostics::DiagnosticEngine& diagnostics;
    TypeContext types;
    SymbolTable symbols;
    NameResolver resolver;
    TypeChecker checker;

private:
    // `releasing` is the program itself when bodies are to be freed, else null.
    bool resolveThenCheck(const ast::Program& program, ast::Program* releasing);
};

}  // namespace quor::sema
