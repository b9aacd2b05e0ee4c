#include <gtest/gtest.h>

#include <csignal>

#include "e2e/ServerProcess.h"

using quor::e2e::frame;
using quor::e2e::ProcessResult;
using quor::e2e::expectCleanExit;
using quor::e2e::runServer;
using quor::e2e::splitFramed;

namespace {

const std::string INITIALIZE_RESPONSE =
    R"({"id":1,"jsonrpc":"2.0","result":{"capabilities":{"completionProvider":{"resolveProvider":false,)"
    R"("triggerCharacters":[".",":",">"]},"definitionProvider":true,"documentFormattingProvider":true,)"
    R"("hoverProvider":true,"renameProvider":true,"textDocumentSync":1},)"
    R"("serverInfo":{"name":"quorls","version":"1.0.0"}}})";


void expectAbnormalEnd(const ProcessResult& result) {
    EXPECT_FALSE(result.timedOut);
    EXPECT_FALSE(result.exited && result.exitStatus == 0);
    EXPECT_EQ(result.err, "");
}

}  // namespace

TEST(ServerSession, InitializeInitializedShutdown) {
    std::string input = frame(R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{"processId":1,"rootUri":null,"capabilities":{}}})") +
                        frame(R"({"jsonrpc":"2.0","method":"initialized","params":{}})") +
                        frame(R"({"jsonrpc":"2.0","id":2,"method":"shutdown"})") +
                        frame(R"({"jsonrpc":"2.0","method":"exit"})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(INITIALIZE_RESPONSE) + frame(R"({"id":2,"jsonrpc":"2.0","result":null})"));
}

TEST(ServerSession, ShutdownStopsWithoutWaitingForExit) {
    std::string input = frame(R"({"id":1,"method":"shutdown"})") + frame(R"({"id":2,"method":"initialize"})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(ServerSession, EndOfInputEndsQuietly) {
    ProcessResult empty = runServer("");
    expectCleanExit(empty);
    EXPECT_EQ(empty.out, "");

    ProcessResult afterMessage = runServer(frame(R"({"id":1,"method":"initialize"})"));
    expectCleanExit(afterMessage);
    EXPECT_EQ(afterMessage.out, frame(INITIALIZE_RESPONSE));

    ProcessResult insideHeader = runServer("Content-Length: 40\r\n");
    expectCleanExit(insideHeader);
    EXPECT_EQ(insideHeader.out, "");
}

TEST(ServerSession, ShortBodyAtEndOfInputIsAnsweredOnce) {
    std::string body = R"({"id":9,"method":"x"})";
    ProcessResult result = runServer("Content-Length: " + std::to_string(body.size() + 50) + "\r\n\r\n" + body);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(R"({"id":9,"jsonrpc":"2.0","result":null})"));
}

TEST(ServerSession, BrokenHeaderStopsTheServerSilently) {
    std::string input = frame(R"({"id":1,"method":"x"})") + "Content-length: 21\r\n\r\n" +
                        R"({"id":2,"method":"x"})" + frame(R"({"id":3,"method":"x"})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(ServerSession, UnreadableLengthStopsTheServer) {
    std::string input = "Content-Length: 21\r\nContent-Length: none\r\n\r\n" + std::string(R"({"id":2,"method":"x"})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, "");
}

TEST(ServerSession, ExitNotificationEndsTheServer) {
    std::string input = frame(R"({"jsonrpc":"2.0","method":"exit"})") + frame(R"({"id":1,"method":"x"})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, "");
}

TEST(ServerSession, ExitRequestIsAnsweredAndTheServerGoesOn) {
    std::string input = frame(R"({"id":1,"method":"exit"})") + frame(R"({"id":2,"method":"x"})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(R"({"id":1,"jsonrpc":"2.0","result":null})") +
                              frame(R"({"id":2,"jsonrpc":"2.0","result":null})"));
}

TEST(ServerSession, DidOpenWithALexicalErrorPublishesIt) {
    std::string input =
        frame(R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":"file:///w/a.quor","languageId":"quor","version":1,"text":"fn main() {\n    let s = \"abc\n}\n"}}})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out,
              frame(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)"
                    R"j({"code":"E1000","message":"Unclosed string literal before newline (Close the string with a double quote '\"')",)j"
                    R"("range":{"end":{"character":13,"line":1},"start":{"character":12,"line":1}},"severity":1,"source":"quorls"}],)"
                    R"("uri":"file:///w/a.quor"}})"));
}

TEST(ServerSession, ChangeThatFixesTheErrorClearsTheList) {
    std::string input =
        frame(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"let s = 'ab';"}}})") +
        frame(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"u","version":2},"contentChanges":[{"text":"let s = 'a';"}]}})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 2u);
    EXPECT_NE(bodies[0].find("Unclosed character literal"), std::string::npos);
    EXPECT_EQ(bodies[1], R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[],"uri":"u"}})");
}

