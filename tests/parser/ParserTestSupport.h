#pragma once

// Shared helpers for the parser tests: scan and parse a source (or a
// hand-built token vector), collect the diagnostics, and print a tree as a
// compact S-expression so that shapes can be compared as text.

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ast/AST.h"
#include "diagnostics/DiagnosticEngine.h"
#include "lexer/Lexer.h"
#include "lexer/Token.h"
#include "parser/Parser.h"

namespace quor::parser {

// Reaches the parser's private primitives from white-box tests.
class ParserTestAccess {
public:
    explicit ParserTestAccess(Parser& parser) : p(parser) {}

    const lexer::Token& peek() const { return p.peek(); }
    const lexer::Token& peekNext() const { return p.peekNext(); }
    const lexer::Token& previous() const { return p.previous(); }
    bool isAtEnd() const { return p.isAtEnd(); }
    const lexer::Token& advance() { return p.advance(); }
    bool check(lexer::TokenType type) const { return p.check(type); }
    bool checkNext(lexer::TokenType type) const { return p.checkNext(type); }
    bool match(lexer::TokenType type) { return p.match(type); }
    bool matchAny(std::initializer_list<lexer::TokenType> types) { return p.matchAny(types); }
    const lexer::Token& consume(lexer::TokenType type, std::string_view message, std::string_view hint = {}) {
        return p.consume(type, message, hint);
    }
    void errorAt(const lexer::Token& token, std::string_view message, std::string_view hint = {}) {
        p.errorAt(token, message, hint);
    }
    static bool isTypeKeyword(lexer::TokenType type) { return Parser::isTypeKeyword(type); }
    bool isGenericCall(std::uint64_t index) const { return p.isGenericCall(index); }
    Precedence getPrecedence(lexer::TokenType type) const { return p.getPrecedence(type); }
    void synchronize() { p.synchronize(); }
    std::string parseType() { return p.parseType(); }
    std::unique_ptr<ast::StatementNode> parseStatement() { return p.parseStatement(); }
    std::unique_ptr<ast::StatementNode> parseDeclaration() { return p.parseDeclaration(); }
    std::unique_ptr<ast::BlockStmt> parseBlock() { return p.parseBlock(); }
    std::uint64_t current() const { return p.current; }
    void setCurrent(std::uint64_t index) { p.current = index; }

private:
    Parser& p;
};

namespace testing {

inline constexpr const char* TEST_FILE = "test.qr";

// One parse run. Holds the tokens, a silent engine and the parser over
// them. Scanner faults are not reported to the engine, so `diagnostics()`
// lists the parser's reports alone.
class ParseRun {
public:
    explicit ParseRun(std::string_view source) : tokens(scan(source)), parser(tokens, TEST_FILE, &engine) {}
    explicit ParseRun(std::vector<lexer::Token> handMade)
        : tokens(std::move(handMade)), parser(tokens, TEST_FILE, &engine) {}
    ParseRun(const ParseRun&) = delete;
    ParseRun& operator=(const ParseRun&) = delete;

    std::unique_ptr<ast::Program> program() { return parser.parseProgram(); }
    std::unique_ptr<ast::ExpressionNode> expression() { return parser.parseExpression(Precedence::Assignment); }
    ParserTestAccess access() { return ParserTestAccess(parser); }

    const std::vector<diagnostics::Diagnostic>& diagnostics() const { return engine.getDiagnostics(); }
    std::vector<std::string> messages() const {
        std::vector<std::string> out;
        for (const auto& d : engine.getDiagnostics()) out.push_back(d.message);
        return out;
    }

    static std::vector<lexer::Token> scan(std::string_view source) {
        lexer::Lexer lexer(source, TEST_FILE, nullptr);
        return lexer.tokenizeAll();
    }

    std::vector<lexer::Token> tokens;

private:
    std::ostringstream sink;
    diagnostics::DiagnosticEngine engine{sink};

public:
    Parser parser;
};

// A token for hand-built vectors; the location is in TEST_FILE.
inline lexer::Token tok(lexer::TokenType type, std::string lexeme, std::uint32_t line = 1,
                        std::uint32_t column = 1) {
    return lexer::Token{type, std::move(lexeme), diagnostics::SourceLocation{TEST_FILE, line, column}};
}

// Prints a tree as an S-expression:
//   literals as their value (strings in double quotes, chars in single ones),
//   names as themselves, a missing child as <null>,
//   (op left right) for binary, (op x) / (x op) for prefix / postfix unary,
//   (call f <T, U> a b), (. o m), (?. o m), ([] o i), [a b], {k:v k:v},
//   (lambda (x y:int) body), (? c a b), (= t v), (new C <T> a),
//   {s1 s2} for blocks, (expr e) for expression statements, (return e),
//   (var type name init), and (kind N) for any other statement.
class TreePrinter final : public ast::ASTVisitor {
public:
    static std::string print(const ast::ASTNode* node) {
        TreePrinter printer;
        printer.emit(node);
        return printer.out.str();
    }

