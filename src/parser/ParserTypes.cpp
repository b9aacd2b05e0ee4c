// Type annotations, read into their canonical text: the head name, then
// type arguments ("<A, B>"), then array marks ("[]"), then one nullable
// mark ("?"). The analyser reads this text back, so the form is fixed: no
// blanks except ", " between type arguments.
#include "parser/Parser.h"

namespace quor::parser {

using lexer::TokenType;

namespace {

constexpr std::string_view UNKNOWN_TYPE = "unknown";

}  // namespace

std::string Parser::parseType() {
    std::string text;
    parseTypeInto(text);
    return text;
}

// Appends to one buffer all the way down, so that a type nested n deep costs
// n appends rather than n copies of ever longer inner texts.
void Parser::parseTypeInto(std::string& text) {
    NestingScope scope(*this);
    if (!isTypeKeyword(peek().type) && !check(TokenType::Identifier)) {
        errorAt(peek(), "Expected type name");
        text.append(UNKNOWN_TYPE);
        return;
    }
    text.append(advance().lexeme);
    if (match(TokenType::Less)) {
        text.push_back('<');
        while (true) {
            std::uint64_t iterationStart = current;
            parseTypeInto(text);
            if (match(TokenType::Comma)) text.append(", ");
            if (isAtEnd() || check(TokenType::Greater)) break;
            // Nothing could be read (say a ">>" or a number): stop here
            // rather than asking for a type at the same token forever. The
            // missing '>' is reported just below.
            if (current == iterationStart) break;
        }
        consume(TokenType::Greater, "Expected '>' after generic type arguments");
        text.push_back('>');
    }
    while (check(TokenType::LeftBracket) && checkNext(TokenType::RightBracket)) {
        advance();
        advance();
        text.append("[]");
    }
    if (match(TokenType::Question)) text.push_back('?');
}

std::vector<std::string> Parser::parseTypeArgumentList() {
    std::vector<std::string> types;
    do {
        types.push_back(parseType());
    } while (match(TokenType::Comma));
    return types;
}

}  // namespace quor::parser
