#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "lsp/JsonValue.h"

using quor::lsp::JsonValue;

namespace {

JsonValue parseAt(const std::string& text, std::size_t& pos) {
    pos = 0;
    return JsonValue::parseValue(text, pos);
}

JsonValue parse(const std::string& text) {
    std::size_t pos = 0;
    return JsonValue::parseValue(text, pos);
}

}  // namespace

TEST(JsonParserBasics, EmptyInputIsNullAndPositionStaysAtEnd) {
    std::size_t pos = 0;
    JsonValue value = parseAt("", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Null);
    EXPECT_EQ(pos, 0u);
}

TEST(JsonParserBasics, WhitespaceOnlyIsNull) {
    std::size_t pos = 0;
    JsonValue value = parseAt(" \t\r\n ", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Null);
    EXPECT_EQ(pos, 5u);
}

TEST(JsonParserBasics, OnlyFourBytesCountAsWhitespace) {
    std::size_t pos = 0;
    JsonValue value = parseAt("\v1", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Null);
    EXPECT_EQ(pos, 1u);
    value = parseAt("\f1", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Null);
    EXPECT_EQ(pos, 1u);
}

TEST(JsonParserBasics, StartsAtTheGivenPosition) {
    std::size_t pos = 3;
    JsonValue value = JsonValue::parseValue("xx 17", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Number);
    EXPECT_EQ(value.numberValue, 17.0);
    EXPECT_EQ(pos, 5u);
}

TEST(JsonParserLiterals, TrueFalseNull) {
    std::size_t pos = 0;
    JsonValue value = parseAt("true", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Bool);
    EXPECT_TRUE(value.boolValue);
    EXPECT_EQ(pos, 4u);
    value = parseAt("false", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Bool);
    EXPECT_FALSE(value.boolValue);
    EXPECT_EQ(pos, 5u);
    value = parseAt("null", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Null);
    EXPECT_EQ(pos, 4u);
}

TEST(JsonParserLiterals, WordIsMatchedByItsBytesOnlyAndLeavesTheRest) {
    std::size_t pos = 0;
    JsonValue value = parseAt("trueblue", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Bool);
    EXPECT_TRUE(value.boolValue);
    EXPECT_EQ(pos, 4u);
}

TEST(JsonParserLiterals, TruncatedWordIsOneSkippedByte) {
    std::size_t pos = 0;
    JsonValue value = parseAt("tru", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Null);
    EXPECT_EQ(pos, 1u);
}

TEST(JsonParserLiterals, UnknownByteIsSkippedAsNull) {
    std::size_t pos = 0;
    JsonValue value = parseAt("x", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Null);
    EXPECT_EQ(pos, 1u);
    value = parseAt("+5", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Null);
    EXPECT_EQ(pos, 1u);
}

TEST(JsonParserNumbers, IntegerAndFraction) {
    EXPECT_EQ(parse("42").numberValue, 42.0);
    EXPECT_EQ(parse("-3.5").numberValue, -3.5);
    EXPECT_EQ(parse("1E3").numberValue, 1000.0);
    EXPECT_EQ(parse("2e+2").numberValue, 200.0);
    EXPECT_EQ(parse("0").type, JsonValue::Type::Number);
}

TEST(JsonParserNumbers, MinusInsideANumberEndsIt) {
    std::size_t pos = 0;
    JsonValue value = parseAt("1e-5", pos);
    EXPECT_EQ(value.numberValue, 1.0);
    EXPECT_EQ(pos, 2u);
}

TEST(JsonParserNumbers, NegativeExponentSplitsIntoTwoArrayElements) {
    JsonValue value = parse("[1e-5]");
    ASSERT_EQ(value.arrayValue.size(), 2u);
    EXPECT_EQ(value.arrayValue[0].numberValue, 1.0);
    EXPECT_EQ(value.arrayValue[1].numberValue, -5.0);
}

TEST(JsonParserNumbers, SecondPointIsPassedOverWhole) {
    std::size_t pos = 0;
    JsonValue value = parseAt("1.2.3,", pos);
    EXPECT_EQ(value.numberValue, 1.2);
    EXPECT_EQ(pos, 5u);
}

TEST(JsonParserNumbers, LeadingZerosAndPlusSignsAreScannedOver) {
    std::size_t pos = 0;
    JsonValue value = parseAt("007", pos);
    EXPECT_EQ(value.numberValue, 7.0);
    EXPECT_EQ(pos, 3u);
    value = parseAt("5+3", pos);
    EXPECT_EQ(value.numberValue, 5.0);
    EXPECT_EQ(pos, 3u);
}

TEST(JsonParserNumbers, NumberWithoutDigitsThrows) {
    EXPECT_THROW(parse("-"), std::invalid_argument);
    EXPECT_THROW(parse("-."), std::invalid_argument);
    EXPECT_THROW(parse("-e"), std::invalid_argument);
    EXPECT_THROW(parse("[-]"), std::invalid_argument);
}

TEST(JsonParserNumbers, OutOfRangeNumberThrows) {
    EXPECT_THROW(parse("1e999"), std::out_of_range);
    EXPECT_THROW(parse("-1e400"), std::out_of_range);
}

