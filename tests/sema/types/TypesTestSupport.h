#pragma once

// Helpers of the type tests: a fresh context, shorthands for making class
// types and function types, and a parsed program whose class declarations a
// test can hand to the context.
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ast/AST.h"
#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"
#include "sema/Symbol.h"
#include "sema/Type.h"
#include "sema/TypeContext.h"

namespace quor::sema::testing {

// A source parsed on its own, without the analyzer. The tree outlives every
// context a test builds from it.
struct ParsedSource {
    std::ostringstream printed;
    diagnostics::DiagnosticEngine engine{printed};
    std::unique_ptr<ast::Program> program;

    explicit ParsedSource(const std::string& source) {
        lexer::Lexer scanner(source, "types.quor", &engine);
        auto tokens = scanner.tokenizeAll();
        parser::Parser parser(tokens, "types.quor", &engine);
        program = parser.parseProgram();
        EXPECT_EQ(engine.getErrorCount(), 0u) << "source does not parse cleanly:\n" << source;
    }

    const ast::ClassDecl* classNamed(const std::string& name) const {
        for (const auto& node : program->declarations) {
            if (node && node->nodeKind == ast::NodeKind::ClassDecl) {
                const auto* decl = static_cast<const ast::ClassDecl*>(node.get());
                if (decl->name == name) return decl;
            }
        }
        return nullptr;
    }
};

// "name(p1, p2) -> r" with " static" behind a static method: one line per
// method, easy to hold against a table.
inline std::string describeMethod(const MemberMethod& method) {
    std::string text = method.name + "(";
    for (std::size_t i = 0; i < method.type->paramTypes.size(); ++i) {
        if (i > 0) text += ", ";
        text += typeText(method.type->paramTypes[i]);
    }
    text += ") -> " + typeText(method.type->returnType);
    if (method.isStatic) text += " static";
    return text;
}

inline std::vector<std::string> describeMethods(const std::vector<MemberMethod>& methods) {
    std::vector<std::string> out;
    for (const auto& method : methods) out.push_back(describeMethod(method));
    return out;
}

inline MemberMethod method(const std::string& name, std::shared_ptr<FunctionType> type) {
    MemberMethod m;
    m.name = name;
    m.type = std::move(type);
    return m;
}

inline MemberField field(const std::string& name, TypePtr type) {
    MemberField f;
    f.name = name;
    f.type = std::move(type);
    return f;
}

}  // namespace quor::sema::testing
