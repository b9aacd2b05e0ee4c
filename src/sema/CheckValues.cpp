// Collection literals, lambdas, assignment and object creation. None of these
// takes an expected type from its surroundings: each is typed from its own
// contents.
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "sema/TypeChecker.h"

namespace quor::sema {

namespace {

// The built-in collections that `new` makes, tested by exact name before any
// user class: a user class of one of these names cannot be reached by `new`.
enum class Collection { Array, List, Set, Map };

struct CollectionRow {
    std::string_view name;
    Collection collection;
};

constexpr CollectionRow NEW_COLLECTIONS[] = {
    {"Array", Collection::Array},
    {"List", Collection::List},
    {"Set", Collection::Set},
    {"Map", Collection::Map},
};

const CollectionRow* findCollection(const std::string& name) {
    for (const auto& row : NEW_COLLECTIONS) {
        if (row.name == name) return &row;
    }
    return nullptr;
}

// The i-th type argument resolved, or `fallback` when it is missing or names nothing.
TypePtr typeArgument(TypeContext& types, const std::vector<std::string>& typeArgs, std::size_t i,
                     const TypePtr& fallback) {
    if (i >= typeArgs.size()) return fallback;
    TypePtr resolved = types.resolveType(typeArgs[i]);
    return resolved ? resolved : fallback;
}

// Null when a list or set of that element does not resolve; the caller's
// checkExpr then makes it the error type without a report.
TypePtr newCollection(TypeContext& types, Collection collection, const std::vector<std::string>& typeArgs) {
    switch (collection) {
        case Collection::Array: return types.getArrayType(typeArgument(types, typeArgs, 0, types.anyType));
        case Collection::List:
            return types.resolveType("List<" + typeArgument(types, typeArgs, 0, types.anyType)->toString() + ">");
        case Collection::Set:
            return types.resolveType("Set<" + typeArgument(types, typeArgs, 0, types.anyType)->toString() + ">");
        case Collection::Map:
            return types.getMapType(typeArgument(types, typeArgs, 0, types.stringType),
                                    typeArgument(types, typeArgs, 1, types.anyType));
    }
    return nullptr;
}

// "Box" or "Box<int, string>": the text that resolves a possibly generic class.
std::string fullTypeText(const ast::NewExpr& node) {
    std::string text = node.className;
    if (node.typeArgs.empty()) return text;
    text += "<";
    for (std::size_t i = 0; i < node.typeArgs.size(); ++i) {
        if (i > 0) text += ", ";
        text += node.typeArgs[i];
    }
    return text + ">";
}

bool isConstant(const SymbolPtr& symbol) {
    if (!symbol) return false;
    if (symbol->kind == SymbolKind::Constant) return true;
    auto variable = std::dynamic_pointer_cast<VariableSymbol>(symbol);
    return variable && variable->isConst;
}

// A literal on the right may take the target's own numeric type: a double
// literal into a float, any integer literal into any integer kind.
TypePtr narrowLiteral(const TypePtr& target, const TypePtr& value, const ast::ExpressionNode& valueNode) {
    if (valueNode.nodeKind != ast::NodeKind::LiteralExpr) return value;
    const auto& literal = static_cast<const ast::LiteralExpr&>(valueNode);
    if (target->kind == TypeKind::Float && value->kind == TypeKind::Double) return target;
    if (target->isInteger() && value->isInteger() && literal.literalKind == ast::LiteralKind::Integer) return target;
    return value;
}

// Defines each named parameter in the lambda's scope and gives the parameter
// types in order; a type name that names nothing is int, silently.
std::vector<TypePtr> defineLambdaParameters(TypeChecker& checker, const ast::LambdaExpr& node) {
    std::vector<TypePtr> paramTypes;
    paramTypes.reserve(node.params.size());
    for (const auto& param : node.params) {
        TypePtr type = checker.types.resolveType(param.type);
        if (!type) type = checker.types.intType;
        paramTypes.push_back(type);
        if (!param.name.empty()) {
            checker.symbols.define(std::make_shared<VariableSymbol>(param.name, type, node.location, false, true));
        }
    }
    return paramTypes;
}

// Checks the body and gives the lambda's return type. A return annotation
// that resolves (`unknown` when none is written, as always from the parser)
// stands whatever the body is; the returns of a block body may settle the
// return slot, which the caller drops. Only an annotation that names nothing
// lets the body decide.
TypePtr checkLambdaBody(TypeChecker& checker, const ast::LambdaExpr& node) {
    const ast::ASTNode* body = node.body.get();
    bool blockBody = body && body->nodeKind == ast::NodeKind::BlockStmt;
    const auto* exprBody = blockBody ? nullptr : dynamic_cast<const ast::ExpressionNode*>(body);

    if (TypePtr annotated = checker.types.resolveType(node.returnType)) {
        checker.currentReturnType = annotated;
        if (exprBody) checker.checkExpr(*exprBody);
        if (blockBody) body->accept(checker);
        return annotated;
    }
    if (exprBody) return checker.checkExpr(*exprBody);
    if (!blockBody) return checker.types.intType;
    checker.currentReturnType = checker.types.unknownType;
    body->accept(checker);
    TypePtr found = checker.currentReturnType;
    bool unsettled = !found || found->kind == TypeKind::Any || found->kind == TypeKind::Unknown;
    return unsettled ? checker.types.intType : found;
}

}  // namespace

void TypeChecker::visit(const ast::ArrayExpr& node) {
    TypePtr common;
    for (const auto& element : node.elements) {
        TypePtr type = element ? checkExpr(*element) : types.errorType;
        common = common ? types.getCommonType(common, type) : type;
    }
    currentType = types.getArrayType(common ? common : types.anyType);
}

void TypeChecker::visit(const ast::MapExpr& node) {
    TypePtr keys;
    TypePtr values;
    for (const auto& [key, value] : node.entries) {
        TypePtr keyType = key ? checkExpr(*key) : types.errorType;
        TypePtr valueType = value ? checkExpr(*value) : types.errorType;
        keys = keys ? types.getCommonType(keys, keyType) : keyType;
        values = values ? types.getCommonType(values, valueType) : valueType;
    }
    if (!keys) {
        currentType = types.getMapType(types.stringType, types.anyType);
        return;
    }
    currentType = types.getMapType(keys, values);
}

void TypeChecker::visit(const ast::LambdaExpr& node) {
    // The lambda's scope nests in the current one: the body sees the
    // enclosing locals, parameters, `this` and fields directly.
    symbols.enterScope(ScopeKind::Function);
    std::vector<TypePtr> paramTypes = defineLambdaParameters(*this, node);
    TypePtr savedReturn = currentReturnType;
    TypePtr returnType = checkLambdaBody(*this, node);
    currentReturnType = savedReturn;
    symbols.exitScope();

    if (!returnType || returnType->kind == TypeKind::Error) returnType = types.intType;
    currentType = types.getFunctionType(std::move(paramTypes), returnType);
}

void TypeChecker::visit(const ast::AssignExpr& node) {
    if (node.target && node.target->nodeKind == ast::NodeKind::IdentifierExpr) {
        const auto& name = static_cast<const ast::IdentifierExpr&>(*node.target).name;
        if (isConstant(symbols.lookup(name))) {
            report("E1005", "Cannot assign to constant '" + name + "'", node.location,
                   "Constants are immutable and cannot be reassigned");
            currentType = types.errorType;
            return;
        }
    }
    TypePtr target = node.target ? checkExpr(*node.target) : types.errorType;
    TypePtr value = node.value ? checkExpr(*node.value) : types.errorType;
    if (node.value) value = narrowLiteral(target, value, *node.value);

    if (target->kind != TypeKind::Nullable && value->kind == TypeKind::Null) {
        std::string text = target->toString();
        report("E1008", "Null safety violation: cannot assign null to non-nullable type '" + text + "'",
               node.location, "Change variable type to '" + text + "?' to allow null");
        currentType = types.errorType;
        return;
    }
    if (value->isAssignableTo(*target)) {
        currentType = target;
        return;
    }
    report("E1001", "Cannot assign value of type '" + value->toString() + "' to variable of type '" +
                        target->toString() + "'",
           node.location);
    currentType = types.errorType;
}

void TypeChecker::visit(const ast::NewExpr& node) {
    if (const CollectionRow* row = findCollection(node.className)) {
        for (const auto& arg : node.args) {
            if (arg) checkExpr(*arg);
        }
        currentType = newCollection(types, row->collection, node.typeArgs);
        return;
    }

    const std::string& name = node.className;
    TypePtr type = types.resolveType(fullTypeText(node));
    if (!type) type = types.findUserType(name);
    if (!type) {
        report("E1002", "Undefined class '" + name + "' in 'new' expression", node.location);
        currentType = types.errorType;
        return;
    }
    if (type->kind != TypeKind::Class) {
        report("E1001", "Cannot instantiate non-class type '" + name + "' with 'new'", node.location);
        currentType = types.errorType;
        return;
    }
    if (static_cast<const ClassType&>(*type).isAbstract) {
        report("E1001", "Cannot instantiate abstract class '" + name + "'", node.location);
        currentType = types.errorType;
        return;
    }
    for (const auto& arg : node.args) {
        if (arg) checkExpr(*arg);
    }
    currentType = type;
}

}  // namespace quor::sema
