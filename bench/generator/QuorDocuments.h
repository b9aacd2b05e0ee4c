#pragma once

// Generated Quor sources for measurements and tests: a realistic document of
// any number of lines, a C file of the same shape for comparison with a C
// compiler's front end, and a set of adversarial documents of about 1 MB
// each that push one part of the front end to its limit.
//
// Header-only, so that tests and tools include it without linking anything.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quor::bench {

namespace detail {

// Replaces every "@" in `pattern` by `suffix` and appends the result.
inline void appendWithSuffix(std::string& out, std::string_view pattern, std::string_view suffix) {
    for (char c : pattern) {
        if (c == '@') {
            out.append(suffix);
        } else {
            out.push_back(c);
        }
    }
}

inline std::size_t countLines(std::string_view text) {
    std::size_t lines = 0;
    for (char c : text) lines += c == '\n' ? 1 : 0;
    return lines;
}

// One copy of the realistic unit; "@" stands for the copy's number, so every
// declared name is unique in the document. Types stand above every function
// whose signature names them.
constexpr std::string_view QUOR_UNIT = R"(/// Kinds of stock held in section @ of the warehouse.
enum Category@ { Raw, Finished = 2, Spare }

/// Anything that can be counted and named.
interface Countable@ {
    fn count(): int;
    fn label(): string;
}

/// A box holding one value of any type.
class Holder@<T> {
    private T value;

    Holder@(T value) {
        this.value = value;
    }

    /// The value held.
    public fn get(): T {
        return value;
    }
}

/// A stock record that can be counted.
class Record@ implements Countable@ {
    public int amount;
    public string name;

    Record@(int amount, string name) {
        this.amount = amount;
        this.name = name;
    }

    /// How many items the record holds.
    /// @return the number of items
    public fn count(): int {
        return amount;
    }

    public fn label(): string {
        return "record ${name} of ${amount}";
    }
}

/// A record kept in one bin of the store.
class BinRecord@ extends Record@ {
    public int bin;

    BinRecord@(int amount, string name, int bin) {
        super(amount, name);
        this.bin = bin;
    }

    /// The record's label with its bin behind it.
    public fn binLabel(): string {
        return "${this.label()} in bin ${bin}";
    }
}

/// Sums the amounts of a list of records.
/// @param records the records to add up
/// @return the total amount
fn totalAmount@(records: Record@[]): int {
    var total = 0;
    for (record in records) {
        total += record.count();
    }
    return total;
}

/// Says how many there are, in words.
fn classify@(n: int): string {
    switch (n) {
        case 0:
            return "none";
        case 1:
            return "one";
        default:
            break;
    }
    return "many";
}

/// The first value above the limit, or -1.
fn firstAbove@(values: int[], limit: int): int {
    for (var i = 0; i < values.length; i++) {
        if (values[i] > limit) {
            return values[i];
        }
    }
    return -1;
}

/// Counts down from the start and says how many steps it took.
fn countDown@(start: int): int {
    var steps = 0;
    var current = start;
    while (current > 0) {
        current -= 1;
        steps++;
    }
    do {
        steps--;
    } while (steps > 100);
    return steps;
}

/// Every value multiplied by the factor.
fn scaled@(values: int[], factor: int): int[] {
    let result = values.map((int x) => x * factor);
    return result;
}

/// Builds a few records and reports on them.
fn report@(): string {
    let first = new Record@(3, "bolts");
    let second = new BinRecord@(5, "nuts", 7);
    let records = [first, new Record@(2, "nails")];
    let box = new Holder@<int>(42);
    let held = box.get();
    let total = totalAmount@(records);
    let label = second.binLabel();
    let table = {"bolts": 1, "nuts": 2};
    let kinds = table.size();
    let big = firstAbove@(scaled@([1, 2, 3], 2), countDown@(2));
    return "total ${total} for ${label}, held ${held}, ${kinds} kinds, ${classify@(total)} ${big}";
}

)";

