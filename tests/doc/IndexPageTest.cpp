#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RenderTestSupport.h"

using quor::doc::defaultDocOptions;
using quor::doc::DocGenerator;
using quor::doc::DocModule;
using quor::doc::DocOptions;
using namespace quor::doc::testing;

namespace {

DocModule moduleWithBrief(const std::string& name, const std::string& brief) {
    DocModule module = makeModule(name);
    module.brief = brief;
    module.description = brief + "\n\nMore about " + name + ".";
    return module;
}

const std::string MARKDOWN_HEAD =
    "# Quor Documentation Documentation\n\n"
    "Welcome to the Quor API documentation.\n\n"
    "## Modules\n\n";

const std::string HTML_HEAD =
    "<!DOCTYPE html>\n"
    "<html lang=\"en\">\n"
    "<head>\n"
    "  <meta charset=\"UTF-8\">\n"
    "  <title>Quor Documentation - API Reference</title>\n"
    "  <style>\n";

const std::string HTML_HEAD_END = "  </style>\n</head>\n";

// Everything from "<body>" on.
std::string bodyOf(const std::string& page) {
    std::size_t end = page.find(HTML_HEAD_END);
    return end == std::string::npos ? std::string() : page.substr(end + HTML_HEAD_END.size());
}

const std::string HTML_BODY_HEAD =
    "<body>\n"
    "  <h1>Quor Documentation</h1>\n"
    "  <p style=\"color: #94a3b8; margin-bottom: 2rem;\">Generated API Documentation for Quor Language</p>\n";

}  // namespace

TEST(MarkdownIndex, ListsEachModuleWithItsBriefInTheOrderGiven) {
    const std::vector<DocModule> modules = {moduleWithBrief("shapes", "Geometry."), moduleWithBrief("alpha", "")};
    EXPECT_EQ(standardGenerator().renderIndexMarkdown(modules),
              MARKDOWN_HEAD +
                  "### [`shapes`](shapes.md)\n\n"
                  "Geometry.\n\n"
                  "### [`alpha`](alpha.md)\n\n");
}

TEST(MarkdownIndex, WithoutModulesIsTheHeadingsAlone) {
    EXPECT_EQ(standardGenerator().renderIndexMarkdown({}), MARKDOWN_HEAD);
}

TEST(MarkdownIndex, TitleIsFollowedByTheWordDocumentationAndNothingIsEscaped) {
    DocOptions options = defaultDocOptions();
    options.title = "A & <B>";
    EXPECT_EQ(DocGenerator(options).renderIndexMarkdown({moduleWithBrief("x<y>", "Uses <T> & more.")}),
              "# A & <B> Documentation\n\n"
              "Welcome to the Quor API documentation.\n\n"
              "## Modules\n\n"
              "### [`x<y>`](x<y>.md)\n\n"
              "Uses <T> & more.\n\n");
}

TEST(MarkdownIndex, ModulesOfOneNameAreBothListed) {
    EXPECT_EQ(standardGenerator().renderIndexMarkdown({moduleWithBrief("m", "One."), moduleWithBrief("m", "Two.")}),
              MARKDOWN_HEAD + "### [`m`](m.md)\n\nOne.\n\n### [`m`](m.md)\n\nTwo.\n\n");
}

TEST(HtmlIndex, HeadCarriesTheTitleAndOneStyleElementWithCardRules) {
    const std::string page = standardGenerator().renderIndexHtml({});
    EXPECT_EQ(page.substr(0, HTML_HEAD.size()), HTML_HEAD);
    EXPECT_EQ(page.find("<style>"), page.rfind("<style>"));
    const std::string style = page.substr(0, page.find(HTML_HEAD_END));
    for (const char* text : {".card", "#0f172a", "#1e293b", "#f1f5f9", "#94a3b8", "#38bdf8", "#334155"}) {
        EXPECT_NE(style.find(text), std::string::npos) << text;
    }
}

TEST(HtmlIndex, EachModuleIsALinkedCardWithItsBrief) {
    const std::vector<DocModule> modules = {moduleWithBrief("shapes", "Geometry."), moduleWithBrief("zeta", "Last.")};
    EXPECT_EQ(bodyOf(standardGenerator().renderIndexHtml(modules)),
              HTML_BODY_HEAD +
                  "  <a class=\"card\" href=\"shapes.html\">\n"
                  "    <h3>Module shapes</h3>\n"
                  "    <p>Geometry.</p>\n"
                  "  </a>\n"
                  "  <a class=\"card\" href=\"zeta.html\">\n"
                  "    <h3>Module zeta</h3>\n"
                  "    <p>Last.</p>\n"
                  "  </a>\n"
                  "</body>\n</html>\n");
}

TEST(HtmlIndex, ModuleWithoutBriefSaysNoDescriptionProvided) {
    EXPECT_EQ(bodyOf(standardGenerator().renderIndexHtml({makeModule("bare")})),
              HTML_BODY_HEAD +
                  "  <a class=\"card\" href=\"bare.html\">\n"
                  "    <h3>Module bare</h3>\n"
                  "    <p>No description provided.</p>\n"
                  "  </a>\n"
                  "</body>\n</html>\n");
}

TEST(HtmlIndex, WithoutModulesEndsRightAfterTheLead) {
    EXPECT_EQ(bodyOf(standardGenerator().renderIndexHtml({})), HTML_BODY_HEAD + "</body>\n</html>\n");
}

TEST(HtmlIndex, TitleNamesAndBriefsAreEscaped) {
    DocOptions options = defaultDocOptions();
    options.title = "Q & A";
    const std::string page = DocGenerator(options).renderIndexHtml({moduleWithBrief("a<b>", "Say \"hi\" & 'bye'.")});
    EXPECT_NE(page.find("  <title>Q &amp; A - API Reference</title>\n"), std::string::npos);
    EXPECT_NE(page.find("  <h1>Q &amp; A</h1>\n"), std::string::npos);
    EXPECT_NE(page.find("  <a class=\"card\" href=\"a&lt;b&gt;.html\">\n    <h3>Module a&lt;b&gt;</h3>\n"
                        "    <p>Say &quot;hi&quot; &amp; &#39;bye&#39;.</p>\n"),
              std::string::npos);
}
