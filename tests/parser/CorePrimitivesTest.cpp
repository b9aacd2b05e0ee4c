#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace {

using quor::lexer::Token;
using quor::lexer::TokenType;
using quor::parser::Parser;
using quor::parser::ParserTestAccess;
using quor::parser::testing::ParseRun;
using quor::parser::testing::tok;

// a + b <EOF>, with the end token at column 6.
std::vector<Token> threeTokens() {
    return {tok(TokenType::Identifier, "a", 1, 1), tok(TokenType::Plus, "+", 1, 3),
            tok(TokenType::Identifier, "b", 1, 5), tok(TokenType::EndOfFile, "", 1, 6)};
}

TEST(CorePrimitives, PeekPeekNextAndPreviousAtTheStart) {
    ParseRun run(threeTokens());
    ParserTestAccess p = run.access();
    EXPECT_EQ(p.peek().lexeme, "a");
    EXPECT_EQ(p.peekNext().lexeme, "+");
    EXPECT_EQ(p.previous().lexeme, "a");  // index 0 when nothing was consumed
    EXPECT_EQ(p.current(), 0u);
}

TEST(CorePrimitives, AdvanceReturnsTheConsumedTokenAndStopsAtTheEnd) {
    ParseRun run(threeTokens());
    ParserTestAccess p = run.access();
    EXPECT_EQ(p.advance().lexeme, "a");
    EXPECT_EQ(p.advance().lexeme, "+");
    EXPECT_EQ(p.advance().lexeme, "b");
    EXPECT_TRUE(p.isAtEnd());
    EXPECT_EQ(p.current(), 3u);
    EXPECT_EQ(p.advance().lexeme, "b");  // does not move past the end token
    EXPECT_EQ(p.current(), 3u);
}

TEST(CorePrimitives, PeekReturnsReferencesIntoTheVector) {
    ParseRun run(threeTokens());
    ParserTestAccess p = run.access();
    EXPECT_EQ(&p.peek(), &run.tokens[0]);
    EXPECT_EQ(&p.peekNext(), &run.tokens[1]);
    EXPECT_EQ(&p.advance(), &run.tokens[0]);
}

TEST(CorePrimitives, PeekPastTheVectorGivesTheConstantEndToken) {
    ParseRun run(std::vector<Token>{tok(TokenType::Identifier, "a", 1, 1)});
    ParserTestAccess p = run.access();
    EXPECT_EQ(p.peekNext().lexeme, "a");  // past the end: whatever peek gives
    p.advance();
    const Token& end = p.peek();
    EXPECT_EQ(end.type, TokenType::EndOfFile);
    EXPECT_EQ(end.lexeme, "");
    EXPECT_EQ(end.location.file, "<eof>");
    EXPECT_EQ(end.location.line, 0u);
    EXPECT_EQ(end.location.column, 0u);
    EXPECT_TRUE(p.isAtEnd());
    EXPECT_EQ(&p.peekNext(), &end);
}

TEST(CorePrimitives, CheckEndOfFileIsAlwaysFalse) {
    ParseRun run(std::vector<Token>{tok(TokenType::EndOfFile, "")});
    ParserTestAccess p = run.access();
    EXPECT_FALSE(p.check(TokenType::EndOfFile));
    EXPECT_FALSE(p.match(TokenType::EndOfFile));
    EXPECT_FALSE(p.checkNext(TokenType::EndOfFile));
    EXPECT_EQ(p.current(), 0u);
}

TEST(CorePrimitives, CheckAndCheckNextCompareKinds) {
    ParseRun run(threeTokens());
    ParserTestAccess p = run.access();
    EXPECT_TRUE(p.check(TokenType::Identifier));
    EXPECT_FALSE(p.check(TokenType::Plus));
    EXPECT_TRUE(p.checkNext(TokenType::Plus));
    EXPECT_FALSE(p.checkNext(TokenType::Identifier));
}

TEST(CorePrimitives, CheckNextPastTheVectorComparesTheCurrentToken) {
    ParseRun run(std::vector<Token>{tok(TokenType::Identifier, "a")});
    ParserTestAccess p = run.access();
    EXPECT_TRUE(p.checkNext(TokenType::Identifier));
}

TEST(CorePrimitives, MatchAdvancesOnlyOnSuccess) {
    ParseRun run(threeTokens());
    ParserTestAccess p = run.access();
    EXPECT_FALSE(p.match(TokenType::Plus));
    EXPECT_EQ(p.current(), 0u);
    EXPECT_TRUE(p.match(TokenType::Identifier));
    EXPECT_EQ(p.current(), 1u);
}

TEST(CorePrimitives, MatchAnyTakesTheFirstFittingKind) {
    ParseRun run(threeTokens());
    ParserTestAccess p = run.access();
    EXPECT_FALSE(p.matchAny({}));
    EXPECT_FALSE(p.matchAny({TokenType::Minus, TokenType::Star}));
    EXPECT_EQ(p.current(), 0u);
    EXPECT_TRUE(p.matchAny({TokenType::Plus, TokenType::Identifier}));
    EXPECT_EQ(p.current(), 1u);
    EXPECT_TRUE(p.matchAny({TokenType::Plus, TokenType::Identifier}));
    EXPECT_EQ(p.current(), 2u);
}

