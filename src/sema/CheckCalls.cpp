// Calls: overload resolution, calls by name, on a receiver and of values,
// and the return type of a generic function worked out from its arguments.
#include <cstddef>
#include <string>
#include <vector>

#include "sema/BuiltinMethods.h"
#include "sema/TypeChecker.h"

namespace quor::sema {

namespace {

// A parameter type that was never resolved (the element of a list of an
// unknown name) is held to as `unknown`, the way it prints.
const Type& parameterType(const TypePtr& param, const TypeContext& types) {
    return param ? *param : *types.unknownType;
}

// Parameters without a default. Only a declared function has defaults; for
// built-ins and methods every parameter counts.
std::size_t requiredParameters(const FunctionSymbol& candidate, std::size_t paramCount) {
    if (!candidate.decl) return paramCount;
    std::size_t required = 0;
    for (const auto& param : candidate.decl->params) {
        if (!param.defaultValue) ++required;
    }
    return required;
}

bool isViable(const FunctionSymbol& candidate, const std::vector<TypePtr>& argTypes, const TypeContext& types) {
    if (!candidate.functionType) return false;
    const auto& params = candidate.functionType->paramTypes;
    std::size_t argCount = argTypes.size();
    if (requiredParameters(candidate, params.size()) > argCount || argCount > params.size()) return false;
    for (std::size_t i = 0; i < argCount; ++i) {
        if (!argTypes[i]->isAssignableTo(parameterType(params[i], types))) return false;
    }
    return true;
}

bool isExact(const FunctionSymbol& candidate, const std::vector<TypePtr>& argTypes, const TypeContext& types) {
    const auto& params = candidate.functionType->paramTypes;
    if (params.size() != argTypes.size()) return false;
    for (std::size_t i = 0; i < argTypes.size(); ++i) {
        if (!argTypes[i]->equals(parameterType(params[i], types))) return false;
    }
    return true;
}

std::string joinTypes(const std::vector<TypePtr>& types) {
    std::string joined;
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (i > 0) joined += ", ";
        joined += types[i]->toString();
    }
    return joined;
}

TypePtr returnTypeOf(const FunctionType& function) { return function.returnType; }

// Methods become candidates without a declaration, at the call's place.
std::vector<FunctionSymbolPtr> methodCandidates(const std::vector<MemberMethod>& methods,
                                                const diagnostics::SourceLocation& location) {
    std::vector<FunctionSymbolPtr> candidates;
    candidates.reserve(methods.size());
    for (const auto& method : methods) {
        candidates.push_back(std::make_shared<FunctionSymbol>(method.name, method.type, location));
    }
    return candidates;
}

// Resolves a call among methods and gives the chosen one's return type, or
// the error type after resolveOverload has reported.
TypePtr callMethod(TypeChecker& checker, const std::vector<MemberMethod>& methods,
                   const std::vector<TypePtr>& argTypes, const diagnostics::SourceLocation& location,
                   const std::string& name) {
    FunctionSymbolPtr chosen = checker.resolveOverload(methodCandidates(methods, location), argTypes, location, name);
    if (!chosen || !chosen->functionType) return checker.types.errorType;
    return returnTypeOf(*chosen->functionType);
}

// A private method may be called only from inside the receiver's own class;
// the first private overload met from elsewhere decides.
bool reportsPrivateMethod(TypeChecker& checker, const ClassType& receiver, const std::vector<MemberMethod>& methods,
                          const ast::CallExpr& call, const std::string& name) {
    for (const auto& method : methods) {
        if (method.visibility != "private") continue;
        if (checker.currentClass && checker.currentClass->equals(receiver)) continue;
        checker.report("E1006", "Cannot access private method '" + name + "' of class '" + receiver.name + "'",
                       call.location);
        return true;
    }
    return false;
}

}  // namespace

FunctionSymbolPtr TypeChecker::resolveOverload(const std::vector<FunctionSymbolPtr>& candidates,
                                               const std::vector<TypePtr>& argTypes,
                                               const diagnostics::SourceLocation& location, const std::string& name) {
    if (candidates.empty()) {
        report("E1003", "Undefined function or method '" + name + "'", location);
        return nullptr;
    }
    // One pass in candidate order: the first exact candidate wins at once,
    // otherwise the first viable one.
    FunctionSymbolPtr firstViable;
    for (const auto& candidate : candidates) {
        if (!candidate || !isViable(*candidate, argTypes, types)) continue;
        if (isExact(*candidate, argTypes, types)) return candidate;
        if (!firstViable) firstViable = candidate;
    }
    if (firstViable) return firstViable;
    report("E1001", "No matching overload for function '" + name + "' with argument types (" + joinTypes(argTypes) + ")",
           location);
    return nullptr;
}

