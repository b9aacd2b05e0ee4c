#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;
using quor::sema::testing::describeMethods;
using Texts = std::vector<std::string>;

class ResolveType : public ::testing::Test {
protected:
    TypeContext types;
    TypePtr resolve(const std::string& text) { return types.resolveType(text); }
};

TEST_F(ResolveType, EmptyAndBlankTextIsUnknown) {
    EXPECT_EQ(resolve(""), types.unknownType);
    EXPECT_EQ(resolve("   "), types.unknownType);
    EXPECT_EQ(resolve(" \t\r\n"), types.unknownType);
}

TEST_F(ResolveType, TextIsTrimmedOfBlanksTabsAndLineBreaks) {
    EXPECT_EQ(resolve("  int\t"), types.intType);
    EXPECT_EQ(resolve("\r\nstring\n"), types.stringType);
    EXPECT_EQ(resolve("int ?"), types.getNullableType(types.intType));
    EXPECT_EQ(resolve("int [] "), types.getArrayType(types.intType));
}

TEST_F(ResolveType, EveryPrimitiveWordAndAlias) {
    struct Row {
        const char* text;
        TypePtr type;
    };
    const Row rows[] = {
        {"void", types.voidType},       {"null", types.nullType},       {"bool", types.boolType},
        {"int", types.intType},         {"int32", types.intType},       {"uint", types.uintType},
        {"uint32", types.uintType},     {"int8", types.int8Type},       {"uint8", types.uint8Type},
        {"byte", types.uint8Type},      {"int16", types.int16Type},     {"uint16", types.uint16Type},
        {"int64", types.int64Type},     {"uint64", types.uint64Type},   {"float", types.floatType},
        {"double", types.doubleType},   {"char", types.charType},       {"string", types.stringType},
        {"any", types.anyType},         {"unknown", types.unknownType},
    };
    for (const auto& row : rows) EXPECT_EQ(resolve(row.text), row.type) << row.text;
}

TEST_F(ResolveType, WordsAreComparedExactly) {
    EXPECT_EQ(resolve("Int"), nullptr);
    EXPECT_EQ(resolve("integer"), nullptr);
    EXPECT_EQ(resolve("<type-error>"), nullptr);
}

TEST_F(ResolveType, NullableTwiceGivesTheSameObjectAndADoubleMarkGivesItToo) {
    auto once = resolve("int?");
    EXPECT_EQ(once, resolve("int?"));
    EXPECT_EQ(resolve("int??"), once);
    EXPECT_EQ(once->toString(), "int?");
}

TEST_F(ResolveType, NullableVoidIsVoidAndNullableNullIsNull) {
    EXPECT_EQ(resolve("void?"), types.voidType);
    EXPECT_EQ(resolve("null?"), types.nullType);
}

TEST_F(ResolveType, BracketsAndArrayHeadGiveTheSameObject) {
    EXPECT_EQ(resolve("int[]"), resolve("Array<int>"));
    EXPECT_EQ(resolve("int[][]"), resolve("Array<Array<int>>"));
    EXPECT_EQ(resolve("Array<int>[]"), resolve("int[][]"));
    EXPECT_EQ(resolve("Array< int >"), resolve("int[]"));
}

TEST_F(ResolveType, MapWithAndWithoutABlankGivesTheSameObject) {
    auto map = resolve("Map<string, int>");
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->kind, TypeKind::Map);
    EXPECT_EQ(map, resolve("Map<string,int>"));
    EXPECT_EQ(map->toString(), "Map<string, int>");
}

TEST_F(ResolveType, MapWithoutACommaFallsThroughToNull) {
    EXPECT_EQ(resolve("Map<string>"), nullptr);
}

TEST_F(ResolveType, MapSplitsAtTheFirstCommaSoANestedKeyIsAnError) {
    EXPECT_EQ(resolve("Map<Map<a, b>, c>"), types.errorType);
    EXPECT_EQ(resolve("Map<Map<string, int>, int>"), types.errorType);
}

TEST_F(ResolveType, MapTakesANestedGenericAsItsValue) {
    auto map = resolve("Map<string, Map<string, int[]>>");
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->toString(), "Map<string, Map<string, int[]>>");
    EXPECT_EQ(static_cast<MapType&>(*map).valueType, resolve("Map<string,int[]>"));
}

