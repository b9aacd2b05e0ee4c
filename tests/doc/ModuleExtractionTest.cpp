#include <gtest/gtest.h>

#include <string>

#include "doc/DocGenerator.h"
#include "doc/DocTestSupport.h"

using quor::doc::DocEntry;
using quor::doc::DocKind;
using quor::doc::DocModule;
using quor::doc::testing::extract;

namespace {

const char* const SAMPLE =
    "/// Geometry helpers.\n"                                  // 1
    "module geo.shapes;\n"                                     // 2
    "\n"                                                       // 3
    "import std.math;\n"                                       // 4
    "\n"                                                       // 5
    "/// Adds two numbers.\n"                                  // 6
    "/// @param a the left side\n"                             // 7
    "/// @param b the right side\n"                            // 8
    "/// @return their sum\n"                                  // 9
    "fn add(a: int, b: int): int {\n"                          // 10
    "    return a + b;\n"                                      // 11
    "}\n"                                                      // 12
    "\n"                                                       // 13
    "/// A point in the plane.\n"                              // 14
    "class Point extends Base implements Shape, Printable {\n" // 15
    "    /// The x coordinate.\n"                              // 16
    "    let x: float = 0.0;\n"                                // 17
    "    const y: float = 0.0;\n"                              // 18
    "    int z;\n"                                             // 19
    "    /// Distance to the origin.\n"                        // 20
    "    public static fn norm(): float { return 0.0; }\n"     // 21
    "    private override fn show(s: string) { }\n"            // 22
    "    Point(px: float) { }\n"                               // 23
    "}\n"                                                      // 24
    "\n"                                                       // 25
    "/// Something with an area.\n"                            // 26
    "interface Shape {\n"                                      // 27
    "    fn area(): float;\n"                                  // 28
    "    fn scale(by: float): void;\n"                         // 29
    "}\n"                                                      // 30
    "\n"                                                       // 31
    "struct Pair {\n"                                          // 32
    "    first: int;\n"                                        // 33
    "    string second;\n"                                     // 34
    "}\n"                                                      // 35
    "\n"                                                       // 36
    "enum Color { Red, Green = 2, Blue }\n"                    // 37
    "\n"                                                       // 38
    "const LIMIT: int = 10;\n"                                 // 39
    "let counter = 0;\n"                                       // 40
    "test \"adds two\" { assert(add(1, 2) == 3); }\n"          // 41
    "fn generic<T>(x: T): T => x;\n";                          // 42

class DocSampleModule : public ::testing::Test {
protected:
    DocModule module = extract(SAMPLE, "file:///work/src/shapes.quor");

    const DocEntry& entry(std::size_t index) { return module.entries.at(index); }
};

}  // namespace

TEST_F(DocSampleModule, ModuleDeclarationNamesTheModuleAndTakesItsDocBlock) {
    EXPECT_EQ(module.name, "geo.shapes");
    EXPECT_EQ(module.path, "file:///work/src/shapes.quor");
    EXPECT_EQ(module.description, "Geometry helpers.");
    EXPECT_EQ(module.brief, "Geometry helpers.");
}

TEST_F(DocSampleModule, EntriesInSourceOrderWithoutImportsOrTests) {
    ASSERT_EQ(module.entries.size(), 8u);
    const char* names[] = {"add", "Point", "Shape", "Pair", "Color", "LIMIT", "counter", "generic"};
    DocKind kinds[] = {DocKind::Function, DocKind::Class,    DocKind::Interface, DocKind::Struct,
                       DocKind::Enum,     DocKind::Variable, DocKind::Variable,  DocKind::Function};
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(entry(i).name, names[i]);
        EXPECT_EQ(entry(i).kind, kinds[i]) << names[i];
    }
}

TEST_F(DocSampleModule, FunctionEntryWithParamsReturnsAndDoc) {
    const DocEntry& add = entry(0);
    EXPECT_EQ(add.signature, "fn add(a: int, b: int): int");
    EXPECT_EQ(add.line, 10);
    EXPECT_EQ(add.returnType, "int");
    EXPECT_EQ(add.description, "Adds two numbers.");
    EXPECT_EQ(add.brief, "Adds two numbers.");
    EXPECT_EQ(add.returnDescription, "their sum");
    ASSERT_EQ(add.params.size(), 2u);
    EXPECT_EQ(add.params[0].name, "a");
    EXPECT_EQ(add.params[0].type, "int");
    EXPECT_EQ(add.params[0].description, "the left side");
    EXPECT_EQ(add.params[0].defaultValue, "");
    EXPECT_EQ(add.params[1].description, "the right side");
    EXPECT_EQ(add.visibility, "public");
    EXPECT_TRUE(add.members.empty());
}

