// Semantic errors as an editor sees them: each case opens one whole program
// over the wire and compares the published diagnostics byte for byte. Only
// the first failing stage is published (scanner, parser, name resolution,
// type checking), in the order of reporting, with the hint folded into the
// message.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "e2e/ServerProcess.h"

using quor::e2e::frame;
using quor::e2e::ProcessResult;
using quor::e2e::runServer;

namespace {

struct Place {
    int line;    // one-based, as the stages report it
    int column;  // one-based
};

struct Expected {
    Place place;
    std::string code;
    std::string message;
    std::string hint;
};

const std::string UNDEFINED = "Ensure the variable is declared before use";

// The place of the nth (one-based) occurrence of `needle` on `line` of `source`.
Place at(const std::string& source, int line, const std::string& needle, int nth = 1) {
    std::size_t start = 0;
    for (int current = 1; current < line; ++current) start = source.find('\n', start) + 1;
    std::size_t column = start - 1;
    for (int i = 0; i < nth; ++i) column = source.find(needle, column + 1);
    const std::size_t lineEnd = source.find('\n', start);
    if (column == std::string::npos || (lineEnd != std::string::npos && column >= lineEnd)) {
        ADD_FAILURE() << "no '" << needle << "' on line " << line;
        return {line, 0};
    }
    return {line, static_cast<int>(column - start) + 1};
}

std::string openMessage(const std::string& text) {
    std::string body(R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":)");
    body.append(R"({"uri":"file:///w/s.quor","languageId":"quor","version":1,"text":")");
    body.append(quor::e2e::escapeJsonText(text));
    body.append("\"}}}");
    return body;
}

// One published record: a range one column wide at the reported place,
// zero-based, and the hint in brackets behind the message.
std::string diagnosticJson(const Expected& d) {
    std::string message = d.message;
    if (!d.hint.empty()) message += " (" + d.hint + ")";
    const std::string line = std::to_string(d.place.line - 1);
    std::string json(R"({"code":")" + d.code + R"(","message":")");
    json.append(quor::e2e::escapeJsonText(message));
    json.append(R"(","range":{"end":{"character":)" + std::to_string(d.place.column) + R"(,"line":)" + line);
    json.append(R"(},"start":{"character":)" + std::to_string(d.place.column - 1) + R"(,"line":)" + line);
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
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, publication(diagnostics)) << "source:\n" << text;
}

void expectClean(const std::string& text) { expectPublished(text, {}); }

Expected undefinedName(const std::string& source, int line, const std::string& name, int nth = 1) {
    return {at(source, line, name, nth), "E1002", "Undefined variable or symbol '" + name + "'", UNDEFINED};
}

}  // namespace

// ---- Which stage is published ----

TEST(SemanticDiagnosticsWire, ACleanProgramPublishesAnEmptyList) {
    expectClean("fn add(a: int, b: int): int {\n    return a + b;\n}\n");
}

TEST(SemanticDiagnosticsWire, ALexicalErrorHidesTypeErrors) {
    const std::string source = "fn f(): int {\n    var s = \"open;\n    return true;\n}\n";
    expectPublished(source, {{at(source, 2, "\""), "E1000", "Unclosed string literal before newline",
                              "Close the string with a double quote '\"'"}});
}

TEST(SemanticDiagnosticsWire, ASyntaxErrorHidesUndefinedNamesAndTypeErrors) {
    const std::string source = "fn f(): int {\n    var x = missing\n    return \"s\";\n}\n";
    expectPublished(source, {{at(source, 3, "return"), "E1000", "Expected ';' after variable declaration", ""}});
}

TEST(SemanticDiagnosticsWire, AResolverErrorHidesCheckerErrors) {
    const std::string source = "class Derived extends Missing {\n    fn m(): int {\n        var x = null;\n"
                               "    }\n}\n";
    expectPublished(source, {{at(source, 1, "class"), "E1002", "Undefined base class or interface 'Missing'", ""}});
}

TEST(SemanticDiagnosticsWire, RecordsKeepTheirReportingOrderNotTheirPlaces) {
    // The short form below is settled before the function above it is
    // checked, and then checked again with the rest.
    const std::string source = "fn above() {\n    first;\n}\nfn shortOne() => \"a\" - 1;\n";
    const Expected mismatch{at(source, 4, "-"), "E1001", "Operator '-' cannot be applied to types 'string' and 'int'",
                            "Operands must be numeric"};
    expectPublished(source, {mismatch, undefinedName(source, 2, "first"), mismatch});
}

TEST(SemanticDiagnosticsWire, AChangeThatFixesTheLastErrorClearsTheList) {
    const std::string broken = "fn f(): int {\n    return \"s\";\n}\n";
    const std::string fixed = "fn f(): int {\n    return 1;\n}\n";
    std::string change(R"({"jsonrpc":"2.0","method":"textDocument/didChange","params":{"textDocument":)");
    change.append(R"({"uri":"file:///w/s.quor"},"contentChanges":[{"text":")");
    change.append(quor::e2e::escapeJsonText(fixed) + "\"}]}}");
    ProcessResult result = runServer(frame(openMessage(broken)) + frame(change));
    EXPECT_EQ(result.out, publication({{at(broken, 2, "return"), "E1005",
                                        "Return type mismatch: expected 'int', got 'string'", ""}}) +
                              publication({}));
}

// ---- Names and literals ----

TEST(SemanticDiagnosticsWire, ThisAtTopLevelOfAFunctionIsReported) {
    const std::string source = "fn f() {\n    var t = this;\n}\n";
    expectPublished(source,
                    {{at(source, 2, "this"), "E1001", "'this' cannot be used outside of an instance method", ""}});
}

TEST(SemanticDiagnosticsWire, SuperInAClassWithoutSuperclassIsReported) {
    const std::string source = "class Base {\n    fn m() {\n        var s = super;\n    }\n}\n";
    expectPublished(source, {{at(source, 3, "super"), "E1001", "'super' cannot be used outside of a subclass", ""}});
}

TEST(SemanticDiagnosticsWire, AnUndefinedNameCarriesItsHint) {
    const std::string source = "fn f() {\n    var x = nowhere;\n}\n";
    expectPublished(source, {undefinedName(source, 2, "nowhere")});
}

TEST(SemanticDiagnosticsWire, ALocalWinsOverAFieldAndAMethodNameIsNoValue) {
    const std::string source = "class Person {\n    string label;\n    fn helper() {}\n    fn m() {\n"
                               "        int label = 1;\n        int n = label;\n        var h = helper;\n    }\n}\n";
    expectPublished(source, {undefinedName(source, 7, "helper")});
}

TEST(SemanticDiagnosticsWire, LiteralsHaveTheirKindsTypes) {
    const std::string source = "fn f() {\n    float a = 1.5f;\n    float b = 1.5F;\n    int8 c = 10;\n"
                               "    bool d = 1.5;\n}\n";
    expectPublished(source, {{at(source, 5, "d"), "E1001",
                              "Type mismatch: cannot initialize variable of type 'bool' with value of type 'double'",
                              ""}});
}

// ---- Operators ----

TEST(SemanticDiagnosticsWire, StringConcatenationTakesAnythingEvenAVoidCall) {
    expectClean("fn nothing() {}\nfn f() {\n    string a = \"a\" + 1;\n    string b = 1 + \"a\";\n"
                "    string c = \"a\" + null;\n    string d = \"a\" + nothing();\n}\n");
}

TEST(SemanticDiagnosticsWire, RangeOfANonIntegerIsReportedAndSmallIntegersGiveIntArrays) {
    const std::string source = "fn f(x: uint8, y: uint8) {\n    int[] r = x .. y;\n    var bad = 1 .. 2.5;\n}\n";
    expectPublished(source, {{at(source, 3, ".."), "E1001",
                              "Range operator '..' requires integer operands, got 'int' and 'double'", ""}});
}

TEST(SemanticDiagnosticsWire, ArithmeticOnNonNumbersCarriesItsHint) {
    const std::string source = "fn f(a: any) {\n    var x = a + 1;\n    var y = true % 2;\n}\n";
    expectPublished(source,
                    {{at(source, 2, "+"), "E1001", "Operator '+' cannot be applied to types 'any' and 'int'",
                      "Operands must be numeric"},
                     {at(source, 3, "%"), "E1001", "Operator '%' cannot be applied to types 'bool' and 'int'",
                      "Operands must be numeric"}});
}

TEST(SemanticDiagnosticsWire, ComparisonOfNonNumbersCarriesItsHint) {
    const std::string source = "fn f() {\n    var x = \"a\" >= \"b\";\n}\n";
    expectPublished(source, {{at(source, 2, ">="), "E1001",
                              "Comparison operator '>=' cannot be applied to types 'string' and 'string'",
                              "Both operands must be numeric"}});
}

TEST(SemanticDiagnosticsWire, LogicalOperatorsNeedBool) {
    const std::string source = "fn f(a: bool?) {\n    var x = a && true;\n}\n";
    expectPublished(source, {{at(source, 2, "&&"), "E1001",
                              "Logical operator '&&' requires boolean operands, got 'bool?' and 'bool'", ""}});
}

TEST(SemanticDiagnosticsWire, EqualityOfNullAndANullableIsBoolAndIncompatibleTypesAreReported) {
    const std::string source = "fn f(x: int?) {\n    bool a = null == x;\n    bool b = x != null;\n"
                               "    var c = 1 == \"one\";\n}\n";
    expectPublished(source,
                    {{at(source, 4, "=="), "E1001", "Cannot compare incompatible types 'int' and 'string'", ""}});
}

TEST(SemanticDiagnosticsWire, BitwiseOperatorsNeedIntegers) {
    const std::string source = "fn f() {\n    var x = 1.5 ^ 2;\n}\n";
    expectPublished(source, {{at(source, 2, "^"), "E1001",
                              "Bitwise operator requires integer operands, got 'double' and 'int'", ""}});
}

TEST(SemanticDiagnosticsWire, AnErrorOperandGivesNoSecondReport) {
    const std::string source = "fn f() {\n    var x = gone * \"s\";\n    var y = 1 < gone;\n    var z = !gone;\n}\n";
    expectPublished(source,
                    {undefinedName(source, 2, "gone"), undefinedName(source, 3, "gone"),
                     undefinedName(source, 4, "gone")});
}

TEST(SemanticDiagnosticsWire, CoalescingANonNullableIsSilentAndGivesTheCommonType) {
    const std::string source = "fn f(a: int, b: double) {\n    double x = a ?? b;\n    int y = a ?? b;\n}\n";
    expectPublished(source, {{at(source, 3, "y"), "E1001",
                              "Type mismatch: cannot initialize variable of type 'int' with value of type 'double'",
                              ""}});
}

TEST(SemanticDiagnosticsWire, ABrokenTernaryConditionIsReportedAndTheResultIsStillDouble) {
    const std::string source = "fn f() {\n    int x = c ? 1 : 2.0;\n}\n";
    expectPublished(source,
                    {undefinedName(source, 2, "c"),
                     {at(source, 2, "?"), "E1001", "Ternary condition must be of type bool, got '<type-error>'", ""},
                     {at(source, 2, "x"), "E1001",
                      "Type mismatch: cannot initialize variable of type 'int' with value of type 'double'", ""}});
}

TEST(SemanticDiagnosticsWire, UnaryOperatorMessages) {
    const std::string source = "fn f(x: bool?, s: string) {\n    var a = !x;\n    var b = -s;\n    var c = ~1.5;\n"
                               "    s++;\n}\n";
    expectPublished(source,
                    {{at(source, 2, "!"), "E1001", "Logical negation '!' requires boolean operand, got 'bool?'", ""},
                     {at(source, 3, "-"), "E1001", "Unary operator '-' requires numeric operand, got 'string'", ""},
                     {at(source, 4, "~"), "E1001", "Bitwise NOT '~' requires integer operand, got 'double'", ""},
                     {at(source, 5, "++"), "E1001",
                      "Increment/decrement operator requires numeric operand, got 'string'", ""}});
}

TEST(SemanticDiagnosticsWire, ALongConcatenationIsCheckedToItsEnd) {
    std::string expression = "\"start\"";
    for (int i = 0; i < 100000; ++i) expression += " + x";
    const std::string source = "fn f(x: int) {\n    int s = " + expression + ";\n}\n";
    expectPublished(source, {{{2, 9}, "E1001",
                              "Type mismatch: cannot initialize variable of type 'int' with value of type 'string'",
                              ""}});
}

// ---- Local declarations ----

TEST(SemanticDiagnosticsWire, NullDeclarations) {
    const std::string source = "fn f() {\n    var x = null;\n    int y = null;\n    int? z = null;\n"
                               "    var w = x + 1;\n}\n";
    expectPublished(source,
                    {{at(source, 2, "var"), "E1001", "Cannot infer type from 'null' without explicit type annotation",
                      ""},
                     {at(source, 3, "y"), "E1008",
                      "Null safety violation: cannot assign null to non-nullable variable 'y' of type 'int'",
                      "Use 'int?' to declare a nullable variable"}});
}

TEST(SemanticDiagnosticsWire, IntegerLiteralsFitAnyIntegerButValuesGoThroughAssignability) {
    const std::string source = "fn f(someInt: int, small: uint8) {\n    uint8 a = 1000;\n    uint8 b = someInt;\n"
                               "    int c = small;\n}\n";
    expectPublished(source, {{at(source, 3, "b"), "E1001",
                              "Type mismatch: cannot initialize variable of type 'uint8' with value of type 'int'",
                              ""}});
}

TEST(SemanticDiagnosticsWire, FloatTakesDoubleLiteralsButNotDoubleValues) {
    const std::string source = "fn f(someDouble: double) {\n    float a = 1.5;\n    float b = someDouble;\n"
                               "    double d = 1;\n}\n";
    expectPublished(source, {{at(source, 3, "b"), "E1001",
                              "Type mismatch: cannot initialize variable of type 'float' with value of type 'double'",
                              ""}});
}

TEST(SemanticDiagnosticsWire, ConstNeedsATypeOrAValue) {
    const std::string source = "fn f() {\n    const c;\n    const int d;\n    let e;\n}\n";
    expectPublished(source,
                    {{at(source, 2, "const"), "E1001",
                      "Variable 'c' declared with 'var' or 'let' must have an initializer for type inference", ""},
                     {at(source, 4, "let"), "E1001",
                      "Variable 'e' declared with 'var' or 'let' must have an initializer for type inference", ""}});
}

TEST(SemanticDiagnosticsWire, DuplicateLocalsInOneBlockButShadowingInANestedOne) {
    const std::string source = "fn f() {\n    int x;\n    int x;\n    {\n        int x;\n    }\n}\n";
    expectPublished(source,
                    {{at(source, 3, "x"), "E1004", "Duplicate declaration of variable 'x' in this scope", ""}});
}

TEST(SemanticDiagnosticsWire, AnUndefinedTypeInADeclaration) {
    const std::string source = "fn f() {\n    Widget w;\n}\n";
    expectPublished(source,
                    {{at(source, 2, "w;"), "E1002", "Undefined type 'Widget' in declaration of variable 'w'", ""}});
}

// ---- Conditions and loops ----

TEST(SemanticDiagnosticsWire, ConditionMessagesOfEachStatement) {
    const std::string source = "fn f() {\n    if (1) {}\n    while (\"s\") {}\n    do {} while (2.0);\n"
                               "    for (; 'c';) {}\n}\n";
    expectPublished(source,
                    {{at(source, 2, "if"), "E1001", "If condition must be of type bool, got 'int'", ""},
                     {at(source, 3, "while"), "E1001", "While condition must be of type bool, got 'string'", ""},
                     {at(source, 4, "do"), "E1001", "Do-while condition must be of type bool, got 'double'", ""},
                     {at(source, 5, "for"), "E1001", "For loop condition must be of type bool, got 'char'", ""}});
}

TEST(SemanticDiagnosticsWire, AnUndefinedNameInAConditionIsReportedTwice) {
    const std::string source = "fn f() {\n    if (ready) {}\n}\n";
    expectPublished(source,
                    {undefinedName(source, 2, "ready"),
                     {at(source, 2, "if"), "E1001", "If condition must be of type bool, got '<type-error>'", ""}});
}

TEST(SemanticDiagnosticsWire, ForInOverAStringMapsAndArrays) {
    const std::string source = "fn f(s: string, someMap: Map<string, int>, intArray: int[]) {\n"
                               "    for (x in s) {}\n    for (k in someMap) {\n        int bad = k;\n    }\n"
                               "    for (string t in intArray) {\n        string fine = t;\n    }\n}\n";
    expectPublished(source,
                    {{at(source, 2, "for"), "E1001",
                      "For-in loop requires an iterable collection or array, got 'string'", ""},
                     {at(source, 4, "bad"), "E1001",
                      "Type mismatch: cannot initialize variable of type 'int' with value of type 'string'", ""}});
}

TEST(SemanticDiagnosticsWire, BreakAndContinueInsideAndOutsideLoopsAndSwitches) {
    const std::string source = "fn f(n: int) {\n    switch (n) {\n        case 1:\n            break;\n"
                               "        default:\n            continue;\n    }\n    break;\n"
                               "    while (true) {\n        continue;\n    }\n}\n";
    expectPublished(source,
                    {{at(source, 6, "continue"), "E1001", "'continue' statement outside of loop", ""},
                     {at(source, 8, "break"), "E1001", "'break' statement outside of loop or switch", ""}});
}

TEST(SemanticDiagnosticsWire, CaseValuesAndMatchPatternsOfAnotherType) {
    const std::string source = "fn f(n: int) {\n    switch (n) {\n        case \"one\":\n            break;\n    }\n"
                               "    match n {\n        true => {},\n        _ => {}\n    }\n}\n";
    expectPublished(source,
                    {{at(source, 2, "switch"), "E1001",
                      "Case value type 'string' does not match switch expression type 'int'", ""},
                     {at(source, 6, "match"), "E1001", "Match pattern type 'bool' does not match subject type 'int'",
                      ""}});
}

// ---- Returns ----

TEST(SemanticDiagnosticsWire, AReturnAtTopLevelIsNotChecked) {
    expectClean("return 1;\n");
}

TEST(SemanticDiagnosticsWire, ReturnMessages) {
    const std::string source = "fn v() {\n    return 1;\n}\nfn i(): int {\n    return;\n}\n"
                               "fn s(): string {\n    return 1;\n}\n";
    expectPublished(source,
                    {{at(source, 2, "return"), "E1005", "Void function cannot return a value", ""},
                     {at(source, 5, "return"), "E1005", "Non-void function must return a value of type 'int'", ""},
                     {at(source, 8, "return"), "E1005", "Return type mismatch: expected 'string', got 'int'", ""}});
}

TEST(SemanticDiagnosticsWire, IfWithReturnAndElseWithThrowIsAGuaranteedReturn) {
    expectClean("fn f(a: bool, x: int): int {\n    if (a) {\n        return 1;\n    } else {\n        throw x;\n"
                "    }\n}\n");
}

TEST(SemanticDiagnosticsWire, ElseIfWithoutFinalElseMissesAReturn) {
    const std::string source = "fn f(a: bool, b: bool): int {\n    if (a) {\n        return 1;\n"
                               "    } else if (b) {\n        return 2;\n    }\n}\n";
    expectPublished(source, {{at(source, 1, "fn"), "E1005",
                              "Missing return statement: function 'f' must return a value of type 'int' along all "
                              "code paths",
                              ""}});
}

TEST(SemanticDiagnosticsWire, LoopsSwitchesAndTriesNeverGuaranteeAReturn) {
    const std::string source = "fn w(): int {\n    while (true) {\n        return 1;\n    }\n}\n"
                               "fn t(): int {\n    try {\n        return 1;\n    } catch (string e) {\n"
                               "        return 2;\n    }\n}\n";
    expectPublished(source,
                    {{at(source, 1, "fn"), "E1005",
                      "Missing return statement: function 'w' must return a value of type 'int' along all code paths",
                      ""},
                     {at(source, 6, "fn"), "E1005",
                      "Missing return statement: function 't' must return a value of type 'int' along all code paths",
                      ""}});
}

TEST(SemanticDiagnosticsWire, ADeepElseIfChainAndDeepBlocksAreChecked) {
    std::string source = "fn f(n: int): int {\n";
    for (int i = 0; i < 3000; ++i) source += "{";
    source += "\nmissing;\n";
    for (int i = 0; i < 3000; ++i) source += "}";
    source += "\n    if (n == 0) {\n        return 0;\n    }";
    for (int i = 1; i < 3000; ++i) source += " else if (n == " + std::to_string(i) + ") {\n        return 1;\n    }";
    source += " else {\n        return 2;\n    }\n}\n";
    expectPublished(source, {{{3, 1}, "E1002", "Undefined variable or symbol 'missing'", UNDEFINED}});
}

// ---- Functions ----

TEST(SemanticDiagnosticsWire, AShortFormCalledFromAboveReturnsItsExpressionsType) {
    const std::string source = "fn caller() {\n    string s = later();\n}\nfn later() => 42;\n";
    expectPublished(source, {{at(source, 2, "s ="), "E1001",
                              "Type mismatch: cannot initialize variable of type 'string' with value of type 'int'",
                              ""}});
}

TEST(SemanticDiagnosticsWire, AShortFormMethodStaysVoidForItsCallers) {
    const std::string source = "class Counter {\n    fn total() => 42;\n}\nfn f(c: Counter) {\n"
                               "    int n = c.total();\n}\n";
    expectPublished(source, {{at(source, 5, "n ="), "E1001",
                              "Type mismatch: cannot initialize variable of type 'int' with value of type 'void'",
                              ""}});
}

TEST(SemanticDiagnosticsWire, AMismatchInsideAnUnannotatedShortFormIsReportedTwice) {
    const std::string source = "fn twice() => true - 1;\n";
    const Expected mismatch{at(source, 1, "-"), "E1001", "Operator '-' cannot be applied to types 'bool' and 'int'",
                            "Operands must be numeric"};
    expectPublished(source, {mismatch, mismatch});
}

TEST(SemanticDiagnosticsWire, AShortFormDeclaredIntWithAStringKeepsItsType) {
    const std::string source = "fn count(): int => \"many\";\nfn f() {\n    int n = count();\n}\n";
    expectPublished(source, {{at(source, 1, "fn"), "E1005",
                              "Short function body return type mismatch: expected 'int', got 'string'", ""}});
}

TEST(SemanticDiagnosticsWire, DuplicateParametersReportTheSecondAndTheBodySeesTheFirst) {
    const std::string source = "fn pair(a: int, a: string) {\n    int x = a;\n}\n";
    expectPublished(source, {{at(source, 1, "fn"), "E1004", "Duplicate parameter name 'a' in function 'pair'", ""}});
}

TEST(SemanticDiagnosticsWire, AStringDefaultForAnIntParameter) {
    const std::string source = "fn f(a: int = \"s\") {\n}\n";
    expectPublished(source,
                    {{at(source, 1, "fn"), "E1001", "Default value type 'string' does not match parameter type 'int'",
                      ""}});
}

TEST(SemanticDiagnosticsWire, AMissingReturnIsReportedButNotForAnAbstractMethod) {
    const std::string source = "fn f(): int {\n}\nabstract class Shape {\n    abstract fn area(): float;\n}\n";
    expectPublished(source, {{at(source, 1, "fn"), "E1005",
                              "Missing return statement: function 'f' must return a value of type 'int' along all "
                              "code paths",
                              ""}});
}

// ---- Classes and interfaces ----

TEST(SemanticDiagnosticsWire, AnAbstractClassMayLeaveAnInterfaceMethodOpen) {
    const std::string source = "interface Shape {\n    fn area(): float;\n}\nabstract class Base implements Shape {\n"
                               "}\nclass Square extends Base {\n}\nclass Circle extends Base implements Shape {\n}\n";
    expectPublished(source, {{at(source, 8, "class"), "E1001",
                              "Class 'Circle' does not implement interface method 'area': fn() -> float from "
                              "interface 'Shape'",
                              ""}});
}

TEST(SemanticDiagnosticsWire, AWiderReturnTypeDoesNotImplementAnInterfaceMethod) {
    const std::string source = "interface Counter {\n    fn count(): int;\n}\nclass Impl implements Counter {\n"
                               "    fn count(): int64 {\n        return 1;\n    }\n}\n";
    expectPublished(source, {{at(source, 4, "class"), "E1001",
                              "Class 'Impl' does not implement interface method 'count': fn() -> int from interface "
                              "'Counter'",
                              ""}});
}

TEST(SemanticDiagnosticsWire, FieldInitializersOfTheWrongTypeAndOfUntypedFields) {
    const std::string source = "class Settings {\n    int retries = \"three\";\n    var name = \"x\";\n}\n";
    expectPublished(source,
                    {{at(source, 2, "retries"), "E1001",
                      "Type mismatch in field initializer for 'retries': expected 'int', got 'string'", ""},
                     {at(source, 3, "var"), "E1001",
                      "Type mismatch in field initializer for 'name': expected 'void', got 'string'", ""}});
}

TEST(SemanticDiagnosticsWire, TheExamplesOfTheTourAreClean) {
    expectClean("/// A point.\nstruct Point {\n    x: float;\n    y: float;\n}\ninterface Shape {\n"
                "    fn area(): float;\n}\nclass Circle implements Shape {\n    private float radius;\n"
                "    Circle(float radius) {\n        this.radius = radius;\n    }\n"
                "    public fn area(): float {\n        return 3.14159f * radius * radius;\n    }\n}\n"
                "enum Colour { Red, Green = 2, Blue }\nconst LIMIT = 10;\n"
                "test \"area\" {\n    assert(new Circle(1.0f).area() > 0.0);\n}\n");
}
