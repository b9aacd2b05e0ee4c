#include <gtest/gtest.h>

#include <sstream>

#include "lsp/LspServer.h"

using quor::lsp::LspServer;

namespace {

struct HeaderResult {
    bool ok;
    std::uint64_t length;
};

HeaderResult readHeader(const std::string& text) {
    std::istringstream stream(text);
    std::uint64_t length = 12345;
    bool ok = LspServer::parseHeader(stream, length);
    return {ok, length};
}

}  // namespace

TEST(HeaderParsing, StandardHeaderWithCrLf) {
    HeaderResult result = readHeader("Content-Length: 5\r\n\r\nhello");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 5u);
}

TEST(HeaderParsing, StreamIsLeftAtTheBody) {
    std::istringstream stream("Content-Length: 5\r\n\r\nhello");
    std::uint64_t length = 0;
    ASSERT_TRUE(LspServer::parseHeader(stream, length));
    std::string rest;
    std::getline(stream, rest);
    EXPECT_EQ(rest, "hello");
}

TEST(HeaderParsing, LowerCaseHeaderWithBareLineFeeds) {
    HeaderResult result = readHeader("content-length: 5\n\nhello");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 5u);
}

TEST(HeaderParsing, OtherCapitalisationsAreIgnored) {
    HeaderResult mixed = readHeader("Content-length: 5\r\n\r\n");
    EXPECT_FALSE(mixed.ok);
    EXPECT_EQ(mixed.length, 0u);
    HeaderResult upper = readHeader("CONTENT-LENGTH: 5\r\n\r\n");
    EXPECT_FALSE(upper.ok);
    EXPECT_EQ(upper.length, 0u);
}

TEST(HeaderParsing, DigitsAreReadUpToTheFirstNonDigit) {
    HeaderResult result = readHeader("Content-Length: 12abc\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 12u);
}

TEST(HeaderParsing, LeadingBlanksAreSkipped) {
    HeaderResult result = readHeader("Content-Length:    7\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 7u);
}

TEST(HeaderParsing, NoSpaceAfterTheColonIsFine) {
    HeaderResult result = readHeader("Content-Length:9\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 9u);
}

TEST(HeaderParsing, PlusSignIsAccepted) {
    EXPECT_EQ(readHeader("Content-Length: +8\r\n\r\n").length, 8u);
}

TEST(HeaderParsing, MinusSignWrapsAround) {
    HeaderResult result = readHeader("Content-Length: -1\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, UINT64_MAX);
}

TEST(HeaderParsing, FailedConversionWipesOutAnEarlierGoodLength) {
    HeaderResult result = readHeader("Content-Length: 5\r\nContent-Length: x\r\n\r\n");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.length, 0u);
}

TEST(HeaderParsing, OutOfRangeValueReadsAsZero) {
    HeaderResult result = readHeader("Content-Length: 99999999999999999999999\r\n\r\n");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.length, 0u);
}

TEST(HeaderParsing, HeaderWithNoValueReadsAsZero) {
    EXPECT_FALSE(readHeader("content-length:\r\n\r\n").ok);
}

TEST(HeaderParsing, LastLengthHeaderWins) {
    HeaderResult result = readHeader("Content-Length: 5\r\nContent-Length: 9\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 9u);
}

TEST(HeaderParsing, GoodLengthAfterAFailedOneCounts) {
    HeaderResult result = readHeader("Content-Length: x\r\nContent-Length: 4\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 4u);
}

TEST(HeaderParsing, OtherHeadersAreSkipped) {
    HeaderResult result =
        readHeader("Content-Type: application/vscode-jsonrpc; charset=utf-8\r\nContent-Length: 3\r\nX: y\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 3u);
}

TEST(HeaderParsing, ShortLinesAreSkipped) {
    HeaderResult result = readHeader("abc\r\nContent-Length: 2\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 2u);
}

TEST(HeaderParsing, ZeroLengthEndsTheBlockUnusable) {
    HeaderResult result = readHeader("Content-Length: 0\r\n\r\n");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.length, 0u);
}

TEST(HeaderParsing, BlockWithoutLengthIsUnusable) { EXPECT_FALSE(readHeader("\r\n").ok); }

TEST(HeaderParsing, EmptyStreamFails) {
    HeaderResult result = readHeader("");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.length, 0u);
}

TEST(HeaderParsing, EndOfInputBeforeTheBlankLineFails) {
    EXPECT_FALSE(readHeader("Content-Length: 5\r\n").ok);
    EXPECT_FALSE(readHeader("Content-Length: 5").ok);
}

TEST(HeaderParsing, LineOfOnlyACarriageReturnEndsTheBlock) {
    HeaderResult result = readHeader("Content-Length: 6\r\n\rrest");
    EXPECT_FALSE(result.ok);  // "\rrest" is one line: not empty, and no header
    result = readHeader("Content-Length: 6\n\r\nrest");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 6u);
}

TEST(Framing, FrameCarriesTheByteCount) {
    EXPECT_EQ(LspServer::frameMessage("{}"), "Content-Length: 2\r\n\r\n{}");
    EXPECT_EQ(LspServer::frameMessage(""), "Content-Length: 0\r\n\r\n");
}

TEST(Framing, CountIsInBytesNotCharacters) {
    EXPECT_EQ(LspServer::frameMessage("\"\xC3\xA9\""), "Content-Length: 4\r\n\r\n\"\xC3\xA9\"");
}

TEST(HeaderParsing, OnlyOneCarriageReturnIsRemoved) {
    // "\r\r" keeps one carriage return, so it neither ends the block nor is a header.
    HeaderResult result = readHeader("Content-Length: 4\r\n\r\r\nContent-Length: 6\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 6u);
}

TEST(HeaderParsing, NameAloneWithNothingBehindTheColonReadsAsZero) {
    HeaderResult result = readHeader("Content-Length: 5\r\nContent-Length:\r\n\r\n");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.length, 0u);
}

TEST(HeaderParsing, NameMustStandAtTheStartOfTheLine) {
    EXPECT_FALSE(readHeader(" Content-Length: 5\r\n\r\n").ok);
    EXPECT_FALSE(readHeader("Content-Length : 5\r\n\r\n").ok);
    EXPECT_FALSE(readHeader("X-Content-Length: 5\r\n\r\n").ok);
}

TEST(HeaderParsing, ValueIsReadFromBehindTheFirstColon) {
    EXPECT_EQ(readHeader("Content-Length: 5:6\r\n\r\n").length, 5u);
    EXPECT_EQ(readHeader("Content-Length:\t6\r\n\r\n").length, 6u);
    EXPECT_EQ(readHeader("Content-Length: 7   \r\n\r\n").length, 7u);
    EXPECT_EQ(readHeader("Content-Length: 0012\r\n\r\n").length, 12u);
}

TEST(HeaderParsing, NegativeValueOtherThanMinusOneWrapsToo) {
    EXPECT_EQ(readHeader("Content-Length: -2\r\n\r\n").length, UINT64_MAX - 1);
}

TEST(HeaderParsing, LongerNameWithTheSameFifteenBytesCountsAsALengthHeader) {
    // Only the first fifteen bytes are compared.
    HeaderResult result = readHeader("Content-Length:x: 9\r\n\r\n");
    EXPECT_FALSE(result.ok);
    result = readHeader("content-length:9 bytes\r\n\r\n");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.length, 9u);
}
