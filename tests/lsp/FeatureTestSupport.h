#pragma once

// Shared pieces of the editor feature tests: a server over empty streams
// whose request handlers are called directly, and the params of a request
// that names a place in a document.

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "lsp/LspServer.h"

namespace quor::lsp::testing {

// The fields `"textDocument":{"uri":…},"position":{"line":…,"character":…}`
// without the braces around them, so that a request may add its own fields.
inline std::string positionFields(const std::string& uri, int line, int character) {
    std::string fields = R"("textDocument":{"uri":")";
    fields.append(uri);
    fields.append(R"("},"position":{"line":)");
    fields.append(std::to_string(line));
    fields.append(R"(,"character":)");
    fields.append(std::to_string(character));
    fields.append("}");
    return fields;
}

// The whole params object of a request at one place of one document.
inline std::string positionParams(const std::string& uri, int line, int character) {
    std::string params = "{";
    params.append(positionFields(uri, line, character));
    params.append("}");
    return params;
}

// A server that reads nothing and writes into a string; the tests open
// documents on it and call its handlers one by one.
class FeatureTest : public ::testing::Test {
protected:
    std::istringstream in;
    std::ostringstream out;
    LspServer server{in, out};
};

}  // namespace quor::lsp::testing
