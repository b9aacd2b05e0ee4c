// The server's reading and writing of the wire, driven through the real
// binary: header forms and their odd corners, the lax JSON reader as it
// shows in echoed ids and stored texts, and the lifecycle messages.
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


// The body of the answer to an unknown request with the given id text.
std::string nullAnswer(const std::string& idJson) {
    std::string body = R"({"id":)";
    body.append(idJson).append(R"(,"jsonrpc":"2.0","result":null})");
    return body;
}

// An unknown request whose id is written as `idJson`, byte for byte.
std::string requestWithId(const std::string& idJson) {
    std::string body = R"({"jsonrpc":"2.0","id":)";
    body.append(idJson).append(R"(,"method":"wire/echo"})");
    return body;
}

// Sends one request with the id written as given and returns what came back.
ProcessResult echoId(const std::string& idJson) { return runServer(frame(requestWithId(idJson))); }

std::string didOpen(const std::string& uri, const std::string& textJson) {
    std::string body = R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":")";
    body.append(uri).append(R"(","languageId":"quor","version":1,"text":)").append(textJson).append("}}}");
    return body;
}

std::string formattingRequest(int id, const std::string& uri) {
    std::string body = R"({"jsonrpc":"2.0","id":)";
    body.append(std::to_string(id))
        .append(R"(,"method":"textDocument/formatting","params":{"textDocument":{"uri":")")
        .append(uri)
        .append(R"("},"options":{"tabSize":4,"insertSpaces":true}}})");
    return body;
}

std::string publication(const std::string& uri, const std::string& diagnosticsJson) {
    std::string body = R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)";
    body.append(diagnosticsJson).append(R"(],"uri":")").append(uri).append(R"("}})");
    return body;
}

std::string diagnosticJson(int line, int character, const std::string& messageJson) {
    std::string body = R"({"code":"E1000","message":)";
    body.append(messageJson)
        .append(R"(,"range":{"end":{"character":)")
        .append(std::to_string(character + 1))
        .append(R"(,"line":)")
        .append(std::to_string(line))
        .append(R"(},"start":{"character":)")
        .append(std::to_string(character))
        .append(R"(,"line":)")
        .append(std::to_string(line))
        .append(R"(}},"severity":1,"source":"quorls"})");
    return body;
}

const std::string UNEXPECTED_HASH = R"m("Unexpected character: '#' (Remove or replace the invalid character)")m";

// The answer to a formatting request whose one edit replaces the document
// up to `line`:`character` with `newTextJson`.
std::string singleEdit(int id, int line, int character, const std::string& newTextJson) {
    std::string body = R"({"id":)";
    body.append(std::to_string(id))
        .append(R"(,"jsonrpc":"2.0","result":[{"newText":)")
        .append(newTextJson)
        .append(R"(,"range":{"end":{"character":)")
        .append(std::to_string(character))
        .append(R"(,"line":)")
        .append(std::to_string(line))
        .append(R"(},"start":{"character":0,"line":0}}}]})");
    return body;
}

const std::string PLAIN_BODY = R"({"id":1,"method":"x"})";  // 21 bytes
const std::string PLAIN_ANSWER = R"({"id":1,"jsonrpc":"2.0","result":null})";

std::string withHeader(const std::string& header, const std::string& body) {
    std::string text = header;
    text.append(body);
    return text;
}

}  // namespace

// ---- header forms ----

TEST(WireHeaders, StandardHeaderWithCarriageReturns) {
    ProcessResult result = runServer(withHeader("Content-Length: 21\r\n\r\n", PLAIN_BODY));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireHeaders, LowerCaseHeaderWithBareLineFeeds) {
    ProcessResult result = runServer(withHeader("content-length: 21\n\n", PLAIN_BODY));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireHeaders, BareAndFullLineEndsMayBeMixed) {
    std::string input = withHeader("Content-Length: 21\n\r\n", PLAIN_BODY);
    input.append(withHeader("Content-Length: 21\r\n\n", PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER) + frame(PLAIN_ANSWER));
}

TEST(WireHeaders, MixedCapitalisationStopsTheServerSilently) {
    std::string input = withHeader("Content-length: 21\r\n\r\n", PLAIN_BODY);
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, "");
}

TEST(WireHeaders, UpperCaseHeaderStopsTheServerSilently) {
    std::string input = withHeader("CONTENT-LENGTH: 21\r\n\r\n", PLAIN_BODY);
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, "");
}