TEST(JsonParserObjects, WellFormedObject) {
    JsonValue value = parse(R"({ "a" : 1 , "b" : "x" })");
    ASSERT_EQ(value.type, JsonValue::Type::Object);
    ASSERT_EQ(value.objectValue.size(), 2u);
    EXPECT_EQ(value.objectValue.at("a").numberValue, 1.0);
    EXPECT_EQ(value.objectValue.at("b").stringValue, "x");
}

TEST(JsonParserObjects, MissingClosingBraceKeepsWhatWasRead) {
    JsonValue value = parse(R"({"a":1)");
    ASSERT_EQ(value.type, JsonValue::Type::Object);
    ASSERT_EQ(value.objectValue.size(), 1u);
    EXPECT_EQ(value.objectValue.at("a").numberValue, 1.0);
}

TEST(JsonParserObjects, ColonIsOptional) {
    EXPECT_EQ(parse(R"({"a" 1})").serialize(), parse(R"({"a":1})").serialize());
    EXPECT_EQ(parse(R"({"a" 1})").serialize(), R"({"a":1})");
}

TEST(JsonParserObjects, RepeatedCommasAreDropped) {
    JsonValue value = parse(R"({"a":1,,,"b":2})");
    ASSERT_EQ(value.objectValue.size(), 2u);
    EXPECT_EQ(value.objectValue.at("b").numberValue, 2.0);
}

TEST(JsonParserObjects, JunkBetweenMembersIsDropped) {
    JsonValue value = parse(R"({"a":1 xyz; "b":2 })");
    EXPECT_EQ(value.serialize(), R"({"a":1,"b":2})");
}

TEST(JsonParserObjects, NoCommaNeededBetweenMembers) {
    EXPECT_EQ(parse(R"({"a":1 "b":2})").serialize(), R"({"a":1,"b":2})");
}

TEST(JsonParserObjects, LaterDuplicateKeyWins) {
    JsonValue value = parse(R"({"a":1,"a":2})");
    ASSERT_EQ(value.objectValue.size(), 1u);
    EXPECT_EQ(value.objectValue.at("a").numberValue, 2.0);
}

TEST(JsonParserObjects, KeyWithoutValueSwallowsTheClosingBrace) {
    std::size_t pos = 0;
    JsonValue value = parseAt(R"({"a"} "b":2)", pos);
    // The value reader skips "}" as an unusable byte, so reading goes on.
    EXPECT_EQ(value.serialize(), R"({"a":null,"b":2})");
    EXPECT_EQ(pos, 11u);
}

TEST(JsonParserObjects, PositionStopsBehindTheClosingBrace) {
    std::size_t pos = 0;
    parseAt(R"({"a":1} tail)", pos);
    EXPECT_EQ(pos, 7u);
}

TEST(JsonParserObjects, EmptyObjectAndNesting) {
    EXPECT_EQ(parse("{}").type, JsonValue::Type::Object);
    EXPECT_EQ(parse(R"({"a":{"b":[1,{"c":null}]}})").serialize(), R"({"a":{"b":[1,{"c":null}]}})");
}

TEST(JsonParserArrays, JunkBecomesNullElements) {
    JsonValue value = parse("[1,x,2]");
    ASSERT_EQ(value.arrayValue.size(), 3u);
    EXPECT_EQ(value.arrayValue[0].numberValue, 1.0);
    EXPECT_EQ(value.arrayValue[1].type, JsonValue::Type::Null);
    EXPECT_EQ(value.arrayValue[2].numberValue, 2.0);
}

TEST(JsonParserArrays, OneNullPerUnusableByte) {
    EXPECT_EQ(parse("[ab]").serialize(), "[null,null]");
}

TEST(JsonParserArrays, NoCommaNeeded) {
    JsonValue value = parse("[1 2]");
    ASSERT_EQ(value.arrayValue.size(), 2u);
    EXPECT_EQ(value.arrayValue[1].numberValue, 2.0);
}

TEST(JsonParserArrays, CommasAloneMakeNoElements) {
    EXPECT_EQ(parse("[,,]").serialize(), "[]");
    EXPECT_EQ(parse("[]").serialize(), "[]");
}

TEST(JsonParserArrays, EndOfInputReturnsWhatWasCollected) {
    EXPECT_EQ(parse("[").serialize(), "[]");
    EXPECT_EQ(parse("[1,").serialize(), "[1]");
    EXPECT_EQ(parse("[[1,[2").serialize(), "[[1,[2]]]");
}

TEST(JsonParserArrays, PositionStopsBehindTheClosingBracket) {
    std::size_t pos = 0;
    parseAt("[1] [2]", pos);
    EXPECT_EQ(pos, 3u);
}

TEST(JsonParserStrings, PlainStringAndPosition) {
    std::size_t pos = 0;
    JsonValue value = parseAt(R"("abc" x)", pos);
    EXPECT_EQ(value.type, JsonValue::Type::String);
    EXPECT_EQ(value.stringValue, "abc");
    EXPECT_EQ(pos, 5u);
}

