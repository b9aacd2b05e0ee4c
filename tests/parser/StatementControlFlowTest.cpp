// Control flow statements: if, while, do-while, both for forms, switch,
// match and try/catch/finally.
#include <gtest/gtest.h>

#include <string>

#include "parser/ParserTestSupport.h"

namespace quor::parser::testing {
namespace {

// Parses one statement and checks that it is of class T.
template <class T>
struct Parsed {
    explicit Parsed(std::string_view source) : run(source), stmt(run.access().parseStatement()) {}
    const T* get() const { return as<T>(stmt.get()); }
    ParseRun run;
    std::unique_ptr<ast::StatementNode> stmt;
};

// ---- if ----

TEST(StatementIf, IfWithoutElse) {
    Parsed<ast::IfStmt> p(" if (a) b;");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->condition.get()), "a");
    EXPECT_EQ(show(p.get()->thenBranch.get()), "(expr b)");
    EXPECT_EQ(p.get()->elseBranch, nullptr);
    EXPECT_EQ(p.get()->location.column, 2u);
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementIf, ElseIfIsANestedIf) {
    Parsed<ast::IfStmt> p("if (a) { x; } else if (b) y; else z;");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->thenBranch.get()), "{(expr x)}");
    const auto* inner = as<ast::IfStmt>(p.get()->elseBranch.get());
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(show(inner->condition.get()), "b");
    EXPECT_EQ(show(inner->elseBranch.get()), "(expr z)");
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementIf, MissingParenthesesAreReported) {
    Parsed<ast::IfStmt> p("if a { }");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 2u);
    expectReport(p.run.diagnostics()[0], "Expected '(' after 'if'", 1, 4);
    expectReport(p.run.diagnostics()[1], "Expected ')' after if condition", 1, 6);
    EXPECT_EQ(show(p.get()->thenBranch.get()), "{}");
}

// ---- while / do-while ----

TEST(StatementWhile, WhileLoop) {
    Parsed<ast::WhileStmt> p("while (i < n) i++;");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->condition.get()), "(< i n)");
    EXPECT_EQ(show(p.get()->body.get()), "(expr (i ++))");
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementWhile, MissingParenthesesAreReported) {
    Parsed<ast::WhileStmt> p("while x {}");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 2u);
    expectReport(p.run.diagnostics()[0], "Expected '(' after 'while'", 1, 7);
    expectReport(p.run.diagnostics()[1], "Expected ')' after while condition", 1, 9);
}

TEST(StatementDoWhile, DoWhileLoop) {
    Parsed<ast::DoWhileStmt> p("do { i++; } while (i < 3);");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->body.get()), "{(expr (i ++))}");
    EXPECT_EQ(show(p.get()->condition.get()), "(< i 3)");
    EXPECT_EQ(p.get()->location.column, 1u);
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementDoWhile, EveryMissingPieceIsReported) {
    Parsed<ast::DoWhileStmt> p("do {} x");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 4u);
    expectReport(p.run.diagnostics()[0], "Expected 'while' after 'do' body", 1, 7);
    expectReport(p.run.diagnostics()[1], "Expected '(' after 'while'", 1, 7);
    expectReport(p.run.diagnostics()[2], "Expected ')' after do-while condition", 1, 8);
    expectReport(p.run.diagnostics()[3], "Expected ';' after do-while statement", 1, 8);
    EXPECT_EQ(show(p.get()->condition.get()), "x");
}

// ---- for ----

