#pragma once

// Small helpers for driving an LspServer over string streams.

#include <sstream>
#include <string>

#include "lsp/LspServer.h"

namespace quor::lsp::testing {

inline std::string framed(const std::string& body) {
    return "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

// Runs a fresh server over `input` and returns everything it wrote.
inline std::string runSession(const std::string& input) {
    std::istringstream in(input);
    std::ostringstream out;
    LspServer server(in, out);
    server.run();
    return out.str();
}

inline JsonValue parse(const std::string& text) {
    std::size_t pos = 0;
    return JsonValue::parseValue(text, pos);
}

}  // namespace quor::lsp::testing
