// The scope stack. The global scope sits at the bottom and is never left.
#include <memory>

#include "sema/Symbol.h"

namespace quor::sema {

SymbolTable::SymbolTable()
    : globalScope(std::make_shared<Scope>(ScopeKind::Global, nullptr)), currentScope(globalScope) {
    scopeStack.push_back(globalScope);
}

void SymbolTable::enterScope(ScopeKind kind) {
    auto scope = std::make_shared<Scope>(kind, currentScope);
    scopeStack.push_back(scope);
    currentScope = std::move(scope);
}

void SymbolTable::exitScope() {
    if (scopeStack.size() <= 1) return;
    scopeStack.pop_back();
    currentScope = scopeStack.back();
}

bool SymbolTable::define(const SymbolPtr& symbol) { return currentScope ? currentScope->define(symbol) : false; }

SymbolPtr SymbolTable::lookup(const std::string& name) const {
    return currentScope ? currentScope->lookup(name) : nullptr;
}

std::vector<FunctionSymbolPtr> SymbolTable::lookupFunctions(const std::string& name) const {
    return currentScope ? currentScope->lookupFunctions(name) : std::vector<FunctionSymbolPtr>{};
}

SymbolPtr SymbolTable::lookupCurrentScope(const std::string& name) const {
    return currentScope ? currentScope->lookupLocal(name) : nullptr;
}

}  // namespace quor::sema
