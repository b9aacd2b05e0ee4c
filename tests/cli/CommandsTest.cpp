#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "cli/Commands.h"

using quor::cli::Arguments;

namespace {

// A source file in the temporary directory, removed when the test ends.
class SourceFile {
public:
    SourceFile(const std::string& name, const std::string& text)
        : path((std::filesystem::temp_directory_path() / ("quor_cli_" + name)).string()) {
        std::ofstream(path, std::ios::binary) << text;
    }
    ~SourceFile() { std::remove(path.c_str()); }
    std::string path;
};

struct CommandRun {
    int status;
    std::string out;
    std::string err;
};

CommandRun run(int (*command)(const Arguments&, std::ostream&, std::ostream&), const Arguments& args) {
    std::ostringstream out;
    std::ostringstream err;
    int status = command(args, out, err);
    return {status, out.str(), err.str()};
}

std::string example(const std::string& name) { return std::string(QUOR_EXAMPLES_DIR) + "/" + name; }

}  // namespace

TEST(CliCheck, CleanExamplesPassWithNoOutput) {
    for (const char* name : {"collections.quor", "shapes.quor"}) {
        CommandRun result = run(quor::cli::runCheck, {example(name)});
        EXPECT_EQ(result.status, 0) << name;
        EXPECT_EQ(result.out, "") << name;
        EXPECT_EQ(result.err, "") << name;
    }
}

TEST(CliCheck, SyntaxErrorIsPrintedWithFileLineAndColumn) {
    SourceFile file("syntax.quor", "let x = 1;\nreturn 2\n");
    CommandRun result = run(quor::cli::runCheck, {file.path});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("Expected ';' after return statement"), std::string::npos);
    EXPECT_NE(result.out.find(file.path + ":3:1"), std::string::npos);
}

TEST(CliCheck, LexicalErrorStopsBeforeParsing) {
    SourceFile file("lexical.quor", "let x = ;\nlet y = 1 # 2;\n");
    CommandRun result = run(quor::cli::runCheck, {file.path});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("Unexpected character: '#'"), std::string::npos);
    EXPECT_EQ(result.out.find("Expected expression"), std::string::npos);
}

TEST(CliCheck, MissingFileIsReportedAndFails) {
    CommandRun result = run(quor::cli::runCheck, {"/nonexistent/dir/none.quor"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "quor: cannot read '/nonexistent/dir/none.quor'\n");
}

TEST(CliCheck, NoFileIsAUsageError) {
    CommandRun result = run(quor::cli::runCheck, {});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "quor: expected at least one file\n");
}

TEST(CliFormat, PrintsTheFormattedText) {
    SourceFile file("fmt.quor", "let   x=1;");
    CommandRun result = run(quor::cli::runFormat, {file.path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "let x = 1;\n");
}

TEST(CliFormat, CheckFailsOnUnformattedAndPassesOnFormattedText) {
    SourceFile messy("messy.quor", "let   x=1;");
    CommandRun failed = run(quor::cli::runFormat, {"--check", messy.path});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.out, messy.path + ": not formatted\n");

    SourceFile tidy("tidy.quor", "let x = 1;\n");
    CommandRun passed = run(quor::cli::runFormat, {"--check", tidy.path});
    EXPECT_EQ(passed.status, 0);
    EXPECT_EQ(passed.out, "");
}

TEST(CliFormat, NeedsExactlyOneFile) {
    EXPECT_EQ(run(quor::cli::runFormat, {}).status, 2);
    EXPECT_EQ(run(quor::cli::runFormat, {"a", "b"}).err, "quor: expected exactly one file\n");
}

TEST(CliOutline, ListsDeclarationsWithLinesAndBriefs) {
    SourceFile file("outline.quor", "/** Adds. */\nfn add(a: int, b: int): int { return a + b; }\n");
    CommandRun result = run(quor::cli::runOutline, {file.path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "module quor_cli_outline\n2: fn add(a: int, b: int): int    // Adds.\n");
}

TEST(CliTokens, PrintsEachTokenWithItsPositionAndKind) {
    SourceFile file("tokens.quor", "x = 1;");
    CommandRun result = run(quor::cli::runTokens, {file.path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "1:1 Identifier 'x'\n1:3 = '='\n1:5 IntegerLiteral '1'\n1:6 ; ';'\n1:7 EndOfFile ''\n");
}
