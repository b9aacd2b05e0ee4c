#include <gtest/gtest.h>

#include <string>

#include "FeatureTestSupport.h"
#include "LspTestSupport.h"
#include "lsp/LspServer.h"

using quor::lsp::JsonValue;
using quor::lsp::LspServer;
using quor::lsp::testing::FeatureTest;
using quor::lsp::testing::parse;
using quor::lsp::testing::positionParams;

namespace {

const std::string URI = "file:///work/hover.quor";

class HoverTest : public FeatureTest {
protected:
    JsonValue hover(int line, int character, const std::string& uri = URI) {
        return server.handleHover(JsonValue(1), parse(positionParams(uri, line, character)));
    }

    std::string contents(int line, int character) { return hover(line, character)["contents"]["value"].getString(); }
};

std::string word(const std::string& text, int line, int character) {
    return LspServer::extractWordAtPosition(text, line, character);
}

}  // namespace

TEST(WordAtPosition, CursorOnOrDirectlyBehindAWord) {
    EXPECT_EQ(word("foo bar", 0, 0), "foo");
    EXPECT_EQ(word("foo bar", 0, 1), "foo");
    EXPECT_EQ(word("foo bar", 0, 3), "foo");
    EXPECT_EQ(word("foo bar", 0, 4), "bar");
    EXPECT_EQ(word("foo bar", 0, 6), "bar");
}

TEST(WordAtPosition, OneByteFurtherBehindFindsNothing) { EXPECT_EQ(word("foo  bar", 0, 4), ""); }

TEST(WordAtPosition, NonWordByteAtLineStartFindsNothing) {
    EXPECT_EQ(word(" foo", 0, 0), "");
    EXPECT_EQ(word("(x)", 0, 0), "");
}

TEST(WordAtPosition, PastTheEndClampsToLastByte) {
    EXPECT_EQ(word("foo", 0, 99), "foo");
    EXPECT_EQ(word("foo;", 0, 99), "foo");
    EXPECT_EQ(word("foo; ", 0, 99), "");
}

TEST(WordAtPosition, MissingLineOrEmptyLineGivesNothing) {
    EXPECT_EQ(word("a\nb", 99, 0), "");
    EXPECT_EQ(word("a\n\nb", 1, 0), "");
    EXPECT_EQ(word("abc\n", 1, 0), "");
    EXPECT_EQ(word("", 0, 0), "");
}

TEST(WordAtPosition, NegativeNumbersGiveNothing) {
    EXPECT_EQ(word("abc", 0, -1), "");
    EXPECT_EQ(word("abc", -1, 0), "");
}

TEST(WordAtPosition, LinesAreCountedByLineFeeds) {
    EXPECT_EQ(word("one\ntwo\nthree", 1, 1), "two");
    EXPECT_EQ(word("one\ntwo\nthree", 2, 4), "three");
}

TEST(WordAtPosition, CarriageReturnStaysInTheLineButIsNoWordByte) {
    EXPECT_EQ(word("ab\r\ncd", 0, 2), "ab");
    EXPECT_EQ(word("ab\r\ncd", 0, 99), "ab");
    EXPECT_EQ(word("ab \r\ncd", 0, 99), "");
    EXPECT_EQ(word("ab\r\ncd", 1, 0), "cd");
}

TEST(WordAtPosition, DigitsAndUnderscoresBelongToWords) {
    EXPECT_EQ(word("x = 12ab_c + _y", 0, 5), "12ab_c");
    EXPECT_EQ(word("x = 12ab_c + _y", 0, 14), "_y");
}

TEST(WordAtPosition, NonAsciiBytesEndAWord) {
    EXPECT_EQ(word("caf\xC3\xA9x", 0, 1), "caf");
    EXPECT_EQ(word("caf\xC3\xA9x", 0, 5), "x");
}

TEST_F(HoverTest, KeywordShowsHeadingAndDescription) {
    server.openDocument(URI, "fn main() {}\n");
    JsonValue result = hover(0, 1);
    EXPECT_EQ(result.serialize(),
              R"({"contents":{"kind":"markdown","value":"**Keyword** `fn`\n\n)"
              R"(Declare a function: `fn name(params): returnType { ... }`"}})");
}

TEST_F(HoverTest, InIsExplainedAsKeyword) {
    server.openDocument(URI, "for x in xs { }\n");
    EXPECT_EQ(contents(0, 6), "**Keyword** `in`\n\nUsed in for..in iterations");
}

