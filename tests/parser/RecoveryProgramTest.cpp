#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace {

using namespace quor::ast;
using quor::lexer::TokenType;
using quor::parser::testing::ParseRun;
using quor::parser::testing::show;
using quor::parser::testing::tok;

using Messages = std::vector<std::string>;

TEST(RecoveryProgram, VectorWithOnlyTheEndTokenGivesAnEmptyProgram) {
    ParseRun run(std::vector<quor::lexer::Token>{tok(TokenType::EndOfFile, "", 3, 7)});
    auto program = run.program();
    ASSERT_NE(program, nullptr);
    EXPECT_EQ(program->nodeKind, NodeKind::Program);
    EXPECT_TRUE(program->declarations.empty());
    EXPECT_EQ(program->location.line, 3u);
    EXPECT_EQ(program->location.column, 7u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(RecoveryProgram, EmptySourceGivesAnEmptyProgramAtTheEndToken) {
    ParseRun run("  \n  ");
    auto program = run.program();
    EXPECT_TRUE(program->declarations.empty());
    EXPECT_EQ(program->location.file, "test.qr");
    EXPECT_EQ(program->location.line, run.tokens.back().location.line);
    EXPECT_EQ(program->location.column, run.tokens.back().location.column);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(RecoveryProgram, StraySemicolonsAtTopLevelAreSkippedSilently) {
    ParseRun run(";;;");
    auto program = run.program();
    EXPECT_TRUE(program->declarations.empty());
    EXPECT_TRUE(run.diagnostics().empty());
    EXPECT_TRUE(run.access().isAtEnd());
}

TEST(RecoveryProgram, ProgramStandsAtItsFirstToken) {
    ParseRun run("\n\n   ;fn main() {}");
    auto program = run.program();
    EXPECT_EQ(program->location.line, 3u);
    EXPECT_EQ(program->location.column, 4u);  // the semicolon, skipped or not
    EXPECT_EQ(program->declarations.size(), 1u);
}

TEST(RecoveryProgram, ProgramHoldsNoNullDeclarations) {
    ParseRun run("; ) ] } ; x; ;");
    auto program = run.program();
    for (const auto& declaration : program->declarations) EXPECT_NE(declaration, nullptr);
    EXPECT_FALSE(run.diagnostics().empty());
    EXPECT_TRUE(run.access().isAtEnd());
}

TEST(RecoveryProgram, AnErrorDoesNotStopTheParse) {
    ParseRun run("fn a() { x = ; }\nfn b() { return 1; }");
    auto program = run.program();
    ASSERT_EQ(program->declarations.size(), 2u);
    EXPECT_EQ(program->declarations[1]->nodeKind, NodeKind::FunctionDecl);
    ASSERT_FALSE(run.diagnostics().empty());
    EXPECT_EQ(run.diagnostics()[0].message, "Expected expression, found: ;");
}

TEST(RecoveryProgram, ComparisonStatementTriedAsATypeRewindsWithTwoReports) {
    ParseRun run("a < 5;");
    auto statement = run.access().parseStatement();
    EXPECT_EQ(show(statement.get()), "(expr (< a 5))");
    EXPECT_EQ(run.messages(), (Messages{"Expected type name", "Expected '>' after generic type arguments"}));
    EXPECT_EQ(run.diagnostics()[0].location.column, 5u);
    EXPECT_EQ(run.diagnostics()[1].location.column, 5u);
    EXPECT_TRUE(run.access().isAtEnd());
}

TEST(RecoveryProgram, DoubleClosingBracketInADeclarationEndsPromptly) {
    ParseRun run("fn f() { List<List<int>> x = 1; }\nfn g() {}");
    auto program = run.program();
    ASSERT_FALSE(run.diagnostics().empty());
    EXPECT_EQ(run.diagnostics()[0].message, "Expected type name");
    EXPECT_EQ(run.diagnostics()[0].location.column, 23u);
    EXPECT_LE(run.diagnostics().size(), 12u);
    EXPECT_TRUE(run.access().isAtEnd());
}

// Half-typed and garbled sources must always come back with a tree.
TEST(RecoveryProgram, GarbledSourcesAlwaysFinish) {
    const char* const sources[] = {
        "(",         ")",           "[",         "{",          "<",          ">>",        "fn",
        "fn (",      "class",       "class A {", "x.",         "x?.",        "new",       "new <",
        "f<",        "f<int",       "f<int>",    "f<int>(",    "(int",       "(int a,",   "(a) =>",
        "x =>",      "{1:",         "{1,",       "[1,",        "a ? b",      "a ? b :",   "\"${",
        "\"${x",     "\"${}\"",     "List<",     "List<List<", "a < b < c",  "int[",      "x = = =",
        "} } }",     "@@@",         "1 2 3",     "++",         "-",          "!",         "a..",
        "List<1>>",  "Map<, , >",   "{a: 1, b}", "(, )",       "((((",       "x[",        "new A<>",
    };
    for (const char* source : sources) {
        ParseRun run(source);
        auto program = run.program();
        ASSERT_NE(program, nullptr) << source;
        EXPECT_TRUE(run.access().isAtEnd()) << source;
    }
}

TEST(RecoveryProgram, EveryByteAloneFinishes) {
    for (int byte = 1; byte < 256; ++byte) {
        std::string source = "x = ";
        source.push_back(static_cast<char>(byte));
        source.append(" y");
        ParseRun run(source);
        auto program = run.program();
        ASSERT_NE(program, nullptr) << byte;
    }
}

TEST(RecoveryProgram, LongFlatInputFinishes) {
    std::string source = "fn main() { x = 0";
    for (int i = 0; i < 20000; ++i) source.append(" + 1");
    source.append("; }");
    ParseRun run(source);
    auto program = run.program();
    EXPECT_EQ(program->declarations.size(), 1u);
    EXPECT_TRUE(run.diagnostics().empty());
}

std::string nested(int depth, const char* open, const char* inner, const char* close) {
    std::string text;
    for (int i = 0; i < depth; ++i) text.append(open);
    text.append(inner);
    for (int i = 0; i < depth; ++i) text.append(close);
    return text;
}

TEST(RecoveryProgram, DeepButReasonableNestingParsesWithoutReports) {
    std::string source = "fn main() { x = ";
    source.append(nested(1000, "(", "1", ")"));
    source.append("; y = ");
    source.append(nested(1000, "-", "1", ""));
    source.append("; List<");
    source.append(nested(200, "List<", "int", "> "));
    source.append("> z; }");
    ParseRun run(source);
    auto program = run.program();
    EXPECT_EQ(program->declarations.size(), 1u);
    EXPECT_TRUE(run.diagnostics().empty());
}

TEST(RecoveryProgram, NestingBeyondTheBudgetIsReportedOnceAndTheNextDeclarationSurvives) {
    const std::string shapes[] = {
        nested(100000, "(", "1", ")"),
        nested(100000, "[", "1", "]"),
        nested(100000, "-", "1", ""),
        nested(100000, "a = ", "1", ""),
    };
    for (const std::string& shape : shapes) {
        std::string source = "x = ";
        source.append(shape);
        source.append(";\nfn after() {}");
        ParseRun run(source);
        auto program = run.program();
        ASSERT_EQ(run.diagnostics().size(), 1u);
        EXPECT_EQ(run.diagnostics()[0].code, "E1000");
        EXPECT_EQ(run.diagnostics()[0].message, "Source nested too deeply");
        EXPECT_EQ(run.diagnostics()[0].hint, "");
        EXPECT_EQ(run.diagnostics()[0].location.line, 1u);
        ASSERT_EQ(program->declarations.size(), 1u);
        EXPECT_EQ(program->declarations[0]->nodeKind, NodeKind::FunctionDecl);
    }
}

TEST(RecoveryProgram, TypeNestedBeyondTheBudgetIsReportedOnce) {
    std::string source = "fn f(";
    source.append(nested(100000, "List<", "int", "> "));
    source.append(" a) {}\nfn after() {}");
    ParseRun run(source);
    auto program = run.program();
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Source nested too deeply");
    ASSERT_FALSE(program->declarations.empty());
    EXPECT_EQ(program->declarations.back()->nodeKind, NodeKind::FunctionDecl);
}

TEST(RecoveryProgram, NestingTooDeepInsideAnInterpolationIsReportedAtThePiece) {
    std::string source = "x = \"${";
    source.append(nested(100000, "(", "1", ")"));
    source.append("}\";\nfn after() {}");
    ParseRun run(source);
    auto program = run.program();
    ASSERT_EQ(run.diagnostics().size(), 1u);
    EXPECT_EQ(run.diagnostics()[0].message, "Source nested too deeply");
    EXPECT_EQ(run.diagnostics()[0].location.file, "<anonymous>");
    ASSERT_EQ(program->declarations.size(), 1u);
    EXPECT_EQ(program->declarations[0]->nodeKind, NodeKind::FunctionDecl);
}

}  // namespace
