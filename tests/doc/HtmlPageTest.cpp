#include <gtest/gtest.h>

#include <string>

#include "DocTestSupport.h"
#include "RenderTestSupport.h"

using quor::doc::defaultDocOptions;
using quor::doc::DocEntry;
using quor::doc::DocGenerator;
using quor::doc::DocKind;
using quor::doc::DocModule;
using quor::doc::DocOptions;
using namespace quor::doc::testing;

namespace {

const std::string HEAD_END = "  </style>\n</head>\n";

std::string html(const DocModule& module) { return standardGenerator().renderHtml(module); }

// Everything from "<body>" on: the part of the page that carries the entries.
std::string bodyOf(const std::string& page) {
    std::size_t end = page.find(HEAD_END);
    return end == std::string::npos ? std::string() : page.substr(end + HEAD_END.size());
}

// The sidebar of a page titled "Quor Documentation", with one link per name.
std::string sidebar(std::initializer_list<std::string> links) {
    std::string text =
        "<body>\n"
        "  <aside class=\"sidebar\">\n"
        "    <h2>Quor Documentation</h2>\n"
        "    <a href=\"index.html\">&larr; Module Index</a>\n"
        "    <hr>\n"
        "    <h2>On This Page</h2>\n";
    for (const std::string& link : links) text += "    <a href=\"#" + link + "\">" + link + "</a>\n";
    return text + "  </aside>\n";
}

// The opening lines of a card, up to and including its signature.
std::string cardHead(const std::string& name, const std::string& badge, const std::string& label,
                     const std::string& signature) {
    return "    <div class=\"entry-card\" id=\"" + name + "\">\n"
           "      <div>\n"
           "        <span class=\"badge " + badge + "\">" + label + "</span>\n"
           "        <h3 style=\"display: inline;\">" + name + "</h3>\n"
           "      </div>\n"
           "      <pre><code>" + signature + "</code></pre>\n";
}

const std::string PAGE_END = "  </main>\n</body>\n</html>\n";

}  // namespace

TEST(HtmlPage, HeadNamesModuleAndTitleAndHoldsOneStyleElement) {
    const std::string page = html(makeModule("shapes"));
    const std::string head =
        "<!DOCTYPE html>\n"
        "<html lang=\"en\">\n"
        "<head>\n"
        "  <meta charset=\"UTF-8\">\n"
        "  <meta name=\"viewport\" content=\"width=device-width, initial-scale=1.0\">\n"
        "  <title>Module shapes - Quor Documentation</title>\n"
        "  <style>\n";
    EXPECT_EQ(page.substr(0, head.size()), head);
    EXPECT_EQ(page.find("<style>"), page.rfind("<style>"));
    EXPECT_NE(page.find(HEAD_END + "<body>\n"), std::string::npos);
}

TEST(HtmlPage, StyleSheetHasThePaletteAndTheLayoutRules) {
    const std::string page = html(makeModule("m"));
    const std::string style = page.substr(0, page.find(HEAD_END));
    for (const char* colour : {"#0f172a", "#1e293b", "#0b1120", "#f1f5f9", "#94a3b8", "#38bdf8", "#0ea5e9", "#334155",
                               "#10b981", "#6366f1", "#f59e0b"}) {
        EXPECT_NE(style.find(colour), std::string::npos) << colour;
    }
    for (const char* rule : {":root {", "body {", ".sidebar {", ".content {", "h1", "h3", ".doc-lead {", ".entry-card {",
                             "pre {", ".desc {", ".badge {", ".badge-fn {", ".badge-class {", ".badge-type {",
                             "table {", "display: flex;", "flex-direction: row;", "position: sticky;", "width: 280px;",
                             "max-width: 900px;", "--text-muted:"}) {
        EXPECT_NE(style.find(rule), std::string::npos) << rule;
    }
}

TEST(HtmlPage, ModuleWithoutEntriesHasAnEmptySidebarListAndNoCards) {
    EXPECT_EQ(bodyOf(html(makeModule("empty"))),
              sidebar({}) + "  <main class=\"content\">\n    <h1>Module <code>empty</code></h1>\n" + PAGE_END);
}

TEST(HtmlPage, ModuleDescriptionIsTheLead) {
    DocModule module = makeModule("m");
    module.description = "Shapes & sizes.\nSecond line.";
    EXPECT_EQ(bodyOf(html(module)), sidebar({}) +
                                        "  <main class=\"content\">\n    <h1>Module <code>m</code></h1>\n"
                                        "    <p class=\"doc-lead\">Shapes &amp; sizes.\nSecond line.</p>\n" +
                                        PAGE_END);
}

