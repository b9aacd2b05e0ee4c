// Whether a function body can fall off its end: a purely syntactic test.
#include "sema/TypeChecker.h"

namespace quor::sema {

// A return or a throw ends a path. A block ends every path if any of its
// statements does (what follows a return does not matter). An if ends every
// path when both its branches do; the else side of an "else if" chain is
// followed in this loop rather than by recursion. Loops, switches, matches
// and try statements never count, whatever their bodies hold.
bool TypeChecker::hasGuaranteedReturn(const ast::StatementNode& statement) const {
    const ast::StatementNode* current = &statement;
    while (current != nullptr) {
        switch (current->nodeKind) {
            case ast::NodeKind::ReturnStmt:
            case ast::NodeKind::ThrowStmt:
                return true;
            case ast::NodeKind::BlockStmt:
                for (const auto& inner : static_cast<const ast::BlockStmt&>(*current).statements) {
                    if (inner && hasGuaranteedReturn(*inner)) return true;
                }
                return false;
            case ast::NodeKind::IfStmt: {
                const auto& branch = static_cast<const ast::IfStmt&>(*current);
                if (!branch.elseBranch || !branch.thenBranch || !hasGuaranteedReturn(*branch.thenBranch)) {
                    return false;
                }
                current = branch.elseBranch.get();
                break;
            }
            default:
                return false;
        }
    }
    return false;
}

}  // namespace quor::sema
