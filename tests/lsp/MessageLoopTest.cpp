#include <gtest/gtest.h>

#include <sstream>

#include "LspTestSupport.h"

using quor::lsp::LspServer;
using quor::lsp::testing::framed;
using quor::lsp::testing::runSession;

TEST(MessageLoop, RequestGetsAFramedResponse) {
    std::string output = runSession(framed(R"({"jsonrpc":"2.0","id":1,"method":"foo"})"));
    EXPECT_EQ(output, framed(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(MessageLoop, ResponsesComeInArrivalOrder) {
    std::string output = runSession(framed(R"({"id":1,"method":"a"})") + framed(R"({"id":2,"method":"b"})"));
    EXPECT_EQ(output, framed(R"({"id":1,"jsonrpc":"2.0","result":null})") +
                          framed(R"({"id":2,"jsonrpc":"2.0","result":null})"));
}

TEST(MessageLoop, NotificationWritesNothing) {
    EXPECT_EQ(runSession(framed(R"({"jsonrpc":"2.0","method":"initialized","params":{}})")), "");
    EXPECT_EQ(runSession(framed(R"({"method":"$/cancelRequest"})")), "");
}

TEST(MessageLoop, AcceptsBareLineFeedHeaders) {
    std::string body = R"({"id":1})";
    std::string output = runSession("content-length: " + std::to_string(body.size()) + "\n\n" + body);
    EXPECT_EQ(output, framed(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(MessageLoop, WrongCapitalisationStopsTheServerSilently) {
    std::string input = "Content-length: 8\r\n\r\n{\"id\":1}" + framed(R"({"id":2})");
    EXPECT_EQ(runSession(input), "");
}

TEST(MessageLoop, BadSecondLengthHeaderStopsTheServer) {
    std::string input = "Content-Length: 8\r\nContent-Length: x\r\n\r\n{\"id\":1}" + framed(R"({"id":2})");
    EXPECT_EQ(runSession(input), "");
}

TEST(MessageLoop, ZeroLengthStopsTheServer) {
    std::string input = "Content-Length: 0\r\n\r\n" + framed(R"({"id":2})");
    EXPECT_EQ(runSession(input), "");
}

TEST(MessageLoop, LengthWithTrailingJunkIsReadAsItsDigits) {
    std::string body = R"({"id":1})";
    std::string output = runSession("Content-Length: 8abc\r\n\r\n" + body);
    EXPECT_EQ(output, framed(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(MessageLoop, ShortBodyAtEndOfInputIsPaddedAndDispatchedOnce) {
    std::string body = R"({"id":1,"method":"x"})";
    std::string input = "Content-Length: " + std::to_string(body.size() + 10) + "\r\n\r\n" + body;
    EXPECT_EQ(runSession(input), framed(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

// A document whose text string runs into the padding: every zero byte of it
// is text, and each is an unexpected character of its own. Thousands of them
// make one large publication, not a stall (a long fuzz run met this shape).
TEST(MessageLoop, ADocumentCutShortIsPaddedWithZeroBytesEachReportedOnce) {
    const std::string sent =
        R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":"file:///f.quor","text":"x)";
    const std::size_t padding = 5000;
    const std::string output = runSession("Content-Length: " + std::to_string(sent.size() + padding) + "\r\n\r\n" + sent);
    const std::string zeroByte = R"x("message":"Unexpected character: '\u0000' (Remove or replace the invalid character)")x";
    std::size_t reports = 0;
    for (std::size_t at = output.find(zeroByte); at != std::string::npos; at = output.find(zeroByte, at + 1)) ++reports;
    EXPECT_EQ(reports, padding);
    EXPECT_EQ(output.rfind("Content-Length: ", 0), 0u);
    EXPECT_EQ(output.find("Content-Length: ", 1), std::string::npos);
}

TEST(MessageLoop, BodyIsExactlyTheAnnouncedBytes) {
    // Five bytes of a longer text: "{"id"" is an object missing its value.
    std::string input = "Content-Length: 5\r\n\r\n{\"id\":1}";
    EXPECT_EQ(runSession(input), "");
}

TEST(MessageLoop, EndOfInputInsideTheHeaderEndsQuietly) {
    EXPECT_EQ(runSession(""), "");
    EXPECT_EQ(runSession("Content-Len"), "");
    EXPECT_EQ(runSession("Content-Length: 8\r\n"), "");
}

TEST(MessageLoop, ShutdownEndsTheLoopAfterItsResponse) {
    std::string input = framed(R"({"id":1,"method":"shutdown"})") + framed(R"({"id":2,"method":"x"})");
    EXPECT_EQ(runSession(input), framed(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(MessageLoop, ExitNotificationEndsTheLoop) {
    std::string input = framed(R"({"method":"exit"})") + framed(R"({"id":2,"method":"x"})");
    EXPECT_EQ(runSession(input), "");
}

TEST(MessageLoop, ExitRequestDoesNotEndTheLoop) {
    std::string input = framed(R"({"id":1,"method":"exit"})") + framed(R"({"id":2,"method":"x"})");
    EXPECT_EQ(runSession(input), framed(R"({"id":1,"jsonrpc":"2.0","result":null})") +
                                     framed(R"({"id":2,"jsonrpc":"2.0","result":null})"));
}

TEST(MessageLoop, RunDoesNothingOnceStopped) {
    std::istringstream in(framed(R"({"id":2,"method":"x"})"));
    std::ostringstream out;
    LspServer server(in, out);
    EXPECT_EQ(server.handleMessage(R"({"method":"exit"})"), "");
    EXPECT_FALSE(server.isRunning());
    server.run();
    EXPECT_EQ(out.str(), "");
}

TEST(MessageLoop, NotificationOutputGoesOutBeforeTheNextResponse) {
    std::string input = framed(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":""}}})") +
                        framed(R"({"id":1,"method":"x"})");
    EXPECT_EQ(runSession(input),
              framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[],"uri":"u"}})") +
                  framed(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(MessageLoop, ServerFieldsStartRunningAndUninitialized) {
    std::istringstream in;
    std::ostringstream out;
    LspServer server(in, out);
    EXPECT_TRUE(server.isRunning());
    EXPECT_FALSE(server.isInitialized());
    EXPECT_EQ(server.getDocument("anything"), "");
}

TEST(Writers, NotificationShape) {
    std::istringstream in;
    std::ostringstream out;
    LspServer server(in, out);
    quor::lsp::JsonValue params(quor::lsp::JsonValue::Type::Object);
    params["x"] = 1;
    server.sendNotification("window/logMessage", params);
    EXPECT_EQ(out.str(), framed(R"({"jsonrpc":"2.0","method":"window/logMessage","params":{"x":1}})"));
}

TEST(Writers, ResponseShape) {
    std::istringstream in;
    std::ostringstream out;
    LspServer server(in, out);
    server.sendResponse(quor::lsp::JsonValue("a"), quor::lsp::JsonValue());
    EXPECT_EQ(out.str(), framed(R"({"id":"a","jsonrpc":"2.0","result":null})"));
}

TEST(Writers, ErrorShape) {
    std::istringstream in;
    std::ostringstream out;
    LspServer server(in, out);
    server.sendError(quor::lsp::JsonValue(4), -32601, "Method not found");
    EXPECT_EQ(out.str(), framed(R"({"error":{"code":-32601,"message":"Method not found"},"id":4,"jsonrpc":"2.0"})"));
}

TEST(MessageLoop, ShortBodyIsPaddedWithNulBytes) {
    // The string id is cut off by the end of input; the three NUL bytes of
    // padding become part of it and are escaped on the way out.
    std::string body = R"({"id":"ab)";
    std::string input = "Content-Length: ";
    input.append(std::to_string(body.size() + 3)).append("\r\n\r\n").append(body);
    EXPECT_EQ(runSession(input), framed(R"({"id":"ab\u0000\u0000\u0000","jsonrpc":"2.0","result":null})"));
}

TEST(MessageLoop, EveryResponseIsFlushedBeforeTheNextHeaderIsRead) {
    // The input ends in the middle of a header block: the answer to the first
    // message is already out when the loop gives up.
    std::istringstream in(framed(R"({"id":1,"method":"x"})") + "Content-Length: 9\r\n");
    std::ostringstream out;
    LspServer server(in, out);
    server.run();
    EXPECT_EQ(out.str(), framed(R"({"id":1,"jsonrpc":"2.0","result":null})"));
    EXPECT_TRUE(server.isRunning());
}

TEST(MessageLoop, MessagesAfterAShortBodyAreNeverRead) {
    // A length larger than the body swallows the next frame into the body.
    std::string body = R"({"id":1,"method":"x"})";
    std::string input = "Content-Length: ";
    input.append(std::to_string(body.size() + 5)).append("\r\n\r\n").append(body).append(framed(R"({"id":2})"));
    EXPECT_EQ(runSession(input), framed(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}
