// The whole diagnostics chain of the server over any bytes: scanner, parser,
// then the resolver and the checker when the earlier stages are clean, then
// the conversion into protocol records.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "FuzzSupport.h"
#include "diagnostics/DiagnosticEngine.h"
#include "frontend/FrontEnd.h"
#include "lsp/LspServer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    quor::fuzz::runGuarded(quor::fuzz::ALLOW_ENUM_OVERFLOW, [&] {
        {
            std::ostringstream sink;
            quor::diagnostics::DiagnosticEngine engine(sink);
            auto result = quor::frontend::runFrontEnd(text, "file:///fuzz.quor", engine);
            if (result.tokens.empty()) quor::fuzz::propertyFailed("the front end kept no tokens");
        }
        std::istringstream none;
        std::ostringstream out;
        quor::lsp::LspServer server(none, out);
        auto records = server.computeDiagnostics("file:///fuzz.quor", text);
        for (const auto& record : records) {
            if (record.range.start.line < 0 || record.range.start.character < 0) {
                quor::fuzz::propertyFailed("a published range starts before the text");
            }
        }
    });
    return 0;
}
