#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace quor::ast {
class ClassDecl;
}

namespace quor::sema {

// The kind tag of every semantic type. The numbers are fixed: range tests
// (integer, numeric) and the conversion table rely on this order.
enum class TypeKind : std::uint32_t {
    Void = 0,
    Null = 1,
    Bool = 2,
    Int8 = 3,
    UInt8 = 4,
    Int16 = 5,
    UInt16 = 6,
    Int = 7,
    UInt = 8,
    Int64 = 9,
    UInt64 = 10,
    Float = 11,
    Double = 12,
    Char = 13,
    String = 14,
    Array = 15,
    Map = 16,
    Nullable = 17,
    Function = 18,
    Class = 19,
    Interface = 20,
    Struct = 21,
    Enum = 22,
    Any = 23,
    Unknown = 24,
    Error = 25,
};

class Type;
class FunctionType;
class ClassType;
class InterfaceType;
using TypePtr = std::shared_ptr<Type>;

// A field of a class or struct, as the checker sees it.
struct MemberField {
    std::string name;
    TypePtr type;
    std::string visibility = "public";
    bool isStatic = false;
    bool isConst = false;
};

// A method of a class or interface. Overloads are several records of one name.
struct MemberMethod {
    std::string name;
    std::shared_ptr<FunctionType> type;
    std::string visibility = "public";
    bool isStatic = false;
    bool isAbstract = false;
    bool isOverride = false;
};

// Root of the semantic types. Types are made only by TypeContext and always
// held by shared pointer. Nominal types compare by name, not identity, since
// function types are not interned and several objects may stand for one type.
// The error type absorbs (assignable to and from everything); `any` is a top
// type only (assignable to, never from).
class Type : public std::enable_shared_from_this<Type> {
public:
    explicit Type(TypeKind kind) : kind(kind) {}
    Type(const Type&) = delete;
    Type& operator=(const Type&) = delete;
    virtual ~Type() = default;

    virtual std::string toString() const = 0;
    virtual bool equals(const Type& other) const;
    virtual bool canImplicitlyConvertTo(const Type& target) const;
    virtual bool isSubtypeOf(const Type& target) const;
    virtual bool isAssignableTo(const Type& target) const;

    bool isNumeric() const { return isInteger() || isFloatingPoint(); }
    bool isInteger() const { return isSignedInteger() || isUnsignedInteger(); }
    bool isFloatingPoint() const { return kind == TypeKind::Float || kind == TypeKind::Double; }
    bool isSignedInteger() const;
    bool isUnsignedInteger() const;

    TypeKind kind;
    // How many array, map, nullable and function levels this type stacks up,
    // itself included; 0 for every other type. Set by TypeContext.
    std::uint32_t nesting = 0;

protected:
    // Steps 1 to 8 of plain assignability, shared by every override.
    bool isAssignableByDefault(const Type& target) const;
    // The first five of those steps: identity, the absorbing kinds, widening
    // and subtyping.
    bool assignsThroughCommonPrefix(const Type& target) const;
};

// void, null, bool, the numbers, char, string, any, unknown and the error type.
class PrimitiveType final : public Type {
public:
    PrimitiveType(TypeKind kind, std::string name) : Type(kind), name(std::move(name)) {}
    std::string toString() const override { return name; }

    std::string name;
};

class ArrayType final : public Type {
public:
    explicit ArrayType(TypePtr elementType) : Type(TypeKind::Array), elementType(std::move(elementType)) {}
    std::string toString() const override;
    bool equals(const Type& other) const override;
    bool isAssignableTo(const Type& target) const override;

    TypePtr elementType;  // may be null
};

class MapType final : public Type {
public:
    MapType(TypePtr keyType, TypePtr valueType)
        : Type(TypeKind::Map), keyType(std::move(keyType)), valueType(std::move(valueType)) {}
    std::string toString() const override;
    bool equals(const Type& other) const override;
    bool isAssignableTo(const Type& target) const override;

