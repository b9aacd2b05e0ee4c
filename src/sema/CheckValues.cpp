// Collection literals, lambdas, assignment and new: interim visits that
// check the children and type the node as the error type, silently.
#include "sema/TypeChecker.h"

namespace quor::sema {

void TypeChecker::visit(const ast::ArrayExpr& node) {
    for (const auto& element : node.elements) {
        if (element) checkExpr(*element);
    }
    currentType = types.errorType;
}

void TypeChecker::visit(const ast::MapExpr& node) {
    for (const auto& [key, value] : node.entries) {
        if (key) checkExpr(*key);
        if (value) checkExpr(*value);
    }
    currentType = types.errorType;
}

void TypeChecker::visit(const ast::LambdaExpr& node) {
    symbols.enterScope(ScopeKind::Function);
    for (const auto& param : node.params) {
        if (!param.name.empty()) {
            symbols.define(std::make_shared<VariableSymbol>(param.name, types.errorType, node.location, false, true));
        }
    }
    TypePtr savedReturn = currentReturnType;
    currentReturnType = types.unknownType;
    if (node.body) {
        if (auto* block = dynamic_cast<const ast::BlockStmt*>(node.body.get())) {
            block->accept(*this);
        } else if (auto* expr = dynamic_cast<const ast::ExpressionNode*>(node.body.get())) {
            checkExpr(*expr);
        }
    }
    currentReturnType = savedReturn;
    symbols.exitScope();
    currentType = types.errorType;
}

void TypeChecker::visit(const ast::AssignExpr& node) {
    if (node.target) checkExpr(*node.target);
    if (node.value) checkExpr(*node.value);
    currentType = types.errorType;
}

void TypeChecker::visit(const ast::NewExpr& node) {
    for (const auto& arg : node.args) {
        if (arg) checkExpr(*arg);
    }
    currentType = types.errorType;
}

}  // namespace quor::sema
