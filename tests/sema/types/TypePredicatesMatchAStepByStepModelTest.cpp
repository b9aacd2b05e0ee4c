#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/TypeContext.h"

// The four type predicates and the common type, held against a small model
// that follows the rules one step after the other, recursively and without
// any shortcut, over every ordered pair of a pool of types: primitives,
// nullables, arrays, maps, function types, a class chain with an interface,
// structs and enums, including null components and two objects of one name.

namespace {

using namespace quor::sema;

// ---- the model ----

bool modelIsSubtype(const Type& a, const Type& target);
bool modelIsAssignable(const Type& a, const Type& target);

bool isSigned(TypeKind k) {
    return k == TypeKind::Int8 || k == TypeKind::Int16 || k == TypeKind::Int || k == TypeKind::Int64;
}
bool isUnsigned(TypeKind k) {
    return k == TypeKind::UInt8 || k == TypeKind::UInt16 || k == TypeKind::UInt || k == TypeKind::UInt64;
}
bool isNumber(TypeKind k) { return isSigned(k) || isUnsigned(k) || k == TypeKind::Float || k == TypeKind::Double; }

bool modelEquals(const Type& a, const Type& b) {
    switch (a.kind) {
        case TypeKind::Array: {
            if (b.kind != TypeKind::Array) return false;
            const auto& x = static_cast<const ArrayType&>(a).elementType;
            const auto& y = static_cast<const ArrayType&>(b).elementType;
            return x && y && modelEquals(*x, *y);
        }
        case TypeKind::Nullable: {
            if (b.kind != TypeKind::Nullable) return false;
            const auto& x = static_cast<const NullableType&>(a).innerType;
            const auto& y = static_cast<const NullableType&>(b).innerType;
            return x && y && modelEquals(*x, *y);
        }
        case TypeKind::Map: {
            if (b.kind != TypeKind::Map) return false;
            const auto& x = static_cast<const MapType&>(a);
            const auto& y = static_cast<const MapType&>(b);
            if (!(x.keyType && y.keyType && modelEquals(*x.keyType, *y.keyType))) return false;
            return x.valueType && y.valueType && modelEquals(*x.valueType, *y.valueType);
        }
        case TypeKind::Function: {
            if (b.kind != TypeKind::Function) return false;
            const auto& x = static_cast<const FunctionType&>(a);
            const auto& y = static_cast<const FunctionType&>(b);
            if (x.paramTypes.size() != y.paramTypes.size()) return false;
            for (std::size_t i = 0; i < x.paramTypes.size(); ++i) {
                if (!modelEquals(*x.paramTypes[i], *y.paramTypes[i])) return false;
            }
            return modelEquals(*x.returnType, *y.returnType);
        }
        case TypeKind::Class:
            return b.kind == TypeKind::Class &&
                   static_cast<const ClassType&>(a).name == static_cast<const ClassType&>(b).name;
        case TypeKind::Interface:
            return b.kind == TypeKind::Interface &&
                   static_cast<const InterfaceType&>(a).name == static_cast<const InterfaceType&>(b).name;
        case TypeKind::Struct:
            return b.kind == TypeKind::Struct &&
                   static_cast<const StructType&>(a).name == static_cast<const StructType&>(b).name;
        case TypeKind::Enum:
            return b.kind == TypeKind::Enum &&
                   static_cast<const EnumType&>(a).name == static_cast<const EnumType&>(b).name;
        default:
            return &a == &b || a.kind == b.kind;
    }
}

// The widening rows, written out one by one.
bool modelWidens(TypeKind from, TypeKind to) {
    using K = TypeKind;
    struct Row {
        K from;
        std::vector<K> to;
    };
    static const std::vector<Row> rows = {
        {K::Int8, {K::Int16, K::Int, K::Int64, K::Float, K::Double}},
        {K::UInt8, {K::Int16, K::UInt16, K::Int, K::UInt, K::Int64, K::UInt64, K::Float, K::Double}},
        {K::Int16, {K::Int, K::Int64, K::Float, K::Double}},
        {K::UInt16, {K::Int, K::UInt, K::Int64, K::UInt64, K::Float, K::Double}},
        {K::Int, {K::Int64, K::Double}},
        {K::UInt, {K::Int64, K::UInt64, K::Double}},
        {K::Int64, {K::Double}},
        {K::UInt64, {K::Double}},
        {K::Float, {K::Double}},
    };
    for (const auto& row : rows) {
        if (row.from != from) continue;
        for (K k : row.to) {
            if (k == to) return true;
        }
    }
    return false;
}

bool modelConverts(const Type& a, const Type& t) {
    if (modelEquals(a, t)) return true;
    if (a.kind == TypeKind::Error) return true;
    if (t.kind == TypeKind::Any || t.kind == TypeKind::Error) return true;
    return modelWidens(a.kind, t.kind);
}

const Type* innerOf(const Type& nullable) { return static_cast<const NullableType&>(nullable).innerType.get(); }

bool plainSubtype(const Type& a, const Type& t) {
    if (modelEquals(a, t)) return true;
    if (t.kind == TypeKind::Any) return true;
    if (a.kind == TypeKind::Error || t.kind == TypeKind::Error) return true;
    if (t.kind != TypeKind::Nullable) return false;
    if (a.kind == TypeKind::Null) return true;
    return innerOf(t) != nullptr && modelIsSubtype(a, *innerOf(t));
}

bool modelIsSubtype(const Type& a, const Type& t) {
    if (a.kind == TypeKind::Class) {
        const auto& c = static_cast<const ClassType&>(a);
        if (modelEquals(a, t)) return true;
        if (c.superclass && modelIsSubtype(*c.superclass, t)) return true;
        for (const auto& i : c.interfaces) {
            if (modelIsSubtype(*i, t)) return true;
        }
        return plainSubtype(a, t);
    }
    if (a.kind == TypeKind::Interface) {
        const auto& i = static_cast<const InterfaceType&>(a);
        if (modelEquals(a, t)) return true;
        for (const auto& s : i.superInterfaces) {
            if (modelIsSubtype(*s, t)) return true;
        }
        return plainSubtype(a, t);
    }
    return plainSubtype(a, t);
}

bool commonPrefix(const Type& a, const Type& t) {
    if (modelEquals(a, t)) return true;
    if (a.kind == TypeKind::Error) return true;
    if (t.kind == TypeKind::Any || t.kind == TypeKind::Error) return true;
    if (modelConverts(a, t)) return true;
    return modelIsSubtype(a, t);
}

bool eightSteps(const Type& a, const Type& t) {
    if (commonPrefix(a, t)) return true;
    if (t.kind != TypeKind::Nullable) return false;
    if (a.kind == TypeKind::Null) return true;
    return innerOf(t) != nullptr && modelIsAssignable(a, *innerOf(t));
}

bool modelIsAssignable(const Type& a, const Type& t) {
    switch (a.kind) {
        case TypeKind::Array:
        case TypeKind::Map: {
            if (commonPrefix(a, t)) return true;
            if (t.kind == TypeKind::Nullable && innerOf(t) != nullptr && modelIsAssignable(a, *innerOf(t))) return true;
            if (t.kind != a.kind) return false;
            if (a.kind == TypeKind::Array) {
                const auto& x = static_cast<const ArrayType&>(a).elementType;
                const auto& y = static_cast<const ArrayType&>(t).elementType;
                return x && y && modelEquals(*x, *y);
            }
            const auto& x = static_cast<const MapType&>(a);
            const auto& y = static_cast<const MapType&>(t);
            return x.keyType && y.keyType && modelEquals(*x.keyType, *y.keyType) && x.valueType && y.valueType &&
                   modelEquals(*x.valueType, *y.valueType);
        }
        case TypeKind::Nullable: {
            if (commonPrefix(a, t)) return true;
            if (t.kind != TypeKind::Nullable) return false;
            if (innerOf(t) != nullptr && modelIsAssignable(a, *innerOf(t))) return true;
            if (innerOf(a) == nullptr || innerOf(t) == nullptr) return false;
            return modelIsAssignable(*innerOf(a), *innerOf(t));
        }
        case TypeKind::Function:
            return modelEquals(a, t) || eightSteps(a, t);
        case TypeKind::Class:
        case TypeKind::Interface:
            return modelIsSubtype(a, t) || eightSteps(a, t);
        case TypeKind::Enum:
            if (modelEquals(a, t)) return true;
            if (isSigned(t.kind) || isUnsigned(t.kind)) return true;
            return eightSteps(a, t);
        default:
            return eightSteps(a, t);
    }
}

// The common type, as a text: the model's choice among the context's types.
std::string modelCommon(TypeContext& types, const TypePtr& a, const TypePtr& b) {
    if (!a || !b) return "<type-error>";
    if (modelEquals(*a, *b)) return a->toString();
    if (a->kind == TypeKind::Error || b->kind == TypeKind::Error) return "<type-error>";
    if (modelIsAssignable(*a, *b)) return b->toString();
    if (modelIsAssignable(*b, *a)) return a->toString();
    if (isNumber(a->kind) && isNumber(b->kind)) {
        for (TypeKind k : {TypeKind::Double, TypeKind::Float, TypeKind::Int64, TypeKind::UInt64}) {
            if (a->kind == k || b->kind == k) {
                switch (k) {
                    case TypeKind::Double: return "double";
                    case TypeKind::Float: return "float";
                    case TypeKind::Int64: return "int64";
                    default: return "uint64";
                }
            }
        }
        return "int";
    }
    const bool aNull = a->kind == TypeKind::Null;
    const bool bNull = b->kind == TypeKind::Null;
    if (aNull != bNull) return types.getNullableType(aNull ? b : a)->toString();
    return "any";
}

// ---- the pool ----

struct Pool {
    TypeContext types;
    std::vector<TypePtr> all;

