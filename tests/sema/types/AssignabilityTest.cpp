#include <gtest/gtest.h>

#include <memory>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;

class Assignability : public ::testing::Test {
protected:
    TypeContext types;
    TypePtr nullable(const TypePtr& inner) { return types.getNullableType(inner); }
    TypePtr array(const TypePtr& element) { return types.getArrayType(element); }
};

TEST_F(Assignability, ErrorTypeAssignsToStringAndBackInBothPredicateFamilies) {
    const auto& error = *types.errorType;
    const auto& text = *types.stringType;
    EXPECT_TRUE(error.isAssignableTo(text));
    EXPECT_TRUE(text.isAssignableTo(error));
    EXPECT_TRUE(error.canImplicitlyConvertTo(text));
    EXPECT_TRUE(text.canImplicitlyConvertTo(error));
    EXPECT_TRUE(error.isSubtypeOf(text));
    EXPECT_TRUE(text.isSubtypeOf(error));
}

TEST_F(Assignability, AnyIsATopTypeOnly) {
    EXPECT_FALSE(types.anyType->isAssignableTo(*types.intType));
    EXPECT_TRUE(types.intType->isAssignableTo(*types.anyType));
}

TEST_F(Assignability, AnyAssignsOnlyToAnyTheErrorTypeAndNullablesOfThese) {
    EXPECT_TRUE(types.anyType->isAssignableTo(*types.anyType));
    EXPECT_TRUE(types.anyType->isAssignableTo(*types.errorType));
    EXPECT_TRUE(types.anyType->isAssignableTo(*nullable(types.anyType)));
    EXPECT_FALSE(types.anyType->isAssignableTo(*types.stringType));
    EXPECT_FALSE(types.anyType->isAssignableTo(*nullable(types.stringType)));
    EXPECT_FALSE(types.anyType->isAssignableTo(*array(types.anyType)));
}

TEST_F(Assignability, UnknownHasNoRuleOfItsOwn) {
    EXPECT_TRUE(types.unknownType->isAssignableTo(*types.unknownType));
    EXPECT_TRUE(types.unknownType->isAssignableTo(*types.anyType));
    EXPECT_TRUE(types.unknownType->isAssignableTo(*types.errorType));
    EXPECT_TRUE(types.unknownType->isAssignableTo(*nullable(types.unknownType)));
    EXPECT_FALSE(types.unknownType->isAssignableTo(*types.intType));
    EXPECT_FALSE(types.intType->isAssignableTo(*types.unknownType));
}

TEST_F(Assignability, NullAssignsToNullablesAndAnyOnly) {
    EXPECT_FALSE(types.nullType->isAssignableTo(*types.intType));
    EXPECT_TRUE(types.nullType->isAssignableTo(*nullable(types.intType)));
    EXPECT_TRUE(types.nullType->isAssignableTo(*types.anyType));
    EXPECT_TRUE(types.nullType->isAssignableTo(*nullable(array(types.stringType))));
    EXPECT_FALSE(types.nullType->isAssignableTo(*types.stringType));
    EXPECT_FALSE(types.nullType->isAssignableTo(*types.createClassType("Node")));
}

TEST_F(Assignability, NullableDoesNotAssignToItsPlainType) {
    EXPECT_FALSE(nullable(types.intType)->isAssignableTo(*types.intType));
}

TEST_F(Assignability, NullableWidensInside) {
    EXPECT_TRUE(nullable(types.intType)->isAssignableTo(*nullable(types.int64Type)));
    EXPECT_FALSE(nullable(types.int64Type)->isAssignableTo(*nullable(types.intType)));
    EXPECT_TRUE(nullable(types.intType)->isAssignableTo(*types.anyType));
}

TEST_F(Assignability, PlainTypeAssignsToANullableWithWideningInside) {
    EXPECT_TRUE(types.intType->isAssignableTo(*nullable(types.intType)));
    EXPECT_TRUE(types.intType->isAssignableTo(*nullable(types.int64Type)));
    EXPECT_FALSE(types.intType->isAssignableTo(*nullable(types.floatType)));
}

TEST_F(Assignability, ArraysAreInvariant) {
    EXPECT_FALSE(array(types.intType)->isAssignableTo(*array(types.int64Type)));
    EXPECT_FALSE(array(types.intType)->isAssignableTo(*array(types.anyType)));
    EXPECT_TRUE(array(types.intType)->isAssignableTo(*array(types.intType)));
}

TEST_F(Assignability, ArrayAssignsToItsNullableAndToAny) {
    EXPECT_TRUE(array(types.intType)->isAssignableTo(*nullable(array(types.intType))));
    EXPECT_FALSE(array(types.intType)->isAssignableTo(*nullable(array(types.int64Type))));
    EXPECT_TRUE(array(types.intType)->isAssignableTo(*types.anyType));
    EXPECT_FALSE(array(types.intType)->isAssignableTo(*types.intType));
}

TEST_F(Assignability, ArraysWithAMissingElementDoNotAssignToEachOther) {
    auto broken = std::make_shared<ArrayType>(nullptr);
    EXPECT_FALSE(broken->isAssignableTo(*std::make_shared<ArrayType>(nullptr)));
    EXPECT_TRUE(broken->isAssignableTo(*types.anyType));
}

TEST_F(Assignability, MapsAreInvariantInKeyAndValue) {
    auto map = types.getMapType(types.stringType, types.intType);
    EXPECT_TRUE(map->isAssignableTo(*types.getMapType(types.stringType, types.intType)));
    EXPECT_FALSE(map->isAssignableTo(*types.getMapType(types.stringType, types.int64Type)));
    EXPECT_FALSE(map->isAssignableTo(*types.getMapType(types.anyType, types.intType)));
    EXPECT_TRUE(map->isAssignableTo(*nullable(map)));
    EXPECT_TRUE(map->isAssignableTo(*types.anyType));
    EXPECT_FALSE(map->isAssignableTo(*array(types.intType)));
}

