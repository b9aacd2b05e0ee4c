#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sema/SemaTestSupport.h"

namespace {

using quor::sema::ClassType;
using quor::sema::TypeKind;
using quor::sema::testing::Analysis;
using Records = std::vector<std::string>;

TEST(BuiltinNamesInPrograms, AUserClassNamedLikeABuiltInFunctionIsADuplicate) {
    Analysis analysis("class print {\n}\n");
    analysis.analyze();
    EXPECT_EQ(analysis.records(),
              (Records{"E1004|Duplicate declaration of class 'print'|A symbol with name 'print' is already "
                       "declared in this scope|1:1"}));
}

TEST(BuiltinNamesInPrograms, AUserStructNamedLikeABuiltInConstantIsADuplicate) {
    Analysis analysis("struct PI {\n    x: int;\n}\n");
    analysis.analyze();
    EXPECT_EQ(analysis.records(),
              (Records{"E1004|Duplicate declaration of struct 'PI'|A symbol with name 'PI' is already "
                       "declared in this scope|1:1"}));
}

TEST(BuiltinNamesInPrograms, AUserFunctionWithTheParametersOfABuiltInIsDroppedWithoutADiagnostic) {
    Analysis analysis("fn print(s: string) {\n}\n");
    analysis.analyze();
    EXPECT_TRUE(analysis.records().empty()) << analysis.describeAll();
    auto overloads = analysis.symbols().lookupFunctions("print");
    ASSERT_EQ(overloads.size(), 2u);
    EXPECT_EQ(overloads[0]->location.file, "<built-in>");
    EXPECT_EQ(overloads[1]->location.file, "<built-in>");
    EXPECT_EQ(overloads[0]->decl, nullptr);
}

TEST(BuiltinNamesInPrograms, AUserFunctionWithOtherParametersJoinsTheBuiltInOverloads) {
    Analysis analysis("fn print(a: int, b: int) {\n}\n");
    analysis.analyze();
    EXPECT_TRUE(analysis.records().empty()) << analysis.describeAll();
    auto overloads = analysis.symbols().lookupFunctions("print");
    ASSERT_EQ(overloads.size(), 3u);
    EXPECT_EQ(overloads[2]->location.file, "test.quor");
}

TEST(BuiltinNamesInPrograms, AUserClassNamedLikeABuiltInClassQuietlyHidesIt) {
    Analysis analysis("class Console {\n}\n");
    analysis.analyze();
    EXPECT_TRUE(analysis.records().empty()) << analysis.describeAll();
    auto console = analysis.types().findUserType("Console");
    ASSERT_NE(console, nullptr);
    ASSERT_EQ(console->kind, TypeKind::Class);
    EXPECT_NE(static_cast<ClassType&>(*console).decl, nullptr);
    EXPECT_TRUE(static_cast<ClassType&>(*console).methods.empty());
}

}  // namespace
