// Statement grammar: blocks, the three spellings of a variable declaration,
// control flow, and the tie-break that tells `int x = 1;` or `Point p;` from
// an expression statement. Statements never resynchronise: a failed consume
// reports, and the node is built from what was there.
#include <array>
#include <string_view>
#include <utility>

#include "parser/Parser.h"

namespace quor::parser {

using lexer::Token;
using lexer::TokenType;

namespace {

// The word that turns a `for` header into a for-in loop. It is no keyword:
// it is recognised on an identifier token by its text, and stays usable as a
// name everywhere else.
constexpr std::string_view FOR_IN_WORD = "in";

// The wildcard pattern of a match arm.
constexpr std::string_view MATCH_WILDCARD = "_";

// True when `index` holds an identifier token whose text is `word`.
bool isIdentifierWordAt(const std::vector<Token>& tokens, std::uint64_t index, std::string_view word) {
    return index < tokens.size() && tokens[index].type == TokenType::Identifier && tokens[index].lexeme == word;
}

// Token kinds behind a leading name that may make the statement a typed
// declaration (`x y`, `List<int> y`, `x? y`, `x[] y`).
constexpr std::array<TokenType, 4> TYPE_CONTINUATIONS = {TokenType::Identifier, TokenType::Less,
                                                         TokenType::Question, TokenType::LeftBracket};

// Token kinds behind the declared name that confirm a declaration.
constexpr std::array<TokenType, 3> DECLARATION_ENDINGS = {TokenType::Equal, TokenType::Semicolon,
                                                          TokenType::Comma};

template <std::size_t N>
bool isOneOf(TokenType kind, const std::array<TokenType, N>& kinds) {
    for (TokenType candidate : kinds) {
        if (candidate == kind) return true;
    }
    return false;
}

}  // namespace

std::unique_ptr<ast::BlockStmt> Parser::parseBlock() {
    auto location = peek().location;
    consume(TokenType::LeftBrace, "Expected '{' to start block");
    std::vector<ast::StmtPtr> statements;
    while (!isAtEnd() && !check(TokenType::RightBrace)) {
        const auto before = current;
        statements.push_back(parseStatement());
        if (current == before) advance();  // a statement that read nothing must not hold the loop
    }
    consume(TokenType::RightBrace, "Expected '}' to close block");
    return std::make_unique<ast::BlockStmt>(std::move(statements), std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseStatement() {
    using StatementParser = std::unique_ptr<ast::StatementNode> (Parser::*)();
    struct KeywordStatement {
        TokenType keyword;
        StatementParser parse;
    };
    // Statements introduced by a keyword; the keyword is consumed first.
    static constexpr std::array<KeywordStatement, 11> KEYWORD_STATEMENTS = {{
        {TokenType::If, &Parser::parseIfStatement},
        {TokenType::While, &Parser::parseWhileStatement},
        {TokenType::Do, &Parser::parseDoWhileStatement},
        {TokenType::For, &Parser::parseForStatement},
        {TokenType::Switch, &Parser::parseSwitchStatement},
        {TokenType::Match, &Parser::parseMatchStatement},
        {TokenType::Return, &Parser::parseReturnStatement},
        {TokenType::Break, &Parser::parseBreakStatement},
        {TokenType::Continue, &Parser::parseContinueStatement},
        {TokenType::Try, &Parser::parseTryCatchStatement},
        {TokenType::Throw, &Parser::parseThrowStatement},
    }};

    // Blocks and branches nest through here; deep nesting is bounded like
    // nested expressions.
    NestingScope scope(*this);
    if (check(TokenType::LeftBrace)) return parseBlock();
    if (match(TokenType::Var) || match(TokenType::Let)) return parseVarDecl(false, true);
    if (match(TokenType::Const)) return parseVarDecl(true, false);
    for (const auto& entry : KEYWORD_STATEMENTS) {
        if (match(entry.keyword)) return (this->*entry.parse)();
    }
    if (match(TokenType::Enum)) return parseEnumDecl(std::string());
    return parseTypedDeclarationOrExpression();
}

std::unique_ptr<ast::StatementNode> Parser::parseTypedDeclarationOrExpression() {
    if (!isTypeKeyword(peek().type)) {
        if (!check(TokenType::Identifier)) return parseExprStatement();
        if (!isOneOf(kindAt(current + 1), TYPE_CONTINUATIONS)) return parseExprStatement();
    }

    const auto start = current;
    std::string typeName = parseType();
    if (!check(TokenType::Identifier) || !isOneOf(kindAt(current + 1), DECLARATION_ENDINGS)) {
        current = start;
        return parseExprStatement();
    }

    const Token& name = advance();
    auto location = name.location;
    std::string varName = name.lexeme;
    ast::ExprPtr initializer;
    if (match(TokenType::Equal)) initializer = parseExpression(Precedence::Assignment);
    consume(TokenType::Semicolon, "Expected ';' after variable declaration");
    return std::make_unique<ast::VarDeclStmt>(std::move(typeName), std::move(varName), std::move(initializer),
                                              false, false, std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseVarDecl(bool isConst, bool isVarOrLet) {
    auto location = previous().location;
    std::string typeName;
    if (isTypeKeyword(peek().type) || (!isConst && !isVarOrLet)) typeName = parseType();
    std::string name = consume(TokenType::Identifier, "Expected variable name in declaration").lexeme;
    if (match(TokenType::Colon)) typeName = parseType();
    ast::ExprPtr initializer;
    if (match(TokenType::Equal)) initializer = parseExpression(Precedence::Assignment);
    consume(TokenType::Semicolon, "Expected ';' after variable declaration");
    return std::make_unique<ast::VarDeclStmt>(std::move(typeName), std::move(name), std::move(initializer), isConst,
                                              isVarOrLet, std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseIfStatement() {
    auto location = previous().location;
    consume(TokenType::LeftParen, "Expected '(' after 'if'");
    auto condition = parseExpression(Precedence::Assignment);
    consume(TokenType::RightParen, "Expected ')' after if condition");
    auto thenBranch = parseStatement();
    ast::StmtPtr elseBranch;
    if (match(TokenType::Else)) elseBranch = parseStatement();
    return std::make_unique<ast::IfStmt>(std::move(condition), std::move(thenBranch), std::move(elseBranch),
                                         std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseWhileStatement() {
    auto location = previous().location;
    consume(TokenType::LeftParen, "Expected '(' after 'while'");
    auto condition = parseExpression(Precedence::Assignment);
    consume(TokenType::RightParen, "Expected ')' after while condition");
    auto body = parseStatement();
    return std::make_unique<ast::WhileStmt>(std::move(condition), std::move(body), std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseDoWhileStatement() {
    auto location = previous().location;
    auto body = parseStatement();
    consume(TokenType::While, "Expected 'while' after 'do' body");
    consume(TokenType::LeftParen, "Expected '(' after 'while'");
    auto condition = parseExpression(Precedence::Assignment);
    consume(TokenType::RightParen, "Expected ')' after do-while condition");
    consume(TokenType::Semicolon, "Expected ';' after do-while statement");
    return std::make_unique<ast::DoWhileStmt>(std::move(body), std::move(condition), std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseForStatement() {
    auto location = previous().location;
    consume(TokenType::LeftParen, "Expected '(' after 'for'");

    const TokenType t0 = kindAt(current);
    const TokenType t1 = kindAt(current + 1);

    // for (var i in xs) / for (let i in xs)
    if ((t0 == TokenType::Var || t0 == TokenType::Let) && t1 == TokenType::Identifier &&
        isIdentifierWordAt(tokens, current + 2, FOR_IN_WORD)) {
        advance();
        std::string varName = advance().lexeme;
        advance();
        return parseForInRest(std::move(varName), "auto", std::move(location));
    }
    // for (i in xs)
    if (t0 == TokenType::Identifier && isIdentifierWordAt(tokens, current + 1, FOR_IN_WORD)) {
        std::string varName = advance().lexeme;
        advance();
        return parseForInRest(std::move(varName), "auto", std::move(location));
    }
    // for (int i in xs): a type, then the variable and the word are taken as
    // the next two tokens. Only a one-token type fits this shape; a head that
    // is no type is reported and consumes nothing, so that head is then taken
    // as the variable and the name as the word.
    if (t1 == TokenType::Identifier && isIdentifierWordAt(tokens, current + 2, FOR_IN_WORD)) {
        std::string varType = parseType();
        std::string varName = advance().lexeme;
        advance();
        return parseForInRest(std::move(varName), std::move(varType), std::move(location));
    }
    return parseCountedForRest(std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseForInRest(std::string varName, std::string varType,
                                                           diagnostics::SourceLocation location) {
    auto iterable = parseExpression(Precedence::Assignment);
    consume(TokenType::RightParen, "Expected ')' after for-in expression");
    auto body = parseStatement();
    return std::make_unique<ast::ForInStmt>(std::move(varName), std::move(varType), std::move(iterable),
                                            std::move(body), std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseCountedForRest(diagnostics::SourceLocation location) {
    ast::StmtPtr init;
    if (!match(TokenType::Semicolon)) init = parseStatement();  // brings its own semicolon
    ast::ExprPtr condition;
    if (!check(TokenType::Semicolon)) condition = parseExpression(Precedence::Assignment);
    consume(TokenType::Semicolon, "Expected ';' after for loop condition");
    ast::ExprPtr update;
    if (!check(TokenType::RightParen)) update = parseExpression(Precedence::Assignment);
    consume(TokenType::RightParen, "Expected ')' after for clauses");
    auto body = parseStatement();
    return std::make_unique<ast::ForStmt>(std::move(init), std::move(condition), std::move(update), std::move(body),
                                          std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseSwitchStatement() {
    auto location = previous().location;
    consume(TokenType::LeftParen, "Expected '(' after 'switch'");
    auto subject = parseExpression(Precedence::Assignment);
    consume(TokenType::RightParen, "Expected ')' after switch subject");
    consume(TokenType::LeftBrace, "Expected '{' before switch cases");

    std::vector<ast::SwitchCase> cases;
    std::vector<ast::StmtPtr> defaultBody;
    while (!isAtEnd() && !check(TokenType::RightBrace)) {
        if (match(TokenType::Case)) {
            ast::SwitchCase entry;
            entry.value = parseExpression(Precedence::Assignment);
            consume(TokenType::Colon, "Expected ':' after case value");
            entry.body = parseCaseBody();
            cases.push_back(std::move(entry));
        } else if (match(TokenType::Default)) {
            consume(TokenType::Colon, "Expected ':' after default");
            for (auto& statement : parseCaseBody()) defaultBody.push_back(std::move(statement));
        } else {
            errorAt(peek(), "Expected 'case' or 'default' in switch block");
            advance();
        }
    }
    consume(TokenType::RightBrace, "Expected '}' after switch cases");
    return std::make_unique<ast::SwitchStmt>(std::move(subject), std::move(cases), std::move(defaultBody),
                                             std::move(location));
}

std::vector<std::unique_ptr<ast::StatementNode>> Parser::parseCaseBody() {
    std::vector<ast::StmtPtr> body;
    while (!isAtEnd() && !check(TokenType::Case) && !check(TokenType::Default) && !check(TokenType::RightBrace)) {
        const auto before = current;
        body.push_back(parseStatement());
        if (current == before) advance();
    }
    return body;
}

std::unique_ptr<ast::StatementNode> Parser::parseMatchStatement() {
    auto location = previous().location;
    auto subject = parseExpression(Precedence::Assignment);
    consume(TokenType::LeftBrace, "Expected '{' before match arms");
    std::vector<ast::MatchArm> arms;
    while (!isAtEnd() && !check(TokenType::RightBrace)) {
        const auto before = current;
        arms.push_back(parseMatchArm());
        if (current == before) advance();
    }
    consume(TokenType::RightBrace, "Expected '}' after match block");
    return std::make_unique<ast::MatchStmt>(std::move(subject), std::move(arms), std::move(location));
}

ast::MatchArm Parser::parseMatchArm() {
    ast::MatchArm arm;
    if (isIdentifierWordAt(tokens, current, MATCH_WILDCARD)) {
        advance();
    } else {
        arm.pattern = parseExpression(Precedence::Assignment);
    }
    consume(TokenType::FatArrow, "Expected '=>' after match pattern");
    if (check(TokenType::LeftBrace)) {
        arm.body = parseBlock();
    } else {
        arm.body = parseExpression(Precedence::Assignment);
    }
    match(TokenType::Comma);
    return arm;
}

std::unique_ptr<ast::StatementNode> Parser::parseReturnStatement() {
    auto location = previous().location;
    ast::ExprPtr value;
    if (!check(TokenType::Semicolon)) value = parseExpression(Precedence::Assignment);
    consume(TokenType::Semicolon, "Expected ';' after return statement");
    return std::make_unique<ast::ReturnStmt>(std::move(value), std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseBreakStatement() {
    auto location = previous().location;
    consume(TokenType::Semicolon, "Expected ';' after break");
    return std::make_unique<ast::BreakStmt>(std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseContinueStatement() {
    auto location = previous().location;
    consume(TokenType::Semicolon, "Expected ';' after continue");
    return std::make_unique<ast::ContinueStmt>(std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseTryCatchStatement() {
    auto location = previous().location;
    auto tryBlock = parseBlock();
    std::vector<ast::CatchClause> catches;
    while (match(TokenType::Catch)) catches.push_back(parseCatchClause());
    std::unique_ptr<ast::BlockStmt> finallyBlock;
    if (match(TokenType::Finally)) finallyBlock = parseBlock();
    return std::make_unique<ast::TryCatchStmt>(std::move(tryBlock), std::move(catches), std::move(finallyBlock),
                                               std::move(location));
}

ast::CatchClause Parser::parseCatchClause() {
    ast::CatchClause clause;
    consume(TokenType::LeftParen, "Expected '(' after 'catch'");
    clause.exceptionType = parseType();
    clause.varName = consume(TokenType::Identifier, "Expected exception variable name").lexeme;
    consume(TokenType::RightParen, "Expected ')' after catch clause parameters");
    clause.body = parseBlock();
    return clause;
}

std::unique_ptr<ast::StatementNode> Parser::parseThrowStatement() {
    auto location = previous().location;
    auto value = parseExpression(Precedence::Assignment);
    consume(TokenType::Semicolon, "Expected ';' after throw statement");
    return std::make_unique<ast::ThrowStmt>(std::move(value), std::move(location));
}

std::unique_ptr<ast::StatementNode> Parser::parseExprStatement() {
    auto location = peek().location;
    auto expression = parseExpression(Precedence::Assignment);
    consume(TokenType::Semicolon, "Expected ';' after expression");
    return std::make_unique<ast::ExprStmt>(std::move(expression), std::move(location));
}

}  // namespace quor::parser
