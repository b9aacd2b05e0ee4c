// Black-box checks of completion, hover, go-to-definition and rename: the
// built server is driven over its pipes and the answer bytes are compared.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "e2e/ServerProcess.h"

using quor::e2e::frame;
using quor::e2e::ProcessResult;
using quor::e2e::runServer;
using quor::e2e::splitFramed;

namespace {

// Escapes text for a JSON string value in a request.
std::string jsonString(const std::string& text) { return "\"" + quor::e2e::escapeJsonText(text) + "\""; }

std::string openMessage(const std::string& uri, const std::string& text) {
    std::string body = R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":)";
    body.append(jsonString(uri)).append(R"(,"languageId":"quor","version":1,"text":)");
    body.append(jsonString(text)).append("}}}");
    return frame(body);
}

std::string positionJson(int line, int character) {
    std::string out = R"({"line":)";
    out.append(std::to_string(line)).append(R"(,"character":)").append(std::to_string(character)).append("}");
    return out;
}

std::string requestMessage(int id, const std::string& method, const std::string& uri, const std::string& extra) {
    std::string body = R"({"jsonrpc":"2.0","id":)";
    body.append(std::to_string(id)).append(R"(,"method":")").append(method);
    body.append(R"(","params":{"textDocument":{"uri":)").append(jsonString(uri)).append("}");
    body.append(extra).append("}}");
    return frame(body);
}

std::string at(int line, int character) {
    std::string out = R"(,"position":)";
    out.append(positionJson(line, character));
    return out;
}

// Opens `text` under `uri` (when `text` is given), sends the requests, and
// returns the answer bodies in request order (the diagnostics notifications
// are left out).
std::vector<std::string> ask(const std::string& uri, const std::string* text,
                             const std::vector<std::string>& requests) {
    std::string input;
    if (text != nullptr) input.append(openMessage(uri, *text));
    for (const auto& request : requests) input.append(request);
    input.append(frame(R"({"jsonrpc":"2.0","id":999,"method":"shutdown"})"));
    ProcessResult result = runServer(input);
    EXPECT_FALSE(result.timedOut);
    EXPECT_TRUE(result.exited);
    EXPECT_EQ(result.exitStatus, 0);
    std::vector<std::string> answers;
    for (const auto& body : splitFramed(result.out)) {
        if (body.rfind(R"({"id":999,)", 0) == 0) continue;
        if (body.rfind(R"({"id":)", 0) == 0 || body.rfind("<<junk>>", 0) == 0) answers.push_back(body);
    }
    return answers;
}

std::string askOne(const std::string& uri, const std::string& text, const std::string& method,
                   const std::string& extra) {
    auto answers = ask(uri, &text, {requestMessage(1, method, uri, extra)});
    return answers.size() == 1 ? answers[0] : std::string("<wrong number of answers>");
}

std::string response(const std::string& resultJson) {
    std::string out = R"({"id":1,"jsonrpc":"2.0","result":)";
    out.append(resultJson).append("}");
    return out;
}

std::string hoverResult(const std::string& escapedContents) {
    std::string out = R"({"contents":{"kind":"markdown","value":")";
    out.append(escapedContents).append("\"}}");
    return response(out);
}

std::string locationResult(const std::string& uri, int line, int endCharacter) {
    std::string out = R"({"range":{"end":)";
    out.append(R"({"character":)").append(std::to_string(endCharacter)).append(R"(,"line":)");
    out.append(std::to_string(line)).append(R"(},"start":{"character":0,"line":)");
    out.append(std::to_string(line)).append(R"(}},"uri":")").append(uri).append("\"}");
    return response(out);
}

std::string edit(const std::string& newText, int line, int startCharacter, int endCharacter) {
    std::string out = R"({"newText":")";
    out.append(newText).append(R"(","range":{"end":{"character":)").append(std::to_string(endCharacter));
    out.append(R"(,"line":)").append(std::to_string(line)).append(R"(},"start":{"character":)");
    out.append(std::to_string(startCharacter)).append(R"(,"line":)").append(std::to_string(line)).append("}}}");
    return out;
}

std::string renameResult(const std::string& uri, const std::vector<std::string>& edits) {
    std::string out = R"({"changes":{")";
    out.append(uri).append("\":[");
    for (std::size_t i = 0; i < edits.size(); ++i) {
        if (i > 0) out.append(",");
        out.append(edits[i]);
    }
    out.append("]}}");
    return response(out);
}

const std::pair<const char*, const char*> KEYWORD_ROWS[] = {
    {"fn", "Declare a function: `fn name(params): returnType { ... }`"},
    {"let", "Declare a mutable local variable: `let x = 10;`"},
    {"const", "Declare an immutable constant: `const PI = 3.14159;`"},
    {"class", "Declare an object-oriented class: `class Name { ... }`"},
    {"interface", "Declare an interface contract: `interface Name { ... }`"},
    {"struct", "Declare a lightweight struct: `struct Name { ... }`"},
    {"enum", "Declare an enumerated type: `enum Name { ... }`"},
    {"if", "Conditional branching statement"},
    {"else", "Else branch for conditional execution"},
    {"while", "Loop construct that runs while condition is true"},
    {"for", "Loop construct: `for item in collection { ... }`"},
    {"in", "Used in for..in iterations"},
    {"return", "Return value from a function"},
    {"match", "Pattern matching control flow expression"},
    {"switch", "Switch-case branching statement"},
    {"case", "Case branch within a switch statement"},
    {"default", "Default branch in a switch statement"},
    {"break", "Exit loop or switch statement"},
    {"continue", "Jump to next loop iteration"},
    {"import", "Import external module or package"},
    {"module", "Declare file module namespace"},
    {"public", "Public visibility specifier"},
    {"private", "Private visibility specifier"},
    {"override", "Override virtual method in derived class"},
    {"static", "Declare static method or member"},
    {"async", "Asynchronous function modifier"},
    {"await", "Await asynchronous task resolution"},
    {"assert", "Test assertion: `assert(cond, [msg])`"},
    {"new", "Instantiate new class object"},
    {"try", "Begin exception handling block"},
    {"catch", "Catch exception in try block"},
    {"finally", "Finally block executed always"},
    {"throw", "Throw an error or exception"},
    {"true", "Boolean true literal"},
    {"false", "Boolean false literal"},
    {"null", "Null pointer or reference literal"},
};

const char* const TYPE_ROWS[] = {"int", "float", "string", "bool", "char", "byte",
                                 "void", "any", "Array", "Map", "List"};

// The 47 items every completion starts with, joined by commas.
std::string fixedItems() {
    std::string out;
    for (const auto& row : KEYWORD_ROWS) {
        if (!out.empty()) out.append(",");
        out.append(R"({"detail":"Quor keyword","documentation":{"kind":"markdown","value":")").append(row.second);
        out.append(R"("},"kind":14,"label":")").append(row.first).append("\"}");
    }
    for (const char* word : TYPE_ROWS) {
        out.append(R"(,{"detail":"Built-in Quor type","kind":25,"label":")").append(word).append("\"}");
    }
    return out;
}

