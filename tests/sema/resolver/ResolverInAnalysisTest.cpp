// Name resolution inside the whole analysis: its reports come alone, since
// the checker does not run after any of them, and what it declares is what
// the checker sees.
#include <string>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

const char* const CHECKER_FAULT = "fn checked() {\n  int wrong = \"text\";\n}\n";

struct AnalysisCase {
    const char* title;
    std::string source;
    Records records;
};

const AnalysisCase ANALYSIS_CASES[] = {
    {"ACycleSilencesTheChecker", std::string("class A extends A {}\n") + CHECKER_FAULT,
     {"E1004|Circular inheritance detected: 'A' and 'A' inherit from each other||1:1"}},
    {"AnUndefinedTypeSilencesTheChecker", std::string("fn f(x: Ghost) {}\n") + CHECKER_FAULT,
     {"E1002|Undefined type 'Ghost'|Check the type name or make sure the class/struct/enum is defined|1:1"}},
    {"ADuplicateVariantSilencesTheChecker", std::string("enum M { A, A }\n") + CHECKER_FAULT,
     {"E1004|Duplicate enum variant 'A' in enum 'M'||1:1"}},
    {"AFunctionWithABuiltinsParametersIsDroppedWithoutAWord",
     "fn print(s: string) {}\nfn main() {\n  print(\"x\");\n}\n", {}},
    {"AUserOverloadOfABuiltinNameIsCallable", "fn abs(x: int64) -> int64 {\n  return x;\n}\nfn main() {\n  int64 big = 5;\n"
                                              "  int64 y = abs(big);\n}\n",
     {}},
    {"CallsReachTheBuiltinAUserFunctionOfItsParametersWasDroppedFor",
     "fn len(x: any) -> string {\n  return \"a\";\n}\nfn main() {\n  string s = len(1);\n}\n",
     {"E1001|Type mismatch: cannot initialize variable of type 'string' with value of type 'int'||5:10"}},
    {"ANestedEnumIsUsableInALaterSignature", "fn setup() {\n  enum Mode { Fast }\n}\nfn run(m: Mode) {}\n", {}},
};

class ResolverInAnalysis : public ::testing::TestWithParam<AnalysisCase> {};

TEST_P(ResolverInAnalysis, ReportsAsExpected) {
    const auto& c = GetParam();
    EXPECT_EQ(analyzeSource(c.source), c.records) << c.source;
}

INSTANTIATE_TEST_SUITE_P(Cases, ResolverInAnalysis, ::testing::ValuesIn(ANALYSIS_CASES),
                         [](const ::testing::TestParamInfo<AnalysisCase>& info) { return std::string(info.param.title); });

TEST(ResolverInAnalysisBaseline, TheCheckerFaultIsReportedWhenNameResolutionIsQuiet) {
    EXPECT_EQ(analyzeSource(CHECKER_FAULT).size(), 1u);
}

}  // namespace
}  // namespace quor::sema::testing
