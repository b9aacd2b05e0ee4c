// Cleaning a doc block's text and reading its "@param" and "@return" tags.
#include <cstddef>

#include "doc/DocBlock.h"

namespace quor::doc {

namespace {

constexpr std::string_view BLANKS = " \t\n\r";

bool startsWith(std::string_view text, std::string_view prefix) { return text.substr(0, prefix.size()) == prefix; }

std::string_view dropOneLeadingSpace(std::string_view text) {
    return startsWith(text, " ") ? text.substr(1) : text;
}

// Splits on line feeds as a line reader would: a final line feed does not
// start another, empty line.
std::vector<std::string_view> splitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

// Removes the comment markers of one line. Returns false for a line that is
// only a block comment's closing marker, which is skipped altogether.
bool stripCommentMarkers(std::string_view& line) {
    std::string trimmed = trim(line);
    std::string_view view = line;
    std::size_t offset = view.find_first_not_of(BLANKS);
    std::string_view rest = offset == std::string_view::npos ? std::string_view() : view.substr(offset);
    if (startsWith(trimmed, "///") || startsWith(trimmed, "/**")) {
        line = dropOneLeadingSpace(rest.substr(3, trimmed.size() - 3));
    } else if (trimmed == "*/") {
        return false;
    } else if (startsWith(trimmed, "*")) {
        line = dropOneLeadingSpace(rest.substr(1, trimmed.size() - 1));
    }
    return true;
}

void readParamTag(std::string_view content, RawDocBlock& block) {
    std::string rest = trim(content.substr(6));
    if (rest.empty()) return;
    std::size_t gap = rest.find_first_of(" \t");
    if (gap == std::string::npos) {
        block.params[rest] = "";
        return;
    }
    block.params[rest.substr(0, gap)] = trim(std::string_view(rest).substr(gap));
}

}  // namespace

std::string trim(std::string_view text) {
    std::size_t first = text.find_first_not_of(BLANKS);
    if (first == std::string_view::npos) return "";
    std::size_t last = text.find_last_not_of(BLANKS);
    return std::string(text.substr(first, last - first + 1));
}

std::string firstNonEmptyLine(std::string_view text) {
    for (std::string_view line : splitLines(text)) {
        std::string trimmed = trim(line);
        if (!trimmed.empty()) return trimmed;
    }
    return "";
}

RawDocBlock parseDocBlock(const std::string& text, std::int32_t startLine, std::int32_t endLine) {
    RawDocBlock block;
    block.raw = text;
    block.startLine = startLine;
    block.endLine = endLine;
    std::string description;
    for (std::string_view line : splitLines(text)) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (!stripCommentMarkers(line)) continue;
        std::size_t closing = line.rfind("*/");
        if (closing != std::string_view::npos) line = line.substr(0, closing);
        std::string content = trim(line);
        if (startsWith(content, "@param")) {
            readParamTag(content, block);
        } else if (startsWith(content, "@returns")) {
            block.returns = trim(std::string_view(content).substr(8));
        } else if (startsWith(content, "@return")) {
            block.returns = trim(std::string_view(content).substr(7));
        } else {
            description.append(line);
            description.push_back('\n');
        }
    }
    block.description = trim(description);
    block.brief = firstNonEmptyLine(block.description);
    return block;
}

}  // namespace quor::doc
