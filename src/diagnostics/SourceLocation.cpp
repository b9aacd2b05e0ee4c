#include "diagnostics/SourceLocation.h"

namespace quor::diagnostics {

std::string SourceLocation::toString() const {
    std::string text = file.empty() ? std::string("<unknown>") : file.str();
    text += ':';
    text += std::to_string(line);
    text += ':';
    text += std::to_string(column);
    return text;
}

}  // namespace quor::diagnostics
