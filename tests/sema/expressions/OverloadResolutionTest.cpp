// Overload resolution: defaults, the exact candidate before the first viable
// one, order as the tie-break, and the two failure reports.
#include <memory>
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;

TEST(OverloadResolution, DefaultedParameterMayBeLeftOutButTheRequiredOneMayNot) {
    const std::string src =
        "fn f(int a, int b = 2): int { return a + b; }\n"
        "fn main() {\n"
        "    var none = f();\n"
        "    var one = f(1);\n"
        "    var two = f(1, 2);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1001", "No matching overload for function 'f' with argument types ()",
                                           at(src, 3, "("))}));
    EXPECT_EQ(initializerType(a, "none"), "<type-error>");
    EXPECT_EQ(initializerType(a, "one"), "int");
    EXPECT_EQ(initializerType(a, "two"), "int");
}

TEST(OverloadResolution, TooManyArgumentsFitNoCandidate) {
    const std::string src =
        "fn f(int a, int b = 2): int { return a; }\n"
        "fn main() {\n"
        "    var r = f(1, 2, 3);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1001", "No matching overload for function 'f' with argument types (int, int, int)",
                              at(src, 3, "("))}));
}

TEST(OverloadResolution, ExactCandidateWinsOverAnEarlierViableOne) {
    const std::string src =
        "fn g(double d): string { return \"d\"; }\n"
        "fn g(int i): bool { return true; }\n"
        "fn main() {\n"
        "    int a = 1;\n"
        "    var r = g(a);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "bool");
}

TEST(OverloadResolution, WithoutAnExactCandidateTheFirstViableOneIsTaken) {
    const std::string src =
        "fn g(double d): string { return \"d\"; }\n"
        "fn g(int i): bool { return true; }\n"
        "fn main() {\n"
        "    uint8 b = 1;\n"
        "    var r = g(b);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "string");
}

TEST(OverloadResolution, NoFittingCandidateListsEveryArgumentType) {
    const std::string src =
        "fn g(int i): bool { return true; }\n"
        "fn main() {\n"
        "    var r = g(\"a\", true);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1001", "No matching overload for function 'g' with argument types (string, bool)",
                              at(src, 3, "("))}));
}

TEST(OverloadResolution, BuiltinOverloadsAreCandidatesInTheirOrder) {
    const std::string src =
        "fn main() {\n"
        "    var r = sqrt(\"x\");\n"
        "    var m = max(1, 2);\n"
        "    var d = max(1, 2.5);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1001", "No matching overload for function 'sqrt' with argument types (string)",
                                           at(src, 2, "("))}));
    EXPECT_EQ(initializerType(a, "m"), "int");
    EXPECT_EQ(initializerType(a, "d"), "double");
}

TEST(OverloadResolution, MethodDefaultsAreNotHonoured) {
    const std::string src =
        "class C {\n"
        "    fn m(int a, int b = 2): int { return a; }\n"
        "    fn use(): int { return m(1); }\n"
        "}\n"
        "fn main() {\n"
        "    var c = new C();\n"
        "    var r = c.m(1);\n"
        "    var ok = c.m(1, 2);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(),
              (Records{record("E1001", "No matching overload for function 'm' with argument types (int)",
                              at(src, 3, "(", 2)),
                       record("E1001", "No matching overload for function 'm' with argument types (int)",
                              at(src, 7, "("))}));
    EXPECT_EQ(initializerType(a, "ok"), "int");
}

namespace {

std::shared_ptr<FunctionSymbol> candidate(TypeContext& types, const TypePtr& param, const TypePtr& result) {
    return std::make_shared<FunctionSymbol>("many", types.getFunctionType({param}, result),
                                            quor::diagnostics::SourceLocation{"test.quor", 1, 1});
}

}  // namespace

TEST(OverloadResolution, TenThousandCandidatesAreTriedInOnePass) {
    Analysis a("");
    a.analyze();
    TypeContext& types = a.types();
    std::vector<FunctionSymbolPtr> candidates;
    for (int i = 0; i < 9999; ++i) candidates.push_back(candidate(types, types.stringType, types.boolType));
    auto exact = candidate(types, types.intType, types.charType);
    candidates.push_back(exact);
    quor::diagnostics::SourceLocation where{"test.quor", 1, 1};
    for (int call = 0; call < 100; ++call) {
        EXPECT_EQ(a.checker().resolveOverload(candidates, {types.intType}, where, "many"), exact);
    }
    EXPECT_EQ(a.records(), Records{});
}

TEST(OverloadResolution, TenThousandCandidatesThatAllFailReportOnce) {
    Analysis a("");
    a.analyze();
    TypeContext& types = a.types();
    std::vector<FunctionSymbolPtr> candidates;
    for (int i = 0; i < 10000; ++i) candidates.push_back(candidate(types, types.stringType, types.boolType));
    quor::diagnostics::SourceLocation where{"test.quor", 4, 2};
    EXPECT_EQ(a.checker().resolveOverload(candidates, {types.intType}, where, "many"), nullptr);
    EXPECT_EQ(a.records(),
              (Records{record("E1001", "No matching overload for function 'many' with argument types (int)", "4:2")}));
}

TEST(OverloadResolution, EmptyCandidateListIsAnUndefinedFunction) {
    Analysis a("");
    a.analyze();
    quor::diagnostics::SourceLocation where{"test.quor", 2, 3};
    EXPECT_EQ(a.checker().resolveOverload({}, {}, where, "ghost"), nullptr);
    EXPECT_EQ(a.records(), (Records{record("E1003", "Undefined function or method 'ghost'", "2:3")}));
}

TEST(OverloadResolution, NoArgumentsAndNoParametersIsExactAtOnce) {
    Analysis a("");
    a.analyze();
    TypeContext& types = a.types();
    quor::diagnostics::SourceLocation where{"test.quor", 1, 1};
    auto first = std::make_shared<FunctionSymbol>("z", types.getFunctionType({}, types.intType), where);
    auto second = std::make_shared<FunctionSymbol>("z", types.getFunctionType({}, types.boolType), where);
    EXPECT_EQ(a.checker().resolveOverload({first, second}, {}, where, "z"), first);
}

TEST(OverloadResolution, AnUnresolvedParameterTypeIsHeldToAsUnknown) {
    Analysis a("");
    a.analyze();
    TypeContext& types = a.types();
    quor::diagnostics::SourceLocation where{"test.quor", 1, 1};
    auto open = std::make_shared<FunctionSymbol>("push", types.getFunctionType({nullptr}, types.voidType), where);
    EXPECT_EQ(a.checker().resolveOverload({open}, {types.unknownType}, where, "push"), open);
    EXPECT_EQ(a.checker().resolveOverload({open}, {types.intType}, where, "push"), nullptr);
}