TEST_F(DocSampleModule, ClassEntryAndItsMembers) {
    const DocEntry& point = entry(1);
    EXPECT_EQ(point.signature, "class Point extends Base implements Shape, Printable");
    EXPECT_EQ(point.description, "A point in the plane.");
    EXPECT_EQ(point.line, 15);
    ASSERT_EQ(point.members.size(), 6u);

    EXPECT_EQ(point.members[0].name, "x");
    EXPECT_EQ(point.members[0].kind, DocKind::Field);
    EXPECT_EQ(point.members[0].signature, "let x: float");
    EXPECT_EQ(point.members[0].returnType, "float");
    EXPECT_EQ(point.members[0].description, "The x coordinate.");
    EXPECT_EQ(point.members[0].line, 17);

    EXPECT_EQ(point.members[1].signature, "const y: float");
    EXPECT_EQ(point.members[1].description, "");
    EXPECT_EQ(point.members[2].signature, "let z: int");

    const DocEntry& norm = point.members[3];
    EXPECT_EQ(norm.kind, DocKind::Method);
    EXPECT_EQ(norm.signature, "public static fn norm(): float");
    EXPECT_TRUE(norm.isStatic);
    EXPECT_EQ(norm.description, "Distance to the origin.");
    EXPECT_EQ(norm.line, 21);

    const DocEntry& show = point.members[4];
    EXPECT_EQ(show.signature, "private override fn show(s: string): void");
    EXPECT_EQ(show.visibility, "private");
    EXPECT_TRUE(show.isOverride);
    EXPECT_EQ(show.returnType, "void");
    EXPECT_EQ(show.description, "");

    EXPECT_EQ(point.members[5].name, "Point");
    EXPECT_EQ(point.members[5].signature, "public fn Point(px: float): void");
}

TEST_F(DocSampleModule, InterfaceEntryListsMethodSignatures) {
    const DocEntry& shape = entry(2);
    EXPECT_EQ(shape.signature, "interface Shape");
    EXPECT_EQ(shape.description, "Something with an area.");
    ASSERT_EQ(shape.members.size(), 2u);
    EXPECT_EQ(shape.members[0].kind, DocKind::Method);
    EXPECT_EQ(shape.members[0].signature, "fn area(): float");
    EXPECT_EQ(shape.members[1].signature, "fn scale(by: float): void");
    EXPECT_EQ(shape.members[1].line, 29);
}

TEST_F(DocSampleModule, StructFieldsAreNameColonType) {
    const DocEntry& pair = entry(3);
    EXPECT_EQ(pair.signature, "struct Pair");
    ASSERT_EQ(pair.members.size(), 2u);
    EXPECT_EQ(pair.members[0].kind, DocKind::Field);
    EXPECT_EQ(pair.members[0].signature, "first: int");
    EXPECT_EQ(pair.members[1].signature, "second: string");
    EXPECT_EQ(pair.members[1].returnType, "string");
}

TEST_F(DocSampleModule, EnumVariantsAreFieldsNamedAlone) {
    const DocEntry& color = entry(4);
    EXPECT_EQ(color.signature, "enum Color");
    ASSERT_EQ(color.members.size(), 3u);
    EXPECT_EQ(color.members[1].name, "Green");
    EXPECT_EQ(color.members[1].kind, DocKind::Field);
    EXPECT_EQ(color.members[1].signature, "Green");
    EXPECT_EQ(color.members[1].line, 37);
}

TEST_F(DocSampleModule, VariablesShowConstOrLetAndTheWrittenType) {
    EXPECT_EQ(entry(5).signature, "const LIMIT: int");
    EXPECT_EQ(entry(5).returnType, "int");
    EXPECT_EQ(entry(6).signature, "let counter: ");
    EXPECT_EQ(entry(6).returnType, "");
}

TEST_F(DocSampleModule, GenericFunctionListsTypeParameters) {
    EXPECT_EQ(entry(7).signature, "fn generic<T>(x: T): T");
    EXPECT_EQ(entry(7).line, 42);
}

TEST_F(DocSampleModule, EntryWithoutDocBlockHasEmptyDescriptionAndBrief) {
    EXPECT_EQ(entry(3).description, "");
    EXPECT_EQ(entry(3).brief, "");
}

TEST(DocModuleName, StemOfThePathOrMain) {
    EXPECT_EQ(extract("", "file:///home/user/project/foo.quor").name, "foo");
    EXPECT_EQ(extract("", "lib/util.tar.quor").name, "util.tar");
    EXPECT_EQ(extract("", "").name, "main");
    EXPECT_EQ(extract("", "").path, "");
}

