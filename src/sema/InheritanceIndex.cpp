// The superclass chains of pass 2 and the counts that spare most walks up
// them. The counts only ever rule a hit out; wherever one is possible the
// chain is walked as it stands.
#include "sema/InheritanceIndex.h"

#include <algorithm>
#include <utility>

#include "sema/ClassChain.h"

namespace quor::sema {

void InheritanceIndex::start() {
    stop();
    active = true;
}

void InheritanceIndex::stop() {
    active = false;
    tracked.clear();
    subclassCount.clear();
    baseNames.clear();
    fieldOwners.clear();
    methodOwners.clear();
    foundFields.clear();
}

bool InheritanceIndex::counted(const ClassType& start) const {
    if (!active) return false;
    const ClassType* current = &start;
    for (std::size_t steps = 0; steps < SHORT_CHAIN && current != nullptr; ++steps) current = current->superclass.get();
    return current != nullptr;
}

bool InheritanceIndex::isTracked(const ClassType& cls) const {
    return active && !tracked.empty() && tracked.count(&cls) != 0;
}

void InheritanceIndex::track(const ClassType& cls) {
    // Stops at the first class already taken in: everything above it is in
    // too. A chain that ran back into itself would stop there as well.
    for (const ClassType* current = &cls; current != nullptr && tracked.insert(current).second;
         current = current->superclass.get()) {
        for (const auto& entry : current->fields) ++fieldOwners[entry.first];
        for (const auto& method : current->methods) ++methodOwners[method.name];
        if (current->superclass) countSubclass(*current->superclass, true);
    }
}

void InheritanceIndex::countSubclass(const ClassType& base, bool added) {
    if (added) {
        if (subclassCount[&base]++ == 0) ++baseNames[base.name];
        return;
    }
    auto count = subclassCount.find(&base);
    if (count == subclassCount.end() || --count->second != 0) return;
    subclassCount.erase(count);
    auto named = baseNames.find(base.name);
    if (named != baseNames.end() && --named->second == 0) baseNames.erase(named);
}

template <typename Predicate>
const ClassType* InheritanceIndex::findOnChain(const ClassType* start, Predicate hit) const {
    if (start == nullptr) return nullptr;
    if (!active) {
        for (const ClassType* cls : classChain(*start)) {
            if (hit(*cls)) return cls;
        }
        return nullptr;
    }
    // A chain is either short or tracked whole, so no chain is longer than
    // the larger of SHORT_CHAIN and the count of tracked classes; the bound
    // ends only a walk that would go round in a circle.
    std::size_t steps = std::max(tracked.size(), SHORT_CHAIN);
    for (const ClassType* cls = start; cls != nullptr && steps > 0; cls = cls->superclass.get(), --steps) {
        if (hit(*cls)) return cls;
    }
    return nullptr;
}

bool InheritanceIndex::chainHasName(const ClassType& start, const std::string& name) {
    auto named = [&name](const ClassType& cls) { return cls.name == name; };
    if (!counted(start)) return findOnChain(&start, named) != nullptr;
    track(start);
    if (start.name == name) return true;
    // Every class above `start` is the superclass of a tracked class.
    if (baseNames.find(name) == baseNames.end()) return false;
    return findOnChain(start.superclass.get(), named) != nullptr;
}

bool InheritanceIndex::chainHasClass(const ClassType& start, const ClassType& target) {
    auto same = [&target](const ClassType& cls) { return &cls == &target; };
    if (!counted(start)) return findOnChain(&start, same) != nullptr;
    track(start);
    if (&start == &target) return true;
    // A class with no subclass is above nothing.
    if (subclassCount.find(&target) == subclassCount.end()) return false;
    return findOnChain(start.superclass.get(), same) != nullptr;
}

bool InheritanceIndex::chainHasField(const ClassType& start, const std::string& fieldName) {
    auto owns = [&fieldName](const ClassType& cls) { return cls.fields.find(fieldName) != cls.fields.end(); };
    if (!counted(start)) return findOnChain(&start, owns) != nullptr;
    track(start);
    if (owns(start)) return true;
    if (fieldOwners.find(fieldName) == fieldOwners.end()) return false;
    // A class below one whose chain is known to have the field has it too:
    // the walk stops there instead of going on to the owner.
    auto ownsOrFound = [this, &fieldName, &owns](const ClassType& cls) {
        if (owns(cls)) return true;
        auto found = foundFields.find(&cls);
        return found != foundFields.end() && found->second.count(fieldName) != 0;
    };
    if (findOnChain(start.superclass.get(), ownsOrFound) == nullptr) return false;
    foundFields[&start].insert(fieldName);
    return true;
}

bool InheritanceIndex::chainHasMethod(const ClassType* start, const std::string& methodName, const FunctionType& type) {
    if (start == nullptr) return false;
    auto owns = [&methodName, &type](const ClassType& cls) {
        for (const auto& method : cls.methods) {
            if (method.name == methodName && method.type && method.type->equals(type)) return true;
        }
        return false;
    };
    if (counted(*start)) {
        track(*start);
        if (methodOwners.find(methodName) == methodOwners.end()) return false;
    }
    return findOnChain(start, owns) != nullptr;
}

void InheritanceIndex::link(ClassType& derived, const std::shared_ptr<ClassType>& base) {
    if (isTracked(derived)) {
        if (base) track(*base);
        if (derived.superclass) {
            countSubclass(*derived.superclass, false);
            // Everything below `derived` loses the classes above it.
            foundFields.clear();
        }
        if (base) countSubclass(*base, true);
    }
    derived.setSuperclass(base);
}

void InheritanceIndex::addField(ClassType& owner, MemberField field) {
    if (isTracked(owner)) {
        if (owner.fields.find(field.name) == owner.fields.end()) ++fieldOwners[field.name];
    }
    std::string name = field.name;
    owner.fields.insert_or_assign(std::move(name), std::move(field));
}

void InheritanceIndex::addMethod(ClassType& owner, MemberMethod method) {
    if (isTracked(owner)) {
        ++methodOwners[method.name];
    }
    owner.addMethod(std::move(method));
}

}  // namespace quor::sema
