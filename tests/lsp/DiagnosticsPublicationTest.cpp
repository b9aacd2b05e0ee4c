#include <gtest/gtest.h>

#include <sstream>

#include "LspTestSupport.h"
#include "diagnostics/Diagnostic.h"
#include "frontend/FrontEnd.h"
#include "lsp/DiagnosticConversion.h"

using quor::lsp::LspServer;
using quor::lsp::toProtocolDiagnostic;
using quor::lsp::testing::framed;

namespace {

quor::diagnostics::Diagnostic reported(std::uint32_t line, std::uint32_t column, std::string message = "Bad",
                                       std::string hint = "") {
    quor::diagnostics::Diagnostic diagnostic;
    diagnostic.code = "E1000";
    diagnostic.message = std::move(message);
    diagnostic.location = {"file:///x.quor", line, column};
    diagnostic.hint = std::move(hint);
    return diagnostic;
}

class PublicationTest : public ::testing::Test {
protected:
    std::istringstream in;
    std::ostringstream out;
    LspServer server{in, out};

    std::string openAndCollect(const std::string& uri, const std::string& text) {
        server.openDocument(uri, text);
        server.publishDiagnostics(uri);
        return out.str();
    }
};

}  // namespace

TEST(DiagnosticConversion, LineThreeColumnSevenIsOneColumnWide) {
    quor::lsp::Diagnostic published = toProtocolDiagnostic(reported(3, 7));
    EXPECT_EQ(published.range.start.line, 2);
    EXPECT_EQ(published.range.start.character, 6);
    EXPECT_EQ(published.range.end.line, 2);
    EXPECT_EQ(published.range.end.character, 7);
}

TEST(DiagnosticConversion, HintIsFoldedIntoTheMessage) {
    EXPECT_EQ(toProtocolDiagnostic(reported(1, 1, "Bad", "Use x")).message, "Bad (Use x)");
    EXPECT_EQ(toProtocolDiagnostic(reported(1, 1, "Bad", "")).message, "Bad");
}

TEST(DiagnosticConversion, SmallLinesAndColumnsClamp) {
    quor::lsp::Diagnostic first = toProtocolDiagnostic(reported(1, 1));
    EXPECT_EQ(first.range.start.line, 0);
    EXPECT_EQ(first.range.start.character, 0);
    EXPECT_EQ(first.range.end.character, 1);
    quor::lsp::Diagnostic zero = toProtocolDiagnostic(reported(0, 0));
    EXPECT_EQ(zero.range.start.line, 0);
    EXPECT_EQ(zero.range.end.line, 0);
    EXPECT_EQ(zero.range.start.character, 0);
    EXPECT_EQ(zero.range.end.character, 1);
    quor::lsp::Diagnostic second = toProtocolDiagnostic(reported(2, 2));
    EXPECT_EQ(second.range.start.line, 1);
    EXPECT_EQ(second.range.start.character, 1);
    EXPECT_EQ(second.range.end.character, 2);
}

TEST(DiagnosticConversion, HugeValuesReadAsNegativeAndClamp) {
    quor::lsp::Diagnostic huge = toProtocolDiagnostic(reported(0x80000000u, 0xFFFFFFFFu));
    EXPECT_EQ(huge.range.start.line, 0);
    EXPECT_EQ(huge.range.start.character, 0);
    EXPECT_EQ(huge.range.end.character, 1);
}

TEST(DiagnosticConversion, SeverityCodeAndSource) {
    quor::diagnostics::Diagnostic warning = reported(1, 1);
    warning.severity = quor::diagnostics::DiagnosticSeverity::Warning;
    warning.code = "";
    quor::lsp::Diagnostic published = toProtocolDiagnostic(warning);
    EXPECT_EQ(published.severity, 2);
    EXPECT_EQ(published.source, "quorls");
    EXPECT_EQ(published.toJson().serialize().find("\"code\""), std::string::npos);
    quor::lsp::Diagnostic error = toProtocolDiagnostic(reported(1, 1));
    EXPECT_EQ(error.severity, 1);
    EXPECT_EQ(error.code, "E1000");
}

TEST_F(PublicationTest, EmptyDocumentPublishesAnEmptyList) {
    EXPECT_EQ(openAndCollect("file:///e.quor", ""),
              framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[],"uri":"file:///e.quor"}})"));
}