    void visit(const ast::LiteralExpr& n) override {
        if (n.literalKind == ast::LiteralKind::String) {
            out << '"' << n.value << '"';
        } else if (n.literalKind == ast::LiteralKind::Char) {
            out << '\'' << n.value << '\'';
        } else {
            out << n.value;
        }
    }
    void visit(const ast::IdentifierExpr& n) override { out << n.name; }
    void visit(const ast::BinaryExpr& n) override {
        out << '(' << lexer::tokenTypeToString(n.op) << ' ';
        emit(n.left.get());
        out << ' ';
        emit(n.right.get());
        out << ')';
    }
    void visit(const ast::UnaryExpr& n) override {
        out << '(';
        if (n.isPrefix) {
            out << lexer::tokenTypeToString(n.op) << ' ';
            emit(n.operand.get());
        } else {
            emit(n.operand.get());
            out << ' ' << lexer::tokenTypeToString(n.op);
        }
        out << ')';
    }
    void visit(const ast::CallExpr& n) override {
        out << "(call ";
        emit(n.callee.get());
        typeArgs(n.typeArgs);
        for (const auto& a : n.args) {
            out << ' ';
            emit(a.get());
        }
        out << ')';
    }
    void visit(const ast::MemberExpr& n) override {
        out << (n.isSafe ? "(?. " : "(. ");
        emit(n.object.get());
        out << ' ' << n.member << ')';
    }
    void visit(const ast::IndexExpr& n) override {
        out << "([] ";
        emit(n.object.get());
        out << ' ';
        emit(n.index.get());
        out << ')';
    }
    void visit(const ast::ArrayExpr& n) override {
        out << '[';
        list(n.elements);
        out << ']';
    }
    void visit(const ast::MapExpr& n) override {
        out << '{';
        const char* sep = "";
        for (const auto& [key, value] : n.entries) {
            out << sep;
            emit(key.get());
            out << ':';
            emit(value.get());
            sep = " ";
        }
        out << '}';
    }
    void visit(const ast::LambdaExpr& n) override {
        out << "(lambda (";
        const char* sep = "";
        for (const auto& param : n.params) {
            out << sep << param.name;
            if (!param.type.empty()) out << ':' << param.type;
            sep = " ";
        }
        out << ") ";
        emit(n.body.get());
        out << ')';
    }
    void visit(const ast::TernaryExpr& n) override {
        out << "(? ";
        emit(n.condition.get());
        out << ' ';
        emit(n.thenExpr.get());
        out << ' ';
        emit(n.elseExpr.get());
        out << ')';
    }
    void visit(const ast::AssignExpr& n) override {
        out << '(' << lexer::tokenTypeToString(n.op) << ' ';
        emit(n.target.get());
        out << ' ';
        emit(n.value.get());
        out << ')';
    }
    void visit(const ast::NewExpr& n) override {
        out << "(new " << n.className;
        typeArgs(n.typeArgs);
        for (const auto& a : n.args) {
            out << ' ';
            emit(a.get());
        }
        out << ')';
    }
    void visit(const ast::BlockStmt& n) override {
        out << '{';
        list(n.statements);
        out << '}';
    }
    void visit(const ast::ExprStmt& n) override {
        out << "(expr ";
        emit(n.expression.get());
        out << ')';
    }
    void visit(const ast::VarDeclStmt& n) override {
        out << "(var " << n.typeName << ' ' << n.name << ' ';
        emit(n.initializer.get());
        out << ')';
    }
    void visit(const ast::ReturnStmt& n) override {
        out << "(return ";
        emit(n.value.get());
        out << ')';
    }
    void visit(const ast::IfStmt& n) override { other(n); }
    void visit(const ast::WhileStmt& n) override { other(n); }
    void visit(const ast::DoWhileStmt& n) override { other(n); }
    void visit(const ast::ForStmt& n) override { other(n); }
    void visit(const ast::ForInStmt& n) override { other(n); }
    void visit(const ast::SwitchStmt& n) override { other(n); }
    void visit(const ast::MatchStmt& n) override { other(n); }
    void visit(const ast::BreakStmt& n) override { other(n); }
    void visit(const ast::ContinueStmt& n) override { other(n); }
    void visit(const ast::TryCatchStmt& n) override { other(n); }
    void visit(const ast::ThrowStmt& n) override { other(n); }
    void visit(const ast::FunctionDecl& n) override { other(n); }
    void visit(const ast::ClassDecl& n) override { other(n); }
    void visit(const ast::InterfaceDecl& n) override { other(n); }
    void visit(const ast::StructDecl& n) override { other(n); }
    void visit(const ast::EnumDecl& n) override { other(n); }
    void visit(const ast::ModuleDecl& n) override { other(n); }
    void visit(const ast::ImportDecl& n) override { other(n); }
    void visit(const ast::Program& n) override {
        out << "(program";
        for (const auto& d : n.declarations) {
            out << ' ';
            emit(d.get());
        }
        out << ')';
    }

private:
    void emit(const ast::ASTNode* node) {
        if (node == nullptr) {
            out << "<null>";
        } else {
            node->accept(*this);
        }
    }
    template <class Ptr>
    void list(const std::vector<Ptr>& items) {
        const char* sep = "";
        for (const auto& item : items) {
            out << sep;
            emit(item.get());
            sep = " ";
        }
    }
    void typeArgs(const std::vector<std::string>& args) {
        if (args.empty()) return;
        out << " <";
        const char* sep = "";
        for (const auto& a : args) {
            out << sep << a;
            sep = ", ";
        }
        out << '>';
    }
    void other(const ast::ASTNode& n) { out << "(kind " << static_cast<std::uint32_t>(n.nodeKind) << ')'; }

