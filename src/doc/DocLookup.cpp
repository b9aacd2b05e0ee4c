// Name lookup over extracted declarations.
#include "doc/DocLookup.h"

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

}  // namespace quor::doc
