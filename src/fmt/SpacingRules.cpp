#include "fmt/SpacingRules.h"

#include "fmt/TokenSets.h"

namespace quor::fmt {

namespace {

using lexer::TokenType;

// The answer of a rule: fixed, or read from one of the options.
enum class Space { No, Yes, AsComma, AsColon };

struct SpacingRule {
    bool (*fits)(const SpacingContext&, const FormatOptions&);
    Space answer;
};

// The decision list, in order. The first row whose condition holds decides.
constexpr SpacingRule SPACING_RULES[] = {
    // 1: closers and separators hug what stands before them.
    {[](const SpacingContext& c, const FormatOptions&) { return TIGHT_BEFORE.contains(c.token); }, Space::No},
    // 2: a colon right behind a name or ")" (labels, type annotations).
    {[](const SpacingContext& c, const FormatOptions&) {
         return c.token == TokenType::Colon && (c.prev == TokenType::Identifier || c.prev == TokenType::RightParen);
     },
     Space::No},
    // 3: the operand of a prefix operator.
    {[](const SpacingContext& c, const FormatOptions&) { return c.afterUnary; }, Space::No},
    // 4: a prefix operator behind a two-operand operator or a keyword.
    {[](const SpacingContext& c, const FormatOptions&) {
         return c.isUnary && (SPACED_OPERATORS.contains(c.prev) || isInKeywordRange(c.prev));
     },
     Space::Yes},
    // 5: any other prefix operator.
    {[](const SpacingContext& c, const FormatOptions&) { return c.isUnary; }, Space::No},
    // 6: behind a comma.
    {[](const SpacingContext& c, const FormatOptions&) { return c.prev == TokenType::Comma; }, Space::AsComma},
    // 7: behind a colon.
    {[](const SpacingContext& c, const FormatOptions&) { return c.prev == TokenType::Colon; }, Space::AsColon},
    // 8: behind a keyword.
    {[](const SpacingContext& c, const FormatOptions&) { return isInKeywordRange(c.prev); }, Space::Yes},
    // 9: in front of a two-operand operator.
    {[](const SpacingContext& c, const FormatOptions& o) {
         return o.spaceAroundOperators && SPACED_OPERATORS.contains(c.token);
     },
     Space::Yes},
    // 10: behind a two-operand operator.
    {[](const SpacingContext& c, const FormatOptions& o) {
         return o.spaceAroundOperators && SPACED_OPERATORS.contains(c.prev);
     },
     Space::Yes},
    // 11: around the "?" of a conditional.
    {[](const SpacingContext& c, const FormatOptions&) {
         return c.token == TokenType::Question || c.prev == TokenType::Question;
     },
     Space::Yes},
    // 12: behind ")" or "]", unless the token continues a member or index chain.
    {[](const SpacingContext& c, const FormatOptions&) {
         return (c.prev == TokenType::RightBracket || c.prev == TokenType::RightParen) &&
                !TIGHT_AFTER_CLOSE.contains(c.token);
     },
     Space::Yes},
    // 13: everything else is written tight.
    {[](const SpacingContext&, const FormatOptions&) { return true; }, Space::No},
};

bool resolve(Space answer, const FormatOptions& options) {
    switch (answer) {
        case Space::Yes: return true;
        case Space::AsComma: return options.spaceAfterComma;
        case Space::AsColon: return options.spaceAfterColon;
        case Space::No: break;
    }
    return false;
}

}  // namespace

bool needsSpaceBefore(const SpacingContext& context, const FormatOptions& options) {
    for (const SpacingRule& rule : SPACING_RULES) {
        if (rule.fits(context, options)) return resolve(rule.answer, options);
    }
    return false;
}

bool isPrefixOperator(lexer::TokenType token, std::optional<lexer::TokenType> prev) {
    if (!PREFIX_OPERATORS.contains(token)) return false;
    return !prev.has_value() || PREFIX_CONTEXT.contains(*prev);
}

}  // namespace quor::fmt
