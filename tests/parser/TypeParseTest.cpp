#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace {

using quor::lexer::TokenType;
using quor::parser::testing::ParseRun;

using Messages = std::vector<std::string>;

// Reads one type from the start of `source`; returns its text.
std::string typeText(ParseRun& run) { return run.access().parseType(); }

TEST(TypeParse, KeywordAloneIsItsOwnText) {
    ParseRun run("void");
    EXPECT_EQ(typeText(run), "void");
    EXPECT_TRUE(run.access().isAtEnd());
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(TypeParse, GenericArrayAndNullableMarksKeepTheirCanonicalText) {
    ParseRun run("Map<string, int[]>?");
    EXPECT_EQ(typeText(run), "Map<string, int[]>?");
    EXPECT_TRUE(run.access().isAtEnd());
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(TypeParse, BlanksAreNormalisedToOneAfterEachComma) {
    ParseRun tight("Map<string,int>");
    EXPECT_EQ(typeText(tight), "Map<string, int>");
    ParseRun loose("Map < string ,   List < int > [ ] > ?");
    EXPECT_EQ(typeText(loose), "Map<string, List<int>[]>?");
    EXPECT_TRUE(loose.diagnostics().empty());
}

TEST(TypeParse, NamedTypeHead) {
    ParseRun run("Point rest");
    EXPECT_EQ(typeText(run), "Point");
    EXPECT_EQ(run.access().peek().lexeme, "rest");
}

TEST(TypeParse, SeveralArrayMarks) {
    ParseRun run("int[][]");
    EXPECT_EQ(typeText(run), "int[][]");
    EXPECT_TRUE(run.access().isAtEnd());
}

TEST(TypeParse, NullableArrayReadsArrayMarksFirst) {
    ParseRun run("int[]?");
    EXPECT_EQ(typeText(run), "int[]?");
    EXPECT_TRUE(run.access().isAtEnd());
}

TEST(TypeParse, ArrayMarkBehindTheNullableMarkStaysUnread) {
    ParseRun run("int?[]");
    EXPECT_EQ(typeText(run), "int?");
    EXPECT_TRUE(run.access().check(TokenType::LeftBracket));
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(TypeParse, OnlyOneNullableMark) {
    ParseRun run("int??");
    // The scanner reads "??" as one token, which is no nullable mark.
    EXPECT_EQ(typeText(run), "int");
    ParseRun spaced("int? ?");
    EXPECT_EQ(typeText(spaced), "int?");
    EXPECT_TRUE(spaced.access().check(TokenType::Question));
}

TEST(TypeParse, BracketWithContentStaysUnread) {
    ParseRun run("int[5]");
    EXPECT_EQ(typeText(run), "int");
    EXPECT_TRUE(run.access().check(TokenType::LeftBracket));
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(TypeParse, QualifiedNameStopsAtTheDot) {
    ParseRun run("a.b");
    EXPECT_EQ(typeText(run), "a");
    EXPECT_TRUE(run.access().check(TokenType::Dot));
}

TEST(TypeParse, MissingHeadReportsAndConsumesNothing) {
    ParseRun run("  fn");
    EXPECT_EQ(typeText(run), "unknown");
    EXPECT_EQ(run.access().current(), 0u);
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].code, "E1000");
    EXPECT_EQ(run.diagnostics()[0].message, "Expected type name");
    EXPECT_EQ(run.diagnostics()[0].hint, "");
    EXPECT_EQ(run.diagnostics()[0].location.column, 3u);
}

TEST(TypeParse, MissingHeadAtTheEndReportsAtTheEndToken) {
    ParseRun run("   ");
    EXPECT_EQ(typeText(run), "unknown");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Expected type name");
    EXPECT_EQ(run.diagnostics()[0].location.column, 4u);
}

TEST(TypeParse, MissingCommaBetweenArgumentsIsAcceptedSilently) {
    ParseRun run("Map<int string>");
    EXPECT_EQ(typeText(run), "Map<intstring>");
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(TypeParse, NestedArgumentsClosedWithABlankBetweenTheBrackets) {
    ParseRun run("List<List<int> >");
    EXPECT_EQ(typeText(run), "List<List<int>>");
    EXPECT_TRUE(run.access().isAtEnd());
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(TypeParse, UnclosedArgumentsAtTheEndReportAtTheEndToken) {
    ParseRun run("List<int");
    EXPECT_EQ(typeText(run), "List<int>");
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Expected '>' after generic type arguments");
    EXPECT_EQ(run.diagnostics()[0].location.column, 9u);
}

TEST(TypeParse, EmptyArgumentBeforeACommaIsReportedAndTheLoopGoesOn) {
    ParseRun run("Map<, int>");
    EXPECT_EQ(typeText(run), "Map<unknown, int>");
    EXPECT_EQ(run.messages(), Messages{"Expected type name"});
    EXPECT_EQ(run.diagnostics()[0].location.column, 5u);
    EXPECT_TRUE(run.access().isAtEnd());
}

TEST(TypeParse, EmptyArgumentList) {
    ParseRun run("List<>");
    EXPECT_EQ(typeText(run), "List<unknown>");
    EXPECT_EQ(run.messages(), Messages{"Expected type name"});
    EXPECT_TRUE(run.access().isAtEnd());
}

// When the argument loop stands on a token that can't start a type, the
// inner read consumes nothing; the loop then ends there, and the missing
// '>' is reported at that same token.
TEST(TypeParse, ArgumentThatCannotStartATypeEndsTheLoopWithTwoReports) {
    ParseRun run("List<1> x");
    EXPECT_EQ(typeText(run), "List<unknown>");
    EXPECT_EQ(run.messages(), (Messages{"Expected type name", "Expected '>' after generic type arguments"}));
    EXPECT_EQ(run.diagnostics()[0].location.column, 6u);
    EXPECT_EQ(run.diagnostics()[1].location.column, 6u);
    EXPECT_EQ(run.access().peek().lexeme, "1");
}

TEST(TypeParse, DoubleClosingBracketEndsPromptlyWithFourReports) {
    // ">>" is one token and closes nothing: each of the two argument loops
    // stops at it with its own pair of reports.
    ParseRun run("List<List<int>> x");
    EXPECT_EQ(typeText(run), "List<List<intunknown>unknown>");
    EXPECT_EQ(run.messages(), (Messages{"Expected type name", "Expected '>' after generic type arguments",
                                        "Expected type name", "Expected '>' after generic type arguments"}));
    for (const auto& diagnostic : run.diagnostics()) EXPECT_EQ(diagnostic.location.column, 14u);
    EXPECT_TRUE(run.access().check(TokenType::GreaterGreater));
}

TEST(TypeParse, ComparisonReadAsATypeEndsPromptly) {
    ParseRun run("a < 5;");
    EXPECT_EQ(typeText(run), "a<unknown>");
    EXPECT_EQ(run.messages(), (Messages{"Expected type name", "Expected '>' after generic type arguments"}));
    EXPECT_EQ(run.diagnostics()[0].location.column, 5u);
    EXPECT_EQ(run.access().peek().lexeme, "5");
}

TEST(TypeParse, TypeKeywordHeadsOfEveryKind) {
    const char* const words[] = {"void",   "int",    "uint",   "int8",   "int16", "int32",
                                 "int64",  "uint8",  "uint16", "uint32", "uint64", "float",
                                 "double", "bool",   "char",   "string", "byte"};
    for (const char* word : words) {
        ParseRun run(word);
        EXPECT_EQ(typeText(run), word);
        EXPECT_TRUE(run.diagnostics().empty()) << word;
    }
}

}  // namespace
