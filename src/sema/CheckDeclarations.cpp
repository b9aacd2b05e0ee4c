// Declarations: which top-level statements are checked and in what order,
// functions (parameters, bodies, the inferred result of a short form),
// classes (this, fields, members) and the interfaces a class names.
#include <algorithm>
#include <string>
#include <vector>

#include "sema/TypeChecker.h"

namespace quor::sema {

namespace {

using ast::NodeKind;

constexpr std::size_t EXPRESSIONS_PER_DECLARATION = 16;

// A short-form function whose result was not written (or was written as
// void, which the parser cannot tell from nothing) takes its expression's type.
bool infersItsResult(const ast::FunctionDecl& decl) {
    return decl.returnType.empty() || decl.returnType == "void";
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The written result type. A text that names nothing is `any` when it is a
// type parameter of the function or of the class around it, and void
// otherwise: name resolution has reported it already.
TypePtr declaredResult(TypeChecker& checker, const ast::FunctionDecl& decl) {
    if (decl.returnType.empty()) return checker.types.voidType;
    if (TypePtr resolved = checker.types.resolveType(decl.returnType)) return resolved;
    const bool typeParameter = contains(decl.typeParams, decl.returnType) ||
                               (checker.currentClass && contains(checker.currentClass->typeParams, decl.returnType));
    return typeParameter ? checker.types.anyType : checker.types.voidType;
}

// Parameters are locals of the function's scope. A type text that names
// nothing (a type parameter, or a name already reported) is `any`; none at
// all is `unknown`. A default is checked among the parameters so far.
void defineParameters(TypeChecker& checker, const ast::FunctionDecl& decl) {
    for (const ast::Parameter& param : decl.params) {
        TypePtr type = checker.types.resolveType(param.type);
        if (!type) type = checker.types.anyType;
        if (!checker.symbols.define(std::make_shared<VariableSymbol>(param.name, type, decl.location, false, true))) {
            checker.report("E1004", "Duplicate parameter name '" + param.name + "' in function '" + decl.name + "'",
                           decl.location);
        }
        if (!param.defaultValue) continue;
        TypePtr value = checker.checkExpr(*param.defaultValue);
        if (!value->isAssignableTo(*type)) {
            checker.report("E1001",
                           "Default value type '" + value->toString() + "' does not match parameter type '" +
                               type->toString() + "'",
                           decl.location);
        }
    }
}

// Writes what a short-form function was found to return: into the
// declaration's text, and into its symbol's function type so that every
// caller sees it. A method has no symbol in any scope and keeps its type.
void recordInferredResult(TypeChecker& checker, const ast::FunctionDecl& decl, const TypePtr& result) {
    decl.returnType = result->toString();
    for (const FunctionSymbolPtr& symbol : checker.symbols.lookupFunctions(decl.name)) {
        if (symbol->decl != &decl) continue;
        std::vector<TypePtr> params = symbol->functionType ? symbol->functionType->paramTypes : std::vector<TypePtr>{};
        symbol->setFunctionType(checker.types.getFunctionType(std::move(params), result));
        return;
    }
}

void checkShortForm(TypeChecker& checker, const ast::FunctionDecl& decl, const TypePtr& declared) {
    TypePtr result = checker.checkExpr(*decl.exprBody);
    if (declared->kind == TypeKind::Void && infersItsResult(decl)) {
        recordInferredResult(checker, decl, result);
    } else if (!result->isAssignableTo(*declared)) {
        checker.report("E1005",
                       "Short function body return type mismatch: expected '" + declared->toString() + "', got '" +
                           result->toString() + "'",
                       decl.location);
    }
}

// The fields a class holds itself, as variables of the class scope; those
// of its bases are reached through the class type instead.
void defineOwnFields(TypeChecker& checker, const ClassType& classType, const ast::ClassDecl& decl) {
    for (const auto& [name, field] : classType.fields) {
        checker.symbols.define(std::make_shared<VariableSymbol>(field.name, field.type, decl.location, field.isConst,
                                                                false, field.visibility, field.isStatic));
    }
}

void checkFieldInitializer(TypeChecker& checker, const ClassType& classType, const ast::VarDeclStmt& field) {
    auto member = classType.findField(field.name);
    TypePtr expected = member && member->type ? member->type : checker.types.anyType;
    TypePtr actual = checker.checkExpr(*field.initializer);
    if (actual->isAssignableTo(*expected)) return;
    checker.report("E1001",
                   "Type mismatch in field initializer for '" + field.name + "': expected '" + expected->toString() +
                       "', got '" + actual->toString() + "'",
                   field.location);
}

bool implementsMethod(const ClassType& classType, const MemberMethod& required) {
    if (!required.type) return false;
    for (const MemberMethod& candidate : classType.findMethods(required.name)) {
        if (candidate.type && candidate.type->equals(*required.type)) return true;
    }
    return false;
}

}  // namespace

// Walk 1 settles the results of unannotated short-form functions before any
// caller is looked at. Walk 2 checks the declarations; such a function is
// checked again there. Other top-level statements are not checked.
void TypeChecker::visit(const ast::Program& node) {
    // Room for the types of the expressions to come, so that the record is
    // not copied again and again while it grows; a declaration of a real
    // program holds about a dozen expressions.
    if (!releaseBodies) exprTypes.reserveMore(node.declarations.size() * EXPRESSIONS_PER_DECLARATION);
    for (const auto& declaration : node.declarations) {
        if (!declaration || declaration->nodeKind != NodeKind::FunctionDecl) continue;
        const auto& function = static_cast<const ast::FunctionDecl&>(*declaration);
        if (function.exprBody && infersItsResult(function)) visit(function);
    }
    for (std::size_t i = 0; i < node.declarations.size(); ++i) {
        ast::prefetchDeclarationsAhead(node.declarations, i);
        ast::prefetchDeclarationSpanAhead(node.declarations, i);
        const auto& declaration = node.declarations[i];
        if (!declaration) continue;
        switch (declaration->nodeKind) {
            case NodeKind::FunctionDecl:
                checkDeclaredFunction(*declaration);
                break;
            case NodeKind::ClassDecl:
            case NodeKind::InterfaceDecl:
            case NodeKind::StructDecl:
            case NodeKind::EnumDecl:
                declaration->accept(*this);
                break;
            case NodeKind::BlockStmt:
                for (const auto& inner : static_cast<const ast::BlockStmt&>(*declaration).statements) {
                    if (inner && inner->nodeKind == NodeKind::FunctionDecl) checkDeclaredFunction(*inner);
                }
                break;
            default:
                break;
        }
    }
}

void TypeChecker::visit(const ast::FunctionDecl& node) {
    TypePtr declared = declaredResult(*this, node);
    TypePtr savedReturnType = currentReturnType;
    currentReturnType = declared;
    symbols.enterScope(ScopeKind::Function);
    defineParameters(*this, node);
    if (node.body) {
        node.body->accept(*this);
        if (declared->kind != TypeKind::Void && !node.isAbstract && !hasGuaranteedReturn(*node.body)) {
            report("E1005",
                   "Missing return statement: function '" + node.name + "' must return a value of type '" +
                       declared->toString() + "' along all code paths",
                   node.location);
        }
    } else if (node.exprBody) {
        checkShortForm(*this, node, declared);
    }
    symbols.exitScope();
    currentReturnType = savedReturnType;
}

// Methods are not entered in the class scope: calls and names reach them
// through the class being checked.
void TypeChecker::visit(const ast::ClassDecl& node) {
    TypePtr found = types.findUserType(node.name);
    if (!found || found->kind != TypeKind::Class) return;
    auto classType = std::static_pointer_cast<ClassType>(found);
    auto savedClass = currentClass;
    currentClass = classType;
    symbols.enterScope(ScopeKind::Class);
    symbols.define(std::make_shared<VariableSymbol>("this", classType, node.location));
    defineOwnFields(*this, *classType, node);
    verifyInterfaceImplementations(node, classType);
    for (std::size_t i = 0; i < node.members.size(); ++i) {
        ast::prefetchDeclarationsAhead(node.members, i);
        ast::prefetchDeclarationSpanAhead(node.members, i);
        const auto& member = node.members[i];
        if (!member) continue;
        if (member->nodeKind == NodeKind::VarDeclStmt) {
            const auto& field = static_cast<const ast::VarDeclStmt&>(*member);
            if (field.initializer) checkFieldInitializer(*this, *classType, field);
        } else if (member->nodeKind == NodeKind::FunctionDecl) {
            checkDeclaredFunction(*member);
        }
    }
    symbols.exitScope();
    currentClass = savedClass;
}

// These declarations were taken in whole by name resolution.
void TypeChecker::visit(const ast::InterfaceDecl&) {}
void TypeChecker::visit(const ast::StructDecl&) {}
void TypeChecker::visit(const ast::EnumDecl&) {}
void TypeChecker::visit(const ast::ModuleDecl&) {}
void TypeChecker::visit(const ast::ImportDecl&) {}

// Each method of each interface the class names itself must be found on the
// class or its bases with exactly the same function type. An abstract class
// may leave them open; its concrete subclasses answer only for their own
// interfaces.
void TypeChecker::verifyInterfaceImplementations(const ast::ClassDecl& decl,
                                                 const std::shared_ptr<ClassType>& classType) {
    if (decl.isAbstract || !classType) return;
    for (const auto& interfaceType : classType->interfaces) {
        if (!interfaceType) continue;
        for (const MemberMethod& method : interfaceType->methods) {
            if (implementsMethod(*classType, method)) continue;
            report("E1001",
                   "Class '" + decl.name + "' does not implement interface method '" + method.name +
                       "': " + typeText(method.type) + " from interface '" + interfaceType->name + "'",
                   decl.location);
        }
    }
}

}  // namespace quor::sema
