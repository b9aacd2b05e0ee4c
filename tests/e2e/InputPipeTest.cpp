// How the server takes its standard input: a pipe is widened so that an
// editor can hand over a whole large document in a few writes, and input
// that is no pipe at all is read as before.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>

#include "e2e/ServerProcess.h"

namespace {

using quor::e2e::frame;

const std::string INITIALIZE = R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{"capabilities":{}}})";
const std::string SHUTDOWN = R"({"jsonrpc":"2.0","id":2,"method":"shutdown"})";
const std::string EXIT = R"({"jsonrpc":"2.0","method":"exit"})";

using quor::e2e::awaitText;
using quor::e2e::exitStatusOf;
using quor::e2e::writeAll;

TEST(InputPipe, TheServerWidensThePipeItReadsTo1MiB) {
    ::signal(SIGPIPE, SIG_IGN);
    int input[2];
    int output[2];
    ASSERT_EQ(::pipe(input), 0);
    ASSERT_EQ(::pipe(output), 0);
    const int before = ::fcntl(input[1], F_GETPIPE_SZ);
    const pid_t child = quor::e2e::startServerOn(input[0], output[1], {input[1], output[0]});
    ASSERT_GE(child, 0);
    ::close(input[0]);
    ::close(output[1]);

    // Once the first answer is out, the server has set up its input.
    writeAll(input[1], frame(INITIALIZE));
    std::string seen;
    EXPECT_TRUE(awaitText(output[0], "\"id\":1", seen)) << seen;
    const int after = ::fcntl(input[1], F_GETPIPE_SZ);
    writeAll(input[1], frame(SHUTDOWN) + frame(EXIT));
    EXPECT_TRUE(awaitText(output[0], "\"id\":2", seen)) << seen;
    ::close(input[1]);
    ::close(output[0]);

    EXPECT_EQ(before, 64 * 1024);
    EXPECT_GE(after, 1 << 20);
    EXPECT_EQ(exitStatusOf(child), 0);
}

// A file on standard input cannot be widened; the server says nothing of it
// and answers as it does through a pipe.
TEST(InputPipe, AServerReadingAFileAnswersAsThroughAPipe) {
    const std::string session = frame(INITIALIZE) + frame(SHUTDOWN) + frame(EXIT);
    char path[] = "/tmp/quorls-input-XXXXXX";
    const int file = ::mkstemp(path);
    ASSERT_GE(file, 0);
    writeAll(file, session);
    ::lseek(file, 0, SEEK_SET);
    int output[2];
    ASSERT_EQ(::pipe(output), 0);
    const pid_t child = quor::e2e::startServerOn(file, output[1], {output[0]});
    ASSERT_GE(child, 0);
    ::close(file);
    ::close(output[1]);
    std::string fromFile;
    EXPECT_TRUE(awaitText(output[0], "\"id\":2", fromFile)) << fromFile;
    std::string rest;
    awaitText(output[0], "never written", rest);  // to end of output
    fromFile += rest;
    ::close(output[0]);
    ::unlink(path);

    const quor::e2e::ProcessResult throughPipe = quor::e2e::runServer(session);
    quor::e2e::expectCleanExit(throughPipe);
    EXPECT_EQ(fromFile, throughPipe.out);
    EXPECT_EQ(exitStatusOf(child), 0);
}

}  // namespace