TEST(CorePrimitives, ConsumeReturnsTheConsumedToken) {
    ParseRun run(threeTokens());
    ParserTestAccess p = run.access();
    const Token& token = p.consume(TokenType::Identifier, "unused");
    EXPECT_EQ(&token, &run.tokens[0]);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(CorePrimitives, FailedConsumeReportsAtTheNextTokenAndReturnsTheErrorToken) {
    ParseRun run(threeTokens());
    ParserTestAccess p = run.access();
    const Token& token = p.consume(TokenType::Semicolon, "Expected ';' here", "a hint");
    EXPECT_EQ(token.type, TokenType::Invalid);
    EXPECT_EQ(token.lexeme, "");
    EXPECT_EQ(token.location.file, "<err>");
    EXPECT_EQ(token.location.line, 0u);
    EXPECT_EQ(token.location.column, 0u);
    EXPECT_EQ(p.current(), 0u);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    const auto& d = run.diagnostics()[0];
    EXPECT_EQ(d.code, "E1000");
    EXPECT_EQ(d.message, "Expected ';' here");
    EXPECT_EQ(d.hint, "a hint");
    EXPECT_EQ(d.severity, quor::diagnostics::DiagnosticSeverity::Error);
    EXPECT_EQ(d.location.file, "test.qr");
    EXPECT_EQ(d.location.line, 1u);
    EXPECT_EQ(d.location.column, 1u);
}

TEST(CorePrimitives, ConsumeAtTheEndReportsAtTheRealEndToken) {
    ParseRun run(std::vector<Token>{tok(TokenType::Identifier, "a", 1, 1), tok(TokenType::EndOfFile, "", 3, 7)});
    ParserTestAccess p = run.access();
    p.advance();
    p.consume(TokenType::Semicolon, "Expected ';'");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].location.file, "test.qr");
    EXPECT_EQ(run.diagnostics()[0].location.line, 3u);
    EXPECT_EQ(run.diagnostics()[0].location.column, 7u);
}

TEST(CorePrimitives, ErrorAtReportsWithoutMoving) {
    ParseRun run(threeTokens());
    ParserTestAccess p = run.access();
    p.errorAt(run.tokens[2], "Bad thing");
    EXPECT_EQ(p.current(), 0u);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].code, "E1000");
    EXPECT_EQ(run.diagnostics()[0].message, "Bad thing");
    EXPECT_EQ(run.diagnostics()[0].hint, "");
    EXPECT_EQ(run.diagnostics()[0].location.column, 5u);
}

TEST(CorePrimitives, WithoutAnEngineReportsAreSkippedAndParsingIsTheSame) {
    std::vector<Token> tokens{tok(TokenType::Identifier, "a", 1, 1), tok(TokenType::EndOfFile, "", 1, 2)};
    Parser parser(tokens, "x.qr", nullptr);
    ParserTestAccess p(parser);
    const Token& failed = p.consume(TokenType::Semicolon, "Expected ';'");
    EXPECT_EQ(failed.type, TokenType::Invalid);
    p.errorAt(tokens[0], "ignored");
    auto program = parser.parseProgram();
    ASSERT_NE(program, nullptr);
    EXPECT_EQ(program->declarations.size(), 1u);
}

struct TypeKeywordRow {
    TokenType type;
    bool expected;
};

TEST(CorePrimitives, TypeKeywordsAreExactlyVoidToByte) {
    const TypeKeywordRow rows[] = {
        {TokenType::Assert, false}, {TokenType::Comment, false}, {TokenType::DocComment, false},
        {TokenType::At, false},     {TokenType::Void, true},     {TokenType::Int, true},
        {TokenType::Uint64, true},  {TokenType::String, true},   {TokenType::Byte, true},
        {TokenType::Plus, false},   {TokenType::Identifier, false},
    };
    for (const TypeKeywordRow& row : rows) {
        EXPECT_EQ(ParserTestAccess::isTypeKeyword(row.type), row.expected) << quor::lexer::tokenTypeToString(row.type);
    }
    for (std::uint32_t v = 62; v <= 78; ++v) {
        EXPECT_TRUE(ParserTestAccess::isTypeKeyword(static_cast<TokenType>(v)));
    }
}

TEST(CorePrimitives, SynchronizeStopsBehindASemicolon) {
    ParseRun run("a b ; c");
    ParserTestAccess p = run.access();
    p.synchronize();
    EXPECT_EQ(p.previous().type, TokenType::Semicolon);
    EXPECT_EQ(p.peek().lexeme, "c");
}

TEST(CorePrimitives, SynchronizeStopsBeforeADeclarationKeyword) {
    const char* stops[] = {"fn", "class", "interface", "struct", "enum", "if", "for",
                           "while", "return", "import", "module", "var", "let", "const"};
    for (const char* word : stops) {
        std::string source = "x y ";
        source.append(word);
        ParseRun run(source);
        ParserTestAccess p = run.access();
        p.synchronize();
        EXPECT_EQ(p.peek().lexeme, word);
        EXPECT_EQ(p.current(), 2u) << word;
    }
}

TEST(CorePrimitives, SynchronizeAlwaysStepsOverTheFirstToken) {
    ParseRun run("fn fn");
    ParserTestAccess p = run.access();
    p.synchronize();
    EXPECT_EQ(p.current(), 1u);
}

TEST(CorePrimitives, SynchronizeSkipsOtherKeywords) {
    const char* passes[] = {"trait", "do", "switch", "match", "try", "public", "static", "abstract"};
    for (const char* word : passes) {
        std::string source = "x ";
        source.append(word).append(" y");
        ParseRun run(source);
        ParserTestAccess p = run.access();
        p.synchronize();
        EXPECT_TRUE(p.isAtEnd()) << word;
    }
}

}  // namespace
