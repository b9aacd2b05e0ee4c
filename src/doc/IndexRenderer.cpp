// The index pages, which link the page of every module in the order given.
#include "doc/DocGenerator.h"
#include "doc/HtmlStyles.h"
#include "doc/RenderText.h"

namespace quor::doc {

std::string DocGenerator::renderIndexMarkdown(const std::vector<DocModule>& modules) const {
    std::string out;
    appendAll(out, {"# ", options.title, " Documentation\n\n", "Welcome to the Quor API documentation.\n\n",
                    "## Modules\n\n"});
    for (const DocModule& module : modules) {
        appendAll(out, {"### [`", module.name, "`](", module.name, ".md)\n\n"});
        if (!module.brief.empty()) appendAll(out, {module.brief, "\n\n"});
    }
    return out;
}

std::string DocGenerator::renderIndexHtml(const std::vector<DocModule>& modules) const {
    const std::string title = escapeHtml(options.title);
    std::string out;
    appendAll(out, {"<!DOCTYPE html>\n", "<html lang=\"en\">\n", "<head>\n", "  <meta charset=\"UTF-8\">\n",
                    "  <title>", title, " - API Reference</title>\n", INDEX_PAGE_STYLE, "</head>\n", "<body>\n",
                    "  <h1>", title, "</h1>\n",
                    "  <p style=\"color: #94a3b8; margin-bottom: 2rem;\">Generated API Documentation for Quor "
                    "Language</p>\n"});
    for (const DocModule& module : modules) {
        const std::string name = escapeHtml(module.name);
        const std::string brief = module.brief.empty() ? std::string("No description provided.")
                                                       : escapeHtml(module.brief);
        appendAll(out, {"  <a class=\"card\" href=\"", name, ".html\">\n", "    <h3>Module ", name, "</h3>\n",
                        "    <p>", brief, "</p>\n", "  </a>\n"});
    }
    out += "</body>\n</html>\n";
    return out;
}

}  // namespace quor::doc
