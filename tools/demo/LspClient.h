#pragma once

#include <sys/types.h>

#include <string>

#include "lsp/JsonValue.h"

namespace quor::demo {

// The editor's end of a language server connection: starts the server as a
// child process and talks framed JSON-RPC to it over two pipes, one message
// at a time, as an editor does.
class LspClient {
public:
    explicit LspClient(const std::string& serverPath);
    ~LspClient();
    LspClient(const LspClient&) = delete;
    LspClient& operator=(const LspClient&) = delete;

    bool running() const { return child > 0; }

    void notify(const std::string& method, lsp::JsonValue params);

    // Sends a request and returns its "result", passing over whatever the
    // server sends before the answer. Null if the server went away.
    lsp::JsonValue request(const std::string& method, lsp::JsonValue params);

    // The params of the next notification of that method; Null if the
    // server went away first.
    lsp::JsonValue waitForNotification(const std::string& method);

    // Sends "shutdown" and "exit", closes the pipes and returns the
    // server's exit status (-1 if it did not exit normally).
    int finish();

private:
    void send(const lsp::JsonValue& message);
    lsp::JsonValue receive();  // Null at end of input
    bool fill();  // appends what one read gives to `buffer`; false at end of input
    bool readLine(std::string& line);
    bool readBytes(std::size_t count, std::string& bytes);

    pid_t child = -1;
    int toServer = -1;
    int fromServer = -1;
    int nextId = 1;
    std::string buffer;  // bytes read from the server and not yet used
};

}  // namespace quor::demo
