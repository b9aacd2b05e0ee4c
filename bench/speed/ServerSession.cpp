#include "ServerSession.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace quor::bench {

double nowSeconds() {
    using Clock = std::chrono::steady_clock;
    return std::chrono::duration<double>(Clock::now().time_since_epoch()).count();
}

std::string jsonEscape(std::string_view text) {
    std::string out;
    out.reserve(text.size() + text.size() / 16 + 2);
    for (char c : text) {
        switch (c) {
            case '"': out.append("\\\""); break;
            case '\\': out.append("\\\\"); break;
            case '\n': out.append("\\n"); break;
            case '\r': out.append("\\r"); break;
            case '\t': out.append("\\t"); break;
            default:
                if (static_cast<unsigned char>(c) < 0x20) {
                    char escaped[8];
                    std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(c));
                    out.append(escaped);
                } else {
                    out.push_back(c);
                }
        }
    }
    return out;
}

ServerSession::ServerSession(const std::string& binary) {
    int in[2];
    int out[2];
    if (pipe(in) != 0 || pipe(out) != 0) return;
    pid = fork();
    if (pid == 0) {
        dup2(in[0], STDIN_FILENO);
        dup2(out[1], STDOUT_FILENO);
        int devNull = open("/dev/null", O_WRONLY);
        if (devNull >= 0) dup2(devNull, STDERR_FILENO);
        close(in[0]);
        close(in[1]);
        close(out[0]);
        close(out[1]);
        execl(binary.c_str(), binary.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    close(in[0]);
    close(out[1]);
    toServer = in[1];
    fromServer = out[0];
    signal(SIGPIPE, SIG_IGN);
}

ServerSession::~ServerSession() {
    if (toServer >= 0) close(toServer);
    if (fromServer >= 0) close(fromServer);
    if (pid > 0 && !exited) {
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
    }
}

bool ServerSession::send(std::string_view body) {
    std::string framed = "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n";
    framed.append(body);
    std::size_t written = 0;
    while (written < framed.size()) {
        ssize_t n = write(toServer, framed.data() + written, framed.size() - written);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        written += static_cast<std::size_t>(n);
    }
    return true;
}

bool ServerSession::fill(double deadline) {
    const double left = deadline - nowSeconds();
    if (left <= 0) return false;
    pollfd descriptor{fromServer, POLLIN, 0};
    int ready = poll(&descriptor, 1, static_cast<int>(left * 1000) + 1);
    if (ready <= 0) return false;
    char chunk[1 << 16];
    ssize_t n = read(fromServer, chunk, sizeof chunk);
    if (n <= 0) return false;
    buffer.append(chunk, static_cast<std::size_t>(n));
    return true;
}

bool ServerSession::receive(std::string& body, double timeoutSeconds) {
    const double deadline = nowSeconds() + timeoutSeconds;
    std::size_t headerEnd;
    while ((headerEnd = buffer.find("\r\n\r\n")) == std::string::npos) {
        if (!fill(deadline)) return false;
    }
    const std::string_view header(buffer.data(), headerEnd);
    const std::size_t at = header.find("Content-Length: ");
    if (at == std::string_view::npos) return false;
    const std::size_t length = std::strtoull(buffer.c_str() + at + 16, nullptr, 10);
    const std::size_t start = headerEnd + 4;
    while (buffer.size() < start + length) {
        if (!fill(deadline)) return false;
    }
    body.assign(buffer, start, length);
    buffer.erase(0, start + length);
    return true;
}

bool ServerSession::receiveUntil(std::string_view marker, std::string& body, double timeoutSeconds) {
    const double deadline = nowSeconds() + timeoutSeconds;
    while (true) {
        const double left = deadline - nowSeconds();
        if (left <= 0 || !receive(body, left)) return false;
        if (body.find(marker) != std::string::npos) return true;
    }
}

double ServerSession::request(const std::string& method, const std::string& params, std::string& body,
                              double timeoutSeconds) {
    const std::string id = std::to_string(nextId++);
    const std::string message =
        R"({"jsonrpc":"2.0","id":)" + id + R"(,"method":")" + method + R"(","params":)" + params + "}";
    const std::string marker = "{\"id\":" + id + ",";
    const double start = nowSeconds();
    if (!send(message)) return -1;
    if (!receiveUntil(marker, body, timeoutSeconds)) return -1;
    return nowSeconds() - start;
}

double ServerSession::notifyAndAwaitPublication(const std::string& method, const std::string& params,
                                                std::string& body, double timeoutSeconds) {
    const std::string message = R"({"jsonrpc":"2.0","method":")" + method + R"(","params":)" + params + "}";
    const double start = nowSeconds();
    if (!send(message)) return -1;
    if (!receiveUntil("\"method\":\"textDocument/publishDiagnostics\"", body, timeoutSeconds)) return -1;
    return nowSeconds() - start;
}

std::uint64_t ServerSession::peakResidentKiB() const {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("VmHWM:", 0) == 0) return std::strtoull(line.c_str() + 6, nullptr, 10);
    }
    return 0;
}

bool ServerSession::finish() {
    std::string body;
    request("shutdown", "null", body, 10);
    send(R"({"jsonrpc":"2.0","method":"exit"})");
    close(toServer);
    toServer = -1;
    int status = 0;
    const double deadline = nowSeconds() + 10;
    while (nowSeconds() < deadline) {
        pid_t done = waitpid(pid, &status, WNOHANG);
        if (done == pid) {
            exited = true;
            exitStatus = status;
            return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        }
        usleep(1000);
    }
    return false;
}

}  // namespace quor::bench
