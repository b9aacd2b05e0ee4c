#include "diagnostics/DiagnosticEngine.h"

#include <array>

namespace quor::diagnostics {

namespace {

struct SeverityStyle {
    std::string_view word;
    std::string_view colour;
};

// Indexed by DiagnosticSeverity; anything outside the range prints as an error.
constexpr std::array<SeverityStyle, 4> SEVERITY_STYLES = {{
    {"error", "\x1b[1;31m"},
    {"warning", "\x1b[1;33m"},
    {"info", "\x1b[1;34m"},
    {"hint", "\x1b[1;36m"},
}};

const SeverityStyle& styleOf(DiagnosticSeverity severity) {
    auto index = static_cast<std::uint32_t>(severity);
    return index < SEVERITY_STYLES.size() ? SEVERITY_STYLES[index] : SEVERITY_STYLES[0];
}

constexpr std::string_view RESET = "\x1b[0m";
constexpr std::string_view BOLD = "\x1b[1m";
constexpr std::string_view GREEN = "\x1b[32m";

}  // namespace

DiagnosticEngine::DiagnosticEngine(std::ostream& output) : output(output) {}

void DiagnosticEngine::report(DiagnosticSeverity severity, std::string_view code, std::string_view message,
                              const SourceLocation& location, std::string_view hint) {
    if (severity == DiagnosticSeverity::Error) {
        ++errorCount;
    } else {
        ++warningCount;
    }
    diagnostics.push_back(Diagnostic{severity, std::string(code), std::string(message), location, std::string(hint)});
    printDiagnostic(diagnostics.back());
}

void DiagnosticEngine::reportError(std::string_view code, std::string_view message, const SourceLocation& location,
                                   std::string_view hint) {
    report(DiagnosticSeverity::Error, code, message, location, hint);
}

void DiagnosticEngine::reportWarning(std::string_view code, std::string_view message, const SourceLocation& location,
                                     std::string_view hint) {
    report(DiagnosticSeverity::Warning, code, message, location, hint);
}

void DiagnosticEngine::printDiagnostic(const Diagnostic& diagnostic) {
    const SeverityStyle& style = styleOf(diagnostic.severity);
    output << style.colour << style.word;
    if (!diagnostic.code.empty()) {
        output << '[' << diagnostic.code << ']';
    }
    output << ": " << RESET << BOLD << diagnostic.message << RESET << '\n';
    output << "  --> " << diagnostic.location.toString() << '\n';
    if (!diagnostic.hint.empty()) {
        output << "   = " << GREEN << "help: " << RESET << diagnostic.hint << '\n';
    }
}

void DiagnosticEngine::clear() {
    diagnostics.clear();
    errorCount = 0;
    warningCount = 0;
}

}  // namespace quor::diagnostics
