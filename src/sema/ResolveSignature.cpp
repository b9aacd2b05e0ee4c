// Signatures of functions, class methods and interface methods.
#include "sema/ResolveSignature.h"

#include <utility>
#include <vector>

namespace quor::sema {

std::shared_ptr<FunctionType> resolveSignature(NameResolver& resolver, const ast::FunctionDecl& decl) {
    std::vector<TypePtr> params;
    params.reserve(decl.params.size());
    for (const auto& param : decl.params) {
        auto type = resolver.resolveTypeWithDiagnostic(param.type, decl.location);
        params.push_back(type ? std::move(type) : resolver.types.errorType);
    }
    TypePtr returnType = resolver.types.voidType;
    if (!decl.returnType.empty()) {
        if (auto type = resolver.resolveTypeWithDiagnostic(decl.returnType, decl.location)) returnType = type;
    }
    return resolver.types.getFunctionType(std::move(params), std::move(returnType));
}

}  // namespace quor::sema
