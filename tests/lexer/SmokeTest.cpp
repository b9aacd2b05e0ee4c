#include <gtest/gtest.h>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

using testing::scan;

TEST(LexerSmoke, SmallFunctionScansToExpectedKinds) {
    auto result = scan("fn main() -> int { return 0x1F + 1.5e3f; } // done");
    std::vector<TokenType> expected = {TokenType::Fn,         TokenType::Identifier,     TokenType::LeftParen,
                                       TokenType::RightParen, TokenType::Arrow,          TokenType::Int,
                                       TokenType::LeftBrace,  TokenType::Return,         TokenType::IntegerLiteral,
                                       TokenType::Plus,       TokenType::FloatLiteral,   TokenType::Semicolon,
                                       TokenType::RightBrace, TokenType::EndOfFile};
    EXPECT_EQ(testing::kindsOf(result.tokens), expected);
    EXPECT_TRUE(result.diagnostics.empty());
}

}  // namespace
}  // namespace quor::lexer
