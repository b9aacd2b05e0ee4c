// Symbols, scopes and the scope stack: one entry per name in a scope, the
// overloads of a function name hanging off its first symbol, and lookups
// that walk outward.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

const diagnostics::SourceLocation HERE{TEST_FILE, 3, 4};

// Builds symbols over one type context, named by short recipes.
struct Maker {
    TypeContext types;

    TypePtr type(const std::string& text) {
        auto resolved = types.resolveType(text);
        EXPECT_TRUE(resolved) << text;
        return resolved;
    }

    std::shared_ptr<FunctionSymbol> function(const std::string& name, const std::vector<std::string>& params,
                                             const std::string& returns = "void",
                                             const diagnostics::SourceLocation& where = HERE, bool isMethod = false) {
        std::vector<TypePtr> paramTypes;
        for (const auto& p : params) paramTypes.push_back(type(p));
        return std::make_shared<FunctionSymbol>(name, types.getFunctionType(paramTypes, type(returns)), where,
                                                "public", false, isMethod);
    }

    std::shared_ptr<VariableSymbol> variable(const std::string& name, bool isConst = false, bool isParameter = false) {
        return std::make_shared<VariableSymbol>(name, types.intType, HERE, isConst, isParameter);
    }

    std::shared_ptr<ClassSymbol> cls(const std::string& name) {
        return std::make_shared<ClassSymbol>(name, types.createClassType(name), HERE);
    }
};

std::vector<std::string> signatures(const std::vector<FunctionSymbolPtr>& set) {
    std::vector<std::string> out;
    for (const auto& f : set) out.push_back(f->functionType->toString() + "@" + f->location.file);
    return out;
}

// ---------------------------------------------------------------------------
// Scope::define: a table of pairs, the first defined, then the second.

struct DefineCase {
    const char* title;
    std::function<SymbolPtr(Maker&)> first;
    std::function<SymbolPtr(Maker&)> second;
    bool accepted;
    // What lookupFunctions gives for "f" afterwards; empty when not a function.
    std::vector<std::string> functionsAfter;
};

const std::string AT_USER = std::string("@") + TEST_FILE;
const std::string AT_BUILT_IN = std::string("@") + BUILTIN_FILE;

const DefineCase DEFINE_CASES[] = {
    {"AVariableTwiceIsRefused", [](Maker& m) { return m.variable("f"); }, [](Maker& m) { return m.variable("f"); },
     false, {}},
    {"AConstantAfterAVariableIsRefused", [](Maker& m) { return m.variable("f"); },
     [](Maker& m) { return m.variable("f", true); }, false, {}},
    {"AFunctionAfterAVariableIsRefused", [](Maker& m) { return m.variable("f"); },
     [](Maker& m) { return m.function("f", {"int"}); }, false, {}},
    {"AVariableAfterAFunctionIsRefused", [](Maker& m) { return m.function("f", {"int"}); },
     [](Maker& m) { return m.variable("f"); }, false, {"fn(int) -> void" + AT_USER}},
    {"AClassAfterAFunctionIsRefused", [](Maker& m) { return m.function("f", {}); },
     [](Maker& m) { return m.cls("f"); }, false, {"fn() -> void" + AT_USER}},
    {"AFunctionAfterAClassIsRefused", [](Maker& m) { return m.cls("f"); },
     [](Maker& m) { return m.function("f", {}); }, false, {}},
    {"SameParametersWithAnotherReturnTypeIsRefused", [](Maker& m) { return m.function("f", {"int"}, "int"); },
     [](Maker& m) { return m.function("f", {"int"}, "string"); }, false, {"fn(int) -> int" + AT_USER}},
    {"AliasesOfOneTypeAreTheSameParameters", [](Maker& m) { return m.function("f", {"int"}); },
     [](Maker& m) { return m.function("f", {"int32"}); }, false, {"fn(int) -> void" + AT_USER}},
    {"OtherParametersJoinTheOverloads", [](Maker& m) { return m.function("f", {"int"}); },
     [](Maker& m) { return m.function("f", {"int64"}); }, true,
     {"fn(int) -> void" + AT_USER, "fn(int64) -> void" + AT_USER}},
    {"AnotherParameterCountJoinsTheOverloads", [](Maker& m) { return m.function("f", {"int"}); },
     [](Maker& m) { return m.function("f", {"int", "int"}); }, true,
     {"fn(int) -> void" + AT_USER, "fn(int, int) -> void" + AT_USER}},
    {"AMethodAndAFunctionShareOneOverloadSet",
     [](Maker& m) { return m.function("f", {"int"}, "void", HERE, true); },
     [](Maker& m) { return m.function("f", {"string"}); }, true,
     {"fn(int) -> void" + AT_USER, "fn(string) -> void" + AT_USER}},
    {"TheParametersOfABuiltinAreAcceptedAndDropped",
     [](Maker& m) { return m.function("f", {"int"}, "void", BUILT_IN); },
     [](Maker& m) { return m.function("f", {"int"}, "string"); }, true, {"fn(int) -> void" + AT_BUILT_IN}},
    {"OtherParametersBesideABuiltinJoinItsOverloads",
     [](Maker& m) { return m.function("f", {"int"}, "void", BUILT_IN); },
     [](Maker& m) { return m.function("f", {"int64"}); }, true,
     {"fn(int) -> void" + AT_BUILT_IN, "fn(int64) -> void" + AT_USER}},
    {"ABuiltinAfterAUserFunctionOfItsParametersIsRefused", [](Maker& m) { return m.function("f", {"int"}); },
     [](Maker& m) { return m.function("f", {"int"}, "void", BUILT_IN); }, false, {"fn(int) -> void" + AT_USER}},
};

