// Whole Markdown pages compared byte for byte: the contents list, the
// grouping by kind, the section order and every optional piece.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DocTestSupport.h"
#include "RenderTestSupport.h"

namespace quor::doc::testing {
namespace {

DocModule fullModule() {
    DocEntry limit = withDoc(makeEntry("LIMIT", DocKind::Variable, "const LIMIT: int"), "The limit.\nMore.", "The limit.");
    limit.returnType = "int";

    DocEntry add = withDoc(makeEntry("add", DocKind::Function, "fn add(a: int, b: int): int"),
                           "Adds two numbers.\n\nMore text.", "Adds two numbers.");
    add.params = {makeParam("a", "int", "first"), makeParam("b", "int")};
    add.returnType = "int";
    add.returnDescription = "the sum";

    DocEntry point = withDoc(makeEntry("Point", DocKind::Class, "class Point"), "A point.", "A point.");
    point.members = {withDoc(makeEntry("x", DocKind::Field, "let x: int"), "X coord.\nLong.", "X coord."),
                     makeEntry("len", DocKind::Method, "public fn len(): float")};

    DocEntry shape = makeEntry("Shape", DocKind::Interface, "interface Shape");
    shape.members = {makeEntry("area", DocKind::Method, "fn area(): float")};

    DocEntry pair = makeEntry("Pair", DocKind::Struct, "struct Pair");
    pair.members = {withDoc(makeEntry("first", DocKind::Field, "first: int"), "The first.", "The first.")};

    DocEntry color = withDoc(makeEntry("Color", DocKind::Enum, "enum Color"), "Colours.", "Colours.");
    color.members = {withDoc(makeEntry("Red", DocKind::Field, "Red = 1"), "Warm.", "Warm."),
                     makeEntry("Green", DocKind::Field, "Green")};

    DocEntry log = makeEntry("log", DocKind::Function, "fn log(msg: string): void");
    log.params = {makeParam("msg", "string")};
    log.returnType = "void";
    log.returnDescription = "ignored for void";

    DocEntry counter = makeEntry("counter", DocKind::Variable, "let counter: int");
    counter.returnType = "int";

    DocEntry unit = makeEntry("Unit", DocKind::Struct, "struct Unit");

    DocModule module = makeModule("demo", {limit, add, makeEntry("stray", DocKind::Method, "public fn stray(): void"),
                                           point, shape, pair, color, log,
                                           makeEntry("loose", DocKind::Field, "loose: int"),
                                           makeEntry("inner", DocKind::Module, "module inner"), counter, unit});
    module.description = "The demo module.\nSecond line.";
    module.brief = "The demo module.";
    return module;
}

TEST(MarkdownText, FullPage) {
    const std::string expected =
        "# Module `demo`\n\n"
        "The demo module.\nSecond line.\n\n"
        "## Table of Contents\n\n"
        "- [Classes](#classes)\n"
        "  - [`Point`](#class-Point)\n"
        "- [Interfaces](#interfaces)\n"
        "  - [`Shape`](#interface-Shape)\n"
        "- [Structs](#structs)\n"
        "  - [`Pair`](#struct-Pair)\n"
        "  - [`Unit`](#struct-Unit)\n"
        "- [Enums](#enums)\n"
        "  - [`Color`](#enum-Color)\n"
        "- [Functions](#functions)\n"
        "  - [`add`](#fn-add)\n"
        "  - [`log`](#fn-log)\n"
        "- [Variables & Constants](#variables--constants)\n"
        "\n---\n\n"
        "## Functions\n\n"
        "### `fn add`\n\n"
        "```quor\nfn add(a: int, b: int): int\n```\n\n"
        "Adds two numbers.\n\nMore text.\n\n"
        "**Parameters:**\n\n"
        "- `a: int` - first\n"
        "- `b: int`\n"
        "\n"
        "**Returns:** `int` - the sum\n\n"
        "---\n\n"
        "### `fn log`\n\n"
        "```quor\nfn log(msg: string): void\n```\n\n"
        "**Parameters:**\n\n"
        "- `msg: string`\n"
        "\n"
        "---\n\n"
        "## Classes\n\n"
        "### `class Point`\n\n"
        "```quor\nclass Point\n```\n\n"
        "A point.\n\n"
        "#### Members\n\n"
        "- `let x: int` - X coord.\n"
        "- `public fn len(): float`\n"
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
        "### `struct Pair`\n\n"
        "```quor\nstruct Pair\n```\n\n"
        "#### Fields\n\n"
        "- `first: int` - The first.\n"
        "\n"
        "---\n\n"
        "### `struct Unit`\n\n"
        "```quor\nstruct Unit\n```\n\n"
        "---\n\n"
        "## Enums\n\n"
        "### `enum Color`\n\n"
        "```quor\nenum Color\n```\n\n"
        "Colours.\n\n"
        "#### Variants\n\n"
        "- `Red`\n"
        "- `Green`\n"
        "\n"
        "---\n\n"
        "## Variables & Constants\n\n"
        "- `const LIMIT: int` - The limit.\n"
        "- `let counter: int`\n"
        "\n";
    EXPECT_EQ(standardGenerator().renderMarkdown(fullModule()), expected);
}

TEST(MarkdownText, EmptyModuleHasBareContentsHeading) {
    EXPECT_EQ(standardGenerator().renderMarkdown(makeModule("empty")),
              "# Module `empty`\n\n## Table of Contents\n\n\n---\n\n");
}

TEST(MarkdownText, OnlyVariablesListHasNoEntryLines) {
    DocModule module = makeModule("vars", {makeEntry("v", DocKind::Variable, "let v: int")});
    EXPECT_EQ(standardGenerator().renderMarkdown(module),
              "# Module `vars`\n\n## Table of Contents\n\n"
              "- [Variables & Constants](#variables--constants)\n"
              "\n---\n\n"
              "## Variables & Constants\n\n"
              "- `let v: int`\n"
              "\n");
}

TEST(MarkdownText, OnlyDroppedKindsLeaveNoSections) {
    DocModule module = makeModule("odd", {makeEntry("m", DocKind::Method, "public fn m(): void"),
                                          makeEntry("f", DocKind::Field, "f: int"),
                                          makeEntry("x", static_cast<DocKind>(42), "x")});
    EXPECT_EQ(standardGenerator().renderMarkdown(module), "# Module `odd`\n\n## Table of Contents\n\n\n---\n\n");
}

TEST(MarkdownText, ReturnsLinePieces) {
    struct Case {
        const char* title;
        const char* returnType;
        const char* returnDescription;
        const char* returnsText;  // what stands between the fence and the closing rule
    };
    const Case cases[] = {
        {"void type", "void", "", ""},
        {"void type with text", "void", "nothing", ""},
        {"empty type", "", "text", ""},
        {"type alone", "int", "", "**Returns:** `int`\n\n"},
        {"type and text", "string?", "maybe", "**Returns:** `string?` - maybe\n\n"},
    };
    for (const Case& c : cases) {
        DocEntry fn = makeEntry("f", DocKind::Function, "fn f()");
        fn.returnType = c.returnType;
        fn.returnDescription = c.returnDescription;
        std::string page = standardGenerator().renderMarkdown(makeModule("m", {fn}));
        std::string expected = "# Module `m`\n\n## Table of Contents\n\n- [Functions](#functions)\n  - [`f`](#fn-f)\n"
                               "\n---\n\n## Functions\n\n### `fn f`\n\n```quor\nfn f()\n```\n\n" +
                               std::string(c.returnsText) + "---\n\n";
        EXPECT_EQ(page, expected) << c.title;
    }
}

TEST(MarkdownText, FunctionsListNoMembersAndTypesNoCall) {
    DocEntry fn = makeEntry("f", DocKind::Function, "fn f(): void");
    fn.members = {makeEntry("inner", DocKind::Method, "public fn inner(): void")};
    DocEntry cls = makeEntry("C", DocKind::Class, "class C");
    cls.params = {makeParam("p", "int")};
    cls.returnType = "int";
    DocEntry var = makeEntry("v", DocKind::Variable, "let v: int");
    var.members = {makeEntry("inner", DocKind::Field, "x")};
    var.params = {makeParam("p", "int")};
    EXPECT_EQ(standardGenerator().renderMarkdown(makeModule("m", {fn, cls, var})),
              "# Module `m`\n\n## Table of Contents\n\n"
              "- [Classes](#classes)\n  - [`C`](#class-C)\n"
              "- [Functions](#functions)\n  - [`f`](#fn-f)\n"
              "- [Variables & Constants](#variables--constants)\n"
              "\n---\n\n"
              "## Functions\n\n### `fn f`\n\n```quor\nfn f(): void\n```\n\n---\n\n"
              "## Classes\n\n### `class C`\n\n```quor\nclass C\n```\n\n---\n\n"
              "## Variables & Constants\n\n- `let v: int`\n\n");
}

TEST(MarkdownText, NothingIsEscaped) {
    DocEntry fn = makeEntry("id", DocKind::Function, "fn id<T>(x: T): T");
    fn.description = "Returns \"x\" & <b>it</b>.";
    fn.params = {makeParam("x", "List<T>", "a & b")};
    fn.returnType = "Map<K, V>";
    std::string page = standardGenerator().renderMarkdown(makeModule("a<b>", {fn}));
    EXPECT_EQ(page,
              "# Module `a<b>`\n\n## Table of Contents\n\n- [Functions](#functions)\n  - [`id`](#fn-id)\n"
              "\n---\n\n## Functions\n\n### `fn id`\n\n```quor\nfn id<T>(x: T): T\n```\n\n"
              "Returns \"x\" & <b>it</b>.\n\n"
              "**Parameters:**\n\n- `x: List<T>` - a & b\n\n"
              "**Returns:** `Map<K, V>`\n\n---\n\n");
}

TEST(MarkdownText, PageFromSource) {
    DocModule module = extract(
        "/// Geometry helpers.\n"
        "module geo;\n"
        "\n"
        "/// A shape.\n"
        "interface Shape {\n"
        "    /// The area.\n"
        "    fn area(): float;\n"
        "}\n"
        "\n"
        "/// Doubles.\n"
        "/// @param x the value\n"
        "/// @return twice x\n"
        "fn twice(x: int): int => x * 2;\n",
        "lib/geometry.quor");
    EXPECT_EQ(standardGenerator().renderMarkdown(module),
              "# Module `geo`\n\n"
              "Geometry helpers.\n\n"
              "## Table of Contents\n\n"
              "- [Interfaces](#interfaces)\n"
              "  - [`Shape`](#interface-Shape)\n"
              "- [Functions](#functions)\n"
              "  - [`twice`](#fn-twice)\n"
              "\n---\n\n"
              "## Functions\n\n"
              "### `fn twice`\n\n"
              "```quor\nfn twice(x: int): int\n```\n\n"
              "Doubles.\n\n"
              "**Parameters:**\n\n"
              "- `x: int` - the value\n\n"
              "**Returns:** `int` - twice x\n\n"
              "---\n\n"
              "## Interfaces\n\n"
              "### `interface Shape`\n\n"
              "```quor\ninterface Shape\n```\n\n"
              "A shape.\n\n"
              "#### Methods\n\n"
              "- `fn area(): float` - The area.\n\n"
              "---\n\n");
}

}  // namespace
}  // namespace quor::doc::testing
