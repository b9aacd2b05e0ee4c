#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/Commands.h"

namespace quor::cli::testing {

// A fresh directory under the system's temporary directory, removed with
// everything in it when the test ends. Each test gets its own, so tests
// running side by side never share files.
class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "quor_cli_XXXXXX").string();
        std::vector<char> name(pattern.begin(), pattern.end());
        name.push_back('\0');
        root = ::mkdtemp(name.data()) != nullptr ? name.data() : pattern;
    }
    ~TempDir() {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // Writes `text` to `relative` below the root, making directories as
    // needed, and returns the file's full path.
    std::string write(const std::string& relative, const std::string& text) const {
        std::filesystem::path path = std::filesystem::path(root) / relative;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return path.string();
    }

    std::string path(const std::string& relative) const { return (std::filesystem::path(root) / relative).string(); }

    std::string root;
};

inline std::string readBack(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

struct CommandRun {
    int status;
    std::string out;
    std::string err;
};

inline CommandRun run(int (*command)(const Arguments&, std::ostream&, std::ostream&), const Arguments& args) {
    std::ostringstream out;
    std::ostringstream err;
    int status = command(args, out, err);
    return {status, out.str(), err.str()};
}

inline std::string example(const std::string& name) { return std::string(QUOR_EXAMPLES_DIR) + "/" + name; }

}  // namespace quor::cli::testing