TEST_F(PublicationTest, UnknownUriPublishesForAnEmptyDocument) {
    server.publishDiagnostics("file:///nowhere.quor");
    EXPECT_EQ(out.str(),
              framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[],"uri":"file:///nowhere.quor"}})"));
}

TEST_F(PublicationTest, UriIsEscapedAsAStringValue) {
    EXPECT_EQ(openAndCollect("a\"b", ""),
              framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[],"uri":"a\"b"}})"));
}

TEST_F(PublicationTest, UnterminatedStringIsPublishedExactly) {
    EXPECT_EQ(openAndCollect("file:///a.quor", "let s = \"abc"),
              framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)"
                     R"j({"code":"E1000","message":"Unclosed string literal at end of file (Add closing '\"' at end of string)",)j"
                     R"("range":{"end":{"character":9,"line":0},"start":{"character":8,"line":0}},"severity":1,"source":"quorls"}],)"
                     R"("uri":"file:///a.quor"}})"));
}

TEST_F(PublicationTest, UnexpectedCharacterOnLineThreeColumnSeven) {
    std::vector<quor::lsp::Diagnostic> found = server.computeDiagnostics("u", "\n\n      #");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].range.start.line, 2);
    EXPECT_EQ(found[0].range.start.character, 6);
    EXPECT_EQ(found[0].range.end.line, 2);
    EXPECT_EQ(found[0].range.end.character, 7);
    EXPECT_EQ(found[0].message, "Unexpected character: '#' (Remove or replace the invalid character)");
    EXPECT_EQ(found[0].code, "E1000");
    EXPECT_EQ(found[0].source, "quorls");
    EXPECT_EQ(found[0].severity, 1);
}

TEST_F(PublicationTest, RangeIsOneColumnWideWhateverTheTokenLength) {
    std::vector<quor::lsp::Diagnostic> found = server.computeDiagnostics("u", "x = /* never closed");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].range.start.character, 4);
    EXPECT_EQ(found[0].range.end.character, 5);
    EXPECT_EQ(found[0].message, "Unclosed multi-line comment (Add '*/' to close the multi-line comment)");
}

TEST_F(PublicationTest, EngineOrderIsKeptWithoutRemovingDuplicates) {
    std::vector<quor::lsp::Diagnostic> found = server.computeDiagnostics("u", "## $");
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].range.start.character, 0);
    EXPECT_EQ(found[1].range.start.character, 1);
    EXPECT_EQ(found[2].range.start.character, 3);
    EXPECT_EQ(found[0].message, found[1].message);
    EXPECT_EQ(found[2].message, "Unexpected character: '$' (Remove or replace the invalid character)");
}

TEST_F(PublicationTest, LexicalErrorHidesLaterStages) {
    // A type error and a syntax error stand before the unterminated string;
    // only the scanner's report is published.
    std::vector<quor::lsp::Diagnostic> found =
        server.computeDiagnostics("u", "fn f(): int { return \"x\" * true; }\nlet = ;\nlet s = \"abc");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].message, "Unclosed string literal at end of file (Add closing '\"' at end of string)");
    EXPECT_EQ(found[0].range.start.line, 2);
}

TEST_F(PublicationTest, SyntaxErrorsHideUndefinedNames) {
    // Whatever the parser's recovery finds, no name-resolution code shows up.
    std::vector<quor::lsp::Diagnostic> found = server.computeDiagnostics("u", "fn f() { let = ; return undefinedName; }");
    for (const quor::lsp::Diagnostic& diagnostic : found) EXPECT_EQ(diagnostic.code, "E1000");
}

TEST_F(PublicationTest, ThePassCanBeHandedToTheCallerWithTheSameDiagnostics) {
    const std::string text = "fn f(): int {\n    return \"x\";\n}\n";
    quor::frontend::FrontEndResult pass;
    std::vector<quor::lsp::Diagnostic> kept = server.computeDiagnostics("u", text, pass);
    std::vector<quor::lsp::Diagnostic> plain = server.computeDiagnostics("u", text);
    ASSERT_EQ(kept.size(), 1u);
    ASSERT_EQ(plain.size(), 1u);
    EXPECT_EQ(kept[0].toJson().serialize(), plain[0].toJson().serialize());
    // Everything the three stages made is still there for the caller to free.
    EXPECT_FALSE(pass.tokens.empty());
    ASSERT_NE(pass.program, nullptr);
    EXPECT_EQ(pass.program->declarations.size(), 1u);
    EXPECT_NE(pass.analyzer, nullptr);
}

