// Reading declarations out of a syntax tree into documentation entries.
#include "doc/ModuleExtractor.h"

#include <string_view>
#include <utility>

#include "doc/Signatures.h"

namespace quor::doc {

namespace {

constexpr std::string_view TEST_FUNCTION_PREFIX = "__quor_test_";

std::int32_t lineOf(const ast::ASTNode& node) { return static_cast<std::int32_t>(node.location.line); }

DocEntry namedEntry(const std::string& name, DocKind kind, const ast::ASTNode& node) {
    DocEntry entry;
    entry.name = name;
    entry.kind = kind;
    entry.line = lineOf(node);
    return entry;
}

// The head of a class, interface, struct or enum entry: name, kind, place,
// visibility and signature; the caller attaches the doc block and members.
template <typename Declaration>
DocEntry typeEntry(const Declaration& decl, DocKind kind, std::string signature) {
    DocEntry entry = namedEntry(decl.name, kind, decl);
    entry.visibility = visibilityOf(decl.visibility);
    entry.signature = std::move(signature);
    return entry;
}

// The fields that every function form shares; the caller sets the signature.
DocEntry callableEntry(const ast::FunctionDecl& function, DocKind kind) {
    DocEntry entry = namedEntry(function.name, kind, function);
    entry.visibility = visibilityOf(function.visibility);
    entry.isStatic = function.isStatic;
    entry.isAsync = function.isAsync;
    entry.isOverride = function.isOverride;
    entry.returnType = returnTypeOf(function.returnType);
    for (const ast::Parameter& param : function.params) {
        DocParam docParam;
        docParam.name = param.name;
        docParam.type = param.type;
        entry.params.push_back(std::move(docParam));
    }
    return entry;
}

// A struct field's entry without its doc block.
DocEntry structFieldEntry(const ast::VarDeclStmt& field) {
    DocEntry entry = namedEntry(field.name, DocKind::Field, field);
    entry.visibility = visibilityOf(field.visibility);
    entry.isStatic = field.isStatic;
    entry.returnType = field.typeName;
    entry.signature = structFieldSignature(field);
    return entry;
}

}  // namespace

void ModuleExtractor::addProgram(const ast::Program& program) {
    for (const ast::NodePtr& node : program.declarations) {
        if (node) addDeclaration(*node);
    }
}

void ModuleExtractor::addDeclaration(const ast::ASTNode& node) {
    switch (node.nodeKind) {
        case ast::NodeKind::ModuleDecl:
            addModuleDecl(static_cast<const ast::ModuleDecl&>(node));
            return;
        case ast::NodeKind::FunctionDecl: {
            const auto& function = static_cast<const ast::FunctionDecl&>(node);
            if (std::string_view(function.name).substr(0, TEST_FUNCTION_PREFIX.size()) == TEST_FUNCTION_PREFIX) return;
            module.entries.push_back(functionEntry(function));
            return;
        }
        case ast::NodeKind::ClassDecl:
            module.entries.push_back(classEntry(static_cast<const ast::ClassDecl&>(node)));
            return;
        case ast::NodeKind::InterfaceDecl:
            module.entries.push_back(interfaceEntry(static_cast<const ast::InterfaceDecl&>(node)));
            return;
        case ast::NodeKind::StructDecl:
            module.entries.push_back(structEntry(static_cast<const ast::StructDecl&>(node)));
            return;
        case ast::NodeKind::EnumDecl:
            module.entries.push_back(enumEntry(static_cast<const ast::EnumDecl&>(node)));
            return;
        case ast::NodeKind::VarDeclStmt:
            module.entries.push_back(variableEntry(static_cast<const ast::VarDeclStmt&>(node), DocKind::Variable));
            return;
        default:
            return;  // imports, statements and extern blocks document nothing
    }
}

void ModuleExtractor::addModuleDecl(const ast::ModuleDecl& decl) {
    module.name = decl.name;
    if (const RawDocBlock* block = claimDocBlock(blocks, lineOf(decl))) {
        module.description = block->description;
        module.brief = block->brief;
    }
}

DocEntry ModuleExtractor::functionEntry(const ast::FunctionDecl& function) {
    DocEntry entry = callableEntry(function, DocKind::Function);
    entry.signature = functionSignature(function);
    attachDoc(entry);
    return entry;
}

DocEntry ModuleExtractor::classEntry(const ast::ClassDecl& decl) {
    DocEntry entry = typeEntry(decl, DocKind::Class, classSignature(decl));
    attachDoc(entry);
    for (const ast::NodePtr& member : decl.members) {
        if (!member) continue;
        if (member->nodeKind == ast::NodeKind::FunctionDecl) {
            const auto& method = static_cast<const ast::FunctionDecl&>(*member);
            DocEntry methodEntry = callableEntry(method, DocKind::Method);
            methodEntry.signature = classMethodSignature(method);
            attachDoc(methodEntry);
            entry.members.push_back(std::move(methodEntry));
        } else if (member->nodeKind == ast::NodeKind::VarDeclStmt) {
            entry.members.push_back(variableEntry(static_cast<const ast::VarDeclStmt&>(*member), DocKind::Field));
        }
    }
    return entry;
}

DocEntry ModuleExtractor::interfaceEntry(const ast::InterfaceDecl& decl) {
    DocEntry entry = typeEntry(decl, DocKind::Interface, "interface " + decl.name);
    attachDoc(entry);
    for (const auto& method : decl.methods) {
        if (!method) continue;
        DocEntry methodEntry = callableEntry(*method, DocKind::Method);
        methodEntry.signature = interfaceMethodSignature(*method);
        attachDoc(methodEntry);
        entry.members.push_back(std::move(methodEntry));
    }
    return entry;
}

DocEntry ModuleExtractor::structEntry(const ast::StructDecl& decl) {
    DocEntry entry = typeEntry(decl, DocKind::Struct, "struct " + decl.name);
    attachDoc(entry);
    for (const auto& field : decl.fields) {
        if (!field) continue;
        DocEntry fieldEntry = structFieldEntry(*field);
        attachDoc(fieldEntry);
        entry.members.push_back(std::move(fieldEntry));
    }
    return entry;
}

DocEntry ModuleExtractor::enumEntry(const ast::EnumDecl& decl) {
    DocEntry entry = typeEntry(decl, DocKind::Enum, "enum " + decl.name);
    attachDoc(entry);
    for (const ast::EnumVariant& variant : decl.variants) {
        // A variant has no place of its own in the tree; it points at its enum.
        DocEntry variantEntry = namedEntry(variant.name, DocKind::Field, decl);
        variantEntry.signature = variant.name;
        attachDoc(variantEntry);
        entry.members.push_back(std::move(variantEntry));
    }
    return entry;
}

DocEntry ModuleExtractor::variableEntry(const ast::VarDeclStmt& variable, DocKind kind) {
    DocEntry entry = namedEntry(variable.name, kind, variable);
    entry.visibility = visibilityOf(variable.visibility);
    entry.isStatic = variable.isStatic;
    entry.returnType = variable.typeName;
    entry.signature = variableSignature(variable);
    attachDoc(entry);
    return entry;
}

void ModuleExtractor::attachDoc(DocEntry& entry) {
    RawDocBlock* block = claimDocBlock(blocks, entry.line);
    if (block == nullptr) return;
    if (!blocksParsed) {
        RawDocBlock parsed = parseDocBlock(block->raw, block->startLine, block->endLine);
        parsed.used = true;
        *block = std::move(parsed);
    }
    entry.description = block->description;
    entry.brief = block->brief;
    if (!block->returns.empty()) entry.returnDescription = block->returns;
    for (DocParam& param : entry.params) {
        auto found = block->params.find(param.name);
        if (found != block->params.end()) param.description = found->second;
    }
}

void ModuleExtractor::passOver(const ast::ASTNode& node) { claimDocBlock(blocks, lineOf(node)); }

std::optional<DocEntry> ModuleExtractor::findEntry(const ast::Program& program, std::string_view name) {
    // The same walk as addProgram, in the same order of claims; only the
    // entry that matches is built.
    for (const ast::NodePtr& node : program.declarations) {
        if (!node) continue;
        switch (node->nodeKind) {
            case ast::NodeKind::ModuleDecl:
                passOver(*node);
                break;
            case ast::NodeKind::FunctionDecl: {
                const auto& function = static_cast<const ast::FunctionDecl&>(*node);
                if (std::string_view(function.name).substr(0, TEST_FUNCTION_PREFIX.size()) == TEST_FUNCTION_PREFIX) {
                    break;
                }
                if (function.name == name) return functionEntry(function);
                passOver(function);
                break;
            }
            case ast::NodeKind::ClassDecl: {
                const auto& decl = static_cast<const ast::ClassDecl&>(*node);
                if (decl.name == name) return classEntry(decl);
                passOver(decl);
                for (const ast::NodePtr& member : decl.members) {
                    if (!member) continue;
                    if (member->nodeKind == ast::NodeKind::FunctionDecl) {
                        const auto& method = static_cast<const ast::FunctionDecl&>(*member);
                        if (method.name != name) {
                            passOver(method);
                            continue;
                        }
                        DocEntry methodEntry = callableEntry(method, DocKind::Method);
                        methodEntry.signature = classMethodSignature(method);
                        attachDoc(methodEntry);
                        return methodEntry;
                    }
                    if (member->nodeKind == ast::NodeKind::VarDeclStmt) {
                        const auto& field = static_cast<const ast::VarDeclStmt&>(*member);
                        if (field.name == name) return variableEntry(field, DocKind::Field);
                        passOver(field);
                    }
                }
                break;
            }
            case ast::NodeKind::InterfaceDecl: {
                const auto& decl = static_cast<const ast::InterfaceDecl&>(*node);
                if (decl.name == name) return interfaceEntry(decl);
                passOver(decl);
                for (const auto& method : decl.methods) {
                    if (!method) continue;
                    if (method->name != name) {
                        passOver(*method);
                        continue;
                    }
                    DocEntry methodEntry = callableEntry(*method, DocKind::Method);
                    methodEntry.signature = interfaceMethodSignature(*method);
                    attachDoc(methodEntry);
                    return methodEntry;
                }
                break;
            }
            case ast::NodeKind::StructDecl: {
                const auto& decl = static_cast<const ast::StructDecl&>(*node);
                if (decl.name == name) return structEntry(decl);
                passOver(decl);
                for (const auto& field : decl.fields) {
                    if (!field) continue;
                    if (field->name != name) {
                        passOver(*field);
                        continue;
                    }
                    DocEntry fieldEntry = structFieldEntry(*field);
                    attachDoc(fieldEntry);
                    return fieldEntry;
                }
                break;
            }
            case ast::NodeKind::EnumDecl: {
                const auto& decl = static_cast<const ast::EnumDecl&>(*node);
                if (decl.name == name) return enumEntry(decl);
                passOver(decl);
                for (const ast::EnumVariant& variant : decl.variants) {
                    if (variant.name != name) {
                        passOver(decl);  // a variant stands on its enum's line
                        continue;
                    }
                    DocEntry variantEntry = namedEntry(variant.name, DocKind::Field, decl);
                    variantEntry.signature = variant.name;
                    attachDoc(variantEntry);
                    return variantEntry;
                }
                break;
            }
            case ast::NodeKind::VarDeclStmt: {
                const auto& variable = static_cast<const ast::VarDeclStmt&>(*node);
                if (variable.name == name) return variableEntry(variable, DocKind::Variable);
                passOver(variable);
                break;
            }
            default:
                break;
        }
    }
    return std::nullopt;
}

}  // namespace quor::doc