std::string item(const std::string& label, int kind, const std::string& detail, const std::string& doc = "") {
    std::string out = R"({"detail":")";
    out.append(detail).append("\"");
    if (!doc.empty()) out.append(R"(,"documentation":{"kind":"markdown","value":")").append(doc).append("\"}");
    out.append(R"(,"kind":)").append(std::to_string(kind)).append(R"(,"label":")").append(label).append("\"}");
    return out;
}

std::string completionResult(const std::vector<std::string>& extra) {
    std::string out = "[";
    out.append(fixedItems());
    for (const auto& one : extra) out.append(",").append(one);
    out.append("]");
    return response(out);
}

const std::string URI = "file:///work/shapes.quor";

const std::string SHAPES =
    "/// Adds two numbers.\n"
    "/// @param a first\n"
    "fn add(a: int, b: int): int {\n"
    "    return a + b;\n"
    "}\n"
    "\n"
    "class Point {\n"
    "    let x: int;\n"
    "    fn len(): float {\n"
    "        return 0.0;\n"
    "    }\n"
    "}\n";

}  // namespace

// ---- completion ----

TEST(EditorFeaturesWireCompletion, UnknownDocumentGivesTheFixedItemsOnly) {
    std::vector<std::string> requests = {requestMessage(1, "textDocument/completion", "file:///nowhere.quor", at(0, 0))};
    auto answers = ask("file:///nowhere.quor", nullptr, requests);
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], completionResult({}));
}

TEST(EditorFeaturesWireCompletion, EmptyDocumentGivesTheFixedItemsOnly) {
    EXPECT_EQ(askOne("file:///e.quor", "", "textDocument/completion", at(0, 0)), completionResult({}));
}

TEST(EditorFeaturesWireCompletion, FirstIsFnThirtySeventhIsIntLastFixedIsList) {
    std::string answer = askOne("file:///e.quor", "", "textDocument/completion", "");
    std::string prefix = R"({"id":1,"jsonrpc":"2.0","result":[{"detail":"Quor keyword","documentation":{"kind":"markdown","value":"Declare a function: `fn name(params): returnType { ... }`"},"kind":14,"label":"fn"},)";
    EXPECT_EQ(answer.substr(0, prefix.size()), prefix);
    EXPECT_NE(answer.find(R"({"detail":"Quor keyword","documentation":{"kind":"markdown","value":"Null pointer or reference literal"},"kind":14,"label":"null"},{"detail":"Built-in Quor type","kind":25,"label":"int"},)"), std::string::npos);
    std::string suffix = R"({"detail":"Built-in Quor type","kind":25,"label":"List"}]})";
    ASSERT_GE(answer.size(), suffix.size());
    EXPECT_EQ(answer.substr(answer.size() - suffix.size()), suffix);
}

TEST(EditorFeaturesWireCompletion, FunctionAndClassWithTwoMembersInSourceOrder) {
    std::string expected = completionResult({
        item("add", 3, "fn add(a: int, b: int): int", "Adds two numbers."),
        item("Point", 7, "class Point"),
        item("x", 5, "let x: int"),
        item("len", 2, "public fn len(): float"),
    });
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/completion", at(3, 11)), expected);
}

TEST(EditorFeaturesWireCompletion, SameListAtEveryPosition) {
    std::vector<std::string> requests;
    int id = 1;
    for (auto [line, character] : {std::pair{0, 0}, std::pair{3, 7}, std::pair{11, 1}, std::pair{500, 500}}) {
        requests.push_back(requestMessage(id++, "textDocument/completion", URI, at(line, character)));
    }
    auto answers = ask(URI, &SHAPES, requests);
    ASSERT_EQ(answers.size(), 4u);
    for (std::size_t i = 1; i < answers.size(); ++i) {
        EXPECT_EQ(answers[i].substr(answers[i].find("\"jsonrpc\"")), answers[0].substr(answers[0].find("\"jsonrpc\"")));
    }
}

TEST(EditorFeaturesWireCompletion, EveryDeclarationKindHasItsItemKind) {
    std::string text =
        "interface Shape {\n"
        "    fn area(): float;\n"
        "}\n"
        "struct Pair {\n"
        "    a: int;\n"
        "    b: string;\n"
        "}\n"
        "enum Color { Red, Green }\n"
        "const LIMIT: int = 10;\n"
        "let count: int = 3;\n"
        "test \"adds two\" { }\n"
        "module geo;\n";
    std::string expected = completionResult({
        item("Shape", 8, "interface Shape"),
        item("area", 2, "fn area(): float"),
        item("Pair", 22, "struct Pair"),
        item("a", 5, "a: int"),
        item("b", 5, "b: string"),
        item("Color", 13, "enum Color"),
        item("Red", 5, "Red"),
        item("Green", 5, "Green"),
        item("LIMIT", 6, "const LIMIT: int"),
        item("count", 6, "let count: int"),
    });
    EXPECT_EQ(askOne("file:///k.quor", text, "textDocument/completion", at(0, 0)), expected);
}

TEST(EditorFeaturesWireCompletion, SignaturesOfModifiedDeclarations) {
    std::string text =
        "private fn hidden(): void {}\n"
        "fn id<T>(x: T, n: int = 3): T { return x; }\n"
        "abstract class Dog extends Animal implements Pet, Named {\n"
        "    static fn make(): Dog { return Dog(); }\n"
        "    private fn bark(times: int): void {}\n"
        "    int age;\n"
        "    const LEGS: int = 4;\n"
        "}\n"
        "fn noType() {}\n";
    std::string expected = completionResult({
        item("hidden", 3, "private fn hidden(): void"),
        item("id", 3, "fn id<T>(x: T, n: int): T"),
        item("Dog", 7, "abstract class Dog extends Animal implements Pet, Named"),
        item("make", 2, "public static fn make(): Dog"),
        item("bark", 2, "private fn bark(times: int): void"),
        item("age", 5, "let age: int"),
        item("LEGS", 5, "const LEGS: int"),
        item("noType", 3, "fn noType(): void"),
    });
    EXPECT_EQ(askOne("file:///m.quor", text, "textDocument/completion", at(0, 0)), expected);
}

TEST(EditorFeaturesWireCompletion, NoDeduplicationOfTableWordsOrSharedMethods) {
    std::string text =
        "class List {\n"
        "    fn size(): int { return 0; }\n"
        "}\n"
        "class Set {\n"
        "    fn size(): int { return 0; }\n"
        "}\n";
    std::string expected = completionResult({
        item("List", 7, "class List"),
        item("size", 2, "public fn size(): int"),
        item("Set", 7, "class Set"),
        item("size", 2, "public fn size(): int"),
    });
    EXPECT_EQ(askOne("file:///d.quor", text, "textDocument/completion", at(0, 0)), expected);
}