TEST_F(PublicationTest, CleanTextHasNoDiagnostics) {
    EXPECT_TRUE(server.computeDiagnostics("u", "let x = 1;\n").empty());
}

TEST_F(PublicationTest, FixingTheErrorClearsTheList) {
    server.handleDidOpen(quor::lsp::testing::parse(R"({"textDocument":{"uri":"u","text":"let s = \"abc"}})"));
    ASSERT_NE(out.str().find("\"diagnostics\":[{"), std::string::npos);
    out.str("");
    server.handleDidChange(quor::lsp::testing::parse(R"({"textDocument":{"uri":"u"},"contentChanges":[{"text":"let s = \"abc\";"}]})"));
    EXPECT_EQ(out.str(),
              framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[],"uri":"u"}})"));
}

TEST_F(PublicationTest, SyntaxErrorsArePublishedInReportOrder) {
    // The initializer is missing: the parser reports at ';', consumes it, and
    // the declaration then misses its own ';' at the end of the text.
    EXPECT_EQ(openAndCollect("u", "let x = ;"),
              framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)"
                     R"({"code":"E1000","message":"Expected expression, found: ;",)"
                     R"("range":{"end":{"character":9,"line":0},"start":{"character":8,"line":0}},"severity":1,"source":"quorls"},)"
                     R"({"code":"E1000","message":"Expected ';' after variable declaration",)"
                     R"("range":{"end":{"character":10,"line":0},"start":{"character":9,"line":0}},"severity":1,"source":"quorls"}],)"
                     R"("uri":"u"}})"));
}

TEST_F(PublicationTest, LexicalErrorHidesSyntaxErrorsOfTheSameText) {
    // 'ab' fails at the first quote and again at the last one, which opens
    // a literal that the end of the text leaves unclosed.
    std::vector<quor::lsp::Diagnostic> found = server.computeDiagnostics("u", "let x = ;\nlet c = 'ab';");
    ASSERT_EQ(found.size(), 2u);
    for (const quor::lsp::Diagnostic& diagnostic : found) {
        EXPECT_EQ(diagnostic.range.start.line, 1);
        EXPECT_EQ(diagnostic.message.rfind("Unclosed character literal", 0), 0u);
    }
}

TEST_F(PublicationTest, ASyntaxErrorOnALaterLineIsPlacedThere) {
    std::vector<quor::lsp::Diagnostic> found = server.computeDiagnostics("u", "let a = 1;\n\nreturn 2\n");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].message, "Expected ';' after return statement");
    EXPECT_EQ(found[0].range.start.line, 3);
    EXPECT_EQ(found[0].range.start.character, 0);
}

TEST_F(PublicationTest, HalfTypedClassStillEndsWithItsReports) {
    std::vector<quor::lsp::Diagnostic> found = server.computeDiagnostics("u", "class A {\n    fn f(");
    EXPECT_FALSE(found.empty());
    for (const quor::lsp::Diagnostic& diagnostic : found) EXPECT_EQ(diagnostic.source, "quorls");
}

TEST_F(PublicationTest, ComputingWritesNothingToTheClient) {
    // The engine prints its report into a private stream that is dropped.
    std::vector<quor::lsp::Diagnostic> found = server.computeDiagnostics("u", "# let x = ;");
    EXPECT_EQ(found.size(), 1u);
    EXPECT_EQ(out.str(), "");
}

TEST_F(PublicationTest, PublicationHasOnlyUriAndDiagnosticsAndNoVersion) {
    server.handleDidOpen(quor::lsp::testing::parse(
        R"({"textDocument":{"uri":"file:///v.quor","languageId":"quor","version":7,"text":"\n  #"}})"));
    EXPECT_EQ(out.str(),
              framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)"
                     R"m({"code":"E1000","message":"Unexpected character: '#' (Remove or replace the invalid character)",)m"
                     R"("range":{"end":{"character":3,"line":1},"start":{"character":2,"line":1}},"severity":1,"source":"quorls"}],)"
                     R"("uri":"file:///v.quor"}})"));
}

TEST_F(PublicationTest, TextIsReadFromTheStoreAtPublicationTime) {
    server.openDocument("u", "#");
    server.updateDocument("u", "");
    server.publishDiagnostics("u");
    EXPECT_EQ(out.str(),
              framed(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[],"uri":"u"}})"));
}
