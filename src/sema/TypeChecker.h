#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "ast/AST.h"
#include "diagnostics/DiagnosticEngine.h"
#include "sema/ExpressionTypeTable.h"
#include "sema/Symbol.h"
#include "sema/TypeContext.h"

namespace quor::sema {

// Gives every expression a type and reports what does not type-check. Runs
// after the NameResolver has declared everything. The visits are spread over
// files by concern: names and operators, calls, members, values (collection
// literals, lambdas, assignment, new), statements and declarations.
class TypeChecker : public ast::ASTVisitor {
public:
    TypeChecker(TypeContext& types, SymbolTable& symbols, diagnostics::DiagnosticEngine& diagnostics)
        : types(types), symbols(symbols), diagnostics(diagnostics) {}

    void check(const ast::Program& program);
    // The same check for a caller that wants only the reports: each block
    // body of a top-level function or a method is freed as soon as its
    // function has been checked, while its nodes are still in the cache.
    // Nothing the checker reads later lies in a body (calls read a callee's
    // signature, specialisation a method's); the declarations stay whole.
    // Such a walk keeps no expression record: its keys would name freed
    // nodes, and only tests read it, through `check`.
    void checkReleasingBodies(ast::Program& program);
    // Types an expression; never null (a visit that leaves none gives the error type).
    TypePtr checkExpr(const ast::ExpressionNode& node);
    void checkStmt(const ast::StatementNode& node);

    FunctionSymbolPtr resolveOverload(const std::vector<FunctionSymbolPtr>& candidates,
                                      const std::vector<TypePtr>& argTypes,
                                      const diagnostics::SourceLocation& location, const std::string& name);
    bool hasGuaranteedReturn(const ast::StatementNode& statement) const;
    void verifyInterfaceImplementations(const ast::ClassDecl& decl, const std::shared_ptr<ClassType>& classType);

    void visit(const ast::LiteralExpr& node) override;
    void visit(const ast::IdentifierExpr& node) override;
    void visit(const ast::BinaryExpr& node) override;
    void visit(const ast::UnaryExpr& node) override;
    void visit(const ast::CallExpr& node) override;
    void visit(const ast::MemberExpr& node) override;
    void visit(const ast::IndexExpr& node) override;
    void visit(const ast::ArrayExpr& node) override;
    void visit(const ast::MapExpr& node) override;
    void visit(const ast::LambdaExpr& node) override;
    void visit(const ast::TernaryExpr& node) override;
    void visit(const ast::AssignExpr& node) override;
    void visit(const ast::NewExpr& node) override;
    void visit(const ast::BlockStmt& node) override;
    void visit(const ast::ExprStmt& node) override;
    void visit(const ast::VarDeclStmt& node) override;
    void visit(const ast::IfStmt& node) override;
    void visit(const ast::WhileStmt& node) override;
    void visit(const ast::DoWhileStmt& node) override;
    void visit(const ast::ForStmt& node) override;
    void visit(const ast::ForInStmt& node) override;
    void visit(const ast::SwitchStmt& node) override;
    void visit(const ast::MatchStmt& node) override;
    void visit(const ast::ReturnStmt& node) override;
    void visit(const ast::BreakStmt& node) override;
    void visit(const ast::ContinueStmt& node) override;
    void visit(const ast::TryCatchStmt& node) override;
    void visit(const ast::ThrowStmt& node) override;
    void visit(const ast::FunctionDecl& node) override;
    void visit(const ast::ClassDecl& node) override;
    void visit(const ast::InterfaceDecl& node) override;
    void visit(const ast::StructDecl& node) override;
    void visit(const ast::EnumDecl& node) override;
    void visit(const ast::ModuleDecl& node) override;
    void visit(const ast::ImportDecl& node) override;
    void visit(const ast::Program& node) override;

    TypeContext& types;
    SymbolTable& symbols;
    diagnostics::DiagnosticEngine& diagnostics;
    TypePtr currentType;
    TypePtr currentReturnType;  // null outside functions
    std::shared_ptr<ClassType> currentClass;  // null outside classes
    std::int32_t loopDepth = 0;
    std::int32_t switchDepth = 0;
    ExpressionTypeTable exprTypes;

    // Shorthand for an error report at a node's place.
    void report(std::string_view code, const std::string& message, const diagnostics::SourceLocation& location,
                std::string_view hint = {});

private:
    // Checks a function that stands at the top level or in a class, then
    // frees its block body when the walk was asked to.
    void checkDeclaredFunction(const ast::ASTNode& function);

    bool releaseBodies = false;

    // Notes an expression's type in the record, unless bodies are being freed.
    void recordType(const ast::ExpressionNode& node, const TypePtr& type);

    // Call forms (one per callee shape), each leaving the call's type.
    void checkCallByName(const ast::CallExpr& call, const std::string& name, const std::vector<TypePtr>& argTypes);
    void checkCallOnReceiver(const ast::CallExpr& call, const ast::MemberExpr& callee,
                             const std::vector<TypePtr>& argTypes);
    void checkCallOfValue(const ast::CallExpr& call);
    TypePtr genericReturnType(const ast::CallExpr& call, const FunctionSymbol& chosen,
                              const std::vector<TypePtr>& argTypes);
};

}  // namespace quor::sema
