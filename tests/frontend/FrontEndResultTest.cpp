// What one pass hands back: the tokens always, the tree once scanning is
// clean, and the analyzer only when it ran.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "diagnostics/DiagnosticEngine.h"
#include "frontend/FrontEnd.h"

namespace quor::frontend {
namespace {

FrontEndResult passOver(const std::string& text, std::size_t& errors) {
    std::ostringstream report;
    diagnostics::DiagnosticEngine engine(report);
    FrontEndResult result = runFrontEnd(text, "file:///pass.quor", engine);
    errors = engine.getErrorCount();
    return result;
}

TEST(FrontEndResult, ACleanTextHandsBackTokensTreeAndAnalyzer) {
    std::size_t errors = 0;
    const FrontEndResult result = passOver("fn f(): int {\n    return 1;\n}\n", errors);
    EXPECT_EQ(errors, 0U);
    EXPECT_FALSE(result.tokens.empty());
    ASSERT_NE(result.program, nullptr);
    EXPECT_NE(result.analyzer, nullptr);
}

TEST(FrontEndResult, AnAnalysisErrorStillHandsBackTheAnalyzerThatFoundIt) {
    std::size_t errors = 0;
    const FrontEndResult result = passOver("fn f(): int {\n    return \"x\";\n}\n", errors);
    EXPECT_EQ(errors, 1U);
    EXPECT_NE(result.analyzer, nullptr);
}

TEST(FrontEndResult, ASyntaxErrorLeavesNoAnalyzer) {
    std::size_t errors = 0;
    const FrontEndResult result = passOver("let = ;\n", errors);
    EXPECT_GT(errors, 0U);
    EXPECT_EQ(result.analyzer, nullptr);
}

TEST(FrontEndResult, ALexicalErrorLeavesNeitherTreeNorAnalyzer) {
    std::size_t errors = 0;
    const FrontEndResult result = passOver("let s = \"open\n", errors);
    EXPECT_GT(errors, 0U);
    EXPECT_FALSE(result.tokens.empty());
    EXPECT_EQ(result.program, nullptr);
    EXPECT_EQ(result.analyzer, nullptr);
}

}  // namespace
}  // namespace quor::frontend
