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

ExtractionSource readExtractionSource(const std::string& source, const std::string& path, bool withBlocks,
                                      bool parseBlocks) {
    // One scan serves both readings: the doc blocks come from the stream
    // with its comments, and the parser gets the same stream without them,
    // which is what a scan that drops comments would have made. No location
    // of these tokens reaches a DocModule (entries keep only line numbers),
    // so the scan is made under the extractor's short fixed name.
    std::ostringstream discarded;
    diagnostics::DiagnosticEngine engine(discarded);
    lexer::Lexer scanner(source, "source.quor", &engine);
    scanner.preserveComments = true;
    std::vector<lexer::Token> tokens = scanner.tokenizeAll();

    ExtractionSource result;
    if (withBlocks) result.blocks = docBlocksOf(tokens, parseBlocks);
    std::erase_if(tokens, [](const lexer::Token& token) {
        return token.type == lexer::TokenType::Comment || token.type == lexer::TokenType::DocComment;
    });
    parser::Parser parser(tokens, path.empty() ? std::string("source.quor") : path, &engine);
    result.program = parser.parseProgram();
    return result;
}

DocModule DocGenerator::extractModule(const std::string& source, const std::string& path) const {
    DocModule module;
    module.path = path;
    module.name = moduleNameFromPath(path);
    ExtractionSource read = readExtractionSource(source, path, true, true);
    if (read.program) ModuleExtractor(module, read.blocks).addProgram(*read.program);
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
