#pragma once

// What a client receives for one opened document: the expected publication
// written out byte for byte from one-based places and messages, and a check
// that opens the document in a real server and compares.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "e2e/ServerProcess.h"

namespace quor::e2e {

struct Published {
    std::string code;
    int line;    // one-based, as the front end reports it
    int column;  // one-based
    std::string message;  // with the hint folded in as " (hint)"
};

// The one-based place of the nth occurrence of `needle` on `line` of `text`.
struct Place {
    int line = 0;
    int column = 0;
};

inline Place placeOf(const std::string& text, int line, const std::string& needle, int nth = 1) {
    std::size_t start = 0;
    for (int current = 1; current < line && start != std::string::npos; ++current) {
        start = text.find('\n', start);
        if (start != std::string::npos) ++start;
    }
    if (start == std::string::npos) return {};
    std::size_t end = text.find('\n', start);
    std::string row = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
    std::size_t column = std::string::npos;
    std::size_t from = 0;
    for (int i = 0; i < nth; ++i) {
        column = row.find(needle, from);
        if (column == std::string::npos) return {};
        from = column + 1;
    }
    return {line, static_cast<int>(column) + 1};
}

// A diagnostic reported at the nth `needle` of `line`.
inline Published diagnosticAt(const std::string& text, int line, const std::string& needle, const std::string& code,
                              const std::string& message, int nth = 1) {
    Place place = placeOf(text, line, needle, nth);
    EXPECT_NE(place.line, 0) << "'" << needle << "' is not on line " << line;
    return {code, place.line, place.column, message};
}

inline std::string didOpen(const std::string& uri, const std::string& text) {
    std::string body(R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":")");
    body.append(escapeJsonText(uri));
    body.append(R"(","languageId":"quor","version":1,"text":")");
    body.append(escapeJsonText(text));
    body.append("\"}}}");
    return frame(body);
}

// A one-column range at the place, zero-based.
inline std::string diagnosticJson(const Published& d) {
    std::string line = std::to_string(d.line - 1);
    std::string json(R"({"code":")");
    json.append(d.code);
    json.append(R"(","message":")");
    json.append(escapeJsonText(d.message));
    json.append(R"(","range":{"end":{"character":)");
    json.append(std::to_string(d.column));
    json.append(R"(,"line":)");
    json.append(line);
    json.append(R"(},"start":{"character":)");
    json.append(std::to_string(d.column - 1));
    json.append(R"(,"line":)");
    json.append(line);
    json.append(R"(}},"severity":1,"source":"quorls"})");
    return json;
}

inline std::string publication(const std::string& uri, const std::vector<Published>& diagnostics) {
    std::string body(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)");
    for (std::size_t i = 0; i < diagnostics.size(); ++i) {
        if (i > 0) body.push_back(',');
        body.append(diagnosticJson(diagnostics[i]));
    }
    body.append(R"(],"uri":")");
    body.append(escapeJsonText(uri));
    body.append("\"}}");
    return frame(body);
}

#ifdef QUORLS_BINARY
// Opens `text` in a fresh server and compares the one publication it sends.
inline void expectPublished(const std::string& text, const std::vector<Published>& diagnostics,
                            const std::string& uri = "file:///w/e.quor") {
    ProcessResult result = runServer(didOpen(uri, text));
    expectCleanExit(result);
    EXPECT_EQ(result.out, publication(uri, diagnostics)) << "source:\n" << text;
}
#endif

}  // namespace quor::e2e
