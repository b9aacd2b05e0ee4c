#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "sema/Type.h"

namespace quor::sema {

// The superclass chains of the classes as the resolver's second pass sees
// them, with a few counts that let most walks up a chain be answered without
// walking. Every answer is the one the plain walk would give: a walk is
// skipped only where the counts show that it cannot find anything, and made
// (stopping at its first hit) otherwise.
//
// The counts are kept only between `start` and `stop`, while the resolver is
// the only code that changes the classes it reaches, and it does so through
// `link`, `addField` and `addMethod`. They pay off only on long chains: a
// question about a chain that ends within SHORT_CHAIN classes is answered by
// the plain walk, and a class is taken into the counts, together with its
// whole chain, the first time a question about a longer chain meets it.
// From then on every change to it updates the counts; a change to a class
// not taken in leaves them alone, since it is counted as it stands when it
// is taken in. Outside the window every question is answered by the plain
// walk.
class InheritanceIndex {
public:
    void start();
    void stop();

    // Does a class of that name stand on the chain from `start`, itself included?
    bool chainHasName(const ClassType& start, const std::string& name);
    // Does `target` itself stand on the chain from `start`, itself included?
    bool chainHasClass(const ClassType& start, const ClassType& target);
    // Does a class on the chain from `start`, itself included, have the field?
    bool chainHasField(const ClassType& start, const std::string& fieldName);
    // Does a class on the chain from `start`, itself included, have a method
    // of that name whose function type equals `type`? The same question as
    // whether `findMethods(name)` on `start` yields such a method, since an
    // inherited method is only ever hidden by an equal one.
    bool chainHasMethod(const ClassType* start, const std::string& methodName, const FunctionType& type);

    void link(ClassType& derived, const std::shared_ptr<ClassType>& base);
    void addField(ClassType& owner, MemberField field);
    void addMethod(ClassType& owner, MemberMethod method);

    // Chains that end within this many classes are walked as they stand.
    static constexpr std::size_t SHORT_CHAIN = 16;

private:
    // Whether the counts are kept and the chain from `start` is longer than
    // SHORT_CHAIN (or runs back into itself).
    bool counted(const ClassType& start) const;
    bool isTracked(const ClassType& cls) const;
    // Takes `cls` and every class above it into the counts.
    void track(const ClassType& cls);
    void countSubclass(const ClassType& base, bool added);
    // The first class from `start` up the chain for which `hit` holds, or null.
    template <typename Predicate>
    const ClassType* findOnChain(const ClassType* start, Predicate hit) const;

    bool active = false;
    std::unordered_set<const ClassType*> tracked;
    // For each tracked class that some tracked class names as its superclass:
    // how many do.
    std::unordered_map<const ClassType*, std::size_t> subclassCount;
    // The names of the classes in `subclassCount`, with how many bear each.
    std::unordered_map<std::string, std::size_t> baseNames;
    // Own fields and methods of the tracked classes, by name.
    std::unordered_map<std::string, std::size_t> fieldOwners;
    std::unordered_map<std::string, std::size_t> methodOwners;
    // Fields already found on the chain of a class. Fields are never taken
    // away, so an entry holds until a class loses a superclass it had.
    std::unordered_map<const ClassType*, std::unordered_set<std::string>> foundFields;
};

}  // namespace quor::sema
