#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace {

using quor::lexer::Token;
using quor::lexer::TokenType;
using quor::parser::testing::ParseRun;
using quor::parser::testing::show;
using quor::parser::testing::showExpression;
using quor::parser::testing::tok;

// Whether the "<" at token index `index` of `source` opens a generic call.
bool genericAt(const char* source, std::uint64_t index) {
    ParseRun run(source);
    return run.access().isGenericCall(index);
}

TEST(GenericCallLookahead, TypeArgumentsFollowedByAParenthesisAreACall) {
    EXPECT_TRUE(genericAt("f<int>(1)", 1));
    EXPECT_TRUE(genericAt("f<int, string[]?>(1)", 1));
    EXPECT_FALSE(genericAt("f<Map<K, V>>", 1));
    EXPECT_TRUE(genericAt("f<List<int> >(1)", 1));
}

TEST(GenericCallLookahead, ShiftTokenEndsTheLookahead) {
    EXPECT_FALSE(genericAt("f<List<int>>(1)", 1));
}

TEST(GenericCallLookahead, NumberTokenEndsTheLookahead) {
    EXPECT_FALSE(genericAt("f<1>(2)", 1));
}

TEST(GenericCallLookahead, ComparisonWithNothingBehindIsNoCall) {
    EXPECT_FALSE(genericAt("a < b", 1));
    EXPECT_FALSE(genericAt("a < b > c", 1));
}

TEST(GenericCallLookahead, IndexMustHoldALess) {
    EXPECT_FALSE(genericAt("f<int>(1)", 0));
    EXPECT_FALSE(genericAt("f<int>(1)", 2));
    EXPECT_FALSE(genericAt("f<int>(1)", 99));
}

TEST(GenericCallLookahead, LessAtTheVeryEndIsAComparison) {
    EXPECT_FALSE(genericAt("a <", 1));
    std::vector<Token> tokens{tok(TokenType::Identifier, "a"), tok(TokenType::Less, "<")};
    ParseRun run(tokens);
    EXPECT_FALSE(run.access().isGenericCall(1));
}

TEST(GenericCallLookahead, VectorEndingInsideTheBracketsIsNoCall) {
    std::vector<Token> tokens{tok(TokenType::Identifier, "f"), tok(TokenType::Less, "<"),
                              tok(TokenType::Identifier, "T")};
    ParseRun run(tokens);
    EXPECT_FALSE(run.access().isGenericCall(1));
}

TEST(GenericCallLookahead, ClosingBracketAtTheVeryEndIsNoCall) {
    std::vector<Token> tokens{tok(TokenType::Identifier, "f"), tok(TokenType::Less, "<"),
                              tok(TokenType::Identifier, "T"), tok(TokenType::Greater, ">")};
    ParseRun run(tokens);
    EXPECT_FALSE(run.access().isGenericCall(1));
}

TEST(GenericCallLookahead, AllowedTokensBetweenTheBrackets) {
    EXPECT_FALSE(genericAt("f<A[], B?, int, List<C>>(x)", 1));  // ">>" again
    EXPECT_TRUE(genericAt("f<A[], B?, int, List<C> >(x)", 1));
    EXPECT_FALSE(genericAt("f<a.b>(x)", 1));
    EXPECT_FALSE(genericAt("f<\"s\">(x)", 1));
}

