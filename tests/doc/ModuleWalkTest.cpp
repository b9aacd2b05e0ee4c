// Reading modules from files and from directory trees: which files are
// taken, how they are named and in what order they come back.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "DocTestSupport.h"
#include "ScratchDirectory.h"

namespace quor::doc::testing {
namespace {

std::vector<std::string> moduleNames(const std::vector<DocModule>& modules) {
    std::vector<std::string> names;
    for (const auto& module : modules) names.push_back(module.name);
    return names;
}

TEST(ModuleWalk, FileIsReadWithItsPath) {
    ScratchDirectory scratch("walk_file");
    std::string file = scratch.write("calc.quor", "/// Adds.\nfn add(a: int): int => a;\n");
    DocModule module = DocGenerator(defaultDocOptions()).extractModuleFromFile(file);
    EXPECT_EQ(module.name, "calc");
    EXPECT_EQ(module.path, file);
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].brief, "Adds.");
}

TEST(ModuleWalk, MissingFileIsAnEmptyModule) {
    ScratchDirectory scratch("walk_missing");
    DocModule module = DocGenerator(defaultDocOptions()).extractModuleFromFile(scratch.path("nothing.quor"));
    EXPECT_EQ(module.name, "");
    EXPECT_EQ(module.path, "");
    EXPECT_EQ(module.description, "");
    EXPECT_EQ(module.brief, "");
    EXPECT_TRUE(module.entries.empty());
}

TEST(ModuleWalk, OnlyQuorFilesOutsideExcludedPaths) {
    ScratchDirectory scratch("walk_filter");
    const char* taken[] = {"a.quor", "sub/deep/b.quor", "c.tar.quor"};
    const char* skipped[] = {
        "d.QUOR",           // extension compared exactly
        "e.quor.bak",       // wrong extension
        "f.txt",            // wrong extension
        ".github/g.quor",   // path holds ".git"
        "rebuilder/h.quor", // path holds "build"
        "mybuild.quor",     // file name holds "build"
        ".quorm/i.quor",    // path holds ".quorm"
        "j.quorm.quor",     // file name holds ".quorm"
        "k.quorm",          // wrong extension
    };
    for (const char* name : taken) scratch.write(name, "fn f() {}\n");
    for (const char* name : skipped) scratch.write(name, "fn f() {}\n");
    std::filesystem::create_directories(scratch.root / "l.quor");  // a directory is no file
    std::vector<DocModule> modules =
        DocGenerator(defaultDocOptions()).extractModulesFromDirectory(scratch.root.string());
    EXPECT_EQ(moduleNames(modules), (std::vector<std::string>{"a", "b", "c.tar"}));
}

TEST(ModuleWalk, SortedByNameBytes) {
    ScratchDirectory scratch("walk_sort");
    scratch.write("b.quor", "fn f() {}\n");
    scratch.write("z/a.quor", "fn f() {}\n");
    scratch.write("B.quor", "fn f() {}\n");
    scratch.write("m.quor", "module _lib;\n");
    std::vector<DocModule> modules =
        DocGenerator(defaultDocOptions()).extractModulesFromDirectory(scratch.root.string());
    EXPECT_EQ(moduleNames(modules), (std::vector<std::string>{"B", "_lib", "a", "b"}));
}

TEST(ModuleWalk, SymlinkToFileIsFollowed) {
    ScratchDirectory scratch("walk_link");
    std::string target = scratch.write("target.txt", "fn linked() {}\n");
    std::filesystem::create_symlink(target, scratch.root / "link.quor");
    std::vector<DocModule> modules =
        DocGenerator(defaultDocOptions()).extractModulesFromDirectory(scratch.root.string());
    ASSERT_EQ(moduleNames(modules), (std::vector<std::string>{"link"}));
    ASSERT_EQ(modules[0].entries.size(), 1u);
    EXPECT_EQ(modules[0].entries[0].name, "linked");
}

TEST(ModuleWalk, LinkedDirectoriesAreNotEntered) {
    ScratchDirectory outside("walk_outside");
    outside.write("hidden.quor", "fn f() {}\n");
    ScratchDirectory scratch("walk_dirlink");
    scratch.write("real.quor", "fn f() {}\n");
    std::filesystem::create_directory_symlink(outside.root, scratch.root / "linked");
    std::vector<DocModule> modules =
        DocGenerator(defaultDocOptions()).extractModulesFromDirectory(scratch.root.string());
    EXPECT_EQ(moduleNames(modules), (std::vector<std::string>{"real"}));
}

TEST(ModuleWalk, DanglingLinkIsSkipped) {
    ScratchDirectory scratch("walk_dangling");
    scratch.write("real.quor", "fn f() {}\n");
    std::filesystem::create_symlink(scratch.root / "gone.txt", scratch.root / "dangling.quor");
    std::vector<DocModule> modules =
        DocGenerator(defaultDocOptions()).extractModulesFromDirectory(scratch.root.string());
    EXPECT_EQ(moduleNames(modules), (std::vector<std::string>{"real"}));
}

TEST(ModuleWalk, HighBytesSortAfterAscii) {
    ScratchDirectory scratch("walk_bytes");
    scratch.write("\xc3\xa9t\xc3\xa9.quor", "fn f() {}\n");
    scratch.write("zed.quor", "fn f() {}\n");
    scratch.write("Alpha.quor", "fn f() {}\n");
    std::vector<DocModule> modules =
        DocGenerator(defaultDocOptions()).extractModulesFromDirectory(scratch.root.string());
    EXPECT_EQ(moduleNames(modules), (std::vector<std::string>{"Alpha", "zed", "\xc3\xa9t\xc3\xa9"}));
}

TEST(ModuleWalk, RootWithBuildInItsPathYieldsNothing) {
    ScratchDirectory scratch("walk_build_root");
    scratch.write("a.quor", "fn f() {}\n");
    EXPECT_TRUE(DocGenerator(defaultDocOptions()).extractModulesFromDirectory(scratch.root.string()).empty());
}

TEST(ModuleWalk, MissingDirectoryIsAnEmptyWalk) {
    ScratchDirectory scratch("walk_nodir");
    EXPECT_TRUE(
        DocGenerator(defaultDocOptions()).extractModulesFromDirectory(scratch.path("absent")).empty());
}

TEST(ModuleWalk, ModulesCarryTheirPaths) {
    ScratchDirectory scratch("walk_paths");
    std::string file = scratch.write("one/two.quor", "fn f() {}\n");
    std::vector<DocModule> modules =
        DocGenerator(defaultDocOptions()).extractModulesFromDirectory(scratch.root.string());
    ASSERT_EQ(modules.size(), 1u);
    EXPECT_EQ(std::filesystem::path(modules[0].path), std::filesystem::path(file));
}

}  // namespace
}  // namespace quor::doc::testing
