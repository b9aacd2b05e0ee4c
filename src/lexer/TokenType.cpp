#include "lexer/TokenType.h"

#include <array>

namespace quor::lexer {

namespace {

constexpr std::array<std::string_view, TOKEN_TYPE_COUNT> TOKEN_TYPE_NAMES = {
#define QUOR_TOKEN(name, text) text,
#include "lexer/token_kind.def"
};

}  // namespace

std::string_view tokenTypeToString(TokenType type) {
    auto index = static_cast<std::uint32_t>(type);
    return index < TOKEN_TYPE_NAMES.size() ? TOKEN_TYPE_NAMES[index] : std::string_view("<Unknown>");
}

}  // namespace quor::lexer
