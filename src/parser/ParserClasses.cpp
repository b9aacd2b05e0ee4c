// Type declarations: classes with their constructors and base lists,
// interfaces, structs and enums; and test declarations, which become plain
// functions with a reserved name prefix.
#include <string>
#include <string_view>
#include <utility>

#include "parser/Parser.h"

namespace quor::parser {

using lexer::Token;
using lexer::TokenType;

namespace {

// Prefix of the function that a test declaration turns into; later stages
// recognise tests by it.
constexpr std::string_view TEST_FUNCTION_PREFIX = "__quor_test_";

// Name of a test that was written without one.
constexpr std::string_view ANONYMOUS_TEST_NAME = "anonymous_test";

bool isAsciiLetterOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// The function name of a test: the prefix, then the test name with every byte
// that is no ASCII letter or digit replaced by an underscore.
std::string testFunctionName(std::string_view testName) {
    std::string name(TEST_FUNCTION_PREFIX);
    for (char c : testName) name += isAsciiLetterOrDigit(c) ? c : '_';
    return name;
}

// A test name given as a string keeps no surrounding double quotes.
std::string stripDoubleQuotes(std::string text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') return text.substr(1, text.size() - 2);
    return text;
}

}  // namespace

std::unique_ptr<ast::ClassDecl> Parser::parseClassDecl(std::string visibility, bool isAbstract) {
    auto location = previous().location;
    std::string name = consume(TokenType::Identifier, "Expected class name").lexeme;
    auto typeParams = parseTypeParameters();

    std::string baseClass;
    std::vector<std::string> interfaces;
    if (match(TokenType::Extends)) {
        baseClass = consume(TokenType::Identifier, "Expected base class name after 'extends'").lexeme;
    }
    if (match(TokenType::Colon)) {
        // The first name behind a colon is taken as the base class even when
        // it names an interface; name resolution sorts that out.
        baseClass = consume(TokenType::Identifier, "Expected base class or interface name after ':'").lexeme;
        while (match(TokenType::Comma)) {
            interfaces.push_back(consume(TokenType::Identifier, "Expected interface name after ','").lexeme);
        }
    }
    if (match(TokenType::Implements)) {
        do {
            interfaces.push_back(consume(TokenType::Identifier, "Expected interface name after 'implements'").lexeme);
        } while (match(TokenType::Comma));
    }

    consume(TokenType::LeftBrace, "Expected '{' to start class body");
    std::vector<ast::NodePtr> members;
    while (!isAtEnd() && !check(TokenType::RightBrace)) {
        const auto before = current;
        const bool isConstructor =
            check(TokenType::Identifier) && peek().lexeme == name && kindAt(current + 1) == TokenType::LeftParen;
        if (isConstructor) {
            members.push_back(parseConstructor(name));
        } else {
            members.push_back(parseDeclaration());
        }
        if (current == before) advance();
    }
    consume(TokenType::RightBrace, "Expected '}' at end of class body");
    return std::make_unique<ast::ClassDecl>(std::move(name), std::move(typeParams), std::move(baseClass),
                                            std::move(interfaces), std::move(members), std::move(visibility),
                                            isAbstract, std::move(location));
}

std::unique_ptr<ast::FunctionDecl> Parser::parseConstructor(const std::string& className) {
    auto location = advance().location;
    auto params = parseParameters();
    auto body = parseBlock();
    return std::make_unique<ast::FunctionDecl>(className, std::move(params), "void", std::move(body), nullptr,
                                               "public", false, false, false, false, std::move(location));
}

std::unique_ptr<ast::InterfaceDecl> Parser::parseInterfaceDecl(std::string visibility) {
    auto location = previous().location;
    std::string name = consume(TokenType::Identifier, "Expected interface name").lexeme;
    consume(TokenType::LeftBrace, "Expected '{' to start interface body");
    std::vector<std::unique_ptr<ast::FunctionDecl>> methods;
    while (!isAtEnd() && !check(TokenType::RightBrace)) {
        if (match(TokenType::Fn)) {
            methods.push_back(parseInterfaceMethod());
        } else {
            errorAt(peek(), "Only method signatures are permitted in interfaces");
            advance();
        }
    }
    consume(TokenType::RightBrace, "Expected '}' at end of interface body");
    return std::make_unique<ast::InterfaceDecl>(std::move(name), std::move(methods), std::move(visibility),
                                                std::move(location));
}

std::unique_ptr<ast::FunctionDecl> Parser::parseInterfaceMethod() {
    auto location = previous().location;
    std::string name = consume(TokenType::Identifier, "Expected method name in interface").lexeme;
    auto params = parseParameters();
    std::string returnType = parseReturnType();
    consume(TokenType::Semicolon, "Expected ';' after interface method signature");
    return std::make_unique<ast::FunctionDecl>(std::move(name), std::move(params), std::move(returnType), nullptr,
                                               nullptr, "public", false, false, true, false, std::move(location));
}

std::unique_ptr<ast::StructDecl> Parser::parseStructDecl(std::string visibility) {
    auto location = previous().location;
    std::string name = consume(TokenType::Identifier, "Expected struct name").lexeme;
    consume(TokenType::LeftBrace, "Expected '{' to start struct body");
    std::vector<std::unique_ptr<ast::VarDeclStmt>> fields;
    while (!isAtEnd() && !check(TokenType::RightBrace)) {
        const auto before = current;
        auto field = parseStructField();
        if (current == before) {
            // A stray token (as the `=` of `int x = 1;`) starts no field and
            // would stand for ever: it costs its reports once, is skipped, and
            // the empty field read from nothing is not kept.
            advance();
            continue;
        }
        fields.push_back(std::move(field));
    }
    consume(TokenType::RightBrace, "Expected '}' at end of struct body");
    return std::make_unique<ast::StructDecl>(std::move(name), std::move(fields), std::move(visibility),
                                             std::move(location));
}

std::unique_ptr<ast::VarDeclStmt> Parser::parseStructField() {
    std::string type;
    std::string name;
    diagnostics::SourceLocation location;
    if (check(TokenType::Identifier) && kindAt(current + 1) == TokenType::Colon) {
        const Token& nameToken = advance();
        location = nameToken.location;
        name = nameToken.lexeme;
        consume(TokenType::Colon, "Expected ':' after field name");
        type = parseType();
    } else {
        type = parseType();
        location = peek().location;  // where the name stands, or should stand
        name = consume(TokenType::Identifier, "Expected field name in struct").lexeme;
    }
    consume(TokenType::Semicolon, "Expected ';' after struct field");
    return std::make_unique<ast::VarDeclStmt>(std::move(type), std::move(name), nullptr, false, false,
                                              std::move(location));
}

std::unique_ptr<ast::EnumDecl> Parser::parseEnumDecl(std::string visibility) {
    ++enumsParsed;
    auto location = previous().location;
    std::string name = consume(TokenType::Identifier, "Expected enum name").lexeme;
    consume(TokenType::LeftBrace, "Expected '{' to start enum body");
    std::vector<ast::EnumVariant> variants;
    while (!isAtEnd() && !check(TokenType::RightBrace)) {
        ast::EnumVariant variant;
        variant.name = consume(TokenType::Identifier, "Expected enum variant identifier").lexeme;
        if (match(TokenType::Equal)) variant.value = parseExpression(Precedence::Assignment);
        variants.push_back(std::move(variant));
        if (!match(TokenType::Comma)) break;  // a trailing comma is accepted
    }
    consume(TokenType::RightBrace, "Expected '}' at end of enum body");
    return std::make_unique<ast::EnumDecl>(std::move(name), std::move(variants), std::move(visibility),
                                           std::move(location));
}

std::unique_ptr<ast::FunctionDecl> Parser::parseTestDecl() {
    auto location = previous().location;
    std::string testName;
    if (check(TokenType::StringLiteral)) {
        testName = stripDoubleQuotes(advance().lexeme);
    } else if (check(TokenType::Identifier)) {
        testName = advance().lexeme;
    } else {
        errorAt(peek(), "Expected test name string literal or identifier after 'test'");
        testName = ANONYMOUS_TEST_NAME;
    }
    if (match(TokenType::LeftParen)) consume(TokenType::RightParen, "Expected ')' after test declaration parameters");

    std::unique_ptr<ast::BlockStmt> body;
    if (check(TokenType::LeftBrace)) {
        body = parseBlock();
    } else {
        errorAt(peek(), "Expected '{' to start test body");
        body = std::make_unique<ast::BlockStmt>(std::vector<ast::StmtPtr>{}, location);
    }
    return std::make_unique<ast::FunctionDecl>(testFunctionName(testName), std::vector<ast::Parameter>{}, "void",
                                               std::move(body), nullptr, "public", false, false, false, false,
                                               std::move(location));
}

}  // namespace quor::parser
