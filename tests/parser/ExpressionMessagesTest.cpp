#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace {

using quor::parser::testing::ParseRun;
using quor::parser::testing::show;

struct Report {
    std::string message;
    std::uint32_t line;
    std::uint32_t column;
};

struct MessageCase {
    const char* source;
    const char* tree;
    std::vector<Report> reports;
};

// Every fault of the expression grammar, with the exact text and place of
// each report and the tree that is still built.
const std::vector<MessageCase>& messageCases() {
    static const std::vector<MessageCase> cases{
        {"a +", "(+ a <null>)", {{"Expected expression, found: ", 1, 4}}},
        {"a + ;", "(+ a <null>)", {{"Expected expression, found: ;", 1, 5}}},
        {"()", "<null>", {{"Empty parentheses '()' are only allowed in lambda definitions", 1, 2}}},
        {"(a b)", "a", {{"Expected ')' after expression", 1, 4}}},
        {"(a", "a", {{"Expected ')' after expression", 1, 3}}},
        {"[1 2]", "[1]", {{"Expected ']' at end of array literal", 1, 4}}},
        {"{a: 1, b 2}",
         "{a:1 b:2}",
         {{"Expected ':' between key and value in map entry", 1, 10}}},
        {"{a: 1 b}", "{a:1}", {{"Expected '}' at end of map literal", 1, 7}}},
        {"{1, 2\n 3}", "[1 2]", {{"Expected '}' at end of array literal", 2, 2}}},
        {"new 1", "(new  1)",
         {{"Expected class name after 'new'", 1, 5},
          {"Expected '(' after class name in new expression", 1, 5},
          {"Expected ')' after constructor arguments", 1, 6}}},
        {"new Box<int, string", "(new Box <int, string> <null>)",
         {{"Expected '>' after generic type arguments", 1, 20},
          {"Expected '(' after class name in new expression", 1, 20},
          {"Expected expression, found: ", 1, 20},
          {"Expected ')' after constructor arguments", 1, 20}}},
        {"new Box;", "(new Box <null>)",
         {{"Expected '(' after class name in new expression", 1, 8},
          {"Expected expression, found: ;", 1, 8},
          {"Expected ')' after constructor arguments", 1, 9}}},
        {"new Box(1, 2;", "(new Box 1 2)", {{"Expected ')' after constructor arguments", 1, 13}}},
        {"f(1 2)", "(call f 1)", {{"Expected ')' after argument list", 1, 5}}},
        {"a[1 2]", "([] a 1)", {{"Expected ']' after index", 1, 5}}},
        {"c ? a b", "(? c a b)", {{"Expected ':' in ternary operator", 1, 7}}},
        {"a.(1)", "(call (. a ) 1)", {{"Expected member identifier after '.'", 1, 3}}},
        {"a?.;", "(?. a )", {{"Expected member identifier after '.'", 1, 4}}},
        {"f<int int>(1)", "(call f <int> (> int 1))",
         {{"Expected '>' after generic type arguments", 1, 7},
          {"Expected '(' after generic type arguments in call", 1, 7},
          {"Expected ')' after argument list", 1, 14}}},
        {"(int<1)", "(< int 1)",
         {{"Expected type name", 1, 6}, {"Expected '>' after generic type arguments", 1, 6}}},
    };
    return cases;
}

TEST(ExpressionMessages, EveryFaultReportsItsTextAtItsPlace) {
    for (const MessageCase& c : messageCases()) {
        ParseRun run(c.source);
        auto expr = run.expression();
        EXPECT_EQ(show(expr.get()), c.tree) << c.source;
        const auto& got = run.diagnostics();
        ASSERT_EQ(got.size(), c.reports.size()) << c.source;
        for (std::size_t i = 0; i < got.size(); ++i) {
            EXPECT_EQ(got[i].code, "E1000") << c.source;
            EXPECT_EQ(got[i].message, c.reports[i].message) << c.source;
            EXPECT_EQ(got[i].hint, "") << c.source;
            EXPECT_EQ(got[i].location.file, "test.qr") << c.source;
            EXPECT_EQ(got[i].location.line, c.reports[i].line) << c.source << " #" << i;
            EXPECT_EQ(got[i].location.column, c.reports[i].column) << c.source << " #" << i;
        }
    }
}

TEST(ExpressionMessages, FailedConsumeLeavesTheTokenForTheCaller) {
    ParseRun run("f(1 2)");
    run.expression();
    EXPECT_EQ(run.access().peek().lexeme, "2");
}

TEST(ExpressionMessages, ParsingWithoutAnEngineBuildsTheSameTree) {
    for (const MessageCase& c : messageCases()) {
        std::vector<quor::lexer::Token> tokens = ParseRun::scan(c.source);
        quor::parser::Parser silent(tokens, "test.qr", nullptr);
        auto expr = silent.parseExpression(quor::parser::Precedence::Assignment);
        EXPECT_EQ(show(expr.get()), c.tree) << c.source;
    }
}

}  // namespace
