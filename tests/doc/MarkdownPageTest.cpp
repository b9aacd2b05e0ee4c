#include <gtest/gtest.h>

#include <string>

#include "DocTestSupport.h"
#include "RenderTestSupport.h"

using quor::doc::DocEntry;
using quor::doc::DocKind;
using quor::doc::DocModule;
using namespace quor::doc::testing;

namespace {

std::string markdown(const DocModule& module) { return standardGenerator().renderMarkdown(module); }

// The page of a module holding `entries` and nothing else, down to the rule under the contents.
std::string pageHead(const std::string& contents) {
    return "# Module `m`\n\n## Table of Contents\n\n" + contents + "\n---\n\n";
}

DocEntry function(const std::string& name, const std::string& signature, const std::string& returnType) {
    DocEntry entry = makeEntry(name, DocKind::Function, signature);
    entry.returnType = returnType;
    return entry;
}

}  // namespace

TEST(MarkdownPage, ModuleWithoutEntriesHasAContentsHeadingWithNothingUnderIt) {
    EXPECT_EQ(markdown(makeModule("empty")), "# Module `empty`\n\n## Table of Contents\n\n\n---\n\n");
}

TEST(MarkdownPage, ModuleDescriptionStandsBetweenTitleAndContents) {
    DocModule module = makeModule("m");
    module.description = "Line one.\n\nLine two.";
    module.brief = "Line one.";
    EXPECT_EQ(markdown(module), "# Module `m`\n\nLine one.\n\nLine two.\n\n## Table of Contents\n\n\n---\n\n");
}

TEST(MarkdownPage, WholePageGroupsByKindWithFunctionsFirstAndClassesFirstInTheContents) {
    DocModule module = makeModule("geometry");
    module.description = "Shapes and sizes.";

    module.entries.push_back(makeEntry("origin", DocKind::Variable, "let origin: Point"));

    DocEntry circle = withDoc(makeEntry("Circle", DocKind::Class, "class Circle"), "A circle.\n\nRound.", "A circle.");
    circle.members.push_back(
        withDoc(makeEntry("area", DocKind::Method, "public fn area(): float"), "The area.", "The area."));
    circle.members.push_back(makeEntry("radius", DocKind::Field, "let radius: float"));
    module.entries.push_back(circle);

    DocEntry scale = function("scale", "fn scale(factor: float): void", "void");
    scale.params.push_back(makeParam("factor", "float"));
    module.entries.push_back(scale);

    DocEntry colour = makeEntry("Colour", DocKind::Enum, "enum Colour");
    colour.members.push_back(makeEntry("Red", DocKind::Field, "Red"));
    colour.members.push_back(withDoc(makeEntry("Green", DocKind::Field, "Green"), "Grass.", "Grass."));
    module.entries.push_back(colour);

    DocEntry shape = makeEntry("Shape", DocKind::Interface, "interface Shape");
    shape.members.push_back(makeEntry("area", DocKind::Method, "fn area(): float"));
    module.entries.push_back(shape);

    DocEntry point = makeEntry("Point", DocKind::Struct, "struct Point");
    point.members.push_back(makeEntry("x", DocKind::Field, "x: float"));
    point.members.push_back(makeEntry("y", DocKind::Field, "y: float"));
    module.entries.push_back(point);

    DocEntry add = withDoc(function("add", "fn add(a: int, b: int): int", "int"), "Adds.", "Adds.");
    add.params.push_back(makeParam("a", "int", "the first"));
    add.params.push_back(makeParam("b", "int"));
    add.returnDescription = "their sum";
    module.entries.push_back(add);

    module.entries.push_back(withDoc(makeEntry("LIMIT", DocKind::Variable, "const LIMIT: int"), "The limit.", "The limit."));

    const std::string expected =
        "# Module `geometry`\n\n"
        "Shapes and sizes.\n\n"
        "## Table of Contents\n\n"
        "- [Classes](#classes)\n"
        "  - [`Circle`](#class-Circle)\n"
        "- [Interfaces](#interfaces)\n"
        "  - [`Shape`](#interface-Shape)\n"
        "- [Structs](#structs)\n"
        "  - [`Point`](#struct-Point)\n"
        "- [Enums](#enums)\n"
        "  - [`Colour`](#enum-Colour)\n"
        "- [Functions](#functions)\n"
        "  - [`scale`](#fn-scale)\n"
        "  - [`add`](#fn-add)\n"
        "- [Variables & Constants](#variables--constants)\n"
        "\n---\n\n"
        "## Functions\n\n"
        "### `fn scale`\n\n"
        "```quor\nfn scale(factor: float): void\n```\n\n"
        "**Parameters:**\n\n"
        "- `factor: float`\n"
        "\n"
        "---\n\n"
        "### `fn add`\n\n"
        "```quor\nfn add(a: int, b: int): int\n```\n\n"
        "Adds.\n\n"
        "**Parameters:**\n\n"
        "- `a: int` - the first\n"
        "- `b: int`\n"
        "\n"
        "**Returns:** `int` - their sum\n\n"
        "---\n\n"
        "## Classes\n\n"
        "### `class Circle`\n\n"
        "```quor\nclass Circle\n```\n\n"
        "A circle.\n\nRound.\n\n"
        "#### Members\n\n"
        "- `public fn area(): float` - The area.\n"
        "- `let radius: float`\n"
        "\n"
        "---\n\n"
        "## Interfaces\n\n"
        "### `interface Shape`\n\n"
        "```quor\ninterface Shape\n```\n\n"
        "#### Methods\n\n"
        "- `fn area(): float`\n"
        "\n"
        "---\n\n"
        "## Structs\n\n"
        "### `struct Point`\n\n"
        "```quor\nstruct Point\n```\n\n"
        "#### Fields\n\n"
        "- `x: float`\n"
        "- `y: float`\n"
        "\n"
        "---\n\n"
        "## Enums\n\n"
        "### `enum Colour`\n\n"
        "```quor\nenum Colour\n```\n\n"
        "#### Variants\n\n"
        "- `Red`\n"
        "- `Green`\n"
        "\n"
        "---\n\n"
        "## Variables & Constants\n\n"
        "- `let origin: Point`\n"
        "- `const LIMIT: int` - The limit.\n"
        "\n";
    EXPECT_EQ(markdown(module), expected);
}

