// quor: the Quor front end, formatter and declaration outline in a terminal.
#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>

#include "cli/Commands.h"

namespace {

using quor::cli::Arguments;

struct Command {
    std::string_view name;
    std::string_view arguments;
    std::string_view summary;
    int (*run)(const Arguments&, std::ostream&, std::ostream&);
};

constexpr std::array<Command, 5> COMMANDS = {{
    {"check", "[options] PATH...", "check files and directories of .quor files; exit 1 if any has an error",
     quor::cli::runCheck},
    {"doc", "INPUT [OUTDIR]", "write Markdown and HTML pages of a file or directory into OUTDIR (docs)",
     quor::cli::runDoc},
    {"fmt", "[--check|--stdout] PATH...", "format files and directories of .quor files in place",
     quor::cli::runFormat},
    {"outline", "FILE", "list the file's declarations with their signatures and doc briefs", quor::cli::runOutline},
    {"tokens", "FILE", "print the file's tokens, one per line, with their positions", quor::cli::runTokens},
}};

// What the command lines above leave unsaid: the options of check and fmt,
// where output goes and what the exit statuses mean.
constexpr std::string_view COMMAND_DETAILS =
    "\ncheck runs each file through the scanner, the parser and the semantic analyzer, and reports the\n"
    "errors of the first stage that has any. A directory stands for every .quor file below it, sorted.\n"
    "  --format text    the errors for people, on standard error, then \"N errors in M of K files\" (default)\n"
    "  --format json    one JSON object per error and line on standard output:\n"
    "                   file, line, column, code, message, hint\n"
    "  --format github  one GitHub Actions annotation per error on standard output\n"
    "  --color WHEN     colour the text form: auto (when standard error is a terminal), always, never\n"
    "  -j N             check N files at a time (default: one per core); the output order stays the same\n"
    "\nfmt rewrites each file that is not formatted in place, through a temporary file in the same\n"
    "directory renamed over it, and names it on standard output. A file whose tokens formatting would\n"
    "change (string literals lose their quotes, some neighbouring words are joined) is left untouched\n"
    "and reported, and fmt exits 1.\n"
    "  --check          change nothing; name each file that is not formatted and exit 1 if there is one\n"
    "  --stdout         print the formatted texts instead of writing them\n"
    "\nExit status: 0 when all is well, 1 when a file has errors or needs attention, 2 on a usage error\n"
    "or a path that cannot be read or written.\n";

void printUsage(std::ostream& out) {
    out << "Usage: quor <command> [arguments]\n\nCommands:\n";
    std::size_t width = 0;
    for (const Command& command : COMMANDS) width = std::max(width, command.name.size() + command.arguments.size() + 3);
    for (const Command& command : COMMANDS) {
        std::string head = std::string(command.name) + " " + std::string(command.arguments);
        out << "  " << head << std::string(width - head.size(), ' ') << command.summary << "\n";
    }
    out << COMMAND_DETAILS;
    out << "\nOptions:\n  -h, --help     Display this help message\n  -v, --version  Display the version\n";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        printUsage(std::cerr);
        return 2;
    }
    std::string_view first = argv[1];
    if (first == "-h" || first == "--help") {
        printUsage(std::cout);
        return 0;
    }
    if (first == "-v" || first == "--version") {
        std::cout << "quor (Quor command-line tool) version 1.0.0\n";
        return 0;
    }
    Arguments args(argv + 2, argv + argc);
    for (const Command& command : COMMANDS) {
        if (command.name == first) {
            return command.run(args, std::cout, std::cerr);
        }
    }
    std::cerr << "quor: unknown command '" << first << "'\n\n";
    printUsage(std::cerr);
    return 2;
}
