#pragma once

#include <cstdint>

namespace quor::ast {

// Which concrete class a node is. The numbers are fixed: code that tells
// node classes apart without a visitor compares against them.
enum class NodeKind : std::uint32_t {
    Program = 0,
    ModuleDecl = 1,
    ImportDecl = 2,
    FunctionDecl = 3,
    ClassDecl = 4,
    InterfaceDecl = 5,
    StructDecl = 6,
    EnumDecl = 7,
    BlockStmt = 8,
    ExprStmt = 9,
    VarDeclStmt = 10,
    IfStmt = 11,
    WhileStmt = 12,
    DoWhileStmt = 13,
    ForStmt = 14,
    ForInStmt = 15,
    SwitchStmt = 16,
    MatchStmt = 17,
    ReturnStmt = 18,
    BreakStmt = 19,
    ContinueStmt = 20,
    TryCatchStmt = 21,
    ThrowStmt = 22,
    LiteralExpr = 23,
    IdentifierExpr = 24,
    BinaryExpr = 25,
    UnaryExpr = 26,
    CallExpr = 27,
    MemberExpr = 28,
    IndexExpr = 29,
    ArrayExpr = 30,
    MapExpr = 31,
    LambdaExpr = 32,
    TernaryExpr = 33,
    AssignExpr = 34,
    NewExpr = 35,
};

// The kind of token a literal was written as.
enum class LiteralKind : std::uint32_t {
    Integer = 0,
    Float = 1,
    String = 2,
    Char = 3,
    Boolean = 4,
    Null = 5,
};

}  // namespace quor::ast
