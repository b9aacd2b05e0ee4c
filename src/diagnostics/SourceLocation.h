#pragma once

#include <cstdint>
#include <string>

#include "diagnostics/SourceName.h"

namespace quor::diagnostics {

// A place in a source text: one-based line and column, columns counted in bytes.
struct SourceLocation {
    SourceName file;  // shared by every location of one source
    std::uint32_t line = 0;
    std::uint32_t column = 0;

    // "file:line:column", with "<unknown>" standing in for an empty file name.
    std::string toString() const;
};

}  // namespace quor::diagnostics
