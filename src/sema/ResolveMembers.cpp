// Name resolution, pass 2: fills the types that pass 1 made. Classes get
// their base and interfaces linked and their fields and methods stored,
// interfaces and structs their members, enums their variants and values. The
// walk is in source order, so a class only sees the members of the classes
// above it, and in a cycle of bases only the class that closes it is refused.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "diagnostics/DiagnosticCodes.h"
#include "sema/NameResolver.h"
#include "sema/ResolveSignature.h"

namespace quor::sema {

using diagnostics::SourceLocation;

namespace {

std::string visibilityOrPublic(const std::string& visibility) { return visibility.empty() ? "public" : visibility; }

// Counts over the chains are kept for as long as the pass runs, and dropped
// on every way out of it.
class InheritanceWindow {
public:
    explicit InheritanceWindow(InheritanceIndex& index) : index(index) { index.start(); }
    ~InheritanceWindow() { index.stop(); }
    InheritanceWindow(const InheritanceWindow&) = delete;
    InheritanceWindow& operator=(const InheritanceWindow&) = delete;

private:
    InheritanceIndex& index;
};

// The base position of a class: a class to inherit from or an interface to
// implement, looked up as a symbol (so built-in classes and written type
// arguments are not found).
void resolveBase(NameResolver& resolver, const ast::ClassDecl& decl, const std::shared_ptr<ClassType>& classType) {
    auto symbol = resolver.symbols.lookup(decl.baseClass);
    if (!symbol) {
        resolver.diagnostics.reportError(diagnostics::CODE_UNDEFINED_NAME,
                                         "Undefined base class or interface '" + decl.baseClass + "'", decl.location,
                                         "");
        return;
    }
    if (auto base = std::dynamic_pointer_cast<ClassType>(symbol->type)) {
        if (resolver.checkCircularInheritance(classType, decl.baseClass, decl.location)) return;
        // The reported cycle compares names. A link that would lead back to
        // this very class is refused as well, silently, so that every chain
        // stays finite whatever the names say.
        if (resolver.inheritance.chainHasClass(*base, *classType)) return;
        resolver.inheritance.link(*classType, base);
        return;
    }
    if (auto interface = std::dynamic_pointer_cast<InterfaceType>(symbol->type)) {
        classType->interfaces.push_back(std::move(interface));
        return;
    }
    resolver.diagnostics.reportError(
        diagnostics::CODE_TYPE, "Base type '" + decl.baseClass + "' is not a class or interface", decl.location, "");
}

void resolveImplementedInterface(NameResolver& resolver, const ast::ClassDecl& decl, ClassType& classType,
                                 const std::string& name) {
    auto symbol = resolver.symbols.lookup(name);
    if (!symbol) {
        resolver.diagnostics.reportError(diagnostics::CODE_UNDEFINED_NAME, "Undefined interface '" + name + "'",
                                         decl.location, "");
        return;
    }
    if (auto interface = std::dynamic_pointer_cast<InterfaceType>(symbol->type)) {
        classType.interfaces.push_back(std::move(interface));
        return;
    }
    resolver.diagnostics.reportError(diagnostics::CODE_TYPE, "Type '" + name + "' is not an interface", decl.location,
                                     "");
}

// The methods a class already has, asked whether one has a name and an
// equal function type, return type included (such a method is refused). A
// class of a few methods is searched in order; past SEARCHED_IN_ORDER its
// methods are indexed by a hash that equal signatures share, brought up to
// date at each question, so that a class of thousands of overloads does not
// compare each new one with all before it.
class OwnMethods {
public:
    explicit OwnMethods(const ClassType& owner) : owner(owner) {}

    bool has(const std::string& name, const FunctionType& type) {
        const auto& methods = owner.methods;
        if (methods.size() <= SEARCHED_IN_ORDER) {
            for (const auto& method : methods) {
                if (matches(method, name, type)) return true;
            }
            return false;
        }
        for (; indexed < methods.size(); ++indexed) {
            const MemberMethod& method = methods[indexed];
            if (method.type) bySignature[signatureHash(method.name, *method.type)].push_back(indexed);
        }
        auto bucket = bySignature.find(signatureHash(name, type));
        if (bucket == bySignature.end()) return false;
        for (std::size_t position : bucket->second) {
            if (matches(methods[position], name, type)) return true;
        }
        return false;
    }

private:
    static constexpr std::size_t SEARCHED_IN_ORDER = 32;