TEST(StatementFor, EmptyClausesAreAllNull) {
    Parsed<ast::ForStmt> p("for (;;) {}");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(p.get()->init, nullptr);
    EXPECT_EQ(p.get()->condition, nullptr);
    EXPECT_EQ(p.get()->update, nullptr);
    EXPECT_EQ(show(p.get()->body.get()), "{}");
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementFor, CountedLoopWithVarInitialiser) {
    Parsed<ast::ForStmt> p("for (var i = 0; i < n; i++) { }");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->init.get()), "(var  i 0)");
    EXPECT_EQ(show(p.get()->condition.get()), "(< i n)");
    EXPECT_EQ(show(p.get()->update.get()), "(i ++)");
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementFor, CountedLoopWithTypedAndExpressionInitialisers) {
    Parsed<ast::ForStmt> typed("for (int i = 0; ; ) x;");
    ASSERT_NE(typed.get(), nullptr);
    EXPECT_EQ(show(typed.get()->init.get()), "(var int i 0)");
    EXPECT_TRUE(typed.run.diagnostics().empty());

    Parsed<ast::ForStmt> expr("for (i = 0; i < 3; i += 1) x;");
    ASSERT_NE(expr.get(), nullptr);
    EXPECT_EQ(show(expr.get()->init.get()), "(expr (= i 0))");
    EXPECT_EQ(show(expr.get()->update.get()), "(+= i 1)");
    EXPECT_TRUE(expr.run.diagnostics().empty());
}

TEST(StatementFor, CountedLoopReports) {
    Parsed<ast::ForStmt> p("for i = 0; i < 3 x) {}");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 2u);
    expectReport(p.run.diagnostics()[0], "Expected '(' after 'for'", 1, 5);
    expectReport(p.run.diagnostics()[1], "Expected ';' after for loop condition", 1, 18);

    Parsed<ast::ForStmt> q("for (;; i++ {}");
    ASSERT_NE(q.get(), nullptr);
    ASSERT_EQ(q.run.diagnostics().size(), 1u);
    expectReport(q.run.diagnostics()[0], "Expected ')' after for clauses", 1, 13);
}

struct ForInCase {
    const char* source;
    const char* varName;
    const char* varType;
};

TEST(StatementForIn, AllFourHeadersAreForIn) {
    const ForInCase cases[] = {
        {"for (i in a) {}", "i", "auto"},
        {"for (var i in a) {}", "i", "auto"},
        {"for (let i in a) {}", "i", "auto"},
        {"for (int i in a) {}", "i", "int"},
        {"for (Point p in a) {}", "p", "Point"},
    };
    for (const auto& c : cases) {
        Parsed<ast::ForInStmt> p(c.source);
        ASSERT_NE(p.get(), nullptr) << c.source;
        EXPECT_EQ(p.get()->varName, c.varName) << c.source;
        EXPECT_EQ(p.get()->varType, c.varType) << c.source;
        EXPECT_EQ(show(p.get()->iterable.get()), "a") << c.source;
        EXPECT_EQ(show(p.get()->body.get()), "{}") << c.source;
        EXPECT_EQ(p.get()->location.column, 1u) << c.source;
        EXPECT_TRUE(p.run.diagnostics().empty()) << c.source;
    }
}

TEST(StatementForIn, IterableIsAFullExpression) {
    Parsed<ast::ForInStmt> p("for (x in 0..n + 1) print(x);");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->iterable.get()), "(.. 0 (+ n 1))");
    EXPECT_EQ(show(p.get()->body.get()), "(expr (call print x))");
}

TEST(StatementForIn, MissingClosingParenthesis) {
    Parsed<ast::ForInStmt> p("for (x in xs {}");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 1u);
    expectReport(p.run.diagnostics()[0], "Expected ')' after for-in expression", 1, 14);
}

TEST(StatementForIn, GenericTypeIsNoForInHeader) {
    // Only a one-token type can stand in front of the loop variable.
    Parsed<ast::ForStmt> p("for (List<int> x in a) {}");
    EXPECT_NE(p.get(), nullptr);
    EXPECT_FALSE(p.run.diagnostics().empty());
}

TEST(StatementForIn, HeadThatIsNoTypeIsTakenAsTheVariable) {
    // `const x in a` has the shape of a typed for-in header. The head is no
    // type: it is reported and consumes nothing, so the next two tokens taken
    // are `const` as the variable and `x` as the word, and the iterable starts
    // at `in`, leaving `a` in front of the missing parenthesis.
    Parsed<ast::ForInStmt> p("for (const x in a) {}");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(p.get()->varName, "const");
    EXPECT_EQ(p.get()->varType, "unknown");
    EXPECT_EQ(show(p.get()->iterable.get()), "in");
    EXPECT_EQ(show(p.get()->body.get()), "(expr a)");
    ASSERT_EQ(p.run.diagnostics().size(), 3u);
    expectReport(p.run.diagnostics()[0], "Expected type name", 1, 6);
    expectReport(p.run.diagnostics()[1], "Expected ')' after for-in expression", 1, 17);
    expectReport(p.run.diagnostics()[2], "Expected ';' after expression", 1, 18);
}