TEST(EditorFeaturesWireCompletion, BrokenDocumentStillListsWhatParsed) {
    std::string text =
        "fn good(): int { return 1; }\n"
        "fn broken(: int {\n";
    std::string answer = askOne("file:///p.quor", text, "textDocument/completion", at(1, 5));
    EXPECT_NE(answer.find(item("good", 3, "fn good(): int")), std::string::npos);
    EXPECT_EQ(answer.rfind(R"({"id":1,"jsonrpc":"2.0","result":[)", 0), 0u);
}

TEST(EditorFeaturesWireCompletion, DocCommentsAttachWithinFiveLinesOnly) {
    std::string text =
        "/// Near enough.\n"
        "\n"
        "\n"
        "\n"
        "\n"
        "fn near(): void {}\n"
        "/// Too far.\n"
        "\n"
        "\n"
        "\n"
        "\n"
        "\n"
        "fn far(): void {}\n"
        "// plain\n"
        "fn plain(): void {}\n"
        "/** One line. */\n"
        "fn block(): void {}\n"
        "/// First line.\n"
        "///\n"
        "/// Second paragraph.\n"
        "fn two(): void {}\n";
    std::string expected = completionResult({
        item("near", 3, "fn near(): void", "Near enough."),
        item("far", 3, "fn far(): void"),
        item("plain", 3, "fn plain(): void"),
        item("block", 3, "fn block(): void", "One line."),
        item("two", 3, "fn two(): void", "First line.\\n\\nSecond paragraph."),
    });
    EXPECT_EQ(askOne("file:///c.quor", text, "textDocument/completion", at(0, 0)), expected);
}

// ---- hover ----

TEST(EditorFeaturesWireHover, KeywordShowsHeadingAndDescription) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(2, 0)),
              hoverResult("**Keyword** `fn`\\n\\nDeclare a function: `fn name(params): returnType { ... }`"));
}

TEST(EditorFeaturesWireHover, PrimitiveTypeText) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(2, 10)),
              hoverResult("**Type** `int`\\n\\nBuilt-in primitive type in Quor."));
}

TEST(EditorFeaturesWireHover, TableWordWinsOverDeclarationOfThatName) {
    std::string text = "class List {}\nclass Box {}\n";
    EXPECT_EQ(askOne("file:///l.quor", text, "textDocument/hover", at(0, 7)),
              hoverResult("**Type** `List`\\n\\nBuilt-in primitive type in Quor."));
}

TEST(EditorFeaturesWireHover, DocumentedFunctionShowsFencedSignatureAndText) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(2, 4)),
              hoverResult("```quor\\nfn add(a: int, b: int): int\\n```\\n\\nAdds two numbers.\\n"));
}

TEST(EditorFeaturesWireHover, UndocumentedDeclarationEndsAfterFence) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(6, 6)), hoverResult("```quor\\nclass Point\\n```\\n"));
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(8, 8)),
              hoverResult("```quor\\npublic fn len(): float\\n```\\n"));
}

TEST(EditorFeaturesWireHover, ParameterGivesNull) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(3, 11)), response("null"));
}

TEST(EditorFeaturesWireHover, CursorDirectlyBehindWordFindsItButNotOneFurther) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(7, 9)), hoverResult("```quor\\nlet x: int\\n```\\n"));
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(7, 10)), response("null"));
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(2, 2)),
              hoverResult("**Keyword** `fn`\\n\\nDeclare a function: `fn name(params): returnType { ... }`"));
}

TEST(EditorFeaturesWireHover, PositionPastLineEndClampsToLastByte) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(6, 99)), response("null"));  // "{" ends the line
    std::string text = "fn go(): void {}\nfoo";
    EXPECT_EQ(askOne("file:///g.quor", text, "textDocument/hover", at(1, 99)), response("null"));
    std::string text2 = "class Box {}\nclass Box";
    EXPECT_EQ(askOne("file:///g.quor", text2, "textDocument/hover", at(1, 99)),
              hoverResult("```quor\\nclass Box\\n```\\n"));
}

TEST(EditorFeaturesWireHover, LinePastTheEndAndEmptyLineGiveNull) {
    EXPECT_EQ(askOne("file:///t.quor", "class A {}\nclass B {}", "textDocument/hover", at(99, 0)), response("null"));
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(5, 0)), response("null"));
}

TEST(EditorFeaturesWireHover, NegativeCharacterAndUnknownDocumentGiveNull) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", at(2, -1)), response("null"));
    auto answers = ask("file:///none.quor", nullptr,
                       {requestMessage(1, "textDocument/hover", "file:///none.quor", at(0, 0))});
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], response("null"));
}

TEST(EditorFeaturesWireHover, MissingPositionMeansStartOfDocument) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", ""), response("null"));  // "/" of the doc comment
    EXPECT_EQ(askOne("file:///q.quor", "class Start {}", "textDocument/hover", ""),
              hoverResult("**Keyword** `class`\\n\\nDeclare an object-oriented class: `class Name { ... }`"));
}

TEST(EditorFeaturesWireHover, FractionalPositionIsTruncated) {
    EXPECT_EQ(askOne(URI, SHAPES, "textDocument/hover", R"(,"position":{"line":2.9,"character":4.7})"),
              hoverResult("```quor\\nfn add(a: int, b: int): int\\n```\\n\\nAdds two numbers.\\n"));
}

TEST(EditorFeaturesWireHover, EarlierMemberBeatsLaterTopLevelEntry) {
    std::string text =
        "class A {\n"
        "    fn run(): void {}\n"
        "}\n"
        "fn run(): int { return 1; }\n";
    EXPECT_EQ(askOne("file:///r.quor", text, "textDocument/hover", at(3, 4)),
              hoverResult("```quor\\npublic fn run(): void\\n```\\n"));
}

TEST(EditorFeaturesWireHover, CarriageReturnIsNoWordByte) {
    std::string text = "fn go(): void {}\r\nclass Box {}\r\n";
    EXPECT_EQ(askOne("file:///crlf.quor", text, "textDocument/hover", at(0, 99)), response("null"));
    EXPECT_EQ(askOne("file:///crlf.quor", text, "textDocument/hover", at(1, 9)),
              hoverResult("```quor\\nclass Box\\n```\\n"));
}

TEST(EditorFeaturesWireHover, RawUtf8DescriptionPassesThrough) {
    std::string text = "/// Ma\xC3\x9F" "e in \xE2\x82\xAC\nfn size(): int { return 1; }\n";
    EXPECT_EQ(askOne("file:///u.quor", text, "textDocument/hover", at(1, 4)),
              hoverResult("```quor\\nfn size(): int\\n```\\n\\nMa\xC3\x9F" "e in \xE2\x82\xAC\\n"));
}

TEST(EditorFeaturesWireHover, InterfaceMethodAndConstant) {
    std::string text = "interface Shape {\n    fn area(): float;\n}\nconst LIMIT: int = 10;\n";
    EXPECT_EQ(askOne("file:///i.quor", text, "textDocument/hover", at(1, 8)),
              hoverResult("```quor\\nfn area(): float\\n```\\n"));
    EXPECT_EQ(askOne("file:///i.quor", text, "textDocument/hover", at(3, 8)),
              hoverResult("```quor\\nconst LIMIT: int\\n```\\n"));
}

