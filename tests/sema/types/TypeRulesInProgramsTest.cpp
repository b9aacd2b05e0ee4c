#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sema/SemaTestSupport.h"

// The assignability rules as a program meets them: a typed local
// initialised from a parameter (never a literal, which the checker helps
// along), one case per program, with the messages the checker gives.

namespace {

using quor::sema::testing::analyzeSource;
using Records = std::vector<std::string>;

struct DeclarationRow {
    const char* parameter;  // the parameter's type text
    const char* local;      // the local's type text
    bool accepted;
};

const DeclarationRow DECLARATIONS[] = {
    {"int", "float", false},
    {"int", "double", true},
    {"int16", "float", true},
    {"int8", "uint16", false},
    {"uint8", "int16", true},
    {"uint", "int64", true},
    {"int", "uint", false},
    {"int", "any", true},
    {"any", "int", false},
    {"int?", "int", false},
    {"int?", "int64?", true},
    {"int", "int64?", true},
    {"int[]", "int64[]", false},
    {"int[]", "int[]?", true},
    {"int[]", "any[]", false},
    {"Map<string, int>", "Map<string, int64>", false},
    {"Map<string,int>", "Map<string, int>", true},
    {"Color", "uint8", true},
    {"Color", "int64", true},
    {"Color", "float", false},
    {"int", "Color", false},
    {"Point", "Spot", false},
    {"Dog", "Animal", true},
    {"Dog", "Pet", true},
    {"Animal", "Dog", false},
    {"Dog[]", "Animal[]", false},
    {"char", "string", false},
    {"bool", "int", false},
    {"Box<int>", "Box<int>", true},
    {"Box<int32>", "Box<int>", false},
    {"List<int32>", "List<int>", true},
};

const char* const WORLD = R"(enum Color { Red, Green }
struct Point {
    x: int;
}
struct Spot {
    x: int;
}
interface Pet {
}
class Animal {
}
class Dog extends Animal implements Pet {
}
class Box<T> {
    T value;
}
)";

TEST(TypeRulesInPrograms, ATypedLocalTakesAParameterOnlyWhenItAssigns) {
    for (const auto& row : DECLARATIONS) {
        const std::string source = std::string(WORLD) + "fn probe(p: " + row.parameter + ") {\n    " + row.local +
                                   " v = p;\n}\n";
        const auto records = analyzeSource(source);
        ASSERT_EQ(records.size(), row.accepted ? 0u : 1u) << row.parameter << " -> " << row.local << "\n" << source;
        if (!row.accepted) {
            EXPECT_EQ(records[0].rfind("E1001|Type mismatch: cannot initialize variable", 0), 0u) << records[0];
        }
    }
}

TEST(TypeRulesInPrograms, MismatchMessagesPrintTheTypesInTheirCanonicalForm) {
    struct Row {
        const char* parameter;
        const char* local;
        const char* localText;
        const char* parameterText;
    };
    const Row rows[] = {
        {"int32", "float", "float", "int"},
        {"byte[]", "Array<int>", "int[]", "uint8[]"},
        {"Map<string,int>", "Map<string,int64>", "Map<string, int64>", "Map<string, int>"},
        {"int32?", "uint32", "uint", "int?"},
        {"List<int32>", "List<string>", "List<string>", "List<int>"},
        {"Set<Foo2>", "int", "int", "Set<any>"},
        {"Box<int32>", "Box<int>", "Box<int>", "Box<int32>"},
    };
    for (const auto& row : rows) {
        const std::string source = std::string(WORLD) + "fn probe(p: " + row.parameter + ") {\n    " + row.local +
                                   " v = p;\n}\n";
        const auto records = analyzeSource(source);
        ASSERT_EQ(records.size(), 1u) << source;
        const std::string message = std::string("E1001|Type mismatch: cannot initialize variable of type '") +
                                    row.localText + "' with value of type '" + row.parameterText + "'||";
        EXPECT_EQ(records[0].substr(0, message.size()), message) << source;
    }
}

// The type two operands meet in, read back from the message of a string
// local initialised with the expression.
TEST(TypeRulesInPrograms, OperandsMeetInTheirCommonType) {
    struct Row {
        const char* parameters;
        const char* expression;
        const char* meeting;
    };
    const Row rows[] = {
        {"a: uint, b: int", "a + b", "int"},
        {"a: int, b: uint", "a + b", "int"},
        {"a: uint, b: int64", "a + b", "int64"},
        {"a: int64, b: uint64", "a * b", "int64"},
        {"a: int, b: uint64", "a - b", "uint64"},
        {"a: float, b: int64", "a / b", "float"},
        {"a: int8, b: uint8", "a + b", "int"},
        {"a: int16, b: float", "a + b", "float"},
        {"a: int, b: double", "a % b", "double"},
        {"a: uint8, b: uint16", "a & b", "uint16"},
        {"a: int?, b: int64", "a ?? b", "int64"},
        {"a: bool, b: int", "a ? b : null", "int?"},
        {"a: bool, b: int", "a ? null : b", "int?"},
        {"a: bool, b: Dog", "a ? b : new Animal()", "Animal"},
        {"a: bool, b: int", "a ? b : 'c'", "any"},
        {"a: int, b: int64", "[a, b]", "int64[]"},
        {"a: int, b: char", "[a, b]", "any[]"},
    };
    for (const auto& row : rows) {
        const std::string source = std::string(WORLD) + "fn probe(" + row.parameters + ") {\n    string s = " +
                                   row.expression + ";\n}\n";
        const auto records = analyzeSource(source);
        ASSERT_EQ(records.size(), 1u) << source;
        const std::string message =
            std::string("E1001|Type mismatch: cannot initialize variable of type 'string' with value of type '") +
            row.meeting + "'||";
        EXPECT_EQ(records[0].substr(0, message.size()), message) << row.expression;
    }
}

}  // namespace
