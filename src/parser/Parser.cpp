// Parser core: the cursor over the token vector, the matching primitives,
// error reports, operator binding powers, the generic-call lookahead and
// the top level with its last-resort recovery.
#include "parser/Parser.h"

#include <array>
#include <utility>

namespace quor::parser {

using lexer::Token;
using lexer::TokenType;

namespace {

constexpr std::string_view SYNTAX_ERROR_CODE = "E1000";

// Deepest recursion the grammar allows. Far beyond any written program, and
// well inside the stack of the parser and of the stages that walk the tree.
constexpr std::uint32_t MAX_NESTING = 1500;

struct PrecedenceEntry {
    TokenType type;
    Precedence precedence;
};

// Binding power of every operator token. Less is listed as a comparison; it
// binds as a postfix operator when it opens the type arguments of a call.
// Tokens missing here (Bang, Tilde, Arrow, FatArrow, brackets that close,
// separators) have no infix meaning and stop the climb.
constexpr std::array<PrecedenceEntry, 33> PRECEDENCE_TABLE{{
    {TokenType::Equal, Precedence::Assignment},
    {TokenType::PlusEqual, Precedence::Assignment},
    {TokenType::MinusEqual, Precedence::Assignment},
    {TokenType::StarEqual, Precedence::Assignment},
    {TokenType::SlashEqual, Precedence::Assignment},
    {TokenType::PercentEqual, Precedence::Assignment},
    {TokenType::Question, Precedence::Ternary},
    {TokenType::QuestionQuestion, Precedence::NullCoalesce},
    {TokenType::PipePipe, Precedence::LogicalOr},
    {TokenType::AmpAmp, Precedence::LogicalAnd},
    {TokenType::Pipe, Precedence::BitOr},
    {TokenType::Caret, Precedence::BitXor},
    {TokenType::Amp, Precedence::BitAnd},
    {TokenType::EqualEqual, Precedence::Equality},
    {TokenType::BangEqual, Precedence::Equality},
    {TokenType::Less, Precedence::Comparison},
    {TokenType::Greater, Precedence::Comparison},
    {TokenType::LessEqual, Precedence::Comparison},
    {TokenType::GreaterEqual, Precedence::Comparison},
    {TokenType::LessLess, Precedence::Shift},
    {TokenType::GreaterGreater, Precedence::Shift},
    {TokenType::DotDot, Precedence::Range},
    {TokenType::Plus, Precedence::Term},
    {TokenType::Minus, Precedence::Term},
    {TokenType::Star, Precedence::Factor},
    {TokenType::Slash, Precedence::Factor},
    {TokenType::Percent, Precedence::Factor},
    {TokenType::PlusPlus, Precedence::Postfix},
    {TokenType::MinusMinus, Precedence::Postfix},
    {TokenType::QuestionDot, Precedence::Postfix},
    {TokenType::LeftParen, Precedence::Postfix},
    {TokenType::LeftBracket, Precedence::Postfix},
    {TokenType::Dot, Precedence::Postfix},
}};

// Tokens that may stand between the angle brackets of a call's type arguments.
// Type keywords are allowed as well.
constexpr std::array<TokenType, 5> TYPE_ARGUMENT_TOKENS{
    TokenType::Identifier, TokenType::LeftBracket, TokenType::RightBracket, TokenType::Comma, TokenType::Question,
};

// Where the top-level recovery stops: tokens that start a new declaration
// or statement.
constexpr std::array<TokenType, 14> SYNC_TOKENS{
    TokenType::Fn,  TokenType::Class,  TokenType::Interface, TokenType::Struct, TokenType::Enum,
    TokenType::If,  TokenType::For,    TokenType::While,     TokenType::Return, TokenType::Import,
    TokenType::Module, TokenType::Var, TokenType::Let,       TokenType::Const,
};

bool isTypeArgumentToken(TokenType type) {
    if (lexer::isTokenInRange(type, TokenType::Void, TokenType::Byte)) return true;
    for (TokenType allowed : TYPE_ARGUMENT_TOKENS) {
        if (allowed == type) return true;
    }
    return false;
}

bool isSyncToken(TokenType type) {
    for (TokenType stop : SYNC_TOKENS) {
        if (stop == type) return true;
    }
    return false;
}

}  // namespace

Parser::Parser(const std::vector<Token>& tokens, std::string filename, diagnostics::DiagnosticEngine* diagnostics)
    : tokens(tokens), filename(std::move(filename)), diagnostics(diagnostics) {}

const Token& Parser::eofToken() {
    static const Token token{TokenType::EndOfFile, "", diagnostics::SourceLocation{"<eof>", 0, 0}};
    return token;
}

const Token& Parser::errorToken() {
    static const Token token{TokenType::Invalid, "", diagnostics::SourceLocation{"<err>", 0, 0}};
    return token;
}

const Token& Parser::peek() const { return current < tokens.size() ? tokens[current] : eofToken(); }

const Token& Parser::peekNext() const { return current + 1 < tokens.size() ? tokens[current + 1] : peek(); }

const Token& Parser::previous() const {
    if (tokens.empty()) return eofToken();
    return current == 0 ? tokens[0] : tokens[current - 1];
}

bool Parser::isAtEnd() const { return peek().type == TokenType::EndOfFile; }

const Token& Parser::advance() {
    if (!isAtEnd()) ++current;
    return previous();
}

bool Parser::check(TokenType type) const { return !isAtEnd() && peek().type == type; }

bool Parser::checkNext(TokenType type) const { return !isAtEnd() && peekNext().type == type; }

bool Parser::match(TokenType type) {
    if (!check(type)) return false;
    advance();
    return true;
}

bool Parser::matchAny(std::initializer_list<TokenType> types) {
    for (TokenType type : types) {
        if (match(type)) return true;
    }
    return false;
}

const Token& Parser::consume(TokenType type, std::string_view message, std::string_view hint) {
    if (check(type)) return advance();
    errorAt(peek(), message, hint);
    return errorToken();
}

void Parser::errorAt(const Token& token, std::string_view message, std::string_view hint) {
    if (diagnostics != nullptr) diagnostics->reportError(SYNTAX_ERROR_CODE, message, token.location, hint);
}

TokenType Parser::kindAt(std::uint64_t index) const {
    return index < tokens.size() ? tokens[index].type : TokenType::EndOfFile;
}

bool Parser::isTypeKeyword(TokenType type) { return lexer::isTokenInRange(type, TokenType::Void, TokenType::Byte); }

bool Parser::isGenericCall(std::uint64_t index) const {
    if (index >= tokens.size() || tokens[index].type != TokenType::Less || index + 1 >= tokens.size()) return false;
    std::uint64_t depth = 1;
    std::uint64_t scan = index + 1;
    for (; scan < tokens.size(); ++scan) {
        TokenType type = tokens[scan].type;
        if (type == TokenType::Less) {
            ++depth;
        } else if (type == TokenType::Greater) {
            if (--depth == 0) break;
        } else if (!isTypeArgumentToken(type)) {
            return false;
        }
    }
    if (scan >= tokens.size()) return false;
    return scan + 1 < tokens.size() && tokens[scan + 1].type == TokenType::LeftParen;
}

Precedence Parser::getPrecedence(TokenType type) const {
    if (!lexer::isTokenInRange(type, TokenType::Plus, TokenType::Question)) return Precedence::None;
    if (type == TokenType::Less && isGenericCall(current)) return Precedence::Postfix;
    for (const PrecedenceEntry& entry : PRECEDENCE_TABLE) {
        if (entry.type == type) return entry.precedence;
    }
    return Precedence::None;
}

Parser::NestingScope::NestingScope(Parser& parser) : parser(parser) {
    if (parser.nesting >= MAX_NESTING) {
        parser.errorAt(parser.peek(), "Source nested too deeply");
        throw NestingLimitExceeded();
    }
    ++parser.nesting;
}

Parser::NestingScope::~NestingScope() { --parser.nesting; }

std::unique_ptr<ast::Program> Parser::parseProgram() {
    diagnostics::SourceLocation location = peek().location;
    std::vector<ast::NodePtr> declarations;
    while (!isAtEnd()) {
        if (match(TokenType::Semicolon)) continue;
        try {
            ast::StmtPtr declaration = parseDeclaration();
            if (declaration) declarations.push_back(std::move(declaration));
        } catch (...) {
            // A failure from below the grammar (memory, string length,
            // nesting beyond the recursion budget): drop the partial
            // declaration and resume at the next one.
            synchronize();
        }
    }
    return std::make_unique<ast::Program>(std::move(declarations), std::move(location));
}

void Parser::synchronize() {
    advance();
    while (!isAtEnd()) {
        if (previous().type == TokenType::Semicolon) return;
        if (isSyncToken(peek().type)) return;
        advance();
    }
}

}  // namespace quor::parser
