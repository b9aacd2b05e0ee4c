#pragma once

// Helpers of the expression tests: those of the checker tests (where a piece
// of source text stands, one expected record, variables found in a tree),
// the checked type of a named variable's initializer, and the one place
// given to every node a test builds by hand.
#include <string>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {

// The place of every node a test builds by hand.
inline const diagnostics::SourceLocation WHERE{"test.quor", 1, 1};

// The first declaration of `name` anywhere in the program's declarations.
inline const ast::VarDeclStmt* findVariable(const ast::Program& program, const std::string& name) {
    for (const auto& declaration : program.declarations) {
        if (const auto* found = detail::findVariable(declaration.get(), name)) return found;
    }
    return nullptr;
}

// The checked type of the initializer of variable `name`, as text; "<none>"
// when the variable or its checked initializer is not there.
inline std::string initializerType(Analysis& analysis, const std::string& name) {
    const ast::VarDeclStmt* decl = findVariable(*analysis.program, name);
    if (!decl || !decl->initializer) return "<none>";
    const auto& types = analysis.checker().exprTypes;
    auto it = types.find(decl->initializer.get());
    if (it == types.end() || !it->second) return "<none>";
    return it->second->toString();
}

}  // namespace quor::sema::testing
