#pragma once

// Turns a parsed program and the doc blocks of its source into DocModule
// entries: one per file-level declaration, members one level deep.

#include <vector>

#include "ast/AST.h"
#include "doc/DocBlock.h"
#include "doc/DocModel.h"

namespace quor::doc {

class ModuleExtractor {
public:
    ModuleExtractor(DocModule& module, std::vector<RawDocBlock>& blocks) : module(module), blocks(blocks) {}

    // Adds the entries of every top-level declaration, in order.
    void addProgram(const ast::Program& program);

private:
    void addDeclaration(const ast::ASTNode& node);
    void addModuleDecl(const ast::ModuleDecl& decl);
    DocEntry functionEntry(const ast::FunctionDecl& function);
    DocEntry classEntry(const ast::ClassDecl& decl);
    DocEntry interfaceEntry(const ast::InterfaceDecl& decl);
    DocEntry structEntry(const ast::StructDecl& decl);
    DocEntry enumEntry(const ast::EnumDecl& decl);
    DocEntry variableEntry(const ast::VarDeclStmt& variable, DocKind kind);

    // Looks up the doc block that ends 1 to 5 lines above the entry's line.
    void attachDoc(DocEntry& entry);

    DocModule& module;
    std::vector<RawDocBlock>& blocks;
};

}  // namespace quor::doc
