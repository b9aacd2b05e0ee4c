// The formatter with the server's settings over any bytes, and the property
// that formatting its own output changes nothing where that must hold.
//
// The formatter works on tokens and never looks at white space, so its
// output is a fixed point only when the output scans back into the same
// tokens with no token spread over several lines:
// - it may join two tokens that had white space between them (`class Foo
//   extends Bar` gives `Fooextends`, `- -x` gives `--x`), and the joined
//   token is spaced by its own rules on the next run;
// - blank lines are read off the tokens' first lines, so a block comment or
//   string over several lines counts its inner lines as a gap the next run
//   turns into a blank line;
// - a text the scanner rejects comes back unchanged, whatever it holds.
// Where none of these applies, formatting the output must give it back.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "diagnostics/DiagnosticEngine.h"
#include "fmt/Formatter.h"
#include "lexer/Lexer.h"

namespace {

struct Scan {
    bool clean = false;
    std::vector<quor::lexer::Token> tokens;
};

Scan scanWithComments(const std::string& text) {
    std::ostringstream sink;
    quor::diagnostics::DiagnosticEngine engine(sink);
    quor::lexer::Lexer lexer(text, "<format>", &engine);
    lexer.preserveComments = true;
    Scan scan;
    scan.tokens = lexer.tokenizeAll();
    scan.clean = !engine.hasErrors();
    return scan;
}

bool sameTokens(const Scan& a, const Scan& b) {
    if (a.tokens.size() != b.tokens.size()) return false;
    for (std::size_t i = 0; i < a.tokens.size(); ++i) {
        if (a.tokens[i].type != b.tokens[i].type || a.tokens[i].lexeme != b.tokens[i].lexeme) return false;
    }
    return true;
}

bool anyTokenOverSeveralLines(const Scan& scan) {
    for (const auto& token : scan.tokens) {
        if (token.lexeme.find('\n') != std::string::npos) return true;
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    quor::fuzz::runGuarded(quor::fuzz::ALLOW_NOTHING, [&] {
        // The defaults are the settings the server formats with.
        const quor::fmt::Formatter formatter(quor::fmt::FormatOptions{});
        const std::string once = formatter.format(text);
        if (once == text) return;
        const Scan before = scanWithComments(text);
        const Scan after = scanWithComments(once);
        if (!before.clean || !after.clean) return;
        if (!sameTokens(before, after) || anyTokenOverSeveralLines(after)) return;
        const std::string twice = formatter.format(once);
        if (twice != once) quor::fuzz::propertyFailed("formatting formatted text changed it");
        if (!formatter.isFormatted(once)) quor::fuzz::propertyFailed("isFormatted is false for formatted text");
    });
    return 0;
}