TEST(WireHeaders, ContentTypeAndUnknownHeadersAreSkipped) {
    std::string input = withHeader(
        "Content-Type: application/vscode-jsonrpc; charset=utf-8\r\nContent-Length: 21\r\nX-Other: 99\r\nab\r\n\r\n",
        PLAIN_BODY);
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireHeaders, ValueWithTrailingLettersReadsAsItsDigits) {
    std::string body = R"({"id":12345})";  // 12 bytes
    ProcessResult result = runServer(withHeader("Content-Length: 12abc\r\n\r\n", body));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer("12345")));
}

TEST(WireHeaders, LeadingBlanksBeforeTheValueAreSkipped) {
    std::string body = R"({"id":7)";  // 7 bytes, the closing brace missing
    ProcessResult result = runServer(withHeader("Content-Length:    7\r\n\r\n", body));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer("7")));
}

TEST(WireHeaders, NoBlankAfterTheColonAndAPlusSignAreAccepted) {
    std::string input = withHeader("Content-Length:21\r\n\r\n", PLAIN_BODY);
    input.append(withHeader("Content-Length: +21\r\n\r\n", PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER) + frame(PLAIN_ANSWER));
}

TEST(WireHeaders, LastOfSeveralLengthHeadersWins) {
    std::string input = withHeader("Content-Length: 3\r\ncontent-length: 21\r\n\r\n", PLAIN_BODY);
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireHeaders, FailingSecondLengthHeaderStopsTheServer) {
    std::string input = withHeader("Content-Length: 21\r\nContent-Length: x\r\n\r\n", PLAIN_BODY);
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, "");
}

TEST(WireHeaders, GoodLengthAfterAFailingOneIsUsed) {
    std::string input = withHeader("Content-Length: x\r\nContent-Length: 21\r\n\r\n", PLAIN_BODY);
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireHeaders, OutOfRangeLengthStopsTheServer) {
    std::string input = withHeader("Content-Length: 123456789012345678901234567890\r\n\r\n", PLAIN_BODY);
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, "");
}

TEST(WireHeaders, ZeroLengthStopsTheServerAfterEarlierAnswers) {
    std::string input = frame(PLAIN_BODY);
    input.append("Content-Length: 0\r\n\r\n");
    input.append(frame(R"({"id":2,"method":"x"})"));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireHeaders, BlockWithoutAnyLengthStopsTheServer) {
    std::string input = withHeader("Content-Type: application/json\r\n\r\n", PLAIN_BODY);
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, "");
}

TEST(WireHeaders, HeaderBlockCutOffByEndOfInputEndsQuietly) {
    std::string input = frame(PLAIN_BODY);
    input.append("Content-Length: 21");
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireHeaders, LengthCountsBytesOfRawUtf8) {
    std::string body = "{\"id\":\"\xC3\xA9\xE2\x82\xAC\",\"method\":\"x\"}";
    std::string input = "Content-Length: ";
    input.append(std::to_string(body.size())).append("\r\n\r\n").append(body);
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::string answer = nullAnswer("\"\xC3\xA9\xE2\x82\xAC\"");
    EXPECT_EQ(result.out, frame(answer));
    // The written count is bytes too: two bytes for the e-acute, three for the euro sign.
    std::string header = "Content-Length: ";
    header.append(std::to_string(answer.size())).append("\r\n\r\n");
    EXPECT_EQ(result.out.rfind(header, 0), 0u);
}

// ---- bodies ----

TEST(WireBodies, ShortBodyAtEndOfInputIsDispatchedOnce) {
    std::string input = withHeader("Content-Length: 400\r\n\r\n", PLAIN_BODY);
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireBodies, ShortBodyIsPaddedWithNulBytesThatShowInTheAnswer) {
    // The id string is cut off by the end of input; the two bytes of padding
    // become part of it and come back escaped.
    std::string body = R"({"id":"cut)";
    std::string input = "Content-Length: ";
    input.append(std::to_string(body.size() + 2)).append("\r\n\r\n").append(body);
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer(R"("cut\u0000\u0000")")));
}

TEST(WireBodies, NumberOutOfRangeEndsTheProcessAbnormallyAndSilently) {
    std::string input = frame(PLAIN_BODY);
    input.append(frame(R"({"id":1e999,"method":"x"})"));
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    EXPECT_FALSE(result.timedOut);
    EXPECT_FALSE(result.exited && result.exitStatus == 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireBodies, BodyIsExactlyTheAnnouncedBytesAndTheRestIsTheNextHeader) {
    // The first message is the eight bytes {"id":3}; what follows is framed on its own.
    std::string input = withHeader("Content-Length: 8\r\n\r\n", R"({"id":3})");
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer("3")) + frame(PLAIN_ANSWER));
}

