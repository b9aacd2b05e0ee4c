#pragma once

#include <cstddef>
#include <string>

namespace quor::cli {

// The counts behind the last line and the exit status of `quor check`.
struct CheckTally {
    std::size_t errors = 0;           // diagnostics over all files
    std::size_t filesWithErrors = 0;  // files with at least one
    std::size_t filesChecked = 0;     // files that could be read
    std::size_t unreadable = 0;       // paths and files that could not be read

    void count(std::size_t errorsInFile) {
        errors += errorsInFile;
        filesWithErrors += errorsInFile != 0 ? 1 : 0;
        ++filesChecked;
    }

    // 2 when a path could not be read, else 1 when any file has an error, else 0.
    int exitStatus() const { return unreadable != 0 ? 2 : errors != 0 ? 1 : 0; }
};

// "N errors in M of K files", with "error" and "file" for counts of one.
std::string summaryLine(const CheckTally& tally);

// How `quor check` is used, printed with a usage error.
inline constexpr const char* CHECK_USAGE =
    "usage: quor check [--format text|json|github] [--color auto|always|never] [-j N] PATH...\n";

}  // namespace quor::cli
