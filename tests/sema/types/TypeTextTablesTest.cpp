#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

// The type grammar of the context, generic text substitution and the common
// type of two types, each held against a table of texts and the printed
// form expected back.

namespace {

using namespace quor::sema;
using quor::sema::testing::describeMethods;
using quor::sema::testing::ParsedSource;
using Texts = std::vector<std::string>;

// Printed form of a resolved type, "<null>" for none.
std::string printed(const TypePtr& type) { return type ? type->toString() : "<null>"; }

class TypeGrammar : public ::testing::Test {
protected:
    TypeContext types;
    void SetUp() override {
        auto box = types.createClassType("Box");
        box->typeParams = {"T"};
        auto pair = types.createClassType("Pair");
        pair->typeParams = {"K", "V"};
        types.createInterfaceType("Shape");
        types.createStructType("Point");
        types.createEnumType("Color");
    }
};

struct ResolveRow {
    const char* text;
    const char* printedAs;
};

const ResolveRow RESOLVED[] = {
    // Blank text is an absent type.
    {"", "unknown"},
    {"   ", "unknown"},
    {" \t\r\n", "unknown"},
    {" \t int \r\n", "int"},
    // Only the four blanks are trimmed.
    {"\vint", "<null>"},
    {"int\f", "<null>"},
    // Nullable suffix first, collapsing.
    {"?", "unknown?"},
    {"int?", "int?"},
    {"int??", "int?"},
    {"int ?", "int?"},
    {"void?", "void"},
    {"null?", "null"},
    {"any?", "any?"},
    {"Foo?", "<type-error>"},
    // Below three characters the suffixes and heads are not looked at.
    {"[]", "<null>"},
    {"a", "<null>"},
    {"<>", "<null>"},
    // Array suffix and head.
    {"a[]", "<type-error>"},
    {"Foo[]", "<type-error>"},
    {"int[]", "int[]"},
    {"int []", "int[]"},
    {"int[][]", "int[][]"},
    {"int[]?", "int[]?"},
    {"int?[]", "int?[]"},
    {"Array<int>", "int[]"},
    {"Array< int >", "int[]"},
    {"Array<>", "unknown[]"},
    {"Array<Foo>", "<type-error>"},
    {"Array<Array<int>>", "int[][]"},
    {"Array<int", "<null>"},
    // A suffix is taken before a generic head.
    {"Box<int>[]", "Box<int>[]"},
    {"List<int>?", "List<int>?"},
    {"Map<string, int>[]", "Map<string, int>[]"},
    // List and Set classes are named after the resolved element.
    {"List<int>", "List<int>"},
    {"List<int32>", "List<int>"},
    {"List< int >", "List<int>"},
    {"List<Foo>", "List<any>"},
    {"List<>", "List<unknown>"},
    {"List<int[]>", "List<int[]>"},
    {"List<Foo[]>", "List<<type-error>>"},
    {"List<List<string>>", "List<List<string>>"},
    {"Set<string>", "Set<string>"},
    {"Set<Foo>", "Set<any>"},
    {"Set<byte>", "Set<uint8>"},
    // Maps split at the first comma, whatever the nesting.
    {"Map<string, int>", "Map<string, int>"},
    {"Map<string,int>", "Map<string, int>"},
    {"Map< string , int >", "Map<string, int>"},
    {"Map<string>", "<null>"},
    {"Map<Map<a, b>, c>", "<type-error>"},
    {"Map<Map<string, int>, int>", "<type-error>"},
    {"Map<string, Map<string, int>>", "Map<string, Map<string, int>>"},
    {"Map<string, List<int>>", "Map<string, List<int>>"},
    {"Map<string, Foo>", "<type-error>"},
    {"Map<, int>", "Map<unknown, int>"},
    {"Map<int,>", "Map<int, unknown>"},
    {"Map<int, int[]?>", "Map<int, int[]?>"},
    // Primitive words and their aliases, compared exactly.
    {"int32", "int"},
    {"uint32", "uint"},
    {"byte", "uint8"},
    {"Int", "<null>"},
    {"String", "String"},
    {"<type-error>", "<null>"},
    // No grammar for function text.
    {"fn(int) -> int", "<null>"},
    {"fn() -> void", "<null>"},
    // Named types and generic instances of classes.
    {"Duration", "Duration"},
    {"Box", "Box"},
    {"Shape", "Shape"},
    {"Box<int>", "Box<int>"},
    {"Box< int >", "Box<int>"},
    {"Box<int32>", "Box<int32>"},
    {"Pair<int,string>", "Pair<int, string>"},
    {"Pair<int, Map<a, b>>", "Pair<int, Map<a, b>>"},
    {"Box<>", "Box<>"},
    {"Box<int> ", "Box<int>"},
    {"Box<int>x", "<null>"},
    {"Shape<int>", "<null>"},
    {"Point<int>", "<null>"},
    {"Color<int>", "<null>"},
    {"Missing<int>", "<null>"},
    {"Duration<int>", "Duration<int>"},
};

TEST_F(TypeGrammar, EachTextResolvesToItsType) {
    for (const auto& row : RESOLVED) {
        EXPECT_EQ(printed(types.resolveType(row.text)), row.printedAs) << "\"" << row.text << "\"";
    }
}

TEST_F(TypeGrammar, InternedAndNamedTypesComeBackAsTheSameObject) {
    const std::pair<const char*, const char*> same[] = {
        {"int?", "int?"},
        {"int?", "int??"},
        {"int[]", "Array<int>"},
        {"int[][]", "Array<int[]>"},
        {"Map<string, int>", "Map<string,int>"},
        {"Map<string, int>?", "Map<string,int>?"},
        {"List<int>", "List<int32>"},
        {"List<Foo>", "List<any>"},
        {"Set<int>", "Set< int >"},
        {"Box<int>", "Box<int>"},
        {"Box<int>", "Box<  int  >"},
        {"Pair<int, string>", "Pair<int,string>"},
        {"Duration", " Duration "},
    };
    for (const auto& [a, b] : same) {
        auto first = types.resolveType(a);
        ASSERT_NE(first, nullptr) << a;
        EXPECT_EQ(first, types.resolveType(b)) << a << " / " << b;
    }
    EXPECT_NE(types.resolveType("Box<int>"), types.resolveType("Box<int32>"));
    EXPECT_EQ(types.resolveType("int"), types.intType);
    EXPECT_EQ(types.resolveType("void?"), types.voidType);
}

TEST_F(TypeGrammar, CompositesAreCachedUnderTheirKeys) {
    types.resolveType("int?");
    types.resolveType("Map<string, bool>");
    types.resolveType("Array<char>");
    EXPECT_EQ(types.typeCache.count("int?"), 1u);
    EXPECT_EQ(types.typeCache.count("Map<string,bool>"), 1u);
    EXPECT_EQ(types.typeCache.count("Map<string, bool>"), 0u);
    EXPECT_EQ(types.typeCache.count("char[]"), 1u);
    EXPECT_EQ(types.typeCache.count("Array<char>"), 0u);
    // Functions are never cached.
    const auto before = types.typeCache.size();
    types.getFunctionType({types.intType}, nullptr);
    EXPECT_EQ(types.typeCache.size(), before);
}

TEST_F(TypeGrammar, AGenericHeadOfListOrSetNeverReachesAUserClassOfThatName) {
    auto userList = types.createClassType("List");
    userList->typeParams = {"T"};
    auto userSet = types.createClassType("Set");
    userSet->typeParams = {"T"};
    auto list = std::static_pointer_cast<ClassType>(types.resolveType("List<int>"));
    ASSERT_EQ(list->kind, TypeKind::Class);
    EXPECT_EQ(list->findMethods("push").size(), 1u);
    EXPECT_EQ(types.resolveType("List"), userList);
    auto set = std::static_pointer_cast<ClassType>(types.resolveType("Set<int>"));
    EXPECT_EQ(set->findMethods("remove").size(), 1u);
    EXPECT_EQ(types.resolveType("Set"), userSet);
}

TEST_F(TypeGrammar, ListClassesCarryTheirMethodsForAnElement) {
    auto ints = std::static_pointer_cast<ClassType>(types.resolveType("List<int>"));
    EXPECT_EQ(describeMethods(ints->methods), (Texts{
                                                  "push(int) -> void",
                                                  "add(int) -> void",
                                                  "pop() -> int",
                                                  "get(int64) -> int",
                                                  "set(int64, int) -> void",
                                                  "size() -> int64",
                                                  "length() -> int64",
                                                  "isEmpty() -> bool",
                                                  "contains(int) -> bool",
                                                  "clear() -> void",
                                                  "removeAt(int64) -> void",
                                                  "map(any) -> List<int>",
                                                  "filter(any) -> List<int>",
                                                  "reduce(any, int) -> int",
                                              }));
    EXPECT_EQ(ints->findMethods("map")[0].type->returnType, ints);
    // For an element that names nothing see ResolveTypeTest.
    for (const auto& m : ints->methods) {
        EXPECT_EQ(m.visibility, "public") << m.name;
        EXPECT_FALSE(m.isStatic || m.isAbstract || m.isOverride) << m.name;
    }
    EXPECT_EQ(ints->superclass, nullptr);
    EXPECT_TRUE(ints->typeParams.empty());
    EXPECT_TRUE(ints->fields.empty());
}

// Set tables themselves are in ResolveTypeTest.
TEST_F(TypeGrammar, SetMethodsArePublicInstanceMethods) {
    auto strings = std::static_pointer_cast<ClassType>(types.resolveType("Set<string>"));
    ASSERT_EQ(strings->methods.size(), 7u);
    for (const auto& m : strings->methods) {
        EXPECT_EQ(m.visibility, "public") << m.name;
        EXPECT_FALSE(m.isStatic || m.isAbstract || m.isOverride) << m.name;
    }
}

TEST_F(TypeGrammar, TheCompositeGettersRefuseMissingPartsAndNeverDoubleANullable) {
    EXPECT_EQ(types.getArrayType(nullptr), types.errorType);
    EXPECT_EQ(types.getMapType(nullptr, types.intType), types.errorType);
    EXPECT_EQ(types.getMapType(types.intType, nullptr), types.errorType);
    EXPECT_EQ(types.getNullableType(nullptr), types.errorType);
    EXPECT_EQ(types.getNullableType(types.voidType), types.voidType);
    EXPECT_EQ(types.getNullableType(types.nullType), types.nullType);
    auto maybe = types.getNullableType(types.intType);
    EXPECT_EQ(types.getNullableType(maybe), maybe);
    EXPECT_EQ(types.getNullableType(types.errorType)->kind, TypeKind::Nullable);
    EXPECT_EQ(types.getNullableType(types.unknownType)->toString(), "unknown?");
    auto first = types.getFunctionType({}, nullptr);
    auto second = types.getFunctionType({}, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->returnType, types.voidType);
}

TEST_F(TypeGrammar, NamedTypesAreStoredAndReplacedByName) {
    auto first = types.createStructType("Thing");
    EXPECT_EQ(types.findUserType("Thing"), first);
    auto second = types.createEnumType("Thing");
    EXPECT_EQ(types.findUserType("Thing"), second);
    EXPECT_EQ(types.resolveType("Thing"), second);
    types.registerUserType("Thing", types.intType);
    EXPECT_EQ(types.findUserType("Thing"), types.intType);
    EXPECT_EQ(types.findUserType("Thing[]"), nullptr);
    EXPECT_EQ(types.findUserType("int"), nullptr);
    // A user class of a built-in name hides the built-in one.
    auto console = types.createClassType("Console");
    EXPECT_EQ(types.resolveType("Console"), console);
    EXPECT_TRUE(console->methods.empty());
}

struct SplitRow {
    const char* text;
    Texts args;
};

TEST(TypeArgumentSplit, SplitsAtTopLevelCommasOnly) {
    const SplitRow rows[] = {
        {" a , Map<b, c> ", {"a", "Map<b, c>"}},
        {"int", {"int"}},
        {"", {}},
        {"  ", {}},
        {"a,,b", {"a", "b"}},
        {",a,", {"a"}},
        {"a, b, c", {"a", "b", "c"}},
        {"\ta\n,\rb ", {"a", "b"}},
        {"Map<a, Map<b, c>>, d", {"Map<a, Map<b, c>>", "d"}},
        // The ">" of an arrow counts, and no later comma separates.
        {"fn(a) -> b, c", {"fn(a) -> b, c"}},
        {"a, fn() -> b, c", {"a", "fn() -> b, c"}},
        {"a>, b", {"a>, b"}},
        // An opening bracket brings the depth back.
        {"a>, <b, c", {"a>, <b", "c"}},
        // An unclosed bracket keeps the commas inside.
        {"Map<a, b", {"Map<a, b"}},
        // Round and square brackets are not counted.
        {"(a, b)", {"(a", "b)"}},
        {"a[], b", {"a[]", "b"}},
    };
    for (const auto& row : rows) EXPECT_EQ(TypeContext::splitTypeArgs(row.text), row.args) << row.text;
}

struct SubstituteRow {
    const char* text;
    Texts params;
    Texts args;
    const char* result;
};

TEST(TypeSubstitution, ReplacesWholeWordsParameterByParameter) {
    const SubstituteRow rows[] = {
        {"T", {"T"}, {"int"}, "int"},
        {"T[]", {"T"}, {"int"}, "int[]"},
        {"T?", {"T"}, {"int"}, "int?"},
        {"T[]", {"T"}, {"int?"}, "int?[]"},
        {"TT", {"T"}, {"int"}, "TT"},
        {"List<T>", {"T"}, {"int"}, "List<int>"},
        {"Map<T, T>", {"T"}, {"string"}, "Map<string, string>"},
        {"T_x", {"T"}, {"int"}, "T_x"},
        {"T1", {"T"}, {"int"}, "T1"},
        {"xT", {"T"}, {"int"}, "xT"},
        {"T.x", {"T"}, {"int"}, "int.x"},
        {"fn(T) -> T", {"T"}, {"int"}, "fn(int) -> int"},
        {"T[][]", {"T"}, {"int"}, "int[][]"},
        {"T??", {"T"}, {"int"}, "int??"},
        {"string", {"T"}, {"int"}, "string"},
        // Parameters one after the other, in the same text.
        {"K", {"K", "V"}, {"V", "int"}, "V"},
        {"Map<K, V>", {"K", "V"}, {"V", "int"}, "Map<int, int>"},
        {"V", {"K", "V"}, {"V", "int"}, "int"},
        {"K[]", {"K", "V"}, {"V", "int"}, "V[]"},
        // An argument that holds its own parameter is not read again.
        {"Map<T, T>", {"T"}, {"List<T>"}, "Map<List<T>, List<T>>"},
        {"T", {"T"}, {"T2"}, "T2"},
        {"T,T", {"T"}, {"TT"}, "TT,TT"},
        // Only as many parameters as arguments.
        {"Map<K, V>", {"K", "V"}, {"int"}, "Map<int, V>"},
        {"Map<K, V>", {"K"}, {"int", "string"}, "Map<int, V>"},
        {"T", {"T"}, {}, "T"},
        {"T", {}, {"int"}, "T"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(TypeContext::substituteType(row.text, row.params, row.args), row.result) << row.text;
    }
}

// A generic class read from source, its members written with its own
// parameters in a few shapes.
const char* const PAIR_SOURCE = R"(class Pair<K, V> {
    K first;
    V second;
    Map<K, V> both;
    fn swap(k: K, v: V): Map<V, K> { return null; }
    fn keep(x: int) { }
}
)";

