#include <gtest/gtest.h>

#include <sstream>

#include "LspTestSupport.h"

using quor::lsp::JsonValue;
using quor::lsp::LspServer;

namespace {

constexpr const char* INITIALIZE_RESULT =
    R"({"capabilities":{"completionProvider":{"resolveProvider":false,"triggerCharacters":[".",":",">"]},)"
    R"("definitionProvider":true,"documentFormattingProvider":true,"hoverProvider":true,"renameProvider":true,)"
    R"("textDocumentSync":1},"serverInfo":{"name":"quorls","version":"1.0.0"}})";

class DispatchTest : public ::testing::Test {
protected:
    std::istringstream in;
    std::ostringstream out;
    LspServer server{in, out};
};

std::string nullResult(const std::string& id) { return R"({"id":)" + id + R"(,"jsonrpc":"2.0","result":null})"; }

}  // namespace

TEST_F(DispatchTest, InitializeAnswersTheFixedCapabilities) {
    EXPECT_EQ(server.handleMessage(R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{"processId":42}})"),
              std::string(R"({"id":1,"jsonrpc":"2.0","result":)") + INITIALIZE_RESULT + "}");
}

TEST_F(DispatchTest, InitializeResultDoesNotDependOnParams) {
    EXPECT_EQ(server.handleInitialize(JsonValue(), JsonValue()).serialize(), INITIALIZE_RESULT);
    EXPECT_EQ(server.handleInitialize(JsonValue(9), JsonValue("junk")).serialize(), INITIALIZE_RESULT);
}

TEST_F(DispatchTest, SecondInitializeGetsTheSameAnswer) {
    std::string first = server.handleMessage(R"({"id":1,"method":"initialize"})");
    std::string second = server.handleMessage(R"({"id":1,"method":"initialize"})");
    EXPECT_EQ(first, second);
    EXPECT_TRUE(server.isRunning());
}

TEST_F(DispatchTest, ZeroIsARealIdAndShutdownStops) {
    EXPECT_EQ(server.handleMessage(R"({"id":0,"method":"shutdown"})"), nullResult("0"));
    EXPECT_FALSE(server.isRunning());
}

TEST_F(DispatchTest, ShutdownWithNullIdIsANotificationAndDoesNothing) {
    EXPECT_EQ(server.handleMessage(R"({"id":null,"method":"shutdown"})"), "");
    EXPECT_TRUE(server.isRunning());
}

TEST_F(DispatchTest, ExitNotificationStops) {
    EXPECT_EQ(server.handleMessage(R"({"method":"exit"})"), "");
    EXPECT_FALSE(server.isRunning());
}

TEST_F(DispatchTest, ExitRequestIsAnsweredAndDoesNotStop) {
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":"exit"})"), nullResult("1"));
    EXPECT_TRUE(server.isRunning());
}

TEST_F(DispatchTest, InitializedNotificationSetsTheFlag) {
    EXPECT_EQ(server.handleMessage(R"({"method":"initialized","params":{}})"), "");
    EXPECT_TRUE(server.isInitialized());
}

TEST_F(DispatchTest, InitializedRequestIsAnUnknownRequest) {
    EXPECT_EQ(server.handleMessage(R"({"id":3,"method":"initialized"})"), nullResult("3"));
    EXPECT_FALSE(server.isInitialized());
}

TEST_F(DispatchTest, InitializeWithoutIdIsIgnored) {
    EXPECT_EQ(server.handleMessage(R"({"method":"initialize"})"), "");
}

TEST_F(DispatchTest, BodyThatIsNotAnObjectGetsNoResponse) {
    EXPECT_EQ(server.handleMessage("[1,2]"), "");
    EXPECT_EQ(server.handleMessage(""), "");
    EXPECT_EQ(server.handleMessage("garbage"), "");
    EXPECT_EQ(server.handleMessage("\"id\""), "");
    EXPECT_EQ(server.handleMessage("12"), "");
    EXPECT_TRUE(server.isRunning());
}

TEST_F(DispatchTest, UnknownRequestWithStringIdEchoesIt) {
    EXPECT_EQ(server.handleMessage(R"({"id":"abc","method":"foo/bar"})"),
              R"({"id":"abc","jsonrpc":"2.0","result":null})");
}

