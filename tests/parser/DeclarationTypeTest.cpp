// Type declarations: classes with constructors and base lists, interfaces,
// structs and enums.
#include <gtest/gtest.h>

#include <string>

#include "parser/ParserTestSupport.h"

namespace quor::parser::testing {
namespace {

using Parsed = ParsedProgram;

template <class T>
const T* member(const ast::ClassDecl& cls, std::size_t index) {
    if (index >= cls.members.size()) return nullptr;
    return dynamic_cast<const T*>(cls.members[index].get());
}

// ---- classes ----

TEST(DeclarationClass, EmptyClass) {
    Parsed p("class A {}");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    EXPECT_EQ(cls->name, "A");
    EXPECT_TRUE(cls->typeParams.empty());
    EXPECT_EQ(cls->baseClass, "");
    EXPECT_TRUE(cls->interfaces.empty());
    EXPECT_TRUE(cls->members.empty());
    EXPECT_EQ(cls->visibility, "");
    EXPECT_FALSE(cls->isAbstract);
    EXPECT_EQ(cls->location.column, 1u);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationClass, ExtendsColonAndImplementsTogether) {
    Parsed p("class A extends B : C, D implements E {}");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    EXPECT_EQ(cls->baseClass, "C");
    ASSERT_EQ(cls->interfaces.size(), 2u);
    EXPECT_EQ(cls->interfaces[0], "D");
    EXPECT_EQ(cls->interfaces[1], "E");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationClass, EachBaseListAlone) {
    Parsed p("class A extends B {} class C : I, J {} class D implements I, J {}");
    ASSERT_EQ(p.count(), 3u);
    EXPECT_EQ(p.get<ast::ClassDecl>(0)->baseClass, "B");
    EXPECT_TRUE(p.get<ast::ClassDecl>(0)->interfaces.empty());
    EXPECT_EQ(p.get<ast::ClassDecl>(1)->baseClass, "I");
    ASSERT_EQ(p.get<ast::ClassDecl>(1)->interfaces.size(), 1u);
    EXPECT_EQ(p.get<ast::ClassDecl>(1)->interfaces[0], "J");
    EXPECT_EQ(p.get<ast::ClassDecl>(2)->baseClass, "");
    ASSERT_EQ(p.get<ast::ClassDecl>(2)->interfaces.size(), 2u);
    EXPECT_EQ(p.get<ast::ClassDecl>(2)->interfaces[1], "J");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationClass, TypeParameters) {
    Parsed p("class Pair<K, V> {}");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    ASSERT_EQ(cls->typeParams.size(), 2u);
    EXPECT_EQ(cls->typeParams[0], "K");
    EXPECT_EQ(cls->typeParams[1], "V");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationClass, ConstructorAndBareMethod) {
    Parsed p("class A { A(int x) { } B(int x) { } }");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    ASSERT_EQ(cls->members.size(), 2u);
    const auto* ctor = member<ast::FunctionDecl>(*cls, 0);
    ASSERT_NE(ctor, nullptr);
    EXPECT_EQ(ctor->name, "A");
    EXPECT_EQ(ctor->returnType, "void");
    EXPECT_EQ(ctor->visibility, "public");
    EXPECT_FALSE(ctor->isStatic || ctor->isOverride || ctor->isAbstract || ctor->isAsync);
    EXPECT_EQ(ctor->exprBody, nullptr);
    ASSERT_NE(ctor->body, nullptr);
    ASSERT_EQ(ctor->params.size(), 1u);
    EXPECT_EQ(ctor->params[0].type, "int");
    EXPECT_EQ(ctor->location.column, 11u);
    const auto* method = member<ast::FunctionDecl>(*cls, 1);
    ASSERT_NE(method, nullptr);
    EXPECT_EQ(method->name, "B");
    EXPECT_EQ(method->visibility, "");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationClass, ModifiedConstructorGoesThroughTheBareForm) {
    Parsed p("class A { private A() { } }");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    const auto* ctor = member<ast::FunctionDecl>(*cls, 0);
    ASSERT_NE(ctor, nullptr);
    EXPECT_EQ(ctor->name, "A");
    EXPECT_EQ(ctor->visibility, "private");
    EXPECT_EQ(ctor->returnType, "void");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationClass, MembersOfEveryKindIncludingStatements) {
    Parsed p(
        "class A {\n"
        "  private static int count = 0;\n"
        "  override string toString() { return \"\"; }\n"
        "  fn f() {}\n"
        "  x = 1;\n"
        "}");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    ASSERT_EQ(cls->members.size(), 4u);
    const auto* field = member<ast::VarDeclStmt>(*cls, 0);
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->visibility, "private");
    EXPECT_TRUE(field->isStatic);
    const auto* toString = member<ast::FunctionDecl>(*cls, 1);
    ASSERT_NE(toString, nullptr);
    EXPECT_TRUE(toString->isOverride);
    EXPECT_EQ(toString->returnType, "string");
    EXPECT_NE(member<ast::FunctionDecl>(*cls, 2), nullptr);
    EXPECT_NE(member<ast::ExprStmt>(*cls, 3), nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationClass, MissingName) {
    Parsed p("class {}");
    ASSERT_NE(p.get<ast::ClassDecl>(), nullptr);
    EXPECT_EQ(p.get<ast::ClassDecl>()->name, "");
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected class name", 1, 7);
}

TEST(DeclarationClass, TypeParameterReports) {
    Parsed p("class A<> {}");
    ASSERT_NE(p.get<ast::ClassDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected type parameter name", 1, 9);

    Parsed q("class A<T {}");
    ASSERT_NE(q.get<ast::ClassDecl>(), nullptr);
    ASSERT_EQ(q.reports(), 1u);
    expectReport(q.report(0), "Expected '>' after generic type parameters", 1, 11);
}

TEST(DeclarationClass, BaseListReports) {
    const struct {
        const char* source;
        const char* message;
        std::uint32_t column;
    } cases[] = {
        {"class A extends {}", "Expected base class name after 'extends'", 17},
        {"class A : {}", "Expected base class or interface name after ':'", 11},
        {"class A : B, {}", "Expected interface name after ','", 14},
        {"class A implements {}", "Expected interface name after 'implements'", 20},
        {"class A implements I, {}", "Expected interface name after 'implements'", 23},
    };
    for (const auto& c : cases) {
        Parsed p(c.source);
        ASSERT_NE(p.get<ast::ClassDecl>(), nullptr) << c.source;
        ASSERT_EQ(p.reports(), 1u) << c.source;
        expectReport(p.report(0), c.message, 1, c.column);
    }
}

TEST(DeclarationClass, MissingBodyReportsBothBraces) {
    Parsed p("class A");
    ASSERT_NE(p.get<ast::ClassDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 2u);
    expectReportAtEnd(p, 0, "Expected '{' to start class body");
    expectReportAtEnd(p, 1, "Expected '}' at end of class body");
}

TEST(DeclarationClass, HalfTypedClassKeepsWhatWasRead) {
    Parsed p(
        "class A {\n"
        "  int x;\n"
        "  fn f(a: int");
    const auto* cls = p.get<ast::ClassDecl>();
    ASSERT_NE(cls, nullptr);
    ASSERT_EQ(cls->members.size(), 2u);
    EXPECT_NE(member<ast::VarDeclStmt>(*cls, 0), nullptr);
    const auto* f = member<ast::FunctionDecl>(*cls, 1);
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(f->name, "f");
    ASSERT_EQ(f->params.size(), 1u);
    ASSERT_EQ(p.reports(), 3u);
    expectReportAtEnd(p, 0, "Expected ')' to end parameter list");
    expectReportAtEnd(p, 1, "Expected '{' or '=>' for function body");
    expectReportAtEnd(p, 2, "Expected '}' at end of class body");
}

// ---- interfaces ----

TEST(DeclarationInterface, MethodSignatures) {
    Parsed p("interface I { fn f(a: int): int; fn g() -> string; fn h(); }");
    const auto* iface = p.get<ast::InterfaceDecl>();
    ASSERT_NE(iface, nullptr);
    EXPECT_EQ(iface->name, "I");
    EXPECT_EQ(iface->visibility, "");
    EXPECT_EQ(iface->location.column, 1u);
    ASSERT_EQ(iface->methods.size(), 3u);
    const auto& f = *iface->methods[0];
    EXPECT_EQ(f.name, "f");
    EXPECT_EQ(f.returnType, "int");
    ASSERT_EQ(f.params.size(), 1u);
    EXPECT_EQ(f.body, nullptr);
    EXPECT_EQ(f.exprBody, nullptr);
    EXPECT_EQ(f.visibility, "public");
    EXPECT_TRUE(f.isAbstract);
    EXPECT_FALSE(f.isStatic || f.isOverride || f.isAsync);
    EXPECT_EQ(iface->methods[1]->returnType, "string");
    EXPECT_EQ(iface->methods[2]->returnType, "void");
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationInterface, EachStrayTokenIsReportedOnce) {
    Parsed p("interface I { x; }");
    const auto* iface = p.get<ast::InterfaceDecl>();
    ASSERT_NE(iface, nullptr);
    EXPECT_TRUE(iface->methods.empty());
    ASSERT_EQ(p.reports(), 2u);
    expectReport(p.report(0), "Only method signatures are permitted in interfaces", 1, 15);
    expectReport(p.report(1), "Only method signatures are permitted in interfaces", 1, 16);
    EXPECT_EQ(p.count(), 1u);
}

TEST(DeclarationInterface, NoTypeParameters) {
    Parsed p("interface I<T> {}");
    ASSERT_NE(p.get<ast::InterfaceDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 5u);
    expectReport(p.report(0), "Expected '{' to start interface body", 1, 12);
    expectReport(p.report(1), "Only method signatures are permitted in interfaces", 1, 12);
    expectReport(p.report(2), "Only method signatures are permitted in interfaces", 1, 13);
    expectReport(p.report(3), "Only method signatures are permitted in interfaces", 1, 14);
    expectReport(p.report(4), "Only method signatures are permitted in interfaces", 1, 16);
}

TEST(DeclarationInterface, MissingName) {
    Parsed p("interface {}");
    ASSERT_NE(p.get<ast::InterfaceDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected interface name", 1, 11);
}

TEST(DeclarationInterface, MissingBodyReportsBothBraces) {
    Parsed p("interface I");
    ASSERT_NE(p.get<ast::InterfaceDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 2u);
    expectReportAtEnd(p, 0, "Expected '{' to start interface body");
    expectReportAtEnd(p, 1, "Expected '}' at end of interface body");
}

TEST(DeclarationInterface, MissingMethodName) {
    Parsed p("interface I { fn (); }");
    const auto* iface = p.get<ast::InterfaceDecl>();
    ASSERT_NE(iface, nullptr);
    ASSERT_EQ(iface->methods.size(), 1u);
    EXPECT_EQ(iface->methods[0]->name, "");
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected method name in interface", 1, 18);
}

TEST(DeclarationInterface, MissingSemicolonAfterSignature) {
    Parsed p("interface I { fn f() }");
    ASSERT_NE(p.get<ast::InterfaceDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected ';' after interface method signature", 1, 22);
}

// ---- structs ----

TEST(DeclarationStruct, FieldsInBothOrders) {
    Parsed p("struct Point { int x; y: float; List<int> zs; }");
    const auto* st = p.get<ast::StructDecl>();
    ASSERT_NE(st, nullptr);
    EXPECT_EQ(st->name, "Point");
    EXPECT_EQ(st->visibility, "");
    EXPECT_EQ(st->location.column, 1u);
    ASSERT_EQ(st->fields.size(), 3u);
    EXPECT_EQ(show(st->fields[0].get()), "(var int x <null>)");
    EXPECT_EQ(st->fields[0]->location.column, 20u);
    EXPECT_EQ(show(st->fields[1].get()), "(var float y <null>)");
    EXPECT_EQ(st->fields[1]->location.column, 23u);
    EXPECT_EQ(show(st->fields[2].get()), "(var List<int> zs <null>)");
    EXPECT_EQ(st->fields[2]->location.column, 43u);
    for (const auto& field : st->fields) {
        EXPECT_FALSE(field->isConst);
        EXPECT_FALSE(field->isVarOrLet);
        EXPECT_FALSE(field->isStatic);
        EXPECT_EQ(field->visibility, "");
    }
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationStruct, MissingName) {
    Parsed p("struct {}");
    ASSERT_NE(p.get<ast::StructDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected struct name", 1, 8);
}

TEST(DeclarationStruct, MissingBodyReportsBothBraces) {
    Parsed p("struct S");
    ASSERT_NE(p.get<ast::StructDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 2u);
    expectReportAtEnd(p, 0, "Expected '{' to start struct body");
    expectReportAtEnd(p, 1, "Expected '}' at end of struct body");
}

TEST(DeclarationStruct, MissingFieldName) {
    Parsed p("struct S { int; }");
    const auto* st = p.get<ast::StructDecl>();
    ASSERT_NE(st, nullptr);
    ASSERT_EQ(st->fields.size(), 1u);
    EXPECT_EQ(st->fields[0]->name, "");
    EXPECT_EQ(st->fields[0]->location.column, 15u);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected field name in struct", 1, 15);
}

TEST(DeclarationStruct, MissingSemicolonAfterField) {
    Parsed p("struct S { int x }");
    ASSERT_NE(p.get<ast::StructDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected ';' after struct field", 1, 18);
}

TEST(DeclarationStruct, UnclosedBody) {
    Parsed p("struct S { int x;");
    ASSERT_NE(p.get<ast::StructDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReportAtEnd(p, 0, "Expected '}' at end of struct body");
}

TEST(DeclarationStruct, MethodsCannotBeWritten) {
    Parsed p("struct S { fn f() {} }");
    ASSERT_NE(p.get<ast::StructDecl>(), nullptr);
    ASSERT_GE(p.reports(), 1u);
    expectReport(p.report(0), "Expected type name", 1, 12);
}

// ---- enums ----

TEST(DeclarationEnum, VariantsWithValuesAndTrailingComma) {
    Parsed p("enum E { A = 1, B, }");
    const auto* en = p.get<ast::EnumDecl>();
    ASSERT_NE(en, nullptr);
    EXPECT_EQ(en->name, "E");
    EXPECT_EQ(en->location.column, 1u);
    ASSERT_EQ(en->variants.size(), 2u);
    EXPECT_EQ(en->variants[0].name, "A");
    EXPECT_EQ(show(en->variants[0].value.get()), "1");
    EXPECT_EQ(en->variants[1].name, "B");
    EXPECT_EQ(en->variants[1].value, nullptr);
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationEnum, PlainVariantsAndEmptyEnum) {
    Parsed p("public enum Color { Red, Green, Blue } enum Empty {}");
    ASSERT_EQ(p.count(), 2u);
    EXPECT_EQ(p.get<ast::EnumDecl>(0)->variants.size(), 3u);
    EXPECT_EQ(p.get<ast::EnumDecl>(0)->visibility, "public");
    EXPECT_TRUE(p.get<ast::EnumDecl>(1)->variants.empty());
    EXPECT_EQ(p.reports(), 0u);
}

TEST(DeclarationEnum, MissingName) {
    Parsed p("enum {}");
    ASSERT_NE(p.get<ast::EnumDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 1u);
    expectReport(p.report(0), "Expected enum name", 1, 6);
}

TEST(DeclarationEnum, MissingBodyReportsBothBraces) {
    Parsed p("enum E");
    ASSERT_NE(p.get<ast::EnumDecl>(), nullptr);
    ASSERT_EQ(p.reports(), 2u);
    expectReportAtEnd(p, 0, "Expected '{' to start enum body");
    expectReportAtEnd(p, 1, "Expected '}' at end of enum body");
}

TEST(DeclarationEnum, VariantMustBeAName) {
    Parsed p("enum E { 1 }");
    ASSERT_NE(p.get<ast::EnumDecl>(), nullptr);
    ASSERT_EQ(p.get<ast::EnumDecl>()->variants.size(), 1u);
    EXPECT_EQ(p.get<ast::EnumDecl>()->variants[0].name, "");
    ASSERT_GE(p.reports(), 2u);
    expectReport(p.report(0), "Expected enum variant identifier", 1, 10);
    expectReport(p.report(1), "Expected '}' at end of enum body", 1, 10);
}

TEST(DeclarationEnum, MissingCommaEndsTheVariants) {
    Parsed p("enum E { A B }");
    ASSERT_NE(p.get<ast::EnumDecl>(), nullptr);
    EXPECT_EQ(p.get<ast::EnumDecl>()->variants.size(), 1u);
    ASSERT_GE(p.reports(), 1u);
    expectReport(p.report(0), "Expected '}' at end of enum body", 1, 12);
}

}  // namespace
}  // namespace quor::parser::testing
