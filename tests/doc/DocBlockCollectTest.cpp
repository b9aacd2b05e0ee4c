#include <gtest/gtest.h>

#include <vector>

#include "doc/DocBlock.h"

using quor::doc::claimDocBlock;
using quor::doc::collectDocBlocks;
using quor::doc::findDocBlocks;
using quor::doc::RawDocBlock;
using quor::lexer::Token;
using quor::lexer::TokenType;

namespace {

Token comment(TokenType type, const std::string& text, std::uint32_t line) {
    Token token;
    token.type = type;
    token.lexeme = text;
    token.location.file = "source.quor";
    token.location.line = line;
    token.location.column = 1;
    return token;
}

RawDocBlock blockEndingAt(std::int32_t endLine) {
    RawDocBlock block;
    block.startLine = endLine;
    block.endLine = endLine;
    return block;
}

}  // namespace

TEST(DocBlockCollect, EmptyPendingListDoesNothing) {
    std::vector<Token> pending;
    std::vector<RawDocBlock> blocks;
    collectDocBlocks(pending, blocks);
    EXPECT_TRUE(blocks.empty());
}

TEST(DocBlockCollect, JoinsLexemesWithLineFeedsAndUsesFirstAndLastLine) {
    std::vector<Token> pending = {comment(TokenType::DocComment, "/// a", 4), comment(TokenType::Comment, "// b", 5)};
    std::vector<RawDocBlock> blocks;
    collectDocBlocks(pending, blocks);
    ASSERT_EQ(blocks.size(), 1u);
    EXPECT_EQ(blocks[0].raw, "/// a\n// b\n");
    EXPECT_EQ(blocks[0].startLine, 4);
    EXPECT_EQ(blocks[0].endLine, 5);
    EXPECT_TRUE(pending.empty());
}

TEST(DocBlockCollect, PlainCommentsAreDroppedAndPendingEmptied) {
    std::vector<Token> pending = {comment(TokenType::Comment, "// plain", 1), comment(TokenType::Comment, "/* x */", 2)};
    std::vector<RawDocBlock> blocks;
    collectDocBlocks(pending, blocks);
    EXPECT_TRUE(blocks.empty());
    EXPECT_TRUE(pending.empty());
}

TEST(DocBlockCollect, BlockCommentStartingWithTwoStarsCounts) {
    std::vector<Token> pending = {comment(TokenType::Comment, "/** doc */", 1)};
    std::vector<RawDocBlock> blocks;
    collectDocBlocks(pending, blocks);
    ASSERT_EQ(blocks.size(), 1u);
    EXPECT_EQ(blocks[0].description, "doc");
}

TEST(DocBlockFind, NeighbouringLinesFormOneBlockAndBlankLineSplits) {
    auto blocks = findDocBlocks("/// one\n/// two\n/// three\n\n/// four\n/// five\n");
    ASSERT_EQ(blocks.size(), 2u);
    EXPECT_EQ(blocks[0].description, "one\ntwo\nthree");
    EXPECT_EQ(blocks[0].startLine, 1);
    EXPECT_EQ(blocks[0].endLine, 3);
    EXPECT_EQ(blocks[1].description, "four\nfive");
    EXPECT_EQ(blocks[1].startLine, 5);
    EXPECT_EQ(blocks[1].endLine, 6);
}

TEST(DocBlockFind, PlainCommentAloneMakesNoBlock) {
    EXPECT_TRUE(findDocBlocks("// plain\nfn f() {}\n").empty());
}

TEST(DocBlockFind, PlainCommentNextToDocLineJoinsTheBlock) {
    auto blocks = findDocBlocks("// plain\n/// doc\nfn f() {}\n");
    ASSERT_EQ(blocks.size(), 1u);
    EXPECT_EQ(blocks[0].description, "// plain\ndoc");
    EXPECT_EQ(blocks[0].startLine, 1);
}

TEST(DocBlockFind, CodeBetweenCommentsSeparatesThem) {
    auto blocks = findDocBlocks("/// a\nlet x = 1;\n/// b\n");
    ASSERT_EQ(blocks.size(), 2u);
    EXPECT_EQ(blocks[0].description, "a");
    EXPECT_EQ(blocks[1].description, "b");
}

TEST(DocBlockFind, TrailingCommentOnCodeLineStartsAfterTheCode) {
    auto blocks = findDocBlocks("let x = 1; /// about x\n/// more\n");
    ASSERT_EQ(blocks.size(), 1u);
    EXPECT_EQ(blocks[0].description, "about x\nmore");
    EXPECT_EQ(blocks[0].startLine, 1);
    EXPECT_EQ(blocks[0].endLine, 2);
}

TEST(DocBlockFind, LongBlockCommentEndsOnTheLineItBegins) {
    auto blocks = findDocBlocks("/**\n * a\n * b\n */\n");
    ASSERT_EQ(blocks.size(), 1u);
    EXPECT_EQ(blocks[0].startLine, 1);
    EXPECT_EQ(blocks[0].endLine, 1);
    EXPECT_EQ(blocks[0].description, "a\nb");
}

TEST(DocBlockFind, FourSlashesAreADocComment) {
    auto blocks = findDocBlocks("//// four\n");
    ASSERT_EQ(blocks.size(), 1u);
    EXPECT_EQ(blocks[0].description, "/ four");
}

TEST(DocBlockFind, EmptySourceHasNoBlocks) { EXPECT_TRUE(findDocBlocks("").empty()); }

TEST(DocBlockClaim, NearestBlockWithinFiveLinesAboveWins) {
    std::vector<RawDocBlock> blocks = {blockEndingAt(2), blockEndingAt(6)};
    RawDocBlock* found = claimDocBlock(blocks, 7);
    ASSERT_EQ(found, &blocks[1]);
    EXPECT_TRUE(blocks[1].used);
    EXPECT_FALSE(blocks[0].used);
}

TEST(DocBlockClaim, DistanceOfFiveIsAttachedAndSixIsNot) {
    std::vector<RawDocBlock> five = {blockEndingAt(1)};
    EXPECT_NE(claimDocBlock(five, 6), nullptr);
    std::vector<RawDocBlock> six = {blockEndingAt(1)};
    EXPECT_EQ(claimDocBlock(six, 7), nullptr);
    EXPECT_FALSE(six[0].used);
}

TEST(DocBlockClaim, BlockOnSameLineOrBelowIsNoCandidate) {
    std::vector<RawDocBlock> blocks = {blockEndingAt(5), blockEndingAt(8)};
    EXPECT_EQ(claimDocBlock(blocks, 5), nullptr);
}

TEST(DocBlockClaim, UsedBlockServesOnlyOnce) {
    std::vector<RawDocBlock> blocks = {blockEndingAt(3)};
    EXPECT_NE(claimDocBlock(blocks, 4), nullptr);
    EXPECT_EQ(claimDocBlock(blocks, 5), nullptr);
}

TEST(DocBlockClaim, AtEqualDistanceTheLaterBlockWins) {
    std::vector<RawDocBlock> blocks = {blockEndingAt(3), blockEndingAt(3)};
    EXPECT_EQ(claimDocBlock(blocks, 4), &blocks[1]);
}

TEST(DocBlockClaim, UsedNearBlockLetsAFartherOneServe) {
    std::vector<RawDocBlock> blocks = {blockEndingAt(1), blockEndingAt(4)};
    blocks[1].used = true;
    EXPECT_EQ(claimDocBlock(blocks, 5), &blocks[0]);
}
