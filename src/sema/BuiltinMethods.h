#pragma once

#include <string_view>

#include "sema/Type.h"
#include "sema/TypeContext.h"

namespace quor::sema {

// The methods and properties that strings, arrays, maps and scalar types have
// without any declaration. They exist only as these tables: a name and the
// type it yields. Arguments are never compared with anything.

// The result of calling `name` on a receiver of a built-in kind: the string,
// array or map table by the receiver's kind, and for every kind then the
// scalar table ("parse" on the integer kinds, double, float and bool). Null
// when no row fits, which the caller reports.
TypePtr builtinMethodResult(TypeContext& types, const TypePtr& receiver, std::string_view name);

// The type of reading `name` as a value on a receiver that is no class,
// struct or enum: "length" and "size" of strings and arrays, and "parse" of a
// scalar type as a function from string. Null when no row fits.
TypePtr builtinPropertyType(TypeContext& types, const TypePtr& receiver, std::string_view name);

}  // namespace quor::sema
