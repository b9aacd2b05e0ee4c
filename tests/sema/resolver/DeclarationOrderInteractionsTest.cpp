// How the rules of the two resolver walks meet in one program: a repeated
// declaration still has its members applied to the type found by name, with
// its own type parameters; a class in the middle of a chain that is declared
// later has no base yet when the classes below it are filled; and the
// reports of one class come base first, then interfaces, then members.
#include <string>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {


struct InteractionCase {
    const char* title;
    std::string source;
    Records records;
};

const InteractionCase INTERACTION_CASES[] = {
    // A repeated class declaration.
    {"ARepeatedGenericClassUsesItsOwnTypeParameters",
     "class Box<T> {}\nclass Box<U> {\n  U a;\n  T b;\n}\n",
     {duplicateType("class", "Box", "2:1"), undefinedType("T", "4:5")}},
    {"ARepeatedClassNamingItselfAsBaseIsACycle", "class A {}\nclass A extends A {}\n",
     {duplicateType("class", "A", "2:1"), circular("A", "A", "2:1")}},
    {"ARepeatedClassRepeatingAMethodIsADuplicateMethod",
     "class A {\n  fn m() {}\n}\nclass A {\n  fn m() {}\n  fn m(x: int) {}\n}\n",
     {duplicateType("class", "A", "4:1"), duplicateMethod("m", "A", "5:3")}},
    {"ARepeatedClassOverridingWhatItsFirstDeclarationHasIsNoOverride",
     "class A {\n  fn m() {}\n}\nclass A {\n  override fn m(x: int) {}\n}\n",
     {duplicateType("class", "A", "4:1"), overridesNothing("m", "5:12")}},

    // One class: base, then interfaces, then members.
    {"ASelfBaseIsReportedBeforeTheInterfacesAndTheMembers",
     "interface I {}\nclass A : A, Missing, I {\n  int x;\n  int x;\n}\n",
     {circular("A", "A", "2:1"), undefinedInterface("Missing", "2:1"), duplicateClassField("x", "A", "4:7")}},
    {"ABaseOfAWrongKindIsReportedBeforeAnUndefinedMemberType",
     "enum Mode { A }\nclass C extends Mode implements Nothing {\n  Ghost g;\n}\n",
     {notAClassOrInterface("Mode", "2:1"), undefinedInterface("Nothing", "2:1"), undefinedType("Ghost", "3:9")}},

    // Order of declaration along a chain.
    {"AMiddleClassDeclaredLaterHidesTheGrandparentsMembers",
     "class A {\n  int id;\n  fn show() {}\n}\nclass C extends B {\n  int id;\n  override fn show() {}\n}\n"
     "class B extends A {}\n",
     {overridesNothing("show", "7:12")}},
    {"AMiddleClassDeclaredEarlierShowsTheGrandparentsMembers",
     "class A {\n  int id;\n  fn show() {}\n}\nclass B extends A {}\nclass C extends B {\n  int id;\n"
     "  override fn show() {}\n}\n",
     {duplicateClassField("id", "C", "7:7")}},
    {"ACycleClosedByAClassDeclaredLastNamesItsOwnBase",
     "class A extends B {}\nclass C extends A {}\nclass B extends C {}\n", {circular("B", "C", "3:1")}},
    {"ACycleClosedInTheMiddleOfTheSourceLeavesTheRestLinked",
     "class A extends C {}\nclass C extends A {}\nclass D extends C {}\n", {circular("C", "A", "2:1")}},

    // The override check against the base's overload set.
    {"AnOverrideMatchesOneOfSeveralBaseOverloads",
     "class A {\n  fn m(x: int) {}\n  fn m(x: string) -> int {}\n}\nclass B extends A {\n"
     "  override fn m(y: string) -> int {}\n  override fn m(y: string) {}\n}\n",
     {overridesNothing("m", "7:12")}},
    {"AnOverrideFindsAGrandparentMethodBesideAMiddleOneOfAnotherReturnType",
     "class A {\n  fn m() -> int {}\n}\nclass B extends A {\n  fn m() -> string {}\n}\nclass C extends B {\n"
     "  override fn m() -> int {}\n}\n",
     {}},
    {"UnknownParameterTypesOnBothSidesStillOverride",
     "class A {\n  fn m(x: Ghost) {}\n}\nclass B extends A {\n  override fn m(x: Phantom) {}\n}\n",
     {undefinedType("Ghost", "2:3"), undefinedType("Phantom", "5:12")}},
    {"AnOverrideOfAMethodRefusedAsADuplicateInTheBaseStillMatchesTheFirst",
     "class A {\n  fn m() {}\n  fn m() {}\n}\nclass B extends A {\n  override fn m() {}\n}\n",
     {duplicateMethod("m", "A", "3:3")}},

    // What the base position can name.
    {"ATopLevelVariableIsNoBase", "var Base = 1;\nclass C extends Base {}\n", {undefinedBase("Base", "2:1")}},
    {"AClassInsideATopLevelBlockIsNoBase", "extern {\n  class Hidden {}\n}\nclass C extends Hidden {}\n",
     {undefinedBase("Hidden", "4:1")}},
    {"AnEnumLiftedOutOfABodyIsABaseOfAWrongKindButAFieldType",
     "fn f() {\n  enum Mode { A }\n}\nclass C extends Mode {\n  Mode m;\n}\n", {notAClassOrInterface("Mode", "4:1")}},
    {"AFunctionDeclaredInABlockIsABaseOfAWrongKind", "extern {\n  fn helper();\n}\nclass C : helper {}\n",
     {notAClassOrInterface("helper", "4:1")}},
    {"AnImportedNameIsNoInterface", "import shapes.Drawable;\nclass C implements Drawable {}\n",
     {undefinedInterface("Drawable", "2:1")}},

    // Enums are lifted only out of function bodies, through plain blocks.
    {"AnEnumAmongTheMembersOfAClassIsNotLifted", "class C {\n  enum Inner { A }\n}\nfn f(x: Inner) {}\n",
     {undefinedType("Inner", "4:1")}},
    {"AnEnumLiftedOutOfABodyServesAFieldOfAnEarlierClass",
     "class C {\n  Mode m;\n}\nfn f() => 1;\nfn g() {\n  enum Mode { A }\n}\n", {}},

    // Member types naming generic classes declared later.
    {"AFieldMayNameASpecialisationOfALaterGenericClass",
     "class A {\n  Box<int> b;\n  fn get() -> Box<string> {}\n}\nclass Box<T> {\n  T value;\n}\n", {}},
    {"AClassTypeParameterHidesAClassOfItsName", "class T {}\nclass Box<T> {\n  T v;\n  fn put(x: T) {}\n}\n", {}},
};