TEST(StatementForIn, InAsAStringIsNoForInWord) {
    Parsed<ast::ForStmt> p("for (var i \"in\" a) {}");
    EXPECT_NE(p.get(), nullptr);
    EXPECT_FALSE(p.run.diagnostics().empty());
}

TEST(StatementForIn, InStaysUsableAsAName) {
    ParseRun run("{ var in = 1; in = in + 1; int x = in; }");
    auto stmt = run.access().parseStatement();
    EXPECT_EQ(show(stmt.get()), "{(var  in 1) (expr (= in (+ in 1))) (var int x in)}");
    EXPECT_TRUE(run.diagnostics().empty());

    Parsed<ast::ForInStmt> p("for (in in in) {}");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(p.get()->varName, "in");
    EXPECT_EQ(show(p.get()->iterable.get()), "in");
    EXPECT_TRUE(p.run.diagnostics().empty());

    Parsed<ast::ForStmt> counted("for (in = 0; in < 2; in++) {}");
    ASSERT_NE(counted.get(), nullptr);
    EXPECT_TRUE(counted.run.diagnostics().empty());
}

// ---- switch ----

TEST(StatementSwitch, CasesAndDefault) {
    Parsed<ast::SwitchStmt> p("switch (x) { case 1: a(); b(); case 2: case 3: c(); default: d(); }");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->subject.get()), "x");
    ASSERT_EQ(p.get()->cases.size(), 3u);
    EXPECT_EQ(show(p.get()->cases[0].value.get()), "1");
    EXPECT_EQ(p.get()->cases[0].body.size(), 2u);
    EXPECT_EQ(show(p.get()->cases[1].value.get()), "2");
    EXPECT_TRUE(p.get()->cases[1].body.empty());  // stacked labels give empty bodies
    EXPECT_EQ(p.get()->cases[2].body.size(), 1u);
    ASSERT_EQ(p.get()->defaultBody.size(), 1u);
    EXPECT_EQ(show(p.get()->defaultBody[0].get()), "(expr (call d))");
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementSwitch, NoDefaultLeavesTheDefaultBodyEmpty) {
    Parsed<ast::SwitchStmt> p("switch (x) { case 1: break; }");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_TRUE(p.get()->defaultBody.empty());
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementSwitch, SecondDefaultAppendsToTheSameBody) {
    Parsed<ast::SwitchStmt> p("switch (x) { default: a(); case 1: b(); default: c(); }");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.get()->defaultBody.size(), 2u);
    EXPECT_EQ(show(p.get()->defaultBody[0].get()), "(expr (call a))");
    EXPECT_EQ(show(p.get()->defaultBody[1].get()), "(expr (call c))");
    EXPECT_EQ(p.get()->cases.size(), 1u);
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementSwitch, StrayTokenIsReportedOnceAndConsumed) {
    Parsed<ast::SwitchStmt> p("switch (x) { foo }");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 1u);
    expectReport(p.run.diagnostics()[0], "Expected 'case' or 'default' in switch block", 1, 14);
    EXPECT_TRUE(p.get()->cases.empty());
}

TEST(StatementSwitch, HeaderAndLabelReports) {
    Parsed<ast::SwitchStmt> p("switch x case 1 a; default b; }");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 5u);
    expectReport(p.run.diagnostics()[0], "Expected '(' after 'switch'", 1, 8);
    expectReport(p.run.diagnostics()[1], "Expected ')' after switch subject", 1, 10);
    expectReport(p.run.diagnostics()[2], "Expected '{' before switch cases", 1, 10);
    expectReport(p.run.diagnostics()[3], "Expected ':' after case value", 1, 17);
    expectReport(p.run.diagnostics()[4], "Expected ':' after default", 1, 28);
    ASSERT_EQ(p.get()->cases.size(), 1u);
    EXPECT_EQ(p.get()->defaultBody.size(), 1u);
}

