#include <gtest/gtest.h>

#include <memory>

#include "sema/TypeContext.h"

namespace {

using namespace quor::sema;

class CommonType : public ::testing::Test {
protected:
    TypeContext types;
    TypePtr common(const TypePtr& a, const TypePtr& b) { return types.getCommonType(a, b); }
};

TEST_F(CommonType, AMissingSideGivesTheErrorType) {
    EXPECT_EQ(common(nullptr, types.intType), types.errorType);
    EXPECT_EQ(common(types.intType, nullptr), types.errorType);
    EXPECT_EQ(common(nullptr, nullptr), types.errorType);
}

TEST_F(CommonType, EqualTypesGiveTheFirst) {
    auto first = types.createClassType("Node");
    auto second = std::make_shared<ClassType>("Node");
    EXPECT_EQ(common(first, second), first);
    EXPECT_EQ(common(second, first), second);
    EXPECT_EQ(common(types.errorType, types.errorType), types.errorType);
}

TEST_F(CommonType, TheErrorTypeOnEitherSideGivesTheErrorType) {
    EXPECT_EQ(common(types.errorType, types.intType), types.errorType);
    EXPECT_EQ(common(types.stringType, types.errorType), types.errorType);
}

TEST_F(CommonType, WhenTheFirstAssignsToTheSecondTheSecondWins) {
    EXPECT_EQ(common(types.intType, types.int64Type), types.int64Type);
    EXPECT_EQ(common(types.uintType, types.int64Type), types.int64Type);
    EXPECT_EQ(common(types.intType, types.anyType), types.anyType);
}

TEST_F(CommonType, WhenOnlyTheSecondAssignsToTheFirstTheFirstWins) {
    EXPECT_EQ(common(types.int64Type, types.intType), types.int64Type);
    EXPECT_EQ(common(types.doubleType, types.floatType), types.doubleType);
}

TEST_F(CommonType, ASubclassAndItsBaseMeetAtTheBase) {
    auto animal = types.createClassType("Animal");
    auto dog = types.createClassType("Dog");
    dog->setSuperclass(animal);
    EXPECT_EQ(common(dog, animal), animal);
    EXPECT_EQ(common(animal, dog), animal);
}

TEST_F(CommonType, NumbersThatDoNotAssignEitherWayMeetByTheNumericRule) {
    EXPECT_EQ(common(types.uintType, types.intType), types.intType);
    EXPECT_EQ(common(types.intType, types.uintType), types.intType);
    EXPECT_EQ(common(types.intType, types.floatType), types.floatType);
    EXPECT_EQ(common(types.int64Type, types.uint64Type), types.int64Type);
    EXPECT_EQ(common(types.uint64Type, types.int64Type), types.int64Type);
    EXPECT_EQ(common(types.int8Type, types.uint64Type), types.uint64Type);
    EXPECT_EQ(common(types.int8Type, types.uint8Type), types.intType);
    EXPECT_EQ(common(types.int16Type, types.uint16Type), types.intType);
    EXPECT_EQ(common(types.int64Type, types.floatType), types.floatType);
}

TEST_F(CommonType, NullAndAnotherTypeMeetInItsNullable) {
    EXPECT_EQ(common(types.nullType, types.intType), types.getNullableType(types.intType));
    EXPECT_EQ(common(types.intType, types.nullType), types.getNullableType(types.intType));
    EXPECT_EQ(common(types.nullType, types.stringType)->toString(), "string?");
}

TEST_F(CommonType, NullAndANullableMeetInTheNullable) {
    auto maybe = types.getNullableType(types.intType);
    EXPECT_EQ(common(types.nullType, maybe), maybe);
}

TEST_F(CommonType, EverythingElseMeetsInAny) {
    EXPECT_EQ(common(types.intType, types.stringType), types.anyType);
    EXPECT_EQ(common(types.createClassType("A"), types.createClassType("B")), types.anyType);
    EXPECT_EQ(common(types.boolType, types.charType), types.anyType);
    EXPECT_EQ(common(types.getArrayType(types.intType), types.getArrayType(types.int64Type)), types.anyType);
}

}  // namespace
