// The documents that the benchmarks generate: realistic ones must scan and
// parse cleanly at every size, the C counterpart must keep the line count,
// and every adversarial document must come through the scanner and parser.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "../../bench/generator/QuorDocuments.h"
#include "BigStack.h"
#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"
#include "parser/Parser.h"

namespace quor::parser {
namespace {

struct ParseOutcome {
    std::vector<diagnostics::Diagnostic> diagnostics;
    std::size_t declarations = 0;
    bool hasProgram = false;
};

// Parsed, and the tree freed, on a stack as large as the server's: the
// adversarial documents nest deeper than a test thread's stack allows.
ParseOutcome scanAndParse(const std::string& text) {
    ParseOutcome outcome;
    testing::runOnBigStack([&] {
        std::ostringstream sink;
        diagnostics::DiagnosticEngine engine(sink);
        lexer::Lexer scanner(text, "generated.quor", &engine);
        std::vector<lexer::Token> tokens = scanner.tokenizeAll();
        if (!engine.hasErrors()) {
            Parser parser(tokens, "generated.quor", &engine);
            auto program = parser.parseProgram();
            outcome.hasProgram = program != nullptr;
            if (program) outcome.declarations = program->declarations.size();
        }
        outcome.diagnostics = engine.getDiagnostics();
    });
    return outcome;
}

std::string describe(const std::vector<diagnostics::Diagnostic>& reported) {
    std::string text;
    for (const auto& diagnostic : reported) {
        text += diagnostic.location.toString() + " " + diagnostic.message + "\n";
        if (text.size() > 2000) break;
    }
    return text;
}

std::size_t lineCount(const std::string& text) {
    std::size_t lines = 0;
    for (char c : text) lines += c == '\n' ? 1 : 0;
    return lines;
}

TEST(GeneratedDocumentTest, RealisticDocumentHasExactlyTheRequestedNumberOfLines) {
    for (std::size_t lines : {0U, 1U, 4U, 5U, 127U, 128U, 1000U, 10000U}) {
        const std::string text = bench::realisticDocument(lines);
        EXPECT_EQ(lineCount(text), lines) << lines;
        EXPECT_TRUE(text.empty() || text.back() == '\n') << lines;
    }
}

TEST(GeneratedDocumentTest, CDocumentHasTheSameLineCountAsTheQuorDocument) {
    for (std::size_t lines : {1U, 133U, 1000U, 10000U}) {
        EXPECT_EQ(lineCount(bench::realisticCDocument(lines)), lines) << lines;
    }
    EXPECT_EQ(bench::detail::countLines(bench::detail::C_UNIT), bench::realisticUnitLines());
}

TEST(GeneratedDocumentTest, RealisticDocumentScansAndParsesWithNoDiagnostic) {
    for (std::size_t lines : {1U, 200U, 3000U}) {
        const ParseOutcome outcome = scanAndParse(bench::realisticDocument(lines));
        EXPECT_TRUE(outcome.hasProgram) << lines;
        EXPECT_TRUE(outcome.diagnostics.empty()) << lines << "\n" << describe(outcome.diagnostics);
    }
}

TEST(GeneratedDocumentTest, RealisticDocumentDeclaresEveryNameOfEachCopyOnce) {
    const std::string text = bench::realisticDocument(5 + 3 * bench::realisticUnitLines());
    for (const char* name : {"class Record0 ", "class Record1 ", "class Record2 ", "fn report2()"}) {
        const std::size_t first = text.find(name);
        ASSERT_NE(first, std::string::npos) << name;
        EXPECT_EQ(text.find(name, first + 1), std::string::npos) << name;
    }
    EXPECT_EQ(text.find("Record3"), std::string::npos);
}

TEST(GeneratedDocumentTest, RealisticDocumentParsesIntoTopLevelDeclarations) {
    // The module header, the import, and 11 declarations per copy: an enum, an
    // interface, three classes and six functions.
    const ParseOutcome outcome = scanAndParse(bench::realisticDocument(5 + 2 * bench::realisticUnitLines()));
    EXPECT_EQ(outcome.declarations, 2U + 2U * 11U);
}

TEST(GeneratedDocumentTest, FindWordGivesTheZeroBasedPlaceOfAWord) {
    const std::string text = "fn a() {}\nfn totalAmount0(x: int) {}\n";
    const bench::TextPosition found = bench::findWord(text, "totalAmount0");
    EXPECT_EQ(found.line, 1);
    EXPECT_EQ(found.character, 3);
    EXPECT_EQ(bench::findWord(text, "missing").line, -1);
    EXPECT_EQ(bench::findWord(text, "fn", 1).line, 1);
}

TEST(GeneratedDocumentTest, AdversarialDocumentsComeThroughTheScannerAndParser) {
    for (const bench::AdversarialDocument& document : bench::adversarialDocuments()) {
        EXPECT_GT(document.text.size(), 100000U) << document.name;
        // Either the scanner reported and the parser never ran, or there is a program.
        const ParseOutcome outcome = scanAndParse(document.text);
        EXPECT_TRUE(outcome.hasProgram || !outcome.diagnostics.empty()) << document.name;
    }
}

TEST(GeneratedDocumentTest, DiagnosticsDocumentGivesFiftyThousandScannerDiagnostics) {
    const ParseOutcome outcome = scanAndParse(bench::manyDiagnosticsDocument());
    EXPECT_EQ(outcome.diagnostics.size(), 50000U);
}

TEST(GeneratedDocumentTest, AdversarialDocumentsThatAreWellFormedParseWithNoDiagnostic) {
    for (const std::string& text : {bench::lessThanChainDocument(), bench::docBlocksDocument(),
                                    bench::onlyCommentsDocument(), bench::hugeStringDocument(),
                                    bench::classChainDocument(), bench::overloadsDocument(),
                                    bench::deepTypeDocument()}) {
        const ParseOutcome outcome = scanAndParse(text);
        EXPECT_TRUE(outcome.diagnostics.empty()) << text.substr(0, 60) << "\n" << describe(outcome.diagnostics);
    }
}

}  // namespace
}  // namespace quor::parser
