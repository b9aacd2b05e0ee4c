#include <gtest/gtest.h>

#include <string>

#include "fmt/FormatTestSupport.h"

using quor::fmt::Formatter;
using quor::fmt::testing::formatSource;
using quor::fmt::testing::serverOptions;

// Whole programs run through the formatter with the server's settings. The
// expected texts were worked out token by token from the placing rules, odd
// spacings (joined words, spaced generics, quote-less strings) included.

namespace {

const char* const SHAPES_SOURCE = R"(/// Geometry helpers used in the tour of the editor features.
module shapes;

import std.math;

/// A point on the plane.
struct Point {
    x: float;
    y: float;
}

/// Anything that has an area.
interface Shape {
    fn area(): float;
    fn name(): string;
}

/// A circle around the origin.
class Circle implements Shape {
    private float radius;

    Circle(float radius) {
        this.radius = radius;
    }

    /// The area of the circle.
    /// @return the area in square units
    public fn area(): float {
        return 3.14159 * radius * radius;
    }

    public fn name(): string => "circle";
}

/// The colours a shape can be drawn in.
enum Colour { Red, Green = 2, Blue }

/// Adds two numbers.
/// @param a the first number
/// @param b the second number
/// @return their sum
fn add(a: int, b: int): int {
    return a + b;
}

fn describe(s: Shape?): string {
    let n = s?.name() ?? "nothing";
    return "shape ${n} with area ${s?.area()}";
}

const LIMIT = 10;

test "add works" {
    assert(add(1, 2) == 3);
}
)";

const char* const SHAPES_FORMATTED = R"(/// Geometry helpers used in the tour of the editor features.
module shapes;

import std.math;

/// A point on the plane.
struct Point {
    x: float;
    y: float;
}

/// Anything that has an area.
interface Shape {
    fn area(): float;
    fn name(): string;
}

/// A circle around the origin.
class Circleimplements Shape {
    private float radius;

    Circle(float radius) {
        this .radius = radius;
    }

    /// The area of the circle.
    /// @return the area in square units
    public fn area(): float {
        return 3.14159 * radius * radius;
    }

    public fn name(): string => circle;
}

/// The colours a shape can be drawn in.
enum Colour {
    Red, Green = 2, Blue
}

/// Adds two numbers.
/// @param a the first number
/// @param b the second number
/// @return their sum
fn add(a: int, b: int): int {
    return a + b;
}

fn describe(s: Shape ?): string {
    let n = s?.name() ?? nothing;
    return shape ${n} with area ${s?.area()};
}

const LIMIT = 10;

test add works {
    assert (add(1, 2) == 3);
}
)";

const char* const COLLECTIONS_SOURCE = R"(/// Small collection utilities.
module collections;

/// A box holding one value.
class Box<T> {
    private T value;

    Box(T value) {
        this.value = value;
    }

    public fn get(): T {
        return value;
    }
}

/// Sums the elements of a list.
/// @param items the numbers to add up
fn sum(items: List<int>): int {
    var total = 0;
    for (item in items) {
        total += item;
    }
    return total;
}

fn classify(n: int): string {
    switch (n) {
        case 0:
            return "zero";
        case 1:
            return "one";
        default:
            return "many";
    }
}

fn sign(n: int): int {
    match n {
        0 => { return 0; },
        _ => { return n > 0 ? 1 : -1; }
    }
    return 0;
}

fn firstPositive(values: int[]): int? {
    for (var i = 0; i < values.length; i++) {
        if (values[i] > 0) {
            return values[i];
        }
    }
    return null;
}

fn safeDivide(a: int, b: int): int {
    try {
        if (b == 0) {
            throw "division by zero";
        }
        return a / b;
    } catch (string e) {
        return 0;
    } finally {
        print("done");
    }
}

fn main() {
    let numbers = [1, 2, 3];
    let doubled = numbers.map((int x) => x * 2);
    let box = new Box<int>(42);
    let table = {"one": 1, "two": 2};
    print("sum is ${sum(doubled)} and box holds ${box.get()}");
    var i = 0;
    while (i < 3) {
        i++;
    }
    do {
        i--;
    } while (i > 0);
}
)";

const char* const COLLECTIONS_FORMATTED = R"(/// Small collection utilities.
module collections;

/// A box holding one value.
class Box < T > {
    private Tvalue;

    Box(Tvalue) {
        this .value = value;
    }

    public fn get(): T {
        return value;
    }
}

/// Sums the elements of a list.
/// @param items the numbers to add up
fn sum(items: List < int >): int {
    var total = 0;
    for (iteminitems) {
        total += item;
    }
    return total;
}

