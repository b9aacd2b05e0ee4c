// Grouping comment tokens into doc blocks and pairing blocks with
// declarations by distance.
#include <algorithm>
#include <cstdint>
#include <sstream>

#include "diagnostics/DiagnosticEngine.h"
#include "doc/DocBlock.h"
#include "lexer/Lexer.h"

namespace quor::doc {

namespace {

bool isCommentToken(const lexer::Token& token) {
    return token.type == lexer::TokenType::Comment || token.type == lexer::TokenType::DocComment;
}

bool startsAsDocComment(const std::string& lexeme) {
    return lexeme.size() >= 3 && (lexeme.compare(0, 3, "///") == 0 || lexeme.compare(0, 3, "/**") == 0);
}

using TokenIterator = std::vector<lexer::Token>::const_iterator;

bool documentsSomething(TokenIterator first, TokenIterator last) {
    for (; first != last; ++first) {
        if (first->type == lexer::TokenType::DocComment || startsAsDocComment(first->lexeme)) return true;
    }
    return false;
}

std::int32_t lineOf(const lexer::Token& token) { return static_cast<std::int32_t>(token.location.line); }

// The block of the comment tokens [first, last), if they document anything.
void addBlock(TokenIterator first, TokenIterator last, bool parse, std::vector<RawDocBlock>& blocks) {
    if (first == last || !documentsSomething(first, last)) return;
    std::string text;
    for (TokenIterator token = first; token != last; ++token) {
        text.append(token->lexeme);
        text.push_back('\n');
    }
    const std::int32_t startLine = lineOf(*first);
    const std::int32_t endLine = lineOf(*(last - 1));
    if (parse) {
        blocks.push_back(parseDocBlock(text, startLine, endLine));
        return;
    }
    RawDocBlock block;
    block.raw = std::move(text);
    block.startLine = startLine;
    block.endLine = endLine;
    blocks.push_back(std::move(block));
}

}  // namespace

void collectDocBlocks(std::vector<lexer::Token>& pending, std::vector<RawDocBlock>& blocks) {
    addBlock(pending.cbegin(), pending.cend(), true, blocks);
    pending.clear();
}

std::vector<RawDocBlock> docBlocksOf(const std::vector<lexer::Token>& tokens, bool parse) {
    // The pending comments are always a run of neighbouring tokens, so they
    // are kept as a range of the stream instead of being copied out.
    std::vector<RawDocBlock> blocks;
    TokenIterator pending = tokens.cbegin();
    TokenIterator end = tokens.cbegin();
    for (TokenIterator token = tokens.cbegin(); token != tokens.cend(); ++token) {
        if (isCommentToken(*token)) {
            // A blank line between two comments ends the block.
            if (pending != end && token->location.line > std::uint64_t{(end - 1)->location.line} + 1) {
                addBlock(pending, end, parse, blocks);
                pending = token;
            }
            if (pending == end) pending = token;
            end = token + 1;
        } else if (token->type != lexer::TokenType::EndOfFile) {
            addBlock(pending, end, parse, blocks);
            pending = end = token + 1;
        }
    }
    addBlock(pending, end, parse, blocks);
    return blocks;
}

std::vector<RawDocBlock> findDocBlocks(std::string_view source) {
    std::ostringstream discarded;
    diagnostics::DiagnosticEngine engine(discarded);
    lexer::Lexer scanner(source, "source.quor", &engine);
    scanner.preserveComments = true;
    return docBlocksOf(scanner.tokenizeAll(), true);
}

RawDocBlock* claimDocBlock(std::vector<RawDocBlock>& blocks, std::int32_t line) {
    constexpr std::int64_t MAX_DISTANCE = 5;
    // The candidates end on lines line-5 to line-1. Walking back from the
    // last of them, the first unused block is the nearest one, and of equal
    // neighbours the later.
    const auto endsBelow = [](std::int64_t limit, const RawDocBlock& block) { return limit < block.endLine; };
    auto candidate = std::upper_bound(blocks.begin(), blocks.end(), std::int64_t{line} - 1, endsBelow);
    while (candidate != blocks.begin()) {
        --candidate;
        if (std::int64_t{line} - candidate->endLine > MAX_DISTANCE) break;
        if (!candidate->used) {
            candidate->used = true;
            return &*candidate;
        }
    }
    return nullptr;
}

}  // namespace quor::doc
