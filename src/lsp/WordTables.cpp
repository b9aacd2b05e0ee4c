// Constant word tables shared by completion and hover.
#include "lsp/WordTables.h"

#include <algorithm>

namespace quor::lsp {

const std::array<KeywordRow, QUOR_KEYWORD_COUNT> QUOR_KEYWORDS = {{
    {"fn", "Declare a function: `fn name(params): returnType { ... }`"},
    {"let", "Declare a mutable local variable: `let x = 10;`"},
    {"const", "Declare an immutable constant: `const PI = 3.14159;`"},
    {"class", "Declare an object-oriented class: `class Name { ... }`"},
    {"interface", "Declare an interface contract: `interface Name { ... }`"},
    {"struct", "Declare a lightweight struct: `struct Name { ... }`"},
    {"enum", "Declare an enumerated type: `enum Name { ... }`"},
    {"if", "Conditional branching statement"},
    {"else", "Else branch for conditional execution"},
    {"while", "Loop construct that runs while condition is true"},
    {"for", "Loop construct: `for item in collection { ... }`"},
    {"in", "Used in for..in iterations"},
    {"return", "Return value from a function"},
    {"match", "Pattern matching control flow expression"},
    {"switch", "Switch-case branching statement"},
    {"case", "Case branch within a switch statement"},
    {"default", "Default branch in a switch statement"},
    {"break", "Exit loop or switch statement"},
    {"continue", "Jump to next loop iteration"},
    {"import", "Import external module or package"},
    {"module", "Declare file module namespace"},
    {"public", "Public visibility specifier"},
    {"private", "Private visibility specifier"},
    {"override", "Override virtual method in derived class"},
    {"static", "Declare static method or member"},
    {"async", "Asynchronous function modifier"},
    {"await", "Await asynchronous task resolution"},
    {"assert", "Test assertion: `assert(cond, [msg])`"},
    {"new", "Instantiate new class object"},
    {"try", "Begin exception handling block"},
    {"catch", "Catch exception in try block"},
    {"finally", "Finally block executed always"},
    {"throw", "Throw an error or exception"},
    {"true", "Boolean true literal"},
    {"false", "Boolean false literal"},
    {"null", "Null pointer or reference literal"},
}};

const std::array<std::string_view, QUOR_PRIMITIVE_TYPE_COUNT> QUOR_PRIMITIVE_TYPES = {
    "int", "float", "string", "bool", "char", "byte", "void", "any", "Array", "Map", "List",
};

const KeywordRow* findKeyword(std::string_view word) {
    auto found = std::find_if(QUOR_KEYWORDS.begin(), QUOR_KEYWORDS.end(),
                              [word](const KeywordRow& row) { return row.first == word; });
    return found != QUOR_KEYWORDS.end() ? &*found : nullptr;
}

bool isPrimitiveTypeName(std::string_view word) {
    return std::find(QUOR_PRIMITIVE_TYPES.begin(), QUOR_PRIMITIVE_TYPES.end(), word) != QUOR_PRIMITIVE_TYPES.end();
}

}  // namespace quor::lsp
