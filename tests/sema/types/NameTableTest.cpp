// The analyzer's name table: one entry per name, found by its text whether
// the table is a short list or hashed, walked in the order of insertion.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sema/NameTable.h"

namespace {

using quor::sema::NameTable;

TEST(NameTable, AnEmptyTableFindsNothing) {
    NameTable<int> table;
    EXPECT_TRUE(table.empty());
    EXPECT_EQ(table.find("x"), table.end());
    EXPECT_EQ(table.count(""), 0u);
}

TEST(NameTable, EveryNameIsFoundAcrossTheSwitchFromListToHashing) {
    NameTable<int> table;
    for (int i = 0; i < 10000; ++i) {
        ASSERT_TRUE(table.emplace("name" + std::to_string(i), i).second);
        // Every name so far, at each size, including just past the short list.
        if (i < 40 || i % 997 == 0) {
            for (int j = 0; j <= i; ++j) ASSERT_EQ(table.find("name" + std::to_string(j))->second, j) << i << " " << j;
        }
    }
    EXPECT_EQ(table.size(), 10000u);
    EXPECT_EQ(table.find("name10000"), table.end());
    EXPECT_EQ(table.find("name"), table.end());
}

TEST(NameTable, ASecondEntryOfANameIsRefusedAndTheFirstKept) {
    NameTable<std::string> table;
    for (int size : {3, 30}) {  // as a short list and hashed
        table = NameTable<std::string>();
        for (int i = 0; i < size; ++i) table.emplace("n" + std::to_string(i), "first");
        auto [where, added] = table.emplace("n1", "second");
        EXPECT_FALSE(added);
        EXPECT_EQ(where->second, "first");
        EXPECT_EQ(table.size(), static_cast<std::size_t>(size));
    }
}

TEST(NameTable, IndexingAddsADefaultOrReturnsTheEntry) {
    NameTable<int> table;
    table["a"] = 1;
    table["a"] = 2;
    EXPECT_EQ(table.size(), 1u);
    EXPECT_EQ(table.find("a")->second, 2);
    EXPECT_EQ(table["b"], 0);
    EXPECT_EQ(table.size(), 2u);
}

TEST(NameTable, EntriesAreWalkedInTheOrderTheyWereAdded) {
    NameTable<int> table;
    std::vector<std::string> names{"zeta", "alpha", "mid", "beta", "omega", "a", "b", "c", "d", "e", "f", "g"};
    for (std::size_t i = 0; i < names.size(); ++i) table.emplace(names[i], static_cast<int>(i));
    std::vector<std::string> walked;
    for (const auto& [name, value] : table) walked.push_back(name);
    EXPECT_EQ(walked, names);
}

TEST(NameTable, NamesThatDifferOnlyLateOrInLengthAreDistinct) {
    NameTable<int> table;
    const std::vector<std::string> names{"", "a", "aa", "aaa", "List<int>", "List<int>?", "List<Int>", "x\0y"};
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < names.size(); ++i) table.emplace(names[i] + std::string(round * 20, 'q'), 0);
    }
    EXPECT_EQ(table.size(), 2 * names.size());
    for (int round = 0; round < 2; ++round) {
        for (const auto& name : names) EXPECT_EQ(table.count(name + std::string(round * 20, 'q')), 1u) << name;
    }
}

}  // namespace