    static bool matches(const MemberMethod& method, const std::string& name, const FunctionType& type) {
        return method.name == name && method.type && method.type->equals(type);
    }
    static std::size_t signatureHash(const std::string& name, const FunctionType& type) {
        return std::hash<std::string>{}(name) ^ (equalityHash(type) * 31);
    }

    const ClassType& owner;
    std::unordered_map<std::size_t, std::vector<std::size_t>> bySignature;
    std::size_t indexed = 0;
};

void resolveClassMethod(NameResolver& resolver, const std::string& className, ClassType& classType,
                        OwnMethods& ownMethods, const ast::FunctionDecl& member) {
    auto type = resolveSignature(resolver, member);
    if (ownMethods.has(member.name, *type)) {
        resolver.diagnostics.reportError(
            diagnostics::CODE_DUPLICATE,
            "Duplicate method '" + member.name + "' in class '" + className + "' with identical signature",
            member.location, "");
        return;
    }
    if (member.isOverride && !resolver.inheritance.chainHasMethod(classType.superclass.get(), member.name, *type)) {
        resolver.diagnostics.reportError(
            diagnostics::CODE_TYPE,
            "Method '" + member.name + "' marked override does not override any base class method", member.location,
            "");
    }
    resolver.inheritance.addMethod(
        classType, MemberMethod{member.name, std::move(type), visibilityOrPublic(member.visibility), member.isStatic,
                                member.isAbstract, member.isOverride});
}

void resolveClassField(NameResolver& resolver, const std::string& className, ClassType& classType,
                       const ast::VarDeclStmt& member) {
    if (resolver.inheritance.chainHasField(classType, member.name)) {
        resolver.diagnostics.reportError(diagnostics::CODE_DUPLICATE,
                                         "Duplicate field '" + member.name + "' in class '" + className + "'",
                                         member.location, "");
        return;
    }
    auto type = resolver.resolveTypeWithDiagnostic(member.typeName, member.location);
    resolver.inheritance.addField(classType,
                                  MemberField{member.name, type ? std::move(type) : resolver.types.errorType,
                                              visibilityOrPublic(member.visibility), member.isStatic, member.isConst});
}

// The value of an enum variant written as an integer literal: the text read
// as a 64-bit signed integer with the base taken from its prefix ("0x" hex,
// "0" octal), up to the first character that does not fit, so "1_000" is 1.
// A value beyond 64 bits raises std::out_of_range, which nothing here catches.
std::int64_t integerLiteralValue(const std::string& text) { return std::stoll(text, nullptr, 0); }

const ast::LiteralExpr* integerLiteral(const ast::ExpressionNode* value) {
    if (value == nullptr || value->nodeKind != ast::NodeKind::LiteralExpr) return nullptr;
    const auto& literal = static_cast<const ast::LiteralExpr&>(*value);
    return literal.literalKind == ast::LiteralKind::Integer ? &literal : nullptr;
}

// The value after `value`; past the largest value the count wraps round to
// the smallest instead of overflowing.
std::int64_t nextValue(std::int64_t value) { return static_cast<std::int64_t>(static_cast<std::uint64_t>(value) + 1u); }

}  // namespace

void NameResolver::pass2_resolveMembersAndInheritance(const ast::Program& program) {
    InheritanceWindow window(inheritance);
    for (std::size_t i = 0; i < program.declarations.size(); ++i) {
        ast::prefetchDeclarationsAhead(program.declarations, i);
        ast::prefetchDeclarationSpanAhead(program.declarations, i);
        const auto& node = program.declarations[i];
        if (!node) continue;
        switch (node->nodeKind) {
            case ast::NodeKind::ClassDecl:
                resolveClassMembersAndInheritance(static_cast<const ast::ClassDecl&>(*node));
                break;
            case ast::NodeKind::InterfaceDecl:
                resolveInterfaceMembers(static_cast<const ast::InterfaceDecl&>(*node));
                break;
            case ast::NodeKind::StructDecl:
                resolveStructMembers(static_cast<const ast::StructDecl&>(*node));
                break;
            case ast::NodeKind::EnumDecl:
                resolveEnumMembers(static_cast<const ast::EnumDecl&>(*node));
                break;
            default:
                break;
        }
    }
}

// Members go to the class found by name, so a second declaration of a class
// fills the first one's type.
void NameResolver::resolveClassMembersAndInheritance(const ast::ClassDecl& decl) {
    auto classType = std::dynamic_pointer_cast<ClassType>(types.findUserType(decl.name));
    if (!classType) return;
    currentTypeParams = decl.typeParams;
    if (!decl.baseClass.empty()) resolveBase(*this, decl, classType);
    for (const auto& name : decl.interfaces) resolveImplementedInterface(*this, decl, *classType, name);
    OwnMethods ownMethods(*classType);
    for (const auto& member : decl.members) {
        if (!member) continue;
        if (member->nodeKind == ast::NodeKind::FunctionDecl) {
            resolveClassMethod(*this, decl.name, *classType, ownMethods,
                               static_cast<const ast::FunctionDecl&>(*member));
        } else if (member->nodeKind == ast::NodeKind::VarDeclStmt) {
            resolveClassField(*this, decl.name, *classType, static_cast<const ast::VarDeclStmt&>(*member));
        }
    }
    currentTypeParams.clear();
}

// Interface methods are abstract and public whatever was written, and an
// interface may hold the same method twice.
void NameResolver::resolveInterfaceMembers(const ast::InterfaceDecl& decl) {
    auto interfaceType = std::dynamic_pointer_cast<InterfaceType>(types.findUserType(decl.name));
    if (!interfaceType) return;
    for (const auto& method : decl.methods) {
        if (!method) continue;
        interfaceType->methods.push_back(
            MemberMethod{method->name, resolveSignature(*this, *method), "public", false, true, false});
    }
}

void NameResolver::resolveStructMembers(const ast::StructDecl& decl) {
    auto structType = std::dynamic_pointer_cast<StructType>(types.findUserType(decl.name));
    if (!structType) return;
    for (const auto& field : decl.fields) {
        if (!field) continue;
        if (structType->findField(field->name)) {
            diagnostics.reportError(diagnostics::CODE_DUPLICATE,
                                    "Duplicate field '" + field->name + "' in struct '" + decl.name + "'",
                                    field->location, "");
            continue;
        }
        auto type = resolveTypeWithDiagnostic(field->typeName, field->location);
        structType->fields.insert_or_assign(
            field->name,
            MemberField{field->name, type ? std::move(type) : types.errorType, "public", false, field->isConst});
    }
}

// Variants count up from 0; an integer literal sets the count, any other
// value expression leaves it. A repeated name is reported and takes no value.
void NameResolver::resolveEnumMembers(const ast::EnumDecl& decl) {
    auto enumType = std::dynamic_pointer_cast<EnumType>(types.findUserType(decl.name));
    if (!enumType) return;
    std::int64_t counter = 0;
    for (const auto& variant : decl.variants) {
        if (enumType->variantValues.count(variant.name) != 0) {
            diagnostics.reportError(diagnostics::CODE_DUPLICATE,
                                    "Duplicate enum variant '" + variant.name + "' in enum '" + decl.name + "'",
                                    decl.location, "");
            continue;
        }
        if (const auto* literal = integerLiteral(variant.value.get())) counter = integerLiteralValue(literal->value);
        enumType->variants.push_back(variant.name);
        enumType->variantValues[variant.name] = counter;
        counter = nextValue(counter);
    }
}

bool NameResolver::checkCircularInheritance(const std::shared_ptr<ClassType>& classType, const std::string& baseName,
                                            const SourceLocation& location) {
    if (!classType) return false;
    auto start = std::dynamic_pointer_cast<ClassType>(types.findUserType(baseName));
    if (!start || !inheritance.chainHasName(*start, classType->name)) return false;
    diagnostics.reportError(
        diagnostics::CODE_DUPLICATE,
        "Circular inheritance detected: '" + classType->name + "' and '" + baseName + "' inherit from each other",
        location, "");
    return true;
}

}  // namespace quor::sema
