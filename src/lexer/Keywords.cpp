#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "lexer/Lexer.h"

namespace quor::lexer {

namespace {

struct Keyword {
    std::string_view word;
    TokenType type;
};

// Every reserved word of the language. Matching is exact and case-sensitive.
constexpr std::array<Keyword, 70> QUOR_KEYWORDS = {{
    {"fn", TokenType::Fn},
    {"class", TokenType::Class},
    {"interface", TokenType::Interface},
    {"struct", TokenType::Struct},
    {"enum", TokenType::Enum},
    {"trait", TokenType::Trait},
    {"if", TokenType::If},
    {"else", TokenType::Else},
    {"for", TokenType::For},
    {"while", TokenType::While},
    {"do", TokenType::Do},
    {"switch", TokenType::Switch},
    {"match", TokenType::Match},
    {"case", TokenType::Case},
    {"default", TokenType::Default},
    {"break", TokenType::Break},
    {"continue", TokenType::Continue},
    {"return", TokenType::Return},
    {"import", TokenType::Import},
    {"module", TokenType::Module},
    {"new", TokenType::New},
    {"this", TokenType::This},
    {"super", TokenType::Super},
    {"null", TokenType::Null},
    {"var", TokenType::Var},
    {"let", TokenType::Let},
    {"const", TokenType::Const},
    {"public", TokenType::Public},
    {"private", TokenType::Private},
    {"protected", TokenType::Protected},
    {"internal", TokenType::Internal},
    {"static", TokenType::Static},
    {"abstract", TokenType::Abstract},
    {"override", TokenType::Override},
    {"extends", TokenType::Extends},
    {"implements", TokenType::Implements},
    {"with", TokenType::With},
    {"async", TokenType::Async},
    {"await", TokenType::Await},
    {"thread", TokenType::Thread},
    {"spawn", TokenType::Spawn},
    {"channel", TokenType::Channel},
    {"mutex", TokenType::Mutex},
    {"try", TokenType::Try},
    {"catch", TokenType::Catch},
    {"finally", TokenType::Finally},
    {"throw", TokenType::Throw},
    {"unsafe", TokenType::Unsafe},
    {"extern", TokenType::Extern},
    {"test", TokenType::Test},
    {"assert", TokenType::Assert},
    {"true", TokenType::BooleanLiteral},
    {"false", TokenType::BooleanLiteral},
    {"void", TokenType::Void},
    {"int", TokenType::Int},
    {"uint", TokenType::Uint},
    {"int8", TokenType::Int8},
    {"int16", TokenType::Int16},
    {"int32", TokenType::Int32},
    {"int64", TokenType::Int64},
    {"uint8", TokenType::Uint8},
    {"uint16", TokenType::Uint16},
    {"uint32", TokenType::Uint32},
    {"uint64", TokenType::Uint64},
    {"float", TokenType::Float},
    {"double", TokenType::Double},
    {"bool", TokenType::Bool},
    {"char", TokenType::Char},
    {"string", TokenType::String},
    {"byte", TokenType::Byte},
}};

// The reserved words by a hash of their length and first and last bytes,
// in an open-addressed table made from QUOR_KEYWORDS when compiling: a word
// is looked up with a few byte reads and at most a few comparisons.
constexpr std::size_t KEYWORD_SLOTS = 256;
constexpr std::uint8_t NO_KEYWORD = 0xff;

constexpr std::size_t keywordHash(std::string_view word) {
    return (word.size() * 37 + static_cast<unsigned char>(word.front()) * 5 +
            static_cast<unsigned char>(word.back())) % KEYWORD_SLOTS;
}

constexpr std::array<std::uint8_t, KEYWORD_SLOTS> KEYWORD_SLOT_TABLE = [] {
    std::array<std::uint8_t, KEYWORD_SLOTS> slots{};
    for (auto& slot : slots) slot = NO_KEYWORD;
    for (std::size_t i = 0; i < QUOR_KEYWORDS.size(); ++i) {
        std::size_t slot = keywordHash(QUOR_KEYWORDS[i].word);
        while (slots[slot] != NO_KEYWORD) slot = (slot + 1) % KEYWORD_SLOTS;
        slots[slot] = static_cast<std::uint8_t>(i);
    }
    return slots;
}();

constexpr std::size_t LONGEST_KEYWORD = [] {
    std::size_t longest = 0;
    for (const Keyword& keyword : QUOR_KEYWORDS) longest = keyword.word.size() > longest ? keyword.word.size() : longest;
    return longest;
}();

}  // namespace

TokenType Lexer::lookupKeyword(std::string_view word) {
    if (word.empty() || word.size() > LONGEST_KEYWORD) return TokenType::Identifier;
    for (std::size_t slot = keywordHash(word);; slot = (slot + 1) % KEYWORD_SLOTS) {
        const std::uint8_t index = KEYWORD_SLOT_TABLE[slot];
        if (index == NO_KEYWORD) return TokenType::Identifier;
        if (QUOR_KEYWORDS[index].word == word) return QUOR_KEYWORDS[index].type;
    }
}

}  // namespace quor::lexer
