#include <gtest/gtest.h>

#include <memory>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;

TEST(Equality, PrimitivesOfOneKindAreEqualEvenAsDistinctObjects) {
    PrimitiveType a(TypeKind::Int, "int");
    PrimitiveType b(TypeKind::Int, "int32");
    EXPECT_TRUE(a.equals(b));
    EXPECT_FALSE(a.equals(PrimitiveType(TypeKind::UInt, "uint")));
}

TEST(Equality, ArraysCompareTheirElements) {
    TypeContext types;
    ArrayType ints(types.intType);
    EXPECT_TRUE(ints.equals(ArrayType(types.intType)));
    EXPECT_FALSE(ints.equals(ArrayType(types.int64Type)));
    EXPECT_FALSE(ints.equals(*types.intType));
}

TEST(Equality, AnArrayWithAMissingElementEqualsNothingNotEvenItself) {
    ArrayType broken(nullptr);
    EXPECT_FALSE(broken.equals(broken));
    EXPECT_FALSE(broken.equals(ArrayType(nullptr)));
}

TEST(Equality, NullablesCompareTheirInnerTypesAndNeedBoth) {
    TypeContext types;
    NullableType maybeInt(types.intType);
    EXPECT_TRUE(maybeInt.equals(NullableType(types.intType)));
    EXPECT_FALSE(maybeInt.equals(NullableType(types.stringType)));
    EXPECT_FALSE(maybeInt.equals(NullableType(nullptr)));
    EXPECT_FALSE(maybeInt.equals(*types.intType));
}

TEST(Equality, MapsCompareKeyAndValueAndNeedBoth) {
    TypeContext types;
    MapType map(types.stringType, types.intType);
    EXPECT_TRUE(map.equals(MapType(types.stringType, types.intType)));
    EXPECT_FALSE(map.equals(MapType(types.stringType, types.int64Type)));
    EXPECT_FALSE(map.equals(MapType(types.intType, types.intType)));
    EXPECT_FALSE(map.equals(MapType(nullptr, types.intType)));
    EXPECT_FALSE(map.equals(MapType(types.stringType, nullptr)));
}

TEST(Equality, FunctionsCompareParameterCountParametersAndReturnType) {
    TypeContext types;
    auto f = types.getFunctionType({types.intType}, types.boolType);
    EXPECT_TRUE(f->equals(*types.getFunctionType({types.intType}, types.boolType)));
    EXPECT_FALSE(f->equals(*types.getFunctionType({types.intType}, types.intType)));
    EXPECT_FALSE(f->equals(*types.getFunctionType({types.int64Type}, types.boolType)));
    EXPECT_FALSE(f->equals(*types.getFunctionType({types.intType, types.intType}, types.boolType)));
    EXPECT_FALSE(f->equals(*types.boolType));
}

TEST(Equality, FunctionTypesAreNotInternedYetEqual) {
    TypeContext types;
    auto a = types.getFunctionType({}, nullptr);
    auto b = types.getFunctionType({}, nullptr);
    EXPECT_NE(a, b);
    EXPECT_TRUE(a->equals(*b));
}

TEST(Equality, TwoDistinctClassObjectsOfOneNameAreEqual) {
    ClassType a("Box<int>");
    ClassType b("Box<int>");
    EXPECT_TRUE(a.equals(b));
    EXPECT_FALSE(a.equals(ClassType("Box<int32>")));
}

TEST(Equality, NominalTypesNeedTheSameKindAsWellAsTheName) {
    ClassType cls("Shape");
    InterfaceType iface("Shape");
    StructType str("Shape");
    EnumType en("Shape");
    EXPECT_FALSE(cls.equals(iface));
    EXPECT_FALSE(iface.equals(cls));
    EXPECT_FALSE(str.equals(en));
    EXPECT_TRUE(iface.equals(InterfaceType("Shape")));
    EXPECT_TRUE(str.equals(StructType("Shape")));
    EXPECT_TRUE(en.equals(EnumType("Shape")));
}

TEST(Equality, ClassNamesCompareByteForByte) {
    EXPECT_FALSE(ClassType("Box<int, string>").equals(ClassType("Box<int,string>")));
}

}  // namespace
