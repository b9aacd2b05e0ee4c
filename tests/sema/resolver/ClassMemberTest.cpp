// Pass 2 for classes: fields and methods in order of declaration, with the
// duplicate and override checks.
#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {


const MemberMethod* onlyMethod(const ClassType& cls, const std::string& name) {
    const MemberMethod* found = nullptr;
    for (const auto& method : cls.methods) {
        if (method.name != name) continue;
        if (found != nullptr) return nullptr;
        found = &method;
    }
    return found;
}

TEST(ResolverClassMembers, FieldsAreStoredWithTheirTypesAndModifiers) {
    auto a = resolved(
        "class Point {\n"
        "  int x;\n"
        "  private static double scale = 1.0;\n"
        "  const string label = \"p\";\n"
        "  protected Point next;\n"
        "}\n");
    EXPECT_TRUE(a->records().empty());
    auto point = classNamed(*a, "Point");
    ASSERT_TRUE(point);
    ASSERT_EQ(point->fields.size(), 4u);
    const auto& x = point->fields.at("x");
    EXPECT_EQ(x.name, "x");
    EXPECT_EQ(x.type, a->types().intType);
    EXPECT_EQ(x.visibility, "public");
    EXPECT_FALSE(x.isStatic);
    EXPECT_FALSE(x.isConst);
    const auto& scale = point->fields.at("scale");
    EXPECT_EQ(scale.type, a->types().doubleType);
    EXPECT_EQ(scale.visibility, "private");
    EXPECT_TRUE(scale.isStatic);
    const auto& label = point->fields.at("label");
    EXPECT_EQ(label.type, a->types().stringType);
    EXPECT_TRUE(label.isConst);
    EXPECT_EQ(label.visibility, "public");
    EXPECT_EQ(point->fields.at("next").type, point);
    EXPECT_EQ(point->fields.at("next").visibility, "protected");
}