TEST(HtmlPage, CardsFollowSourceOrderWithEveryPart) {
    DocEntry add = withDoc(makeEntry("add", DocKind::Function, "fn add(a: int, b: int): int"), "Adds.", "Adds.");
    add.params.push_back(makeParam("a", "int", "the first"));
    add.params.push_back(makeParam("b", "int"));
    add.returnType = "int";
    add.returnDescription = "their sum";

    DocEntry circle = withDoc(makeEntry("Circle", DocKind::Class, "class Circle"), "A circle.", "A circle.");
    circle.members.push_back(
        withDoc(makeEntry("area", DocKind::Method, "public fn area(): float"), "The area.\nIn units.", "The area."));
    circle.members.push_back(makeEntry("radius", DocKind::Field, "let radius: float"));

    DocModule module = makeModule("geometry", {add, circle});
    EXPECT_EQ(bodyOf(html(module)),
              sidebar({"add", "Circle"}) +
                  "  <main class=\"content\">\n"
                  "    <h1>Module <code>geometry</code></h1>\n" +
                  cardHead("add", "badge-fn", "Function", "fn add(a: int, b: int): int") +
                  "      <p class=\"desc\">Adds.</p>\n"
                  "      <table>\n"
                  "        <thead><tr><th>Parameter</th><th>Type</th><th>Description</th></tr></thead>\n"
                  "        <tbody>\n"
                  "          <tr><td><code>a</code></td><td><code>int</code></td><td>the first</td></tr>\n"
                  "          <tr><td><code>b</code></td><td><code>int</code></td><td></td></tr>\n"
                  "        </tbody>\n"
                  "      </table>\n"
                  "      <p style=\"margin-top: 0.75rem;\"><strong>Returns:</strong> <code>int</code>"
                  " &mdash; their sum</p>\n"
                  "    </div>\n" +
                  cardHead("Circle", "badge-class", "Class", "class Circle") +
                  "      <p class=\"desc\">A circle.</p>\n"
                  "      <h4>Members</h4>\n"
                  "      <ul>\n"
                  "        <li style=\"margin-bottom: 0.4rem;\"><code>public fn area(): float</code>"
                  " &mdash; <span style=\"color: var(--text-muted);\">The area.</span></li>\n"
                  "        <li style=\"margin-bottom: 0.4rem;\"><code>let radius: float</code></li>\n"
                  "      </ul>\n"
                  "    </div>\n" +
                  PAGE_END);
}

TEST(HtmlPage, VoidFunctionHasNoReturnsLine) {
    DocEntry log = makeEntry("log", DocKind::Function, "fn log(): void");
    log.returnType = "void";
    EXPECT_EQ(bodyOf(html(makeModule("m", {log}))),
              sidebar({"log"}) + "  <main class=\"content\">\n    <h1>Module <code>m</code></h1>\n" +
                  cardHead("log", "badge-fn", "Function", "fn log(): void") + "    </div>\n" + PAGE_END);
}

TEST(HtmlPage, ReturnsLineWithoutDescriptionEndsAtTheType) {
    DocEntry one = makeEntry("one", DocKind::Function, "fn one(): int");
    one.returnType = "int";
    const std::string page = html(makeModule("m", {one}));
    EXPECT_NE(page.find("      <p style=\"margin-top: 0.75rem;\"><strong>Returns:</strong> <code>int</code></p>\n"),
              std::string::npos);
    EXPECT_EQ(page.find("&mdash;"), std::string::npos);
}

TEST(HtmlPage, VariableWithoutBriefIsACardShowingItsTypeAsReturns) {
    DocEntry count = makeEntry("count", DocKind::Variable, "let count: int");
    count.returnType = "int";
    EXPECT_EQ(bodyOf(html(makeModule("m", {count}))),
              sidebar({"count"}) + "  <main class=\"content\">\n    <h1>Module <code>m</code></h1>\n" +
                  cardHead("count", "badge-type", "Variable", "let count: int") +
                  "      <p style=\"margin-top: 0.75rem;\"><strong>Returns:</strong> <code>int</code></p>\n"
                  "    </div>\n" +
                  PAGE_END);
}

TEST(HtmlPage, GenericSignatureAndTypesAreEscaped) {
    DocEntry first = makeEntry("first", DocKind::Function, "fn first<T>(items: List<T>): T");
    first.params.push_back(makeParam("items", "List<T>", "a \"non-empty\" list"));
    first.returnType = "Map<string, T>";
    first.returnDescription = "x < y & z";
    const std::string page = html(makeModule("m", {first}));
    EXPECT_NE(page.find("      <pre><code>fn first&lt;T&gt;(items: List&lt;T&gt;): T</code></pre>\n"), std::string::npos);
    EXPECT_NE(page.find("          <tr><td><code>items</code></td><td><code>List&lt;T&gt;</code></td>"
                        "<td>a &quot;non-empty&quot; list</td></tr>\n"),
              std::string::npos);
    EXPECT_NE(page.find("<code>Map&lt;string, T&gt;</code> &mdash; x &lt; y &amp; z</p>\n"), std::string::npos);
    EXPECT_EQ(page.find("List<T>"), std::string::npos);
}

