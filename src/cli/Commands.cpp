#include "cli/Commands.h"

#include <fstream>
#include <sstream>

#include "diagnostics/DiagnosticEngine.h"
#include "doc/DocGenerator.h"
#include "fmt/Formatter.h"
#include "frontend/FrontEnd.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"

namespace quor::cli {

namespace {

// Checks that exactly one file was named and reads it; reports on `err` otherwise.
bool readSingleFile(const Arguments& args, std::string& path, std::string& text, std::ostream& err) {
    if (args.size() != 1) {
        err << "quor: expected exactly one file\n";
        return false;
    }
    path = args.front();
    if (!readFile(path, text)) {
        err << "quor: cannot read '" << path << "'\n";
        return false;
    }
    return true;
}

}  // namespace

bool readFile(const std::string& path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return false;
    }
    std::ostringstream buffer;
    buffer << file.rdbuf();
    text = buffer.str();
    return true;
}

int runCheck(const Arguments& args, std::ostream& out, std::ostream& err) {
    if (args.empty()) {
        err << "quor: expected at least one file\n";
        return 2;
    }
    bool anyErrors = false;
    for (const std::string& path : args) {
        std::string text;
        if (!readFile(path, text)) {
            err << "quor: cannot read '" << path << "'\n";
            anyErrors = true;
            continue;
        }
        diagnostics::DiagnosticEngine engine(out);
        frontend::runFrontEnd(text, path, engine);
        anyErrors = anyErrors || engine.getErrorCount() != 0;
    }
    return anyErrors ? 1 : 0;
}

int runFormat(const Arguments& args, std::ostream& out, std::ostream& err) {
    bool checkOnly = !args.empty() && args.front() == "--check";
    Arguments files(args.begin() + (checkOnly ? 1 : 0), args.end());
    std::string path;
    std::string text;
    if (!readSingleFile(files, path, text, err)) {
        return 2;
    }
    // The defaults are the settings the server formats with.
    fmt::Formatter formatter(fmt::FormatOptions{});
    if (checkOnly) {
        bool formatted = formatter.isFormatted(text);
        if (!formatted) {
            out << path << ": not formatted\n";
        }
        return formatted ? 0 : 1;
    }
    out << formatter.format(text);
    return 0;
}

int runOutline(const Arguments& args, std::ostream& out, std::ostream& err) {
    std::string path;
    std::string text;
    if (!readSingleFile(args, path, text, err)) {
        return 2;
    }
    doc::DocGenerator generator(doc::defaultDocOptions());
    doc::DocModule module = generator.extractModule(text, path);
    out << "module " << module.name << "\n";
    for (const doc::DocEntry& entry : module.entries) {
        out << entry.line << ": " << entry.signature;
        if (!entry.brief.empty()) {
            out << "    // " << entry.brief;
        }
        out << "\n";
        for (const doc::DocEntry& member : entry.members) {
            out << "  " << member.line << ": " << member.signature << "\n";
        }
    }
    return 0;
}

int runTokens(const Arguments& args, std::ostream& out, std::ostream& err) {
    std::string path;
    std::string text;
    if (!readSingleFile(args, path, text, err)) {
        return 2;
    }
    diagnostics::DiagnosticEngine engine(err);
    lexer::Lexer lexer(text, path, &engine);
    lexer.preserveComments = true;
    for (const lexer::Token& token : lexer.tokenizeAll()) {
        out << token.location.line << ":" << token.location.column << " " << lexer::tokenTypeToString(token.type)
            << " '" << token.lexeme << "'\n";
    }
    return engine.getErrorCount() != 0 ? 1 : 0;
}

}  // namespace quor::cli
