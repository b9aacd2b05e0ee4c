#include <gtest/gtest.h>

#include <memory>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;

TEST(TypeContextConstruction, HoldsTheTenBuiltInClassesAndOnlyTheStringArrayInTheCache) {
    TypeContext types;
    EXPECT_EQ(types.userTypes.size(), 10u);
    ASSERT_EQ(types.typeCache.size(), 1u);
    ASSERT_EQ(types.typeCache.count("string[]"), 1u);
    EXPECT_EQ(types.typeCache.at("string[]")->toString(), "string[]");
}

TEST(TypeContextConstruction, EveryContextMakesItsOwnTypes) {
    TypeContext first;
    TypeContext second;
    EXPECT_NE(first.intType, second.intType);
    EXPECT_NE(first.findUserType("Math"), second.findUserType("Math"));
}

TEST(ArrayInterning, OneObjectPerElementTextKeyedByTheElementAndBrackets) {
    TypeContext types;
    auto a = types.getArrayType(types.intType);
    EXPECT_EQ(a, types.getArrayType(types.intType));
    EXPECT_EQ(a->kind, TypeKind::Array);
    EXPECT_EQ(types.typeCache.at("int[]"), a);
}

TEST(ArrayInterning, AMissingElementGivesTheErrorType) {
    TypeContext types;
    EXPECT_EQ(types.getArrayType(nullptr), types.errorType);
}

TEST(ArrayInterning, TwoClassObjectsOfOneNameShareOneEntry) {
    TypeContext types;
    auto first = types.createClassType("Node");
    auto arrayOfFirst = types.getArrayType(first);
    auto second = types.createClassType("Node");
    EXPECT_EQ(types.getArrayType(second), arrayOfFirst);
}

TEST(MapInterning, KeyHasACommaAndNoBlank) {
    TypeContext types;
    auto map = types.getMapType(types.stringType, types.intType);
    EXPECT_EQ(map, types.getMapType(types.stringType, types.intType));
    EXPECT_EQ(types.typeCache.count("Map<string,int>"), 1u);
    EXPECT_EQ(types.typeCache.count("Map<string, int>"), 0u);
    EXPECT_EQ(types.typeCache.at("Map<string,int>"), map);
}

TEST(MapInterning, AMissingKeyOrValueGivesTheErrorType) {
    TypeContext types;
    EXPECT_EQ(types.getMapType(nullptr, types.intType), types.errorType);
    EXPECT_EQ(types.getMapType(types.intType, nullptr), types.errorType);
}

TEST(NullableInterning, OneObjectPerInnerTextKeyedByTheInnerAndQuestionMark) {
    TypeContext types;
    auto n = types.getNullableType(types.intType);
    EXPECT_EQ(n, types.getNullableType(types.intType));
    EXPECT_EQ(n->kind, TypeKind::Nullable);
    EXPECT_EQ(types.typeCache.at("int?"), n);
}

TEST(NullableInterning, VoidNullAndNullablesAreNotWrappedAgain) {
    TypeContext types;
    EXPECT_EQ(types.getNullableType(types.voidType), types.voidType);
    EXPECT_EQ(types.getNullableType(types.nullType), types.nullType);
    auto n = types.getNullableType(types.stringType);
    EXPECT_EQ(types.getNullableType(n), n);
}

TEST(NullableInterning, AMissingInnerGivesTheErrorType) {
    TypeContext types;
    EXPECT_EQ(types.getNullableType(nullptr), types.errorType);
}

TEST(FunctionTypes, EveryCallMakesANewObjectAndAMissingReturnIsVoid) {
    TypeContext types;
    auto a = types.getFunctionType({types.intType}, nullptr);
    auto b = types.getFunctionType({types.intType}, nullptr);
    EXPECT_NE(a, b);
    EXPECT_EQ(a->returnType, types.voidType);
    ASSERT_EQ(a->paramTypes.size(), 1u);
    EXPECT_EQ(a->paramTypes[0], types.intType);
    EXPECT_EQ(types.typeCache.size(), 1u);
}

TEST(FunctionTypes, KeepMissingParameters) {
    TypeContext types;
    auto f = types.getFunctionType({nullptr, types.intType}, types.boolType);
    ASSERT_EQ(f->paramTypes.size(), 2u);
    EXPECT_EQ(f->paramTypes[0], nullptr);
    EXPECT_EQ(f->returnType, types.boolType);
}

TEST(NamedTypes, CreateStoresTheNewTypeUnderItsNameAndReplacesAnEarlierOne) {
    TypeContext types;
    auto first = types.createClassType("Thing");
    EXPECT_EQ(types.findUserType("Thing"), first);
    auto second = types.createStructType("Thing");
    EXPECT_EQ(types.findUserType("Thing"), second);
    auto third = types.createInterfaceType("Thing");
    EXPECT_EQ(types.findUserType("Thing"), third);
    auto fourth = types.createEnumType("Thing");
    EXPECT_EQ(types.findUserType("Thing"), fourth);
    EXPECT_EQ(fourth->kind, TypeKind::Enum);
    EXPECT_EQ(fourth->name, "Thing");
}

TEST(NamedTypes, CreatedTypesAreEmpty) {
    TypeContext types;
    auto cls = types.createClassType("Empty");
    EXPECT_TRUE(cls->fields.empty());
    EXPECT_TRUE(cls->methods.empty());
    EXPECT_TRUE(cls->typeParams.empty());
    EXPECT_EQ(cls->superclass, nullptr);
    EXPECT_EQ(cls->decl, nullptr);
    EXPECT_FALSE(cls->isAbstract);
}

TEST(NamedTypes, ACreatedClassHidesTheBuiltInClassOfThatName) {
    TypeContext types;
    auto builtIn = types.findUserType("Console");
    auto mine = types.createClassType("Console");
    EXPECT_NE(builtIn, mine);
    EXPECT_EQ(types.resolveType("Console"), mine);
    EXPECT_EQ(types.userTypes.size(), 10u);
}

TEST(NamedTypes, RegisterUserTypeReplacesAnyEntry) {
    TypeContext types;
    types.createClassType("Alias");
    types.registerUserType("Alias", types.intType);
    EXPECT_EQ(types.findUserType("Alias"), types.intType);
}

TEST(NamedTypes, FindUserTypeParsesNoText) {
    TypeContext types;
    EXPECT_EQ(types.findUserType("Missing"), nullptr);
    EXPECT_EQ(types.findUserType("int"), nullptr);
    EXPECT_EQ(types.findUserType("Math[]"), nullptr);
    EXPECT_EQ(types.findUserType(" Math"), nullptr);
    EXPECT_NE(types.findUserType("Math"), nullptr);
}

}  // namespace
