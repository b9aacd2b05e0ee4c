#include <array>
#include <unordered_map>

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

using KeywordMap = std::unordered_map<std::string_view, TokenType>;

// Built once from the table; the keys point at the table's constant strings.
const KeywordMap& keywordMap() {
    static const KeywordMap map = [] {
        KeywordMap built;
        built.reserve(QUOR_KEYWORDS.size());
        for (const Keyword& keyword : QUOR_KEYWORDS) {
            built.emplace(keyword.word, keyword.type);
        }
        return built;
    }();
    return map;
}

}  // namespace

TokenType Lexer::lookupKeyword(std::string_view word) {
    const KeywordMap& map = keywordMap();
    auto found = map.find(word);
    return found == map.end() ? TokenType::Identifier : found->second;
}

}  // namespace quor::lexer
