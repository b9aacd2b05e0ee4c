// Statements: where locals enter the scopes, where a declaration's value is
// held to its type, and where conditions, loops, switches, matches and
// returns are judged. A failed check reports and the walk goes on.
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "sema/TypeChecker.h"

namespace quor::sema {

namespace {

using ast::NodeKind;

// What each statement with a condition calls it in its message. Only the
// kind bool passes: not bool?, not any, not the error type.
constexpr std::array<std::pair<NodeKind, std::string_view>, 4> CONDITION_NAMES = {{
    {NodeKind::IfStmt, "If condition"},
    {NodeKind::WhileStmt, "While condition"},
    {NodeKind::DoWhileStmt, "Do-while condition"},
    {NodeKind::ForStmt, "For loop condition"},
}};

void checkCondition(TypeChecker& checker, const ast::ExpressionNode& condition, const ast::StatementNode& owner) {
    TypePtr type = checker.checkExpr(condition);
    if (type->kind == TypeKind::Bool) return;
    for (const auto& [kind, name] : CONDITION_NAMES) {
        if (kind != owner.nodeKind) continue;
        checker.report("E1001", std::string(name) + " must be of type bool, got '" + type->toString() + "'",
                       owner.location);
    }
}

void acceptAll(TypeChecker& checker, const std::vector<ast::StmtPtr>& statements) {
    for (const auto& statement : statements) {
        if (!statement) continue;
        ast::prefetchPast(*statement);
        statement->accept(checker);
    }
}

// A loop body counts one level of loop for break and continue.
void acceptLoopBody(TypeChecker& checker, const ast::StatementNode* body) {
    ++checker.loopDepth;
    if (body) body->accept(checker);
    --checker.loopDepth;
}

// The value a typed declaration is held to, after the two literal
// allowances: a float variable takes a double literal, and an integer
// variable takes any integer literal whatever its size.
TypePtr narrowedInitializer(TypeChecker& checker, const TypePtr& declared, TypePtr value,
                            const ast::ExpressionNode& initializer) {
    if (initializer.nodeKind != NodeKind::LiteralExpr) return value;
    const auto& literal = static_cast<const ast::LiteralExpr&>(initializer);
    if (declared->kind == TypeKind::Float && value->kind == TypeKind::Double) return checker.types.floatType;
    if (declared->isInteger() && value->isInteger() && literal.literalKind == ast::LiteralKind::Integer) {
        return declared;
    }
    return value;
}

TypePtr typedDeclaration(TypeChecker& checker, const ast::VarDeclStmt& node) {
    TypePtr declared = checker.types.resolveType(node.typeName);
    if (!declared) {
        checker.report("E1002",
                       "Undefined type '" + node.typeName + "' in declaration of variable '" + node.name + "'",
                       node.location);
        declared = checker.types.errorType;
    }
    if (!node.initializer) return declared;
    TypePtr value = narrowedInitializer(checker, declared, checker.checkExpr(*node.initializer), *node.initializer);
    if (declared->kind != TypeKind::Nullable && value->kind == TypeKind::Null) {
        const std::string declaredText = declared->toString();
        checker.report("E1008",
                       "Null safety violation: cannot assign null to non-nullable variable '" + node.name +
                           "' of type '" + declaredText + "'",
                       node.location, "Use '" + declaredText + "?' to declare a nullable variable");
    } else if (!value->isAssignableTo(*declared)) {
        checker.report("E1001",
                       "Type mismatch: cannot initialize variable of type '" + declared->toString() +
                           "' with value of type '" + value->toString() + "'",
                       node.location);
    }
    return declared;
}

TypePtr inferredDeclaration(TypeChecker& checker, const ast::VarDeclStmt& node) {
    if (!node.initializer) {
        checker.report("E1001",
                       "Variable '" + node.name +
                           "' declared with 'var' or 'let' must have an initializer for type inference",
                       node.location);
        return checker.types.errorType;
    }
    TypePtr inferred = checker.checkExpr(*node.initializer);
    if (inferred->kind == TypeKind::Null) {
        checker.report("E1001", "Cannot infer type from 'null' without explicit type annotation", node.location);
        return checker.types.errorType;
    }
    return inferred;
}

// The element type of a class whose name reads "List<...>": the text
// between the first "<" and the last ">", or any when that names nothing.
TypePtr listElement(TypeContext& types, const std::string& text) {
    std::size_t open = text.find('<');
    std::size_t close = text.rfind('>');
    std::size_t end = close == std::string::npos || close < open ? text.size() : close;
    TypePtr element = types.resolveType(text.substr(open + 1, end - open - 1));
    return element ? element : types.anyType;
}

bool isListText(const std::string& text) { return text.size() >= 5 && text.compare(0, 5, "List<") == 0; }

}  // namespace

void TypeChecker::visit(const ast::BlockStmt& node) {
    symbols.enterScope(ScopeKind::Block);
    acceptAll(*this, node.statements);
    symbols.exitScope();
}

void TypeChecker::visit(const ast::ExprStmt& node) {
    if (node.expression) checkExpr(*node.expression);
}

// The variable is defined in every case, with the error type after a
// failure to type it, so that later uses do not report it as undefined.
void TypeChecker::visit(const ast::VarDeclStmt& node) {
    const bool inferred = node.typeName.empty() && (node.isConst || node.isVarOrLet);
    TypePtr declared = inferred ? inferredDeclaration(*this, node) : typedDeclaration(*this, node);
    if (!symbols.define(std::make_shared<VariableSymbol>(node.name, declared, node.location, node.isConst))) {
        report("E1004", "Duplicate declaration of variable '" + node.name + "' in this scope", node.location);
    }
}

// No scope of its own and no narrowing of nullable types by the condition.
void TypeChecker::visit(const ast::IfStmt& node) {
    if (node.condition) checkCondition(*this, *node.condition, node);
    if (node.thenBranch) node.thenBranch->accept(*this);
    if (node.elseBranch) node.elseBranch->accept(*this);
}

void TypeChecker::visit(const ast::WhileStmt& node) {
    if (node.condition) checkCondition(*this, *node.condition, node);
    acceptLoopBody(*this, node.body.get());
}

// The condition comes after the body, whose block scope is gone by then.
void TypeChecker::visit(const ast::DoWhileStmt& node) {
    acceptLoopBody(*this, node.body.get());
    if (node.condition) checkCondition(*this, *node.condition, node);
}

// The initialiser's variable lives in a scope of the loop. The update is
// checked before the body.
void TypeChecker::visit(const ast::ForStmt& node) {
    symbols.enterScope(ScopeKind::Block);
    if (node.init) node.init->accept(*this);
    if (node.condition) checkCondition(*this, *node.condition, node);
    if (node.update) checkExpr(*node.update);
    acceptLoopBody(*this, node.body.get());
    symbols.exitScope();
}

// Arrays give their elements, maps their keys, and "List<...>" classes the
// element named in their text. A written element type replaces what was
// found, unchecked; one that names nothing (the "auto" of an unannotated
// loop among them) is passed over.
void TypeChecker::visit(const ast::ForInStmt& node) {
    TypePtr collection = node.iterable ? checkExpr(*node.iterable) : types.errorType;
    TypePtr element = types.anyType;
    if (collection->kind == TypeKind::Array) {
        element = static_cast<const ArrayType&>(*collection).elementType;
    } else if (collection->kind == TypeKind::Map) {
        element = static_cast<const MapType&>(*collection).keyType;
    } else if (const std::string text = collection->toString();
               collection->kind == TypeKind::Class && isListText(text)) {
        element = listElement(types, text);
    } else {
        report("E1001", "For-in loop requires an iterable collection or array, got '" + text + "'", node.location);
    }
    if (!node.varType.empty() && node.varType != "var" && node.varType != "let") {
        if (TypePtr written = types.resolveType(node.varType)) element = written;
    }
    symbols.enterScope(ScopeKind::Block);
    symbols.define(std::make_shared<VariableSymbol>(node.varName, element, node.location));
    acceptLoopBody(*this, node.body.get());
    symbols.exitScope();
}

// Cases share the enclosing scope. A case value that does not fit the
// subject is reported at the switch itself.
void TypeChecker::visit(const ast::SwitchStmt& node) {
    TypePtr subject = node.subject ? checkExpr(*node.subject) : types.errorType;
    ++switchDepth;
    for (const ast::SwitchCase& switchCase : node.cases) {
        if (switchCase.value) {
            TypePtr value = checkExpr(*switchCase.value);
            if (!value->isAssignableTo(*subject)) {
                report("E1001",
                       "Case value type '" + value->toString() + "' does not match switch expression type '" +
                           subject->toString() + "'",
                       node.location);
            }
        }
        acceptAll(*this, switchCase.body);
    }
    acceptAll(*this, node.defaultBody);
    --switchDepth;
}

// A match is a statement: arm types are not compared, and it is no switch
// for a break inside it.
void TypeChecker::visit(const ast::MatchStmt& node) {
    TypePtr subject = node.subject ? checkExpr(*node.subject) : types.errorType;
    for (const ast::MatchArm& arm : node.arms) {
        if (arm.pattern) {
            TypePtr value = checkExpr(*arm.pattern);
            if (!value->isAssignableTo(*subject)) {
                report("E1001",
                       "Match pattern type '" + value->toString() + "' does not match subject type '" +
                           subject->toString() + "'",
                       node.location);
            }
        }
        if (!arm.body) continue;
        if (arm.body->nodeKind == NodeKind::BlockStmt) {
            arm.body->accept(*this);
        } else if (const auto* expression = dynamic_cast<const ast::ExpressionNode*>(arm.body.get())) {
            checkExpr(*expression);
        }
    }
}

// An `any` or `unknown` return type takes the type of the first value
// returned (how a lambda's result is found); later returns are held to it.
void TypeChecker::visit(const ast::ReturnStmt& node) {
    if (!currentReturnType) {
        report("E1005", "Return statement outside of any function", node.location);
        return;
    }
    if (currentReturnType->kind == TypeKind::Void) {
        if (node.value) report("E1005", "Void function cannot return a value", node.location);
        return;
    }
    if (!node.value) {
        report("E1005", "Non-void function must return a value of type '" + currentReturnType->toString() + "'",
               node.location);
        return;
    }
    TypePtr value = checkExpr(*node.value);
    if (currentReturnType->kind == TypeKind::Any || currentReturnType->kind == TypeKind::Unknown) {
        currentReturnType = value;
        return;
    }
    if (!value->isAssignableTo(*currentReturnType)) {
        report("E1005",
               "Return type mismatch: expected '" + currentReturnType->toString() + "', got '" + value->toString() +
                   "'",
               node.location);
    }
}

void TypeChecker::visit(const ast::BreakStmt& node) {
    if (loopDepth <= 0 && switchDepth <= 0) {
        report("E1001", "'break' statement outside of loop or switch", node.location);
    }
}

// Only loops count: a continue inside a switch that is in no loop is refused.
void TypeChecker::visit(const ast::ContinueStmt& node) {
    if (loopDepth <= 0) report("E1001", "'continue' statement outside of loop", node.location);
}

// Each handler has its own scope with the caught variable; a type text that
// names nothing makes it `any`, without a report.
void TypeChecker::visit(const ast::TryCatchStmt& node) {
    if (node.tryBlock) node.tryBlock->accept(*this);
    for (const ast::CatchClause& clause : node.catches) {
        symbols.enterScope(ScopeKind::Block);
        TypePtr caught = types.resolveType(clause.exceptionType);
        if (!caught) caught = types.anyType;
        symbols.define(std::make_shared<VariableSymbol>(clause.varName, caught, node.location));
        if (clause.body) clause.body->accept(*this);
        symbols.exitScope();
    }
    if (node.finallyBlock) node.finallyBlock->accept(*this);
}

// Any value may be thrown.
void TypeChecker::visit(const ast::ThrowStmt& node) {
    if (node.value) checkExpr(*node.value);
}

}  // namespace quor::sema
