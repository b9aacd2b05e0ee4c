// The ten classes that every program knows without an import. They exist
// only as signatures: the server analyses code and never runs it.
#include <span>
#include <string_view>

#include "sema/BuiltinSignature.h"
#include "sema/TypeContext.h"

namespace quor::sema {

namespace {

using builtin::SignatureRow;
using builtin::Slot;

constexpr Slot VOID = Slot::Void;
constexpr Slot BOOL = Slot::Bool;
constexpr Slot INT = Slot::Int;
constexpr Slot INT64 = Slot::Int64;
constexpr Slot DOUBLE = Slot::Double;
constexpr Slot STRING = Slot::String;
constexpr Slot STRINGS = Slot::StringArray;
constexpr Slot SELF = Slot::Self;

// IO and Console share these eight.
constexpr SignatureRow CONSOLE_METHODS[] = {
    {"println", {STRING}, VOID}, {"print", {STRING}, VOID}, {"eprintln", {STRING}, VOID},
    {"eprint", {STRING}, VOID},  {"readLine", {}, STRING},  {"readln", {}, STRING},
    {"flush", {}, VOID},         {"eflush", {}, VOID},
};

// The string is the first explicit parameter, not a receiver.
constexpr SignatureRow STRING_METHODS[] = {
    {"length", {STRING}, INT64},
    {"upper", {STRING}, STRING},
    {"lower", {STRING}, STRING},
    {"trim", {STRING}, STRING},
    {"contains", {STRING, STRING}, BOOL},
    {"indexOf", {STRING, STRING}, INT64},
    {"replace", {STRING, STRING, STRING}, STRING},
    {"substring", {STRING, INT64, INT64}, STRING},
    {"split", {STRING, STRING}, STRINGS},
    {"reverse", {STRING}, STRING},
};

constexpr SignatureRow MATH_METHODS[] = {
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
    {"abs", {INT64}, INT64},
    {"abs", {DOUBLE}, DOUBLE},
    {"min", {INT, INT}, INT},
    {"min", {INT64, INT64}, INT64},
    {"min", {DOUBLE, DOUBLE}, DOUBLE},
    {"max", {INT, INT}, INT},
    {"max", {INT64, INT64}, INT64},
    {"max", {DOUBLE, DOUBLE}, DOUBLE},
    {"log", {DOUBLE}, DOUBLE},
    {"log10", {DOUBLE}, DOUBLE},
    {"log2", {DOUBLE}, DOUBLE},
    {"exp", {DOUBLE}, DOUBLE},
};

constexpr SignatureRow FS_METHODS[] = {
    {"readText", {STRING}, STRING},
    {"writeText", {STRING, STRING}, BOOL},
    {"appendText", {STRING, STRING}, BOOL},
    {"exists", {STRING}, BOOL},
    {"delete", {STRING}, BOOL},
    {"deleteFile", {STRING}, BOOL},
    {"createDir", {STRING}, BOOL},
    {"listDir", {STRING}, STRINGS},
    {"isFile", {STRING}, BOOL},
    {"isDir", {STRING}, BOOL},
};

// The first six of FS, then isFile: no directories.
constexpr SignatureRow FILE_METHODS[] = {
    {"readText", {STRING}, STRING},
    {"writeText", {STRING, STRING}, BOOL},
    {"appendText", {STRING, STRING}, BOOL},
    {"exists", {STRING}, BOOL},
    {"delete", {STRING}, BOOL},
    {"deleteFile", {STRING}, BOOL},
    {"isFile", {STRING}, BOOL},
};

// `now` is a 32-bit int while `nowNanos` is int64, and `parse` gives int.
constexpr SignatureRow TIME_METHODS[] = {
    {"now", {}, INT},
    {"nowSeconds", {}, INT},
    {"nowNanos", {}, INT64},
    {"sleep", {INT}, VOID},
    {"sleep", {INT64}, VOID},
    {"sleepSeconds", {INT}, VOID},
    {"sleepSeconds", {INT64}, VOID},
    {"format", {INT}, STRING},
    {"format", {INT64}, STRING},
    {"parse", {STRING}, INT},
};

// The factories return the class itself; the two conversions are the only
// instance methods of the built-in classes.
constexpr SignatureRow DURATION_METHODS[] = {
    {"fromMillis", {INT}, SELF},
    {"fromMillis", {INT64}, SELF},
    {"fromSeconds", {INT}, SELF},
    {"fromSeconds", {INT64}, SELF},
    {"fromMinutes", {INT}, SELF},
    {"fromMinutes", {INT64}, SELF},
    {"fromHours", {INT}, SELF},
    {"fromHours", {INT64}, SELF},
    {"toMillis", {}, INT, false},
    {"toSeconds", {}, INT, false},
};

constexpr SignatureRow OS_METHODS[] = {
    {"getEnv", {STRING}, STRING},
    {"setEnv", {STRING, STRING}, BOOL},
    {"platform", {}, STRING},
    {"arch", {}, STRING},
    {"args", {}, STRINGS},
    {"exit", {INT}, VOID},
    {"exit", {INT64}, VOID},
};

constexpr SignatureRow PROCESS_METHODS[] = {
    {"exec", {STRING}, INT},
    {"spawn", {STRING}, INT},
    {"run", {STRING}, STRING},
    {"pid", {}, INT},
};

struct FieldRow {
    const char* name;
    Slot type;
    bool isStatic;
    bool isConst;
};

constexpr FieldRow MATH_FIELDS[] = {
    {"PI", DOUBLE, true, true},
    {"E", DOUBLE, true, true},
    {"TAU", DOUBLE, true, true},
};

constexpr FieldRow DURATION_FIELDS[] = {
    {"millis", INT, false, false},
};

struct ClassRow {
    const char* name;
    std::span<const SignatureRow> methods;
    std::span<const FieldRow> fields;
};

// In order of creation.
constexpr ClassRow BUILTIN_CLASSES[] = {
    {"IO", CONSOLE_METHODS, {}},
    {"Console", CONSOLE_METHODS, {}},
    {"String", STRING_METHODS, {}},
    {"Math", MATH_METHODS, MATH_FIELDS},
    {"FS", FS_METHODS, {}},
    {"File", FILE_METHODS, {}},
    {"Time", TIME_METHODS, {}},
    {"Duration", DURATION_METHODS, DURATION_FIELDS},
    {"OS", OS_METHODS, {}},
    {"Process", PROCESS_METHODS, {}},
};

}  // namespace

void TypeContext::createBuiltinClasses() {
    for (const auto& row : BUILTIN_CLASSES) {
        auto cls = createClassType(row.name);
        for (const auto& field : row.fields) {
            MemberField member;
            member.name = field.name;
            member.type = builtin::slotType(*this, field.type, cls, nullptr);
            member.isStatic = field.isStatic;
            member.isConst = field.isConst;
            cls->fields.emplace(member.name, member);
        }
        cls->methods.reserve(row.methods.size());
        for (const auto& method : row.methods) cls->addMethod(builtin::methodOfRow(*this, method, cls, nullptr));
    }
}

}  // namespace quor::sema
