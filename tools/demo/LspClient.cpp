#include "demo/LspClient.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace quor::demo {

namespace {

constexpr std::string_view LENGTH_HEADER = "Content-Length: ";

bool writeAll(int descriptor, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        ssize_t written = ::write(descriptor, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        done += static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace

LspClient::LspClient(const std::string& serverPath) {
    // A server that dies mid-session must not take the demo with it.
    ::signal(SIGPIPE, SIG_IGN);
    int input[2];
    int output[2];
    if (::pipe(input) != 0) return;
    if (::pipe(output) != 0) {
        ::close(input[0]);
        ::close(input[1]);
        return;
    }
    child = ::fork();
    if (child == 0) {
        ::dup2(input[0], STDIN_FILENO);
        ::dup2(output[1], STDOUT_FILENO);
        ::close(input[0]);
        ::close(input[1]);
        ::close(output[0]);
        ::close(output[1]);
        ::execl(serverPath.c_str(), serverPath.c_str(), static_cast<char*>(nullptr));
        ::_exit(127);
    }
    ::close(input[0]);
    ::close(output[1]);
    toServer = input[1];
    fromServer = output[0];
}

LspClient::~LspClient() { finish(); }

void LspClient::send(const lsp::JsonValue& message) {
    std::string body = message.serialize();
    std::string framed = std::string(LENGTH_HEADER) + std::to_string(body.size()) + "\r\n\r\n" + body;
    if (toServer >= 0) writeAll(toServer, framed);
}

void LspClient::notify(const std::string& method, lsp::JsonValue params) {
    lsp::JsonValue message;
    message["jsonrpc"] = "2.0";
    message["method"] = method;
    message["params"] = std::move(params);
    send(message);
}

lsp::JsonValue LspClient::request(const std::string& method, lsp::JsonValue params) {
    int id = nextId++;
    lsp::JsonValue message;
    message["jsonrpc"] = "2.0";
    message["id"] = id;
    message["method"] = method;
    message["params"] = std::move(params);
    send(message);
    for (lsp::JsonValue answer = receive(); answer.isObject(); answer = receive()) {
        if (answer["id"].isNumber() && answer["id"].getInt() == id) return answer["result"];
    }
    return {};
}

lsp::JsonValue LspClient::waitForNotification(const std::string& method) {
    for (lsp::JsonValue message = receive(); message.isObject(); message = receive()) {
        if (message["method"].getString() == method) return message["params"];
    }
    return {};
}

bool LspClient::fill() {
    char chunk[65536];
    for (;;) {
        ssize_t got = fromServer >= 0 ? ::read(fromServer, chunk, sizeof chunk) : 0;
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        buffer.append(chunk, static_cast<std::size_t>(got));
        return true;
    }
}

bool LspClient::readLine(std::string& line) {
    std::size_t end;
    while ((end = buffer.find("\r\n")) == std::string::npos) {
        if (!fill()) return false;
    }
    line = buffer.substr(0, end);
    buffer.erase(0, end + 2);
    return true;
}

bool LspClient::readBytes(std::size_t count, std::string& bytes) {
    while (buffer.size() < count) {
        if (!fill()) return false;
    }
    bytes = buffer.substr(0, count);
    buffer.erase(0, count);
    return true;
}

lsp::JsonValue LspClient::receive() {
    std::size_t length = 0;
    std::string line;
    while (readLine(line) && !line.empty()) {
        if (line.rfind(LENGTH_HEADER, 0) == 0) length = std::strtoul(line.c_str() + LENGTH_HEADER.size(), nullptr, 10);
    }
    std::string body;
    if (length == 0 || !readBytes(length, body)) return {};
    std::size_t position = 0;
    return lsp::JsonValue::parseValue(body, position);
}

int LspClient::finish() {
    if (child <= 0) return -1;
    request("shutdown", lsp::JsonValue());
    notify("exit", lsp::JsonValue());
    ::close(toServer);
    ::close(fromServer);
    toServer = fromServer = -1;
    int status = 0;
    pid_t waited = ::waitpid(child, &status, 0);
    child = -1;
    return waited > 0 && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace quor::demo
