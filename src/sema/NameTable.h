#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quor::sema {

// A map from names to values for the analyzer's largest tables: the named
// types of a program and the symbols of a scope. A lookup probes a compact
// array of hashes and positions, then compares one stored name; a node-based
// hash map chases a bucket and a node per lookup, and both miss the cache
// once a program has thousands of names. A table of a few names (most
// scopes) keeps no slots and is searched in order. Entries are walked in
// the order they were added; adding one may move the others, so no
// reference into the table is kept across an insertion.
template <typename Value>
class NameTable {
public:
    using value_type = std::pair<std::string, Value>;
    using iterator = typename std::vector<value_type>::iterator;
    using const_iterator = typename std::vector<value_type>::const_iterator;

    iterator begin() { return entries.begin(); }
    iterator end() { return entries.end(); }
    const_iterator begin() const { return entries.begin(); }
    const_iterator end() const { return entries.end(); }
    std::size_t size() const { return entries.size(); }
    bool empty() const { return entries.empty(); }

    iterator find(std::string_view name) {
        const std::size_t at = position(name);
        return at == NOT_FOUND ? entries.end() : entries.begin() + static_cast<std::ptrdiff_t>(at);
    }
    const_iterator find(std::string_view name) const {
        const std::size_t at = position(name);
        return at == NOT_FOUND ? entries.end() : entries.begin() + static_cast<std::ptrdiff_t>(at);
    }
    std::size_t count(std::string_view name) const { return position(name) == NOT_FOUND ? 0 : 1; }

    // Adds the entry unless the name is there; says where it is and whether it was added.
    std::pair<iterator, bool> emplace(std::string name, Value value) {
        const std::size_t at = position(name);
        if (at != NOT_FOUND) return {entries.begin() + static_cast<std::ptrdiff_t>(at), false};
        entries.emplace_back(std::move(name), std::move(value));
        if (entries.size() > LINEAR_LIMIT) {
            if (entries.size() * 2 > slots.size()) {
                grow();
            } else {
                place(hashOf(entries.back().first), entries.size() - 1);
            }
        }
        return {entries.end() - 1, true};
    }

    Value& operator[](const std::string& name) { return emplace(name, Value{}).first->second; }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t entry = 0;  // position + 1; 0 for an empty slot
    };
    static constexpr std::size_t NOT_FOUND = static_cast<std::size_t>(-1);
    // Up to this many entries the table has no slots.
    static constexpr std::size_t LINEAR_LIMIT = 8;

    static std::size_t hashOf(std::string_view name) { return std::hash<std::string_view>{}(name); }

    std::size_t position(std::string_view name) const {
        if (slots.empty()) {
            for (std::size_t i = 0; i < entries.size(); ++i) {
                if (entries[i].first == name) return i;
            }
            return NOT_FOUND;
        }
        const std::size_t hash = hashOf(name);
        const std::size_t mask = slots.size() - 1;
        const auto shortHash = static_cast<std::uint32_t>(hash);
        for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
            const Slot& probe = slots[slot];
            if (probe.entry == 0) return NOT_FOUND;
            if (probe.hash == shortHash && entries[probe.entry - 1].first == name) return probe.entry - 1;
        }
    }

    void place(std::size_t hash, std::size_t entry) {
        const std::size_t mask = slots.size() - 1;
        std::size_t slot = hash & mask;
        while (slots[slot].entry != 0) slot = (slot + 1) & mask;
        slots[slot] = Slot{static_cast<std::uint32_t>(hash), static_cast<std::uint32_t>(entry + 1)};
    }

    void grow() {
        slots.assign(slots.empty() ? 4 * LINEAR_LIMIT : slots.size() * 2, Slot{});
        for (std::size_t i = 0; i < entries.size(); ++i) place(hashOf(entries[i].first), i);
    }

    std::vector<value_type> entries;
    std::vector<Slot> slots;  // a power of two in size, at most half full
};

}  // namespace quor::sema
