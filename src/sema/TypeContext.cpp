// The type context: primitive singletons, interning of composite types, the
// table of named types, and the reading of type text.
#include "sema/TypeContext.h"

#include <algorithm>
#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "sema/BuiltinSignature.h"

namespace quor::sema {

namespace {

// The primitive singletons in TypeKind order, each with its printed name.
struct PrimitiveRow {
    TypePtr TypeContext::*member;
    TypeKind kind;
    const char* name;
};

constexpr PrimitiveRow PRIMITIVES[] = {
    {&TypeContext::voidType, TypeKind::Void, "void"},
    {&TypeContext::nullType, TypeKind::Null, "null"},
    {&TypeContext::boolType, TypeKind::Bool, "bool"},
    {&TypeContext::int8Type, TypeKind::Int8, "int8"},
    {&TypeContext::uint8Type, TypeKind::UInt8, "uint8"},
    {&TypeContext::int16Type, TypeKind::Int16, "int16"},
    {&TypeContext::uint16Type, TypeKind::UInt16, "uint16"},
    {&TypeContext::intType, TypeKind::Int, "int"},
    {&TypeContext::uintType, TypeKind::UInt, "uint"},
    {&TypeContext::int64Type, TypeKind::Int64, "int64"},
    {&TypeContext::uint64Type, TypeKind::UInt64, "uint64"},
    {&TypeContext::floatType, TypeKind::Float, "float"},
    {&TypeContext::doubleType, TypeKind::Double, "double"},
    {&TypeContext::charType, TypeKind::Char, "char"},
    {&TypeContext::stringType, TypeKind::String, "string"},
    {&TypeContext::anyType, TypeKind::Any, "any"},
    {&TypeContext::unknownType, TypeKind::Unknown, "unknown"},
    {&TypeContext::errorType, TypeKind::Error, "<type-error>"},
};

// The words of type text that name a primitive, aliases included.
struct PrimitiveWord {
    std::string_view word;
    TypePtr TypeContext::*member;
};

constexpr PrimitiveWord PRIMITIVE_WORDS[] = {
    {"void", &TypeContext::voidType},     {"null", &TypeContext::nullType},
    {"bool", &TypeContext::boolType},     {"int", &TypeContext::intType},
    {"int32", &TypeContext::intType},     {"uint", &TypeContext::uintType},
    {"uint32", &TypeContext::uintType},   {"int8", &TypeContext::int8Type},
    {"uint8", &TypeContext::uint8Type},   {"byte", &TypeContext::uint8Type},
    {"int16", &TypeContext::int16Type},   {"uint16", &TypeContext::uint16Type},
    {"int64", &TypeContext::int64Type},   {"uint64", &TypeContext::uint64Type},
    {"float", &TypeContext::floatType},   {"double", &TypeContext::doubleType},
    {"char", &TypeContext::charType},     {"string", &TypeContext::stringType},
    {"any", &TypeContext::anyType},       {"unknown", &TypeContext::unknownType},
};

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

bool wrappedIn(std::string_view text, std::string_view head) {
    return text.size() > head.size() && text.starts_with(head) && text.back() == '>';
}

// What is done to a resolved type on the way back out of the text: the
// suffixes and heads that were peeled off, innermost last.
struct Wrapper {
    enum class Op { Nullable, Array, List, Set, MapKey, MapValue };
    Op op;
    std::string_view valueText;  // MapKey: the value text still to resolve
    TypePtr key;                 // MapValue: the key already resolved
};


using builtin::SignatureRow;
using builtin::Slot;

// The methods of a "List<T>" class, in the order they are added. T is the
// element; none is static.
constexpr SignatureRow LIST_METHODS[] = {
    {"push", {Slot::Element}, Slot::Void, false},
    {"add", {Slot::Element}, Slot::Void, false},
    {"pop", {}, Slot::Element, false},
    {"get", {Slot::Int64}, Slot::Element, false},
    {"set", {Slot::Int64, Slot::Element}, Slot::Void, false},
    {"size", {}, Slot::Int64, false},
    {"length", {}, Slot::Int64, false},
    {"isEmpty", {}, Slot::Bool, false},
    {"contains", {Slot::ElementOrInt64}, Slot::Bool, false},
    {"clear", {}, Slot::Void, false},
    {"removeAt", {Slot::Int64}, Slot::Void, false},
    {"map", {Slot::Any}, Slot::Self, false},
    {"filter", {Slot::Any}, Slot::Self, false},
    {"reduce", {Slot::Any, Slot::ElementOrInt64}, Slot::ElementOrInt64, false},
};

// The methods of a "Set<T>" class.
constexpr SignatureRow SET_METHODS[] = {
    {"add", {Slot::ElementOrInt64}, Slot::Void, false},
    {"contains", {Slot::ElementOrInt64}, Slot::Bool, false},
    {"remove", {Slot::ElementOrInt64}, Slot::Void, false},
    {"clear", {}, Slot::Void, false},
    {"size", {}, Slot::Int64, false},
    {"length", {}, Slot::Int64, false},
    {"isEmpty", {}, Slot::Bool, false},
};

}  // namespace

template <typename T>
std::shared_ptr<T> TypeContext::track(std::shared_ptr<T> type) {
    namedTypes.push_back(type);
    return type;
}

TypeContext::TypeContext() {
    for (const auto& row : PRIMITIVES) this->*row.member = std::make_shared<PrimitiveType>(row.kind, row.name);
    createBuiltinClasses();
}

// Classes refer to each other and to themselves (fields, factories,
// superclasses), so shared ownership alone would keep them alive after the
// analysis. Emptying every named type this context made breaks those loops.
//
// The types of a large document lie far apart and long out of the caches
// by now, so the walk asks for each type eight places before it empties it,
// and for a class's members (its method list and first field) four places
// before, when the class itself has arrived.
TypeContext::~TypeContext() {
    constexpr std::size_t AHEAD = 4;
    for (std::size_t i = 0; i < namedTypes.size(); ++i) {
        if (i + 2 * AHEAD < namedTypes.size()) __builtin_prefetch(namedTypes[i + 2 * AHEAD].get());
        if (i + AHEAD < namedTypes.size() && namedTypes[i + AHEAD]->kind == TypeKind::Class) {
            const auto& coming = static_cast<const ClassType&>(*namedTypes[i + AHEAD]);
            if (!coming.methods.empty()) __builtin_prefetch(coming.methods.data());
            if (!coming.fields.empty()) __builtin_prefetch(&*coming.fields.begin());
        }
        const auto& type = namedTypes[i];
        switch (type->kind) {
            case TypeKind::Class: {
                auto& cls = static_cast<ClassType&>(*type);
                cls.fields.clear();
                cls.methods.clear();
                cls.superclass.reset();
                cls.interfaces.clear();
                break;
            }
            case TypeKind::Interface: {
                auto& iface = static_cast<InterfaceType&>(*type);
                iface.methods.clear();
                iface.superInterfaces.clear();
                break;
            }
            case TypeKind::Struct:
                static_cast<StructType&>(*type).fields.clear();
                break;
            default:
                break;
        }
    }
}

// ---- interning ----

namespace {

// The nesting of a composite made over these components, or 0 when it
// would pass the limit.
std::uint32_t nestingOver(std::initializer_list<const Type*> components) {
    std::uint32_t deepest = 0;
    for (const Type* component : components) {
        if (component != nullptr) deepest = std::max(deepest, component->nesting);
    }
    return deepest >= MAX_TYPE_NESTING ? 0 : deepest + 1;
}

// The interned composite under `key`, made by `make` on first use.
template <typename Make>
TypePtr interned(std::unordered_map<std::string, TypePtr>& cache, std::string key, std::uint32_t nesting,
                 Make make) {
    auto& slot = cache[std::move(key)];
    if (!slot) {
        slot = make();
        slot->nesting = nesting;
    }
    return slot;
}

}  // namespace

TypePtr TypeContext::getArrayType(TypePtr element) {
    if (!element) return errorType;
    const std::uint32_t nesting = nestingOver({element.get()});
    if (nesting == 0) return errorType;
    return interned(typeCache, element->toString() + "[]", nesting,
                    [&] { return std::make_shared<ArrayType>(std::move(element)); });
}

TypePtr TypeContext::getMapType(TypePtr key, TypePtr value) {
    if (!key || !value) return errorType;
    const std::uint32_t nesting = nestingOver({key.get(), value.get()});
    if (nesting == 0) return errorType;
    return interned(typeCache, "Map<" + key->toString() + "," + value->toString() + ">", nesting,
                    [&] { return std::make_shared<MapType>(std::move(key), std::move(value)); });
}

TypePtr TypeContext::getNullableType(TypePtr inner) {
    if (!inner) return errorType;
    if (inner->kind == TypeKind::Void || inner->kind == TypeKind::Null || inner->kind == TypeKind::Nullable) {
        return inner;
    }
    const std::uint32_t nesting = nestingOver({inner.get()});
    if (nesting == 0) return errorType;
    return interned(typeCache, inner->toString() + "?", nesting,
                    [&] { return std::make_shared<NullableType>(std::move(inner)); });
}

std::shared_ptr<FunctionType> TypeContext::getFunctionType(std::vector<TypePtr> params, TypePtr returnType) {
    if (!returnType) returnType = voidType;
    std::uint32_t deepest = returnType->nesting;
    for (const auto& param : params) {
        if (param) deepest = std::max(deepest, param->nesting);
    }
    auto function = std::make_shared<FunctionType>(std::move(params), std::move(returnType));
    function->nesting = std::min(deepest + 1, MAX_TYPE_NESTING);
    return function;
}

// ---- named types ----

std::shared_ptr<ClassType> TypeContext::createClassType(const std::string& name) {
    auto type = track(std::make_shared<ClassType>(name));
    userTypes[name] = type;
    return type;
}

std::shared_ptr<InterfaceType> TypeContext::createInterfaceType(const std::string& name) {
    auto type = track(std::make_shared<InterfaceType>(name));
    userTypes[name] = type;
    return type;
}

std::shared_ptr<StructType> TypeContext::createStructType(const std::string& name) {
    auto type = track(std::make_shared<StructType>(name));
    userTypes[name] = type;
    return type;
}

std::shared_ptr<EnumType> TypeContext::createEnumType(const std::string& name) {
    auto type = track(std::make_shared<EnumType>(name));
    userTypes[name] = type;
    return type;
}

void TypeContext::registerUserType(const std::string& name, TypePtr type) {
    if (type) track(type);
    userTypes[name] = std::move(type);
}

TypePtr TypeContext::findUserType(const std::string& name) const {
    auto found = userTypes.find(name);
    return found == userTypes.end() ? nullptr : found->second;
}

// ---- type text ----

// The grammar nests, but the text is read in a loop: suffixes and heads are
// peeled off onto a stack of wrappers, the core is resolved, and the
// wrappers are applied on the way back out. A map puts its value text aside
// while its key is read. So a deeply nested text costs no stack.
TypePtr TypeContext::resolveType(const std::string& text) {
    std::vector<Wrapper> wrappers;
    std::uint32_t stackedLevels = 0;
    std::string_view rest = text;
    for (;;) {
        std::string_view part = trimmed(rest);
        TypePtr result;
        bool reachedCore = true;
        if (part.empty()) {
            result = unknownType;
        } else if (part.back() == '?') {
            wrappers.push_back({Wrapper::Op::Nullable, {}, nullptr});
            rest = part.substr(0, part.size() - 1);
            reachedCore = false;
        } else if (part.size() < 3) {
            result = resolveNamedType(std::string(part));
        } else if (part.ends_with("[]")) {
            wrappers.push_back({Wrapper::Op::Array, {}, nullptr});
            rest = part.substr(0, part.size() - 2);
            reachedCore = false;
        } else if (wrappedIn(part, "Array<")) {
            wrappers.push_back({Wrapper::Op::Array, {}, nullptr});
            rest = part.substr(6, part.size() - 7);
            reachedCore = false;
        } else if (wrappedIn(part, "List<")) {
            wrappers.push_back({Wrapper::Op::List, {}, nullptr});
            rest = part.substr(5, part.size() - 6);
            reachedCore = false;
        } else if (wrappedIn(part, "Map<") && part.find(',') != std::string_view::npos) {
            const auto comma = part.find(',');
            wrappers.push_back({Wrapper::Op::MapKey, part.substr(comma + 1, part.size() - comma - 2), nullptr});
            rest = part.substr(4, comma - 4);
            reachedCore = false;
        } else if (wrappedIn(part, "Set<")) {
            wrappers.push_back({Wrapper::Op::Set, {}, nullptr});
            rest = part.substr(4, part.size() - 5);
            reachedCore = false;
        } else {
            result = resolveNamedType(std::string(part));
        }
        if (!reachedCore) {
            // Repeated "?" collapses into one nullable; every other level
            // stacks up, and a text deeper than a type may be stands for the
            // error type without the cost of building it.
            if (wrappers.back().op != Wrapper::Op::Nullable && ++stackedLevels > MAX_TYPE_NESTING) return errorType;
            continue;
        }

        // Apply the wrappers until one asks for more text to be read.
        bool readMore = false;
        while (!wrappers.empty() && !readMore) {
            Wrapper wrapper = std::move(wrappers.back());
            wrappers.pop_back();
            switch (wrapper.op) {
                case Wrapper::Op::Nullable: result = getNullableType(result); break;
                case Wrapper::Op::Array: result = getArrayType(result); break;
                case Wrapper::Op::List: result = collectionClassOf("List<", result); break;
                case Wrapper::Op::Set: result = collectionClassOf("Set<", result); break;
                case Wrapper::Op::MapKey:
                    wrappers.push_back({Wrapper::Op::MapValue, {}, result});
                    rest = wrapper.valueText;
                    readMore = true;
                    break;
                case Wrapper::Op::MapValue: result = getMapType(wrapper.key, result); break;
            }
        }
        if (!readMore) return result;
    }
}

TypePtr TypeContext::resolveNamedType(const std::string& text) {
    for (const auto& word : PRIMITIVE_WORDS) {
        if (word.word == text) return this->*word.member;
    }
    if (auto found = findUserType(text)) return found;
    const auto open = text.find('<');
    if (open != std::string::npos && text.back() == '>') {
        auto base = findUserType(text.substr(0, open));
        if (base && base->kind == TypeKind::Class) {
            auto cls = std::static_pointer_cast<ClassType>(base);
            return specializeClassType(cls, splitTypeArgs(text.substr(open + 1, text.size() - open - 2)));
        }
    }
    return nullptr;
}

TypePtr TypeContext::resolveCollectionClass(const std::string& head, const std::string& elementText) {
    return collectionClassOf(head, resolveType(elementText));
}

// A collection class is made once per element text and then found by name.
TypePtr TypeContext::collectionClassOf(const std::string& head, const TypePtr& element) {
    const std::string name = head + (element ? element->toString() : std::string("any")) + ">";
    auto existing = findUserType(name);
    if (existing && existing->kind == TypeKind::Class) return existing;
    auto cls = createClassType(name);
    std::span<const SignatureRow> rows = SET_METHODS;
    if (head == "List<") rows = LIST_METHODS;
    for (const auto& row : rows) {
        cls->addMethod(builtin::methodOfRow(*this, row, cls, element));
    }
    return cls;
}

}  // namespace quor::sema
