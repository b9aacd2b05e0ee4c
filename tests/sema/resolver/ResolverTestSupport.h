#pragma once

// Helpers of the resolver tests: run pass 1 and pass 2 over a source and read
// back the declared types and symbols by name.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "sema/SemaTestSupport.h"
#include "sema/Symbol.h"
#include "sema/Type.h"

namespace quor::sema::testing {

using Records = std::vector<std::string>;

// Parses the source and runs name resolution alone over it.
inline std::unique_ptr<Analysis> resolved(const std::string& source) {
    auto analysis = std::make_unique<Analysis>(source);
    analysis->resolve();
    return analysis;
}

template <typename T>
std::shared_ptr<T> userType(Analysis& analysis, const std::string& name) {
    return std::dynamic_pointer_cast<T>(analysis.types().findUserType(name));
}

inline std::shared_ptr<ClassType> classNamed(Analysis& analysis, const std::string& name) {
    return userType<ClassType>(analysis, name);
}

inline FunctionSymbolPtr functionNamed(Analysis& analysis, const std::string& name) {
    return std::dynamic_pointer_cast<FunctionSymbol>(analysis.symbols().lookup(name));
}

// The printed function types of a class's own methods of that name, in order.
inline std::vector<std::string> methodTypes(const ClassType& cls, const std::string& name) {
    std::vector<std::string> out;
    for (const auto& method : cls.methods) {
        if (method.name == name) out.push_back(method.type ? method.type->toString() : "null");
    }
    return out;
}

// The printed type of a field, or "absent".
inline std::string fieldType(const std::unordered_map<std::string, MemberField>& fields, const std::string& name) {
    auto found = fields.find(name);
    if (found == fields.end()) return "absent";
    return found->second.type ? found->second.type->toString() : "null";
}

// The number of classes from `start` up its chain, or -1 when it runs longer
// than `limit` classes (which only a chain that loops does).
inline long chainLength(const ClassType* start, long limit) {
    long length = 0;
    for (const ClassType* cls = start; cls != nullptr; cls = cls->superclass.get()) {
        if (++length > limit) return -1;
    }
    return length;
}

}  // namespace quor::sema::testing
