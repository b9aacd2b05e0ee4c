#pragma once

#include <string>

#include "fmt/FormatOptions.h"

namespace quor::fmt {

// Rewrites a source text from its token stream. Line breaks, indentation and
// spacing come from the tokens alone; only blank lines are read off the
// tokens' line numbers. Text the scanner rejects comes back unchanged.
class Formatter {
public:
    explicit Formatter(FormatOptions options);

    std::string format(const std::string& source) const;

    // True when formatting `source` gives back exactly `source`.
    bool isFormatted(const std::string& source) const;

private:
    FormatOptions options;
};

}  // namespace quor::fmt
