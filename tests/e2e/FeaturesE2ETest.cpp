#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "e2e/ServerProcess.h"

using quor::e2e::frame;
using quor::e2e::ProcessResult;
using quor::e2e::expectCleanExit;
using quor::e2e::runServer;
using quor::e2e::splitFramed;

namespace {

const std::string URI = "file:///work/shapes.quor";

// Line numbers (one-based) are given on the right.
const std::string SOURCE_JSON =
    R"("/// Adds two numbers.\n)"                     // 1
    R"(fn add(a: int, b: int): int {\n)"             // 2
    R"(    return a + b;\n)"                          // 3
    R"(}\n)"                                          // 4
    R"(class Point {\n)"                              // 5
    R"(    let x: int = 0;\n)"                        // 6
    R"(    fn norm(): float { return 0.0; }\n)"       // 7
    R"(}\n)"                                          // 8
    R"(const total: int = add(1, 2);\n)"              // 9
    R"(// add in a comment\n)"                        // 10
    R"(let s: string = \"add\";\n")";                 // 11

// initialize, open the document, the given requests (each already a JSON
// object text with its id), shutdown and exit.
std::string session(const std::vector<std::string>& requests, const std::string& sourceJson = SOURCE_JSON) {
    std::string open = R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":")";
    open.append(URI).append(R"(","languageId":"quor","version":1,"text":)").append(sourceJson).append("}}}");
    std::string input = frame(R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{}})");
    input.append(frame(R"({"jsonrpc":"2.0","method":"initialized","params":{}})"));
    input.append(frame(open));
    for (const std::string& request : requests) input.append(frame(request));
    input.append(frame(R"({"jsonrpc":"2.0","id":99,"method":"shutdown"})"));
    input.append(frame(R"({"jsonrpc":"2.0","method":"exit"})"));
    return input;
}

// A request with the given id and method at a position of the document.
std::string request(int id, const std::string& method, int line, int character, const std::string& extra = "") {
    std::string text = R"({"jsonrpc":"2.0","id":)";
    text.append(std::to_string(id))
        .append(R"(,"method":")")
        .append(method)
        .append(R"(","params":{"textDocument":{"uri":")")
        .append(URI)
        .append(R"("},"position":{"line":)")
        .append(std::to_string(line))
        .append(R"(,"character":)")
        .append(std::to_string(character))
        .append("}")
        .append(extra)
        .append("}}");
    return text;
}

// The body of the answer with that id.
std::string answer(const ProcessResult& result, int id) {
    std::string prefix = R"({"id":)";
    prefix.append(std::to_string(id)).append(",");
    for (const std::string& body : splitFramed(result.out)) {
        if (body.rfind(prefix, 0) == 0) return body;
    }
    return "<no answer>";
}

std::string response(int id, const std::string& resultJson) {
    std::string text = R"({"id":)";
    text.append(std::to_string(id)).append(R"(,"jsonrpc":"2.0","result":)").append(resultJson).append("}");
    return text;
}


// The fixed keyword rows and type names, as the client sees them.
const std::vector<std::pair<std::string, std::string>> KEYWORD_ROWS = {
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

const std::vector<std::string> TYPE_NAMES = {"int",  "float", "string", "bool", "char", "byte",
                                             "void", "any",   "Array",  "Map",  "List"};

// The 47 fixed items, comma-separated, without the brackets.
std::string fixedItems() {
    std::string text;
    for (const auto& [word, description] : KEYWORD_ROWS) {
        if (!text.empty()) text.append(",");
        text.append(R"({"detail":"Quor keyword","documentation":{"kind":"markdown","value":")")
            .append(description)
            .append(R"("},"kind":14,"label":")")
            .append(word)
            .append(R"("})");
    }
    for (const std::string& name : TYPE_NAMES) {
        text.append(R"(,{"detail":"Built-in Quor type","kind":25,"label":")").append(name).append(R"("})");
    }
    return text;
}

}  // namespace

