#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <sys/wait.h>

#include "cli/CliTestSupport.h"

namespace {

struct Output {
    std::string out;
    int status;
};

// Runs a shell command, capturing standard output only.
Output runShell(const std::string& command) {
    Output result{"", -1};
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return result;
    char buffer[4096];
    std::size_t count = 0;
    while ((count = fread(buffer, 1, sizeof buffer, pipe)) > 0) result.out.append(buffer, count);
    int raw = pclose(pipe);
    result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return result;
}

// Runs the built tool with `arguments`, capturing standard output only.
Output runTool(const std::string& arguments) {
    return runShell(std::string(QUOR_CLI_BINARY) + " " + arguments + " 2>/dev/null");
}

}  // namespace

TEST(CliBinary, HelpListsEveryCommandAndExitsZero) {
    Output help = runTool("--help");
    EXPECT_EQ(help.status, 0);
    for (const char* command : {"check", "fmt", "outline", "tokens"}) {
        EXPECT_NE(help.out.find(std::string("  ") + command + " "), std::string::npos) << command;
    }
    EXPECT_EQ(runTool("-h").out, help.out);
}

TEST(CliBinary, VersionNamesTheTool) {
    Output version = runTool("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "quor (Quor command-line tool) version 1.0.0\n");
}

TEST(CliBinary, UnknownCommandOrNoCommandIsAUsageError) {
    EXPECT_EQ(runTool("frobnicate").status, 2);
    EXPECT_EQ(runTool("").status, 2);
}

TEST(CliBinary, HelpDescribesTheOptionsOfCheckAndFmt) {
    Output help = runTool("--help");
    for (const char* option : {"--format json", "--format github", "--color WHEN", "-j N", "--check", "--stdout"}) {
        EXPECT_NE(help.out.find(option), std::string::npos) << option;
    }
}

TEST(CliBinary, CheckOfACleanDirectorySucceedsWithNothingOnStandardOutput) {
    quor::cli::testing::TempDir dir;
    dir.write("clean.quor", "let x = 1;\n");
    Output check = runTool("check " + dir.root);
    EXPECT_EQ(check.status, 0);
    EXPECT_EQ(check.out, "");
}

TEST(CliBinary, CheckInJsonWritesTheDiagnosticsToStandardOutput) {
    quor::cli::testing::TempDir dir;
    std::string path = dir.write("bad.quor", "#\n");
    Output check = runTool("check --format json " + dir.root);
    EXPECT_EQ(check.status, 1);
    EXPECT_EQ(check.out.rfind("{\"file\":\"" + path + "\",\"line\":1,\"column\":1,", 0), 0u) << check.out;
}

TEST(CliBinary, CheckOfAMissingPathNextToGoodFilesExitsTwo) {
    quor::cli::testing::TempDir dir;
    dir.write("clean.quor", "let x = 1;\n");
    Output check = runTool("check " + dir.root + " " + dir.path("none.quor"));
    EXPECT_EQ(check.status, 2);
}

// A file that cannot seek (a pipe) is read to its end like any other.
TEST(CliBinary, CheckReadsASourceFromAPipe) {
    const std::string tool = std::string(QUOR_CLI_BINARY);
    Output broken = runShell("printf 'fn main(): int { return \"x\"; }' | " + tool + " check --format json /dev/stdin");
    EXPECT_EQ(broken.status, 1);
    EXPECT_NE(broken.out.find("\"message\":\"Return type mismatch: expected 'int', got 'string'\""), std::string::npos)
        << broken.out;
    Output clean = runShell("printf 'fn main(): int { return 1; }' | " + tool + " check /dev/stdin 2>/dev/null");
    EXPECT_EQ(clean.status, 0);
}
