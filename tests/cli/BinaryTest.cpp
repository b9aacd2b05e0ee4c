#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace {

struct Output {
    std::string out;
    int status;
};

// Runs the built tool with `arguments`, capturing standard output only.
Output runTool(const std::string& arguments) {
    std::string command = std::string(QUOR_CLI_BINARY) + " " + arguments + " 2>/dev/null";
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

TEST(CliBinary, CheckOfTheExamplesSucceeds) {
    Output check = runTool(std::string("check ") + QUOR_EXAMPLES_DIR + "/shapes.quor " + QUOR_EXAMPLES_DIR +
                           "/collections.quor");
    EXPECT_EQ(check.status, 0);
    EXPECT_EQ(check.out, "");
}