TEST_F(DispatchTest, MessageWithOnlyAnIdIsAnsweredWithNull) {
    EXPECT_EQ(server.handleMessage(R"({"id":7})"), nullResult("7"));
}

TEST_F(DispatchTest, ResponseObjectSentToTheServerIsAnsweredAsARequest) {
    EXPECT_EQ(server.handleMessage(R"({"jsonrpc":"2.0","id":5,"result":{"x":1}})"), nullResult("5"));
}

TEST_F(DispatchTest, AnyNonNullIdMakesARequest) {
    EXPECT_EQ(server.handleMessage(R"({"id":false,"method":"x"})"), nullResult("false"));
    EXPECT_EQ(server.handleMessage(R"({"id":[1,"a"],"method":"x"})"), nullResult(R"([1,"a"])"));
    EXPECT_EQ(server.handleMessage(R"({"id":{"k":2},"method":"x"})"), nullResult(R"({"k":2})"));
    EXPECT_EQ(server.handleMessage(R"({"id":2.5,"method":"x"})"), nullResult("2.5"));
}

TEST_F(DispatchTest, EmptyOrNonStringMethodIsAnUnknownRequest) {
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":""})"), nullResult("1"));
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":5})"), nullResult("1"));
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":"shutdown "})"), nullResult("1"));
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":"Shutdown"})"), nullResult("1"));
    EXPECT_TRUE(server.isRunning());
}

TEST_F(DispatchTest, TextBehindTheFirstValueIsIgnored) {
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":"x"} {"id":2})"), nullResult("1"));
}

TEST_F(DispatchTest, LaxJsonIsStillDispatched) {
    EXPECT_EQ(server.handleMessage(R"({"id" 4 "method" "x")"), nullResult("4"));
}

TEST_F(DispatchTest, UnknownNotificationDoesNothing) {
    EXPECT_EQ(server.handleMessage(R"({"method":"textDocument/didSave","params":{}})"), "");
    EXPECT_EQ(out.str(), "");
    EXPECT_TRUE(server.isRunning());
}

TEST_F(DispatchTest, RequestsAreServedBeforeInitialize) {
    std::string hover = server.handleMessage(
        R"({"id":1,"method":"textDocument/hover","params":{"textDocument":{"uri":"u"},"position":{"line":0,"character":0}}})");
    EXPECT_EQ(hover.rfind(R"({"id":1,"jsonrpc":"2.0","result":)", 0), 0u);
    std::string completion =
        server.handleMessage(R"({"id":2,"method":"textDocument/completion","params":{"textDocument":{"uri":"u"}}})");
    EXPECT_EQ(completion.rfind(R"({"id":2,"jsonrpc":"2.0","result":[)", 0), 0u);
}

TEST_F(DispatchTest, FeatureRequestsReachTheirHandlers) {
    // An unknown document is empty: formatting gives no edits, and the
    // positional features find no word.
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":"textDocument/formatting","params":{"textDocument":{"uri":"u"}}})"),
              R"({"id":1,"jsonrpc":"2.0","result":[]})");
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":"textDocument/definition","params":{"textDocument":{"uri":"u"}}})"),
              nullResult("1"));
    EXPECT_EQ(server.handleMessage(
                  R"({"id":1,"method":"textDocument/rename","params":{"textDocument":{"uri":"u"},"newName":"b"}})"),
              nullResult("1"));
    EXPECT_EQ(server.handleMessage(R"({"id":1,"method":"textDocument/hover","params":{"textDocument":{"uri":"u"}}})"),
              nullResult("1"));
}

TEST_F(DispatchTest, HandlersDoNotWriteResponsesThemselves) {
    server.handleMessage(R"({"id":1,"method":"initialize"})");
    server.handleMessage(R"({"id":2,"method":"textDocument/completion"})");
    EXPECT_EQ(out.str(), "");
}

TEST_F(DispatchTest, HandleShutdownClearsRunningAndReturnsNull) {
    JsonValue result = server.handleShutdown(JsonValue(1));
    EXPECT_EQ(result.type, JsonValue::Type::Null);
    EXPECT_FALSE(server.isRunning());
}
