// Equality, implicit widening, subtyping and assignability of the types.
#include <cstdint>
#include <functional>
#include <initializer_list>

#include "sema/ClassChain.h"
#include "sema/Type.h"

namespace quor::sema {

namespace {

constexpr std::uint32_t kindBit(TypeKind kind) { return std::uint32_t{1} << static_cast<std::uint32_t>(kind); }

constexpr std::uint32_t kindSet(std::initializer_list<TypeKind> kinds) {
    std::uint32_t bits = 0;
    for (TypeKind kind : kinds) bits |= kindBit(kind);
    return bits;
}

// The implicit widenings between the built-in numbers: a row's kind
// converts to every kind of its set. Kinds with no row widen to nothing.
struct WideningRow {
    TypeKind from;
    std::uint32_t to;
};

using K = TypeKind;
constexpr WideningRow WIDENINGS[] = {
    {K::Int8, kindSet({K::Int16, K::Int, K::Int64, K::Float, K::Double})},
    {K::UInt8, kindSet({K::Int16, K::UInt16, K::Int, K::UInt, K::Int64, K::UInt64, K::Float, K::Double})},
    {K::Int16, kindSet({K::Int, K::Int64, K::Float, K::Double})},
    {K::UInt16, kindSet({K::Int, K::UInt, K::Int64, K::UInt64, K::Float, K::Double})},
    {K::Int, kindSet({K::Int64, K::Double})},
    {K::UInt, kindSet({K::Int64, K::UInt64, K::Double})},
    {K::Int64, kindSet({K::Double})},
    {K::UInt64, kindSet({K::Double})},
    {K::Float, kindSet({K::Double})},
};

bool widens(TypeKind from, TypeKind to) {
    for (const auto& row : WIDENINGS) {
        if (row.from == from) return (row.to & kindBit(to)) != 0;
    }
    return false;
}

// Components of arrays, maps and nullables must both be present to compare.
bool bothEqual(const TypePtr& a, const TypePtr& b) { return a && b && a->equals(*b); }

// Function signatures compare their components as they stand; two missing
// components count as the same, one missing one as different.
bool sameComponent(const TypePtr& a, const TypePtr& b) {
    if (!a || !b) return a == b;
    return a->equals(*b);
}

void mixInto(std::size_t& hash, std::size_t value) { hash ^= value + 0x9e3779b97f4a7c15ULL + (hash << 6) + (hash >> 2); }

constexpr std::size_t MISSING_COMPONENT_HASH = 0xffff;

bool isAbsorbing(TypeKind kind) { return kind == TypeKind::Error; }

bool isTopOrError(TypeKind kind) { return kind == TypeKind::Any || kind == TypeKind::Error; }

const Type* innerOf(const Type& nullable) { return static_cast<const NullableType&>(nullable).innerType.get(); }

}  // namespace

bool Type::isSignedInteger() const {
    return kind == TypeKind::Int8 || kind == TypeKind::Int16 || kind == TypeKind::Int || kind == TypeKind::Int64;
}

bool Type::isUnsignedInteger() const {
    return kind == TypeKind::UInt8 || kind == TypeKind::UInt16 || kind == TypeKind::UInt ||
           kind == TypeKind::UInt64;
}

// ---- equals ----

bool Type::equals(const Type& other) const { return this == &other || kind == other.kind; }

bool ArrayType::equals(const Type& other) const {
    return other.kind == TypeKind::Array && bothEqual(elementType, static_cast<const ArrayType&>(other).elementType);
}

bool NullableType::equals(const Type& other) const {
    return other.kind == TypeKind::Nullable &&
           bothEqual(innerType, static_cast<const NullableType&>(other).innerType);
}

bool MapType::equals(const Type& other) const {
    if (other.kind != TypeKind::Map) return false;
    const auto& map = static_cast<const MapType&>(other);
    return bothEqual(keyType, map.keyType) && bothEqual(valueType, map.valueType);
}

bool FunctionType::equals(const Type& other) const {
    if (other.kind != TypeKind::Function) return false;
    const auto& function = static_cast<const FunctionType&>(other);
    if (paramTypes.size() != function.paramTypes.size()) return false;
    for (std::size_t i = 0; i < paramTypes.size(); ++i) {
        if (!sameComponent(paramTypes[i], function.paramTypes[i])) return false;
    }
    return sameComponent(returnType, function.returnType);
}

bool ClassType::equals(const Type& other) const {
    return other.kind == TypeKind::Class && static_cast<const ClassType&>(other).name == name;
}

bool InterfaceType::equals(const Type& other) const {
    return other.kind == TypeKind::Interface && static_cast<const InterfaceType&>(other).name == name;
}

bool StructType::equals(const Type& other) const {
    return other.kind == TypeKind::Struct && static_cast<const StructType&>(other).name == name;
}

bool EnumType::equals(const Type& other) const {
    return other.kind == TypeKind::Enum && static_cast<const EnumType&>(other).name == name;
}

// ---- conversion and subtyping ----

bool Type::canImplicitlyConvertTo(const Type& target) const {
    if (equals(target)) return true;
    if (isAbsorbing(kind)) return true;
    if (isTopOrError(target.kind)) return true;
    return widens(kind, target.kind);
}

bool Type::isSubtypeOf(const Type& target) const {
    if (equals(target)) return true;
    if (target.kind == TypeKind::Any) return true;
    if (isAbsorbing(kind) || isAbsorbing(target.kind)) return true;
    if (target.kind != TypeKind::Nullable) return false;
    if (kind == TypeKind::Null) return true;
    const Type* inner = innerOf(target);
    return inner != nullptr && isSubtypeOf(*inner);
}

// A class is a subtype of what it equals, of what its superclass is a
// subtype of, and of what one of its interfaces is a subtype of. Walking
// the chain in a loop answers the same as asking the superclass in turn.
bool ClassType::isSubtypeOf(const Type& target) const {
    const bool inChain = anyInClassChain(*this, [&](const ClassType& cls) {
        if (cls.equals(target)) return true;
        for (const auto& iface : cls.interfaces) {
            if (iface && iface->isSubtypeOf(target)) return true;
        }
        return false;
    });
    return inChain || Type::isSubtypeOf(target);
}

bool InterfaceType::isSubtypeOf(const Type& target) const {
    if (equals(target)) return true;
    for (const auto& parent : superInterfaces) {
        if (parent && parent->isSubtypeOf(target)) return true;
    }
    return Type::isSubtypeOf(target);
}

// ---- assignability ----

bool Type::assignsThroughCommonPrefix(const Type& target) const {
    if (equals(target)) return true;
    if (isAbsorbing(kind)) return true;
    if (isTopOrError(target.kind)) return true;
    if (canImplicitlyConvertTo(target)) return true;
    return isSubtypeOf(target);
}

bool Type::isAssignableByDefault(const Type& target) const {
    if (assignsThroughCommonPrefix(target)) return true;
    if (target.kind != TypeKind::Nullable) return false;
    if (kind == TypeKind::Null) return true;
    const Type* inner = innerOf(target);
    return inner != nullptr && isAssignableTo(*inner);
}

bool Type::isAssignableTo(const Type& target) const { return isAssignableByDefault(target); }

// Arrays and maps are invariant: beyond the common prefix and the nullable
// wrapper, only equal components assign.
bool ArrayType::isAssignableTo(const Type& target) const {
    if (assignsThroughCommonPrefix(target)) return true;
    if (target.kind == TypeKind::Nullable) {
        const Type* inner = innerOf(target);
        if (inner != nullptr && isAssignableTo(*inner)) return true;
    }
    if (target.kind != TypeKind::Array) return false;
    return bothEqual(elementType, static_cast<const ArrayType&>(target).elementType);
}

bool MapType::isAssignableTo(const Type& target) const {
    if (assignsThroughCommonPrefix(target)) return true;
    if (target.kind == TypeKind::Nullable) {
        const Type* inner = innerOf(target);
        if (inner != nullptr && isAssignableTo(*inner)) return true;
    }
    if (target.kind != TypeKind::Map) return false;
    const auto& map = static_cast<const MapType&>(target);
    return bothEqual(keyType, map.keyType) && bothEqual(valueType, map.valueType);
}

// "T?" never assigns to a plain "T": the user has to check for null first.
bool NullableType::isAssignableTo(const Type& target) const {
    if (assignsThroughCommonPrefix(target)) return true;
    if (target.kind != TypeKind::Nullable) return false;
    const Type* targetInner = innerOf(target);
    if (targetInner != nullptr && isAssignableTo(*targetInner)) return true;
    if (!innerType || targetInner == nullptr) return false;
    return innerType->isAssignableTo(*targetInner);
}

// No variance: only an exact signature assigns.
bool FunctionType::isAssignableTo(const Type& target) const {
    if (equals(target)) return true;
    return isAssignableByDefault(target);
}

bool ClassType::isAssignableTo(const Type& target) const {
    if (isSubtypeOf(target)) return true;
    return isAssignableByDefault(target);
}

bool InterfaceType::isAssignableTo(const Type& target) const {
    if (isSubtypeOf(target)) return true;
    return isAssignableByDefault(target);
}

// Any enum assigns to any integer kind; no integer assigns to an enum.
bool EnumType::isAssignableTo(const Type& target) const {
    if (equals(target)) return true;
    if (target.isSignedInteger() || target.isUnsignedInteger()) return true;
    return isAssignableByDefault(target);
}

std::size_t equalityHash(const TypePtr& type) {
    if (!type) return MISSING_COMPONENT_HASH;
    std::size_t hash = static_cast<std::size_t>(type->kind);
    switch (type->kind) {
        case TypeKind::Class:
        case TypeKind::Interface:
        case TypeKind::Struct:
        case TypeKind::Enum:
            mixInto(hash, std::hash<std::string>{}(type->toString()));
            break;
        default:
            break;
    }
    return hash;
}

std::size_t equalityHash(const std::vector<TypePtr>& types) {
    std::size_t hash = types.size();
    for (const auto& type : types) mixInto(hash, equalityHash(type));
    return hash;
}

std::size_t equalityHash(const FunctionType& type) {
    std::size_t hash = equalityHash(type.paramTypes);
    mixInto(hash, equalityHash(type.returnType));
    return hash;
}

}  // namespace quor::sema
