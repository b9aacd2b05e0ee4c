// The expression grammar: precedence climbing over prefix and infix halves,
// and the sub-parsers for parentheses (grouping or lambda), bracket and
// brace literals, and object creation.
#include <array>
#include <utility>

#include "parser/Parser.h"

namespace quor::parser {

using ast::ExprPtr;
using lexer::Token;
using lexer::TokenType;

namespace {

struct LiteralRule {
    TokenType type;
    ast::LiteralKind kind;
};

// Tokens that are a literal on their own; the value is the lexeme.
constexpr std::array<LiteralRule, 4> LITERAL_TOKENS{{
    {TokenType::IntegerLiteral, ast::LiteralKind::Integer},
    {TokenType::FloatLiteral, ast::LiteralKind::Float},
    {TokenType::CharLiteral, ast::LiteralKind::Char},
    {TokenType::BooleanLiteral, ast::LiteralKind::Boolean},
}};

struct NamedKeyword {
    TokenType type;
    std::string_view name;
};

// Keywords that stand for a name in an expression.
constexpr std::array<NamedKeyword, 4> NAME_KEYWORDS{{
    {TokenType::This, "this"},
    {TokenType::Super, "super"},
    {TokenType::Assert, "assert"},
    {TokenType::Spawn, "spawn"},
}};

constexpr std::array<TokenType, 6> PREFIX_OPERATORS{
    TokenType::Bang, TokenType::Minus, TokenType::Plus, TokenType::Tilde, TokenType::PlusPlus, TokenType::MinusMinus,
};

constexpr std::array<TokenType, 6> ASSIGNMENT_OPERATORS{
    TokenType::Equal,     TokenType::PlusEqual,  TokenType::MinusEqual,
    TokenType::StarEqual, TokenType::SlashEqual, TokenType::PercentEqual,
};

template <std::size_t N>
bool isOneOf(TokenType type, const std::array<TokenType, N>& set) {
    for (TokenType entry : set) {
        if (entry == type) return true;
    }
    return false;
}

constexpr std::string_view EXPECTED_EXPRESSION = "Expected expression, found: ";

}  // namespace

ExprPtr Parser::parseExpression(Precedence minimum) {
    NestingScope scope(*this);
    ExprPtr left = parsePrefix();
    if (!left) return nullptr;
    while (getPrecedence(peek().type) >= minimum) {
        left = parseInfix(std::move(left));
        if (!left) return nullptr;
    }
    return left;
}

ExprPtr Parser::parsePrefix() {
    const Token& next = peek();
    for (const LiteralRule& rule : LITERAL_TOKENS) {
        if (next.type == rule.type) {
            const Token& token = advance();
            return std::make_unique<ast::LiteralExpr>(rule.kind, token.lexeme, token.location);
        }
    }
    if (next.type == TokenType::StringLiteral) {
        advance();
        return parseStringLiteral();
    }
    if (next.type == TokenType::Null) {
        const Token& token = advance();
        return std::make_unique<ast::LiteralExpr>(ast::LiteralKind::Null, "null", token.location);
    }
    for (const NamedKeyword& keyword : NAME_KEYWORDS) {
        if (next.type == keyword.type) {
            const Token& token = advance();
            return std::make_unique<ast::IdentifierExpr>(std::string(keyword.name), token.location);
        }
    }
    if (next.type == TokenType::Identifier && checkNext(TokenType::FatArrow)) return parseSingleParameterLambda();
    if (next.type == TokenType::Identifier || isTypeKeyword(next.type)) {
        const Token& token = advance();
        return std::make_unique<ast::IdentifierExpr>(token.lexeme, token.location);
    }
    switch (next.type) {
        case TokenType::LeftParen:
            return parseGroupedOrLambda();
        case TokenType::LeftBracket:
            advance();
            return parseArrayLiteral();
        case TokenType::LeftBrace:
            return parseMapLiteral();
        case TokenType::New:
            advance();
            return parseNewExpr();
        default:
            break;
    }
    if (isOneOf(next.type, PREFIX_OPERATORS)) return parsePrefixOperator();
    std::string message(EXPECTED_EXPRESSION);
    message.append(next.lexeme);
    errorAt(next, message);
    advance();  // always step over the offending token, so that every loop moves on
    return nullptr;
}

ExprPtr Parser::parsePrefixOperator() {
    const Token& op = advance();
    ExprPtr operand = parseExpression(Precedence::Unary);
    return std::make_unique<ast::UnaryExpr>(op.type, std::move(operand), true, op.location);
}

ExprPtr Parser::parseSingleParameterLambda() {
    const Token& name = advance();
    advance();  // the "=>"
    std::vector<ast::LambdaExpr::Param> params{{name.lexeme, ""}};
    return std::make_unique<ast::LambdaExpr>(std::move(params), "", parseLambdaBody(), name.location);
}

std::unique_ptr<ast::ASTNode> Parser::parseLambdaBody() {
    if (check(TokenType::LeftBrace)) return parseBlock();
    return parseExpression(Precedence::Assignment);
}

ExprPtr Parser::parseInfix(ExprPtr left) {
    if (check(TokenType::Less) && isGenericCall(current)) return parseGenericCall(std::move(left));
    const Token& op = advance();
    const diagnostics::SourceLocation& location = op.location;
    if (isOneOf(op.type, ASSIGNMENT_OPERATORS)) {
        ExprPtr value = parseExpression(Precedence::Assignment);
        return std::make_unique<ast::AssignExpr>(std::move(left), op.type, std::move(value), location);
    }
    switch (op.type) {
        case TokenType::PlusPlus:
        case TokenType::MinusMinus:
            return std::make_unique<ast::UnaryExpr>(op.type, std::move(left), false, location);
        case TokenType::Dot:
        case TokenType::QuestionDot:
            return parseMemberAccess(std::move(left), op);
        case TokenType::LeftParen: {
            auto args = parseArguments("Expected ')' after argument list");
            return std::make_unique<ast::CallExpr>(std::move(left), std::move(args), location);
        }
        case TokenType::LeftBracket: {
            ExprPtr index = parseExpression(Precedence::Assignment);
            consume(TokenType::RightBracket, "Expected ']' after index");
            return std::make_unique<ast::IndexExpr>(std::move(left), std::move(index), location);
        }
        case TokenType::Question: {
            ExprPtr thenExpr = parseExpression(Precedence::Assignment);
            consume(TokenType::Colon, "Expected ':' in ternary operator");
            ExprPtr elseExpr = parseExpression(Precedence::Ternary);
            return std::make_unique<ast::TernaryExpr>(std::move(left), std::move(thenExpr), std::move(elseExpr),
                                                      location);
        }
        default:
            break;
    }
    auto next = static_cast<Precedence>(static_cast<std::uint32_t>(getPrecedence(op.type)) + 1);
    ExprPtr right = parseExpression(next);
    return std::make_unique<ast::BinaryExpr>(std::move(left), op.type, std::move(right), location);
}

ExprPtr Parser::parseGenericCall(ExprPtr callee) {
    const Token& less = advance();
    std::vector<std::string> typeArgs = parseTypeArgumentList();
    consume(TokenType::Greater, "Expected '>' after generic type arguments");
    consume(TokenType::LeftParen, "Expected '(' after generic type arguments in call");
    auto args = parseArguments("Expected ')' after argument list");
    return std::make_unique<ast::CallExpr>(std::move(callee), std::move(typeArgs), std::move(args), less.location);
}

ExprPtr Parser::parseMemberAccess(ExprPtr object, const Token& op) {
    std::string member;
    if (check(TokenType::Identifier) || isTypeKeyword(peek().type) || check(TokenType::Spawn)) {
        member = advance().lexeme;
    } else {
        member = consume(TokenType::Identifier, "Expected member identifier after '.'").lexeme;
    }
    bool isSafe = op.type == TokenType::QuestionDot;
    return std::make_unique<ast::MemberExpr>(std::move(object), std::move(member), isSafe, op.location);
}

std::vector<ExprPtr> Parser::parseArguments(std::string_view closingMessage) {
    std::vector<ExprPtr> args;
    if (!check(TokenType::RightParen)) {
        do {
            args.push_back(parseExpression(Precedence::Assignment));
        } while (match(TokenType::Comma));
    }
    consume(TokenType::RightParen, closingMessage);
    return args;
}

ExprPtr Parser::parseGroupedOrLambda() {
    const Token& open = advance();
    if (check(TokenType::RightParen)) {
        const Token& close = advance();
        if (match(TokenType::FatArrow)) {
            return std::make_unique<ast::LambdaExpr>(std::vector<ast::LambdaExpr::Param>{}, "", parseLambdaBody(),
                                                     open.location);
        }
        errorAt(close, "Empty parentheses '()' are only allowed in lambda definitions");
        return nullptr;
    }
    std::uint64_t saved = current;
    if (check(TokenType::Identifier) || isTypeKeyword(peek().type)) {
        std::vector<ast::LambdaExpr::Param> params;
        if (scanLambdaParameters(params)) {
            return std::make_unique<ast::LambdaExpr>(std::move(params), "", parseLambdaBody(), open.location);
        }
    }
    // Not a lambda: read the parentheses again as a grouping. Reports made
    // by the attempt stay.
    current = saved;
    ExprPtr inner = parseExpression(Precedence::Assignment);
    consume(TokenType::RightParen, "Expected ')' after expression");
    return inner;
}

bool Parser::scanLambdaParameters(std::vector<ast::LambdaExpr::Param>& params) {
    while (!isAtEnd() && !check(TokenType::RightParen)) {
        std::string type;
        if (isTypeKeyword(peek().type)) type = parseType();
        if (!check(TokenType::Identifier)) break;
        params.push_back({advance().lexeme, std::move(type)});
        if (!match(TokenType::Comma)) break;
    }
    return match(TokenType::RightParen) && match(TokenType::FatArrow);
}

ExprPtr Parser::parseArrayLiteral() {
    diagnostics::SourceLocation location = previous().location;
    std::vector<ExprPtr> elements;
    if (!check(TokenType::RightBracket)) {
        do {
            elements.push_back(parseExpression(Precedence::Assignment));
        } while (match(TokenType::Comma));
    }
    consume(TokenType::RightBracket, "Expected ']' at end of array literal");
    return std::make_unique<ast::ArrayExpr>(std::move(elements), std::move(location));
}

ExprPtr Parser::parseMapLiteral() {
    diagnostics::SourceLocation location = advance().location;
    if (match(TokenType::RightBrace)) {
        return std::make_unique<ast::MapExpr>(std::vector<ast::MapExpr::Entry>{}, std::move(location));
    }
    ExprPtr first = parseExpression(Precedence::Assignment);
    if (match(TokenType::Colon)) {
        std::vector<ast::MapExpr::Entry> entries;
        ExprPtr value = parseExpression(Precedence::Assignment);
        entries.emplace_back(std::move(first), std::move(value));
        while (match(TokenType::Comma) && !check(TokenType::RightBrace)) {
            ExprPtr key = parseExpression(Precedence::Assignment);
            consume(TokenType::Colon, "Expected ':' between key and value in map entry");
            ExprPtr entryValue = parseExpression(Precedence::Assignment);
            entries.emplace_back(std::move(key), std::move(entryValue));
        }
        consume(TokenType::RightBrace, "Expected '}' at end of map literal");
        return std::make_unique<ast::MapExpr>(std::move(entries), std::move(location));
    }
    std::vector<ExprPtr> elements;
    elements.push_back(std::move(first));
    while (match(TokenType::Comma) && !check(TokenType::RightBrace)) {
        elements.push_back(parseExpression(Precedence::Assignment));
    }
    consume(TokenType::RightBrace, "Expected '}' at end of array literal");
    return std::make_unique<ast::ArrayExpr>(std::move(elements), std::move(location));
}

ExprPtr Parser::parseNewExpr() {
    diagnostics::SourceLocation location = previous().location;
    std::string className = consume(TokenType::Identifier, "Expected class name after 'new'").lexeme;
    std::vector<std::string> typeArgs;
    if (match(TokenType::Less)) {
        typeArgs = parseTypeArgumentList();
        consume(TokenType::Greater, "Expected '>' after generic type arguments");
    }
    consume(TokenType::LeftParen, "Expected '(' after class name in new expression");
    auto args = parseArguments("Expected ')' after constructor arguments");
    return std::make_unique<ast::NewExpr>(std::move(className), std::move(typeArgs), std::move(args),
                                          std::move(location));
}

}  // namespace quor::parser
