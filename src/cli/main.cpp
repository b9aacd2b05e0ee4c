// quor: the Quor front end, formatter and declaration outline in a terminal.
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
    {"check", "FILE...", "scan and parse each file, print its errors; exit 1 if any", quor::cli::runCheck},
    {"doc", "INPUT [OUTDIR]", "write Markdown and HTML pages of a file or directory into OUTDIR (docs)",
     quor::cli::runDoc},
    {"fmt", "[--check] FILE", "print the formatted file; with --check exit 1 if it is not formatted",
     quor::cli::runFormat},
    {"outline", "FILE", "list the file's declarations with their signatures and doc briefs", quor::cli::runOutline},
    {"tokens", "FILE", "print the file's tokens, one per line, with their positions", quor::cli::runTokens},
}};

void printUsage(std::ostream& out) {
    out << "Usage: quor <command> [arguments]\n\nCommands:\n";
    for (const Command& command : COMMANDS) {
        std::string head = std::string(command.name) + " " + std::string(command.arguments);
        out << "  " << head << std::string(head.size() < 22 ? 22 - head.size() : 1, ' ') << command.summary << "\n";
    }
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
