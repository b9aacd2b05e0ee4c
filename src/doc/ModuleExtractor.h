#pragma once

// Turns a parsed program and the doc blocks of its source into DocModule
// entries: one per file-level declaration, members one level deep.

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ast/AST.h"
#include "doc/DocBlock.h"
#include "doc/DocModel.h"

namespace quor::doc {

// A source read once for extraction: its doc blocks and its syntax tree.
struct ExtractionSource {
    std::vector<RawDocBlock> blocks;
    std::unique_ptr<ast::Program> program;  // null when parsing gave nothing
};

// Scans `source` once with comments kept, collects its doc blocks (parsed
// at once when `parseBlocks` is set, otherwise when claimed) unless
// `withBlocks` is false, and parses the remaining tokens. Errors are
// collected and dropped: whatever the parser kept is used.
ExtractionSource readExtractionSource(const std::string& source, const std::string& path, bool withBlocks,
                                      bool parseBlocks);

class ModuleExtractor {
public:
    // `blocksParsed` false: the blocks hold only their raw text, and a
    // block is read when a declaration claims it.
    ModuleExtractor(DocModule& module, std::vector<RawDocBlock>& blocks, bool blocksParsed = true)
        : module(module), blocks(blocks), blocksParsed(blocksParsed) {}

    // Adds the entries of every top-level declaration, in order.
    void addProgram(const ast::Program& program);

    // The entry that a name lookup over the whole module would find (each
    // entry's name, then its members' names, in order), built alone: the
    // declarations before it only claim their doc blocks, so its own block
    // is the one it gets in the whole module.
    std::optional<DocEntry> findEntry(const ast::Program& program, std::string_view name);

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
    // Claims the block of a declaration that is not wanted.
    void passOver(const ast::ASTNode& node);

    DocModule& module;
    std::vector<RawDocBlock>& blocks;
    bool blocksParsed;
};

}  // namespace quor::doc
