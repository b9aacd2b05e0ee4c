#include "cli/ReplaceFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <vector>

namespace quor::cli {

namespace {

namespace fs = std::filesystem;

bool writeAll(int descriptor, const std::string& text) {
    const char* data = text.data();
    std::size_t left = text.size();
    while (left > 0) {
        ssize_t written = ::write(descriptor, data, left);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        data += written;
        left -= static_cast<std::size_t>(written);
    }
    return true;
}

// The file a path names, through any links, or the path itself if it is none.
fs::path resolveLinks(const std::string& path) {
    std::error_code error;
    fs::path target = fs::is_symlink(path, error) ? fs::canonical(path, error) : fs::path(path);
    return error ? fs::path(path) : target;
}

// A fresh, private file beside `target`, named after it; -1 on failure.
int createSibling(const fs::path& target, std::string& siblingName) {
    fs::path pattern = target.parent_path() / ("." + target.filename().string() + ".quorfmt-XXXXXX");
    std::string patternText = pattern.string();
    std::vector<char> name(patternText.begin(), patternText.end());
    name.push_back('\0');
    int descriptor = ::mkstemp(name.data());
    siblingName = name.data();
    return descriptor;
}

}  // namespace

bool replaceFileContents(const std::string& path, const std::string& text, std::string& error) {
    fs::path target = resolveLinks(path);
    struct stat original {};
    if (::stat(target.c_str(), &original) != 0) {
        error = std::strerror(errno);
        return false;
    }
    std::string sibling;
    int descriptor = createSibling(target, sibling);
    if (descriptor < 0) {
        error = std::strerror(errno);
        return false;
    }
    bool ok = writeAll(descriptor, text) && ::fchmod(descriptor, original.st_mode & 07777) == 0 &&
              ::fsync(descriptor) == 0;
    std::string failure = ok ? "" : std::strerror(errno);
    if (::close(descriptor) != 0 && ok) {
        ok = false;
        failure = std::strerror(errno);
    }
    if (ok && ::rename(sibling.c_str(), target.c_str()) != 0) {
        ok = false;
        failure = std::strerror(errno);
    }
    if (!ok) {
        ::unlink(sibling.c_str());
        error = failure;
    }
    return ok;
}

}  // namespace quor::cli