void TypeChecker::visit(const ast::CallExpr& node) {
    std::vector<TypePtr> argTypes;
    argTypes.reserve(node.args.size());
    for (const auto& arg : node.args) argTypes.push_back(arg ? checkExpr(*arg) : types.errorType);

    if (!node.callee) {
        currentType = types.errorType;
        return;
    }
    switch (node.callee->nodeKind) {
        case ast::NodeKind::IdentifierExpr:
            checkCallByName(node, static_cast<const ast::IdentifierExpr&>(*node.callee).name, argTypes);
            break;
        case ast::NodeKind::MemberExpr:
            checkCallOnReceiver(node, static_cast<const ast::MemberExpr&>(*node.callee), argTypes);
            break;
        default:
            checkCallOfValue(node);
            break;
    }
}

void TypeChecker::checkCallByName(const ast::CallExpr& call, const std::string& name,
                                  const std::vector<TypePtr>& argTypes) {
    if (auto candidates = symbols.lookupFunctions(name); !candidates.empty()) {
        FunctionSymbolPtr chosen = resolveOverload(candidates, argTypes, call.location, name);
        if (!chosen || !chosen->functionType) {
            currentType = types.errorType;
        } else if (!chosen->typeParams.empty() && chosen->decl) {
            currentType = genericReturnType(call, *chosen, argTypes);
        } else {
            currentType = returnTypeOf(*chosen->functionType);
        }
        return;
    }
    if (name == "super") {
        if (currentClass && currentClass->superclass) {
            currentType = types.voidType;
        } else {
            report("E1001", "Cannot call 'super' constructor outside of a subclass", call.location);
            currentType = types.errorType;
        }
        return;
    }
    if (currentClass) {
        if (auto methods = currentClass->findMethods(name); !methods.empty()) {
            currentType = callMethod(*this, methods, argTypes, call.location, name);
            return;
        }
    }
    if (TypePtr type = types.findUserType(name); type && type->kind == TypeKind::Class) {
        currentType = type;
        return;
    }
    if (SymbolPtr symbol = symbols.lookup(name); symbol && symbol->type && symbol->type->kind == TypeKind::Function) {
        currentType = returnTypeOf(static_cast<const FunctionType&>(*symbol->type));
        return;
    }
    report("E1003", "Undefined function or callable symbol '" + name + "'", call.location);
    currentType = types.errorType;
}

TypePtr TypeChecker::genericReturnType(const ast::CallExpr& call, const FunctionSymbol& chosen,
                                       const std::vector<TypePtr>& argTypes) {
    // Without explicit type arguments the i-th type parameter is bound to the
    // whole type of the i-th argument, and the call node keeps that binding.
    std::vector<std::string> typeArgs = call.typeArgs;
    if (typeArgs.empty()) {
        for (const auto& argType : argTypes) typeArgs.push_back(argType->toString());
    }
    call.typeArgs = typeArgs;
    std::string text = TypeContext::substituteType(chosen.decl->returnType, chosen.decl->typeParams, typeArgs);
    if (TypePtr resolved = types.resolveType(text)) return resolved;
    return returnTypeOf(*chosen.functionType);
}

void TypeChecker::checkCallOnReceiver(const ast::CallExpr& call, const ast::MemberExpr& callee,
                                      const std::vector<TypePtr>& argTypes) {
    const std::string& name = callee.member;
    TypePtr receiver = callee.object ? checkExpr(*callee.object) : types.errorType;
    if (receiver->kind == TypeKind::Nullable) {
        if (!callee.isSafe) {
            report("E1008",
                   "Null safety violation: call on nullable type '" + receiver->toString() +
                       "' requires safe navigation '?.'",
                   call.location, "Use obj?." + name + "(...)");
        }
        TypePtr inner = static_cast<const NullableType&>(*receiver).innerType;
        receiver = inner ? inner : types.errorType;
    }

    if (receiver->kind == TypeKind::Interface) {
        auto methods = static_cast<const InterfaceType&>(*receiver).findMethods(name);
        currentType = callMethod(*this, methods, argTypes, call.location, name);
        return;
    }
    if (receiver->kind == TypeKind::Class) {
        const auto& receiverClass = static_cast<const ClassType&>(*receiver);
        auto methods = receiverClass.findMethods(name);
        if (reportsPrivateMethod(*this, receiverClass, methods, call, name)) {
            currentType = types.errorType;
            return;
        }
        currentType = callMethod(*this, methods, argTypes, call.location, name);
        return;
    }
    if (TypePtr result = builtinMethodResult(types, receiver, name)) {
        currentType = result;
        return;
    }
    report("E1003", "Type '" + receiver->toString() + "' has no method named '" + name + "'", call.location);
    currentType = types.errorType;
}

void TypeChecker::checkCallOfValue(const ast::CallExpr& call) {
    TypePtr callee = checkExpr(*call.callee);
    if (callee->kind == TypeKind::Function) {
        currentType = returnTypeOf(static_cast<const FunctionType&>(*callee));
        return;
    }
    report("E1001", "Expression is not callable, has type '" + callee->toString() + "'", call.location);
    currentType = types.errorType;
}

}  // namespace quor::sema
