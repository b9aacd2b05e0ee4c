// quor fmt: formats sources in place, checks that they are formatted, or
// prints them formatted; never writes a file whose tokens formatting would change.
#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "cli/Commands.h"
#include "cli/ReplaceFile.h"
#include "cli/SourceFiles.h"
#include "cli/TokenComparison.h"
#include "fmt/Formatter.h"

namespace quor::cli {

namespace {

enum class FormatMode {
    InPlace,  // rewrite each file that is not formatted
    Check,    // only say which files are not formatted
    Print,    // write the formatted texts to standard output
};

struct ModeSwitch {
    std::string_view name;
    FormatMode mode;
};

constexpr std::array<ModeSwitch, 2> MODE_SWITCHES = {{
    {"--check", FormatMode::Check},
    {"--stdout", FormatMode::Print},
}};

constexpr const char* FORMAT_USAGE = "usage: quor fmt [--check | --stdout] PATH...\n";

// Exit statuses, worst last: a file that formatting would break or that is
// not formatted under --check gives 1, a path that can't be read or written 2.
struct FormatStatus {
    int value = 0;
    void raise(int to) { value = std::max(value, to); }
};

bool parseFormatArguments(const Arguments& args, FormatMode& mode, std::vector<std::string>& paths,
                          std::string& error) {
    bool optionsEnded = false;
    bool modeChosen = false;
    for (const std::string& argument : args) {
        if (optionsEnded || argument.size() < 2 || argument.front() != '-') {
            paths.push_back(argument);
            continue;
        }
        if (argument == "--") {
            optionsEnded = true;
            continue;
        }
        auto found = std::find_if(MODE_SWITCHES.begin(), MODE_SWITCHES.end(),
                                  [&](const ModeSwitch& row) { return row.name == argument; });
        if (found == MODE_SWITCHES.end()) {
            error = "unknown option '" + argument + "'";
            return false;
        }
        if (modeChosen && mode != found->mode) {
            error = "--check and --stdout can't be used together";
            return false;
        }
        mode = found->mode;
        modeChosen = true;
    }
    if (paths.empty()) error = "expected at least one file or directory";
    return !paths.empty();
}

// Formats one file as `mode` says and reports on the two streams.
void formatFile(const std::string& path, FormatMode mode, std::ostream& out, std::ostream& err,
                FormatStatus& status) {
    std::string text;
    if (!readFile(path, text)) {
        err << "quor: cannot read '" << path << "'\n";
        status.raise(2);
        return;
    }
    // The defaults are the settings the server formats with.
    std::string formatted = fmt::Formatter(fmt::FormatOptions{}).format(text);
    std::optional<TokenChange> change;
    if (formatted != text) change = firstChangedToken(text, formatted);
    if (mode == FormatMode::Check && formatted != text) {
        out << path << ": not formatted\n";
        status.raise(1);
    }
    if (change) {
        err << "quor: " << path << ":" << describeChange(*change)
            << "; formatting would change the program, so the file is left as it is\n";
        status.raise(1);
    }
    if (mode == FormatMode::Print) {
        out << (change ? text : formatted);
        return;
    }
    if (mode != FormatMode::InPlace || change || formatted == text) return;
    std::string writeError;
    if (!replaceFileContents(path, formatted, writeError)) {
        err << "quor: cannot write '" << path << "': " << writeError << "\n";
        status.raise(2);
        return;
    }
    out << path << ": formatted\n";
}

}  // namespace

int runFormat(const Arguments& args, std::ostream& out, std::ostream& err) {
    FormatMode mode = FormatMode::InPlace;
    std::vector<std::string> paths;
    std::string usageError;
    if (!parseFormatArguments(args, mode, paths, usageError)) {
        err << "quor fmt: " << usageError << "\n" << FORMAT_USAGE;
        return 2;
    }
    SourceFiles sources = collectSourceFiles(paths);
    FormatStatus status;
    for (const std::string& problem : sources.problems) {
        err << "quor: " << problem << "\n";
        status.raise(2);
    }
    for (const std::string& path : sources.files) formatFile(path, mode, out, err, status);
    return status.value;
}

}  // namespace quor::cli
