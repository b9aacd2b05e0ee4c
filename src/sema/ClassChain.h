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

}  // namespace quor::sema
