#include <gtest/gtest.h>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

using testing::isDiagnostic;
using testing::isToken;
using testing::scan;

TEST(LexerComments, LineCommentRunsToTheLineFeedWithoutIt) {
    auto result = scan("a // note\nb", true);
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Comment, "// note", 1, 3));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "b", 2, 1));
}

TEST(LexerComments, LineCommentRunsToTheEndOfTheSource) {
    auto result = scan("// tail", true);
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "// tail", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::EndOfFile, "", 1, 8));
}

TEST(LexerComments, CarriageReturnStaysInsideALineComment) {
    auto result = scan("// x\r\ny", true);
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "// x\r", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "y", 2, 1));
}

TEST(LexerComments, ThreeSlashesMakeADocComment) {
    auto result = scan("/// x", true);
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::DocComment, "/// x", 1, 1));
}

TEST(LexerComments, FourSlashesAreADocCommentToo) {
    auto result = scan("//// x", true);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::DocComment, "//// x", 1, 1));
}

TEST(LexerComments, EmptyLineCommentsOfBothKinds) {
    auto result = scan("//\n///", true);
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "//", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::DocComment, "///", 2, 1));
}

TEST(LexerComments, SlashSpaceSlashIsTwoSlashes) {
    auto kinds = testing::kindsOf(scan("/ /", true).tokens);
    std::vector<TokenType> expected = {TokenType::Slash, TokenType::Slash, TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerComments, BlockCommentIsOneCommentToken) {
    auto result = scan("a /* b */ c", true);
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Comment, "/* b */", 1, 3));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "c", 1, 11));
}

TEST(LexerComments, BlockCommentsNest) {
    auto result = scan("/* a /* b */ c */", true);
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "/* a /* b */ c */", 1, 1));
    EXPECT_TRUE(result.diagnostics.empty());
}

TEST(LexerComments, DoubleStarBlockIsAPlainComment) {
    auto result = scan("/** x */", true);
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "/** x */", 1, 1));
}

TEST(LexerComments, EmptyBlockComment) {
    auto result = scan("/**/x", true);
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "/**/", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "x", 1, 5));
}

TEST(LexerComments, OpenerAndCloserAreTakenAsPairs) {
    // "/*/" opens only; the following "*/" closes.
    auto result = scan("/*/ */", true);
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "/*/ */", 1, 1));
}

TEST(LexerComments, TextAfterTheCloserIsScannedAgain) {
    auto kinds = testing::kindsOf(scan("/* a */ */").tokens);
    std::vector<TokenType> expected = {TokenType::Star, TokenType::Slash, TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerComments, UnclosedNestedBlockIsInvalidWithEverythingFromTheOpener) {
    auto result = scan("x /* a /* b */", true);
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Invalid, "/* a /* b */", 1, 3));
    ASSERT_EQ(result.diagnostics.size(), 1u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[0], "Unclosed multi-line comment",
                             "Add '*/' to close the multi-line comment", 1, 3));
}

TEST(LexerComments, UnclosedBlockIsReturnedEvenWhenCommentsAreDropped) {
    auto result = scan("/* never closed\n", false);
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "/* never closed\n", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::EndOfFile, "", 2, 1));
    EXPECT_EQ(result.diagnostics.size(), 1u);
}

TEST(LexerComments, BareOpenerAtTheEndIsUnclosed) {
    auto result = scan("/*");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "/*", 1, 1));
    EXPECT_EQ(result.diagnostics.size(), 1u);
}

TEST(LexerComments, BlockCommentHoldingALineCommentOpener) {
    auto result = scan("/* // */ x", true);
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "/* // */", 1, 1));
}

TEST(LexerComments, LineCommentHoldingABlockOpenerEndsAtTheLine) {
    auto result = scan("// /* \nx", true);
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Comment, "// /* ", 1, 1));
    EXPECT_TRUE(result.diagnostics.empty());
}

TEST(LexerComments, DroppedByDefaultSoOnlyCommentsYieldJustEndOfFile) {
    auto result = scan("// a\n/// b\n/* c /* d */ */\n");
    ASSERT_EQ(result.tokens.size(), 1u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::EndOfFile, "", 4, 1));
    EXPECT_TRUE(result.diagnostics.empty());
}

TEST(LexerComments, DroppedCommentsLeaveTheOtherTokensInPlace) {
    auto result = scan("a /* x */ b // y\nc");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Identifier, "a", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Identifier, "b", 1, 11));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::Identifier, "c", 2, 1));
}

TEST(LexerComments, PreservedCommentsKeepSourceOrder) {
    auto kinds = testing::kindsOf(scan("/// doc\nfn f() {} // end", true).tokens);
    std::vector<TokenType> expected = {TokenType::DocComment, TokenType::Fn,        TokenType::Identifier,
                                       TokenType::LeftParen,  TokenType::RightParen, TokenType::LeftBrace,
                                       TokenType::RightBrace, TokenType::Comment,   TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
}

TEST(LexerComments, SlashEqualIsNotAComment) {
    auto result = scan("a /= 2");
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::SlashEqual, "/=", 1, 3));
}

}  // namespace
}  // namespace quor::lexer