TEST(WireBodies, BodyThatIsNotAnObjectGetsNoAnswerAndTheServerGoesOn) {
    std::string input = frame("[1,2]");
    input.append(frame("garbage"));
    input.append(frame(R"("id")"));
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireBodies, NotificationsAloneWriteNothing) {
    std::string input = frame(R"({"jsonrpc":"2.0","method":"initialized","params":{}})");
    input.append(frame(R"({"jsonrpc":"2.0","method":"$/cancelRequest","params":{"id":1}})"));
    input.append(frame(R"({"jsonrpc":"2.0","method":"textDocument/didClose","params":{"textDocument":{"uri":"u"}}})"));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, "");
}

TEST(WireBodies, TextBehindTheFirstValueIsIgnored) {
    ProcessResult result = runServer(frame(R"({"id":1,"method":"x"} {"id":2,"method":"x"})"));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireBodies, ObjectWithoutCommasOrColonsIsStillDispatched) {
    ProcessResult result = runServer(frame(R"({"id" 4 "method" "shutdown")"));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer("4")));
}

// ---- ids ----

TEST(WireIds, NumberWithNegativeExponentEndsBeforeItsMinusSign) {
    // 1e-5 reads as 1e, that is 1; the "-5" behind it is junk between members.
    ProcessResult result = echoId("1e-5");
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer("1")));
}

TEST(WireIds, NumbersAreWrittenAsIntegersOrWithSixSignificantDigits) {
    struct Case {
        const char* sent;
        const char* echoed;
    };
    const Case cases[] = {
        {"0", "0"},
        {"-0", "0"},
        {"-0.0", "0"},
        {"42", "42"},
        {"-17", "-17"},
        {"007", "7"},
        {"2.50", "2.5"},
        {"1e2", "100"},
        {"1E+2", "100"},
        {"1.5e3", "1500"},
        {"0.1", "0.1"},
        {"1.2.3", "1.2"},
        {"1234567.5", "1.23457e+06"},
        {"0.000123456789", "0.000123457"},
        {"1e20", "1e+20"},
        {"1e19", "1e+19"},
        {"9223372036854775807", "9.22337e+18"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"9007199254740993", "9007199254740992"},
        {"3.99999999", "4"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.sent);
        ProcessResult result = echoId(c.sent);
        expectCleanExit(result);
        EXPECT_EQ(result.out, frame(nullAnswer(c.echoed)));
    }
}

TEST(WireIds, StringIdsAreEchoedWithTheWritersEscapes) {
    // Raw tab and control bytes are escaped on the way out; an escaped slash
    // comes back bare; raw DEL and UTF-8 pass as they are.
    std::string sent = "\"a\\\"b\\\\c\\/d\te\x01\x7f\xC3\xA9\\n\"";
    std::string echoed = "\"a\\\"b\\\\c/d\\te\\u0001\x7f\xC3\xA9\\n\"";
    ProcessResult result = echoId(sent);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer(echoed)));
}

TEST(WireIds, UnicodeEscapesInIdsBecomeQuestionMarks) {
    ProcessResult result = echoId(R"("\u00e9x\ud83d\ude00")");
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer(R"("?x??")")));
}

TEST(WireIds, UnknownEscapeKeepsTheByteWithoutTheBackslash) {
    ProcessResult result = echoId(R"("\q\b\f\r")");
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer(R"("q\b\f\r")")));
}

TEST(WireIds, IdsOfEveryKindAreEchoed) {
    struct Case {
        const char* sent;
        const char* echoed;
    };
    const Case cases[] = {
        {R"("abc")", R"("abc")"},
        {R"("")", R"("")"},
        {"false", "false"},
        {"true", "true"},
        {"trueblue", "true"},
        {"[]", "[]"},
        {R"([1, "a", null, [true]])", R"([1,"a",null,[true]])"},
        {R"([1 2,,3])", "[1,2,3]"},
        {R"({})", "{}"},
        {R"({"b": 1, "a": {"d": 2, "c": 3}})", R"({"a":{"c":3,"d":2},"b":1})"},
        {R"({"k":1,"k":2})", R"({"k":2})"},
        {"[1e-5]", "[1,-5]"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.sent);
        ProcessResult result = echoId(c.sent);
        expectCleanExit(result);
        EXPECT_EQ(result.out, frame(nullAnswer(c.echoed)));
    }
}

