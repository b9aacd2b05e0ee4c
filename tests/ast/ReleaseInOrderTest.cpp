// Freeing a list of nodes front to back, as a program's declarations and a
// class's members are freed: every node once, in list order, null entries
// passed over, and the list left holding nulls.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "ast/AST.h"

namespace {

using namespace quor::ast;

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

}  // namespace
