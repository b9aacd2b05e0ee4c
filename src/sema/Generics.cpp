// Textual generics: type arguments are written into type text, which is then
// read again; and the common type of two branches.
#include <cstdint>
#include <string>
#include <vector>

#include "ast/Declarations.h"
#include "ast/Statements.h"
#include "sema/TypeContext.h"

namespace quor::sema {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string trimmedCopy(const std::string& text) {
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && isBlank(text[begin])) ++begin;
    while (end > begin && isBlank(text[end - 1])) --end;
    return text.substr(begin, end - begin);
}

bool isWordChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

// Replaces every occurrence of `word` that stands alone, left to right,
// going on behind each inserted or rejected occurrence.
std::string replaceWholeWord(std::string text, const std::string& word, const std::string& replacement) {
    // An empty word would be found at the same place for ever.
    if (word.empty()) return text;
    std::size_t from = 0;
    for (;;) {
        const std::size_t at = text.find(word, from);
        if (at == std::string::npos) return text;
        const std::size_t after = at + word.size();
        const bool startsWord = at == 0 || !isWordChar(text[at - 1]);
        const bool endsWord = after == text.size() || !isWordChar(text[after]);
        if (startsWord && endsWord) {
            text.replace(at, word.size(), replacement);
            from = at + replacement.size();
        } else {
            from = after;
        }
    }
}

std::string joinArgs(const std::vector<std::string>& args) {
    std::string text;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (i > 0) text += ", ";
        text += args[i];
    }
    return text;
}

// A generic class whose members name ever deeper specialisations of itself
// ("class Box<T> { next: Box<Box<T>> }") would nest without end. Beyond this
// depth a specialisation is made with no members; no finite program that
// anyone writes comes near it.
constexpr int MAX_SPECIALIZATION_DEPTH = 128;

}  // namespace

std::vector<std::string> TypeContext::splitTypeArgs(const std::string& text) {
    std::vector<std::string> args;
    std::int32_t depth = 0;
    std::string buffer;
    auto flush = [&] {
        std::string arg = trimmedCopy(buffer);
        if (!arg.empty()) args.push_back(std::move(arg));
        buffer.clear();
    };
    for (char c : text) {
        if (c == '<') {
            ++depth;
            buffer += c;
        } else if (c == '>') {
            // Also the ">" of "->": the depth may fall below zero, and then
            // no later comma separates.
            --depth;
            buffer += c;
        } else if (c == ',' && depth == 0) {
            flush();
            depth = 0;
        } else {
            buffer += c;
        }
    }
    flush();
    return args;
}

// The parameters are replaced one after the other in the same text, so an
// argument that is itself a later parameter's name is replaced again.
std::string TypeContext::substituteType(const std::string& text, const std::vector<std::string>& params,
                                        const std::vector<std::string>& args) {
    std::string result = text;
    for (std::size_t i = 0; i < params.size() && i < args.size(); ++i) {
        if (result == params[i]) return args[i];
        if (result == params[i] + "[]") return args[i] + "[]";
        if (result == params[i] + "?") return args[i] + "?";
        result = replaceWholeWord(std::move(result), params[i], args[i]);
    }
    return result;
}

TypePtr TypeContext::specializeClassType(const std::shared_ptr<ClassType>& base,
                                         const std::vector<std::string>& args) {
    if (!base) return nullptr;
    const std::string key = base->name + "<" + joinArgs(args) + ">";
    if (auto existing = findUserType(key); existing && existing->kind == TypeKind::Class) return existing;

    // Registered before any member is read, so a member naming this very
    // specialisation finds it unfinished and the reading ends there.
    auto cls = createClassType(key);
    cls->isAbstract = base->isAbstract;
    cls->decl = base->decl;
    if (specializationDepth >= MAX_SPECIALIZATION_DEPTH) return cls;
    ++specializationDepth;

    const auto& params = base->typeParams;
    auto resolveOr = [&](const std::string& text, const TypePtr& fallback) {
        auto type = resolveType(substituteType(text, params, args));
        return type ? type : fallback;
    };

    if (cls->decl == nullptr) {
        for (const auto& [name, field] : base->fields) {
            MemberField copy = field;
            copy.type = resolveOr(typeText(field.type), field.type);
            cls->fields[name] = std::move(copy);
        }
        cls->methods = base->methods;
    } else {
        for (const auto& member : cls->decl->members) {
            if (!member) continue;
            if (member->nodeKind == ast::NodeKind::FunctionDecl) {
                const auto& function = static_cast<const ast::FunctionDecl&>(*member);
                std::vector<TypePtr> paramTypes;
                for (const auto& param : function.params) paramTypes.push_back(resolveOr(param.type, anyType));
                MemberMethod method;
                method.name = function.name;
                method.type = getFunctionType(std::move(paramTypes), resolveOr(function.returnType, voidType));
                method.visibility = function.visibility.empty() ? "public" : function.visibility;
                method.isStatic = function.isStatic;
                method.isAbstract = function.isAbstract;
                method.isOverride = function.isOverride;
                cls->addMethod(std::move(method));
            } else if (member->nodeKind == ast::NodeKind::VarDeclStmt) {
                const auto& variable = static_cast<const ast::VarDeclStmt&>(*member);
                MemberField field;
                field.name = variable.name;
                field.type = resolveOr(variable.typeName, anyType);
                field.visibility = variable.visibility.empty() ? "public" : variable.visibility;
                field.isStatic = variable.isStatic;
                field.isConst = variable.isConst;
                cls->fields[field.name] = std::move(field);
            }
        }
    }
    --specializationDepth;
    return cls;
}

// The type two branches meet in: the wider of the two where one assigns to
// the other, a numeric meeting point, a nullable around null, else any.
TypePtr TypeContext::getCommonType(const TypePtr& a, const TypePtr& b) {
    if (!a || !b) return errorType;
    if (a->equals(*b)) return a;
    if (a->kind == TypeKind::Error || b->kind == TypeKind::Error) return errorType;
    if (a->isAssignableTo(*b)) return b;
    if (b->isAssignableTo(*a)) return a;
    if (a->isNumeric() && b->isNumeric()) {
        auto either = [&](TypeKind kind) { return a->kind == kind || b->kind == kind; };
        if (either(TypeKind::Double)) return doubleType;
        if (either(TypeKind::Float)) return floatType;
        if (either(TypeKind::Int64)) return int64Type;
        if (either(TypeKind::UInt64)) return uint64Type;
        return intType;
    }
    const bool aNull = a->kind == TypeKind::Null;
    const bool bNull = b->kind == TypeKind::Null;
    if (aNull != bNull) return getNullableType(aNull ? b : a);
    return anyType;
}

}  // namespace quor::sema
