// The scope stack over a global scope filled with the built-in globals: what
// an inner scope may define beside them, how the nearest binding of a name
// decides what calls see, and what the global scope itself refuses.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

const diagnostics::SourceLocation HERE{TEST_FILE, 2, 5};

struct Stack {
    TypeContext types;
    SymbolTable table;
    Stack() { table.initBuiltins(types); }

    std::shared_ptr<FunctionSymbol> function(const std::string& name, const std::vector<TypePtr>& params,
                                             bool isMethod = false) {
        return std::make_shared<FunctionSymbol>(name, types.getFunctionType(params, types.voidType), HERE, "public",
                                                false, isMethod);
    }
    std::shared_ptr<VariableSymbol> variable(const std::string& name, bool isConst = false) {
        return std::make_shared<VariableSymbol>(name, types.intType, HERE, isConst);
    }
    std::vector<std::string> callable(const std::string& name) const {
        std::vector<std::string> out;
        for (const auto& f : table.lookupFunctions(name)) {
            out.push_back(f->functionType->toString() + "@" + f->location.file);
        }
        return out;
    }
};

const std::string AT_BUILT_IN = std::string("@") + BUILTIN_FILE;
const std::string AT_USER = std::string("@") + TEST_FILE;

const std::vector<std::string> PRINTLN_SET = {
    "fn(string) -> void" + AT_BUILT_IN, "fn(int) -> void" + AT_BUILT_IN, "fn(double) -> void" + AT_BUILT_IN,
    "fn(bool) -> void" + AT_BUILT_IN, "fn(any) -> void" + AT_BUILT_IN};

struct ShadowCase {
    const char* title;
    // Enters scopes and defines symbols; answers what `define` said for the last one.
    std::function<bool(Stack&)> build;
    bool accepted;
    // lookupFunctions of `name` from the innermost scope.
    const char* name;
    std::vector<std::string> callableInside;
    // The kind of `lookup(name)` from the innermost scope.
    SymbolKind kindInside;
};

const ShadowCase SHADOW_CASES[] = {
    {"AFunctionWithABuiltinsParametersInAnInnerScopeIsStoredAndHidesTheSet",
     [](Stack& s) {
         s.table.enterScope(ScopeKind::Function);
         return s.table.define(s.function("println", {s.types.stringType}));
     },
     true, "println", {"fn(string) -> void" + AT_USER}, SymbolKind::Function},
    {"AVariableInABlockHidesABuiltinFunctionFromCalls",
     [](Stack& s) {
         s.table.enterScope(ScopeKind::Block);
         return s.table.define(s.variable("println"));
     },
     true, "println", {}, SymbolKind::Variable},
    {"AParameterHidesABuiltinFunctionFromCalls",
     [](Stack& s) {
         s.table.enterScope(ScopeKind::Function);
         return s.table.define(std::make_shared<VariableSymbol>("sqrt", s.types.doubleType, HERE, false, true));
     },
     true, "sqrt", {}, SymbolKind::Parameter},
    {"AFieldInAClassScopeMayTakeABuiltinConstantsName",
     [](Stack& s) {
         s.table.enterScope(ScopeKind::Class);
         return s.table.define(s.variable("PI"));
     },
     true, "PI", {}, SymbolKind::Variable},
    {"AnInnerFunctionScopeSeesTheGlobalSetThroughAnEmptyBlock",
     [](Stack& s) {
         s.table.enterScope(ScopeKind::Function);
         s.table.enterScope(ScopeKind::Block);
         return s.table.define(s.variable("unrelated"));
     },
     true, "println", PRINTLN_SET, SymbolKind::Function},
    {"AVariableInTheGlobalScopeCannotTakeABuiltinFunctionsName",
     [](Stack& s) { return s.table.define(s.variable("println")); }, false, "println", PRINTLN_SET,
     SymbolKind::Function},
    {"AConstantInTheGlobalScopeCannotTakeABuiltinConstantsName",
     [](Stack& s) { return s.table.define(s.variable("TAU", true)); }, false, "TAU", {}, SymbolKind::Constant},
    {"AFunctionInTheGlobalScopeCannotTakeABuiltinConstantsName",
     [](Stack& s) { return s.table.define(s.function("E", {})); }, false, "E", {}, SymbolKind::Constant},
    {"AMethodSymbolWithNewParametersJoinsABuiltinSet",
     [](Stack& s) { return s.table.define(s.function("println", {s.types.int64Type}, true)); }, true, "println",
     [] {
         auto set = PRINTLN_SET;
         set.push_back("fn(int64) -> void" + AT_USER);
         return set;
     }(),
     SymbolKind::Function},
    {"AMethodSymbolWithABuiltinsParametersIsAcceptedAndDropped",
     [](Stack& s) { return s.table.define(s.function("println", {s.types.boolType}, true)); }, true, "println",
     PRINTLN_SET, SymbolKind::Function},
};

