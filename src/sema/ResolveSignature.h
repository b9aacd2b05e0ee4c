#pragma once

#include <memory>

#include "ast/AST.h"
#include "sema/NameResolver.h"
#include "sema/Type.h"

namespace quor::sema {

// The function type of a declared signature, as both passes of the resolver
// build it: every parameter's type text, then the return type text unless it
// is empty, resolved with a diagnostic at the declaration's location. A
// parameter that resolves to nothing counts as the error type, a return type
// that resolves to nothing as void.
std::shared_ptr<FunctionType> resolveSignature(NameResolver& resolver, const ast::FunctionDecl& decl);

}  // namespace quor::sema
