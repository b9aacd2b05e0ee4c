// One level of the scope stack. A name has one entry; the overloads of a
// function hang off the first function symbol of that name.
#include <string>
#include <vector>

#include "sema/Symbol.h"

namespace quor::sema {

namespace {

bool isCallable(SymbolKind kind) { return kind == SymbolKind::Function || kind == SymbolKind::Method; }

// The parameter list of a function symbol, empty when it carries no
// function type.
const std::vector<TypePtr>& paramsOf(const Symbol& symbol) {
    static const std::vector<TypePtr> none;
    if (const auto* function = dynamic_cast<const FunctionSymbol*>(&symbol); function && function->functionType) {
        return function->functionType->paramTypes;
    }
    if (const auto* type = dynamic_cast<const FunctionType*>(symbol.type.get())) return type->paramTypes;
    return none;
}

bool sameParameters(const Symbol& a, const Symbol& b) {
    const auto& left = paramsOf(a);
    const auto& right = paramsOf(b);
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (!left[i] || !right[i]) {
            if (left[i] != right[i]) return false;
        } else if (!left[i]->equals(*right[i])) {
            return false;
        }
    }
    return true;
}

bool isBuiltin(const Symbol& symbol) { return symbol.location.file == BUILTIN_FILE; }

// A hash on which equal parameter lists always agree.
std::size_t parameterHash(const Symbol& symbol) { return equalityHash(paramsOf(symbol)); }

// Brings the index of `first`'s overloads up to date with the vector.
void indexOverloads(FunctionSymbol& first) {
    for (; first.indexedOverloads < first.overloads.size(); ++first.indexedOverloads) {
        const auto& overload = first.overloads[first.indexedOverloads];
        if (overload) first.overloadsByParameters[parameterHash(*overload)].push_back(first.indexedOverloads);
    }
}

// The first overload, in order, whose parameters are those of `symbol`.
const FunctionSymbol* overloadWithParameters(FunctionSymbol& first, const Symbol& symbol) {
    indexOverloads(first);
    auto bucket = first.overloadsByParameters.find(parameterHash(symbol));
    if (bucket == first.overloadsByParameters.end()) return nullptr;
    for (std::size_t position : bucket->second) {
        if (sameParameters(symbol, *first.overloads[position])) return first.overloads[position].get();
    }
    return nullptr;
}

}  // namespace

// A redeclaration with the parameters of an existing function is never
// stored: it is accepted silently when the existing one is built in (so the
// built-in stays the one calls reach), and refused otherwise.
bool Scope::define(const SymbolPtr& symbol) {
    if (!symbol) return false;
    auto found = symbols.find(symbol->name);
    if (found == symbols.end()) {
        symbols.emplace(symbol->name, symbol);
        return true;
    }
    const SymbolPtr& entry = found->second;
    if (!isCallable(entry->kind) || !isCallable(symbol->kind)) return false;
    if (sameParameters(*symbol, *entry)) return isBuiltin(*entry);
    auto first = std::dynamic_pointer_cast<FunctionSymbol>(entry);
    auto added = std::dynamic_pointer_cast<FunctionSymbol>(symbol);
    if (!first || !added) return false;
    if (const FunctionSymbol* same = overloadWithParameters(*first, *symbol)) return isBuiltin(*same);
    first->overloads.push_back(std::move(added));
    return true;
}

SymbolPtr Scope::lookupLocal(const std::string& name) const {
    auto found = symbols.find(name);
    return found == symbols.end() ? nullptr : found->second;
}

SymbolPtr Scope::lookup(const std::string& name) const {
    for (const Scope* scope = this; scope != nullptr; scope = scope->parent.get()) {
        if (auto symbol = scope->lookupLocal(name)) return symbol;
    }
    return nullptr;
}

// The nearest binding decides: overload sets of different scopes are never
// merged, and a variable hides a function of its name.
std::vector<FunctionSymbolPtr> Scope::lookupFunctions(const std::string& name) const {
    auto symbol = lookup(name);
    if (!symbol || !isCallable(symbol->kind)) return {};
    auto first = std::dynamic_pointer_cast<FunctionSymbol>(symbol);
    if (!first) return {};
    std::vector<FunctionSymbolPtr> result{first};
    result.insert(result.end(), first->overloads.begin(), first->overloads.end());
    return result;
}

}  // namespace quor::sema
