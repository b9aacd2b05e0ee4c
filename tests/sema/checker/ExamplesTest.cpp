// The example programs are clean Quor: they scan, parse and analyse without
// a single diagnostic.
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

std::string readExample(const std::string& name) {
    std::ifstream file(std::string(QUOR_EXAMPLES_DIR) + "/" + name, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TEST(CheckerExamples, EveryExampleAnalysesWithoutDiagnostics) {
    for (const char* name : {"shapes.quor", "collections.quor"}) {
        const std::string source = readExample(name);
        ASSERT_FALSE(source.empty()) << name;
        EXPECT_EQ(analyzeSource(source), std::vector<std::string>{}) << name;
    }
}

}  // namespace
}  // namespace quor::sema::testing
