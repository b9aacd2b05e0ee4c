#include <gtest/gtest.h>

#include <sstream>

#include "LspTestSupport.h"

using quor::lsp::JsonValue;
using quor::lsp::LspServer;
using quor::lsp::testing::framed;
using quor::lsp::testing::parse;

namespace {

std::string emptyPublication(const std::string& uri) {
    return framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[],"uri":")" +
                  uri + R"("}})");
}

class DocumentStoreTest : public ::testing::Test {
protected:
    std::istringstream in;
    std::ostringstream out;
    LspServer server{in, out};

    void notify(const std::string& body) { EXPECT_EQ(server.handleMessage(body), ""); }
};

}  // namespace

TEST_F(DocumentStoreTest, OpenStoresTheTextAndPublishes) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"file:///a.quor","languageId":"quor","version":1,"text":"let x = 1;"}}})");
    EXPECT_EQ(server.getDocument("file:///a.quor"), "let x = 1;");
    EXPECT_EQ(out.str(), emptyPublication("file:///a.quor"));
}

TEST_F(DocumentStoreTest, OpenReplacesAnEarlierText) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"one;"}}})");
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"two;"}}})");
    EXPECT_EQ(server.getDocument("u"), "two;");
    EXPECT_EQ(out.str(), emptyPublication("u") + emptyPublication("u"));
}

TEST_F(DocumentStoreTest, OpenWithoutUriUsesTheEmptyUri) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"text":"abc;"}}})");
    EXPECT_EQ(server.getDocument(""), "abc;");
    EXPECT_EQ(out.str(), emptyPublication(""));
}

TEST_F(DocumentStoreTest, OpenWithoutParamsStoresAnEmptyDocument) {
    notify(R"({"method":"textDocument/didOpen"})");
    EXPECT_EQ(out.str(), emptyPublication(""));
}

TEST_F(DocumentStoreTest, UriIsKeptExactlyAsSent) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"file:///C%3A/x%20y.quor","text":"a"}}})");
    EXPECT_EQ(server.getDocument("file:///C%3A/x%20y.quor"), "a");
    EXPECT_EQ(server.getDocument("file:///C:/x y.quor"), "");
}

TEST_F(DocumentStoreTest, ChangeStoresTheFirstChangeAsTheWholeText) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"old;"}}})");
    notify(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"u","version":2},"contentChanges":[{"range":{"start":{"line":0,"character":0},"end":{"line":0,"character":1}},"text":"first;"},{"text":"second"}]}})");
    EXPECT_EQ(server.getDocument("u"), "first;");
    EXPECT_EQ(out.str(), emptyPublication("u") + emptyPublication("u"));
}

TEST_F(DocumentStoreTest, ChangeWithEmptyChangesDoesNothing) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"keep"}}})");
    out.str("");
    notify(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"u"},"contentChanges":[]}})");
    EXPECT_EQ(server.getDocument("u"), "keep");
    EXPECT_EQ(out.str(), "");
}

TEST_F(DocumentStoreTest, ChangeWhoseChangesAreNoArrayDoesNothing) {
    notify(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"u"},"contentChanges":{"text":"x"}}})");
    notify(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"u"}}})");
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(server.getDocument("u"), "");
}

TEST_F(DocumentStoreTest, ChangeWithMissingTextEmptiesTheDocumentAndPublishes) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"abc"}}})");
    out.str("");
    notify(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"u"},"contentChanges":[{}]}})");
    EXPECT_EQ(server.getDocument("u"), "");
    EXPECT_EQ(out.str(), emptyPublication("u"));
}

TEST_F(DocumentStoreTest, ChangeOfAnUnopenedDocumentCreatesIt) {
    notify(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"new"},"contentChanges":[{"text":"t;"}]}})");
    EXPECT_EQ(server.getDocument("new"), "t;");
    EXPECT_EQ(out.str(), emptyPublication("new"));
}

TEST_F(DocumentStoreTest, EveryChangeGetsItsOwnPublicationInOrder) {
    std::string expected;
    for (int i = 0; i < 10; ++i) {
        std::string message = R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"u)";
        message.append(std::to_string(i));
        message.append(R"("},"contentChanges":[{"text":""}]}})");
        notify(message);
        expected += emptyPublication("u" + std::to_string(i));
    }
    EXPECT_EQ(out.str(), expected);
}

TEST_F(DocumentStoreTest, CloseErasesTheTextWithoutPublishing) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"abc"}}})");
    out.str("");
    notify(R"({"method":"textDocument/didClose","params":{"textDocument":{"uri":"u"}}})");
    EXPECT_EQ(server.getDocument("u"), "");
    EXPECT_EQ(out.str(), "");
}

TEST_F(DocumentStoreTest, ClosingAnUnknownDocumentDoesNothing) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"abc"}}})");
    notify(R"({"method":"textDocument/didClose","params":{"textDocument":{"uri":"other"}}})");
    notify(R"({"method":"textDocument/didClose"})");
    EXPECT_EQ(server.getDocument("u"), "abc");
}

TEST_F(DocumentStoreTest, AfterCloseFeaturesSeeAnEmptyDocument) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"abc"}}})");
    notify(R"({"method":"textDocument/didClose","params":{"textDocument":{"uri":"u"}}})");
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":"textDocument/formatting","params":{"textDocument":{"uri":"u"}}})"),
              R"({"id":1,"jsonrpc":"2.0","result":[]})");
}

TEST_F(DocumentStoreTest, PlainStoreOperations) {
    server.openDocument("a", "1");
    EXPECT_EQ(server.getDocument("a"), "1");
    server.updateDocument("a", "2");
    EXPECT_EQ(server.getDocument("a"), "2");
    server.updateDocument("b", "3");
    EXPECT_EQ(server.getDocument("b"), "3");
    server.closeDocument("a");
    EXPECT_EQ(server.getDocument("a"), "");
    server.closeDocument("never");
    EXPECT_EQ(server.getDocument("b"), "3");
    EXPECT_EQ(out.str(), "");  // the plain operations do not publish
}

TEST_F(DocumentStoreTest, DirectHandlerCallsMatchTheDispatchedOnes) {
    server.handleDidOpen(parse(R"({"textDocument":{"uri":"d","text":"x;"}})"));
    EXPECT_EQ(server.getDocument("d"), "x;");
    server.handleDidChange(parse(R"({"textDocument":{"uri":"d"},"contentChanges":[{"text":"y;"}]})"));
    EXPECT_EQ(server.getDocument("d"), "y;");
    server.handleDidClose(parse(R"({"textDocument":{"uri":"d"}})"));
    EXPECT_EQ(server.getDocument("d"), "");
    EXPECT_EQ(out.str(), emptyPublication("d") + emptyPublication("d"));
}

TEST_F(DocumentStoreTest, EscapedTextIsStoredDecoded) {
    notify(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"a\nb\t\u00e9"}}})");
    EXPECT_EQ(server.getDocument("u"), "a\nb\t?");
}