TEST(WireIds, ObjectKeysAreWrittenRawEvenWhenThatBreaksTheJson) {
    ProcessResult result = echoId(R"({"a\"b":"a\"b"})");
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer(R"({"a"b":"a\"b"})")));
}

TEST(WireIds, IdWithoutAnyValueMakesANotification) {
    // A plus sign starts no value: the id is null and nothing is answered.
    std::string input = frame(R"({"id":+1,"method":"x"})");
    input.append(frame(R"({"id":null,"method":"x"})"));
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireIds, MessageWithOnlyAnIdIsAnsweredAsAnUnknownRequest) {
    std::string input = frame(R"({"id":7})");
    input.append(frame(R"({"jsonrpc":"2.0","id":"r","result":{"applied":true}})"));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer("7")) + frame(nullAnswer(R"("r")")));
}

// ---- lifecycle ----

TEST(WireLifecycle, ShutdownWithIdZeroIsAnsweredAndStopsTheServer) {
    std::string input = frame(R"({"jsonrpc":"2.0","id":0,"method":"shutdown"})");
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer("0")));
}

TEST(WireLifecycle, ShutdownWithStringIdIsAnsweredAndStopsTheServer) {
    std::string input = frame(R"({"id":"s","method":"shutdown","params":null})");
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(nullAnswer(R"("s")")));
}

TEST(WireLifecycle, ShutdownWithNullIdDoesNothing) {
    std::string input = frame(R"({"jsonrpc":"2.0","id":null,"method":"shutdown"})");
    input.append(frame(R"({"jsonrpc":"2.0","method":"shutdown"})"));
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER));
}

TEST(WireLifecycle, ExitWithAnIdIsAnUnknownRequest) {
    std::string input = frame(R"({"id":1,"method":"exit"})");
    input.append(frame(R"({"id":2,"method":"exit"})"));
    input.append(frame(R"({"method":"exit"})"));
    input.append(frame(R"({"id":3,"method":"x"})"));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(PLAIN_ANSWER) + frame(nullAnswer("2")));
}

TEST(WireLifecycle, ExitWithNullIdStopsTheServer) {
    std::string input = frame(R"({"id":null,"method":"exit"})");
    input.append(frame(PLAIN_BODY));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, "");
}

TEST(WireLifecycle, RequestsBeforeInitializeAreServed) {
    std::string input = frame(R"({"id":1,"method":"textDocument/formatting","params":{"textDocument":{"uri":"u"}}})");
    input.append(frame(R"({"id":2,"method":"initialize"})"));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 2u);
    EXPECT_EQ(bodies[0], R"({"id":1,"jsonrpc":"2.0","result":[]})");
    EXPECT_EQ(bodies[1].rfind(R"({"id":2,"jsonrpc":"2.0","result":{"capabilities":)", 0), 0u);
}

// ---- document texts ----

