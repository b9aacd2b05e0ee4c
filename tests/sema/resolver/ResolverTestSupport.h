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

// The resolver's reports in the form of `describe`: code, message, hint
// and "line:column".
inline const std::string TYPE_HINT = "Check the type name or make sure the class/struct/enum is defined";
inline const std::string FUNCTION_HINT = "Provide unique parameter types or rename the function";

inline std::string undefinedType(const std::string& name, const std::string& place) {
    return "E1002|Undefined type '" + name + "'|" + TYPE_HINT + "|" + place;
}
inline std::string duplicateType(const std::string& kind, const std::string& name, const std::string& place) {
    return "E1004|Duplicate declaration of " + kind + " '" + name + "'|A symbol with name '" + name +
           "' is already declared in this scope|" + place;
}
inline std::string duplicateFunction(const std::string& name, const std::string& place) {
    return "E1004|Duplicate declaration of function '" + name + "' with identical parameter types|" +
           FUNCTION_HINT + "|" + place;
}
inline std::string undefinedBase(const std::string& name, const std::string& place) {
    return "E1002|Undefined base class or interface '" + name + "'||" + place;
}
inline std::string notAClassOrInterface(const std::string& name, const std::string& place) {
    return "E1001|Base type '" + name + "' is not a class or interface||" + place;
}
inline std::string undefinedInterface(const std::string& name, const std::string& place) {
    return "E1002|Undefined interface '" + name + "'||" + place;
}
inline std::string notAnInterface(const std::string& name, const std::string& place) {
    return "E1001|Type '" + name + "' is not an interface||" + place;
}
inline std::string circular(const std::string& cls, const std::string& base, const std::string& place) {
    return "E1004|Circular inheritance detected: '" + cls + "' and '" + base + "' inherit from each other||" + place;
}
inline std::string overridesNothing(const std::string& method, const std::string& place) {
    return "E1001|Method '" + method + "' marked override does not override any base class method||" + place;
}
inline std::string duplicateClassField(const std::string& field, const std::string& cls, const std::string& place) {
    return "E1004|Duplicate field '" + field + "' in class '" + cls + "'||" + place;
}
inline std::string duplicateMethod(const std::string& method, const std::string& cls, const std::string& place) {
    return "E1004|Duplicate method '" + method + "' in class '" + cls + "' with identical signature||" + place;
}
inline std::string duplicateStructField(const std::string& field, const std::string& st, const std::string& place) {
    return "E1004|Duplicate field '" + field + "' in struct '" + st + "'||" + place;
}
inline std::string duplicateVariant(const std::string& variant, const std::string& en, const std::string& place) {
    return "E1004|Duplicate enum variant '" + variant + "' in enum '" + en + "'||" + place;
}

}  // namespace quor::sema::testing
