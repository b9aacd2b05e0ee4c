// Whole HTML module pages compared byte for byte from the sidebar to the
// end, with the few lines whose markup is a free choice of the page (the
// sidebar rule, the members heading and the list opening) matched loosely.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "DocTestSupport.h"
#include "RenderTestSupport.h"

namespace quor::doc::testing {
namespace {

const std::string SIDEBAR_START = "  <aside class=\"sidebar\">\n";

// The page from the sidebar on, with the freely chosen lines replaced by
// markers so the rest can be compared exactly.
std::string bodyWithMarkers(const std::string& page) {
    std::string::size_type start = page.find(SIDEBAR_START);
    if (start == std::string::npos) return "<no sidebar>\n" + page;
    std::istringstream lines(page.substr(start));
    std::string line;
    std::string out;
    while (std::getline(lines, line)) {
        std::string::size_type first = line.find_first_not_of(' ');
        std::string trimmed = first == std::string::npos ? "" : line.substr(first);
        if (trimmed.rfind("<hr", 0) == 0) {
            out += "<HR>\n";
        } else if (trimmed.rfind("<ul", 0) == 0) {
            out += "<UL>\n";
        } else if (trimmed.rfind("<h", 0) == 0 && trimmed.find(">Members</h") != std::string::npos) {
            out += "<MEMBERS>\n";
        } else {
            out += line + "\n";
        }
    }
    return out;
}

std::string sidebar(const std::vector<std::string>& names) {
    std::string text = SIDEBAR_START +
                       "    <h2>Quor Documentation</h2>\n"
                       "    <a href=\"index.html\">&larr; Module Index</a>\n"
                       "<HR>\n"
                       "    <h2>On This Page</h2>\n";
    for (const auto& name : names) text += "    <a href=\"#" + name + "\">" + name + "</a>\n";
    return text + "  </aside>\n";
}

std::string cardHead(const std::string& id, const std::string& badge, const std::string& label,
                     const std::string& signature) {
    return "    <div class=\"entry-card\" id=\"" + id + "\">\n" + "      <div>\n" + "        <span class=\"badge " +
           badge + "\">" + label + "</span>\n" + "        <h3 style=\"display: inline;\">" + id + "</h3>\n" +
           "      </div>\n" + "      <pre><code>" + signature + "</code></pre>\n";
}

const std::string CARD_END = "    </div>\n";
const std::string PAGE_END = "  </main>\n</body>\n</html>\n";

TEST(HtmlText, FullBody) {
    DocEntry add = withDoc(makeEntry("add", DocKind::Function, "fn add<T>(a: int, b: List<T>): int"),
                           "Adds \"two\" & 'more'.\nSecond line.", "Adds");
    add.params = {makeParam("a", "int", "first <a>"), makeParam("b", "List<T>")};
    add.returnType = "int";
    add.returnDescription = "the sum";

    DocEntry point = makeEntry("Point", DocKind::Class, "class Point");
    point.members = {withDoc(makeEntry("x", DocKind::Field, "let x: int"), "X & Y\nmore", "X & Y"),
                     makeEntry("len", DocKind::Method, "public fn len(): float")};

    DocEntry v = makeEntry("v", DocKind::Variable, "let v: int");
    v.returnType = "int";

    DocEntry log = makeEntry("log", DocKind::Function, "fn log(): void");
    log.returnType = "void";
    log.returnDescription = "not shown";

    DocEntry typeOnly = makeEntry("t", DocKind::Function, "fn t(): string");
    typeOnly.returnType = "string";

    DocModule module = makeModule("demo", {add, point, v, log, typeOnly});
    module.description = "The demo & module.";

    const std::string expected =
        sidebar({"add", "Point", "v", "log", "t"}) +
        "  <main class=\"content\">\n"
        "    <h1>Module <code>demo</code></h1>\n"
        "    <p class=\"doc-lead\">The demo &amp; module.</p>\n" +
        cardHead("add", "badge-fn", "Function", "fn add&lt;T&gt;(a: int, b: List&lt;T&gt;): int") +
        "      <p class=\"desc\">Adds &quot;two&quot; &amp; &#39;more&#39;.\nSecond line.</p>\n"
        "      <table>\n"
        "        <thead><tr><th>Parameter</th><th>Type</th><th>Description</th></tr></thead>\n"
        "        <tbody>\n"
        "          <tr><td><code>a</code></td><td><code>int</code></td><td>first &lt;a&gt;</td></tr>\n"
        "          <tr><td><code>b</code></td><td><code>List&lt;T&gt;</code></td><td></td></tr>\n"
        "        </tbody>\n"
        "      </table>\n"
        "      <p style=\"margin-top: 0.75rem;\"><strong>Returns:</strong> <code>int</code> &mdash; the sum</p>\n" +
        CARD_END + cardHead("Point", "badge-class", "Class", "class Point") +
        "<MEMBERS>\n"
        "<UL>\n"
        "        <li style=\"margin-bottom: 0.4rem;\"><code>let x: int</code> &mdash; <span style=\"color: "
        "var(--text-muted);\">X &amp; Y</span></li>\n"
        "        <li style=\"margin-bottom: 0.4rem;\"><code>public fn len(): float</code></li>\n"
        "      </ul>\n" +
        CARD_END + cardHead("v", "badge-type", "Variable", "let v: int") +
        "      <p style=\"margin-top: 0.75rem;\"><strong>Returns:</strong> <code>int</code></p>\n" + CARD_END +
        cardHead("log", "badge-fn", "Function", "fn log(): void") + CARD_END +
        cardHead("t", "badge-fn", "Function", "fn t(): string") +
        "      <p style=\"margin-top: 0.75rem;\"><strong>Returns:</strong> <code>string</code></p>\n" + CARD_END +
        PAGE_END;
    EXPECT_EQ(bodyWithMarkers(standardGenerator().renderHtml(module)), expected);
}

TEST(HtmlText, EmptyModule) {
    EXPECT_EQ(bodyWithMarkers(standardGenerator().renderHtml(makeModule("empty"))),
              sidebar({}) +
                  "  <main class=\"content\">\n"
                  "    <h1>Module <code>empty</code></h1>\n" +
                  PAGE_END);
}

TEST(HtmlText, BadgesAndLabelsForEveryKind) {
    struct Case {
        DocKind kind;
        const char* badge;
        const char* label;
    };
    const Case cases[] = {
        {DocKind::Module, "badge-type", "Module"},      {DocKind::Function, "badge-fn", "Function"},
        {DocKind::Class, "badge-class", "Class"},       {DocKind::Interface, "badge-type", "Interface"},
        {DocKind::Struct, "badge-type", "Struct"},      {DocKind::Enum, "badge-type", "Enum"},
        {DocKind::Variable, "badge-type", "Variable"},  {DocKind::Method, "badge-fn", "Method"},
        {DocKind::Field, "badge-type", "Field"},        {static_cast<DocKind>(9), "badge-type", "Unknown"},
        {static_cast<DocKind>(1000), "badge-type", "Unknown"},
    };
    for (const Case& c : cases) {
        DocModule module = makeModule("k", {makeEntry("e", c.kind, "sig")});
        EXPECT_EQ(bodyWithMarkers(standardGenerator().renderHtml(module)),
                  sidebar({"e"}) +
                      "  <main class=\"content\">\n"
                      "    <h1>Module <code>k</code></h1>\n" +
                      cardHead("e", c.badge, c.label, "sig") + CARD_END + PAGE_END)
            << c.label << " " << static_cast<unsigned>(c.kind);
    }
}

TEST(HtmlText, NamesEscapedEverywhere) {
    DocModule module = makeModule("a&b", {makeEntry("x<\"'>", DocKind::Struct, "struct x")});
    std::string page = standardGenerator().renderHtml(module);
    const std::string escaped = "x&lt;&quot;&#39;&gt;";
    EXPECT_EQ(bodyWithMarkers(page), sidebar({escaped}) +
                                         "  <main class=\"content\">\n"
                                         "    <h1>Module <code>a&amp;b</code></h1>\n" +
                                         cardHead(escaped, "badge-type", "Struct", "struct x") + CARD_END +
                                         PAGE_END);
    EXPECT_NE(page.find("  <title>Module a&amp;b - Quor Documentation</title>\n"), std::string::npos);
}

TEST(HtmlText, HeadOfThePage) {
    std::string page = standardGenerator().renderHtml(makeModule("demo"));
    const std::string start = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n";
    EXPECT_EQ(page.substr(0, start.size()), start);
    EXPECT_NE(page.find("<meta charset="), std::string::npos);
    EXPECT_NE(page.find("name=\"viewport\""), std::string::npos);
    std::string::size_type title = page.find("  <title>Module demo - Quor Documentation</title>\n");
    std::string::size_type style = page.find("<style>");
    std::string::size_type styleEnd = page.find("</style>");
    std::string::size_type body = page.find("</head>\n<body>\n" + SIDEBAR_START);
    ASSERT_NE(title, std::string::npos);
    ASSERT_NE(style, std::string::npos);
    ASSERT_NE(styleEnd, std::string::npos);
    ASSERT_NE(body, std::string::npos);
    EXPECT_LT(title, style);
    EXPECT_LT(styleEnd, body);
    std::string sheet = page.substr(style, styleEnd - style);
    for (const char* piece : {":root", "#0f172a", "#1e293b", "#0b1120", "#f1f5f9", "#94a3b8", "#38bdf8", "#0ea5e9",
                              "#334155", "#10b981", "#6366f1", "#f59e0b", "body", "flex", ".sidebar", "sticky",
                              "280px", ".content", "900px", ".doc-lead", ".entry-card", "pre", ".desc", ".badge",
                              ".badge-fn", ".badge-class", ".badge-type", "table"}) {
        EXPECT_NE(sheet.find(piece), std::string::npos) << piece;
    }
}

TEST(HtmlText, TitleOptionShownInPage) {
    DocOptions options = defaultDocOptions();
    options.title = "Engine API";
    std::string page = DocGenerator(options).renderHtml(makeModule("m"));
    EXPECT_NE(page.find("  <title>Module m - Engine API</title>\n"), std::string::npos);
    EXPECT_NE(page.find("    <h2>Engine API</h2>\n"), std::string::npos);
}

TEST(HtmlText, EveryKindShowsParametersReturnsAndMembers) {
    DocEntry cls = withDoc(makeEntry("C", DocKind::Class, "class C"), "Doc.", "Doc.");
    cls.params = {makeParam("p", "int", "pd")};
    cls.returnType = "bool";
    cls.returnDescription = "rd";
    DocEntry enumEntry = makeEntry("E", DocKind::Enum, "enum E");
    enumEntry.members = {withDoc(makeEntry("A", DocKind::Field, "A"), "First.", "First.")};
    DocModule module = makeModule("m", {cls, enumEntry});
    EXPECT_EQ(bodyWithMarkers(standardGenerator().renderHtml(module)),
              sidebar({"C", "E"}) +
                  "  <main class=\"content\">\n"
                  "    <h1>Module <code>m</code></h1>\n" +
                  cardHead("C", "badge-class", "Class", "class C") +
                  "      <p class=\"desc\">Doc.</p>\n"
                  "      <table>\n"
                  "        <thead><tr><th>Parameter</th><th>Type</th><th>Description</th></tr></thead>\n"
                  "        <tbody>\n"
                  "          <tr><td><code>p</code></td><td><code>int</code></td><td>pd</td></tr>\n"
                  "        </tbody>\n"
                  "      </table>\n"
                  "      <p style=\"margin-top: 0.75rem;\"><strong>Returns:</strong> <code>bool</code> &mdash; rd</p>\n" +
                  CARD_END + cardHead("E", "badge-type", "Enum", "enum E") +
                  "<MEMBERS>\n<UL>\n"
                  "        <li style=\"margin-bottom: 0.4rem;\"><code>A</code> &mdash; <span style=\"color: "
                  "var(--text-muted);\">First.</span></li>\n"
                  "      </ul>\n" +
                  CARD_END + PAGE_END);
}

TEST(HtmlText, VariableWithoutBriefIsACard) {
    DocModule module = extract("let count: int = 0;\n");
    std::string page = standardGenerator().renderHtml(module);
    EXPECT_EQ(bodyWithMarkers(page), sidebar({"count"}) +
                                         "  <main class=\"content\">\n"
                                         "    <h1>Module <code>demo</code></h1>\n" +
                                         cardHead("count", "badge-type", "Variable", "let count: int") +
                                         "      <p style=\"margin-top: 0.75rem;\"><strong>Returns:</strong> "
                                         "<code>int</code></p>\n" +
                                         CARD_END + PAGE_END);
}

}  // namespace
}  // namespace quor::doc::testing
