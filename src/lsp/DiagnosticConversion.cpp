// Conversion of front-end diagnostics into protocol diagnostics.
#include "lsp/DiagnosticConversion.h"

#include <cstdint>

namespace quor::lsp {

namespace {

constexpr const char* DIAGNOSTIC_SOURCE = "quorls";

// Lines and columns are read as signed 32-bit numbers; a value below 2
// clamps the zero-based result to 0.
std::int32_t asSigned(std::uint32_t value) { return static_cast<std::int32_t>(value); }

std::int32_t zeroBased(std::uint32_t oneBased) {
    std::int32_t value = asSigned(oneBased);
    return value < 2 ? 0 : value - 1;
}

}  // namespace

Diagnostic toProtocolDiagnostic(const diagnostics::Diagnostic& reported) {
    Diagnostic published;
    const std::int32_t column = asSigned(reported.location.column);
    published.range.start.line = zeroBased(reported.location.line);
    published.range.start.character = zeroBased(reported.location.column);
    published.range.end.line = published.range.start.line;
    published.range.end.character = column < 2 ? 1 : column;
    published.severity = reported.severity == diagnostics::DiagnosticSeverity::Error ? 1 : 2;
    published.code = reported.code;
    published.source = DIAGNOSTIC_SOURCE;
    published.message = reported.message;
    if (!reported.hint.empty()) published.message += " (" + reported.hint + ")";
    return published;
}

}  // namespace quor::lsp