TEST(StatementSwitch, UnclosedSwitchReportsAtTheEnd) {
    Parsed<ast::SwitchStmt> p("switch (x) { case 1: a;");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 1u);
    expectReport(p.run.diagnostics()[0], "Expected '}' after switch cases", 1, 24);
}

// ---- match ----

TEST(StatementMatch, ArmsWithWildcardAndBlockBody) {
    Parsed<ast::MatchStmt> p("match x { 1 => a, _ => { b(); } }");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->subject.get()), "x");
    ASSERT_EQ(p.get()->arms.size(), 2u);
    EXPECT_EQ(show(p.get()->arms[0].pattern.get()), "1");
    EXPECT_EQ(show(p.get()->arms[0].body.get()), "a");
    EXPECT_EQ(p.get()->arms[1].pattern, nullptr);
    EXPECT_NE(as<ast::BlockStmt>(p.get()->arms[1].body.get()), nullptr);
    EXPECT_EQ(show(p.get()->arms[1].body.get()), "{(expr (call b))}");
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementMatch, CommaBetweenArmsIsOptional) {
    Parsed<ast::MatchStmt> p("match f(y) { 1 => a 2 => b, }");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->subject.get()), "(call f y)");
    EXPECT_EQ(p.get()->arms.size(), 2u);
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementMatch, Reports) {
    Parsed<ast::MatchStmt> p("match x 1 a }");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 2u);
    expectReport(p.run.diagnostics()[0], "Expected '{' before match arms", 1, 9);
    expectReport(p.run.diagnostics()[1], "Expected '=>' after match pattern", 1, 11);

    Parsed<ast::MatchStmt> q("match x { _ => 1");
    ASSERT_NE(q.get(), nullptr);
    ASSERT_EQ(q.run.diagnostics().size(), 1u);
    expectReport(q.run.diagnostics()[0], "Expected '}' after match block", 1, 17);
}

// ---- try ----

TEST(StatementTry, TryWithCatchesAndFinally) {
    Parsed<ast::TryCatchStmt> p("try { a(); } catch (IOError e) { b(); } catch (Error? f) {} finally { c(); }");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_EQ(show(p.get()->tryBlock.get()), "{(expr (call a))}");
    ASSERT_EQ(p.get()->catches.size(), 2u);
    EXPECT_EQ(p.get()->catches[0].exceptionType, "IOError");
    EXPECT_EQ(p.get()->catches[0].varName, "e");
    EXPECT_EQ(show(p.get()->catches[0].body.get()), "{(expr (call b))}");
    EXPECT_EQ(p.get()->catches[1].exceptionType, "Error?");
    EXPECT_EQ(p.get()->catches[1].varName, "f");
    EXPECT_EQ(show(p.get()->finallyBlock.get()), "{(expr (call c))}");
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementTry, TryAloneIsAccepted) {
    Parsed<ast::TryCatchStmt> p("try {}");
    ASSERT_NE(p.get(), nullptr);
    EXPECT_TRUE(p.get()->catches.empty());
    EXPECT_EQ(p.get()->finallyBlock, nullptr);
    EXPECT_TRUE(p.run.diagnostics().empty());
}

TEST(StatementTry, UntypedCatchIsAnError) {
    Parsed<ast::TryCatchStmt> p("try {} catch (e) {}");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 1u);
    expectReport(p.run.diagnostics()[0], "Expected exception variable name", 1, 16);
    ASSERT_EQ(p.get()->catches.size(), 1u);
    EXPECT_EQ(p.get()->catches[0].exceptionType, "e");
    EXPECT_EQ(p.get()->catches[0].varName, "");
}

TEST(StatementTry, CatchClauseReports) {
    Parsed<ast::TryCatchStmt> p("try {} catch Error e {}");
    ASSERT_NE(p.get(), nullptr);
    ASSERT_EQ(p.run.diagnostics().size(), 2u);
    expectReport(p.run.diagnostics()[0], "Expected '(' after 'catch'", 1, 14);
    expectReport(p.run.diagnostics()[1], "Expected ')' after catch clause parameters", 1, 22);
}

}  // namespace
}  // namespace quor::parser::testing
