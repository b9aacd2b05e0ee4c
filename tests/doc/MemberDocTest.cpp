#include <gtest/gtest.h>

#include <string>

#include "doc/DocGenerator.h"
#include "doc/DocTestSupport.h"

using quor::doc::DocEntry;
using quor::doc::DocKind;
using quor::doc::DocModule;
using quor::doc::testing::extract;

TEST(MemberDoc, StructFieldsTakeTheirOwnBlocks) {
    DocModule module = extract(
        "/// A pair.\n"
        "struct Pair {\n"
        "    /// The left one.\n"
        "    first: int;\n"
        "    /// The right one.\n"
        "    string second;\n"
        "}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    const DocEntry& pair = module.entries[0];
    EXPECT_EQ(pair.description, "A pair.");
    ASSERT_EQ(pair.members.size(), 2u);
    EXPECT_EQ(pair.members[0].description, "The left one.");
    EXPECT_EQ(pair.members[0].line, 4);
    EXPECT_EQ(pair.members[1].description, "The right one.");
    EXPECT_EQ(pair.members[1].line, 6);
}

TEST(MemberDoc, InterfaceMethodTakesParamAndReturnTags) {
    DocModule module = extract(
        "interface Scaler {\n"
        "    /// Scales a value.\n"
        "    /// @param by the factor\n"
        "    /// @returns the scaled value\n"
        "    fn scale(by: float): float;\n"
        "}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    const DocEntry& scaler = module.entries[0];
    EXPECT_EQ(scaler.description, "");
    ASSERT_EQ(scaler.members.size(), 1u);
    const DocEntry& scale = scaler.members[0];
    EXPECT_EQ(scale.kind, DocKind::Method);
    EXPECT_EQ(scale.description, "Scales a value.");
    EXPECT_EQ(scale.returnDescription, "the scaled value");
    ASSERT_EQ(scale.params.size(), 1u);
    EXPECT_EQ(scale.params[0].name, "by");
    EXPECT_EQ(scale.params[0].type, "float");
    EXPECT_EQ(scale.params[0].description, "the factor");
}

TEST(MemberDoc, ClassMethodParamsAndDefaultsLeftOut) {
    DocModule module = extract(
        "class Box {\n"
        "    /// Grows the box.\n"
        "    /// @param by how much\n"
        "    fn grow(by: int = 1, again) {}\n"
        "}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    ASSERT_EQ(module.entries[0].members.size(), 1u);
    const DocEntry& grow = module.entries[0].members[0];
    EXPECT_EQ(grow.signature, "public fn grow(by: int, again: ): void");
    ASSERT_EQ(grow.params.size(), 2u);
    EXPECT_EQ(grow.params[0].description, "how much");
    EXPECT_EQ(grow.params[0].defaultValue, "");
    EXPECT_EQ(grow.params[1].type, "");
    EXPECT_EQ(grow.params[1].description, "");
}

TEST(MemberDoc, StatementMembersOfAClassArePassedOver) {
    DocModule module = extract("class C {\n    print(1);\n    fn m() {}\n}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    ASSERT_EQ(module.entries[0].members.size(), 1u);
    EXPECT_EQ(module.entries[0].members[0].name, "m");
}

TEST(MemberDoc, ClassFieldsKeepVisibilityAndStaticFlag) {
    DocModule module = extract("class C {\n    private static int count = 0;\n    let plain: int = 1;\n}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    ASSERT_EQ(module.entries[0].members.size(), 2u);
    const DocEntry& count = module.entries[0].members[0];
    EXPECT_EQ(count.kind, DocKind::Field);
    EXPECT_EQ(count.visibility, "private");
    EXPECT_TRUE(count.isStatic);
    EXPECT_EQ(count.signature, "let count: int");
    EXPECT_EQ(module.entries[0].members[1].visibility, "public");
}

TEST(MemberDoc, ReturnTagIsNotCopiedWhenEmpty) {
    DocModule module = extract("/// Text.\n/// @return\nfn f(): int { return 1; }\n");
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].returnDescription, "");
    EXPECT_EQ(module.entries[0].description, "Text.");
}

// Code that takes no doc block of its own leaves the block to the
// declaration that follows it.
TEST(DocAttachmentAcrossCode, BlockPassesOverCodeWithoutEntryToTheNextDeclaration) {
    struct Row {
        const char* name;
        const char* source;
        const char* description;
    };
    const Row rows[] = {
        {"block above an import", "/// Reads things.\nimport std.io;\nfn read() {}\n", "Reads things."},
        {"block above a test function", "/// Real doc.\ntest \"t\" { }\nfn real() {}\n", "Real doc."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        DocModule module = extract(row.source);
        ASSERT_EQ(module.entries.size(), 1u);
        EXPECT_EQ(module.entries[0].description, row.description);
    }
}

TEST(DocAttachmentAcrossCode, ModuleDeclarationUsesUpItsBlock) {
    DocModule module = extract("/// The module.\nmodule m;\nfn f() {}\n");
    EXPECT_EQ(module.description, "The module.");
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].description, "");
}

TEST(DocAttachmentAcrossCode, ModuleDeclarationWithoutBlockLeavesDescriptionEmpty) {
    DocModule module = extract("module plain.name;\n");
    EXPECT_EQ(module.name, "plain.name");
    EXPECT_EQ(module.description, "");
    EXPECT_EQ(module.brief, "");
    EXPECT_TRUE(module.entries.empty());
}

TEST(DocAttachmentAcrossCode, CarriageReturnLineEndsAreCleaned) {
    DocModule module = extract("/// First line.\r\n/// Second line.\r\nfn f() {}\r\n");
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].description, "First line.\nSecond line.");
    EXPECT_EQ(module.entries[0].brief, "First line.");
}

TEST(DocAttachmentAcrossCode, BriefIsFirstLineAndDescriptionKeepsParagraphs) {
    DocModule module = extract("/// Summary here.\n///\n/// More detail.\nfn f() {}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].description, "Summary here.\n\nMore detail.");
    EXPECT_EQ(module.entries[0].brief, "Summary here.");
}

TEST(DocAttachmentAcrossCode, ParseErrorInsideAFunctionKeepsLaterDocs) {
    DocModule module = extract("fn broken() { let = ; }\n/// Fine.\nfn fine() {}\n");
    ASSERT_EQ(module.entries.size(), 2u);
    EXPECT_EQ(module.entries[1].name, "fine");
    EXPECT_EQ(module.entries[1].description, "Fine.");
}

TEST(DocAttachmentAcrossCode, UntypedGlobalsShowAnEmptyType) {
    DocModule module = extract("const LIMIT = 3;\nvar count = 0;\n");
    ASSERT_EQ(module.entries.size(), 2u);
    EXPECT_EQ(module.entries[0].signature, "const LIMIT: ");
    EXPECT_EQ(module.entries[0].kind, DocKind::Variable);
    EXPECT_EQ(module.entries[1].signature, "let count: ");
}

TEST(DocAttachmentAcrossCode, ByteSoupNeverFails) {
    const std::string junk = "\x01\xff{{{(((/**\n///\n\"unterminated";
    DocModule module = extract(junk, "file:///work/members.quor");
    EXPECT_EQ(module.name, "members");
}
