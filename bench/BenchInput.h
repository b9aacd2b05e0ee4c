#pragma once

#include <fstream>
#include <sstream>
#include <string>

namespace quor::bench {

// The example programs glued together `copies` times: a large, realistic document.
inline std::string largeDocument(int copies) {
    std::string unit;
    for (const char* name : {"/shapes.quor", "/collections.quor"}) {
        std::ifstream file(std::string(QUOR_EXAMPLES_DIR) + name, std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        unit += text.str();
    }
    std::string document;
    document.reserve(unit.size() * static_cast<std::size_t>(copies));
    for (int i = 0; i < copies; ++i) {
        document += unit;
    }
    return document;
}

}  // namespace quor::bench
