// Where the server runs: on the main thread, whose stack limit it raises to
// 1 GiB by starting itself again, so that the process has a single thread;
// and, where the limit may not be raised, on a thread of its own with that
// stack. Deep documents are read by plain recursion either way.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/types.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>

#include "e2e/ServerProcess.h"

namespace {

using quor::e2e::awaitText;
using quor::e2e::exitStatusOf;
using quor::e2e::frame;
using quor::e2e::writeAll;

const std::string INITIALIZE = R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{"capabilities":{}}})";
const std::string SHUTDOWN = R"({"jsonrpc":"2.0","id":2,"method":"shutdown"})";
const std::string EXIT = R"({"jsonrpc":"2.0","method":"exit"})";
constexpr rlim_t GIB = rlim_t{1} << 30;

// A field of /proc/PID/status, such as "Threads", without its label.
std::string statusField(pid_t process, const std::string& field) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind(field + ":", 0) == 0) {
            std::istringstream value(line.substr(field.size() + 1));
            std::string word;
            value >> word;
            return word;
        }
    }
    return "";
}

// The soft stack limit as /proc/PID/limits shows it.
std::string softStackLimit(pid_t process) {
    std::ifstream limits("/proc/" + std::to_string(process) + "/limits");
    std::string line;
    while (std::getline(limits, line)) {
        if (line.rfind("Max stack size", 0) == 0) {
            std::istringstream value(line.substr(std::string("Max stack size").size()));
            std::string soft;
            value >> soft;
            return soft;
        }
    }
    return "";
}

// What a running server shows of itself once it has answered "initialize".
struct RunningServer {
    std::string threads;
    std::string stackLimit;
    std::string name;
    bool answered = false;
    int exitStatus = -1;
};

// A document nested deeper than a usual 8 MiB stack could read: the JSON
// reader recurses once per bracket.
std::string deepHover() {
    const int depth = 200000;
    return R"({"jsonrpc":"2.0","id":3,"method":"textDocument/hover","params":{"deep":)" + std::string(depth, '[') +
           std::string(depth, ']') + R"(,"textDocument":{"uri":"file:///d.quor"},"position":{"line":0,"character":0}}})";
}

RunningServer runServerWith(rlimit stackLimit) {
    ::signal(SIGPIPE, SIG_IGN);
    RunningServer seen;
    int input[2];
    int output[2];
    if (::pipe(input) != 0 || ::pipe(output) != 0) return seen;
    const pid_t child = quor::e2e::startServerOn(input[0], output[1], {input[1], output[0]}, &stackLimit);
    ::close(input[0]);
    ::close(output[1]);
    if (child < 0) return seen;

    writeAll(input[1], frame(INITIALIZE));
    std::string answers;
    seen.answered = awaitText(output[0], "\"id\":1", answers);
    seen.threads = statusField(child, "Threads");
    seen.stackLimit = softStackLimit(child);
    seen.name = statusField(child, "Name");
    writeAll(input[1], frame(deepHover()) + frame(SHUTDOWN) + frame(EXIT));
    seen.answered = seen.answered && awaitText(output[0], "\"id\":2", answers) &&
                    answers.find(R"({"id":3,"jsonrpc":"2.0","result":null})") != std::string::npos;
    ::close(input[1]);
    ::close(output[0]);
    seen.exitStatus = exitStatusOf(child);
    return seen;
}

TEST(ServerStack, TheServerRunsOnItsOnlyThreadWithA1GiBStackLimit) {
    const RunningServer server = runServerWith({8u << 20, RLIM_INFINITY});
    EXPECT_TRUE(server.answered);
    EXPECT_EQ(server.threads, "1");
    EXPECT_EQ(server.stackLimit, std::to_string(GIB));
    EXPECT_EQ(server.name, "quorls");
    EXPECT_EQ(server.exitStatus, 0);
}

TEST(ServerStack, ALimitAlready1GiBIsKept) {
    const RunningServer server = runServerWith({GIB, GIB});
    EXPECT_TRUE(server.answered);
    EXPECT_EQ(server.threads, "1");
    EXPECT_EQ(server.stackLimit, std::to_string(GIB));
    EXPECT_EQ(server.exitStatus, 0);
}

TEST(ServerStack, WhereTheLimitMayNotBeRaisedTheServerRunsOnAThreadOfItsOwn) {
    const RunningServer server = runServerWith({64u << 20, 64u << 20});
    EXPECT_TRUE(server.answered);
    EXPECT_EQ(server.threads, "2");
    EXPECT_EQ(server.stackLimit, std::to_string(64u << 20));
    EXPECT_EQ(server.exitStatus, 0);
}

}  // namespace
