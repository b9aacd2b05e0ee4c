// Classes of many methods: past a few dozen, a class's own methods are
// looked up through an index rather than in order. Whatever the size, a
// method is refused exactly when an earlier method of the class that was
// kept has its name and an equal function type, result included. Programs
// of random methods drawn from a small pool (so that repeats are common)
// are compared with that rule worked out here.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

// Spellings of each type with the canonical text equal types share: the
// integer aliases are one type, a class is equal by name.
struct TypeSpelling {
    const char* written;
    const char* canonical;
};
constexpr TypeSpelling TYPES[] = {
    {"int", "int"},     {"int32", "int"},   {"string", "string"}, {"bool", "bool"},    {"Box", "Box"},
    {"Crate", "Crate"}, {"int[]", "int[]"}, {"int?", "int?"},     {"Box?", "Box?"},   {"float", "float"},
};
constexpr const char* NAMES[] = {"m", "n", "get", "put"};

struct Method {
    std::string text;       // as written in the class
    std::string signature;  // name and canonical types, equal for equal methods
};

Method randomMethod(std::mt19937& random) {
    auto pick = [&random](std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random); };
    const std::string name = NAMES[pick(std::size(NAMES))];
    const std::size_t arity = pick(3);
    std::string params;
    std::string signature = name + "(";
    for (std::size_t i = 0; i < arity; ++i) {
        const TypeSpelling& type = TYPES[pick(std::size(TYPES))];
        params += (i ? ", p" : "p") + std::to_string(i) + ": " + type.written;
        signature += std::string(i ? "," : "") + type.canonical;
    }
    const TypeSpelling& result = TYPES[pick(std::size(TYPES))];
    signature += ")->" + std::string(result.canonical);
    return Method{"fn " + name + "(" + params + ") -> " + result.written + " {}", signature};
}

// The program (classes Box and Crate, then `Big` of `count` random methods,
// one per line from line 4) and the reports the rule gives for it.
struct Case {
    std::string source;
    Records expected;
};

Case randomCase(unsigned seed, std::size_t count) {
    std::mt19937 random(seed);
    Case result;
    result.source = "class Box {}\nclass Crate {}\nclass Big {\n";
    std::vector<std::string> kept;
    for (std::size_t i = 0; i < count; ++i) {
        const Method method = randomMethod(random);
        result.source += "  " + method.text + "\n";
        bool repeated = false;
        for (const auto& signature : kept) repeated = repeated || signature == method.signature;
        if (repeated) {
            const std::string name = method.text.substr(3, method.text.find('(') - 3);
            result.expected.push_back(duplicateMethod(name, "Big", std::to_string(4 + i) + ":3"));
        } else {
            kept.push_back(method.signature);
        }
    }
    result.source += "}\n";
    return result;
}

TEST(ResolverManyMethods, ARepeatedSignatureIsRefusedInClassesOfEverySize) {
    for (std::size_t count : {5u, 31u, 32u, 33u, 40u, 120u, 400u}) {
        for (unsigned seed = 1; seed <= 6; ++seed) {
            const Case c = randomCase(seed * 1000 + static_cast<unsigned>(count), count);
            auto a = resolved(c.source);
            EXPECT_EQ(a->records(), c.expected) << "seed " << seed << ", " << count << " methods:\n" << c.source;
        }
    }
}

// A second declaration of a class adds to the first one's methods, and its
// repeats are found among them, also when the first already has many.
TEST(ResolverManyMethods, ASecondDeclarationsRepeatIsFoundAmongTheFirstsManyMethods) {
    const char* widths[] = {"int8", "int16", "int", "int64", "uint8", "uint16", "uint", "uint64", "float", "double"};
    std::string source = "class Big {\n";
    for (const char* first : widths) {
        for (const char* second : {"string", "bool", "char", "int[]", "string?"}) {
            source += "  fn m(a: " + std::string(first) + ", b: " + second + ") {}\n";
        }
    }
    source += "}\nclass Big {\n  fn m(a: double, b: string?) {}\n  fn m(a: double, b: int?) {}\n}\n";
    auto a = resolved(source);
    const Records records = a->records();
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(records.back(), duplicateMethod("m", "Big", "54:3"));
    const auto big = classNamed(*a, "Big");
    ASSERT_NE(big, nullptr);
    EXPECT_EQ(methodTypes(*big, "m").size(), 51u);
}

}  // namespace
}  // namespace quor::sema::testing
