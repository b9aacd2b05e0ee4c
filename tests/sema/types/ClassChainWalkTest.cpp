// Walking a class chain: the classes from a class up its bases, each once,
// for every shape a chain can have (a plain chain, a loop back to the class
// itself, a loop behind a tail), compared with a walk that remembers every
// class it met; and the method lookup's shortcut over classes without a
// method of the name, which must give the list the full merge gives.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "sema/ClassChain.h"
#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;
using quor::sema::testing::describeMethods;
using quor::sema::testing::method;
using Texts = std::vector<std::string>;

// The chain as a walk that remembers what it met gives it.
std::vector<const ClassType*> rememberingWalk(const ClassType& start) {
    std::vector<const ClassType*> chain;
    std::unordered_set<const ClassType*> seen;
    for (const ClassType* current = &start; current != nullptr && seen.insert(current).second;
         current = current->superclass.get()) {
        chain.push_back(current);
    }
    return chain;
}

// `tail` classes in a line, then `loop` classes whose last leads back to the
// first of them (none: the line simply ends). The loop's links are cut at
// the end, so that the classes can be freed.
class ChainShape {
public:
    ChainShape(std::size_t tail, std::size_t loop) {
        for (std::size_t i = 0; i < tail + loop; ++i) classes.push_back(types.createClassType("C" + std::to_string(i)));
        for (std::size_t i = 0; i + 1 < classes.size(); ++i) classes[i]->setSuperclass(classes[i + 1]);
        if (loop > 0) classes.back()->setSuperclass(classes[tail]);
    }
    ~ChainShape() {
        for (auto& cls : classes) cls->setSuperclass(nullptr);
    }
    const ClassType& start() const { return *classes.front(); }

    TypeContext types;
    std::vector<std::shared_ptr<ClassType>> classes;
};

TEST(ClassChainWalk, EveryShapeGivesEachClassOnceInWalkOrder) {
    for (std::size_t tail = 0; tail <= 40; ++tail) {
        for (std::size_t loop = 0; loop <= 40; ++loop) {
            if (tail + loop == 0) continue;
            ChainShape shape(tail, loop);
            const auto expected = rememberingWalk(shape.start());
            EXPECT_EQ(classChain(shape.start()), expected) << "tail " << tail << ", loop " << loop;
            EXPECT_EQ(distinctChainLength(shape.start()), tail + loop) << "tail " << tail << ", loop " << loop;
        }
    }
}

TEST(ClassChainWalk, ALongChainAndALongLoopAreWalkedWhole) {
    for (auto [tail, loop] : {std::pair<std::size_t, std::size_t>{10000, 0}, {1, 5000}, {3000, 3001}}) {
        ChainShape shape(tail, loop);
        EXPECT_EQ(classChain(shape.start()).size(), tail + loop);
        EXPECT_EQ(classChain(shape.start()), rememberingWalk(shape.start()));
    }
}

// A specialised class may hold two equal methods (`m(T)` and `m(int)` with
// T = int); below it, the merge into a class without such a method keeps
// only the first of them, and the shortcut must not skip that merge.
TEST(ClassChainWalk, AClassWithoutTheMethodStillMergesAwayAnEqualPairFromAbove) {
    TypeContext types;
    auto top = types.createClassType("Top");
    auto middle = types.createClassType("Middle");
    auto leaf = types.createClassType("Leaf");
    middle->setSuperclass(top);
    leaf->setSuperclass(middle);
    top->addMethod(method("m", types.getFunctionType({types.intType}, nullptr)));
    top->addMethod(method("m", types.getFunctionType({types.intType}, nullptr)));
    top->addMethod(method("n", types.getFunctionType({}, nullptr)));
    EXPECT_EQ(describeMethods(top->findMethods("m")), (Texts{"m(int) -> void", "m(int) -> void"}));
    EXPECT_EQ(describeMethods(middle->findMethods("m")), (Texts{"m(int) -> void"}));
    EXPECT_EQ(describeMethods(leaf->findMethods("m")), (Texts{"m(int) -> void"}));
    EXPECT_EQ(describeMethods(leaf->findMethods("n")), (Texts{"n() -> void"}));
    EXPECT_TRUE(leaf->findMethods("absent").empty());
}

TEST(ClassChainWalk, AMethodFarUpALongChainIsFoundOnceBelowClassesWithoutIt) {
    ChainShape shape(2000, 0);
    auto& classes = shape.classes;
    classes.back()->addMethod(method("far", shape.types.getFunctionType({shape.types.stringType}, nullptr)));
    classes[1000]->addMethod(method("far", shape.types.getFunctionType({shape.types.intType}, nullptr)));
    classes[500]->addMethod(method("near", shape.types.getFunctionType({}, nullptr)));
    EXPECT_EQ(describeMethods(classes[0]->findMethods("far")), (Texts{"far(int) -> void", "far(string) -> void"}));
    EXPECT_EQ(describeMethods(classes[1001]->findMethods("far")), (Texts{"far(string) -> void"}));
    EXPECT_EQ(describeMethods(classes[0]->findMethods("near")), (Texts{"near() -> void"}));
    EXPECT_TRUE(classes[501]->findMethods("near").empty());
}

}  // namespace
