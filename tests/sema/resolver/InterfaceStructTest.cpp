// Pass 2 for interfaces and structs.
#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {


TEST(ResolverInterfaces, MethodsArePublicAbstractAndInOrder) {
    auto a = resolved("interface Shape {\n  fn area() -> double;\n  fn scale(by: double): Shape;\n}\n");
    EXPECT_TRUE(a->records().empty());
    auto shape = userType<InterfaceType>(*a, "Shape");
    ASSERT_TRUE(shape);
    ASSERT_EQ(shape->methods.size(), 2u);
    EXPECT_EQ(shape->methods[0].name, "area");
    EXPECT_EQ(shape->methods[0].type->toString(), "fn() -> double");
    EXPECT_EQ(shape->methods[1].type->toString(), "fn(double) -> Shape");
    for (const auto& method : shape->methods) {
        EXPECT_EQ(method.visibility, "public");
        EXPECT_FALSE(method.isStatic);
        EXPECT_TRUE(method.isAbstract);
        EXPECT_FALSE(method.isOverride);
    }
    EXPECT_TRUE(shape->superInterfaces.empty());
}

TEST(ResolverInterfaces, AnInterfaceMayHoldTheSameMethodTwice) {
    auto a = resolved("interface I {\n  fn run();\n  fn run();\n}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(userType<InterfaceType>(*a, "I")->methods.size(), 2u);
}

TEST(ResolverInterfaces, UndefinedTypesAreReportedAtTheMethod) {
    auto a = resolved("interface I {\n  fn run(x: Ghost) -> Shade;\n}\n");
    EXPECT_EQ(a->records(), (Records{std::string("E1002|Undefined type 'Ghost'|") + TYPE_HINT + "|2:3",
                                     std::string("E1002|Undefined type 'Shade'|") + TYPE_HINT + "|2:3"}));
    EXPECT_EQ(userType<InterfaceType>(*a, "I")->methods.at(0).type->toString(), "fn(<type-error>) -> <type-error>");
}

TEST(ResolverInterfaces, MethodTypesMayNameTypesDeclaredLater) {
    auto a = resolved("interface Factory {\n  fn make() -> Product;\n}\nclass Product {}\n");
    EXPECT_TRUE(a->records().empty());
}

TEST(ResolverStructs, FieldsArePublicAndMayNameLaterTypes) {
    auto a = resolved("struct Pair {\n  int first;\n  second: Item;\n}\nclass Item {}\n");
    EXPECT_TRUE(a->records().empty());
    auto pair = userType<StructType>(*a, "Pair");
    ASSERT_TRUE(pair);
    ASSERT_EQ(pair->fields.size(), 2u);
    const auto& first = pair->fields.at("first");
    EXPECT_EQ(first.name, "first");
    EXPECT_EQ(first.type, a->types().intType);
    EXPECT_EQ(first.visibility, "public");
    EXPECT_FALSE(first.isStatic);
    EXPECT_FALSE(first.isConst);
    EXPECT_EQ(pair->fields.at("second").type, a->types().findUserType("Item"));
}

TEST(ResolverStructs, ARepeatedFieldIsReportedAtTheFieldAndTheFirstStays) {
    auto a = resolved("struct P {\n  int x;\n  x: string;\n  double x;\n}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate field 'x' in struct 'P'||3:3",
                                     "E1004|Duplicate field 'x' in struct 'P'||4:10"}));
    EXPECT_EQ(userType<StructType>(*a, "P")->fields.at("x").type, a->types().intType);
}

TEST(ResolverStructs, AnUndefinedFieldTypeIsReportedAtTheField) {
    auto a = resolved("struct P {\n  Ghost g;\n}\n");
    EXPECT_EQ(a->records(), (Records{std::string("E1002|Undefined type 'Ghost'|") + TYPE_HINT + "|2:9"}));
    EXPECT_EQ(userType<StructType>(*a, "P")->fields.at("g").type, a->types().errorType);
}

TEST(ResolverStructs, ADuplicateStructDeclarationFillsTheTypeFoundByName) {
    auto a = resolved("struct P {\n  int x;\n}\nstruct P {\n  int y;\n}\n");
    EXPECT_EQ(a->records().size(), 1u);
    EXPECT_EQ(userType<StructType>(*a, "P")->fields.size(), 2u);
}

TEST(ResolverPasses, MembersAreFilledInSourceOrderOfTheDeclarations) {
    auto a = resolved(
        "struct S {\n  Ghost1 a;\n}\ninterface I {\n  fn f(x: Ghost2);\n}\nclass C {\n  Ghost3 c;\n}\n"
        "enum Level { A, A }\n");
    EXPECT_EQ(a->records(), (Records{std::string("E1002|Undefined type 'Ghost1'|") + TYPE_HINT + "|2:10",
                                     std::string("E1002|Undefined type 'Ghost2'|") + TYPE_HINT + "|5:3",
                                     std::string("E1002|Undefined type 'Ghost3'|") + TYPE_HINT + "|8:10",
                                     "E1004|Duplicate enum variant 'A' in enum 'Level'||10:1"}));
}

TEST(ResolverPasses, Pass1ReportsComeBeforeAnyReportOfPass2) {
    auto a = resolved("class C {\n  Ghost g;\n}\nfn f(x: Phantom) {}\n");
    EXPECT_EQ(a->records(), (Records{std::string("E1002|Undefined type 'Phantom'|") + TYPE_HINT + "|4:1",
                                     std::string("E1002|Undefined type 'Ghost'|") + TYPE_HINT + "|2:9"}));
}

}  // namespace
}  // namespace quor::sema::testing
