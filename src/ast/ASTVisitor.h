#pragma once

namespace quor::ast {

#define QUOR_AST_NODE(name) class name;
#include "ast/node_classes.def"
#undef QUOR_AST_NODE

// Double-dispatch visitor over the tree: one visit per concrete class, all
// taking the node by const reference. A visitor that computes something
// keeps the result in a member of its own.
class ASTVisitor {
public:
    virtual ~ASTVisitor() = default;

#define QUOR_AST_NODE(name) virtual void visit(const name& node) = 0;
#include "ast/node_classes.def"
#undef QUOR_AST_NODE
};

}  // namespace quor::ast
