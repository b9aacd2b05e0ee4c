// Member access outside of calls, with null safety and private fields, and
// the subscript operator on arrays, lists and maps.
#include <string>

#include "sema/BuiltinMethods.h"
#include "sema/TypeChecker.h"

namespace quor::sema {

namespace {

// A private field is readable only inside its own class, not in a subclass.
TypePtr readField(TypeChecker& checker, const ClassType& owner, const MemberField& field,
                  const ast::MemberExpr& node) {
    bool insideOwner = checker.currentClass && checker.currentClass->equals(owner);
    if (field.visibility == "private" && !insideOwner) {
        checker.report("E1006", "Cannot access private field '" + node.member + "' of class '" + owner.name + "'",
                       node.location);
        return checker.types.errorType;
    }
    return field.type;
}

TypePtr classMember(TypeChecker& checker, const ClassType& owner, const ast::MemberExpr& node) {
    if (auto field = owner.findField(node.member)) return readField(checker, owner, *field, node);
    // A method read as a value is its first overload; nothing is chosen.
    if (auto methods = owner.findMethods(node.member); !methods.empty()) return methods.front().type;
    checker.report("E1002", "Class '" + owner.name + "' has no member named '" + node.member + "'", node.location);
    return checker.types.errorType;
}

TypePtr structMember(TypeChecker& checker, const StructType& owner, const ast::MemberExpr& node) {
    if (auto field = owner.findField(node.member)) return field->type;
    checker.report("E1002", "Struct '" + owner.name + "' has no field named '" + node.member + "'", node.location);
    return checker.types.errorType;
}

TypePtr enumMember(TypeChecker& checker, const TypePtr& owner, const ast::MemberExpr& node) {
    const auto& enumType = static_cast<const EnumType&>(*owner);
    for (const auto& variant : enumType.variants) {
        if (variant == node.member) return owner;
    }
    checker.report("E1002", "Enum '" + enumType.name + "' has no variant named '" + node.member + "'", node.location);
    return checker.types.errorType;
}

// Strings and arrays know "length" and "size"; every other receiver, and
// every other name, ends at the scalar "parse" or at the report.
TypePtr builtinMember(TypeChecker& checker, const TypePtr& object, const ast::MemberExpr& node) {
    if (TypePtr property = builtinPropertyType(checker.types, object, node.member)) return property;
    checker.report("E1002", "Type '" + object->toString() + "' has no member '" + node.member + "'", node.location);
    return checker.types.errorType;
}

// The element of a "List<...>" class, read back from its printed name.
TypePtr listElement(TypeContext& types, const std::string& text) {
    auto open = text.find('<');
    auto close = text.rfind('>');
    if (open == std::string::npos || close == std::string::npos || close <= open) return types.anyType;
    TypePtr element = types.resolveType(text.substr(open + 1, close - open - 1));
    return element ? element : types.anyType;
}

bool isListClass(const Type& type) {
    return type.kind == TypeKind::Class && type.toString().rfind("List<", 0) == 0;
}

TypePtr orError(const TypeContext& types, const TypePtr& type) { return type ? type : types.errorType; }

}  // namespace

void TypeChecker::visit(const ast::MemberExpr& node) {
    TypePtr object = node.object ? checkExpr(*node.object) : types.errorType;
    if (object->kind == TypeKind::Nullable) {
        if (!node.isSafe) {
            report("E1008",
                   "Null safety violation: access on nullable type '" + object->toString() +
                       "' requires safe navigation '?.'",
                   node.location, "Use obj?." + node.member);
        }
        object = orError(types, static_cast<const NullableType&>(*object).innerType);
    }
    switch (object->kind) {
        case TypeKind::Class:
            currentType = classMember(*this, static_cast<const ClassType&>(*object), node);
            break;
        case TypeKind::Struct:
            currentType = structMember(*this, static_cast<const StructType&>(*object), node);
            break;
        case TypeKind::Enum:
            currentType = enumMember(*this, object, node);
            break;
        default:
            currentType = builtinMember(*this, object, node);
            break;
    }
}

void TypeChecker::visit(const ast::IndexExpr& node) {
    TypePtr object = node.object ? checkExpr(*node.object) : types.errorType;
    TypePtr index = node.index ? checkExpr(*node.index) : types.errorType;

    if (object->kind == TypeKind::Array) {
        if (!index->isInteger()) {
            report("E1001", "Array index must be an integer, got '" + index->toString() + "'", node.location);
        }
        currentType = orError(types, static_cast<const ArrayType&>(*object).elementType);
        return;
    }
    if (isListClass(*object)) {
        if (!index->isInteger()) {
            report("E1001", "List index must be an integer, got '" + index->toString() + "'", node.location);
        }
        currentType = listElement(types, object->toString());
        return;
    }
    if (object->kind == TypeKind::Map) {
        const auto& map = static_cast<const MapType&>(*object);
        TypePtr key = orError(types, map.keyType);
        if (!index->isAssignableTo(*key)) {
            report("E1001",
                   "Map key type mismatch: expected '" + key->toString() + "', got '" + index->toString() + "'",
                   node.location);
        }
        currentType = types.getNullableType(map.valueType);
        return;
    }
    report("E1001", "Type '" + object->toString() + "' does not support indexing", node.location);
    currentType = types.errorType;
}

}  // namespace quor::sema
