// Grouping comment tokens into doc blocks and pairing blocks with
// declarations by distance.
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

bool documentsSomething(const std::vector<lexer::Token>& pending) {
    for (const lexer::Token& token : pending) {
        if (token.type == lexer::TokenType::DocComment || startsAsDocComment(token.lexeme)) return true;
    }
    return false;
}

std::int32_t lineOf(const lexer::Token& token) { return static_cast<std::int32_t>(token.location.line); }

}  // namespace

void collectDocBlocks(std::vector<lexer::Token>& pending, std::vector<RawDocBlock>& blocks) {
    if (pending.empty()) return;
    if (documentsSomething(pending)) {
        std::string text;
        for (const lexer::Token& token : pending) {
            text.append(token.lexeme);
            text.push_back('\n');
        }
        blocks.push_back(parseDocBlock(text, lineOf(pending.front()), lineOf(pending.back())));
    }
    pending.clear();
}

std::vector<RawDocBlock> findDocBlocks(std::string_view source) {
    std::ostringstream discarded;
    diagnostics::DiagnosticEngine engine(discarded);
    lexer::Lexer scanner(source, "source.quor", &engine);
    scanner.preserveComments = true;
    std::vector<lexer::Token> tokens = scanner.tokenizeAll();

    std::vector<RawDocBlock> blocks;
    std::vector<lexer::Token> pending;
    for (const lexer::Token& token : tokens) {
        if (isCommentToken(token)) {
            // A blank line between two comments ends the block.
            if (!pending.empty() && token.location.line > std::uint64_t{pending.back().location.line} + 1) {
                collectDocBlocks(pending, blocks);
            }
            pending.push_back(token);
        } else if (token.type != lexer::TokenType::EndOfFile) {
            collectDocBlocks(pending, blocks);
        }
    }
    collectDocBlocks(pending, blocks);
    return blocks;
}

RawDocBlock* claimDocBlock(std::vector<RawDocBlock>& blocks, std::int32_t line) {
    constexpr std::int32_t MAX_DISTANCE = 5;
    RawDocBlock* best = nullptr;
    std::int32_t limit = MAX_DISTANCE;
    for (RawDocBlock& block : blocks) {
        if (block.used) continue;
        std::int64_t distance = static_cast<std::int64_t>(line) - block.endLine;
        if (distance >= 1 && distance <= limit) {
            best = &block;
            limit = static_cast<std::int32_t>(distance);
        }
    }
    if (best != nullptr) best->used = true;
    return best;
}

}  // namespace quor::doc
