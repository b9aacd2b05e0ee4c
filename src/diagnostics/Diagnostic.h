#pragma once

#include <cstdint>
#include <string>

#include "diagnostics/SourceLocation.h"

namespace quor::diagnostics {

enum class DiagnosticSeverity : std::int32_t {
    Error = 0,
    Warning = 1,
    Info = 2,
    Hint = 3,
};

struct Diagnostic {
    DiagnosticSeverity severity = DiagnosticSeverity::Error;
    std::string code;
    std::string message;
    SourceLocation location;
    std::string hint;
};

}  // namespace quor::diagnostics