TEST(WireDocuments, TextWithCrLfAndTabsIsPlacedByBytesAndLineFeeds) {
    // Only a line feed starts a line; a carriage return and a tab are one
    // byte each. The '#' stands on line 2 at byte 10.
    std::string input =
        frame(didOpen("file:///w/crlf.quor", R"("fn main() {\r\n\tlet x = #;\r\n}\r\n")"));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(publication("file:///w/crlf.quor", diagnosticJson(1, 9, UNEXPECTED_HASH))));
}

TEST(WireDocuments, RawTabsAndCarriageReturnsInsideTheJsonStringAreKept) {
    std::string text = "\"\t\t#\r\n\r#\"";  // raw bytes, not escapes
    ProcessResult result = runServer(frame(didOpen("file:///w/raw.quor", text)));
    expectCleanExit(result);
    std::string expected = diagnosticJson(0, 2, UNEXPECTED_HASH);
    expected.append(",").append(diagnosticJson(1, 1, UNEXPECTED_HASH));
    EXPECT_EQ(result.out, frame(publication("file:///w/raw.quor", expected)));
}

TEST(WireDocuments, UnicodeEscapesInTheTextAreStoredAsQuestionMarks) {
    // The scanner error keeps the formatter from touching the text, so the
    // edit hands back the stored text: "# " then one '?' per escape.
    std::string input = frame(didOpen("file:///w/u.quor", R"("# \u00e9\ud83d\ude00")"));
    input.append(frame(formattingRequest(2, "file:///w/u.quor")));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 2u);
    EXPECT_EQ(bodies[1], singleEdit(2, 0, 5, R"("# ???")"));
}

TEST(WireDocuments, RawUtf8InTheTextIsKeptAndCountedInBytes) {
    std::string input = frame(didOpen("file:///w/utf8.quor", "\"\xC3\xA9#\""));
    input.append(frame(formattingRequest(2, "file:///w/utf8.quor")));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 2u);
    // Two bytes of the e-acute each get their own report, then the '#' at byte 2.
    EXPECT_NE(bodies[0].find(diagnosticJson(0, 2, UNEXPECTED_HASH)), std::string::npos);
    EXPECT_EQ(bodies[1], singleEdit(2, 0, 3, "\"\xC3\xA9#\""));
}

TEST(WireDocuments, ShortUnicodeEscapeAtTheEndOfACutBodyIsDropped) {
    // The body ends inside the text, two bytes behind a \u: the escape gives
    // nothing and the two bytes are read on as text.
    std::string open = R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"cut","text":"#\uab)";
    std::string input = frame(open);
    input.append(frame(formattingRequest(2, "cut")));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 2u);
    EXPECT_EQ(bodies[0], publication("cut", diagnosticJson(0, 0, UNEXPECTED_HASH)));
    EXPECT_EQ(bodies[1], singleEdit(2, 0, 3, R"("#ab")"));
}

TEST(WireDocuments, ChangeWithEmptyChangesPublishesNothingAndCloseSendsNothing) {
    std::string input = frame(didOpen("file:///w/c.quor", R"("#")"));
    input.append(frame(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///w/c.quor"},"contentChanges":[]}})"));
    input.append(frame(R"({"method":"textDocument/didClose","params":{"textDocument":{"uri":"file:///w/c.quor"}}})"));
    input.append(frame(formattingRequest(2, "file:///w/c.quor")));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::string expected = frame(publication("file:///w/c.quor", diagnosticJson(0, 0, UNEXPECTED_HASH)));
    expected.append(frame(R"({"id":2,"jsonrpc":"2.0","result":[]})"));
    EXPECT_EQ(result.out, expected);
}

TEST(WireDocuments, OnlyTheFirstChangeCountsAndEachChangePublishesOnce) {
    std::string input = frame(didOpen("file:///w/d.quor", R"("")"));
    input.append(frame(
        R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///w/d.quor","version":2},)"
        R"("contentChanges":[{"range":{"start":{"line":0,"character":0},"end":{"line":0,"character":0}},"text":"\n #"},{"text":"#"}]}})"));
    input.append(frame(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///w/d.quor"},"contentChanges":[{}]}})"));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::string expected = frame(publication("file:///w/d.quor", ""));
    expected.append(frame(publication("file:///w/d.quor", diagnosticJson(1, 1, UNEXPECTED_HASH))));
    expected.append(frame(publication("file:///w/d.quor", "")));
    EXPECT_EQ(result.out, expected);
}

TEST(WireDocuments, OpenWithoutUriOrTextPublishesForTheEmptyUri) {
    ProcessResult result = runServer(frame(R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{}})"));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(publication("", "")));
}

TEST(WireDocuments, UriIsKeptAsSentAndEscapedOnlyAsAStringValue) {
    // The escaped backslash is stored as one backslash and written back escaped.
    std::string input = frame(didOpen(R"(file:///C:\\w\\a b.quor)", R"("#")"));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(publication(R"(file:///C:\\w\\a b.quor)", diagnosticJson(0, 0, UNEXPECTED_HASH))));
}

TEST(WireDocuments, ChangeOfANeverOpenedDocumentCreatesIt) {
    std::string input = frame(
        R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"new"},"contentChanges":[{"text":"x #"}]}})");
    input.append(frame(formattingRequest(2, "new")));
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    std::string expected = frame(publication("new", diagnosticJson(0, 2, UNEXPECTED_HASH)));
    expected.append(frame(singleEdit(2, 0, 3, R"("x #")")));
    EXPECT_EQ(result.out, expected);
}

TEST(WireDocuments, EveryChangeIsPublishedInOrder) {
    std::string input = frame(didOpen("file:///w/e.quor", R"("")"));
    std::string expected = frame(publication("file:///w/e.quor", ""));
    for (int line = 0; line < 10; ++line) {
        std::string text = "\"";
        for (int i = 0; i < line; ++i) text.append("\\n");
        text.append("#\"");
        std::string change = R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///w/e.quor"},"contentChanges":[{"text":)";
        change.append(text).append("}]}}");
        input.append(frame(change));
        expected.append(frame(publication("file:///w/e.quor", diagnosticJson(line, 0, UNEXPECTED_HASH))));
    }
    ProcessResult result = runServer(input);
    expectCleanExit(result);
    EXPECT_EQ(result.out, expected);
}
