#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

#include "diagnostics/DiagnosticCodes.h"

namespace quor::diagnostics {
namespace {

TEST(DiagnosticCodes, EachCategoryHasItsFixedCode) {
    EXPECT_EQ(CODE_SYNTAX, "E1000");
    EXPECT_EQ(CODE_TYPE, "E1001");
    EXPECT_EQ(CODE_UNDEFINED_NAME, "E1002");
    EXPECT_EQ(CODE_UNDEFINED_FUNCTION, "E1003");
    EXPECT_EQ(CODE_DUPLICATE, "E1004");
    EXPECT_EQ(CODE_CONSTANT_OR_RETURN, "E1005");
    EXPECT_EQ(CODE_ACCESS, "E1006");
    EXPECT_EQ(CODE_NULL_SAFETY, "E1008");
    EXPECT_EQ(CODE_IMPORT, "E1009");
}

TEST(DiagnosticCodes, CodesRunFromE1000ToE1009WithAGapAtE1007) {
    std::set<std::string_view> codes(ALL_DIAGNOSTIC_CODES.begin(), ALL_DIAGNOSTIC_CODES.end());
    EXPECT_EQ(codes.size(), 9u);
    for (int number = 1000; number <= 1009; ++number) {
        std::string code = "E";
        code.append(std::to_string(number));
        EXPECT_EQ(codes.count(code) == 1, number != 1007) << code;
    }
}

}  // namespace
}  // namespace quor::diagnostics