// ---- definition ----

const std::string COUNTER =
    "class Counter {\n"
    "    let count: int;\n"
    "\n"
    "    fn get(): int {\n"
    "        return 1;\n"
    "    }\n"
    "}\n"
    "fn main(): void {\n"
    "    let c = Counter();\n"
    "    let n = c.get();\n"
    "    let m = n;\n"
    "}\n"
    "fn main(): int { return 0; }\n";

const std::string COUNTER_URI = "file:///work/counter.quor";

TEST(EditorFeaturesWireDefinition, MethodCallGoesToColumnZeroOfItsLine) {
    EXPECT_EQ(askOne(COUNTER_URI, COUNTER, "textDocument/definition", at(9, 14)), locationResult(COUNTER_URI, 3, 3));
}

TEST(EditorFeaturesWireDefinition, FirstLineDeclarationAndOwnName) {
    EXPECT_EQ(askOne(COUNTER_URI, COUNTER, "textDocument/definition", at(8, 12)), locationResult(COUNTER_URI, 0, 7));
    EXPECT_EQ(askOne(COUNTER_URI, COUNTER, "textDocument/definition", at(0, 8)), locationResult(COUNTER_URI, 0, 7));
    EXPECT_EQ(askOne(COUNTER_URI, COUNTER, "textDocument/definition", at(1, 10)), locationResult(COUNTER_URI, 1, 5));
}

TEST(EditorFeaturesWireDefinition, FirstOfTwoFunctionsWins) {
    EXPECT_EQ(askOne(COUNTER_URI, COUNTER, "textDocument/definition", at(12, 4)), locationResult(COUNTER_URI, 7, 4));
}

TEST(EditorFeaturesWireDefinition, LocalsKeywordsAndTypesGiveNull) {
    EXPECT_EQ(askOne(COUNTER_URI, COUNTER, "textDocument/definition", at(10, 12)), response("null"));
    EXPECT_EQ(askOne(COUNTER_URI, COUNTER, "textDocument/definition", at(7, 0)), response("null"));
    EXPECT_EQ(askOne(COUNTER_URI, COUNTER, "textDocument/definition", at(1, 16)), response("null"));
    EXPECT_EQ(askOne(COUNTER_URI, COUNTER, "textDocument/definition", at(2, 0)), response("null"));
}

TEST(EditorFeaturesWireDefinition, ImportedNameAndParameterGiveNull) {
    std::string text = "import util.strings;\nfn f(p: int): int { return strings(p); }\n";
    EXPECT_EQ(askOne("file:///imp.quor", text, "textDocument/definition", at(1, 28)), response("null"));
    EXPECT_EQ(askOne("file:///imp.quor", text, "textDocument/definition", at(1, 36)), response("null"));
    EXPECT_EQ(askOne("file:///imp.quor", text, "textDocument/definition", at(1, 3)), locationResult("file:///imp.quor", 1, 1));
}

TEST(EditorFeaturesWireDefinition, CrlfDocument) {
    std::string text = "fn go(): void {}\r\nclass Box {}\r\n";
    EXPECT_EQ(askOne("file:///crlf.quor", text, "textDocument/definition", at(1, 9)),
              locationResult("file:///crlf.quor", 1, 3));
}

// ---- rename ----

const std::string RENAME_URI = "file:///work/r.quor";

std::string renameParams(int line, int character, const std::string& newName) {
    std::string out = at(line, character);
    out.append(R"(,"newName":)").append(jsonString(newName));
    return out;
}

TEST(EditorFeaturesWireRename, TwoEditsOnOneLineInColumnOrder) {
    EXPECT_EQ(askOne(RENAME_URI, "let x = x + 1;", "textDocument/rename", renameParams(0, 4, "y")),
              renameResult(RENAME_URI, {edit("y", 0, 4, 5), edit("y", 0, 8, 9)}));
}

TEST(EditorFeaturesWireRename, CommentsAndStringsStay) {
    std::string text = "// x here\nlet x = \"x\";\nx = 2;\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(1, 4, "width")),
              renameResult(RENAME_URI, {edit("width", 1, 4, 5), edit("width", 2, 0, 1)}));
}

TEST(EditorFeaturesWireRename, KeywordUnderCursorGivesEmptyArray) {
    EXPECT_EQ(askOne(RENAME_URI, "let x = x + 1;", "textDocument/rename", renameParams(0, 1, "y")),
              renameResult(RENAME_URI, {}));
}

TEST(EditorFeaturesWireRename, EmptyOrMissingNewNameGivesNull) {
    EXPECT_EQ(askOne(RENAME_URI, "let x = x + 1;", "textDocument/rename", renameParams(0, 4, "")), response("null"));
    EXPECT_EQ(askOne(RENAME_URI, "let x = x + 1;", "textDocument/rename", at(0, 4)), response("null"));
}

TEST(EditorFeaturesWireRename, NoWordGivesNull) {
    EXPECT_EQ(askOne(RENAME_URI, "let x  = 1;", "textDocument/rename", renameParams(0, 6, "y")), response("null"));
}

TEST(EditorFeaturesWireRename, UnterminatedStringFurtherDownKeepsEarlierEdits) {
    std::string text = "let v = 1;\nlet w = v;\nlet s = \"oops\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(0, 4, "value")),
              renameResult(RENAME_URI, {edit("value", 0, 4, 5), edit("value", 1, 8, 9)}));
}

TEST(EditorFeaturesWireRename, ColumnsCountBytesAndTabsCountOne) {
    std::string text = "let s = \"\xC3\xA9\"; let t = s;\n\tlet\tq = s;\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(0, 22, "z")),
              renameResult(RENAME_URI, {edit("z", 0, 4, 5), edit("z", 0, 22, 23), edit("z", 1, 9, 10)}));
}

TEST(EditorFeaturesWireRename, NewNameIsTakenAsItComes) {
    std::string expected = renameResult(RENAME_URI, {edit("a b \\\"c\\\"", 0, 4, 5), edit("a b \\\"c\\\"", 0, 8, 9)});
    EXPECT_EQ(askOne(RENAME_URI, "let x = x + 1;", "textDocument/rename", renameParams(0, 5, "a b \"c\"")), expected);
    EXPECT_EQ(askOne(RENAME_URI, "let x = x + 1;", "textDocument/rename", renameParams(0, 4, "fn")),
              renameResult(RENAME_URI, {edit("fn", 0, 4, 5), edit("fn", 0, 8, 9)}));
}

TEST(EditorFeaturesWireRename, UriIsWrittenRawAsKey) {
    std::string uri = "file:///we\"ird.quor";
    std::string expected = R"({"id":1,"jsonrpc":"2.0","result":{"changes":{"file:///we"ird.quor":[)";
    expected.append(edit("k", 0, 4, 5)).append("]}}}");
    EXPECT_EQ(askOne(uri, "let q = 1;", "textDocument/rename", renameParams(0, 4, "k")), expected);
}

