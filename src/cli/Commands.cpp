#include "cli/Commands.h"

#include <fstream>
#include <sstream>

#include "diagnostics/DiagnosticEngine.h"
#include "doc/DocGenerator.h"
#include "lexer/Lexer.h"

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

// Read in one piece when the size can be learnt up front (a regular file);
// a pipe or a device, which cannot seek, is read to its end.
bool readFile(const std::string& path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return false;
    }
    text.clear();
    file.seekg(0, std::ios::end);
    const std::streamoff size = file.tellg();
    if (size > 0 && file.seekg(0)) {
        text.resize(static_cast<std::size_t>(size));
        file.read(text.data(), size);
        text.resize(static_cast<std::size_t>(file.gcount()));
    }
    file.clear();
    std::ostringstream rest;  // what a growing or unseekable file still holds
    rest << file.rdbuf();
    text += rest.str();
    return true;
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
