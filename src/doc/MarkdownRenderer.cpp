// One module's Markdown page: a table of contents, then the entries grouped
// by kind. Methods, fields and modules at the top level have no group and
// are left out.
#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include "doc/DocGenerator.h"
#include "doc/RenderText.h"

namespace quor::doc {

namespace {

// How the members of an entry are listed under it.
enum class MemberStyle { None, Signatures, Names };

struct MarkdownGroup {
    DocKind kind;
    std::string_view contentsLine;
    std::string_view anchorPrefix;  // empty: the group has no entry lines in the contents
    std::string_view heading;
    std::string_view keyword;  // empty: each entry is one list line
    std::string_view membersHeading;
    MemberStyle memberStyle;
    bool showsCall;  // parameters and return type
};

// The sections in the order they are written.
constexpr MarkdownGroup MARKDOWN_GROUPS[] = {
    {DocKind::Function, "- [Functions](#functions)\n", "fn-", "## Functions\n\n", "fn ", "", MemberStyle::None, true},
    {DocKind::Class, "- [Classes](#classes)\n", "class-", "## Classes\n\n", "class ", "#### Members\n\n",
     MemberStyle::Signatures, false},
    {DocKind::Interface, "- [Interfaces](#interfaces)\n", "interface-", "## Interfaces\n\n", "interface ",
     "#### Methods\n\n", MemberStyle::Signatures, false},
    {DocKind::Struct, "- [Structs](#structs)\n", "struct-", "## Structs\n\n", "struct ", "#### Fields\n\n",
     MemberStyle::Signatures, false},
    {DocKind::Enum, "- [Enums](#enums)\n", "enum-", "## Enums\n\n", "enum ", "#### Variants\n\n", MemberStyle::Names,
     false},
    {DocKind::Variable, "- [Variables & Constants](#variables--constants)\n", "", "## Variables & Constants\n\n", "",
     "", MemberStyle::None, false},
};

// The table of contents lists the groups in another order than the sections.
constexpr DocKind CONTENTS_ORDER[] = {DocKind::Class, DocKind::Interface, DocKind::Struct,
                                      DocKind::Enum,  DocKind::Function,  DocKind::Variable};

const MarkdownGroup& groupOf(DocKind kind) {
    return *std::find_if(std::begin(MARKDOWN_GROUPS), std::end(MARKDOWN_GROUPS),
                         [kind](const MarkdownGroup& group) { return group.kind == kind; });
}

std::vector<const DocEntry*> entriesOfKind(const DocModule& module, DocKind kind) {
    std::vector<const DocEntry*> entries;
    for (const DocEntry& entry : module.entries) {
        if (entry.kind == kind) entries.push_back(&entry);
    }
    return entries;
}

bool hasReturnLine(const DocEntry& entry) { return !entry.returnType.empty() && entry.returnType != "void"; }

// " - " and the text, or nothing for an empty text.
void appendDash(std::string& out, const std::string& text) {
    if (!text.empty()) appendAll(out, {" - ", text});
}

void writeContents(std::string& out, const DocModule& module) {
    out += "## Table of Contents\n\n";
    for (DocKind kind : CONTENTS_ORDER) {
        const MarkdownGroup& group = groupOf(kind);
        std::vector<const DocEntry*> entries = entriesOfKind(module, kind);
        if (entries.empty()) continue;
        out += group.contentsLine;
        if (group.anchorPrefix.empty()) continue;
        for (const DocEntry* entry : entries) {
            appendAll(out, {"  - [`", entry->name, "`](#", group.anchorPrefix, entry->name, ")\n"});
        }
    }
    out += "\n---\n\n";
}

void writeCall(std::string& out, const DocEntry& entry) {
    if (!entry.params.empty()) {
        out += "**Parameters:**\n\n";
        for (const DocParam& param : entry.params) {
            appendAll(out, {"- `", param.name, ": ", param.type, "`"});
            appendDash(out, param.description);
            out += "\n";
        }
        out += "\n";
    }
    if (hasReturnLine(entry)) {
        appendAll(out, {"**Returns:** `", entry.returnType, "`"});
        appendDash(out, entry.returnDescription);
        out += "\n\n";
    }
}

void writeMembers(std::string& out, const DocEntry& entry, const MarkdownGroup& group) {
    if (group.memberStyle == MemberStyle::None || entry.members.empty()) return;
    out += group.membersHeading;
    for (const DocEntry& member : entry.members) {
        if (group.memberStyle == MemberStyle::Names) {
            appendAll(out, {"- `", member.name, "`\n"});
            continue;
        }
        appendAll(out, {"- `", member.signature, "`"});
        appendDash(out, member.brief);
        out += "\n";
    }
    out += "\n";
}

void writeDeclaration(std::string& out, const DocEntry& entry, const MarkdownGroup& group) {
    appendAll(out, {"### `", group.keyword, entry.name, "`\n\n", "```quor\n", entry.signature, "\n```\n\n"});
    if (!entry.description.empty()) appendAll(out, {entry.description, "\n\n"});
    if (group.showsCall) writeCall(out, entry);
    writeMembers(out, entry, group);
    out += "---\n\n";
}

void writeListLine(std::string& out, const DocEntry& entry) {
    appendAll(out, {"- `", entry.signature, "`"});
    appendDash(out, entry.brief);
    out += "\n";
}

void writeSection(std::string& out, const MarkdownGroup& group, const std::vector<const DocEntry*>& entries) {
    out += group.heading;
    const bool listed = group.keyword.empty();
    for (const DocEntry* entry : entries) {
        if (listed) {
            writeListLine(out, *entry);
        } else {
            writeDeclaration(out, *entry, group);
        }
    }
    if (listed) out += "\n";
}

}  // namespace

std::string DocGenerator::renderMarkdown(const DocModule& module) const {
    std::string out;
    appendAll(out, {"# Module `", module.name, "`\n\n"});
    if (!module.description.empty()) appendAll(out, {module.description, "\n\n"});
    writeContents(out, module);
    for (const MarkdownGroup& group : MARKDOWN_GROUPS) {
        std::vector<const DocEntry*> entries = entriesOfKind(module, group.kind);
        if (!entries.empty()) writeSection(out, group, entries);
    }
    return out;
}

}  // namespace quor::doc
