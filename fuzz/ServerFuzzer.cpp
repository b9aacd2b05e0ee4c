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

// Largest message length run for real. A longer one makes the loop allocate
// a string of that size before anything is read, which is the allocation
// the transport is meant to make, not a finding; beyond what a string can
// hold it ends through the allowed length error.
constexpr unsigned long long MAX_ALLOCATED_LENGTH = 1ULL << 24;

// True when some length header of the stream, read as the transport reads
// it, would allocate a string too large for this harness to hold yet small
// enough to be attempted.
bool asksForHugeBody(const std::string& stream) {
    std::size_t start = 0;
    while (start < stream.size()) {
        std::size_t end = stream.find('\n', start);
        if (end == std::string::npos) end = stream.size();
        std::string line = stream.substr(start, end - start);
        start = end + 1;
        if (line.size() < 15) continue;
        if (line.compare(0, 15, "Content-Length:") != 0 && line.compare(0, 15, "content-length:") != 0) continue;
        unsigned long long length = 0;
        try {
            length = std::stoull(line.substr(line.find(':') + 1));
        } catch (const std::exception&) {
            continue;
        }
        if (length > MAX_ALLOCATED_LENGTH && length <= std::string().max_size()) return true;
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
