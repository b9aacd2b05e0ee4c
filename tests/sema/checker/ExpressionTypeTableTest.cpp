// The checker's record of expression types: one entry per node, found by the
// node's identity, the last write winning, kept through any growth and in
// the order in which the nodes were first recorded.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

#include "ast/AST.h"
#include "sema/ExpressionTypeTable.h"
#include "sema/TypeContext.h"

namespace {

using namespace quor;
using sema::ExpressionTypeTable;

std::vector<std::unique_ptr<ast::IdentifierExpr>> nodes(int count) {
    std::vector<std::unique_ptr<ast::IdentifierExpr>> made;
    for (int i = 0; i < count; ++i) made.push_back(std::make_unique<ast::IdentifierExpr>("x", diagnostics::SourceLocation{}));
    return made;
}

TEST(ExpressionTypeTable, EveryNodeKeepsItsOwnTypeThroughGrowth) {
    sema::TypeContext types;
    auto made = nodes(5000);
    ExpressionTypeTable table;
    for (std::size_t i = 0; i < made.size(); ++i) table.record(made[i].get(), i % 2 ? types.intType : types.stringType);
    ASSERT_EQ(table.size(), 5000u);
    for (std::size_t i = 0; i < made.size(); ++i) {
        EXPECT_EQ(table.at(made[i].get()), i % 2 ? types.intType : types.stringType) << i;
    }
    std::size_t walked = 0;
    for (const auto& [node, type] : table) {
        EXPECT_NE(node, nullptr);
        EXPECT_NE(type, nullptr);
        ++walked;
    }
    EXPECT_EQ(walked, 5000u);
}

TEST(ExpressionTypeTable, ASecondWriteForOneNodeOverwritesTheFirst) {
    sema::TypeContext types;
    auto made = nodes(1);
    ExpressionTypeTable table;
    table.record(made[0].get(), types.intType);
    table.record(made[0].get(), types.boolType);
    EXPECT_EQ(table.size(), 1u);
    EXPECT_EQ(table.at(made[0].get()), types.boolType);
}

TEST(ExpressionTypeTable, AnUnrecordedNodeIsNotFound) {
    sema::TypeContext types;
    auto made = nodes(3);
    ExpressionTypeTable table;
    EXPECT_TRUE(table.empty());
    EXPECT_EQ(table.find(made[0].get()), table.end());
    table.record(made[1].get(), types.intType);
    EXPECT_EQ(table.find(made[0].get()), table.end());
    EXPECT_EQ(table.count(made[2].get()), 0u);
    EXPECT_EQ(table.find(made[1].get())->second, types.intType);
    EXPECT_THROW(table.at(made[0].get()), std::out_of_range);
}

TEST(ExpressionTypeTable, ReservingKeepsWhatIsRecorded) {
    sema::TypeContext types;
    auto made = nodes(10);
    ExpressionTypeTable table;
    for (auto& node : made) table.record(node.get(), types.charType);
    table.reserveMore(100000);
    EXPECT_EQ(table.size(), 10u);
    for (auto& node : made) EXPECT_EQ(table.at(node.get()), types.charType);
}

TEST(ExpressionTypeTable, AWriteAfterAReadIsSeenByTheNextRead) {
    sema::TypeContext types;
    auto made = nodes(3);
    ExpressionTypeTable table;
    table.record(made[0].get(), types.intType);
    EXPECT_EQ(table.size(), 1u);
    table.record(made[1].get(), types.stringType);
    table.record(made[0].get(), types.charType);
    EXPECT_EQ(table.size(), 2u);
    EXPECT_EQ(table.at(made[0].get()), types.charType);
    EXPECT_EQ(table.at(made[1].get()), types.stringType);
    EXPECT_EQ(table.count(made[2].get()), 0u);
}

TEST(ExpressionTypeTable, EntriesComeInTheOrderTheirNodesWereFirstRecorded) {
    sema::TypeContext types;
    auto made = nodes(4);
    ExpressionTypeTable table;
    for (int i : {2, 0, 3, 0, 1}) table.record(made[static_cast<std::size_t>(i)].get(), types.intType);
    std::vector<const ast::ExpressionNode*> order;
    for (const auto& entry : table) order.push_back(entry.first);
    std::vector<const ast::ExpressionNode*> expected{made[2].get(), made[0].get(), made[3].get(), made[1].get()};
    EXPECT_EQ(order, expected);
}

}  // namespace
