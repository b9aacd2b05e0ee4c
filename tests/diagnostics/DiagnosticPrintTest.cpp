#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <sstream>
#include <string>

#include "diagnostics/DiagnosticEngine.h"

namespace quor::diagnostics {
namespace {

// Built field by field: g++ 12 at -O3 misreads nested brace initialisation here.
Diagnostic makeDiagnostic(DiagnosticSeverity severity, std::string_view code, std::string_view message,
                          std::string_view file, std::uint32_t line, std::uint32_t column, std::string_view hint) {
    Diagnostic diagnostic;
    diagnostic.severity = severity;
    diagnostic.code = code;
    diagnostic.message = message;
    diagnostic.location.file = file;
    diagnostic.location.line = line;
    diagnostic.location.column = column;
    diagnostic.hint = hint;
    return diagnostic;
}

std::string printed(const Diagnostic& diagnostic) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.printDiagnostic(diagnostic);
    return out.str();
}

TEST(DiagnosticPrint, ErrorWithCodeAndHintPrintsThreeColouredLines) {
    Diagnostic diagnostic = makeDiagnostic(DiagnosticSeverity::Error, "E1000", "Unexpected character: '#'", "a.quor",
                                           2, 5, "Remove or replace the invalid character");
    std::string expected;
    expected.append("\x1b[1;31merror[E1000]: \x1b[0m\x1b[1mUnexpected character: '#'\x1b[0m\n");
    expected.append("  --> a.quor:2:5\n");
    expected.append("   = \x1b[32mhelp: \x1b[0mRemove or replace the invalid character\n");
    EXPECT_EQ(printed(diagnostic), expected);
}

TEST(DiagnosticPrint, EmptyCodePrintsNoBrackets) {
    Diagnostic diagnostic = makeDiagnostic(DiagnosticSeverity::Error, "", "boom", "f", 1, 1, "");
    std::string expected;
    expected.append("\x1b[1;31merror: \x1b[0m\x1b[1mboom\x1b[0m\n");
    expected.append("  --> f:1:1\n");
    EXPECT_EQ(printed(diagnostic), expected);
}

TEST(DiagnosticPrint, EmptyHintPrintsTwoLinesAndHintThree) {
    Diagnostic withoutHint = makeDiagnostic(DiagnosticSeverity::Error, "E1001", "m", "f", 1, 1, "");
    Diagnostic withHint = makeDiagnostic(DiagnosticSeverity::Error, "E1001", "m", "f", 1, 1, "h");
    auto countLines = [](const std::string& text) {
        return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    };
    EXPECT_EQ(countLines(printed(withoutHint)), 2);
    EXPECT_EQ(countLines(printed(withHint)), 3);
}

TEST(DiagnosticPrint, EmptyFilePrintsUnknownLocation) {
    Diagnostic diagnostic = makeDiagnostic(DiagnosticSeverity::Error, "E1000", "m", "", 3, 7, "");
    std::string expected;
    expected.append("\x1b[1;31merror[E1000]: \x1b[0m\x1b[1mm\x1b[0m\n");
    expected.append("  --> <unknown>:3:7\n");
    EXPECT_EQ(printed(diagnostic), expected);
}

struct SeverityStyleRow {
    DiagnosticSeverity severity;
    std::string_view colour;
    std::string_view word;
};

constexpr std::array<SeverityStyleRow, 4> SEVERITY_STYLE_ROWS = {{
    {DiagnosticSeverity::Error, "\x1b[1;31m", "error"},
    {DiagnosticSeverity::Warning, "\x1b[1;33m", "warning"},
    {DiagnosticSeverity::Info, "\x1b[1;34m", "info"},
    {DiagnosticSeverity::Hint, "\x1b[1;36m", "hint"},
}};

TEST(DiagnosticPrint, EachSeverityHasItsColourAndWord) {
    for (const SeverityStyleRow& row : SEVERITY_STYLE_ROWS) {
        Diagnostic diagnostic = makeDiagnostic(row.severity, "E1", "msg", "f", 4, 2, "fix");
        std::string expected;
        expected.append(row.colour).append(row.word);
        expected.append("[E1]: \x1b[0m\x1b[1mmsg\x1b[0m\n  --> f:4:2\n   = \x1b[32mhelp: \x1b[0mfix\n");
        EXPECT_EQ(printed(diagnostic), expected) << row.word;
    }
}

TEST(DiagnosticPrint, SeverityOutsideTheRangePrintsAsError) {
    for (int value : {4, 17, -1}) {
        Diagnostic diagnostic = makeDiagnostic(static_cast<DiagnosticSeverity>(value), "", "m", "f", 1, 1, "");
        std::string expected = "\x1b[1;31merror: \x1b[0m\x1b[1mm\x1b[0m\n  --> f:1:1\n";
        EXPECT_EQ(printed(diagnostic), expected) << value;
    }
}

TEST(DiagnosticPrint, ReportPrintsEachRecordAsItArrives) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.reportError("E1005", "first", {"u", 1, 2}, "");
    std::string afterFirst = out.str();
    EXPECT_EQ(afterFirst, "\x1b[1;31merror[E1005]: \x1b[0m\x1b[1mfirst\x1b[0m\n  --> u:1:2\n");
    engine.reportWarning("E1000", "second", {"u", 5, 6}, "try this");
    std::string expectedTail = "\x1b[1;33mwarning[E1000]: \x1b[0m\x1b[1msecond\x1b[0m\n  --> u:5:6\n";
    expectedTail.append("   = \x1b[32mhelp: \x1b[0mtry this\n");
    EXPECT_EQ(out.str(), afterFirst + expectedTail);
}

TEST(DiagnosticPrint, PrintDiagnosticDoesNotRecordOrCount) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.printDiagnostic(makeDiagnostic(DiagnosticSeverity::Error, "E1000", "m", "f", 1, 1, ""));
    EXPECT_TRUE(engine.getDiagnostics().empty());
    EXPECT_EQ(engine.getErrorCount(), 0u);
    EXPECT_FALSE(out.str().empty());
}

}  // namespace
}  // namespace quor::diagnostics
