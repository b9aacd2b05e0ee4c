#include <gtest/gtest.h>

#include "e2e/ServerProcess.h"

using quor::e2e::frame;
using quor::e2e::ProcessResult;
using quor::e2e::expectCleanExit;
using quor::e2e::runServer;

namespace {

const std::string VERSION_OUTPUT =
    "quorls (Quor Language Server) version 1.0.0\n"
    "Copyright (c) 2026 The quorls developers\n";

const std::string HELP_OUTPUT =
    "Usage: quorls [options]\n\n"
    "Options:\n"
    "  -v, --version  Display language server version\n"
    "  -h, --help     Display this help message\n\n"
    "quorls operates as a Language Server Protocol (LSP) daemon communicating over stdio.\n";


}  // namespace

TEST(CommandLine, LongVersionSwitchPrintsTwoLines) {
    ProcessResult result = runServer("", {"--version"});
    expectCleanExit(result);
    EXPECT_EQ(result.out, VERSION_OUTPUT);
}

TEST(CommandLine, ShortVersionSwitchPrintsTwoLines) {
    ProcessResult result = runServer("", {"-v"});
    expectCleanExit(result);
    EXPECT_EQ(result.out, VERSION_OUTPUT);
}

TEST(CommandLine, VersionSwitchDoesNotReadInput) {
    ProcessResult result = runServer(frame(R"({"id":1,"method":"x"})"), {"-v"});
    expectCleanExit(result);
    EXPECT_EQ(result.out, VERSION_OUTPUT);
}

TEST(CommandLine, LongHelpSwitchPrintsUsage) {
    ProcessResult result = runServer("", {"--help"});
    expectCleanExit(result);
    EXPECT_EQ(result.out, HELP_OUTPUT);
}

TEST(CommandLine, ShortHelpSwitchPrintsUsage) {
    ProcessResult result = runServer("", {"-h"});
    expectCleanExit(result);
    EXPECT_EQ(result.out, HELP_OUTPUT);
}

TEST(CommandLine, OnlyTheFirstArgumentIsLookedAt) {
    ProcessResult result = runServer("", {"-h", "-v"});
    expectCleanExit(result);
    EXPECT_EQ(result.out, HELP_OUTPUT);
}

TEST(CommandLine, VersionSwitchAsSecondArgumentStartsTheServer) {
    ProcessResult result = runServer(frame(R"({"id":1,"method":"x"})"), {"--stdio", "-v"});
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(R"({"id":1,"jsonrpc":"2.0","result":null})"));
}

TEST(CommandLine, SwitchesCompareWholeArguments) {
    for (const char* argument : {"-version", "--v", "-vv", "--HELP", "-H", ""}) {
        ProcessResult result = runServer(frame(R"({"id":1,"method":"x"})"), {argument});
        expectCleanExit(result);
        EXPECT_EQ(result.out, frame(R"({"id":1,"jsonrpc":"2.0","result":null})")) << "argument: " << argument;
    }
}

TEST(CommandLine, NoArgumentsStartsTheServer) {
    ProcessResult result = runServer(frame(R"({"id":"a","method":"x"})"));
    expectCleanExit(result);
    EXPECT_EQ(result.out, frame(R"({"id":"a","jsonrpc":"2.0","result":null})"));
}
