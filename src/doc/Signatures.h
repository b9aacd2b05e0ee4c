#pragma once

// One-line declaration texts shown in documentation, completion and hover.

#include <string>
#include <string_view>
#include <vector>

#include "ast/AST.h"

namespace quor::doc {

// An empty visibility reads as "public".
std::string visibilityOf(std::string_view visibility);
// An empty return type reads as "void".
std::string returnTypeOf(std::string_view returnType);

// "name: type" for each parameter, joined by ", "; defaults are left out.
std::string parameterList(const std::vector<ast::Parameter>& params);

std::string functionSignature(const ast::FunctionDecl& function);
std::string classMethodSignature(const ast::FunctionDecl& method);
std::string interfaceMethodSignature(const ast::FunctionDecl& method);
std::string classSignature(const ast::ClassDecl& decl);
// "const name: type" or "let name: type"; used for globals and class fields.
std::string variableSignature(const ast::VarDeclStmt& variable);
std::string structFieldSignature(const ast::VarDeclStmt& field);

}  // namespace quor::doc