TEST(EditorFeaturesWireRename, SameNameInUnrelatedScopesRenamedTogether) {
    std::string text = "fn a(): void { let i = 1; }\nfn b(): void { let i = 2; }\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(1, 19, "j")),
              renameResult(RENAME_URI, {edit("j", 0, 19, 20), edit("j", 1, 19, 20)}));
}

TEST(EditorFeaturesWireRename, UnknownDocumentGivesNull) {
    auto answers = ask("file:///none.quor", nullptr,
                       {requestMessage(1, "textDocument/rename", "file:///none.quor", renameParams(0, 0, "y"))});
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], response("null"));
}

// ---- doc comments and signatures as the features show them ----

TEST(EditorFeaturesWireDocs, BlockCommentLinesAreCleaned) {
    std::string text =
        "/**\n"
        " * Computes.\n"
        " *   indented\n"
        " * @return the value\n"
        " */\n"
        "fn f(): int { return 1; }\n";
    EXPECT_EQ(askOne("file:///b.quor", text, "textDocument/hover", at(5, 3)),
              hoverResult("```quor\\nfn f(): int\\n```\\n\\nComputes.\\n  indented\\n"));
}

TEST(EditorFeaturesWireDocs, LongBlockCommentCountsFromItsFirstLine) {
    std::string text =
        "/**\n"
        " * Long.\n"
        " *\n"
        " *\n"
        " *\n"
        " */\n"
        "fn f(): int { return 1; }\n";
    EXPECT_EQ(askOne("file:///b.quor", text, "textDocument/hover", at(6, 3)), hoverResult("```quor\\nfn f(): int\\n```\\n"));
}

TEST(EditorFeaturesWireDocs, PlainCommentNextToDocLineJoinsTheBlock) {
    std::string text = "// plain\n/// Doc.\nfn g(): void {}\n// alone\nfn h(): void {}\n";
    EXPECT_EQ(askOne("file:///p.quor", text, "textDocument/hover", at(2, 3)),
              hoverResult("```quor\\nfn g(): void\\n```\\n\\n// plain\\nDoc.\\n"));
    EXPECT_EQ(askOne("file:///p.quor", text, "textDocument/hover", at(4, 3)), hoverResult("```quor\\nfn h(): void\\n```\\n"));
}

TEST(EditorFeaturesWireDocs, BlankLineSplitsBlocksAndNearestWins) {
    std::string text = "/// One.\n/// Two.\n/// Three.\n\n/// Four.\n/// Five.\nfn k(): void {}\n";
    EXPECT_EQ(askOne("file:///s.quor", text, "textDocument/hover", at(6, 3)),
              hoverResult("```quor\\nfn k(): void\\n```\\n\\nFour.\\nFive.\\n"));
}

TEST(EditorFeaturesWireDocs, BlockServesOneDeclarationOnly) {
    std::string text = "/// A doc.\nfn a(): void {}\nfn b(): void {}\n";
    EXPECT_EQ(askOne("file:///o.quor", text, "textDocument/hover", at(2, 3)), hoverResult("```quor\\nfn b(): void\\n```\\n"));
}

TEST(EditorFeaturesWireDocs, BlockSkipsOverPlainStatements) {
    std::string text = "/// Stray.\nprint(1);\nfn later(): void {}\n";
    EXPECT_EQ(askOne("file:///o.quor", text, "textDocument/hover", at(2, 4)),
              hoverResult("```quor\\nfn later(): void\\n```\\n\\nStray.\\n"));
}

TEST(EditorFeaturesWireDocs, ModuleTakesItsBlockAndTestsTakeNone) {
    std::string text = "/// Module doc.\nmodule geo;\nfn f(): void {}\n";
    EXPECT_EQ(askOne("file:///bar.quor", text, "textDocument/hover", at(2, 3)), hoverResult("```quor\\nfn f(): void\\n```\\n"));
    std::string text2 = "/// For the test.\ntest \"x\" { }\nfn after(): void {}\n";
    EXPECT_EQ(askOne("file:///t.quor", text2, "textDocument/hover", at(2, 3)),
              hoverResult("```quor\\nfn after(): void\\n```\\n\\nFor the test.\\n"));
}

TEST(EditorFeaturesWireDocs, ClassAndFirstMethodEachTakeTheirBlock) {
    std::string text = "/// The box.\nclass Box {\n    /// Opens it.\n    fn open(): void {}\n}\n";
    EXPECT_EQ(askOne("file:///x.quor", text, "textDocument/hover", at(1, 7)),
              hoverResult("```quor\\nclass Box\\n```\\n\\nThe box.\\n"));
    EXPECT_EQ(askOne("file:///x.quor", text, "textDocument/hover", at(3, 8)),
              hoverResult("```quor\\npublic fn open(): void\\n```\\n\\nOpens it.\\n"));
}

TEST(EditorFeaturesWireDocs, TagsAndOddPrefixes) {
    std::string text = "//// four\n/// @param\n/// @throws Oops\n/// @param a first\nfn t(a: int): void {}\n";
    EXPECT_EQ(askOne("file:///g.quor", text, "textDocument/hover", at(4, 3)),
              hoverResult("```quor\\nfn t(a: int): void\\n```\\n\\n/ four\\n@throws Oops\\n"));
}

TEST(EditorFeaturesWireDocs, CarriageReturnsLeaveTheDescription) {
    std::string text = "/// Hi\r\n/// there\r\nfn go(): void {}\r\n";
    EXPECT_EQ(askOne("file:///crlf.quor", text, "textDocument/hover", at(2, 3)),
              hoverResult("```quor\\nfn go(): void\\n```\\n\\nHi\\nthere\\n"));
}

TEST(EditorFeaturesWireDocs, SignaturesOfOtherSpellings) {
    std::string text =
        "int twice(int n) { return n * 2; }\n"
        "fn sq(x: int): int => x * x;\n"
        "class Pair<A, B> {\n"
        "    Pair(a: A, b: B) {}\n"
        "}\n"
        "struct P { int a; b: string; }\n"
        "enum Level { Low = 1, High = 2, }\n"
        "var y: int = 2;\n";
    std::string expected = completionResult({
        item("twice", 3, "fn twice(n: int): int"),
        item("sq", 3, "fn sq(x: int): int"),
        item("Pair", 7, "class Pair<A, B>"),
        item("Pair", 2, "public fn Pair(a: A, b: B): void"),
        item("P", 22, "struct P"),
        item("a", 5, "a: int"),
        item("b", 5, "b: string"),
        item("Level", 13, "enum Level"),
        item("Low", 5, "Low"),
        item("High", 5, "High"),
        item("y", 6, "let y: int"),
    });
    EXPECT_EQ(askOne("file:///sig.quor", text, "textDocument/completion", at(0, 0)), expected);
}

TEST(EditorFeaturesWireDefinition, ModifiedMethodGoesToItsLine) {
    std::string text = "class U {\n    private static fn util(): void {}\n}\nfn main(): void { U.util(); }\n";
    EXPECT_EQ(askOne("file:///u.quor", text, "textDocument/definition", at(3, 21)), locationResult("file:///u.quor", 1, 4));
}

