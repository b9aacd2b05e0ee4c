// Whether a body ends every path in a return or a throw, by its syntax
// alone, and the missing-return report that rests on it.
#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

using Records = std::vector<std::string>;

// The answer for the body of the program's first function.
bool bodyReturns(const std::string& source) {
    Analysis analysis(source);
    const auto& function = static_cast<const ast::FunctionDecl&>(*analysis.program->declarations.at(0));
    return analysis.checker().hasGuaranteedReturn(*function.body);
}

std::string missingReturn(const std::string& name, const std::string& type, const std::string& place) {
    return record("E1005", "Missing return statement: function '" + name + "' must return a value of type '" + type +
                               "' along all code paths", place);
}

TEST(CheckerReturnAnalysis, IfWithReturnAndElseWithThrowReturns) {
    const std::string source =
        "fn f(a: bool, x: int): int {\n    if (a) {\n        return 1;\n    } else {\n        throw x;\n    }\n}\n";
    EXPECT_TRUE(bodyReturns(source));
    EXPECT_EQ(analyzeSource(source), Records{});
}

TEST(CheckerReturnAnalysis, ElseIfWithoutFinalElseDoesNotReturn) {
    const std::string source = "fn f(a: bool, b: bool): int {\n    if (a) {\n        return 1;\n"
                               "    } else if (b) {\n        return 2;\n    }\n}\n";
    EXPECT_FALSE(bodyReturns(source));
    EXPECT_EQ(analyzeSource(source), Records{missingReturn("f", "int", at(source, 1, "fn"))});
}

TEST(CheckerReturnAnalysis, ElseIfChainWithFinalElseReturns) {
    EXPECT_TRUE(bodyReturns("fn f(a: bool, b: bool): int {\n    if (a) {\n        return 1;\n    } else if (b) {\n"
                            "        return 2;\n    } else {\n        return 3;\n    }\n}\n"));
}

TEST(CheckerReturnAnalysis, IfWithoutElseDoesNotReturn) {
    EXPECT_FALSE(bodyReturns("fn f(a: bool): int {\n    if (a) {\n        return 1;\n    }\n}\n"));
}

TEST(CheckerReturnAnalysis, IfWhoseThenBranchFallsThroughDoesNotReturn) {
    EXPECT_FALSE(bodyReturns("fn f(a: bool): int {\n    if (a) {\n    } else {\n        return 1;\n    }\n}\n"));
}

TEST(CheckerReturnAnalysis, BranchesWithoutBlocksCount) {
    EXPECT_TRUE(bodyReturns("fn f(a: bool): int {\n    if (a) return 1; else return 2;\n}\n"));
}

TEST(CheckerReturnAnalysis, AnEmptyBodyDoesNotReturn) {
    const std::string source = "fn f(): string {\n}\n";
    EXPECT_FALSE(bodyReturns(source));
    EXPECT_EQ(analyzeSource(source), Records{missingReturn("f", "string", at(source, 1, "fn"))});
}

TEST(CheckerReturnAnalysis, CodeBehindAReturnDoesNotMatter) {
    const std::string source = "fn f(): int {\n    return 1;\n    int after = 2;\n}\n";
    EXPECT_TRUE(bodyReturns(source));
    EXPECT_EQ(analyzeSource(source), Records{});
}

TEST(CheckerReturnAnalysis, AReturnInANestedBlockCounts) {
    EXPECT_TRUE(bodyReturns("fn f(): int {\n    int x = 1;\n    {\n        {\n            return x;\n        }\n"
                            "    }\n}\n"));
}

TEST(CheckerReturnAnalysis, AThrowAloneReturns) {
    EXPECT_EQ(analyzeSource("fn f(): int {\n    throw \"never\";\n}\n"), Records{});
}

TEST(CheckerReturnAnalysis, AWhileTrueThatReturnsDoesNotCount) {
    const std::string source = "fn f(): int {\n    while (true) {\n        return 1;\n    }\n}\n";
    EXPECT_FALSE(bodyReturns(source));
    EXPECT_EQ(analyzeSource(source), Records{missingReturn("f", "int", at(source, 1, "fn"))});
}

TEST(CheckerReturnAnalysis, OtherLoopsDoNotCount) {
    EXPECT_FALSE(bodyReturns("fn f(): int {\n    for (;;) {\n        return 1;\n    }\n}\n"));
    EXPECT_FALSE(bodyReturns("fn f(): int {\n    do {\n        return 1;\n    } while (true);\n}\n"));
    EXPECT_FALSE(bodyReturns("fn f(xs: int[]): int {\n    for (x in xs) {\n        return x;\n    }\n}\n"));
}

TEST(CheckerReturnAnalysis, ASwitchReturningInEveryCaseDoesNotCount) {
    const std::string source = "fn f(n: int): string {\n    switch (n) {\n        case 0:\n"
                               "            return \"zero\";\n"
                               "        default:\n            return \"many\";\n    }\n}\n";
    EXPECT_FALSE(bodyReturns(source));
    EXPECT_EQ(analyzeSource(source), Records{missingReturn("f", "string", at(source, 1, "fn"))});
}

TEST(CheckerReturnAnalysis, AMatchReturningInEveryArmDoesNotCount) {
    EXPECT_FALSE(bodyReturns("fn f(n: int): int {\n    match n {\n        0 => { return 0; },\n"
                             "        _ => { return 1; }\n    }\n}\n"));
}

TEST(CheckerReturnAnalysis, ATryThatReturnsDoesNotCount) {
    const std::string source = "fn f(): int {\n    try {\n        return 1;\n    } catch (string e) {\n"
                               "        return 0;\n    }\n}\n";
    EXPECT_FALSE(bodyReturns(source));
    EXPECT_EQ(analyzeSource(source), Records{missingReturn("f", "int", at(source, 1, "fn"))});
}

TEST(CheckerReturnAnalysis, ALongElseIfChainIsFollowedToItsEnd) {
    std::string source = "fn f(n: int): int {\n    if (n == 0) {\n        return 0;\n    }";
    for (int i = 1; i < 5000; ++i) {
        source += " else if (n == " + std::to_string(i) + ") {\n        return " + std::to_string(i) + ";\n    }";
    }
    EXPECT_FALSE(bodyReturns(source + "\n}\n"));
    EXPECT_TRUE(bodyReturns(source + " else {\n        return -1;\n    }\n}\n"));
    EXPECT_EQ(analyzeSource(source + " else {\n        return -1;\n    }\n}\n"), Records{});
}

}  // namespace
}  // namespace quor::sema::testing
