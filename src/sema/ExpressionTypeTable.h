#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <unordered_map>
#include <vector>

#include "sema/Type.h"

namespace quor::ast {
class ExpressionNode;
}

namespace quor::sema {

// The checker's record of the type of every expression it visited, keyed by
// node identity. The checker only writes it: each result is appended to one
// array, in the order of the walk, which keeps the writes sequential however
// large the program (a hash table keyed by address touched a random slot of
// a table as large as the program for every expression). Readers (tests,
// tools) get a map view, built on the first read after a write: a node
// written twice holds its last type, and entries keep the order in which
// their nodes were first recorded.
class ExpressionTypeTable {
public:
    struct Entry {
        const ast::ExpressionNode* first = nullptr;
        TypePtr second;
    };
    using const_iterator = std::vector<Entry>::const_iterator;

    void record(const ast::ExpressionNode* node, TypePtr type) {
        written.push_back(Entry{node, std::move(type)});
    }

    // Room for `more` records beyond those written, without regrowing.
    void reserveMore(std::size_t more) { written.reserve(written.size() + more); }

    const_iterator begin() const { return view().begin(); }
    const_iterator end() const { return view().end(); }
    const_iterator find(const ast::ExpressionNode* node) const {
        const auto& entries = view();
        auto found = position.find(node);
        return found == position.end() ? entries.end() : entries.begin() + static_cast<std::ptrdiff_t>(found->second);
    }
    const TypePtr& at(const ast::ExpressionNode* node) const {
        auto found = find(node);
        if (found == end()) throw std::out_of_range("no type recorded for this expression");
        return found->second;
    }
    std::size_t count(const ast::ExpressionNode* node) const { return find(node) != end() ? 1 : 0; }
    std::size_t size() const { return view().size(); }
    bool empty() const { return written.empty(); }

private:
    // Folds the records written since the last read into the map view.
    const std::vector<Entry>& view() const {
        for (; folded < written.size(); ++folded) {
            const Entry& entry = written[folded];
            auto [slot, added] = position.try_emplace(entry.first, entries.size());
            if (added) {
                entries.push_back(entry);
            } else {
                entries[slot->second].second = entry.second;
            }
        }
        return entries;
    }

    std::vector<Entry> written;  // every record, in the order of the walk
    mutable std::size_t folded = 0;
    mutable std::vector<Entry> entries;  // one per node
    mutable std::unordered_map<const ast::ExpressionNode*, std::size_t> position;
};

}  // namespace quor::sema
