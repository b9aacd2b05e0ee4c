// The analyzer over generated programs that scan and parse, so the name
// resolver and the type checker, not the parser, meet the fuzzer's choices.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

#include "FuzzSupport.h"
#include "QuorGenerator.h"
#include "diagnostics/DiagnosticEngine.h"
#include "frontend/FrontEnd.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = quor::fuzz::QuorGenerator(data, size).program();
    if (std::getenv("QUOR_FUZZ_PRINT") != nullptr) std::fprintf(stderr, "%s\n----\n", text.c_str());
    quor::fuzz::runGuarded(quor::fuzz::ALLOW_ENUM_OVERFLOW, [&] {
        std::ostringstream sink;
        quor::diagnostics::DiagnosticEngine engine(sink);
        (void)quor::frontend::runFrontEnd(text, "file:///generated.quor", engine);
        if (std::getenv("QUOR_FUZZ_PRINT") != nullptr) std::fprintf(stderr, "%s====\n", sink.str().c_str());
    });
    return 0;
}