class ScopeShadowingOfBuiltins : public ::testing::TestWithParam<ShadowCase> {};

TEST_P(ScopeShadowingOfBuiltins, DefinesAndLooksUpFromTheInnermostScope) {
    const auto& c = GetParam();
    Stack s;
    EXPECT_EQ(c.build(s), c.accepted);
    EXPECT_EQ(s.callable(c.name), c.callableInside);
    auto found = s.table.lookup(c.name);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->kind, c.kindInside);
    // Leaving every inner scope brings the built-in binding back untouched.
    while (s.table.scopeStack.size() > 1) s.table.exitScope();
    auto global = s.table.lookup(c.name);
    ASSERT_TRUE(global);
    EXPECT_EQ(global->location.file, BUILTIN_FILE);
}

INSTANTIATE_TEST_SUITE_P(Cases, ScopeShadowingOfBuiltins, ::testing::ValuesIn(SHADOW_CASES),
                         [](const ::testing::TestParamInfo<ShadowCase>& info) { return std::string(info.param.title); });

TEST(ScopeStackOverBuiltins, AnInnerScopesSymbolsAreGoneOnceItIsLeft) {
    Stack s;
    s.table.enterScope(ScopeKind::Function);
    s.table.enterScope(ScopeKind::Block);
    ASSERT_TRUE(s.table.define(s.variable("local")));
    ASSERT_TRUE(s.table.define(s.function("helper", {})));
    EXPECT_TRUE(s.table.lookup("local"));
    EXPECT_EQ(s.table.lookupFunctions("helper").size(), 1u);
    s.table.exitScope();
    EXPECT_EQ(s.table.lookup("local"), nullptr);
    EXPECT_TRUE(s.table.lookupFunctions("helper").empty());
    EXPECT_EQ(s.table.currentScope->kind, ScopeKind::Function);
    // A fresh block in the same place starts empty.
    s.table.enterScope(ScopeKind::Block);
    EXPECT_TRUE(s.table.define(s.variable("local")));
}

TEST(ScopeStackOverBuiltins, LookupCurrentScopeDoesNotReachTheBuiltins) {
    Stack s;
    EXPECT_TRUE(s.table.lookupCurrentScope("println"));
    s.table.enterScope(ScopeKind::Block);
    EXPECT_EQ(s.table.lookupCurrentScope("println"), nullptr);
    EXPECT_EQ(s.table.lookupCurrentScope("PI"), nullptr);
    EXPECT_TRUE(s.table.lookup("PI"));
}

TEST(ScopeStackOverBuiltins, NamesThatAreNoFunctionsGiveNoCandidates) {
    Stack s;
    for (const char* name : {"PI", "E", "TAU", "IO", "Math", "List", "nothing"}) {
        EXPECT_TRUE(s.table.lookupFunctions(name).empty()) << name;
    }
    EXPECT_EQ(s.table.lookup("IO"), nullptr);
    EXPECT_EQ(s.table.lookup("Math"), nullptr);
}

}  // namespace
}  // namespace quor::sema::testing
