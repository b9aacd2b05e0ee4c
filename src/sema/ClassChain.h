#pragma once

#include <cstddef>
#include <vector>

#include "sema/Type.h"

namespace quor::sema {

// How many different classes the chain from `start` up holds: up to its
// end, or, for a chain that runs back into itself (which only a faulty
// program can build), up to the first class met a second time. Found with
// two walkers at different speeds (Brent's method), so that a long chain
// costs no memory and no hashing: the chain's end, or the loop's length and
// the distance to where it starts.
inline std::size_t distinctChainLength(const ClassType& start) {
    const ClassType* marker = &start;
    const ClassType* walker = start.superclass.get();
    std::size_t power = 1;
    std::size_t loop = 1;
    std::size_t walked = 1;
    while (walker != marker) {
        if (walker == nullptr) return walked;
        if (power == loop) {
            marker = walker;
            power *= 2;
            loop = 0;
        }
        walker = walker->superclass.get();
        ++loop;
        ++walked;
    }
    const ClassType* ahead = &start;
    for (std::size_t i = 0; i < loop; ++i) ahead = ahead->superclass.get();
    std::size_t lead = 0;
    for (const ClassType* behind = &start; behind != ahead; ++lead) {
        behind = behind->superclass.get();
        ahead = ahead->superclass.get();
    }
    return lead + loop;
}

// The classes from `start` up its superclass chain, nearest first, each once.
// The chain is walked in a loop, so a long chain costs no stack; a chain that
// runs back into itself ends before the first class seen twice instead of
// going round for ever.
inline std::vector<const ClassType*> classChain(const ClassType& start) {
    std::vector<const ClassType*> chain(distinctChainLength(start));
    const ClassType* current = &start;
    for (auto& entry : chain) {
        entry = current;
        current = current->superclass.get();
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
