#pragma once

// Helpers of the checker tests: the place of a token in a source, one
// expected record in the form of `describe`, the checked type of the
// initializer of a named local variable, and the rows of the table-driven
// tests with the one way they are run.
#include <cctype>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "sema/SemaTestSupport.h"

namespace quor::sema::testing {

// "line:column" of the nth (one-based) occurrence of `needle` on the
// one-based `line` of `source`.
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

inline std::string record(const std::string& code, const std::string& message, const std::string& place,
                          const std::string& hint = "") {
    return code + "|" + message + "|" + hint + "|" + place;
}

// The report of a name declared nowhere, at its nth occurrence on `line`.
inline std::string undefinedRecord(const std::string& source, int line, const std::string& name, int nth = 1) {
    return record("E1002", "Undefined variable or symbol '" + name + "'", at(source, line, name, nth),
                  "Ensure the variable is declared before use");
}

namespace detail {

inline const ast::VarDeclStmt* findVariable(const ast::ASTNode* node, const std::string& name);

inline const ast::VarDeclStmt* findVariableIn(const std::vector<ast::StmtPtr>& statements, const std::string& name) {
    for (const auto& statement : statements) {
        if (const auto* found = findVariable(statement.get(), name)) return found;
    }
    return nullptr;
}

// Looks through functions, class members, blocks and the branches and
// bodies of statements for the declaration of `name`.
inline const ast::VarDeclStmt* findVariable(const ast::ASTNode* node, const std::string& name) {
    if (!node) return nullptr;
    switch (node->nodeKind) {
        case ast::NodeKind::VarDeclStmt: {
            const auto* decl = static_cast<const ast::VarDeclStmt*>(node);
            return decl->name == name ? decl : nullptr;
        }
        case ast::NodeKind::BlockStmt:
            return findVariableIn(static_cast<const ast::BlockStmt*>(node)->statements, name);
        case ast::NodeKind::FunctionDecl:
            return findVariable(static_cast<const ast::FunctionDecl*>(node)->body.get(), name);
        case ast::NodeKind::ClassDecl:
            for (const auto& member : static_cast<const ast::ClassDecl*>(node)->members) {
                if (const auto* found = findVariable(member.get(), name)) return found;
            }
            return nullptr;
        case ast::NodeKind::IfStmt: {
            const auto* branch = static_cast<const ast::IfStmt*>(node);
            if (const auto* found = findVariable(branch->thenBranch.get(), name)) return found;
            return findVariable(branch->elseBranch.get(), name);
        }
        case ast::NodeKind::WhileStmt:
            return findVariable(static_cast<const ast::WhileStmt*>(node)->body.get(), name);
        case ast::NodeKind::ForInStmt:
            return findVariable(static_cast<const ast::ForInStmt*>(node)->body.get(), name);
        case ast::NodeKind::ForStmt:
            return findVariable(static_cast<const ast::ForStmt*>(node)->body.get(), name);
        case ast::NodeKind::TryCatchStmt: {
            const auto* tryCatch = static_cast<const ast::TryCatchStmt*>(node);
            if (const auto* found = findVariable(tryCatch->tryBlock.get(), name)) return found;
            for (const auto& clause : tryCatch->catches) {
                if (const auto* found = findVariable(clause.body.get(), name)) return found;
            }
            return nullptr;
        }
        default:
            return nullptr;
    }
}

}  // namespace detail

// The type the checker recorded for the initializer of the local `name`,
// as text; "<not checked>" when the checker never typed it.
inline std::string typeOfInitializer(Analysis& analysis, const std::string& name) {
    for (const auto& declaration : analysis.program->declarations) {
        const ast::VarDeclStmt* decl = detail::findVariable(declaration.get(), name);
        if (!decl) continue;
        if (!decl->initializer) return "<no initializer>";
        auto& recorded = analysis.checker().exprTypes;
        auto found = recorded.find(decl->initializer.get());
        return found == recorded.end() ? "<not checked>" : found->second->toString();
    }
    return "<no variable '" + name + "'>";
}

// A whole program analysed, and the type of the local `name` in it.
struct Probe {
    std::vector<std::string> records;
    std::string type;
};

inline Probe probe(const std::string& source, const std::string& name = "probe") {
    Analysis analysis(source);
    analysis.analyze();
    return {analysis.records(), typeOfInitializer(analysis, name)};
}

// One expected record of a table row; the place is the nth occurrence of
// `needle` on `line`.
struct Expected {
    std::string code;
    std::string message;
    int line;
    std::string needle;
    int nth = 1;
    std::string hint = "";
};

// One row: a whole program, the records it must produce in report order,
// and optionally the type of the local `probe`'s initializer.
struct Case {
    std::string title;
    std::string source;
    std::vector<Expected> reports;
    std::string probeType = "";  // empty: the probe is not looked at
};

inline void PrintTo(const Case& c, std::ostream* out) { *out << c.title; }

// A function `f` of these parameters whose body is `statements`.
inline std::string body(const std::string& params, const std::string& statements) {
    return "fn f(" + params + ") {\n    " + statements + "\n}\n";
}

// The row's title with every character that may not stand in a test name
// turned into '_'.
inline std::string caseName(const ::testing::TestParamInfo<Case>& info) {
    std::string name;
    for (char c : info.param.title) name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    return name;
}

// Analyses the row's program, also the way that frees each body once
// checked, and compares the records and the probe's type with the row's.
inline void expectCase(const Case& c) {
    std::vector<std::string> expected;
    for (const Expected& e : c.reports) {
        expected.push_back(record(e.code, e.message, at(c.source, e.line, e.needle, e.nth), e.hint));
    }
    Analysis analysis(c.source);
    analysis.analyze();
    EXPECT_EQ(analysis.records(), expected) << c.source;
    if (!c.probeType.empty()) {
        EXPECT_EQ(typeOfInitializer(analysis, "probe"), c.probeType) << c.source;
    }
    EXPECT_EQ(Analysis(c.source).analyzeReleasingBodies().records(), analysis.records()) << c.source;
}

}  // namespace quor::sema::testing
