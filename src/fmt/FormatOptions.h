#pragma once

#include <cstdint>

namespace quor::fmt {

// The knobs of the source formatter. A plain value, passed by copy. The
// defaults are the settings the language server uses.
struct FormatOptions {
    std::int32_t indentSize = 4;         // spaces per indent level
    bool useTabs = false;                // one tab per level instead of spaces
    std::int32_t maxBlankLines = 1;      // most blank lines kept between two tokens
    bool spaceAroundOperators = true;    // space on both sides of two-operand operators
    bool spaceAfterColon = true;         // space behind ":"
    bool spaceAfterComma = true;         // space behind ","
};

}  // namespace quor::fmt
