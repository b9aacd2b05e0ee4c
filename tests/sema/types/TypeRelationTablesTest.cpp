#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

// Equality, conversion, subtyping and assignability of the type model, held
// against tables written out by hand from the language's rules. Named types
// come from a small world of classes, an interface, two structs and two enums
// registered in a fresh context, so every row can be written as two type texts.

namespace {

using namespace quor::sema;
using quor::sema::testing::describeMethods;
using quor::sema::testing::field;
using quor::sema::testing::method;
using Texts = std::vector<std::string>;

class TypeWorld : public ::testing::Test {
protected:
    TypeContext types;
    std::shared_ptr<ClassType> animal, dog, puppy, stray;
    std::shared_ptr<InterfaceType> pet, named;
    std::shared_ptr<StructType> point, pair;
    std::shared_ptr<EnumType> color, shade;

    void SetUp() override {
        // Animal <- Dog (implements Pet) <- Puppy; Stray implements nothing.
        animal = types.createClassType("Animal");
        pet = types.createInterfaceType("Pet");
        named = types.createInterfaceType("Named");
        dog = types.createClassType("Dog");
        dog->setSuperclass(animal);
        dog->interfaces.push_back(pet);
        puppy = types.createClassType("Puppy");
        puppy->setSuperclass(dog);
        stray = types.createClassType("Stray");
        // Two structs of the same shape under two names.
        point = types.createStructType("Point");
        point->fields["x"] = field("x", types.intType);
        pair = types.createStructType("Pair");
        pair->fields["x"] = field("x", types.intType);
        color = types.createEnumType("Color");
        color->variants = {"Red", "Green"};
        shade = types.createEnumType("Shade");
    }

