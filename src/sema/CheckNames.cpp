// Literals and names: the leaves of every expression.
#include <array>
#include <cctype>
#include <utility>

#include "sema/TypeChecker.h"

namespace quor::sema {

namespace {

using ast::LiteralKind;

// The type of each literal kind, as a member of the context. A float literal
// written with an "f" or "F" suffix is narrowed to float by the visit.
constexpr std::array<std::pair<LiteralKind, TypePtr TypeContext::*>, 6> LITERAL_TYPES = {{
    {LiteralKind::Integer, &TypeContext::intType},
    {LiteralKind::Float, &TypeContext::doubleType},
    {LiteralKind::String, &TypeContext::stringType},
    {LiteralKind::Char, &TypeContext::charType},
    {LiteralKind::Boolean, &TypeContext::boolType},
    {LiteralKind::Null, &TypeContext::nullType},
}};

bool hasFloatSuffix(const std::string& text) {
    return !text.empty() && std::tolower(static_cast<unsigned char>(text.back())) == 'f';
}

}  // namespace

void TypeChecker::visit(const ast::LiteralExpr& node) {
    if (node.literalKind == LiteralKind::Float && hasFloatSuffix(node.value)) {
        currentType = types.floatType;
        return;
    }
    currentType = types.errorType;
    for (const auto& [kind, member] : LITERAL_TYPES) {
        if (kind == node.literalKind) currentType = types.*member;
    }
}

// The first of these steps that applies types the name: super, this, a
// symbol of the scopes (innermost first), a field of the class being
// checked, a user type, a built-in type's name. Methods are not values here.
void TypeChecker::visit(const ast::IdentifierExpr& node) {
    const std::string& name = node.name;
    if (name == "super") {
        if (currentClass && currentClass->superclass) {
            currentType = currentClass->superclass;
        } else {
            report("E1001", "'super' cannot be used outside of a subclass", node.location);
            currentType = types.errorType;
        }
        return;
    }
    if (name == "this") {
        if (currentClass) {
            currentType = currentClass;
        } else {
            report("E1001", "'this' cannot be used outside of an instance method", node.location);
            currentType = types.errorType;
        }
        return;
    }
    if (SymbolPtr symbol = symbols.lookup(name)) {
        currentType = symbol->type;
        return;
    }
    if (currentClass) {
        if (auto field = currentClass->findField(name)) {
            currentType = field->type;
            return;
        }
    }
    if (TypePtr userType = types.findUserType(name)) {
        currentType = userType;
        return;
    }
    if (TypePtr named = types.resolveType(name); named && named->kind != TypeKind::Error) {
        currentType = named;
        return;
    }
    report("E1002", "Undefined variable or symbol '" + name + "'", node.location,
           "Ensure the variable is declared before use");
    currentType = types.errorType;
}

}  // namespace quor::sema
