#include <gtest/gtest.h>

#include <string>

#include "FeatureTestSupport.h"
#include "LspTestSupport.h"
#include "lsp/LspServer.h"

using quor::lsp::JsonValue;
using quor::lsp::LspServer;
using quor::lsp::testing::FeatureTest;
using quor::lsp::testing::parse;
using quor::lsp::testing::positionFields;

namespace {

const std::string URI = "file:///work/ren.quor";

class RenameTest : public FeatureTest {
protected:
    JsonValue rename(int line, int character, const std::string& newNameJson) {
        std::string params = "{";
        params.append(positionFields(URI, line, character));
        if (!newNameJson.empty()) {
            params.append(R"(,"newName":)");
            params.append(newNameJson);
        }
        params.append("}");
        return server.handleRename(JsonValue(1), parse(params));
    }

    const JsonValue& edits(const JsonValue& result) { return result["changes"][URI]; }
};

std::string edit(int line, int start, int end, const std::string& newText) {
    std::string text = R"({"newText":")";
    text.append(newText);
    text.append(R"(","range":{"end":{"character":)");
    text.append(std::to_string(end));
    text.append(R"(,"line":)");
    text.append(std::to_string(line));
    text.append(R"(},"start":{"character":)");
    text.append(std::to_string(start));
    text.append(R"(,"line":)");
    text.append(std::to_string(line));
    text.append("}}}");
    return text;
}

std::string changes(const std::string& editList) {
    std::string text = R"({"changes":{"file:///work/ren.quor":[)";
    text.append(editList);
    text.append("]}}");
    return text;
}

}  // namespace

TEST_F(RenameTest, BothUsesOnOneLineInColumnOrder) {
    server.openDocument(URI, "let x = x + 1;\n");
    EXPECT_EQ(rename(0, 4, R"("y")").serialize(), changes(edit(0, 4, 5, "y") + "," + edit(0, 8, 9, "y")));
}

TEST_F(RenameTest, CommentsAndStringsAreLeftAlone) {
    server.openDocument(URI, "// count here\nlet count = 1; /* count */\nprint(\"count\");\ncount;\n");
    JsonValue result = rename(3, 0, R"("total")");
    EXPECT_EQ(result.serialize(), changes(edit(1, 4, 9, "total") + "," + edit(3, 0, 5, "total")));
}

TEST_F(RenameTest, KeywordUnderCursorGivesEmptyArray) {
    server.openDocument(URI, "let x = 1;\n");
    EXPECT_EQ(rename(0, 1, R"("z")").serialize(), R"({"changes":{"file:///work/ren.quor":[]}})");
}

TEST_F(RenameTest, EmptyOrMissingNewNameGivesNull) {
    server.openDocument(URI, "let x = 1;\n");
    EXPECT_TRUE(rename(0, 4, R"("")").isNull());
    EXPECT_TRUE(rename(0, 4, "").isNull());
    EXPECT_TRUE(rename(0, 4, "5").isNull());
}

TEST_F(RenameTest, NoWordUnderCursorGivesNull) {
    server.openDocument(URI, "let x = 1;\n\n");
    EXPECT_TRUE(rename(1, 0, R"("y")").isNull());
    EXPECT_TRUE(rename(40, 0, R"("y")").isNull());
}

TEST_F(RenameTest, UnterminatedStringFurtherDownDoesNotStopEarlierEdits) {
    server.openDocument(URI, "let v = 1;\nv = v + 2;\nlet s = \"open\nv;\n");
    JsonValue result = rename(0, 4, R"("w")");
    const JsonValue& list = edits(result);
    ASSERT_TRUE(list.isArray());
    ASSERT_GE(list.arrayValue.size(), 3u);
    EXPECT_EQ(list.arrayValue[0].serialize(), edit(0, 4, 5, "w"));
    EXPECT_EQ(list.arrayValue[1].serialize(), edit(1, 0, 1, "w"));
    EXPECT_EQ(list.arrayValue[2].serialize(), edit(1, 4, 5, "w"));
}

TEST_F(RenameTest, UnrelatedVariablesOfOneNameAreRenamedTogether) {
    server.openDocument(URI, "fn a() { let i = 0; }\nfn b() { let i = 1; }\n");
    JsonValue result = rename(0, 13, R"("k")");
    EXPECT_EQ(result.serialize(), changes(edit(0, 13, 14, "k") + "," + edit(1, 13, 14, "k")));
}

TEST_F(RenameTest, NewNameIsTakenAsItComes) {
    server.openDocument(URI, "a;\n");
    EXPECT_EQ(rename(0, 0, R"("for each")").serialize(), changes(edit(0, 0, 1, "for each")));
}

TEST_F(RenameTest, PartialMatchesAreNotRenamed) {
    server.openDocument(URI, "let ab = a + abc + a;\n");
    EXPECT_EQ(rename(0, 9, R"("q")").serialize(), changes(edit(0, 9, 10, "q") + "," + edit(0, 19, 20, "q")));
}

TEST_F(RenameTest, TabsCountOneColumnAndLinesAreZeroBased) {
    server.openDocument(URI, "\n\n\tname;\n");
    EXPECT_EQ(rename(2, 2, R"("n")").serialize(), changes(edit(2, 1, 5, "n")));
}

TEST_F(RenameTest, UnknownDocumentGivesNull) {
    JsonValue result = server.handleRename(
        JsonValue(1), parse(R"({"textDocument":{"uri":"file:///x.quor"},"position":{"line":0,"character":0},"newName":"a"})"));
    EXPECT_TRUE(result.isNull());
}

TEST_F(RenameTest, AnsweredThroughDispatch) {
    server.openDocument(URI, "x;\n");
    EXPECT_EQ(server.handleMessage(
                  R"({"id":2,"method":"textDocument/rename","params":{"textDocument":{"uri":"file:///work/ren.quor"},"position":{"line":0,"character":0},"newName":"y"}})"),
              std::string(R"({"id":2,"jsonrpc":"2.0","result":)") + changes(edit(0, 0, 1, "y")) + "}");
}

TEST_F(RenameTest, InterpolatedNameInsideAStringIsNoIdentifierToken) {
    server.openDocument(URI, "let n = 1;\nprint(\"${n}\");\n");
    EXPECT_EQ(rename(0, 4, R"("m")").serialize(), changes(edit(0, 4, 5, "m")));
}

TEST_F(RenameTest, CursorDirectlyBehindTheWordFindsIt) {
    server.openDocument(URI, "foo;\nfoo = 2;\n");
    std::string expected = edit(0, 0, 3, "bar");
    expected.append(",").append(edit(1, 0, 3, "bar"));
    EXPECT_EQ(rename(0, 3, R"("bar")").serialize(), changes(expected));
}

TEST_F(RenameTest, TypeKeywordUnderCursorGivesEmptyArray) {
    server.openDocument(URI, "int x = 1;\n");
    EXPECT_EQ(rename(0, 1, R"("z")").serialize(), R"({"changes":{"file:///work/ren.quor":[]}})");
}

TEST_F(RenameTest, NewNameMayBeAKeyword) {
    server.openDocument(URI, "value;\n");
    EXPECT_EQ(rename(0, 2, R"("while")").serialize(), changes(edit(0, 0, 5, "while")));
}

TEST(RenameUriKey, UriIsWrittenRawAsTheObjectKey) {
    std::istringstream in;
    std::ostringstream out;
    LspServer server{in, out};
    const std::string uri = "file:///my%20dir/a\\b.quor";
    server.openDocument(uri, "a;\n");
    std::string params = R"({"textDocument":{"uri":"file:///my%20dir/a\\b.quor"},)";
    params.append(R"("position":{"line":0,"character":0},"newName":"z"})");
    JsonValue result = server.handleRename(JsonValue(1), parse(params));
    EXPECT_EQ(result.serialize(),
              R"({"changes":{"file:///my%20dir/a\b.quor":[{"newText":"z","range":{"end":{"character":1,"line":0},)"
              R"("start":{"character":0,"line":0}}}]}})");
}
