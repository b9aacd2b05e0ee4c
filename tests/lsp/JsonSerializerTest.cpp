#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "lsp/JsonValue.h"

using quor::lsp::JsonValue;

TEST(JsonSerializerScalars, NullAndBooleans) {
    EXPECT_EQ(JsonValue().serialize(), "null");
    EXPECT_EQ(JsonValue(true).serialize(), "true");
    EXPECT_EQ(JsonValue(false).serialize(), "false");
}

TEST(JsonSerializerNumbers, WholeNumbersAreWrittenAsIntegers) {
    EXPECT_EQ(JsonValue(1.0).serialize(), "1");
    EXPECT_EQ(JsonValue(-3).serialize(), "-3");
    EXPECT_EQ(JsonValue(0).serialize(), "0");
    EXPECT_EQ(JsonValue(1e15).serialize(), "1000000000000000");
    EXPECT_EQ(JsonValue(1e18).serialize(), "1000000000000000000");
}

TEST(JsonSerializerNumbers, NegativeZeroIsZero) { EXPECT_EQ(JsonValue(-0.0).serialize(), "0"); }

TEST(JsonSerializerNumbers, FractionsUseSixSignificantDigits) {
    EXPECT_EQ(JsonValue(0.5).serialize(), "0.5");
    EXPECT_EQ(JsonValue(0.1).serialize(), "0.1");
    EXPECT_EQ(JsonValue(1234567.5).serialize(), "1.23457e+06");
    EXPECT_EQ(JsonValue(3.14159265).serialize(), "3.14159");
    EXPECT_EQ(JsonValue(-2.5).serialize(), "-2.5");
    EXPECT_EQ(JsonValue(1e-7).serialize(), "1e-07");
}

TEST(JsonSerializerNumbers, SmallestInt64IsAnInteger) {
    EXPECT_EQ(JsonValue(-9223372036854775808.0).serialize(), "-9223372036854775808");
}

TEST(JsonSerializerNumbers, BeyondInt64FallsToDefaultFormat) {
    EXPECT_EQ(JsonValue(9223372036854775808.0).serialize(), "9.22337e+18");
    EXPECT_EQ(JsonValue(1e20).serialize(), "1e+20");
    EXPECT_EQ(JsonValue(-1e300).serialize(), "-1e+300");
}

TEST(JsonSerializerNumbers, NotANumberAndInfinityUseTheStreamWords) {
    EXPECT_EQ(JsonValue(std::numeric_limits<double>::infinity()).serialize(), "inf");
    EXPECT_EQ(JsonValue(-std::numeric_limits<double>::infinity()).serialize(), "-inf");
    EXPECT_EQ(JsonValue(std::numeric_limits<double>::quiet_NaN()).serialize(), "nan");
}

TEST(JsonSerializerStrings, NamedEscapes) {
    EXPECT_EQ(JsonValue("a\"b").serialize(), R"("a\"b")");
    EXPECT_EQ(JsonValue("a\\b").serialize(), R"("a\\b")");
    EXPECT_EQ(JsonValue("\b\f\n\r\t").serialize(), R"("\b\f\n\r\t")");
}

TEST(JsonSerializerStrings, OtherControlBytesUseLowerCaseHex) {
    EXPECT_EQ(JsonValue(std::string("\x00", 1)).serialize(), R"("\u0000")");
    EXPECT_EQ(JsonValue("\x01").serialize(), R"("\u0001")");
    EXPECT_EQ(JsonValue("\x1b").serialize(), R"("\u001b")");
    EXPECT_EQ(JsonValue("\x1f").serialize(), R"("\u001f")");
    EXPECT_EQ(JsonValue("\x0b").serialize(), R"("\u000b")");
}

TEST(JsonSerializerStrings, SlashDeleteAndHighBytesGoOutAsTheyAre) {
    EXPECT_EQ(JsonValue("a/b").serialize(), "\"a/b\"");
    EXPECT_EQ(JsonValue("\x7f").serialize(), "\"\x7f\"");
    EXPECT_EQ(JsonValue("h\xC3\xA9\xFF").serialize(), "\"h\xC3\xA9\xFF\"");
    EXPECT_EQ(JsonValue(" ").serialize(), "\" \"");
}

TEST(JsonSerializerStrings, EmptyString) { EXPECT_EQ(JsonValue("").serialize(), "\"\""); }

TEST(JsonSerializerContainers, ArraysAreCompact) {
    JsonValue array(JsonValue::Type::Array);
    EXPECT_EQ(array.serialize(), "[]");
    array.push(1);
    array.push("two");
    array.push(JsonValue());
    array.push(JsonValue(JsonValue::Type::Array));
    EXPECT_EQ(array.serialize(), R"([1,"two",null,[]])");
}

TEST(JsonSerializerContainers, ObjectKeysComeOutSortedByBytes) {
    JsonValue object(JsonValue::Type::Object);
    EXPECT_EQ(object.serialize(), "{}");
    object["zeta"] = 1;
    object["Alpha"] = 2;
    object["alpha"] = 3;
    object["_"] = 4;
    EXPECT_EQ(object.serialize(), R"({"Alpha":2,"_":4,"alpha":3,"zeta":1})");
}

TEST(JsonSerializerContainers, KeysAreWrittenRawButValuesEscaped) {
    JsonValue object(JsonValue::Type::Object);
    object["a\"b\\c"] = "a\"b\\c";
    EXPECT_EQ(object.serialize(), "{\"a\"b\\c\":\"a\\\"b\\\\c\"}");
}

TEST(JsonSerializerContainers, RoundTripOfAParsedMessage) {
    const std::string text =
        R"({"id":3,"jsonrpc":"2.0","params":{"list":[true,false,null,0.25,"s\n"],"nested":{"k":{}}}})";
    std::size_t pos = 0;
    EXPECT_EQ(JsonValue::parseValue(text, pos).serialize(), text);
}

TEST(JsonSerializerContainers, DeepNestingIsWrittenWhole) {
    JsonValue value(JsonValue::Type::Array);
    for (int depth = 0; depth < 1000; ++depth) {
        JsonValue outer(JsonValue::Type::Array);
        outer.push(std::move(value));
        value = std::move(outer);
    }
    EXPECT_EQ(value.serialize(), std::string(1001, '[') + std::string(1001, ']'));
}