TEST_F(ResolveType, MapWithAnUndefinedPartIsTheErrorType) {
    EXPECT_EQ(resolve("Map<Foo, int>"), types.errorType);
    EXPECT_EQ(resolve("Map<int, Foo>"), types.errorType);
}

TEST_F(ResolveType, ALoneQuestionMarkIsNullableUnknown) {
    auto type = resolve("?");
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->kind, TypeKind::Nullable);
    EXPECT_EQ(type->toString(), "unknown?");
}

TEST_F(ResolveType, LoneBracketsAreTooShortForTheArraySuffix) {
    EXPECT_EQ(resolve("[]"), nullptr);
}

// Step 3 sends a text of fewer than three characters straight to the
// words and names, past the suffix and head tests.
TEST_F(ResolveType, AShortTextIsLookedUpByNameEvenWhenItEndsInBrackets) {
    auto odd = types.createClassType("[]");
    EXPECT_EQ(resolve("[]"), odd);
    EXPECT_EQ(resolve("a[]"), types.errorType);
}

TEST_F(ResolveType, UndefinedNamesBehindASuffixGiveTheErrorTypeNotNull) {
    EXPECT_EQ(resolve("Foo"), nullptr);
    EXPECT_EQ(resolve("Foo[]"), types.errorType);
    EXPECT_EQ(resolve("Foo?"), types.errorType);
    EXPECT_EQ(resolve("Array<Foo>"), types.errorType);
}

TEST_F(ResolveType, FunctionTypeTextIsNotReadBack) {
    EXPECT_EQ(resolve("fn(int) -> int"), nullptr);
    EXPECT_EQ(resolve("fn() -> void"), nullptr);
}

TEST_F(ResolveType, ASuffixIsTakenBeforeAGenericHead) {
    auto box = types.createClassType("Box");
    box->typeParams = {"T"};
    auto arrayOfBox = resolve("Box<int>[]");
    ASSERT_NE(arrayOfBox, nullptr);
    EXPECT_EQ(arrayOfBox->kind, TypeKind::Array);
    EXPECT_EQ(arrayOfBox->toString(), "Box<int>[]");
    auto maybeList = resolve("List<int>?");
    ASSERT_NE(maybeList, nullptr);
    EXPECT_EQ(maybeList->kind, TypeKind::Nullable);
    EXPECT_EQ(maybeList->toString(), "List<int>?");
    EXPECT_EQ(resolve("Map<string, int>[]")->toString(), "Map<string, int>[]");
}

TEST_F(ResolveType, PrimitiveWordsComeBeforeNamedTypes) {
    types.createClassType("int");
    EXPECT_EQ(resolve("int"), types.intType);
}

TEST_F(ResolveType, NamedTypesAreFoundByTheirWholeText) {
    auto point = types.createStructType("Point");
    EXPECT_EQ(resolve("Point"), point);
    EXPECT_EQ(resolve(" Point "), point);
    auto special = types.createClassType("Box<int>");
    EXPECT_EQ(resolve("Box<int>"), special);
}

TEST_F(ResolveType, BuiltInClassesResolveByName) {
    auto duration = resolve("Duration");
    ASSERT_NE(duration, nullptr);
    EXPECT_EQ(duration, types.findUserType("Duration"));
    EXPECT_EQ(duration->kind, TypeKind::Class);
}

TEST_F(ResolveType, AGenericHeadOfAnInterfaceStructEnumOrMissingNameIsNull) {
    types.createInterfaceType("Shape");
    types.createStructType("Pair");
    types.createEnumType("Colour");
    EXPECT_EQ(resolve("Shape<int>"), nullptr);
    EXPECT_EQ(resolve("Pair<int>"), nullptr);
    EXPECT_EQ(resolve("Colour<int>"), nullptr);
    EXPECT_EQ(resolve("Nothing<int>"), nullptr);
}

TEST_F(ResolveType, AGenericHeadOfAClassIsSpecialisedOnceAndFoundAgain) {
    auto box = types.createClassType("Box");
    box->typeParams = {"T"};
    auto first = resolve("Box<int>");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->kind, TypeKind::Class);
    EXPECT_EQ(first->toString(), "Box<int>");
    EXPECT_EQ(resolve("Box<int>"), first);
    EXPECT_EQ(types.findUserType("Box<int>"), first);
}

