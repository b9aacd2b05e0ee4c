#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>

#include "cli/CliTestSupport.h"

using quor::cli::runFormat;
using namespace quor::cli::testing;

namespace {

const std::string MESSY = "let   x=1;";
const std::string TIDY = "let x = 1;\n";

// Formatting writes a string literal by its content, so the quotes go and
// the two words become two identifiers.
const std::string WITH_STRING = "let   s = \"a b\";\n";

std::size_t entriesIn(const std::string& directory) {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(directory)) ++count;
    return count;
}

}  // namespace

TEST(FormatCommand, RewritesAnUnformattedFileInPlaceAndNamesIt) {
    TempDir dir;
    std::string path = dir.write("messy.quor", MESSY);
    CommandRun result = run(runFormat, {path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, path + ": formatted\n");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(readBack(path), TIDY);
}

TEST(FormatCommand, LeavesAFormattedFileAloneAndSaysNothing) {
    TempDir dir;
    std::string path = dir.write("tidy.quor", TIDY);
    auto before = std::filesystem::last_write_time(path);
    CommandRun result = run(runFormat, {path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(std::filesystem::last_write_time(path), before);
}

TEST(FormatCommand, LeavesNoTemporaryFileBehind) {
    TempDir dir;
    dir.write("messy.quor", MESSY);
    run(runFormat, {dir.root});
    EXPECT_EQ(entriesIn(dir.root), 1u);
}

TEST(FormatCommand, KeepsThePermissionsOfTheFile) {
    TempDir dir;
    std::string path = dir.write("messy.quor", MESSY);
    ::chmod(path.c_str(), 0640);
    run(runFormat, {path});
    struct stat info {};
    ::stat(path.c_str(), &info);
    EXPECT_EQ(info.st_mode & 07777, 0640u);
}

TEST(FormatCommand, WritesThroughALinkAndKeepsTheLink) {
    TempDir dir;
    std::string target = dir.write("real.quor", MESSY);
    std::string link = dir.path("link.quor");
    std::filesystem::create_symlink(target, link);
    EXPECT_EQ(run(runFormat, {link}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(readBack(target), TIDY);
}

TEST(FormatCommand, FormatsEveryQuorFileBelowADirectory) {
    TempDir dir;
    std::string first = dir.write("a.quor", MESSY);
    std::string second = dir.write("sub/b.quor", MESSY);
    std::string other = dir.write("notes.txt", MESSY);
    CommandRun result = run(runFormat, {dir.root});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, first + ": formatted\n" + second + ": formatted\n");
    EXPECT_EQ(readBack(second), TIDY);
    EXPECT_EQ(readBack(other), MESSY);
}

TEST(FormatCommand, RefusesAFileWhoseTokensFormattingWouldChange) {
    TempDir dir;
    std::string path = dir.write("string.quor", WITH_STRING);
    CommandRun result = run(runFormat, {path});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "quor: " + path +
                              ":1:11: StringLiteral 'a b' would become Identifier 'a'; formatting would change the "
                              "program, so the file is left as it is\n");
    EXPECT_EQ(readBack(path), WITH_STRING);
}

TEST(FormatCommand, RefusesAFileWhereFormattingWouldJoinTwoWords) {
    TempDir dir;
    std::string path = dir.write("joined.quor", "class Foo extends Bar {}\n");
    CommandRun result = run(runFormat, {path});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "quor: " + path +
                              ":1:7: Identifier 'Foo' would become Identifier 'Fooextends'; formatting would change "
                              "the program, so the file is left as it is\n");
    EXPECT_EQ(readBack(path), "class Foo extends Bar {}\n");
}

TEST(FormatCommand, ARefusedFileDoesNotStopTheOthers) {
    TempDir dir;
    dir.write("a.quor", WITH_STRING);
    std::string messy = dir.write("b.quor", MESSY);
    CommandRun result = run(runFormat, {dir.root});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, messy + ": formatted\n");
    EXPECT_EQ(readBack(messy), TIDY);
}

TEST(FormatCommand, ChangedLineBreaksInsideAStringAreShownAsEscapes) {
    TempDir dir;
    std::string path = dir.write("newline.quor", "let s = \"a\\nb\";\n");
    CommandRun result = run(runFormat, {path});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find(":1:9: StringLiteral 'a\\nb' would become Identifier 'a'"), std::string::npos)
        << result.err;
}

TEST(FormatCommand, CheckNamesUnformattedFilesAndChangesNothing) {
    TempDir dir;
    std::string messy = dir.write("messy.quor", MESSY);
    std::string tidy = dir.write("tidy.quor", TIDY);
    CommandRun failed = run(runFormat, {"--check", messy, tidy});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.out, messy + ": not formatted\n");
    EXPECT_EQ(readBack(messy), MESSY);

    CommandRun passed = run(runFormat, {"--check", tidy});
    EXPECT_EQ(passed.status, 0);
    EXPECT_EQ(passed.out, "");
}

TEST(FormatCommand, CheckAlsoSaysWhenFormattingWouldChangeTheTokens) {
    TempDir dir;
    std::string path = dir.write("string.quor", WITH_STRING);
    CommandRun result = run(runFormat, {"--check", path});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, path + ": not formatted\n");
    EXPECT_NE(result.err.find("would become Identifier 'a'"), std::string::npos);
}

TEST(FormatCommand, StdoutPrintsTheFormattedTextAndWritesNothing) {
    TempDir dir;
    std::string path = dir.write("messy.quor", MESSY);
    CommandRun result = run(runFormat, {"--stdout", path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, TIDY);
    EXPECT_EQ(readBack(path), MESSY);
}

TEST(FormatCommand, StdoutPrintsARefusedFileAsItStands) {
    TempDir dir;
    std::string path = dir.write("string.quor", WITH_STRING);
    CommandRun result = run(runFormat, {"--stdout", path});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, WITH_STRING);
}

TEST(FormatCommand, AnUnreadablePathGivesStatusTwoAndTheOthersAreStillFormatted) {
    TempDir dir;
    std::string missing = dir.path("missing.quor");
    std::string messy = dir.write("messy.quor", MESSY);
    CommandRun result = run(runFormat, {missing, messy});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "quor: cannot read '" + missing + "': No such file or directory\n");
    EXPECT_EQ(readBack(messy), TIDY);
}

TEST(FormatCommand, UsageErrorsGiveStatusTwo) {
    EXPECT_EQ(run(runFormat, {}).status, 2);
    EXPECT_EQ(run(runFormat, {"--check"}).err,
              "quor fmt: expected at least one file or directory\nusage: quor fmt [--check | --stdout] PATH...\n");
    EXPECT_EQ(run(runFormat, {"--check", "--stdout", "a.quor"}).status, 2);
    EXPECT_EQ(run(runFormat, {"--write", "a.quor"}).err.substr(0, 36), "quor fmt: unknown option '--write'\nu");
}
