#pragma once

#include <string>
#include <vector>

#include "lsp/JsonValue.h"

namespace quor::demo {

// How an editor shows the server's answers, as plain terminal text. Lines
// and columns are printed one-based, as an editor's status bar has them.

void printStep(const std::string& what);
void printProblems(const lsp::JsonValue& publishParams);
void printHover(const lsp::JsonValue& hover);
void printCompletion(const lsp::JsonValue& items, const std::string& typed, std::size_t most);
void printDefinition(const lsp::JsonValue& location, const std::vector<std::string>& lines);
void printRename(const lsp::JsonValue& workspaceEdit, const std::vector<std::string>& lines);
void printFormatting(const lsp::JsonValue& edits);

// The text split at line feeds, without them.
std::vector<std::string> splitLines(const std::string& text);

}  // namespace quor::demo