TEST(HtmlPage, NamesDescriptionsAndMemberTextsAreEscaped) {
    DocEntry box = withDoc(makeEntry("Box<T>", DocKind::Class, "class Box<T>"), "Holds 'one' <value>.", "Holds");
    box.members.push_back(withDoc(makeEntry("get", DocKind::Method, "public fn get(): T&"), "Gets <it>.", "Gets <it>."));
    DocModule module = makeModule("a&b", {box});
    module.description = "<lead>";
    const std::string page = html(module);
    EXPECT_NE(page.find("  <title>Module a&amp;b - Quor Documentation</title>\n"), std::string::npos);
    EXPECT_NE(page.find("    <a href=\"#Box&lt;T&gt;\">Box&lt;T&gt;</a>\n"), std::string::npos);
    EXPECT_NE(page.find("    <h1>Module <code>a&amp;b</code></h1>\n"), std::string::npos);
    EXPECT_NE(page.find("    <p class=\"doc-lead\">&lt;lead&gt;</p>\n"), std::string::npos);
    EXPECT_NE(page.find("    <div class=\"entry-card\" id=\"Box&lt;T&gt;\">\n"), std::string::npos);
    EXPECT_NE(page.find("        <h3 style=\"display: inline;\">Box&lt;T&gt;</h3>\n"), std::string::npos);
    EXPECT_NE(page.find("      <p class=\"desc\">Holds &#39;one&#39; &lt;value&gt;.</p>\n"), std::string::npos);
    EXPECT_NE(page.find("<code>public fn get(): T&amp;</code> &mdash; <span style=\"color: var(--text-muted);\">"
                        "Gets &lt;it&gt;.</span></li>\n"),
              std::string::npos);
}

TEST(HtmlPage, TitleOptionIsEscapedInTheHeadAndTheSidebar) {
    DocOptions options = defaultDocOptions();
    options.title = "Q & A";
    const std::string page = DocGenerator(options).renderHtml(makeModule("m"));
    EXPECT_NE(page.find("  <title>Module m - Q &amp; A</title>\n"), std::string::npos);
    EXPECT_NE(page.find("    <h2>Q &amp; A</h2>\n"), std::string::npos);
}

TEST(HtmlPage, EachKindHasItsLabelAndBadgeClass) {
    struct Row {
        DocKind kind;
        const char* label;
        const char* badge;
    };
    const Row rows[] = {
        {DocKind::Module, "Module", "badge-type"},     {DocKind::Function, "Function", "badge-fn"},
        {DocKind::Class, "Class", "badge-class"},      {DocKind::Interface, "Interface", "badge-type"},
        {DocKind::Struct, "Struct", "badge-type"},     {DocKind::Enum, "Enum", "badge-type"},
        {DocKind::Variable, "Variable", "badge-type"}, {DocKind::Method, "Method", "badge-fn"},
        {DocKind::Field, "Field", "badge-type"},       {static_cast<DocKind>(9), "Unknown", "badge-type"},
    };
    for (const Row& row : rows) {
        const std::string page = html(makeModule("m", {makeEntry("e", row.kind, "sig")}));
        const std::string badge = std::string("        <span class=\"badge ") + row.badge + "\">" + row.label + "</span>\n";
        EXPECT_NE(page.find(badge), std::string::npos) << row.label;
    }
}

TEST(HtmlPage, EmptyMemberListAndParameterListWriteNothing) {
    DocEntry empty = makeEntry("Empty", DocKind::Struct, "struct Empty");
    const std::string page = html(makeModule("m", {empty}));
    EXPECT_EQ(page.find("<ul>"), std::string::npos);
    EXPECT_EQ(page.find("<table>"), std::string::npos);
    EXPECT_EQ(page.find("class=\"desc\""), std::string::npos);
}

TEST(HtmlPage, ExtractedClassShowsItsMembersAndTheirBriefs) {
    DocModule module = extract(
        "/// A counter.\n"
        "class Counter {\n"
        "    private int count;\n"
        "\n"
        "    /// Adds one.\n"
        "    /// More text.\n"
        "    public fn tick(): void {\n"
        "        count = count + 1;\n"
        "    }\n"
        "}\n");
    EXPECT_EQ(bodyOf(html(module)),
              sidebar({"Counter"}) +
                  "  <main class=\"content\">\n"
                  "    <h1>Module <code>demo</code></h1>\n" +
                  cardHead("Counter", "badge-class", "Class", "class Counter") +
                  "      <p class=\"desc\">A counter.</p>\n"
                  "      <h4>Members</h4>\n"
                  "      <ul>\n"
                  "        <li style=\"margin-bottom: 0.4rem;\"><code>let count: int</code></li>\n"
                  "        <li style=\"margin-bottom: 0.4rem;\"><code>public fn tick(): void</code>"
                  " &mdash; <span style=\"color: var(--text-muted);\">Adds one.</span></li>\n"
                  "      </ul>\n"
                  "    </div>\n" +
                  PAGE_END);
}
