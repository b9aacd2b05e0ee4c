#pragma once

#include <utility>
#include <vector>

#include "ast/ASTNode.h"
#include "diagnostics/SourceLocation.h"

namespace quor::ast {

// The root of a parsed source: its top-level declarations and statements,
// never null. Its location is that of the source's first token.
class Program final : public ASTNode {
public:
    Program(std::vector<NodePtr> declarations, diagnostics::SourceLocation location)
        : ASTNode(NodeKind::Program, std::move(location)), declarations(std::move(declarations)) {}
    // Frees the declarations in order, each asked for from memory ahead.
    ~Program() override;
    void accept(ASTVisitor& visitor) const override;

    std::vector<NodePtr> declarations;
    // False only when the parser saw no enum declared anywhere but directly
    // at the top level, so that nothing below a declaration need be searched
    // for one. A tree made by other means keeps the default.
    bool mayNestEnums = true;
};

// Asks the processor for the declaration a few places ahead of `index`. A
// loop over the declarations of a large program otherwise waits on memory
// for each one in turn: they lie far apart, each after its whole body.
inline void prefetchAhead(const std::vector<NodePtr>& declarations, std::size_t index) {
    constexpr std::size_t DISTANCE = 6;
    if (index + DISTANCE < declarations.size()) __builtin_prefetch(declarations[index + DISTANCE].get());
}

}  // namespace quor::ast
