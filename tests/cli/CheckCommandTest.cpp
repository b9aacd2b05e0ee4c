#include <gtest/gtest.h>

#include <pthread.h>

#include <sstream>

#include "cli/CliTestSupport.h"
#include "cli/DiagnosticReport.h"
#include "diagnostics/DiagnosticEngine.h"
#include "frontend/FrontEnd.h"

using quor::cli::runCheck;
using namespace quor::cli::testing;

namespace {

// A lexical error with a known message, hint and place (line 1, column 11).
const std::string LEXICAL_ERROR = "let y = 1 # 2;\n";

const std::string CLEAN_SOURCE = "fn add(a: int, b: int): int {\n    return a + b;\n}\n";

std::string expectedPlain(const std::string& path) {
    return "error[E1000]: Unexpected character: '#'\n  --> " + path +
           ":1:11\n   = help: Remove or replace the invalid character\n";
}

// The "file" value of each JSON line, in order.
std::vector<std::string> filesOfJsonLines(const std::string& lines) {
    std::vector<std::string> files;
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);) {
        std::size_t start = line.find("\"file\":\"") + 8;
        files.push_back(line.substr(start, line.find('"', start) - start));
    }
    return files;
}

}  // namespace

TEST(CheckCommand, CleanFilesGiveStatusZeroAndOnlyTheSummary) {
    TempDir dir;
    std::string first = dir.write("first.quor", CLEAN_SOURCE);
    std::string second = dir.write("second.quor", "let x = 1;\n");
    CommandRun result = run(runCheck, {first, second});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "0 errors in 0 of 2 files\n");
}

TEST(CheckCommand, TextFormatPrintsTheEnginesFormWithoutColourToErrorStream) {
    TempDir dir;
    std::string path = dir.write("lexical.quor", LEXICAL_ERROR);
    CommandRun result = run(runCheck, {path});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, expectedPlain(path) + "1 error in 1 of 1 file\n");
}

TEST(CheckCommand, ColourAlwaysPrintsExactlyWhatTheEnginePrints) {
    TempDir dir;
    std::string path = dir.write("lexical.quor", LEXICAL_ERROR);
    CommandRun result = run(runCheck, {"--color=always", path});
    EXPECT_EQ(result.err, "\x1b[1;31merror[E1000]: \x1b[0m\x1b[1mUnexpected character: '#'\x1b[0m\n  --> " + path +
                              ":1:11\n   = \x1b[32mhelp: \x1b[0mRemove or replace the invalid character\n"
                              "1 error in 1 of 1 file\n");
}

TEST(CheckCommand, ColourAutoIsOffWhenTheErrorStreamIsNoTerminal) {
    TempDir dir;
    std::string path = dir.write("lexical.quor", LEXICAL_ERROR);
    EXPECT_EQ(run(runCheck, {"--color", "auto", path}).err.find('\x1b'), std::string::npos);
    EXPECT_EQ(run(runCheck, {"--color=never", path}).err.find('\x1b'), std::string::npos);
}

TEST(CheckCommand, SyntaxErrorNamesFileLineAndColumn) {
    TempDir dir;
    std::string path = dir.write("syntax.quor", "let x = 1;\nreturn 2\n");
    CommandRun result = run(runCheck, {path});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("error[E1000]: Expected ';' after return statement\n  --> " + path + ":3:1\n"),
              std::string::npos);
}

TEST(CheckCommand, ASingleFileCheckedAgainInOneProcessReportsTheSameBothTimes) {
    // A check of one file leaves its pass to the end of the process; the
    // next such check takes its place. Neither changes what is reported.
    TempDir dir;
    std::string path = dir.write("typed.quor", "fn f(): int {\n    return \"x\";\n}\n");
    CommandRun first = run(runCheck, {path});
    CommandRun second = run(runCheck, {path});
    EXPECT_EQ(first.status, 1);
    EXPECT_EQ(first.err, "error[E1005]: Return type mismatch: expected 'int', got 'string'\n  --> " + path +
                             ":2:5\n1 error in 1 of 1 file\n");
    EXPECT_EQ(second.status, first.status);
    EXPECT_EQ(second.err, first.err);
}

TEST(CheckCommand, LexicalErrorStopsTheChainBeforeParsing) {
    TempDir dir;
    std::string path = dir.write("lexical.quor", "let x = ;\n" + LEXICAL_ERROR);
    CommandRun result = run(runCheck, {path});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("Unexpected character: '#'"), std::string::npos);
    EXPECT_EQ(result.err.find("Expected expression"), std::string::npos);
}

TEST(CheckCommand, JsonFormatWritesOneObjectPerDiagnosticAndNoSummary) {
    TempDir dir;
    std::string path = dir.write("lexical.quor", LEXICAL_ERROR);
    CommandRun result = run(runCheck, {"--format", "json", path});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "{\"file\":\"" + path +
                              "\",\"line\":1,\"column\":11,\"code\":\"E1000\",\"message\":\"Unexpected character: "
                              "'#'\",\"hint\":\"Remove or replace the invalid character\"}\n");
    EXPECT_EQ(result.err, "");
}

TEST(CheckCommand, GithubFormatWritesOneAnnotationPerDiagnostic) {
    TempDir dir;
    std::string path = dir.write("lexical.quor", LEXICAL_ERROR);
    CommandRun result = run(runCheck, {"--format=github", path});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "::error file=" + path +
                              ",line=1,col=11,title=E1000::Unexpected character: '#' (Remove or replace the "
                              "invalid character)\n");
    EXPECT_EQ(result.err, "");
}

