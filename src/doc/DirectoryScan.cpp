// Extracting every Quor source below a directory.
#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "doc/DocGenerator.h"

namespace quor::doc {

namespace {

// Build outputs, version control data and module caches are not sources.
constexpr std::string_view EXCLUDED_PATH_PARTS[] = {".git", "build", ".quorm"};

bool isDocumentedSource(const std::filesystem::directory_entry& entry) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(entry.path(), error)) return false;
    if (entry.path().extension() != ".quor") return false;
    const std::string text = entry.path().string();
    return std::none_of(std::begin(EXCLUDED_PATH_PARTS), std::end(EXCLUDED_PATH_PARTS),
                        [&text](std::string_view part) { return text.find(part) != std::string::npos; });
}

}  // namespace

std::vector<DocModule> DocGenerator::extractModulesFromDirectory(const std::string& path) const {
    std::vector<DocModule> modules;
    std::error_code error;
    std::filesystem::recursive_directory_iterator walk(path, error);
    const std::filesystem::recursive_directory_iterator end;
    while (!error && walk != end) {
        if (isDocumentedSource(*walk)) modules.push_back(extractModuleFromFile(walk->path().string()));
        walk.increment(error);
    }
    std::stable_sort(modules.begin(), modules.end(),
                     [](const DocModule& a, const DocModule& b) { return a.name < b.name; });
    return modules;
}

}  // namespace quor::doc
