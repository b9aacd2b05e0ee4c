#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "diagnostics/Diagnostic.h"

namespace quor::cli {

// How `quor check` writes what it found.
enum class ReportFormat {
    Text,    // the engine's printed form, for people
    Json,    // one JSON object per diagnostic per line, for programs
    Github,  // one workflow annotation per diagnostic, for GitHub Actions
};

// The engine's printed form of one diagnostic, coloured as the engine prints it.
void writeColouredText(const diagnostics::Diagnostic& diagnostic, std::ostream& out);

// The same lines as writeColouredText with no terminal escape sequences.
void writePlainText(const diagnostics::Diagnostic& diagnostic, std::ostream& out);

// {"file":...,"line":N,"column":N,"code":...,"message":...,"hint":...} and a line feed.
void writeJsonLine(const diagnostics::Diagnostic& diagnostic, std::ostream& out);

// ::error file=F,line=L,col=C,title=CODE::MESSAGE and a line feed. A hint is
// folded into the message as " (hint)", as the server does for editors.
void writeGithubAnnotation(const diagnostics::Diagnostic& diagnostic, std::ostream& out);

// `text` as a JSON string, quotes included. Valid UTF-8 passes through; a
// byte that is not part of a valid sequence is written as \u00XX, so the
// line stays valid JSON whatever bytes a source or a path holds.
std::string jsonString(std::string_view text);

// The workflow-command escapes: "%", carriage return and line feed in every
// part, and also ":" and "," in a property value.
std::string escapeAnnotationData(std::string_view text);
std::string escapeAnnotationProperty(std::string_view text);

}  // namespace quor::cli
