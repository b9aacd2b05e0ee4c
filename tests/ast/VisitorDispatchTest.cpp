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

SourceLocation here() { return SourceLocation{"t.qr", 1, 1}; }

// Records which visit overload ran, numbered in the visitor's slot order.
class SlotRecorder final : public ASTVisitor {
public:
    int slot = 0;
    void visit(const LiteralExpr&) override { slot = 1; }
    void visit(const IdentifierExpr&) override { slot = 2; }
    void visit(const BinaryExpr&) override { slot = 3; }
    void visit(const UnaryExpr&) override { slot = 4; }
    void visit(const CallExpr&) override { slot = 5; }
    void visit(const MemberExpr&) override { slot = 6; }
    void visit(const IndexExpr&) override { slot = 7; }
    void visit(const ArrayExpr&) override { slot = 8; }
    void visit(const MapExpr&) override { slot = 9; }
    void visit(const LambdaExpr&) override { slot = 10; }
    void visit(const TernaryExpr&) override { slot = 11; }
    void visit(const AssignExpr&) override { slot = 12; }
    void visit(const NewExpr&) override { slot = 13; }
    void visit(const BlockStmt&) override { slot = 14; }
    void visit(const ExprStmt&) override { slot = 15; }
    void visit(const VarDeclStmt&) override { slot = 16; }
    void visit(const IfStmt&) override { slot = 17; }
    void visit(const WhileStmt&) override { slot = 18; }
    void visit(const DoWhileStmt&) override { slot = 19; }
    void visit(const ForStmt&) override { slot = 20; }
    void visit(const ForInStmt&) override { slot = 21; }
    void visit(const SwitchStmt&) override { slot = 22; }
    void visit(const MatchStmt&) override { slot = 23; }
    void visit(const ReturnStmt&) override { slot = 24; }
    void visit(const BreakStmt&) override { slot = 25; }
    void visit(const ContinueStmt&) override { slot = 26; }
    void visit(const TryCatchStmt&) override { slot = 27; }
    void visit(const ThrowStmt&) override { slot = 28; }
    void visit(const FunctionDecl&) override { slot = 29; }
    void visit(const ClassDecl&) override { slot = 30; }
    void visit(const InterfaceDecl&) override { slot = 31; }
    void visit(const StructDecl&) override { slot = 32; }
    void visit(const EnumDecl&) override { slot = 33; }
    void visit(const ModuleDecl&) override { slot = 34; }
    void visit(const ImportDecl&) override { slot = 35; }
    void visit(const Program&) override { slot = 36; }
};

struct Sample {
    std::unique_ptr<ASTNode> node;
    NodeKind kind;
    int slot;
};

