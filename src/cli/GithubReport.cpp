#include "cli/DiagnosticReport.h"

#include <array>

namespace quor::cli {

namespace {

struct Escape {
    char byte;
    std::string_view text;
};

// The message of a workflow command ends at the line's end, so only the
// escape character itself and the line breaks are encoded in it.
constexpr std::array<Escape, 3> DATA_ESCAPES = {{{'%', "%25"}, {'\r', "%0D"}, {'\n', "%0A"}}};

// A property value also ends at "," and its name at ":".
constexpr std::array<Escape, 5> PROPERTY_ESCAPES = {
    {{'%', "%25"}, {'\r', "%0D"}, {'\n', "%0A"}, {':', "%3A"}, {',', "%2C"}}};

template <std::size_t N>
std::string escapeWith(std::string_view text, const std::array<Escape, N>& escapes) {
    std::string out;
    out.reserve(text.size());
    for (char byte : text) {
        std::string_view replacement;
        for (const Escape& escape : escapes) {
            if (byte == escape.byte) replacement = escape.text;
        }
        if (replacement.empty()) {
            out += byte;
        } else {
            out += replacement;
        }
    }
    return out;
}

}  // namespace

std::string escapeAnnotationData(std::string_view text) { return escapeWith(text, DATA_ESCAPES); }

std::string escapeAnnotationProperty(std::string_view text) { return escapeWith(text, PROPERTY_ESCAPES); }

void writeGithubAnnotation(const diagnostics::Diagnostic& diagnostic, std::ostream& out) {
    std::string message = diagnostic.message;
    if (!diagnostic.hint.empty()) message += " (" + diagnostic.hint + ")";
    out << "::error file=" << escapeAnnotationProperty(diagnostic.location.file)
        << ",line=" << diagnostic.location.line << ",col=" << diagnostic.location.column;
    if (!diagnostic.code.empty()) out << ",title=" << escapeAnnotationProperty(diagnostic.code);
    out << "::" << escapeAnnotationData(message) << '\n';
}

}  // namespace quor::cli