TEST(FeaturesE2E, CompletionGivesFixedItemsThenDeclarationsWithMembers) {
    ProcessResult result = runServer(session({request(2, "textDocument/completion", 3, 0)}));
    expectCleanExit(result);
    std::string items = "[";
    items.append(fixedItems())
        .append(R"(,{"detail":"fn add(a: int, b: int): int","documentation":{"kind":"markdown",)")
        .append(R"("value":"Adds two numbers."},"kind":3,"label":"add"})")
        .append(R"(,{"detail":"class Point","kind":7,"label":"Point"})")
        .append(R"(,{"detail":"let x: int","kind":5,"label":"x"})")
        .append(R"(,{"detail":"public fn norm(): float","kind":2,"label":"norm"})")
        .append(R"(,{"detail":"const total: int","kind":6,"label":"total"})")
        .append(R"(,{"detail":"let s: string","kind":6,"label":"s"})")
        .append("]");
    EXPECT_EQ(answer(result, 2), response(2, items));
}

TEST(FeaturesE2E, CompletionForUnknownDocumentGivesOnlyFixedItems) {
    std::string ask = R"({"jsonrpc":"2.0","id":2,"method":"textDocument/completion","params":)";
    ask.append(R"({"textDocument":{"uri":"file:///elsewhere.quor"},"position":{"line":0,"character":0}}})");
    ProcessResult result = runServer(session({ask}));
    expectCleanExit(result);
    std::string items = "[";
    items.append(fixedItems()).append("]");
    EXPECT_EQ(answer(result, 2), response(2, items));
}

TEST(FeaturesE2E, HoverOnKeywordTypeDeclarationAndNothing) {
    ProcessResult result = runServer(session({
        request(2, "textDocument/hover", 1, 0),   // fn
        request(3, "textDocument/hover", 1, 11),  // int
        request(4, "textDocument/hover", 8, 21),  // add, in a call
        request(5, "textDocument/hover", 6, 8),   // norm, a method without doc
        request(6, "textDocument/hover", 2, 11),  // a parameter
        request(7, "textDocument/hover", 3, 3),   // one byte behind "}"
    }));
    expectCleanExit(result);
    EXPECT_EQ(answer(result, 2),
              response(2, R"({"contents":{"kind":"markdown","value":"**Keyword** `fn`\n\n)"
                          R"(Declare a function: `fn name(params): returnType { ... }`"}})"));
    EXPECT_EQ(answer(result, 3),
              response(3, R"({"contents":{"kind":"markdown","value":"**Type** `int`\n\n)"
                          R"(Built-in primitive type in Quor."}})"));
    EXPECT_EQ(answer(result, 4),
              response(4, R"({"contents":{"kind":"markdown","value":"```quor\nfn add(a: int, b: int): int\n```\n)"
                          R"(\nAdds two numbers.\n"}})"));
    EXPECT_EQ(answer(result, 5),
              response(5, R"({"contents":{"kind":"markdown","value":"```quor\npublic fn norm(): float\n```\n"}})"));
    EXPECT_EQ(answer(result, 6), response(6, "null"));
    EXPECT_EQ(answer(result, 7), response(7, "null"));
}

TEST(FeaturesE2E, DefinitionGivesOneLocationOrNull) {
    ProcessResult result = runServer(session({
        request(2, "textDocument/definition", 8, 20),  // add, in a call
        request(3, "textDocument/definition", 6, 9),   // norm, indented method
        request(4, "textDocument/definition", 2, 11),  // a parameter
        request(5, "textDocument/definition", 1, 0),   // the keyword fn
    }));
    expectCleanExit(result);
    std::string addLocation = R"({"range":{"end":{"character":3,"line":1},"start":{"character":0,"line":1}},"uri":")";
    addLocation.append(URI).append(R"("})");
    std::string normLocation = R"({"range":{"end":{"character":4,"line":6},"start":{"character":0,"line":6}},"uri":")";
    normLocation.append(URI).append(R"("})");
    EXPECT_EQ(answer(result, 2), response(2, addLocation));
    EXPECT_EQ(answer(result, 3), response(3, normLocation));
    EXPECT_EQ(answer(result, 4), response(4, "null"));
    EXPECT_EQ(answer(result, 5), response(5, "null"));
}

