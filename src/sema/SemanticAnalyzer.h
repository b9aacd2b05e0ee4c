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

    diagnostics::DiagnosticEngine& diagnostics;
    TypeContext types;
    SymbolTable symbols;
    NameResolver resolver;
    TypeChecker checker;
};

}  // namespace quor::sema
