#include <gtest/gtest.h>

#include <memory>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;

TEST(TypeText, ArrayIsTheElementFollowedByBrackets) {
    TypeContext types;
    EXPECT_EQ(types.getArrayType(types.intType)->toString(), "int[]");
    EXPECT_EQ(types.getArrayType(types.getArrayType(types.stringType))->toString(), "string[][]");
}

TEST(TypeText, MapPrintsACommaAndABlankBetweenKeyAndValue) {
    TypeContext types;
    EXPECT_EQ(types.getMapType(types.stringType, types.intType)->toString(), "Map<string, int>");
}

TEST(TypeText, NullableIsTheInnerFollowedByAQuestionMark) {
    TypeContext types;
    EXPECT_EQ(types.getNullableType(types.intType)->toString(), "int?");
    EXPECT_EQ(types.getNullableType(types.getArrayType(types.intType))->toString(), "int[]?");
    EXPECT_EQ(types.getArrayType(types.getNullableType(types.intType))->toString(), "int?[]");
}

TEST(TypeText, FunctionJoinsParametersAndNamesTheReturnType) {
    TypeContext types;
    EXPECT_EQ(types.getFunctionType({types.intType, types.stringType}, types.boolType)->toString(),
              "fn(int, string) -> bool");
    EXPECT_EQ(types.getFunctionType({}, types.intType)->toString(), "fn() -> int");
}

TEST(TypeText, FunctionWithANullReturnPrintsVoid) {
    FunctionType function({}, nullptr);
    EXPECT_EQ(function.toString(), "fn() -> void");
}

TEST(TypeText, FunctionWithANullParameterPrintsUnknown) {
    FunctionType function({nullptr}, nullptr);
    EXPECT_EQ(function.toString(), "fn(unknown) -> void");
}

TEST(TypeText, NullComponentsPrintAsUnknown) {
    EXPECT_EQ(ArrayType(nullptr).toString(), "unknown[]");
    EXPECT_EQ(NullableType(nullptr).toString(), "unknown?");
    EXPECT_EQ(MapType(nullptr, nullptr).toString(), "Map<unknown, unknown>");
    EXPECT_EQ(typeText(nullptr), "unknown");
}

TEST(TypeText, TypeTextOfAPresentTypeIsItsPrintedForm) {
    TypeContext types;
    EXPECT_EQ(typeText(types.getMapType(types.intType, types.getArrayType(types.charType))), "Map<int, char[]>");
}

TEST(TypeText, NamedTypesPrintTheirName) {
    TypeContext types;
    EXPECT_EQ(types.createClassType("Box<int>")->toString(), "Box<int>");
    EXPECT_EQ(types.createInterfaceType("Shape")->toString(), "Shape");
    EXPECT_EQ(types.createStructType("Point")->toString(), "Point");
    EXPECT_EQ(types.createEnumType("Colour")->toString(), "Colour");
}

TEST(TypeText, ComponentsPrintInsideEachOther) {
    TypeContext types;
    auto map = types.getMapType(types.stringType, types.getNullableType(types.createClassType("Node")));
    auto function = types.getFunctionType({map, types.getArrayType(types.doubleType)}, types.getNullableType(map));
    EXPECT_EQ(function->toString(), "fn(Map<string, Node?>, double[]) -> Map<string, Node?>?");
}

}  // namespace