TEST(EditorFeaturesWireRename, InterpolatedTextIsNoIdentifier) {
    std::string text = "let name = 1;\nlet s = \"hi ${name}\";\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(0, 6, "who")),
              renameResult(RENAME_URI, {edit("who", 0, 4, 8)}));
}

TEST(EditorFeaturesWireRename, CursorPastLineEndClampsToLastByte) {
    std::string text = "let abc = 1;\nabc";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(1, 40, "d")),
              renameResult(RENAME_URI, {edit("d", 0, 4, 7), edit("d", 1, 0, 3)}));
}

TEST(EditorFeaturesWireHover, AnswersFollowTheLatestChange) {
    std::string uri = "file:///live.quor";
    std::string text = "fn old(): void {}\n";
    std::string change = R"({"jsonrpc":"2.0","method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///live.quor","version":2},"contentChanges":[{"text":"class Fresh {}\n"}]}})";
    auto answers = ask(uri, &text,
                       {requestMessage(1, "textDocument/hover", uri, at(0, 4)), frame(change),
                        requestMessage(2, "textDocument/hover", uri, at(0, 4)),
                        requestMessage(3, "textDocument/hover", uri, at(0, 7))});
    ASSERT_EQ(answers.size(), 3u);
    EXPECT_EQ(answers[0], hoverResult("```quor\\nfn old(): void\\n```\\n"));
    EXPECT_EQ(answers[1], R"({"id":2,"jsonrpc":"2.0","result":{"contents":{"kind":"markdown","value":"**Keyword** `class`\n\nDeclare an object-oriented class: `class Name { ... }`"}}})");
    EXPECT_EQ(answers[2], R"({"id":3,"jsonrpc":"2.0","result":{"contents":{"kind":"markdown","value":"```quor\nclass Fresh\n```\n"}}})");
}

TEST(EditorFeaturesWireHover, WordMayBeginWithADigit) {
    std::string text = "class lives {}\nlet n = 9lives;\n";
    EXPECT_EQ(askOne("file:///n.quor", text, "textDocument/hover", at(1, 10)), response("null"));
}

// ---- second review: comment cleaning corners ----

