#pragma once

#include <string>
#include <vector>

namespace quor::cli {

// The files a command works on, found from the paths on its command line.
struct SourceFiles {
    std::vector<std::string> files;     // in the order they are worked on and reported
    std::vector<std::string> problems;  // one line per path that could not be read, without the "quor: " prefix
};

// A named file is taken whatever its extension. A directory stands for every
// ".quor" file below it, searched recursively and sorted by path, so two runs
// over the same tree list the same files in the same order. Directory links
// are not followed, which keeps a link cycle from looping. A file reached
// twice is listed once, at its first place.
SourceFiles collectSourceFiles(const std::vector<std::string>& paths);

}  // namespace quor::cli
