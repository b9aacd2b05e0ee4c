// The checker's releasing walk: each block body of a top-level function or
// a method is freed as soon as its function has been checked, and the
// reports are those of the walk that keeps everything. (Every program the
// semantic tests analyse through analyzeSource is also compared both ways.)
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

const ast::FunctionDecl& functionAt(const ast::Program& program, std::size_t index) {
    return static_cast<const ast::FunctionDecl&>(*program.declarations.at(index));
}

const ast::ClassDecl& classAt(const ast::Program& program, std::size_t index) {
    return static_cast<const ast::ClassDecl&>(*program.declarations.at(index));
}

const char* const DECLARATIONS =
    "class Counter {\n"
    "    public int count = 0;\n"
    "    public fn step(by: int): int {\n"
    "        return this.count + by;\n"
    "    }\n"
    "}\n"
    "fn twice(x: int): int {\n"
    "    return x * 2;\n"
    "}\n"
    "fn half(x: int) => x / 2;\n";

TEST(ReleasingBodies, FunctionAndMethodBodiesAreFreedAndDeclarationsStay) {
    Analysis analysis(DECLARATIONS);
    EXPECT_TRUE(analysis.analyzer->analyzeReleasingBodies(*analysis.program)) << analysis.describeAll();

    const ast::ClassDecl& counter = classAt(*analysis.program, 0);
    ASSERT_EQ(counter.members.size(), 2u);
    const auto& field = static_cast<const ast::VarDeclStmt&>(*counter.members[0]);
    EXPECT_NE(field.initializer, nullptr);
    const auto& step = static_cast<const ast::FunctionDecl&>(*counter.members[1]);
    EXPECT_EQ(step.body, nullptr);
    EXPECT_EQ(step.name, "step");
    ASSERT_EQ(step.params.size(), 1u);
    EXPECT_EQ(step.params[0].type, "int");
    EXPECT_EQ(step.returnType, "int");

    const ast::FunctionDecl& twice = functionAt(*analysis.program, 1);
    EXPECT_EQ(twice.body, nullptr);
    EXPECT_EQ(twice.name, "twice");
    EXPECT_EQ(twice.returnType, "int");

    // A short form keeps its expression; the checker may read it twice.
    const ast::FunctionDecl& half = functionAt(*analysis.program, 2);
    EXPECT_NE(half.exprBody, nullptr);
    EXPECT_EQ(half.returnType, "int");
}

TEST(ReleasingBodies, ThePlainAnalysisKeepsEveryBody) {
    Analysis analysis(DECLARATIONS);
    analysis.analyze();
    EXPECT_NE(functionAt(*analysis.program, 1).body, nullptr);
    const ast::ClassDecl& counter = classAt(*analysis.program, 0);
    EXPECT_NE(static_cast<const ast::FunctionDecl&>(*counter.members[1]).body, nullptr);
}

// The record of expression types is kept by the plain walk only: the
// releasing walk's keys would name nodes it has freed.
TEST(ReleasingBodies, OnlyThePlainAnalysisRecordsExpressionTypes) {
    Analysis plain(DECLARATIONS);
    plain.analyze();
    EXPECT_FALSE(plain.analyzer->checker.exprTypes.empty());

    Analysis releasing(DECLARATIONS);
    releasing.analyzeReleasingBodies();
    EXPECT_TRUE(releasing.analyzer->checker.exprTypes.empty());
    EXPECT_EQ(releasing.records(), plain.records());
}

// Programs whose reports must not change when bodies are freed, and how
// many reports each has.
struct SameReports {
    const char* what;
    const char* source;
    std::size_t reports;
};

const SameReports SAME_REPORTS[] = {
    // What later code reads of an earlier declaration: a function's
    // signature for a call, a generic class's methods for its
    // specialisation, a short form's inferred result, an overload set, and
    // a method through a subclass. Its body is gone by then.
    {"later code reads only signatures",
     "class Box<T> {\n"
     "    public T value;\n"
     "    public fn get(): T {\n"
     "        return this.value;\n"
     "    }\n"
     "}\n"
     "class Base {\n"
     "    public fn size(): int {\n"
     "        return 1;\n"
     "    }\n"
     "}\n"
     "class Derived extends Base {\n"
     "}\n"
     "fn label(n: int): string {\n"
     "    return \"n\";\n"
     "}\n"
     "fn label(s: string): string {\n"
     "    return s;\n"
     "}\n"
     "fn inferred(x: int) => x + 1;\n"
     "fn use(): int {\n"
     "    let box: Box<int> = new Box<int>();\n"
     "    let fromBox: string = box.get();\n"
     "    let fromLabel: int = label(3);\n"
     "    let fromShort: string = inferred(2);\n"
     "    let fromBase: string = new Derived().size();\n"
     "    return 0;\n"
     "}\n",
     4},
    // A body whose check reports still reports everything before it is
    // freed, and the functions after it are checked as usual.
    {"reports from inside a freed body",
     "fn first(): int {\n"
     "    let s: string = 5;\n"
     "    return \"x\";\n"
     "}\n"
     "fn second(): bool {\n"
     "    while (1) {\n"
     "    }\n"
     "}\n",
     4},
};

TEST(ReleasingBodies, FreeingTheCheckedBodiesLeavesTheReportsAsTheyAre) {
    for (const SameReports& program : SAME_REPORTS) {
        Analysis keeping(program.source);
        keeping.analyze();
        Analysis releasing(program.source);
        releasing.analyzeReleasingBodies();
        EXPECT_EQ(releasing.records(), keeping.records()) << program.what;
        EXPECT_EQ(releasing.records().size(), program.reports) << program.what << "\n" << releasing.describeAll();
    }
}

// The functions of an extern block, a block at the top level, are checked
// and freed too.
TEST(ReleasingBodies, FunctionsOfAnExternBlockAreFreed) {
    const std::string source =
        "extern {\n"
        "    fn inner(): int {\n"
        "        return 1;\n"
        "    }\n"
        "}\n";
    Analysis analysis(source);
    ASSERT_EQ(analysis.program->declarations.size(), 1u);
    ASSERT_EQ(analysis.program->declarations[0]->nodeKind, ast::NodeKind::BlockStmt);
    analysis.analyzeReleasingBodies();
    const auto& block = static_cast<const ast::BlockStmt&>(*analysis.program->declarations[0]);
    ASSERT_EQ(block.statements.size(), 1u);
    EXPECT_EQ(static_cast<const ast::FunctionDecl&>(*block.statements[0]).body, nullptr);
}

// Name errors stop the analysis before the checker: nothing is freed.
TEST(ReleasingBodies, ANameErrorLeavesTheBodiesInPlace) {
    const std::string source =
        "class A extends Nowhere {\n"
        "}\n"
        "fn f(): int {\n"
        "    return 1;\n"
        "}\n";
    Analysis analysis(source);
    EXPECT_FALSE(analysis.analyzer->analyzeReleasingBodies(*analysis.program));
    EXPECT_NE(functionAt(*analysis.program, 1).body, nullptr);
}

}  // namespace
}  // namespace quor::sema::testing
