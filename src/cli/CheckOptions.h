#pragma once

#include <string>
#include <vector>

#include "cli/Commands.h"
#include "cli/DiagnosticReport.h"

namespace quor::cli {

// When the text report is coloured.
enum class ColourChoice {
    Auto,    // only when it goes to standard error and that is a terminal
    Always,
    Never,
};

struct CheckOptions {
    ReportFormat format = ReportFormat::Text;
    ColourChoice colour = ColourChoice::Auto;
    unsigned jobs = 0;  // 0: one worker per core
    std::vector<std::string> paths;
};

// Most workers `-j` accepts; more would only cost memory.
inline constexpr unsigned MAX_JOBS = 1024;

// Reads the arguments of `quor check`: `--format F`, `--color WHEN`, `-j N`
// (also written `--format=F`, `--color=WHEN`, `-jN`, `--jobs N`, `--jobs=N`),
// and paths; "--" ends the options. On a usage error it returns false and
// says why in `error`.
bool parseCheckOptions(const Arguments& args, CheckOptions& options, std::string& error);

}  // namespace quor::cli
