#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ast/ASTNode.h"
#include "ast/Statements.h"
#include "diagnostics/SourceLocation.h"

namespace quor::ast {

using diagnostics::SourceLocation;

class ModuleDecl final : public StatementNode {
public:
    ModuleDecl(std::string name, SourceLocation location)
        : StatementNode(NodeKind::ModuleDecl, std::move(location)), name(std::move(name)) {}
    void accept(ASTVisitor& visitor) const override;

    std::string name;  // dotted
};

class ImportDecl final : public StatementNode {
public:
    ImportDecl(std::string path, bool isWildcard, SourceLocation location)
        : StatementNode(NodeKind::ImportDecl, std::move(location)), path(std::move(path)), isWildcard(isWildcard) {}
    void accept(ASTVisitor& visitor) const override;

    std::string path;  // dotted, without a trailing ".*"
    bool isWildcard;
};

struct Parameter {
    std::string type;  // may be empty
    std::string name;
    ExprPtr defaultValue;  // may be null
};

class FunctionDecl final : public StatementNode {
public:
    FunctionDecl(std::string name, std::vector<std::string> typeParams, std::vector<Parameter> params,
                 std::string returnType, std::unique_ptr<BlockStmt> body, ExprPtr exprBody, std::string visibility,
                 bool isStatic, bool isOverride, bool isAbstract, bool isAsync, SourceLocation location)
        : StatementNode(NodeKind::FunctionDecl, std::move(location)),
          name(std::move(name)),
          typeParams(std::move(typeParams)),
          params(std::move(params)),
          returnType(std::move(returnType)),
          body(std::move(body)),
          exprBody(std::move(exprBody)),
          visibility(std::move(visibility)),
          isStatic(isStatic),
          isOverride(isOverride),
          isAbstract(isAbstract),
          isAsync(isAsync) {}
    FunctionDecl(std::string name, std::vector<Parameter> params, std::string returnType,
                 std::unique_ptr<BlockStmt> body, ExprPtr exprBody, std::string visibility, bool isStatic,
                 bool isOverride, bool isAbstract, bool isAsync, SourceLocation location)
        : FunctionDecl(std::move(name), {}, std::move(params), std::move(returnType), std::move(body),
                       std::move(exprBody), std::move(visibility), isStatic, isOverride, isAbstract, isAsync,
                       std::move(location)) {}
    void accept(ASTVisitor& visitor) const override;

    std::string name;
    std::vector<std::string> typeParams;
    std::vector<Parameter> params;
    // "void" by default. The check of a short-form function writes the
    // inferred type here, through a const reference to the node.
    mutable std::string returnType;
    std::unique_ptr<BlockStmt> body;  // may be null
    ExprPtr exprBody;                 // may be null; set for the "=>" form
    std::string visibility;
    bool isStatic;
    bool isOverride;
    bool isAbstract;
    bool isAsync;  // never set by the parser; read by the documentation extractor
};

class ClassDecl final : public StatementNode {
public:
    ClassDecl(std::string name, std::vector<std::string> typeParams, std::string baseClass,
              std::vector<std::string> interfaces, std::vector<NodePtr> members, std::string visibility,
              bool isAbstract, SourceLocation location)
        : StatementNode(NodeKind::ClassDecl, std::move(location)),
          name(std::move(name)),
          typeParams(std::move(typeParams)),
          baseClass(std::move(baseClass)),
          interfaces(std::move(interfaces)),
          members(std::move(members)),
          visibility(std::move(visibility)),
          isAbstract(isAbstract) {}
    // Frees the members in order, asking for each ahead, as a program does.
    ~ClassDecl() override;
    void accept(ASTVisitor& visitor) const override;

    std::string name;
    std::vector<std::string> typeParams;
    std::string baseClass;  // may be empty
    std::vector<std::string> interfaces;
    std::vector<NodePtr> members;  // entries may be null
    std::string visibility;
    bool isAbstract;
};

class InterfaceDecl final : public StatementNode {
public:
    InterfaceDecl(std::string name, std::vector<std::unique_ptr<FunctionDecl>> methods, std::string visibility,
                  SourceLocation location)
        : StatementNode(NodeKind::InterfaceDecl, std::move(location)),
          name(std::move(name)),
          methods(std::move(methods)),
          visibility(std::move(visibility)) {}
    void accept(ASTVisitor& visitor) const override;

    std::string name;
    std::vector<std::unique_ptr<FunctionDecl>> methods;
    std::string visibility;
};

class StructDecl final : public StatementNode {
public:
    StructDecl(std::string name, std::vector<std::unique_ptr<VarDeclStmt>> fields, std::string visibility,
               SourceLocation location)
        : StatementNode(NodeKind::StructDecl, std::move(location)),
          name(std::move(name)),
          fields(std::move(fields)),
          visibility(std::move(visibility)) {}
    void accept(ASTVisitor& visitor) const override;

    std::string name;
    std::vector<std::unique_ptr<VarDeclStmt>> fields;
    std::string visibility;
};

struct EnumVariant {
    std::string name;
    ExprPtr value;  // may be null
};

class EnumDecl final : public StatementNode {
public:
    EnumDecl(std::string name, std::vector<EnumVariant> variants, std::string visibility, SourceLocation location)
        : StatementNode(NodeKind::EnumDecl, std::move(location)),
          name(std::move(name)),
          variants(std::move(variants)),
          visibility(std::move(visibility)) {}
    void accept(ASTVisitor& visitor) const override;

    std::string name;
    std::vector<EnumVariant> variants;
    std::string visibility;
};

}  // namespace quor::ast
