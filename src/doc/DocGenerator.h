#pragma once

// Reads declarations and their doc comments out of Quor sources.

#include <iosfwd>
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

    // One module's page: Markdown grouped by kind, HTML in source order.
    std::string renderMarkdown(const DocModule& module) const;
    std::string renderHtml(const DocModule& module) const;
    // The page that links every module's page.
    std::string renderIndexMarkdown(const std::vector<DocModule>& modules) const;
    std::string renderIndexHtml(const std::vector<DocModule>& modules) const;
    // Quotes, ampersands and angle brackets as entities; every other byte as it is.
    std::string escapeHtml(const std::string& text) const;

    // Writes the pages of a file or of every source below a directory, and
    // their index, into `outputDir` (the option's directory when empty).
    // False only for an input that is neither a directory nor a file.
    bool generate(const std::string& inputPath, const std::string& outputDir) const;
    // The same, reporting on the given streams instead of the standard ones.
    bool generate(const std::string& inputPath, const std::string& outputDir, std::ostream& out,
                  std::ostream& err) const;

    const DocOptions& getOptions() const { return options; }

private:
    DocOptions options;
};

}  // namespace quor::doc
