#pragma once

// A table-driven form of the expression tests: each row is a whole program,
// the reports it must give in order (placed by a piece of text on a line),
// and the checked types of some initializers.
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "ExpressionTestSupport.h"

namespace quor::sema::testing {

// One expected report. The place is the `nth` occurrence of `needle` on `line`.
struct Report {
    std::string code;
    std::string message;
    std::string hint;
    int line;
    std::string needle;
    int nth = 1;
};

struct RuleCase {
    std::string title;  // a test name: letters and digits only
    std::string source;
    std::vector<Report> reports;
    // Variable name, then the expected type text of its initializer.
    std::vector<std::pair<std::string, std::string>> types;
};

inline void PrintTo(const RuleCase& rule, std::ostream* out) { *out << rule.title; }

inline std::string ruleCaseName(const ::testing::TestParamInfo<RuleCase>& info) { return info.param.title; }

// Analyses the row's program both ways and compares reports and types.
inline void expectRuleCase(const RuleCase& rule) {
    std::vector<std::string> expected;
    for (const auto& r : rule.reports) {
        expected.push_back(record(r.code, r.message, at(rule.source, r.line, r.needle, r.nth), r.hint));
    }
    EXPECT_EQ(analyzeSource(rule.source), expected) << rule.source;
    Analysis analysis(rule.source);
    analysis.analyze();
    for (const auto& [name, type] : rule.types) {
        EXPECT_EQ(initializerType(analysis, name), type) << "variable '" << name << "' in\n" << rule.source;
    }
}

}  // namespace quor::sema::testing
