#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "sema/Type.h"

namespace quor::ast {
class ExpressionNode;
}

namespace quor::sema {

// The checker's record of the type of every expression it visited, keyed by
// node identity. A hash table with open addressing: the checker writes one
// entry per expression of the program, so entries live in one array instead
// of one allocation each, and a lookup probes neighbouring slots.
class ExpressionTypeTable {
public:
    struct Entry {
        const ast::ExpressionNode* first = nullptr;
        TypePtr second;
    };

    // The slot of `node`, made empty on first use.
    TypePtr& operator[](const ast::ExpressionNode* node) {
        if ((used + 1) * 4 > slots.size() * 3) grow();
        Entry& entry = slots[slotFor(node)];
        if (entry.first == nullptr) {
            entry.first = node;
            ++used;
        }
        return entry.second;
    }

    // Walks the recorded entries, in no particular order.
    template <typename E>
    class Iterator {
    public:
        Iterator(E* at, E* limit) : at(at), limit(limit) { skipEmpty(); }
        E& operator*() const { return *at; }
        E* operator->() const { return at; }
        Iterator& operator++() {
            ++at;
            skipEmpty();
            return *this;
        }
        bool operator==(const Iterator& other) const { return at == other.at; }

    private:
        void skipEmpty() {
            while (at != limit && at->first == nullptr) ++at;
        }
        E* at;
        E* limit;
    };
    using iterator = Iterator<Entry>;
    using const_iterator = Iterator<const Entry>;

    iterator begin() { return {slots.data(), slots.data() + slots.size()}; }
    iterator end() { return {slots.data() + slots.size(), slots.data() + slots.size()}; }
    const_iterator begin() const { return {slots.data(), slots.data() + slots.size()}; }
    const_iterator end() const { return {slots.data() + slots.size(), slots.data() + slots.size()}; }

    iterator find(const ast::ExpressionNode* node) {
        Entry* entry = const_cast<Entry*>(lookup(node));
        return entry != nullptr ? iterator(entry, slots.data() + slots.size()) : end();
    }
    const_iterator find(const ast::ExpressionNode* node) const {
        const Entry* entry = lookup(node);
        return entry != nullptr ? const_iterator(entry, slots.data() + slots.size()) : end();
    }

    const TypePtr& at(const ast::ExpressionNode* node) const {
        const Entry* entry = lookup(node);
        if (entry == nullptr) throw std::out_of_range("no type recorded for this expression");
        return entry->second;
    }
    std::size_t count(const ast::ExpressionNode* node) const { return lookup(node) != nullptr ? 1 : 0; }
    std::size_t size() const { return used; }
    bool empty() const { return used == 0; }

    // Room for `expected` entries without growing.
    void reserve(std::size_t expected) {
        std::size_t capacity = slots.empty() ? 16 : slots.size();
        while (expected * 4 > capacity * 3) capacity *= 2;
        if (capacity > slots.size()) rehash(capacity);
    }

private:
    const Entry* lookup(const ast::ExpressionNode* node) const {
        if (slots.empty() || node == nullptr) return nullptr;
        const Entry& entry = slots[slotFor(node)];
        return entry.first == node ? &entry : nullptr;
    }
    std::size_t slotFor(const ast::ExpressionNode* node) const {
        const std::size_t mask = slots.size() - 1;
        std::size_t slot = hash(node) & mask;
        while (slots[slot].first != nullptr && slots[slot].first != node) slot = (slot + 1) & mask;
        return slot;
    }
    static std::size_t hash(const ast::ExpressionNode* node) {
        auto bits = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(node));
        return static_cast<std::size_t>((bits >> 4) * 0x9e3779b97f4a7c15ULL >> 17);
    }
    void grow() { rehash(slots.empty() ? 16 : slots.size() * 2); }
    void rehash(std::size_t capacity) {
        std::vector<Entry> old(capacity);
        old.swap(slots);
        for (Entry& entry : old) {
            if (entry.first != nullptr) slots[slotFor(entry.first)] = std::move(entry);
        }
    }

    std::vector<Entry> slots;  // a power of two in size, at most three quarters full
    std::size_t used = 0;
};

}  // namespace quor::sema
