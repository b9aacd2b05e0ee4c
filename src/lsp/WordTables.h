#pragma once

// The fixed words that completion offers and hover explains: the keyword
// table with a description per word, and the built-in type names. They are
// the server's own lists and deliberately differ from the scanner's reserved
// words ("in" is listed here although the scanner treats it as a name).

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace quor::lsp {

// One keyword row: the word and its Markdown description.
using KeywordRow = std::pair<std::string_view, std::string_view>;

inline constexpr std::size_t QUOR_KEYWORD_COUNT = 36;
inline constexpr std::size_t QUOR_PRIMITIVE_TYPE_COUNT = 11;

extern const std::array<KeywordRow, QUOR_KEYWORD_COUNT> QUOR_KEYWORDS;
extern const std::array<std::string_view, QUOR_PRIMITIVE_TYPE_COUNT> QUOR_PRIMITIVE_TYPES;

// The keyword row of that word, or null.
const KeywordRow* findKeyword(std::string_view word);
// True if the word is one of the built-in type names.
bool isPrimitiveTypeName(std::string_view word);

}  // namespace quor::lsp
