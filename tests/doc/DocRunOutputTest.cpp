// The documentation run: which files it writes under which names, what it
// prints on each path, and what it returns.

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "DocTestSupport.h"
#include "ScratchDirectory.h"

namespace quor::doc::testing {
namespace {

using Names = std::vector<std::string>;

struct RunResult {
    bool ok = false;
    std::string out;
    std::string err;
};

RunResult run(const DocGenerator& generator, const std::string& input, const std::string& outputDir) {
    std::ostringstream out;
    std::ostringstream err;
    RunResult result;
    result.ok = generator.generate(input, outputDir, out, err);
    result.out = out.str();
    result.err = err.str();
    return result;
}

TEST(DocRunOutput, SingleFileGivesItsPagesAndAnIndexOfOne) {
    ScratchDirectory scratch("run_single");
    std::string file = scratch.write("src/calc.quor", "/// Calculator.\nmodule calc;\n/// Adds.\nfn add(a: int): int => a;\n");
    std::string outDir = scratch.path("out/deep/er");
    DocGenerator generator(defaultDocOptions());
    RunResult result = run(generator, file, outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "Successfully generated documentation for 1 module(s) in " + outDir + "\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(listDirectory(outDir), (Names{"calc.html", "calc.md", "index.html", "index.md"}));
    DocModule module = generator.extractModuleFromFile(file);
    EXPECT_EQ(readWhole(scratch.root / "out/deep/er/calc.md"), generator.renderMarkdown(module));
    EXPECT_EQ(readWhole(scratch.root / "out/deep/er/calc.html"), generator.renderHtml(module));
    EXPECT_EQ(readWhole(scratch.root / "out/deep/er/index.md"), generator.renderIndexMarkdown({module}));
    EXPECT_EQ(readWhole(scratch.root / "out/deep/er/index.html"), generator.renderIndexHtml({module}));
    EXPECT_NE(readWhole(scratch.root / "out/deep/er/index.md").find("### [`calc`](calc.md)\n\nCalculator.\n\n"),
              std::string::npos);
}

TEST(DocRunOutput, DirectoryPagesAreFlatAndIndexSorted) {
    ScratchDirectory scratch("run_tree");
    scratch.write("src/zeta.quor", "fn z() {}\n");
    scratch.write("src/a/alpha.quor", "fn a() {}\n");
    scratch.write("src/a/b/mid.quor", "fn m() {}\n");
    scratch.write("src/notes.txt", "not a source\n");
    std::string outDir = scratch.path("out");
    DocGenerator generator(defaultDocOptions());
    RunResult result = run(generator, scratch.path("src"), outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "Successfully generated documentation for 3 module(s) in " + outDir + "\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(listDirectory(outDir), (Names{"alpha.html", "alpha.md", "index.html", "index.md", "mid.html", "mid.md",
                                            "zeta.html", "zeta.md"}));
    EXPECT_EQ(readWhole(scratch.root / "out/index.md"),
              generator.renderIndexMarkdown(generator.extractModulesFromDirectory(scratch.path("src"))));
    std::string index = readWhole(scratch.root / "out/index.md");
    EXPECT_LT(index.find("[`alpha`]"), index.find("[`mid`]"));
    EXPECT_LT(index.find("[`mid`]"), index.find("[`zeta`]"));
}

TEST(DocRunOutput, EmptyDirectoryFindsNothingAndSucceeds) {
    ScratchDirectory scratch("run_empty");
    std::filesystem::create_directories(scratch.root / "src");
    scratch.write("src/readme.txt", "no sources\n");
    std::string input = scratch.path("src");
    RunResult result = run(DocGenerator(defaultDocOptions()), input, scratch.path("out"));
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "No Quor source files found to document in " + input + "\n");
    EXPECT_EQ(result.err, "");
    EXPECT_TRUE(std::filesystem::is_directory(scratch.root / "out"));
    EXPECT_EQ(listDirectory(scratch.root / "out"), Names{});
}

TEST(DocRunOutput, InvalidInputFailsOnTheErrorStream) {
    ScratchDirectory scratch("run_invalid");
    std::string input = scratch.path("missing.quor");
    RunResult result = run(DocGenerator(defaultDocOptions()), input, scratch.path("out"));
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.err, "error: invalid doc input path " + input + "\n");
    EXPECT_EQ(result.out, "");
    // The output directory is made before the input is looked at.
    EXPECT_TRUE(std::filesystem::is_directory(scratch.root / "out"));
    EXPECT_EQ(listDirectory(scratch.root / "out"), Names{});
}

