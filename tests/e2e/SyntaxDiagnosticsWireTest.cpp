// Syntax errors as an editor sees them: each case opens one document over
// the wire and compares the published diagnostics byte for byte.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "e2e/ServerProcess.h"

using quor::e2e::frame;
using quor::e2e::ProcessResult;
using quor::e2e::runServer;

namespace {

struct Expected {
    int line;    // one-based, as the parser reports it
    int column;  // one-based
    std::string message;
};

std::string jsonEscape(const std::string& text) { return quor::e2e::escapeJsonText(text); }

std::string openMessage(const std::string& text) {
    std::string body(R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":)");
    body.append(R"({"uri":"file:///w/s.quor","languageId":"quor","version":1,"text":")");
    body.append(jsonEscape(text));
    body.append("\"}}}");
    return body;
}

std::string diagnosticJson(const Expected& d) {
    std::string json(R"({"code":"E1000","message":")");
    json.append(jsonEscape(d.message));
    json.append(R"(","range":{"end":{"character":)");
    json.append(std::to_string(d.column));
    json.append(R"(,"line":)");
    json.append(std::to_string(d.line - 1));
    json.append(R"(},"start":{"character":)");
    json.append(std::to_string(d.column - 1));
    json.append(R"(,"line":)");
    json.append(std::to_string(d.line - 1));
    json.append(R"(}},"severity":1,"source":"quorls"})");
    return json;
}

std::string publication(const std::vector<Expected>& diagnostics) {
    std::string body(R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":{"diagnostics":[)");
    for (std::size_t i = 0; i < diagnostics.size(); ++i) {
        if (i > 0) body.push_back(',');
        body.append(diagnosticJson(diagnostics[i]));
    }
    body.append(R"(],"uri":"file:///w/s.quor"}})");
    return frame(body);
}

void expectPublished(const std::string& text, const std::vector<Expected>& diagnostics) {
    ProcessResult result = runServer(frame(openMessage(text)));
    EXPECT_FALSE(result.timedOut);
    EXPECT_TRUE(result.exited);
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.out, publication(diagnostics)) << "source: " << text;
}

const std::string EXPR = "Expected expression, found: ";
const std::string SEMI_EXPR = "Expected ';' after expression";
const std::string SEMI_VAR = "Expected ';' after variable declaration";

}  // namespace

TEST(SyntaxDiagnosticsWire, EmptyDocumentPublishesAnEmptyList) {
    expectPublished("", {});
}

TEST(SyntaxDiagnosticsWire, StraySemicolonsAtTopLevelAreSilent) {
    expectPublished(";;;", {});
}

TEST(SyntaxDiagnosticsWire, MissingSemicolonIsReportedAtTheNextToken) {
    expectPublished("fn main() {\n    let x = 1\n}\n", {{3, 1, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, MissingSemicolonAcrossCrlfLines) {
    expectPublished("let x = 1\r\nlet y = 2;\r\n", {{2, 1, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, MultiByteCharactersInStringsCountAsBytes) {
    expectPublished("let s = \"\xC3\xA9\" x;", {{1, 14, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, TabCountsOneColumn) {
    expectPublished("\tlet = 1;", {{1, 6, "Expected variable name in declaration"}});
}

TEST(SyntaxDiagnosticsWire, UnclosedArgumentListReportsAtTheSemicolon) {
    expectPublished("fn main() {\n    print((1 + 2);\n}\n", {{2, 18, "Expected ')' after argument list"}});
}

TEST(SyntaxDiagnosticsWire, ExtraClosingParenthesisCostsTwoReports) {
    expectPublished("let x = (1 + 2));", {{1, 16, SEMI_VAR}, {1, 16, EXPR + ")"}});
}

TEST(SyntaxDiagnosticsWire, HalfTypedFunctionHeaderAtEndOfInput) {
    expectPublished("fn foo(", {{1, 8, "Expected parameter name"},
                                {1, 8, "Expected ')' to end parameter list"},
                                {1, 8, "Expected '{' or '=>' for function body"}});
}

TEST(SyntaxDiagnosticsWire, ReturnAtEndOfInputReportsAnEmptyLexeme) {
    expectPublished("return", {{1, 7, EXPR}, {1, 7, "Expected ';' after return statement"}});
}

TEST(SyntaxDiagnosticsWire, FieldWithoutSemicolonInClassBecomesTwoExpressionStatements) {
    expectPublished("class A {\n  int x\n}", {{2, 7, SEMI_EXPR}, {3, 1, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, BadForHeaderRecoversThroughStatements) {
    expectPublished("for (int i = 0; i < 10, i++) {}", {{1, 23, "Expected ';' after for loop condition"},
                                                         {1, 23, EXPR + ","},
                                                         {1, 25, "Expected ')' after for clauses"},
                                                         {1, 28, SEMI_EXPR},
                                                         {1, 28, EXPR + ")"},
                                                         {1, 30, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, InterfaceReportsEachStrayToken) {
    expectPublished("interface I { x; }", {{1, 15, "Only method signatures are permitted in interfaces"},
                                           {1, 16, "Only method signatures are permitted in interfaces"}});
}

TEST(SyntaxDiagnosticsWire, InterfaceSignatureWithoutSemicolon) {
    expectPublished("interface Shape {\n  fn area() -> float\n}",
                    {{3, 1, "Expected ';' after interface method signature"}});
}

TEST(SyntaxDiagnosticsWire, StructFieldsInBrokenForms) {
    expectPublished("struct P { x: int; y int; z }", {{1, 22, "Expected field name in struct"},
                                                       {1, 22, "Expected ';' after struct field"},
                                                       {1, 25, "Expected field name in struct"},
                                                       {1, 29, "Expected field name in struct"},
                                                       {1, 29, "Expected ';' after struct field"}});
}

TEST(SyntaxDiagnosticsWire, EnumWithoutCommaEndsTheBodyEarly) {
    expectPublished("enum Color { Red Green }", {{1, 18, "Expected '}' at end of enum body"},
                                                 {1, 24, SEMI_EXPR},
                                                 {1, 24, EXPR + "}"},
                                                 {1, 25, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, EnumVariantMustBeAnIdentifier) {
    expectPublished("enum E { 1 }", {{1, 10, "Expected enum variant identifier"},
                                     {1, 10, "Expected '}' at end of enum body"},
                                     {1, 12, SEMI_EXPR},
                                     {1, 12, EXPR + "}"},
                                     {1, 13, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, LambdaWithoutBodyConsumesTheSemicolon) {
    expectPublished("let f = (a, b) => ;", {{1, 19, EXPR + ";"}, {1, 20, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, LambdaParameterTypedWithClassNameFallsBackToGrouping) {
    expectPublished("let f = (Point p) => p;", {{1, 16, "Expected ')' after expression"},
                                                 {1, 16, SEMI_VAR},
                                                 {1, 17, SEMI_EXPR},
                                                 {1, 17, EXPR + ")"},
                                                 {1, 19, SEMI_EXPR},
                                                 {1, 19, EXPR + "=>"},
                                                 {1, 22, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, EmptyParenthesesOutsideLambdaReportAtClosingParen) {
    expectPublished("let x = ();", {{1, 10, "Empty parentheses '()' are only allowed in lambda definitions"}});
}

TEST(SyntaxDiagnosticsWire, EmptyInterpolationReportsAtStartOfPiece) {
    expectPublished("\n\nlet s = \"a${}b\";", {{1, 1, EXPR}});
}

TEST(SyntaxDiagnosticsWire, InterpolationErrorsUsePieceCoordinates) {
    expectPublished("fn main() {\n    let s = \"v=${x +}\";\n}\n", {{1, 4, EXPR}});
}

TEST(SyntaxDiagnosticsWire, ScannerFaultInsideInterpolationShowsAsParserReaction) {
    expectPublished("let s = \"${#}\";", {{1, 1, EXPR + "#"}});
}

TEST(SyntaxDiagnosticsWire, TrailingCommaInCallArguments) {
    expectPublished("f(1, 2,);", {{1, 8, EXPR + ")"}, {1, 9, "Expected ')' after argument list"}});
}

TEST(SyntaxDiagnosticsWire, TrailingCommaInBracketArrayLiteral) {
    expectPublished("let a = [1, 2,];", {{1, 15, EXPR + "]"}, {1, 16, "Expected ']' at end of array literal"}});
}

TEST(SyntaxDiagnosticsWire, MapEntryWithoutValue) {
    expectPublished("let m = {\"a\": 1, \"b\"};", {{1, 21, "Expected ':' between key and value in map entry"},
                                                   {1, 21, EXPR + "}"},
                                                   {1, 22, "Expected '}' at end of map literal"}});
}

TEST(SyntaxDiagnosticsWire, GenericCallWithUnclosedArguments) {
    expectPublished("f<int>(1;", {{1, 9, "Expected ')' after argument list"}});
}

TEST(SyntaxDiagnosticsWire, SpacedNestedGenericCallWithUnclosedArguments) {
    expectPublished("f<List<int> >(1", {{1, 16, "Expected ')' after argument list"}, {1, 16, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, TypeArgumentsWithoutCallAreComparisons) {
    expectPublished("let y = f<int>;", {{1, 15, EXPR + ";"}, {1, 16, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, TestWithoutName) {
    expectPublished("test { }", {{1, 6, "Expected test name string literal or identifier after 'test'"}});
}

TEST(SyntaxDiagnosticsWire, TestWithoutBody) {
    expectPublished("test \"x\"", {{1, 9, "Expected '{' to start test body"}});
}

TEST(SyntaxDiagnosticsWire, TestWithParameters) {
    expectPublished("test \"x\" (1) {}", {{1, 11, "Expected ')' after test declaration parameters"},
                                          {1, 11, "Expected '{' to start test body"},
                                          {1, 12, SEMI_EXPR},
                                          {1, 12, EXPR + ")"},
                                          {1, 14, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, WildcardImportMustEndThePath) {
    expectPublished("import a.*.b;", {{1, 11, "Expected ';' after import statement"},
                                      {1, 11, EXPR + "."},
                                      {1, 12, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, ImportAndModuleWithMissingParts) {
    expectPublished("import ;\nmodule a.;", {{1, 8, "Expected import path"},
                                             {2, 10, "Expected identifier after '.' in module name"}});
}

TEST(SyntaxDiagnosticsWire, ClassHeaderFaults) {
    expectPublished("class A : {}\nclass B extends {}\nclass {}\nclass C<T, > {}",
                    {{1, 11, "Expected base class or interface name after ':'"},
                     {2, 17, "Expected base class name after 'extends'"},
                     {3, 7, "Expected class name"},
                     {4, 12, "Expected type parameter name"}});
}

TEST(SyntaxDiagnosticsWire, StrayTokenInClassBody) {
    expectPublished("class A { ) }", {{1, 11, EXPR + ")"}, {1, 13, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, KeywordAfterDotStartsAClassDeclaration) {
    expectPublished("x.class;", {{1, 3, "Expected member identifier after '.'"},
                                 {1, 3, SEMI_EXPR},
                                 {1, 8, "Expected class name"},
                                 {1, 8, "Expected '{' to start class body"},
                                 {1, 8, EXPR + ";"},
                                 {1, 9, SEMI_EXPR},
                                 {1, 9, "Expected '}' at end of class body"}});
}

TEST(SyntaxDiagnosticsWire, SwitchWithStrayToken) {
    expectPublished("switch (x) { foo }", {{1, 14, "Expected 'case' or 'default' in switch block"}});
}

TEST(SyntaxDiagnosticsWire, MatchArmsWithWrongArrow) {
    expectPublished("match x { 1 -> a }", {{1, 13, "Expected '=>' after match pattern"},
                                           {1, 13, EXPR + "->"},
                                           {1, 18, "Expected '=>' after match pattern"},
                                           {1, 18, EXPR + "}"},
                                           {1, 19, "Expected '}' after match block"}});
}

TEST(SyntaxDiagnosticsWire, IfWithoutParentheses) {
    expectPublished("if x > 1 { }", {{1, 4, "Expected '(' after 'if'"}, {1, 10, "Expected ')' after if condition"}});
}

TEST(SyntaxDiagnosticsWire, DoWhileWithoutSemicolon) {
    expectPublished("do { } while (x)", {{1, 17, "Expected ';' after do-while statement"}});
}

TEST(SyntaxDiagnosticsWire, UntypedCatchMissesTheVariable) {
    expectPublished("try { } catch (e) { }", {{1, 17, "Expected exception variable name"}});
}

TEST(SyntaxDiagnosticsWire, VarWithClassTypeInFront) {
    expectPublished("var Point p = x;", {{1, 11, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, CommaSeparatedDeclarationIsNotAList) {
    expectPublished("int a, b;", {{1, 6, SEMI_VAR}, {1, 6, EXPR + ","}, {1, 8, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, TernaryWithoutColon) {
    expectPublished("let v = a ? b;", {{1, 14, "Expected ':' in ternary operator"}, {1, 14, EXPR + ";"}, {1, 15, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, NewWithQualifiedName) {
    expectPublished("let p = new a.b();", {{1, 14, "Expected '(' after class name in new expression"},
                                           {1, 14, EXPR + "."},
                                           {1, 15, "Expected ')' after constructor arguments"},
                                           {1, 15, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, FunctionWithoutBodyBeforeNextDeclaration) {
    expectPublished("fn f() -> int\nfn g() {}", {{2, 1, "Expected '{' or '=>' for function body"}});
}

TEST(SyntaxDiagnosticsWire, ShortFormBodiesNeedSemicolons) {
    expectPublished("fn f() => 1", {{1, 12, "Expected ';' after short-form function expression"}});
    expectPublished("f() => 1", {{1, 9, "Expected ';' after expression body"}});
    expectPublished("int f(int a)", {{1, 13, "Expected ';' after function signature"}});
}

TEST(SyntaxDiagnosticsWire, ParameterAndTypeParameterLists) {
    expectPublished("fn f(a, ) {}\nfn g<>() {}", {{1, 9, "Expected parameter name"}, {2, 6, "Expected type parameter name"}});
}

TEST(SyntaxDiagnosticsWire, ExternBlockFaults) {
    expectPublished("extern \"C\" { int f(); ", {{1, 23, "Expected '}' after extern block"}});
    expectPublished("extern int f();", {{1, 8, "Expected '{' to start extern block"}, {1, 16, "Expected '}' after extern block"}});
}

TEST(SyntaxDiagnosticsWire, IndexWithoutClosingBracket) {
    expectPublished("a[1;", {{1, 4, "Expected ']' after index"}});
}

TEST(SyntaxDiagnosticsWire, TentativeLambdaTypeReportStaysAfterRewind) {
    expectPublished("let f = (int<x", {{1, 15, "Expected '>' after generic type arguments"},
                                       {1, 15, "Expected ')' after expression"},
                                       {1, 15, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, ForInWithoutIterable) {
    expectPublished("for (x in ) {}", {{1, 11, EXPR + ")"}, {1, 13, "Expected ')' after for-in expression"}});
}

TEST(SyntaxDiagnosticsWire, ConstructorWithoutBodyTakesTheClassBrace) {
    expectPublished("class A { A(int x) }", {{1, 20, "Expected '{' to start block"},
                                             {1, 21, "Expected '}' at end of class body"}});
}

TEST(SyntaxDiagnosticsWire, ModifiersBeforeASemicolonMakeAnExpressionStatement) {
    expectPublished("public ;", {{1, 8, EXPR + ";"}, {1, 9, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, UnclosedBlockAtEndOfInput) {
    expectPublished("fn main() {\n  foo();\n", {{3, 1, "Expected '}' to close block"}});
}

TEST(SyntaxDiagnosticsWire, WhileConditionCutOffAtEndOfInput) {
    expectPublished("while (x", {{1, 9, "Expected ')' after while condition"}, {1, 9, EXPR}, {1, 9, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, MemberNameMissingAfterDot) {
    expectPublished("x.;", {{1, 3, "Expected member identifier after '.'"}});
}

TEST(SyntaxDiagnosticsWire, PrefixOperatorWithoutOperand) {
    expectPublished("let x = -;", {{1, 10, EXPR + ";"}, {1, 11, SEMI_VAR}});
}

// A syntax error anywhere stops the chain before analysis, so a final stray
// parenthesis shows that everything in front of it parsed without a report.
TEST(SyntaxDiagnosticsWire, AcceptedFormsProduceNoSyntaxReports) {
    const std::vector<std::string> forms = {
        "let y = f<List<int>>(1);",
        "let z = a < b > (c);",
        "let w = f<1>(2);",
        "f<int, string[]?>(1);",
        "x? y = null;",
        "x[] y;",
        "List<int> y;",
        "a[i] = 1;",
        "a ? b : c;",
        "let s = \"${a b}\" + \"x${y\" + \"${\" + \"a$b{c}\";",
        "match x { 1 => a, _ => { b(); } }",
        "switch (x) { case 1: case 2: f(); default: g(); default: h(); }",
        "for (;;) {}",
        "for (var i in a) {} for (let i in a) {} for (int i in a) {} for (i in a) {}",
        "let in = 1;",
        "module int.string;",
        "import a.b.*;",
        "enum E { A = 1, B, }",
        "let m = {1: 2,}; let n = {1, 2,}; let e = {};",
        "fn f<T>(x: T, int y = 2, z): int => x;",
        "class A extends B : C, D implements E { A(int x) { } B(int x) { } }",
        "test \"a b\" { } test t() { }",
        "let g = x => x + 1; let h = (x) => { return x; }; let k = (int[] a, string? b,) => a;",
        "extern \"x\" { int f(); }",
        "const c;",
        "private public abstract static fn f();",
        "static var v = 1;",
        "interface I { fn m(a: int): int; }",
        "struct S { a: int; string b; }",
        "do { } while (x);",
        "try { } catch (E e) { } finally { }",
        "a.int; a.spawn; assert(x); spawn(y); int(3); string.valueOf(1);",
        "f() { } g(int a) -> int { } h() => 1;",
        "fn spawn() { } fn int() { } fn f(): int { return 1; }",
        "Map<int string> m; int[]? n = null; let o = a.b.c?.d ?? e;",
        "class K { public K() { } static K(int x) { } }",
        "for (var i = 0; i < n; i++) { if (i > 2) { break; } else if (i < 1) continue; }",
    };
    for (std::size_t i = 0; i < forms.size(); ++i) {
        std::string text = forms[i];
        text.append("\n)");
        expectPublished(text, {{2, 1, EXPR + ")"}, {2, 2, SEMI_EXPR}});
    }
}

TEST(SyntaxDiagnosticsWire, ComparisonAtStatementStartEndsAndReportsTheTypeAttempt) {
    ProcessResult result = runServer(frame(openMessage("a < 5;")));
    EXPECT_FALSE(result.timedOut);
    EXPECT_TRUE(result.exited);
    EXPECT_EQ(result.exitStatus, 0);
    std::string first(R"("diagnostics":[)");
    first.append(diagnosticJson({1, 5, "Expected type name"}));
    EXPECT_NE(result.out.find(first), std::string::npos) << result.out;
}

TEST(SyntaxDiagnosticsWire, ErrorsOfOneChangeReplaceThoseOfTheOpen) {
    std::string change(R"({"method":"textDocument/didChange","params":{"textDocument":{"uri":"file:///w/s.quor"},)");
    change.append(R"("contentChanges":[{"text":"let a = 1\n"},{"text":"x"}]}})");
    ProcessResult result = runServer(frame(openMessage("return")) + frame(change));
    EXPECT_EQ(result.out, publication({{1, 7, EXPR}, {1, 7, "Expected ';' after return statement"}}) +
                              publication({{2, 1, SEMI_VAR}}));
}

TEST(SyntaxDiagnosticsWire, BraceAtStatementStartIsABlockNotAMap) {
    expectPublished("{a: 1};", {{1, 3, SEMI_EXPR}, {1, 3, EXPR + ":"}, {1, 5, SEMI_EXPR}, {1, 6, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, ParenthesisedPairIsNoExpression) {
    expectPublished("let t = (a, b);", {{1, 11, "Expected ')' after expression"},
                                        {1, 11, SEMI_VAR},
                                        {1, 11, EXPR + ","},
                                        {1, 13, SEMI_EXPR},
                                        {1, 14, SEMI_EXPR},
                                        {1, 14, EXPR + ")"}});
}

TEST(SyntaxDiagnosticsWire, UnclosedCallAtEndOfInput) {
    expectPublished("foo(", {{1, 5, EXPR}, {1, 5, "Expected ')' after argument list"}, {1, 5, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, BareFunctionWithUnclosedBody) {
    expectPublished("foo(a) {", {{1, 9, "Expected '}' to close block"}});
}

TEST(SyntaxDiagnosticsWire, TestNameThatIsANumber) {
    expectPublished("test 123 {}", {{1, 6, "Expected test name string literal or identifier after 'test'"},
                                    {1, 6, "Expected '{' to start test body"},
                                    {1, 10, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, EveryEmptyInterpolationReports) {
    expectPublished("let s = \"${}${}\";", {{1, 1, EXPR}, {1, 1, EXPR}});
}

TEST(SyntaxDiagnosticsWire, SwitchHeaderAndCaseFaults) {
    expectPublished("switch x { case 1 f(); }", {{1, 8, "Expected '(' after 'switch'"},
                                                 {1, 10, "Expected ')' after switch subject"},
                                                 {1, 19, "Expected ':' after case value"}});
    expectPublished("switch (x) { default f(); }", {{1, 22, "Expected ':' after default"}});
}

TEST(SyntaxDiagnosticsWire, CatchClauseWithoutParentheses) {
    expectPublished("try {} catch e {}", {{1, 14, "Expected '(' after 'catch'"},
                                          {1, 16, "Expected exception variable name"},
                                          {1, 16, "Expected ')' after catch clause parameters"}});
}

TEST(SyntaxDiagnosticsWire, LexicalErrorHidesSyntaxErrors) {
    expectPublished("let x = ;\n#", {{2, 1, "Unexpected character: '#' (Remove or replace the invalid character)"}});
}

TEST(SyntaxDiagnosticsWire, DoWithoutWhile) {
    expectPublished("do {} (x);", {{1, 7, "Expected 'while' after 'do' body"}});
}

TEST(SyntaxDiagnosticsWire, KeywordsThatCannotStartAnExpression) {
    expectPublished("else {}", {{1, 1, EXPR + "else"}, {1, 6, SEMI_EXPR}});
    expectPublished("await x;", {{1, 1, EXPR + "await"}, {1, 7, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, MissingTypeNames) {
    expectPublished("var x: = 1;", {{1, 8, "Expected type name"}});
    expectPublished("fn f(x: ) {}", {{1, 9, "Expected type name"}});
    expectPublished("struct S { a: ; }", {{1, 15, "Expected type name"}});
}

TEST(SyntaxDiagnosticsWire, NewWithUnclosedTypeArguments) {
    expectPublished("let b = new Box<int(1);", {{1, 20, "Expected '>' after generic type arguments"}});
}

TEST(SyntaxDiagnosticsWire, FunctionNamedByANumber) {
    expectPublished("fn 1() {}", {{1, 4, "Expected function name"},
                                  {1, 4, "Expected '(' to begin parameter list"},
                                  {1, 4, "Expected parameter name"},
                                  {1, 4, "Expected ')' to end parameter list"},
                                  {1, 4, "Expected '{' or '=>' for function body"},
                                  {1, 8, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, InterfaceMethodNameMustBeAnIdentifier) {
    const std::string only = "Only method signatures are permitted in interfaces";
    expectPublished("interface I { fn (); }", {{1, 18, "Expected method name in interface"}});
    expectPublished("interface I { fn int(); }", {{1, 18, "Expected method name in interface"},
                                                  {1, 18, "Expected '(' to begin parameter list"},
                                                  {1, 21, "Expected parameter name"},
                                                  {1, 21, "Expected ')' to end parameter list"},
                                                  {1, 21, "Expected ';' after interface method signature"},
                                                  {1, 21, only},
                                                  {1, 22, only},
                                                  {1, 23, only}});
}

TEST(SyntaxDiagnosticsWire, ModuleNameThatIsANumber) {
    expectPublished("module 1;", {{1, 8, "Expected module identifier"}, {1, 8, "Expected ';' after module declaration"}});
}

TEST(SyntaxDiagnosticsWire, ForInWithBracketTypeFallsBackToCountedLoop) {
    expectPublished("for (int[] x in a) {}", {{1, 10, EXPR + "]"},
                                              {1, 12, "Expected ']' after index"},
                                              {1, 12, SEMI_EXPR},
                                              {1, 14, "Expected ';' after for loop condition"},
                                              {1, 17, "Expected ')' after for clauses"},
                                              {1, 18, SEMI_EXPR},
                                              {1, 18, EXPR + ")"},
                                              {1, 20, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, TwoNamesWithoutSemicolonAtEndOfInput) {
    expectPublished("x y", {{1, 3, SEMI_EXPR}, {1, 4, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, GenericCallLookaheadAcceptsMarksAndNesting) {
    expectPublished("let v = f<int[]?, Map<a, b> >(1", {{1, 32, "Expected ')' after argument list"}, {1, 32, SEMI_VAR}});
}

TEST(SyntaxDiagnosticsWire, GenericCallWhoseTypeArgumentIsNoType) {
    expectPublished("let v = f<[]>(1);", {{1, 11, "Expected type name"},
                                          {1, 11, "Expected '>' after generic type arguments"},
                                          {1, 11, "Expected '(' after generic type arguments in call"},
                                          {1, 17, "Expected ')' after argument list"}});
}

TEST(SyntaxDiagnosticsWire, FirstClosingBraceEndsAnInterpolatedPiece) {
    // The piece is `f("${`: its string never closes, which the nested scan
    // keeps silent, and the parser then trips over the unfinished token.
    expectPublished("let s = \"${f(\\\"${}\\\")}\";", {{1, 3, EXPR + "\"${"}, {1, 6, "Expected ')' after argument list"}});
}

TEST(SyntaxDiagnosticsWire, UnusedKeywordsAreStrayTokens) {
    expectPublished("trait T {}", {{1, 1, EXPR + "trait"}, {1, 7, SEMI_EXPR}, {1, 9, SEMI_EXPR}});
    expectPublished("@x;", {{1, 1, EXPR + "@"}, {1, 2, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, BareFunctionTakesNoColonReturnType) {
    expectPublished("f(): int { }", {{1, 4, SEMI_EXPR}, {1, 4, EXPR + ":"}, {1, 6, SEMI_EXPR}, {1, 10, SEMI_EXPR}});
}

TEST(SyntaxDiagnosticsWire, ConstructorNeedsABlockBody) {
    expectPublished("class A { A() => 1; }", {{1, 15, "Expected '{' to start block"},
                                              {1, 15, EXPR + "=>"},
                                              {1, 18, SEMI_EXPR},
                                              {1, 22, "Expected '}' at end of class body"}});
}

TEST(SyntaxDiagnosticsWire, LoopHeadersWithoutOpeningParenthesis) {
    expectPublished("for i in a) {}", {{1, 5, "Expected '(' after 'for'"}});
    expectPublished("while x) {}", {{1, 7, "Expected '(' after 'while'"}});
    expectPublished("do {} while (x;", {{1, 15, "Expected ')' after do-while condition"}});
}

TEST(SyntaxDiagnosticsWire, JumpStatementsWithoutSemicolons) {
    expectPublished("break\ncontinue\nthrow x", {{2, 1, "Expected ';' after break"},
                                                 {3, 1, "Expected ';' after continue"},
                                                 {3, 8, "Expected ';' after throw statement"}});
}

TEST(SyntaxDiagnosticsWire, UnclosedTypeParameterList) {
    expectPublished("fn f<T() {}", {{1, 7, "Expected '>' after generic type parameters"}});
}

TEST(SyntaxDiagnosticsWire, MatchWithoutArms) {
    expectPublished("match x ;", {{1, 9, "Expected '{' before match arms"},
                                  {1, 9, EXPR + ";"},
                                  {1, 10, "Expected '=>' after match pattern"},
                                  {1, 10, EXPR},
                                  {1, 10, "Expected '}' after match block"}});
}

TEST(SyntaxDiagnosticsWire, SwitchWithoutCases) {
    expectPublished("switch (x) ;", {{1, 12, "Expected '{' before switch cases"},
                                     {1, 12, "Expected 'case' or 'default' in switch block"},
                                     {1, 13, "Expected '}' after switch cases"}});
}

TEST(SyntaxDiagnosticsWire, EnumHeaderFaults) {
    expectPublished("enum E ;", {{1, 8, "Expected '{' to start enum body"},
                                 {1, 8, "Expected enum variant identifier"},
                                 {1, 8, "Expected '}' at end of enum body"}});
    expectPublished("enum {}", {{1, 6, "Expected enum name"}});
}

TEST(SyntaxDiagnosticsWire, InterfaceHeaderFaults) {
    expectPublished("interface {", {{1, 11, "Expected interface name"}, {1, 12, "Expected '}' at end of interface body"}});
    expectPublished("interface I;", {{1, 12, "Expected '{' to start interface body"},
                                     {1, 12, "Only method signatures are permitted in interfaces"},
                                     {1, 13, "Expected '}' at end of interface body"}});
}

TEST(SyntaxDiagnosticsWire, StructHeaderFaults) {
    expectPublished("struct {", {{1, 8, "Expected struct name"}, {1, 9, "Expected '}' at end of struct body"}});
    expectPublished("struct S;", {{1, 9, "Expected '{' to start struct body"},
                                  {1, 9, "Expected type name"},
                                  {1, 9, "Expected field name in struct"},
                                  {1, 10, "Expected '}' at end of struct body"}});
}

TEST(SyntaxDiagnosticsWire, UnclosedBraceArrayLiteral) {
    expectPublished("let a = {1, 2;", {{1, 14, "Expected '}' at end of array literal"}});
}

TEST(SyntaxDiagnosticsWire, NewWithoutClassName) {
    expectPublished("let p = new 1;", {{1, 13, "Expected class name after 'new'"},
                                       {1, 13, "Expected '(' after class name in new expression"},
                                       {1, 14, "Expected ')' after constructor arguments"}});
}

TEST(SyntaxDiagnosticsWire, ImportPathEndingInADot) {
    expectPublished("import a.;", {{1, 10, "Expected identifier after '.' in import path"}});
}

TEST(SyntaxDiagnosticsWire, ClassInterfaceListFaults) {
    expectPublished("class A : B, {}", {{1, 14, "Expected interface name after ','"}});
    expectPublished("class A implements {}", {{1, 20, "Expected interface name after 'implements'"}});
}

TEST(SyntaxDiagnosticsWire, NullableMarkBeforeArrayMarkIsATernary) {
    expectPublished("int?[] x;", {{1, 8, "Expected ':' in ternary operator"}});
}
