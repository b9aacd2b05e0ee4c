#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ast/ASTNode.h"
#include "diagnostics/SourceLocation.h"

namespace quor::ast {

using diagnostics::SourceLocation;

class BlockStmt final : public StatementNode {
public:
    BlockStmt(std::vector<StmtPtr> statements, SourceLocation location)
        : StatementNode(NodeKind::BlockStmt, std::move(location)), statements(std::move(statements)) {}
    void accept(ASTVisitor& visitor) const override;

    std::vector<StmtPtr> statements;  // entries null on error
};

class ExprStmt final : public StatementNode {
public:
    ExprStmt(ExprPtr expression, SourceLocation location)
        : StatementNode(NodeKind::ExprStmt, std::move(location)), expression(std::move(expression)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr expression;  // null on error
};

class VarDeclStmt final : public StatementNode {
public:
    VarDeclStmt(std::string typeName, std::string name, ExprPtr initializer, bool isConst, bool isVarOrLet,
                std::string visibility, bool isStatic, SourceLocation location)
        : StatementNode(NodeKind::VarDeclStmt, std::move(location)),
          typeName(std::move(typeName)),
          name(std::move(name)),
          initializer(std::move(initializer)),
          isConst(isConst),
          isVarOrLet(isVarOrLet),
          visibility(std::move(visibility)),
          isStatic(isStatic) {}
    VarDeclStmt(std::string typeName, std::string name, ExprPtr initializer, bool isConst, bool isVarOrLet,
                SourceLocation location)
        : VarDeclStmt(std::move(typeName), std::move(name), std::move(initializer), isConst, isVarOrLet,
                      std::string(), false, std::move(location)) {}
    void accept(ASTVisitor& visitor) const override;

    std::string typeName;  // empty when none was written
    std::string name;
    ExprPtr initializer;   // may be null
    bool isConst;
    bool isVarOrLet;       // declared with "var" or "let"
    std::string visibility;
    bool isStatic;
};

class IfStmt final : public StatementNode {
public:
    IfStmt(ExprPtr condition, StmtPtr thenBranch, StmtPtr elseBranch, SourceLocation location)
        : StatementNode(NodeKind::IfStmt, std::move(location)),
          condition(std::move(condition)),
          thenBranch(std::move(thenBranch)),
          elseBranch(std::move(elseBranch)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr condition;
    StmtPtr thenBranch;
    StmtPtr elseBranch;  // may be null
};

class WhileStmt final : public StatementNode {
public:
    WhileStmt(ExprPtr condition, StmtPtr body, SourceLocation location)
        : StatementNode(NodeKind::WhileStmt, std::move(location)),
          condition(std::move(condition)),
          body(std::move(body)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr condition;
    StmtPtr body;
};

class DoWhileStmt final : public StatementNode {
public:
    DoWhileStmt(StmtPtr body, ExprPtr condition, SourceLocation location)
        : StatementNode(NodeKind::DoWhileStmt, std::move(location)),
          body(std::move(body)),
          condition(std::move(condition)) {}
    void accept(ASTVisitor& visitor) const override;

    StmtPtr body;
    ExprPtr condition;
};

class ForStmt final : public StatementNode {
public:
    ForStmt(StmtPtr init, ExprPtr condition, ExprPtr update, StmtPtr body, SourceLocation location)
        : StatementNode(NodeKind::ForStmt, std::move(location)),
          init(std::move(init)),
          condition(std::move(condition)),
          update(std::move(update)),
          body(std::move(body)) {}
    void accept(ASTVisitor& visitor) const override;

    StmtPtr init;       // may be null
    ExprPtr condition;  // may be null
    ExprPtr update;     // may be null
    StmtPtr body;
};

class ForInStmt final : public StatementNode {
public:
    ForInStmt(std::string varName, std::string varType, ExprPtr iterable, StmtPtr body, SourceLocation location)
        : StatementNode(NodeKind::ForInStmt, std::move(location)),
          varName(std::move(varName)),
          varType(std::move(varType)),
          iterable(std::move(iterable)),
          body(std::move(body)) {}
    void accept(ASTVisitor& visitor) const override;

    std::string varName;
    std::string varType;  // "auto" when no type was written
    ExprPtr iterable;
    StmtPtr body;
};

struct SwitchCase {
    ExprPtr value;
    std::vector<StmtPtr> body;
};

class SwitchStmt final : public StatementNode {
public:
    SwitchStmt(ExprPtr subject, std::vector<SwitchCase> cases, std::vector<StmtPtr> defaultBody,
               SourceLocation location)
        : StatementNode(NodeKind::SwitchStmt, std::move(location)),
          subject(std::move(subject)),
          cases(std::move(cases)),
          defaultBody(std::move(defaultBody)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr subject;
    std::vector<SwitchCase> cases;
    std::vector<StmtPtr> defaultBody;  // empty when there is no "default"
};

struct MatchArm {
    ExprPtr pattern;  // null for the wildcard "_"
    NodePtr body;     // a BlockStmt or an ExpressionNode
};

class MatchStmt final : public StatementNode {
public:
    MatchStmt(ExprPtr subject, std::vector<MatchArm> arms, SourceLocation location)
        : StatementNode(NodeKind::MatchStmt, std::move(location)),
          subject(std::move(subject)),
          arms(std::move(arms)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr subject;
    std::vector<MatchArm> arms;
};

class ReturnStmt final : public StatementNode {
public:
    ReturnStmt(ExprPtr value, SourceLocation location)
        : StatementNode(NodeKind::ReturnStmt, std::move(location)), value(std::move(value)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr value;  // may be null
};

class BreakStmt final : public StatementNode {
public:
    explicit BreakStmt(SourceLocation location) : StatementNode(NodeKind::BreakStmt, std::move(location)) {}
    void accept(ASTVisitor& visitor) const override;
};

class ContinueStmt final : public StatementNode {
public:
    explicit ContinueStmt(SourceLocation location)
        : StatementNode(NodeKind::ContinueStmt, std::move(location)) {}
    void accept(ASTVisitor& visitor) const override;
};

struct CatchClause {
    std::string exceptionType;
    std::string varName;
    std::unique_ptr<BlockStmt> body;
};

class TryCatchStmt final : public StatementNode {
public:
    TryCatchStmt(std::unique_ptr<BlockStmt> tryBlock, std::vector<CatchClause> catches,
                 std::unique_ptr<BlockStmt> finallyBlock, SourceLocation location)
        : StatementNode(NodeKind::TryCatchStmt, std::move(location)),
          tryBlock(std::move(tryBlock)),
          catches(std::move(catches)),
          finallyBlock(std::move(finallyBlock)) {}
    void accept(ASTVisitor& visitor) const override;

    std::unique_ptr<BlockStmt> tryBlock;
    std::vector<CatchClause> catches;
    std::unique_ptr<BlockStmt> finallyBlock;  // may be null
};

class ThrowStmt final : public StatementNode {
public:
    ThrowStmt(ExprPtr value, SourceLocation location)
        : StatementNode(NodeKind::ThrowStmt, std::move(location)), value(std::move(value)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr value;  // null on error
};

}  // namespace quor::ast
