#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

// The byte offset of a one-based line and column, counting only line feeds.
std::size_t offsetOf(std::string_view source, std::uint32_t line, std::uint32_t column) {
    std::size_t offset = 0;
    for (std::uint32_t current = 1; current < line; ++current) {
        offset = source.find('\n', offset) + 1;
    }
    return offset + column - 1;
}

bool isDecodedKind(TokenType type) {
    return type == TokenType::StringLiteral || type == TokenType::CharLiteral || type == TokenType::EndOfFile;
}

// What must hold for every source, however broken: the stream ends with
// exactly one end token, every fault is one Invalid token plus one diagnostic
// at the same place, tokens move forward, and raw lexemes are source slices.
void expectWellFormedScan(std::string_view source, bool preserveComments) {
    std::ostringstream sink;
    diagnostics::DiagnosticEngine engine(sink);
    Lexer lexer(source, "r.quor", &engine);
    lexer.preserveComments = preserveComments;
    std::vector<Token> tokens = lexer.tokenizeAll();
    const auto& reports = engine.getDiagnostics();

    ASSERT_FALSE(tokens.empty());
    EXPECT_EQ(tokens.back().type, TokenType::EndOfFile);
    EXPECT_TRUE(tokens.back().lexeme.empty());
    std::size_t invalidSeen = 0;
    std::size_t previousOffset = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens[i];
        if (i + 1 < tokens.size()) {
            EXPECT_NE(token.type, TokenType::EndOfFile);
        }
        std::size_t offset = offsetOf(source, token.location.line, token.location.column);
        ASSERT_LE(offset, source.size());
        if (i > 0) {
            EXPECT_GT(offset, previousOffset);
        }
        previousOffset = offset;
        if (!isDecodedKind(token.type)) {
            EXPECT_EQ(source.substr(offset, token.lexeme.size()), token.lexeme);
            EXPECT_FALSE(token.lexeme.empty());
        }
        if (!preserveComments) {
            EXPECT_NE(token.type, TokenType::Comment);
            EXPECT_NE(token.type, TokenType::DocComment);
        }
        if (token.type == TokenType::Invalid) {
            ASSERT_LT(invalidSeen, reports.size());
            EXPECT_EQ(reports[invalidSeen].location.line, token.location.line);
            EXPECT_EQ(reports[invalidSeen].location.column, token.location.column);
            EXPECT_EQ(reports[invalidSeen].code, "E1000");
            ++invalidSeen;
        }
    }
    EXPECT_EQ(invalidSeen, reports.size());
    EXPECT_EQ(engine.getErrorCount(), reports.size());
}

// A text holding every construct of the language, so that its prefixes end
// inside each of them: strings, escapes, unicode escapes, characters, block
// and nested comments, line and doc comments, radix prefixes and exponents.
constexpr std::string_view EVERY_CONSTRUCT =
    "/// doc\n"
    "fn main() -> int {\r\n"
    "    var s = \"a\\tb\\u00e9\\uD83D\\\"q\\${x}\\\\\";\n"
    "    let c = '\\n'; let d = '\\''; let e = 'x';\n"
    "    /* outer /* inner */ still */ // tail\n"
    "    return 0x1F + 0b1_0 + 0o7 + 1_000 + 1.5e-3f + 2E+9 + 3.25F + 4e6;\n"
    "    a?.b ?? c >>= d <<= e => f -> g .. h;\n"
    "}\n";

TEST(LexerRobustness, EveryPrefixOfARichSourceScansCleanlyToTheEnd) {
    for (std::size_t length = 0; length <= EVERY_CONSTRUCT.size(); ++length) {
        SCOPED_TRACE(length);
        expectWellFormedScan(EVERY_CONSTRUCT.substr(0, length), false);
        expectWellFormedScan(EVERY_CONSTRUCT.substr(0, length), true);
    }
}

TEST(LexerRobustness, EverySuffixOfARichSourceScansCleanlyToTheEnd) {
    for (std::size_t start = 0; start <= EVERY_CONSTRUCT.size(); ++start) {
        SCOPED_TRACE(start);
        expectWellFormedScan(EVERY_CONSTRUCT.substr(start), true);
    }
}

// Openings of every construct; each is followed by every byte value and then
// by one of a few bytes that matter to the scanner.
constexpr std::array<std::string_view, 16> OPENINGS = {
    "", "\"", "'", "0", "0x", "0b", "0o", "1e", "1.5e", "1.", "/*", "/", "\"\\", "\"\\u", "\"\\u0", "'\\",
};

constexpr std::array<char, 11> FOLLOWERS = {'\0', '\n', '\r', '\'', '"', '\\', '*', '/', 'a', '1', '\xFF'};

TEST(LexerRobustness, EveryByteAfterEveryOpeningScansCleanly) {
    for (std::string_view opening : OPENINGS) {
        for (int value = 0; value < 256; ++value) {
            std::string source(opening);
            source.push_back(static_cast<char>(value));
            expectWellFormedScan(source, true);
            for (char follower : FOLLOWERS) {
                std::string longer = source;
                longer.push_back(follower);
                expectWellFormedScan(longer, false);
            }
        }
    }
}