TEST(ResolverClassMembers, AFieldWithoutATypeIsVoid) {
    auto a = resolved("class C {\n  var count = 0;\n}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(classNamed(*a, "C")->fields.at("count").type, a->types().voidType);
}

TEST(ResolverClassMembers, MemberTypesMayNameTypesDeclaredLater) {
    auto a = resolved(
        "class Node {\n  Tree owner;\n  fn walk(t: Tree) -> Leaf {}\n}\nclass Tree {}\nstruct Leaf { int v; }\n");
    EXPECT_TRUE(a->records().empty());
    auto node = classNamed(*a, "Node");
    EXPECT_EQ(fieldType(node->fields, "owner"), "Tree");
    EXPECT_EQ(methodTypes(*node, "walk"), (std::vector<std::string>{"fn(Tree) -> Leaf"}));
}

TEST(ResolverClassMembers, UndefinedMemberTypesAreReportedAtTheMember) {
    auto a = resolved("class C {\n  Ghost g;\n  fn m(p: Phantom) -> Spirit {}\n}\n");
    EXPECT_EQ(a->records(), (Records{std::string("E1002|Undefined type 'Ghost'|") + TYPE_HINT + "|2:9",
                                     std::string("E1002|Undefined type 'Phantom'|") + TYPE_HINT + "|3:3",
                                     std::string("E1002|Undefined type 'Spirit'|") + TYPE_HINT + "|3:3"}));
    auto c = classNamed(*a, "C");
    EXPECT_EQ(c->fields.at("g").type, a->types().errorType);
    EXPECT_EQ(methodTypes(*c, "m"), (std::vector<std::string>{"fn(<type-error>) -> <type-error>"}));
}

TEST(ResolverClassMembers, MethodsAreStoredInOrderWithTheirModifiers) {
    auto a = resolved(
        "abstract class Shape {\n"
        "  fn area() -> double {}\n"
        "  private static fn unit(): Shape {}\n"
        "  abstract fn name() -> string;\n"
        "  protected fn area(scale: double) -> double {}\n"
        "}\n");
    EXPECT_TRUE(a->records().empty());
    auto shape = classNamed(*a, "Shape");
    ASSERT_EQ(shape->methods.size(), 4u);
    EXPECT_EQ(shape->methods[0].name, "area");
    EXPECT_EQ(shape->methods[0].type->toString(), "fn() -> double");
    EXPECT_EQ(shape->methods[0].visibility, "public");
    EXPECT_FALSE(shape->methods[0].isStatic);
    EXPECT_EQ(shape->methods[1].name, "unit");
    EXPECT_EQ(shape->methods[1].visibility, "private");
    EXPECT_TRUE(shape->methods[1].isStatic);
    EXPECT_EQ(shape->methods[1].type->returnType, shape);
    EXPECT_EQ(shape->methods[2].name, "name");
    EXPECT_TRUE(shape->methods[2].isAbstract);
    EXPECT_FALSE(shape->methods[2].isOverride);
    EXPECT_EQ(shape->methods[3].type->toString(), "fn(double) -> double");
    EXPECT_EQ(shape->methods[3].visibility, "protected");
}

TEST(ResolverClassMembers, AConstructorIsStoredLikeAnyMethod) {
    auto a = resolved("class Point {\n  Point(int x, int y) { }\n}\n");
    EXPECT_TRUE(a->records().empty());
    auto point = classNamed(*a, "Point");
    EXPECT_EQ(methodTypes(*point, "Point"), (std::vector<std::string>{"fn(int, int) -> void"}));
    EXPECT_EQ(a->symbols().lookup("Point")->kind, SymbolKind::Class);
}

TEST(ResolverClassMembers, MethodsAreEnteredInNoScope) {
    auto a = resolved("class C {\n  fn helper() {}\n}\n");
    EXPECT_EQ(a->symbols().lookup("helper"), nullptr);
}

TEST(ResolverClassMembers, ATypeParameterOfTheClassIsAnyInItsMembers) {
    auto a = resolved("class Box<T> {\n  T value;\n  T[] items;\n  fn put(v: T) -> T {}\n}\n");
    EXPECT_TRUE(a->records().empty());
    auto box = classNamed(*a, "Box");
    EXPECT_EQ(box->fields.at("value").type, a->types().anyType);
    EXPECT_EQ(box->fields.at("items").type, a->types().errorType);
    EXPECT_EQ(methodTypes(*box, "put"), (std::vector<std::string>{"fn(any) -> any"}));
    EXPECT_TRUE(a->analyzer->resolver.currentTypeParams.empty());
}

TEST(ResolverClassMembers, AGenericMethodsOwnTypeParameterIsUndefined) {
    auto a = resolved("class C {\n  fn id<U>(x: U) -> U {}\n}\n");
    EXPECT_EQ(a->records(), (Records{std::string("E1002|Undefined type 'U'|") + TYPE_HINT + "|2:3",
                                     std::string("E1002|Undefined type 'U'|") + TYPE_HINT + "|2:3"}));
}

TEST(ResolverClassMembers, AMethodRepeatingTheWholeSignatureIsADuplicate) {
    auto a = resolved("class C {\n  fn m(x: int) -> int {}\n  fn m(y: int) -> int {}\n}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate method 'm' in class 'C' with identical signature||3:3"}));
    EXPECT_EQ(methodTypes(*classNamed(*a, "C"), "m"), (std::vector<std::string>{"fn(int) -> int"}));
}

TEST(ResolverClassMembers, SameParametersWithDifferentReturnTypesAreBothKept) {
    auto a = resolved("class C {\n  fn m(x: int) -> int {}\n  fn m(x: int) -> string {}\n}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(methodTypes(*classNamed(*a, "C"), "m"),
              (std::vector<std::string>{"fn(int) -> int", "fn(int) -> string"}));
}

TEST(ResolverClassMembers, AnOverrideInAClassWithNoBaseIsReportedAndStillAdded) {
    auto a = resolved("class C {\n  override fn show() {}\n}\n");
    EXPECT_EQ(a->records(),
              (Records{"E1001|Method 'show' marked override does not override any base class method||2:12"}));
    const auto* show = onlyMethod(*classNamed(*a, "C"), "show");
    ASSERT_NE(show, nullptr);
    EXPECT_TRUE(show->isOverride);
}

