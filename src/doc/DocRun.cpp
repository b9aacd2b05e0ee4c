// The documentation run: extract a file or a tree of sources and write each
// module's pages and the index into one directory.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

#include "doc/DocGenerator.h"

namespace quor::doc {

namespace {

namespace fs = std::filesystem;

// A page that cannot be written is passed over: the run reports only bad input.
void writePage(const fs::path& file, const std::string& text) {
    std::ofstream stream(file, std::ios::binary);
    if (stream.is_open()) stream << text;
}

}  // namespace

bool DocGenerator::generate(const std::string& inputPath, const std::string& outputDir) const {
    return generate(inputPath, outputDir, std::cout, std::cerr);
}

bool DocGenerator::generate(const std::string& inputPath, const std::string& outputDir, std::ostream& out,
                            std::ostream& err) const {
    const std::string directory = outputDir.empty() ? options.outputDir : outputDir;
    std::error_code ignored;
    fs::create_directories(directory, ignored);

    std::vector<DocModule> modules;
    const fs::file_status input = fs::status(inputPath, ignored);
    if (fs::is_directory(input)) {
        modules = extractModulesFromDirectory(inputPath);
    } else if (fs::is_regular_file(input)) {
        modules.push_back(extractModuleFromFile(inputPath));
    } else {
        err << "error: invalid doc input path " << inputPath << "\n";
        return false;
    }

    const fs::path root(directory);
    for (const DocModule& module : modules) {
        if (options.generateMarkdown) writePage(root / (module.name + ".md"), renderMarkdown(module));
        if (options.generateHtml) writePage(root / (module.name + ".html"), renderHtml(module));
    }
    if (modules.empty()) {
        out << "No Quor source files found to document in " << inputPath << "\n";
        return true;
    }
    if (options.generateMarkdown) writePage(root / "index.md", renderIndexMarkdown(modules));
    if (options.generateHtml) writePage(root / "index.html", renderIndexHtml(modules));
    out << "Successfully generated documentation for " << modules.size() << " module(s) in " << directory << "\n";
    return true;
}

}  // namespace quor::doc
