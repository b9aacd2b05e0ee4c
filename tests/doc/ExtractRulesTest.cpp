// What the extractor reads out of a source: which declarations become
// entries, their kinds, signatures, lines and flags, and which members they
// carry, checked case by case against hand-worked expectations.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "DocTestSupport.h"

namespace quor::doc::testing {
namespace {

// The signatures of all entries, in order, for compact comparisons.
std::vector<std::string> entrySignatures(const DocModule& module) {
    std::vector<std::string> out;
    for (const auto& entry : module.entries) out.push_back(entry.signature);
    return out;
}

std::vector<std::string> memberSignatures(const DocEntry& entry) {
    std::vector<std::string> out;
    for (const auto& member : entry.members) out.push_back(member.signature);
    return out;
}

struct SignatureCase {
    const char* title;
    const char* source;
    std::vector<std::string> signatures;  // of the top-level entries, in order
};

class ExtractTopLevelSignature : public ::testing::TestWithParam<SignatureCase> {};

TEST_P(ExtractTopLevelSignature, MatchesTheDeclaration) {
    const SignatureCase& c = GetParam();
    DocModule module = extract(c.source);
    EXPECT_EQ(entrySignatures(module), c.signatures) << c.source;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ExtractTopLevelSignature,
    ::testing::Values(
        SignatureCase{"PlainFunction", "fn f() {}", {"fn f(): void"}},
        SignatureCase{"ColonReturnType", "fn f(a: int, b: string): bool { return true; }",
                      {"fn f(a: int, b: string): bool"}},
        SignatureCase{"ArrowReturnType", "fn f() -> int { return 1; }", {"fn f(): int"}},
        SignatureCase{"GenericsJoinedWithCommaSpace", "fn pick<A, B>(a: A, b: B): A => a;",
                      {"fn pick<A, B>(a: A, b: B): A"}},
        SignatureCase{"PublicVisibilityLeftOut", "public fn f() {}", {"fn f(): void"}},
        SignatureCase{"PrivateVisibilityWritten", "private fn f() {}", {"private fn f(): void"}},
        SignatureCase{"ProtectedVisibilityWritten", "protected fn f() {}", {"protected fn f(): void"}},
        SignatureCase{"InternalVisibilityWritten", "internal fn f() {}", {"internal fn f(): void"}},
        SignatureCase{"StaticAndOverrideNotWrittenForFunction", "static override fn f() {}", {"fn f(): void"}},
        SignatureCase{"DefaultValuesLeftOut", "fn f(a: int = 1, string b = \"x\") {}",
                      {"fn f(a: int, b: string): void"}},
        SignatureCase{"UntypedParameterKeepsColonSpace", "fn f(a, b: int) {}", {"fn f(a: , b: int): void"}},
        SignatureCase{"TypeFirstParameters", "fn f(int[] a, Map<string, int> m, string? s) {}",
                      {"fn f(a: int[], m: Map<string, int>, s: string?): void"}},
        SignatureCase{"TypeFirstFunction", "private int twice(int x) { return x; }",
                      {"private fn twice(x: int): int"}},
        SignatureCase{"BareFunction", "f(a: int) -> string { }", {"fn f(a: int): string"}},
        SignatureCase{"ShortFormFunction", "fn one() => 1;", {"fn one(): void"}},
        SignatureCase{"PlainClass", "class A {}", {"class A"}},
        SignatureCase{"AbstractClass", "abstract class A {}", {"abstract class A"}},
        SignatureCase{"PrivateAbstractGenericClass",
                      "private abstract class Box<T> extends Base implements I, J {}",
                      {"private abstract class Box<T> extends Base implements I, J"}},
        SignatureCase{"ClassWithTwoTypeParameters", "class Pair<A, B> {}", {"class Pair<A, B>"}},
        SignatureCase{"ClassColonListGivesBaseAndInterfaces", "class A extends B : C, D implements E {}",
                      {"class A extends C implements D, E"}},
        SignatureCase{"PublicClassWritesNoVisibility", "public class A {}", {"class A"}},
        SignatureCase{"InterfaceHasNoVisibility", "private interface I { }", {"interface I"}},
        SignatureCase{"StructHasNoVisibility", "private struct S { }", {"struct S"}},
        SignatureCase{"EnumHasNoVisibility", "private enum E { A }", {"enum E"}},
        SignatureCase{"ConstVariable", "const LIMIT: int = 10;", {"const LIMIT: int"}},
        SignatureCase{"LetVariable", "let name: string = \"a\";", {"let name: string"}},
        SignatureCase{"VarWrittenAsLet", "var int count = 0;", {"let count: int"}},
        SignatureCase{"TypeFirstGlobalWrittenAsLet", "static float ratio = 1.5;", {"let ratio: float"}},
        SignatureCase{"ConstWithKeywordType", "const string title = \"t\";", {"const title: string"}},
        SignatureCase{"UntypedVariableKeepsColonSpace", "let n = 1;\nconst K = 2;", {"let n: ", "const K: "}},
        SignatureCase{"NamelessFunctionStillAnEntry", "fn (x) {}", {"fn (x: ): void"}},
        SignatureCase{"TestInsideExternIsNotSeen", "extern { fn hidden(); }\nfn seen() {}", {"fn seen(): void"}},
        SignatureCase{"SourceOrderAcrossKinds",
                      "let a: int = 1;\nenum E { X }\nfn f() {}\nstruct S { }\nclass C {}\ninterface I { }",
                      {"let a: int", "enum E", "fn f(): void", "struct S", "class C", "interface I"}}),
    [](const ::testing::TestParamInfo<SignatureCase>& info) { return std::string(info.param.title); });

struct MemberCase {
    const char* title;
    const char* source;
    std::vector<std::string> members;  // member signatures of the first entry
};

class ExtractMemberSignature : public ::testing::TestWithParam<MemberCase> {};

TEST_P(ExtractMemberSignature, MatchesTheMemberDeclaration) {
    const MemberCase& c = GetParam();
    DocModule module = extract(c.source);
    ASSERT_FALSE(module.entries.empty()) << c.source;
    EXPECT_EQ(memberSignatures(module.entries[0]), c.members) << c.source;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ExtractMemberSignature,
    ::testing::Values(
        MemberCase{"ClassMethodWritesPublic", "class C { fn m() {} }", {"public fn m(): void"}},
        MemberCase{"ClassMethodPrivateStatic", "class C { private static fn s(a: int): int => a; }",
                   {"private static fn s(a: int): int"}},
        MemberCase{"ClassMethodOverride", "class C { override fn o() {} }", {"public override fn o(): void"}},
        MemberCase{"ClassMethodStaticBeforeOverride", "class C { override static fn b() {} }",
                   {"public static override fn b(): void"}},
        MemberCase{"ClassMethodLeavesOutGenerics", "class C { fn id<T>(x: T): T => x; }",
                   {"public fn id(x: T): T"}},
        MemberCase{"AbstractMethodNotMarked", "abstract class C { abstract fn f(); }", {"public fn f(): void"}},
        MemberCase{"Constructor", "class A { A(int x) { } }", {"public fn A(x: int): void"}},
        MemberCase{"TypeFirstMethod", "class A { protected string name(int i) { } }",
                   {"protected fn name(i: int): string"}},
        MemberCase{"ClassFields", "class C { const k: int = 1; private int n; let s: string; static int z = 0; }",
                   {"const k: int", "let n: int", "let s: string", "let z: int"}},
        MemberCase{"ClassSkipsOtherMembers", "class C { fn a() {} class Inner {} enum E { X } print(1); let b: int; }",
                   {"public fn a(): void", "let b: int"}},
        MemberCase{"TestInsideClassIsAMethod", "class C { test \"x y\" { } }", {"public fn __quor_test_x_y(): void"}},
        MemberCase{"InterfaceMethods", "interface I { fn area(): float; fn scale(f: float); }",
                   {"fn area(): float", "fn scale(f: float): void"}},
        MemberCase{"StructFieldsBothOrders", "struct P { x: int; float y; Map<string, int> m; }",
                   {"x: int", "y: float", "m: Map<string, int>"}},
        MemberCase{"EnumVariantsAreNames", "enum Color { Red, Green = 2, Blue, }", {"Red", "Green", "Blue"}}),
    [](const ::testing::TestParamInfo<MemberCase>& info) { return std::string(info.param.title); });

TEST(ExtractKinds, TopLevelAndMemberKinds) {
    DocModule module = extract(
        "fn f() {}\n"
        "class C { fn m() {} let x: int; }\n"
        "interface I { fn n(); }\n"
        "struct S { a: int; }\n"
        "enum E { V }\n"
        "let v: int = 1;\n");
    ASSERT_EQ(module.entries.size(), 6u);
    EXPECT_EQ(module.entries[0].kind, DocKind::Function);
    EXPECT_EQ(module.entries[1].kind, DocKind::Class);
    EXPECT_EQ(module.entries[2].kind, DocKind::Interface);
    EXPECT_EQ(module.entries[3].kind, DocKind::Struct);
    EXPECT_EQ(module.entries[4].kind, DocKind::Enum);
    EXPECT_EQ(module.entries[5].kind, DocKind::Variable);
    ASSERT_EQ(module.entries[1].members.size(), 2u);
    EXPECT_EQ(module.entries[1].members[0].kind, DocKind::Method);
    EXPECT_EQ(module.entries[1].members[1].kind, DocKind::Field);
    ASSERT_EQ(module.entries[2].members.size(), 1u);
    EXPECT_EQ(module.entries[2].members[0].kind, DocKind::Method);
    ASSERT_EQ(module.entries[3].members.size(), 1u);
    EXPECT_EQ(module.entries[3].members[0].kind, DocKind::Field);
    ASSERT_EQ(module.entries[4].members.size(), 1u);
    EXPECT_EQ(module.entries[4].members[0].kind, DocKind::Field);
    EXPECT_EQ(module.entries[4].members[0].name, "V");
}

TEST(ExtractKinds, DocKindNumbersAreFixed) {
    const DocKind kinds[] = {DocKind::Module, DocKind::Function, DocKind::Class,    DocKind::Interface, DocKind::Struct,
                             DocKind::Enum,   DocKind::Variable, DocKind::Method,   DocKind::Field};
    for (std::size_t i = 0; i < sizeof(kinds) / sizeof(kinds[0]); ++i) {
        EXPECT_EQ(static_cast<std::uint32_t>(kinds[i]), i);
    }
    EXPECT_EQ(sizeof(DocKind), 4u);
    DocEntry entry;
    EXPECT_EQ(entry.kind, DocKind::Function);
    EXPECT_EQ(entry.visibility, "public");
    EXPECT_FALSE(entry.isStatic);
    EXPECT_FALSE(entry.isAsync);
    EXPECT_FALSE(entry.isOverride);
}

TEST(ExtractFields, FunctionFieldsCopied) {
    DocModule module = extract("\n\nprivate static fn f(a: int, b = 1): string => \"x\";\n");
    ASSERT_EQ(module.entries.size(), 1u);
    const DocEntry& f = module.entries[0];
    EXPECT_EQ(f.name, "f");
    EXPECT_EQ(f.line, 3);
    EXPECT_EQ(f.visibility, "private");
    EXPECT_TRUE(f.isStatic);
    EXPECT_FALSE(f.isOverride);
    EXPECT_FALSE(f.isAsync);
    EXPECT_EQ(f.returnType, "string");
    ASSERT_EQ(f.params.size(), 2u);
    EXPECT_EQ(f.params[0].name, "a");
    EXPECT_EQ(f.params[0].type, "int");
    EXPECT_EQ(f.params[1].name, "b");
    EXPECT_EQ(f.params[1].type, "");
    EXPECT_EQ(f.params[1].defaultValue, "");
    EXPECT_TRUE(f.members.empty());
}

TEST(ExtractFields, EmptyVisibilityBecomesPublicAndVoidStays) {
    DocModule module = extract("fn f() {}\nclass C { fn m() {} }");
    ASSERT_EQ(module.entries.size(), 2u);
    EXPECT_EQ(module.entries[0].visibility, "public");
    EXPECT_EQ(module.entries[0].returnType, "void");
    EXPECT_EQ(module.entries[1].visibility, "public");
    ASSERT_EQ(module.entries[1].members.size(), 1u);
    EXPECT_EQ(module.entries[1].members[0].visibility, "public");
    EXPECT_EQ(module.entries[1].members[0].returnType, "void");
}

TEST(ExtractFields, MethodFlagsAndLines) {
    DocModule module = extract(
        "class C {\n"
        "    private static fn s() {}\n"
        "    override fn o(x: int): bool => true;\n"
        "    protected int count;\n"
        "}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    const DocEntry& c = module.entries[0];
    EXPECT_EQ(c.line, 1);
    ASSERT_EQ(c.members.size(), 3u);
    EXPECT_EQ(c.members[0].name, "s");
    EXPECT_EQ(c.members[0].line, 2);
    EXPECT_EQ(c.members[0].visibility, "private");
    EXPECT_TRUE(c.members[0].isStatic);
    EXPECT_EQ(c.members[1].line, 3);
    EXPECT_TRUE(c.members[1].isOverride);
    EXPECT_EQ(c.members[1].returnType, "bool");
    ASSERT_EQ(c.members[1].params.size(), 1u);
    EXPECT_EQ(c.members[1].params[0].name, "x");
    EXPECT_EQ(c.members[1].params[0].type, "int");
    EXPECT_EQ(c.members[2].name, "count");
    EXPECT_EQ(c.members[2].line, 4);
    EXPECT_EQ(c.members[2].visibility, "protected");
    EXPECT_EQ(c.members[2].returnType, "int");
}

TEST(ExtractFields, VariableAndFieldTypesGoToReturnType) {
    DocModule module = extract("const k: int = 1;\nstatic string s = \"\";\nstruct P { x: float; }\n");
    ASSERT_EQ(module.entries.size(), 3u);
    EXPECT_EQ(module.entries[0].returnType, "int");
    EXPECT_EQ(module.entries[0].line, 1);
    EXPECT_EQ(module.entries[1].returnType, "string");
    EXPECT_TRUE(module.entries[1].isStatic);
    EXPECT_EQ(module.entries[1].line, 2);
    ASSERT_EQ(module.entries[2].members.size(), 1u);
    EXPECT_EQ(module.entries[2].members[0].returnType, "float");
    EXPECT_EQ(module.entries[2].members[0].line, 3);
}

TEST(ExtractFields, TypeFirstFunctionLineIsTheName) {
    DocModule module = extract("public\nint\nf() { }\n");
    // A type-first function sits where its name is, not where its modifiers are.
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].line, 3);
}

TEST(ExtractSkipped, TestsAndOtherStatementsMakeNoEntries) {
    DocModule module = extract(
        "import a.b.*;\n"
        "test \"adds two\" { }\n"
        "test plain { }\n"
        "fn __quor_test_manual() {}\n"
        "print(1);\n"
        "if (true) { }\n"
        "extern \"c\" { int ext(); }\n"
        "fn kept() {}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].name, "kept");
}

TEST(ExtractSkipped, ParseErrorKeepsWhatTheParserKept) {
    DocModule module = extract("fn a() {}\n@ @ @\nfn b(x: int): int\nclass C { fn m() {} }\n");
    std::vector<std::string> names;
    for (const auto& entry : module.entries) names.push_back(entry.name);
    EXPECT_EQ(names, (std::vector<std::string>{"a", "b", "C"}));
}

TEST(ExtractModuleName, StemOfThePath) {
    struct Case {
        const char* path;
        const char* name;
    };
    const Case cases[] = {
        {"file:///work/foo.quor", "foo"}, {"/tmp/x/bar.quor", "bar"}, {"plain.quor", "plain"},
        {"dir/archive.tar.quor", "archive.tar"}, {"noext", "noext"},  {"", "main"},
        {"file:///a/my%20file.quor", "my%20file"}, {"dir/.quor", ".quor"}, {"dir/sub/", ""}, {"/", ""},
    };
    for (const Case& c : cases) {
        DocModule module = extract("fn f() {}", c.path);
        EXPECT_EQ(module.name, c.name) << c.path;
        EXPECT_EQ(module.path, c.path);
    }
}

TEST(ExtractModuleName, ModuleDeclarationOverridesAndTakesDoc) {
    DocModule module = extract(
        "/// The foo module.\n"
        "/// More about it.\n"
        "module foo.bar;\n"
        "fn f() {}\n",
        "src/bar.quor");
    EXPECT_EQ(module.name, "foo.bar");
    EXPECT_EQ(module.path, "src/bar.quor");
    EXPECT_EQ(module.description, "The foo module.\nMore about it.");
    EXPECT_EQ(module.brief, "The foo module.");
    ASSERT_EQ(module.entries.size(), 1u);
    // The module declaration used the block, so the function has none.
    EXPECT_EQ(module.entries[0].description, "");
}

TEST(ExtractModuleName, NamelessModuleDeclarationEmptiesTheName) {
    DocModule module = extract("module ;\nfn f() {}\n", "src/bar.quor");
    EXPECT_EQ(module.name, "");
    ASSERT_EQ(module.entries.size(), 1u);
}

TEST(ExtractModuleName, LaterModuleDeclarationWins) {
    DocModule module = extract("/// First.\nmodule one;\n/// Second.\nmodule two;\n");
    EXPECT_EQ(module.name, "two");
    EXPECT_EQ(module.description, "Second.");
    EXPECT_EQ(module.brief, "Second.");
    EXPECT_TRUE(module.entries.empty());
}

TEST(ExtractModuleName, EmptySourceHasNoEntries) {
    DocModule module = extract("");
    EXPECT_EQ(module.name, "demo");
    EXPECT_TRUE(module.entries.empty());
    EXPECT_EQ(module.description, "");
    EXPECT_EQ(module.brief, "");
}

}  // namespace
}  // namespace quor::doc::testing