class DeclarationOrderInteractions : public ::testing::TestWithParam<InteractionCase> {};

TEST_P(DeclarationOrderInteractions, ReportInWalkOrder) {
    const auto& c = GetParam();
    auto a = resolved(c.source);
    EXPECT_EQ(a->records(), c.records) << c.source;
    EXPECT_TRUE(a->analyzer->resolver.currentTypeParams.empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, DeclarationOrderInteractions, ::testing::ValuesIn(INTERACTION_CASES),
                         [](const ::testing::TestParamInfo<InteractionCase>& info) {
                             return std::string(info.param.title);
                         });

// ---------------------------------------------------------------------------
// What those programs leave in the types.

TEST(DeclarationOrderResults, ARepeatedGenericClassFillsTheFirstTypeWithItsOwnParameters) {
    auto a = resolved("class Box<T> {}\nclass Box<U> {\n  U a;\n  T b;\n}\n");
    auto box = classNamed(*a, "Box");
    ASSERT_TRUE(box);
    EXPECT_EQ(box->typeParams, (std::vector<std::string>{"T"}));
    EXPECT_EQ(fieldType(box->fields, "a"), "any");
    EXPECT_EQ(fieldType(box->fields, "b"), "<type-error>");
}

TEST(DeclarationOrderResults, AMiddleClassDeclaredLaterIsLinkedAfterTheClassBelowIt) {
    auto a = resolved(
        "class A {\n  int id;\n  fn show() {}\n}\nclass C extends B {\n  int id;\n  override fn show() {}\n}\n"
        "class B extends A {}\n");
    auto c = classNamed(*a, "C");
    EXPECT_EQ(c->superclass, classNamed(*a, "B"));
    EXPECT_EQ(classNamed(*a, "B")->superclass, classNamed(*a, "A"));
    // Both stay: the field was not compared with A's, the override was added all the same.
    EXPECT_EQ(fieldType(c->fields, "id"), "int");
    EXPECT_EQ(methodTypes(*c, "show"), (std::vector<std::string>{"fn() -> void"}));
}

TEST(DeclarationOrderResults, ACycleClosedByTheLastClassLeavesOnlyThatClassUnlinked) {
    auto a = resolved("class A extends B {}\nclass C extends A {}\nclass B extends C {}\n");
    EXPECT_EQ(classNamed(*a, "A")->superclass, classNamed(*a, "B"));
    EXPECT_EQ(classNamed(*a, "C")->superclass, classNamed(*a, "A"));
    EXPECT_EQ(classNamed(*a, "B")->superclass, nullptr);
}

TEST(DeclarationOrderResults, ACycleClosedInTheMiddleLeavesTheLaterSubclassLinked) {
    auto a = resolved("class A extends C {}\nclass C extends A {}\nclass D extends C {}\n");
    EXPECT_EQ(classNamed(*a, "A")->superclass, classNamed(*a, "C"));
    EXPECT_EQ(classNamed(*a, "C")->superclass, nullptr);
    EXPECT_EQ(classNamed(*a, "D")->superclass, classNamed(*a, "C"));
}

TEST(DeclarationOrderResults, ASelfBaseKeepsTheOtherInterfaces) {
    auto a = resolved("interface I {}\nclass A : A, Missing, I {}\n");
    auto cls = classNamed(*a, "A");
    EXPECT_EQ(cls->superclass, nullptr);
    ASSERT_EQ(cls->interfaces.size(), 1u);
    EXPECT_EQ(cls->interfaces[0]->name, "I");
}

TEST(DeclarationOrderResults, ASpecialisationOfALaterGenericClassIsFilledFromItsDeclaration) {
    auto a = resolved("class A {\n  Box<int> b;\n}\nclass Box<T> {\n  T value;\n  fn put(x: T) -> T {}\n}\n");
    ASSERT_TRUE(a->records().empty());
    auto boxOfInt = classNamed(*a, "Box<int>");
    ASSERT_TRUE(boxOfInt);
    EXPECT_EQ(classNamed(*a, "A")->fields.at("b").type, boxOfInt);
    EXPECT_EQ(fieldType(boxOfInt->fields, "value"), "int");
    EXPECT_EQ(methodTypes(*boxOfInt, "put"), (std::vector<std::string>{"fn(int) -> int"}));
    // The generic class itself keeps its type parameter as any.
    EXPECT_EQ(fieldType(classNamed(*a, "Box")->fields, "value"), "any");
}

// A user class of a built-in class's name replaces it among the types only
// when the walk reaches it: a signature above it got the built-in class, a
// member type (resolved in the second walk) gets the user's.
TEST(DeclarationOrderResults, ASignatureAboveAUserClassOfABuiltinNameKeepsTheBuiltinClass) {
    auto a = resolved("fn show(c: Console) {}\nclass Console {\n  int x;\n}\nclass Screen {\n  Console c;\n}\n");
    EXPECT_TRUE(a->records().empty());
    auto user = classNamed(*a, "Console");
    ASSERT_TRUE(user);
    EXPECT_TRUE(user->methods.empty());
    auto param = std::dynamic_pointer_cast<ClassType>(functionNamed(*a, "show")->functionType->paramTypes.at(0));
    ASSERT_TRUE(param);
    EXPECT_NE(param, user);
    EXPECT_EQ(methodTypes(*param, "println"), (std::vector<std::string>{"fn(string) -> void"}));
    EXPECT_EQ(fieldType(param->fields, "x"), "absent");
    // One name, so the two are the same type all the same.
    EXPECT_TRUE(param->equals(*user));
    EXPECT_EQ(classNamed(*a, "Screen")->fields.at("c").type, user);
}

TEST(DeclarationOrderResults, AClassTypeParameterWinsOverAClassOfItsName) {
    auto a = resolved("class T {}\nclass Box<T> {\n  T v;\n  fn put(x: T) {}\n}\n");
    auto box = classNamed(*a, "Box");
    EXPECT_EQ(box->fields.at("v").type, a->types().anyType);
    EXPECT_EQ(methodTypes(*box, "put"), (std::vector<std::string>{"fn(any) -> void"}));
}

}  // namespace
}  // namespace quor::sema::testing
