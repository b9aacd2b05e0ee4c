#pragma once

#include <gtest/gtest.h>

// Test utility: run a built binary as a child process over pipes, feed it a
// byte string on stdin, and collect everything it writes to stdout and
// stderr together with its exit status. A safety timeout kills a child that
// never finishes so that a broken build cannot hang the test run; tests do
// not assert on time.

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <vector>

namespace quor::e2e {

struct ProcessResult {
    std::string out;
    std::string err;
    bool exited = false;      // ended through exit()/return from main
    int exitStatus = -1;      // valid when `exited`
    int termSignal = 0;       // the signal that ended it, if any
    bool timedOut = false;    // killed by the safety timeout
};

namespace detail {

inline void closeFd(int& fd) {
    if (fd >= 0) {
        ::close(fd);
        fd = -1;
    }
}

inline bool readSome(int& fd, std::string& sink) {
    char buffer[65536];
    ssize_t count = ::read(fd, buffer, sizeof buffer);
    if (count > 0) {
        sink.append(buffer, static_cast<std::size_t>(count));
        return true;
    }
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) return true;
    closeFd(fd);
    return false;
}

}  // namespace detail

// Starts `binary` with `args`, writes `input` to its stdin, closes stdin and
// reads stdout and stderr to end of file. A non-zero `memoryLimitMiB` caps
// the child's heap: past it an allocation fails (in a sanitizer build the
// sanitizer's own limit on resident memory ends the child instead).
inline ProcessResult runProcess(const std::string& binary, const std::vector<std::string>& args,
                                const std::string& input, int safetyTimeoutSeconds = 300,
                                std::size_t memoryLimitMiB = 0) {
    ::signal(SIGPIPE, SIG_IGN);  // a child that stops reading must not kill the test
    ProcessResult result;
    int inPipe[2], outPipe[2], errPipe[2];
    if (::pipe(inPipe) != 0 || ::pipe(outPipe) != 0 || ::pipe(errPipe) != 0) return result;

    std::vector<std::string> argvStore;
    argvStore.push_back(binary);
    argvStore.insert(argvStore.end(), args.begin(), args.end());
    std::vector<char*> argv;
    for (auto& arg : argvStore) argv.push_back(arg.data());
    argv.push_back(nullptr);

    pid_t pid = ::fork();
    if (pid == 0) {
        if (memoryLimitMiB > 0) {
#if defined(__SANITIZE_ADDRESS__)
            std::string options = "hard_rss_limit_mb=" + std::to_string(memoryLimitMiB);
            if (const char* given = ::getenv("ASAN_OPTIONS")) options = std::string(given) + ":" + options;
            ::setenv("ASAN_OPTIONS", options.c_str(), 1);
#else
            rlimit limit{};
            limit.rlim_cur = limit.rlim_max = static_cast<rlim_t>(memoryLimitMiB) << 20;
            ::setrlimit(RLIMIT_DATA, &limit);
#endif
        }
        ::dup2(inPipe[0], 0);
        ::dup2(outPipe[1], 1);
        ::dup2(errPipe[1], 2);
        for (int fd : {inPipe[0], inPipe[1], outPipe[0], outPipe[1], errPipe[0], errPipe[1]}) ::close(fd);
        ::execv(binary.c_str(), argv.data());
        ::_exit(127);
    }
    ::close(inPipe[0]);
    ::close(outPipe[1]);
    ::close(errPipe[1]);
    int inFd = inPipe[1], outFd = outPipe[0], errFd = errPipe[0];
    if (pid < 0) {
        detail::closeFd(inFd);
        detail::closeFd(outFd);
        detail::closeFd(errFd);
        return result;
    }
    ::fcntl(inFd, F_SETFL, ::fcntl(inFd, F_GETFL) | O_NONBLOCK);

    std::size_t written = 0;
    if (input.empty()) detail::closeFd(inFd);
    auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(safetyTimeoutSeconds);
    while (outFd >= 0 || errFd >= 0) {
        auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            ::kill(pid, SIGKILL);
            result.timedOut = true;
            break;
        }
        pollfd fds[3];
        nfds_t count = 0;
        int outSlot = -1, errSlot = -1, inSlot = -1;
        if (outFd >= 0) { outSlot = static_cast<int>(count); fds[count++] = {outFd, POLLIN, 0}; }
        if (errFd >= 0) { errSlot = static_cast<int>(count); fds[count++] = {errFd, POLLIN, 0}; }
        if (inFd >= 0) { inSlot = static_cast<int>(count); fds[count++] = {inFd, POLLOUT, 0}; }
        int ready = ::poll(fds, count, static_cast<int>(left.count() > 1000 ? 1000 : left.count()));
        if (ready < 0 && errno != EINTR) break;
        if (ready <= 0) continue;
        if (outSlot >= 0 && fds[outSlot].revents != 0) detail::readSome(outFd, result.out);
        if (errSlot >= 0 && fds[errSlot].revents != 0) detail::readSome(errFd, result.err);
        if (inSlot >= 0 && fds[inSlot].revents != 0) {
            ssize_t n = ::write(inFd, input.data() + written, input.size() - written);
            if (n > 0) written += static_cast<std::size_t>(n);
            if ((n < 0 && errno != EAGAIN && errno != EINTR) || written == input.size()) detail::closeFd(inFd);
        }
    }
    detail::closeFd(inFd);
    detail::closeFd(outFd);
    detail::closeFd(errFd);

    int status = 0;
    while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status)) {
        result.exited = true;
        result.exitStatus = WEXITSTATUS(status);
    } else if (WIFSIGNALED(status)) {
        result.termSignal = WTERMSIG(status);
    }
    return result;
}

