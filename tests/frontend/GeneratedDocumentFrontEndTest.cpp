// The realistic benchmark document is meant to be clean through the whole
// front end, the analyzer included, so that a measured keystroke runs every
// stage to its end.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "../../bench/generator/QuorDocuments.h"
#include "diagnostics/DiagnosticEngine.h"
#include "frontend/FrontEnd.h"

namespace quor::frontend {
namespace {

TEST(GeneratedDocumentFrontEndTest, RealisticDocumentPassesEveryStageWithNoDiagnostic) {
    for (std::size_t lines : {1U, 140U, 1000U}) {
        std::ostringstream report;
        diagnostics::DiagnosticEngine engine(report);
        const FrontEndResult result = runFrontEnd(bench::realisticDocument(lines), "stock_levels.quor", engine);
        EXPECT_NE(result.program, nullptr) << lines;
        EXPECT_EQ(engine.getErrorCount(), 0U) << lines << " lines:\n" << report.str().substr(0, 3000);
    }
}

TEST(GeneratedDocumentFrontEndTest, TypesStandAboveTheFunctionsThatNameThem) {
    // A function signature may only name a type declared above it.
    const std::string text = bench::realisticDocument(5 + bench::realisticUnitLines());
    EXPECT_LT(text.find("class Record0 "), text.find("fn totalAmount0("));
    EXPECT_LT(text.find("enum Category0 "), text.find("fn totalAmount0("));
}

}  // namespace
}  // namespace quor::frontend