TEST(GenericInstances, TheParametersOfAClassAreReplacedOneAfterTheOther) {
    ParsedSource source(PAIR_SOURCE);
    TypeContext types;
    auto pair = types.createClassType("Pair");
    pair->decl = source.classNamed("Pair");
    ASSERT_NE(pair->decl, nullptr);
    pair->typeParams = {"K", "V"};
    // K stands for V and V for int: "K" is "V" at once, which names nothing
    // and so is any, while "Map<K, V>" becomes "Map<int, int>".
    auto swapped = std::static_pointer_cast<ClassType>(types.resolveType("Pair<V, int>"));
    ASSERT_NE(swapped, nullptr);
    EXPECT_EQ(swapped->name, "Pair<V, int>");
    EXPECT_EQ(swapped->fields.at("first").type, types.anyType);
    EXPECT_EQ(swapped->fields.at("second").type, types.intType);
    EXPECT_EQ(printed(swapped->fields.at("both").type), "Map<int, int>");
    EXPECT_EQ(describeMethods(swapped->methods), (Texts{
                                                     "swap(any, int) -> Map<int, int>",
                                                     "keep(int) -> void",
                                                 }));
    // A plain instance for comparison.
    auto plain = std::static_pointer_cast<ClassType>(types.resolveType("Pair<string, int>"));
    EXPECT_EQ(describeMethods(plain->methods), (Texts{
                                                   "swap(string, int) -> Map<int, string>",
                                                   "keep(int) -> void",
                                               }));
    EXPECT_EQ(printed(plain->fields.at("both").type), "Map<string, int>");
    // Members of the base class itself are untouched and not shared.
    EXPECT_TRUE(pair->fields.empty());
    EXPECT_FALSE(plain->equals(*swapped));
    EXPECT_FALSE(plain->isSubtypeOf(*pair));
}

