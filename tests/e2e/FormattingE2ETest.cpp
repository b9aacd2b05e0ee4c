#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "e2e/ServerProcess.h"

using quor::e2e::frame;
using quor::e2e::ProcessResult;
using quor::e2e::expectCleanExit;
using quor::e2e::runServer;
using quor::e2e::splitFramed;

namespace {

// Opens `textJson` (already a JSON string literal) under `uri`, asks with id 2
// to format file:///main.quor with the given client options, then shuts down.
std::string session(const std::string& uri, const std::string& textJson, const std::string& options) {
    std::string open = R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":")";
    open.append(uri).append(R"(","languageId":"quor","version":1,"text":)").append(textJson).append("}}}");
    std::string request = R"({"jsonrpc":"2.0","id":2,"method":"textDocument/formatting","params":{"textDocument":{"uri":")";
    request.append("file:///main.quor").append(R"("},"options":)").append(options).append("}}");
    std::string input = frame(R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{}})");
    input.append(frame(R"({"jsonrpc":"2.0","method":"initialized","params":{}})"));
    input.append(frame(open));
    input.append(frame(request));
    input.append(frame(R"({"jsonrpc":"2.0","id":3,"method":"shutdown"})"));
    input.append(frame(R"({"jsonrpc":"2.0","method":"exit"})"));
    return input;
}

// The body of the answer to request 2.
std::string formattingAnswer(const ProcessResult& result) {
    for (const std::string& body : splitFramed(result.out)) {
        if (body.rfind(R"({"id":2,)", 0) == 0) return body;
    }
    return "<no answer>";
}

std::string answerWithEdit(int line, int character, const std::string& newTextJson) {
    std::string text = R"({"id":2,"jsonrpc":"2.0","result":[{"newText":)";
    text.append(newTextJson)
        .append(R"(,"range":{"end":{"character":)")
        .append(std::to_string(character))
        .append(R"(,"line":)")
        .append(std::to_string(line))
        .append(R"(},"start":{"character":0,"line":0}}}]})");
    return text;
}


const std::string DEFAULT_OPTIONS = R"({"tabSize":4,"insertSpaces":true})";

}  // namespace

TEST(FormattingE2E, FormatsAnOpenDocument) {
    ProcessResult result = runServer(session("file:///main.quor", R"("if(a){b();}else{c();}\n")", DEFAULT_OPTIONS));
    expectCleanExit(result);
    EXPECT_EQ(formattingAnswer(result), answerWithEdit(1, 0, R"("if (a) {\n    b();\n} else {\n    c();\n}\n")"));
}

TEST(FormattingE2E, ClientTabSizeChangesNothing) {
    ProcessResult result =
        runServer(session("file:///main.quor", R"("{x;}")", R"({"tabSize":2,"insertSpaces":false})"));
    expectCleanExit(result);
    EXPECT_EQ(formattingAnswer(result), answerWithEdit(0, 4, R"("{\n    x;\n}\n")"));
}

TEST(FormattingE2E, UnknownDocumentGivesEmptyArray) {
    ProcessResult result = runServer(session("file:///other.quor", R"("x=1;")", DEFAULT_OPTIONS));
    expectCleanExit(result);
    EXPECT_EQ(formattingAnswer(result), R"({"id":2,"jsonrpc":"2.0","result":[]})");
}

TEST(FormattingE2E, RejectedTextComesBackUnchanged) {
    ProcessResult result = runServer(session("file:///main.quor", R"("x  =  #;\ny=1;")", DEFAULT_OPTIONS));
    expectCleanExit(result);
    EXPECT_EQ(formattingAnswer(result), answerWithEdit(1, 4, R"("x  =  #;\ny=1;")"));
}

TEST(FormattingE2E, KeepsTheOddSpacingOfTheFixedRules) {
    ProcessResult result = runServer(session(
        "file:///main.quor", R"("class Foo extends Bar {}\nfoo()();\nprint(\"hi\");\na;-x;\n\n\n\nf(a, -b);\n")",
        DEFAULT_OPTIONS));
    expectCleanExit(result);
    EXPECT_EQ(formattingAnswer(result),
              answerWithEdit(8, 0, R"("class Fooextends Bar {\n}\nfoo() ();\nprint(hi);\na;\n- x;\n\nf(a,-b);\n")"));
}

TEST(FormattingE2E, FormattingAfterAChangeUsesTheNewText) {
    std::string change =
        R"({"jsonrpc":"2.0","method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///main.quor","version":2},"contentChanges":[{"text":"a=-b;"}]}})";
    std::string input = frame(R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":"file:///main.quor","text":"old;"}}})");
    input.append(frame(change));
    input.append(frame(
        R"({"jsonrpc":"2.0","id":2,"method":"textDocument/formatting","params":{"textDocument":{"uri":"file:///main.quor"}}})"));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(formattingAnswer(result), answerWithEdit(0, 5, R"("a = -b;\n")"));
}

TEST(FormattingE2E, MultiLineProgramWithCarriageReturns) {
    // A line comment runs up to the line feed, so the carriage return before
    // it stays in the comment's text; everywhere else it is white space.
    ProcessResult result = runServer(session(
        "file:///main.quor",
        R"("/// Entry.\r\nfn main() {\r\n  let n = s?.name() ?? \"none\"; // who\r\n  for(var i=0;i<3;i++){ print(-i); }\r\n}\r")",
        DEFAULT_OPTIONS));
    expectCleanExit(result);
    EXPECT_EQ(formattingAnswer(result),
              answerWithEdit(4, 2,
                             R"("/// Entry.\r\nfn main() {\n    let n = s?.name() ?? none;\n    // who\r\n    for (var i = 0; i < 3; i++) {\n        print(-i);\n    }\n}\n")"));
}

TEST(FormattingE2E, EndCharacterCountsBytes) {
    ProcessResult result = runServer(session("file:///main.quor", "\"x;\\n// \xC3\xA9\xC3\xA9\"", DEFAULT_OPTIONS));
    expectCleanExit(result);
    EXPECT_EQ(formattingAnswer(result), answerWithEdit(1, 7, "\"x;\\n// \xC3\xA9\xC3\xA9\\n\""));
}
