// Printed forms of the types and the member lookups of classes, interfaces
// and structs.
#include <string>
#include <vector>

#include "sema/ClassChain.h"
#include "sema/Type.h"

namespace quor::sema {

std::string typeText(const TypePtr& type) { return type ? type->toString() : "unknown"; }

namespace {

// Arrays and nullables are printed as their innermost component followed by
// the suffixes, gathered in a loop so that deep nesting costs no stack.
std::string suffixedText(const Type& outer) {
    std::string suffixes;  // outermost first
    const Type* current = &outer;
    while (current != nullptr && (current->kind == TypeKind::Array || current->kind == TypeKind::Nullable)) {
        if (current->kind == TypeKind::Array) {
            suffixes += "][";
            current = static_cast<const ArrayType*>(current)->elementType.get();
        } else {
            suffixes += '?';
            current = static_cast<const NullableType*>(current)->innerType.get();
        }
    }
    std::string text = current != nullptr ? current->toString() : "unknown";
    text.append(suffixes.rbegin(), suffixes.rend());
    return text;
}

}  // namespace

std::string ArrayType::toString() const { return suffixedText(*this); }

std::string NullableType::toString() const { return suffixedText(*this); }

std::string MapType::toString() const { return "Map<" + typeText(keyType) + ", " + typeText(valueType) + ">"; }

std::string FunctionType::toString() const {
    std::string text = "fn(";
    for (std::size_t i = 0; i < paramTypes.size(); ++i) {
        if (i > 0) text += ", ";
        text += typeText(paramTypes[i]);
    }
    text += ") -> ";
    text += returnType ? returnType->toString() : "void";
    return text;
}

std::optional<MemberField> ClassType::findField(const std::string& fieldName) const {
    std::optional<MemberField> result;
    anyInClassChain(*this, [&](const ClassType& cls) {
        auto found = cls.fields.find(fieldName);
        if (found == cls.fields.end()) return false;
        result = found->second;
        return true;
    });
    return result;
}

namespace {

std::vector<MemberMethod> ownMethodsNamed(const std::vector<MemberMethod>& methods, const std::string& name) {
    std::vector<MemberMethod> out;
    for (const auto& method : methods) {
        if (method.name == name) out.push_back(method);
    }
    return out;
}

bool sameSignature(const MemberMethod& a, const MemberMethod& b) {
    if (!a.type || !b.type) return a.type == b.type;
    return a.type->equals(*b.type);
}

// Appends each inherited entry that no entry of the list, as it stands at
// that moment, already matches in name and function type.
void mergeInherited(std::vector<MemberMethod>& list, const std::vector<MemberMethod>& inherited) {
    for (const auto& entry : inherited) {
        bool hidden = false;
        for (const auto& present : list) {
            if (present.name == entry.name && sameSignature(present, entry)) {
                hidden = true;
                break;
            }
        }
        if (!hidden) list.push_back(entry);
    }
}

bool hasMethodNamed(const std::vector<MemberMethod>& methods, const std::string& name) {
    for (const auto& method : methods) {
        if (method.name == name) return true;
    }
    return false;
}

}  // namespace

// Each class's own methods come first and the merged result of its
// superclass after them. The chain is folded from its far end, which gives
// the same list as asking each superclass in turn, without the recursion.
// A class without a method of the name passes on a result of at most one
// entry as it is (merging it into an empty list could only drop an entry
// equal to one before it), so a call reaching a method far up a long chain
// does not copy it once per class.
std::vector<MemberMethod> ClassType::findMethods(const std::string& methodName) const {
    const auto chain = classChain(*this);
    std::vector<MemberMethod> result = ownMethodsNamed(chain.back()->methods, methodName);
    for (auto cls = chain.rbegin() + 1; cls != chain.rend(); ++cls) {
        if (result.size() <= 1 && !hasMethodNamed((*cls)->methods, methodName)) continue;
        std::vector<MemberMethod> list = ownMethodsNamed((*cls)->methods, methodName);
        mergeInherited(list, result);
        result = std::move(list);
    }
    return result;
}

void ClassType::addMethod(MemberMethod method) { methods.push_back(std::move(method)); }

void ClassType::setSuperclass(std::shared_ptr<ClassType> base) { superclass = std::move(base); }

std::vector<MemberMethod> InterfaceType::findMethods(const std::string& methodName) const {
    std::vector<MemberMethod> result = ownMethodsNamed(methods, methodName);
    for (const auto& parent : superInterfaces) {
        if (!parent) continue;
        auto inherited = parent->findMethods(methodName);
        result.insert(result.end(), inherited.begin(), inherited.end());
    }
    return result;
}

std::optional<MemberField> StructType::findField(const std::string& fieldName) const {
    auto found = fields.find(fieldName);
    if (found == fields.end()) return std::nullopt;
    return found->second;
}

}  // namespace quor::sema
