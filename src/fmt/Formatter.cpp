#include "fmt/Formatter.h"

#include <sstream>
#include <vector>

#include "diagnostics/DiagnosticEngine.h"
#include "fmt/FormatPass.h"
#include "lexer/Lexer.h"

namespace quor::fmt {

Formatter::Formatter(FormatOptions options) : options(options) {}

std::string Formatter::format(const std::string& source) const {
    if (source.empty()) return {};

    std::ostringstream report;  // the scanner's printed faults are not shown anywhere
    diagnostics::DiagnosticEngine engine(report);
    lexer::Lexer scanner(source, "<format>", &engine);
    scanner.preserveComments = true;
    const std::vector<lexer::Token> tokens = scanner.tokenizeAll();

    // Text the scanner rejects is handed back untouched.
    if (engine.getErrorCount() != 0 || tokens.empty()) return source;
    // So is text whose formatted form would pass MAX_FORMATTED_SIZE, which
    // only absurdly deep nesting reaches.
    std::optional<std::string> formatted = formatTokensWithin(tokens, options, source.size() + 256, MAX_FORMATTED_SIZE);
    return formatted ? std::move(*formatted) : source;
}

bool Formatter::isFormatted(const std::string& source) const { return format(source) == source; }

}  // namespace quor::fmt
