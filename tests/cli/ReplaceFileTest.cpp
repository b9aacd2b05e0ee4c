#include <gtest/gtest.h>

#include <filesystem>

#include "cli/CliTestSupport.h"
#include "cli/ReplaceFile.h"

using quor::cli::replaceFileContents;
using quor::cli::testing::readBack;
using quor::cli::testing::TempDir;

TEST(ReplaceFile, ReplacesTheContentsAndLeavesOnlyTheFile) {
    TempDir dir;
    std::string path = dir.write("a.quor", "old text that is longer");
    std::string error;
    EXPECT_TRUE(replaceFileContents(path, "new", error)) << error;
    EXPECT_EQ(readBack(path), "new");
    std::size_t entries = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(dir.root)) ++entries;
    EXPECT_EQ(entries, 1u);
}

TEST(ReplaceFile, AMissingFileIsAFailureThatCreatesNothing) {
    TempDir dir;
    std::string error;
    EXPECT_FALSE(replaceFileContents(dir.path("none.quor"), "text", error));
    EXPECT_EQ(error, "No such file or directory");
    EXPECT_TRUE(std::filesystem::is_empty(dir.root));
}

TEST(ReplaceFile, AFileInAMissingDirectoryIsAFailure) {
    TempDir dir;
    std::string error;
    EXPECT_FALSE(replaceFileContents(dir.path("no/such/dir/a.quor"), "text", error));
    EXPECT_FALSE(error.empty());
}
