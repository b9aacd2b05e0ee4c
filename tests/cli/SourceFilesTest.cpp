#include <gtest/gtest.h>

#include <filesystem>

#include "cli/CliTestSupport.h"
#include "cli/SourceFiles.h"

using quor::cli::collectSourceFiles;
using quor::cli::SourceFiles;
using quor::cli::testing::TempDir;

TEST(SourceFiles, NamedFilesComeInCommandLineOrderWhateverTheirExtension) {
    TempDir dir;
    std::string b = dir.write("b.txt", "");
    std::string a = dir.write("a.quor", "");
    SourceFiles found = collectSourceFiles({b, a});
    EXPECT_EQ(found.files, (std::vector<std::string>{b, a}));
    EXPECT_TRUE(found.problems.empty());
}

TEST(SourceFiles, ADirectoryGivesItsQuorFilesAtAnyDepthSortedByPath) {
    TempDir dir;
    for (const char* name : {"z.quor", "m/n/o.quor", "m/a.quor", "m-x.quor", "m/readme.md", "x.quor.bak"}) {
        dir.write(name, "");
    }
    SourceFiles found = collectSourceFiles({dir.root});
    EXPECT_EQ(found.files, (std::vector<std::string>{dir.path("m/a.quor"), dir.path("m/n/o.quor"),
                                                     dir.path("m-x.quor"), dir.path("z.quor")}));
}

TEST(SourceFiles, AFileReachedTwiceIsListedOnceAtItsFirstPlace) {
    TempDir dir;
    std::string a = dir.write("a.quor", "");
    std::string b = dir.write("b.quor", "");
    EXPECT_EQ(collectSourceFiles({b, dir.root}).files, (std::vector<std::string>{b, a}));
}

TEST(SourceFiles, AMissingPathIsAProblemAndTheOthersAreStillFound) {
    TempDir dir;
    std::string a = dir.write("a.quor", "");
    std::string missing = dir.path("gone");
    SourceFiles found = collectSourceFiles({missing, a});
    EXPECT_EQ(found.files, std::vector<std::string>{a});
    EXPECT_EQ(found.problems, std::vector<std::string>{"cannot read '" + missing + "': No such file or directory"});
}

TEST(SourceFiles, LinksToDirectoriesInsideATreeAreNotEntered) {
    TempDir dir;
    std::string a = dir.write("inner/a.quor", "");
    std::filesystem::create_directory_symlink(dir.root, dir.path("inner/loop"));
    SourceFiles found = collectSourceFiles({dir.root});
    EXPECT_EQ(found.files, std::vector<std::string>{a});
}

TEST(SourceFiles, AnEmptyDirectoryGivesNoFilesAndNoProblem) {
    TempDir dir;
    SourceFiles found = collectSourceFiles({dir.root});
    EXPECT_TRUE(found.files.empty());
    EXPECT_TRUE(found.problems.empty());
}
