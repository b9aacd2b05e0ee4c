// Wire transport: header parsing, framing, the read loop and the writers.
#include <stdexcept>
#include <string>

#include "lsp/LspServer.h"

namespace quor::lsp {

namespace {

constexpr std::size_t LENGTH_HEADER_SIZE = 15;
constexpr const char* LENGTH_HEADERS[] = {"Content-Length:", "content-length:"};

bool isLengthHeader(const std::string& line) {
    if (line.size() < LENGTH_HEADER_SIZE) return false;
    for (const char* header : LENGTH_HEADERS) {
        if (line.compare(0, LENGTH_HEADER_SIZE, header) == 0) return true;
    }
    return false;
}

// The value behind the first colon, read as std::stoull reads it; 0 when
// it cannot be read.
std::uint64_t readLengthValue(const std::string& line) {
    try {
        return std::stoull(line.substr(line.find(':') + 1));
    } catch (const std::invalid_argument&) {
        return 0;
    } catch (const std::out_of_range&) {
        return 0;
    }
}

}  // namespace

LspServer::LspServer(std::istream& input, std::ostream& output) : input(input), output(output) {}

bool LspServer::parseHeader(std::istream& stream, std::uint64_t& length) {
    length = 0;
    while (true) {
        std::string line;
        std::getline(stream, line);
        if (stream.fail()) return false;  // also true when bad
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty()) return length != 0;
        if (isLengthHeader(line)) length = readLengthValue(line);
    }
}

std::string LspServer::frameMessage(const std::string& body) {
    return "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

void LspServer::run() {
    while (running) {
        if (!input.good()) return;
        std::uint64_t length = 0;
        if (!parseHeader(input, length)) return;
        if (length != 0) {
            // A body cut short by end of input stays padded with NUL bytes.
            std::string body(length, '\0');
            input.read(body.data(), static_cast<std::streamsize>(length));
            std::string response = handleMessage(body);
            if (!response.empty()) {
                output << frameMessage(response);
                output.flush();
            }
        }
    }
}

void LspServer::sendNotification(const std::string& method, const JsonValue& params) {
    JsonValue message(JsonValue::Type::Object);
    message["jsonrpc"] = "2.0";
    message["method"] = method;
    message["params"] = params;
    output << frameMessage(message.serialize());
    output.flush();
}

void LspServer::sendResponse(const JsonValue& id, const JsonValue& result) {
    JsonValue message(JsonValue::Type::Object);
    message["id"] = id;
    message["jsonrpc"] = "2.0";
    message["result"] = result;
    output << frameMessage(message.serialize());
    output.flush();
}

void LspServer::sendError(const JsonValue& id, std::int32_t code, const std::string& message) {
    JsonValue error(JsonValue::Type::Object);
    error["code"] = code;
    error["message"] = message;
    JsonValue reply(JsonValue::Type::Object);
    reply["error"] = error;
    reply["id"] = id;
    reply["jsonrpc"] = "2.0";
    output << frameMessage(reply.serialize());
    output.flush();
}

}  // namespace quor::lsp
