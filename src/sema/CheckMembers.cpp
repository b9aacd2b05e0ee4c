// Member access and indexing: interim visits that check the children and
// type the node as the error type, silently.
#include "sema/TypeChecker.h"

namespace quor::sema {

void TypeChecker::visit(const ast::MemberExpr& node) {
    if (node.object) checkExpr(*node.object);
    currentType = types.errorType;
}

void TypeChecker::visit(const ast::IndexExpr& node) {
    if (node.object) checkExpr(*node.object);
    if (node.index) checkExpr(*node.index);
    currentType = types.errorType;
}

}  // namespace quor::sema