TEST(ServerSession, DeeplyNestedArrayBodyDoesNotCrash) {
    std::string body(200000, '[');
    ProcessResult result = runServer(frame(body) + frame(R"({"id":1,"method":"x"})"));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(ServerSession, DeeplyNestedObjectBodyDoesNotCrash) {
    std::string body;
    for (int i = 0; i < 100000; ++i) body += R"({"a":)";
    ProcessResult result = runServer(frame(body) + frame(R"({"id":1,"method":"x"})"));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(ServerSession, DeeplyNestedIdIsEchoedWhole) {
    const std::size_t depth = 100000;
    std::string id = std::string(depth, '[') + std::string(depth, ']');
    ProcessResult result = runServer(frame(R"({"method":"x","id":)" + id + "}"));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(R"({"id":)" + id + R"(,"jsonrpc":"2.0","result":null})"));
}

TEST(ServerSession, NegativeLengthEndsTheProcessAbnormallyAndSilently) {
    ProcessResult result = runServer("Content-Length: -1\r\n\r\n{}");
    expectAbnormalEnd(result);
    EXPECT_EQ(result.out, "");
}

TEST(ServerSession, NumberWithoutDigitsEndsTheProcessAbnormallyAndSilently) {
    ProcessResult result = runServer(frame(R"({"id":-,"method":"x"})") + frame(R"({"id":1,"method":"x"})"));
    expectAbnormalEnd(result);
    EXPECT_EQ(result.out, "");
}

TEST(ServerSession, ManyMessagesInOneStream) {
    std::string input;
    std::string expected;
    for (int i = 0; i < 200; ++i) {
        input += frame(R"({"id":)" + std::to_string(i) + R"(,"method":"unknown"})");
        expected += frame(R"({"id":)" + std::to_string(i) + R"(,"jsonrpc":"2.0","result":null})");
    }
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, expected);
}

TEST(ServerSession, DidOpenWithASyntaxErrorPublishesIt) {
    std::string input =
        frame(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"file:///w/b.quor","text":"fn main() {\n    return 1\n}\n"}}})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out,
              frame(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)"
                    R"({"code":"E1000","message":"Expected ';' after return statement",)"
                    R"("range":{"end":{"character":1,"line":2},"start":{"character":0,"line":2}},"severity":1,"source":"quorls"}],)"
                    R"("uri":"file:///w/b.quor"}})"));
}

TEST(ServerSession, LexicalErrorHidesTheSyntaxErrors) {
    std::string input =
        frame(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"let x = ;\nlet y = 1 # 2;"}}})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 1u);
    EXPECT_EQ(bodies[0],
              R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)"
              R"j({"code":"E1000","message":"Unexpected character: '#' (Remove or replace the invalid character)",)j"
              R"("range":{"end":{"character":11,"line":1},"start":{"character":10,"line":1}},"severity":1,"source":"quorls"}],)"
              R"("uri":"u"}})");
}

TEST(ServerSession, FixingTheLexicalErrorRevealsTheSyntaxError) {
    std::string input =
        frame(R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"let x = ;\nlet y = 1 # 2;"}}})") +
        frame(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"u"},"contentChanges":[{"text":"let x = ;\nlet y = 1 + 2;"}]}})");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 2u);
    EXPECT_NE(bodies[0].find("Unexpected character: '#'"), std::string::npos);
    EXPECT_EQ(bodies[0].find("Expected expression"), std::string::npos);
    EXPECT_NE(bodies[1].find(R"("message":"Expected expression, found: ;")"), std::string::npos);
}

TEST(ServerSession, HalfTypedDocumentsNeverStopTheServer) {
    // Every prefix of a small program is sent as a change, as an editor
    // would while the user types it; each gets its own publication.
    const std::string program = "class A { int x; fn f(int a): int { return a + x; } }\ntest \"t\" { let a = new A(); }\n";
    std::string input;
    for (std::size_t length = 0; length <= program.size(); ++length) {
        std::string text;
        for (char c : program.substr(0, length)) {
            if (c == '"') text += "\\\"";
            else if (c == '\n') text += "\\n";
            else text += c;
        }
        std::string body = R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"u"},"contentChanges":[{"text":")";
        body.append(text).append(R"("}]}})");
        input += frame(body);
    }
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(splitFramed(result.out).size(), program.size() + 1);
}

TEST(ServerSession, DeepButFiniteNestingParsesWithoutAReport) {
    // The server parses on a large stack: thousands of levels are no reason
    // to give up on a document.
    const std::size_t depth = 5000;
    std::string text = "let x = ";
    text.append(depth, '(').append("1").append(depth, ')').append(";\\nfn f() ");
    text.append(depth, '{').append(depth, '}');
    std::string body = R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":")";
    body.append(text).append(R"("}}})");
    ProcessResult result = runServer(frame(body));
    expectCleanExit(result);
    EXPECT_EQ(result.out,
              frame(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[],"uri":"u"}})"));
}

TEST(ServerSession, AbsurdNestingIsReportedOnceAndTheServerGoesOn) {
    const std::size_t depth = 1000000;
    std::string text = "let x = ";
    text.append(depth, '(').append("1").append(depth, ')').append(";");
    std::string body = R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":")";
    body.append(text).append(R"("}}})");
    ProcessResult result = runServer(frame(body) + frame(R"({"id":1,"method":"shutdown"})"));
    expectCleanExit(result);
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 2u);
    EXPECT_NE(bodies[0].find(R"("message":"Source nested too deeply")"), std::string::npos);
    EXPECT_EQ(bodies[1], R"({"id":1,"jsonrpc":"2.0","result":null})");
}
