#pragma once

// Finding a declaration by name among a module's entries, the way the
// editor features look words up.

#include <string_view>

#include "doc/DocModel.h"

namespace quor::doc {

// Walks the entries in order and, at each, compares the entry's name and
// then its members' names; the first exact match wins. Null if none.
const DocEntry* findEntryByName(const DocModule& module, std::string_view name);

}  // namespace quor::doc