fn classify(n: int): string {
    switch (n) {
        case 0: return zero;
        case 1: return one;
        default : return many;
    }
}

fn sign(n: int): int {
    match n {
        0 => {
            return 0;
        }, _ => {
            return n > 0 ? 1:-1;
        }
    }
    return 0;
}

fn firstPositive(values: int []): int ? {
    for (var i = 0; i < values.length; i++) {
        if (values[i] > 0) {
            return values[i];
        }
    }
    return null;
}

fn safeDivide(a: int, b: int): int {
    try {
        if (b == 0) {
            throw division by zero;
        }
        return a / b;
    } catch (string e) {
        return 0;
    } finally {
        print(done);
    }
}

fn main() {
    let numbers = [1, 2, 3];
    let doubled = numbers.map((int x) => x * 2);
    let box = new Box < int > (42);
    let table = {
        one: 1, two: 2
    };
    print(sum is ${sum(doubled)} and box holds ${box.get()});
    var i = 0;
    while (i < 3) {
        i++;
    }
    do {
        i--;
    }
    while (i > 0);
}
)";

}  // namespace

TEST(FormatterWholePrograms, ShapesModule) { EXPECT_EQ(formatSource(SHAPES_SOURCE), SHAPES_FORMATTED); }

TEST(FormatterWholePrograms, CollectionsModule) {
    EXPECT_EQ(formatSource(COLLECTIONS_SOURCE), COLLECTIONS_FORMATTED);
}

TEST(FormatterWholePrograms, ElseIfChainWithTrailingComment) {
    const std::string source =
        "fn clamp(v: int, lo: int, hi: int): int {\n"
        "    if (v < lo) { return lo; } // too small\n"
        "    else if (v > hi) {\n"
        "        return hi;\n"
        "    }\n"
        "    return v;\n"
        "}\n";
    const std::string expected =
        "fn clamp(v: int, lo: int, hi: int): int {\n"
        "    if (v < lo) {\n"
        "        return lo;\n"
        "    }\n"
        "    // too small\n"
        "    else if (v > hi) {\n"
        "        return hi;\n"
        "    }\n"
        "    return v;\n"
        "}\n";
    EXPECT_EQ(formatSource(source), expected);
}

TEST(FormatterWholePrograms, LambdasAndNegativeNumbers) {
    const std::string source =
        "let f = (x: int) -> x * -1;\n"
        "var total = 0;\n"
        "total -= -5;\n"
        "print(f(3), -total);\n";
    const std::string expected =
        "let f = (x: int) -> x * -1;\n"
        "var total = 0;\n"
        "total -= -5;\n"
        "print(f(3),-total);\n";
    EXPECT_EQ(formatSource(source), expected);
}

TEST(FormatterWholePrograms, SubclassCallingSuper) {
    const std::string source = "class Square extends Shape {\n    Square(float side) { super(side); }\n}\n";
    const std::string expected =
        "class Squareextends Shape {\n"
        "    Square(float side) {\n"
        "        super (side);\n"
        "    }\n"
        "}\n";
    EXPECT_EQ(formatSource(source), expected);
}

TEST(FormatterWholePrograms, NestedGenericTypeWithEmptyMapLiteral) {
    EXPECT_EQ(formatSource("var m: Map<string, List<int>> = {};"), "var m: Map < string, List < int >> = {\n};\n");
}

TEST(FormatterWholePrograms, CarriageReturnsAreDropped) {
    EXPECT_EQ(formatSource("fn f() {\r\n    return 1;\r\n}\r\n"), "fn f() {\n    return 1;\n}\n");
}

TEST(FormatterWholePrograms, EscapedQuotesAreWrittenDecoded) {
    EXPECT_EQ(formatSource("print(\"a \\\"b\\\"\");"), "print(a \"b\");\n");
}

TEST(FormatterWholePrograms, HandWrittenSourcesAreNotFormatted) {
    Formatter formatter(serverOptions());
    EXPECT_FALSE(formatter.isFormatted(SHAPES_SOURCE));
    EXPECT_FALSE(formatter.isFormatted(COLLECTIONS_SOURCE));
}

TEST(FormatterWholePrograms, TextAlreadyInFormattedShapeIsFormatted) {
    const std::string text =
        "fn add(a: int, b: int): int {\n"
        "    return a + b;\n"
        "}\n"
        "\n"
        "fn main() {\n"
        "    var i = 0;\n"
        "    while (i < 3) {\n"
        "        i++;\n"
        "    }\n"
        "}\n";
    EXPECT_TRUE(Formatter(serverOptions()).isFormatted(text));
}
