// Each node's accept hands the node to the visit overload of its own class.
#include "ast/AST.h"

namespace quor::ast {

#define QUOR_AST_NODE(name) \
    void name::accept(ASTVisitor& visitor) const { visitor.visit(*this); }
#include "ast/node_classes.def"
#undef QUOR_AST_NODE

}  // namespace quor::ast
