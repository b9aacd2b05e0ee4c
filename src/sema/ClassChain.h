#pragma once

#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <vector>

#include "sema/Type.h"

namespace quor::sema {

// The classes from `start` up its superclass chain, nearest first, each once.
// The chain is walked in a loop, so a long chain costs no stack; a chain that
// runs back into itself (which only a faulty program can build) ends before
// the first class seen twice instead of going round for ever.
inline std::vector<const ClassType*> classChain(const ClassType& start) {
    // Short chains, the usual case, are searched in place; a set is kept
    // only once the chain grows long.
    constexpr std::size_t LINEAR_LIMIT = 32;
    std::vector<const ClassType*> chain;
    std::unordered_set<const ClassType*> seen;
    for (const ClassType* current = &start; current != nullptr; current = current->superclass.get()) {
        if (chain.size() < LINEAR_LIMIT) {
            if (std::find(chain.begin(), chain.end(), current) != chain.end()) break;
        } else {
            if (seen.empty()) seen.insert(chain.begin(), chain.end());
            if (!seen.insert(current).second) break;
        }
        chain.push_back(current);
    }
    return chain;
}

// Whether `test` holds for some class of the chain from `start` up, nearest
// first. The usual short chain is walked in place; a long or circular one
// goes through classChain, which may test the first classes again. That is
// harmless, since a test that failed once fails again.
template <typename Test>
bool anyInClassChain(const ClassType& start, Test test) {
    constexpr std::size_t IN_PLACE_STEPS = 32;
    const ClassType* current = &start;
    for (std::size_t steps = 0; current != nullptr && steps < IN_PLACE_STEPS; ++steps) {
        if (test(*current)) return true;
        current = current->superclass.get();
    }
    if (current == nullptr) return false;
    for (const ClassType* cls : classChain(start)) {
        if (test(*cls)) return true;
    }
    return false;
}

}  // namespace quor::sema
