// Imports: the path is noted and nothing is loaded; an empty path is an error.
#include <memory>
#include <utility>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

// The parser never produces an empty import path from valid text, so the
// program is built by hand.
std::unique_ptr<ast::Program> programOfImports(std::vector<std::pair<std::string, unsigned>> pathsAndLines) {
    std::vector<ast::NodePtr> declarations;
    for (auto& [path, line] : pathsAndLines) {
        declarations.push_back(
            std::make_unique<ast::ImportDecl>(path, false, diagnostics::SourceLocation{TEST_FILE, line, 1}));
    }
    return std::make_unique<ast::Program>(std::move(declarations), diagnostics::SourceLocation{TEST_FILE, 1, 1});
}

TEST(ResolverImports, EmptyPathIsReportedOnceAtTheImport) {
    Analysis a("");
    a.program = programOfImports({{"", 3}});
    a.resolve();
    EXPECT_EQ(a.records(), (Records{"E1009|Empty import path specified||3:1"}));
    EXPECT_TRUE(a.analyzer->resolver.importedModules.empty());
}

TEST(ResolverImports, EmptyPathDoesNotStopTheFollowingImports) {
    Analysis a("");
    a.program = programOfImports({{"", 1}, {"std.io", 2}});
    a.resolve();
    EXPECT_EQ(a.records(), (Records{"E1009|Empty import path specified||1:1"}));
    EXPECT_EQ(a.analyzer->resolver.importedModules, (std::unordered_set<std::string>{"std.io"}));
}

TEST(ResolverImports, PathsAreRecordedOnceEachWithoutTheWildcard) {
    auto a = resolved("import std.io;\nimport std.*;\nimport std.io;\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(a->analyzer->resolver.importedModules, (std::unordered_set<std::string>{"std.io", "std"}));
}

TEST(ResolverImports, ImportedModulesAccumulateOverSeveralRuns) {
    Analysis a("import a.b;\n");
    a.analyzer->resolver.pass1_collectTopLevel(*a.program);
    a.analyzer->resolver.resolveImportDecl(ast::ImportDecl("c", true, diagnostics::SourceLocation{TEST_FILE, 9, 9}));
    EXPECT_EQ(a.analyzer->resolver.importedModules, (std::unordered_set<std::string>{"a.b", "c"}));
    EXPECT_TRUE(a.records().empty());
}

TEST(ResolverImports, AnImportBringsNoNameIntoScope) {
    auto a = resolved("import geometry.Point;\nfn f(p: Point) {}\n");
    EXPECT_EQ(a->records(),
              (Records{"E1002|Undefined type 'Point'|Check the type name or make sure the class/struct/enum is "
                       "defined|2:1"}));
    EXPECT_EQ(a->symbols().lookup("geometry"), nullptr);
}

TEST(ResolverImports, AModuleDeclarationDeclaresNothing) {
    auto a = resolved("module shapes.core;\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(a->symbols().lookup("shapes.core"), nullptr);
    EXPECT_EQ(a->symbols().lookup("shapes"), nullptr);
    EXPECT_TRUE(a->analyzer->resolver.importedModules.empty());
}

}  // namespace
}  // namespace quor::sema::testing
