#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "diagnostics/SourceLocation.h"
#include "sema/NameTable.h"
#include "sema/Type.h"

namespace quor::ast {
class FunctionDecl;
}

namespace quor::sema {

class TypeContext;

enum class SymbolKind : std::uint32_t {
    Variable = 0,
    Constant = 1,
    Parameter = 2,
    Function = 3,
    Method = 4,
    Class = 5,
    Interface = 6,
    Struct = 7,
    Enum = 8,
};

enum class ScopeKind : std::uint32_t {
    Global = 0,
    Reserved = 1,  // never entered
    Class = 2,
    Function = 3,
    Block = 4,
};

// A declared name. Always held by shared pointer.
class Symbol : public std::enable_shared_from_this<Symbol> {
public:
    Symbol(SymbolKind kind, std::string name, TypePtr type, diagnostics::SourceLocation location,
           std::string visibility = "public", bool isStatic = false)
        : kind(kind),
          name(std::move(name)),
          type(std::move(type)),
          location(std::move(location)),
          visibility(std::move(visibility)),
          isStatic(isStatic) {}
    virtual ~Symbol() = default;

    SymbolKind kind;
    std::string name;
    TypePtr type;
    diagnostics::SourceLocation location;
    std::string visibility;
    bool isStatic;
};
using SymbolPtr = std::shared_ptr<Symbol>;

// A variable, constant or parameter; the kind follows from the two flags.
class VariableSymbol final : public Symbol {
public:
    VariableSymbol(std::string name, TypePtr type, diagnostics::SourceLocation location, bool isConst = false,
                   bool isParameter = false, std::string visibility = "public", bool isStatic = false)
        : Symbol(isConst ? SymbolKind::Constant : (isParameter ? SymbolKind::Parameter : SymbolKind::Variable),
                 std::move(name), std::move(type), std::move(location), std::move(visibility), isStatic),
          isConst(isConst),
          isParameter(isParameter) {}

    bool isConst;
    bool isParameter;
};

// A free function or method. The first symbol of a name in a scope carries
// the other overloads of that name.
class FunctionSymbol final : public Symbol {
public:
    FunctionSymbol(std::string name, std::shared_ptr<FunctionType> functionType,
                   diagnostics::SourceLocation location, std::string visibility = "public", bool isStatic = false,
                   bool isMethod = false, bool isAbstract = false, bool isOverride = false)
        : Symbol(isMethod ? SymbolKind::Method : SymbolKind::Function, std::move(name), functionType,
                 std::move(location), std::move(visibility), isStatic),
          functionType(std::move(functionType)),
          isMethod(isMethod),
          isAbstract(isAbstract),
          isOverride(isOverride) {}

    void setFunctionType(std::shared_ptr<FunctionType> replacement) {
        type = replacement;
        functionType = std::move(replacement);
    }

    std::shared_ptr<FunctionType> functionType;  // the same object as `type`
    std::vector<std::string> typeParams;
    const ast::FunctionDecl* decl = nullptr;  // not owned; null for built-ins
    bool isMethod;
    bool isAbstract;
    bool isOverride;
    std::vector<std::shared_ptr<FunctionSymbol>> overloads;
    // Positions in `overloads` by a hash of their parameter lists, so that a
    // new overload is compared only with those that could have its
    // parameters. Scope::define keeps it in step, also with overloads that
    // were appended to the vector directly.
    std::unordered_map<std::size_t, std::vector<std::size_t>> overloadsByParameters;
    std::size_t indexedOverloads = 0;
};
using FunctionSymbolPtr = std::shared_ptr<FunctionSymbol>;

// The symbols of named types. Each keeps its typed pointer beside the
// base's `type`, which holds the same object.
class ClassSymbol final : public Symbol {
public:
    ClassSymbol(std::string name, std::shared_ptr<ClassType> type, diagnostics::SourceLocation location,
                std::string visibility = "public")
        : Symbol(SymbolKind::Class, std::move(name), type, std::move(location), std::move(visibility)),
          classType(std::move(type)) {}
    std::shared_ptr<ClassType> classType;
};

class InterfaceSymbol final : public Symbol {
public:
    InterfaceSymbol(std::string name, std::shared_ptr<InterfaceType> type, diagnostics::SourceLocation location,
                    std::string visibility = "public")
        : Symbol(SymbolKind::Interface, std::move(name), type, std::move(location), std::move(visibility)),
          interfaceType(std::move(type)) {}
    std::shared_ptr<InterfaceType> interfaceType;
};

class StructSymbol final : public Symbol {
public:
    StructSymbol(std::string name, std::shared_ptr<StructType> type, diagnostics::SourceLocation location,
                 std::string visibility = "public")
        : Symbol(SymbolKind::Struct, std::move(name), type, std::move(location), std::move(visibility)),
          structType(std::move(type)) {}
    std::shared_ptr<StructType> structType;
};

class EnumSymbol final : public Symbol {
public:
    EnumSymbol(std::string name, std::shared_ptr<EnumType> type, diagnostics::SourceLocation location,
               std::string visibility = "public")
        : Symbol(SymbolKind::Enum, std::move(name), type, std::move(location), std::move(visibility)),
          enumType(std::move(type)) {}
    std::shared_ptr<EnumType> enumType;
};

// One level of the scope stack: one entry per name.
class Scope : public std::enable_shared_from_this<Scope> {
public:
    Scope(ScopeKind kind, std::shared_ptr<Scope> parent) : kind(kind), parent(std::move(parent)) {}

    // False when the name is taken; a function of new parameters joins the
    // overloads of the first function of that name instead.
    bool define(const SymbolPtr& symbol);
    SymbolPtr lookupLocal(const std::string& name) const;
    SymbolPtr lookup(const std::string& name) const;
    // The nearest function binding of the name with its overloads, in order.
    std::vector<FunctionSymbolPtr> lookupFunctions(const std::string& name) const;

    ScopeKind kind;
    std::shared_ptr<Scope> parent;
    NameTable<SymbolPtr> symbols;
};
using ScopePtr = std::shared_ptr<Scope>;

// The scope stack. The global scope sits at the bottom and is never left.
class SymbolTable {
public:
    SymbolTable();

    void enterScope(ScopeKind kind);
    void exitScope();
    bool define(const SymbolPtr& symbol);
    SymbolPtr lookup(const std::string& name) const;
    std::vector<FunctionSymbolPtr> lookupFunctions(const std::string& name) const;
    SymbolPtr lookupCurrentScope(const std::string& name) const;
    // Fills the global scope with the built-in functions and constants.
    void initBuiltins(TypeContext& types);

    ScopePtr globalScope;
    ScopePtr currentScope;
    std::vector<ScopePtr> scopeStack;
};

// The file name of every built-in symbol's location.
inline constexpr const char* BUILTIN_FILE = "<built-in>";

}  // namespace quor::sema
