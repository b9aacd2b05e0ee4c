#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "ScratchDirectory.h"
#include "doc/DocGenerator.h"

using quor::doc::defaultDocOptions;
using quor::doc::DocGenerator;
using quor::doc::DocOptions;
using quor::doc::testing::listDirectory;
using quor::doc::testing::readWhole;
using quor::doc::testing::ScratchDirectory;

namespace fs = std::filesystem;

namespace {

struct RunResult {
    bool ok;
    std::string out;
    std::string err;
};

RunResult run(const DocGenerator& generator, const std::string& input, const std::string& outputDir) {
    std::ostringstream out;
    std::ostringstream err;
    bool ok = generator.generate(input, outputDir, out, err);
    return {ok, out.str(), err.str()};
}

RunResult run(const std::string& input, const std::string& outputDir) {
    return run(DocGenerator(defaultDocOptions()), input, outputDir);
}

const std::string INDEX_MARKDOWN_HEAD =
    "# Quor Documentation Documentation\n\n"
    "Welcome to the Quor API documentation.\n\n"
    "## Modules\n\n";

const std::string SHAPES_SOURCE =
    "/// Geometry helpers.\n"
    "module shapes;\n"
    "\n"
    "fn area(): float { return 1.0; }\n";

using Names = std::vector<std::string>;

}  // namespace

TEST(DocRun, SingleFileGivesItsPagesAndAnIndexOfOne) {
    ScratchDirectory scratch("single");
    const std::string source = scratch.write("src/geometry.quor", SHAPES_SOURCE);
    const std::string outDir = scratch.path("out");
    RunResult result = run(source, outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "Successfully generated documentation for 1 module(s) in " + outDir + "\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(listDirectory(outDir), (Names{"index.html", "index.md", "shapes.html", "shapes.md"}));
    EXPECT_EQ(readWhole(fs::path(outDir) / "index.md"),
              INDEX_MARKDOWN_HEAD + "### [`shapes`](shapes.md)\n\nGeometry helpers.\n\n");
    EXPECT_EQ(readWhole(fs::path(outDir) / "shapes.md"),
              "# Module `shapes`\n\n"
              "Geometry helpers.\n\n"
              "## Table of Contents\n\n"
              "- [Functions](#functions)\n"
              "  - [`area`](#fn-area)\n"
              "\n---\n\n"
              "## Functions\n\n"
              "### `fn area`\n\n"
              "```quor\nfn area(): float\n```\n\n"
              "**Returns:** `float`\n\n"
              "---\n\n");
    const std::string html = readWhole(fs::path(outDir) / "shapes.html");
    EXPECT_EQ(html.rfind("<!DOCTYPE html>\n", 0), 0u);
    EXPECT_NE(html.find("    <div class=\"entry-card\" id=\"area\">\n"), std::string::npos);
    EXPECT_NE(readWhole(fs::path(outDir) / "index.html").find("  <a class=\"card\" href=\"shapes.html\">\n"),
              std::string::npos);
}

TEST(DocRun, DirectoryGivesEveryModuleAndAnIndexInNameOrder) {
    ScratchDirectory scratch("tree");
    scratch.write("in/zeta.quor", "/// Last.\nmodule zeta;\n");
    scratch.write("in/nested/alpha.quor", "fn one(): int { return 1; }\n");
    scratch.write("in/notes.txt", "not a source");
    const std::string outDir = scratch.path("out");
    RunResult result = run(scratch.path("in"), outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "Successfully generated documentation for 2 module(s) in " + outDir + "\n");
    EXPECT_EQ(listDirectory(outDir), (Names{"alpha.html", "alpha.md", "index.html", "index.md", "zeta.html", "zeta.md"}));
    EXPECT_EQ(readWhole(fs::path(outDir) / "index.md"),
              INDEX_MARKDOWN_HEAD + "### [`alpha`](alpha.md)\n\n### [`zeta`](zeta.md)\n\nLast.\n\n");
}

TEST(DocRun, EmptyDirectoryReportsNoSourcesWritesNoIndexAndSucceeds) {
    ScratchDirectory scratch("empty");
    fs::create_directories(scratch.root / "in");
    const std::string input = scratch.path("in");
    const std::string outDir = scratch.path("out");
    RunResult result = run(input, outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "No Quor source files found to document in " + input + "\n");
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(fs::is_directory(outDir));
    EXPECT_EQ(listDirectory(outDir), Names{});
}

TEST(DocRun, BothOutputsOffWritesNothingAndStillReportsSuccess) {
    ScratchDirectory scratch("off");
    const std::string source = scratch.write("shapes.quor", SHAPES_SOURCE);
    DocOptions options = defaultDocOptions();
    options.generateHtml = false;
    options.generateMarkdown = false;
    const std::string outDir = scratch.path("out");
    RunResult result = run(DocGenerator(options), source, outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "Successfully generated documentation for 1 module(s) in " + outDir + "\n");
    EXPECT_EQ(listDirectory(outDir), Names{});
}

TEST(DocRun, MarkdownAloneWritesOnlyMarkdownPages) {
    ScratchDirectory scratch("markdown");
    const std::string source = scratch.write("shapes.quor", SHAPES_SOURCE);
    DocOptions options = defaultDocOptions();
    options.generateHtml = false;
    const std::string outDir = scratch.path("out");
    EXPECT_TRUE(run(DocGenerator(options), source, outDir).ok);
    EXPECT_EQ(listDirectory(outDir), (Names{"index.md", "shapes.md"}));
}

TEST(DocRun, HtmlAloneWritesOnlyHtmlPages) {
    ScratchDirectory scratch("html");
    const std::string source = scratch.write("shapes.quor", SHAPES_SOURCE);
    DocOptions options = defaultDocOptions();
    options.generateMarkdown = false;
    const std::string outDir = scratch.path("out");
    EXPECT_TRUE(run(DocGenerator(options), source, outDir).ok);
    EXPECT_EQ(listDirectory(outDir), (Names{"index.html", "shapes.html"}));
}

TEST(DocRun, InputThatIsNeitherFileNorDirectoryFails) {
    ScratchDirectory scratch("missing");
    const std::string input = scratch.path("nowhere.quor");
    const std::string outDir = scratch.path("out");
    RunResult result = run(input, outDir);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "error: invalid doc input path " + input + "\n");
    // The output directory is made before the input is looked at.
    EXPECT_TRUE(fs::is_directory(outDir));
    EXPECT_EQ(listDirectory(outDir), Names{});
}

