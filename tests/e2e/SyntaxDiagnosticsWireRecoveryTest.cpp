// Syntax errors as an editor sees them, with the focus on recovery: each
// case opens one document with a parse error and compares the whole
// "textDocument/publishDiagnostics" notification byte for byte. Every expected
// diagnostic was worked out by hand from the grammar's recovery rules: where
// the parser reports, with which text, and in which order. Published ranges
// are one column wide at the reported token, zero-based.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "e2e/ServerProcess.h"

using quor::e2e::frame;
using quor::e2e::ProcessResult;
using quor::e2e::runServer;
using quor::e2e::splitFramed;

namespace {

// One expected diagnostic, with the one-based line and column the parser
// reports; the conversion to the wire form is done by `diagnosticJson`.
struct Expected {
    int line;
    int column;
    std::string message;
};

std::string jsonString(const std::string& text) {
    std::string out = "\"";
    for (unsigned char c : text) {
        switch (c) {
            case '"': out.append("\\\""); break;
            case '\\': out.append("\\\\"); break;
            case '\n': out.append("\\n"); break;
            case '\r': out.append("\\r"); break;
            case '\t': out.append("\\t"); break;
            default:
                if (c < 0x20) {
                    char buffer[8];
                    std::snprintf(buffer, sizeof buffer, "\\u%04x", c);
                    out.append(buffer);
                } else {
                    out.push_back(static_cast<char>(c));
                }
        }
    }
    out.push_back('"');
    return out;
}

std::string position(int line, int character) {
    std::string out = "{\"character\":";
    out.append(std::to_string(character)).append(",\"line\":").append(std::to_string(line)).append("}");
    return out;
}

std::string diagnosticJson(const Expected& d) {
    int line = d.line < 2 ? 0 : d.line - 1;
    int start = d.column < 2 ? 0 : d.column - 1;
    int end = d.column < 2 ? 1 : d.column;
    std::string out = "{\"code\":\"E1000\",\"message\":";
    out.append(jsonString(d.message));
    out.append(",\"range\":{\"end\":").append(position(line, end));
    out.append(",\"start\":").append(position(line, start)).append("}");
    out.append(",\"severity\":1,\"source\":\"quorls\"}");
    return out;
}

std::string publication(const std::string& uri, const std::vector<Expected>& diagnostics) {
    std::string out = R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)";
    for (std::size_t i = 0; i < diagnostics.size(); ++i) {
        if (i > 0) out.push_back(',');
        out.append(diagnosticJson(diagnostics[i]));
    }
    out.append("],\"uri\":").append(jsonString(uri)).append("}}");
    return out;
}

std::string didOpen(const std::string& uri, const std::string& text) {
    std::string body = R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":)";
    body.append(jsonString(uri)).append(R"(,"languageId":"quor","version":1,"text":)");
    body.append(jsonString(text)).append("}}}");
    return frame(body);
}

const std::string URI = "file:///ws/recovery.quor";

// Opens `text` and expects exactly one publication holding `expected`.
void expectSyntaxDiagnostics(const std::string& text, const std::vector<Expected>& expected) {
    ProcessResult result = runServer(didOpen(URI, text));
    EXPECT_FALSE(result.timedOut);
    EXPECT_TRUE(result.exited);
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.err, "");
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 1u) << result.out;
    EXPECT_EQ(bodies[0], publication(URI, expected));
}

}  // namespace

// ---- Missing semicolons and stray tokens between statements ----

