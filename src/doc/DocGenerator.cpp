// Extracting a module's documentation from one source text.
#include "doc/DocGenerator.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <utility>

#include "diagnostics/DiagnosticEngine.h"
#include "doc/DocBlock.h"
#include "doc/ModuleExtractor.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"

namespace quor::doc {

namespace {

// The file name's stem, or "main" for an empty path.
std::string moduleNameFromPath(const std::string& path) {
    if (path.empty()) return "main";
    return std::filesystem::path(path).stem().string();
}

}  // namespace

DocGenerator::DocGenerator(DocOptions options) : options(std::move(options)) {}

DocModule DocGenerator::extractModule(const std::string& source, const std::string& path) const {
    DocModule module;
    module.path = path;
    module.name = moduleNameFromPath(path);
    std::vector<RawDocBlock> blocks = findDocBlocks(source);

    // Syntax errors are collected and dropped: whatever the parser kept is
    // documented.
    std::ostringstream discarded;
    diagnostics::DiagnosticEngine engine(discarded);
    const std::string filename = path.empty() ? std::string("source.quor") : path;
    lexer::Lexer scanner(source, filename, &engine);
    std::vector<lexer::Token> tokens = scanner.tokenizeAll();
    parser::Parser parser(tokens, filename, &engine);
    std::unique_ptr<ast::Program> program = parser.parseProgram();
    if (program) ModuleExtractor(module, blocks).addProgram(*program);
    return module;
}

DocModule DocGenerator::extractModuleFromFile(const std::string& path) const {
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) return DocModule{};
    std::string source((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    return extractModule(source, path);
}

std::string DocGenerator::cleanDocComment(const std::string& text) { return parseDocBlock(text, 0, 0).description; }

std::string DocGenerator::extractBrief(const std::string& text) { return firstNonEmptyLine(text); }

}  // namespace quor::doc
