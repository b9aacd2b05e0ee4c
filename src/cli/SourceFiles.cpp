#include "cli/SourceFiles.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

namespace quor::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view SOURCE_EXTENSION = ".quor";

std::string describe(const std::string& path, const std::error_code& error) {
    return "cannot read '" + path + "': " + error.message();
}

// Sorts the files of one directory into `found` and queues its subdirectories.
// A directory that can't be listed is reported and passed over; the rest of
// the tree is still searched. Links to directories are not entered.
void listDirectory(const fs::path& directory, std::vector<fs::path>& found, std::vector<fs::path>& pending,
                   std::vector<std::string>& problems) {
    std::error_code error;
    fs::directory_iterator entries(directory, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        std::error_code statusError;
        fs::file_status own = entries->symlink_status(statusError);
        if (fs::is_directory(own)) {
            pending.push_back(entries->path());
        } else if (entries->path().extension() == SOURCE_EXTENSION && entries->is_regular_file(statusError)) {
            found.push_back(entries->path());
        }
    }
    if (error) problems.push_back(describe(directory.string(), error));
}

// Every source file below `root`, sorted by path; the directories that could
// not be listed go to `problems`, sorted too.
std::vector<fs::path> findSourcesBelow(const std::string& root, std::vector<std::string>& problems) {
    std::vector<fs::path> found;
    std::vector<fs::path> pending{fs::path(root)};
    std::vector<std::string> unreadable;
    while (!pending.empty()) {
        fs::path directory = std::move(pending.back());
        pending.pop_back();
        listDirectory(directory, found, pending, unreadable);
    }
    // The walk follows the file system's own listing order; sorting both
    // lists makes the result the same on every run.
    std::sort(found.begin(), found.end());
    std::sort(unreadable.begin(), unreadable.end());
    problems.insert(problems.end(), unreadable.begin(), unreadable.end());
    return found;
}

}  // namespace

SourceFiles collectSourceFiles(const std::vector<std::string>& paths) {
    SourceFiles result;
    std::set<std::string> seen;
    auto add = [&](const std::string& file) {
        if (seen.insert(file).second) result.files.push_back(file);
    };
    for (const std::string& path : paths) {
        std::error_code error;
        fs::file_status status = fs::status(path, error);
        if (error) {
            result.problems.push_back(describe(path, error));
        } else if (fs::is_directory(status)) {
            for (const fs::path& file : findSourcesBelow(path, result.problems)) add(file.string());
        } else {
            add(path);
        }
    }
    return result;
}

}  // namespace quor::cli
