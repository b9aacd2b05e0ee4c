#pragma once

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "ast/AST.h"
#include "diagnostics/DiagnosticEngine.h"
#include "sema/InheritanceIndex.h"
#include "sema/Symbol.h"
#include "sema/TypeContext.h"

namespace quor::sema {

// Declares every top-level name before the checker runs. Pass 1 makes a type
// and a symbol for each declaration in one ordered walk; pass 2 fills the
// members of classes, interfaces, structs and enums and links classes to
// their bases. Function bodies are not looked at, except for the enums
// nested in plain blocks.
class NameResolver {
public:
    NameResolver(TypeContext& types, SymbolTable& symbols, diagnostics::DiagnosticEngine& diagnostics)
        : types(types), symbols(symbols), diagnostics(diagnostics) {}

    void resolve(const ast::Program& program);

    // Pass 1.
    void pass1_collectTopLevel(const ast::Program& program);
    void resolveImportDecl(const ast::ImportDecl& decl);
    void resolveClassDeclPass1(const ast::ClassDecl& decl);
    void resolveInterfaceDeclPass1(const ast::InterfaceDecl& decl);
    void resolveStructDeclPass1(const ast::StructDecl& decl);
    void resolveEnumDeclPass1(const ast::EnumDecl& decl);
    void resolveFunctionDeclPass1(const ast::FunctionDecl& decl);
    TypePtr resolveTypeWithDiagnostic(const std::string& typeName, const diagnostics::SourceLocation& location);
    void collectNestedTypes(const ast::StatementNode& statement);

    // Pass 2.
    void pass2_resolveMembersAndInheritance(const ast::Program& program);
    void resolveClassMembersAndInheritance(const ast::ClassDecl& decl);
    void resolveInterfaceMembers(const ast::InterfaceDecl& decl);
    void resolveStructMembers(const ast::StructDecl& decl);
    void resolveEnumMembers(const ast::EnumDecl& decl);
    bool checkCircularInheritance(const std::shared_ptr<ClassType>& classType, const std::string& baseName,
                                  const diagnostics::SourceLocation& location);

    TypeContext& types;
    SymbolTable& symbols;
    diagnostics::DiagnosticEngine& diagnostics;
    std::unordered_set<std::string> importedModules;
    std::vector<std::string> currentTypeParams;
    // Whether function bodies may hold enums, as the program being resolved
    // says; when not, they are not searched.
    bool bodiesMayNestEnums = true;
    // The class chains while pass 2 runs; spares the walks that cannot find anything.
    InheritanceIndex inheritance;
};

}  // namespace quor::sema