    std::ostringstream out;
};

inline std::string show(const ast::ASTNode* node) { return TreePrinter::print(node); }

// Parses `source` as one full expression and prints it.
inline std::string showExpression(std::string_view source) {
    ParseRun run(source);
    auto expr = run.expression();
    return show(expr.get());
}

// Checks one parser report: its message and place, the syntax code, no hint,
// and the test's file name.
inline void expectReport(const diagnostics::Diagnostic& d, const std::string& message, std::uint32_t line,
                         std::uint32_t column) {
    EXPECT_EQ(d.message, message);
    EXPECT_EQ(d.code, "E1000");
    EXPECT_EQ(d.hint, "");
    EXPECT_EQ(d.location.file, TEST_FILE);
    EXPECT_EQ(d.location.line, line);
    EXPECT_EQ(d.location.column, column);
}

// The node as class T, or nullptr when it is of another class.
template <class T>
const T* as(const ast::ASTNode* node) {
    return dynamic_cast<const T*>(node);
}

// A whole source parsed as a program, with typed access to its declarations.
struct ParsedProgram {
    explicit ParsedProgram(std::string_view source) : run(source), program(run.program()) {}

    template <class T>
    const T* get(std::size_t index = 0) const {
        if (index >= program->declarations.size()) return nullptr;
        return dynamic_cast<const T*>(program->declarations[index].get());
    }
    const ast::FunctionDecl* fn(std::size_t index = 0) const { return get<ast::FunctionDecl>(index); }
    std::size_t count() const { return program->declarations.size(); }
    const diagnostics::Diagnostic& report(std::size_t index) const { return run.diagnostics().at(index); }
    std::size_t reports() const { return run.diagnostics().size(); }
    const diagnostics::SourceLocation& endLocation() const { return run.tokens.back().location; }

    ParseRun run;
    std::unique_ptr<ast::Program> program;
};

// One report of a program's parse, standing at the EndOfFile token: its
// message, the syntax code and the place of that token.
inline void expectReportAtEnd(const ParsedProgram& p, std::size_t index, const std::string& message) {
    ASSERT_LT(index, p.reports());
    const auto& d = p.report(index);
    EXPECT_EQ(d.message, message);
    EXPECT_EQ(d.code, "E1000");
    EXPECT_EQ(d.location.file, p.endLocation().file);
    EXPECT_EQ(d.location.line, p.endLocation().line);
    EXPECT_EQ(d.location.column, p.endLocation().column);
}

}  // namespace testing
}  // namespace quor::parser
