// The built-in methods of strings, arrays and maps, the "parse" of scalar
// types, and the properties that can be read without a call: constant rows,
// each read by one loop.
#include "sema/BuiltinMethods.h"

#include <cstddef>
#include <cstdint>

namespace quor::sema {

namespace {

// What a row yields, relative to the receiver where it says so.
enum class Yield : std::uint8_t {
    Int,
    Bool,
    Char,
    String,
    Double,
    Float,
    Void,
    StringArray,
    Element,        // the element type of an array receiver
    Receiver,       // the receiver's own type
    NullableValue,  // the value type of a map receiver, made nullable
};

struct MethodRow {
    TypeKind receiver;
    std::string_view name;
    Yield yield;
};

// Calls on strings, arrays and maps, by the receiver's kind.
constexpr MethodRow COLLECTION_METHODS[] = {
    {TypeKind::String, "length", Yield::Int},
    {TypeKind::String, "size", Yield::Int},
    {TypeKind::String, "indexOf", Yield::Int},
    {TypeKind::String, "upper", Yield::String},
    {TypeKind::String, "lower", Yield::String},
    {TypeKind::String, "trim", Yield::String},
    {TypeKind::String, "replace", Yield::String},
    {TypeKind::String, "substring", Yield::String},
    {TypeKind::String, "reverse", Yield::String},
    {TypeKind::String, "repeat", Yield::String},
    {TypeKind::String, "contains", Yield::Bool},
    {TypeKind::String, "startsWith", Yield::Bool},
    {TypeKind::String, "endsWith", Yield::Bool},
    {TypeKind::String, "isEmpty", Yield::Bool},
    {TypeKind::String, "charAt", Yield::Char},
    {TypeKind::String, "split", Yield::StringArray},

    {TypeKind::Array, "length", Yield::Int},
    {TypeKind::Array, "size", Yield::Int},
    {TypeKind::Array, "isEmpty", Yield::Bool},
    {TypeKind::Array, "contains", Yield::Bool},
    {TypeKind::Array, "push", Yield::Void},
    {TypeKind::Array, "add", Yield::Void},
    {TypeKind::Array, "set", Yield::Void},
    {TypeKind::Array, "clear", Yield::Void},
    {TypeKind::Array, "removeAt", Yield::Void},
    {TypeKind::Array, "pop", Yield::Element},
    {TypeKind::Array, "removeLast", Yield::Element},
    {TypeKind::Array, "get", Yield::Element},
    {TypeKind::Array, "reduce", Yield::Element},
    {TypeKind::Array, "map", Yield::Receiver},
    {TypeKind::Array, "filter", Yield::Receiver},

    {TypeKind::Map, "size", Yield::Int},
    {TypeKind::Map, "length", Yield::Int},
    {TypeKind::Map, "isEmpty", Yield::Bool},
    {TypeKind::Map, "contains", Yield::Bool},
    {TypeKind::Map, "containsKey", Yield::Bool},
    {TypeKind::Map, "get", Yield::NullableValue},
    {TypeKind::Map, "set", Yield::Void},
    {TypeKind::Map, "remove", Yield::Void},
    {TypeKind::Map, "clear", Yield::Void},
};

// Properties read without a call. Maps have none: their "size" is a method.
constexpr MethodRow PROPERTIES[] = {
    {TypeKind::String, "length", Yield::Int},
    {TypeKind::String, "size", Yield::Int},
    {TypeKind::Array, "length", Yield::Int},
    {TypeKind::Array, "size", Yield::Int},
};

// Receivers of the scalar table: any integer kind counts as one.
enum class Scalar : std::uint8_t { AnyInteger, Double, Float, Bool };

struct ScalarRow {
    Scalar receiver;
    std::string_view name;
    Yield yield;
};

// Tested in this order; an integer of any width parses to int.
constexpr ScalarRow SCALAR_METHODS[] = {
    {Scalar::AnyInteger, "parse", Yield::Int},
    {Scalar::Double, "parse", Yield::Double},
    {Scalar::Float, "parse", Yield::Float},
    {Scalar::Bool, "parse", Yield::Bool},
};

bool scalarMatches(Scalar scalar, const Type& receiver) {
    switch (scalar) {
        case Scalar::AnyInteger: return receiver.isInteger();
        case Scalar::Double: return receiver.kind == TypeKind::Double;
        case Scalar::Float: return receiver.kind == TypeKind::Float;
        case Scalar::Bool: return receiver.kind == TypeKind::Bool;
    }
    return false;
}

// A null component (which the type constructors never leave) reads as the
// error type, so no caller meets a null result for a matched row.
TypePtr orError(TypeContext& types, const TypePtr& type) { return type ? type : types.errorType; }

TypePtr yieldType(TypeContext& types, Yield yield, const TypePtr& receiver) {
    switch (yield) {
        case Yield::Int: return types.intType;
        case Yield::Bool: return types.boolType;
        case Yield::Char: return types.charType;
        case Yield::String: return types.stringType;
        case Yield::Double: return types.doubleType;
        case Yield::Float: return types.floatType;
        case Yield::Void: return types.voidType;
        case Yield::StringArray: return types.getArrayType(types.stringType);
        case Yield::Element: return orError(types, static_cast<const ArrayType&>(*receiver).elementType);
        case Yield::Receiver: return receiver;
        case Yield::NullableValue: return types.getNullableType(static_cast<const MapType&>(*receiver).valueType);
    }
    return nullptr;
}

template <std::size_t N>
TypePtr lookupRow(TypeContext& types, const MethodRow (&rows)[N], const TypePtr& receiver, std::string_view name) {
    for (const MethodRow& row : rows) {
        if (row.receiver == receiver->kind && row.name == name) return yieldType(types, row.yield, receiver);
    }
    return nullptr;
}

TypePtr lookupScalar(TypeContext& types, const TypePtr& receiver, std::string_view name) {
    for (const ScalarRow& row : SCALAR_METHODS) {
        if (row.name == name && scalarMatches(row.receiver, *receiver)) return yieldType(types, row.yield, receiver);
    }
    return nullptr;
}

}  // namespace

TypePtr builtinMethodResult(TypeContext& types, const TypePtr& receiver, std::string_view name) {
    if (TypePtr result = lookupRow(types, COLLECTION_METHODS, receiver, name)) return result;
    return lookupScalar(types, receiver, name);
}

TypePtr builtinPropertyType(TypeContext& types, const TypePtr& receiver, std::string_view name) {
    if (TypePtr result = lookupRow(types, PROPERTIES, receiver, name)) return result;
    TypePtr parsed = lookupScalar(types, receiver, name);
    if (!parsed) return nullptr;
    return types.getFunctionType({types.stringType}, parsed);
}

}  // namespace quor::sema