TEST(DocRun, EmptyOutputDirectoryMeansTheOptionsDirectory) {
    ScratchDirectory scratch("default");
    const std::string source = scratch.write("shapes.quor", SHAPES_SOURCE);
    DocOptions options = defaultDocOptions();
    options.outputDir = scratch.path("configured");
    RunResult result = run(DocGenerator(options), source, "");
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "Successfully generated documentation for 1 module(s) in " + options.outputDir + "\n");
    EXPECT_EQ(listDirectory(options.outputDir), (Names{"index.html", "index.md", "shapes.html", "shapes.md"}));
}

TEST(DocRun, OutputDirectoryIsCreatedWithItsParents) {
    ScratchDirectory scratch("parents");
    const std::string source = scratch.write("shapes.quor", SHAPES_SOURCE);
    const std::string outDir = scratch.path("a/b/c");
    EXPECT_TRUE(run(source, outDir).ok);
    EXPECT_TRUE(fs::is_regular_file(fs::path(outDir) / "shapes.md"));
}

TEST(DocRun, FileReachedThroughALinkIsDocumented) {
    ScratchDirectory scratch("link");
    const std::string source = scratch.write("real/shapes.quor", SHAPES_SOURCE);
    const fs::path link = scratch.root / "linked.quor";
    fs::create_symlink(source, link);
    const std::string outDir = scratch.path("out");
    RunResult result = run(link.string(), outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(listDirectory(outDir), (Names{"index.html", "index.md", "shapes.html", "shapes.md"}));
}

TEST(DocRun, FileWithAnotherExtensionIsDocumentedWhenNamedDirectly) {
    ScratchDirectory scratch("extension");
    const std::string source = scratch.write("notes.txt", "fn one(): int { return 1; }\n");
    const std::string outDir = scratch.path("out");
    EXPECT_TRUE(run(source, outDir).ok);
    EXPECT_EQ(listDirectory(outDir), (Names{"index.html", "index.md", "notes.html", "notes.md"}));
}

TEST(DocRun, PageThatCannotBeOpenedIsPassedOverInSilence) {
    ScratchDirectory scratch("blocked");
    const std::string source = scratch.write("shapes.quor", SHAPES_SOURCE);
    const std::string outDir = scratch.path("out");
    fs::create_directories(fs::path(outDir) / "shapes.md");  // a folder where the page would go
    RunResult result = run(source, outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "Successfully generated documentation for 1 module(s) in " + outDir + "\n");
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(fs::is_directory(fs::path(outDir) / "shapes.md"));
    EXPECT_TRUE(fs::is_regular_file(fs::path(outDir) / "shapes.html"));
    EXPECT_TRUE(fs::is_regular_file(fs::path(outDir) / "index.md"));
}

TEST(DocRun, ModulesOfOneNameShareTheirPagesAndTheIndexListsBoth) {
    ScratchDirectory scratch("same");
    scratch.write("in/a.quor", "/// First.\nmodule common;\n");
    scratch.write("in/b.quor", "/// Second.\nmodule common;\n");
    const std::string outDir = scratch.path("out");
    RunResult result = run(scratch.path("in"), outDir);
    EXPECT_EQ(result.out, "Successfully generated documentation for 2 module(s) in " + outDir + "\n");
    EXPECT_EQ(listDirectory(outDir), (Names{"common.html", "common.md", "index.html", "index.md"}));
    const std::string index = readWhole(fs::path(outDir) / "index.md");
    const std::string first = "### [`common`](common.md)\n\nFirst.\n\n";
    const std::string second = "### [`common`](common.md)\n\nSecond.\n\n";
    EXPECT_TRUE(index == INDEX_MARKDOWN_HEAD + first + second || index == INDEX_MARKDOWN_HEAD + second + first) << index;
}

TEST(DocRun, ModuleCalledIndexIsReplacedByTheIndex) {
    ScratchDirectory scratch("index");
    const std::string source = scratch.write("index.quor", "/// The front.\nfn start(): void {}\n");
    const std::string outDir = scratch.path("out");
    EXPECT_TRUE(run(source, outDir).ok);
    EXPECT_EQ(listDirectory(outDir), (Names{"index.html", "index.md"}));
    EXPECT_EQ(readWhole(fs::path(outDir) / "index.md"), INDEX_MARKDOWN_HEAD + "### [`index`](index.md)\n\n");
    EXPECT_NE(readWhole(fs::path(outDir) / "index.html").find("  <a class=\"card\" href=\"index.html\">\n"),
              std::string::npos);
}

TEST(DocRun, TwoArgumentFormReportsOnTheStandardStreams) {
    ScratchDirectory scratch("stdout");
    const std::string source = scratch.write("shapes.quor", SHAPES_SOURCE);
    const std::string outDir = scratch.path("out");
    const DocGenerator generator(defaultDocOptions());
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const bool ok = generator.generate(source, outDir);
    const bool bad = generator.generate(scratch.path("missing"), outDir);
    const std::string out = ::testing::internal::GetCapturedStdout();
    const std::string err = ::testing::internal::GetCapturedStderr();
    EXPECT_TRUE(ok);
    EXPECT_FALSE(bad);
    EXPECT_EQ(out, "Successfully generated documentation for 1 module(s) in " + outDir + "\n");
    EXPECT_EQ(err, "error: invalid doc input path " + scratch.path("missing") + "\n");
}
