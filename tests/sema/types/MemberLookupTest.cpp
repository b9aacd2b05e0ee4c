#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;
using quor::sema::testing::describeMethods;
using quor::sema::testing::field;
using quor::sema::testing::method;
using Texts = std::vector<std::string>;

class MemberLookup : public ::testing::Test {
protected:
    TypeContext types;
    std::shared_ptr<ClassType> base = types.createClassType("Base");
    std::shared_ptr<ClassType> middle = types.createClassType("Middle");
    std::shared_ptr<ClassType> leaf = types.createClassType("Leaf");
    void SetUp() override {
        middle->setSuperclass(base);
        leaf->setSuperclass(middle);
    }
    std::shared_ptr<FunctionType> fn(std::vector<TypePtr> params, TypePtr result) {
        return types.getFunctionType(std::move(params), std::move(result));
    }
};

TEST_F(MemberLookup, FindFieldSearchesUpTheChainAndTheNearestClassWins) {
    base->fields["id"] = field("id", types.intType);
    base->fields["name"] = field("name", types.stringType);
    middle->fields["id"] = field("id", types.int64Type);
    auto id = leaf->findField("id");
    ASSERT_TRUE(id.has_value());
    EXPECT_EQ(id->type, types.int64Type);
    auto name = leaf->findField("name");
    ASSERT_TRUE(name.has_value());
    EXPECT_EQ(name->type, types.stringType);
    EXPECT_FALSE(leaf->findField("missing").has_value());
}

TEST_F(MemberLookup, FindFieldReturnsACopy) {
    base->fields["id"] = field("id", types.intType);
    auto id = base->findField("id");
    ASSERT_TRUE(id.has_value());
    id->name = "changed";
    EXPECT_EQ(base->fields.at("id").name, "id");
}

TEST_F(MemberLookup, FindMethodsGivesOwnMethodsOfThatNameInOrder) {
    leaf->addMethod(method("run", fn({types.intType}, nullptr)));
    leaf->addMethod(method("other", fn({}, nullptr)));
    leaf->addMethod(method("run", fn({types.stringType}, nullptr)));
    EXPECT_EQ(describeMethods(leaf->findMethods("run")), (Texts{"run(int) -> void", "run(string) -> void"}));
    EXPECT_TRUE(leaf->findMethods("none").empty());
}

TEST_F(MemberLookup, AnOverloadWithOtherParametersStandsBesideTheInheritedOneOwnFirst) {
    base->addMethod(method("run", fn({types.intType}, nullptr)));
    leaf->addMethod(method("run", fn({types.stringType}, nullptr)));
    EXPECT_EQ(describeMethods(leaf->findMethods("run")), (Texts{"run(string) -> void", "run(int) -> void"}));
}

TEST_F(MemberLookup, AMethodWithEqualParametersAndReturnTypeHidesTheInheritedOne) {
    base->addMethod(method("run", fn({types.intType}, types.boolType)));
    middle->addMethod(method("run", fn({types.intType}, types.boolType)));
    auto found = leaf->findMethods("run");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].type, middle->methods[0].type);
}

TEST_F(MemberLookup, AMethodWithEqualParametersButAnotherReturnTypeStaysBesideTheInheritedOne) {
    base->addMethod(method("run", fn({types.intType}, types.boolType)));
    leaf->addMethod(method("run", fn({types.intType}, types.intType)));
    EXPECT_EQ(describeMethods(leaf->findMethods("run")), (Texts{"run(int) -> int", "run(int) -> bool"}));
}

TEST_F(MemberLookup, OwnDuplicatesStayButInheritedDuplicatesCollapseAgainstEntriesJustAppended) {
    middle->addMethod(method("run", fn({types.intType}, nullptr)));
    middle->addMethod(method("run", fn({types.intType}, nullptr)));
    EXPECT_EQ(middle->findMethods("run").size(), 2u);
    // The leaf has none of its own: the first inherited entry is appended and
    // the second one then finds it in the list.
    EXPECT_EQ(describeMethods(leaf->findMethods("run")), (Texts{"run(int) -> void"}));
}

TEST_F(MemberLookup, InheritedOrderFollowsTheChainFromNearToFar) {
    base->addMethod(method("run", fn({types.doubleType}, nullptr)));
    middle->addMethod(method("run", fn({types.int64Type}, nullptr)));
    leaf->addMethod(method("run", fn({types.intType}, nullptr)));
    EXPECT_EQ(describeMethods(leaf->findMethods("run")),
              (Texts{"run(int) -> void", "run(int64) -> void", "run(double) -> void"}));
}

TEST_F(MemberLookup, AddMethodAppendsWithoutADuplicateCheck) {
    auto type = fn({}, nullptr);
    leaf->addMethod(method("run", type));
    leaf->addMethod(method("run", type));
    EXPECT_EQ(leaf->methods.size(), 2u);
}

TEST_F(MemberLookup, SetSuperclassReplacesTheBase) {
    leaf->setSuperclass(base);
    EXPECT_EQ(leaf->superclass, base);
    leaf->setSuperclass(nullptr);
    EXPECT_EQ(leaf->superclass, nullptr);
}

