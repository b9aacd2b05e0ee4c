// Freeing a list of nodes front to back, as a program's declarations and a
// class's members are freed: every node once, in list order, null entries
// passed over, and the list left holding nulls. And the look-ahead over a
// list of declarations, which must read nothing outside the list and follow
// no null, whatever the list holds.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ast/AST.h"

namespace {

using namespace quor::ast;
using quor::diagnostics::SourceLocation;

struct Recorder {
    Recorder(std::vector<int>& freed, int number) : freed(freed), number(number) {}
    ~Recorder() { freed.push_back(number); }
    std::vector<int>& freed;
    int number;
};

TEST(ReleaseInOrder, FreesEveryEntryFrontToBackAndSkipsNulls) {
    std::vector<int> freed;
    std::vector<std::unique_ptr<Recorder>> list;
    for (int number = 0; number < 12; ++number) {
        list.push_back(number % 5 == 3 ? nullptr : std::make_unique<Recorder>(freed, number));
    }
    releaseInOrder(list);
    EXPECT_EQ(freed, (std::vector<int>{0, 1, 2, 4, 5, 6, 7, 9, 10, 11}));
    ASSERT_EQ(list.size(), 12u);
    for (const auto& entry : list) EXPECT_EQ(entry, nullptr);
}

TEST(ReleaseInOrder, ShorterListsThanThePrefetchDistanceAreFreedWhole) {
    for (int size = 0; size <= 5; ++size) {
        std::vector<int> freed;
        std::vector<std::unique_ptr<Recorder>> list;
        for (int number = 0; number < size; ++number) list.push_back(std::make_unique<Recorder>(freed, number));
        releaseInOrder(list);
        EXPECT_EQ(freed.size(), static_cast<std::size_t>(size));
        for (int number = 0; number < size; ++number) EXPECT_EQ(freed[number], number);
    }
}

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

}  // namespace
