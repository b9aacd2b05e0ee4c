// The checker's entry points: the walk from the program, the typing of one
// expression (which records every result by node), and the report shorthand
// that every visit file uses.
#include "sema/TypeChecker.h"

namespace quor::sema {

void TypeChecker::check(const ast::Program& program) { visit(program); }

TypePtr TypeChecker::checkExpr(const ast::ExpressionNode& node) {
    node.accept(*this);
    // A visit that found nothing to give (a symbol without a type, a type
    // text that names nothing) leaves null: that is the error type, silently.
    if (!currentType) currentType = types.errorType;
    exprTypes.record(&node, currentType);
    return currentType;
}

void TypeChecker::checkStmt(const ast::StatementNode& node) { node.accept(*this); }

void TypeChecker::report(std::string_view code, const std::string& message,
                         const diagnostics::SourceLocation& location, std::string_view hint) {
    diagnostics.reportError(code, message, location, hint);
}

}  // namespace quor::sema
