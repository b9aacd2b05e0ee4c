// Strings are written and read in runs of plain bytes; escapes, control
// bytes, bytes above ASCII and NUL bytes inside a run must come out exactly
// as they would one byte at a time.
#include <gtest/gtest.h>

#include <string>

#include "lsp/JsonValue.h"

namespace quor::lsp {
namespace {

TEST(JsonTextRuns, WriterEscapesBetweenPlainRunsByteForByte) {
    std::string text = "plain \"quoted\" back\\slash\nline\ttab\rcr\b\f";
    text.push_back('\x01');
    text.push_back('\0');
    text += "\x7f\xc3\xa9 end";
    EXPECT_EQ(JsonValue(text).serialize(),
              "\"plain \\\"quoted\\\" back\\\\slash\\nline\\ttab\\rcr\\b\\f\\u0001\\u0000\x7f\xc3\xa9 end\"");
}

TEST(JsonTextRuns, WriterKeepsNumbersAndKeysAsTheyWere) {
    JsonValue object = JsonValue::makeObject();
    object["b\"raw"] = JsonValue(-9007199254740993.0);
    object["a"] = JsonValue(0.5);
    object["c"] = JsonValue(1e300);
    object["d"] = JsonValue(std::int64_t{-42});
    EXPECT_EQ(object.serialize(), "{\"a\":0.5,\"b\"raw\":-9007199254740992,\"c\":1e+300,\"d\":-42}");
}

TEST(JsonTextRuns, ReaderCopiesRunsAndDecodesEscapesBetweenThem) {
    std::string body = "\"first run\\nsecond \\\"run\\\" \\u00e9 \\/ end\" tail";
    std::size_t pos = 0;
    EXPECT_EQ(JsonValue::parseString(body, pos), "first run\nsecond \"run\" ? / end");
    EXPECT_EQ(body.substr(pos), " tail");
}

TEST(JsonTextRuns, ReaderKeepsNulBytesAndStopsAtTheEndWithoutAQuote) {
    std::string body = std::string("\"a") + '\0' + "b";
    std::size_t pos = 0;
    EXPECT_EQ(JsonValue::parseString(body, pos), std::string("a") + '\0' + "b");
    EXPECT_EQ(pos, body.size());
    std::string trailing = "\"ab\\";
    pos = 0;
    EXPECT_EQ(JsonValue::parseString(trailing, pos), "ab\\");
}

TEST(JsonTextRuns, LongTextRoundTripsThroughWriterAndReader) {
    std::string text;
    for (int i = 0; i < 5000; ++i) text += "line " + std::to_string(i) + " has \"quotes\" and \\ \t\n";
    const std::string written = JsonValue(text).serialize();
    std::size_t pos = 0;
    EXPECT_EQ(JsonValue::parseValue(written, pos).getString(), text);
    EXPECT_EQ(pos, written.size());
}

}  // namespace
}  // namespace quor::lsp
