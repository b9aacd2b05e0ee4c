#pragma once

// Reads declarations and their doc comments out of Quor sources.

#include <string>
#include <vector>

#include "doc/DocModel.h"

namespace quor::doc {

class DocGenerator {
public:
    explicit DocGenerator(DocOptions options);

    // One record per file-level declaration, with members, signatures and
    // attached doc comments. Works from whatever the parser could keep, so
    // a source with syntax errors still yields its readable declarations.
    DocModule extractModule(const std::string& source, const std::string& path) const;
    // An empty module when the file cannot be opened.
    DocModule extractModuleFromFile(const std::string& path) const;
    // Every ".quor" file below `path`, sorted by module name.
    std::vector<DocModule> extractModulesFromDirectory(const std::string& path) const;

    // The cleaned description of a doc comment text.
    static std::string cleanDocComment(const std::string& text);
    // The first non-blank line of `text`, trimmed.
    static std::string extractBrief(const std::string& text);

    const DocOptions& getOptions() const { return options; }

private:
    DocOptions options;
};

}  // namespace quor::doc
