// The two index pages and the HTML escape, compared byte for byte.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RenderTestSupport.h"

namespace quor::doc::testing {
namespace {

std::vector<DocModule> twoModules() {
    DocModule math = makeModule("math");
    math.brief = "Numbers & <things>.";
    math.description = "Numbers & <things>.\nMore.";
    DocModule text = makeModule("text");
    text.description = "Has a description but no brief.";
    return {math, text};
}

TEST(IndexText, MarkdownIndex) {
    EXPECT_EQ(standardGenerator().renderIndexMarkdown(twoModules()),
              "# Quor Documentation Documentation\n\n"
              "Welcome to the Quor API documentation.\n\n"
              "## Modules\n\n"
              "### [`math`](math.md)\n\n"
              "Numbers & <things>.\n\n"
              "### [`text`](text.md)\n\n");
}

TEST(IndexText, MarkdownIndexOfNothing) {
    DocOptions options = defaultDocOptions();
    options.title = "Engine";
    EXPECT_EQ(DocGenerator(options).renderIndexMarkdown({}),
              "# Engine Documentation\n\nWelcome to the Quor API documentation.\n\n## Modules\n\n");
}

TEST(IndexText, MarkdownIndexKeepsDuplicatesInOrder) {
    std::vector<DocModule> modules = {makeModule("x"), makeModule("x")};
    EXPECT_EQ(standardGenerator().renderIndexMarkdown(modules),
              "# Quor Documentation Documentation\n\nWelcome to the Quor API documentation.\n\n## Modules\n\n"
              "### [`x`](x.md)\n\n### [`x`](x.md)\n\n");
}

// The HTML index around its style element, which is free in wording.
struct HtmlIndexParts {
    std::string head;  // up to the style element
    std::string style;
    std::string rest;  // from "</head>" on
};

HtmlIndexParts splitHtmlIndex(const std::string& page) {
    HtmlIndexParts parts;
    std::string::size_type style = page.find("<style");
    std::string::size_type headEnd = page.find("</head>\n");
    if (style == std::string::npos || headEnd == std::string::npos || headEnd < style) {
        parts.rest = page;
        return parts;
    }
    style = page.rfind('\n', style) + 1;  // from the start of its line
    parts.head = page.substr(0, style);
    parts.style = page.substr(style, headEnd - style);
    parts.rest = page.substr(headEnd);
    return parts;
}

TEST(IndexText, HtmlIndex) {
    HtmlIndexParts parts = splitHtmlIndex(standardGenerator().renderIndexHtml(twoModules()));
    EXPECT_EQ(parts.head,
              "<!DOCTYPE html>\n"
              "<html lang=\"en\">\n"
              "<head>\n"
              "  <meta charset=\"UTF-8\">\n"
              "  <title>Quor Documentation - API Reference</title>\n");
    EXPECT_EQ(parts.rest,
              "</head>\n"
              "<body>\n"
              "  <h1>Quor Documentation</h1>\n"
              "  <p style=\"color: #94a3b8; margin-bottom: 2rem;\">Generated API Documentation for Quor Language</p>\n"
              "  <a class=\"card\" href=\"math.html\">\n"
              "    <h3>Module math</h3>\n"
              "    <p>Numbers &amp; &lt;things&gt;.</p>\n"
              "  </a>\n"
              "  <a class=\"card\" href=\"text.html\">\n"
              "    <h3>Module text</h3>\n"
              "    <p>No description provided.</p>\n"
              "  </a>\n"
              "</body>\n</html>\n");
    EXPECT_NE(parts.style.find(".card"), std::string::npos);
    EXPECT_NE(parts.style.find("</style>"), std::string::npos);
}

TEST(IndexText, HtmlIndexEscapesNames) {
    HtmlIndexParts parts = splitHtmlIndex(standardGenerator().renderIndexHtml({makeModule("a\"b")}));
    EXPECT_EQ(parts.rest,
              "</head>\n<body>\n  <h1>Quor Documentation</h1>\n"
              "  <p style=\"color: #94a3b8; margin-bottom: 2rem;\">Generated API Documentation for Quor Language</p>\n"
              "  <a class=\"card\" href=\"a&quot;b.html\">\n"
              "    <h3>Module a&quot;b</h3>\n"
              "    <p>No description provided.</p>\n"
              "  </a>\n"
              "</body>\n</html>\n");
}

TEST(IndexText, HtmlIndexOfNothing) {
    HtmlIndexParts parts = splitHtmlIndex(standardGenerator().renderIndexHtml({}));
    EXPECT_EQ(parts.rest,
              "</head>\n<body>\n  <h1>Quor Documentation</h1>\n"
              "  <p style=\"color: #94a3b8; margin-bottom: 2rem;\">Generated API Documentation for Quor Language</p>\n"
              "</body>\n</html>\n");
}

TEST(IndexText, EscapeTable) {
    struct Case {
        std::string in;
        std::string out;
    };
    const Case cases[] = {
        {"", ""},
        {"plain text 123", "plain text 123"},
        {"\"", "&quot;"},
        {"'", "&#39;"},
        {"&", "&amp;"},
        {"<", "&lt;"},
        {">", "&gt;"},
        {"a<b>&\"c\"'d'", "a&lt;b&gt;&amp;&quot;c&quot;&#39;d&#39;"},
        {"&amp;", "&amp;amp;"},
        {"\n\t\r/\\`", "\n\t\r/\\`"},
        {std::string("nul\0byte", 8), std::string("nul\0byte", 8)},
        {"\xc3\xa9\xff", "\xc3\xa9\xff"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(standardGenerator().escapeHtml(c.in), c.out) << c.in;
    }
}

}  // namespace
}  // namespace quor::doc::testing
