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
    // Frees the declarations in order, asking for each ahead.
    ~Program() override;
    void accept(ASTVisitor& visitor) const override;

    std::vector<NodePtr> declarations;
    // False only when the parser saw no enum declared anywhere but directly
    // at the top level, so that nothing below a declaration need be searched
    // for one. A tree made by other means keeps the default.
    bool mayNestEnums = true;
};

// Asks the processor for what a walk over a list of declarations reaches
// next. The declarations of a large program lie far apart, each after its
// whole body, and a function's body and a class's members lie after their
// own contents; a loop over them would wait on memory for each in turn. So
// the asking goes in three stages, each needing the one before to have
// arrived: the declaration eight places ahead of `index`, the lists it holds
// four places ahead (a function's parameters and body, a class's members),
// and what those hold at the next place (the body's statements, the members
// themselves). Used by both resolver passes, the checker and
// releaseDeclarations.
void prefetchDeclarationsAhead(const std::vector<NodePtr>& declarations, std::size_t index);

// Asks for the whole stretch of memory in which the parts of the
// declaration four places ahead of `index` were made. The parser makes a
// declaration's node after everything inside it (its parameters, its body's
// statements and expressions, a class's members and theirs), each cut from
// the allocator's current chunk right after the one before, so what lies
// between the node before it in the list and its own node is, as a rule,
// just its contents. A walk over a large program's bodies would otherwise
// wait on memory at nearly every node. Nothing is asked when the stretch
// runs backwards or is longer than MAX_DECLARATION_SPAN (the parts then lie
// in other chunks, or the declaration is large enough for its members to be
// asked for in turn). Asking never changes what a walk finds. Used by both
// resolver passes and the checker, over a program's declarations and a
// class's members.
inline constexpr std::size_t MAX_DECLARATION_SPAN = 16 * 1024;
void prefetchDeclarationSpanAhead(const std::vector<NodePtr>& declarations, std::size_t index);

// Frees the declarations of a list front to back, asking ahead as above, and
// leaves the list holding nulls. A program's declarations and a class's
// members are freed this way.
void releaseDeclarations(std::vector<NodePtr>& declarations);

}  // namespace quor::ast
