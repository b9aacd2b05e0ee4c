#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

#include "ast/NodeKind.h"

namespace {

using quor::ast::LiteralKind;
using quor::ast::NodeKind;

struct KindRow {
    NodeKind kind;
    std::uint32_t value;
};

constexpr KindRow NODE_KINDS[] = {
    {NodeKind::Program, 0},         {NodeKind::ModuleDecl, 1},     {NodeKind::ImportDecl, 2},
    {NodeKind::FunctionDecl, 3},    {NodeKind::ClassDecl, 4},      {NodeKind::InterfaceDecl, 5},
    {NodeKind::StructDecl, 6},      {NodeKind::EnumDecl, 7},       {NodeKind::BlockStmt, 8},
    {NodeKind::ExprStmt, 9},        {NodeKind::VarDeclStmt, 10},   {NodeKind::IfStmt, 11},
    {NodeKind::WhileStmt, 12},      {NodeKind::DoWhileStmt, 13},   {NodeKind::ForStmt, 14},
    {NodeKind::ForInStmt, 15},      {NodeKind::SwitchStmt, 16},    {NodeKind::MatchStmt, 17},
    {NodeKind::ReturnStmt, 18},     {NodeKind::BreakStmt, 19},     {NodeKind::ContinueStmt, 20},
    {NodeKind::TryCatchStmt, 21},   {NodeKind::ThrowStmt, 22},     {NodeKind::LiteralExpr, 23},
    {NodeKind::IdentifierExpr, 24}, {NodeKind::BinaryExpr, 25},    {NodeKind::UnaryExpr, 26},
    {NodeKind::CallExpr, 27},       {NodeKind::MemberExpr, 28},    {NodeKind::IndexExpr, 29},
    {NodeKind::ArrayExpr, 30},      {NodeKind::MapExpr, 31},       {NodeKind::LambdaExpr, 32},
    {NodeKind::TernaryExpr, 33},    {NodeKind::AssignExpr, 34},    {NodeKind::NewExpr, 35},
};

TEST(NodeKindValues, EveryKindHasItsFixedNumber) {
    for (const KindRow& row : NODE_KINDS) {
        EXPECT_EQ(static_cast<std::uint32_t>(row.kind), row.value);
    }
}

TEST(NodeKindValues, KindIsAThirtyTwoBitTag) {
    EXPECT_EQ(sizeof(std::underlying_type_t<NodeKind>), 4u);
}

TEST(LiteralKindValues, KindsAreNumberedInOrder) {
    EXPECT_EQ(static_cast<std::uint32_t>(LiteralKind::Integer), 0u);
    EXPECT_EQ(static_cast<std::uint32_t>(LiteralKind::Float), 1u);
    EXPECT_EQ(static_cast<std::uint32_t>(LiteralKind::String), 2u);
    EXPECT_EQ(static_cast<std::uint32_t>(LiteralKind::Char), 3u);
    EXPECT_EQ(static_cast<std::uint32_t>(LiteralKind::Boolean), 4u);
    EXPECT_EQ(static_cast<std::uint32_t>(LiteralKind::Null), 5u);
}

}  // namespace
