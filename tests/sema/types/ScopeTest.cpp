#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <type_traits>

#include "sema/SemaTestSupport.h"
#include "sema/Symbol.h"
#include "sema/TypeContext.h"

namespace {

using namespace quor::sema;
using quor::diagnostics::SourceLocation;
using quor::sema::testing::BUILT_IN;
using quor::sema::testing::USER;

class Scopes : public ::testing::Test {
protected:
    TypeContext types;
    SymbolTable table;

    std::shared_ptr<FunctionSymbol> function(const std::string& name, std::vector<TypePtr> params,
                                             TypePtr result = nullptr, const SourceLocation& where = USER) {
        return std::make_shared<FunctionSymbol>(name, types.getFunctionType(std::move(params), std::move(result)),
                                                where);
    }
    std::shared_ptr<VariableSymbol> variable(const std::string& name, TypePtr type = nullptr) {
        return std::make_shared<VariableSymbol>(name, type ? type : types.intType, USER);
    }
};

TEST(SymbolKinds, AreFixedNumbersStoredInThirtyTwoBits) {
    static_assert(std::is_same_v<std::underlying_type_t<SymbolKind>, std::uint32_t>);
    static_assert(std::is_same_v<std::underlying_type_t<ScopeKind>, std::uint32_t>);
    EXPECT_EQ(static_cast<int>(SymbolKind::Variable), 0);
    EXPECT_EQ(static_cast<int>(SymbolKind::Constant), 1);
    EXPECT_EQ(static_cast<int>(SymbolKind::Parameter), 2);
    EXPECT_EQ(static_cast<int>(SymbolKind::Function), 3);
    EXPECT_EQ(static_cast<int>(SymbolKind::Method), 4);
    EXPECT_EQ(static_cast<int>(SymbolKind::Class), 5);
    EXPECT_EQ(static_cast<int>(SymbolKind::Interface), 6);
    EXPECT_EQ(static_cast<int>(SymbolKind::Struct), 7);
    EXPECT_EQ(static_cast<int>(SymbolKind::Enum), 8);
    EXPECT_EQ(static_cast<int>(ScopeKind::Global), 0);
    EXPECT_EQ(static_cast<int>(ScopeKind::Reserved), 1);
    EXPECT_EQ(static_cast<int>(ScopeKind::Class), 2);
    EXPECT_EQ(static_cast<int>(ScopeKind::Function), 3);
    EXPECT_EQ(static_cast<int>(ScopeKind::Block), 4);
}

TEST_F(Scopes, VariableKindFollowsTheConstAndParameterFlags) {
    EXPECT_EQ(VariableSymbol("a", types.intType, USER).kind, SymbolKind::Variable);
    EXPECT_EQ(VariableSymbol("a", types.intType, USER, true).kind, SymbolKind::Constant);
    EXPECT_EQ(VariableSymbol("a", types.intType, USER, false, true).kind, SymbolKind::Parameter);
    EXPECT_EQ(VariableSymbol("a", types.intType, USER, true, true).kind, SymbolKind::Constant);
    VariableSymbol plain("a", types.intType, USER);
    EXPECT_EQ(plain.visibility, "public");
    EXPECT_FALSE(plain.isStatic);
}

TEST_F(Scopes, FunctionKindFollowsTheMethodFlagAndSetFunctionTypeReplacesBothPointers) {
    auto free = function("f", {});
    EXPECT_EQ(free->kind, SymbolKind::Function);
    auto member = std::make_shared<FunctionSymbol>("m", types.getFunctionType({}, nullptr), USER, "private", true,
                                                   true);
    EXPECT_EQ(member->kind, SymbolKind::Method);
    EXPECT_EQ(member->visibility, "private");
    EXPECT_TRUE(member->isStatic);
    auto replacement = types.getFunctionType({types.intType}, types.intType);
    free->setFunctionType(replacement);
    EXPECT_EQ(free->functionType, replacement);
    EXPECT_EQ(free->type, replacement);
}

TEST_F(Scopes, TypeSymbolsKeepTheirTypeInBothPointers) {
    auto cls = types.createClassType("Box");
    ClassSymbol symbol("Box", cls, USER);
    EXPECT_EQ(symbol.kind, SymbolKind::Class);
    EXPECT_EQ(symbol.type, cls);
    EXPECT_EQ(symbol.classType, cls);
    EXPECT_FALSE(symbol.isStatic);
    EXPECT_EQ(InterfaceSymbol("S", types.createInterfaceType("S"), USER).kind, SymbolKind::Interface);
    EXPECT_EQ(StructSymbol("P", types.createStructType("P"), USER).kind, SymbolKind::Struct);
    EXPECT_EQ(EnumSymbol("E", types.createEnumType("E"), USER).kind, SymbolKind::Enum);
}

TEST_F(Scopes, TheTableStartsWithOneGlobalScopeWithoutAParent) {
    ASSERT_NE(table.globalScope, nullptr);
    EXPECT_EQ(table.globalScope->kind, ScopeKind::Global);
    EXPECT_EQ(table.globalScope->parent, nullptr);
    EXPECT_EQ(table.currentScope, table.globalScope);
    ASSERT_EQ(table.scopeStack.size(), 1u);
    EXPECT_EQ(table.scopeStack[0], table.globalScope);
}

TEST_F(Scopes, DefiningANullSymbolFails) {
    EXPECT_FALSE(table.define(nullptr));
    EXPECT_FALSE(table.globalScope->define(nullptr));
}

TEST_F(Scopes, DefiningAVariableTwiceInOneScopeFailsTheSecondTime) {
    auto first = variable("x");
    EXPECT_TRUE(table.define(first));
    EXPECT_FALSE(table.define(variable("x", types.stringType)));
    EXPECT_EQ(table.lookup("x"), first);
}

TEST_F(Scopes, AVariableInAnInnerScopeShadowsWithoutComplaint) {
    auto outer = variable("x");
    auto inner = variable("x", types.stringType);
    ASSERT_TRUE(table.define(outer));
    table.enterScope(ScopeKind::Block);
    EXPECT_TRUE(table.define(inner));
    EXPECT_EQ(table.lookup("x"), inner);
    table.exitScope();
    EXPECT_EQ(table.lookup("x"), outer);
}

TEST_F(Scopes, AVariableAndAFunctionOfOneNameFailInBothOrders) {
    SymbolTable first;
    EXPECT_TRUE(first.define(variable("f")));
    EXPECT_FALSE(first.define(function("f", {})));
    SymbolTable second;
    EXPECT_TRUE(second.define(function("f", {})));
    EXPECT_FALSE(second.define(variable("f")));
}

TEST_F(Scopes, AClassNameTakenByAFunctionFailsAndTheOtherWayRound) {
    auto cls = std::make_shared<ClassSymbol>("Box", types.createClassType("Box"), USER);
    EXPECT_TRUE(table.define(cls));
    EXPECT_FALSE(table.define(function("Box", {})));
    EXPECT_FALSE(table.define(std::make_shared<ClassSymbol>("Box", types.createClassType("Box"), USER)));
}

TEST_F(Scopes, TwoFunctionsWithTheSameParametersAndDifferentReturnTypesFail) {
    EXPECT_TRUE(table.define(function("f", {types.intType}, types.intType)));
    EXPECT_FALSE(table.define(function("f", {types.intType}, types.stringType)));
    EXPECT_EQ(table.lookupFunctions("f").size(), 1u);
}

TEST_F(Scopes, AFunctionWithNewParametersJoinsTheOverloadsOfTheFirst) {
    auto first = function("f", {types.intType});
    auto second = function("f", {types.stringType});
    auto third = function("f", {});
    EXPECT_TRUE(table.define(first));
    EXPECT_TRUE(table.define(second));
    EXPECT_TRUE(table.define(third));
    EXPECT_EQ(table.lookup("f"), first);
    ASSERT_EQ(first->overloads.size(), 2u);
    EXPECT_EQ(first->overloads[0], second);
    EXPECT_EQ(first->overloads[1], third);
    EXPECT_TRUE(second->overloads.empty());
    EXPECT_EQ(table.lookupFunctions("f"), (std::vector<FunctionSymbolPtr>{first, second, third}));
}

TEST_F(Scopes, ARedeclarationMatchingALaterOverloadFails) {
    ASSERT_TRUE(table.define(function("f", {types.intType})));
    ASSERT_TRUE(table.define(function("f", {types.stringType})));
    EXPECT_FALSE(table.define(function("f", {types.stringType}, types.boolType)));
    EXPECT_EQ(table.lookupFunctions("f").size(), 2u);
}

TEST_F(Scopes, MethodsOverloadLikeFunctions) {
    auto first = std::make_shared<FunctionSymbol>("m", types.getFunctionType({}, nullptr), USER, "public", false,
                                                  true);
    EXPECT_TRUE(table.define(first));
    EXPECT_TRUE(table.define(function("m", {types.intType})));
    EXPECT_EQ(first->overloads.size(), 1u);
}

TEST_F(Scopes, AFunctionWithTheParametersOfABuiltInIsAcceptedAndDropped) {
    auto builtIn = function("f", {types.intType}, nullptr, BUILT_IN);
    ASSERT_TRUE(table.define(builtIn));
    EXPECT_TRUE(table.define(function("f", {types.intType}, types.stringType)));
    EXPECT_EQ(table.lookupFunctions("f"), (std::vector<FunctionSymbolPtr>{builtIn}));
}

TEST_F(Scopes, AFunctionWithTheParametersOfABuiltInOverloadIsAcceptedAndDropped) {
    auto builtIn = function("f", {types.intType}, nullptr, BUILT_IN);
    auto other = function("f", {types.doubleType}, nullptr, BUILT_IN);
    ASSERT_TRUE(table.define(builtIn));
    ASSERT_TRUE(table.define(other));
    EXPECT_TRUE(table.define(function("f", {types.doubleType})));
    EXPECT_EQ(table.lookupFunctions("f"), (std::vector<FunctionSymbolPtr>{builtIn, other}));
}

TEST_F(Scopes, AFunctionWithOtherParametersThanABuiltInJoinsItsOverloads) {
    auto builtIn = function("f", {types.intType}, nullptr, BUILT_IN);
    auto mine = function("f", {types.int64Type});
    ASSERT_TRUE(table.define(builtIn));
    EXPECT_TRUE(table.define(mine));
    EXPECT_EQ(table.lookupFunctions("f"), (std::vector<FunctionSymbolPtr>{builtIn, mine}));
}

TEST_F(Scopes, AUserRedeclarationOfAUserOverloadFailsEvenBesideABuiltIn) {
    ASSERT_TRUE(table.define(function("f", {types.intType}, nullptr, BUILT_IN)));
    ASSERT_TRUE(table.define(function("f", {types.int64Type})));
    EXPECT_FALSE(table.define(function("f", {types.int64Type})));
}

TEST_F(Scopes, ExitScopeAtTheGlobalScopeDoesNothingAnyNumberOfTimes) {
    for (int i = 0; i < 5; ++i) table.exitScope();
    EXPECT_EQ(table.currentScope, table.globalScope);
    EXPECT_EQ(table.scopeStack.size(), 1u);
    table.enterScope(ScopeKind::Function);
    table.exitScope();
    table.exitScope();
    EXPECT_EQ(table.currentScope, table.globalScope);
    EXPECT_EQ(table.scopeStack.size(), 1u);
}

TEST_F(Scopes, EnterScopeMakesANewCurrentScopeOfTheKindUnderTheOldOne) {
    auto global = table.currentScope;
    table.enterScope(ScopeKind::Class);
    EXPECT_EQ(table.currentScope->kind, ScopeKind::Class);
    EXPECT_EQ(table.currentScope->parent, global);
    table.enterScope(ScopeKind::Block);
    EXPECT_EQ(table.scopeStack.size(), 3u);
    EXPECT_EQ(table.currentScope->kind, ScopeKind::Block);
    table.exitScope();
    EXPECT_EQ(table.currentScope->kind, ScopeKind::Class);
}

TEST_F(Scopes, LookupWalksOutwardAndLookupCurrentScopeDoesNot) {
    auto outer = variable("x");
    ASSERT_TRUE(table.define(outer));
    table.enterScope(ScopeKind::Function);
    EXPECT_EQ(table.lookup("x"), outer);
    EXPECT_EQ(table.lookupCurrentScope("x"), nullptr);
    EXPECT_EQ(table.currentScope->lookupLocal("x"), nullptr);
    EXPECT_EQ(table.lookup("missing"), nullptr);
}

TEST_F(Scopes, LookupFunctionsOfANameBoundToAClassIsEmpty) {
    ASSERT_TRUE(table.define(std::make_shared<ClassSymbol>("Box", types.createClassType("Box"), USER)));
    EXPECT_TRUE(table.lookupFunctions("Box").empty());
    EXPECT_TRUE(table.lookupFunctions("missing").empty());
}

TEST_F(Scopes, AnInnerVariableHidesAnOuterFunctionFromCalls) {
    ASSERT_TRUE(table.define(function("print", {types.stringType})));
    table.enterScope(ScopeKind::Block);
    ASSERT_TRUE(table.define(variable("print")));
    EXPECT_TRUE(table.lookupFunctions("print").empty());
}

TEST_F(Scopes, AnInnerFunctionHidesTheOuterOverloadsWithoutMerging) {
    ASSERT_TRUE(table.define(function("f", {types.intType})));
    ASSERT_TRUE(table.define(function("f", {types.stringType})));
    table.enterScope(ScopeKind::Block);
    auto inner = function("f", {types.intType});
    EXPECT_TRUE(table.define(inner));
    EXPECT_EQ(table.lookupFunctions("f"), (std::vector<FunctionSymbolPtr>{inner}));
    table.exitScope();
    EXPECT_EQ(table.lookupFunctions("f").size(), 2u);
}

TEST_F(Scopes, APoppedScopeIsDroppedWithItsSymbols) {
    table.enterScope(ScopeKind::Block);
    auto local = variable("tmp");
    std::weak_ptr<Symbol> watch = local;
    std::weak_ptr<Scope> scope = table.currentScope;
    ASSERT_TRUE(table.define(local));
    local.reset();
    table.exitScope();
    EXPECT_TRUE(scope.expired());
    EXPECT_TRUE(watch.expired());
}

}  // namespace
