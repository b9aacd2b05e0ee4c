#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "sema/NameTable.h"
#include "sema/Type.h"

namespace quor::sema {

// The deepest stack of array, map and nullable levels one type may have.
// Type texts are interned by their printed form, so every level costs as
// much as the whole text beneath it; a deeper type (only a generated or
// hostile source has one) becomes the error type, which reports nothing.
inline constexpr std::uint32_t MAX_TYPE_NESTING = 1000;

// Owns every type of one analysis: the primitive singletons, the named types
// (classes, interfaces, structs, enums, built-in and specialised classes) and
// the interned arrays, maps and nullables. Turns the parser's type text into
// types (`resolveType` is the language's type grammar) and implements the
// textual generics. One context serves one analysis and dies with it.
class TypeContext {
public:
    TypeContext();
    ~TypeContext();
    TypeContext(const TypeContext&) = delete;
    TypeContext& operator=(const TypeContext&) = delete;

    TypePtr getArrayType(TypePtr element);
    TypePtr getMapType(TypePtr key, TypePtr value);
    TypePtr getNullableType(TypePtr inner);
    std::shared_ptr<FunctionType> getFunctionType(std::vector<TypePtr> params, TypePtr returnType);

    std::shared_ptr<ClassType> createClassType(const std::string& name);
    std::shared_ptr<InterfaceType> createInterfaceType(const std::string& name);
    std::shared_ptr<StructType> createStructType(const std::string& name);
    std::shared_ptr<EnumType> createEnumType(const std::string& name);
    void registerUserType(const std::string& name, TypePtr type);
    TypePtr findUserType(const std::string& name) const;

    static std::vector<std::string> splitTypeArgs(const std::string& text);
    static std::string substituteType(const std::string& text, const std::vector<std::string>& params,
                                      const std::vector<std::string>& args);
    TypePtr specializeClassType(const std::shared_ptr<ClassType>& base, const std::vector<std::string>& args);

    // Null when the text names nothing.
    TypePtr resolveType(const std::string& text);
    TypePtr getCommonType(const TypePtr& a, const TypePtr& b);

    // The primitive singletons, in TypeKind order.
    TypePtr voidType, nullType, boolType, int8Type, uint8Type, int16Type, uint16Type, intType, uintType,
        int64Type, uint64Type, floatType, doubleType, charType, stringType, anyType, unknownType, errorType;

    NameTable<TypePtr> userTypes;
    std::unordered_map<std::string, TypePtr> typeCache;

private:
    // Builds the ten built-in classes (IO, Console, String, Math, ...).
    void createBuiltinClasses();
    // "List<T>" and "Set<T>": the class of that element, made on first use.
    TypePtr resolveCollectionClass(const std::string& head, const std::string& elementText);
    // The same for an element already resolved; a null element names "<head>any>".
    TypePtr collectionClassOf(const std::string& head, const TypePtr& element);
    // Steps 9 to 12 of resolveType: a text with no suffix and no collection head.
    TypePtr resolveNamedType(const std::string& text);
    // Remembers a named type so that the destructor can break the reference
    // cycles between classes (a field of its own class, a factory returning
    // its class) which would otherwise outlive the analysis.
    template <typename T>
    std::shared_ptr<T> track(std::shared_ptr<T> type);

    std::vector<TypePtr> namedTypes;
    // How many specialisations are filling their members right now, one
    // inside the other. A generic class whose member names a deeper
    // specialisation of itself would otherwise nest without end.
    int specializationDepth = 0;
};

}  // namespace quor::sema
