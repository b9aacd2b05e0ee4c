#include <gtest/gtest.h>

#include <string>

#include "FeatureTestSupport.h"
#include "LspTestSupport.h"
#include "lsp/LspServer.h"

using quor::lsp::JsonValue;
using quor::lsp::LspServer;
using quor::lsp::testing::FeatureTest;
using quor::lsp::testing::parse;
using quor::lsp::testing::positionParams;

namespace {

const std::string URI = "file:///work/def.quor";

class DefinitionTest : public FeatureTest {
protected:
    JsonValue define(int line, int character, const std::string& uri = URI) {
        return server.handleDefinition(JsonValue(1), parse(positionParams(uri, line, character)));
    }
};

std::string location(int line, int endCharacter) {
    std::string text = R"({"range":{"end":{"character":)";
    text.append(std::to_string(endCharacter));
    text.append(R"(,"line":)");
    text.append(std::to_string(line));
    text.append(R"(},"start":{"character":0,"line":)");
    text.append(std::to_string(line));
    text.append(R"(}},"uri":"file:///work/def.quor"})");
    return text;
}

const char* const CLASS_SOURCE =
    "class Counter {\n"              // 1
    "    let count: int = 0;\n"      // 2
    "\n"                             // 3
    "\n"                             // 4
    "\n"                             // 5
    "\n"                             // 6
    "\n"                             // 7
    "\n"                             // 8
    "\n"                             // 9
    "    fn increment() {}\n"        // 10
    "}\n"                            // 11
    "let c = new Counter();\n"       // 12
    "c.increment();\n";              // 13

}  // namespace

TEST_F(DefinitionTest, MethodOnLineTenFromACall) {
    server.openDocument(URI, CLASS_SOURCE);
    EXPECT_EQ(define(12, 4).serialize(), location(9, 9));
}

TEST_F(DefinitionTest, WordOnItsOwnDeclarationGivesThatLocation) {
    server.openDocument(URI, CLASS_SOURCE);
    EXPECT_EQ(define(9, 10).serialize(), location(9, 9));
    EXPECT_EQ(define(0, 8).serialize(), location(0, 7));
}

TEST_F(DefinitionTest, RangeStartsAtColumnZeroWhateverTheIndentation) {
    server.openDocument(URI, CLASS_SOURCE);
    EXPECT_EQ(define(1, 9).serialize(), location(1, 5));
}

TEST_F(DefinitionTest, ResultIsOneLocationObject) {
    server.openDocument(URI, CLASS_SOURCE);
    JsonValue result = define(11, 13);
    ASSERT_TRUE(result.isObject());
    EXPECT_EQ(result["uri"].getString(), URI);
    EXPECT_EQ(result.serialize(), location(0, 7));
}

TEST_F(DefinitionTest, LocalsParametersAndImportsGiveNull) {
    server.openDocument(URI, "import std.collections;\nfn f(param: int) {\n  let local = param;\n  collections;\n}\n");
    EXPECT_TRUE(define(2, 7).isNull());
    EXPECT_TRUE(define(2, 16).isNull());
    EXPECT_TRUE(define(3, 4).isNull());
    EXPECT_TRUE(define(0, 12).isNull());
}

TEST_F(DefinitionTest, FirstOfTwoFunctionsWithOneNameWins) {
    server.openDocument(URI, "fn twin(a: int) {}\n\nfn twin(a: string) {}\ntwin(1);\n");
    EXPECT_EQ(define(3, 1).serialize(), location(0, 4));
}

TEST_F(DefinitionTest, KeywordsAndTypesAreNotLookedUp) {
    server.openDocument(URI, "fn main() {\n  let x: int = 1;\n}\n");
    EXPECT_TRUE(define(0, 0).isNull());
    EXPECT_TRUE(define(1, 10).isNull());
}

TEST_F(DefinitionTest, DeclarationNamedLikeATableWordIsFound) {
    server.openDocument(URI, "\nclass List { }\n");
    EXPECT_EQ(define(1, 7).serialize(), location(1, 4));
}

TEST_F(DefinitionTest, EmptyWordGivesNull) {
    server.openDocument(URI, "fn a() {}\n\n");
    EXPECT_TRUE(define(1, 0).isNull());
    EXPECT_TRUE(define(7, 0).isNull());
}

TEST_F(DefinitionTest, UnknownDocumentGivesNull) { EXPECT_TRUE(define(0, 0, "file:///none.quor").isNull()); }

TEST_F(DefinitionTest, WorksOnDocumentWithSyntaxErrors) {
    server.openDocument(URI, "let = ;\nfn target() {}\ntarget(\n");
    EXPECT_EQ(define(2, 2).serialize(), location(1, 6));
}

TEST_F(DefinitionTest, MembersOfStructsAndInterfacesAreFound) {
    server.openDocument(URI, "struct P {\n  x: int;\n}\ninterface I {\n  fn go(): bool;\n}\np.x; i.go();\n");
    EXPECT_EQ(define(6, 2).serialize(), location(1, 1));
    EXPECT_EQ(define(6, 8).serialize(), location(4, 2));
}

TEST_F(DefinitionTest, AnsweredThroughDispatch) {
    server.openDocument(URI, "fn a() {}\na();\n");
    EXPECT_EQ(server.handleMessage(
                  R"({"id":"d","method":"textDocument/definition","params":{"textDocument":{"uri":"file:///work/def.quor"},"position":{"line":1,"character":0}}})"),
              std::string(R"({"id":"d","jsonrpc":"2.0","result":)") + location(0, 1) + "}");
}

TEST_F(DefinitionTest, ImportedNameGivesNullEvenWhenCalled) {
    server.openDocument(URI, "import std.io.println;\nprintln(1);\n");
    EXPECT_TRUE(define(1, 2).isNull());
}

TEST_F(DefinitionTest, DeclarationOnTheFirstLineStartsAtLineZero) {
    server.openDocument(URI, "fn first() {}\nfirst();\n");
    EXPECT_EQ(define(1, 5).serialize(), location(0, 5));
}

TEST_F(DefinitionTest, ClassFieldIsFoundFromAMemberAccess) {
    server.openDocument(URI, "\n\nclass Box {\n    let width: int = 0;\n}\nb.width;\n");
    EXPECT_EQ(define(5, 4).serialize(), location(3, 5));
}
