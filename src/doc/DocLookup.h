#pragma once

// Finding a declaration by name among a module's entries, the way the
// editor features look words up.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "doc/DocModel.h"

namespace quor::doc {

// Walks the entries in order and, at each, compares the entry's name and
// then its members' names; the first exact match wins. Null if none.
const DocEntry* findEntryByName(const DocModule& module, std::string_view name);

// The entry that `findEntryByName(extractModule(source, path), name)`
// finds, doc comment included, without building the entries of the rest of
// the module. Empty when no declaration has that name.
std::optional<DocEntry> lookupDeclaration(const std::string& source, const std::string& path,
                                          std::string_view name);

// Only the one-based line of that entry, which needs no doc comments at all.
std::optional<std::int32_t> lookupDeclarationLine(const std::string& source, const std::string& path,
                                                  std::string_view name);

}  // namespace quor::doc
