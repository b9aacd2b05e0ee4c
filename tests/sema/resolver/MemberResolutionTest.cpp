// The second walk: members of classes, interfaces, structs and enums, and
// the base and interface links of classes, with every report it makes.
#include <string>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {


struct ReportCase {
    const char* title;
    std::string source;
    Records records;
};

const ReportCase REPORT_CASES[] = {
    // The base position.
    {"AnUndefinedBase", "\n  class C extends Missing {}\n", {undefinedBase("Missing", "2:3")}},
    {"ABuiltinClassIsAnUndefinedBase", "class C extends Console {}\n", {undefinedBase("Console", "1:1")}},
    {"ABaseAfterAColonIsUndefinedToo", "abstract class C : Missing {}\n", {undefinedBase("Missing", "1:10")}},
    {"AStructBase", "struct S { int x; }\nclass C extends S {}\n", {notAClassOrInterface("S", "2:1")}},
    {"AnEnumBase", "enum M { A }\nclass C extends M {}\n", {notAClassOrInterface("M", "2:1")}},
    {"ABuiltinFunctionBase", "class C extends print {}\n", {notAClassOrInterface("print", "1:1")}},
    {"ABuiltinConstantBase", "class C extends PI {}\n", {notAClassOrInterface("PI", "1:1")}},
    {"AUserFunctionBase", "fn helper() {}\nclass C extends helper {}\n", {notAClassOrInterface("helper", "2:1")}},
    {"AClassBaseDeclaredLater", "class C extends B {}\nclass B {}\n", {}},
    {"AnInterfaceBase", "interface I {}\nclass C extends I {}\n", {}},

    // The interface list.
    {"AnUndefinedInterface", "class C implements Missing {}\n", {undefinedInterface("Missing", "1:1")}},
    {"AClassAsInterface", "class B {}\nclass C implements B {}\n", {notAnInterface("B", "2:1")}},
    {"AStructAsInterfaceAfterAColon", "interface I {}\nstruct S { int x; }\nclass C : I, S {}\n",
     {notAnInterface("S", "3:1")}},
    {"AFunctionAsInterface", "class C implements println {}\n", {notAnInterface("println", "1:1")}},
    {"EachFaultyNameInOrder", "class B {}\nclass C implements X, B, Y {}\n",
     {undefinedInterface("X", "2:1"), notAnInterface("B", "2:1"), undefinedInterface("Y", "2:1")}},
    {"TheBaseIsReportedBeforeTheInterfaces", "class C extends X implements Y {}\n",
     {undefinedBase("X", "1:1"), undefinedInterface("Y", "1:1")}},

    // Cycles.
    {"AClassNamingItself", "class A extends A {}\n", {circular("A", "A", "1:1")}},
    {"TwoClassesNamingEachOther", "class A extends B {}\nclass B extends A {}\n", {circular("B", "A", "2:1")}},
    {"ACycleOfThree", "class A extends B {}\nclass B extends C {}\nclass C extends A {}\n",
     {circular("C", "A", "3:1")}},
    {"ACycleThroughTheColon", "class A : B {}\nabstract class B : A {}\n", {circular("B", "A", "2:10")}},
    {"ADiamondIsNoCycle", "class A {}\nclass B extends A {}\nclass C extends A {}\nclass D extends B {}\n", {}},

    // Methods.
    {"AMethodRepeatingTheWholeSignature", "class C {\n  fn m(x: int) -> int {}\n  fn m(y: int) -> int {}\n}\n",
     {duplicateMethod("m", "C", "3:3")}},
    {"ATypeFirstMethodIsReportedAtItsName", "class C {\n  int m() {}\n  int m() {}\n}\n",
     {duplicateMethod("m", "C", "3:7")}},
    {"SameParametersAnotherReturnTypeIsKept", "class C {\n  fn m(x: int) -> int {}\n  fn m(x: int) {}\n}\n", {}},
    {"AMethodWithTheSignatureOfABuiltinFunction", "class C {\n  fn print(s: string) {}\n}\n", {}},
    {"TwoConstructorsOfOneSignature", "class P {\n  P(int x) { }\n  P(int y) { }\n}\n",
     {duplicateMethod("P", "P", "3:3")}},
    {"UndefinedMemberTypesThenTheDuplicate", "class C {\n  fn m(x: Ghost) {}\n  fn m(x: Ghost) {}\n}\n",
     {undefinedType("Ghost", "2:3"), undefinedType("Ghost", "3:3"), duplicateMethod("m", "C", "3:3")}},
    {"AGenericMethodsOwnParameterIsUndefined", "class C<T> {\n  fn m<U>(x: T, y: U) {}\n}\n",
     {undefinedType("U", "2:3")}},

    // Overrides.
    {"AnOverrideWithNoBase", "class C {\n  override fn show() {}\n}\n", {overridesNothing("show", "2:12")}},
    {"AnOverrideOfABaseMethod", "class A {\n  fn show(x: int) {}\n}\nclass B extends A {\n  override fn show(y: int) {}\n}\n",
     {}},
    {"AnOverrideOfAGrandparentMethod",
     "class A {\n  fn show() {}\n}\nclass B extends A {}\nclass C : B {\n  override fn show() {}\n}\n", {}},
    {"AnOverrideWithOtherParameters",
     "class A {\n  fn show(x: int) {}\n}\nclass B extends A {\n  override fn show(x: string) {}\n}\n",
     {overridesNothing("show", "5:12")}},
    {"AnOverrideWithAnotherReturnType",
     "class A {\n  fn show() -> int {}\n}\nclass B extends A {\n  override fn show() -> int64 {}\n}\n",
     {overridesNothing("show", "5:12")}},
    {"AnOverrideOfABaseDeclaredLater",
     "class B extends A {\n  override fn show() {}\n}\nclass A {\n  fn show() {}\n}\n", {overridesNothing("show", "2:12")}},
    {"AnOverrideOfAnInterfaceMethod",
     "interface I {\n  fn run();\n}\nclass C implements I {\n  override fn run() {}\n}\n",
     {overridesNothing("run", "5:12")}},
    {"AnOverrideWhenTheBaseIsAnInterface", "interface I {\n  fn run();\n}\nclass C : I {\n  override fn run() {}\n}\n",
     {overridesNothing("run", "5:12")}},
    {"AnOverrideOfAnOwnMethodOnly", "class C {\n  fn a() {}\n  override fn a(x: int) {}\n}\n",
     {overridesNothing("a", "3:12")}},
    {"ADuplicateOverrideIsOnlyADuplicate", "class C {\n  fn m() {}\n  override fn m() {}\n}\n",
     {duplicateMethod("m", "C", "3:12")}},
    {"AnOverrideInAClassClosingACycle", "class A extends B {\n  fn m() {}\n}\nclass B extends A {\n  override fn m() {}\n}\n",
     {circular("B", "A", "4:1"), overridesNothing("m", "5:12")}},

    // Fields.
    {"AFieldTwice", "class C {\n  int x;\n  string x;\n}\n", {duplicateClassField("x", "C", "3:10")}},
    {"AVarFieldTwiceIsReportedAtItsKeyword", "class C {\n  var x = 1;\n  var x = 2;\n}\n",
     {duplicateClassField("x", "C", "3:3")}},
    {"AFieldOfAnEarlierBase", "class A {\n  int id;\n}\nclass B extends A {\n  int id;\n}\n",
     {duplicateClassField("id", "B", "5:7")}},
    {"AFieldOfAnEarlierGrandparent", "class A {\n  int id;\n}\nclass B extends A {}\nclass C extends B {\n  int id;\n}\n",
     {duplicateClassField("id", "C", "6:7")}},
    {"AFieldOfALaterBaseIsNotCompared", "class B extends A {\n  int id;\n}\nclass A {\n  int id;\n}\n", {}},
    {"AFieldOfAnUndefinedTypeTwice", "class C {\n  Ghost g;\n  Ghost g;\n}\n",
     {undefinedType("Ghost", "2:9"), duplicateClassField("g", "C", "3:9")}},
    {"AFieldAndAMethodShareAName", "class C {\n  int size;\n  fn size() -> int {}\n}\n", {}},
    {"AClassTypeParameterIsAnyInFields", "class Box<T> {\n  T value;\n  T[] values;\n}\n", {}},

    // Interfaces.
    {"AnInterfaceMayRepeatAMethod", "interface I {\n  fn run();\n  fn run();\n}\n", {}},
    {"InterfaceMethodTypesAreReportedAtTheMethod", "interface I {\n  fn run(x: Ghost) -> Shade;\n}\n",
     {undefinedType("Ghost", "2:3"), undefinedType("Shade", "2:3")}},
    {"NoTypeParameterIsInForceInAnInterface", "class Box<T> {}\ninterface I {\n  fn put(x: T);\n}\n",
     {undefinedType("T", "3:3")}},
    {"InterfaceMethodsMayNameLaterTypes", "interface I {\n  fn make() -> P;\n}\nclass P {}\n", {}},

    // Structs.
    {"AStructFieldTwice", "struct S {\n  int x;\n  x: string;\n}\n", {duplicateStructField("x", "S", "3:3")}},
    {"AStructFieldTypeFirstTwice", "struct S {\n  x: int;\n  string x;\n}\n",
     {duplicateStructField("x", "S", "3:10")}},
    {"AStructFieldOfAnUndefinedType", "struct S {\n  Ghost g;\n}\n", {undefinedType("Ghost", "2:9")}},
    {"AStructFieldTwiceIsNotResolvedTwice", "struct S {\n  Ghost g;\n  Ghost g;\n}\n",
     {undefinedType("Ghost", "2:9"), duplicateStructField("g", "S", "3:9")}},
    {"AStructFieldOfALaterType", "struct S {\n  P p;\n}\nclass P {}\n", {}},

    // Enums.
    {"AVariantTwiceIsReportedAtTheEnum", "\n  enum M { A, B, A }\n", {duplicateVariant("A", "M", "2:3")}},
    {"AVariantThriceIsReportedTwice", "public enum M { A, A, A }\n",
     {duplicateVariant("A", "M", "1:8"), duplicateVariant("A", "M", "1:8")}},

    // The walk in source order.
    {"DeclarationsInSourceOrder",
     "enum M { A, A }\nstruct S {\n  Ghost1 a;\n}\ninterface I {\n  fn f(x: Ghost2);\n}\nclass C {\n  Ghost3 c;\n}\n",
     {duplicateVariant("A", "M", "1:1"), undefinedType("Ghost1", "3:10"), undefinedType("Ghost2", "6:3"),
      undefinedType("Ghost3", "9:10")}},
    {"TheFirstWalkReportsComeFirst", "class C extends X {}\nfn f(x: Y) {}\n",
     {undefinedType("Y", "2:1"), undefinedBase("X", "1:1")}},
    {"MembersOfAClassWhoseNameIsTakenAreNotLookedAt", "fn W() {}\nclass W extends X {\n  Ghost g;\n}\n",
     {"E1004|Duplicate declaration of class 'W'|A symbol with name 'W' is already declared in this scope|2:1"}},
    {"MembersOfAStructWhoseNameIsAClassAreNotLookedAt", "class S {}\nstruct S {\n  Ghost g;\n}\n",
     {"E1004|Duplicate declaration of struct 'S'|A symbol with name 'S' is already declared in this scope|2:1"}},
    {"MembersOfAnInterfaceWhoseNameIsAnEnumAreNotLookedAt", "enum I { A }\ninterface I {\n  fn f(x: Ghost);\n}\n",
     {"E1004|Duplicate declaration of interface 'I'|A symbol with name 'I' is already declared in this scope|2:1"}},
    {"VariantsOfAnEnumWhoseNameIsAStructAreNotApplied", "struct E2 { int x; }\nenum E2 { A, A }\n",
     {"E1004|Duplicate declaration of enum 'E2'|A symbol with name 'E2' is already declared in this scope|2:1"}},
};

