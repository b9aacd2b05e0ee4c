#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <set>
#include <string>

#include "lexer/Token.h"
#include "lexer/TokenType.h"

namespace quor::lexer {
namespace {

struct KindRow {
    std::uint32_t value;
    TokenType type;
    std::string_view printed;
};

// The whole closed list of kinds: numeric value, enumerator, printed text.
constexpr std::array<KindRow, 123> ALL_KINDS = {{
    {0, TokenType::EndOfFile, "EndOfFile"},
    {1, TokenType::Invalid, "Invalid"},
    {2, TokenType::IntegerLiteral, "IntegerLiteral"},
    {3, TokenType::FloatLiteral, "FloatLiteral"},
    {4, TokenType::StringLiteral, "StringLiteral"},
    {5, TokenType::CharLiteral, "CharLiteral"},
    {6, TokenType::BooleanLiteral, "BooleanLiteral"},
    {7, TokenType::Identifier, "Identifier"},
    {8, TokenType::Fn, "fn"},
    {9, TokenType::Class, "class"},
    {10, TokenType::Interface, "interface"},
    {11, TokenType::Struct, "struct"},
    {12, TokenType::Enum, "enum"},
    {13, TokenType::Trait, "trait"},
    {14, TokenType::If, "if"},
    {15, TokenType::Else, "else"},
    {16, TokenType::For, "for"},
    {17, TokenType::While, "while"},
    {18, TokenType::Do, "do"},
    {19, TokenType::Switch, "switch"},
    {20, TokenType::Match, "match"},
    {21, TokenType::Case, "case"},
    {22, TokenType::Default, "default"},
    {23, TokenType::Break, "break"},
    {24, TokenType::Continue, "continue"},
    {25, TokenType::Return, "return"},
    {26, TokenType::Import, "import"},
    {27, TokenType::Module, "module"},
    {28, TokenType::New, "new"},
    {29, TokenType::This, "this"},
    {30, TokenType::Super, "super"},
    {31, TokenType::Null, "null"},
    {32, TokenType::Var, "var"},
    {33, TokenType::Let, "let"},
    {34, TokenType::Const, "const"},
    {35, TokenType::Public, "public"},
    {36, TokenType::Private, "private"},
    {37, TokenType::Protected, "protected"},
    {38, TokenType::Internal, "internal"},
    {39, TokenType::Static, "static"},
    {40, TokenType::Abstract, "abstract"},
    {41, TokenType::Override, "override"},
    {42, TokenType::Extends, "extends"},
    {43, TokenType::Implements, "implements"},
    {44, TokenType::With, "with"},
    {45, TokenType::Async, "async"},
    {46, TokenType::Await, "await"},
    {47, TokenType::Thread, "thread"},
    {48, TokenType::Spawn, "spawn"},
    {49, TokenType::Channel, "channel"},
    {50, TokenType::Mutex, "mutex"},
    {51, TokenType::Try, "try"},
    {52, TokenType::Catch, "catch"},
    {53, TokenType::Finally, "finally"},
    {54, TokenType::Throw, "throw"},
    {55, TokenType::Unsafe, "unsafe"},
    {56, TokenType::Extern, "extern"},
    {57, TokenType::Test, "test"},
    {58, TokenType::Assert, "assert"},
    {59, TokenType::Comment, "Comment"},
    {60, TokenType::DocComment, "DocComment"},
    {61, TokenType::At, "@"},
    {62, TokenType::Void, "void"},
    {63, TokenType::Int, "int"},
    {64, TokenType::Uint, "uint"},
    {65, TokenType::Int8, "int8"},
    {66, TokenType::Int16, "int16"},
    {67, TokenType::Int32, "int32"},
    {68, TokenType::Int64, "int64"},
    {69, TokenType::Uint8, "uint8"},
    {70, TokenType::Uint16, "uint16"},
    {71, TokenType::Uint32, "uint32"},
    {72, TokenType::Uint64, "uint64"},
    {73, TokenType::Float, "float"},
    {74, TokenType::Double, "double"},
    {75, TokenType::Bool, "bool"},
    {76, TokenType::Char, "char"},
    {77, TokenType::String, "string"},
    {78, TokenType::Byte, "byte"},
    {79, TokenType::Plus, "+"},
    {80, TokenType::Minus, "-"},
    {81, TokenType::Star, "*"},
    {82, TokenType::Slash, "/"},
    {83, TokenType::Percent, "%"},
    {84, TokenType::EqualEqual, "=="},
    {85, TokenType::BangEqual, "!="},
    {86, TokenType::Less, "<"},
    {87, TokenType::Greater, ">"},
    {88, TokenType::LessEqual, "<="},
    {89, TokenType::GreaterEqual, ">="},
    {90, TokenType::AmpAmp, "&&"},
    {91, TokenType::PipePipe, "||"},
    {92, TokenType::Bang, "!"},
    {93, TokenType::Amp, "&"},
    {94, TokenType::Pipe, "|"},
    {95, TokenType::Caret, "^"},
    {96, TokenType::Tilde, "~"},
    {97, TokenType::LessLess, "<<"},
    {98, TokenType::GreaterGreater, ">>"},
    {99, TokenType::Equal, "="},
    {100, TokenType::PlusEqual, "+="},
    {101, TokenType::MinusEqual, "-="},
    {102, TokenType::StarEqual, "*="},
    {103, TokenType::SlashEqual, "/="},
    {104, TokenType::PercentEqual, "%="},
    {105, TokenType::PlusPlus, "++"},
    {106, TokenType::MinusMinus, "--"},
    {107, TokenType::Arrow, "->"},
    {108, TokenType::FatArrow, "=>"},
    {109, TokenType::QuestionDot, "?."},
    {110, TokenType::QuestionQuestion, "??"},
    {111, TokenType::DotDot, ".."},
    {112, TokenType::LeftParen, "("},
    {113, TokenType::RightParen, ")"},
    {114, TokenType::LeftBrace, "{"},
    {115, TokenType::RightBrace, "}"},
    {116, TokenType::LeftBracket, "["},
    {117, TokenType::RightBracket, "]"},
    {118, TokenType::Semicolon, ";"},
    {119, TokenType::Colon, ":"},
    {120, TokenType::Comma, ","},
    {121, TokenType::Dot, "."},
    {122, TokenType::Question, "?"},}};

TEST(TokenTypes, ThereAreExactly123Kinds) { EXPECT_EQ(TOKEN_TYPE_COUNT, 123u); }

TEST(TokenTypes, EveryEnumeratorHasItsFixedNumericValue) {
    for (const KindRow& row : ALL_KINDS) {
        EXPECT_EQ(static_cast<std::uint32_t>(row.type), row.value) << row.printed;
    }
}

TEST(TokenTypes, EveryKindPrintsItsName) {
    for (const KindRow& row : ALL_KINDS) {
        EXPECT_EQ(tokenTypeToString(row.type), row.printed) << "value " << row.value;
    }
}

TEST(TokenTypes, PrintedNamesAreDistinct) {
    std::set<std::string_view> names;
    for (const KindRow& row : ALL_KINDS) {
        names.insert(tokenTypeToString(row.type));
    }
    EXPECT_EQ(names.size(), ALL_KINDS.size());
}

TEST(TokenTypes, ValueAboveTheLastKindPrintsUnknown) {
    EXPECT_EQ(tokenTypeToString(static_cast<TokenType>(123)), "<Unknown>");
    EXPECT_EQ(tokenTypeToString(static_cast<TokenType>(1000)), "<Unknown>");
    EXPECT_EQ(tokenTypeToString(static_cast<TokenType>(0xFFFFFFFFu)), "<Unknown>");
}

TEST(TokenTypes, LastKindPrintsQuestionMark) { EXPECT_EQ(tokenTypeToString(static_cast<TokenType>(122)), "?"); }

TEST(TokenTypes, VerticalBarKindsPrintTheirBars) {
    EXPECT_EQ(tokenTypeToString(TokenType::PipePipe), "||");
    EXPECT_EQ(tokenTypeToString(TokenType::Pipe), "|");
}

TEST(TokenTypes, EndOfFileIsZero) { EXPECT_EQ(static_cast<std::uint32_t>(TokenType::EndOfFile), 0u); }

TEST(TokenTypes, KindIsThirtyTwoBits) { EXPECT_EQ(sizeof(TokenType), 4u); }

TEST(TokenTypeRanges, TypeKeywordsRunFromVoidToByte) {
    EXPECT_EQ(static_cast<std::uint32_t>(TokenType::Void), 62u);
    EXPECT_EQ(static_cast<std::uint32_t>(TokenType::Byte), 78u);
    for (const KindRow& row : ALL_KINDS) {
        bool inside = row.value >= 62 && row.value <= 78;
        EXPECT_EQ(isTokenInRange(row.type, TokenType::Void, TokenType::Byte), inside) << row.printed;
    }
}

TEST(TokenTypeRanges, OperatorsRunFromPlusToQuestion) {
    EXPECT_EQ(static_cast<std::uint32_t>(TokenType::Plus), 79u);
    EXPECT_EQ(static_cast<std::uint32_t>(TokenType::Question), 122u);
    for (const KindRow& row : ALL_KINDS) {
        bool inside = row.value >= 79 && row.value <= 122;
        EXPECT_EQ(isTokenInRange(row.type, TokenType::Plus, TokenType::Question), inside) << row.printed;
    }
}

TEST(TokenRecord, DefaultTokenIsEmptyEndOfFile) {
    Token token;
    EXPECT_EQ(token.type, TokenType::EndOfFile);
    EXPECT_TRUE(token.lexeme.empty());
}

TEST(TokenRecord, CopiesAreIndependentValues) {
    Token original{TokenType::Identifier, "name", {"a.quor", 2, 3}};
    Token copy = original;
    copy.lexeme = "other";
    copy.location.line = 9;
    EXPECT_EQ(original.lexeme, "name");
    EXPECT_EQ(original.location.line, 2u);
    EXPECT_EQ(copy.type, TokenType::Identifier);
    EXPECT_EQ(copy.location.file, "a.quor");
}

}  // namespace
}  // namespace quor::lexer
