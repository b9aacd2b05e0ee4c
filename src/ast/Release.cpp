// Freeing what is left of a large tree once the checker has freed its
// bodies: declarations, members and parameters, scattered over memory the
// caches lost long ago. Freed one by one in order, each would wait on
// memory; so the walk asks for them ahead, in stages, since each stage needs
// the one before to have arrived: the declaration eight places on, a class's
// member list four places on, and the members of the next class themselves.
#include "ast/AST.h"

namespace quor::ast {

namespace {

// The members of the class declared at `index`; null for anything else.
const std::vector<NodePtr>* membersAt(const std::vector<NodePtr>& declarations, std::size_t index) {
    if (index >= declarations.size() || !declarations[index]) return nullptr;
    const ASTNode& node = *declarations[index];
    if (node.nodeKind != NodeKind::ClassDecl) return nullptr;
    return &static_cast<const ClassDecl&>(node).members;
}

}  // namespace

Program::~Program() {
    constexpr std::size_t AHEAD = 4;
    for (std::size_t i = 0; i < declarations.size(); ++i) {
        if (i + 2 * AHEAD < declarations.size()) __builtin_prefetch(declarations[i + 2 * AHEAD].get());
        if (const auto* members = membersAt(declarations, i + AHEAD)) __builtin_prefetch(members->data());
        if (const auto* members = membersAt(declarations, i + 1)) {
            for (const auto& member : *members) __builtin_prefetch(member.get());
        }
        declarations[i].reset();
    }
}

}  // namespace quor::ast