class ScopeDefine : public ::testing::TestWithParam<DefineCase> {};

TEST_P(ScopeDefine, AnswersAndKeepsTheFirstSymbol) {
    const auto& c = GetParam();
    Maker m;
    Scope scope(ScopeKind::Block, nullptr);
    auto first = c.first(m);
    auto second = c.second(m);
    ASSERT_TRUE(scope.define(first));
    EXPECT_EQ(scope.define(second), c.accepted);
    // The entry always stays the first symbol of the name.
    EXPECT_EQ(scope.lookupLocal("f"), first);
    EXPECT_EQ(scope.symbols.size(), 1u);
    EXPECT_EQ(signatures(scope.lookupFunctions("f")), c.functionsAfter);
    // Overloads hang on the first symbol only.
    if (auto appended = std::dynamic_pointer_cast<FunctionSymbol>(second)) {
        EXPECT_TRUE(appended->overloads.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, ScopeDefine, ::testing::ValuesIn(DEFINE_CASES),
                         [](const ::testing::TestParamInfo<DefineCase>& info) { return std::string(info.param.title); });

TEST(ScopeRules, ANullSymbolIsRefused) {
    Scope scope(ScopeKind::Global, nullptr);
    EXPECT_FALSE(scope.define(nullptr));
    EXPECT_TRUE(scope.symbols.empty());
    SymbolTable table;
    EXPECT_FALSE(table.define(nullptr));
}

TEST(ScopeRules, ANewNameIsStoredAndFoundLocally) {
    Maker m;
    Scope scope(ScopeKind::Function, nullptr);
    auto x = m.variable("x");
    EXPECT_TRUE(scope.define(x));
    EXPECT_EQ(scope.lookupLocal("x"), x);
    EXPECT_EQ(scope.lookup("x"), x);
    EXPECT_EQ(scope.lookupLocal("y"), nullptr);
    EXPECT_EQ(scope.lookup("y"), nullptr);
}

TEST(ScopeRules, OverloadsAreComparedInOrderAndABuiltinMatchAmongThemIsAccepted) {
    Maker m;
    Scope scope(ScopeKind::Global, nullptr);
    auto first = m.function("f", {"int"});
    ASSERT_TRUE(scope.define(first));
    ASSERT_TRUE(scope.define(m.function("f", {"string"}, "void", BUILT_IN)));
    ASSERT_TRUE(scope.define(m.function("f", {"bool"})));
    // The same parameters as the built-in overload: accepted, stored nowhere.
    EXPECT_TRUE(scope.define(m.function("f", {"string"}, "int")));
    // The same parameters as the user overload: refused.
    EXPECT_FALSE(scope.define(m.function("f", {"bool"}, "int")));
    EXPECT_EQ(signatures(scope.lookupFunctions("f")),
              (std::vector<std::string>{"fn(int) -> void" + AT_USER, "fn(string) -> void" + AT_BUILT_IN,
                                        "fn(bool) -> void" + AT_USER}));
    EXPECT_EQ(first->overloads.size(), 2u);
}

TEST(ScopeRules, OverloadsAppendedDirectlyAreComparedToo) {
    Maker m;
    Scope scope(ScopeKind::Global, nullptr);
    auto first = m.function("f", {"int"});
    first->overloads.push_back(m.function("f", {"double"}));
    ASSERT_TRUE(scope.define(first));
    EXPECT_FALSE(scope.define(m.function("f", {"double"}, "string")));
    EXPECT_TRUE(scope.define(m.function("f", {"char"})));
    EXPECT_EQ(signatures(scope.lookupFunctions("f")),
              (std::vector<std::string>{"fn(int) -> void" + AT_USER, "fn(double) -> void" + AT_USER,
                                        "fn(char) -> void" + AT_USER}));
}

TEST(ScopeRules, ClassParametersCompareByName) {
    Maker m;
    Scope scope(ScopeKind::Global, nullptr);
    auto boxParam = [&](const std::string& returns) {
        auto box = std::make_shared<ClassType>("Box");
        return std::make_shared<FunctionSymbol>(
            "f", m.types.getFunctionType({box}, m.type(returns)), HERE);
    };
    ASSERT_TRUE(scope.define(boxParam("void")));
    // Another class object of the same name is the same parameter.
    EXPECT_FALSE(scope.define(boxParam("int")));
}

TEST(ScopeRules, LookupFunctionsGivesTheNearestFunctionBindingWithItsOverloads) {
    Maker m;
    auto global = std::make_shared<Scope>(ScopeKind::Global, nullptr);
    ASSERT_TRUE(global->define(m.function("f", {"int"})));
    ASSERT_TRUE(global->define(m.function("f", {"string"})));
    ASSERT_TRUE(global->define(m.cls("Shape")));
    auto inner = std::make_shared<Scope>(ScopeKind::Block, global);
    // Found through the parent.
    EXPECT_EQ(inner->lookupFunctions("f").size(), 2u);
    // A class name and an unknown name give nothing.
    EXPECT_TRUE(inner->lookupFunctions("Shape").empty());
    EXPECT_TRUE(inner->lookupFunctions("nothing").empty());

    // A function in the inner scope hides the outer set: sets are not merged.
    auto nested = std::make_shared<Scope>(ScopeKind::Function, inner);
    ASSERT_TRUE(nested->define(m.function("f", {"bool"})));
    EXPECT_EQ(signatures(nested->lookupFunctions("f")), (std::vector<std::string>{"fn(bool) -> void" + AT_USER}));

    // A variable in the inner scope hides the functions from calls.
    auto shadow = std::make_shared<Scope>(ScopeKind::Block, inner);
    ASSERT_TRUE(shadow->define(m.variable("f")));
    EXPECT_TRUE(shadow->lookupFunctions("f").empty());
    EXPECT_EQ(shadow->lookup("f")->kind, SymbolKind::Variable);
}

// ---------------------------------------------------------------------------
// The scope stack.

TEST(SymbolTableRules, EnterAndExitMoveTheCurrentScope) {
    SymbolTable table;
    table.enterScope(ScopeKind::Function);
    auto function = table.currentScope;
    EXPECT_EQ(function->kind, ScopeKind::Function);
    EXPECT_EQ(function->parent, table.globalScope);
    table.enterScope(ScopeKind::Block);
    EXPECT_EQ(table.currentScope->kind, ScopeKind::Block);
    EXPECT_EQ(table.currentScope->parent, function);
    EXPECT_EQ(table.scopeStack.size(), 3u);
    table.exitScope();
    EXPECT_EQ(table.currentScope, function);
    table.exitScope();
    EXPECT_EQ(table.currentScope, table.globalScope);
    EXPECT_EQ(table.scopeStack.size(), 1u);
}

TEST(SymbolTableRules, TheGlobalScopeIsNeverLeft) {
    SymbolTable table;
    for (int i = 0; i < 5; ++i) table.exitScope();
    EXPECT_EQ(table.currentScope, table.globalScope);
    ASSERT_EQ(table.scopeStack.size(), 1u);
    table.enterScope(ScopeKind::Class);
    for (int i = 0; i < 3; ++i) table.exitScope();
    EXPECT_EQ(table.currentScope, table.globalScope);
    EXPECT_EQ(table.scopeStack.size(), 1u);
}

TEST(SymbolTableRules, DefineAndLookupWorkFromTheCurrentScope) {
    Maker m;
    SymbolTable table;
    auto outer = m.variable("x");
    ASSERT_TRUE(table.define(outer));
    EXPECT_FALSE(table.define(m.variable("x")));
    table.enterScope(ScopeKind::Block);
    // Shadowing in an inner scope is no complaint.
    EXPECT_EQ(table.lookupCurrentScope("x"), nullptr);
    EXPECT_EQ(table.lookup("x"), outer);
    auto inner = m.variable("x");
    EXPECT_TRUE(table.define(inner));
    EXPECT_EQ(table.lookup("x"), inner);
    EXPECT_EQ(table.lookupCurrentScope("x"), inner);
    table.exitScope();
    EXPECT_EQ(table.lookup("x"), outer);
    ASSERT_TRUE(table.define(m.function("g", {})));
    table.enterScope(ScopeKind::Function);
    EXPECT_EQ(table.lookupFunctions("g").size(), 1u);
    EXPECT_EQ(table.lookupCurrentScope("g"), nullptr);
}

// ---------------------------------------------------------------------------
// The symbol records.

TEST(SymbolRecords, KindNumbersAreFixed) {
    const std::vector<std::pair<SymbolKind, unsigned>> symbolKinds = {
        {SymbolKind::Variable, 0}, {SymbolKind::Constant, 1}, {SymbolKind::Parameter, 2},
        {SymbolKind::Function, 3}, {SymbolKind::Method, 4},   {SymbolKind::Class, 5},
        {SymbolKind::Interface, 6}, {SymbolKind::Struct, 7},  {SymbolKind::Enum, 8}};
    for (auto [kind, value] : symbolKinds) EXPECT_EQ(static_cast<std::uint32_t>(kind), value);
    const std::vector<std::pair<ScopeKind, unsigned>> scopeKinds = {{ScopeKind::Global, 0},
                                                                    {ScopeKind::Reserved, 1},
                                                                    {ScopeKind::Class, 2},
                                                                    {ScopeKind::Function, 3},
                                                                    {ScopeKind::Block, 4}};
    for (auto [kind, value] : scopeKinds) EXPECT_EQ(static_cast<std::uint32_t>(kind), value);
    static_assert(sizeof(SymbolKind) == 4 && sizeof(ScopeKind) == 4);
}

TEST(SymbolRecords, AVariablesKindFollowsItsFlags) {
    struct Row {
        bool isConst, isParameter;
        SymbolKind kind;
    };
    for (const Row& row : {Row{false, false, SymbolKind::Variable}, Row{true, false, SymbolKind::Constant},
                           Row{false, true, SymbolKind::Parameter}, Row{true, true, SymbolKind::Constant}}) {
        VariableSymbol v("v", nullptr, HERE, row.isConst, row.isParameter);
        EXPECT_EQ(v.kind, row.kind) << row.isConst << row.isParameter;
        EXPECT_EQ(v.isConst, row.isConst);
        EXPECT_EQ(v.isParameter, row.isParameter);
    }
    VariableSymbol plain("v", nullptr, HERE);
    EXPECT_EQ(plain.visibility, "public");
    EXPECT_FALSE(plain.isStatic);
    VariableSymbol full("v", nullptr, HERE, false, false, "private", true);
    EXPECT_EQ(full.visibility, "private");
    EXPECT_TRUE(full.isStatic);
}

TEST(SymbolRecords, AFunctionIsAMethodOnlyWhenMarkedSo) {
    TypeContext types;
    auto type = types.getFunctionType({}, nullptr);
    FunctionSymbol plain("f", type, HERE);
    EXPECT_EQ(plain.kind, SymbolKind::Function);
    EXPECT_EQ(plain.visibility, "public");
    EXPECT_FALSE(plain.isStatic || plain.isMethod || plain.isAbstract || plain.isOverride);
    EXPECT_EQ(plain.decl, nullptr);
    EXPECT_EQ(plain.type, plain.functionType);
    FunctionSymbol method("m", type, HERE, "private", true, true, true, true);
    EXPECT_EQ(method.kind, SymbolKind::Method);
    EXPECT_TRUE(method.isStatic && method.isMethod && method.isAbstract && method.isOverride);
    auto replacement = types.getFunctionType({types.intType}, types.intType);
    method.setFunctionType(replacement);
    EXPECT_EQ(method.functionType, replacement);
    EXPECT_EQ(method.type, replacement);
}

TEST(SymbolRecords, NamedTypeSymbolsHoldTheirTypeTwice) {
    TypeContext types;
    auto c = types.createClassType("C");
    auto i = types.createInterfaceType("I");
    auto s = types.createStructType("S");
    auto e = types.createEnumType("E");
    ClassSymbol cs("C", c, HERE, "private");
    InterfaceSymbol is("I", i, HERE);
    StructSymbol ss("S", s, HERE);
    EnumSymbol es("E", e, HERE);
    EXPECT_EQ(cs.kind, SymbolKind::Class);
    EXPECT_EQ(is.kind, SymbolKind::Interface);
    EXPECT_EQ(ss.kind, SymbolKind::Struct);
    EXPECT_EQ(es.kind, SymbolKind::Enum);
    EXPECT_EQ(cs.type, c);
    EXPECT_EQ(cs.classType, c);
    EXPECT_EQ(is.type, i);
    EXPECT_EQ(is.interfaceType, i);
    EXPECT_EQ(ss.type, s);
    EXPECT_EQ(ss.structType, s);
    EXPECT_EQ(es.type, e);
    EXPECT_EQ(es.enumType, e);
    EXPECT_EQ(cs.visibility, "private");
    EXPECT_EQ(is.visibility, "public");
    EXPECT_FALSE(cs.isStatic || is.isStatic || ss.isStatic || es.isStatic);
}

}  // namespace
}  // namespace quor::sema::testing
