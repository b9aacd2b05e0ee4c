// The look-ahead over a list of declarations, which must read nothing
// outside the list and follow no null, whatever the list holds and wherever
// its nodes lie in memory; and freeing
// such a list front to back with it, as a program's declarations and a
// class's members are freed, which leaves the list holding nulls. Under the
// sanitizers these also catch an entry freed twice or not at all.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ast/AST.h"

namespace {

using namespace quor::ast;
using quor::diagnostics::SourceLocation;

SourceLocation at(std::uint32_t line) { return SourceLocation{"t.qr", line, 1}; }

NodePtr function(bool withBody, bool withParameters) {
    std::vector<Parameter> params;
    if (withParameters) params.push_back(Parameter{"int", "n", nullptr});
    std::unique_ptr<BlockStmt> body;
    if (withBody) {
        std::vector<StmtPtr> statements;
        statements.push_back(nullptr);
        body = std::make_unique<BlockStmt>(std::move(statements), at(2));
    }
    return std::make_unique<FunctionDecl>("f", std::move(params), "int", std::move(body), nullptr, "", false, false,
                                          false, false, at(1));
}

NodePtr classOf(std::vector<NodePtr> members) {
    return std::make_unique<ClassDecl>("Box", std::vector<std::string>{}, "", std::vector<std::string>{},
                                       std::move(members), "", false, at(1));
}

// Every kind of gap: nulls, a class without members, a class whose members
// are null, functions without body or parameters, the list's own end.
std::vector<NodePtr> awkwardDeclarations() {
    std::vector<NodePtr> list;
    list.push_back(nullptr);
    list.push_back(classOf({}));
    std::vector<NodePtr> members;
    members.push_back(nullptr);
    members.push_back(function(false, false));
    list.push_back(classOf(std::move(members)));
    list.push_back(function(false, false));
    list.push_back(function(true, false));
    list.push_back(function(false, true));
    list.push_back(std::make_unique<ExprStmt>(nullptr, at(3)));
    list.push_back(nullptr);
    list.push_back(function(true, true));
    return list;
}

TEST(PrefetchDeclarationsAhead, ReadsNothingOutsideTheListAndFollowsNoNull) {
    std::vector<NodePtr> list = awkwardDeclarations();
    std::vector<const ASTNode*> before;
    for (const auto& node : list) before.push_back(node.get());
    for (std::size_t index = 0; index <= list.size() + 10; ++index) prefetchDeclarationsAhead(list, index);
    const std::vector<NodePtr> empty;
    for (std::size_t index = 0; index < 3; ++index) prefetchDeclarationsAhead(empty, index);
    ASSERT_EQ(list.size(), before.size());
    for (std::size_t i = 0; i < list.size(); ++i) EXPECT_EQ(list[i].get(), before[i]);
}

std::vector<const ASTNode*> addressesOf(const std::vector<NodePtr>& list) {
    std::vector<const ASTNode*> addresses;
    for (const auto& node : list) addresses.push_back(node.get());
    return addresses;
}

// The stretch between two neighbours may run backwards, span other
// allocations or be missing an end; asking for it reads only the list.
TEST(PrefetchDeclarationSpanAhead, ReadsNothingOutsideTheListWhereverItsNodesLie) {
    std::vector<NodePtr> forwards = awkwardDeclarations();
    std::vector<NodePtr> backwards = awkwardDeclarations();
    std::reverse(backwards.begin(), backwards.end());
    std::vector<NodePtr> farApart;
    std::vector<std::vector<char>> between;
    for (int i = 0; i < 6; ++i) {
        farApart.push_back(function(i % 2 == 0, true));
        between.emplace_back(static_cast<std::size_t>(MAX_DECLARATION_SPAN) * (i + 1), 'x');
    }
    for (auto* list : {&forwards, &backwards, &farApart}) {
        const std::vector<const ASTNode*> before = addressesOf(*list);
        for (std::size_t index = 0; index <= list->size() + 10; ++index) prefetchDeclarationSpanAhead(*list, index);
        EXPECT_EQ(addressesOf(*list), before);
    }
    const std::vector<NodePtr> empty;
    for (std::size_t index = 0; index < 6; ++index) prefetchDeclarationSpanAhead(empty, index);
}

TEST(ReleaseDeclarations, FreesEveryEntryAndLeavesTheListHoldingNulls) {
    for (std::size_t size = 0; size <= 12; ++size) {
        std::vector<NodePtr> list;
        while (list.size() < size) {
            std::vector<NodePtr> declarations = awkwardDeclarations();
            for (auto& declaration : declarations) {
                if (list.size() < size) list.push_back(std::move(declaration));
            }
        }
        releaseDeclarations(list);
        ASSERT_EQ(list.size(), size);
        for (const auto& entry : list) EXPECT_EQ(entry, nullptr);
    }
}

TEST(ReleaseDeclarations, AClassFreesMembersThatAreClassesInTurn) {
    std::vector<NodePtr> inner;
    inner.push_back(function(true, true));
    inner.push_back(nullptr);
    std::vector<NodePtr> outer;
    outer.push_back(classOf(std::move(inner)));
    outer.push_back(classOf(awkwardDeclarations()));
    std::vector<NodePtr> list;
    list.push_back(classOf(std::move(outer)));
    releaseDeclarations(list);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0], nullptr);
}

}  // namespace
