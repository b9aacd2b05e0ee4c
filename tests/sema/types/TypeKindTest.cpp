#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using quor::sema::TypeContext;
using quor::sema::TypeKind;
using quor::sema::TypePtr;

TEST(TypeKindValues, AreFixedNumbersStoredInThirtyTwoBits) {
    static_assert(std::is_same_v<std::underlying_type_t<TypeKind>, std::uint32_t>);
    struct Row {
        TypeKind kind;
        std::uint32_t value;
    };
    const Row rows[] = {
        {TypeKind::Void, 0},      {TypeKind::Null, 1},      {TypeKind::Bool, 2},       {TypeKind::Int8, 3},
        {TypeKind::UInt8, 4},     {TypeKind::Int16, 5},     {TypeKind::UInt16, 6},     {TypeKind::Int, 7},
        {TypeKind::UInt, 8},      {TypeKind::Int64, 9},     {TypeKind::UInt64, 10},    {TypeKind::Float, 11},
        {TypeKind::Double, 12},   {TypeKind::Char, 13},     {TypeKind::String, 14},    {TypeKind::Array, 15},
        {TypeKind::Map, 16},      {TypeKind::Nullable, 17}, {TypeKind::Function, 18},  {TypeKind::Class, 19},
        {TypeKind::Interface, 20}, {TypeKind::Struct, 21},  {TypeKind::Enum, 22},      {TypeKind::Any, 23},
        {TypeKind::Unknown, 24},  {TypeKind::Error, 25},
    };
    for (const auto& row : rows) EXPECT_EQ(static_cast<std::uint32_t>(row.kind), row.value);
}

TEST(PrimitiveSingletons, HaveTheirKindAndPrintedName) {
    TypeContext types;
    struct Row {
        TypePtr type;
        TypeKind kind;
        const char* name;
    };
    const Row rows[] = {
        {types.voidType, TypeKind::Void, "void"},        {types.nullType, TypeKind::Null, "null"},
        {types.boolType, TypeKind::Bool, "bool"},        {types.int8Type, TypeKind::Int8, "int8"},
        {types.uint8Type, TypeKind::UInt8, "uint8"},     {types.int16Type, TypeKind::Int16, "int16"},
        {types.uint16Type, TypeKind::UInt16, "uint16"},  {types.intType, TypeKind::Int, "int"},
        {types.uintType, TypeKind::UInt, "uint"},        {types.int64Type, TypeKind::Int64, "int64"},
        {types.uint64Type, TypeKind::UInt64, "uint64"},  {types.floatType, TypeKind::Float, "float"},
        {types.doubleType, TypeKind::Double, "double"},  {types.charType, TypeKind::Char, "char"},
        {types.stringType, TypeKind::String, "string"},  {types.anyType, TypeKind::Any, "any"},
        {types.unknownType, TypeKind::Unknown, "unknown"}, {types.errorType, TypeKind::Error, "<type-error>"},
    };
    for (const auto& row : rows) {
        ASSERT_NE(row.type, nullptr) << row.name;
        EXPECT_EQ(row.type->kind, row.kind) << row.name;
        EXPECT_EQ(row.type->toString(), row.name);
        EXPECT_NE(dynamic_cast<const quor::sema::PrimitiveType*>(row.type.get()), nullptr) << row.name;
    }
}

// Signed: int8, int16, int, int64. Unsigned: uint8, uint16, uint, uint64.
// Floating: float, double. Char and bool are no numbers.
TEST(KindPredicates, HoldForExactlyTheNumberKinds) {
    TypeContext types;
    struct Row {
        TypePtr type;
        bool isSigned, isUnsigned, isFloating;
    };
    const Row rows[] = {
        {types.voidType, false, false, false},   {types.nullType, false, false, false},
        {types.boolType, false, false, false},   {types.int8Type, true, false, false},
        {types.uint8Type, false, true, false},   {types.int16Type, true, false, false},
        {types.uint16Type, false, true, false},  {types.intType, true, false, false},
        {types.uintType, false, true, false},    {types.int64Type, true, false, false},
        {types.uint64Type, false, true, false},  {types.floatType, false, false, true},
        {types.doubleType, false, false, true},  {types.charType, false, false, false},
        {types.stringType, false, false, false}, {types.anyType, false, false, false},
        {types.unknownType, false, false, false}, {types.errorType, false, false, false},
    };
    for (const auto& row : rows) {
        const auto& t = *row.type;
        EXPECT_EQ(t.isSignedInteger(), row.isSigned) << t.toString();
        EXPECT_EQ(t.isUnsignedInteger(), row.isUnsigned) << t.toString();
        EXPECT_EQ(t.isInteger(), row.isSigned || row.isUnsigned) << t.toString();
        EXPECT_EQ(t.isFloatingPoint(), row.isFloating) << t.toString();
        EXPECT_EQ(t.isNumeric(), row.isSigned || row.isUnsigned || row.isFloating) << t.toString();
    }
}

TEST(KindPredicates, CompositeTypesAreNotNumeric) {
    TypeContext types;
    EXPECT_FALSE(types.getArrayType(types.intType)->isNumeric());
    EXPECT_FALSE(types.getNullableType(types.intType)->isNumeric());
    EXPECT_FALSE(types.getNullableType(types.intType)->isInteger());
    EXPECT_FALSE(types.createEnumType("Colour")->isInteger());
}

}  // namespace
