// quor check: the front end over whole trees of sources, as a CI job runs it.
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <thread>

#include "cli/CheckOptions.h"
#include "cli/Commands.h"
#include "cli/OrderedWork.h"
#include "cli/SourceFiles.h"
#include "cli/Summary.h"
#include "diagnostics/DiagnosticEngine.h"
#include "frontend/FrontEnd.h"

namespace quor::cli {

namespace {

// What checking one file left behind, kept until it is printed.
struct FileCheck {
    bool readable = false;
    std::vector<diagnostics::Diagnostic> diagnostics;
};

// The last pass of a process may leave its tokens, tree and analyzer to the
// system, which takes the whole address space back at exit at no cost:
// freeing them node by node is a sixth of a large file's check, and nothing
// reads them again. The pointer keeps them reachable, so a leak checker
// does not report them; a later pass left the same way frees the earlier.
frontend::FrontEndResult* leftToExit = nullptr;

void leaveToExit(frontend::FrontEndResult&& pass) {
    delete leftToExit;
    leftToExit = new frontend::FrontEndResult(std::move(pass));
}

FileCheck checkFile(const std::string& path, bool lastPass) {
    FileCheck result;
    std::string text;
    result.readable = readFile(path, text);
    if (!result.readable) return result;
    // The engine's own printing is not wanted here: each format writes the
    // records itself, in file order. A stream without a buffer drops it.
    std::ostream discard(nullptr);
    diagnostics::DiagnosticEngine engine(discard);
    frontend::FrontEndResult pass = frontend::runFrontEnd(text, path, engine);
    result.diagnostics = engine.getDiagnostics();
    if (lastPass) leaveToExit(std::move(pass));
    return result;
}

// One worker per core this process may run on (a container or `taskset`
// may allow fewer than the machine has), unless -j said otherwise.
unsigned workerCount(const CheckOptions& options) {
    if (options.jobs != 0) return options.jobs;
    cpu_set_t allowed;
    if (sched_getaffinity(0, sizeof allowed, &allowed) == 0 && CPU_COUNT(&allowed) > 0) {
        return static_cast<unsigned>(CPU_COUNT(&allowed));
    }
    return std::max(std::thread::hardware_concurrency(), 1u);
}

bool wantsColour(ColourChoice choice, const std::ostream& err) {
    if (choice != ColourChoice::Auto) return choice == ColourChoice::Always;
    return &err == &std::cerr && isatty(STDERR_FILENO) != 0;
}

// Text goes with other messages for people to standard error; the machine
// formats go to standard output, where a pipe or a CI runner reads them.
void writeDiagnostic(const diagnostics::Diagnostic& diagnostic, ReportFormat format, bool colour,
                     std::ostream& out, std::ostream& err) {
    switch (format) {
        case ReportFormat::Text:
            colour ? writeColouredText(diagnostic, err) : writePlainText(diagnostic, err);
            break;
        case ReportFormat::Json:
            writeJsonLine(diagnostic, out);
            break;
        case ReportFormat::Github:
            writeGithubAnnotation(diagnostic, out);
            break;
    }
}

std::size_t errorsIn(const std::vector<diagnostics::Diagnostic>& found) {
    return static_cast<std::size_t>(std::count_if(found.begin(), found.end(), [](const diagnostics::Diagnostic& d) {
        return d.severity == diagnostics::DiagnosticSeverity::Error;
    }));
}

// Prints what checking one file found and counts it. Each stream gets one
// write per file: standard error flushes after every insertion, which a
// tree with many errors would feel.
void reportFile(const std::string& path, const FileCheck& done, const CheckOptions& options, bool colour,
                CheckTally& tally, std::ostream& out, std::ostream& err) {
    if (!done.readable) {
        err << "quor: cannot read '" << path << "'\n";
        ++tally.unreadable;
        return;
    }
    tally.count(errorsIn(done.diagnostics));
    std::ostringstream fileOut;
    std::ostringstream fileErr;
    for (const diagnostics::Diagnostic& diagnostic : done.diagnostics) {
        writeDiagnostic(diagnostic, options.format, colour, fileOut, fileErr);
    }
    out << fileOut.str();
    err << fileErr.str();
}

}  // namespace

int runCheck(const Arguments& args, std::ostream& out, std::ostream& err) {
    CheckOptions options;
    std::string usageError;
    if (!parseCheckOptions(args, options, usageError)) {
        err << "quor check: " << usageError << "\n" << CHECK_USAGE;
        return 2;
    }
    SourceFiles sources = collectSourceFiles(options.paths);
    for (const std::string& problem : sources.problems) err << "quor: " << problem << "\n";

    bool colour = wantsColour(options.colour, err);
    std::vector<FileCheck> checks(sources.files.size());
    CheckTally tally;
    tally.unreadable = sources.problems.size();
    // With one file, its pass is the process's last.
    const bool onePass = sources.files.size() == 1;
    auto work = [&](std::size_t i) { checks[i] = checkFile(sources.files[i], onePass); };
    auto deliver = [&](std::size_t i) {
        FileCheck done = std::move(checks[i]);  // frees the file's records once printed
        reportFile(sources.files[i], done, options, colour, tally, out, err);
    };
    runOrdered(sources.files.size(), workerCount(options), work, deliver);
    if (options.format == ReportFormat::Text) err << summaryLine(tally) << "\n";
    return tally.exitStatus();
}

}  // namespace quor::cli
