#pragma once

#include <cstdint>
#include <ostream>
#include <string_view>
#include <vector>

#include "diagnostics/Diagnostic.h"

namespace quor::diagnostics {

// Collects the faults that every front-end stage reports, counts them and
// prints each one, coloured, to the stream it was given as it arrives.
class DiagnosticEngine {
public:
    explicit DiagnosticEngine(std::ostream& output);

    void report(DiagnosticSeverity severity, std::string_view code, std::string_view message,
                const SourceLocation& location, std::string_view hint);
    void reportError(std::string_view code, std::string_view message, const SourceLocation& location,
                     std::string_view hint);
    void reportWarning(std::string_view code, std::string_view message, const SourceLocation& location,
                       std::string_view hint);

    void printDiagnostic(const Diagnostic& diagnostic);
    void clear();

    const std::vector<Diagnostic>& getDiagnostics() const { return diagnostics; }
    std::uint64_t getErrorCount() const { return errorCount; }
    std::uint64_t getWarningCount() const { return warningCount; }
    bool hasErrors() const { return errorCount != 0; }

private:
    std::ostream& output;
    std::vector<Diagnostic> diagnostics;
    std::uint64_t errorCount = 0;
    std::uint64_t warningCount = 0;
};

}  // namespace quor::diagnostics
