// The whole message loop over one byte stream: framing, JSON, dispatch,
// documents, diagnostics and every request, as a client could send them.
// Whatever comes in, what goes out is a sequence of whole frames.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>

#include "FuzzSupport.h"
#include "lsp/LspServer.h"

namespace {

// How far a message length may pass the bytes the stream holds. The loop
// allocates the body at its announced length before reading it, and what the
// stream lacks stays zero bytes: a text string cut short becomes a document
// of zero bytes, each one unexpected character and one diagnostic. That is
// the transport's intended behaviour, but a length of thousands beyond the
// input costs seconds under the sanitizers (a 9,851-byte length over a
// 352-byte stream ran past the time limit on a loaded machine) without
// reaching any code a shorter padding does not. A far longer length would
// also end in the allowed "too large for memory", which under the sanitizer's
// allocator shows as a report instead. A length with its top bit set still
// runs: it ends through the allowed length error before anything is
// allocated.
constexpr unsigned long long MAX_PADDING = 1024;
constexpr unsigned long long TOP_BIT = 1ULL << 63;

// True when some length header of the stream, read as the transport reads
// it, announces more than the stream and the padding allowance hold, yet
// not so much that the transport refuses it before allocating.
bool asksForHugeBody(const std::string& stream) {
    // A header block starts wherever the body before it ended, so every
    // occurrence counts, not only those at the start of a line.
    for (const char* name : {"Content-Length:", "content-length:"}) {
        for (std::size_t at = stream.find(name); at != std::string::npos; at = stream.find(name, at + 1)) {
            std::size_t end = stream.find('\n', at);
            std::string value = stream.substr(at + 15, end == std::string::npos ? std::string::npos : end - at - 15);
            unsigned long long length = 0;
            try {
                length = std::stoull(value);
            } catch (const std::exception&) {
                continue;
            }
            if (length > stream.size() + MAX_PADDING && length < TOP_BIT) return true;
        }
    }
    return false;
}

// Checks that `written` is a run of "Content-Length: N\r\n\r\n" frames.
void expectWholeFrames(const std::string& written) {
    static const std::string prefix = "Content-Length: ";
    std::size_t pos = 0;
    while (pos < written.size()) {
        if (written.compare(pos, prefix.size(), prefix) != 0) quor::fuzz::propertyFailed("output is not framed");
        std::size_t headerEnd = written.find("\r\n\r\n", pos);
        if (headerEnd == std::string::npos) quor::fuzz::propertyFailed("frame header without end");
        std::string digits = written.substr(pos + prefix.size(), headerEnd - pos - prefix.size());
        if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) {
            quor::fuzz::propertyFailed("frame length is not a number");
        }
        std::size_t length = std::stoull(digits);
        if (headerEnd + 4 + length > written.size()) quor::fuzz::propertyFailed("frame body cut short");
        pos = headerEnd + 4 + length;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string stream(reinterpret_cast<const char*>(data), size);
    if (asksForHugeBody(stream)) return 0;
    quor::fuzz::runGuarded(quor::fuzz::ALLOW_NUMBER_CONVERSION | quor::fuzz::ALLOW_ENUM_OVERFLOW |
                               quor::fuzz::ALLOW_LENGTH,
                           [&] {
                               std::istringstream input(stream);
                               std::ostringstream output;
                               {
                                   quor::lsp::LspServer server(input, output);
                                   server.run();
                               }
                               expectWholeFrames(output.str());
                           });
    return 0;
}