TEST(GenericCallParse, CallWithTypeArgumentsIsACallExpr) {
    ParseRun run("f<int>(1)");
    auto expr = run.expression();
    ASSERT_NE(expr, nullptr);
    ASSERT_EQ(expr->nodeKind, quor::ast::NodeKind::CallExpr);
    const auto& call = static_cast<const quor::ast::CallExpr&>(*expr);
    EXPECT_EQ(call.typeArgs, std::vector<std::string>{"int"});
    ASSERT_EQ(call.args.size(), 1u);
    EXPECT_EQ(show(call.callee.get()), "f");
    // The node stands at the "<".
    EXPECT_EQ(call.location.line, 1u);
    EXPECT_EQ(call.location.column, 2u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(GenericCallParse, SeveralTypeArgumentsKeepTheirCanonicalText) {
    EXPECT_EQ(showExpression("f<int, string[]?>(1)"), "(call f <int, string[]?> 1)");
    EXPECT_EQ(showExpression("f<List<int> >(1, 2)"), "(call f <List<int>> 1 2)");
    EXPECT_EQ(showExpression("obj.get<T>()"), "(call (. obj get) <T>)");
}

TEST(GenericCallParse, DoubleClosingBracketParsesAsComparisons) {
    ParseRun run("f<List<int>>(1)");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(< (< f List) (>> int 1))");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(GenericCallParse, ComparisonWithNothingBehind) {
    EXPECT_EQ(showExpression("a < b"), "(< a b)");
}

TEST(GenericCallParse, NumberInsideTheBracketsGivesComparisons) {
    EXPECT_EQ(showExpression("f<1>(2)"), "(> (< f 1) 2)");
}

TEST(GenericCallParse, ComparisonShapedLikeACallIsTakenForOne) {
    EXPECT_EQ(showExpression("a < b > (c)"), "(call a <b> c)");
}

TEST(GenericCallParse, PlainCallHasNoTypeArguments) {
    ParseRun run("f(1, 2)");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, quor::ast::NodeKind::CallExpr);
    const auto& call = static_cast<const quor::ast::CallExpr&>(*expr);
    EXPECT_TRUE(call.typeArgs.empty());
    EXPECT_EQ(call.args.size(), 2u);
    EXPECT_EQ(call.location.column, 2u);  // at the "("
}

TEST(GenericCallParse, CallStandsAtTheLessAndKeepsItsArguments) {
    ParseRun run("make <int, string[]?>(1, x)");
    auto expr = run.expression();
    ASSERT_EQ(expr->nodeKind, quor::ast::NodeKind::CallExpr);
    const auto& call = static_cast<const quor::ast::CallExpr&>(*expr);
    EXPECT_EQ(call.location.column, 6u);  // at the "<"
    EXPECT_EQ(call.typeArgs, (std::vector<std::string>{"int", "string[]?"}));
    EXPECT_EQ(show(expr.get()), "(call make <int, string[]?> 1 x)");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(GenericCallParse, GenericCallTakesFurtherPostfixOperators) {
    EXPECT_EQ(showExpression("a.f<T>(1).g"), "(. (call (. a f) <T> 1) g)");
    EXPECT_EQ(showExpression("-f<T>()"), "(- (call f <T>))");
}

TEST(GenericCallParse, TypeArgumentWithoutHeadIsReportedInsideTheCall) {
    ParseRun run("f<int, >(1)");
    auto expr = run.expression();
    EXPECT_EQ(show(expr.get()), "(call f <int, unknown> 1)");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Expected type name");
    EXPECT_EQ(run.diagnostics()[0].location.column, 8u);
}

TEST(GenericCallParse, MissingCommaBetweenTypeArgumentsReportsBothClosers) {
    // The lookahead accepts "int int"; the type list stops after the first,
    // so neither '>' nor '(' is where the call expects it.
    ParseRun run("f<int int>(1)");
    auto expr = run.expression();
    std::vector<std::string> expected{"Expected '>' after generic type arguments",
                                      "Expected '(' after generic type arguments in call",
                                      "Expected ')' after argument list"};
    EXPECT_EQ(run.messages(), expected);
    EXPECT_EQ(run.diagnostics()[0].location.column, 7u);
    EXPECT_EQ(run.diagnostics()[1].location.column, 7u);
    EXPECT_EQ(run.diagnostics()[2].location.column, 14u);
    EXPECT_EQ(show(expr.get()), "(call f <int> (> int 1))");
}

}  // namespace

namespace {

// The lookahead written the plain way: scan from the `<` with a depth count.
bool scanForGenericCall(const std::vector<Token>& tokens, std::size_t index) {
    if (index >= tokens.size() || tokens[index].type != TokenType::Less || index + 1 >= tokens.size()) return false;
    std::size_t depth = 1;
    for (std::size_t scan = index + 1; scan < tokens.size(); ++scan) {
        TokenType type = tokens[scan].type;
        if (type == TokenType::Less) {
            ++depth;
        } else if (type == TokenType::Greater) {
            if (--depth == 0) return scan + 1 < tokens.size() && tokens[scan + 1].type == TokenType::LeftParen;
        } else if (type != TokenType::Identifier && !quor::parser::ParserTestAccess::isTypeKeyword(type) &&
                   type != TokenType::LeftBracket && type != TokenType::RightBracket && type != TokenType::Comma &&
                   type != TokenType::Question) {
            return false;
        }
    }
    return false;
}

}  // namespace

TEST(GenericCallLookahead, AgreesWithAPlainScanOnEveryIndexOfRandomSequences) {
    const char* pieces[] = {"a ", "< ", "> ", "( ", ") ", ", ", "[ ", "] ", "? ", "int ", "1 ", ">> ", "; "};
    std::uint32_t seed = 12345;
    for (int round = 0; round < 400; ++round) {
        std::string source;
        for (int i = 0; i < 30; ++i) {
            seed = seed * 1103515245u + 12345u;
            source += pieces[(seed >> 16) % (sizeof pieces / sizeof pieces[0])];
        }
        ParseRun run(source);
        for (std::size_t index = 0; index < run.tokens.size() + 1; ++index) {
            EXPECT_EQ(run.access().isGenericCall(index), scanForGenericCall(run.tokens, index))
                << source << " at " << index;
        }
    }
}

TEST(GenericCallLookahead, LongRunsOfOpenersAreEachAnsweredAlone) {
    std::string source;
    for (int i = 0; i < 20000; ++i) source += "a<";
    source += "b";
    for (int i = 0; i < 20000; ++i) source += " >";  // apart, or they scan as shifts
    source += "(1)";
    ParseRun run(source);
    // Every `<` closes with the `>`s in reverse order; only the outermost
    // one has the `(` right behind its `>`.
    EXPECT_TRUE(run.access().isGenericCall(1));
    EXPECT_FALSE(run.access().isGenericCall(3));
    EXPECT_FALSE(run.access().isGenericCall(39999));
}