TEST_F(MemberLookup, InterfaceMethodsAppendEverySuperInterfaceWholeWithDuplicates) {
    auto top = types.createInterfaceType("Top");
    auto side = types.createInterfaceType("Side");
    auto child = types.createInterfaceType("Child");
    child->superInterfaces = {top, side};
    top->methods.push_back(method("draw", fn({types.intType}, nullptr)));
    side->methods.push_back(method("draw", fn({types.intType}, nullptr)));
    child->methods.push_back(method("draw", fn({}, nullptr)));
    child->methods.push_back(method("size", fn({}, types.intType)));
    EXPECT_EQ(describeMethods(child->findMethods("draw")),
              (Texts{"draw() -> void", "draw(int) -> void", "draw(int) -> void"}));
}

TEST_F(MemberLookup, StructFindFieldLooksAtItsOwnFieldsOnly) {
    auto point = types.createStructType("Point");
    point->fields["x"] = field("x", types.floatType);
    ASSERT_TRUE(point->findField("x").has_value());
    EXPECT_EQ(point->findField("x")->type, types.floatType);
    EXPECT_FALSE(point->findField("y").has_value());
}

// A chain of 10,000 classes, each extending the one made before it.
class LongChain : public ::testing::Test {
protected:
    static constexpr int LENGTH = 10000;
    TypeContext types;
    std::shared_ptr<ClassType> root;
    std::shared_ptr<ClassType> leaf;
    void SetUp() override {
        root = types.createClassType("C0");
        root->fields["depth"] = field("depth", types.intType);
        root->addMethod(method("visit", types.getFunctionType({types.intType}, nullptr)));
        leaf = root;
        for (int i = 1; i < LENGTH; ++i) {
            auto next = types.createClassType("C" + std::to_string(i));
            next->setSuperclass(leaf);
            leaf = next;
        }
        leaf->addMethod(method("visit", types.getFunctionType({types.stringType}, nullptr)));
    }
};

TEST_F(LongChain, FindMethodsReachesTheRootOfATenThousandClassChain) {
    EXPECT_EQ(describeMethods(leaf->findMethods("visit")), (Texts{"visit(string) -> void", "visit(int) -> void"}));
}

TEST_F(LongChain, FindFieldReachesTheRootOfATenThousandClassChain) {
    auto depth = leaf->findField("depth");
    ASSERT_TRUE(depth.has_value());
    EXPECT_EQ(depth->type, types.intType);
}

TEST_F(LongChain, SubtypingAndAssignabilityReachTheRootOfATenThousandClassChain) {
    EXPECT_TRUE(leaf->isSubtypeOf(*root));
    EXPECT_TRUE(leaf->isAssignableTo(*types.getNullableType(root)));
    EXPECT_FALSE(root->isSubtypeOf(*leaf));
    EXPECT_FALSE(leaf->isSubtypeOf(*types.createClassType("Elsewhere")));
}

// Only a faulty program builds a chain that runs back into itself; the
// lookups must still come back.
TEST(ClassChainLoop, LookupsOnACircularChainEndAfterEachClassWasSeenOnce) {
    TypeContext types;
    auto a = types.createClassType("A");
    auto b = types.createClassType("B");
    a->setSuperclass(b);
    b->setSuperclass(a);
    a->addMethod(method("run", types.getFunctionType({types.intType}, nullptr)));
    b->addMethod(method("run", types.getFunctionType({types.stringType}, nullptr)));
    b->fields["x"] = field("x", types.intType);
    EXPECT_EQ(describeMethods(a->findMethods("run")), (Texts{"run(int) -> void", "run(string) -> void"}));
    EXPECT_TRUE(a->findField("x").has_value());
    EXPECT_FALSE(a->findField("y").has_value());
    EXPECT_TRUE(a->isSubtypeOf(*b));
    EXPECT_FALSE(a->isSubtypeOf(*types.createClassType("C")));
    EXPECT_FALSE(a->isAssignableTo(*types.intType));
}

TEST(ClassChainLoop, AClassThatIsItsOwnBaseFindsItsOwnMembersOnce) {
    TypeContext types;
    auto a = types.createClassType("A");
    a->setSuperclass(a);
    a->addMethod(method("run", types.getFunctionType({}, nullptr)));
    EXPECT_EQ(a->findMethods("run").size(), 1u);
    EXPECT_FALSE(a->findField("x").has_value());
}

TEST(ClassChainLoop, ALongLoopBehindALongTailEnds) {
    TypeContext types;
    std::vector<std::shared_ptr<ClassType>> classes;
    for (int i = 0; i < 100; ++i) classes.push_back(types.createClassType("L" + std::to_string(i)));
    for (int i = 0; i + 1 < 100; ++i) classes[i]->setSuperclass(classes[i + 1]);
    classes[99]->setSuperclass(classes[40]);
    for (auto& cls : classes) cls->addMethod(method("m", types.getFunctionType({types.intType}, nullptr)));
    classes[0]->methods.clear();
    EXPECT_EQ(classes[0]->findMethods("m").size(), 1u);
    EXPECT_FALSE(classes[0]->findField("nothing").has_value());
}

}  // namespace
