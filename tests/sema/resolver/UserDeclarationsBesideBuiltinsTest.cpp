// User declarations that meet the built-in globals and classes, seen through
// the whole analysis: which function a call reaches once a user overload has
// joined (or been dropped from) a built-in set, and what the checker sees of
// the names that name resolution declared.
#include <string>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

std::string initMismatch(const std::string& declared, const std::string& value, const std::string& place) {
    return "E1001|Type mismatch: cannot initialize variable of type '" + declared + "' with value of type '" + value +
           "'||" + place;
}

const char* const CHECKER_FAULT = "fn checked() {\n  int wrong = \"text\";\n}\n";

struct BesideBuiltinsCase {
    const char* title;
    std::string source;
    Records records;
};

const BesideBuiltinsCase CASES[] = {
    // A user overload with new parameters joins the built-in set behind the
    // built-ins, and an exact match picks it over a widening built-in.
    {"AnExactUserOverloadIsChosenOverAWideningBuiltin",
     "fn println(x: int64) -> int64 {\n  return x;\n}\nfn main() {\n  int64 big = 5;\n  string s = println(big);\n}\n",
     {initMismatch("string", "int64", "6:10")}},
    // Another parameter count: the user overload answers its own calls, the
    // built-in still answers the others.
    {"AUserOverloadOfAnotherCountLeavesTheBuiltinReachable",
     "fn pow(a: int, b: int, c: int) -> string {\n  return \"\";\n}\nfn main() {\n  string s = pow(1, 2, 3);\n"
     "  int t = pow(2.0, 3.0);\n}\n",
     {initMismatch("int", "double", "6:7")}},
    // A short-form user overload in a built-in set gets its inferred return
    // type where it hangs among the built-in's overloads.
    {"AnInferredUserOverloadInABuiltinSetReturnsItsExpressionType",
     "fn abs(x: int64) => x;\nfn main() {\n  int64 big = 5;\n  string s = abs(big);\n}\n",
     {initMismatch("string", "int64", "4:10")}},
    // The same parameters as a built-in: the user function is dropped without
    // a word, and its return type is never seen by a caller.
    {"AUserFunctionWithABuiltinsParametersIsNeverCalled",
     "fn println(x: int) -> string {\n  return \"a\";\n}\nfn main() {\n  string s = println(1);\n}\n",
     {initMismatch("string", "void", "5:10")}},
    {"AUserFunctionMatchingALaterBuiltinOverloadIsNeverCalled",
     "fn min(a: double, b: double) -> string {\n  return \"a\";\n}\nfn main() {\n  string s = min(1.5, 2.5);\n}\n",
     {initMismatch("string", "double", "5:10")}},
    // An unknown parameter type is no match for a built-in's parameters: the
    // name error alone is reported, and the checker does not run.
    {"AnUnknownParameterBesideABuiltinIsOnlyTheNameError", std::string("fn sqrt(x: Ghost) {}\n") + CHECKER_FAULT,
     {"E1002|Undefined type 'Ghost'|Check the type name or make sure the class/struct/enum is defined|1:1"}},
    {"ADuplicateUserOverloadOfABuiltinNameSilencesTheChecker",
     std::string("fn exit(a: string) {}\nfn exit(b: string) -> int {}\n") + CHECKER_FAULT,
     {"E1004|Duplicate declaration of function 'exit' with identical parameter types|Provide unique parameter types "
      "or rename the function|2:1"}},
    // A user class of a built-in class's name replaces it for the checker.
    {"AUserClassNamedLikeABuiltinClassIsTheOneUsed",
     "class Console {\n  fn hello() -> int {\n    return 1;\n  }\n}\nfn main() {\n  Console c = new Console();\n"
     "  string s = c.hello();\n}\n",
     {initMismatch("string", "int", "8:10")}},
    // An enum lifted out of a body is a type everywhere.
    {"AnEnumLiftedOutOfABodyTypesALaterParameter",
     "fn setup() {\n  enum Mode { Fast, Slow }\n}\nfn run(m: Mode) {\n  string s = m;\n}\n",
     {initMismatch("string", "Mode", "5:10")}},
};

class UserDeclarationsBesideBuiltins : public ::testing::TestWithParam<BesideBuiltinsCase> {};

TEST_P(UserDeclarationsBesideBuiltins, ReportAsExpected) {
    const auto& c = GetParam();
    EXPECT_EQ(analyzeSource(c.source), c.records) << c.source;
}

INSTANTIATE_TEST_SUITE_P(Cases, UserDeclarationsBesideBuiltins, ::testing::ValuesIn(CASES),
                         [](const ::testing::TestParamInfo<BesideBuiltinsCase>& info) {
                             return std::string(info.param.title);
                         });

// ---------------------------------------------------------------------------
// The nearest binding of a name decides what a call by that name reaches.

const BesideBuiltinsCase NEAREST_BINDING_CASES[] = {
    {"ALocalVariableHidesAUserFunctionFromCalls",
     "fn helper() -> int {\n  return 1;\n}\nfn main() {\n  int helper = 2;\n  int x = helper();\n}\n",
     {"E1003|Undefined function or callable symbol 'helper'||6:17"}},
    // The inferred result is written to the symbol that the name reaches from
    // inside the function; a parameter of the function's own name hides the
    // symbol there, so callers keep the void result of the first walk.
    {"AParameterNamedLikeItsShortFormFunctionKeepsTheSymbolsResultVoid",
     "fn twice(twice: int) => twice * 2;\nfn main() {\n  string s = twice(1);\n}\n",
     {initMismatch("string", "void", "3:10")}},
    {"AShortFormFunctionWithOtherParameterNamesGetsItsInferredResult",
     "fn twice(n: int) => n * 2;\nfn main() {\n  string s = twice(1);\n}\n",
     {initMismatch("string", "int", "3:10")}},
};

class NearestBindingInAnalysis : public ::testing::TestWithParam<BesideBuiltinsCase> {};

TEST_P(NearestBindingInAnalysis, ReportsAsExpected) {
    const auto& c = GetParam();
    EXPECT_EQ(analyzeSource(c.source), c.records) << c.source;
}

INSTANTIATE_TEST_SUITE_P(Cases, NearestBindingInAnalysis, ::testing::ValuesIn(NEAREST_BINDING_CASES),
                         [](const ::testing::TestParamInfo<BesideBuiltinsCase>& info) {
                             return std::string(info.param.title);
                         });

}  // namespace
}  // namespace quor::sema::testing
