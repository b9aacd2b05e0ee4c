#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>

#include "diagnostics/DiagnosticEngine.h"

namespace quor::diagnostics {
namespace {

const SourceLocation HERE{"main.quor", 3, 7};

TEST(DiagnosticEngineState, NewEngineIsEmpty) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    EXPECT_TRUE(engine.getDiagnostics().empty());
    EXPECT_EQ(engine.getErrorCount(), 0u);
    EXPECT_EQ(engine.getWarningCount(), 0u);
    EXPECT_TRUE(out.str().empty());
}

TEST(DiagnosticEngineState, ReportErrorRecordsEveryField) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.reportError("E1002", "Undefined variable 'x'", HERE, "Declare it first");
    ASSERT_EQ(engine.getDiagnostics().size(), 1u);
    const Diagnostic& diagnostic = engine.getDiagnostics()[0];
    EXPECT_EQ(diagnostic.severity, DiagnosticSeverity::Error);
    EXPECT_EQ(diagnostic.code, "E1002");
    EXPECT_EQ(diagnostic.message, "Undefined variable 'x'");
    EXPECT_EQ(diagnostic.location.file, "main.quor");
    EXPECT_EQ(diagnostic.location.line, 3u);
    EXPECT_EQ(diagnostic.location.column, 7u);
    EXPECT_EQ(diagnostic.hint, "Declare it first");
    EXPECT_EQ(engine.getErrorCount(), 1u);
    EXPECT_EQ(engine.getWarningCount(), 0u);
}

TEST(DiagnosticEngineState, ReportWarningRaisesOnlyWarningCount) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.reportWarning("E1000", "careful", HERE, "");
    EXPECT_EQ(engine.getWarningCount(), 1u);
    EXPECT_EQ(engine.getErrorCount(), 0u);
    ASSERT_EQ(engine.getDiagnostics().size(), 1u);
    EXPECT_EQ(engine.getDiagnostics()[0].severity, DiagnosticSeverity::Warning);
}

TEST(DiagnosticEngineState, InfoAndHintSeveritiesCountAsWarnings) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.report(DiagnosticSeverity::Info, "", "i", HERE, "");
    engine.report(DiagnosticSeverity::Hint, "", "h", HERE, "");
    EXPECT_EQ(engine.getWarningCount(), 2u);
    EXPECT_EQ(engine.getErrorCount(), 0u);
}

TEST(DiagnosticEngineState, SeverityOutsideTheRangeCountsAsAWarningButPrintsAsAnError) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.report(static_cast<DiagnosticSeverity>(7), "E1000", "odd", HERE, "");
    EXPECT_EQ(engine.getErrorCount(), 0u);
    EXPECT_EQ(engine.getWarningCount(), 1u);
    EXPECT_EQ(out.str(), "\x1b[1;31merror[E1000]: \x1b[0m\x1b[1modd\x1b[0m\n  --> main.quor:3:7\n");
}

TEST(DiagnosticEngineState, EveryReportIsAlsoPrinted) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.reportError("E1003", "Undefined function 'f'", HERE, "Check the name");
    std::string expected = "\x1b[1;31merror[E1003]: \x1b[0m\x1b[1mUndefined function 'f'\x1b[0m\n";
    expected.append("  --> main.quor:3:7\n   = \x1b[32mhelp: \x1b[0mCheck the name\n");
    EXPECT_EQ(out.str(), expected);
}

TEST(DiagnosticEngineState, RecordsKeepReportOrder) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.reportError("E1000", "first", HERE, "");
    engine.reportWarning("", "second", HERE, "");
    engine.reportError("E1001", "third", HERE, "");
    ASSERT_EQ(engine.getDiagnostics().size(), 3u);
    EXPECT_EQ(engine.getDiagnostics()[0].message, "first");
    EXPECT_EQ(engine.getDiagnostics()[1].message, "second");
    EXPECT_EQ(engine.getDiagnostics()[2].message, "third");
    EXPECT_EQ(engine.getErrorCount(), 2u);
    EXPECT_EQ(engine.getWarningCount(), 1u);
}

TEST(DiagnosticEngineState, ReportCopiesTheViewedText) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    {
        std::string code = "E1004";
        std::string message = "Duplicate";
        std::string hint = "Rename";
        engine.reportError(code, message, HERE, hint);
        code.assign("XXXXX");
        message.assign("XXXXXXXXX");
        hint.assign("XXXXXX");
    }
    const Diagnostic& diagnostic = engine.getDiagnostics()[0];
    EXPECT_EQ(diagnostic.code, "E1004");
    EXPECT_EQ(diagnostic.message, "Duplicate");
    EXPECT_EQ(diagnostic.hint, "Rename");
}

TEST(DiagnosticEngineState, ClearEmptiesRecordsAndResetsBothCounts) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    engine.reportError("E1000", "a", HERE, "");
    engine.reportWarning("E1000", "b", HERE, "");
    engine.clear();
    EXPECT_TRUE(engine.getDiagnostics().empty());
    EXPECT_EQ(engine.getErrorCount(), 0u);
    EXPECT_EQ(engine.getWarningCount(), 0u);
    engine.reportError("E1000", "c", HERE, "");
    EXPECT_EQ(engine.getErrorCount(), 1u);
    EXPECT_EQ(engine.getDiagnostics().size(), 1u);
}

TEST(DiagnosticEngineState, CountsAreUnsigned64Bit) {
    std::ostringstream out;
    DiagnosticEngine engine(out);
    EXPECT_TRUE((std::is_same_v<decltype(engine.getErrorCount()), std::uint64_t>));
    EXPECT_TRUE((std::is_same_v<decltype(engine.getWarningCount()), std::uint64_t>));
}

TEST(DiagnosticSeverityValues, FixedNumericValuesAnd32Bits) {
    EXPECT_EQ(static_cast<int>(DiagnosticSeverity::Error), 0);
    EXPECT_EQ(static_cast<int>(DiagnosticSeverity::Warning), 1);
    EXPECT_EQ(static_cast<int>(DiagnosticSeverity::Info), 2);
    EXPECT_EQ(static_cast<int>(DiagnosticSeverity::Hint), 3);
    EXPECT_EQ(sizeof(DiagnosticSeverity), 4u);
}

}  // namespace
}  // namespace quor::diagnostics