class MemberReports : public ::testing::TestWithParam<ReportCase> {};

TEST_P(MemberReports, AreAsExpected) {
    const auto& c = GetParam();
    auto a = resolved(c.source);
    EXPECT_EQ(a->records(), c.records) << c.source;
    EXPECT_TRUE(a->analyzer->resolver.currentTypeParams.empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, MemberReports, ::testing::ValuesIn(REPORT_CASES),
                         [](const ::testing::TestParamInfo<ReportCase>& info) { return std::string(info.param.title); });

// ---------------------------------------------------------------------------
// What the walk stores.

std::vector<std::string> interfaceNames(const ClassType& cls) {
    std::vector<std::string> out;
    for (const auto& i : cls.interfaces) out.push_back(i ? i->name : "null");
    return out;
}

TEST(MemberResolution, LinksOfTheBaseAndInterfaceLists) {
    auto a = resolved(
        "interface I {}\ninterface J {}\nclass B {}\nclass C extends B implements I, Missing, J {}\n"
        "class D : I, J implements I {}\nclass Ex extends S {}\nstruct S { int x; }\nclass Fx extends Nope {}\n");
    auto c = classNamed(*a, "C");
    EXPECT_EQ(c->superclass, classNamed(*a, "B"));
    EXPECT_EQ(interfaceNames(*c), (std::vector<std::string>{"I", "J"}));
    // An interface in the base position joins the interfaces, first; repeats stay.
    auto d = classNamed(*a, "D");
    EXPECT_EQ(d->superclass, nullptr);
    EXPECT_EQ(interfaceNames(*d), (std::vector<std::string>{"I", "J", "I"}));
    ASSERT_TRUE(classNamed(*a, "Ex") && classNamed(*a, "Fx"));
    EXPECT_EQ(classNamed(*a, "Ex")->superclass, nullptr);
    EXPECT_TRUE(classNamed(*a, "Ex")->interfaces.empty());
    EXPECT_EQ(classNamed(*a, "Fx")->superclass, nullptr);
}

TEST(MemberResolution, TheClassClosingACycleStaysUnlinked) {
    auto a = resolved("class A extends B {}\nclass B extends C {}\nclass C extends A {}\nclass D extends D {}\n");
    EXPECT_EQ(classNamed(*a, "A")->superclass, classNamed(*a, "B"));
    EXPECT_EQ(classNamed(*a, "B")->superclass, classNamed(*a, "C"));
    EXPECT_EQ(classNamed(*a, "C")->superclass, nullptr);
    EXPECT_EQ(classNamed(*a, "D")->superclass, nullptr);
}

TEST(MemberResolution, MethodsAreStoredInOrderWithTheirFlags) {
    auto a = resolved(
        "class A {\n  fn show() {}\n}\n"
        "class C extends A {\n"
        "  fn m(x: int) -> int {}\n"
        "  fn m(x: int) -> string {}\n"
        "  private static fn s() {}\n"
        "  protected abstract fn r();\n"
        "  override fn show() {}\n"
        "  override fn ghost() {}\n"
        "  fn m(y: int) -> int {}\n"
        "  C(int v) { }\n"
        "}\n");
    auto c = classNamed(*a, "C");
    ASSERT_EQ(c->methods.size(), 7u);
    struct Row {
        const char* name;
        const char* type;
        const char* visibility;
        bool isStatic, isAbstract, isOverride;
    };
    const Row rows[] = {
        {"m", "fn(int) -> int", "public", false, false, false},
        {"m", "fn(int) -> string", "public", false, false, false},
        {"s", "fn() -> void", "private", true, false, false},
        {"r", "fn() -> void", "protected", false, true, false},
        {"show", "fn() -> void", "public", false, false, true},
        // Reported, and added all the same.
        {"ghost", "fn() -> void", "public", false, false, true},
        {"C", "fn(int) -> void", "public", false, false, false},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto& method = c->methods[i];
        SCOPED_TRACE(i);
        EXPECT_EQ(method.name, rows[i].name);
        EXPECT_EQ(method.type->toString(), rows[i].type);
        EXPECT_EQ(method.visibility, rows[i].visibility);
        EXPECT_EQ(method.isStatic, rows[i].isStatic);
        EXPECT_EQ(method.isAbstract, rows[i].isAbstract);
        EXPECT_EQ(method.isOverride, rows[i].isOverride);
    }
    // Methods are entered in no scope.
    EXPECT_EQ(a->symbols().lookup("show"), nullptr);
    EXPECT_EQ(a->symbols().lookup("m"), nullptr);
}

TEST(MemberResolution, FieldsAreStoredWithTheirFlags) {
    auto a = resolved(
        "class A {\n  int base;\n}\nclass C<T> extends A {\n  int base;\n  T item;\n  var loose = 1;\n"
        "  private static double rate = 1.0;\n  const string name = \"n\";\n  Later later;\n}\nclass Later {}\n");
    auto c = classNamed(*a, "C");
    EXPECT_EQ(fieldType(c->fields, "base"), "absent");
    EXPECT_EQ(fieldType(c->fields, "item"), "any");
    EXPECT_EQ(fieldType(c->fields, "loose"), "void");
    const auto& rate = c->fields.at("rate");
    EXPECT_EQ(rate.type, a->types().doubleType);
    EXPECT_EQ(rate.visibility, "private");
    EXPECT_TRUE(rate.isStatic);
    EXPECT_FALSE(rate.isConst);
    const auto& name = c->fields.at("name");
    EXPECT_EQ(name.type, a->types().stringType);
    EXPECT_EQ(name.visibility, "public");
    EXPECT_TRUE(name.isConst);
    EXPECT_EQ(c->fields.at("item").name, "item");
    EXPECT_EQ(c->fields.at("later").type, a->types().findUserType("Later"));
}

TEST(MemberResolution, InterfaceMethodsArePublicAbstractWhateverIsWritten) {
    auto a = resolved("interface I {\n  fn b(x: int);\n  fn a() -> string;\n  fn b(x: int);\n}\n");
    auto i = userType<InterfaceType>(*a, "I");
    ASSERT_TRUE(i);
    ASSERT_EQ(i->methods.size(), 3u);
    EXPECT_EQ(i->methods[0].name, "b");
    EXPECT_EQ(i->methods[1].name, "a");
    EXPECT_EQ(i->methods[1].type->toString(), "fn() -> string");
    for (const auto& m : i->methods) {
        EXPECT_EQ(m.visibility, "public");
        EXPECT_FALSE(m.isStatic);
        EXPECT_TRUE(m.isAbstract);
        EXPECT_FALSE(m.isOverride);
    }
}

TEST(MemberResolution, StructFieldsArePublicAndTheFirstOfANameStays) {
    auto a = resolved("struct S {\n  int x;\n  y: P;\n  string x;\n}\nclass P {}\n");
    auto s = userType<StructType>(*a, "S");
    ASSERT_TRUE(s);
    ASSERT_EQ(s->fields.size(), 2u);
    EXPECT_EQ(s->fields.at("x").type, a->types().intType);
    EXPECT_EQ(s->fields.at("y").type, a->types().findUserType("P"));
    for (const auto& [name, field] : s->fields) {
        EXPECT_EQ(field.name, name);
        EXPECT_EQ(field.visibility, "public");
        EXPECT_FALSE(field.isStatic);
        EXPECT_FALSE(field.isConst);
    }
}

struct EnumCase {
    const char* source;
    std::vector<std::pair<std::string, long long>> values;  // in variant order
};

TEST(MemberResolution, EnumValuesCountOnFromTheLastIntegerLiteral) {
    const EnumCase cases[] = {
        {"enum M { A, B, C }", {{"A", 0}, {"B", 1}, {"C", 2}}},
        {"enum M { A, B = 10, C }", {{"A", 0}, {"B", 10}, {"C", 11}}},
        {"enum M { A = 0x10, B = 010, C }", {{"A", 16}, {"B", 8}, {"C", 9}}},
        {"enum M { A = 1_000, B }", {{"A", 1}, {"B", 2}}},
        {"enum M { A = 5, B = -1, C = 2 * 3, D = 'x', F = true }", {{"A", 5}, {"B", 6}, {"C", 7}, {"D", 8}, {"F", 9}}},
        {"enum M { A = 3, B = 1, C }", {{"A", 3}, {"B", 1}, {"C", 2}}},
        {"enum M { A = 0, B = 0 }", {{"A", 0}, {"B", 0}}},
        {"enum M { A, B, A, C }", {{"A", 0}, {"B", 1}, {"C", 2}}},
        {"enum M { A = 4, A = 9, B }", {{"A", 4}, {"B", 5}}},
        {"enum M { A = 2.5, B }", {{"A", 0}, {"B", 1}}},
        // Parentheses leave no node of their own: the literal inside counts.
        {"enum M { A = (5), B }", {{"A", 5}, {"B", 6}}},
        {"enum M { }", {}},
    };
    for (const auto& c : cases) {
        auto a = resolved(c.source);
        auto e = userType<EnumType>(*a, "M");
        ASSERT_TRUE(e) << c.source;
        std::vector<std::string> names;
        for (const auto& [name, value] : c.values) {
            names.push_back(name);
            ASSERT_EQ(e->variantValues.count(name), 1u) << c.source << " " << name;
            EXPECT_EQ(e->variantValues.at(name), value) << c.source << " " << name;
        }
        EXPECT_EQ(e->variants, names) << c.source;
        EXPECT_EQ(e->variantValues.size(), names.size()) << c.source;
    }
}

}  // namespace
}  // namespace quor::sema::testing
