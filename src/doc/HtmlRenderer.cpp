// One module's HTML page: a sidebar linking every entry, and one card per
// entry in source order. Every name and text goes through escapeHtml.
#include <algorithm>
#include <iterator>
#include <string_view>

#include "doc/DocGenerator.h"
#include "doc/HtmlStyles.h"
#include "doc/RenderText.h"

namespace quor::doc {

namespace {

struct KindBadge {
    DocKind kind;
    std::string_view label;
    std::string_view badgeClass;
};

constexpr KindBadge KIND_BADGES[] = {
    {DocKind::Module, "Module", "badge-type"},       {DocKind::Function, "Function", "badge-fn"},
    {DocKind::Class, "Class", "badge-class"},        {DocKind::Interface, "Interface", "badge-type"},
    {DocKind::Struct, "Struct", "badge-type"},       {DocKind::Enum, "Enum", "badge-type"},
    {DocKind::Variable, "Variable", "badge-type"},   {DocKind::Method, "Method", "badge-fn"},
    {DocKind::Field, "Field", "badge-type"},
};

// A kind outside the enumeration still gets a card.
constexpr KindBadge UNKNOWN_BADGE = {DocKind::Module, "Unknown", "badge-type"};

const KindBadge& badgeOf(DocKind kind) {
    const KindBadge* row = std::find_if(std::begin(KIND_BADGES), std::end(KIND_BADGES),
                                        [kind](const KindBadge& badge) { return badge.kind == kind; });
    return row == std::end(KIND_BADGES) ? UNKNOWN_BADGE : *row;
}

class HtmlPageWriter {
public:
    HtmlPageWriter(const DocGenerator& generator, std::string& out) : generator(generator), out(out) {}

    void writeHead(const DocModule& module) {
        appendAll(out, {"<!DOCTYPE html>\n", "<html lang=\"en\">\n", "<head>\n", "  <meta charset=\"UTF-8\">\n",
                        "  <meta name=\"viewport\" content=\"width=device-width, initial-scale=1.0\">\n"});
        appendAll(out, {"  <title>Module ", escaped(module.name), " - ", escaped(title()), "</title>\n"});
        appendAll(out, {MODULE_PAGE_STYLE, "</head>\n", "<body>\n"});
    }

    void writeSidebar(const DocModule& module) {
        appendAll(out, {"  <aside class=\"sidebar\">\n", "    <h2>", escaped(title()), "</h2>\n",
                        "    <a href=\"index.html\">&larr; Module Index</a>\n", "    <hr>\n",
                        "    <h2>On This Page</h2>\n"});
        for (const DocEntry& entry : module.entries) {
            const std::string name = escaped(entry.name);
            appendAll(out, {"    <a href=\"#", name, "\">", name, "</a>\n"});
        }
        out += "  </aside>\n";
    }

    void writeContent(const DocModule& module) {
        appendAll(out, {"  <main class=\"content\">\n", "    <h1>Module <code>", escaped(module.name), "</code></h1>\n"});
        if (!module.description.empty()) {
            appendAll(out, {"    <p class=\"doc-lead\">", escaped(module.description), "</p>\n"});
        }
        for (const DocEntry& entry : module.entries) writeCard(entry);
        appendAll(out, {"  </main>\n", "</body>\n", "</html>\n"});
    }

private:
    void writeCard(const DocEntry& entry) {
        const KindBadge& badge = badgeOf(entry.kind);
        const std::string name = escaped(entry.name);
        appendAll(out, {"    <div class=\"entry-card\" id=\"", name, "\">\n", "      <div>\n",
                        "        <span class=\"badge ", badge.badgeClass, "\">", badge.label, "</span>\n",
                        "        <h3 style=\"display: inline;\">", name, "</h3>\n", "      </div>\n",
                        "      <pre><code>", escaped(entry.signature), "</code></pre>\n"});
        if (!entry.description.empty()) appendAll(out, {"      <p class=\"desc\">", escaped(entry.description), "</p>\n"});
        writeParameters(entry);
        writeReturns(entry);
        writeMembers(entry);
        out += "    </div>\n";
    }

    void writeParameters(const DocEntry& entry) {
        if (entry.params.empty()) return;
        appendAll(out, {"      <table>\n",
                        "        <thead><tr><th>Parameter</th><th>Type</th><th>Description</th></tr></thead>\n",
                        "        <tbody>\n"});
        for (const DocParam& param : entry.params) {
            appendAll(out, {"          <tr><td><code>", escaped(param.name), "</code></td><td><code>", escaped(param.type),
                            "</code></td><td>", escaped(param.description), "</td></tr>\n"});
        }
        appendAll(out, {"        </tbody>\n", "      </table>\n"});
    }

    // A variable's type sits in returnType too, so a typed variable shows it here.
    void writeReturns(const DocEntry& entry) {
        if (entry.returnType.empty() || entry.returnType == "void") return;
        appendAll(out, {"      <p style=\"margin-top: 0.75rem;\"><strong>Returns:</strong> <code>",
                        escaped(entry.returnType), "</code>"});
        if (!entry.returnDescription.empty()) appendAll(out, {" &mdash; ", escaped(entry.returnDescription)});
        out += "</p>\n";
    }

    void writeMembers(const DocEntry& entry) {
        if (entry.members.empty()) return;
        appendAll(out, {"      <h4>Members</h4>\n", "      <ul>\n"});
        for (const DocEntry& member : entry.members) {
            appendAll(out, {"        <li style=\"margin-bottom: 0.4rem;\"><code>", escaped(member.signature), "</code>"});
            if (!member.brief.empty()) {
                appendAll(out, {" &mdash; <span style=\"color: var(--text-muted);\">", escaped(member.brief), "</span>"});
            }
            out += "</li>\n";
        }
        out += "      </ul>\n";
    }

    std::string escaped(const std::string& text) const { return generator.escapeHtml(text); }
    const std::string& title() const { return generator.getOptions().title; }

    const DocGenerator& generator;
    std::string& out;
};

}  // namespace

std::string DocGenerator::renderHtml(const DocModule& module) const {
    std::string out;
    HtmlPageWriter writer(*this, out);
    writer.writeHead(module);
    writer.writeSidebar(module);
    writer.writeContent(module);
    return out;
}

}  // namespace quor::doc