TEST(DocModuleName, ModuleDeclarationWinsOverFileName) {
    DocModule module = extract("module foo;\nfn f() {}\n", "file:///x/bar.quor");
    EXPECT_EQ(module.name, "foo");
    ASSERT_EQ(module.entries.size(), 1u);
}

TEST(DocModuleExtraction, EmptySourceHasNoEntries) { EXPECT_TRUE(extract("").entries.empty()); }

TEST(DocModuleExtraction, ParseErrorStillYieldsKeptDeclarations) {
    DocModule module = extract("fn first() { let = ; }\nfn second(): int { return 2; }\n");
    ASSERT_EQ(module.entries.size(), 2u);
    EXPECT_EQ(module.entries[0].name, "first");
    EXPECT_EQ(module.entries[1].name, "second");
    EXPECT_EQ(module.entries[1].signature, "fn second(): int");
}

TEST(DocModuleExtraction, HalfTypedClassKeepsWhatWasRead) {
    DocModule module = extract("class Half {\n  fn done() {}\n  fn broken(");
    ASSERT_GE(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].name, "Half");
    ASSERT_GE(module.entries[0].members.size(), 1u);
    EXPECT_EQ(module.entries[0].members[0].name, "done");
}

TEST(DocModuleExtraction, TestFunctionIsNotAnEntry) {
    DocModule module = extract("test \"adds\" { }\ntest plain { }\nfn real() {}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].name, "real");
}

// How far above a declaration its doc block may stand, and what may lie
// between them: one declaration each, and the description it ends up with.
TEST(DocAttachment, BlockAboveTheDeclarationWithinReachIsItsDescription) {
    struct Row {
        const char* name;
        const char* source;
        const char* description;
    };
    const Row rows[] = {
        {"doc comment five lines above is attached", "/// five above\n\n\n\n\nfn f() {}\n", "five above"},
        {"doc comment six lines above is not attached", "/// six above\n\n\n\n\n\nfn f() {}\n", ""},
        {"long block comment directly above is too far away", "/**\n * a\n * b\n * c\n * d\n */\nfn f() {}\n", ""},
        {"five-line block comment directly above is attached", "/**\n * a\n * b\n * c\n */\nfn f() {}\n",
         "a\nb\nc"},
        {"block may stand above other code", "/// about f\nprint(1);\nfn f() {}\n", "about f"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        DocModule module = extract(row.source);
        ASSERT_EQ(module.entries.size(), 1u);
        EXPECT_EQ(module.entries[0].description, row.description);
    }
}

TEST(DocAttachment, ClassAndFirstMethodEachTakeTheirBlock) {
    DocModule module = extract("/// The class.\nclass C {\n    /// The method.\n    fn m() {}\n}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].description, "The class.");
    ASSERT_EQ(module.entries[0].members.size(), 1u);
    EXPECT_EQ(module.entries[0].members[0].description, "The method.");
}

TEST(DocAttachment, BlockServesOnlyOneDeclaration) {
    DocModule module = extract("/// shared\nfn a() {}\nfn b() {}\n");
    ASSERT_EQ(module.entries.size(), 2u);
    EXPECT_EQ(module.entries[0].description, "shared");
    EXPECT_EQ(module.entries[1].description, "");
}

TEST(DocAttachment, PlainCommentDocumentsNothing) {
    DocModule module = extract("// just a note\nfn f() {}\n");
    EXPECT_EQ(module.entries.at(0).description, "");
}

TEST(DocAttachment, ParamTagForUnknownParameterIsIgnored) {
    DocModule module = extract("/// Doc.\n/// @param nope x\nfn f(a: int) {}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].params.at(0).description, "");
}

TEST(DocSignaturesFromSource, VisibilityAbstractAndGenericClass) {
    DocModule module = extract("private abstract class Box<T> : Base, I { }\npublic class Open { }\n");
    ASSERT_EQ(module.entries.size(), 2u);
    EXPECT_EQ(module.entries[0].signature, "private abstract class Box<T> extends Base implements I");
    EXPECT_EQ(module.entries[0].visibility, "private");
    EXPECT_EQ(module.entries[1].signature, "class Open");
}

TEST(DocSignaturesFromSource, PrivateFunctionAndTypeFirstForms) {
    DocModule module = extract("private fn hidden(x: int = 3) {}\nint twice(int n) { return n * 2; }\n");
    ASSERT_EQ(module.entries.size(), 2u);
    EXPECT_EQ(module.entries[0].signature, "private fn hidden(x: int): void");
    EXPECT_EQ(module.entries[1].signature, "fn twice(n: int): int");
}

TEST(DocSignaturesFromSource, ExternBlockDocumentsNothing) {
    EXPECT_TRUE(extract("extern \"c\" { int puts(string s); }\n").entries.empty());
}
