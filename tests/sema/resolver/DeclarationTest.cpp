// Pass 1: every class, interface, struct and enum gets a type and a symbol;
// a name that the scope already holds is a duplicate.
#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

const char* const SCOPE_HINT_A = "A symbol with name 'A' is already declared in this scope";

TEST(ResolverDeclarations, EachKindOfTypeGetsATypeAndASymbolOfItsKind) {
    auto a = resolved("class C {}\ninterface I {}\nstruct S { int x; }\nenum Kind { A }\n");
    EXPECT_TRUE(a->records().empty());
    auto c = std::dynamic_pointer_cast<ClassSymbol>(a->symbols().lookup("C"));
    auto i = std::dynamic_pointer_cast<InterfaceSymbol>(a->symbols().lookup("I"));
    auto s = std::dynamic_pointer_cast<StructSymbol>(a->symbols().lookup("S"));
    auto e = std::dynamic_pointer_cast<EnumSymbol>(a->symbols().lookup("Kind"));
    ASSERT_TRUE(c && i && s && e);
    EXPECT_EQ(c->kind, SymbolKind::Class);
    EXPECT_EQ(i->kind, SymbolKind::Interface);
    EXPECT_EQ(s->kind, SymbolKind::Struct);
    EXPECT_EQ(e->kind, SymbolKind::Enum);
    EXPECT_EQ(c->classType, a->types().findUserType("C"));
    EXPECT_EQ(i->interfaceType, a->types().findUserType("I"));
    EXPECT_EQ(s->structType, a->types().findUserType("S"));
    EXPECT_EQ(e->enumType, a->types().findUserType("Kind"));
    EXPECT_EQ(c->type, c->classType);
    EXPECT_EQ(c->location.line, 1u);
    EXPECT_EQ(c->location.column, 1u);
    EXPECT_EQ(e->location.line, 4u);
}

TEST(ResolverDeclarations, AClassTypeCarriesItsFlagsTypeParametersAndDeclaration) {
    auto a = resolved("abstract class Box<T, U> {}\n");
    auto box = classNamed(*a, "Box");
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->isAbstract);
    EXPECT_EQ(box->typeParams, (std::vector<std::string>{"T", "U"}));
    ASSERT_NE(box->decl, nullptr);
    EXPECT_EQ(box->decl, a->program->declarations[0].get());
    EXPECT_EQ(box->decl->name, "Box");
}

TEST(ResolverDeclarations, TheSymbolKeepsTheWrittenVisibility) {
    auto a = resolved("private class A {}\nclass B {}\npublic enum Mode { X }\n");
    EXPECT_EQ(a->symbols().lookup("A")->visibility, "private");
    EXPECT_EQ(a->symbols().lookup("B")->visibility, "");
    EXPECT_EQ(a->symbols().lookup("Mode")->visibility, "public");
}

TEST(ResolverDeclarations, ASecondClassOfOneNameIsReportedOnceAtTheSecond) {
    auto a = resolved("class A {}\nclass A {}\n");
    EXPECT_EQ(a->records(),
              (Records{std::string("E1004|Duplicate declaration of class 'A'|") + SCOPE_HINT_A + "|2:1"}));
    EXPECT_EQ(classNamed(*a, "A")->decl, a->program->declarations[0].get());
}

TEST(ResolverDeclarations, DuplicateInterfaceStructAndEnumNameTheirKind) {
    auto a = resolved("class A {}\ninterface A {}\nstruct A { int x; }\nenum A { X }\n");
    EXPECT_EQ(a->records(),
              (Records{std::string("E1004|Duplicate declaration of interface 'A'|") + SCOPE_HINT_A + "|2:1",
                       std::string("E1004|Duplicate declaration of struct 'A'|") + SCOPE_HINT_A + "|3:1",
                       std::string("E1004|Duplicate declaration of enum 'A'|") + SCOPE_HINT_A + "|4:1"}));
    // The first declaration keeps the name: no member of the others reaches it.
    EXPECT_EQ(a->types().findUserType("A")->kind, TypeKind::Class);
    EXPECT_TRUE(classNamed(*a, "A")->fields.empty());
}

TEST(ResolverDeclarations, AClassNamedLikeABuiltinFunctionIsADuplicate) {
    auto a = resolved("class print {}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate declaration of class 'print'|A symbol with name 'print' is "
                                     "already declared in this scope|1:1"}));
    EXPECT_EQ(a->types().findUserType("print"), nullptr);
    EXPECT_EQ(a->symbols().lookup("print")->kind, SymbolKind::Function);
}

TEST(ResolverDeclarations, AStructNamedLikeABuiltinConstantIsADuplicate) {
    auto a = resolved("struct PI { int x; }\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate declaration of struct 'PI'|A symbol with name 'PI' is "
                                     "already declared in this scope|1:1"}));
}

TEST(ResolverDeclarations, AClassNamedLikeABuiltinClassReplacesIt) {
    auto a = resolved("class File {}\nclass Console { int x; }\n");
    EXPECT_TRUE(a->records().empty());
    auto file = classNamed(*a, "File");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->decl, a->program->declarations[0].get());
    EXPECT_TRUE(file->methods.empty());
    auto console = classNamed(*a, "Console");
    ASSERT_TRUE(console);
    EXPECT_TRUE(console->methods.empty());
    EXPECT_EQ(fieldType(console->fields, "x"), "int");
}

TEST(ResolverDeclarations, ATopLevelVariableIsNotDeclared) {
    auto a = resolved("var count = 1;\nint total = 2;\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(a->symbols().lookup("count"), nullptr);
    EXPECT_EQ(a->symbols().lookup("total"), nullptr);
}

TEST(ResolverDeclarations, AnEnumNamedLikeABuiltinConstantIsADuplicate) {
    auto a = resolved("enum E { A }\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate declaration of enum 'E'|A symbol with name 'E' is "
                                     "already declared in this scope|1:1"}));
    EXPECT_EQ(a->symbols().lookup("E")->kind, SymbolKind::Constant);
    EXPECT_EQ(a->types().findUserType("E"), nullptr);
}

TEST(ResolverDeclarations, TheCheckIsAgainstTheScopeSoAFunctionThenAClassOfOneNameIsADuplicate) {
    auto a = resolved("fn Shape() {}\nclass Shape {}\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate declaration of class 'Shape'|A symbol with name 'Shape' is "
                                     "already declared in this scope|2:1"}));
}

}  // namespace
}  // namespace quor::sema::testing
