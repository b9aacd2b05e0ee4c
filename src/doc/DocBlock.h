#pragma once

// Doc comment blocks: runs of comments on neighbouring lines, cleaned of
// their comment markers and split into description, brief and tags.

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lexer/Token.h"

namespace quor::doc {

struct RawDocBlock {
    std::string raw;
    std::string description;
    std::string brief;
    std::map<std::string, std::string> params;
    std::string returns;
    std::int32_t startLine = 0;
    std::int32_t endLine = 0;  // line on which the last comment token begins
    bool used = false;
};

// Strips spaces, tabs, line feeds and carriage returns from both ends.
std::string trim(std::string_view text);

// The first line of `text` that is not blank, trimmed; "" if there is none.
std::string firstNonEmptyLine(std::string_view text);

RawDocBlock parseDocBlock(const std::string& text, std::int32_t startLine, std::int32_t endLine);

// Turns the pending comment tokens into a block (if they document anything)
// and empties the pending list.
void collectDocBlocks(std::vector<lexer::Token>& pending, std::vector<RawDocBlock>& blocks);

// Scans `source` with comments kept and returns its doc blocks in order.
std::vector<RawDocBlock> findDocBlocks(std::string_view source);

// The doc blocks of a token stream scanned with comments kept, in order.
// With `parse` false a block holds only its raw text and lines, and
// `parseDocBlock(block.raw, ...)` reads the rest when the block is needed.
std::vector<RawDocBlock> docBlocksOf(const std::vector<lexer::Token>& tokens, bool parse);

// The nearest unused block that ends 1 to 5 lines above `line`, marked
// used; null if there is none. Of two at the same distance the later one
// wins. `blocks` are in source order, so their end lines never decrease,
// and the candidates are found by binary search rather than by a walk over
// every block: a document claims a block for each declaration.
RawDocBlock* claimDocBlock(std::vector<RawDocBlock>& blocks, std::int32_t line);

}  // namespace quor::doc
