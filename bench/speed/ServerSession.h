#pragma once

// A `quorls` child process spoken to over pipes with the real framing: what
// an editor does. Used by the speed table to time whole messages.

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quor::bench {

// Escapes a text for a JSON string literal (without the quotes).
std::string jsonEscape(std::string_view text);

class ServerSession {
public:
    explicit ServerSession(const std::string& binary);
    ~ServerSession();
    ServerSession(const ServerSession&) = delete;
    ServerSession& operator=(const ServerSession&) = delete;

    // Writes one framed message; false when the pipe is closed.
    bool send(std::string_view body);
    // Reads one framed message into `body`; false on end of output, a broken
    // frame, or no message within `timeoutSeconds`.
    bool receive(std::string& body, double timeoutSeconds);
    // Reads messages until one contains `marker`; false as `receive`.
    bool receiveUntil(std::string_view marker, std::string& body, double timeoutSeconds);

    // Sends a request with the next id and waits for its response; the
    // response body lands in `body`. Returns the seconds taken, or a negative
    // number on failure.
    double request(const std::string& method, const std::string& params, std::string& body,
                   double timeoutSeconds = 60);
    // Sends a notification that makes the server publish diagnostics and
    // waits for the publication. Seconds, or negative on failure.
    double notifyAndAwaitPublication(const std::string& method, const std::string& params,
                                     std::string& body, double timeoutSeconds = 60);

    // Peak resident memory of the process so far, in KiB (VmHWM), or 0.
    std::uint64_t peakResidentKiB() const;
    // Sends shutdown and exit and waits; true when the process left with status 0.
    bool finish();
    bool alive() const { return pid > 0 && !exited; }

private:
    bool fill(double deadline);

    pid_t pid = -1;
    int toServer = -1;
    int fromServer = -1;
    bool exited = false;
    int exitStatus = -1;
    std::int64_t nextId = 1;
    std::string buffer;
};

double nowSeconds();

}  // namespace quor::bench