TEST_F(ResolveType, SpecialisationArgumentsAreSplitAndRejoinedWithACommaAndABlank) {
    auto pair = types.createClassType("Pair");
    pair->typeParams = {"K", "V"};
    auto special = resolve("Pair<int,string>");
    ASSERT_NE(special, nullptr);
    EXPECT_EQ(special->toString(), "Pair<int, string>");
    EXPECT_EQ(resolve("Pair< int , string >"), special);
}

TEST_F(ResolveType, ListIsAClassNamedAfterTheResolvedElement) {
    auto list = resolve("List<int>");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->kind, TypeKind::Class);
    EXPECT_EQ(list->toString(), "List<int>");
    EXPECT_EQ(resolve("List<int>"), list);
    EXPECT_EQ(resolve("List<int32>"), list);
    EXPECT_EQ(types.findUserType("List<int>"), list);
}

TEST_F(ResolveType, ListHasFourteenInstanceMethodsInTableOrder) {
    auto list = std::static_pointer_cast<ClassType>(resolve("List<string>"));
    EXPECT_EQ(describeMethods(list->methods), (Texts{
                                                  "push(string) -> void",
                                                  "add(string) -> void",
                                                  "pop() -> string",
                                                  "get(int64) -> string",
                                                  "set(int64, string) -> void",
                                                  "size() -> int64",
                                                  "length() -> int64",
                                                  "isEmpty() -> bool",
                                                  "contains(string) -> bool",
                                                  "clear() -> void",
                                                  "removeAt(int64) -> void",
                                                  "map(any) -> List<string>",
                                                  "filter(any) -> List<string>",
                                                  "reduce(any, string) -> string",
                                              }));
    for (const auto& method : list->methods) {
        EXPECT_EQ(method.visibility, "public");
        EXPECT_FALSE(method.isStatic || method.isAbstract || method.isOverride) << method.name;
    }
    EXPECT_EQ(list->methods[11].type->returnType, list);
    EXPECT_TRUE(list->fields.empty());
}

