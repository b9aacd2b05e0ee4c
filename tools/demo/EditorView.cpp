#include "demo/EditorView.h"

#include <iostream>
#include <map>

namespace quor::demo {

namespace {

constexpr std::string_view GUTTER = "      | ";

void printIndented(const std::string& text) {
    for (const std::string& line : splitLines(text)) std::cout << GUTTER << line << "\n";
}

std::string place(const lsp::JsonValue& position) {
    return std::to_string(position["line"].getInt() + 1) + ":" + std::to_string(position["character"].getInt() + 1);
}

std::string lineAt(const std::vector<std::string>& lines, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < lines.size() ? lines[static_cast<std::size_t>(index)] : "";
}

// The lines after the edits, which sit on single lines, were applied:
// later edits on a line first, so the earlier columns stay valid.
std::map<int, std::string> applyLineEdits(const lsp::JsonValue& edits, const std::vector<std::string>& lines) {
    std::map<int, std::multimap<int, std::pair<int, std::string>>> byLine;
    for (const lsp::JsonValue& edit : edits.arrayValue) {
        const lsp::JsonValue& range = edit["range"];
        byLine[range["start"]["line"].getInt()].emplace(
            range["start"]["character"].getInt(),
            std::make_pair(range["end"]["character"].getInt(), edit["newText"].getString()));
    }
    std::map<int, std::string> changed;
    for (const auto& [line, lineEdits] : byLine) {
        std::string text = lineAt(lines, line);
        for (auto edit = lineEdits.rbegin(); edit != lineEdits.rend(); ++edit) {
            auto start = static_cast<std::size_t>(edit->first);
            auto end = static_cast<std::size_t>(edit->second.first);
            if (start <= end && end <= text.size()) text.replace(start, end - start, edit->second.second);
        }
        changed[line] = text;
    }
    return changed;
}

}  // namespace

std::vector<std::string> splitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
        lines.push_back(text.substr(start, end - start));
    }
    if (start < text.size()) lines.push_back(text.substr(start));
    return lines;
}

void printStep(const std::string& what) { std::cout << "\n> " << what << "\n"; }

void printProblems(const lsp::JsonValue& publishParams) {
    const lsp::JsonValue& diagnostics = publishParams["diagnostics"];
    if (diagnostics.arrayValue.empty()) {
        std::cout << "    Problems: none\n";
        return;
    }
    std::cout << "    Problems (" << diagnostics.arrayValue.size() << "):\n";
    for (const lsp::JsonValue& diagnostic : diagnostics.arrayValue) {
        std::string severity = diagnostic["severity"].getInt() == 1 ? "error" : "warning";
        std::string code = diagnostic["code"].getString();
        std::cout << "      " << place(diagnostic["range"]["start"]) << "  " << severity
                  << (code.empty() ? "" : "[" + code + "]") << "  " << diagnostic["message"].getString() << "\n";
    }
}

void printHover(const lsp::JsonValue& hover) {
    if (!hover.isObject()) {
        std::cout << "    (nothing to show)\n";
        return;
    }
    // An editor renders the Markdown; here the code fences are left out.
    std::cout << "    Hover card:\n";
    for (const std::string& line : splitLines(hover["contents"]["value"].getString())) {
        if (line.rfind("```", 0) != 0) std::cout << GUTTER << line << "\n";
    }
}

void printCompletion(const lsp::JsonValue& items, const std::string& typed, std::size_t most) {
    std::size_t shown = 0;
    std::size_t matching = 0;
    std::cout << "    " << items.arrayValue.size() << " suggestions; those starting with '" << typed << "':\n";
    for (const lsp::JsonValue& item : items.arrayValue) {
        std::string label = item["label"].getString();
        if (label.rfind(typed, 0) != 0) continue;
        ++matching;
        if (shown == most) continue;
        ++shown;
        std::string detail = item["detail"].getString();
        std::cout << GUTTER << label << (detail.empty() ? "" : "    " + detail) << "\n";
    }
    if (matching > shown) std::cout << GUTTER << "... and " << matching - shown << " more\n";
}

void printDefinition(const lsp::JsonValue& location, const std::vector<std::string>& lines) {
    if (!location.isObject()) {
        std::cout << "    (no definition found)\n";
        return;
    }
    const lsp::JsonValue& start = location["range"]["start"];
    std::cout << "    Jumps to line " << start["line"].getInt() + 1 << ":\n";
    std::cout << GUTTER << lineAt(lines, start["line"].getInt()) << "\n";
}

void printRename(const lsp::JsonValue& workspaceEdit, const std::vector<std::string>& lines) {
    const lsp::JsonValue& changes = workspaceEdit["changes"];
    if (!changes.isObject() || changes.objectValue.empty()) {
        std::cout << "    (nothing to rename)\n";
        return;
    }
    for (const auto& [uri, edits] : changes.objectValue) {
        std::cout << "    " << edits.arrayValue.size() << " edits; the lines become:\n";
        for (const auto& [line, text] : applyLineEdits(edits, lines)) {
            std::cout << "    " << (line + 1) << (line + 1 < 10 ? "  " : " ") << "| " << text << "\n";
        }
    }
}

void printFormatting(const lsp::JsonValue& edits) {
    if (edits.arrayValue.empty()) {
        std::cout << "    (already formatted)\n";
        return;
    }
    std::cout << "    The document becomes:\n";
    printIndented(edits[0]["newText"].getString());
}

}  // namespace quor::demo
