// Building declaration signatures from syntax nodes.
#include "doc/Signatures.h"

#include <cstddef>
#include <utility>

namespace quor::doc {

namespace {

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i != 0) text.append(", ");
        text.append(parts[i]);
    }
    return text;
}

// "<T, U>", or nothing without type parameters.
std::string genericList(const std::vector<std::string>& typeParams) {
    if (typeParams.empty()) return "";
    std::string text = "<";
    text.append(joined(typeParams));
    text.push_back('>');
    return text;
}

// "name(params): returnType", the tail that every function form shares.
std::string callableTail(const ast::FunctionDecl& function, bool withGenerics) {
    std::string text = "fn ";
    text.append(function.name);
    if (withGenerics) text.append(genericList(function.typeParams));
    text.push_back('(');
    text.append(parameterList(function.params));
    text.append("): ");
    text.append(returnTypeOf(function.returnType));
    return text;
}

// The visibility followed by a space, unless it is "public".
std::string visibilityPrefix(std::string_view visibility) {
    std::string text = visibilityOf(visibility);
    if (text == "public") return "";
    text.push_back(' ');
    return text;
}

}  // namespace

std::string visibilityOf(std::string_view visibility) {
    return visibility.empty() ? std::string("public") : std::string(visibility);
}

std::string returnTypeOf(std::string_view returnType) {
    return returnType.empty() ? std::string("void") : std::string(returnType);
}

std::string parameterList(const std::vector<ast::Parameter>& params) {
    std::vector<std::string> parts;
    parts.reserve(params.size());
    for (const ast::Parameter& param : params) {
        std::string part = param.name;
        part.append(": ");
        part.append(param.type);
        parts.push_back(std::move(part));
    }
    return joined(parts);
}

std::string functionSignature(const ast::FunctionDecl& function) {
    std::string text = visibilityPrefix(function.visibility);
    if (function.isAsync) text.append("async ");
    text.append(callableTail(function, true));
    return text;
}

std::string classMethodSignature(const ast::FunctionDecl& method) {
    std::string text = visibilityOf(method.visibility);
    text.push_back(' ');
    if (method.isStatic) text.append("static ");
    if (method.isOverride) text.append("override ");
    if (method.isAsync) text.append("async ");
    text.append(callableTail(method, false));
    return text;
}

std::string interfaceMethodSignature(const ast::FunctionDecl& method) { return callableTail(method, false); }

std::string classSignature(const ast::ClassDecl& decl) {
    std::string text = visibilityPrefix(decl.visibility);
    if (decl.isAbstract) text.append("abstract ");
    text.append("class ");
    text.append(decl.name);
    text.append(genericList(decl.typeParams));
    if (!decl.baseClass.empty()) {
        text.append(" extends ");
        text.append(decl.baseClass);
    }
    if (!decl.interfaces.empty()) {
        text.append(" implements ");
        text.append(joined(decl.interfaces));
    }
    return text;
}

std::string variableSignature(const ast::VarDeclStmt& variable) {
    std::string text = variable.isConst ? "const " : "let ";
    text.append(variable.name);
    text.append(": ");
    text.append(variable.typeName);
    return text;
}

std::string structFieldSignature(const ast::VarDeclStmt& field) {
    std::string text = field.name;
    text.append(": ");
    text.append(field.typeName);
    return text;
}

}  // namespace quor::doc