constexpr std::string_view QUOR_HEADER = R"(/// Stock levels of the warehouse, generated for measurements.
module stock_levels;

import std.math;

)";

// The C unit mirrors the Quor unit: the same declarations, bodies and line
// count, written as a C programmer would.
constexpr std::string_view C_UNIT = R"(/* Kinds of stock held in section @ of the warehouse. */
enum Category@ { Raw@, Finished@ = 2, Spare@ };

/* Anything that can be counted and named. */
struct Countable@ {
    int (*count)(void *self);
    const char *(*label)(void *self);
};

/* A box holding one value of any type. */
struct Holder@ {
    void *value;
};

static void Holder@_init(struct Holder@ *self, void *value) {
        self->value = value;
}

/* The value held. */
static void *Holder@_get(struct Holder@ *self) {
        return self->value;
}

/* A stock record that can be counted. */
struct Record@ {
    int amount;
    const char *name;
};

static void Record@_init(struct Record@ *self, int amount, const char *name) {
        self->amount = amount;
        self->name = name;
}

/* How many items the record holds.
 * returns the number of items */
static int Record@_count(struct Record@ *self) {
        return self->amount;
}

static const char *Record@_label(struct Record@ *self) {
        return self->name;
}

/* A record kept in one bin of the store. */
struct BinRecord@ {
    struct Record@ base;
    int bin;
};
static void BinRecord@_init(struct BinRecord@ *self, int amount, const char *name, int bin) {
        Record@_init(&self->base, amount, name);
        self->bin = bin;
}

/* The record's label with its bin behind it. */
static const char *BinRecord@_binLabel(struct BinRecord@ *self) {
        return Record@_label(&self->base);
}

/* Sums the amounts of a list of records.
 * records: the records to add up
 * returns the total amount */
static int totalAmount@(struct Record@ *records, int n) {
    int total = 0;
    for (int i = 0; i < n; i++) {
        total += Record@_count(&records[i]);
    }
    return total;
}

/* Says how many there are, in words. */
static const char *classify@(int n) {
    switch (n) {
        case 0:
            return "none";
        case 1:
            return "one";
        default:
            break;
    }
    return "many";
}

/* The first value above the limit, or -1. */
static int firstAbove@(const int *values, int n, int limit) {
    for (int i = 0; i < n; i++) {
        if (values[i] > limit) {
            return values[i];
        }
    }
    return -1;
}

/* Counts down from the start and says how many steps it took. */
static int countDown@(int start) {
    int steps = 0;
    int current = start;
    while (current > 0) {
        current -= 1;
        steps++;
    }
    do {
        steps--;
    } while (steps > 100);
    return steps;
}

/* Every value multiplied by the factor. */
static void scaled@(int *values, int n, int factor) {
    for (int i = 0; i < n; i++) values[i] = values[i] * factor;
    return;
}

/* Builds a few records and reports on them. */
static int report@(char *out, unsigned long size) {
    struct Record@ first; Record@_init(&first, 3, "bolts");
    struct BinRecord@ second; BinRecord@_init(&second, 5, "nuts", 7);
    struct Record@ records[2] = {first, {2, "nails"}};
    int fortyTwo = 42; struct Holder@ box; Holder@_init(&box, &fortyTwo);
    int held = *(int *)Holder@_get(&box);
    int total = totalAmount@(records, 2);
    const char *label = BinRecord@_binLabel(&second);
    const char *table[2] = {"bolts", "nuts"};
    int kinds = (int)(sizeof table / sizeof table[0]);
    int values[3] = {1, 2, 3}; scaled@(values, 3, 2); int big = firstAbove@(values, 3, countDown@(2));
    return snprintf(out, size, "total %d for %s, held %d, %d kinds, %s %d", total, label, held, kinds, classify@(total), big);
}

)";

constexpr std::string_view C_HEADER = R"(/* Stock levels of the warehouse, generated for measurements. */
#include <stdio.h>

/* (import std.math has no counterpart here) */

)";

