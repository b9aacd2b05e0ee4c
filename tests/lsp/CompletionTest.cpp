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

const std::string URI = "file:///work/demo.quor";

class CompletionTest : public FeatureTest {
protected:
    JsonValue complete(const std::string& uri = URI, int line = 0, int character = 0) {
        return server.handleCompletion(JsonValue(1), parse(positionParams(uri, line, character)));
    }
};

std::string label(const JsonValue& item) { return item["label"].getString(); }
int kind(const JsonValue& item) { return item["kind"].getInt(); }
std::string detail(const JsonValue& item) { return item["detail"].getString(); }
std::string documentation(const JsonValue& item) { return item["documentation"]["value"].getString(); }

}  // namespace

TEST_F(CompletionTest, UnknownDocumentGivesTheFortySevenFixedItems) {
    JsonValue items = complete("file:///missing.quor");
    ASSERT_TRUE(items.isArray());
    EXPECT_EQ(items.arrayValue.size(), 47u);
}

TEST_F(CompletionTest, FirstItemIsFnKeyword) {
    JsonValue items = complete();
    const JsonValue& first = items.arrayValue.at(0);
    EXPECT_EQ(first.serialize(),
              R"({"detail":"Quor keyword","documentation":{"kind":"markdown","value":)"
              R"("Declare a function: `fn name(params): returnType { ... }`"},"kind":14,"label":"fn"})");
}

TEST_F(CompletionTest, ThirtySeventhIsIntAndFortySeventhIsList) {
    JsonValue items = complete();
    ASSERT_EQ(items.arrayValue.size(), 47u);
    EXPECT_EQ(items.arrayValue.at(36).serialize(), R"({"detail":"Built-in Quor type","kind":25,"label":"int"})");
    EXPECT_EQ(label(items.arrayValue.at(46)), "List");
    EXPECT_EQ(kind(items.arrayValue.at(46)), 25);
}

TEST_F(CompletionTest, KeywordItemsFollowTheTableWithDescriptions) {
    JsonValue items = complete();
    EXPECT_EQ(label(items.arrayValue.at(11)), "in");
    EXPECT_EQ(documentation(items.arrayValue.at(11)), "Used in for..in iterations");
    EXPECT_EQ(label(items.arrayValue.at(35)), "null");
    EXPECT_EQ(detail(items.arrayValue.at(35)), "Quor keyword");
    for (std::size_t i = 0; i < 36; ++i) EXPECT_EQ(kind(items.arrayValue.at(i)), 14);
    for (std::size_t i = 36; i < 47; ++i) {
        EXPECT_EQ(kind(items.arrayValue.at(i)), 25);
        EXPECT_FALSE(items.arrayValue.at(i).objectValue.count("documentation"));
    }
}

TEST_F(CompletionTest, EmptyDocumentGivesOnlyFixedItems) {
    server.openDocument(URI, "");
    EXPECT_EQ(complete().arrayValue.size(), 47u);
}

TEST_F(CompletionTest, FunctionAndClassWithTwoMembersInSourceOrder) {
    server.openDocument(URI,
                        "/// Says hello.\nfn greet(name: string): string { return name; }\n"
                        "class Box {\n  let size: int = 0;\n  fn grow(by: int) { }\n}\n");
    JsonValue items = complete();
    ASSERT_EQ(items.arrayValue.size(), 47u + 1 + 1 + 2);
    EXPECT_EQ(items.arrayValue.at(47).serialize(),
              R"({"detail":"fn greet(name: string): string","documentation":{"kind":"markdown",)"
              R"("value":"Says hello."},"kind":3,"label":"greet"})");
    EXPECT_EQ(items.arrayValue.at(48).serialize(), R"({"detail":"class Box","kind":7,"label":"Box"})");
    EXPECT_EQ(items.arrayValue.at(49).serialize(), R"({"detail":"let size: int","kind":5,"label":"size"})");
    EXPECT_EQ(items.arrayValue.at(50).serialize(),
              R"({"detail":"public fn grow(by: int): void","kind":2,"label":"grow"})");
}

