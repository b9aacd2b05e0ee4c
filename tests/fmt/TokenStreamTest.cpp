#include <gtest/gtest.h>

#include <vector>

#include "fmt/FormatTestSupport.h"

using quor::fmt::testing::formatList;
using quor::fmt::testing::tok;
using quor::lexer::Token;
using quor::lexer::TokenType;

TEST(FormatterTokenStream, StopsAtTheFirstEndOfFile) {
    std::vector<Token> tokens = {tok(TokenType::Identifier, "a"), tok(TokenType::EndOfFile, ""),
                                 tok(TokenType::Identifier, "b")};
    EXPECT_EQ(formatList(tokens), "a\n");
}

TEST(FormatterTokenStream, ListWithoutEndOfFileIsFormattedToItsEnd) {
    std::vector<Token> tokens = {tok(TokenType::Identifier, "a"), tok(TokenType::Equal, "="),
                                 tok(TokenType::IntegerLiteral, "1")};
    EXPECT_EQ(formatList(tokens), "a = 1\n");
}

TEST(FormatterTokenStream, EmptyListGivesEmptyText) { EXPECT_EQ(formatList({}), ""); }

TEST(FormatterTokenStream, OnlyEndOfFileGivesEmptyText) {
    EXPECT_EQ(formatList({tok(TokenType::EndOfFile, "")}), "");
}

TEST(FormatterTokenStream, ClosingBraceBeforeEndOfFileEndsTheLine) {
    std::vector<Token> tokens = {tok(TokenType::LeftBrace, "{"), tok(TokenType::RightBrace, "}"),
                                 tok(TokenType::EndOfFile, "")};
    EXPECT_EQ(formatList(tokens), "{\n}\n");
}

TEST(FormatterTokenStream, BlankLinesComeFromLineNumbersOnly) {
    std::vector<Token> tokens = {tok(TokenType::Identifier, "a", 1), tok(TokenType::Semicolon, ";", 1),
                                 tok(TokenType::Identifier, "b", 40), tok(TokenType::Semicolon, ";", 40)};
    EXPECT_EQ(formatList(tokens), "a;\n\nb;\n");
}

TEST(FormatterTokenStream, LineNumbersGoingBackwardsAddNothing) {
    std::vector<Token> tokens = {tok(TokenType::Identifier, "a", 9), tok(TokenType::Identifier, "b", 2)};
    EXPECT_EQ(formatList(tokens), "ab\n");
}

TEST(FormatterTokenStream, LexemeIsWrittenAsItStands) {
    std::vector<Token> tokens = {tok(TokenType::StringLiteral, "two words"), tok(TokenType::Plus, "+"),
                                 tok(TokenType::Invalid, "#")};
    EXPECT_EQ(formatList(tokens), "two words + #\n");
}

TEST(FormatterTokenStream, CommentIsANeighbourForThePrefixTest) {
    // The minus follows a comment, which is not in the prefix list, so it
    // is written as an operator: its operand is spaced.
    std::vector<Token> tokens = {tok(TokenType::Equal, "=", 1), tok(TokenType::Comment, "// c", 1),
                                 tok(TokenType::Minus, "-", 2), tok(TokenType::Identifier, "x", 2)};
    EXPECT_EQ(formatList(tokens), "= // c\n- x\n");
}

TEST(FormatterTokenStream, LongLineGapsAreSafe) {
    std::vector<Token> tokens = {tok(TokenType::Identifier, "a", 1),
                                 tok(TokenType::Identifier, "b", 4000000000U)};
    EXPECT_EQ(formatList(tokens), "a\n\nb\n");
}
