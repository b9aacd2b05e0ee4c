// Completion: the same full list wherever the cursor stands. Keywords and
// built-in types first, then the document's declarations, each followed by
// its members; the client does the filtering.
#include <array>
#include <utility>

#include "doc/DocGenerator.h"
#include "lsp/LspServer.h"
#include "lsp/WordTables.h"

namespace quor::lsp {

namespace {

constexpr std::int32_t KEYWORD_ITEM_KIND = 14;
constexpr std::int32_t TYPE_ITEM_KIND = 25;
constexpr std::int32_t METHOD_ITEM_KIND = 2;
constexpr std::int32_t FIELD_ITEM_KIND = 5;
constexpr std::int32_t OTHER_ITEM_KIND = 1;

// Protocol item kind for each kind of top-level declaration.
constexpr std::array<std::pair<doc::DocKind, std::int32_t>, 6> ENTRY_ITEM_KINDS = {{
    {doc::DocKind::Function, 3},
    {doc::DocKind::Class, 7},
    {doc::DocKind::Interface, 8},
    {doc::DocKind::Struct, 22},
    {doc::DocKind::Enum, 13},
    {doc::DocKind::Variable, 6},
}};

std::int32_t entryItemKind(doc::DocKind kind) {
    for (const auto& [docKind, itemKind] : ENTRY_ITEM_KINDS) {
        if (docKind == kind) return itemKind;
    }
    return OTHER_ITEM_KIND;
}

CompletionItem declarationItem(const doc::DocEntry& entry, std::int32_t kind) {
    CompletionItem item;
    item.label = entry.name;
    item.kind = kind;
    item.detail = entry.signature;
    item.documentation = entry.description;
    return item;
}

void addFixedItems(JsonValue& items) {
    for (const auto& [word, description] : QUOR_KEYWORDS) {
        CompletionItem item;
        item.label = std::string(word);
        item.kind = KEYWORD_ITEM_KIND;
        item.detail = "Quor keyword";
        item.documentation = std::string(description);
        items.push(item.toJson());
    }
    for (std::string_view word : QUOR_PRIMITIVE_TYPES) {
        CompletionItem item;
        item.label = std::string(word);
        item.kind = TYPE_ITEM_KIND;
        item.detail = "Built-in Quor type";
        items.push(item.toJson());
    }
}

void addDeclarationItems(JsonValue& items, const doc::DocModule& module) {
    for (const doc::DocEntry& entry : module.entries) {
        items.push(declarationItem(entry, entryItemKind(entry.kind)).toJson());
        for (const doc::DocEntry& member : entry.members) {
            const bool isMethod = member.kind == doc::DocKind::Method;
            items.push(declarationItem(member, isMethod ? METHOD_ITEM_KIND : FIELD_ITEM_KIND).toJson());
        }
    }
}

}  // namespace

JsonValue LspServer::handleCompletion(const JsonValue&, const JsonValue& params) {
    JsonValue items = JsonValue::makeArray();
    addFixedItems(items);
    const std::string uri = params["textDocument"]["uri"].getString();
    const std::string& text = storedText(uri);
    if (text.empty()) return items;
    const doc::DocGenerator generator(doc::defaultDocOptions());
    addDeclarationItems(items, generator.extractModule(text, uri));
    return items;
}

}  // namespace quor::lsp
