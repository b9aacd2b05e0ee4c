#pragma once

// Helpers of the expression tests: where a piece of source text stands, one
// expected record, and the checked type of a named variable's initializer.
#include <string>

#include <gtest/gtest.h>

#include "sema/SemaTestSupport.h"

namespace quor::sema::testing {

// "line:column" of the nth (one-based) occurrence of `needle` on the one-based
// `line` of `source`: the place a node built from that token reports at.
inline std::string at(const std::string& source, int line, const std::string& needle, int nth = 1) {
    std::size_t start = 0;
    for (int current = 1; current < line; ++current) {
        start = source.find('\n', start);
        if (start == std::string::npos) return "<no line " + std::to_string(line) + ">";
        ++start;
    }
    std::size_t end = source.find('\n', start);
    std::string text = source.substr(start, end == std::string::npos ? std::string::npos : end - start);
    std::size_t column = std::string::npos;
    std::size_t from = 0;
    for (int i = 0; i < nth; ++i) {
        column = text.find(needle, from);
        if (column == std::string::npos) return "<no '" + needle + "' on line " + std::to_string(line) + ">";
        from = column + 1;
    }
    return std::to_string(line) + ":" + std::to_string(column + 1);
}

// One expected record in the form of `describe`.
inline std::string record(const std::string& code, const std::string& message, const std::string& place,
                          const std::string& hint = "") {
    return code + "|" + message + "|" + hint + "|" + place;
}

namespace detail {

inline const ast::VarDeclStmt* findIn(const ast::ASTNode* node, const std::string& name);

inline const ast::VarDeclStmt* findInAll(const std::vector<ast::StmtPtr>& statements, const std::string& name) {
    for (const auto& statement : statements) {
        if (const auto* found = findIn(statement.get(), name)) return found;
    }
    return nullptr;
}

// Walks the statement forms the tests put variables in.
inline const ast::VarDeclStmt* findIn(const ast::ASTNode* node, const std::string& name) {
    if (!node) return nullptr;
    switch (node->nodeKind) {
        case ast::NodeKind::VarDeclStmt: {
            const auto* decl = static_cast<const ast::VarDeclStmt*>(node);
            return decl->name == name ? decl : nullptr;
        }
        case ast::NodeKind::BlockStmt:
            return findInAll(static_cast<const ast::BlockStmt*>(node)->statements, name);
        case ast::NodeKind::FunctionDecl:
            return findIn(static_cast<const ast::FunctionDecl*>(node)->body.get(), name);
        case ast::NodeKind::ClassDecl:
            for (const auto& member : static_cast<const ast::ClassDecl*>(node)->members) {
                if (const auto* found = findIn(member.get(), name)) return found;
            }
            return nullptr;
        case ast::NodeKind::IfStmt: {
            const auto* branch = static_cast<const ast::IfStmt*>(node);
            if (const auto* found = findIn(branch->thenBranch.get(), name)) return found;
            return findIn(branch->elseBranch.get(), name);
        }
        case ast::NodeKind::WhileStmt:
            return findIn(static_cast<const ast::WhileStmt*>(node)->body.get(), name);
        default:
            return nullptr;
    }
}

}  // namespace detail

// The declaration of the variable `name` anywhere in the program's functions
// and classes, or null.
inline const ast::VarDeclStmt* findVariable(const ast::Program& program, const std::string& name) {
    for (const auto& declaration : program.declarations) {
        if (const auto* found = detail::findIn(declaration.get(), name)) return found;
    }
    return nullptr;
}

// The checked type of the initializer of variable `name`, as text; "<none>"
// when the variable or its checked initializer is not there.
inline std::string initializerType(Analysis& analysis, const std::string& name) {
    const ast::VarDeclStmt* decl = findVariable(*analysis.program, name);
    if (!decl || !decl->initializer) return "<none>";
    const auto& types = analysis.checker().exprTypes;
    auto it = types.find(decl->initializer.get());
    if (it == types.end() || !it->second) return "<none>";
    return it->second->toString();
}

}  // namespace quor::sema::testing
