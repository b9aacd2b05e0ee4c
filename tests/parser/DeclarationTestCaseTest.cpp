// Test declarations: each becomes an ordinary public function whose name is
// the reserved prefix and the test name with every byte outside [A-Za-z0-9]
// mapped to an underscore.
#include <gtest/gtest.h>

#include <string>

#include "parser/ParserTestSupport.h"

namespace quor::parser::testing {
namespace {

using Parsed = ParsedProgram;

TEST(DeclarationTest, StringNamedTestBecomesAPlainFunction) {
    Parsed p("test \"adds two\" { x; }");
    const auto* fn = p.fn();
    ASSERT_NE(fn, nullptr);
    EXPECT_EQ(fn->name, "__quor_test_adds_two");
    EXPECT_TRUE(fn->typeParams.empty());
    EXPECT_TRUE(fn->params.empty());
    EXPECT_EQ(fn->returnType, "void");
    ASSERT_NE(fn->body, nullptr);
    EXPECT_EQ(show(fn->body.get()), "{(expr x)}");
    EXPECT_EQ(fn->exprBody, nullptr);
    EXPECT_EQ(fn->visibility, "public");
    EXPECT_FALSE(fn->isStatic || fn->isOverride || fn->isAbstract || fn->isAsync);
    EXPECT_EQ(fn->location.column, 1u);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTest, BlankBecomesAnUnderscore) {
    Parsed p("test \"a b\" { }");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->name, "__quor_test_a_b");
}

TEST(DeclarationTest, IdentifierName) {
    Parsed p("test smoke_1 { }");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->name, "__quor_test_smoke_1");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTest, EveryByteOutsideLettersAndDigitsIsMapped) {
    // "é" is two bytes, and each becomes an underscore.
    Parsed p("test \"\xC3\xA9-Az9.\" { }");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->name, "__quor_test____Az9_");
}

TEST(DeclarationTest, EmptyStringGivesThePrefixAlone) {
    Parsed p("test \"\" { }");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->name, "__quor_test_");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTest, SurroundingDoubleQuotesOfTheNameAreStripped) {
    Parsed p("test \"\\\"q\\\"\" { }");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->name, "__quor_test_q");
}

TEST(DeclarationTest, NamesMayCollideAfterMapping) {
    Parsed p("test \"a b\" { } test \"a-b\" { }");
    ASSERT_NE(p.fn(0), nullptr);
    ASSERT_NE(p.fn(1), nullptr);
    EXPECT_EQ(p.fn(0)->name, p.fn(1)->name);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTest, MissingNameIsReportedAndTheTestIsAnonymous) {
    Parsed p("test { }");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->name, "__quor_test_anonymous_test");
    ASSERT_NE(p.fn()->body, nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected test name string literal or identifier after 'test'", 1, 6);
}

TEST(DeclarationTest, EmptyParenthesesAreAccepted) {
    Parsed p("test \"x\"() { }");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_TRUE(p.fn()->params.empty());
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationTest, ParametersCannotBeWritten) {
    Parsed p("test \"x\"(a) { }");
    ASSERT_NE(p.fn(), nullptr);
    ASSERT_GE(p.reports(), 2u);
    expectReport(p.report(0), "Expected ')' after test declaration parameters", 1, 10);
    expectReport(p.report(1), "Expected '{' to start test body", 1, 10);
}

TEST(DeclarationTest, MissingBodyGivesAnEmptyBlockAtTheTestsPlace) {
    Parsed p("\n  test \"x\";");
    const auto* fn = p.fn();
    ASSERT_NE(fn, nullptr);
    ASSERT_NE(fn->body, nullptr);
    EXPECT_TRUE(fn->body->statements.empty());
    EXPECT_EQ(fn->body->location.line, 2u);
    EXPECT_EQ(fn->body->location.column, 3u);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected '{' to start test body", 2, 11);
}

TEST(DeclarationTest, ModifiersAreDropped) {
    Parsed p("private static test \"t\" { }");
    ASSERT_NE(p.fn(), nullptr);
    EXPECT_EQ(p.fn()->visibility, "public");
    EXPECT_FALSE(p.fn()->isStatic);
    EXPECT_EQ(p.reports(), 0u);
}

}  // namespace
}  // namespace quor::parser::testing
