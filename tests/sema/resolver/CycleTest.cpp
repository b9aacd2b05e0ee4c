// Circular inheritance: the cycle is reported at the class that closes it,
// which stays unlinked, and no superclass chain can ever run in a circle.
#include <memory>
#include <string>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

TEST(ResolverCycles, AClassNamingItselfIsReportedWithItsNameTwice) {
    auto a = resolved("class A extends A {}\n");
    EXPECT_EQ(a->records(), (Records{circular("A", "A", "1:1")}));
    EXPECT_EQ(classNamed(*a, "A")->superclass, nullptr);
}

TEST(ResolverCycles, TwoClassesNamingEachOtherAreReportedOnceAtTheSecond) {
    auto a = resolved("class A extends B {}\nclass B extends A {}\n");
    EXPECT_EQ(a->records(), (Records{circular("B", "A", "2:1")}));
    EXPECT_EQ(classNamed(*a, "A")->superclass, classNamed(*a, "B"));
    EXPECT_EQ(classNamed(*a, "B")->superclass, nullptr);
}

TEST(ResolverCycles, InACycleOfThreeOnlyTheClosingClassIsReportedAndUnlinked) {
    auto a = resolved("class A extends C {}\nclass B extends A {}\nclass C extends B {}\n");
    EXPECT_EQ(a->records(), (Records{circular("C", "B", "3:1")}));
    EXPECT_EQ(classNamed(*a, "A")->superclass, classNamed(*a, "C"));
    EXPECT_EQ(classNamed(*a, "B")->superclass, classNamed(*a, "A"));
    EXPECT_EQ(classNamed(*a, "C")->superclass, nullptr);
}

TEST(ResolverCycles, AReportedClassKeepsItsOtherMembers) {
    auto a = resolved("class A extends B {}\nclass B extends A {\n  int x;\n  override fn m() {}\n}\n");
    EXPECT_EQ(a->records(),
              (Records{circular("B", "A", "2:1"),
                       "E1001|Method 'm' marked override does not override any base class method||4:12"}));
    EXPECT_EQ(fieldType(classNamed(*a, "B")->fields, "x"), "int");
}

TEST(ResolverCycles, ASecondDeclarationThatWouldCloseACycleIsReported) {
    auto a = resolved("class A {}\nclass B extends A {}\nclass A extends B {}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate declaration of class 'A'|A symbol with name 'A' is already "
                                     "declared in this scope|3:1",
                                     circular("A", "B", "3:1")}));
    EXPECT_EQ(classNamed(*a, "A")->superclass, nullptr);
    EXPECT_EQ(classNamed(*a, "B")->superclass, classNamed(*a, "A"));
}

// A class whose chain would lead back to itself through a link that the
// names do not show: the name "B" is given a new, empty class after the
// resolver ran, while the symbol B still holds the old one, which extends A.
// Making B the base of A passes the name check, and the link is refused.
std::unique_ptr<ast::ClassDecl> classExtending(const std::string& name, const std::string& base) {
    return std::make_unique<ast::ClassDecl>(name, std::vector<std::string>{}, base, std::vector<std::string>{},
                                            std::vector<ast::NodePtr>{}, "", false,
                                            diagnostics::SourceLocation{TEST_FILE, 7, 1});
}

TEST(ResolverCycles, ALinkLeadingBackToTheClassIsRefusedEvenWhenTheNamesDoNotShowIt) {
    auto a = resolved("class A {}\nclass B extends A {}\n");
    auto oldB = classNamed(*a, "B");
    a->types().createClassType("B");
    auto decl = classExtending("A", "B");
    a->analyzer->resolver.resolveClassMembersAndInheritance(*decl);
    EXPECT_TRUE(a->records().empty());
    auto classA = classNamed(*a, "A");
    EXPECT_EQ(classA->superclass, nullptr);
    EXPECT_EQ(oldB->superclass, classA);
    EXPECT_EQ(chainLength(oldB.get(), 10), 2);
}

TEST(ResolverCycles, ALinkLeadingBackToTheClassIsRefusedDuringTheWholePassToo) {
    auto a = resolved("class A {}\nclass B extends A {}\n");
    auto oldB = classNamed(*a, "B");
    a->types().createClassType("B");
    std::vector<ast::NodePtr> declarations;
    declarations.push_back(classExtending("A", "B"));
    ast::Program program(std::move(declarations), diagnostics::SourceLocation{TEST_FILE, 1, 1});
    a->analyzer->resolver.pass2_resolveMembersAndInheritance(program);
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(classNamed(*a, "A")->superclass, nullptr);
    EXPECT_EQ(chainLength(oldB.get(), 10), 2);
}

TEST(ResolverCycles, TheNameCheckStillReportsWhenTheNameIsOnTheChain) {
    auto a = resolved("class A {}\nclass B extends A {}\n");
    auto decl = classExtending("A", "B");
    a->analyzer->resolver.resolveClassMembersAndInheritance(*decl);
    EXPECT_EQ(a->records(), (Records{circular("A", "B", "7:1")}));
    EXPECT_EQ(classNamed(*a, "A")->superclass, nullptr);
}

TEST(ResolverCycles, TheCheckWalksFromTheTypeFoundByTheBaseName) {
    Analysis a("class A {}\nclass B {}\n");
    a.resolve();
    auto& resolver = a.analyzer->resolver;
    auto classA = classNamed(a, "A");
    auto classB = classNamed(a, "B");
    classB->setSuperclass(classA);
    EXPECT_TRUE(resolver.checkCircularInheritance(classA, "B", {TEST_FILE, 5, 2}));
    EXPECT_FALSE(resolver.checkCircularInheritance(classB, "A", {TEST_FILE, 6, 2}));
    EXPECT_FALSE(resolver.checkCircularInheritance(classA, "Nowhere", {TEST_FILE, 6, 2}));
    EXPECT_EQ(a.records(), (Records{circular("A", "B", "5:2")}));
}

