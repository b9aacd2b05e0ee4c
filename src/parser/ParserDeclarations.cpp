// Declaration entry: modifiers, then the choice among the declaration forms.
// A function has three spellings (with `fn`, type first, bare), told apart
// by bounded lookahead; anything that is no declaration is read as a
// statement, so statements are legal at the top level and in class bodies.
#include <array>
#include <string>
#include <utility>

#include "parser/Parser.h"

namespace quor::parser {

using lexer::Token;
using lexer::TokenType;

namespace {

// A modifier word sets either the visibility or one of the three flags.
enum class ModifierFlag { None, Static, Override, Abstract };

struct ModifierEntry {
    TokenType keyword;
    const char* visibility;  // set for the visibility words
    ModifierFlag flag;       // set for the flag words
};

constexpr std::array<ModifierEntry, 7> MODIFIERS = {{
    {TokenType::Public, "public", ModifierFlag::None},
    {TokenType::Private, "private", ModifierFlag::None},
    {TokenType::Protected, "protected", ModifierFlag::None},
    {TokenType::Internal, "internal", ModifierFlag::None},
    {TokenType::Static, nullptr, ModifierFlag::Static},
    {TokenType::Override, nullptr, ModifierFlag::Override},
    {TokenType::Abstract, nullptr, ModifierFlag::Abstract},
}};

// Tokens behind the closing parenthesis that make `name(...)` a function.
constexpr std::array<TokenType, 3> BARE_FUNCTION_BODY_STARTS = {TokenType::Arrow, TokenType::FatArrow,
                                                                TokenType::LeftBrace};

// Tokens behind a declared name that make a type-first declaration a field.
constexpr std::array<TokenType, 3> FIELD_ENDINGS = {TokenType::Equal, TokenType::Semicolon, TokenType::Comma};

template <std::size_t N>
bool isOneOf(TokenType kind, const std::array<TokenType, N>& kinds) {
    for (TokenType candidate : kinds) {
        if (candidate == kind) return true;
    }
    return false;
}

}  // namespace

std::unique_ptr<ast::StatementNode> Parser::parseDeclaration() {
    // Class bodies and extern blocks nest declarations through here.
    NestingScope scope(*this);
    Modifiers modifiers = parseModifiers();

    switch (peek().type) {
        case TokenType::Module:
            advance();
            return parseModuleDecl();
        case TokenType::Import:
            advance();
            return parseImportDecl();
        case TokenType::Fn:
            advance();
            return parseFunctionDecl(modifiers.visibility, modifiers.isStatic, modifiers.isOverride,
                                     modifiers.isAbstract);
        case TokenType::Class:
            advance();
            return parseClassDecl(modifiers.visibility, modifiers.isAbstract);
        case TokenType::Interface:
            advance();
            return parseInterfaceDecl(modifiers.visibility);
        case TokenType::Struct:
            advance();
            return parseStructDecl(modifiers.visibility);
        case TokenType::Enum:
            advance();
            return parseEnumDecl(modifiers.visibility);
        case TokenType::Test:
            advance();
            return parseTestDecl();
        case TokenType::Const:
            advance();
            return parseVarDecl(true, false);
        case TokenType::Var:
        case TokenType::Let:
            advance();
            return parseVarDecl(false, true);
        case TokenType::Extern:
            return parseExternBlock();
        default:
            break;
    }

    if (isBareFunctionStart()) return parseBareFunction(modifiers);
    if (isTypeFirstStart()) {
        if (auto declaration = parseTypeFirstDeclaration(modifiers)) return declaration;
    }
    return parseStatement();  // modifiers read so far are dropped
}

Parser::Modifiers Parser::parseModifiers() {
    Modifiers modifiers;
    for (bool found = true; found;) {
        found = false;
        for (const auto& entry : MODIFIERS) {
            if (!match(entry.keyword)) continue;
            found = true;
            if (entry.visibility != nullptr) modifiers.visibility = entry.visibility;
            if (entry.flag == ModifierFlag::Static) modifiers.isStatic = true;
            if (entry.flag == ModifierFlag::Override) modifiers.isOverride = true;
            if (entry.flag == ModifierFlag::Abstract) modifiers.isAbstract = true;
            break;
        }
    }
    return modifiers;
}

std::unique_ptr<ast::StatementNode> Parser::parseExternBlock() {
    auto location = advance().location;
    match(TokenType::StringLiteral);  // `extern "x" { ... }` means the same as `extern { ... }`
    consume(TokenType::LeftBrace, "Expected '{' to start extern block");
    std::vector<ast::StmtPtr> declarations;
    while (!isAtEnd() && !check(TokenType::RightBrace)) {
        const auto before = current;
        if (auto declaration = parseDeclaration()) declarations.push_back(std::move(declaration));
        if (current == before) advance();
    }
    consume(TokenType::RightBrace, "Expected '}' after extern block");
    return std::make_unique<ast::BlockStmt>(std::move(declarations), std::move(location));
}

bool Parser::isBareFunctionStart() const {
    if (!check(TokenType::Identifier) || kindAt(current + 1) != TokenType::LeftParen) return false;
    if (current + 2 >= tokens.size()) return false;
    std::uint64_t index = current + 2;
    for (int depth = 1; index < tokens.size(); ++index) {
        if (tokens[index].type == TokenType::LeftParen) ++depth;
        if (tokens[index].type == TokenType::RightParen && --depth == 0) break;
    }
    const std::uint64_t behind = index + 1;
    return behind < tokens.size() && isOneOf(tokens[behind].type, BARE_FUNCTION_BODY_STARTS);
}

std::unique_ptr<ast::FunctionDecl> Parser::parseBareFunction(const Modifiers& modifiers) {
    const Token& nameToken = advance();
    auto location = nameToken.location;
    std::string name = nameToken.lexeme;
    auto params = parseParameters();
    std::string returnType = "void";
    if (match(TokenType::Arrow)) returnType = parseType();
    std::unique_ptr<ast::BlockStmt> body;
    ast::ExprPtr exprBody;
    if (match(TokenType::FatArrow)) {
        exprBody = parseExpression(Precedence::Assignment);
        consume(TokenType::Semicolon, "Expected ';' after expression body");
    } else {
        body = parseBlock();
    }
    return std::make_unique<ast::FunctionDecl>(std::move(name), std::move(params), std::move(returnType),
                                               std::move(body), std::move(exprBody), modifiers.visibility,
                                               modifiers.isStatic, modifiers.isOverride, modifiers.isAbstract, false,
                                               std::move(location));
}

bool Parser::isTypeFirstStart() const {
    if (isTypeKeyword(peek().type)) return true;
    if (!check(TokenType::Identifier)) return false;
    const TokenType behind = kindAt(current + 1);
    if (behind == TokenType::Identifier || behind == TokenType::Less || behind == TokenType::Question) return true;
    return behind == TokenType::LeftBracket && kindAt(current + 2) == TokenType::RightBracket;
}

std::unique_ptr<ast::StatementNode> Parser::parseTypeFirstDeclaration(const Modifiers& modifiers) {
    const auto start = current;
    std::string typeName = parseType();
    if (!check(TokenType::Identifier)) {
        current = start;
        return nullptr;
    }
    const TokenType behindName = kindAt(current + 1);

    if (behindName == TokenType::LeftParen) {
        const Token& nameToken = advance();
        auto location = nameToken.location;
        std::string name = nameToken.lexeme;
        auto params = parseParameters();
        std::unique_ptr<ast::BlockStmt> body;
        if (check(TokenType::LeftBrace)) {
            body = parseBlock();
        } else {
            consume(TokenType::Semicolon, "Expected ';' after function signature");
        }
        return std::make_unique<ast::FunctionDecl>(std::move(name), std::move(params), std::move(typeName),
                                                   std::move(body), nullptr, modifiers.visibility, modifiers.isStatic,
                                                   modifiers.isOverride, modifiers.isAbstract, false,
                                                   std::move(location));
    }

    if (isOneOf(behindName, FIELD_ENDINGS)) {
        const Token& nameToken = advance();
        auto location = nameToken.location;
        std::string name = nameToken.lexeme;
        ast::ExprPtr initializer;
        if (match(TokenType::Equal)) initializer = parseExpression(Precedence::Assignment);
        consume(TokenType::Semicolon, "Expected ';' after variable declaration");
        return std::make_unique<ast::VarDeclStmt>(std::move(typeName), std::move(name), std::move(initializer), false,
                                                  false, modifiers.visibility, modifiers.isStatic,
                                                  std::move(location));
    }

    current = start;
    return nullptr;
}

std::string Parser::parseNamePart(std::string_view message) {
    if (check(TokenType::Identifier) || isTypeKeyword(peek().type)) return advance().lexeme;
    return consume(TokenType::Identifier, message).lexeme;
}

std::unique_ptr<ast::ModuleDecl> Parser::parseModuleDecl() {
    auto location = previous().location;
    std::string name = parseNamePart("Expected module identifier");
    while (match(TokenType::Dot)) {
        name += '.';
        name += parseNamePart("Expected identifier after '.' in module name");
    }
    consume(TokenType::Semicolon, "Expected ';' after module declaration");
    return std::make_unique<ast::ModuleDecl>(std::move(name), std::move(location));
}

std::unique_ptr<ast::ImportDecl> Parser::parseImportDecl() {
    auto location = previous().location;
    std::string path = parseNamePart("Expected import path");
    bool isWildcard = false;
    while (match(TokenType::Dot)) {
        if (match(TokenType::Star)) {
            isWildcard = true;
            break;
        }
        path += '.';
        path += parseNamePart("Expected identifier after '.' in import path");
    }
    consume(TokenType::Semicolon, "Expected ';' after import statement");
    return std::make_unique<ast::ImportDecl>(std::move(path), isWildcard, std::move(location));
}

std::unique_ptr<ast::FunctionDecl> Parser::parseFunctionDecl(std::string visibility, bool isStatic, bool isOverride,
                                                             bool isAbstract) {
    auto location = previous().location;
    std::string name;
    if (check(TokenType::Identifier) || isTypeKeyword(peek().type) || check(TokenType::Spawn)) {
        name = advance().lexeme;
    } else {
        name = consume(TokenType::Identifier, "Expected function name").lexeme;
    }
    auto typeParams = parseTypeParameters();
    auto params = parseParameters();
    std::string returnType = parseReturnType();

    std::unique_ptr<ast::BlockStmt> body;
    ast::ExprPtr exprBody;
    if (match(TokenType::FatArrow)) {
        exprBody = parseExpression(Precedence::Assignment);
        consume(TokenType::Semicolon, "Expected ';' after short-form function expression");
    } else if (check(TokenType::LeftBrace)) {
        body = parseBlock();
    } else if (!match(TokenType::Semicolon)) {
        errorAt(peek(), "Expected '{' or '=>' for function body");
    }
    return std::make_unique<ast::FunctionDecl>(std::move(name), std::move(typeParams), std::move(params),
                                               std::move(returnType), std::move(body), std::move(exprBody),
                                               std::move(visibility), isStatic, isOverride, isAbstract, false,
                                               std::move(location));
}

std::vector<std::string> Parser::parseTypeParameters() {
    std::vector<std::string> typeParams;
    if (!match(TokenType::Less)) return typeParams;
    do {
        typeParams.push_back(consume(TokenType::Identifier, "Expected type parameter name").lexeme);
    } while (match(TokenType::Comma));
    consume(TokenType::Greater, "Expected '>' after generic type parameters");
    return typeParams;
}

std::string Parser::parseReturnType() {
    if (match(TokenType::Arrow) || match(TokenType::Colon)) return parseType();
    return "void";
}

std::vector<ast::Parameter> Parser::parseParameters() {
    std::vector<ast::Parameter> params;
    consume(TokenType::LeftParen, "Expected '(' to begin parameter list");
    if (check(TokenType::RightParen)) {
        consume(TokenType::RightParen, "Expected ')' to end parameter list");
        return params;
    }
    do {
        params.push_back(parseParameter());
    } while (match(TokenType::Comma));
    consume(TokenType::RightParen, "Expected ')' to end parameter list");
    return params;
}

ast::Parameter Parser::parseParameter() {
    ast::Parameter param;
    const TokenType behind = kindAt(current + 1);
    const bool nameFirst = check(TokenType::Identifier) && behind == TokenType::Colon;
    const bool typeFirst =
        isTypeKeyword(peek().type) ||
        (check(TokenType::Identifier) &&
         (behind == TokenType::Identifier || behind == TokenType::Question || behind == TokenType::Less ||
          (behind == TokenType::LeftBracket && kindAt(current + 2) == TokenType::RightBracket)));

    if (nameFirst) {
        param.name = advance().lexeme;
        advance();  // the colon
        param.type = parseType();
    } else if (typeFirst) {
        param.type = parseType();
        param.name = consume(TokenType::Identifier, "Expected parameter name").lexeme;
    } else {
        param.name = consume(TokenType::Identifier, "Expected parameter name").lexeme;
    }
    if (match(TokenType::Equal)) param.defaultValue = parseExpression(Precedence::Assignment);
    return param;
}

}  // namespace quor::parser