TEST(JsonParserStrings, ParseStringStartsOnTheQuote) {
    std::size_t pos = 2;
    EXPECT_EQ(JsonValue::parseString(R"(x "hi" y)", pos), "hi");
    EXPECT_EQ(pos, 6u);
}

TEST(JsonParserStrings, SimpleEscapes) {
    EXPECT_EQ(parse(R"("\"")").stringValue, "\"");
    EXPECT_EQ(parse(R"("\\")").stringValue, "\\");
    EXPECT_EQ(parse(R"("\/")").stringValue, "/");
    EXPECT_EQ(parse(R"("\b")").stringValue, "\x08");
    EXPECT_EQ(parse(R"("\f")").stringValue, "\x0C");
    EXPECT_EQ(parse(R"("\n")").stringValue, "\x0A");
    EXPECT_EQ(parse(R"("\r")").stringValue, "\x0D");
    EXPECT_EQ(parse(R"("\t")").stringValue, "\x09");
}

TEST(JsonParserStrings, UnknownEscapeKeepsTheByteWithoutBackslash) {
    EXPECT_EQ(parse(R"("\q\a")").stringValue, "qa");
}

TEST(JsonParserStrings, UnicodeEscapeBecomesOneQuestionMark) {
    JsonValue value = parse(R"("\u00e9")");
    EXPECT_EQ(value.stringValue, "?");
}

TEST(JsonParserStrings, SurrogatePairBecomesTwoQuestionMarks) {
    EXPECT_EQ(parse(R"("a\uD83D\uDE00b")").stringValue, "a??b");
}

TEST(JsonParserStrings, UnicodeEscapeBytesAreNotInspected) {
    EXPECT_EQ(parse(R"("\u"xy!!")").stringValue, "?!");
}

TEST(JsonParserStrings, ShortUnicodeEscapeIsDroppedAndReadingGoesOn) {
    // Only three bytes follow the 'u': the escape yields nothing.
    EXPECT_EQ(parse(R"("\u12")").stringValue, "12");
    EXPECT_EQ(parse("\"\\u").stringValue, "");
}

TEST(JsonParserStrings, TrailingBackslashIsKept) {
    EXPECT_EQ(parse("\"ab\\").stringValue, "ab\\");
}

TEST(JsonParserStrings, UnterminatedStringEndsAtEndOfInput) {
    std::size_t pos = 0;
    JsonValue value = parseAt("\"abc", pos);
    EXPECT_EQ(value.stringValue, "abc");
    EXPECT_EQ(pos, 4u);
}

TEST(JsonParserStrings, RawControlBytesAndUtf8AreKept) {
    EXPECT_EQ(parse("\"a\nb\x01\tc\"").stringValue, "a\nb\x01\tc");
    EXPECT_EQ(parse("\"h\xC3\xA9llo\"").stringValue, "h\xC3\xA9llo");
}

TEST(JsonParserNumbers, MagnitudeTooSmallForADoubleThrows) {
    // No minus sign can reach the exponent, so only a long run of zeros
    // behind the point gets there.
    std::string tiny = "0.";
    tiny.append(400, '0').append("1");
    EXPECT_THROW(parse(tiny), std::out_of_range);
}

TEST(JsonParserNumbers, ValueIsTheUsablePrefixOfTheScannedText) {
    std::size_t pos = 0;
    JsonValue value = parseAt("1e+2e3]", pos);
    EXPECT_EQ(value.numberValue, 100.0);
    EXPECT_EQ(pos, 6u);
    value = parseAt("-0", pos);
    EXPECT_EQ(value.type, JsonValue::Type::Number);
    EXPECT_TRUE(std::signbit(value.numberValue));
}

TEST(JsonParserStrings, NulBytesAreKeptAsTheyCame) {
    std::string text = "\"a";
    text.push_back('\0');
    text.append("b\"");
    std::size_t pos = 0;
    JsonValue value = parseAt(text, pos);
    EXPECT_EQ(value.stringValue, std::string("a\0b", 3));
    EXPECT_EQ(pos, text.size());
}

TEST(JsonParserObjects, KeyIsReadWithTheStringEscapes) {
    JsonValue value = parse(R"({"a\"b\u0041":1})");
    ASSERT_EQ(value.objectValue.size(), 1u);
    EXPECT_EQ(value.objectValue.begin()->first, "a\"b?");
}

TEST(JsonParserObjects, EndOfInputRightAfterAKeyGivesItANull) {
    JsonValue value = parse(R"({"a")");
    ASSERT_EQ(value.objectValue.size(), 1u);
    EXPECT_EQ(value.objectValue.at("a").type, JsonValue::Type::Null);
}

TEST(JsonParserArrays, DeepNestingIsReadWhole) {
    const std::size_t depth = 2000;
    std::string text(depth, '[');
    text.append(depth, ']');
    JsonValue value = parse(text);
    std::size_t levels = 0;
    const JsonValue* cursor = &value;
    while (cursor->isArray()) {
        ++levels;
        if (cursor->arrayValue.empty()) break;
        cursor = &cursor->arrayValue[0];
    }
    EXPECT_EQ(levels, depth);
}
