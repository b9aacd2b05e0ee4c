// Statement grammar. Minimal first version: every statement is read as an
// expression statement, blocks are read in full.
#include "parser/Parser.h"

namespace quor::parser {

using lexer::TokenType;

std::unique_ptr<ast::BlockStmt> Parser::parseBlock() {
    auto location = peek().location;
    consume(TokenType::LeftBrace, "Expected '{' to start block");
    std::vector<ast::StmtPtr> statements;
    while (!isAtEnd() && !check(TokenType::RightBrace)) statements.push_back(parseStatement());
    consume(TokenType::RightBrace, "Expected '}' to close block");
    return std::make_unique<ast::BlockStmt>(std::move(statements), std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseStatement() {
    if (check(TokenType::LeftBrace)) return parseBlock();
    return parseExprStatement();
}

std::unique_ptr<ast::StatementNode> Parser::parseExprStatement() {
    auto location = peek().location;
    auto expression = parseExpression(Precedence::Assignment);
    consume(TokenType::Semicolon, "Expected ';' after expression");
    return std::make_unique<ast::ExprStmt>(std::move(expression), std::move(location));
}

}  // namespace quor::parser
