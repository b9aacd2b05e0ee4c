#pragma once

#include <cstdint>
#include <exception>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ast/AST.h"
#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Token.h"
#include "lexer/TokenType.h"

namespace quor::parser {

// Binding power of an operator token, lowest first. The climb compares the
// numbers, so the order is the grammar.
enum class Precedence : std::uint32_t {
    None = 0,
    Assignment = 1,
    Ternary = 2,
    NullCoalesce = 3,
    LogicalOr = 4,
    LogicalAnd = 5,
    BitOr = 6,
    BitXor = 7,
    BitAnd = 8,
    Equality = 9,
    Comparison = 10,
    Shift = 11,
    Range = 12,
    Term = 13,
    Factor = 14,
    Unary = 15,
    Postfix = 16,
};

// Recursive-descent parser with a precedence-climbing expression core.
// It never stops and never throws for a syntax error: each fault is
// reported (when an engine is given) and parsing goes on from where it
// stands, so a partial tree always comes out. The tree owns copies of all
// strings and outlives the token vector.
class Parser {
public:
    // `tokens` must outlive the parser and hold no comment tokens.
    Parser(const std::vector<lexer::Token>& tokens, std::string filename,
           diagnostics::DiagnosticEngine* diagnostics);

    std::unique_ptr<ast::Program> parseProgram();
    std::unique_ptr<ast::ExpressionNode> parseExpression(Precedence minimum);

private:
    friend class ParserTestAccess;  // white-box tests of the primitives

    // Modifiers read in front of a declaration.
    struct Modifiers {
        std::string visibility;
        bool isStatic = false;
        bool isOverride = false;
        bool isAbstract = false;
    };

    // ---- Cursor and token primitives (Parser.cpp) ----
    const lexer::Token& peek() const;
    const lexer::Token& peekNext() const;
    const lexer::Token& previous() const;
    bool isAtEnd() const;
    const lexer::Token& advance();
    bool check(lexer::TokenType type) const;
    bool checkNext(lexer::TokenType type) const;
    bool match(lexer::TokenType type);
    bool matchAny(std::initializer_list<lexer::TokenType> types);
    const lexer::Token& consume(lexer::TokenType type, std::string_view message, std::string_view hint = {});
    void errorAt(const lexer::Token& token, std::string_view message, std::string_view hint = {});
    // The kind of the token at `index`, or EndOfFile past the vector.
    lexer::TokenType kindAt(std::uint64_t index) const;
    static bool isTypeKeyword(lexer::TokenType type);
    bool isGenericCall(std::uint64_t index) const;
    Precedence getPrecedence(lexer::TokenType type) const;
    void synchronize();

    static const lexer::Token& eofToken();
    static const lexer::Token& errorToken();

    // Marks one level of grammar recursion. A source nested deeper than the
    // thread's stack can bear is given up on: the place is reported once and
    // NestingLimitExceeded is thrown, which the guard of parseProgram catches
    // like any other resource failure. The budget is the stack itself, so
    // the server's large stack parses far deeper than a small one.
    class NestingScope {
    public:
        explicit NestingScope(Parser& parser);
        NestingScope(const NestingScope&) = delete;
        NestingScope& operator=(const NestingScope&) = delete;
    };

    // ---- Expressions (ParserExpressions.cpp) ----
    std::unique_ptr<ast::ExpressionNode> parsePrefix();
    std::unique_ptr<ast::ExpressionNode> parsePrefixOperator();
    std::unique_ptr<ast::ExpressionNode> parseInfix(std::unique_ptr<ast::ExpressionNode> left);
    std::unique_ptr<ast::ExpressionNode> parseGenericCall(std::unique_ptr<ast::ExpressionNode> callee);
    std::unique_ptr<ast::ExpressionNode> parseMemberAccess(std::unique_ptr<ast::ExpressionNode> object,
                                                           const lexer::Token& op);
    std::vector<std::unique_ptr<ast::ExpressionNode>> parseArguments(std::string_view closingMessage);
    std::unique_ptr<ast::ExpressionNode> parseGroupedOrLambda();
    bool scanLambdaParameters(std::vector<ast::LambdaExpr::Param>& params);
    std::unique_ptr<ast::ExpressionNode> parseSingleParameterLambda();
    std::unique_ptr<ast::ASTNode> parseLambdaBody();
    std::unique_ptr<ast::ExpressionNode> parseArrayLiteral();
    std::unique_ptr<ast::ExpressionNode> parseMapLiteral();
    std::unique_ptr<ast::ExpressionNode> parseNewExpr();

