// A scope finds an overload with the parameters of a new function through an
// index of the overloads by parameter list; the answers are those of a walk
// over every overload in order.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/SemaTestSupport.h"
#include "sema/Symbol.h"
#include "sema/TypeContext.h"

namespace {

using namespace quor::sema;
using quor::diagnostics::SourceLocation;
using quor::sema::testing::BUILT_IN;
using quor::sema::testing::USER;

class OverloadIndex : public ::testing::Test {
protected:
    TypeContext types;
    Scope scope{ScopeKind::Global, nullptr};

    std::shared_ptr<FunctionSymbol> function(std::vector<TypePtr> params, const SourceLocation& where = USER) {
        return std::make_shared<FunctionSymbol>("f", types.getFunctionType(std::move(params), nullptr), where);
    }
    std::shared_ptr<FunctionSymbol> first() { return std::dynamic_pointer_cast<FunctionSymbol>(scope.lookup("f")); }
};

TEST_F(OverloadIndex, ARedeclarationAmongThousandsOfOverloadsIsRefused) {
    ASSERT_TRUE(scope.define(function({})));
    for (int i = 0; i < 3000; ++i) {
        auto named = types.createClassType("K" + std::to_string(i));
        ASSERT_TRUE(scope.define(function({named, types.intType})));
    }
    EXPECT_FALSE(scope.define(function({types.findUserType("K1234"), types.intType})));
    EXPECT_TRUE(scope.define(function({types.findUserType("K1234"), types.int64Type})));
    EXPECT_EQ(first()->overloads.size(), 3001u);
}

TEST_F(OverloadIndex, OverloadsAppendedToTheVectorDirectlyAreFoundToo) {
    ASSERT_TRUE(scope.define(function({types.intType})));
    first()->overloads.push_back(function({types.doubleType}, BUILT_IN));
    EXPECT_TRUE(scope.define(function({types.doubleType})));  // the built-in one stays
    EXPECT_EQ(first()->overloads.size(), 1u);
    first()->overloads.push_back(function({types.stringType}));
    EXPECT_FALSE(scope.define(function({types.stringType})));
    EXPECT_EQ(first()->overloads.size(), 2u);
}

TEST_F(OverloadIndex, ParameterListsOfOneShapeButOtherElementTypesAreKeptApart) {
    ASSERT_TRUE(scope.define(function({types.getArrayType(types.intType)})));
    EXPECT_TRUE(scope.define(function({types.getArrayType(types.stringType)})));
    EXPECT_TRUE(scope.define(function({types.getMapType(types.stringType, types.intType)})));
    EXPECT_FALSE(scope.define(function({types.getArrayType(types.stringType)})));
    EXPECT_FALSE(scope.define(function({types.getMapType(types.stringType, types.intType)})));
    EXPECT_EQ(first()->overloads.size(), 2u);
}

TEST_F(OverloadIndex, TheFirstOverloadWithTheParametersDecidesWhetherItIsBuiltIn) {
    ASSERT_TRUE(scope.define(function({types.intType})));
    first()->overloads.push_back(function({types.boolType}));
    first()->overloads.push_back(function({types.boolType}, BUILT_IN));
    EXPECT_FALSE(scope.define(function({types.boolType})));
}

}  // namespace