TEST(FeaturesE2E, RenameEditsIdentifierTokensUnderTheUriKey) {
    ProcessResult result = runServer(session({
        request(2, "textDocument/rename", 1, 4, R"(,"newName":"plus")"),
        request(3, "textDocument/rename", 1, 0, R"(,"newName":"plus")"),
        request(4, "textDocument/rename", 1, 4, R"(,"newName":"")"),
    }));
    expectCleanExit(result);
    std::string changes = R"({"changes":{")";
    changes.append(URI)
        .append(R"(":[)")
        .append(R"({"newText":"plus","range":{"end":{"character":6,"line":1},"start":{"character":3,"line":1}}},)")
        .append(R"({"newText":"plus","range":{"end":{"character":22,"line":8},"start":{"character":19,"line":8}}})")
        .append("]}}");
    std::string noEdits = R"({"changes":{")";
    noEdits.append(URI).append(R"(":[]}})");
    EXPECT_EQ(answer(result, 2), response(2, changes));
    EXPECT_EQ(answer(result, 3), response(3, noEdits));
    EXPECT_EQ(answer(result, 4), response(4, "null"));
}

TEST(FeaturesE2E, FeaturesWorkOnADocumentWithSyntaxErrors) {
    const std::string broken = R"("fn kept(n: int): int { return n; }\nlet = ;\nkept(\n")";
    ProcessResult result = runServer(session(
        {
            request(2, "textDocument/hover", 2, 1),
            request(3, "textDocument/definition", 2, 1),
            request(4, "textDocument/rename", 2, 1, R"(,"newName":"k")"),
        },
        broken));
    expectCleanExit(result);
    EXPECT_EQ(answer(result, 2),
              response(2, R"({"contents":{"kind":"markdown","value":"```quor\nfn kept(n: int): int\n```\n"}})"));
    std::string location = R"({"range":{"end":{"character":4,"line":0},"start":{"character":0,"line":0}},"uri":")";
    location.append(URI).append(R"("})");
    EXPECT_EQ(answer(result, 3), response(3, location));
    std::string changes = R"({"changes":{")";
    changes.append(URI)
        .append(R"(":[)")
        .append(R"({"newText":"k","range":{"end":{"character":7,"line":0},"start":{"character":3,"line":0}}},)")
        .append(R"({"newText":"k","range":{"end":{"character":4,"line":2},"start":{"character":0,"line":2}}})")
        .append("]}}");
    EXPECT_EQ(answer(result, 4), response(4, changes));
}

TEST(FeaturesE2E, AnswersFollowTheLatestText) {
    std::string change = R"({"jsonrpc":"2.0","method":"textDocument/didChange","params":{"textDocument":{"uri":")";
    change.append(URI).append(R"(","version":2},"contentChanges":[{"text":"\n\nfn moved() {}\nmoved();\n"}]}})");
    ProcessResult result = runServer(session({
        request(2, "textDocument/definition", 8, 20),
        change,
        request(3, "textDocument/definition", 3, 0),
        request(4, "textDocument/definition", 8, 20),
    }));
    expectCleanExit(result);
    std::string before = R"({"range":{"end":{"character":3,"line":1},"start":{"character":0,"line":1}},"uri":")";
    before.append(URI).append(R"("})");
    std::string after = R"({"range":{"end":{"character":5,"line":2},"start":{"character":0,"line":2}},"uri":")";
    after.append(URI).append(R"("})");
    EXPECT_EQ(answer(result, 2), response(2, before));
    EXPECT_EQ(answer(result, 3), response(3, after));
    EXPECT_EQ(answer(result, 4), response(4, "null"));
}
