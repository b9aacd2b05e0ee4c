#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "sema/Symbol.h"
#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;
using quor::sema::testing::field;
using quor::sema::testing::method;
using quor::sema::testing::ParsedSource;

TEST(Lifetime, AClassWithAFieldOfItsOwnTypeDiesWithTheContext) {
    std::weak_ptr<Type> watch;
    {
        TypeContext types;
        auto node = types.createClassType("Node");
        node->fields["next"] = field("next", node);
        node->fields["all"] = field("all", types.getArrayType(node));
        watch = node;
    }
    EXPECT_TRUE(watch.expired());
}

TEST(Lifetime, BuiltInDurationWhoseFactoriesReturnItDiesWithTheContext) {
    std::weak_ptr<Type> watch;
    {
        TypeContext types;
        watch = types.findUserType("Duration");
    }
    EXPECT_TRUE(watch.expired());
}

TEST(Lifetime, ClassesReferringToEachOtherAndToTheirBaseDieWithTheContext) {
    std::weak_ptr<Type> a;
    std::weak_ptr<Type> b;
    std::weak_ptr<Type> iface;
    {
        TypeContext types;
        auto first = types.createClassType("A");
        auto second = types.createClassType("B");
        auto shape = types.createInterfaceType("Shape");
        first->fields["other"] = field("other", second);
        second->addMethod(method("back", types.getFunctionType({first}, types.getNullableType(first))));
        second->setSuperclass(first);
        first->interfaces.push_back(shape);
        shape->methods.push_back(method("self", types.getFunctionType({}, shape)));
        a = first;
        b = second;
        iface = shape;
    }
    EXPECT_TRUE(a.expired());
    EXPECT_TRUE(b.expired());
    EXPECT_TRUE(iface.expired());
}

TEST(Lifetime, AStructWithAFieldOfItsOwnTypeDiesWithTheContext) {
    std::weak_ptr<Type> watch;
    {
        TypeContext types;
        auto point = types.createStructType("Point");
        point->fields["self"] = field("self", types.getNullableType(point));
        watch = point;
    }
    EXPECT_TRUE(watch.expired());
}

TEST(Lifetime, AClassReplacedInTheNamedTypesStillDiesWithTheContext) {
    std::weak_ptr<Type> watch;
    {
        TypeContext types;
        auto first = types.createClassType("Node");
        first->fields["next"] = field("next", first);
        watch = first;
        types.createClassType("Node");
    }
    EXPECT_TRUE(watch.expired());
}

TEST(Lifetime, ARegisteredClassDiesWithTheContext) {
    std::weak_ptr<Type> watch;
    {
        TypeContext types;
        auto loose = std::make_shared<ClassType>("Loose");
        loose->fields["me"] = field("me", loose);
        types.registerUserType("Loose", loose);
        watch = loose;
    }
    EXPECT_TRUE(watch.expired());
}

TEST(Lifetime, CollectionAndSpecialisedClassesDieWithTheContext) {
    ParsedSource source("class Box<T> {\n    Box<T> next;\n    T value;\n}\n");
    std::weak_ptr<Type> list;
    std::weak_ptr<Type> special;
    {
        TypeContext types;
        auto box = types.createClassType("Box");
        box->decl = source.classNamed("Box");
        box->typeParams = {"T"};
        list = types.resolveType("List<int>");
        special = types.resolveType("Box<int>");
        ASSERT_FALSE(list.expired());
        ASSERT_FALSE(special.expired());
    }
    EXPECT_TRUE(list.expired());
    EXPECT_TRUE(special.expired());
}

TEST(Lifetime, AFullContextWithGlobalsDiesAsAWhole) {
    std::weak_ptr<Type> math;
    std::weak_ptr<Symbol> println;
    {
        TypeContext types;
        SymbolTable table;
        table.initBuiltins(types);
        math = types.findUserType("Math");
        println = table.lookup("println");
    }
    EXPECT_TRUE(math.expired());
    EXPECT_TRUE(println.expired());
}

TEST(Lifetime, ATenThousandClassChainIsTornDownWithoutDeepRecursion) {
    std::weak_ptr<Type> root;
    {
        TypeContext types;
        auto current = types.createClassType("C0");
        root = current;
        for (int i = 1; i < 10000; ++i) {
            auto next = types.createClassType("C" + std::to_string(i));
            next->setSuperclass(current);
            current = next;
        }
    }
    EXPECT_TRUE(root.expired());
}

}  // namespace