std::vector<Sample> oneOfEach() {
    std::vector<Sample> s;
    auto add = [&s](std::unique_ptr<ASTNode> node, NodeKind kind, int slot) {
        s.push_back(Sample{std::move(node), kind, slot});
    };
    add(std::make_unique<LiteralExpr>(LiteralKind::Integer, "1", here()), NodeKind::LiteralExpr, 1);
    add(std::make_unique<IdentifierExpr>("x", here()), NodeKind::IdentifierExpr, 2);
    add(std::make_unique<BinaryExpr>(nullptr, TokenType::Plus, nullptr, here()), NodeKind::BinaryExpr, 3);
    add(std::make_unique<UnaryExpr>(TokenType::Minus, nullptr, true, here()), NodeKind::UnaryExpr, 4);
    add(std::make_unique<CallExpr>(nullptr, std::vector<ExprPtr>{}, here()), NodeKind::CallExpr, 5);
    add(std::make_unique<MemberExpr>(nullptr, "m", false, here()), NodeKind::MemberExpr, 6);
    add(std::make_unique<IndexExpr>(nullptr, nullptr, here()), NodeKind::IndexExpr, 7);
    add(std::make_unique<ArrayExpr>(std::vector<ExprPtr>{}, here()), NodeKind::ArrayExpr, 8);
    add(std::make_unique<MapExpr>(std::vector<MapExpr::Entry>{}, here()), NodeKind::MapExpr, 9);
    add(std::make_unique<LambdaExpr>(std::vector<LambdaExpr::Param>{}, "", nullptr, here()), NodeKind::LambdaExpr,
        10);
    add(std::make_unique<TernaryExpr>(nullptr, nullptr, nullptr, here()), NodeKind::TernaryExpr, 11);
    add(std::make_unique<AssignExpr>(nullptr, TokenType::Equal, nullptr, here()), NodeKind::AssignExpr, 12);
    add(std::make_unique<NewExpr>("C", std::vector<std::string>{}, std::vector<ExprPtr>{}, here()),
        NodeKind::NewExpr, 13);
    add(std::make_unique<BlockStmt>(std::vector<StmtPtr>{}, here()), NodeKind::BlockStmt, 14);
    add(std::make_unique<ExprStmt>(nullptr, here()), NodeKind::ExprStmt, 15);
    add(std::make_unique<VarDeclStmt>("int", "x", nullptr, false, false, here()), NodeKind::VarDeclStmt, 16);
    add(std::make_unique<IfStmt>(nullptr, nullptr, nullptr, here()), NodeKind::IfStmt, 17);
    add(std::make_unique<WhileStmt>(nullptr, nullptr, here()), NodeKind::WhileStmt, 18);
    add(std::make_unique<DoWhileStmt>(nullptr, nullptr, here()), NodeKind::DoWhileStmt, 19);
    add(std::make_unique<ForStmt>(nullptr, nullptr, nullptr, nullptr, here()), NodeKind::ForStmt, 20);
    add(std::make_unique<ForInStmt>("i", "auto", nullptr, nullptr, here()), NodeKind::ForInStmt, 21);
    add(std::make_unique<SwitchStmt>(nullptr, std::vector<SwitchCase>{}, std::vector<StmtPtr>{}, here()),
        NodeKind::SwitchStmt, 22);
    add(std::make_unique<MatchStmt>(nullptr, std::vector<MatchArm>{}, here()), NodeKind::MatchStmt, 23);
    add(std::make_unique<ReturnStmt>(nullptr, here()), NodeKind::ReturnStmt, 24);
    add(std::make_unique<BreakStmt>(here()), NodeKind::BreakStmt, 25);
    add(std::make_unique<ContinueStmt>(here()), NodeKind::ContinueStmt, 26);
    add(std::make_unique<TryCatchStmt>(nullptr, std::vector<CatchClause>{}, nullptr, here()), NodeKind::TryCatchStmt,
        27);
    add(std::make_unique<ThrowStmt>(nullptr, here()), NodeKind::ThrowStmt, 28);
    add(std::make_unique<FunctionDecl>("f", std::vector<Parameter>{}, "void", nullptr, nullptr, "", false, false,
                                       false, false, here()),
        NodeKind::FunctionDecl, 29);
    add(std::make_unique<ClassDecl>("C", std::vector<std::string>{}, "", std::vector<std::string>{},
                                    std::vector<NodePtr>{}, "", false, here()),
        NodeKind::ClassDecl, 30);
    add(std::make_unique<InterfaceDecl>("I", std::vector<std::unique_ptr<FunctionDecl>>{}, "", here()),
        NodeKind::InterfaceDecl, 31);
    add(std::make_unique<StructDecl>("S", std::vector<std::unique_ptr<VarDeclStmt>>{}, "", here()),
        NodeKind::StructDecl, 32);
    add(std::make_unique<EnumDecl>("E", std::vector<EnumVariant>{}, "", here()), NodeKind::EnumDecl, 33);
    add(std::make_unique<ModuleDecl>("a.b", here()), NodeKind::ModuleDecl, 34);
    add(std::make_unique<ImportDecl>("a.b", true, here()), NodeKind::ImportDecl, 35);
    add(std::make_unique<Program>(std::vector<NodePtr>{}, here()), NodeKind::Program, 36);
    return s;
}

TEST(VisitorDispatch, AcceptCallsTheOverloadOfTheNodesOwnClass) {
    std::vector<Sample> samples = oneOfEach();
    ASSERT_EQ(samples.size(), 36u);
    for (const Sample& sample : samples) {
        SlotRecorder recorder;
        sample.node->accept(recorder);
        EXPECT_EQ(recorder.slot, sample.slot) << "node kind " << static_cast<int>(sample.kind);
    }
}

TEST(VisitorDispatch, EachConstructorSetsItsNodeKind) {
    for (const Sample& sample : oneOfEach()) {
        EXPECT_EQ(sample.node->nodeKind, sample.kind);
    }
}

TEST(VisitorDispatch, ExpressionsStatementsAndProgramHaveTheirBases) {
    for (const Sample& sample : oneOfEach()) {
        auto kind = static_cast<int>(sample.kind);
        bool isExpression = dynamic_cast<const ExpressionNode*>(sample.node.get()) != nullptr;
        bool isStatement = dynamic_cast<const StatementNode*>(sample.node.get()) != nullptr;
        if (sample.kind == NodeKind::Program) {
            EXPECT_FALSE(isExpression);
            EXPECT_FALSE(isStatement);
        } else if (kind >= static_cast<int>(NodeKind::LiteralExpr)) {
            EXPECT_TRUE(isExpression) << kind;
            EXPECT_FALSE(isStatement) << kind;
        } else {
            EXPECT_TRUE(isStatement) << kind;
            EXPECT_FALSE(isExpression) << kind;
        }
    }
}

TEST(VisitorDispatch, EveryNodeKeepsItsLocation) {
    for (const Sample& sample : oneOfEach()) {
        EXPECT_EQ(sample.node->location.file, "t.qr");
        EXPECT_EQ(sample.node->location.line, 1u);
        EXPECT_EQ(sample.node->location.column, 1u);
    }
}

}  // namespace
