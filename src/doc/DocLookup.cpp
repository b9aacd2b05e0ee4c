// Name lookup over extracted declarations.
#include "doc/DocLookup.h"

#include "doc/ModuleExtractor.h"

namespace quor::doc {

const DocEntry* findEntryByName(const DocModule& module, std::string_view name) {
    for (const DocEntry& entry : module.entries) {
        if (entry.name == name) return &entry;
        for (const DocEntry& member : entry.members) {
            if (member.name == name) return &member;
        }
    }
    return nullptr;
}

std::optional<DocEntry> lookupDeclaration(const std::string& source, const std::string& path,
                                          std::string_view name) {
    ExtractionSource read = readExtractionSource(source, path, true, false);
    if (!read.program) return std::nullopt;
    DocModule unused;
    return ModuleExtractor(unused, read.blocks, false).findEntry(*read.program, name);
}

std::optional<std::int32_t> lookupDeclarationLine(const std::string& source, const std::string& path,
                                                  std::string_view name) {
    ExtractionSource read = readExtractionSource(source, path, false, false);
    if (!read.program) return std::nullopt;
    DocModule unused;
    std::vector<RawDocBlock> noBlocks;
    std::optional<DocEntry> entry = ModuleExtractor(unused, noBlocks, false).findEntry(*read.program, name);
    if (!entry) return std::nullopt;
    return entry->line;
}

}  // namespace quor::doc
