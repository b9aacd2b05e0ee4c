// Parser core: the cursor over the token vector, the matching primitives,
// error reports, operator binding powers, the generic-call lookahead and
// the top level with its last-resort recovery.
#include "parser/Parser.h"

#include <pthread.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "diagnostics/DiagnosticCodes.h"

namespace quor::parser {

using lexer::Token;
using lexer::TokenType;

namespace {

// Stack kept free below the deepest grammar level: room for the frames
// between two checks, the report and the unwinding of the exception.
constexpr std::uintptr_t STACK_RESERVE = std::uintptr_t{1} << 20;

// Most stack the grammar may use below the frame that first parses on a
// thread, however large that thread's stack: far beyond any written
// program, while absurd input is given up on before it costs much memory.
constexpr std::uintptr_t STACK_BUDGET = std::uintptr_t{32} << 20;

// The lowest stack address the grammar may recurse down to on this thread.
// Reading the thread's stack bounds is costly on the main thread, so it is
// done once per thread. Where the bounds can't be read, 8 MiB below the
// current frame is assumed, the usual size of a main thread's stack.
std::uintptr_t findStackFloor() {
    auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    std::uintptr_t low = here > (std::uintptr_t{8} << 20) ? here - (std::uintptr_t{8} << 20) : 0;
    std::uintptr_t size = here - low;
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
        void* base = nullptr;
        std::size_t bytes = 0;
        if (pthread_attr_getstack(&attributes, &base, &bytes) == 0 && base != nullptr) {
            low = reinterpret_cast<std::uintptr_t>(base);
            size = bytes;
        }
        pthread_attr_destroy(&attributes);
    }
    std::uintptr_t floor = low + std::min(STACK_RESERVE, size / 4);
    return here > floor + STACK_BUDGET ? here - STACK_BUDGET : floor;
}

std::uintptr_t stackFloor() {
    thread_local const std::uintptr_t floor = findStackFloor();
    return floor;
}

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

// The table above by token kind, made when compiling, so that the climb
// reads one entry per token instead of walking the table.
constexpr std::array<Precedence, lexer::TOKEN_TYPE_COUNT> PRECEDENCE_BY_KIND = [] {
    std::array<Precedence, lexer::TOKEN_TYPE_COUNT> byKind{};
    for (auto& precedence : byKind) precedence = Precedence::None;
    for (const PrecedenceEntry& entry : PRECEDENCE_TABLE) byKind[static_cast<std::uint32_t>(entry.type)] = entry.precedence;
    return byKind;
}();

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

// Whether each `Less` opens the type arguments of a call. The lookahead
// from a `Less` counts `<` up and `>` down until its depth returns to 0,
// fails on any token that can't stand in type arguments or at the end of
// the vector, and succeeds when `(` follows the closing `>`. That is
// bracket matching, so one pass with a stack of the `Less` tokens whose
// lookahead is still running answers every index: a `>` closes the
// innermost one, and a foreign token fails all that are open.
std::vector<bool> findGenericCallOpeners(const std::vector<Token>& tokens) {
    std::vector<bool> opens(tokens.size(), false);
    std::vector<std::size_t> running;
    for (std::size_t index = 0; index < tokens.size(); ++index) {
        TokenType type = tokens[index].type;
        if (type == TokenType::Less) {
            running.push_back(index);
        } else if (type == TokenType::Greater) {
            if (running.empty()) continue;
            opens[running.back()] = index + 1 < tokens.size() && tokens[index + 1].type == TokenType::LeftParen;
            running.pop_back();
        } else if (!isTypeArgumentToken(type)) {
            running.clear();
        }
    }
    return opens;
}

bool isSyncToken(TokenType type) {
    for (TokenType stop : SYNC_TOKENS) {
        if (stop == type) return true;
    }
    return false;
}

}  // namespace

Parser::Parser(const std::vector<Token>& tokens, std::string filename, diagnostics::DiagnosticEngine* diagnostics)
    : tokens(tokens),
      filename(std::move(filename)),
      diagnostics(diagnostics),
      genericCallOpeners(findGenericCallOpeners(tokens)) {}

// Shared by every thread, so their places carry permanent names.
const Token& Parser::eofToken() {
    static const Token token{TokenType::EndOfFile, "",
                             diagnostics::SourceLocation{diagnostics::SourceName::permanent("<eof>"), 0, 0}};
    return token;
}

const Token& Parser::errorToken() {
    static const Token token{TokenType::Invalid, "",
                             diagnostics::SourceLocation{diagnostics::SourceName::permanent("<err>"), 0, 0}};
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
    if (diagnostics != nullptr) diagnostics->reportError(diagnostics::CODE_SYNTAX, message, token.location, hint);
}

TokenType Parser::kindAt(std::uint64_t index) const {
    return index < tokens.size() ? tokens[index].type : TokenType::EndOfFile;
}

bool Parser::isTypeKeyword(TokenType type) { return lexer::isTokenInRange(type, TokenType::Void, TokenType::Byte); }

bool Parser::isGenericCall(std::uint64_t index) const {
    return index < genericCallOpeners.size() && genericCallOpeners[index];
}

Precedence Parser::getPrecedence(TokenType type) const {
    if (!lexer::isTokenInRange(type, TokenType::Plus, TokenType::Question)) return Precedence::None;
    if (type == TokenType::Less && isGenericCall(current)) return Precedence::Postfix;
    return PRECEDENCE_BY_KIND[static_cast<std::uint32_t>(type)];
}

Parser::NestingScope::NestingScope(Parser& parser) {
    if (reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < stackFloor()) {
        parser.errorAt(parser.peek(), "Source nested too deeply");
        throw NestingLimitExceeded();
    }
}

std::unique_ptr<ast::Program> Parser::parseProgram() {
    diagnostics::SourceLocation location = peek().location;
    std::vector<ast::NodePtr> declarations;
    std::size_t topLevelEnums = 0;
    while (!isAtEnd()) {
        if (match(TokenType::Semicolon)) continue;
        try {
            ast::StmtPtr declaration = parseDeclaration();
            if (declaration) {
                if (declaration->nodeKind == ast::NodeKind::EnumDecl) ++topLevelEnums;
                declarations.push_back(std::move(declaration));
            }
        } catch (...) {
            // A failure from below the grammar (memory, string length,
            // nesting beyond the recursion budget): drop the partial
            // declaration and resume at the next one.
            synchronize();
        }
    }
    auto program = std::make_unique<ast::Program>(std::move(declarations), std::move(location));
    program->mayNestEnums = enumsParsed > topLevelEnums;
    return program;
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
