#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ast/ASTNode.h"
#include "diagnostics/SourceLocation.h"
#include "lexer/TokenType.h"

namespace quor::ast {

using diagnostics::SourceLocation;
using lexer::TokenType;

// A literal as written: numbers keep their raw text ("0xFF", "1_000"),
// strings and characters their decoded content, booleans "true"/"false",
// and the null literal the text "null".
class LiteralExpr final : public ExpressionNode {
public:
    LiteralExpr(LiteralKind literalKind, std::string value, SourceLocation location)
        : ExpressionNode(NodeKind::LiteralExpr, std::move(location)),
          literalKind(literalKind),
          value(std::move(value)) {}
    void accept(ASTVisitor& visitor) const override;

    LiteralKind literalKind;
    std::string value;
};

// A name. Also stands for "this", "super", "assert", "spawn" and type
// keywords used as values.
class IdentifierExpr final : public ExpressionNode {
public:
    IdentifierExpr(std::string name, SourceLocation location)
        : ExpressionNode(NodeKind::IdentifierExpr, std::move(location)), name(std::move(name)) {}
    void accept(ASTVisitor& visitor) const override;

    std::string name;
};

class BinaryExpr final : public ExpressionNode {
public:
    BinaryExpr(ExprPtr left, TokenType op, ExprPtr right, SourceLocation location)
        : ExpressionNode(NodeKind::BinaryExpr, std::move(location)),
          left(std::move(left)),
          op(op),
          right(std::move(right)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr left;   // null on error
    TokenType op;
    ExprPtr right;  // null on error
};

class UnaryExpr final : public ExpressionNode {
public:
    UnaryExpr(TokenType op, ExprPtr operand, bool isPrefix, SourceLocation location)
        : ExpressionNode(NodeKind::UnaryExpr, std::move(location)),
          op(op),
          operand(std::move(operand)),
          isPrefix(isPrefix) {}
    void accept(ASTVisitor& visitor) const override;

    TokenType op;
    ExprPtr operand;  // null on error
    bool isPrefix;
};

class CallExpr final : public ExpressionNode {
public:
    CallExpr(ExprPtr callee, std::vector<std::string> typeArgs, std::vector<ExprPtr> args,
             SourceLocation location)
        : ExpressionNode(NodeKind::CallExpr, std::move(location)),
          callee(std::move(callee)),
          typeArgs(std::move(typeArgs)),
          args(std::move(args)) {}
    CallExpr(ExprPtr callee, std::vector<ExprPtr> args, SourceLocation location)
        : CallExpr(std::move(callee), {}, std::move(args), std::move(location)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr callee;
    // Empty for a call without type arguments. The call check replaces them
    // with the inferred ones, through a const reference to the node.
    mutable std::vector<std::string> typeArgs;
    std::vector<ExprPtr> args;  // entries null on error
};

class MemberExpr final : public ExpressionNode {
public:
    MemberExpr(ExprPtr object, std::string member, bool isSafe, SourceLocation location)
        : ExpressionNode(NodeKind::MemberExpr, std::move(location)),
          object(std::move(object)),
          member(std::move(member)),
          isSafe(isSafe) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr object;
    std::string member;
    bool isSafe;  // written with "?."
};

class IndexExpr final : public ExpressionNode {
public:
    IndexExpr(ExprPtr object, ExprPtr index, SourceLocation location)
        : ExpressionNode(NodeKind::IndexExpr, std::move(location)),
          object(std::move(object)),
          index(std::move(index)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr object;
    ExprPtr index;  // null on error
};

class ArrayExpr final : public ExpressionNode {
public:
    ArrayExpr(std::vector<ExprPtr> elements, SourceLocation location)
        : ExpressionNode(NodeKind::ArrayExpr, std::move(location)), elements(std::move(elements)) {}
    void accept(ASTVisitor& visitor) const override;

    std::vector<ExprPtr> elements;  // entries null on error
};

class MapExpr final : public ExpressionNode {
public:
    using Entry = std::pair<ExprPtr, ExprPtr>;  // key, value

    MapExpr(std::vector<Entry> entries, SourceLocation location)
        : ExpressionNode(NodeKind::MapExpr, std::move(location)), entries(std::move(entries)) {}
    void accept(ASTVisitor& visitor) const override;

    std::vector<Entry> entries;  // keys and values null on error
};

class LambdaExpr final : public ExpressionNode {
public:
    struct Param {
        std::string name;
        std::string type;  // empty when the parameter has no annotation
    };

    LambdaExpr(std::vector<Param> params, std::string returnType, NodePtr body, SourceLocation location)
        : ExpressionNode(NodeKind::LambdaExpr, std::move(location)),
          params(std::move(params)),
          returnType(std::move(returnType)),
          body(std::move(body)) {}
    void accept(ASTVisitor& visitor) const override;

    std::vector<Param> params;
    std::string returnType;  // lambdas carry no return annotation: always empty
    NodePtr body;            // a BlockStmt or an ExpressionNode; null on error
};

class TernaryExpr final : public ExpressionNode {
public:
    TernaryExpr(ExprPtr condition, ExprPtr thenExpr, ExprPtr elseExpr, SourceLocation location)
        : ExpressionNode(NodeKind::TernaryExpr, std::move(location)),
          condition(std::move(condition)),
          thenExpr(std::move(thenExpr)),
          elseExpr(std::move(elseExpr)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr condition;
    ExprPtr thenExpr;  // null on error
    ExprPtr elseExpr;  // null on error
};

class AssignExpr final : public ExpressionNode {
public:
    AssignExpr(ExprPtr target, TokenType op, ExprPtr value, SourceLocation location)
        : ExpressionNode(NodeKind::AssignExpr, std::move(location)),
          target(std::move(target)),
          op(op),
          value(std::move(value)) {}
    void accept(ASTVisitor& visitor) const override;

    ExprPtr target;
    TokenType op;   // Equal or one of the compound assignments
    ExprPtr value;  // null on error
};

class NewExpr final : public ExpressionNode {
public:
    NewExpr(std::string className, std::vector<std::string> typeArgs, std::vector<ExprPtr> args,
            SourceLocation location)
        : ExpressionNode(NodeKind::NewExpr, std::move(location)),
          className(std::move(className)),
          typeArgs(std::move(typeArgs)),
          args(std::move(args)) {}
    void accept(ASTVisitor& visitor) const override;

    std::string className;
    std::vector<std::string> typeArgs;
    std::vector<ExprPtr> args;  // entries null on error
};

}  // namespace quor::ast