TEST(CheckCommand, DirectoriesAreSearchedRecursivelyForQuorFilesInSortedOrder) {
    TempDir dir;
    for (const char* name : {"b.quor", "a/z.quor", "a/deep/x.quor", "a/c.quor", "notes.txt", "a/quor"}) {
        dir.write(name, "#\n");
    }
    CommandRun result = run(runCheck, {"--format=json", dir.root});
    EXPECT_EQ(result.status, 1);
    std::vector<std::string> expected = {dir.path("a/c.quor"), dir.path("a/deep/x.quor"), dir.path("a/z.quor"),
                                         dir.path("b.quor")};
    EXPECT_EQ(filesOfJsonLines(result.out), expected);
}

TEST(CheckCommand, AFileNamedOnTheCommandLineIsCheckedWhateverItsExtension) {
    TempDir dir;
    std::string path = dir.write("script.txt", "#\n");
    EXPECT_EQ(filesOfJsonLines(run(runCheck, {"--format=json", path}).out), std::vector<std::string>{path});
}

TEST(CheckCommand, OutputIsTheSameBytesWhateverTheNumberOfWorkers) {
    TempDir dir;
    for (int i = 0; i < 40; ++i) {
        std::string text = i % 3 == 0 ? "fn f() { let x = ; }\n" : i % 3 == 1 ? "let y = 1 # 2 $ 3;\n" : CLEAN_SOURCE;
        dir.write("dir" + std::to_string(i % 4) + "/file" + std::to_string(i) + ".quor", text);
    }
    CommandRun single = run(runCheck, {"-j", "1", dir.root});
    for (const char* jobs : {"-j2", "-j3", "-j8"}) {
        CommandRun parallel = run(runCheck, {jobs, dir.root});
        EXPECT_EQ(parallel.err, single.err) << jobs;
        EXPECT_EQ(parallel.status, single.status) << jobs;
    }
    EXPECT_NE(single.err.find(" errors in 27 of 40 files\n"), std::string::npos) << single.err;
}

TEST(CheckCommand, AnUnreadablePathIsReportedWithStatusTwoAndTheOthersAreStillChecked) {
    TempDir dir;
    std::string missing = dir.path("missing.quor");
    std::string present = dir.write("present.quor", LEXICAL_ERROR);
    CommandRun result = run(runCheck, {missing, present});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "quor: cannot read '" + missing + "': No such file or directory\n" + expectedPlain(present) +
                              "1 error in 1 of 1 file\n");
}

TEST(CheckCommand, UsageErrorsGiveStatusTwoAndSayWhy) {
    struct Case {
        quor::cli::Arguments args;
        std::string reason;
    };
    const Case cases[] = {
        {{}, "expected at least one file or directory"},
        {{"--format", "xml", "a.quor"}, "--format expects text, json or github"},
        {{"--color=sometimes", "a.quor"}, "--color expects auto, always or never"},
        {{"-j", "0", "a.quor"}, "-j expects a number from 1 to 1024"},
        {{"-jx", "a.quor"}, "-j expects a number from 1 to 1024"},
        {{"a.quor", "-j"}, "-j expects a number from 1 to 1024"},
        {{"--strict", "a.quor"}, "unknown option '--strict'"},
    };
    for (const Case& c : cases) {
        CommandRun result = run(runCheck, c.args);
        EXPECT_EQ(result.status, 2) << c.reason;
        EXPECT_EQ(result.err.substr(0, result.err.find('\n')), "quor check: " + c.reason);
        EXPECT_EQ(result.out, "");
    }
}

namespace {

struct DeepCheck {
    std::string source;
    std::string json;
};

void* checkOnThisThread(void* argument) {
    auto& check = *static_cast<DeepCheck*>(argument);
    std::ostream discard(nullptr);
    quor::diagnostics::DiagnosticEngine engine(discard);
    quor::frontend::runFrontEnd(check.source, "deep.quor", engine);
    std::ostringstream json;
    for (const auto& diagnostic : engine.getDiagnostics()) quor::cli::writeJsonLine(diagnostic, json);
    check.json = json.str();
    return nullptr;
}

// The JSON lines the front end gives for `source` on a thread with a stack of `stackSize` bytes.
std::string checkOnStack(const std::string& source, std::size_t stackSize) {
    DeepCheck check{source, ""};
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, stackSize);
    pthread_t thread;
    if (pthread_create(&thread, &attributes, checkOnThisThread, &check) == 0) pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    return check.json;
}

}  // namespace

TEST(CheckCommand, DeepSourcesAreReportedAsOnTheServersLargeStack) {
    std::string source = "let x = " + std::string(200000, '!') + "true;\n";
    std::string onServerStack = checkOnStack(source, std::size_t{1} << 30);
    std::string onSmallStack = checkOnStack(source, std::size_t{8} << 20);
    ASSERT_NE(onServerStack, onSmallStack) << "the source must be deep enough for the stack size to matter";

    TempDir dir;
    std::string path = dir.write("deep.quor", source);
    CommandRun result = run(runCheck, {"--format=json", "-j2", path});
    std::string expected = onServerStack;
    for (std::size_t at = 0; (at = expected.find("deep.quor", at)) != std::string::npos; at += path.size()) {
        expected.replace(at, 9, path);
    }
    EXPECT_EQ(result.out, expected);
}
