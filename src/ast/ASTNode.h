#pragma once

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

using NodePtr = std::unique_ptr<ASTNode>;
using ExprPtr = std::unique_ptr<ExpressionNode>;
using StmtPtr = std::unique_ptr<StatementNode>;

}  // namespace quor::ast
