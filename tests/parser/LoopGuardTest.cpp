// Every grammar loop makes progress. A loop whose iteration read nothing
// skips the token it stands on after its reports, so each stray token costs
// its reports once; loops that move on by themselves keep their own
// reports unchanged.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parser/ParserTestSupport.h"

namespace quor::parser::testing {
namespace {

struct Report {
    std::string message;
    std::uint32_t column;
};

struct Parsed {
    explicit Parsed(std::string_view source) : run(source), program(run.program()) {}

    template <class T>
    const T* get(std::size_t index = 0) const {
        if (index >= program->declarations.size()) return nullptr;
        return dynamic_cast<const T*>(program->declarations[index].get());
    }

    // All reports must be on line 1; an end-of-input report uses column 0
    // here and is compared with the EndOfFile token's place.
    void expectReports(const std::vector<Report>& expected) const {
        const auto& actual = run.diagnostics();
        ASSERT_EQ(actual.size(), expected.size());
        const auto& end = run.tokens.back().location;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(actual[i].message, expected[i].message) << "report " << i;
            EXPECT_EQ(actual[i].code, "E1000") << "report " << i;
            EXPECT_EQ(actual[i].hint, "") << "report " << i;
            const std::uint32_t column = expected[i].column == 0 ? end.column : expected[i].column;
            EXPECT_EQ(actual[i].location.line, 1u) << "report " << i;
            EXPECT_EQ(actual[i].location.column, column) << "report " << i;
        }
    }