    Pool() {
        auto& t = types;
        for (const auto& p : {t.voidType, t.nullType, t.boolType, t.int8Type, t.uint8Type, t.int16Type, t.uint16Type,
                              t.intType, t.uintType, t.int64Type, t.uint64Type, t.floatType, t.doubleType, t.charType,
                              t.stringType, t.anyType, t.unknownType, t.errorType}) {
            all.push_back(p);
        }
        auto animal = t.createClassType("Animal");
        auto pet = t.createInterfaceType("Pet");
        auto named = t.createInterfaceType("Named");
        auto dog = t.createClassType("Dog");
        dog->setSuperclass(animal);
        dog->interfaces.push_back(pet);
        auto puppy = t.createClassType("Puppy");
        puppy->setSuperclass(dog);
        // A second object of the name Dog, with no chain at all.
        auto otherDog = std::make_shared<ClassType>("Dog");
        auto stray = t.createClassType("Stray");
        auto point = t.createStructType("Point");
        auto pair = t.createStructType("Pair");
        auto color = t.createEnumType("Color");
        auto shade = t.createEnumType("Shade");
        for (const TypePtr& p : std::vector<TypePtr>{animal, pet, named, dog, puppy, otherDog, stray, point, pair,
                                                    color, shade}) {
            all.push_back(p);
        }
        for (const TypePtr& inner : {t.intType, t.int64Type, t.stringType, t.anyType, t.unknownType, t.errorType,
                                     TypePtr(animal), TypePtr(dog), TypePtr(pet), TypePtr(color)}) {
            all.push_back(t.getNullableType(inner));
        }
        for (const TypePtr& element : {t.intType, t.int64Type, t.anyType, t.getNullableType(t.intType),
                                       TypePtr(animal), TypePtr(dog), t.errorType}) {
            all.push_back(t.getArrayType(element));
        }
        all.push_back(t.getArrayType(t.getArrayType(t.intType)));
        all.push_back(t.getNullableType(t.getArrayType(t.intType)));
        all.push_back(t.getNullableType(t.getArrayType(t.int64Type)));
        all.push_back(t.getMapType(t.stringType, t.intType));
        all.push_back(t.getMapType(t.stringType, t.int64Type));
        all.push_back(t.getMapType(t.stringType, t.getNullableType(t.intType)));
        all.push_back(t.getNullableType(t.getMapType(t.stringType, t.intType)));
        all.push_back(t.getFunctionType({t.intType}, t.intType));
        all.push_back(t.getFunctionType({t.intType}, t.intType));
        all.push_back(t.getFunctionType({t.intType}, t.int64Type));
        all.push_back(t.getFunctionType({}, nullptr));
        all.push_back(t.getNullableType(t.getFunctionType({t.intType}, t.intType)));
        // Components that are missing, as a list of an unknown element leaves them.
        all.push_back(std::make_shared<ArrayType>(nullptr));
        all.push_back(std::make_shared<NullableType>(nullptr));
        all.push_back(std::make_shared<MapType>(t.stringType, nullptr));
    }
};

TEST(TypePredicatesMatchAStepByStepModel, EveryPairAgreesInAllFourPredicates) {
    Pool pool;
    int compared = 0;
    for (const auto& a : pool.all) {
        for (const auto& b : pool.all) {
            const std::string pair = a->toString() + " -> " + b->toString();
            EXPECT_EQ(a->equals(*b), modelEquals(*a, *b)) << "equals " << pair;
            EXPECT_EQ(a->canImplicitlyConvertTo(*b), modelConverts(*a, *b)) << "converts " << pair;
            EXPECT_EQ(a->isSubtypeOf(*b), modelIsSubtype(*a, *b)) << "subtype " << pair;
            EXPECT_EQ(a->isAssignableTo(*b), modelIsAssignable(*a, *b)) << "assignable " << pair;
            ++compared;
        }
    }
    EXPECT_GT(compared, 3000);
}

TEST(TypePredicatesMatchAStepByStepModel, EveryPairMeetsInTheModelsCommonType) {
    Pool pool;
    for (const auto& a : pool.all) {
        for (const auto& b : pool.all) {
            const auto common = pool.types.getCommonType(a, b);
            ASSERT_NE(common, nullptr);
            EXPECT_EQ(common->toString(), modelCommon(pool.types, a, b)) << a->toString() << " with " << b->toString();
        }
    }
    EXPECT_EQ(pool.types.getCommonType(nullptr, pool.types.intType), pool.types.errorType);
    EXPECT_EQ(pool.types.getCommonType(pool.types.intType, nullptr), pool.types.errorType);
}

// The model itself, on the cases the rules single out, so that a model that
// drifted along with the code would not pass unseen.
TEST(TypePredicatesMatchAStepByStepModel, TheModelHoldsTheSingledOutCases) {
    Pool pool;
    auto& t = pool.types;
    auto r = [&](const char* text) { return t.resolveType(text); };
    EXPECT_FALSE(modelIsAssignable(*t.intType, *t.floatType));
    EXPECT_TRUE(modelIsAssignable(*t.int16Type, *t.floatType));
    EXPECT_FALSE(modelIsAssignable(*t.int8Type, *t.uint16Type));
    EXPECT_TRUE(modelIsAssignable(*t.uint8Type, *t.int16Type));
    EXPECT_FALSE(modelIsAssignable(*t.anyType, *t.intType));
    EXPECT_TRUE(modelIsAssignable(*t.intType, *t.anyType));
    EXPECT_FALSE(modelIsAssignable(*t.nullType, *t.intType));
    EXPECT_TRUE(modelIsAssignable(*t.nullType, *r("int?")));
    EXPECT_FALSE(modelIsAssignable(*r("int?"), *t.intType));
    EXPECT_TRUE(modelIsAssignable(*r("int?"), *r("int64?")));
    EXPECT_FALSE(modelIsAssignable(*r("int[]"), *r("int64[]")));
    EXPECT_TRUE(modelIsAssignable(*r("int[]"), *r("int[]?")));
    EXPECT_TRUE(modelIsAssignable(*r("Color"), *t.uint8Type));
    EXPECT_FALSE(modelIsAssignable(*t.intType, *r("Color")));
    EXPECT_TRUE(modelIsAssignable(*r("Puppy"), *r("Pet?")));
    EXPECT_FALSE(modelIsAssignable(*r("Point"), *r("Pair")));
    EXPECT_TRUE(modelIsAssignable(*t.errorType, *t.stringType));
    EXPECT_TRUE(modelIsAssignable(*t.stringType, *t.errorType));
    EXPECT_EQ(modelCommon(t, t.uintType, t.intType), "int");
    EXPECT_EQ(modelCommon(t, t.uintType, t.int64Type), "int64");
    EXPECT_EQ(modelCommon(t, t.nullType, t.intType), "int?");
    EXPECT_EQ(modelCommon(t, t.intType, t.stringType), "any");
}

}  // namespace