TEST(DocRunOutput, SwitchesChooseTheFiles) {
    struct Case {
        bool markdown;
        bool html;
        Names files;
    };
    const Case cases[] = {
        {true, true, {"index.html", "index.md", "lib.html", "lib.md"}},
        {true, false, {"index.md", "lib.md"}},
        {false, true, {"index.html", "lib.html"}},
        {false, false, {}},
    };
    for (const Case& c : cases) {
        ScratchDirectory scratch("run_switches");
        std::string file = scratch.write("lib.quor", "fn f() {}\n");
        DocOptions options = defaultDocOptions();
        options.generateMarkdown = c.markdown;
        options.generateHtml = c.html;
        std::string outDir = scratch.path("out");
        RunResult result = run(DocGenerator(options), file, outDir);
        EXPECT_TRUE(result.ok);
        EXPECT_EQ(result.out, "Successfully generated documentation for 1 module(s) in " + outDir + "\n");
        EXPECT_EQ(listDirectory(outDir), c.files) << c.markdown << c.html;
    }
}

TEST(DocRunOutput, SameNamesOverwriteButIndexListsBoth) {
    ScratchDirectory scratch("run_same_names");
    scratch.write("src/a/x.quor", "/// First.\nmodule x;\n");
    scratch.write("src/b/x.quor", "/// Second.\nmodule x;\n");
    std::string outDir = scratch.path("out");
    RunResult result = run(DocGenerator(defaultDocOptions()), scratch.path("src"), outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.out, "Successfully generated documentation for 2 module(s) in " + outDir + "\n");
    EXPECT_EQ(listDirectory(outDir), (Names{"index.html", "index.md", "x.html", "x.md"}));
    std::string index = readWhole(scratch.root / "out/index.md");
    EXPECT_NE(index.find("### [`x`](x.md)\n\nFirst.\n\n"), std::string::npos);
    EXPECT_NE(index.find("### [`x`](x.md)\n\nSecond.\n\n"), std::string::npos);
}

TEST(DocRunOutput, ModuleCalledIndexIsReplacedByTheIndex) {
    ScratchDirectory scratch("run_index_module");
    std::string file = scratch.write("index.quor", "/// The index module.\nmodule index;\nfn f() {}\n");
    DocGenerator generator(defaultDocOptions());
    std::string outDir = scratch.path("out");
    RunResult result = run(generator, file, outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(listDirectory(outDir), (Names{"index.html", "index.md"}));
    DocModule module = generator.extractModuleFromFile(file);
    EXPECT_EQ(readWhole(scratch.root / "out/index.md"), generator.renderIndexMarkdown({module}));
    EXPECT_EQ(readWhole(scratch.root / "out/index.html"), generator.renderIndexHtml({module}));
}

TEST(DocRunOutput, UnopenableFileIsPassedOverSilently) {
    ScratchDirectory scratch("run_unopenable");
    std::string file = scratch.write("calc.quor", "fn f() {}\n");
    std::filesystem::create_directories(scratch.root / "out/calc.md");  // a folder where the page would go
    std::string outDir = scratch.path("out");
    RunResult result = run(DocGenerator(defaultDocOptions()), file, outDir);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "Successfully generated documentation for 1 module(s) in " + outDir + "\n");
    EXPECT_EQ(listDirectory(outDir), (Names{"calc.html", "calc.md", "index.html", "index.md"}));
    EXPECT_TRUE(std::filesystem::is_directory(scratch.root / "out/calc.md"));
    EXPECT_FALSE(readWhole(scratch.root / "out/calc.html").empty());
}

TEST(DocRunOutput, StandardStreamsReceiveTheMessages) {
    ScratchDirectory scratch("run_std_streams");
    std::string file = scratch.write("lib.quor", "fn f() {}\n");
    std::string missing = scratch.path("missing");
    std::ostringstream out;
    std::ostringstream err;
    std::streambuf* oldOut = std::cout.rdbuf(out.rdbuf());
    std::streambuf* oldErr = std::cerr.rdbuf(err.rdbuf());
    DocGenerator generator(defaultDocOptions());
    bool ok = generator.generate(file, scratch.path("out"));
    bool bad = generator.generate(missing, scratch.path("out"));
    std::cout.rdbuf(oldOut);
    std::cerr.rdbuf(oldErr);
    EXPECT_TRUE(ok);
    EXPECT_FALSE(bad);
    EXPECT_EQ(out.str(), "Successfully generated documentation for 1 module(s) in " + scratch.path("out") + "\n");
    EXPECT_EQ(err.str(), "error: invalid doc input path " + missing + "\n");
}

TEST(DocRunOutput, OptionsKeptAsGiven) {
    DocOptions defaults = defaultDocOptions();
    EXPECT_EQ(defaults.outputDir, "docs");
    EXPECT_TRUE(defaults.generateHtml);
    EXPECT_TRUE(defaults.generateMarkdown);
    EXPECT_EQ(defaults.title, "Quor Documentation");
    DocOptions custom;
    custom.outputDir = "elsewhere";
    custom.title = "T";
    DocGenerator generator(custom);
    EXPECT_EQ(generator.getOptions().outputDir, "elsewhere");
    EXPECT_EQ(generator.getOptions().title, "T");
}

}  // namespace
}  // namespace quor::doc::testing