    // A type text, with "<type-error>" standing for the error type: that
    // printed name is no type text of its own, so its suffixes are put on here.
    TypePtr t(const std::string& text) {
        const std::string error = "<type-error>";
        if (text.rfind(error, 0) == 0) {
            TypePtr type = types.errorType;
            for (std::size_t i = error.size(); i < text.size(); ++i) {
                if (text[i] == '?') type = types.getNullableType(type);
                if (text[i] == '[') type = types.getArrayType(type);
            }
            return type;
        }
        auto type = types.resolveType(text);
        EXPECT_NE(type, nullptr) << "no type for \"" << text << "\"";
        return type;
    }
};

struct RelationRow {
    const char* from;
    const char* to;
    bool expected;
};

// isAssignableTo, row by row.
const RelationRow ASSIGNABLE[] = {
    // Widening is asymmetric.
    {"int", "float", false},
    {"int", "double", true},
    {"int16", "float", true},
    {"int16", "double", true},
    {"int8", "uint16", false},
    {"uint8", "int16", true},
    {"uint", "int64", true},
    {"int", "uint", false},
    {"double", "float", false},
    {"char", "int", false},
    {"char", "string", false},
    {"bool", "int", false},
    // The absorbing kinds.
    {"<type-error>", "string", true},
    {"string", "<type-error>", true},
    {"any", "int", false},
    {"int", "any", true},
    {"any", "any", true},
    {"any", "any?", true},
    {"any", "string?", false},
    {"unknown", "unknown", true},
    {"unknown", "any", true},
    {"unknown", "unknown?", true},
    {"unknown", "any?", true},
    {"unknown", "int", false},
    {"int", "unknown", false},
    {"void", "void", true},
    {"void", "any", true},
    {"void", "int", false},
    // null assigns to nullables and to any only.
    {"null", "int", false},
    {"null", "int?", true},
    {"null", "any", true},
    {"null", "null", true},
    {"null", "void", false},
    {"null", "string", false},
    {"null", "int[]", false},
    {"null", "int[]?", true},
    {"null", "Map<string, int>", false},
    {"null", "Map<string, int>?", true},
    {"null", "Dog", false},
    {"null", "Dog?", true},
    {"null", "Pet?", true},
    {"null", "Color?", true},
    // Nullables: a plain T goes into T?, with widening inside; T? never out to T.
    {"int", "int?", true},
    {"int", "int64?", true},
    {"int", "float?", false},
    {"int", "<type-error>?", true},
    {"int?", "int", false},
    {"int?", "int64?", true},
    {"int?", "int64", false},
    {"int?", "any", true},
    {"int?", "any?", true},
    {"int?", "<type-error>", true},
    {"int?", "string?", false},
    {"string", "string?", true},
    // Arrays and maps are invariant.
    {"int[]", "int64[]", false},
    {"int[]", "any[]", false},
    {"int[]", "int[]", true},
    {"int[]", "int[]?", true},
    {"int[]", "any", true},
    {"int[]", "int", false},
    {"int[]?", "int[]", false},
    {"int[]?", "int[]?", true},
    {"<type-error>[]", "int[]", false},
    {"int[]", "<type-error>[]", false},
    {"Dog[]", "Animal[]", false},
    {"Map<string, int>", "Map<string, int64>", false},
    {"Map<string, int>", "Map<string,int>", true},
    {"Map<string, int>", "Map<string, int>?", true},
    {"Map<string, int>", "any", true},
    {"Map<int, int>", "Map<int64, int>", false},
    // Classes and interfaces follow subtyping.
    {"Dog", "Animal", true},
    {"Dog", "Pet", true},
    {"Dog", "Animal?", true},
    {"Dog", "Pet?", true},
    {"Puppy", "Animal", true},
    {"Puppy", "Pet", true},
    {"Animal", "Dog", false},
    {"Pet", "Dog", false},
    {"Pet", "Pet?", true},
    {"Pet", "any", true},
    {"Pet", "Named", false},
    {"Stray", "Animal", false},
    {"Stray", "Pet", false},
    {"Dog?", "Animal?", true},
    {"Dog?", "Animal", false},
    {"Dog", "<type-error>", true},
    {"<type-error>", "Dog", true},
    {"Dog", "any", true},
    {"any", "Dog", false},
    // Structs are nominal.
    {"Point", "Point", true},
    {"Point", "Pair", false},
    {"Point", "Point?", true},
    {"Point", "any", true},
    // Any enum goes into any integer kind and nothing integer into an enum.
    {"Color", "uint8", true},
    {"Color", "int8", true},
    {"Color", "int", true},
    {"Color", "uint64", true},
    {"Color", "int?", true},
    {"Color", "float", false},
    {"Color", "double", false},
    {"Color", "char", false},
    {"Color", "bool", false},
    {"Color", "string", false},
    {"Color", "Color", true},
    {"Color", "Color?", true},
    {"Color", "Shade", false},
    {"Color", "any", true},
    {"int", "Color", false},
    {"uint8", "Color", false},
};

TEST_F(TypeWorld, AssignabilityFollowsTheRules) {
    for (const auto& row : ASSIGNABLE) {
        auto from = t(row.from);
        auto to = t(row.to);
        if (!from || !to) continue;
        EXPECT_EQ(from->isAssignableTo(*to), row.expected) << row.from << " -> " << row.to;
    }
}

// canImplicitlyConvertTo: equality, the error type, any and the widening
// table; no subtyping, no nullables, no enums.
const RelationRow CONVERTIBLE[] = {
    {"int", "int64", true},
    {"int", "float", false},
    {"int16", "float", true},
    {"uint8", "uint64", true},
    {"int8", "uint8", false},
    {"float", "double", true},
    {"int64", "uint64", false},
    {"uint64", "int64", false},
    {"int", "int?", false},
    {"null", "int?", false},
    {"Dog", "Animal", false},
    {"Dog", "Dog", true},
    {"Dog", "any", true},
    {"Dog", "<type-error>", true},
    {"<type-error>", "Dog", true},
    {"<type-error>", "int[]", true},
    {"int[]", "any", true},
    {"int[]", "int[]", true},
    {"Color", "int", false},
    {"any", "int", false},
    {"int?", "int?", true},
};

TEST_F(TypeWorld, ImplicitConversionIsWideningAndTheAbsorbingKindsOnly) {
    for (const auto& row : CONVERTIBLE) {
        auto from = t(row.from);
        auto to = t(row.to);
        if (!from || !to) continue;
        EXPECT_EQ(from->canImplicitlyConvertTo(*to), row.expected) << row.from << " -> " << row.to;
    }
}

// isSubtypeOf: equality, any, the error type on either side, the class
// chain and interfaces, and into a nullable through its inner type.
const RelationRow SUBTYPE[] = {
    {"int", "int64", false},
    {"int", "int", true},
    {"int", "int?", true},
    {"int", "int64?", false},
    {"int", "any", true},
    {"int", "any?", true},
    {"null", "int?", true},
    {"null", "int", false},
    {"null", "any", true},
    {"<type-error>", "int", true},
    {"int", "<type-error>", true},
    {"any", "int", false},
    {"Dog", "Animal", true},
    {"Dog", "Pet", true},
    {"Puppy", "Pet", true},
    {"Puppy", "Animal?", true},
    {"Animal", "Dog", false},
    {"Pet", "Pet", true},
    {"Pet", "Dog", false},
    {"Color", "int", false},
    {"int[]", "any", true},
    {"int[]", "int[]?", true},
    {"int?", "int?", true},
    {"int?", "any", true},
    {"int?", "int", false},
};

TEST_F(TypeWorld, SubtypingFollowsTheRules) {
    for (const auto& row : SUBTYPE) {
        auto from = t(row.from);
        auto to = t(row.to);
        if (!from || !to) continue;
        EXPECT_EQ(from->isSubtypeOf(*to), row.expected) << row.from << " <: " << row.to;
    }
}

TEST_F(TypeWorld, ErrorTypeAbsorbsInEveryPredicateFamily) {
    const auto& error = *types.errorType;
    for (const char* text : {"string", "int", "Dog", "int[]", "int?", "Color", "Point", "any", "void"}) {
        const auto& other = *t(text);
        EXPECT_TRUE(error.isAssignableTo(other)) << text;
        EXPECT_TRUE(other.isAssignableTo(error)) << text;
        EXPECT_TRUE(error.canImplicitlyConvertTo(other)) << text;
        EXPECT_TRUE(other.canImplicitlyConvertTo(error)) << text;
        EXPECT_TRUE(error.isSubtypeOf(other)) << text;
        EXPECT_TRUE(other.isSubtypeOf(error)) << text;
    }
}

TEST_F(TypeWorld, AnInterfaceIsASubtypeOfItsSuperInterfacesWhenSomeoneFillsThem) {
    auto base = types.createInterfaceType("Base");
    auto derived = types.createInterfaceType("Derived");
    derived->superInterfaces.push_back(base);
    EXPECT_TRUE(derived->isSubtypeOf(*base));
    EXPECT_TRUE(derived->isAssignableTo(*base));
    EXPECT_TRUE(derived->isAssignableTo(*types.getNullableType(base)));
    EXPECT_FALSE(base->isSubtypeOf(*derived));
    // A class implementing the derived interface reaches the base through it.
    auto impl = types.createClassType("Impl");
    impl->interfaces.push_back(derived);
    EXPECT_TRUE(impl->isAssignableTo(*base));
}

TEST_F(TypeWorld, FunctionTypesAssignOnlyWithAnExactSignature) {
    auto signature = [&](std::vector<TypePtr> params, TypePtr result) {
        return types.getFunctionType(std::move(params), std::move(result));
    };
    auto intToInt = signature({types.intType}, types.intType);
    auto sameAgain = signature({types.intType}, types.intType);
    ASSERT_NE(intToInt, sameAgain);
    EXPECT_TRUE(intToInt->isAssignableTo(*sameAgain));
    EXPECT_TRUE(intToInt->equals(*sameAgain));
    // No variance in either position.
    EXPECT_FALSE(intToInt->isAssignableTo(*signature({types.int64Type}, types.intType)));
    EXPECT_FALSE(intToInt->isAssignableTo(*signature({types.int16Type}, types.intType)));
    EXPECT_FALSE(intToInt->isAssignableTo(*signature({types.intType}, types.int64Type)));
    EXPECT_FALSE(intToInt->isAssignableTo(*signature({types.intType, types.intType}, types.intType)));
    EXPECT_FALSE(signature({dog}, nullptr)->isAssignableTo(*signature({animal}, nullptr)));
    EXPECT_TRUE(intToInt->isAssignableTo(*types.anyType));
    EXPECT_TRUE(intToInt->isAssignableTo(*types.errorType));
    EXPECT_TRUE(intToInt->isAssignableTo(*types.getNullableType(sameAgain)));
    EXPECT_FALSE(intToInt->isAssignableTo(*types.intType));
    EXPECT_TRUE(types.nullType->isAssignableTo(*types.getNullableType(intToInt)));
    EXPECT_FALSE(types.nullType->isAssignableTo(*intToInt));
    EXPECT_TRUE(types.errorType->isAssignableTo(*intToInt));
    EXPECT_FALSE(types.anyType->isAssignableTo(*intToInt));
}

TEST_F(TypeWorld, NominalTypesAreEqualByKindAndNameAlone) {
    // Distinct objects of one name, with different contents.
    auto first = std::make_shared<ClassType>("Box<int>");
    auto second = std::make_shared<ClassType>("Box<int>");
    second->fields["x"] = field("x", types.intType);
    EXPECT_TRUE(first->equals(*second));
    EXPECT_TRUE(first->isAssignableTo(*second));
    EXPECT_FALSE(first->equals(ClassType("Box<int32>")));
    EXPECT_FALSE(first->equals(ClassType("box<int>")));
    // Same name, other kind.
    EXPECT_FALSE(ClassType("Foo").equals(InterfaceType("Foo")));
    EXPECT_FALSE(InterfaceType("Foo").equals(ClassType("Foo")));
    EXPECT_FALSE(StructType("Foo").equals(EnumType("Foo")));
    EXPECT_FALSE(EnumType("Foo").equals(ClassType("Foo")));
    EXPECT_TRUE(StructType("Foo").equals(StructType("Foo")));
    EXPECT_TRUE(EnumType("Foo").equals(EnumType("Foo")));
    EXPECT_TRUE(InterfaceType("Foo").equals(InterfaceType("Foo")));
    // A struct of the same shape under another name.
    EXPECT_FALSE(point->equals(*pair));
    EXPECT_FALSE(point->isAssignableTo(*pair));
}

TEST_F(TypeWorld, PrimitivesAreEqualByKind) {
    PrimitiveType alias(TypeKind::Int, "int32");
    EXPECT_TRUE(alias.equals(*types.intType));
    EXPECT_TRUE(types.intType->equals(alias));
    EXPECT_FALSE(types.intType->equals(*types.uintType));
    EXPECT_FALSE(types.intType->equals(*types.getArrayType(types.intType)));
    EXPECT_FALSE(types.stringType->equals(*t("Dog")));
}

TEST_F(TypeWorld, CompositeEqualityNeedsEveryComponentPresent) {
    // Built by hand with null components: not equal even to themselves.
    ArrayType noElement(nullptr);
    EXPECT_FALSE(noElement.equals(noElement));
    EXPECT_FALSE(noElement.equals(ArrayType(nullptr)));
    NullableType noInner(nullptr);
    EXPECT_FALSE(noInner.equals(noInner));
    MapType noKey(nullptr, types.intType);
    EXPECT_FALSE(noKey.equals(noKey));
    MapType noValue(types.intType, nullptr);
    EXPECT_FALSE(noValue.equals(noValue));
    // With components present, the structure decides.
    ArrayType ints(types.intType);
    EXPECT_TRUE(ints.equals(*types.getArrayType(types.intType)));
    EXPECT_FALSE(ints.equals(*types.getArrayType(types.int64Type)));
    EXPECT_FALSE(ints.equals(*types.getNullableType(types.intType)));
    MapType map(types.stringType, types.intType);
    EXPECT_TRUE(map.equals(*t("Map<string, int>")));
    EXPECT_FALSE(map.equals(*t("Map<int, int>")));
    EXPECT_FALSE(map.equals(*t("Map<string, string>")));
    NullableType maybe(types.intType);
    EXPECT_TRUE(maybe.equals(*t("int?")));
    EXPECT_FALSE(maybe.equals(*types.intType));
}

TEST_F(TypeWorld, FunctionEqualityComparesEveryParameterAndTheResult) {
    auto a = types.getFunctionType({types.intType, types.stringType}, types.boolType);
    EXPECT_TRUE(a->equals(*types.getFunctionType({types.intType, types.stringType}, types.boolType)));
    EXPECT_FALSE(a->equals(*types.getFunctionType({types.stringType, types.intType}, types.boolType)));
    EXPECT_FALSE(a->equals(*types.getFunctionType({types.intType}, types.boolType)));
    EXPECT_FALSE(a->equals(*types.getFunctionType({types.intType, types.stringType}, types.intType)));
    EXPECT_FALSE(a->equals(*types.boolType));
    // A null result is void by the time the context hands the type out.
    EXPECT_TRUE(types.getFunctionType({}, nullptr)->equals(*types.getFunctionType({}, types.voidType)));
}

struct TextRow {
    TypePtr type;
    const char* text;
};

TEST_F(TypeWorld, EveryKindPrintsItsOwnForm) {
    const TextRow rows[] = {
        {types.voidType, "void"},
        {types.nullType, "null"},
        {types.boolType, "bool"},
        {types.int8Type, "int8"},
        {types.uint8Type, "uint8"},
        {types.int16Type, "int16"},
        {types.uint16Type, "uint16"},
        {types.intType, "int"},
        {types.uintType, "uint"},
        {types.int64Type, "int64"},
        {types.uint64Type, "uint64"},
        {types.floatType, "float"},
        {types.doubleType, "double"},
        {types.charType, "char"},
        {types.stringType, "string"},
        {types.anyType, "any"},
        {types.unknownType, "unknown"},
        {types.errorType, "<type-error>"},
        {types.getArrayType(types.intType), "int[]"},
        {types.getArrayType(types.getArrayType(types.stringType)), "string[][]"},
        {types.getMapType(types.stringType, types.getArrayType(types.intType)), "Map<string, int[]>"},
        {types.getNullableType(types.getMapType(types.intType, types.boolType)), "Map<int, bool>?"},
        {types.getNullableType(types.errorType), "<type-error>?"},
        {types.getArrayType(types.getNullableType(types.intType)), "int?[]"},
        {std::make_shared<ArrayType>(nullptr), "unknown[]"},
        {std::make_shared<NullableType>(nullptr), "unknown?"},
        {std::make_shared<MapType>(nullptr, nullptr), "Map<unknown, unknown>"},
        {std::make_shared<MapType>(types.intType, nullptr), "Map<int, unknown>"},
        {std::make_shared<FunctionType>(std::vector<TypePtr>{}, nullptr), "fn() -> void"},
        {std::make_shared<FunctionType>(std::vector<TypePtr>{nullptr}, nullptr), "fn(unknown) -> void"},
        {std::make_shared<FunctionType>(std::vector<TypePtr>{types.intType, nullptr}, types.intType),
         "fn(int, unknown) -> int"},
        {types.getFunctionType({types.intType, types.getArrayType(types.stringType)},
                               types.getNullableType(types.intType)),
         "fn(int, string[]) -> int?"},
        {types.getArrayType(types.getFunctionType({types.intType}, nullptr)), "fn(int) -> void[]"},
        {types.getFunctionType({types.getFunctionType({}, types.intType)}, types.getFunctionType({}, nullptr)),
         "fn(fn() -> int) -> fn() -> void"},
        {std::make_shared<ClassType>("Box<int, string>"), "Box<int, string>"},
        {pet, "Pet"},
        {point, "Point"},
        {color, "Color"},
    };
    for (const auto& row : rows) {
        ASSERT_NE(row.type, nullptr) << row.text;
        EXPECT_EQ(row.type->toString(), row.text);
    }
}

// The widening rows of the numbers, as kind names; every other kind widens
// to nothing.
const std::pair<const char*, Texts> WIDENING[] = {
    {"int8", {"int16", "int", "int64", "float", "double"}},
    {"uint8", {"int16", "uint16", "int", "uint", "int64", "uint64", "float", "double"}},
    {"int16", {"int", "int64", "float", "double"}},
    {"uint16", {"int", "uint", "int64", "uint64", "float", "double"}},
    {"int", {"int64", "double"}},
    {"uint", {"int64", "uint64", "double"}},
    {"int64", {"double"}},
    {"uint64", {"double"}},
    {"float", {"double"}},
};

bool widensTo(const std::string& from, const std::string& to) {
    for (const auto& [row, targets] : WIDENING) {
        if (from == row) return std::find(targets.begin(), targets.end(), to) != targets.end();
    }
    return false;
}

TEST(PrimitivePairs, EveryPairFollowsTheWideningRowsAndTheAbsorbingKinds) {
    TypeContext types;
    const TypePtr all[] = {types.voidType,   types.nullType,  types.boolType,   types.int8Type,    types.uint8Type,
                           types.int16Type,  types.uint16Type, types.intType,   types.uintType,    types.int64Type,
                           types.uint64Type, types.floatType, types.doubleType, types.charType,    types.stringType,
                           types.anyType,    types.unknownType, types.errorType};
    for (const auto& from : all) {
        for (const auto& to : all) {
            const std::string a = from->toString();
            const std::string b = to->toString();
            const bool absorbed = a == "<type-error>" || b == "any" || b == "<type-error>";
            const bool converts = a == b || absorbed || widensTo(a, b);
            EXPECT_EQ(from->canImplicitlyConvertTo(*to), converts) << a << " -> " << b;
            // No target here is nullable, so subtyping adds nothing to conversion.
            EXPECT_EQ(from->isAssignableTo(*to), converts) << a << " -> " << b;
            const bool subtype = a == b || b == "any" || a == "<type-error>" || b == "<type-error>";
            EXPECT_EQ(from->isSubtypeOf(*to), subtype) << a << " <: " << b;
        }
    }
}

TEST(TypeKindNumbers, TheNumericPredicatesSortEveryKind) {
    // kind, signed, unsigned, floating point
    struct Row {
        TypeKind kind;
        bool isSigned, isUnsigned, isFloating;
    };
    const Row rows[] = {
        {TypeKind::Void, false, false, false},    {TypeKind::Null, false, false, false},
        {TypeKind::Bool, false, false, false},    {TypeKind::Int8, true, false, false},
        {TypeKind::UInt8, false, true, false},    {TypeKind::Int16, true, false, false},
        {TypeKind::UInt16, false, true, false},   {TypeKind::Int, true, false, false},
        {TypeKind::UInt, false, true, false},     {TypeKind::Int64, true, false, false},
        {TypeKind::UInt64, false, true, false},   {TypeKind::Float, false, false, true},
        {TypeKind::Double, false, false, true},   {TypeKind::Char, false, false, false},
        {TypeKind::String, false, false, false},  {TypeKind::Any, false, false, false},
        {TypeKind::Unknown, false, false, false}, {TypeKind::Error, false, false, false},
    };
    for (const auto& row : rows) {
        PrimitiveType type(row.kind, "x");
        const auto number = static_cast<int>(row.kind);
        EXPECT_EQ(type.isSignedInteger(), row.isSigned) << number;
        EXPECT_EQ(type.isUnsignedInteger(), row.isUnsigned) << number;
        EXPECT_EQ(type.isInteger(), row.isSigned || row.isUnsigned) << number;
        EXPECT_EQ(type.isFloatingPoint(), row.isFloating) << number;
        EXPECT_EQ(type.isNumeric(), row.isSigned || row.isUnsigned || row.isFloating) << number;
    }
    for (auto composite : {TypeKind::Array, TypeKind::Map, TypeKind::Nullable, TypeKind::Function,
                           TypeKind::Class, TypeKind::Interface, TypeKind::Struct, TypeKind::Enum}) {
        ClassType probe("probe");
        probe.kind = composite;
        EXPECT_FALSE(probe.isNumeric()) << static_cast<int>(composite);
    }
}

TEST_F(TypeWorld, FieldsComeFromTheNearestClassOfTheChain) {
    animal->fields["id"] = field("id", types.intType);
    animal->fields["name"] = field("name", types.stringType);
    dog->fields["id"] = field("id", types.int64Type);
    ASSERT_TRUE(puppy->findField("id").has_value());
    EXPECT_EQ(puppy->findField("id")->type, types.int64Type);
    ASSERT_TRUE(puppy->findField("name").has_value());
    EXPECT_EQ(puppy->findField("name")->type, types.stringType);
    EXPECT_FALSE(puppy->findField("age").has_value());
    EXPECT_FALSE(animal->findField("missing").has_value());
    // A struct looks in its own fields only.
    ASSERT_TRUE(point->findField("x").has_value());
    EXPECT_EQ(point->findField("x")->type, types.intType);
    EXPECT_FALSE(point->findField("y").has_value());
    // setSuperclass replaces the link.
    puppy->setSuperclass(stray);
    EXPECT_FALSE(puppy->findField("id").has_value());
    EXPECT_FALSE(puppy->isSubtypeOf(*animal));
}

TEST_F(TypeWorld, InheritedMethodsAreHiddenOnlyByAnEqualSignature) {
    auto fn = [&](std::vector<TypePtr> params, TypePtr result) {
        return types.getFunctionType(std::move(params), std::move(result));
    };
    animal->addMethod(method("speak", fn({}, types.stringType)));
    animal->addMethod(method("speak", fn({types.intType}, types.stringType)));
    animal->addMethod(method("speak", fn({types.boolType}, types.stringType)));
    animal->addMethod(method("walk", fn({}, nullptr)));
    // Same parameters, same result: hides. Same parameters, other result:
    // stays beside. Other parameters: both stay, own one first.
    dog->addMethod(method("speak", fn({types.intType}, types.stringType)));
    dog->addMethod(method("speak", fn({}, types.intType)));
    dog->addMethod(method("speak", fn({types.doubleType}, types.stringType)));
    EXPECT_EQ(describeMethods(dog->findMethods("speak")), (Texts{
                                                               "speak(int) -> string",
                                                               "speak() -> int",
                                                               "speak(double) -> string",
                                                               "speak() -> string",
                                                               "speak(bool) -> string",
                                                           }));
    EXPECT_EQ(describeMethods(puppy->findMethods("walk")), (Texts{"walk() -> void"}));
    EXPECT_TRUE(puppy->findMethods("run").empty());
}

TEST_F(TypeWorld, OwnMethodsAreNotDeduplicatedButInheritedOnesMeetTheListSoFar) {
    auto fn = [&]() { return types.getFunctionType({types.intType}, nullptr); };
    // Two equal own entries: both stay in the class that has them.
    animal->addMethod(method("feed", fn()));
    animal->addMethod(method("feed", fn()));
    EXPECT_EQ(animal->findMethods("feed").size(), 2u);
    // Inherited, the second meets the first, which was appended a moment ago.
    EXPECT_EQ(describeMethods(dog->findMethods("feed")), (Texts{"feed(int) -> void"}));
    // addMethod keeps every entry, in order.
    dog->addMethod(method("feed", fn()));
    dog->addMethod(method("feed", fn()));
    EXPECT_EQ(dog->methods.size(), 2u);
    EXPECT_EQ(dog->findMethods("feed").size(), 2u);
}

TEST_F(TypeWorld, InterfaceMethodsAppendEverySuperInterfaceWhole) {
    auto fn = [&]() { return types.getFunctionType({}, types.stringType); };
    auto base = types.createInterfaceType("Base");
    base->methods.push_back(method("name", fn()));
    base->methods.push_back(method("other", fn()));
    auto derived = types.createInterfaceType("Derived");
    derived->methods.push_back(method("name", fn()));
    derived->superInterfaces.push_back(base);
    derived->superInterfaces.push_back(base);
    EXPECT_EQ(derived->findMethods("name").size(), 3u);
    EXPECT_EQ(derived->findMethods("other").size(), 2u);
    EXPECT_TRUE(derived->findMethods("none").empty());
}

}  // namespace
