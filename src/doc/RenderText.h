#pragma once

// Appending the pieces of a rendered page, kept apart as the page format
// names them so that a line of code reads like the line it writes.

#include <initializer_list>
#include <string>
#include <string_view>

namespace quor::doc {

inline void appendAll(std::string& out, std::initializer_list<std::string_view> parts) {
    for (std::string_view part : parts) out.append(part);
}

}  // namespace quor::doc