    ParseRun run;
    std::unique_ptr<ast::Program> program;
};

constexpr std::uint32_t AT_END = 0;

TEST(LoopGuard, StructFieldLoopSkipsATokenThatStartsNoField) {
    Parsed p("struct S { int x = 1; }");
    const auto* st = p.get<ast::StructDecl>();
    ASSERT_NE(st, nullptr);
    // `x` is read; `=` and `1` start nothing and are skipped; `;` ends an
    // empty field of its own.
    ASSERT_EQ(st->fields.size(), 2u);
    EXPECT_EQ(st->fields[0]->name, "x");
    EXPECT_EQ(st->fields[0]->typeName, "int");
    EXPECT_EQ(st->fields[1]->name, "");
    EXPECT_EQ(st->fields[1]->typeName, "unknown");
    EXPECT_EQ(p.program->declarations.size(), 1u);
    p.expectReports({
        {"Expected ';' after struct field", 18},
        {"Expected type name", 18},
        {"Expected field name in struct", 18},
        {"Expected ';' after struct field", 18},
        {"Expected type name", 20},
        {"Expected field name in struct", 20},
        {"Expected ';' after struct field", 20},
        {"Expected type name", 21},
        {"Expected field name in struct", 21},
    });
}

TEST(LoopGuard, StructFieldLoopStrayClosingTokens) {
    Parsed p("struct S { ) ] }");
    const auto* st = p.get<ast::StructDecl>();
    ASSERT_NE(st, nullptr);
    EXPECT_TRUE(st->fields.empty());
    p.expectReports({
        {"Expected type name", 12},
        {"Expected field name in struct", 12},
        {"Expected ';' after struct field", 12},
        {"Expected type name", 14},
        {"Expected field name in struct", 14},
        {"Expected ';' after struct field", 14},
    });
}

TEST(LoopGuard, StructFieldLoopAtTheEndOfInputStops) {
    Parsed p("struct S { int x; =");
    const auto* st = p.get<ast::StructDecl>();
    ASSERT_NE(st, nullptr);
    EXPECT_EQ(st->fields.size(), 1u);
    p.expectReports({
        {"Expected type name", 19},
        {"Expected field name in struct", 19},
        {"Expected ';' after struct field", 19},
        {"Expected '}' at end of struct body", AT_END},
    });
}

TEST(LoopGuard, BlockReadsAStrayTokenAsAFailedStatement) {
    Parsed p("{ ] }");
    const auto* block = p.get<ast::BlockStmt>();
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(show(block), "{(expr <null>)}");
    p.expectReports({
        {"Expected expression, found: ]", 3},
        {"Expected ';' after expression", 5},
    });
}

TEST(LoopGuard, ClassBodyReadsAStrayTokenAsAFailedStatement) {
    Parsed p("class A { = }");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    ASSERT_EQ(cls->members.size(), 1u);
    EXPECT_EQ(show(cls->members[0].get()), "(expr <null>)");
    p.expectReports({
        {"Expected expression, found: =", 11},
        {"Expected ';' after expression", 13},
    });
}

TEST(LoopGuard, ExternBlockReadsAStrayTokenAsAFailedStatement) {
    Parsed p("extern { ) }");
    const auto* block = p.get<ast::BlockStmt>();
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(show(block), "{(expr <null>)}");
    p.expectReports({
        {"Expected expression, found: )", 10},
        {"Expected ';' after expression", 12},
    });
}

TEST(LoopGuard, SwitchCaseBodyReadsAStrayTokenAsAFailedStatement) {
    Parsed p("switch (x) { case 1: ] }");
    const auto* sw = p.get<ast::SwitchStmt>();
    ASSERT_NE(sw, nullptr);
    ASSERT_EQ(sw->cases.size(), 1u);
    EXPECT_EQ(sw->cases[0].body.size(), 1u);
    p.expectReports({
        {"Expected expression, found: ]", 22},
        {"Expected ';' after expression", 24},
    });
}

TEST(LoopGuard, SwitchSkipsEachStrayTokenWithOneReport) {
    Parsed p("switch (x) { a b }");
    const auto* sw = p.get<ast::SwitchStmt>();
    ASSERT_NE(sw, nullptr);
    EXPECT_TRUE(sw->cases.empty());
    p.expectReports({
        {"Expected 'case' or 'default' in switch block", 14},
        {"Expected 'case' or 'default' in switch block", 16},
    });
}

TEST(LoopGuard, MatchArmFromAStrayTokenConsumesWhatItReports) {
    Parsed p("match x { ] }");
    const auto* m = p.get<ast::MatchStmt>();
    ASSERT_NE(m, nullptr);
    ASSERT_EQ(m->arms.size(), 1u);
    EXPECT_EQ(m->arms[0].pattern, nullptr);
    EXPECT_EQ(m->arms[0].body, nullptr);
    p.expectReports({
        {"Expected expression, found: ]", 11},
        {"Expected '=>' after match pattern", 13},
        {"Expected expression, found: }", 13},
        {"Expected '}' after match block", AT_END},
    });
}

TEST(LoopGuard, InterfaceSkipsEachStrayTokenWithOneReport) {
    Parsed p("interface I { = 1 }");
    const auto* iface = p.get<ast::InterfaceDecl>();
    ASSERT_NE(iface, nullptr);
    EXPECT_TRUE(iface->methods.empty());
    p.expectReports({
        {"Only method signatures are permitted in interfaces", 15},
        {"Only method signatures are permitted in interfaces", 17},
    });
}

TEST(LoopGuard, EnumVariantLoopLeavesWithoutAComma) {
    Parsed p("enum E { = }");
    const auto* en = p.get<ast::EnumDecl>();
    ASSERT_NE(en, nullptr);
    ASSERT_EQ(en->variants.size(), 1u);
    EXPECT_EQ(en->variants[0].name, "");
    p.expectReports({
        {"Expected enum variant identifier", 10},
        {"Expected expression, found: }", 12},
        {"Expected '}' at end of enum body", AT_END},
    });
}

TEST(LoopGuard, ParameterLoopLeavesWithoutAComma) {
    Parsed p("fn f(1) {}");
    const auto* fn = p.get<ast::FunctionDecl>();
    ASSERT_NE(fn, nullptr);
    ASSERT_EQ(fn->params.size(), 1u);
    EXPECT_EQ(fn->params[0].name, "");
    ASSERT_GE(p.run.diagnostics().size(), 3u);
    EXPECT_EQ(p.run.diagnostics()[0].message, "Expected parameter name");
    EXPECT_EQ(p.run.diagnostics()[0].location.column, 6u);
    EXPECT_EQ(p.run.diagnostics()[1].message, "Expected ')' to end parameter list");
    EXPECT_EQ(p.run.diagnostics()[1].location.column, 6u);
    EXPECT_EQ(p.run.diagnostics()[2].message, "Expected '{' or '=>' for function body");
    EXPECT_EQ(p.run.diagnostics()[2].location.column, 6u);
}

TEST(LoopGuard, ImportPathLoopMovesOnEachDot) {
    Parsed p("import a. .b;");
    const auto* imp = p.get<ast::ImportDecl>();
    ASSERT_NE(imp, nullptr);
    EXPECT_EQ(imp->path, "a..b");
    p.expectReports({
        {"Expected identifier after '.' in import path", 11},
    });
}

TEST(LoopGuard, TypeParameterLoopMovesOnEachComma) {
    Parsed p("fn f<T,,U>() {}");
    const auto* fn = p.get<ast::FunctionDecl>();
    ASSERT_NE(fn, nullptr);
    ASSERT_EQ(fn->typeParams.size(), 3u);
    EXPECT_EQ(fn->typeParams[1], "");
    p.expectReports({
        {"Expected type parameter name", 8},
    });
}

TEST(LoopGuard, ImplementsLoopMovesOnEachComma) {
    Parsed p("class A implements I,,J {}");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    ASSERT_EQ(cls->interfaces.size(), 3u);
    p.expectReports({
        {"Expected interface name after 'implements'", 22},
    });
}

// Every prefix of a document is a half-typed document: each one must parse
// to the end and give a program.
TEST(LoopGuard, EveryPrefixOfADocumentParses) {
    const std::string source =
        "module app.main;\n"
        "import std.io.*;\n"
        "extern \"c\" { int puts(string s); }\n"
        "public abstract class Shape<T> extends Base : I, J implements K {\n"
        "  Shape(int x = 1) { this.x = x; }\n"
        "  private static int count = 0;\n"
        "  abstract fn area(): float;\n"
        "  override string name() { return \"shape\"; }\n"
        "  area2() -> float { return 0.0; }\n"
        "}\n"
        "interface I { fn f(a: int): int; }\n"
        "struct P { int x; y: float; }\n"
        "enum E { A = 1, B, }\n"
        "test \"works\" {\n"
        "  var xs = [1, 2];\n"
        "  for (x in xs) { if (x > 1) break; else continue; }\n"
        "  for (var i = 0; i < 3; i++) {}\n"
        "  while (true) { do { } while (false); }\n"
        "  switch (x) { case 1: y; default: z; }\n"
        "  match x { 1 => a, _ => { b(); } }\n"
        "  try { throw e; } catch (Error e) { } finally { }\n"
        "  List<int> ys; Point? p = null; const c = f<int>(1);\n"
        "  return;\n"
        "}\n";
    for (std::size_t length = 0; length <= source.size(); ++length) {
        ParseRun run(std::string_view(source).substr(0, length));
        auto program = run.program();
        ASSERT_NE(program, nullptr) << "prefix length " << length;
    }
    ParseRun whole(source);
    auto program = whole.program();
    EXPECT_EQ(program->declarations.size(), 8u);
    EXPECT_TRUE(whole.diagnostics().empty());
}

// Every token sequence made of two tokens from a set of troublesome
// tokens, after each opening of a loop, parses to the end.
TEST(LoopGuard, StrayTokenPairsInsideEveryLoopTerminate) {
    const std::vector<std::string> openings = {
        "struct S { ", "class A { ", "interface I { ", "enum E { ", "extern { ", "{ ",
        "switch (x) { ", "switch (x) { case 1: ", "match x { ", "fn f(", "fn f<", "import a.",
        "module a.", "class A implements ", "class A : B, ", "for (", "try { } catch (",
    };
    const std::vector<std::string> strays = {"=", "1", ";", ")", "]", "}", ",", ".", ">>", "<", "=>", "?", "fn",
                                             "case", "_", "in", ""};
    for (const auto& opening : openings) {
        for (const auto& first : strays) {
            for (const auto& second : strays) {
                std::string source = opening;
                source.append(first).append(" ").append(second);
                ParseRun run(source);
                auto program = run.program();
                ASSERT_NE(program, nullptr) << source;
            }
        }
    }
}

// Nesting far deeper than any written program is reported and given up on
// instead of exhausting the stack; the parse still ends with a program.
TEST(LoopGuard, DeeplyNestedBlocksEndWithAReport) {
    const std::size_t depth = 200000;
    std::string source(depth, '{');
    source.append(depth, '}');
    ParseRun run(source);
    auto program = run.program();
    ASSERT_NE(program, nullptr);
    ASSERT_FALSE(run.diagnostics().empty());
    EXPECT_EQ(run.diagnostics()[0].message, "Source nested too deeply");
}

TEST(LoopGuard, DeeplyNestedIfStatementsEndWithAReport) {
    std::string source;
    for (int i = 0; i < 200000; ++i) source.append("if (a) ");
    source.append("b;");
    ParseRun run(source);
    auto program = run.program();
    ASSERT_NE(program, nullptr);
    ASSERT_FALSE(run.diagnostics().empty());
    EXPECT_EQ(run.diagnostics()[0].message, "Source nested too deeply");
}

TEST(LoopGuard, DeeplyNestedClassesEndWithAReport) {
    std::string source;
    for (int i = 0; i < 200000; ++i) source.append("class A { ");
    ParseRun run(source);
    auto program = run.program();
    ASSERT_NE(program, nullptr);
    ASSERT_FALSE(run.diagnostics().empty());
}

TEST(LoopGuard, OrdinaryNestingIsUntouched) {
    std::string source = "fn f() ";
    for (int i = 0; i < 100; ++i) source.append("{ if (a) ");
    source.append("b;");
    for (int i = 0; i < 100; ++i) source.append(" }");
    ParseRun run(source);
    auto program = run.program();
    ASSERT_EQ(program->declarations.size(), 1u);
    EXPECT_TRUE(run.diagnostics().empty());
}

}  // namespace
}  // namespace quor::parser::testing