TEST_F(HoverTest, PrimitiveTypeShowsFixedText) {
    server.openDocument(URI, "let x: int = 1;\n");
    EXPECT_EQ(contents(0, 8), "**Type** `int`\n\nBuilt-in primitive type in Quor.");
}

TEST_F(HoverTest, TableWordWinsOverADeclarationOfThatName) {
    server.openDocument(URI, "/// My own list.\nclass List { }\nfn in() {}\n");
    EXPECT_EQ(contents(1, 7), "**Type** `List`\n\nBuilt-in primitive type in Quor.");
    EXPECT_EQ(contents(2, 3), "**Keyword** `in`\n\nUsed in for..in iterations");
}

TEST_F(HoverTest, FunctionWithoutDocShowsOnlyFencedSignature) {
    server.openDocument(URI, "fn foo(a: int): int { return a; }\nfoo(1);\n");
    EXPECT_EQ(contents(1, 1), "```quor\nfn foo(a: int): int\n```\n");
}

TEST_F(HoverTest, FunctionWithDocShowsDescriptionBehindTheFence) {
    server.openDocument(URI, "/// Adds one.\n///\n/// Really.\nfn inc(a: int): int => a + 1;\n");
    EXPECT_EQ(contents(3, 4), "```quor\nfn inc(a: int): int\n```\n\nAdds one.\n\nReally.\n");
}

TEST_F(HoverTest, MemberOfEarlierEntryBeatsLaterTopLevelEntry) {
    server.openDocument(URI, "class A {\n  fn run() {}\n}\nfn run(x: int) {}\nrun(1);\n");
    EXPECT_EQ(contents(4, 0), "```quor\npublic fn run(): void\n```\n");
}

TEST_F(HoverTest, EntryNameIsComparedBeforeItsMembers) {
    server.openDocument(URI, "class Node {\n  fn Node() {}\n}\n");
    EXPECT_EQ(contents(0, 7), "```quor\nclass Node\n```\n");
}

TEST_F(HoverTest, LocalsAndParametersGiveNull) {
    server.openDocument(URI, "fn f(param: int) {\n  let local = param;\n}\n");
    EXPECT_TRUE(hover(1, 7).isNull());
    EXPECT_TRUE(hover(1, 16).isNull());
}

TEST_F(HoverTest, LineOutsideTheTextGivesNull) {
    server.openDocument(URI, "fn a() {}\nfn b() {}");
    EXPECT_TRUE(hover(99, 0).isNull());
}

TEST_F(HoverTest, UnknownDocumentGivesNull) { EXPECT_TRUE(hover(0, 0, "file:///nowhere.quor").isNull()); }

TEST_F(HoverTest, WhitespaceGivesNull) {
    server.openDocument(URI, "fn a() {}\n\n   x\n");
    EXPECT_TRUE(hover(1, 0).isNull());
    EXPECT_TRUE(hover(2, 1).isNull());
}

TEST_F(HoverTest, NoRangeIsSet) {
    server.openDocument(URI, "fn a() {}\n");
    JsonValue result = hover(0, 3);
    ASSERT_TRUE(result.isObject());
    EXPECT_EQ(result.objectValue.count("range"), 0u);
    EXPECT_EQ(result.objectValue.size(), 1u);
}

TEST_F(HoverTest, WorksOnDocumentWithSyntaxErrors) {
    server.openDocument(URI, "/// Kept.\nfn kept() {}\nfn broken( {\nkept\n");
    EXPECT_EQ(contents(3, 2), "```quor\nfn kept(): void\n```\n\nKept.\n");
}

TEST_F(HoverTest, MembersOfAllKindsAreFound) {
    server.openDocument(URI, "struct P { x: int; }\nenum E { Red }\ninterface I { fn go(): bool; }\nx Red go\n");
    EXPECT_EQ(contents(3, 0), "```quor\nx: int\n```\n");
    EXPECT_EQ(contents(3, 3), "```quor\nRed\n```\n");
    EXPECT_EQ(contents(3, 7), "```quor\nfn go(): bool\n```\n");
}

TEST_F(HoverTest, AnsweredThroughDispatchWithNullResult) {
    server.openDocument(URI, "   \n");
    EXPECT_EQ(server.handleMessage(
                  R"({"id":3,"method":"textDocument/hover","params":{"textDocument":{"uri":"file:///work/hover.quor"},"position":{"line":0,"character":0}}})"),
              R"({"id":3,"jsonrpc":"2.0","result":null})");
}
