// Pass 2 for the base position and the interface list of a class, and the
// consequences of the single walk in source order.
#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

std::vector<std::string> interfaceNames(const ClassType& cls) {
    std::vector<std::string> out;
    for (const auto& interface : cls.interfaces) out.push_back(interface->name);
    return out;
}

TEST(ResolverInheritance, AClassBaseBecomesTheSuperclass) {
    auto a = resolved("class Animal {}\nclass Dog extends Animal {}\nclass Puppy : Dog {}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(classNamed(*a, "Dog")->superclass, classNamed(*a, "Animal"));
    EXPECT_EQ(classNamed(*a, "Puppy")->superclass, classNamed(*a, "Dog"));
    EXPECT_EQ(classNamed(*a, "Animal")->superclass, nullptr);
}

TEST(ResolverInheritance, AnInterfaceInTheBasePositionIsImplemented) {
    auto a = resolved("interface Drawable {}\nclass Sprite : Drawable {}\n");
    EXPECT_TRUE(a->records().empty());
    auto sprite = classNamed(*a, "Sprite");
    EXPECT_EQ(sprite->superclass, nullptr);
    EXPECT_EQ(interfaceNames(*sprite), (std::vector<std::string>{"Drawable"}));
}

TEST(ResolverInheritance, InterfacesFollowTheBaseInOrder) {
    auto a = resolved(
        "interface I {}\ninterface J {}\ninterface K {}\nclass B {}\nclass C extends B : I, J implements K {}\n");
    EXPECT_TRUE(a->records().empty());
    // The first name behind the colon takes the base position: I is implemented there.
    auto c = classNamed(*a, "C");
    EXPECT_EQ(c->superclass, nullptr);
    EXPECT_EQ(interfaceNames(*c), (std::vector<std::string>{"I", "J", "K"}));
}

TEST(ResolverInheritance, AnUndefinedBaseIsReportedAndTheOtherMembersStay) {
    auto a = resolved("interface I {}\nclass C extends Missing implements I {\n  int x;\n}\n");
    EXPECT_EQ(a->records(), (Records{"E1002|Undefined base class or interface 'Missing'||2:1"}));
    auto c = classNamed(*a, "C");
    EXPECT_EQ(c->superclass, nullptr);
    EXPECT_EQ(interfaceNames(*c), (std::vector<std::string>{"I"}));
    EXPECT_EQ(fieldType(c->fields, "x"), "int");
}

TEST(ResolverInheritance, ABuiltinClassIsNoBase) {
    auto a = resolved("class Logger extends Console {}\n");
    EXPECT_EQ(a->records(), (Records{"E1002|Undefined base class or interface 'Console'||1:1"}));
}

TEST(ResolverInheritance, ABaseDeclaredLaterIsFound) {
    auto a = resolved("class Dog extends Animal {}\nclass Animal {}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(classNamed(*a, "Dog")->superclass, classNamed(*a, "Animal"));
}

TEST(ResolverInheritance, AStructAsBaseIsNotAClassOrInterface) {
    auto a = resolved("struct Point { int x; }\nclass C extends Point {}\n");
    EXPECT_EQ(a->records(), (Records{"E1001|Base type 'Point' is not a class or interface||2:1"}));
    EXPECT_EQ(classNamed(*a, "C")->superclass, nullptr);
}

TEST(ResolverInheritance, AnEnumOrAFunctionAsBaseIsNotAClassOrInterface) {
    auto a = resolved("enum Color { Red }\nclass C extends Color {}\nclass D extends print {}\n");
    EXPECT_EQ(a->records(), (Records{"E1001|Base type 'Color' is not a class or interface||2:1",
                                     "E1001|Base type 'print' is not a class or interface||3:1"}));
}

TEST(ResolverInheritance, AnUndefinedInterfaceIsReportedAndTheOthersStay) {
    auto a = resolved("interface I {}\ninterface J {}\nclass C implements I, Missing, J {}\n");
    EXPECT_EQ(a->records(), (Records{"E1002|Undefined interface 'Missing'||3:1"}));
    EXPECT_EQ(interfaceNames(*classNamed(*a, "C")), (std::vector<std::string>{"I", "J"}));
}

TEST(ResolverInheritance, AClassInTheInterfaceListIsNotAnInterface) {
    auto a = resolved("class B {}\nclass C implements B {}\nstruct S { int x; }\nclass D implements S {}\n");
    EXPECT_EQ(a->records(),
              (Records{"E1001|Type 'B' is not an interface||2:1", "E1001|Type 'S' is not an interface||4:1"}));
    EXPECT_TRUE(classNamed(*a, "C")->interfaces.empty());
}

TEST(ResolverInheritance, BaseThenInterfacesThenMembersAreReportedInThatOrder) {
    auto a = resolved("class C extends Nobody implements Nothing {\n  int x;\n  int x;\n}\n");
    EXPECT_EQ(a->records(),
              (Records{"E1002|Undefined base class or interface 'Nobody'||1:1",
                       "E1002|Undefined interface 'Nothing'||1:1", "E1004|Duplicate field 'x' in class 'C'||3:7"}));
}

TEST(ResolverInheritance, ASubclassAboveItsBaseGetsOverrideErrorsAndNoFieldComparison) {
    auto a = resolved(
        "class B extends A {\n  int id;\n  override fn show() {}\n}\nclass A {\n  int id;\n  fn show() {}\n}\n");
    EXPECT_EQ(a->records(),
              (Records{"E1001|Method 'show' marked override does not override any base class method||3:12"}));
    auto b = classNamed(*a, "B");
    EXPECT_EQ(b->superclass, classNamed(*a, "A"));
    EXPECT_EQ(fieldType(b->fields, "id"), "int");
    EXPECT_EQ(fieldType(classNamed(*a, "A")->fields, "id"), "int");
}

TEST(ResolverInheritance, ABaseDeclaredFirstIsComparedWith) {
    auto a = resolved(
        "class A {\n  int id;\n  fn show() {}\n}\nclass B extends A {\n  int id;\n  override fn show() {}\n}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate field 'id' in class 'B'||6:7"}));
}

TEST(ResolverInheritance, ASecondDeclarationRelinksTheTypeFoundByName) {
    auto a = resolved("class X {}\nclass Y {}\nclass A extends X {}\nclass A extends Y {}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate declaration of class 'A'|A symbol with name 'A' is already "
                                     "declared in this scope|4:1"}));
    EXPECT_EQ(classNamed(*a, "A")->superclass, classNamed(*a, "Y"));
}

}  // namespace
}  // namespace quor::sema::testing
