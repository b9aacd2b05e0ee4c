// The scanner over any bytes, with and without comments kept: it always
// ends, with exactly one end token, last, and never reports a place outside
// the text.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "FuzzSupport.h"
#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"

using quor::lexer::TokenType;

namespace {

void scan(const std::string& text, bool keepComments) {
    std::ostringstream sink;
    quor::diagnostics::DiagnosticEngine engine(sink);
    quor::lexer::Lexer lexer(text, "<fuzz>", &engine);
    lexer.preserveComments = keepComments;
    auto tokens = lexer.tokenizeAll();
    if (tokens.empty() || tokens.back().type != TokenType::EndOfFile) {
        quor::fuzz::propertyFailed("token list does not end in EndOfFile");
    }
    std::size_t lines = 1;
    for (char c : text) lines += c == '\n' ? 1 : 0;
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        if (tokens[i].type == TokenType::EndOfFile) quor::fuzz::propertyFailed("EndOfFile before the end");
        if (tokens[i].location.line < 1 || static_cast<std::size_t>(tokens[i].location.line) > lines) {
            quor::fuzz::propertyFailed("token line outside the text");
        }
        if (!keepComments &&
            (tokens[i].type == TokenType::Comment || tokens[i].type == TokenType::DocComment)) {
            quor::fuzz::propertyFailed("comment token kept though comments are dropped");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    quor::fuzz::runGuarded(quor::fuzz::ALLOW_NOTHING, [&] {
        scan(text, false);
        scan(text, true);
    });
    return 0;
}
