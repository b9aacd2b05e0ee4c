#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <sstream>
#include <string>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

using testing::isDiagnostic;
using testing::isToken;

// One source holding exactly one scanner fault: the bytes of the failed
// token, and the message, hint and place that the engine must receive.
struct FaultRow {
    std::string_view source;
    std::string_view invalidLexeme;
    std::string_view message;
    std::string_view hint;
    std::uint32_t line;
    std::uint32_t column;
};

constexpr std::array<FaultRow, 17> EVERY_FAULT = {{
    {"a\n  #", "#", "Unexpected character: '#'", "Remove or replace the invalid character", 2, 3},
    {"x $y", "$", "Unexpected character: '$'", "Remove or replace the invalid character", 1, 3},
    {"x /* y", "/* y", "Unclosed multi-line comment", "Add '*/' to close the multi-line comment", 1, 3},
    {"/* a\n/* b */\n", "/* a\n/* b */\n", "Unclosed multi-line comment", "Add '*/' to close the multi-line comment",
     1, 1},
    {"  0b", "0b", "Binary literal requires at least one binary digit (0 or 1)", "Example: 0b1010", 1, 3},
    {"\n0o9", "0o", "Octal literal requires at least one octal digit (0-7)", "Example: 0o755", 2, 1},
    {"(0x)", "0x", "Hexadecimal literal requires at least one hex digit", "Example: 0xFF", 1, 2},
    {"1e+", "1e+", "Floating-point exponent requires digits", "Example: 1e6", 1, 1},
    {"f(1.5E)", "1.5E", "Floating-point exponent requires digits", "Example: 1.5e-3", 1, 3},
    {"s = \"ab\n", "\"ab\n", "Unclosed string literal before newline", "Close the string with a double quote '\"'", 1,
     5},
    {"\"ab\\", "\"ab\\", "Unfinished escape sequence at end of file", "", 1, 1},
    {"t(\"\\u00", "\"\\u00", "Invalid unicode escape sequence, expected 4 hex digits", "Example: \\u0041", 1, 3},
    {"  \"abc", "\"abc", "Unclosed string literal at end of file", "Add closing '\"' at end of string", 1, 3},
    {"c = '", "'", "Empty character literal", "Character literals must contain exactly one character", 1, 5},
    {"\t'\\", "'\\", "Unfinished escape sequence in character literal", "", 1, 2},
    {"x 'ab", "'a", "Unclosed character literal", "Close the character with a single quote ''", 1, 3},
    {"'\\'", "'\\'", "Unclosed character literal", "Close the character with a single quote ''", 1, 1},
}};

// The printed form of one scanner fault, as the engine writes it.
std::string expectedPrint(const FaultRow& row) {
    std::string text = "\x1b[1;31merror[E1000]: \x1b[0m\x1b[1m";
    text.append(row.message).append("\x1b[0m\n");
    text.append("  --> test.quor:").append(std::to_string(row.line)).append(":");
    text.append(std::to_string(row.column)).append("\n");
    if (!row.hint.empty()) {
        text.append("   = \x1b[32mhelp: \x1b[0m").append(row.hint).append("\n");
    }
    return text;
}

TEST(LexerFaults, EachFaultIsOneInvalidTokenAndOneDiagnosticAtTheTokenStart) {
    for (const FaultRow& row : EVERY_FAULT) {
        auto result = testing::scan(row.source);
        ASSERT_EQ(result.diagnostics.size(), 1u) << row.source;
        EXPECT_TRUE(isDiagnostic(result.diagnostics[0], row.message, row.hint, row.line, row.column)) << row.source;
        int invalidCount = 0;
        for (const Token& token : result.tokens) {
            if (token.type == TokenType::Invalid) {
                ++invalidCount;
                EXPECT_TRUE(isToken(token, TokenType::Invalid, row.invalidLexeme, row.line, row.column))
                    << row.source;
            }
        }
        EXPECT_EQ(invalidCount, 1) << row.source;
        EXPECT_EQ(result.tokens.back().type, TokenType::EndOfFile) << row.source;
    }
}