// Builds a document of exactly `lines` lines from a header, as many whole
// units as fit, and one-line fillers for the rest.
inline std::string buildDocument(std::size_t lines, std::string_view header, std::string_view unit,
                                 std::string_view filler) {
    const std::size_t headerLines = countLines(header);
    const std::size_t unitLines = countLines(unit);
    std::string out;
    out.reserve(lines * 40 + header.size());
    std::size_t written = 0;
    if (lines >= headerLines) {
        out.append(header);
        written = headerLines;
    }
    std::size_t copy = 0;
    while (written + unitLines <= lines) {
        appendWithSuffix(out, unit, std::to_string(copy++));
        written += unitLines;
    }
    for (std::size_t index = 0; written < lines; ++index, ++written) {
        appendWithSuffix(out, filler, std::to_string(index));
    }
    return out;
}

}  // namespace detail

// Number of lines of one copy of the realistic unit.
inline std::size_t realisticUnitLines() { return detail::countLines(detail::QUOR_UNIT); }

// A semantically clean Quor document of exactly `lines` lines: a module
// header, then copies of a unit with an enum, an interface, a generic class,
// a class implementing the interface and a subclass of it, and functions with
// doc comments, loops, a switch, a lambda, collection literals and string
// interpolation. Every name carries its copy's number, so nothing is declared
// twice; one-line functions fill up the last lines.
inline std::string realisticDocument(std::size_t lines) {
    return detail::buildDocument(lines, detail::QUOR_HEADER, detail::QUOR_UNIT,
                                 "fn filler@(): int { return 1; }\n");
}

// A C file of the same shape and line count as `realisticDocument(lines)`.
inline std::string realisticCDocument(std::size_t lines) {
    return detail::buildDocument(lines, detail::C_HEADER, detail::C_UNIT,
                                 "static int filler@(void) { return 1; }\n");
}

// A zero-based place in a text, as the protocol counts it.
struct TextPosition {
    std::int32_t line = -1;
    std::int32_t character = -1;
};

// The place of the first occurrence of `word` at or after line `fromLine`
// (zero-based), or {-1, -1}.
inline TextPosition findWord(std::string_view text, std::string_view word, std::int32_t fromLine = 0) {
    std::int32_t line = 0;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        if (line >= fromLine) {
            std::size_t at = text.substr(start, end - start).find(word);
            if (at != std::string_view::npos) return {line, static_cast<std::int32_t>(at)};
        }
        start = end + 1;
        ++line;
    }
    return {};
}

// ---- adversarial documents ---------------------------------------------

struct AdversarialDocument {
    std::string name;
    std::string text;
};

// `return a < a < ... < a;`: 200,000 comparisons in one expression, whose
// every `<` could open a type argument list.
inline std::string lessThanChainDocument() {
    std::string out = "fn lessChain(a: int): bool {\n    return a";
    for (int i = 0; i < 200000; ++i) out.append(" < a");
    out.append(";\n}\n");
    return out;
}

// `head`, then `depth` openers, `core`, as many closers, and `tail`.
inline std::string nestedDocument(std::string_view head, char opener, std::string_view core, char closer,
                                  std::string_view tail, std::size_t depth = 100000) {
    std::string out(head);
    out.append(depth, opener);
    out.append(core);
    out.append(depth, closer);
    out.append(tail);
    return out;
}

// One expression nested 100,000 parentheses deep.
inline std::string nestedParenthesesDocument() {
    return nestedDocument("fn deepParentheses(): int {\n    return ", '(', "1", ')', ";\n}\n");
}

// One array literal nested 100,000 brackets deep.
inline std::string nestedBracketsDocument() {
    return nestedDocument("fn deepBrackets() {\n    let deep = ", '[', "1", ']', ";\n}\n");
}

// A function body of 100,000 nested blocks.
inline std::string nestedBlocksDocument() { return nestedDocument("fn deepBlocks() ", '{', "\n", '}', "\n"); }

