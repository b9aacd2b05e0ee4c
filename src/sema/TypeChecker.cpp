// The checker's entry points: the walk from the program, the typing of one
// expression (which records every result by node, unless the walk frees
// bodies), and the report shorthand that every visit file uses.
#include "sema/TypeChecker.h"

namespace quor::sema {

void TypeChecker::check(const ast::Program& program) { visit(program); }

void TypeChecker::checkReleasingBodies(ast::Program& program) {
    releaseBodies = true;
    visit(program);
    releaseBodies = false;
}

// The walk is const throughout; the one change it makes, freeing a body,
// is only asked for through checkReleasingBodies, whose tree is not const.
void TypeChecker::checkDeclaredFunction(const ast::ASTNode& function) {
    function.accept(*this);
    if (releaseBodies) const_cast<ast::FunctionDecl&>(static_cast<const ast::FunctionDecl&>(function)).body.reset();
}

TypePtr TypeChecker::checkExpr(const ast::ExpressionNode& node) {
    ast::prefetchPast(node);
    node.accept(*this);
    // A visit that found nothing to give (a symbol without a type, a type
    // text that names nothing) leaves null: that is the error type, silently.
    if (!currentType) currentType = types.errorType;
    recordType(node, currentType);
    return currentType;
}

void TypeChecker::recordType(const ast::ExpressionNode& node, const TypePtr& type) {
    if (!releaseBodies) exprTypes.record(&node, type);
}

void TypeChecker::checkStmt(const ast::StatementNode& node) { node.accept(*this); }

void TypeChecker::report(std::string_view code, const std::string& message,
                         const diagnostics::SourceLocation& location, std::string_view hint) {
    diagnostics.reportError(code, message, location, hint);
}

}  // namespace quor::sema