TEST(MarkdownPage, VoidFunctionHasNoReturnsLine) {
    DocModule module = makeModule("m", {function("log", "fn log(): void", "void")});
    EXPECT_EQ(markdown(module), pageHead("- [Functions](#functions)\n  - [`log`](#fn-log)\n") +
                                    "## Functions\n\n### `fn log`\n\n```quor\nfn log(): void\n```\n\n---\n\n");
}

TEST(MarkdownPage, FunctionWithEmptyReturnTypeHasNoReturnsLine) {
    DocModule module = makeModule("m", {function("log", "fn log()", "")});
    EXPECT_EQ(markdown(module).find("**Returns:**"), std::string::npos);
}

TEST(MarkdownPage, ReturnsLineWithoutDescriptionEndsAtTheType) {
    DocModule module = makeModule("m", {function("one", "fn one(): int", "int")});
    EXPECT_EQ(markdown(module), pageHead("- [Functions](#functions)\n  - [`one`](#fn-one)\n") +
                                    "## Functions\n\n### `fn one`\n\n```quor\nfn one(): int\n```\n\n"
                                    "**Returns:** `int`\n\n---\n\n");
}

TEST(MarkdownPage, GenericSignatureIsLeftAsWritten) {
    DocEntry first = function("first", "fn first<T>(items: List<T>): T", "T");
    first.params.push_back(makeParam("items", "List<T>", "a <non-empty> list"));
    DocModule module = makeModule("m", {first});
    EXPECT_EQ(markdown(module), pageHead("- [Functions](#functions)\n  - [`first`](#fn-first)\n") +
                                    "## Functions\n\n### `fn first`\n\n```quor\nfn first<T>(items: List<T>): T\n```\n\n"
                                    "**Parameters:**\n\n- `items: List<T>` - a <non-empty> list\n\n"
                                    "**Returns:** `T`\n\n---\n\n");
}

TEST(MarkdownPage, VariableWithoutBriefIsOneListLine) {
    DocEntry count = makeEntry("count", DocKind::Variable, "let count: int");
    count.returnType = "int";
    DocModule module = makeModule("m", {count});
    EXPECT_EQ(markdown(module), pageHead("- [Variables & Constants](#variables--constants)\n") +
                                    "## Variables & Constants\n\n- `let count: int`\n\n");
}

TEST(MarkdownPage, VariableListShowsTheBriefNotTheDescription) {
    DocModule module =
        makeModule("m", {withDoc(makeEntry("MAX", DocKind::Variable, "const MAX: int"), "Largest.\nMore.", "Largest.")});
    EXPECT_EQ(markdown(module), pageHead("- [Variables & Constants](#variables--constants)\n") +
                                    "## Variables & Constants\n\n- `const MAX: int` - Largest.\n\n");
}

TEST(MarkdownPage, TypeWithoutMembersHasNoMembersHeading) {
    DocModule module = makeModule("m", {makeEntry("Empty", DocKind::Class, "class Empty")});
    EXPECT_EQ(markdown(module), pageHead("- [Classes](#classes)\n  - [`Empty`](#class-Empty)\n") +
                                    "## Classes\n\n### `class Empty`\n\n```quor\nclass Empty\n```\n\n---\n\n");
}

