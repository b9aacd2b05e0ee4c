// The shared source name: copies share one text, compare and print like the
// string they were made from, and an empty name reads as the empty string.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "diagnostics/SourceLocation.h"

namespace {

using quor::diagnostics::SourceLocation;
using quor::diagnostics::SourceName;

const std::string LONG_URI = "file:///home/user/projects/inventory/src/warehouse/stock_levels.quor";

TEST(SourceName, CopiesShareTheTextOfTheOriginal) {
    SourceName name(LONG_URI);
    SourceName copy = name;
    EXPECT_EQ(&copy.str(), &name.str());
    EXPECT_EQ(copy, LONG_URI);
}

TEST(SourceName, ReadsAndComparesLikeItsString) {
    SourceName name("main.quor");
    const std::string& text = name;
    EXPECT_EQ(text, "main.quor");
    EXPECT_EQ(name, "main.quor");
    EXPECT_EQ(name, std::string("main.quor"));
    EXPECT_FALSE(name == "other.quor");
    EXPECT_EQ(name.size(), 9u);
    EXPECT_EQ(name + ":1", "main.quor:1");
    std::ostringstream out;
    out << name;
    EXPECT_EQ(out.str(), "main.quor");
}

TEST(SourceName, AnEmptyNameIsTheEmptyString) {
    SourceName none;
    EXPECT_TRUE(none.empty());
    EXPECT_EQ(none.str(), "");
    EXPECT_TRUE(SourceName("").empty());
}

TEST(SourceName, AssignmentReplacesTheTextAndKeepsOthersIntact) {
    SourceName first("a.quor");
    SourceName second = first;
    second = "b.quor";
    EXPECT_EQ(first, "a.quor");
    EXPECT_EQ(second, "b.quor");
    SourceName moved = std::move(second);
    EXPECT_EQ(moved, "b.quor");
}

TEST(SourceName, LocationsOfOneSourceShareTheNameAndPrintIt) {
    SourceLocation a{LONG_URI, 3, 7};
    SourceLocation b = a;
    b.column = 9;
    EXPECT_EQ(&a.file.str(), &b.file.str());
    EXPECT_EQ(b.toString(), LONG_URI + ":3:9");
}

TEST(SourceName, CopiesHandedToAnotherThreadAfterTheirMakerIsDoneAreCountedThere) {
    // As `quor check` hands a file's reports to the main thread: a worker
    // makes a name and its copies, keeps some and drops the rest, and the
    // main thread takes the kept ones once the worker has finished.
    std::vector<SourceName> handed;
    std::thread worker([&handed] {
        SourceName made(LONG_URI);
        std::vector<SourceName> copies(10000, made);
        handed.assign(copies.begin(), copies.begin() + 3);
    });
    worker.join();
    ASSERT_EQ(handed.size(), 3u);
    EXPECT_EQ(handed[0], LONG_URI);
    EXPECT_EQ(&handed[0].str(), &handed[2].str());
    handed.pop_back();
    handed.pop_back();
    EXPECT_EQ(handed[0].str(), LONG_URI);
}

TEST(SourceName, APermanentNameMayBeCopiedOnSeveralThreadsAtOnce) {
    // Such a name is never counted, so threads copying it write nothing
    // they share: the parser's stand-in end and error tokens hold one. It is
    // never freed either, so it is held where a leak checker still sees it.
    static const SourceName name = SourceName::permanent(LONG_URI);
    std::vector<std::thread> workers;
    for (int t = 0; t < 4; ++t) {
        workers.emplace_back([] {
            std::vector<SourceName> copies(10000, name);
            for (const SourceName& copy : copies) ASSERT_EQ(&copy.str(), &name.str());
        });
    }
    for (auto& worker : workers) worker.join();
    EXPECT_EQ(name, LONG_URI);
    static const SourceLocation end{SourceName::permanent("<eof>"), 0, 0};
    EXPECT_EQ(end.toString(), "<eof>:0:0");
}

}  // namespace
