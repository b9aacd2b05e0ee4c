#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "ast/NodeKind.h"
#include "diagnostics/SourceLocation.h"

namespace quor::ast {

class ASTVisitor;

// Root of the syntax tree. Every node knows its concrete kind and its place;
// children are owned through unique pointers, so destroying a root destroys
// the whole tree. Nodes are never copied.
class ASTNode {
public:
    ASTNode(const ASTNode&) = delete;
    ASTNode& operator=(const ASTNode&) = delete;
    virtual ~ASTNode() = default;

    virtual void accept(ASTVisitor& visitor) const = 0;

    NodeKind nodeKind;
    diagnostics::SourceLocation location;

protected:
    ASTNode(NodeKind kind, diagnostics::SourceLocation loc) : nodeKind(kind), location(std::move(loc)) {}
};

// Base of all expressions; adds nothing to ASTNode.
class ExpressionNode : public ASTNode {
protected:
    using ASTNode::ASTNode;
};

// Base of all statements, declarations included, so that a declaration may
// stand wherever a statement can.
class StatementNode : public ASTNode {
protected:
    using ASTNode::ASTNode;
};

// Asks the processor for the memory a little past a node. Nodes lie in
// memory about in the order the parser made them, which is close to the
// order of a walk, so a walk over a large tree that asks this at each node
// finds the nodes it reaches next already on their way from memory. Three
// lines are asked for, 2, 3 and 4 KiB ahead: a walk does not stop at every
// node, and the lines it would skip over are asked for by a later node. A
// tree small enough to stay in the caches gains nothing and loses nothing.
inline void prefetchPast(const ASTNode& node) {
    constexpr std::size_t DISTANCES[] = {2048, 3072, 4096};
    for (std::size_t distance : DISTANCES) __builtin_prefetch(reinterpret_cast<const char*>(&node) + distance);
}

using NodePtr = std::unique_ptr<ASTNode>;
using ExprPtr = std::unique_ptr<ExpressionNode>;
using StmtPtr = std::unique_ptr<StatementNode>;

}  // namespace quor::ast