TEST(MarkdownPage, EnumVariantsAreNamesWithoutBriefs) {
    DocEntry colour = makeEntry("Colour", DocKind::Enum, "enum Colour");
    colour.members.push_back(withDoc(makeEntry("Red", DocKind::Field, "Red = 1"), "Warm.", "Warm."));
    DocModule module = makeModule("m", {colour});
    EXPECT_EQ(markdown(module), pageHead("- [Enums](#enums)\n  - [`Colour`](#enum-Colour)\n") +
                                    "## Enums\n\n### `enum Colour`\n\n```quor\nenum Colour\n```\n\n"
                                    "#### Variants\n\n- `Red`\n\n---\n\n");
}

TEST(MarkdownPage, ClassSectionShowsNeitherParametersNorReturns) {
    DocEntry box = makeEntry("Box", DocKind::Class, "class Box");
    box.params.push_back(makeParam("value", "int"));
    box.returnType = "int";
    DocModule module = makeModule("m", {box});
    EXPECT_EQ(markdown(module), pageHead("- [Classes](#classes)\n  - [`Box`](#class-Box)\n") +
                                    "## Classes\n\n### `class Box`\n\n```quor\nclass Box\n```\n\n---\n\n");
}

TEST(MarkdownPage, EntriesOfOtherKindsAreDropped) {
    DocModule module = makeModule("m", {makeEntry("run", DocKind::Method, "public fn run(): void"),
                                        makeEntry("size", DocKind::Field, "let size: int"),
                                        makeEntry("inner", DocKind::Module, "module inner")});
    EXPECT_EQ(markdown(module), pageHead(""));
}

TEST(MarkdownPage, EntriesKeepSourceOrderWithinTheirGroup) {
    DocModule module = makeModule("m", {function("zeta", "fn zeta(): void", "void"),
                                        makeEntry("Beta", DocKind::Struct, "struct Beta"),
                                        function("alpha", "fn alpha(): void", "void"),
                                        makeEntry("Alpha", DocKind::Struct, "struct Alpha")});
    EXPECT_EQ(markdown(module),
              pageHead("- [Structs](#structs)\n  - [`Beta`](#struct-Beta)\n  - [`Alpha`](#struct-Alpha)\n"
                       "- [Functions](#functions)\n  - [`zeta`](#fn-zeta)\n  - [`alpha`](#fn-alpha)\n") +
                  "## Functions\n\n"
                  "### `fn zeta`\n\n```quor\nfn zeta(): void\n```\n\n---\n\n"
                  "### `fn alpha`\n\n```quor\nfn alpha(): void\n```\n\n---\n\n"
                  "## Structs\n\n"
                  "### `struct Beta`\n\n```quor\nstruct Beta\n```\n\n---\n\n"
                  "### `struct Alpha`\n\n```quor\nstruct Alpha\n```\n\n---\n\n");
}

TEST(MarkdownPage, ExtractedFunctionShowsItsTags) {
    DocModule module = extract(
        "/// Adds two numbers.\n"
        "/// @param a the first number\n"
        "/// @return their sum\n"
        "fn add(a: int, b: int): int {\n"
        "    return a + b;\n"
        "}\n");
    EXPECT_EQ(markdown(module),
              "# Module `demo`\n\n"
              "## Table of Contents\n\n"
              "- [Functions](#functions)\n"
              "  - [`add`](#fn-add)\n"
              "\n---\n\n"
              "## Functions\n\n"
              "### `fn add`\n\n"
              "```quor\nfn add(a: int, b: int): int\n```\n\n"
              "Adds two numbers.\n\n"
              "**Parameters:**\n\n"
              "- `a: int` - the first number\n"
              "- `b: int`\n"
              "\n"
              "**Returns:** `int` - their sum\n\n"
              "---\n\n");
}

TEST(MarkdownPage, ExtractedModuleDeclarationGivesTitleAndLead) {
    DocModule module = extract(
        "/// Geometry helpers.\n"
        "module shapes;\n"
        "\n"
        "/// A point.\n"
        "struct Point {\n"
        "    x: float;\n"
        "}\n");
    EXPECT_EQ(markdown(module),
              "# Module `shapes`\n\n"
              "Geometry helpers.\n\n"
              "## Table of Contents\n\n"
              "- [Structs](#structs)\n"
              "  - [`Point`](#struct-Point)\n"
              "\n---\n\n"
              "## Structs\n\n"
              "### `struct Point`\n\n"
              "```quor\nstruct Point\n```\n\n"
              "A point.\n\n"
              "#### Fields\n\n"
              "- `x: float`\n"
              "\n"
              "---\n\n");
}