    TypePtr keyType;    // may be null
    TypePtr valueType;  // may be null
};

class NullableType final : public Type {
public:
    explicit NullableType(TypePtr innerType) : Type(TypeKind::Nullable), innerType(std::move(innerType)) {}
    std::string toString() const override;
    bool equals(const Type& other) const override;
    bool isAssignableTo(const Type& target) const override;

    TypePtr innerType;  // may be null
};

class FunctionType final : public Type {
public:
    FunctionType(std::vector<TypePtr> paramTypes, TypePtr returnType)
        : Type(TypeKind::Function), paramTypes(std::move(paramTypes)), returnType(std::move(returnType)) {}
    std::string toString() const override;
    bool equals(const Type& other) const override;
    bool isAssignableTo(const Type& target) const override;

    std::vector<TypePtr> paramTypes;  // entries may be null
    TypePtr returnType;               // may be null; prints as "void"
};

class InterfaceType final : public Type {
public:
    explicit InterfaceType(std::string name) : Type(TypeKind::Interface), name(std::move(name)) {}
    std::string toString() const override { return name; }
    bool equals(const Type& other) const override;
    bool isSubtypeOf(const Type& target) const override;
    bool isAssignableTo(const Type& target) const override;

    // Own methods of that name, then those of every super-interface.
    std::vector<MemberMethod> findMethods(const std::string& methodName) const;

    std::string name;
    // Walked by subtyping and findMethods; nothing in the language fills it.
    std::vector<std::shared_ptr<InterfaceType>> superInterfaces;
    std::vector<MemberMethod> methods;
};

class ClassType final : public Type {
public:
    explicit ClassType(std::string name) : Type(TypeKind::Class), name(std::move(name)) {}
    std::string toString() const override { return name; }
    bool equals(const Type& other) const override;
    bool isSubtypeOf(const Type& target) const override;
    bool isAssignableTo(const Type& target) const override;

    // The nearest class of the chain that has the field.
    std::optional<MemberField> findField(const std::string& fieldName) const;
    // Own methods of that name, then inherited ones that no entry with an
    // equal function type hides.
    std::vector<MemberMethod> findMethods(const std::string& methodName) const;
    void addMethod(MemberMethod method);
    void setSuperclass(std::shared_ptr<ClassType> base);

    std::string name;  // for a specialisation the whole text, "Box<int>"
    std::vector<std::string> typeParams;
    const ast::ClassDecl* decl = nullptr;  // not owned; null for built-ins
    std::shared_ptr<ClassType> superclass;
    std::vector<std::shared_ptr<InterfaceType>> interfaces;
    std::unordered_map<std::string, MemberField> fields;
    std::vector<MemberMethod> methods;
    bool isAbstract = false;
};

class StructType final : public Type {
public:
    explicit StructType(std::string name) : Type(TypeKind::Struct), name(std::move(name)) {}
    std::string toString() const override { return name; }
    bool equals(const Type& other) const override;

    std::optional<MemberField> findField(const std::string& fieldName) const;

    std::string name;
    std::unordered_map<std::string, MemberField> fields;
};

class EnumType final : public Type {
public:
    explicit EnumType(std::string name) : Type(TypeKind::Enum), name(std::move(name)) {}
    std::string toString() const override { return name; }
    bool equals(const Type& other) const override;
    bool isAssignableTo(const Type& target) const override;

    std::string name;
    std::vector<std::string> variants;  // declaration order
    std::unordered_map<std::string, std::int64_t> variantValues;
};

// The printed text of a possibly null component: "unknown" for null.
std::string typeText(const TypePtr& type);

// Hashes on which types equal under `equals` always agree: a type's kind
// and, for named types (equal by name), its name; a missing component hashes
// as every missing one. The second covers a list (parameters) with its
// count; the third a function type, its parameters and its result.
std::size_t equalityHash(const TypePtr& type);
std::size_t equalityHash(const std::vector<TypePtr>& types);
std::size_t equalityHash(const FunctionType& type);

}  // namespace quor::sema