struct CommonRow {
    const char* a;
    const char* b;
    const char* common;
};

TEST_F(TypeGrammar, TheCommonTypeOfTwoTypes) {
    auto dog = types.createClassType("Dog");
    auto animal = types.createClassType("Animal");
    dog->setSuperclass(animal);
    const CommonRow rows[] = {
        {"int", "string", "any"},
        {"null", "int", "int?"},
        {"int", "null", "int?"},
        {"null", "null", "null"},
        {"null", "int?", "int?"},
        {"int?", "null", "int?"},
        {"null", "string", "string?"},
        {"null", "any", "any"},
        {"int", "int64", "int64"},
        {"int64", "int", "int64"},
        {"uint", "int", "int"},
        {"int", "uint", "int"},
        {"uint", "int64", "int64"},
        {"int64", "uint64", "int64"},
        {"uint64", "int64", "int64"},
        {"int", "uint64", "uint64"},
        {"int", "float", "float"},
        {"float", "int64", "float"},
        {"float", "uint64", "float"},
        {"int8", "uint8", "int"},
        {"int8", "uint16", "int"},
        {"int16", "uint", "int"},
        {"int", "double", "double"},
        {"int", "int?", "int?"},
        {"int?", "int", "int?"},
        {"int", "any", "any"},
        {"any", "int", "any"},
        {"Dog", "Animal", "Animal"},
        {"Animal", "Dog", "Animal"},
        {"Dog", "string", "any"},
        {"Dog", "null", "Dog?"},
        {"int[]", "int64[]", "any"},
        {"int[]", "null", "int[]?"},
        {"char", "int", "any"},
        {"bool", "string", "any"},
        {"unknown", "int", "any"},
        {"void", "int", "any"},
        {"void", "null", "void"},
    };
    for (const auto& row : rows) {
        auto a = types.resolveType(row.a);
        auto b = types.resolveType(row.b);
        ASSERT_NE(a, nullptr) << row.a;
        ASSERT_NE(b, nullptr) << row.b;
        EXPECT_EQ(printed(types.getCommonType(a, b)), row.common) << row.a << " / " << row.b;
    }
    // The first of two equal types, and the error type on either side.
    auto other = std::make_shared<ClassType>("Dog");
    EXPECT_EQ(types.getCommonType(other, dog), other);
    EXPECT_EQ(types.getCommonType(types.errorType, types.intType), types.errorType);
    EXPECT_EQ(types.getCommonType(types.intType, types.errorType), types.errorType);
    EXPECT_EQ(types.getCommonType(nullptr, types.intType), types.errorType);
    EXPECT_EQ(types.getCommonType(types.intType, nullptr), types.errorType);
}

}  // namespace
