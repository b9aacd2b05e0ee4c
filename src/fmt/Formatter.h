#pragma once

#include <cstddef>
#include <string>

#include "fmt/FormatOptions.h"

namespace quor::fmt {

// Rewrites a source text from its token stream. Line breaks, indentation and
// spacing come from the tokens alone; only blank lines are read off the
// tokens' line numbers. Text the scanner rejects comes back unchanged, and
// so does text whose formatted form would be larger than MAX_FORMATTED_SIZE.
class Formatter {
public:
    static constexpr std::size_t MAX_FORMATTED_SIZE = std::size_t{64} << 20;

    explicit Formatter(FormatOptions options);

    std::string format(const std::string& source) const;

    // True when formatting `source` gives back exactly `source`.
    bool isFormatted(const std::string& source) const;

private:
    FormatOptions options;
};

}  // namespace quor::fmt