TEST_F(ResolveType, ListOfAnUndefinedElementIsListOfAnyWithMissingParameters) {
    auto list = std::static_pointer_cast<ClassType>(resolve("List<Foo>"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->name, "List<any>");
    EXPECT_EQ(describeMethods(list->methods), (Texts{
                                                  "push(unknown) -> void",
                                                  "add(unknown) -> void",
                                                  "pop() -> void",
                                                  "get(int64) -> void",
                                                  "set(int64, unknown) -> void",
                                                  "size() -> int64",
                                                  "length() -> int64",
                                                  "isEmpty() -> bool",
                                                  "contains(int64) -> bool",
                                                  "clear() -> void",
                                                  "removeAt(int64) -> void",
                                                  "map(any) -> List<any>",
                                                  "filter(any) -> List<any>",
                                                  "reduce(any, int64) -> int64",
                                              }));
    ASSERT_EQ(list->methods[0].type->paramTypes.size(), 1u);
    EXPECT_EQ(list->methods[0].type->paramTypes[0], nullptr);
    EXPECT_EQ(list->methods[2].type->returnType, types.voidType);
}

// The resolved element "any" and the missing element share the class name,
// so the first one made is the one kept.
TEST_F(ResolveType, ListOfAnyIsFoundByNameAfterAListOfAnUndefinedElement) {
    auto undefined = resolve("List<Foo>");
    EXPECT_EQ(resolve("List<any>"), undefined);
}

TEST_F(ResolveType, SetHasSevenInstanceMethodsInTableOrder) {
    auto set = std::static_pointer_cast<ClassType>(resolve("Set<string>"));
    ASSERT_NE(set, nullptr);
    EXPECT_EQ(set->name, "Set<string>");
    EXPECT_EQ(describeMethods(set->methods), (Texts{
                                                 "add(string) -> void",
                                                 "contains(string) -> bool",
                                                 "remove(string) -> void",
                                                 "clear() -> void",
                                                 "size() -> int64",
                                                 "length() -> int64",
                                                 "isEmpty() -> bool",
                                             }));
    EXPECT_EQ(resolve("Set<string>"), set);
}

TEST_F(ResolveType, SetOfAnUndefinedElementTakesInt64) {
    auto set = std::static_pointer_cast<ClassType>(resolve("Set<Foo>"));
    ASSERT_NE(set, nullptr);
    EXPECT_EQ(set->name, "Set<any>");
    EXPECT_EQ(describeMethods(set->methods), (Texts{
                                                 "add(int64) -> void",
                                                 "contains(int64) -> bool",
                                                 "remove(int64) -> void",
                                                 "clear() -> void",
                                                 "size() -> int64",
                                                 "length() -> int64",
                                                 "isEmpty() -> bool",
                                             }));
}

TEST_F(ResolveType, CollectionClassesNestAndAddToTheNamedTypes) {
    auto outer = resolve("List<Set<int>[]>");
    ASSERT_NE(outer, nullptr);
    EXPECT_EQ(outer->toString(), "List<Set<int>[]>");
    EXPECT_NE(types.findUserType("Set<int>"), nullptr);
    EXPECT_EQ(types.userTypes.size(), 12u);
}

TEST_F(ResolveType, AUserClassNamedListCannotBeReachedThroughGenericSyntax) {
    auto mine = types.createClassType("List");
    mine->typeParams = {"T"};
    auto list = resolve("List<int>");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(static_cast<ClassType&>(*list).methods.size(), 14u);
    EXPECT_EQ(static_cast<ClassType&>(*list).decl, nullptr);
    EXPECT_EQ(resolve("List"), mine);
}

TEST_F(ResolveType, AMadeListClassIsReplacedWhenItsNameHoldsSomethingElse) {
    auto odd = types.createStructType("List<int>");
    auto list = resolve("List<int>");
    ASSERT_NE(list, nullptr);
    EXPECT_NE(list, odd);
    EXPECT_EQ(list->kind, TypeKind::Class);
    EXPECT_EQ(types.findUserType("List<int>"), list);
}

TEST_F(ResolveType, TenThousandQuestionMarksCostNoStack) {
    const std::string text = "int" + std::string(10000, '?');
    EXPECT_EQ(resolve(text), types.getNullableType(types.intType));
}

TEST_F(ResolveType, DeeplyNestedArraysAreReadInALoop) {
    constexpr int DEPTH = static_cast<int>(MAX_TYPE_NESTING);
    std::string brackets;
    std::string heads;
    std::string closers;
    for (int i = 0; i < DEPTH; ++i) {
        brackets += "[]";
        heads += "Array<";
        closers += ">";
    }
    auto viaBrackets = resolve("int" + brackets);
    ASSERT_NE(viaBrackets, nullptr);
    EXPECT_EQ(viaBrackets->toString(), "int" + brackets);
    EXPECT_EQ(resolve(heads + "int" + closers), viaBrackets);
}

TEST_F(ResolveType, DeeplyNestedMapValuesAreReadInALoop) {
    constexpr int DEPTH = 1000;
    std::string text = "int";
    for (int i = 0; i < DEPTH; ++i) text = "Map<string, " + text + ">";
    auto map = resolve(text);
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->toString(), text);
}

// Interning keys are whole printed texts, so a type nested n deep costs the
// square of n; past the nesting limit a type is the error type instead.
TEST_F(ResolveType, ATypeTextNestedPastTheLimitIsTheErrorType) {
    std::string text = "int";
    for (std::uint32_t i = 0; i <= MAX_TYPE_NESTING; ++i) text = "Map<string, " + text + ">";
    EXPECT_EQ(resolve(text), types.errorType);
    std::string brackets;
    for (std::uint32_t i = 0; i <= MAX_TYPE_NESTING; ++i) brackets += "[]";
    EXPECT_EQ(resolve("int" + brackets), types.errorType);
}

TEST_F(ResolveType, RepeatedNullableMarksDoNotCountTowardsTheNestingLimit) {
    EXPECT_EQ(resolve("int" + std::string(3 * MAX_TYPE_NESTING, '?')), resolve("int?"));
}

TEST_F(ResolveType, AnArrayOverATypeAtTheNestingLimitIsTheErrorType) {
    TypePtr deepest = types.intType;
    for (std::uint32_t i = 0; i < MAX_TYPE_NESTING; ++i) deepest = types.getArrayType(deepest);
    EXPECT_EQ(deepest->nesting, MAX_TYPE_NESTING);
    EXPECT_EQ(types.getArrayType(deepest), types.errorType);
    EXPECT_EQ(types.getNullableType(deepest), types.errorType);
    EXPECT_EQ(types.getMapType(types.stringType, deepest), types.errorType);
    EXPECT_EQ(types.getArrayType(types.intType)->nesting, 1u);
}

}  // namespace