TEST_F(CompletionTest, SameListAtEveryPosition) {
    server.openDocument(URI, "fn a() {}\nlet b = 1;\n");
    const std::string reference = complete(URI, 0, 0).serialize();
    EXPECT_EQ(complete(URI, 1, 5).serialize(), reference);
    EXPECT_EQ(complete(URI, 50, 50).serialize(), reference);
    EXPECT_EQ(server.handleCompletion(JsonValue(7), parse(R"({"textDocument":{"uri":"file:///work/demo.quor"}})"))
                  .serialize(),
              reference);
}

TEST_F(CompletionTest, KindsFollowTheDeclarationKind) {
    server.openDocument(URI,
                        "interface Shape { fn area(): float; }\n"
                        "struct Pair { first: int; }\n"
                        "enum Color { Red }\n"
                        "const LIMIT: int = 3;\n");
    JsonValue items = complete();
    ASSERT_EQ(items.arrayValue.size(), 47u + 7);
    const int expected[] = {8, 2, 22, 5, 13, 5, 6};
    const char* labels[] = {"Shape", "area", "Pair", "first", "Color", "Red", "LIMIT"};
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(label(items.arrayValue.at(47 + i)), labels[i]);
        EXPECT_EQ(kind(items.arrayValue.at(47 + i)), expected[i]) << labels[i];
    }
    EXPECT_EQ(detail(items.arrayValue.at(48)), "fn area(): float");
    EXPECT_EQ(detail(items.arrayValue.at(52)), "Red");
    EXPECT_EQ(detail(items.arrayValue.at(53)), "const LIMIT: int");
}

TEST_F(CompletionTest, NoDeduplicationOfTableWordsOrSharedMethods) {
    server.openDocument(URI, "class List { fn size(): int { return 0; } }\nclass Set { fn size(): int { return 0; } }\n"
                             "fn in() {}\n");
    JsonValue items = complete();
    ASSERT_EQ(items.arrayValue.size(), 47u + 5);
    EXPECT_EQ(label(items.arrayValue.at(47)), "List");
    EXPECT_EQ(label(items.arrayValue.at(48)), "size");
    EXPECT_EQ(label(items.arrayValue.at(50)), "size");
    EXPECT_EQ(label(items.arrayValue.at(51)), "in");
    EXPECT_EQ(kind(items.arrayValue.at(51)), 3);
}

TEST_F(CompletionTest, NoItemHasInsertText) {
    server.openDocument(URI, "fn a() {}\n");
    for (const JsonValue& item : complete().arrayValue) EXPECT_FALSE(item.objectValue.count("insertText"));
}

TEST_F(CompletionTest, DocumentWithSyntaxErrorsStillOffersKeptDeclarations) {
    server.openDocument(URI, "fn kept(): int { return 1; }\nfn broken( {\n");
    JsonValue items = complete();
    ASSERT_GT(items.arrayValue.size(), 47u);
    EXPECT_EQ(label(items.arrayValue.at(47)), "kept");
}

TEST_F(CompletionTest, TestsAndLocalsAreNotOffered) {
    server.openDocument(URI, "test \"t\" { let inner = 1; }\nfn f(p: int) { let local = p; }\n");
    JsonValue items = complete();
    ASSERT_EQ(items.arrayValue.size(), 48u);
    EXPECT_EQ(label(items.arrayValue.at(47)), "f");
}

TEST_F(CompletionTest, ReflectsTheLatestTextEachTime) {
    server.openDocument(URI, "fn one() {}\n");
    EXPECT_EQ(label(complete().arrayValue.at(47)), "one");
    server.updateDocument(URI, "fn two() {}\n");
    EXPECT_EQ(label(complete().arrayValue.at(47)), "two");
    server.closeDocument(URI);
    EXPECT_EQ(complete().arrayValue.size(), 47u);
}

TEST_F(CompletionTest, AnsweredThroughDispatch) {
    server.openDocument(URI, "fn a() {}\n");
    std::string response = server.handleMessage(
        R"({"jsonrpc":"2.0","id":4,"method":"textDocument/completion","params":{"textDocument":{"uri":"file:///work/demo.quor"},"position":{"line":0,"character":1}}})");
    JsonValue parsed = parse(response);
    EXPECT_EQ(parsed["id"].getInt(), 4);
    ASSERT_TRUE(parsed["result"].isArray());
    EXPECT_EQ(parsed["result"].arrayValue.size(), 48u);
}
