// The functions and constants that every source sees without an import.
#include <array>
#include <memory>

#include "sema/BuiltinSignature.h"
#include "sema/Symbol.h"
#include "sema/TypeContext.h"

namespace quor::sema {

namespace {

using builtin::SignatureRow;
using builtin::Slot;

constexpr Slot VOID = Slot::Void;
constexpr Slot BOOL = Slot::Bool;
constexpr Slot INT = Slot::Int;
constexpr Slot DOUBLE = Slot::Double;
constexpr Slot STRING = Slot::String;
constexpr Slot STRINGS = Slot::StringArray;
constexpr Slot ANY = Slot::Any;

// A global function signature, or a constant of the result type. A name
// that repeats is an overload of its first row.
struct GlobalRow {
    const char* name;
    std::array<Slot, 3> params;
    Slot result;
    bool isConstant = false;
};

constexpr bool CONSTANT = true;

// In order of definition.
constexpr GlobalRow BUILTIN_GLOBALS[] = {
    {"println", {STRING}, VOID},
    {"println", {INT}, VOID},
    {"println", {DOUBLE}, VOID},
    {"println", {BOOL}, VOID},
    {"println", {ANY}, VOID},
    {"print", {STRING}, VOID},
    {"print", {ANY}, VOID},
    {"readln", {}, STRING},
    {"readLine", {}, STRING},
    {"eprint", {STRING}, VOID},
    {"eprint", {ANY}, VOID},
    {"eprintln", {STRING}, VOID},
    {"eprintln", {ANY}, VOID},
    {"flush", {}, VOID},
    {"eflush", {}, VOID},
    {"assert", {BOOL}, VOID},
    {"assert", {BOOL, STRING}, VOID},
    {"panic", {STRING}, VOID},
    {"len", {ANY}, INT},
    {"PI", {}, DOUBLE, CONSTANT},
    {"E", {}, DOUBLE, CONSTANT},
    {"TAU", {}, DOUBLE, CONSTANT},
    {"sqrt", {DOUBLE}, DOUBLE},
    {"pow", {DOUBLE, DOUBLE}, DOUBLE},
    {"sin", {DOUBLE}, DOUBLE},
    {"cos", {DOUBLE}, DOUBLE},
    {"tan", {DOUBLE}, DOUBLE},
    {"asin", {DOUBLE}, DOUBLE},
    {"acos", {DOUBLE}, DOUBLE},
    {"atan", {DOUBLE}, DOUBLE},
    {"atan2", {DOUBLE, DOUBLE}, DOUBLE},
    {"floor", {DOUBLE}, DOUBLE},
    {"ceil", {DOUBLE}, DOUBLE},
    {"round", {DOUBLE}, DOUBLE},
    {"abs", {INT}, INT},
    {"abs", {DOUBLE}, DOUBLE},
    {"min", {INT, INT}, INT},
    {"min", {DOUBLE, DOUBLE}, DOUBLE},
    {"max", {INT, INT}, INT},
    {"max", {DOUBLE, DOUBLE}, DOUBLE},
    {"log", {DOUBLE}, DOUBLE},
    {"log10", {DOUBLE}, DOUBLE},
    {"log2", {DOUBLE}, DOUBLE},
    {"exp", {DOUBLE}, DOUBLE},
    {"readText", {STRING}, STRING},
    {"writeText", {STRING, STRING}, BOOL},
    {"appendText", {STRING, STRING}, BOOL},
    {"exists", {STRING}, BOOL},
    {"deleteFile", {STRING}, BOOL},
    {"delete", {STRING}, BOOL},
    {"createDir", {STRING}, BOOL},
    {"listDir", {STRING}, STRINGS},
    {"isFile", {STRING}, BOOL},
    {"isDir", {STRING}, BOOL},
    {"now", {}, INT},
    {"nowSeconds", {}, INT},
    {"sleep", {INT}, VOID},
    {"sleepSeconds", {INT}, VOID},
    {"formatTime", {INT}, STRING},
    {"parseTime", {STRING}, INT},
    {"getEnv", {STRING}, STRING},
    {"setEnv", {STRING, STRING}, BOOL},
    {"platform", {}, STRING},
    {"arch", {}, STRING},
    {"args", {}, STRINGS},
    {"exit", {INT}, VOID},
    {"exec", {STRING}, INT},
    {"spawn", {STRING}, INT},
    {"runCommand", {STRING}, STRING},
    {"pid", {}, INT},
};

}  // namespace

// Each row is defined on the global scope in table order, so a repeated
// name joins the overloads of its first row. Nothing here can fail.
void SymbolTable::initBuiltins(TypeContext& types) {
    const diagnostics::SourceLocation location{BUILTIN_FILE, 0, 0};
    for (const auto& row : BUILTIN_GLOBALS) {
        if (row.isConstant) {
            auto type = builtin::slotType(types, row.result, nullptr, nullptr);
            globalScope->define(std::make_shared<VariableSymbol>(row.name, type, location, true));
        } else {
            auto type = builtin::signatureType(types, SignatureRow{row.name, row.params, row.result}, nullptr, nullptr);
            globalScope->define(std::make_shared<FunctionSymbol>(row.name, type, location));
        }
    }
}

}  // namespace quor::sema
