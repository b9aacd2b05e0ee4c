#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "doc/DocGenerator.h"

using quor::doc::defaultDocOptions;
using quor::doc::DocGenerator;
using quor::doc::DocModule;

namespace fs = std::filesystem;

namespace {

// A scratch directory under the system's temporary folder, removed again.
class ScratchDirectory {
public:
    explicit ScratchDirectory(const std::string& tag)
        : root(fs::temp_directory_path() / ("quor_doc_" + tag + "_" + std::to_string(::getpid()))) {
        fs::remove_all(root);
        fs::create_directories(root);
    }
    ~ScratchDirectory() {
        std::error_code ignored;
        fs::remove_all(root, ignored);
    }

    void write(const std::string& relative, const std::string& text) const {
        fs::path file = root / relative;
        fs::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
    }

    fs::path root;
};

DocGenerator generator() { return DocGenerator(defaultDocOptions()); }

}  // namespace

TEST(DocOptionsDefaults, ServerSettings) {
    auto options = defaultDocOptions();
    EXPECT_EQ(options.outputDir, "docs");
    EXPECT_TRUE(options.generateHtml);
    EXPECT_TRUE(options.generateMarkdown);
    EXPECT_EQ(options.title, "Quor Documentation");
    EXPECT_EQ(DocGenerator(options).getOptions().title, "Quor Documentation");
}

TEST(DocFromFile, ReadsTheWholeFile) {
    ScratchDirectory scratch("file");
    scratch.write("shapes.quor", "/// Doc.\nfn area(): float { return 1.0; }\n");
    const std::string path = (scratch.root / "shapes.quor").string();
    DocModule module = generator().extractModuleFromFile(path);
    EXPECT_EQ(module.name, "shapes");
    EXPECT_EQ(module.path, path);
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].description, "Doc.");
}

TEST(DocFromFile, UnreadableFileGivesEmptyModule) {
    DocModule module = generator().extractModuleFromFile("/nonexistent/dir/missing.quor");
    EXPECT_EQ(module.name, "");
    EXPECT_EQ(module.path, "");
    EXPECT_EQ(module.description, "");
    EXPECT_TRUE(module.entries.empty());
}

TEST(DocFromDirectory, TakesQuorFilesRecursivelySortedByName) {
    ScratchDirectory scratch("walk");
    scratch.write("zeta.quor", "fn z() {}\n");
    scratch.write("alpha.quor", "module omega;\n");
    scratch.write("sub/deeper/beta.quor", "fn b() {}\n");
    scratch.write("notes.txt", "fn no() {}\n");
    scratch.write("old.quor.bak", "fn no() {}\n");
    scratch.write("upper.QUOR", "fn no() {}\n");
    std::vector<DocModule> modules = generator().extractModulesFromDirectory(scratch.root.string());
    ASSERT_EQ(modules.size(), 3u);
    EXPECT_EQ(modules[0].name, "beta");
    EXPECT_EQ(modules[1].name, "omega");
    EXPECT_EQ(modules[2].name, "zeta");
}

TEST(DocFromDirectory, SkipsPathsHoldingExcludedWords) {
    ScratchDirectory scratch("skip");
    scratch.write("keep.quor", "fn k() {}\n");
    scratch.write(".git/hidden.quor", "fn h() {}\n");
    scratch.write("build/out.quor", "fn o() {}\n");
    scratch.write("rebuilder/tool.quor", "fn t() {}\n");
    scratch.write("cache.quorm/mod.quor", "fn m() {}\n");
    std::vector<DocModule> modules = generator().extractModulesFromDirectory(scratch.root.string());
    ASSERT_EQ(modules.size(), 1u);
    EXPECT_EQ(modules[0].name, "keep");
}

TEST(DocFromDirectory, RootWhosePathHoldsBuildYieldsNothing) {
    ScratchDirectory scratch("rootword");
    scratch.write("project/a.quor", "fn a() {}\n");
    EXPECT_TRUE(generator().extractModulesFromDirectory((scratch.root / "project").string()).size() == 1u);
    fs::rename(scratch.root / "project", scratch.root / "prebuild");
    EXPECT_TRUE(generator().extractModulesFromDirectory((scratch.root / "prebuild").string()).empty());
}

TEST(DocFromDirectory, MissingDirectoryIsAnEmptyWalk) {
    EXPECT_TRUE(generator().extractModulesFromDirectory("/nonexistent/quor/dir").empty());
}

TEST(DocFromDirectory, SortIsByteWise) {
    ScratchDirectory scratch("order");
    scratch.write("b.quor", "");
    scratch.write("B.quor", "");
    scratch.write("_c.quor", "");
    std::vector<DocModule> modules = generator().extractModulesFromDirectory(scratch.root.string());
    ASSERT_EQ(modules.size(), 3u);
    EXPECT_EQ(modules[0].name, "B");
    EXPECT_EQ(modules[1].name, "_c");
    EXPECT_EQ(modules[2].name, "b");
}

TEST(DocFromDirectory, LinksToSourcesAreFollowedAndDirectoriesNamedLikeSourcesAreNot) {
    ScratchDirectory scratch("links");
    scratch.write("real.quor", "fn r() {}\n");
    scratch.write("folder.quor/inner.quor", "fn i() {}\n");
    fs::create_symlink(scratch.root / "real.quor", scratch.root / "alias.quor");
    std::vector<DocModule> modules = generator().extractModulesFromDirectory(scratch.root.string());
    ASSERT_EQ(modules.size(), 3u);
    EXPECT_EQ(modules[0].name, "alias");
    ASSERT_EQ(modules[0].entries.size(), 1u);
    EXPECT_EQ(modules[0].entries[0].name, "r");
    EXPECT_EQ(modules[1].name, "inner");
    EXPECT_EQ(modules[2].name, "real");
}

TEST(DocFromDirectory, EachModuleKeepsTheFilePathItWasReadFrom) {
    ScratchDirectory scratch("paths");
    scratch.write("sub/one.quor", "fn one() {}\n");
    std::vector<DocModule> modules = generator().extractModulesFromDirectory(scratch.root.string());
    ASSERT_EQ(modules.size(), 1u);
    EXPECT_EQ(modules[0].path, (scratch.root / "sub" / "one.quor").string());
}

TEST(DocFromFile, EmptyFileGivesModuleNamedByItsStem) {
    ScratchDirectory scratch("emptyfile");
    scratch.write("blank.quor", "");
    DocModule module = generator().extractModuleFromFile((scratch.root / "blank.quor").string());
    EXPECT_EQ(module.name, "blank");
    EXPECT_TRUE(module.entries.empty());
}
