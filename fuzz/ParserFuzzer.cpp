// The parser over the scanner's tokens of any bytes, scanner errors included
// (the documentation extractor parses such token lists too). It always ends
// and always gives a program.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "FuzzSupport.h"
#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    quor::fuzz::runGuarded(quor::fuzz::ALLOW_NOTHING, [&] {
        std::ostringstream sink;
        quor::diagnostics::DiagnosticEngine engine(sink);
        quor::lexer::Lexer lexer(text, "<fuzz>", &engine);
        auto tokens = lexer.tokenizeAll();
        quor::parser::Parser parser(tokens, "<fuzz>", &engine);
        auto program = parser.parseProgram();
        if (!program) quor::fuzz::propertyFailed("parseProgram gave no program");
    });
    return 0;
}
