#pragma once

// Builders of hand-made documentation records for the renderer tests, so a
// test states exactly the fields that its page shows.

#include <string>
#include <utility>
#include <vector>

#include "doc/DocGenerator.h"

namespace quor::doc::testing {

inline DocGenerator standardGenerator() { return DocGenerator(defaultDocOptions()); }

inline DocEntry makeEntry(std::string name, DocKind kind, std::string signature) {
    DocEntry entry;
    entry.name = std::move(name);
    entry.kind = kind;
    entry.signature = std::move(signature);
    return entry;
}

inline DocEntry withDoc(DocEntry entry, std::string description, std::string brief) {
    entry.description = std::move(description);
    entry.brief = std::move(brief);
    return entry;
}

inline DocParam makeParam(std::string name, std::string type, std::string description = "") {
    DocParam param;
    param.name = std::move(name);
    param.type = std::move(type);
    param.description = std::move(description);
    return param;
}

inline DocModule makeModule(std::string name, std::vector<DocEntry> entries = {}) {
    DocModule module;
    module.name = std::move(name);
    module.entries = std::move(entries);
    return module;
}

}  // namespace quor::doc::testing