// Source of `count` classes C0, C1, ... where each extends the one before.
std::string forwardChain(int count, const std::string& members) {
    std::string source = "class C0 {" + members + "}\n";
    for (int i = 1; i < count; ++i) {
        source += "class C" + std::to_string(i) + " extends C" + std::to_string(i - 1) + " {" + members + "}\n";
    }
    return source;
}

// The same chain with each class declared above its base.
std::string reverseChain(int count) {
    std::string source;
    for (int i = count - 1; i > 0; --i) {
        source += "class C" + std::to_string(i) + " extends C" + std::to_string(i - 1) + " {}\n";
    }
    return source + "class C0 {}\n";
}

void expectChain(Analysis& a, int count) {
    for (int i = 1; i < count; ++i) {
        ASSERT_EQ(classNamed(a, "C" + std::to_string(i))->superclass, classNamed(a, "C" + std::to_string(i - 1)))
            << "class C" << i;
    }
    EXPECT_EQ(chainLength(classNamed(a, "C" + std::to_string(count - 1)).get(), count), count);
}

TEST(ResolverCycles, AChainOfTenThousandClassesIsLinked) {
    Analysis a(forwardChain(10000, ""));
    a.resolve();
    EXPECT_TRUE(a.records().empty());
    expectChain(a, 10000);
}

TEST(ResolverCycles, AChainOfTenThousandClassesDeclaredBaseLastIsLinked) {
    Analysis a(reverseChain(10000));
    a.resolve();
    EXPECT_TRUE(a.records().empty());
    expectChain(a, 10000);
}

TEST(ResolverCycles, AChainOfTenThousandClassesWithFieldsAndOverridesIsResolved) {
    std::string source = "class C0 { int f0; fn show() {} }\n";
    for (int i = 1; i < 10000; ++i) {
        const auto n = std::to_string(i);
        source += "class C" + n + " extends C" + std::to_string(i - 1) + " { int f" + n + "; override fn show() {} }\n";
    }
    Analysis a(source);
    a.resolve();
    EXPECT_TRUE(a.records().empty());
    expectChain(a, 10000);
    EXPECT_TRUE(classNamed(a, "C9999")->findField("f0").has_value());
}

TEST(ResolverCycles, AChainOfTenThousandClassesRepeatingTheFirstClassesFieldIsResolved) {
    Analysis a(forwardChain(10000, " int value; "));
    a.resolve();
    const auto records = a.records();
    ASSERT_EQ(records.size(), 9999u);
    EXPECT_EQ(records.front(), "E1004|Duplicate field 'value' in class 'C1'||2:27");
    EXPECT_EQ(records.back(), "E1004|Duplicate field 'value' in class 'C9999'||10000:33");
    expectChain(a, 10000);
}

TEST(ResolverCycles, AFieldFoundThroughABaseIsLookedForAgainOnceThatBaseIsReplaced) {
    auto a = resolved(
        "class A { int x; }\n"
        "class B {}\n"
        "class C extends A {}\n"
        "class D extends C { int x; }\n"
        "class C extends B {}\n"
        "class F extends D { int x; }\n");
    // The second C moves C from A to B, so the chain of F holds no x any more.
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate declaration of class 'C'|A symbol with name 'C' is already "
                                     "declared in this scope|5:1",
                                     "E1004|Duplicate field 'x' in class 'D'||4:25"}));
    EXPECT_EQ(classNamed(*a, "C")->superclass, classNamed(*a, "B"));
    EXPECT_EQ(fieldType(classNamed(*a, "F")->fields, "x"), "int");
}

// C0 extends C999, and every other class the one before it: C999 closes the cycle.
TEST(ResolverCycles, ACycleOfAThousandClassesIsReportedOnceAtTheClosingClass) {
    std::string source = "class C0 extends C999 {}\n";
    for (int i = 1; i < 1000; ++i) {
        source += "class C" + std::to_string(i) + " extends C" + std::to_string(i - 1) + " {}\n";
    }
    auto a = resolved(source);
    EXPECT_EQ(a->records(), (Records{circular("C999", "C998", "1000:1")}));
    EXPECT_EQ(classNamed(*a, "C999")->superclass, nullptr);
    EXPECT_EQ(classNamed(*a, "C0")->superclass, classNamed(*a, "C999"));
    EXPECT_EQ(chainLength(classNamed(*a, "C998").get(), 1000), 1000);
}

// Each class extends the one after it, and the last one C0: C999 closes it.
TEST(ResolverCycles, ACycleOfAThousandClassesRunningTheOtherWayIsReportedOnceToo) {
    std::string source;
    for (int i = 0; i < 999; ++i) {
        source += "class C" + std::to_string(i) + " extends C" + std::to_string(i + 1) + " {}\n";
    }
    source += "class C999 extends C0 {}\n";
    auto a = resolved(source);
    EXPECT_EQ(a->records(), (Records{circular("C999", "C0", "1000:1")}));
    EXPECT_EQ(classNamed(*a, "C999")->superclass, nullptr);
    EXPECT_EQ(chainLength(classNamed(*a, "C0").get(), 1000), 1000);
}

}  // namespace
}  // namespace quor::sema::testing
