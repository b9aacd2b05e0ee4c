#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sema/TypeContext.h"

namespace {

using quor::sema::TypeContext;
using quor::sema::TypePtr;

// The eighteen primitives, in the order of the rows and columns below.
std::vector<TypePtr> primitives(const TypeContext& t) {
    return {t.voidType,  t.nullType,   t.boolType,   t.int8Type,  t.uint8Type,  t.int16Type,
            t.uint16Type, t.intType,   t.uintType,   t.int64Type, t.uint64Type, t.floatType,
            t.doubleType, t.charType,  t.stringType, t.anyType,   t.unknownType, t.errorType};
}

// Whether the row's type converts implicitly to the column's. Every kind
// converts to itself, to any and to the error type, and the error type to
// everything; between the numbers only the widenings hold:
//   int8  -> int16 int int64 float double
//   uint8 -> int16 uint16 int uint int64 uint64 float double
//   int16 -> int int64 float double
//   uint16 -> int uint int64 uint64 float double
//   int -> int64 double;   uint -> int64 uint64 double
//   int64, uint64, float -> double
//                              v n b i8 u8 i16 u16 i u i64 u64 f d c s any unk err
const char* const EXPECTED[] = {
    /* void    */ "100000000000000101",
    /* null    */ "010000000000000101",
    /* bool    */ "001000000000000101",
    /* int8    */ "000101010101100101",
    /* uint8   */ "000011111111100101",
    /* int16   */ "000001010101100101",
    /* uint16  */ "000000111111100101",
    /* int     */ "000000010100100101",
    /* uint    */ "000000001110100101",
    /* int64   */ "000000000100100101",
    /* uint64  */ "000000000010100101",
    /* float   */ "000000000001100101",
    /* double  */ "000000000000100101",
    /* char    */ "000000000000010101",
    /* string  */ "000000000000001101",
    /* any     */ "000000000000000101",
    /* unknown */ "000000000000000111",
    /* error   */ "111111111111111111",
};

TEST(ConversionTable, EveryPrimitivePairConvertsExactlyAsTheTableSays) {
    TypeContext types;
    const auto all = primitives(types);
    ASSERT_EQ(all.size(), 18u);
    for (std::size_t from = 0; from < all.size(); ++from) {
        for (std::size_t to = 0; to < all.size(); ++to) {
            const bool expected = EXPECTED[from][to] == '1';
            EXPECT_EQ(all[from]->canImplicitlyConvertTo(*all[to]), expected)
                << all[from]->toString() << " -> " << all[to]->toString();
        }
    }
}

// Among primitives, subtyping adds nothing that conversion lacks (any, the
// error type, equality), so assignability follows the same table.
TEST(ConversionTable, AssignabilityOfPrimitivePairsFollowsTheSameTable) {
    TypeContext types;
    const auto all = primitives(types);
    for (std::size_t from = 0; from < all.size(); ++from) {
        for (std::size_t to = 0; to < all.size(); ++to) {
            const bool expected = EXPECTED[from][to] == '1';
            EXPECT_EQ(all[from]->isAssignableTo(*all[to]), expected)
                << all[from]->toString() << " -> " << all[to]->toString();
        }
    }
}

TEST(ConversionTable, IntWidensToDoubleButNotToFloat) {
    TypeContext types;
    EXPECT_FALSE(types.intType->canImplicitlyConvertTo(*types.floatType));
    EXPECT_TRUE(types.intType->canImplicitlyConvertTo(*types.doubleType));
    EXPECT_TRUE(types.int16Type->canImplicitlyConvertTo(*types.floatType));
    EXPECT_TRUE(types.int16Type->canImplicitlyConvertTo(*types.doubleType));
}

TEST(ConversionTable, Int8NeverWidensToAnUnsignedKindWhileUInt8WidensToInt16) {
    TypeContext types;
    EXPECT_FALSE(types.int8Type->canImplicitlyConvertTo(*types.uint16Type));
    EXPECT_FALSE(types.int8Type->canImplicitlyConvertTo(*types.uint8Type));
    EXPECT_FALSE(types.int8Type->canImplicitlyConvertTo(*types.uint64Type));
    EXPECT_TRUE(types.uint8Type->canImplicitlyConvertTo(*types.int16Type));
}

TEST(ConversionTable, UIntWidensToInt64ButIntNeverToUInt) {
    TypeContext types;
    EXPECT_TRUE(types.uintType->canImplicitlyConvertTo(*types.int64Type));
    EXPECT_FALSE(types.intType->canImplicitlyConvertTo(*types.uintType));
    EXPECT_FALSE(types.intType->canImplicitlyConvertTo(*types.uint64Type));
}

TEST(ConversionTable, DoubleNarrowsToNothing) {
    TypeContext types;
    EXPECT_FALSE(types.doubleType->canImplicitlyConvertTo(*types.floatType));
    EXPECT_FALSE(types.doubleType->canImplicitlyConvertTo(*types.int64Type));
    EXPECT_TRUE(types.doubleType->canImplicitlyConvertTo(*types.doubleType));
}

TEST(ConversionTable, CharBoolAndStringTakePartInNoWidening) {
    TypeContext types;
    EXPECT_FALSE(types.charType->canImplicitlyConvertTo(*types.intType));
    EXPECT_FALSE(types.intType->canImplicitlyConvertTo(*types.charType));
    EXPECT_FALSE(types.boolType->canImplicitlyConvertTo(*types.intType));
    EXPECT_FALSE(types.charType->canImplicitlyConvertTo(*types.stringType));
}

TEST(ConversionTable, CompositeTypesConvertOnlyByEqualityOrToTheAbsorbingKinds) {
    TypeContext types;
    auto ints = types.getArrayType(types.intType);
    auto longs = types.getArrayType(types.int64Type);
    EXPECT_TRUE(ints->canImplicitlyConvertTo(*types.getArrayType(types.intType)));
    EXPECT_FALSE(ints->canImplicitlyConvertTo(*longs));
    EXPECT_TRUE(ints->canImplicitlyConvertTo(*types.anyType));
    EXPECT_TRUE(ints->canImplicitlyConvertTo(*types.errorType));
    EXPECT_TRUE(types.errorType->canImplicitlyConvertTo(*ints));
    // The nullable wrapper is no widening.
    EXPECT_FALSE(types.intType->canImplicitlyConvertTo(*types.getNullableType(types.intType)));
}

}  // namespace
