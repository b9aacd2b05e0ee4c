// The chain index of pass 2: while it runs, its answers are those of a plain
// walk up the superclass links, whatever the counts let it skip.
#include <string>
#include <vector>

#include "sema/InheritanceIndex.h"
#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

// The truth, by walking the links in the test itself.
bool walkHasName(const ClassType* cls, const std::string& name) {
    for (; cls != nullptr; cls = cls->superclass.get()) {
        if (cls->name == name) return true;
    }
    return false;
}

bool walkHasClass(const ClassType* cls, const ClassType* target) {
    for (; cls != nullptr; cls = cls->superclass.get()) {
        if (cls == target) return true;
    }
    return false;
}

bool walkHasField(const ClassType* cls, const std::string& field) {
    for (; cls != nullptr; cls = cls->superclass.get()) {
        if (cls->fields.count(field) != 0) return true;
    }
    return false;
}

struct Forest {
    TypeContext types;
    std::vector<std::shared_ptr<ClassType>> classes;

    // Root <- Mid <- Leaf, Root <- Side, and Lone on its own.
    Forest() {
        for (const char* name : {"Root", "Mid", "Leaf", "Side", "Lone"}) classes.push_back(types.createClassType(name));
        classes[1]->setSuperclass(classes[0]);
        classes[2]->setSuperclass(classes[1]);
        classes[3]->setSuperclass(classes[0]);
        classes[0]->fields.emplace("id", MemberField{"id", types.intType});
        classes[1]->fields.emplace("mid", MemberField{"mid", types.intType});
        classes[3]->fields.emplace("side", MemberField{"side", types.intType});
        classes[0]->addMethod(MemberMethod{"run", types.getFunctionType({}, types.voidType)});
    }
};

const std::vector<std::string> NAMES = {"Root", "Mid", "Leaf", "Side", "Lone", "Nobody"};
const std::vector<std::string> FIELDS = {"id", "mid", "side", "none"};

void expectAnswersOfAPlainWalk(InheritanceIndex& index, Forest& forest) {
    for (const auto& cls : forest.classes) {
        for (const auto& name : NAMES) {
            EXPECT_EQ(index.chainHasName(*cls, name), walkHasName(cls.get(), name)) << cls->name << " / " << name;
        }
        for (const auto& target : forest.classes) {
            EXPECT_EQ(index.chainHasClass(*cls, *target), walkHasClass(cls.get(), target.get()))
                << cls->name << " / " << target->name;
        }
        for (const auto& field : FIELDS) {
            EXPECT_EQ(index.chainHasField(*cls, field), walkHasField(cls.get(), field)) << cls->name << " / " << field;
        }
    }
}

TEST(ResolverChainIndex, AnswersAreThoseOfAPlainWalkWhileActive) {
    Forest forest;
    InheritanceIndex index;
    index.start();
    expectAnswersOfAPlainWalk(index, forest);
}

TEST(ResolverChainIndex, AnswersAreThoseOfAPlainWalkWhenInactive) {
    Forest forest;
    InheritanceIndex index;
    expectAnswersOfAPlainWalk(index, forest);
}

TEST(ResolverChainIndex, ChangesMadeThroughTheIndexAreSeenByLaterAnswers) {
    Forest forest;
    auto root = forest.classes[0];
    auto mid = forest.classes[1];
    auto leaf = forest.classes[2];
    auto side = forest.classes[3];
    auto lone = forest.classes[4];
    InheritanceIndex index;
    index.start();
    EXPECT_FALSE(index.chainHasField(*leaf, "extra"));
    index.addField(*lone, MemberField{"extra", forest.types.intType});
    EXPECT_FALSE(index.chainHasField(*leaf, "extra"));
    EXPECT_TRUE(index.chainHasField(*leaf, "mid"));
    index.link(*root, lone);
    EXPECT_EQ(root->superclass, lone);
    EXPECT_TRUE(index.chainHasField(*leaf, "extra"));
    EXPECT_TRUE(index.chainHasName(*side, "Lone"));
    EXPECT_TRUE(index.chainHasClass(*leaf, *lone));
    // Moving Mid under Side takes Mid's chain away from under Leaf's cached answer.
    index.link(*mid, side);
    EXPECT_TRUE(index.chainHasField(*leaf, "side"));
    index.link(*mid, nullptr);
    EXPECT_FALSE(index.chainHasField(*leaf, "side"));
    EXPECT_FALSE(index.chainHasField(*leaf, "id"));
    EXPECT_FALSE(index.chainHasName(*leaf, "Root"));
    EXPECT_FALSE(index.chainHasClass(*leaf, *root));
    expectAnswersOfAPlainWalk(index, forest);
}

