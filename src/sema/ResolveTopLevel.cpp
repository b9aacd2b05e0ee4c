// Name resolution, pass 1: one walk over the top level in source order that
// makes a type and a symbol for every class, interface, struct and enum, a
// symbol for every function, and records the imports. Signatures are resolved
// as the walk meets them, so a function can only name types declared above it.
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/DiagnosticCodes.h"
#include "sema/NameResolver.h"
#include "sema/ResolveSignature.h"

namespace quor::sema {

using diagnostics::SourceLocation;

namespace {

// Reports a declaration whose name the current scope already holds, built-in
// functions and constants included. True when it did: the earlier entry stays.
bool reportTakenName(NameResolver& resolver, std::string_view kindWord, const std::string& name,
                     const SourceLocation& location) {
    if (!resolver.symbols.lookupCurrentScope(name)) return false;
    resolver.diagnostics.reportError(diagnostics::CODE_DUPLICATE,
                                     "Duplicate declaration of " + std::string(kindWord) + " '" + name + "'", location,
                                     "A symbol with name '" + name + "' is already declared in this scope");
    return true;
}

// Enters the symbol of a named type. A refusal cannot happen after the name
// was found free, and is ignored.
template <typename SymbolT, typename DeclT, typename TypeT>
void defineTypeSymbol(NameResolver& resolver, const DeclT& decl, std::shared_ptr<TypeT> type) {
    resolver.symbols.define(std::make_shared<SymbolT>(decl.name, std::move(type), decl.location, decl.visibility));
}

}  // namespace

void NameResolver::resolve(const ast::Program& program) {
    pass1_collectTopLevel(program);
    pass2_resolveMembersAndInheritance(program);
}

void NameResolver::pass1_collectTopLevel(const ast::Program& program) {
    bodiesMayNestEnums = program.mayNestEnums;
    for (std::size_t i = 0; i < program.declarations.size(); ++i) {
        ast::prefetchDeclarationsAhead(program.declarations, i);
        ast::prefetchDeclarationSpanAhead(program.declarations, i);
        const auto& node = program.declarations[i];
        if (!node) continue;
        switch (node->nodeKind) {
            case ast::NodeKind::ImportDecl:
                resolveImportDecl(static_cast<const ast::ImportDecl&>(*node));
                break;
            case ast::NodeKind::FunctionDecl:
                resolveFunctionDeclPass1(static_cast<const ast::FunctionDecl&>(*node));
                break;
            case ast::NodeKind::ClassDecl:
                resolveClassDeclPass1(static_cast<const ast::ClassDecl&>(*node));
                break;
            case ast::NodeKind::InterfaceDecl:
                resolveInterfaceDeclPass1(static_cast<const ast::InterfaceDecl&>(*node));
                break;
            case ast::NodeKind::StructDecl:
                resolveStructDeclPass1(static_cast<const ast::StructDecl&>(*node));
                break;
            case ast::NodeKind::EnumDecl:
                resolveEnumDeclPass1(static_cast<const ast::EnumDecl&>(*node));
                break;
            case ast::NodeKind::BlockStmt:
                // A block at the top level, an extern block as a rule: only the
                // functions directly inside it are declared.
                for (const auto& statement : static_cast<const ast::BlockStmt&>(*node).statements) {
                    if (statement && statement->nodeKind == ast::NodeKind::FunctionDecl) {
                        resolveFunctionDeclPass1(static_cast<const ast::FunctionDecl&>(*statement));
                    }
                }
                break;
            default:
                // Modules declare nothing; top-level variables are the checker's.
                break;
        }
    }
}

// Imports load nothing and bring no name into scope: the path is only noted.
void NameResolver::resolveImportDecl(const ast::ImportDecl& decl) {
    if (decl.path.empty()) {
        diagnostics.reportError(diagnostics::CODE_IMPORT, "Empty import path specified", decl.location, "");
        return;
    }
    importedModules.insert(decl.path);
}

void NameResolver::resolveClassDeclPass1(const ast::ClassDecl& decl) {
    if (reportTakenName(*this, "class", decl.name, decl.location)) return;
    auto type = types.createClassType(decl.name);
    type->isAbstract = decl.isAbstract;
    type->typeParams = decl.typeParams;
    type->decl = &decl;
    defineTypeSymbol<ClassSymbol>(*this, decl, type);
}

void NameResolver::resolveInterfaceDeclPass1(const ast::InterfaceDecl& decl) {
    if (reportTakenName(*this, "interface", decl.name, decl.location)) return;
    defineTypeSymbol<InterfaceSymbol>(*this, decl, types.createInterfaceType(decl.name));
}

void NameResolver::resolveStructDeclPass1(const ast::StructDecl& decl) {
    if (reportTakenName(*this, "struct", decl.name, decl.location)) return;
    defineTypeSymbol<StructSymbol>(*this, decl, types.createStructType(decl.name));
}

void NameResolver::resolveEnumDeclPass1(const ast::EnumDecl& decl) {
    if (reportTakenName(*this, "enum", decl.name, decl.location)) return;
    defineTypeSymbol<EnumSymbol>(*this, decl, types.createEnumType(decl.name));
}

void NameResolver::resolveFunctionDeclPass1(const ast::FunctionDecl& decl) {
    currentTypeParams = decl.typeParams;
    auto symbol =
        std::make_shared<FunctionSymbol>(decl.name, resolveSignature(*this, decl), decl.location, decl.visibility,
                                         decl.isStatic, false, decl.isAbstract, decl.isOverride);
    symbol->typeParams = decl.typeParams;
    symbol->decl = &decl;
    if (!symbols.define(symbol)) {
        diagnostics.reportError(diagnostics::CODE_DUPLICATE,
                                "Duplicate declaration of function '" + decl.name + "' with identical parameter types",
                                decl.location, "Provide unique parameter types or rename the function");
    }
    if (decl.body && bodiesMayNestEnums) collectNestedTypes(*decl.body);
    currentTypeParams.clear();
}

TypePtr NameResolver::resolveTypeWithDiagnostic(const std::string& typeName, const SourceLocation& location) {
    if (typeName.empty()) return types.voidType;
    // A type parameter is `any` inside its own declaration; only the whole
    // text counts, so "T[]" or "List<T>" are resolved like any other text.
    if (std::find(currentTypeParams.begin(), currentTypeParams.end(), typeName) != currentTypeParams.end()) {
        return types.anyType;
    }
    if (auto type = types.resolveType(typeName)) return type;
    diagnostics.reportError(diagnostics::CODE_UNDEFINED_NAME, "Undefined type '" + typeName + "'", location,
                            "Check the type name or make sure the class/struct/enum is defined");
    return types.errorType;
}

// Lifts the enums out of a function body, through plain nested blocks only,
// and fills them at once. The blocks are walked with a stack of their own, in
// source order, so no depth of nesting can exhaust the call stack.
void NameResolver::collectNestedTypes(const ast::StatementNode& statement) {
    std::vector<const ast::StatementNode*> pending{&statement};
    while (!pending.empty()) {
        const ast::StatementNode* current = pending.back();
        pending.pop_back();
        if (current->nodeKind == ast::NodeKind::BlockStmt) {
            const auto& statements = static_cast<const ast::BlockStmt&>(*current).statements;
            for (auto it = statements.rbegin(); it != statements.rend(); ++it) {
                if (*it) pending.push_back(it->get());
            }
        } else if (current->nodeKind == ast::NodeKind::EnumDecl) {
            const auto& decl = static_cast<const ast::EnumDecl&>(*current);
            resolveEnumDeclPass1(decl);
            resolveEnumMembers(decl);
        }
    }
}

}  // namespace quor::sema