#ifdef QUORLS_BINARY
// Runs the language server binary.
inline ProcessResult runServer(const std::string& input, const std::vector<std::string>& args = {}) {
    return runProcess(QUORLS_BINARY, args, input);
}

// Starts the language server reading `input` and writing to `output`, for a
// test that drives it a message at a time. The child closes its copies of
// both and of `otherEnds` (the caller's ends of the same pipes). A given
// `stackLimit` (soft and hard) is set for the child before the server starts.
// Returns the child's id, negative when it could not be started.
inline pid_t startServerOn(int input, int output, std::initializer_list<int> otherEnds,
                           const rlimit* stackLimit = nullptr) {
    const pid_t pid = ::fork();
    if (pid == 0) {
        if (stackLimit != nullptr) ::setrlimit(RLIMIT_STACK, stackLimit);
        ::dup2(input, 0);
        ::dup2(output, 1);
        ::close(input);
        ::close(output);
        for (int fd : otherEnds) ::close(fd);
        ::execl(QUORLS_BINARY, QUORLS_BINARY, static_cast<char*>(nullptr));
        ::_exit(127);
    }
    return pid;
}
#endif

// Reads from `fd` until `text` has arrived or a safety limit passes.
inline bool awaitText(int fd, const std::string& text, std::string& seen) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (seen.find(text) == std::string::npos) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        pollfd descriptor{fd, POLLIN, 0};
        if (::poll(&descriptor, 1, 1000) <= 0) continue;
        char chunk[4096];
        const ssize_t count = ::read(fd, chunk, sizeof chunk);
        if (count <= 0) return false;
        seen.append(chunk, static_cast<std::size_t>(count));
    }
    return true;
}

inline void writeAll(int fd, const std::string& bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (count <= 0) return;
        written += static_cast<std::size_t>(count);
    }
}

// The exit status of a finished child, -1 when it did not exit normally.
inline int exitStatusOf(pid_t child) {
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

// "Content-Length: N\r\n\r\n" followed by the body.
inline std::string frame(const std::string& body) {
    return "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

// Splits a stream of framed messages (as the server writes them) into their
// bodies. Stops at the first piece that is not a well-formed frame; that
// remainder, if any, is returned as a last element prefixed with "<<junk>>".
inline std::vector<std::string> splitFramed(const std::string& stream) {
    static const std::string prefix = "Content-Length: ";
    std::vector<std::string> bodies;
    std::size_t pos = 0;
    while (pos < stream.size()) {
        std::size_t headerEnd = stream.find("\r\n\r\n", pos);
        bool ok = stream.compare(pos, prefix.size(), prefix) == 0 && headerEnd != std::string::npos;
        std::size_t length = 0;
        if (ok) {
            std::string digits = stream.substr(pos + prefix.size(), headerEnd - pos - prefix.size());
            ok = !digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos &&
                 digits.size() < 19;
            if (ok) length = std::stoull(digits);
            ok = ok && headerEnd + 4 + length <= stream.size();
        }
        if (!ok) {
            bodies.push_back("<<junk>>" + stream.substr(pos));
            break;
        }
        bodies.push_back(stream.substr(headerEnd + 4, length));
        pos = headerEnd + 4 + length;
    }
    return bodies;
}

// The orderly end every session must have: no hang, exit status 0 and
// nothing on standard error.
inline void expectCleanExit(const ProcessResult& result) {
    EXPECT_FALSE(result.timedOut);
    EXPECT_TRUE(result.exited);
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.err, "");
}

// `text` escaped for the inside of a JSON string: quote, backslash, line
// feed, carriage return and tab; every other byte is sent as it is.
inline std::string escapeJsonText(const std::string& text) {
    std::string out;
    for (char c : text) {
        switch (c) {
            case '"': out.append("\\\""); break;
            case '\\': out.append("\\\\"); break;
            case '\n': out.append("\\n"); break;
            case '\r': out.append("\\r"); break;
            case '\t': out.append("\\t"); break;
            default: out.push_back(c);
        }
    }
    return out;
}

}  // namespace quor::e2e