TEST(EditorFeaturesWireDocs, TwoBlockCommentsOnOneLineJoinWithTheirInnerSpaces) {
    std::string text = "/** A */ /** B */\nfn f(): void {}\n";
    EXPECT_EQ(askOne("file:///j.quor", text, "textDocument/hover", at(1, 3)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\nA \\nB\\n"));
}

TEST(EditorFeaturesWireDocs, LaterOfTwoBlocksEndingOnOneLineWinsAndTheOtherServesTheNext) {
    std::string text = "/** A */ x; /** B */\nfn f(): void {}\nfn g(): void {}\n";
    EXPECT_EQ(askOne("file:///w.quor", text, "textDocument/hover", at(1, 3)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\nB\\n"));
    EXPECT_EQ(askOne("file:///w.quor", text, "textDocument/hover", at(2, 3)),
              hoverResult("```quor\\nfn g(): void\\n```\\n\\nA\\n"));
}

TEST(EditorFeaturesWireDocs, NestedBlockCommentIsCutAtTheLastCloser) {
    std::string text = "/** outer /* inner */ tail */\nfn f(): void {}\n";
    EXPECT_EQ(askOne("file:///n.quor", text, "textDocument/hover", at(1, 3)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\nouter /* inner */ tail\\n"));
    std::string plain = "/* outer /* inner */ tail */\nfn g(): void {}\n";
    EXPECT_EQ(askOne("file:///n.quor", plain, "textDocument/hover", at(1, 3)),
              hoverResult("```quor\\nfn g(): void\\n```\\n"));
}

TEST(EditorFeaturesWireDocs, UnstarredBlockLinesKeepTheirIndentation) {
    std::string text = "/**\n   Indented\n     deeper\n */\nfn f(): void {}\n";
    EXPECT_EQ(askOne("file:///i.quor", text, "textDocument/hover", at(4, 3)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\nIndented\\n     deeper\\n"));
}

TEST(EditorFeaturesWireDocs, SlashLinesKeepAStarAndLoseACloser) {
    std::string text = "/// * bullet\n/// a */ b\nfn f(): void {}\n";
    EXPECT_EQ(askOne("file:///s.quor", text, "textDocument/hover", at(2, 3)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\n* bullet\\na\\n"));
}

TEST(EditorFeaturesWireDocs, TagPrefixesAreReadWithoutASpace) {
    std::string text = "/// Body.\n/// @paramfoo bar\n/// @returnsvalue\n/// @params x\nfn f(foo: int): int { return 1; }\n";
    EXPECT_EQ(askOne("file:///t.quor", text, "textDocument/hover", at(4, 3)),
              hoverResult("```quor\\nfn f(foo: int): int\\n```\\n\\nBody.\\n"));
}

TEST(EditorFeaturesWireDocs, QuotesBackslashesAndTabsAreEscapedInTheAnswer) {
    std::string text = "/// Say \"hi\" \\ there\tnow\nfn f(): void {}\n";
    EXPECT_EQ(askOne("file:///e.quor", text, "textDocument/completion", at(0, 0)),
              completionResult({item("f", 3, "fn f(): void", "Say \\\"hi\\\" \\\\ there\\tnow")}));
}

// ---- second review: what the extractor lists ----

TEST(EditorFeaturesWireCompletion, ExternBlocksAndNamedTestFunctionsAreNotListed) {
    std::string text =
        "extern \"c\" { int puts(string s); }\n"
        "fn __quor_test_hand(): void {}\n"
        "test \"t\" { }\n"
        "fn shown(): void {}\n";
    EXPECT_EQ(askOne("file:///x.quor", text, "textDocument/completion", at(0, 0)),
              completionResult({item("shown", 3, "fn shown(): void")}));
}

TEST(EditorFeaturesWireCompletion, ModifiersInSignatures) {
    std::string text =
        "protected fn p(): void {}\n"
        "static override abstract fn s();\n"
        "internal class Inner : Base, Extra {\n"
        "    override static private fn m<U>(f: U) -> U { return f; }\n"
        "    abstract fn a();\n"
        "    static int count = 0;\n"
        "    var v: string;\n"
        "    print(1);\n"
        "    class Nested {}\n"
        "}\n"
        "private enum E { A }\n"
        "private struct S { }\n"
        "private interface I {\n"
        "    fn q() -> int;\n"
        "}\n";
    std::string expected = completionResult({
        item("p", 3, "protected fn p(): void"),
        item("s", 3, "fn s(): void"),
        item("Inner", 7, "internal class Inner extends Base implements Extra"),
        item("m", 2, "private static override fn m(f: U): U"),
        item("a", 2, "public fn a(): void"),
        item("count", 5, "let count: int"),
        item("v", 5, "let v: string"),
        item("E", 13, "enum E"),
        item("A", 5, "A"),
        item("S", 22, "struct S"),
        item("I", 8, "interface I"),
        item("q", 2, "fn q(): int"),
    });
    EXPECT_EQ(askOne("file:///mod.quor", text, "textDocument/completion", at(0, 0)), expected);
}

TEST(EditorFeaturesWireCompletion, TypesAsWrittenAndUntypedParameters) {
    std::string text =
        "fn f(m: Map<string, int[]>?, xs: int[]): string? { return null; }\n"
        "fn g(a, b: int) {}\n"
        "let total = 5;\n";
    std::string expected = completionResult({
        item("f", 3, "fn f(m: Map<string, int[]>?, xs: int[]): string?"),
        item("g", 3, "fn g(a: , b: int): void"),
        item("total", 6, "let total: "),
    });
    EXPECT_EQ(askOne("file:///ty.quor", text, "textDocument/completion", at(0, 0)), expected);
}

TEST(EditorFeaturesWireCompletion, MemberDocCommentsGoToTheirMembers) {
    std::string text =
        "class Box {\n"
        "    /// The width.\n"
        "    let w: int;\n"
        "    /// Grows it.\n"
        "    fn grow(): void {}\n"
        "}\n";
    std::string expected = completionResult({
        item("Box", 7, "class Box"),
        item("w", 5, "let w: int", "The width."),
        item("grow", 2, "public fn grow(): void", "Grows it."),
    });
    EXPECT_EQ(askOne("file:///box.quor", text, "textDocument/completion", at(0, 0)), expected);
}

TEST(EditorFeaturesWireCompletion, ClosedDocumentGivesTheFixedItemsOnly) {
    std::string uri = "file:///gone.quor";
    std::string text = "fn gone(): void {}\n";
    std::string close = R"({"jsonrpc":"2.0","method":"textDocument/didClose","params":{"textDocument":{"uri":"file:///gone.quor"}}})";
    auto answers = ask(uri, &text,
                       {frame(close), requestMessage(1, "textDocument/completion", uri, at(0, 0)),
                        requestMessage(2, "textDocument/hover", uri, at(0, 4))});
    ASSERT_EQ(answers.size(), 2u);
    EXPECT_EQ(answers[0], completionResult({}));
    EXPECT_EQ(answers[1], R"({"id":2,"jsonrpc":"2.0","result":null})");
}

// ---- second review: words under the cursor ----

TEST(EditorFeaturesWireHover, WordInACommentIsLookedUpToo) {
    std::string text = "// calls helper\nfn helper(): void {}\n";
    EXPECT_EQ(askOne("file:///h.quor", text, "textDocument/hover", at(0, 10)),
              hoverResult("```quor\\nfn helper(): void\\n```\\n"));
}

TEST(EditorFeaturesWireHover, InIsATableWordThoughNotReserved) {
    std::string text = "for a in b { }\n";
    EXPECT_EQ(askOne("file:///in.quor", text, "textDocument/hover", at(0, 7)),
              hoverResult("**Keyword** `in`\\n\\nUsed in for..in iterations"));
}

TEST(EditorFeaturesWireHover, PunctuationBetweenWordsPicksTheLeftWord) {
    std::string text = "class foo {}\nclass bar {}\nfoo(bar);\n";
    EXPECT_EQ(askOne("file:///p.quor", text, "textDocument/hover", at(2, 3)), hoverResult("```quor\\nclass foo\\n```\\n"));
    EXPECT_EQ(askOne("file:///p.quor", text, "textDocument/hover", at(2, 7)), hoverResult("```quor\\nclass bar\\n```\\n"));
    EXPECT_EQ(askOne("file:///p.quor", text, "textDocument/hover", at(2, 8)), response("null"));
    EXPECT_EQ(askOne("file:///p.quor", text, "textDocument/hover", at(2, 4)), hoverResult("```quor\\nclass bar\\n```\\n"));
}

TEST(EditorFeaturesWireHover, CarriageReturnOnlyLineAndLeadingBlankLine) {
    std::string text = "\nfn a(): void {}\r\n\r\nclass B {}";
    EXPECT_EQ(askOne("file:///c.quor", text, "textDocument/hover", at(0, 0)), response("null"));
    EXPECT_EQ(askOne("file:///c.quor", text, "textDocument/hover", at(2, 0)), response("null"));
    EXPECT_EQ(askOne("file:///c.quor", text, "textDocument/hover", at(2, 5)), response("null"));
    EXPECT_EQ(askOne("file:///c.quor", text, "textDocument/hover", at(1, 3)), hoverResult("```quor\\nfn a(): void\\n```\\n"));
    EXPECT_EQ(askOne("file:///c.quor", text, "textDocument/hover", at(3, 7)), hoverResult("```quor\\nclass B\\n```\\n"));
}

TEST(EditorFeaturesWireHover, LineBehindAFinalLineFeedIsMissing) {
    EXPECT_EQ(askOne("file:///f.quor", "class A {}\n", "textDocument/hover", at(1, 0)), response("null"));
}

TEST(EditorFeaturesWireHover, PositionMembersOfTheWrongKindCountAsZero) {
    EXPECT_EQ(askOne("file:///q.quor", "class Start {}", "textDocument/hover", R"(,"position":{"line":"1","character":8.9})"),
              hoverResult("```quor\\nclass Start\\n```\\n"));
    EXPECT_EQ(askOne("file:///q.quor", "class Start {}", "textDocument/hover", R"(,"position":[0,8])"),
              hoverResult("**Keyword** `class`\\n\\nDeclare an object-oriented class: `class Name { ... }`"));
}

TEST(EditorFeaturesWireHover, StructFieldAndEnumVariant) {
    std::string text = "struct P { int a; }\nenum C { Red }\n";
    EXPECT_EQ(askOne("file:///sv.quor", text, "textDocument/hover", at(0, 15)), hoverResult("```quor\\na: int\\n```\\n"));
    EXPECT_EQ(askOne("file:///sv.quor", text, "textDocument/hover", at(1, 10)), hoverResult("```quor\\nRed\\n```\\n"));
}

// ---- second review: definition ----

TEST(EditorFeaturesWireDefinition, DeclarationLineIsTheKeywordsLine) {
    std::string text = "/// Doc.\nprivate\nstatic fn f(): void {}\nf();\n";
    EXPECT_EQ(askOne("file:///k.quor", text, "textDocument/definition", at(3, 0)), locationResult("file:///k.quor", 2, 1));
}

TEST(EditorFeaturesWireDefinition, TypeFirstFunctionLineIsItsNamesLine) {
    std::string text = "int\ntwice(int n) { return n; }\n";
    EXPECT_EQ(askOne("file:///tf.quor", text, "textDocument/definition", at(1, 2)), locationResult("file:///tf.quor", 1, 5));
}

TEST(EditorFeaturesWireDefinition, TableWordsPlayNoPart) {
    std::string text = "class List {}\n\nlet l = List();\n";
    EXPECT_EQ(askOne("file:///tw.quor", text, "textDocument/definition", at(2, 10)), locationResult("file:///tw.quor", 0, 4));
}

TEST(EditorFeaturesWireDefinition, FieldsAndVariantsAndUnknownDocument) {
    // A variant has no place of its own in the tree, so it leads to its enum's line.
    std::string text = "struct P {\n    int a;\n}\nenum C {\n    Red,\n    Blue\n}\nlet q = C.Blue;\n";
    EXPECT_EQ(askOne("file:///fv.quor", text, "textDocument/definition", at(7, 12)), locationResult("file:///fv.quor", 3, 4));
    EXPECT_EQ(askOne("file:///fv.quor", text, "textDocument/definition", at(1, 8)), locationResult("file:///fv.quor", 1, 1));
    auto answers = ask("file:///none.quor", nullptr,
                       {requestMessage(1, "textDocument/definition", "file:///none.quor", at(0, 0))});
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], response("null"));
}

// ---- second review: rename ----

TEST(EditorFeaturesWireRename, InIsAnIdentifierToken) {
    EXPECT_EQ(askOne(RENAME_URI, "for a in b { }\n", "textDocument/rename", renameParams(0, 6, "of")),
              renameResult(RENAME_URI, {edit("of", 0, 6, 8)}));
}

TEST(EditorFeaturesWireRename, ReservedTypeWordsAreNoIdentifiersButLibraryNamesAre) {
    std::string text = "let a: int = 1;\nlet b: List<int> = List();\nlet t = this;\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(0, 8, "long")), renameResult(RENAME_URI, {}));
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(2, 9, "self")), renameResult(RENAME_URI, {}));
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(1, 7, "Seq")),
              renameResult(RENAME_URI, {edit("Seq", 1, 7, 11), edit("Seq", 1, 19, 23)}));
}

TEST(EditorFeaturesWireRename, LinesCountOnThroughABlockComment) {
    std::string text = "/* a\nb */ let x = 1;\nx;\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(2, 0, "y")),
              renameResult(RENAME_URI, {edit("y", 1, 9, 10), edit("y", 2, 0, 1)}));
}

TEST(EditorFeaturesWireRename, UnclosedBlockCommentSwallowsTheRest) {
    std::string text = "let v = 1;\n/* open\nv;\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(0, 4, "w")),
              renameResult(RENAME_URI, {edit("w", 0, 4, 5)}));
}

TEST(EditorFeaturesWireRename, WordBeginningWithADigitMatchesNoToken) {
    EXPECT_EQ(askOne(RENAME_URI, "let lives = 9lives;\n", "textDocument/rename", renameParams(0, 14, "z")),
              renameResult(RENAME_URI, {}));
}

TEST(EditorFeaturesWireRename, WordInAStringStillRenamesTheIdentifiers) {
    std::string text = "let s = \"foo\";\nlet foo = 1;\r\nfoo;\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(0, 10, "bar")),
              renameResult(RENAME_URI, {edit("bar", 1, 4, 7), edit("bar", 2, 0, 3)}));
}

// ---- second review: more corners ----

TEST(EditorFeaturesWireDocs, BlockCommentWithCrlfLines) {
    std::string text = "/**\r\n * A\r\n */\r\nfn f(): void {}\r\n";
    EXPECT_EQ(askOne("file:///cr.quor", text, "textDocument/hover", at(3, 3)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\nA\\n"));
}

TEST(EditorFeaturesWireCompletion, FunctionWithoutANameIsListedWithAnEmptyLabel) {
    EXPECT_EQ(askOne("file:///nn.quor", "fn (x) {}\n", "textDocument/completion", at(0, 0)),
              completionResult({item("", 3, "fn (x: ): void")}));
}

TEST(EditorFeaturesWireRename, NewNameThatIsNoStringGivesNull) {
    EXPECT_EQ(askOne(RENAME_URI, "let x = x + 1;", "textDocument/rename", at(0, 4) + R"(,"newName":5)"), response("null"));
}

TEST(EditorFeaturesWireRename, NonAsciiBytesEndIdentifiers) {
    std::string text = "let a\xC3\xA9" "b = a;\n";
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(0, 4, "z")),
              renameResult(RENAME_URI, {edit("z", 0, 4, 5), edit("z", 0, 11, 12)}));
    EXPECT_EQ(askOne(RENAME_URI, text, "textDocument/rename", renameParams(0, 7, "c")),
              renameResult(RENAME_URI, {edit("c", 0, 7, 8)}));
}

TEST(EditorFeaturesWireDefinition, LinesOfFieldsAndConstructorsWrittenOverSeveralLines) {
    std::string text =
        "class A {\n"
        "    static\n"
        "    int age;\n"
        "    let\n"
        "        w: int;\n"
        "    A(int x) {}\n"
        "}\n"
        "struct S {\n"
        "    string\n"
        "    label;\n"
        "}\n"
        "age; w; label;\n";
    const std::string uri = "file:///lines.quor";
    EXPECT_EQ(askOne(uri, text, "textDocument/definition", at(11, 1)), locationResult(uri, 2, 3));
    EXPECT_EQ(askOne(uri, text, "textDocument/definition", at(11, 5)), locationResult(uri, 3, 1));
    EXPECT_EQ(askOne(uri, text, "textDocument/definition", at(11, 9)), locationResult(uri, 9, 5));
    EXPECT_EQ(askOne(uri, text, "textDocument/definition", at(5, 4)), locationResult(uri, 0, 1));
}

TEST(EditorFeaturesWireHover, DocumentStoredUnderTheEmptyUri) {
    std::string open = R"({"method":"textDocument/didOpen","params":{"textDocument":{"text":"class Anon {}"}}})";
    std::string hover = R"({"id":1,"method":"textDocument/hover","params":{"position":{"line":0,"character":7}}})";
    auto answers = ask("", nullptr, {frame(open), frame(hover)});
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0], hoverResult("```quor\\nclass Anon\\n```\\n"));
}