TEST_F(Assignability, FunctionsAssignOnlyWithTheExactSignature) {
    auto f = types.getFunctionType({types.intType}, types.intType);
    EXPECT_TRUE(f->isAssignableTo(*types.getFunctionType({types.intType}, types.intType)));
    EXPECT_FALSE(f->isAssignableTo(*types.getFunctionType({types.int64Type}, types.intType)));
    EXPECT_FALSE(f->isAssignableTo(*types.getFunctionType({types.intType}, types.int64Type)));
    EXPECT_TRUE(f->isAssignableTo(*types.anyType));
    EXPECT_TRUE(f->isAssignableTo(*nullable(types.getFunctionType({types.intType}, types.intType))));
}

TEST_F(Assignability, AnEnumAssignsToEveryIntegerKindButNoIntegerToTheEnum) {
    auto colour = types.createEnumType("Colour");
    EXPECT_TRUE(colour->isAssignableTo(*types.uint8Type));
    EXPECT_TRUE(colour->isAssignableTo(*types.int64Type));
    EXPECT_TRUE(colour->isAssignableTo(*types.intType));
    EXPECT_FALSE(colour->isAssignableTo(*types.doubleType));
    EXPECT_FALSE(colour->isAssignableTo(*types.stringType));
    EXPECT_FALSE(types.intType->isAssignableTo(*colour));
    EXPECT_FALSE(colour->isAssignableTo(*types.createEnumType("Shade")));
    EXPECT_TRUE(colour->isAssignableTo(*std::make_shared<EnumType>("Colour")));
    EXPECT_TRUE(colour->isAssignableTo(*nullable(colour)));
}

TEST_F(Assignability, StructsAssignByNameNotByShape) {
    auto a = types.createStructType("A");
    auto b = types.createStructType("B");
    a->fields["x"] = quor::sema::testing::field("x", types.intType);
    b->fields["x"] = quor::sema::testing::field("x", types.intType);
    EXPECT_FALSE(a->isAssignableTo(*b));
    EXPECT_TRUE(a->isAssignableTo(*std::make_shared<StructType>("A")));
    EXPECT_TRUE(a->isAssignableTo(*nullable(a)));
}

TEST_F(Assignability, InterfacesAssignToThemselvesAndToWhatTheyExtend) {
    auto shape = types.createInterfaceType("Shape");
    auto round = types.createInterfaceType("Round");
    EXPECT_FALSE(round->isAssignableTo(*shape));
    round->superInterfaces.push_back(shape);
    EXPECT_TRUE(round->isSubtypeOf(*shape));
    EXPECT_TRUE(round->isAssignableTo(*shape));
    EXPECT_TRUE(round->isAssignableTo(*nullable(shape)));
    EXPECT_FALSE(shape->isAssignableTo(*round));
}

class ClassHierarchy : public Assignability {
protected:
    std::shared_ptr<ClassType> animal = types.createClassType("Animal");
    std::shared_ptr<ClassType> dog = types.createClassType("Dog");
    std::shared_ptr<InterfaceType> pet = types.createInterfaceType("Pet");
    void SetUp() override {
        dog->setSuperclass(animal);
        animal->interfaces.push_back(pet);
    }
};

TEST_F(ClassHierarchy, ASubclassIsASubtypeOfItsBaseAndTheBasesInterfaces) {
    EXPECT_TRUE(dog->isSubtypeOf(*animal));
    EXPECT_TRUE(dog->isSubtypeOf(*pet));
    EXPECT_FALSE(animal->isSubtypeOf(*dog));
    EXPECT_FALSE(pet->isSubtypeOf(*animal));
}

TEST_F(ClassHierarchy, ASubclassAssignsToItsBaseAndToNullablesOfIt) {
    EXPECT_TRUE(dog->isAssignableTo(*animal));
    EXPECT_TRUE(dog->isAssignableTo(*nullable(animal)));
    EXPECT_TRUE(dog->isAssignableTo(*nullable(pet)));
    EXPECT_TRUE(dog->isSubtypeOf(*nullable(animal)));
    EXPECT_FALSE(animal->isAssignableTo(*dog));
    EXPECT_FALSE(nullable(dog)->isAssignableTo(*animal));
    EXPECT_TRUE(nullable(dog)->isAssignableTo(*nullable(animal)));
}

TEST_F(ClassHierarchy, SubtypingMatchesByNameSoAnotherObjectOfTheBaseNameCounts) {
    EXPECT_TRUE(dog->isSubtypeOf(ClassType("Animal")));
    EXPECT_FALSE(dog->isSubtypeOf(ClassType("Cat")));
}

TEST_F(ClassHierarchy, NullIsASubtypeOfEveryNullableButOfNoPlainClass) {
    EXPECT_TRUE(types.nullType->isSubtypeOf(*nullable(animal)));
    EXPECT_FALSE(types.nullType->isSubtypeOf(*animal));
}

TEST_F(ClassHierarchy, EverythingIsASubtypeOfAnyAndOfTheErrorType) {
    EXPECT_TRUE(dog->isSubtypeOf(*types.anyType));
    EXPECT_TRUE(dog->isSubtypeOf(*types.errorType));
    EXPECT_TRUE(types.errorType->isSubtypeOf(*dog));
    EXPECT_FALSE(types.anyType->isSubtypeOf(*dog));
}

TEST_F(ClassHierarchy, WideningIsNoSubtyping) {
    EXPECT_FALSE(types.intType->isSubtypeOf(*types.int64Type));
    EXPECT_TRUE(types.intType->isSubtypeOf(*types.intType));
}

}  // namespace
