#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "LexerTestSupport.h"

namespace quor::lexer {
namespace {

using testing::scan;

struct KeywordRow {
    std::string_view word;
    TokenType type;
};

constexpr std::array<KeywordRow, 70> EXPECTED_KEYWORDS = {{
    {"fn", TokenType::Fn},           {"class", TokenType::Class},         {"interface", TokenType::Interface},
    {"struct", TokenType::Struct},   {"enum", TokenType::Enum},           {"trait", TokenType::Trait},
    {"if", TokenType::If},           {"else", TokenType::Else},           {"for", TokenType::For},
    {"while", TokenType::While},     {"do", TokenType::Do},               {"switch", TokenType::Switch},
    {"match", TokenType::Match},     {"case", TokenType::Case},           {"default", TokenType::Default},
    {"break", TokenType::Break},     {"continue", TokenType::Continue},   {"return", TokenType::Return},
    {"import", TokenType::Import},   {"module", TokenType::Module},       {"new", TokenType::New},
    {"this", TokenType::This},       {"super", TokenType::Super},         {"null", TokenType::Null},
    {"var", TokenType::Var},         {"let", TokenType::Let},             {"const", TokenType::Const},
    {"public", TokenType::Public},   {"private", TokenType::Private},     {"protected", TokenType::Protected},
    {"internal", TokenType::Internal}, {"static", TokenType::Static},     {"abstract", TokenType::Abstract},
    {"override", TokenType::Override}, {"extends", TokenType::Extends},   {"implements", TokenType::Implements},
    {"with", TokenType::With},       {"async", TokenType::Async},         {"await", TokenType::Await},
    {"thread", TokenType::Thread},   {"spawn", TokenType::Spawn},         {"channel", TokenType::Channel},
    {"mutex", TokenType::Mutex},     {"try", TokenType::Try},             {"catch", TokenType::Catch},
    {"finally", TokenType::Finally}, {"throw", TokenType::Throw},         {"unsafe", TokenType::Unsafe},
    {"extern", TokenType::Extern},   {"test", TokenType::Test},           {"assert", TokenType::Assert},
    {"true", TokenType::BooleanLiteral}, {"false", TokenType::BooleanLiteral},
    {"void", TokenType::Void},       {"int", TokenType::Int},             {"uint", TokenType::Uint},
    {"int8", TokenType::Int8},       {"int16", TokenType::Int16},         {"int32", TokenType::Int32},
    {"int64", TokenType::Int64},     {"uint8", TokenType::Uint8},         {"uint16", TokenType::Uint16},
    {"uint32", TokenType::Uint32},   {"uint64", TokenType::Uint64},       {"float", TokenType::Float},
    {"double", TokenType::Double},   {"bool", TokenType::Bool},           {"char", TokenType::Char},
    {"string", TokenType::String},   {"byte", TokenType::Byte},
}};

TEST(Keywords, EveryReservedWordMapsToItsKind) {
    for (const KeywordRow& row : EXPECTED_KEYWORDS) {
        EXPECT_EQ(Lexer::lookupKeyword(row.word), row.type) << row.word;
    }
}

TEST(Keywords, EveryReservedWordScansAsItsKindWithItsText) {
    for (const KeywordRow& row : EXPECTED_KEYWORDS) {
        auto result = scan(row.word);
        ASSERT_EQ(result.tokens.size(), 2u) << row.word;
        EXPECT_EQ(result.tokens[0].type, row.type) << row.word;
        EXPECT_EQ(result.tokens[0].lexeme, row.word);
    }
}

TEST(Keywords, KeywordKindsOutsideBooleansAreExactlyTheTwoReservedRanges) {
    // Fn..Assert and Void..Byte, each word being the printed name of its kind.
    std::set<std::uint32_t> covered;
    for (const KeywordRow& row : EXPECTED_KEYWORDS) {
        if (row.type != TokenType::BooleanLiteral) {
            EXPECT_EQ(tokenTypeToString(row.type), row.word);
            covered.insert(static_cast<std::uint32_t>(row.type));
        }
    }
    EXPECT_EQ(covered.size(), 68u);
    for (std::uint32_t value = 8; value <= 58; ++value) {
        EXPECT_TRUE(covered.count(value)) << value;
    }
    for (std::uint32_t value = 62; value <= 78; ++value) {
        EXPECT_TRUE(covered.count(value)) << value;
    }
}

TEST(Keywords, TrueAndFalseAreBooleanLiteralsToldApartByLexeme) {
    auto result = scan("true false");
    ASSERT_EQ(result.tokens.size(), 3u);
    EXPECT_EQ(result.tokens[0].type, TokenType::BooleanLiteral);
    EXPECT_EQ(result.tokens[0].lexeme, "true");
    EXPECT_EQ(result.tokens[1].type, TokenType::BooleanLiteral);
    EXPECT_EQ(result.tokens[1].lexeme, "false");
}

TEST(Keywords, NullIsItsOwnKeywordKindNotALiteral) { EXPECT_EQ(Lexer::lookupKeyword("null"), TokenType::Null); }

TEST(Keywords, ThisSuperAndAssertAreKeywords) {
    EXPECT_EQ(Lexer::lookupKeyword("this"), TokenType::This);
    EXPECT_EQ(Lexer::lookupKeyword("super"), TokenType::Super);
    EXPECT_EQ(Lexer::lookupKeyword("assert"), TokenType::Assert);
}

TEST(Keywords, ReservedWordsWithoutGrammarUseAreStillKeywords) {
    for (std::string_view word : {"trait", "with", "async", "await", "thread", "channel", "mutex", "unsafe"}) {
        EXPECT_NE(Lexer::lookupKeyword(word), TokenType::Identifier) << word;
        auto result = scan(std::string("var ").append(word).append(" = 1;"));
        EXPECT_NE(result.tokens[1].type, TokenType::Identifier) << word;
    }
}

TEST(Keywords, MatchingIsCaseSensitive) {
    for (std::string_view word : {"True", "Int", "Null", "FN", "Class", "FALSE", "Void"}) {
        EXPECT_EQ(Lexer::lookupKeyword(word), TokenType::Identifier) << word;
    }
}

TEST(Keywords, CapitalisedKindNamesAreNotWords) {
    for (std::string_view word : {"Comment", "DocComment", "EndOfFile", "Invalid", "Identifier", "IntegerLiteral",
                                  "FloatLiteral", "StringLiteral", "CharLiteral", "BooleanLiteral"}) {
        EXPECT_EQ(Lexer::lookupKeyword(word), TokenType::Identifier) << word;
    }
}

TEST(Keywords, OperatorTextsAreNotWords) {
    EXPECT_EQ(Lexer::lookupKeyword("+"), TokenType::Identifier);
    EXPECT_EQ(Lexer::lookupKeyword("@"), TokenType::Identifier);
    EXPECT_EQ(Lexer::lookupKeyword(""), TokenType::Identifier);
}

TEST(Keywords, PrefixesAndExtensionsOfKeywordsAreIdentifiers) {
    for (std::string_view word : {"f", "fnn", "int128", "in", "classy", "_if", "if_", "iff", "nulls"}) {
        EXPECT_EQ(Lexer::lookupKeyword(word), TokenType::Identifier) << word;
    }
}

TEST(Keywords, LookupComparesTextNotAddress) {
    std::string heap = "implements";
    EXPECT_EQ(Lexer::lookupKeyword(heap), TokenType::Implements);
    std::string_view slice = std::string_view("xreturnx").substr(1, 6);
    EXPECT_EQ(Lexer::lookupKeyword(slice), TokenType::Return);
}

// Words a keyword lookup could confuse with a reserved word: same length and
// same first and last bytes, a prefix or an extension of one, another case,
// longer than any reserved word, or a single byte.
TEST(Keywords, WordsCloseToReservedWordsAreIdentifiers) {
    for (std::string_view word : {"fun", "fm", "cmass", "clasS", "Class", "classes", "clas", "inT", "unt64", "uint6",
                                  "uint644", "implementsX", "implementation", "f", "n", "_", "if_", "i", "x1",
                                  "trve", "fals", "nulll", "interfaced", "protectedly", "abcdefghijklmnop"}) {
        EXPECT_EQ(Lexer::lookupKeyword(word), TokenType::Identifier) << word;
    }
}

TEST(Keywords, AnEmptyWordIsAnIdentifierKind) { EXPECT_EQ(Lexer::lookupKeyword(""), TokenType::Identifier); }

}  // namespace
}  // namespace quor::lexer
