// Asking for the parts of a tree a walk reaches next, and freeing what is
// left of a large tree once the checker has freed its bodies: declarations,
// members and parameters, scattered over memory the caches lost long ago.
#include <cstdint>

#include "ast/AST.h"

namespace quor::ast {

namespace {

constexpr std::size_t NODE_DISTANCE = 8;
constexpr std::size_t LIST_DISTANCE = 4;
constexpr std::size_t CONTENT_DISTANCE = 1;
constexpr std::size_t SPAN_DISTANCE = 4;
constexpr std::uintptr_t CACHE_LINE = 64;

// A prefetch of an address nothing is mapped at (a null pointer, as a freed
// body leaves) costs a walk of the page tables every time; none is asked.
void prefetch(const void* address) {
    if (address != nullptr) __builtin_prefetch(address);
}

const ASTNode* at(const std::vector<NodePtr>& list, std::size_t index) {
    return index < list.size() ? list[index].get() : nullptr;
}

void prefetchLists(const ASTNode* node) {
    if (node == nullptr) return;
    if (node->nodeKind == NodeKind::FunctionDecl) {
        const auto& function = static_cast<const FunctionDecl&>(*node);
        prefetch(function.params.data());
        prefetch(function.body.get());
    } else if (node->nodeKind == NodeKind::ClassDecl) {
        prefetch(static_cast<const ClassDecl&>(*node).members.data());
    }
}

void prefetchContents(const ASTNode* node) {
    if (node == nullptr) return;
    if (node->nodeKind == NodeKind::FunctionDecl) {
        const auto& function = static_cast<const FunctionDecl&>(*node);
        if (function.body) prefetch(function.body->statements.data());
    } else if (node->nodeKind == NodeKind::ClassDecl) {
        for (const auto& member : static_cast<const ClassDecl&>(*node).members) prefetch(member.get());
    }
}

}  // namespace

void prefetchDeclarationsAhead(const std::vector<NodePtr>& declarations, std::size_t index) {
    prefetch(at(declarations, index + NODE_DISTANCE));
    prefetchLists(at(declarations, index + LIST_DISTANCE));
    prefetchContents(at(declarations, index + CONTENT_DISTANCE));
}

void prefetchDeclarationSpanAhead(const std::vector<NodePtr>& declarations, std::size_t index) {
    const ASTNode* before = at(declarations, index + SPAN_DISTANCE - 1);
    const ASTNode* node = at(declarations, index + SPAN_DISTANCE);
    if (before == nullptr || node == nullptr) return;
    std::uintptr_t line = reinterpret_cast<std::uintptr_t>(before) & ~(CACHE_LINE - 1);
    const auto end = reinterpret_cast<std::uintptr_t>(node);
    if (end <= line || end - line > MAX_DECLARATION_SPAN) return;
    for (; line < end; line += CACHE_LINE) __builtin_prefetch(reinterpret_cast<const void*>(line));
}

// Freed one by one in order, each declaration would wait on memory.
void releaseDeclarations(std::vector<NodePtr>& declarations) {
    for (std::size_t i = 0; i < declarations.size(); ++i) {
        prefetchDeclarationsAhead(declarations, i);
        declarations[i].reset();
    }
}

Program::~Program() { releaseDeclarations(declarations); }

ClassDecl::~ClassDecl() { releaseDeclarations(members); }

}  // namespace quor::ast
