#include "cli/DiagnosticReport.h"

#include <array>

#include "diagnostics/DiagnosticEngine.h"

namespace quor::cli {

namespace {

// Indexed by DiagnosticSeverity, the words the engine prints; anything
// outside the range prints as an error, as in the engine.
constexpr std::array<std::string_view, 4> SEVERITY_WORDS = {"error", "warning", "info", "hint"};

std::string_view severityWord(diagnostics::DiagnosticSeverity severity) {
    auto index = static_cast<std::uint32_t>(severity);
    return index < SEVERITY_WORDS.size() ? SEVERITY_WORDS[index] : SEVERITY_WORDS[0];
}

}  // namespace

void writeColouredText(const diagnostics::Diagnostic& diagnostic, std::ostream& out) {
    // A throwaway engine over `out` prints the record exactly as the
    // front end's own engine would.
    diagnostics::DiagnosticEngine printer(out);
    printer.printDiagnostic(diagnostic);
}

void writePlainText(const diagnostics::Diagnostic& diagnostic, std::ostream& out) {
    out << severityWord(diagnostic.severity);
    if (!diagnostic.code.empty()) out << '[' << diagnostic.code << ']';
    out << ": " << diagnostic.message << '\n';
    out << "  --> " << diagnostic.location.toString() << '\n';
    if (!diagnostic.hint.empty()) out << "   = help: " << diagnostic.hint << '\n';
}

}  // namespace quor::cli
