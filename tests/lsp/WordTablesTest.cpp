#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "lsp/WordTables.h"

using quor::lsp::findKeyword;
using quor::lsp::isPrimitiveTypeName;
using quor::lsp::QUOR_KEYWORDS;
using quor::lsp::QUOR_PRIMITIVE_TYPES;

namespace {

const std::vector<std::pair<std::string, std::string>> EXPECTED_KEYWORDS = {
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
};

const std::vector<std::string> EXPECTED_TYPES = {"int",  "float", "string", "bool",  "char", "byte",
                                                 "void", "any",   "Array",  "Map",   "List"};

}  // namespace

TEST(WordTables, KeywordTableHasThirtySixRowsInOrder) {
    ASSERT_EQ(QUOR_KEYWORDS.size(), 36u);
    for (std::size_t i = 0; i < EXPECTED_KEYWORDS.size(); ++i) {
        EXPECT_EQ(QUOR_KEYWORDS[i].first, EXPECTED_KEYWORDS[i].first) << i;
        EXPECT_EQ(QUOR_KEYWORDS[i].second, EXPECTED_KEYWORDS[i].second) << i;
    }
}

TEST(WordTables, PrimitiveTypeTableHasElevenNamesInOrder) {
    ASSERT_EQ(QUOR_PRIMITIVE_TYPES.size(), 11u);
    for (std::size_t i = 0; i < EXPECTED_TYPES.size(); ++i) EXPECT_EQ(QUOR_PRIMITIVE_TYPES[i], EXPECTED_TYPES[i]);
}

TEST(WordTables, InIsAKeywordHereThoughTheScannerTreatsItAsAName) {
    ASSERT_NE(findKeyword("in"), nullptr);
    EXPECT_EQ(findKeyword("in")->second, "Used in for..in iterations");
}

TEST(WordTables, LookupsAreExactAndCaseSensitive) {
    EXPECT_EQ(findKeyword("Fn"), nullptr);
    EXPECT_EQ(findKeyword("var"), nullptr);
    EXPECT_EQ(findKeyword(""), nullptr);
    EXPECT_TRUE(isPrimitiveTypeName("List"));
    EXPECT_FALSE(isPrimitiveTypeName("list"));
    EXPECT_FALSE(isPrimitiveTypeName("double"));
}

TEST(WordTables, EveryRowIsFoundByItsWord) {
    for (const auto& [word, description] : EXPECTED_KEYWORDS) {
        const auto* row = findKeyword(word);
        ASSERT_NE(row, nullptr) << word;
        EXPECT_EQ(row->second, description);
    }
    for (const std::string& name : EXPECTED_TYPES) EXPECT_TRUE(isPrimitiveTypeName(name)) << name;
}
