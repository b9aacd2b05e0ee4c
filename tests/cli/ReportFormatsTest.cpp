#include <gtest/gtest.h>

#include <sstream>

#include "cli/DiagnosticReport.h"

using quor::cli::escapeAnnotationData;
using quor::cli::escapeAnnotationProperty;
using quor::cli::jsonString;
using quor::diagnostics::Diagnostic;
using quor::diagnostics::DiagnosticSeverity;

namespace {

Diagnostic sample(const std::string& code, const std::string& hint) {
    return Diagnostic{DiagnosticSeverity::Error, code, "Undefined variable 'x'", {"src/a.quor", 4, 9}, hint};
}

std::string withoutEscapeSequences(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\x1b') {
            i = text.find('m', i);
            continue;
        }
        plain += text[i];
    }
    return plain;
}

template <typename Write>
std::string render(Write write, const Diagnostic& diagnostic) {
    std::ostringstream out;
    write(diagnostic, out);
    return out.str();
}

}  // namespace

TEST(ReportFormats, PlainTextIsTheColouredFormWithoutItsEscapes) {
    for (const Diagnostic& diagnostic : {sample("E1002", "Declare it first"), sample("", "")}) {
        EXPECT_EQ(render(quor::cli::writePlainText, diagnostic),
                  withoutEscapeSequences(render(quor::cli::writeColouredText, diagnostic)));
    }
}

TEST(ReportFormats, PlainTextOfARecordWithoutCodeOrHint) {
    EXPECT_EQ(render(quor::cli::writePlainText, sample("", "")),
              "error: Undefined variable 'x'\n  --> src/a.quor:4:9\n");
}

TEST(ReportFormats, PlainTextOfAWarningUsesItsWord) {
    Diagnostic warning = sample("E1001", "");
    warning.severity = DiagnosticSeverity::Warning;
    EXPECT_EQ(render(quor::cli::writePlainText, warning),
              "warning[E1001]: Undefined variable 'x'\n  --> src/a.quor:4:9\n");
}

TEST(ReportFormats, JsonLineHoldsTheSixFieldsInOrder) {
    EXPECT_EQ(render(quor::cli::writeJsonLine, sample("E1002", "Declare it first")),
              "{\"file\":\"src/a.quor\",\"line\":4,\"column\":9,\"code\":\"E1002\",\"message\":\"Undefined variable "
              "'x'\",\"hint\":\"Declare it first\"}\n");
}

TEST(ReportFormats, JsonStringEscapesQuotesBackslashesAndControlBytes) {
    EXPECT_EQ(jsonString("a\"b\\c"), "\"a\\\"b\\\\c\"");
    EXPECT_EQ(jsonString("\n\t\r\b\f"), "\"\\n\\t\\r\\b\\f\"");
    EXPECT_EQ(jsonString(std::string("\x01\x1f\x00", 3)), "\"\\u0001\\u001f\\u0000\"");
    EXPECT_EQ(jsonString("\x7f/"), "\"\x7f/\"");
}

TEST(ReportFormats, JsonStringKeepsValidUtf8) {
    EXPECT_EQ(jsonString("caf\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80"), "\"caf\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80\"");
}

TEST(ReportFormats, JsonStringWritesBytesOutsideValidUtf8AsEscapes) {
    EXPECT_EQ(jsonString("\xff"), "\"\\u00ff\"");
    EXPECT_EQ(jsonString("\xc3"), "\"\\u00c3\"");                      // sequence cut off at the end
    EXPECT_EQ(jsonString("\xc3x"), "\"\\u00c3x\"");                    // lead byte without continuation
    EXPECT_EQ(jsonString("\xc0\x80"), "\"\\u00c0\\u0080\"");           // overlong form
    EXPECT_EQ(jsonString("\xed\xa0\x80"), "\"\\u00ed\\u00a0\\u0080\"");  // surrogate half
    EXPECT_EQ(jsonString("\xf4\x90\x80\x80"), "\"\\u00f4\\u0090\\u0080\\u0080\"");  // past U+10FFFF
}

TEST(ReportFormats, GithubAnnotationFoldsTheHintIntoTheMessage) {
    EXPECT_EQ(render(quor::cli::writeGithubAnnotation, sample("E1002", "Declare it first")),
              "::error file=src/a.quor,line=4,col=9,title=E1002::Undefined variable 'x' (Declare it first)\n");
}

TEST(ReportFormats, GithubAnnotationWithoutCodeHasNoTitle) {
    EXPECT_EQ(render(quor::cli::writeGithubAnnotation, sample("", "")),
              "::error file=src/a.quor,line=4,col=9::Undefined variable 'x'\n");
}

TEST(ReportFormats, GithubAnnotationEscapesTheFileNameAndTheMessage) {
    Diagnostic diagnostic = sample("E1000", "");
    diagnostic.location.file = "dir,1/a:b%.quor";
    diagnostic.message = "50% done:\r\nnext, then";
    EXPECT_EQ(render(quor::cli::writeGithubAnnotation, diagnostic),
              "::error file=dir%2C1/a%3Ab%25.quor,line=4,col=9,title=E1000::50%25 done:%0D%0Anext, then\n");
}

TEST(ReportFormats, AnnotationPropertyEscapesMoreThanData) {
    EXPECT_EQ(escapeAnnotationData("a:b,c%\n"), "a:b,c%25%0A");
    EXPECT_EQ(escapeAnnotationProperty("a:b,c%\n"), "a%3Ab%2Cc%25%0A");
}
