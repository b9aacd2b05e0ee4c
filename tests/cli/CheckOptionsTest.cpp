#include <gtest/gtest.h>

#include "cli/CheckOptions.h"
#include "cli/Summary.h"

using quor::cli::CheckOptions;
using quor::cli::CheckTally;
using quor::cli::ColourChoice;
using quor::cli::ReportFormat;

namespace {

CheckOptions parsed(const quor::cli::Arguments& args) {
    CheckOptions options;
    std::string error;
    EXPECT_TRUE(quor::cli::parseCheckOptions(args, options, error)) << error;
    return options;
}

}  // namespace

TEST(CheckOptions, DefaultsAreTextAutoColourAndOneWorkerPerCore) {
    CheckOptions options = parsed({"src"});
    EXPECT_EQ(options.format, ReportFormat::Text);
    EXPECT_EQ(options.colour, ColourChoice::Auto);
    EXPECT_EQ(options.jobs, 0u);
    EXPECT_EQ(options.paths, std::vector<std::string>{"src"});
}

TEST(CheckOptions, ValuesMayFollowSeparatelyOrBehindAnEqualsSign) {
    using quor::cli::Arguments;
    const Arguments forms[] = {
        {"--format", "github", "--color", "always", "-j", "3", "a"},
        {"--format=github", "--color=always", "-j3", "a"},
        {"a", "--jobs=3", "--format=github", "--color=always"},
        {"--jobs", "3", "a", "--format=github", "--color=always"},
    };
    for (const Arguments& args : forms) {
        CheckOptions options = parsed(args);
        EXPECT_EQ(options.format, ReportFormat::Github);
        EXPECT_EQ(options.colour, ColourChoice::Always);
        EXPECT_EQ(options.jobs, 3u);
        EXPECT_EQ(options.paths, std::vector<std::string>{"a"});
    }
}

TEST(CheckOptions, PathsKeepTheirOrderAndDoubleDashEndsTheOptions) {
    CheckOptions options = parsed({"b", "a", "--", "-j", "--format=json"});
    EXPECT_EQ(options.paths, (std::vector<std::string>{"b", "a", "-j", "--format=json"}));
    EXPECT_EQ(options.format, ReportFormat::Text);
}

TEST(CheckOptions, ALoneDashIsAPath) {
    EXPECT_EQ(parsed({"-"}).paths, std::vector<std::string>{"-"});
}

TEST(CheckOptions, JobsAreBoundedAndMustBeWholeNumbers) {
    EXPECT_EQ(parsed({"-j1024", "a"}).jobs, 1024u);
    for (const char* jobs : {"-j1025", "-j0", "-j-1", "-j2x", "-j", "-j99999999999999999999"}) {
        CheckOptions options;
        std::string error;
        EXPECT_FALSE(quor::cli::parseCheckOptions({jobs, "a"}, options, error)) << jobs;
    }
}

TEST(CheckSummary, CountsAreWrittenWithSingularAndPlural) {
    CheckTally tally;
    EXPECT_EQ(quor::cli::summaryLine(tally), "0 errors in 0 of 0 files");
    tally.count(1);
    EXPECT_EQ(quor::cli::summaryLine(tally), "1 error in 1 of 1 file");
    tally.count(0);
    tally.count(4);
    EXPECT_EQ(quor::cli::summaryLine(tally), "5 errors in 2 of 3 files");
}

TEST(CheckSummary, ExitStatusIsTwoForUnreadablePathsThenOneForErrors) {
    CheckTally tally;
    tally.count(0);
    EXPECT_EQ(tally.exitStatus(), 0);
    tally.count(2);
    EXPECT_EQ(tally.exitStatus(), 1);
    tally.unreadable = 1;
    EXPECT_EQ(tally.exitStatus(), 2);
}
