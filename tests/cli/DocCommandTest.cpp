#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "doc/ScratchDirectory.h"

using quor::cli::Arguments;
using quor::doc::testing::listDirectory;
using quor::doc::testing::readWhole;
using quor::doc::testing::ScratchDirectory;

namespace fs = std::filesystem;

namespace {

struct DocRun {
    int status;
    std::string out;
    std::string err;
};

DocRun runDoc(const Arguments& args) {
    std::ostringstream out;
    std::ostringstream err;
    int status = quor::cli::runDoc(args, out, err);
    return {status, out.str(), err.str()};
}

// Switches the working directory for the life of the object.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const fs::path& directory) : previous(fs::current_path()) { fs::current_path(directory); }
    ~WorkingDirectory() { fs::current_path(previous); }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    fs::path previous;
};

const std::string SOURCE = "/// Geometry helpers.\nmodule shapes;\n\nfn area(): float { return 1.0; }\n";

using Names = std::vector<std::string>;

}  // namespace

TEST(DocCommand, WritesPagesIntoTheNamedDirectoryAndExitsZero) {
    ScratchDirectory scratch("cli_named");
    const std::string source = scratch.write("geometry.quor", SOURCE);
    const std::string outDir = scratch.path("site");
    DocRun run = runDoc({source, outDir});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Successfully generated documentation for 1 module(s) in " + outDir + "\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(listDirectory(outDir), (Names{"index.html", "index.md", "shapes.html", "shapes.md"}));
}

TEST(DocCommand, WithoutOutputDirectoryWritesIntoDocs) {
    ScratchDirectory scratch("cli_default");
    const std::string source = scratch.write("geometry.quor", SOURCE);
    WorkingDirectory inside(scratch.root);
    DocRun run = runDoc({source});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Successfully generated documentation for 1 module(s) in docs\n");
    EXPECT_EQ(listDirectory(scratch.root / "docs"), (Names{"index.html", "index.md", "shapes.html", "shapes.md"}));
}

TEST(DocCommand, PagesCarryTheServersTitle) {
    ScratchDirectory scratch("cli_title");
    const std::string source = scratch.write("geometry.quor", SOURCE);
    const std::string outDir = scratch.path("site");
    ASSERT_EQ(runDoc({source, outDir}).status, 0);
    EXPECT_EQ(readWhole(fs::path(outDir) / "index.md").rfind("# Quor Documentation Documentation\n\n", 0), 0u);
    EXPECT_NE(readWhole(fs::path(outDir) / "shapes.html").find("  <title>Module shapes - Quor Documentation</title>\n"),
              std::string::npos);
}

TEST(DocCommand, InvalidInputExitsOneWithTheRunsErrorLine) {
    ScratchDirectory scratch("cli_invalid");
    const std::string input = scratch.path("absent");
    DocRun run = runDoc({input, scratch.path("site")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "error: invalid doc input path " + input + "\n");
}

TEST(DocCommand, EmptyDirectoryExitsZeroWithTheNoSourcesLine) {
    ScratchDirectory scratch("cli_empty");
    fs::create_directories(scratch.root / "in");
    const std::string input = scratch.path("in");
    DocRun run = runDoc({input, scratch.path("site")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "No Quor source files found to document in " + input + "\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(listDirectory(scratch.path("site")), Names{});
}

TEST(DocCommand, NoInputOrTooManyArgumentsIsAUsageError) {
    for (const Arguments& args : {Arguments{}, Arguments{"a", "b", "c"}}) {
        DocRun run = runDoc(args);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "quor: expected an input path and at most one output directory\n");
    }
}