// 20,000 functions, each below a two-line doc block.
inline std::string docBlocksDocument() {
    std::string out;
    for (int i = 0; i < 20000; ++i) {
        detail::appendWithSuffix(out,
                                 "/// Unit @.\n/// @param x the value\nfn documented@(x: int): int { return x; }\n",
                                 std::to_string(i));
    }
    return out;
}

// About 1 MB of comments and nothing else: line comments, doc comments and
// block comments.
inline std::string onlyCommentsDocument() {
    std::string out;
    for (int i = 0; out.size() < 1000000; ++i) {
        switch (i % 3) {
            case 0:
                out.append("// a plain comment line that says nothing at all, number ");
                break;
            case 1:
                out.append("/// a doc comment line that documents nothing, number ");
                break;
            default:
                out.append("/* a block comment\n   over two lines, number ");
                break;
        }
        out.append(std::to_string(i));
        out.append(i % 3 == 2 ? " */\n" : "\n");
    }
    return out;
}

// One string literal of 1,000,000 bytes.
inline std::string hugeStringDocument() {
    std::string out = "let huge = \"";
    for (int i = 0; i < 1000000; ++i) out.push_back(static_cast<char>('a' + i % 26));
    out.append("\";\n");
    return out;
}

// 50,000 lines, each with one byte that starts no token: 50,000 scanner
// diagnostics.
inline std::string manyDiagnosticsDocument() {
    std::string out;
    for (int i = 0; i < 50000; ++i) {
        detail::appendWithSuffix(out, "let v@ = 1 # 2;\n", std::to_string(i));
    }
    return out;
}

// 10,000 classes, each extending the one before, each with a field and a
// method.
inline std::string classChainDocument() {
    std::string out = "class Link0 {\n    public int field0;\n    public fn method0(): int { return 0; }\n}\n";
    for (int i = 1; i < 10000; ++i) {
        const std::string n = std::to_string(i);
        const std::string before = std::to_string(i - 1);
        out.append("class Link" + n + " extends Link" + before + " {\n    public int field" + n +
                   ";\n    public fn method" + n + "(): int { return " + n + "; }\n}\n");
    }
    return out;
}

// 10,000 overloads of one name: every parameter list of four parameters
// over ten types.
inline std::string overloadsDocument() {
    constexpr std::string_view TYPES[] = {"int",    "uint",   "int64", "uint64", "float",
                                          "double", "string", "bool",  "char",   "int16"};
    std::string out;
    for (int i = 0; i < 10000; ++i) {
        out.append("fn overloaded(a: ");
        out.append(TYPES[i % 10]);
        out.append(", b: ");
        out.append(TYPES[(i / 10) % 10]);
        out.append(", c: ");
        out.append(TYPES[(i / 100) % 10]);
        out.append(", d: ");
        out.append(TYPES[(i / 1000) % 10]);
        out.append("): int { return " + std::to_string(i) + "; }\n");
    }
    return out;
}

// A parameter whose type text nests 10,000 deep. The closing brackets stand
// apart, as ">>" is one token that closes no type argument list.
inline std::string deepTypeDocument() {
    std::string out = "fn deepType(x: ";
    for (int i = 0; i < 10000; ++i) out.append("Map<string, ");
    out.append("int");
    for (int i = 0; i < 10000; ++i) out.append(" >");
    out.append("): int {\n    return 0;\n}\n");
    return out;
}

inline std::vector<AdversarialDocument> adversarialDocuments() {
    return {
        {"less-than chain", lessThanChainDocument()},
        {"100k nested parentheses", nestedParenthesesDocument()},
        {"100k nested brackets", nestedBracketsDocument()},
        {"100k nested blocks", nestedBlocksDocument()},
        {"20k doc blocks, 20k functions", docBlocksDocument()},
        {"only comments", onlyCommentsDocument()},
        {"1 MB string literal", hugeStringDocument()},
        {"50k diagnostics", manyDiagnosticsDocument()},
        {"10k-class extends chain", classChainDocument()},
        {"10k overloads", overloadsDocument()},
        {"type nested 10k deep", deepTypeDocument()},
    };
}

}  // namespace quor::bench
