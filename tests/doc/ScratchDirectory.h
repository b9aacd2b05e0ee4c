#pragma once

// A directory of its own under the system's temporary folder for a test
// that writes files, removed again when the test ends.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include <unistd.h>

namespace quor::doc::testing {

class ScratchDirectory {
public:
    explicit ScratchDirectory(const std::string& tag)
        : root(std::filesystem::temp_directory_path() / ("quor_docrun_" + tag + "_" + std::to_string(::getpid()))) {
        std::filesystem::remove_all(root);
        std::filesystem::create_directories(root);
    }
    ~ScratchDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    // Writes `text` to `relative`, creating the folders on the way.
    std::string write(const std::string& relative, const std::string& text) const {
        std::filesystem::path file = root / relative;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
        return file.string();
    }

    std::string path(const std::string& relative) const { return (root / relative).string(); }

    std::filesystem::path root;
};

// The whole content of a file, or the empty string when it cannot be read.
inline std::string readWhole(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
}

// The names of the entries directly inside `directory`, sorted.
inline std::vector<std::string> listDirectory(const std::filesystem::path& directory) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(directory, error)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace quor::doc::testing