TEST(ResolverChainIndex, MethodsAreFoundByNameAndEqualFunctionType) {
    Forest forest;
    auto leaf = forest.classes[2];
    auto lone = forest.classes[4];
    auto& types = forest.types;
    InheritanceIndex index;
    index.start();
    EXPECT_TRUE(index.chainHasMethod(leaf.get(), "run", *types.getFunctionType({}, types.voidType)));
    EXPECT_FALSE(index.chainHasMethod(leaf.get(), "run", *types.getFunctionType({}, types.intType)));
    EXPECT_FALSE(index.chainHasMethod(leaf.get(), "walk", *types.getFunctionType({}, types.voidType)));
    EXPECT_FALSE(index.chainHasMethod(lone.get(), "run", *types.getFunctionType({}, types.voidType)));
    EXPECT_FALSE(index.chainHasMethod(nullptr, "run", *types.getFunctionType({}, types.voidType)));
    index.addMethod(*lone, MemberMethod{"walk", types.getFunctionType({types.intType}, types.voidType)});
    EXPECT_TRUE(index.chainHasMethod(lone.get(), "walk", *types.getFunctionType({types.intType}, types.voidType)));
    EXPECT_EQ(lone->methods.size(), 1u);
}

TEST(ResolverChainIndex, AWalkOverALoopMadeOutsideTheResolverEnds) {
    TypeContext types;
    auto x = types.createClassType("X");
    auto y = types.createClassType("Y");
    auto z = types.createClassType("Z");
    x->setSuperclass(y);
    y->setSuperclass(x);
    InheritanceIndex index;
    index.start();
    EXPECT_TRUE(index.chainHasName(*x, "Y"));
    EXPECT_FALSE(index.chainHasName(*x, "Z"));
    EXPECT_FALSE(index.chainHasClass(*x, *z));
    EXPECT_FALSE(index.chainHasField(*x, "f"));
    index.stop();
    EXPECT_FALSE(index.chainHasName(*x, "Z"));
    EXPECT_FALSE(index.chainHasClass(*x, *z));
}

TEST(ResolverChainIndex, AfterStopChangesMadeDirectlyAreSeen) {
    Forest forest;
    InheritanceIndex index;
    index.start();
    EXPECT_FALSE(index.chainHasField(*forest.classes[4], "late"));
    index.stop();
    forest.classes[4]->fields.emplace("late", MemberField{"late", forest.types.intType});
    EXPECT_TRUE(index.chainHasField(*forest.classes[4], "late"));
}

// A chain longer than the index walks uncounted: its classes are taken into
// the counts by the first question about it, and changes made to them
// afterwards through the index are seen by every later answer.
TEST(ResolverChainIndex, AChainPastTheShortLimitAnswersAsAPlainWalkThroughChanges) {
    TypeContext types;
    const std::size_t length = InheritanceIndex::SHORT_CHAIN + 10;
    std::vector<std::shared_ptr<ClassType>> chain;
    for (std::size_t i = 0; i < length; ++i) chain.push_back(types.createClassType("L" + std::to_string(i)));
    InheritanceIndex index;
    index.start();
    for (std::size_t i = 1; i < length; ++i) {
        EXPECT_FALSE(index.chainHasClass(*chain[i - 1], *chain[i]));
        index.link(*chain[i], chain[i - 1]);
    }
    const ClassType& leaf = *chain.back();
    EXPECT_TRUE(index.chainHasName(leaf, "L0"));
    EXPECT_FALSE(index.chainHasField(leaf, "deep"));
    index.addField(*chain[0], MemberField{"deep", types.intType});
    EXPECT_TRUE(index.chainHasField(leaf, "deep"));
    EXPECT_TRUE(index.chainHasField(*chain[length / 2], "deep"));
    const auto walk = types.getFunctionType({}, types.voidType);
    EXPECT_FALSE(index.chainHasMethod(&leaf, "walk", *walk));
    index.addMethod(*chain[1], MemberMethod{"walk", walk});
    EXPECT_TRUE(index.chainHasMethod(&leaf, "walk", *walk));
    EXPECT_FALSE(index.chainHasMethod(chain[0].get(), "walk", *walk));
    // Cutting the chain in the middle takes the root's field and name away
    // from every class below the cut.
    const std::size_t cut = length / 2;
    index.link(*chain[cut], nullptr);
    EXPECT_FALSE(index.chainHasField(leaf, "deep"));
    EXPECT_FALSE(index.chainHasName(leaf, "L0"));
    EXPECT_FALSE(index.chainHasClass(leaf, *chain[0]));
    EXPECT_FALSE(index.chainHasMethod(&leaf, "walk", *walk));
    EXPECT_TRUE(index.chainHasField(*chain[cut - 1], "deep"));
    for (const auto& cls : chain) {
        for (const auto& target : {chain[0], chain[cut - 1], chain[cut], chain.back()}) {
            EXPECT_EQ(index.chainHasClass(*cls, *target), walkHasClass(cls.get(), target.get()))
                << cls->name << " / " << target->name;
            EXPECT_EQ(index.chainHasName(*cls, target->name), walkHasName(cls.get(), target->name))
                << cls->name << " / " << target->name;
        }
        EXPECT_EQ(index.chainHasField(*cls, "deep"), walkHasField(cls.get(), "deep")) << cls->name;
    }
}

}  // namespace
}  // namespace quor::sema::testing
