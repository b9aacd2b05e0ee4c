#include <gtest/gtest.h>

#include <climits>

#include "lsp/JsonValue.h"

using quor::lsp::JsonValue;

TEST(JsonValueConstruction, DefaultIsNullWithEverythingEmpty) {
    JsonValue value;
    EXPECT_EQ(value.type, JsonValue::Type::Null);
    EXPECT_FALSE(value.boolValue);
    EXPECT_EQ(value.numberValue, 0.0);
    EXPECT_TRUE(value.stringValue.empty());
    EXPECT_TRUE(value.arrayValue.empty());
    EXPECT_TRUE(value.objectValue.empty());
}

TEST(JsonValueConstruction, KindNumbersAreFixed) {
    EXPECT_EQ(static_cast<int>(JsonValue::Type::Null), 0);
    EXPECT_EQ(static_cast<int>(JsonValue::Type::Bool), 1);
    EXPECT_EQ(static_cast<int>(JsonValue::Type::Number), 2);
    EXPECT_EQ(static_cast<int>(JsonValue::Type::String), 3);
    EXPECT_EQ(static_cast<int>(JsonValue::Type::Array), 4);
    EXPECT_EQ(static_cast<int>(JsonValue::Type::Object), 5);
    EXPECT_EQ(sizeof(JsonValue::Type), 4u);
}

TEST(JsonValueConstruction, ScalarConstructors) {
    JsonValue text("hi");
    EXPECT_EQ(text.type, JsonValue::Type::String);
    EXPECT_EQ(text.stringValue, "hi");
    JsonValue owned(std::string("x"));
    EXPECT_EQ(owned.type, JsonValue::Type::String);
    JsonValue flag(true);
    EXPECT_EQ(flag.type, JsonValue::Type::Bool);
    EXPECT_TRUE(flag.boolValue);
    JsonValue integer(7);
    EXPECT_EQ(integer.type, JsonValue::Type::Number);
    EXPECT_EQ(integer.numberValue, 7.0);
    JsonValue real(2.5);
    EXPECT_EQ(real.type, JsonValue::Type::Number);
    EXPECT_EQ(real.numberValue, 2.5);
}

TEST(JsonValueConstruction, OtherIntegerTypesMakeNumbers) {
    EXPECT_EQ(JsonValue(std::size_t{3}).serialize(), "3");
    EXPECT_EQ(JsonValue(std::int64_t{-4}).serialize(), "-4");
    EXPECT_EQ(JsonValue(std::uint32_t{5}).type, JsonValue::Type::Number);
}

TEST(JsonValueConstruction, NullCharPointerIsEmptyString) {
    const char* nothing = nullptr;
    JsonValue value(nothing);
    EXPECT_EQ(value.type, JsonValue::Type::String);
    EXPECT_EQ(value.stringValue, "");
}

TEST(JsonValueConstruction, EmptyContainers) {
    EXPECT_EQ(JsonValue(JsonValue::Type::Array).type, JsonValue::Type::Array);
    EXPECT_EQ(JsonValue::makeObject().type, JsonValue::Type::Object);
    EXPECT_EQ(JsonValue::makeArray().serialize(), "[]");
}

TEST(JsonValueConstruction, CopyIsDeepAndMoveTransfers) {
    JsonValue original(JsonValue::Type::Object);
    original["list"].push(1);
    JsonValue copy = original;
    copy["list"].push(2);
    EXPECT_EQ(original.serialize(), R"({"list":[1]})");
    EXPECT_EQ(copy.serialize(), R"({"list":[1,2]})");
    JsonValue moved = std::move(copy);
    EXPECT_EQ(moved.serialize(), R"({"list":[1,2]})");
}

TEST(JsonValueAccess, MutableIndexCreatesMissingKeyAsNull) {
    JsonValue object(JsonValue::Type::Object);
    JsonValue& member = object["a"];
    EXPECT_EQ(member.type, JsonValue::Type::Null);
    EXPECT_EQ(object.objectValue.size(), 1u);
}

TEST(JsonValueAccess, MutableIndexTurnsANonObjectIntoAnObject) {
    JsonValue value(5);
    value["k"] = "v";
    EXPECT_EQ(value.type, JsonValue::Type::Object);
    EXPECT_EQ(value.numberValue, 5.0);  // other members are left as they were
    EXPECT_EQ(value.serialize(), R"({"k":"v"})");
}

TEST(JsonValueAccess, ConstIndexOfMissingKeyIsNullAndCreatesNothing) {
    JsonValue object(JsonValue::Type::Object);
    object["present"] = 1;
    const JsonValue& view = object;
    EXPECT_EQ(view["absent"].type, JsonValue::Type::Null);
    EXPECT_EQ(object.objectValue.size(), 1u);
    EXPECT_EQ(view["present"].numberValue, 1.0);
}

TEST(JsonValueAccess, ConstIndexOnANonObjectIsNull) {
    const JsonValue number(3);
    EXPECT_EQ(number["x"].type, JsonValue::Type::Null);
    EXPECT_EQ(number.type, JsonValue::Type::Number);
}

TEST(JsonValueAccess, MissingMembersShareOneNull) {
    const JsonValue empty;
    const JsonValue object(JsonValue::Type::Object);
    EXPECT_EQ(&empty["a"], &object["b"]);
}

TEST(JsonValueAccess, IndexPastTheEndOfAConstArrayIsNull) {
    JsonValue array(JsonValue::Type::Array);
    array.push(1);
    array.push(2);
    array.push(3);
    const JsonValue& view = array;
    EXPECT_EQ(view[std::size_t{5}].type, JsonValue::Type::Null);
    EXPECT_EQ(view[std::size_t{2}].numberValue, 3.0);
    EXPECT_EQ(array.arrayValue.size(), 3u);
}

TEST(JsonValueAccess, MissingElementsShareASecondNull) {
    const JsonValue empty;
    const JsonValue array(JsonValue::Type::Array);
    EXPECT_EQ(&empty[std::size_t{0}], &array[std::size_t{9}]);
    EXPECT_NE(&empty[std::size_t{0}], &empty["key"]);
}

TEST(JsonValueAccess, PushTurnsANonArrayIntoAnArray) {
    JsonValue value("text");
    value.push(true);
    EXPECT_EQ(value.type, JsonValue::Type::Array);
    EXPECT_EQ(value.serialize(), "[true]");
}

TEST(JsonValueAccess, GetStringFallsBackForOtherKinds) {
    EXPECT_EQ(JsonValue("s").getString(), "s");
    EXPECT_EQ(JsonValue(1).getString(), "");
    EXPECT_EQ(JsonValue().getString("d"), "d");
}

TEST(JsonValueAccess, GetIntTruncatesTowardZero) {
    EXPECT_EQ(JsonValue(2.9).getInt(), 2);
    EXPECT_EQ(JsonValue(-2.9).getInt(), -2);
    EXPECT_EQ(JsonValue(-2147483648.0).getInt(), INT32_MIN);
    EXPECT_EQ(JsonValue(2147483647.5).getInt(), INT32_MAX);
}

TEST(JsonValueAccess, GetIntOfOtherKindsIsZero) {
    EXPECT_EQ(JsonValue("3").getInt(), 0);
    EXPECT_EQ(JsonValue(true).getInt(), 0);
    EXPECT_EQ(JsonValue().getInt(), 0);
}

TEST(JsonValueAccess, GetIntOfAValueBeyondThirtyTwoBitsIsTheLowestInt) {
    EXPECT_EQ(JsonValue(1e10).getInt(), INT32_MIN);
    EXPECT_EQ(JsonValue(-1e10).getInt(), INT32_MIN);
}
