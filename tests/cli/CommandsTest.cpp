#include <gtest/gtest.h>

#include <string>

#include "cli/CliTestSupport.h"

using namespace quor::cli::testing;

TEST(CliOutline, ListsDeclarationsWithLinesAndBriefs) {
    TempDir dir;
    std::string path = dir.write("outline.quor", "/** Adds. */\nfn add(a: int, b: int): int { return a + b; }\n");
    CommandRun result = run(quor::cli::runOutline, {path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "module outline\n2: fn add(a: int, b: int): int    // Adds.\n");
}

TEST(CliOutline, NeedsExactlyOneFile) {
    EXPECT_EQ(run(quor::cli::runOutline, {}).status, 2);
    EXPECT_EQ(run(quor::cli::runOutline, {"a", "b"}).err, "quor: expected exactly one file\n");
}

TEST(CliTokens, PrintsEachTokenWithItsPositionAndKind) {
    TempDir dir;
    std::string path = dir.write("tokens.quor", "x = 1;");
    CommandRun result = run(quor::cli::runTokens, {path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "1:1 Identifier 'x'\n1:3 = '='\n1:5 IntegerLiteral '1'\n1:6 ; ';'\n1:7 EndOfFile ''\n");
}

TEST(CliTokens, AMissingFileIsReported) {
    CommandRun result = run(quor::cli::runTokens, {"/nonexistent/dir/none.quor"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "quor: cannot read '/nonexistent/dir/none.quor'\n");
}
