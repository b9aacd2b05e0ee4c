#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/wait.h>

#include "doc/ScratchDirectory.h"

using quor::doc::testing::listDirectory;
using quor::doc::testing::readWhole;
using quor::doc::testing::ScratchDirectory;

namespace fs = std::filesystem;

namespace {

struct ToolRun {
    int status;
    std::string out;
    std::string err;
};

// Runs the built tool with `arguments`, its two output streams sent to files in `scratch`.
ToolRun runTool(const ScratchDirectory& scratch, const std::string& arguments) {
    const std::string outFile = scratch.path("stdout.txt");
    const std::string errFile = scratch.path("stderr.txt");
    const std::string command =
        std::string(QUOR_CLI_BINARY) + " " + arguments + " >'" + outFile + "' 2>'" + errFile + "'";
    int raw = std::system(command.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, readWhole(outFile), readWhole(errFile)};
}

std::string quoted(const std::string& path) { return "'" + path + "'"; }

}  // namespace

TEST(DocBinary, HelpListsTheDocCommand) {
    ScratchDirectory scratch("bin_help");
    ToolRun help = runTool(scratch, "--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("\n  doc INPUT [OUTDIR]"), std::string::npos) << help.out;
}

TEST(DocBinary, DirectoryBecomesOnePagePairPerModuleAndAnIndex) {
    ScratchDirectory scratch("bin_tree");
    scratch.write("in/shapes.quor", "/// Geometry helpers.\nmodule shapes;\n\nfn area(): float { return 1.0; }\n");
    scratch.write("in/more/collections.quor", "/// Small collection utilities.\nmodule collections;\n");
    const std::string outDir = scratch.path("site");
    ToolRun run = runTool(scratch, "doc " + quoted(scratch.path("in")) + " " + quoted(outDir));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Successfully generated documentation for 2 module(s) in " + outDir + "\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(listDirectory(outDir), (std::vector<std::string>{"collections.html", "collections.md", "index.html",
                                                               "index.md", "shapes.html", "shapes.md"}));
    EXPECT_EQ(readWhole(fs::path(outDir) / "index.md"),
              "# Quor Documentation Documentation\n\n"
              "Welcome to the Quor API documentation.\n\n"
              "## Modules\n\n"
              "### [`collections`](collections.md)\n\n"
              "Small collection utilities.\n\n"
              "### [`shapes`](shapes.md)\n\n"
              "Geometry helpers.\n\n");
}

TEST(DocBinary, ExamplesAreDocumentedWithAnIndex) {
    ScratchDirectory scratch("bin_examples");
    const std::string outDir = scratch.path("site");
    ToolRun run = runTool(scratch, "doc " + quoted(QUOR_EXAMPLES_DIR) + " " + quoted(outDir));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.rfind("Successfully generated documentation for ", 0), 0u) << run.out;
    const std::string tail = " module(s) in " + outDir + "\n";
    EXPECT_TRUE(run.out.size() > tail.size() && run.out.compare(run.out.size() - tail.size(), tail.size(), tail) == 0)
        << run.out;
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(fs::is_regular_file(fs::path(outDir) / "index.md"));
    EXPECT_TRUE(fs::is_regular_file(fs::path(outDir) / "index.html"));
    EXPECT_NE(readWhole(fs::path(outDir) / "index.md").find("### [`shapes`](shapes.md)\n\n"), std::string::npos);
}

TEST(DocBinary, InvalidInputWritesOnlyTheErrorLineAndExitsOne) {
    ScratchDirectory scratch("bin_invalid");
    const std::string input = scratch.path("absent.quor");
    ToolRun run = runTool(scratch, "doc " + quoted(input) + " " + quoted(scratch.path("site")));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "error: invalid doc input path " + input + "\n");
}

TEST(DocBinary, MissingInputIsAUsageError) {
    ScratchDirectory scratch("bin_usage");
    EXPECT_EQ(runTool(scratch, "doc").status, 2);
}
