// Calls: interim visit until overload resolution lands. It checks the
// arguments and the callee and types the call as the error type, silently.
#include "sema/TypeChecker.h"

namespace quor::sema {

void TypeChecker::visit(const ast::CallExpr& node) {
    for (const auto& arg : node.args) {
        if (arg) checkExpr(*arg);
    }
    if (node.callee && node.callee->nodeKind != ast::NodeKind::IdentifierExpr) checkExpr(*node.callee);
    currentType = types.errorType;
}

}  // namespace quor::sema