TEST(SyntaxDiagnosticsWireRecovery, MissingSemicolonIsReportedAtTheNextLine) {
    expectSyntaxDiagnostics("x = 1\ny = 2;\n", {{2, 1, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, TwoNamesWithoutSemicolonsCostOneReportEach) {
    expectSyntaxDiagnostics("a b\n", {{1, 3, "Expected ';' after expression"}, {2, 1, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ReturnWithoutSemicolonBeforeClosingBraceWithCrlfLines) {
    expectSyntaxDiagnostics("fn main() {\r\n  return 1\r\n}\r\n", {{3, 1, "Expected ';' after return statement"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ColumnsCountBytesOfTabsAndUtf8) {
    expectSyntaxDiagnostics("fn main() {\n\tlet s = \"h\xc3\xa9llo\" x;\n}\n",
                            {{2, 19, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, HalfTypedInitializerAtTheEndOfABlock) {
    expectSyntaxDiagnostics("fn main() {\n  let x = \n}",
                            {{3, 1, "Expected expression, found: }"},
                             {3, 2, "Expected ';' after variable declaration"},
                             {3, 2, "Expected '}' to close block"}});
}

TEST(SyntaxDiagnosticsWireRecovery, MemberAccessCutOffAfterTheDot) {
    expectSyntaxDiagnostics("fn f() {\n  a.\n}",
                            {{3, 1, "Expected member identifier after '.'"}, {3, 1, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, TypeNameAndNameWithoutSemicolonIsAnExpressionStatement) {
    expectSyntaxDiagnostics("fn f() {\n  x y\n}",
                            {{2, 5, "Expected ';' after expression"}, {3, 1, "Expected ';' after expression"}});
}


TEST(SyntaxDiagnosticsWireRecovery, VarCannotTakeAClassTypeBeforeTheName) {
    expectSyntaxDiagnostics("var Point p = 1;", {{1, 11, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, LetWithoutName) {
    expectSyntaxDiagnostics("let = 5;", {{1, 5, "Expected variable name in declaration"}});
}

// ---- Parentheses, brackets and literals ----

TEST(SyntaxDiagnosticsWireRecovery, UnclosedArgumentList) {
    expectSyntaxDiagnostics("fn main() {\n  foo(1, 2;\n}\n", {{2, 11, "Expected ')' after argument list"}});
}



TEST(SyntaxDiagnosticsWireRecovery, PairInParenthesesIsNoGrouping) {
    expectSyntaxDiagnostics("let x = (a, b);", {{1, 11, "Expected ')' after expression"},
                                                 {1, 11, "Expected ';' after variable declaration"},
                                                 {1, 11, "Expected expression, found: ,"},
                                                 {1, 13, "Expected ';' after expression"},
                                                 {1, 14, "Expected ';' after expression"},
                                                 {1, 14, "Expected expression, found: )"}});
}



TEST(SyntaxDiagnosticsWireRecovery, TrailingCommasInBraceLiteralsAndEnumsAreAccepted) {
    // Only the last line is wrong, so the brace literals before it raised nothing.
    expectSyntaxDiagnostics("let a = {1, 2,};\nlet m = {1: 2,};\nenum E { A = 1, B, }\nlet z = [1,];",
                            {{4, 12, "Expected expression, found: ]"}, {4, 13, "Expected ']' at end of array literal"}});
}

TEST(SyntaxDiagnosticsWireRecovery, MapEntryWithoutValue) {
    expectSyntaxDiagnostics("let m = {a: 1, b};", {{1, 17, "Expected ':' between key and value in map entry"},
                                                    {1, 17, "Expected expression, found: }"},
                                                    {1, 18, "Expected '}' at end of map literal"}});
}

TEST(SyntaxDiagnosticsWireRecovery, UnclosedIndex) {
    expectSyntaxDiagnostics("let v = a[1;", {{1, 12, "Expected ']' after index"}});
}

TEST(SyntaxDiagnosticsWireRecovery, TernaryWithoutColon) {
    expectSyntaxDiagnostics("let v = a ? b c;", {{1, 15, "Expected ':' in ternary operator"}});
}

TEST(SyntaxDiagnosticsWireRecovery, KeywordAfterDotAndTheCascadeItStarts) {
    expectSyntaxDiagnostics("let v = a.class;", {{1, 11, "Expected member identifier after '.'"},
                                                  {1, 11, "Expected ';' after variable declaration"},
                                                  {1, 16, "Expected class name"},
                                                  {1, 16, "Expected '{' to start class body"},
                                                  {1, 16, "Expected expression, found: ;"},
                                                  {1, 17, "Expected ';' after expression"},
                                                  {1, 17, "Expected '}' at end of class body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, LessAtTheEndOfTheInputIsAComparison) {
    expectSyntaxDiagnostics("let v = a <", {{1, 12, "Expected expression, found: "},
                                             {1, 12, "Expected ';' after variable declaration"}});
}

// ---- new expressions ----

TEST(SyntaxDiagnosticsWireRecovery, NewWithUnclosedTypeArguments) {
    expectSyntaxDiagnostics("let b = new Box<int(1);", {{1, 20, "Expected '>' after generic type arguments"}});
}

TEST(SyntaxDiagnosticsWireRecovery, NewDoesNotTakeAQualifiedName) {
    expectSyntaxDiagnostics("let b = new a.b();", {{1, 14, "Expected '(' after class name in new expression"},
                                                    {1, 14, "Expected expression, found: ."},
                                                    {1, 15, "Expected ')' after constructor arguments"},
                                                    {1, 15, "Expected ';' after variable declaration"}});
}

// ---- Lambdas ----



TEST(SyntaxDiagnosticsWireRecovery, LambdaScanStopsAtAnOpenBracketAndRereadsAsIndex) {
    expectSyntaxDiagnostics("let f = (int[ a) => a;", {{1, 16, "Expected ']' after index"},
                                                        {1, 18, "Expected ';' after variable declaration"},
                                                        {1, 18, "Expected expression, found: =>"},
                                                        {1, 21, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, TypeErrorOfTheLambdaScanStaysAfterTheRewind) {
    expectSyntaxDiagnostics("let v = (int<> + 1);", {{1, 14, "Expected type name"}, {1, 14, "Expected expression, found: >"}});
}

TEST(SyntaxDiagnosticsWireRecovery, TypeErrorInsideALambdaParameter) {
    expectSyntaxDiagnostics("let f = (int<> a) => a;", {{1, 14, "Expected type name"}});
}

// ---- String interpolation ----


TEST(SyntaxDiagnosticsWireRecovery, InterpolationPositionsCountFromThePiece) {
    expectSyntaxDiagnostics("let s = \"${  )}\";\nlet t = \"${1 +}\";",
                            {{1, 3, "Expected expression, found: )"}, {1, 4, "Expected expression, found: "}});
}

TEST(SyntaxDiagnosticsWireRecovery, InterpolationLinesCountEscapedLineFeeds) {
    expectSyntaxDiagnostics("let s = \"${\\n)}\";", {{2, 1, "Expected expression, found: )"}});
}

TEST(SyntaxDiagnosticsWireRecovery, BadByteInsideAnInterpolationShowsOnlyAsTheParsersReaction) {
    expectSyntaxDiagnostics("let s = \"${#}\" x;", {{1, 1, "Expected expression, found: #"},
                                                      {1, 16, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, UnterminatedMarkerAndEscapedDollarAreNoErrors) {
    expectSyntaxDiagnostics("let a = \"x${y\";\nlet b = \"\\${}\";", {{1, 1, "Expected expression, found: "}});
}

// ---- Generic-call lookahead ----

TEST(SyntaxDiagnosticsWireRecovery, ShiftTokenEndsTheGenericLookaheadWithoutAReport) {
    expectSyntaxDiagnostics("let x = f<List<int>>(1);\nlet y = ;", {{2, 9, "Expected expression, found: ;"},
                                                                    {2, 10, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, GenericCallWithTrailingComma) {
    expectSyntaxDiagnostics("f<int>(1,);", {{1, 10, "Expected expression, found: )"}, {1, 11, "Expected ')' after argument list"}});
}

TEST(SyntaxDiagnosticsWireRecovery, LessNameGreaterParenIsReadAsAGenericCall) {
    expectSyntaxDiagnostics("let v = a < b > (c;", {{1, 19, "Expected ')' after argument list"}});
}

TEST(SyntaxDiagnosticsWireRecovery, NumberInAngleBracketsIsAComparison) {
    expectSyntaxDiagnostics("let v = f<1>(2;", {{1, 15, "Expected ')' after expression"}});
}

// ---- Statements ----

TEST(SyntaxDiagnosticsWireRecovery, ForConditionWithoutSemicolon) {
    expectSyntaxDiagnostics("for (var i = 0; i < n i++) {}\n", {{1, 23, "Expected ';' after for loop condition"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ForInWithoutParentheses) {
    expectSyntaxDiagnostics("for x in a {}", {{1, 5, "Expected '(' after 'for'"}, {1, 12, "Expected ')' after for-in expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ForInWithoutClosingParenthesis) {
    expectSyntaxDiagnostics("for (x in items {\n}\n", {{1, 17, "Expected ')' after for-in expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, IfWithoutParentheses) {
    expectSyntaxDiagnostics("if x > 0 {}", {{1, 4, "Expected '(' after 'if'"}, {1, 10, "Expected ')' after if condition"}});
}

TEST(SyntaxDiagnosticsWireRecovery, WhileWithoutClosingParenthesis) {
    expectSyntaxDiagnostics("while (true {}", {{1, 13, "Expected ')' after while condition"}});
}

TEST(SyntaxDiagnosticsWireRecovery, DoWithoutWhileAndWithoutSemicolon) {
    expectSyntaxDiagnostics("do {} (x);\ndo {} while (x)", {{1, 7, "Expected 'while' after 'do' body"},
                                                         {2, 16, "Expected ';' after do-while statement"}});
}

TEST(SyntaxDiagnosticsWireRecovery, SwitchWithStrayTokenAndDefaultWithoutColon) {
    expectSyntaxDiagnostics("switch (x) { foo case 1: break; default }",
                            {{1, 14, "Expected 'case' or 'default' in switch block"}, {1, 41, "Expected ':' after default"}});
}

TEST(SyntaxDiagnosticsWireRecovery, CaseWithoutColon) {
    expectSyntaxDiagnostics("switch (x) { case 1 break; }", {{1, 21, "Expected ':' after case value"}});
}

TEST(SyntaxDiagnosticsWireRecovery, MatchArmWithoutArrowAndUnclosedMatch) {
    expectSyntaxDiagnostics("match x { 1 a, _ => b }\nmatch (x) {",
                            {{1, 13, "Expected '=>' after match pattern"}, {2, 12, "Expected '}' after match block"}});
}

TEST(SyntaxDiagnosticsWireRecovery, CatchNeedsATypeAndAName) {
    expectSyntaxDiagnostics("try {} catch (e) {}\ntry {} catch Error e) {}",
                            {{1, 16, "Expected exception variable name"}, {2, 14, "Expected '(' after 'catch'"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ThrowWithoutValue) {
    expectSyntaxDiagnostics("throw;", {{1, 6, "Expected expression, found: ;"}, {1, 7, "Expected ';' after throw statement"}});
}

TEST(SyntaxDiagnosticsWireRecovery, BreakWithoutSemicolonAndReturnAtTheEnd) {
    expectSyntaxDiagnostics("fn f() { break }\nfn g() { return", {{1, 16, "Expected ';' after break"},
                                                               {2, 16, "Expected expression, found: "},
                                                               {2, 16, "Expected ';' after return statement"},
                                                               {2, 16, "Expected '}' to close block"}});
}

// ---- Functions ----

TEST(SyntaxDiagnosticsWireRecovery, BareFnKeywordAtTheEnd) {
    expectSyntaxDiagnostics("fn \n", {{2, 1, "Expected function name"},
                                       {2, 1, "Expected '(' to begin parameter list"},
                                       {2, 1, "Expected parameter name"},
                                       {2, 1, "Expected ')' to end parameter list"},
                                       {2, 1, "Expected '{' or '=>' for function body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, UnclosedParameterList) {
    expectSyntaxDiagnostics("fn f(a, b", {{1, 10, "Expected ')' to end parameter list"},
                                           {1, 10, "Expected '{' or '=>' for function body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ParameterHeadsThatAreMissing) {
    expectSyntaxDiagnostics("fn f(x: ) {}\nfn g(int) {}\nfn h<T,>() {}",
                            {{1, 9, "Expected type name"}, {2, 9, "Expected parameter name"}, {3, 8, "Expected type parameter name"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ReturnTypeMissingAfterArrow) {
    expectSyntaxDiagnostics("fn f() -> {}", {{1, 11, "Expected type name"}});
}

TEST(SyntaxDiagnosticsWireRecovery, FunctionBodyThatIsNeitherBlockNorArrow) {
    expectSyntaxDiagnostics("fn f() = 1;", {{1, 8, "Expected '{' or '=>' for function body"},
                                             {1, 8, "Expected expression, found: ="},
                                             {1, 10, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ShortFormBodiesWithoutSemicolon) {
    expectSyntaxDiagnostics("fn f() => 1\ng() => 2", {{2, 1, "Expected ';' after short-form function expression"},
                                                    {2, 9, "Expected ';' after expression body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, TypeFirstSignatureWithoutSemicolon) {
    expectSyntaxDiagnostics("int f(int a)\nint g();", {{2, 1, "Expected ';' after function signature"}});
}

// ---- Classes, interfaces, structs, enums, extern ----

TEST(SyntaxDiagnosticsWireRecovery, StrayTokensInAClassBody) {
    expectSyntaxDiagnostics("class A {\n  int x = ;\n  + \n}\n", {{2, 11, "Expected expression, found: ;"},
                                                                   {3, 3, "Expected ';' after variable declaration"},
                                                                   {4, 1, "Expected expression, found: }"},
                                                                   {5, 1, "Expected ';' after expression"},
                                                                   {5, 1, "Expected '}' at end of class body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ClassHeaderNamesThatAreMissing) {
    expectSyntaxDiagnostics("class A extends {}\nclass B : C, {}\nclass D implements {}\nclass <T> {}\nclass Box<T, > {}",
                            {{1, 17, "Expected base class name after 'extends'"},
                             {2, 14, "Expected interface name after ','"},
                             {3, 20, "Expected interface name after 'implements'"},
                             {4, 7, "Expected class name"},
                             {5, 14, "Expected type parameter name"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ConstructorWithoutBody) {
    expectSyntaxDiagnostics("class A {\n  A(int x);\n}", {{2, 11, "Expected '{' to start block"},
                                                         {2, 11, "Expected expression, found: ;"},
                                                         {3, 1, "Expected ';' after expression"},
                                                         {3, 2, "Expected '}' at end of class body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, UnclosedClassBody) {
    expectSyntaxDiagnostics("class A {\n  fn f() {}\n", {{3, 1, "Expected '}' at end of class body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, StrayTokensInAnInterfaceBody) {
    expectSyntaxDiagnostics("interface I {\n  x;\n  fn f()\n}\n",
                            {{2, 3, "Only method signatures are permitted in interfaces"},
                             {2, 4, "Only method signatures are permitted in interfaces"},
                             {4, 1, "Expected ';' after interface method signature"}});
}

TEST(SyntaxDiagnosticsWireRecovery, BrokenStructFields) {
    expectSyntaxDiagnostics("struct P {\n  x: int\n  y int;\n  ;\n}\n", {{3, 3, "Expected ';' after struct field"},
                                                                      {3, 5, "Expected field name in struct"},
                                                                      {3, 5, "Expected ';' after struct field"},
                                                                      {3, 8, "Expected field name in struct"},
                                                                      {4, 3, "Expected type name"},
                                                                      {4, 3, "Expected field name in struct"}});
}


TEST(SyntaxDiagnosticsWireRecovery, EnumVariantsWithoutComma) {
    expectSyntaxDiagnostics("enum E { A B }", {{1, 12, "Expected '}' at end of enum body"},
                                                {1, 14, "Expected ';' after expression"},
                                                {1, 14, "Expected expression, found: }"},
                                                {1, 15, "Expected ';' after expression"}});
}

// The first block never opens, so it runs to the end of the input and the
// second block nests inside it: both closing braces are missing there.
TEST(SyntaxDiagnosticsWireRecovery, ExternBlockWithoutBraceSwallowsTheRest) {
    expectSyntaxDiagnostics("extern int f();\nextern \"C\" {\n  int g();\n",
                            {{1, 8, "Expected '{' to start extern block"},
                             {4, 1, "Expected '}' after extern block"},
                             {4, 1, "Expected '}' after extern block"}});
}

// ---- Modules and imports ----


TEST(SyntaxDiagnosticsWireRecovery, ModuleAndImportPathsThatAreMissing) {
    expectSyntaxDiagnostics("module a.;\nimport ;\nimport b.;\nimport c.d",
                            {{1, 10, "Expected identifier after '.' in module name"},
                             {2, 8, "Expected import path"},
                             {3, 10, "Expected identifier after '.' in import path"},
                             {4, 11, "Expected ';' after import statement"}});
}

// ---- Test declarations ----

TEST(SyntaxDiagnosticsWireRecovery, TestWithoutName) {
    expectSyntaxDiagnostics("test {\n}\n", {{1, 6, "Expected test name string literal or identifier after 'test'"}});
}

TEST(SyntaxDiagnosticsWireRecovery, TestParametersAndBodyThatAreMissing) {
    expectSyntaxDiagnostics("test \"x\" ( {}\ntest \"y\";", {{1, 12, "Expected ')' after test declaration parameters"},
                                                        {2, 9, "Expected '{' to start test body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, TestNamedByANumber) {
    expectSyntaxDiagnostics("test 42 {}", {{1, 6, "Expected test name string literal or identifier after 'test'"},
                                            {1, 6, "Expected '{' to start test body"},
                                            {1, 9, "Expected ';' after expression"}});
}

// ---- The chain around the syntax stage ----


TEST(SyntaxDiagnosticsWireRecovery, SyntaxErrorHidesUndefinedNames) {
    expectSyntaxDiagnostics("fn main() {\n  undefinedThing(1);\n  let y = nothing\n}\n",
                            {{4, 1, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, FixingTheErrorClearsTheList) {
    std::string change = R"({"jsonrpc":"2.0","method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///ws/recovery.quor","version":2},"contentChanges":[{"text":"let x = 1;"}]}})";
    ProcessResult result = runServer(didOpen(URI, "let x = 1") + frame(change));
    EXPECT_TRUE(result.exited);
    std::vector<std::string> bodies = splitFramed(result.out);
    ASSERT_EQ(bodies.size(), 2u);
    EXPECT_EQ(bodies[0], publication(URI, {{1, 10, "Expected ';' after variable declaration"}}));
    EXPECT_EQ(bodies[1], publication(URI, {}));
}


// ---- Statements that only exist at the top level, and empty statements ----

TEST(SyntaxDiagnosticsWireRecovery, ClassInsideAFunctionBodyIsNoStatement) {
    expectSyntaxDiagnostics("fn f() {\n  class A {}\n}", {{2, 3, "Expected expression, found: class"},
                                                       {2, 9, "Expected ';' after expression"},
                                                       {2, 11, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, FnInsideAFunctionBodyIsNoStatement) {
    expectSyntaxDiagnostics("fn f() {\n  fn g() {}\n}", {{2, 3, "Expected expression, found: fn"},
                                                       {2, 6, "Expected ';' after expression"},
                                                       {2, 10, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, BareFunctionFormInsideABlockIsACallWithoutSemicolon) {
    expectSyntaxDiagnostics("fn main() {\n  f() {}\n}", {{2, 7, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, DoubledSemicolonInsideABlock) {
    expectSyntaxDiagnostics("fn f() {\n  foo();;\n}", {{2, 9, "Expected expression, found: ;"},
                                                      {3, 1, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, DoWhoseBodyIsAWhileWithAnEmptyBody) {
    expectSyntaxDiagnostics("do while (x);", {{1, 13, "Expected expression, found: ;"},
                                              {1, 14, "Expected ';' after expression"},
                                              {1, 14, "Expected 'while' after 'do' body"},
                                              {1, 14, "Expected '(' after 'while'"},
                                              {1, 14, "Expected expression, found: "},
                                              {1, 14, "Expected ')' after do-while condition"},
                                              {1, 14, "Expected ';' after do-while statement"}});
}

TEST(SyntaxDiagnosticsWireRecovery, CaseWithoutValue) {
    expectSyntaxDiagnostics("switch (x) { case : }", {{1, 19, "Expected expression, found: :"},
                                                      {1, 21, "Expected ':' after case value"}});
}

TEST(SyntaxDiagnosticsWireRecovery, UnbalancedParenthesesAreNoBareFunction) {
    expectSyntaxDiagnostics("foo(a {}", {{1, 7, "Expected ')' after argument list"}, {1, 7, "Expected ';' after expression"}});
}

// ---- Parameters, interfaces and class headers ----

TEST(SyntaxDiagnosticsWireRecovery, DefaultValueMissingInAParameterList) {
    expectSyntaxDiagnostics("fn f(a: int = , b) {}", {{1, 15, "Expected expression, found: ,"},
                                                      {1, 17, "Expected ')' to end parameter list"},
                                                      {1, 17, "Expected '{' or '=>' for function body"},
                                                      {1, 18, "Expected ';' after expression"},
                                                      {1, 18, "Expected expression, found: )"},
                                                      {1, 20, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, InterfaceMethodsTakeNoTypeParameters) {
    const std::string stray = "Only method signatures are permitted in interfaces";
    expectSyntaxDiagnostics("interface I { fn f<T>(); }", {{1, 19, "Expected '(' to begin parameter list"},
                                                           {1, 19, "Expected parameter name"},
                                                           {1, 19, "Expected ')' to end parameter list"},
                                                           {1, 19, "Expected ';' after interface method signature"},
                                                           {1, 19, stray},
                                                           {1, 20, stray},
                                                           {1, 21, stray},
                                                           {1, 22, stray},
                                                           {1, 23, stray},
                                                           {1, 24, stray}});
}

TEST(SyntaxDiagnosticsWireRecovery, ImplementsBeforeExtendsEndsTheHeader) {
    expectSyntaxDiagnostics("class A implements I extends B {}", {{1, 22, "Expected '{' to start class body"},
                                                                  {1, 22, "Expected expression, found: extends"},
                                                                  {1, 30, "Expected ';' after expression"},
                                                                  {1, 32, "Expected ';' after expression"},
                                                                  {1, 34, "Expected '}' at end of class body"}});
}

// ---- Half-typed expressions ----

TEST(SyntaxDiagnosticsWireRecovery, LambdaArgumentWithoutBody) {
    expectSyntaxDiagnostics("list.map(x => );", {{1, 15, "Expected expression, found: )"},
                                                 {1, 16, "Expected ')' after argument list"}});
}

TEST(SyntaxDiagnosticsWireRecovery, NewWithoutArgumentList) {
    expectSyntaxDiagnostics("let l = new List<int>;", {{1, 22, "Expected '(' after class name in new expression"},
                                                       {1, 22, "Expected expression, found: ;"},
                                                       {1, 23, "Expected ')' after constructor arguments"},
                                                       {1, 23, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, NewWithoutClassName) {
    expectSyntaxDiagnostics("let p = new;", {{1, 12, "Expected class name after 'new'"},
                                             {1, 12, "Expected '(' after class name in new expression"},
                                             {1, 12, "Expected expression, found: ;"},
                                             {1, 13, "Expected ')' after constructor arguments"},
                                             {1, 13, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, NonAsciiByteInsideAnInterpolationIsReportedAsThatOneByte) {
    expectSyntaxDiagnostics("let s = \"${\xc3\xa9}\";", {{1, 1, "Expected expression, found: \xc3"}});
}

// ---- Positions after tokens that span lines ----

TEST(SyntaxDiagnosticsWireRecovery, StringContinuedWithABackslashCountsTheLine) {
    expectSyntaxDiagnostics("let s = \"a\\\nb\" x;", {{2, 4, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, BlockCommentAcrossLinesCountsTheLine) {
    expectSyntaxDiagnostics("let x = 1 /* c\n */ y;", {{2, 5, "Expected ';' after variable declaration"}});
}

// ---- More editor situations ----

TEST(SyntaxDiagnosticsWireRecovery, CallOpenedAtTheEndOfTheInput) {
    expectSyntaxDiagnostics("foo(", {{1, 5, "Expected expression, found: "},
                                     {1, 5, "Expected ')' after argument list"},
                                     {1, 5, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, HalfTypedConstructorTakesTheClassBrace) {
    expectSyntaxDiagnostics("class A { A( }", {{1, 14, "Expected parameter name"},
                                               {1, 14, "Expected ')' to end parameter list"},
                                               {1, 14, "Expected '{' to start block"},
                                               {1, 15, "Expected '}' at end of class body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, WildcardArmWithoutArrow) {
    expectSyntaxDiagnostics("match x { _ }", {{1, 13, "Expected '=>' after match pattern"},
                                              {1, 13, "Expected expression, found: }"},
                                              {1, 14, "Expected '}' after match block"}});
}

TEST(SyntaxDiagnosticsWireRecovery, NameQuestionNameSemicolonIsADeclarationNotATernary) {
    // Only the stray parenthesis of the last line is reported.
    expectSyntaxDiagnostics("let z = 1;\na ? b;\n)", {{3, 1, "Expected expression, found: )"},
                                                    {3, 2, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, CarriageReturnAtTheEndCountsOneColumn) {
    expectSyntaxDiagnostics("let x = 1\r", {{1, 11, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, NullableMarkComesBeforeArrayMarksNeverAfter) {
    expectSyntaxDiagnostics("fn f() -> int? []", {{1, 16, "Expected '{' or '=>' for function body"},
                                                  {1, 18, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, CastLikeParenthesesAreAGroupedTypeName) {
    expectSyntaxDiagnostics("let v = (int) x;", {{1, 15, "Expected ';' after variable declaration"}});
}

TEST(SyntaxDiagnosticsWireRecovery, SafeNavigationWithoutMemberName) {
    expectSyntaxDiagnostics("let v = a?.;", {{1, 12, "Expected member identifier after '.'"}});
}

TEST(SyntaxDiagnosticsWireRecovery, TestKeywordAloneAtTheEnd) {
    expectSyntaxDiagnostics("test", {{1, 5, "Expected test name string literal or identifier after 'test'"},
                                     {1, 5, "Expected '{' to start test body"}});
}

TEST(SyntaxDiagnosticsWireRecovery, KeywordUsedAsAVariableName) {
    expectSyntaxDiagnostics("let test = 1;", {{1, 5, "Expected variable name in declaration"},
                                              {1, 5, "Expected ';' after variable declaration"},
                                              {1, 10, "Expected test name string literal or identifier after 'test'"},
                                              {1, 10, "Expected '{' to start test body"},
                                              {1, 10, "Expected expression, found: ="},
                                              {1, 12, "Expected ';' after expression"}});
}

TEST(SyntaxDiagnosticsWireRecovery, ForInHeadThatIsNoTypeIsTakenAsTheVariable) {
    // `const` has the place of a one-token type: it is reported, and then the
    // next two tokens are the variable and the word, so the iterable is `in`.
    expectSyntaxDiagnostics("for (const x in a) {}", {{1, 6, "Expected type name"},
                                                      {1, 17, "Expected ')' after for-in expression"},
                                                      {1, 18, "Expected ';' after expression"},
                                                      {1, 18, "Expected expression, found: )"},
                                                      {1, 20, "Expected ';' after expression"}});
}