TEST(LexerRobustness, PseudoRandomByteSoupScansCleanly) {
    // A fixed linear congruential sequence, so every run sees the same texts.
    constexpr std::string_view ALPHABET = "\"'\\/*\n\r\t 0xbeE._uf+-=<>?!|&{}$#`aZ9\x80\xC3\xFF";
    std::uint32_t state = 12345;
    auto next = [&state] {
        state = state * 1103515245u + 12345u;
        return state >> 16;
    };
    for (int round = 0; round < 400; ++round) {
        std::string source;
        std::uint32_t length = next() % 48;
        for (std::uint32_t i = 0; i < length; ++i) {
            std::uint32_t pick = next();
            source.push_back(pick % 4 == 0 ? static_cast<char>(pick >> 4) : ALPHABET[(pick >> 4) % ALPHABET.size()]);
        }
        SCOPED_TRACE(round);
        expectWellFormedScan(source, round % 2 == 0);
    }
}

TEST(LexerRobustness, InvalidUtf8InsideStringsAndCommentsIsKeptRaw) {
    std::string bytesInside = "\xC3\x28\xA0\xA1\xE2\x28\xA1\xF0\x28\x8C\xBC\xFF\xFE";
    std::string source = "\"";
    source.append(bytesInside).append("\" // ").append(bytesInside).append("\n/* ").append(bytesInside).append(" */");
    auto result = testing::scan(source, true);
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_EQ(result.tokens[0].type, TokenType::StringLiteral);
    EXPECT_EQ(result.tokens[0].lexeme, bytesInside);
    EXPECT_EQ(result.tokens[1].type, TokenType::Comment);
    EXPECT_EQ(result.tokens[2].type, TokenType::Comment);
    EXPECT_EQ(result.tokens[2].location.line, 2u);
    EXPECT_TRUE(result.diagnostics.empty());
}

TEST(LexerRobustness, NulBytesInsideCommentsAndStringsAreOrdinaryBytes) {
    auto result = testing::scan(testing::bytes("// a\0b\n/* \0 */ \"x\0y\" z"), true);
    ASSERT_EQ(result.tokens.size(), 5u);
    EXPECT_EQ(result.tokens[0].lexeme, testing::bytes("// a\0b"));
    EXPECT_EQ(result.tokens[1].lexeme, testing::bytes("/* \0 */"));
    EXPECT_EQ(result.tokens[2].lexeme, testing::bytes("x\0y"));
    EXPECT_TRUE(testing::isToken(result.tokens[3], TokenType::Identifier, "z", 2, 15));
    EXPECT_TRUE(result.diagnostics.empty());
}

TEST(LexerRobustness, DeeplyNestedUnclosedCommentIsOneFault) {
    std::string source;
    for (int i = 0; i < 50000; ++i) {
        source.append("/*");
    }
    auto result = testing::scan(source);
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_EQ(result.tokens[0].type, TokenType::Invalid);
    EXPECT_EQ(result.tokens[0].lexeme.size(), source.size());
    EXPECT_EQ(result.diagnostics.size(), 1u);
}

TEST(LexerRobustness, DeeplyNestedClosedCommentIsOneComment) {
    std::string source;
    for (int i = 0; i < 50000; ++i) {
        source.append("/*");
    }
    for (int i = 0; i < 50000; ++i) {
        source.append("*/");
    }
    source.append("x");
    auto result = testing::scan(source, true);
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_EQ(result.tokens[0].type, TokenType::Comment);
    EXPECT_EQ(result.tokens[0].lexeme.size(), source.size() - 1);
    EXPECT_TRUE(testing::isToken(result.tokens[1], TokenType::Identifier, "x", 1, 200001));
}

TEST(LexerRobustness, LongLineCountsEveryByteAsAColumn) {
    std::string source(100000, ' ');
    source.append("x\n").append(70000, '\t').append("y");
    auto result = testing::scan(source);
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(testing::isToken(result.tokens[0], TokenType::Identifier, "x", 1, 100001));
    EXPECT_TRUE(testing::isToken(result.tokens[1], TokenType::Identifier, "y", 2, 70001));
}

TEST(LexerRobustness, LargeSourceOfManyTokensAndFaults) {
    std::string source;
    for (int i = 0; i < 20000; ++i) {
        source.append("a1 #\n");
    }
    auto result = testing::scan(source);
    ASSERT_EQ(result.tokens.size(), 40001u);
    EXPECT_EQ(result.diagnostics.size(), 20000u);
    EXPECT_TRUE(testing::isToken(result.tokens[39998], TokenType::Identifier, "a1", 20000, 1));
    EXPECT_TRUE(testing::isToken(result.tokens[39999], TokenType::Invalid, "#", 20000, 4));
    EXPECT_TRUE(testing::isToken(result.tokens[40000], TokenType::EndOfFile, "", 20001, 1));
}

TEST(LexerRobustness, LongStringLiteralIsOneToken) {
    std::string body(300000, 'q');
    std::string source = "\"";
    source.append(body).append("\"");
    auto result = testing::scan(source);
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_EQ(result.tokens[0].lexeme, body);
}

}  // namespace
}  // namespace quor::lexer