    // ---- Types (ParserTypes.cpp) ----
    std::string parseType();
    void parseTypeInto(std::string& text);
    std::vector<std::string> parseTypeArgumentList();

    // ---- String interpolation (ParserInterpolation.cpp) ----
    std::unique_ptr<ast::ExpressionNode> parseStringLiteral();
    std::unique_ptr<ast::ExpressionNode> parseInterpolatedPiece(std::string_view piece);

    // ---- Statements (ParserStatements.cpp) ----
    std::unique_ptr<ast::BlockStmt> parseBlock();
    std::unique_ptr<ast::StatementNode> parseStatement();
    std::unique_ptr<ast::StatementNode> parseTypedDeclarationOrExpression();
    std::unique_ptr<ast::StatementNode> parseVarDecl(bool isConst, bool isVarOrLet);
    std::unique_ptr<ast::StatementNode> parseIfStatement();
    std::unique_ptr<ast::StatementNode> parseWhileStatement();
    std::unique_ptr<ast::StatementNode> parseDoWhileStatement();
    std::unique_ptr<ast::StatementNode> parseForStatement();
    std::unique_ptr<ast::StatementNode> parseForInRest(std::string varName, std::string varType,
                                                       diagnostics::SourceLocation location);
    std::unique_ptr<ast::StatementNode> parseCountedForRest(diagnostics::SourceLocation location);
    std::unique_ptr<ast::StatementNode> parseSwitchStatement();
    std::vector<std::unique_ptr<ast::StatementNode>> parseCaseBody();
    std::unique_ptr<ast::StatementNode> parseMatchStatement();
    ast::MatchArm parseMatchArm();
    std::unique_ptr<ast::StatementNode> parseReturnStatement();
    std::unique_ptr<ast::StatementNode> parseBreakStatement();
    std::unique_ptr<ast::StatementNode> parseContinueStatement();
    std::unique_ptr<ast::StatementNode> parseTryCatchStatement();
    ast::CatchClause parseCatchClause();
    std::unique_ptr<ast::StatementNode> parseThrowStatement();
    std::unique_ptr<ast::StatementNode> parseExprStatement();

    // ---- Declarations (ParserDeclarations.cpp) ----
    std::unique_ptr<ast::StatementNode> parseDeclaration();
    Modifiers parseModifiers();
    std::unique_ptr<ast::StatementNode> parseExternBlock();
    bool isBareFunctionStart() const;
    std::unique_ptr<ast::FunctionDecl> parseBareFunction(const Modifiers& modifiers);
    bool isTypeFirstStart() const;
    // Null when what follows the type is neither a function nor a field;
    // `current` is then restored.
    std::unique_ptr<ast::StatementNode> parseTypeFirstDeclaration(const Modifiers& modifiers);
    std::unique_ptr<ast::ModuleDecl> parseModuleDecl();
    std::unique_ptr<ast::ImportDecl> parseImportDecl();
    std::string parseNamePart(std::string_view message);
    std::unique_ptr<ast::FunctionDecl> parseFunctionDecl(std::string visibility, bool isStatic, bool isOverride,
                                                         bool isAbstract);
    std::vector<std::string> parseTypeParameters();
    std::string parseReturnType();
    std::unique_ptr<ast::ClassDecl> parseClassDecl(std::string visibility, bool isAbstract);
    std::unique_ptr<ast::FunctionDecl> parseConstructor(const std::string& className);
    std::unique_ptr<ast::InterfaceDecl> parseInterfaceDecl(std::string visibility);
    std::unique_ptr<ast::FunctionDecl> parseInterfaceMethod();
    std::unique_ptr<ast::StructDecl> parseStructDecl(std::string visibility);
    std::unique_ptr<ast::VarDeclStmt> parseStructField();
    std::unique_ptr<ast::EnumDecl> parseEnumDecl(std::string visibility);
    std::unique_ptr<ast::FunctionDecl> parseTestDecl();
    std::vector<ast::Parameter> parseParameters();
    ast::Parameter parseParameter();

    const std::vector<lexer::Token>& tokens;
    std::uint64_t current = 0;
    std::string filename;
    diagnostics::DiagnosticEngine* diagnostics;
    // isGenericCall's answer for every token index, found in one pass when
    // the parser is made, so that long runs of `<` cost no rescans.
    std::vector<bool> genericCallOpeners;
    // Enum declarations begun so far, at any depth.
    std::size_t enumsParsed = 0;
};

// Thrown when the source nests deeper than the stack leaves room for.
struct NestingLimitExceeded : std::exception {
    const char* what() const noexcept override { return "nesting limit exceeded"; }
};

}  // namespace quor::parser
