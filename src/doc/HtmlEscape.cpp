// Escaping text for HTML pages.
#include <algorithm>
#include <iterator>
#include <string_view>

#include "doc/DocGenerator.h"

namespace quor::doc {

namespace {

struct Entity {
    char byte;
    std::string_view text;
};

constexpr Entity HTML_ENTITIES[] = {
    {'"', "&quot;"}, {'\'', "&#39;"}, {'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"},
};

}  // namespace

std::string DocGenerator::escapeHtml(const std::string& text) const {
    std::string escaped;
    escaped.reserve(text.size());
    for (char byte : text) {
        const Entity* entity = std::find_if(std::begin(HTML_ENTITIES), std::end(HTML_ENTITIES),
                                            [byte](const Entity& row) { return row.byte == byte; });
        if (entity == std::end(HTML_ENTITIES)) {
            escaped.push_back(byte);
        } else {
            escaped.append(entity->text);
        }
    }
    return escaped;
}

}  // namespace quor::doc