TEST(ResolverClassMembers, AnOverrideMatchingABaseMethodIsAccepted) {
    auto a = resolved("class A {\n  fn show() {}\n}\nclass B extends A {\n  override fn show() {}\n}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_TRUE(onlyMethod(*classNamed(*a, "B"), "show")->isOverride);
}

TEST(ResolverClassMembers, AnOverrideFindsAMethodOfABaseFurtherUpTheChain) {
    auto a = resolved(
        "class A {\n  fn show(x: int) -> string {}\n}\nclass B extends A {}\nclass C extends B {\n"
        "  override fn show(y: int) -> string {}\n}\n");
    EXPECT_TRUE(a->records().empty());
}

TEST(ResolverClassMembers, AnOverrideWithAnotherReturnTypeMatchesNothing) {
    auto a =
        resolved("class A {\n  fn show() -> int {}\n}\nclass B extends A {\n  override fn show() -> string {}\n}\n");
    EXPECT_EQ(a->records(),
              (Records{"E1001|Method 'show' marked override does not override any base class method||5:12"}));
}

TEST(ResolverClassMembers, AnOverrideOfAnInterfaceMethodAloneMatchesNothing) {
    auto a = resolved("interface I {\n  fn run();\n}\nclass C implements I {\n  override fn run() {}\n}\n");
    EXPECT_EQ(a->records(),
              (Records{"E1001|Method 'run' marked override does not override any base class method||5:12"}));
}

TEST(ResolverClassMembers, ADuplicateOverrideIsReportedAsADuplicateOnly) {
    auto a = resolved("class C {\n  fn m() {}\n  override fn m() {}\n}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate method 'm' in class 'C' with identical signature||3:12"}));
}

TEST(ResolverClassMembers, AFieldRepeatingAFieldOfTheSameClassIsADuplicate) {
    auto a = resolved("class C {\n  int x;\n  string x;\n}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate field 'x' in class 'C'||3:10"}));
    EXPECT_EQ(classNamed(*a, "C")->fields.at("x").type, a->types().intType);
}

TEST(ResolverClassMembers, AFieldRepeatingAFieldOfAnEarlierBaseIsADuplicate) {
    auto a = resolved("class A {\n  int id;\n}\nclass B extends A {\n  int id;\n  int own;\n}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate field 'id' in class 'B'||5:7"}));
    auto b = classNamed(*a, "B");
    EXPECT_EQ(fieldType(b->fields, "id"), "absent");
    EXPECT_EQ(fieldType(b->fields, "own"), "int");
}

TEST(ResolverClassMembers, AFieldAndAMethodMayShareAName) {
    auto a = resolved("class C {\n  int size;\n  fn size() -> int {}\n}\n");
    EXPECT_TRUE(a->records().empty());
}

TEST(ResolverClassMembers, StatementsAmongTheMembersAreIgnored) {
    auto a = resolved("class C {\n  print(\"x\");\n  int y;\n}\n");
    EXPECT_TRUE(a->records().empty());
    auto c = classNamed(*a, "C");
    EXPECT_EQ(c->fields.size(), 1u);
    EXPECT_TRUE(c->methods.empty());
}

TEST(ResolverClassMembers, TheMembersOfASecondDeclarationGoToTheTypeFoundByName) {
    auto a = resolved("class A {\n  int x;\n}\nclass A {\n  int y;\n  int x;\n  fn m() {}\n}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate declaration of class 'A'|A symbol with name 'A' is already "
                                     "declared in this scope|4:1",
                                     "E1004|Duplicate field 'x' in class 'A'||6:7"}));
    auto cls = classNamed(*a, "A");
    EXPECT_EQ(fieldType(cls->fields, "x"), "int");
    EXPECT_EQ(fieldType(cls->fields, "y"), "int");
    EXPECT_EQ(methodTypes(*cls, "m"), (std::vector<std::string>{"fn() -> void"}));
    EXPECT_EQ(cls->decl, a->program->declarations[0].get());
}

TEST(ResolverClassMembers, AClassWhoseNameIsTakenByAFunctionGetsNoMembers) {
    auto a = resolved("fn Widget() {}\nclass Widget extends Missing {\n  Ghost g;\n}\n");
    // Only the duplicate: pass 2 finds no class of that name and looks at nothing.
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate declaration of class 'Widget'|A symbol with name 'Widget' is "
                                     "already declared in this scope|2:1"}));
}

}  // namespace
}  // namespace quor::sema::testing
