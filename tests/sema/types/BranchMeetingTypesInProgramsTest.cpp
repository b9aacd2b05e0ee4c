#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sema/SemaTestSupport.h"

// Where two values of different types meet (the branches of a conditional,
// the elements of an array literal, the entries of a map literal) the
// result is their common type: the one the other assigns to, a numeric
// meeting point, a nullable around null, and any for everything else. Each
// row reads the result back from the mismatch message of a bool local.

namespace {

using quor::sema::testing::analyzeSource;
using Records = std::vector<std::string>;

const char* const WORLD = R"(enum Color { Red, Green }
interface Pet {
}
class Animal {
}
class Dog extends Animal implements Pet {
}
class Cat extends Animal {
}
fn h(a: int) -> int { return a; }
fn k(a: int) -> int64 { return 1; }
)";

// The probe's parameters: one of every type the rows meet.
const char* const PARAMETERS =
    "c: bool, i: int, u: uint, i8: int8, u8: uint8, u16: uint16, l: int64, ul: uint64, f: float, d: double, "
    "ch: char, s: string, ni: int?, ns: string?, ai: int[], ad: double[], col: Color, pet: Pet, dog: Dog, "
    "cat: Cat, an: Animal, a: any, un: unknown";

struct Row {
    const char* expression;
    const char* meeting;
};

const Row ROWS[] = {
    // Numbers: the wider where one widens to the other, else the numeric rule.
    {"c ? i8 : u8", "int"},
    {"c ? u8 : u16", "uint16"},
    {"c ? u : i", "int"},
    {"c ? u : l", "int64"},
    {"c ? l : ul", "int64"},
    {"c ? ul : l", "int64"},
    {"c ? i : ul", "uint64"},
    {"c ? f : i", "float"},
    {"c ? f : l", "float"},
    {"c ? f : d", "double"},
    {"c ? ul : d", "double"},
    {"c ? i : 1.5", "double"},
    {"c ? 1.5f : 2", "float"},
    // An enum assigns to every integer kind, never the other way.
    {"c ? col : i", "int"},
    {"c ? i : col", "int"},
    {"c ? col : u8", "uint8"},
    {"c ? col : f", "any"},
    {"c ? col : Color.Green", "Color"},
    // Null meets a type in its nullable, and a nullable as it is.
    {"c ? null : i", "int?"},
    {"c ? s : null", "string?"},
    {"c ? null : ni", "int?"},
    {"c ? ni : i", "int?"},
    {"c ? i : ni", "int?"},
    {"c ? ni : l", "any"},
    {"c ? ai : null", "int[]?"},
    {"c ? null : a", "any"},
    // Classes and interfaces: only along the chain.
    {"c ? dog : an", "Animal"},
    {"c ? an : dog", "Animal"},
    {"c ? dog : pet", "Pet"},
    {"c ? dog : cat", "any"},
    {"c ? pet : cat", "any"},
    // Arrays are invariant, functions match only exactly.
    {"c ? ai : ad", "any"},
    {"c ? ai : ai", "int[]"},
    {"c ? h : h", "fn(int) -> int"},
    {"c ? h : k", "any"},
    // Everything else meets in any; unknown is no wildcard.
    {"c ? ch : s", "any"},
    {"c ? ch : i", "any"},
    {"c ? s : i", "any"},
    {"c ? un : i", "any"},
    {"c ? un : un", "unknown"},
    {"c ? a : i", "any"},
    // Literals fold the same meeting element by element.
    {"[i8, u8, l]", "int64[]"},
    {"[u, i, 1.5]", "double[]"},
    {"[null, an, dog]", "Animal?[]"},
    {"[null, dog, an]", "any[]"},
    {"[dog, null, an]", "any[]"},
    {"[col, i]", "int[]"},
    {"[ai, null]", "int[]?[]"},
    {"[h, h]", "fn(int) -> int[]"},
    {"{i: s, l: null}", "Map<int64, string?>"},
    {"{s: dog, ns: cat}", "Map<string?, any>"},
};

TEST(BranchMeetingTypesInPrograms, TwoTypesMeetInTheirCommonType) {
    for (const auto& row : ROWS) {
        const std::string source =
            std::string(WORLD) + "fn probe(" + PARAMETERS + ") {\n    bool v = " + row.expression + ";\n}\n";
        const Records expected{std::string("E1001|Type mismatch: cannot initialize variable of type 'bool' with value "
                                           "of type '") +
                               row.meeting + "'||13:10"};
        EXPECT_EQ(analyzeSource(source), expected) << row.expression;
    }
}

// Two nulls meet in null itself, which a plain local refuses as null.
TEST(BranchMeetingTypesInPrograms, TwoNullsMeetInNull) {
    EXPECT_EQ(analyzeSource("fn probe(c: bool) {\n    int v = c ? null : null;\n    var w = [null, null];\n"
                            "    int x = w;\n}\n"),
              (Records{"E1008|Null safety violation: cannot assign null to non-nullable variable 'v' of type 'int'|Use "
                       "'int?' to declare a nullable variable|2:9",
                       "E1001|Type mismatch: cannot initialize variable of type 'int' with value of type "
                       "'null[]'||4:9"}));
}

// A broken branch gives the error type, which silences what follows, but
// an array literal around it is an array of the error type, which is not;
// a broken condition is reported and the branches still meet.
TEST(BranchMeetingTypesInPrograms, TheErrorTypeAbsorbsTheMeeting) {
    const std::string source = std::string(WORLD) +
                               "fn probe(c: bool, i: int) {\n"
                               "    bool v1 = c ? nothing : i;\n"
                               "    bool v2 = [i, nothing, 2.5];\n"
                               "    bool v3 = nothing ? i : 2.5;\n"
                               "}\n";
    EXPECT_EQ(analyzeSource(source),
              (Records{
                  "E1002|Undefined variable or symbol 'nothing'|Ensure the variable is declared before use|13:19",
                  "E1002|Undefined variable or symbol 'nothing'|Ensure the variable is declared before use|14:19",
                  // An array of the error type is an array, and no longer silent.
                  "E1001|Type mismatch: cannot initialize variable of type 'bool' with value of type "
                  "'<type-error>[]'||14:10",
                  "E1002|Undefined variable or symbol 'nothing'|Ensure the variable is declared before use|15:15",
                  "E1001|Ternary condition must be of type bool, got '<type-error>'||15:23",
                  "E1001|Type mismatch: cannot initialize variable of type 'bool' with value of type 'double'||15:10",
              }));
}

}  // namespace
