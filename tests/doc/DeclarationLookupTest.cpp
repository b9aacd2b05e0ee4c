// Looking one declaration up by name must give exactly what a lookup over
// the whole extracted module gives, doc comment included, although it
// builds only the entry it finds; and claiming doc blocks by binary search
// must pick what a walk over every block picks.
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "../../bench/generator/QuorDocuments.h"
#include "DocTestSupport.h"
#include "doc/DocBlock.h"
#include "doc/DocLookup.h"
#include "lexer/Lexer.h"

namespace quor::doc {
namespace {

using testing::DEMO_PATH;
using testing::extract;

std::string readExample(const char* name) {
    std::ifstream file(std::string(QUOR_EXAMPLES_DIR) + "/" + name, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// Every identifier and keyword spelling of the source, plus a few names
// that are declared nowhere.
std::set<std::string> wordsOf(const std::string& source) {
    lexer::Lexer scanner(source, "words.quor", nullptr);
    std::set<std::string> words = {"missing", "", "__quor_test_add_works"};
    for (const lexer::Token& token : scanner.tokenizeAll()) {
        if (!token.lexeme.empty() && token.type != lexer::TokenType::StringLiteral) words.insert(token.lexeme);
    }
    return words;
}

void expectSameEntry(const DocEntry& expected, const DocEntry& actual, const std::string& word) {
    EXPECT_EQ(actual.name, expected.name) << word;
    EXPECT_EQ(actual.kind, expected.kind) << word;
    EXPECT_EQ(actual.signature, expected.signature) << word;
    EXPECT_EQ(actual.description, expected.description) << word;
    EXPECT_EQ(actual.brief, expected.brief) << word;
    EXPECT_EQ(actual.returnType, expected.returnType) << word;
    EXPECT_EQ(actual.returnDescription, expected.returnDescription) << word;
    EXPECT_EQ(actual.visibility, expected.visibility) << word;
    EXPECT_EQ(actual.isStatic, expected.isStatic) << word;
    EXPECT_EQ(actual.isAsync, expected.isAsync) << word;
    EXPECT_EQ(actual.isOverride, expected.isOverride) << word;
    EXPECT_EQ(actual.line, expected.line) << word;
    ASSERT_EQ(actual.params.size(), expected.params.size()) << word;
    for (std::size_t i = 0; i < expected.params.size(); ++i) {
        EXPECT_EQ(actual.params[i].name, expected.params[i].name) << word;
        EXPECT_EQ(actual.params[i].type, expected.params[i].type) << word;
        EXPECT_EQ(actual.params[i].description, expected.params[i].description) << word;
    }
    ASSERT_EQ(actual.members.size(), expected.members.size()) << word;
    for (std::size_t i = 0; i < expected.members.size(); ++i) {
        EXPECT_EQ(actual.members[i].name, expected.members[i].name) << word;
        EXPECT_EQ(actual.members[i].description, expected.members[i].description) << word;
    }
}

void expectLookupsAgreeWithTheModule(const std::string& source) {
    const DocModule module = extract(source);
    for (const std::string& word : wordsOf(source)) {
        const DocEntry* expected = findEntryByName(module, word);
        const std::optional<DocEntry> found = lookupDeclaration(source, DEMO_PATH, word);
        const std::optional<std::int32_t> line = lookupDeclarationLine(source, DEMO_PATH, word);
        ASSERT_EQ(found.has_value(), expected != nullptr) << word;
        ASSERT_EQ(line.has_value(), expected != nullptr) << word;
        if (expected == nullptr) continue;
        expectSameEntry(*expected, *found, word);
        EXPECT_EQ(*line, expected->line) << word;
    }
}

TEST(DeclarationLookup, AgreesWithTheModuleOnTheExamples) {
    expectLookupsAgreeWithTheModule(readExample("shapes.quor"));
    expectLookupsAgreeWithTheModule(readExample("collections.quor"));
}

TEST(DeclarationLookup, AgreesWithTheModuleOnAGeneratedDocument) {
    expectLookupsAgreeWithTheModule(bench::realisticDocument(5 + 3 * bench::realisticUnitLines()));
}

TEST(DeclarationLookup, AgreesWithTheModuleWhenEarlierDeclarationsTakeTheNearerBlocks) {
    // Blocks claimed out of line order: a class takes the block above it, its
    // members take theirs, an enum's variants stand on the enum's line and
    // take what is left within reach, and a later function of a member's
    // name finds the member first.
    const std::string source =
        "/// module text\n"
        "module m;\n"
        "/// first\n"
        "/// @param a the a\n"
        "/// @return nothing\n"
        "fn twice(a: int) {}\n"
        "/// second\n"
        "fn twice(b: string) {}\n"
        "/// for the enum\n"
        "/// a second block line\n"
        "\n"
        "/// spare one\n"
        "enum Mode { On, Off }\n"
        "/// struct\n"
        "struct P {\n"
        "    /// x field\n"
        "    x: int;\n"
        "    y: int;\n"
        "}\n"
        "/// iface\n"
        "interface I {\n"
        "    /// m method\n"
        "    fn m(): int;\n"
        "}\n"
        "/** the class */\n"
        "class C extends B implements I {\n"
        "    /// a field\n"
        "    private int count;\n"
        "    /// the method\n"
        "    public static fn m(): int { return 1; }\n"
        "    C(int count) { this.count = count; }\n"
        "}\n"
        "/// the variable\n"
        "let y = 3;\n"
        "test \"a test\" { assert(true); }\n"
        "/// late\n"
        "fn count(): int { return 2; }\n"
        "fn broken( { }\n"
        "/// after the break\n"
        "fn On(): int => 1;\n";
    expectLookupsAgreeWithTheModule(source);
}

RawDocBlock blockEndingAt(std::int32_t line) {
    RawDocBlock block;
    block.startLine = line;
    block.endLine = line;
    return block;
}

// What a walk over every block picks: the nearest unused block 1 to 5
// lines above, the later one of two at the same distance.
RawDocBlock* claimByWalking(std::vector<RawDocBlock>& blocks, std::int32_t line) {
    RawDocBlock* best = nullptr;
    std::int64_t limit = 5;
    for (RawDocBlock& block : blocks) {
        const std::int64_t distance = std::int64_t{line} - block.endLine;
        if (!block.used && distance >= 1 && distance <= limit) {
            best = &block;
            limit = distance;
        }
    }
    if (best != nullptr) best->used = true;
    return best;
}

TEST(DocBlockClaim, BinarySearchPicksWhatAWalkOverEveryBlockPicks) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::vector<RawDocBlock> blocks;
        std::int32_t line = 1;
        for (int i = 0; i < 40; ++i) {
            line += static_cast<std::int32_t>(random() % 3);  // repeated end lines too
            blocks.push_back(blockEndingAt(line));
            blocks.back().used = random() % 4 == 0;
        }
        std::vector<RawDocBlock> walked = blocks;
        for (int claim = 0; claim < 60; ++claim) {
            const auto at = static_cast<std::int32_t>(random() % static_cast<unsigned>(line + 8));
            RawDocBlock* searched = claimDocBlock(blocks, at);
            RawDocBlock* reference = claimByWalking(walked, at);
            ASSERT_EQ(searched == nullptr, reference == nullptr) << round << " " << at;
            if (searched != nullptr) {
                EXPECT_EQ(searched - blocks.data(), reference - walked.data()) << at;
            }
        }
    }
}

TEST(DocBlockFind, BlocksOfATokenStreamAreThoseOfTheSourceAndCanBeReadLater) {
    const std::string source = "/// one\n// two\n\n/// three\nfn f() {}\n// plain\nlet x = 1; /** four */\n/// five";
    lexer::Lexer scanner(source, "b.quor", nullptr);
    scanner.preserveComments = true;
    const std::vector<lexer::Token> tokens = scanner.tokenizeAll();
    const std::vector<RawDocBlock> parsed = docBlocksOf(tokens, true);
    const std::vector<RawDocBlock> raw = docBlocksOf(tokens, false);
    const std::vector<RawDocBlock> found = findDocBlocks(source);
    // "one" with "two"; "three"; "four" with "five" on the next line. The
    // plain comment above the variable documents nothing.
    ASSERT_EQ(parsed.size(), 3U);
    ASSERT_EQ(raw.size(), parsed.size());
    ASSERT_EQ(found.size(), parsed.size());
    for (std::size_t i = 0; i < parsed.size(); ++i) {
        EXPECT_EQ(raw[i].raw, parsed[i].raw);
        EXPECT_EQ(raw[i].startLine, parsed[i].startLine);
        EXPECT_EQ(raw[i].endLine, parsed[i].endLine);
        EXPECT_TRUE(raw[i].description.empty());
        EXPECT_EQ(parseDocBlock(raw[i].raw, raw[i].startLine, raw[i].endLine).description, parsed[i].description);
        EXPECT_EQ(found[i].description, parsed[i].description);
        EXPECT_EQ(found[i].endLine, parsed[i].endLine);
    }
    EXPECT_EQ(parsed[0].description, "one\n// two");
    EXPECT_EQ(parsed[2].startLine, 7);
    EXPECT_EQ(parsed[2].endLine, 8);
}

}  // namespace
}  // namespace quor::doc
