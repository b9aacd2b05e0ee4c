// What one pass hands back: the tokens always, the tree once scanning is
// clean, and the analyzer only when it ran.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "diagnostics/DiagnosticEngine.h"
#include "frontend/FrontEnd.h"

namespace quor::frontend {
namespace {

// One source per stage that can end the pass, and what the pass leaves.
struct Case {
    const char* stage;
    const char* source;
    int errors;  // -1 for at least one
    bool tree;
    bool analyzer;
};

constexpr Case CASES[] = {
    {"clean", "fn f(): int {\n    return 1;\n}\n", 0, true, true},
    // The analyzer that found the error is still handed back.
    {"analysis error", "fn f(): int {\n    return \"x\";\n}\n", 1, true, true},
    {"syntax error", "let = ;\n", -1, true, false},
    {"lexical error", "let s = \"open\n", -1, false, false},
};

TEST(FrontEndResult, EachStageThatRanLeavesWhatItMade) {
    for (const Case& c : CASES) {
        std::ostringstream report;
        diagnostics::DiagnosticEngine engine(report);
        const FrontEndResult result = runFrontEnd(c.source, "file:///pass.quor", engine);
        if (c.errors < 0) {
            EXPECT_GT(engine.getErrorCount(), 0U) << c.stage;
        } else {
            EXPECT_EQ(engine.getErrorCount(), static_cast<std::size_t>(c.errors)) << c.stage;
        }
        EXPECT_FALSE(result.tokens.empty()) << c.stage;
        EXPECT_EQ(result.program != nullptr, c.tree) << c.stage;
        EXPECT_EQ(result.analyzer != nullptr, c.analyzer) << c.stage;
    }
}

// The pass keeps the declarations for its owner, not the checked bodies.
TEST(FrontEndResult, ACheckedProgramKeepsItsDeclarationsWithoutTheirBodies) {
    std::ostringstream report;
    diagnostics::DiagnosticEngine engine(report);
    const FrontEndResult result =
        runFrontEnd("fn f(): int {\n    return 1;\n}\nfn g(): int {\n    return \"x\";\n}\n", "file:///pass.quor",
                    engine);
    EXPECT_EQ(engine.getErrorCount(), 1U);
    ASSERT_NE(result.program, nullptr);
    ASSERT_EQ(result.program->declarations.size(), 2U);
    for (const auto& declaration : result.program->declarations) {
        const auto& function = static_cast<const ast::FunctionDecl&>(*declaration);
        EXPECT_EQ(function.returnType, "int") << function.name;
        EXPECT_EQ(function.body, nullptr) << function.name;
    }
}

// A stage that failed before the checker leaves the tree whole.
TEST(FrontEndResult, AnUncheckedProgramKeepsItsBodies) {
    std::ostringstream report;
    diagnostics::DiagnosticEngine engine(report);
    const FrontEndResult result =
        runFrontEnd("class A extends Nowhere {\n}\nfn f(): int {\n    return 1;\n}\n", "file:///pass.quor", engine);
    EXPECT_EQ(engine.getErrorCount(), 1U);
    ASSERT_NE(result.program, nullptr);
    ASSERT_EQ(result.program->declarations.size(), 2U);
    EXPECT_NE(static_cast<const ast::FunctionDecl&>(*result.program->declarations[1]).body, nullptr);
}

}  // namespace
}  // namespace quor::frontend
