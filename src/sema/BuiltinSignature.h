#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "sema/Type.h"
#include "sema/TypeContext.h"

namespace quor::sema::builtin {

// A type in a row of a built-in table. `Self` is the class being built,
// `Element` the element of a collection class (possibly missing) and
// `ElementOrInt64` that element, or int64 when it is missing. `None` ends a
// parameter list.
enum class Slot : std::uint8_t {
    None,
    Void,
    Bool,
    Int,
    Int64,
    Double,
    String,
    StringArray,
    Any,
    Self,
    Element,
    ElementOrInt64,
};

// One signature of a built-in table: up to three parameters, then the result.
struct SignatureRow {
    const char* name;
    std::array<Slot, 3> params;
    Slot result;
    bool isStatic = true;
};

// What a slot stands for. The element may be null; so may the result then.
inline TypePtr slotType(TypeContext& types, Slot slot, const TypePtr& self, const TypePtr& element) {
    switch (slot) {
        case Slot::None: return nullptr;
        case Slot::Void: return types.voidType;
        case Slot::Bool: return types.boolType;
        case Slot::Int: return types.intType;
        case Slot::Int64: return types.int64Type;
        case Slot::Double: return types.doubleType;
        case Slot::String: return types.stringType;
        case Slot::StringArray: return types.getArrayType(types.stringType);
        case Slot::Any: return types.anyType;
        case Slot::Self: return self;
        case Slot::Element: return element;
        case Slot::ElementOrInt64: return element ? element : types.int64Type;
    }
    return nullptr;
}

// The function type of a row; a missing result becomes void.
inline std::shared_ptr<FunctionType> signatureType(TypeContext& types, const SignatureRow& row, const TypePtr& self,
                                                   const TypePtr& element) {
    std::vector<TypePtr> params;
    for (Slot slot : row.params) {
        if (slot == Slot::None) break;
        params.push_back(slotType(types, slot, self, element));
    }
    return types.getFunctionType(std::move(params), slotType(types, row.result, self, element));
}

// A public method record of a row, never abstract or override.
inline MemberMethod methodOfRow(TypeContext& types, const SignatureRow& row, const TypePtr& self,
                                const TypePtr& element) {
    MemberMethod method;
    method.name = row.name;
    method.type = signatureType(types, row, self, element);
    method.isStatic = row.isStatic;
    return method;
}

}  // namespace quor::sema::builtin