TEST(EditorFeaturesWireDocs, EmptyAndPlainBlockCommentsInsideDocBlocks) {
    EXPECT_EQ(askOne("file:///d.quor", "/**/\nfn f(): void {}\n", "textDocument/hover", at(1, 3)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\n/\\n"));
    EXPECT_EQ(askOne("file:///d.quor", "/***/\nfn f(): void {}\n", "textDocument/hover", at(1, 3)),
              hoverResult("```quor\\nfn f(): void\\n```\\n"));
    EXPECT_EQ(askOne("file:///d.quor", "/* plain */\n/// Doc.\nfn f(): void {}\n", "textDocument/hover", at(2, 3)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\n/* plain \\nDoc.\\n"));
}

TEST(EditorFeaturesWireDocs, IndentedCommentsAndADeclarationBehindTheCloser) {
    EXPECT_EQ(askOne("file:///d.quor", "/// A\n   /// B\n\tfn f(): void {}\n", "textDocument/hover", at(2, 4)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\nA\\nB\\n"));
    EXPECT_EQ(askOne("file:///d.quor", "/** x\n   * y */ fn f(): void {}\n", "textDocument/hover", at(1, 13)),
              hoverResult("```quor\\nfn f(): void\\n```\\n\\nx\\ny\\n"));
}
