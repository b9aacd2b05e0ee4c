#include <gtest/gtest.h>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

using testing::isToken;
using testing::scan;

TEST(LexerPositions, EmptySourceYieldsOneEndOfFileAtLineOneColumnOne) {
    auto result = scan("");
    ASSERT_EQ(result.tokens.size(), 1u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::EndOfFile, "", 1, 1));
    EXPECT_EQ(result.tokens[0].location.file, "test.quor");
}

TEST(LexerPositions, WhitespaceOnlySourceYieldsEndOfFileBehindIt) {
    auto result = scan("  \n\t ");
    ASSERT_EQ(result.tokens.size(), 1u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::EndOfFile, "", 2, 3));
}

TEST(LexerPositions, ColumnsCountBytesFromOne) {
    auto result = scan("a bb  ccc");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Identifier, "a", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "bb", 1, 3));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "ccc", 1, 7));
    EXPECT_TRUE(isToken(result.tokens[3], TokenType::EndOfFile, "", 1, 10));
}

TEST(LexerPositions, LineFeedStartsANewLineAtColumnOne) {
    auto result = scan("a\n  b\n\nc");
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Identifier, "a", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "b", 2, 3));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "c", 4, 1));
}

TEST(LexerPositions, CarriageReturnLineFeedEndsTheLineAtTheLineFeed) {
    auto result = scan("a\r\nb");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "b", 2, 1));
}

TEST(LexerPositions, LoneCarriageReturnDoesNotStartALine) {
    auto result = scan("a\rb");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "b", 1, 3));
}

TEST(LexerPositions, TabCountsOneColumn) {
    auto result = scan("\t\tx");
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Identifier, "x", 1, 3));
}

TEST(LexerPositions, MultiByteCharacterAdvancesColumnByItsByteCount) {
    // "é" is two bytes inside the string, so x starts at column 6.
    auto result = scan("\"\xC3\xA9\" x");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::StringLiteral, "\xC3\xA9", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x", 1, 6));
}

TEST(LexerPositions, TokenSpanningLinesKeepsItsStartAndLaterTokensFollowTheLines) {
    auto result = scan("  /* one\ntwo\n */ x", true);
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "/* one\ntwo\n */", 1, 3));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x", 3, 5));
}

TEST(LexerPositions, FileNameIsCopiedIntoEveryToken) {
    std::ostringstream sink;
    diagnostics::DiagnosticEngine engine(sink);
    Lexer lexer("a + 1", "file:///w/a.quor", &engine);
    for (const Token& token : lexer.tokenizeAll()) {
        EXPECT_EQ(token.location.file, "file:///w/a.quor");
    }
}

TEST(LexerPositions, DiagnosticsCarryTheFileName) {
    std::ostringstream sink;
    diagnostics::DiagnosticEngine engine(sink);
    Lexer lexer("#", "<format>", &engine);
    lexer.tokenizeAll();
    ASSERT_EQ(engine.getDiagnostics().size(), 1u);
    EXPECT_EQ(engine.getDiagnostics()[0].location.file, "<format>");
}

TEST(LexerStream, NextTokenKeepsReturningEndOfFileAfterTheEnd) {
    Lexer lexer("x", "f", nullptr);
    EXPECT_EQ(lexer.nextToken().type, TokenType::Identifier);
    for (int i = 0; i < 3; ++i) {
        Token token = lexer.nextToken();
        EXPECT_TRUE(isToken(token, TokenType::EndOfFile, "", 1, 2));
    }
}

TEST(LexerStream, TokenizeAllEndsWithExactlyOneEndOfFile) {
    Lexer lexer("a b c", "f", nullptr);
    auto tokens = lexer.tokenizeAll();
    ASSERT_EQ(tokens.size(), 4u);
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        EXPECT_NE(tokens[i].type, TokenType::EndOfFile);
    }
    EXPECT_EQ(tokens.back().type, TokenType::EndOfFile);
}

TEST(LexerStream, TokenizeAllKeepsInvalidTokensInPlace) {
    auto result = scan("a # b");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Identifier, "a", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Invalid, "#", 1, 3));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "b", 1, 5));
}

TEST(LexerStream, WithoutEngineFaultsAreSilentButStillInvalidTokens) {
    Lexer lexer("#\"abc", "<anonymous>", nullptr);
    auto tokens = lexer.tokenizeAll();
    ASSERT_EQ(tokens.size(), 3u);
    EXPECT_TRUE(isToken(tokens[0], TokenType::Invalid, "#", 1, 1));
    EXPECT_TRUE(isToken(tokens[1], TokenType::Invalid, "\"abc", 1, 2));
    EXPECT_EQ(tokens[2].type, TokenType::EndOfFile);
}

TEST(LexerIdentifiers, LettersDigitsAndUnderscoresFormOneIdentifier) {
    auto result = scan("_a1_B2 __ x9");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Identifier, "_a1_B2", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "__", 1, 8));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "x9", 1, 11));
}

TEST(LexerIdentifiers, NonAsciiByteEndsAnIdentifierAndIsUnexpected) {
    auto result = scan("ab\xC3\xA9");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Identifier, "ab", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Invalid, "\xC3", 1, 3));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Invalid, "\xA9", 1, 4));
    EXPECT_EQ(result.diagnostics.size(), 2u);
}

TEST(LexerIdentifiers, KeywordGluedToIdentifierCharactersIsOneIdentifier) {
    auto result = scan("iffy fn_ return1");
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Identifier, "iffy", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "fn_", 1, 6));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "return1", 1, 10));
}

}  // namespace
}  // namespace quor::lexer