TEST(LexerFaults, EachFaultIsPrintedInColourAsItIsReported) {
    for (const FaultRow& row : EVERY_FAULT) {
        std::ostringstream out;
        diagnostics::DiagnosticEngine engine(out);
        Lexer lexer(row.source, "test.quor", &engine);
        lexer.tokenizeAll();
        EXPECT_EQ(out.str(), expectedPrint(row)) << row.source;
        EXPECT_EQ(engine.getErrorCount(), 1u) << row.source;
        EXPECT_EQ(engine.getWarningCount(), 0u) << row.source;
    }
}

TEST(LexerFaults, WithoutAnEngineTheSameFaultsStillYieldTheirInvalidTokens) {
    for (const FaultRow& row : EVERY_FAULT) {
        Lexer lexer(row.source, "<anonymous>", nullptr);
        int invalidCount = 0;
        for (const Token& token : lexer.tokenizeAll()) {
            if (token.type == TokenType::Invalid) {
                ++invalidCount;
                EXPECT_EQ(token.lexeme, row.invalidLexeme) << row.source;
                EXPECT_EQ(token.location.file, "<anonymous>");
            }
        }
        EXPECT_EQ(invalidCount, 1) << row.source;
    }
}

TEST(LexerFaults, FaultsCarryTheErrorSeverityAndTheLexicalCode) {
    auto result = testing::scan("# 0x \"a");
    ASSERT_EQ(result.diagnostics.size(), 3u);
    for (const diagnostics::Diagnostic& diagnostic : result.diagnostics) {
        EXPECT_EQ(diagnostic.severity, diagnostics::DiagnosticSeverity::Error);
        EXPECT_EQ(diagnostic.code, "E1000");
        EXPECT_EQ(diagnostic.location.file, "test.quor");
    }
    EXPECT_EQ(result.diagnostics[0].location.column, 1u);
    EXPECT_EQ(result.diagnostics[1].location.column, 3u);
    EXPECT_EQ(result.diagnostics[2].location.column, 6u);
}

TEST(LexerFaults, ScanningResumesWhereTheFailedTokenStopped) {
    auto result = testing::scan("0x+1");
    ASSERT_EQ(result.tokens.size(), 4u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "0x", 1, 1));
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::Plus, "+", 1, 3));
    EXPECT_TRUE(isToken(result.tokens[2], TokenType::IntegerLiteral, "1", 1, 4));
}

TEST(LexerFaults, BackslashQuoteAtTheEndIsAnEscapedQuoteWithoutCloser) {
    // The quote after the backslash is the content, so nothing closes it.
    auto result = testing::scan("'\\'");
    ASSERT_EQ(result.tokens.size(), 2u);
    EXPECT_TRUE(isToken(result.tokens[0], TokenType::Invalid, "'\\'", 1, 1));
}

TEST(LexerFaults, UnclosedStringBeforeNewlineDoesNotSwallowTheNextLine) {
    auto result = testing::scan("\"a\n\"b\"");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_TRUE(isToken(result.tokens[1], TokenType::StringLiteral, "b", 2, 1));
    EXPECT_EQ(result.diagnostics.size(), 1u);
}

TEST(LexerFaults, UnicodeEscapeFaultLeavesTheRestOfTheStringToBeScannedAgain) {
    // After "\u12" fails, "x" is an identifier and the closing quote opens a
    // new string that the end of the source leaves unclosed.
    auto result = testing::scan("\"\\u12x\"");
    auto kinds = testing::kindsOf(result.tokens);
    std::vector<TokenType> expected = {TokenType::Invalid, TokenType::Identifier, TokenType::Invalid,
                                       TokenType::EndOfFile};
    EXPECT_EQ(kinds, expected);
    ASSERT_EQ(result.diagnostics.size(), 2u);
    EXPECT_TRUE(isDiagnostic(result.diagnostics[1], "Unclosed string literal at end of file",
                             "Add closing '\"' at end of string", 1, 7));
}

}  // namespace
}  // namespace quor::lexer
