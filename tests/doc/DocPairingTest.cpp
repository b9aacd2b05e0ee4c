// Which doc comment block goes to which declaration: the distance limit,
// the nearest block winning, blocks serving one declaration, and members
// looking after their owner.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "DocTestSupport.h"

namespace quor::doc::testing {
namespace {

// Finds "name" among the entries or "owner.member" among an entry's members.
const DocEntry* findByPath(const DocModule& module, const std::string& path) {
    std::string::size_type dot = path.find('.');
    std::string head = path.substr(0, dot);
    for (const auto& entry : module.entries) {
        if (entry.name != head) continue;
        if (dot == std::string::npos) return &entry;
        std::string tail = path.substr(dot + 1);
        for (const auto& member : entry.members) {
            if (member.name == tail) return &member;
        }
    }
    return nullptr;
}

struct PairingCase {
    const char* title;
    std::string source;
    std::vector<std::pair<std::string, std::string>> descriptions;  // path, description
};

std::string docAtDistance(int distance) {
    return "/// doc\n" + std::string(static_cast<std::size_t>(distance - 1), '\n') + "fn f() {}\n";
}

std::string blockCommentOfLines(int lines) {
    std::string text = "/**\n";
    for (int i = 0; i < lines - 2; ++i) text += " * line\n";
    return text + " */\nfn f() {}\n";
}

class DocPairing : public ::testing::TestWithParam<PairingCase> {};

TEST_P(DocPairing, DescriptionsLandWhereExpected) {
    const PairingCase& c = GetParam();
    DocModule module = extract(c.source);
    for (const auto& [path, description] : c.descriptions) {
        const DocEntry* entry = findByPath(module, path);
        ASSERT_NE(entry, nullptr) << path << " in\n" << c.source;
        EXPECT_EQ(entry->description, description) << path << " in\n" << c.source;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DocPairing,
    ::testing::Values(
        PairingCase{"DirectlyAbove", docAtDistance(1), {{"f", "doc"}}},
        PairingCase{"TwoLinesAbove", docAtDistance(2), {{"f", "doc"}}},
        PairingCase{"FourLinesAbove", docAtDistance(4), {{"f", "doc"}}},
        PairingCase{"FiveLinesAbove", docAtDistance(5), {{"f", "doc"}}},
        PairingCase{"SixLinesAboveIsTooFar", docAtDistance(6), {{"f", ""}}},
        PairingCase{"SevenLinesAboveIsTooFar", docAtDistance(7), {{"f", ""}}},
        PairingCase{"BlockCommentOfFiveLinesReaches", blockCommentOfLines(5), {{"f", "line\nline\nline"}}},
        PairingCase{"BlockCommentOfSixLinesIsTooFar", blockCommentOfLines(6), {{"f", ""}}},
        PairingCase{"NearestWinsAndFartherGoesToNext", "/// far\n\n/// near\nfn f() {}\nfn g() {}\n",
                    {{"f", "near"}, {"g", "far"}}},
        PairingCase{"SameEndLineLaterWins", "/** a */ print(1); /** b */\nfn f() {}\nfn g() {}\n",
                    {{"f", "b"}, {"g", "a"}}},
        PairingCase{"CodeInBetweenDoesNotClaim", "/// doc\nprint(1);\nfn f() {}\n", {{"f", "doc"}}},
        PairingCase{"TrailingCommentGoesToNextLine", "fn f() {} /// trailing\nfn g() {}\n",
                    {{"f", ""}, {"g", "trailing"}}},
        PairingCase{"CommentBelowIsNotAttached", "fn f() {}\n/// after\n", {{"f", ""}}},
        PairingCase{"PlainCommentMakesNoBlock", "// plain\nfn f() {}\n", {{"f", ""}}},
        PairingCase{"PlainCommentJoinsDocLine", "// plain\n/// doc\nfn f() {}\n", {{"f", "// plain\ndoc"}}},
        PairingCase{"BlankLineSplitsBlocks", "/// a\n/// a2\n\n/// b\nfn f() {}\nfn g() {}\n",
                    {{"f", "b"}, {"g", "a\na2"}}},
        PairingCase{"BlockServesOneDeclaration", "/// one\nlet a: int = 1;\nlet b: int = 2;\n",
                    {{"a", "one"}, {"b", ""}}},
        PairingCase{"ClassAndFirstMethodEachTheirOwn",
                    "/// The class.\nclass A {\n    /// The method.\n    fn m() {}\n}\n",
                    {{"A", "The class."}, {"A.m", "The method."}}},
        PairingCase{"OwnerLooksBeforeItsMembers", "/// one\nclass A {\n    fn m() {}\n}\n",
                    {{"A", "one"}, {"A.m", ""}}},
        PairingCase{"MembersInOrder",
                    "class A {\n    /// x doc\n    let x: int;\n    fn m() {}\n    /// n doc\n    fn n() {}\n}\n",
                    {{"A", ""}, {"A.x", "x doc"}, {"A.m", ""}, {"A.n", "n doc"}}},
        PairingCase{"CommentOnOwnerLineGoesToMember", "class A { /// doc\n    fn m() {}\n}\n",
                    {{"A", ""}, {"A.m", "doc"}}},
        PairingCase{"InterfaceMethodAndStructField",
                    "interface I {\n    /// area doc\n    fn area(): float;\n}\nstruct P {\n    /// x doc\n    x: int;\n}\n",
                    {{"I", ""}, {"I.area", "area doc"}, {"P", ""}, {"P.x", "x doc"}}},
        PairingCase{"TestDeclarationDoesNotTakeTheBlock", "/// doc\ntest \"t\" { }\nfn f() {}\n", {{"f", "doc"}}},
        PairingCase{"CarriageReturnsCleaned", "/// first\r\n/// second\r\nfn f() {}\r\n", {{"f", "first\nsecond"}}},
        PairingCase{"MarkedLinesLoseTrailingSpaces", "/// a  \n/// b\nfn f() {}\n", {{"f", "a\nb"}}},
        PairingCase{"BareLinesKeepIndentAndTrailingSpaces",
                    "/**\n   Indented text  \n     more\n */\nfn f() {}\n", {{"f", "Indented text  \n     more"}}},
        PairingCase{"OneLineBlockComment", "/** Text */\nfn f() {}\n", {{"f", "Text"}}},
        PairingCase{"EnumVariantsShareTheEnumLine", "/// far\n/// \n\n/// near\nenum E { A, B }\n",
                    {{"E", "near"}, {"E.A", "far"}, {"E.B", ""}}},
        PairingCase{"LongCommentCountsFromItsFirstLine", "/** a\n b */\n/// c\nfn f() {}\nfn g() {}\n",
                    {{"f", "c"}, {"g", "a\n b"}}},
        PairingCase{"EmptyBlockCommentLeavesItsSlash", "/**/\nfn f() {}\n", {{"f", "/"}}},
        PairingCase{"VariableTakesBlock", "/// The limit.\nconst LIMIT: int = 3;\n", {{"LIMIT", "The limit."}}}),
    [](const ::testing::TestParamInfo<PairingCase>& info) { return std::string(info.param.title); });

TEST(DocPairingTags, ParamsAndReturnCopied) {
    DocModule module = extract(
        "/// Adds two numbers.\n"
        "///\n"
        "/// Second paragraph.\n"
        "/// @param a the first\n"
        "/// @param c not a parameter\n"
        "/// @return the sum\n"
        "fn add(a: int, b: int): int => a + b;\n");
    ASSERT_EQ(module.entries.size(), 1u);
    const DocEntry& add = module.entries[0];
    EXPECT_EQ(add.description, "Adds two numbers.\n\nSecond paragraph.");
    EXPECT_EQ(add.brief, "Adds two numbers.");
    EXPECT_EQ(add.returnDescription, "the sum");
    EXPECT_EQ(add.returnType, "int");
    ASSERT_EQ(add.params.size(), 2u);
    EXPECT_EQ(add.params[0].description, "the first");
    EXPECT_EQ(add.params[1].description, "");
}

TEST(DocPairingTags, MethodParamsAndReturnsTag) {
    DocModule module = extract(
        "class C {\n"
        "    /// Scales.\n"
        "    /// @param f factor\n"
        "    /// @returns the result\n"
        "    fn scale(f: float): float => f;\n"
        "}\n");
    ASSERT_EQ(module.entries.size(), 1u);
    ASSERT_EQ(module.entries[0].members.size(), 1u);
    const DocEntry& scale = module.entries[0].members[0];
    EXPECT_EQ(scale.brief, "Scales.");
    EXPECT_EQ(scale.returnDescription, "the result");
    ASSERT_EQ(scale.params.size(), 1u);
    EXPECT_EQ(scale.params[0].description, "factor");
}

TEST(DocPairingTags, EntryWithoutBlockIsBlank) {
    DocModule module = extract("fn f(a: int): int => a;\n");
    ASSERT_EQ(module.entries.size(), 1u);
    EXPECT_EQ(module.entries[0].description, "");
    EXPECT_EQ(module.entries[0].brief, "");
    EXPECT_EQ(module.entries[0].returnDescription, "");
    EXPECT_EQ(module.entries[0].params[0].description, "");
}

}  // namespace
}  // namespace quor::doc::testing
