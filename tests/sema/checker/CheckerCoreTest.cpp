// The checker's entry points: typing one expression, recording its type by
// node, and turning a visit that found nothing into the error type.
#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

using Records = std::vector<std::string>;

const diagnostics::SourceLocation PLACE{"test.quor", 4, 2};

TEST(CheckerCore, AFreshCheckerHasNoStateInForce) {
    Analysis analysis("");
    const TypeChecker& checker = analysis.checker();
    EXPECT_EQ(checker.currentType, nullptr);
    EXPECT_EQ(checker.currentReturnType, nullptr);
    EXPECT_EQ(checker.currentClass, nullptr);
    EXPECT_EQ(checker.loopDepth, 0);
    EXPECT_EQ(checker.switchDepth, 0);
    EXPECT_TRUE(checker.exprTypes.empty());
}

TEST(CheckerCore, CheckExprRecordsTheTypeUnderTheNode) {
    Analysis analysis("");
    ast::LiteralExpr literal(ast::LiteralKind::Boolean, "true", PLACE);
    TypePtr type = analysis.checker().checkExpr(literal);
    EXPECT_EQ(type, analysis.types().boolType);
    ASSERT_EQ(analysis.checker().exprTypes.count(&literal), 1u);
    EXPECT_EQ(analysis.checker().exprTypes.at(&literal), analysis.types().boolType);
    EXPECT_EQ(analysis.checker().currentType, analysis.types().boolType);
}

TEST(CheckerCore, ASymbolWithoutTypeIsTheErrorTypeSilently) {
    Analysis analysis("");
    analysis.symbols().define(std::make_shared<VariableSymbol>("ghost", nullptr, PLACE));
    ast::IdentifierExpr ghost("ghost", PLACE);
    TypePtr type = analysis.checker().checkExpr(ghost);
    EXPECT_EQ(type, analysis.types().errorType);
    EXPECT_EQ(analysis.checker().exprTypes.at(&ghost), analysis.types().errorType);
    EXPECT_EQ(analysis.records(), Records{});
}

TEST(CheckerCore, CheckingANodeAgainOverwritesItsEntry) {
    Analysis analysis("");
    auto local = std::make_shared<VariableSymbol>("value", analysis.types().intType, PLACE);
    analysis.symbols().define(local);
    ast::IdentifierExpr name("value", PLACE);
    analysis.checker().checkExpr(name);
    local->type = analysis.types().stringType;
    analysis.checker().checkExpr(name);
    EXPECT_EQ(analysis.checker().exprTypes.size(), 1u);
    EXPECT_EQ(analysis.checker().exprTypes.at(&name), analysis.types().stringType);
}

TEST(CheckerCore, AnUnknownLiteralKindIsTheErrorType) {
    Analysis analysis("");
    ast::LiteralExpr odd(static_cast<ast::LiteralKind>(17), "?", PLACE);
    EXPECT_EQ(analysis.checker().checkExpr(odd), analysis.types().errorType);
    EXPECT_EQ(analysis.records(), Records{});
}

TEST(CheckerCore, CheckStmtRunsTheStatementsVisit) {
    Analysis analysis("");
    ast::BreakStmt stray(PLACE);
    analysis.checker().checkStmt(stray);
    EXPECT_EQ(analysis.records(), Records{record("E1001", "'break' statement outside of loop or switch", "4:2")});
}

TEST(CheckerCore, EveryCheckedExpressionOfAProgramIsRecorded) {
    Analysis analysis("fn f(a: int) {\n    var probe = a * 2 + 1;\n}\n");
    analysis.analyze();
    // a, 2, a * 2, 1 and the sum.
    EXPECT_EQ(analysis.checker().exprTypes.size(), 5u);
    EXPECT_EQ(typeOfInitializer(analysis, "probe"), "int");
}

TEST(CheckerCore, TheLoopAndSwitchDepthsAreBalancedAfterAProgram) {
    Analysis analysis("fn f(n: int, xs: int[]) {\n    while (true) {\n        for (x in xs) {\n"
                      "            switch (n) {\n                case 1:\n                    break;\n"
                      "            }\n        }\n    }\n    do {} while (false);\n    for (;;) {}\n}\n");
    analysis.analyze();
    EXPECT_EQ(analysis.records(), Records{});
    EXPECT_EQ(analysis.checker().loopDepth, 0);
    EXPECT_EQ(analysis.checker().switchDepth, 0);
    EXPECT_EQ(analysis.checker().currentReturnType, nullptr);
    EXPECT_EQ(analysis.symbols().currentScope, analysis.symbols().globalScope);
}

TEST(CheckerCore, AnalyzeAnswersWhetherNothingWasReported) {
    Analysis clean("fn f(): int {\n    return 1;\n}\n");
    EXPECT_TRUE(clean.analyzer->analyze(*clean.program));
    Analysis faulty("fn f(): int {\n    return \"one\";\n}\n");
    EXPECT_FALSE(faulty.analyzer->analyze(*faulty.program));
}

}  // namespace
}  // namespace quor::sema::testing
