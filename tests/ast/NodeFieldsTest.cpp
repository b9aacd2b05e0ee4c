#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ast/AST.h"

namespace {

using namespace quor::ast;
using quor::diagnostics::SourceLocation;
using quor::lexer::TokenType;

SourceLocation at(std::uint32_t line, std::uint32_t column) { return SourceLocation{"t.qr", line, column}; }

ExprPtr name(const std::string& text) { return std::make_unique<IdentifierExpr>(text, at(1, 1)); }

TEST(NodeFields, CallTypeArgumentsAreWritableThroughAConstReference) {
    std::vector<ExprPtr> args;
    args.push_back(name("x"));
    CallExpr call(name("f"), std::move(args), at(1, 2));
    const CallExpr& view = call;
    EXPECT_TRUE(view.typeArgs.empty());
    view.typeArgs = {"int", "string"};
    EXPECT_EQ(call.typeArgs, (std::vector<std::string>{"int", "string"}));
    EXPECT_EQ(call.args.size(), 1u);
}

TEST(NodeFields, FunctionReturnTypeIsWritableThroughAConstReference) {
    FunctionDecl fn("f", {"T"}, std::vector<Parameter>{}, "void", nullptr, name("x"), "public", false, false, false,
                    false, at(2, 1));
    const FunctionDecl& view = fn;
    view.returnType = "int";
    EXPECT_EQ(fn.returnType, "int");
    EXPECT_EQ(fn.typeParams, std::vector<std::string>{"T"});
}

TEST(NodeFields, FunctionWithoutTypeParametersConstructorLeavesThemEmpty) {
    std::vector<Parameter> params;
    params.push_back(Parameter{"int", "a", nullptr});
    FunctionDecl fn("g", std::move(params), "void", std::make_unique<BlockStmt>(std::vector<StmtPtr>{}, at(1, 9)),
                    nullptr, "", true, true, true, false, at(1, 1));
    EXPECT_TRUE(fn.typeParams.empty());
    ASSERT_EQ(fn.params.size(), 1u);
    EXPECT_EQ(fn.params[0].type, "int");
    EXPECT_EQ(fn.params[0].name, "a");
    EXPECT_TRUE(fn.isStatic);
    EXPECT_TRUE(fn.isOverride);
    EXPECT_TRUE(fn.isAbstract);
    EXPECT_FALSE(fn.isAsync);
    ASSERT_NE(fn.body, nullptr);
    EXPECT_EQ(fn.exprBody, nullptr);
}

TEST(NodeFields, ShortVariableConstructorLeavesVisibilityEmptyAndNotStatic) {
    VarDeclStmt var("int", "x", nullptr, true, false, at(1, 1));
    EXPECT_EQ(var.typeName, "int");
    EXPECT_EQ(var.name, "x");
    EXPECT_TRUE(var.isConst);
    EXPECT_FALSE(var.isVarOrLet);
    EXPECT_EQ(var.visibility, "");
    EXPECT_FALSE(var.isStatic);

    VarDeclStmt full("", "y", name("v"), false, true, "private", true, at(1, 1));
    EXPECT_EQ(full.visibility, "private");
    EXPECT_TRUE(full.isStatic);
    EXPECT_TRUE(full.isVarOrLet);
    EXPECT_NE(full.initializer, nullptr);
}

TEST(NodeFields, StringLiteralIsRecognisedByDynamicCast) {
    std::unique_ptr<ExpressionNode> node = std::make_unique<LiteralExpr>(LiteralKind::String, "text", at(1, 1));
    const auto* literal = dynamic_cast<const LiteralExpr*>(node.get());
    ASSERT_NE(literal, nullptr);
    EXPECT_EQ(literal->literalKind, LiteralKind::String);
    EXPECT_EQ(literal->value, "text");
    EXPECT_EQ(dynamic_cast<const IdentifierExpr*>(node.get()), nullptr);
}

TEST(NodeFields, RecordsHoldTheirChildren) {
    std::vector<SwitchCase> cases;
    cases.push_back(SwitchCase{name("a"), {}});
    cases[0].body.push_back(std::make_unique<BreakStmt>(at(3, 1)));
    SwitchStmt sw(name("s"), std::move(cases), {}, at(1, 1));
    ASSERT_EQ(sw.cases.size(), 1u);
    EXPECT_EQ(sw.cases[0].body.size(), 1u);
    EXPECT_TRUE(sw.defaultBody.empty());

    std::vector<MatchArm> arms;
    arms.push_back(MatchArm{nullptr, name("b")});
    MatchStmt match(name("m"), std::move(arms), at(1, 1));
    EXPECT_EQ(match.arms[0].pattern, nullptr);

    std::vector<CatchClause> catches;
    catches.push_back(CatchClause{"Error", "e", std::make_unique<BlockStmt>(std::vector<StmtPtr>{}, at(1, 1))});
    TryCatchStmt tc(std::make_unique<BlockStmt>(std::vector<StmtPtr>{}, at(1, 1)), std::move(catches), nullptr,
                    at(1, 1));
    EXPECT_EQ(tc.catches[0].exceptionType, "Error");
    EXPECT_EQ(tc.catches[0].varName, "e");
    EXPECT_EQ(tc.finallyBlock, nullptr);

    std::vector<EnumVariant> variants;
    variants.push_back(EnumVariant{"A", nullptr});
    EnumDecl en("E", std::move(variants), "", at(1, 1));
    EXPECT_EQ(en.variants[0].name, "A");

    LambdaExpr lambda({{"x", ""}, {"y", "int"}}, "", name("x"), at(1, 1));
    EXPECT_EQ(lambda.params[1].name, "y");
    EXPECT_EQ(lambda.params[1].type, "int");
    EXPECT_EQ(lambda.returnType, "");
}

TEST(NodeFields, TreeOwnsCopiesOfItsStrings) {
    std::unique_ptr<IdentifierExpr> node;
    {
        std::string source = "temporary";
        node = std::make_unique<IdentifierExpr>(source, SourceLocation{source, 1, 1});
        source.assign("overwritten");
    }
    EXPECT_EQ(node->name, "temporary");
    EXPECT_EQ(node->location.file, "temporary");
}

TEST(NodeFields, EmptyProgramHasNoDeclarations) {
    Program program({}, at(1, 1));
    EXPECT_TRUE(program.declarations.empty());
    EXPECT_EQ(program.nodeKind, NodeKind::Program);
}

TEST(NodeFields, DestroyingALongBinaryChainReleasesEveryNode) {
    ExprPtr chain = name("x");
    for (int i = 0; i < 20000; ++i) {
        chain = std::make_unique<BinaryExpr>(std::move(chain), TokenType::Plus, name("y"), at(1, 1));
    }
    std::vector<NodePtr> declarations;
    declarations.push_back(std::make_unique<ExprStmt>(std::move(chain), at(1, 1)));
    auto program = std::make_unique<Program>(std::move(declarations), at(1, 1));
    program.reset();  // recursion through the destructors; sanitizers watch for leaks
    EXPECT_EQ(program, nullptr);
}

}  // namespace
