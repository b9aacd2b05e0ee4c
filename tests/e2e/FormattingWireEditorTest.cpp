// Formatting as an editor sees it: a full session (initialize, open or
// change, format, shutdown) against the real binary, with the answer bytes
// worked out by hand from the formatter's token rules.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "e2e/ServerProcess.h"

using quor::e2e::frame;
using quor::e2e::ProcessResult;
using quor::e2e::runServer;
using quor::e2e::splitFramed;

namespace {

const std::string DOC_URI = "file:///work/demo.quor";

// Writes `text` as a JSON string literal the way a client would send it.
std::string clientString(const std::string& text) {
    std::string out = "\"";
    for (char c : text) {
        switch (c) {
            case '"': out.append("\\\""); break;
            case '\\': out.append("\\\\"); break;
            case '\n': out.append("\\n"); break;
            case '\r': out.append("\\r"); break;
            case '\t': out.append("\\t"); break;
            default: out.push_back(c); break;
        }
    }
    out.push_back('"');
    return out;
}

// Writes `text` as the server writes a string value: the short escapes, other
// control bytes as \u00xx, everything else raw.
std::string serverString(const std::string& text) {
    static const char HEX[] = "0123456789abcdef";
    std::string out = "\"";
    for (char c : text) {
        unsigned char byte = static_cast<unsigned char>(c);
        switch (c) {
            case '"': out.append("\\\""); break;
            case '\\': out.append("\\\\"); break;
            case '\b': out.append("\\b"); break;
            case '\f': out.append("\\f"); break;
            case '\n': out.append("\\n"); break;
            case '\r': out.append("\\r"); break;
            case '\t': out.append("\\t"); break;
            default:
                if (byte < 0x20) {
                    out.append("\\u00");
                    out.push_back(HEX[byte >> 4]);
                    out.push_back(HEX[byte & 15]);
                } else {
                    out.push_back(c);
                }
                break;
        }
    }
    out.push_back('"');
    return out;
}

std::string openMessage(const std::string& uri, const std::string& text) {
    std::string open = R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":")";
    open.append(uri).append(R"(","languageId":"quor","version":1,"text":)").append(clientString(text)).append("}}}");
    return open;
}

std::string formattingRequest(const std::string& uri, const std::string& options) {
    std::string request = R"({"jsonrpc":"2.0","id":7,"method":"textDocument/formatting","params":{"textDocument":{"uri":")";
    request.append(uri).append(R"("},"options":)").append(options).append("}}");
    return request;
}

const std::string EDITOR_OPTIONS = R"({"tabSize":4,"insertSpaces":true})";

// Runs a whole editor session around `middle` and returns the answer to request 7.
std::string answerOf(const std::string& middle) {
    std::string input = frame(R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{"capabilities":{}}})");
    input.append(frame(R"({"jsonrpc":"2.0","method":"initialized","params":{}})"));
    input.append(middle);
    input.append(frame(R"({"jsonrpc":"2.0","id":99,"method":"shutdown"})"));
    input.append(frame(R"({"jsonrpc":"2.0","method":"exit"})"));
    ProcessResult result = runServer(input);
    EXPECT_FALSE(result.timedOut);
    EXPECT_TRUE(result.exited);
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.err, "");
    for (const std::string& body : splitFramed(result.out)) {
        if (body.rfind(R"({"id":7,)", 0) == 0) return body;
    }
    return "<no answer>";
}

// Opens `text` and asks to format it.
std::string formatOverWire(const std::string& text, const std::string& options = EDITOR_OPTIONS) {
    return answerOf(frame(openMessage(DOC_URI, text)) + frame(formattingRequest(DOC_URI, options)));
}

std::string editAnswer(const std::string& newText, std::size_t endLine, std::size_t endCharacter) {
    std::string answer = R"({"id":7,"jsonrpc":"2.0","result":[{"newText":)";
    answer.append(serverString(newText))
        .append(R"(,"range":{"end":{"character":)")
        .append(std::to_string(endCharacter))
        .append(R"(,"line":)")
        .append(std::to_string(endLine))
        .append(R"(},"start":{"character":0,"line":0}}}]})");
    return answer;
}

// The edit covers the old text up to its end: the count of line feeds, and
// the bytes behind the last one.
std::string expectedFor(const std::string& oldText, const std::string& newText) {
    std::size_t lines = 0;
    for (char c : oldText) lines += c == '\n' ? 1 : 0;
    std::size_t lastFeed = oldText.rfind('\n');
    std::size_t character = lastFeed == std::string::npos ? oldText.size() : oldText.size() - lastFeed - 1;
    return editAnswer(newText, lines, character);
}

void expectFormats(const std::string& source, const std::string& formatted) {
    EXPECT_EQ(formatOverWire(source), expectedFor(source, formatted)) << "source: " << source;
}

}  // namespace

// ---- The request itself --------------------------------------------------

TEST(FormattingWireEditorRequest, SingleLetterWithoutLineFeedEndsAtColumnOne) {
    EXPECT_EQ(formatOverWire("a"), editAnswer("a\n", 0, 1));
}

TEST(FormattingWireEditorRequest, TwoLinesEndAtLineTwoAndGlueTheIdentifiers) {
    EXPECT_EQ(formatOverWire("a\nb\n"), editAnswer("ab\n", 2, 0));
}

TEST(FormattingWireEditorRequest, UnknownUriAnswersEmptyArray) {
    std::string middle = frame(openMessage(DOC_URI, "x;")) +
                         frame(formattingRequest("file:///work/other.quor", EDITOR_OPTIONS));
    EXPECT_EQ(answerOf(middle), R"({"id":7,"jsonrpc":"2.0","result":[]})");
}

TEST(FormattingWireEditorRequest, EmptyDocumentAnswersEmptyArray) {
    EXPECT_EQ(formatOverWire(""), R"({"id":7,"jsonrpc":"2.0","result":[]})");
}

TEST(FormattingWireEditorRequest, ClientTabSizeAndTabsAreIgnored) {
    std::string source = "fn f() {\nx();\n}";
    std::string expected = expectedFor(source, "fn f() {\n    x();\n}\n");
    EXPECT_EQ(formatOverWire(source, R"({"tabSize":2,"insertSpaces":false})"), expected);
    EXPECT_EQ(formatOverWire(source, R"({"tabSize":8,"insertSpaces":true,"trimTrailingWhitespace":true})"), expected);
    EXPECT_EQ(formatOverWire(source, "null"), expected);
}

TEST(FormattingWireEditorRequest, AlreadyFormattedTextStillGetsAnEdit) {
    expectFormats("x = 1;\n", "x = 1;\n");
}

TEST(FormattingWireEditorRequest, UsesTheTextOfTheLatestChange) {
    std::string change = R"({"jsonrpc":"2.0","method":"textDocument/didChange","params":{"textDocument":{"uri":")";
    change.append(DOC_URI).append(R"(","version":2},"contentChanges":[{"text":"a=b;\nc"}]})");
    std::string middle = frame(openMessage(DOC_URI, "old")) + frame(change) +
                         frame(formattingRequest(DOC_URI, EDITOR_OPTIONS));
    EXPECT_EQ(answerOf(middle), editAnswer("a = b;\nc\n", 1, 1));
}

TEST(FormattingWireEditorRequest, ScannerErrorReturnsTheTextUnchanged) {
    expectFormats("let s = \"abc\nx=1;", "let s = \"abc\nx=1;");
    expectFormats("x # y", "x # y");
    expectFormats("/* never closed\nfn f(){}", "/* never closed\nfn f(){}");
    expectFormats("let c = '';", "let c = '';");
}

TEST(FormattingWireEditorRequest, NonAsciiOutsideStringsIsAScannerError) {
    expectFormats("let caf\xC3\xA9 = 1;", "let caf\xC3\xA9 = 1;");
}

TEST(FormattingWireEditorRequest, EndCharacterCountsBytes) {
    std::string source = "x=\"\xC3\xA9\"";
    EXPECT_EQ(formatOverWire(source), editAnswer("x = \xC3\xA9\n", 0, 6));
}

TEST(FormattingWireEditorRequest, CrLfLineEndsBecomeLineFeeds) {
    std::string source = "a;\r\nb;\r\n";
    EXPECT_EQ(formatOverWire(source), editAnswer("a;\nb;\n", 2, 0));
    expectFormats("a;\r\n\r\n\r\n\r\nb;", "a;\n\nb;\n");
}

TEST(FormattingWireEditorRequest, CarriageReturnStaysInsideALineComment) {
    std::string source = "// note\r\nx;";
    EXPECT_EQ(formatOverWire(source), editAnswer("// note\r\nx;\n", 1, 2));
}

// ---- Lexemes ----------------------------------------------------------------

TEST(FormattingWireEditorLexemes, StringsAndCharsAreWrittenAsTheirContent) {
    expectFormats("print(\"hello, world\");", "print(hello, world);\n");
    expectFormats("let c = 'x';", "let c = x;\n");
    expectFormats("s = \"a\\tb\\n\";", "s = a\tb\n;\n");
    expectFormats("s = \"\";", "s = ;\n");
    expectFormats("s = \"\\q\";", "s = \\q;\n");
    expectFormats("s = \"\\u0041\";", "s = A;\n");
}

TEST(FormattingWireEditorLexemes, InterpolationTextIsKeptAsContent) {
    expectFormats("greet(\"Hi ${name}!\");", "greet(Hi ${name}!);\n");
}

TEST(FormattingWireEditorLexemes, NumbersKeepTheirRawText) {
    expectFormats("x=0xFF+1_000+2.5e-3f;", "x = 0xFF + 1_000 + 2.5e-3f;\n");
}

TEST(FormattingWireEditorLexemes, TabsAndLeadingBlankLinesVanish) {
    expectFormats("\n\n\n\tx;\t", "x;\n");
}

// ---- Layout -----------------------------------------------------------------

TEST(FormattingWireEditorLayout, IfElseOnOneLineBecomesFiveLines) {
    expectFormats("if(a){b();}else{c();}", "if (a) {\n    b();\n} else {\n    c();\n}\n");
}

TEST(FormattingWireEditorLayout, IfElseIfChain) {
    expectFormats("if (a) { x(); } else if (b) { y(); } else { z(); }",
                  "if (a) {\n    x();\n} else if (b) {\n    y();\n} else {\n    z();\n}\n");
}

TEST(FormattingWireEditorLayout, ClassWithFieldAndMethod) {
    std::string source = "class Point {\n  x: int;\n  fn len(): int { return x * x; }\n}\n";
    expectFormats(source, "class Point {\n    x: int;\n    fn len(): int {\n        return x * x;\n    }\n}\n");
}

TEST(FormattingWireEditorLayout, ExtendsGluesToThePrecedingIdentifier) {
    expectFormats("class Foo extends Bar {}", "class Fooextends Bar {\n}\n");
}

TEST(FormattingWireEditorLayout, ThreeBlankLinesShrinkToOne) {
    expectFormats("a;\n\n\n\nb;", "a;\n\nb;\n");
}

TEST(FormattingWireEditorLayout, BlankLineAfterOpeningBraceIsKept) {
    expectFormats("fn f() {\n\n    x;\n}", "fn f() {\n\n    x;\n}\n");
}

TEST(FormattingWireEditorLayout, BlankLineBetweenTokensOfOneLineBreaksIt) {
    expectFormats("a\n\nb", "a\n\nb\n");
}

TEST(FormattingWireEditorLayout, ForHeaderKeepsItsSemicolonsOnOneLine) {
    expectFormats("for(i=0;i<n;i++){\nf(a);\ng(b);\n}",
                  "for (i = 0; i < n; i++) {\n    f(a);\n    g(b);\n}\n");
}

TEST(FormattingWireEditorLayout, EmptyForHeader) {
    expectFormats("for(;;){}", "for (; ; ) {\n}\n");
}

TEST(FormattingWireEditorLayout, AfterAForSemicolonsInsideParenthesesStayOnTheirLine) {
    expectFormats("for (;;) {}\nf(() => { a; b; });", "for (; ; ) {\n}\nf(() => {\n    a; b; \n});\n");
}

TEST(FormattingWireEditorLayout, WithoutAForSemicolonsInsideParenthesesBreakLines) {
    expectFormats("f(() => { a; b; });", "f(() => {\n    a;\n    b;\n});\n");
}

TEST(FormattingWireEditorLayout, ForInGluesTheWords) {
    expectFormats("for (i in 0..n) {}", "for (iin0..n) {\n}\n");
    expectFormats("for item in items {}", "for iteminitems {\n}\n");
}

TEST(FormattingWireEditorLayout, SwitchWithCasesAndDefault) {
    expectFormats("switch(x){case 1: a(); break; default: b();}",
                  "switch (x) {\n    case 1: a();\n    break;\n    default : b();\n}\n");
}

TEST(FormattingWireEditorLayout, MatchArmsStayOnOneLine) {
    expectFormats("match (v) { 1 => a, _ => b }", "match (v) {\n    1 => a, _ => b\n}\n");
}

TEST(FormattingWireEditorLayout, TryCatchFinally) {
    expectFormats("try { a(); } catch (e) { b(); } finally { c(); }",
                  "try {\n    a();\n} catch (e) {\n    b();\n} finally {\n    c();\n}\n");
}

TEST(FormattingWireEditorLayout, DoWhilePutsWhileOnItsOwnLine) {
    expectFormats("do { x(); } while (a);", "do {\n    x();\n}\nwhile (a);\n");
}

TEST(FormattingWireEditorLayout, BraceBeforeCommaOrSemicolonStaysOnItsLine) {
    expectFormats("x = {a: 1};", "x = {\n    a: 1\n};\n");
    expectFormats("enum Color { Red, Green }", "enum Color {\n    Red, Green\n}\n");
    expectFormats("f({}, 1);", "f( {\n}, 1);\n");
}

TEST(FormattingWireEditorLayout, UnbalancedBracesClampTheIndent) {
    expectFormats("}}x;", "}\n}\nx;\n");
    expectFormats("{{{", "{\n    {\n        {\n");
}

TEST(FormattingWireEditorLayout, DeepNestingIsFormatted) {
    std::string source(300, '{');
    source.append(300, '}');
    std::string expected;
    for (int level = 0; level < 300; ++level) expected.append(static_cast<std::size_t>(level) * 4, ' ').append("{\n");
    for (int level = 299; level >= 0; --level) expected.append(static_cast<std::size_t>(level) * 4, ' ').append("}\n");
    expectFormats(source, expected);
}

TEST(FormattingWireEditorLayout, HalfTypedFunction) {
    expectFormats("fn main() {\n  let x = foo(", "fn main() {\n    let x = foo(\n");
}

// ---- Comments ---------------------------------------------------------------

// A block comment keeps the line of its first byte, so the token after a
// two-line comment looks two lines away and gets a blank line.
TEST(FormattingWireEditorComments, OnlyCommentsEachOnItsOwnLine) {
    expectFormats("// a\n/* b\n   c */\n/// d", "// a\n/* b\n   c */\n\n/// d\n");
}

TEST(FormattingWireEditorComments, BlockCommentInnerLinesAreNotReindented) {
    expectFormats("{\n/* x\n y */\n}", "{\n    /* x\n y */\n\n}\n");
    expectFormats("{\n/* x */\n}", "{\n    /* x */\n}\n");
}

TEST(FormattingWireEditorComments, SemicolonAfterCommentStartsItsLineWithoutIndent) {
    expectFormats("{\nx // c\n;\n}", "{\n    x // c\n;\n}\n");
}

TEST(FormattingWireEditorComments, TrailingCommentAfterStatementMovesToNextLine) {
    expectFormats("/// Adds.\nfn add(a: int, b: int): int {\n    return a + b; // sum\n}",
                  "/// Adds.\nfn add(a: int, b: int): int {\n    return a + b;\n    // sum\n}\n");
}

TEST(FormattingWireEditorComments, CodeAfterABlockCommentStartsANewLine) {
    expectFormats("/* c */ x;", "/* c */\nx;\n");
    expectFormats("x /* c */ y;", "x /* c */\ny;\n");
}

TEST(FormattingWireEditorComments, CommentAfterOpeningBraceIsIndented) {
    expectFormats("fn f() { // c\nx;\n}", "fn f() {\n    // c\n    x;\n}\n");
}

TEST(FormattingWireEditorComments, CommentBetweenBraceAndElse) {
    expectFormats("if (a) {\n} // c\nelse {\n}", "if (a) {\n}\n// c\nelse {\n}\n");
}

TEST(FormattingWireEditorComments, BlankLinesAroundCommentsAreLimited) {
    expectFormats("// c\n\n\nx;\n\n\n\n// d", "// c\n\nx;\n\n// d\n");
}

// ---- Spacing ----------------------------------------------------------------

TEST(FormattingWireEditorSpacing, AssignmentOfANegation) {
    expectFormats("a=-b", "a = -b\n");
    expectFormats("x--;", "x--;\n");
}

TEST(FormattingWireEditorSpacing, PrefixAfterCommaOrColonIsTight) {
    expectFormats("f(a, -b)", "f(a,-b)\n");
    expectFormats("x: -1", "x:-1\n");
}

TEST(FormattingWireEditorSpacing, MinusStartingAStatementIsSpacedFromItsOperand) {
    expectFormats("a;\n-x;", "a;\n- x;\n");
}

TEST(FormattingWireEditorSpacing, CallAndIndexAfterAParenthesis) {
    expectFormats("foo()()", "foo() ()\n");
    expectFormats("foo()[0]", "foo() [0]\n");
    expectFormats("f()[0][1]", "f() [0] [1]\n");
    expectFormats("a[b[c]]", "a[b[c]]\n");
    expectFormats("f().x;f()?.y;a[0].b;", "f().x;\nf()?.y;\na[0].b;\n");
}

TEST(FormattingWireEditorSpacing, MemberAccessAndRangesStayTight) {
    expectFormats("a.b", "a.b\n");
    expectFormats("a?.b", "a?.b\n");
    expectFormats("1..2", "1..2\n");
}

TEST(FormattingWireEditorSpacing, SuperAndThisAreKeywords) {
    expectFormats("super(x)", "super (x)\n");
    expectFormats("this.x", "this .x\n");
}

TEST(FormattingWireEditorSpacing, PrefixOperatorChains) {
    expectFormats("a = !!b;", "a = !!b;\n");
    expectFormats("x = - -y;", "x = --y;\n");
    expectFormats("a - -b;", "a - -b;\n");
    expectFormats("i++ + 1;", "i++ + 1;\n");
    expectFormats("return -x;", "return -x;\n");
    expectFormats("if (!done) {}", "if (!done) {\n}\n");
}

TEST(FormattingWireEditorSpacing, MinusAfterCaseIsABinaryOperator) {
    expectFormats("case -1:", "case - 1:\n");
}

TEST(FormattingWireEditorSpacing, TypesGenericsAndNullables) {
    expectFormats("let xs: List<int> = [1, 2];", "let xs: List < int > = [1, 2];\n");
    expectFormats("let s: string? = null;", "let s: string ? = null;\n");
    expectFormats("let m: Map<string, List<int>> = x;", "let m: Map < string, List < int >> = x;\n");
}

TEST(FormattingWireEditorSpacing, TernaryAndNullCoalescing) {
    expectFormats("r = a?b:c;", "r = a ? b: c;\n");
    expectFormats("r = a??b;", "r = a ?? b;\n");
}

TEST(FormattingWireEditorSpacing, LambdaAndNew) {
    expectFormats("let f = (a,b)=>a+b;", "let f = (a, b) => a + b;\n");
    expectFormats("let p=new Point(1,2);", "let p = new Point(1, 2);\n");
    expectFormats("fn g() -> int {}", "fn g() -> int {\n}\n");
}

TEST(FormattingWireEditorSpacing, AnnotationAndTestDeclaration) {
    expectFormats("@deprecated fn f() {}", "@ deprecatedfn f() {\n}\n");
    expectFormats("test \"adds\" { assert(add(1, 2) == 3); }", "test adds {\n    assert (add(1, 2) == 3);\n}\n");
}

TEST(FormattingWireEditorSpacing, CompoundAssignmentsAndShifts) {
    expectFormats("x+=1;y<<=2;z>>=3;", "x += 1;\ny << = 2;\nz >> = 3;\n");
}

// ---- Corners of the token walk ----------------------------------------------

TEST(FormattingWireEditorCorners, WhitespaceOnlyDocumentBecomesEmptyText) {
    EXPECT_EQ(formatOverWire("   \n\n  "), editAnswer("", 2, 2));
}

TEST(FormattingWireEditorCorners, LoneCommentGetsAFinalLineFeed) {
    expectFormats("// x", "// x\n");
    expectFormats("x;\r", "x;\n");
}

TEST(FormattingWireEditorCorners, EmptyStringFirstLeavesTheOutputEmpty) {
    expectFormats("\"\"\n\n\nx;", "\nx;\n");
    expectFormats("\"\" x;", "x;\n");
    expectFormats("\"\" + x;", "+ x;\n");
    expectFormats("\"\" // c", "// c\n");
}

TEST(FormattingWireEditorCorners, SpaceInsideAStringCountsForTheNextDecision) {
    expectFormats("x = \"a \" + b;", "x = a + b;\n");
    expectFormats("s = \"x\\n\" {}", "s = x\n{\n}\n");
    expectFormats("s = \"x\\n\" + b;", "s = x\n+ b;\n");
}

TEST(FormattingWireEditorCorners, RawControlByteInAStringIsEscapedOnTheWayOut) {
    expectFormats("s = \"a\x01" "b\x7f\";", "s = a\x01" "b\x7f;\n");
}

TEST(FormattingWireEditorCorners, BlankLineInsideAnExpressionBreaksIt) {
    expectFormats("x =\n\n1;", "x =\n\n1;\n");
    expectFormats("a;\n\nb;", "a;\n\nb;\n");
}

TEST(FormattingWireEditorCorners, NestedBlockCommentIsOneToken) {
    expectFormats("/* a /* b */ c */ x", "/* a /* b */ c */\nx\n");
}

TEST(FormattingWireEditorCorners, PrefixAtTheVeryStart) {
    expectFormats("-x;", "-x;\n");
    expectFormats("a;\n++i;", "a;\n++i;\n");
    expectFormats("x = -(a);", "x = -(a);\n");
}

TEST(FormattingWireEditorCorners, PrefixInsideBracketsAndCalls) {
    expectFormats("a[-1];", "a[-1];\n");
    expectFormats("f(++i);", "f(++i);\n");
    expectFormats("if (-x > 0) {}", "if (-x > 0) {\n}\n");
    expectFormats("x = ~y;", "x = ~y;\n");
    expectFormats("a~b;", "a~b;\n");
}

TEST(FormattingWireEditorCorners, PrefixAfterArrowsAndCoalescing) {
    expectFormats("f = x => -x;", "f = x => -x;\n");
    expectFormats("y = a ?? -1;", "y = a ?? -1;\n");
}

TEST(FormattingWireEditorCorners, MinusAfterQuestionMarkIsBinary) {
    expectFormats("y = a ? -1 : -2;", "y = a ? - 1:-2;\n");
}

TEST(FormattingWireEditorCorners, AfterClosingParenthesisOrBracket) {
    expectFormats("(a)b", "(a) b\n");
    expectFormats("[a]:b", "[a] : b\n");
    expectFormats("(a)?b:c", "(a) ? b: c\n");
    expectFormats("a[0]?.b", "a[0]?.b\n");
    expectFormats("f()..g()", "f() ..g()\n");
    expectFormats("a[0]..b", "a[0] ..b\n");
}

TEST(FormattingWireEditorCorners, KeywordsAgainstLiterals) {
    expectFormats("a = true.x + null.y;", "a = true.x + null .y;\n");
    expectFormats("f(this, null, false);", "f(this, null, false);\n");
    expectFormats("let a: int[] = x;", "let a: int [] = x;\n");
    expectFormats("return;", "return;\n");
}

TEST(FormattingWireEditorCorners, DoubleColon) {
    expectFormats("a::b", "a: : b\n");
}

TEST(FormattingWireEditorCorners, SemicolonInsideParenthesesWithoutFor) {
    expectFormats("f(a;b);", "f(a;\nb);\n");
}

TEST(FormattingWireEditorCorners, StrayClosingParenthesesDoNotGoBelowZero) {
    expectFormats("))\nfor(;;){}\nf(a;b);", ")) for (; ; ) {\n}\nf(a; b);\n");
}

TEST(FormattingWireEditorCorners, BrokenSyntaxIsStillFormatted) {
    expectFormats("fn (((", "fn (((\n");
}

TEST(FormattingWireEditorCorners, ByteOrderMarkIsAScannerError) {
    expectFormats("\xEF\xBB\xBFx;", "\xEF\xBB\xBFx;");
}

// ---- Whole programs -----------------------------------------------------------

TEST(FormattingWireEditorProgram, InterfaceClassAndLoop) {
    std::string source =
        "/// A shape.\n"
        "interface Shape {\n"
        "    fn area(): double;\n"
        "}\n"
        "\n"
        "class Circle implements Shape {\n"
        "    private r: double;\n"
        "\n"
        "    fn area(): double {\n"
        "        return 3.14 * r * r; // approx\n"
        "    }\n"
        "}\n"
        "\n"
        "fn total(shapes: List<Shape>): double {\n"
        "    var sum = 0.0;\n"
        "    for (var i = 0; i < shapes.size(); i++) {\n"
        "        if (shapes[i] == null) { continue; }\n"
        "        else if (i > 10) { break; }\n"
        "        sum += shapes[i].area();\n"
        "    }\n"
        "    let f = (x: double) => x * 2.0;\n"
        "    return f(sum);\n"
        "}\n";
    std::string formatted =
        "/// A shape.\n"
        "interface Shape {\n"
        "    fn area(): double;\n"
        "}\n"
        "\n"
        "class Circleimplements Shape {\n"
        "    private r: double;\n"
        "\n"
        "    fn area(): double {\n"
        "        return 3.14 * r * r;\n"
        "        // approx\n"
        "    }\n"
        "}\n"
        "\n"
        "fn total(shapes: List < Shape >): double {\n"
        "    var sum = 0.0;\n"
        "    for (var i = 0; i < shapes.size(); i++) {\n"
        "        if (shapes[i] == null) {\n"
        "            continue;\n"
        "        } else if (i > 10) {\n"
        "            break;\n"
        "        }\n"
        "        sum += shapes[i].area();\n"
        "    }\n"
        "    let f = (x: double) => x * 2.0;\n"
        "    return f(sum);\n"
        "}\n";
    expectFormats(source, formatted);
}

TEST(FormattingWireEditorProgram, LambdaBodyAfterAForLoopKeepsItsStatementsTogether) {
    std::string source =
        "fn main() {\n"
        "    for (let x in xs) { print(x); }\n"
        "    run(() => { a(); b(); });\n"
        "}\n";
    std::string formatted =
        "fn main() {\n"
        "    for (let xinxs) {\n"
        "        print(x);\n"
        "    }\n"
        "    run(() => {\n"
        "        a(); b(); \n"
        "    });\n"
        "}\n";
    expectFormats(source, formatted);
}

// ---- More lexemes and boundaries ----------------------------------------------

TEST(FormattingWireEditorLexemes, DecodedBytesGoOutRawOrEscaped) {
    expectFormats("s = \"\\uD83D\\uDE00\";", "s = \xED\xA0\xBD\xED\xB8\x80;\n");
    expectFormats("s = \"\\u00e9\";", "s = \xC3\xA9;\n");
    expectFormats("s = \"\\$x\";", "s = \\$x;\n");
    EXPECT_EQ(formatOverWire("s = \"a\\0b\";"), expectedFor("s = \"a\\0b\";", std::string("s = a\0b;\n", 9)));
}

TEST(FormattingWireEditorLexemes, CharLiteralsCarryTheirDecodedByte) {
    expectFormats("c = '\\n';", "c = \n;\n");
    expectFormats("c = '\n'; x;", "c = \n;\nx;\n");
    expectFormats("c = '\\q';", "c = q;\n");
}

TEST(FormattingWireEditorLexemes, CommentsKeepArbitraryBytes) {
    expectFormats("// caf\xC3\xA9 \xFF\nx;", "// caf\xC3\xA9 \xFF\nx;\n");
    expectFormats("x; /// doc", "x;\n/// doc\n");
    expectFormats("//// four", "//// four\n");
}

TEST(FormattingWireEditorLexemes, NumbersSplitByTheScannerStayTogether) {
    expectFormats("x = 0b102;", "x = 0b102;\n");
    expectFormats("x = 10f;", "x = 10f;\n");
    expectFormats("x = 1.foo;", "x = 1.foo;\n");
}

TEST(FormattingWireEditorCorners, ForNestedInParenthesesIsForgottenAtItsOwnDepth) {
    expectFormats("f(for(;;));g(a;b);", "f(for (; ; ));\ng(a;\nb);\n");
}

TEST(FormattingWireEditorCorners, KeywordRangeEnds) {
    expectFormats("true x;", "truex;\n");
    expectFormats("byte x;", "byte x;\n");
    expectFormats("this?.x;", "this ?.x;\n");
    expectFormats("let s: string? x;", "let s: string ? x;\n");
}

TEST(FormattingWireEditorCorners, IndexingChainsAreSpaced) {
    expectFormats("m[i][j] = 0;", "m[i] [j] = 0;\n");
    expectFormats("a[0](1);", "a[0] (1);\n");
    expectFormats("[1, 2] x", "[1, 2] x\n");
}

// ---- Operator tables ----------------------------------------------------------

// The two-operand operators that get a space on both sides.
const char* const SPACED_OPERATOR_TEXTS[] = {"+",  "-",  "*",  "/",  "%",  "==", "!=", "<",  ">",
                                             "<=", ">=", "&&", "||", "&",  "|",  "^",  "<<", ">>",
                                             "=",  "+=", "-=", "*=", "/=", "%=", "->", "=>", "??"};

TEST(FormattingWireEditorOperators, EverySpacedOperatorGetsSpacesOnBothSides) {
    std::string source;
    std::string formatted;
    for (const char* op : SPACED_OPERATOR_TEXTS) {
        source.append("a").append(op).append("b;");
        formatted.append("a ").append(op).append(" b;\n");
    }
    expectFormats(source, formatted);
}

TEST(FormattingWireEditorOperators, PrefixBehindEverySpacedOperatorIsSpacedFromIt) {
    std::string source;
    std::string formatted;
    for (const char* op : SPACED_OPERATOR_TEXTS) {
        source.append("a").append(op).append("!b;");
        formatted.append("a ").append(op).append(" !b;\n");
    }
    expectFormats(source, formatted);
}

TEST(FormattingWireEditorOperators, OperatorsThatAreNeverSpaced) {
    expectFormats("a=x.y?.z..w;", "a = x.y?.z..w;\n");
    expectFormats("a=!-b;", "a = !- b;\n");
    expectFormats("b=a++;c=a--;", "b = a++;\nc = a--;\n");
}

// ---- What the scanner hands over --------------------------------------------

TEST(FormattingWireEditorScanner, StringEscapesAreDecoded) {
    expectFormats("s = \"\\\"q\\\"\";", "s = \"q\";\n");
    expectFormats("s = \"\\'\";", "s = ';\n");
    expectFormats("s = \"\\\\\";", "s = \\;\n");
    expectFormats("s = \"a\\rb\";", "s = a\rb;\n");
}

TEST(FormattingWireEditorScanner, UnicodeEscapesBecomeUtf8OfTheirLength) {
    expectFormats("s = \"\\u007F\";", "s = \x7F;\n");
    expectFormats("s = \"\\u0080\";", "s = \xC2\x80;\n");
    expectFormats("s = \"\\u07FF\";", "s = \xDF\xBF;\n");
    expectFormats("s = \"\\u0800\";", "s = \xE0\xA0\x80;\n");
}

TEST(FormattingWireEditorScanner, CharEscapesAreDecoded) {
    expectFormats("c = '\\'';", "c = ';\n");
    expectFormats("c = '\\\\';", "c = \\;\n");
    expectFormats("c = '\\\"';", "c = \";\n");
    expectFormats("c = '\\t';", "c = \t;\n");
    EXPECT_EQ(formatOverWire("c = '\\0';"), expectedFor("c = '\\0';", std::string("c = \0;\n", 7)));
}

TEST(FormattingWireEditorScanner, RejectedLiteralsLeaveTheTextAlone) {
    const char* const rejected[] = {"c = '\\u0041';", "c = '\xC3\xA9';", "c = 'ab';",   "s = \"\\u004\";",
                                    "s = \"\\uZZZZ\";", "s = \"abc\\",   "x = 1e;",     "x = 1.5e+;",
                                    "x = 0x;",          "x = 0b_1;",     "x = 0o;",     "a $ b",
                                    "a ` b",            "a \\ b",        "a \x7F b",    "a \x01 b"};
    for (const char* source : rejected) expectFormats(source, source);
}

TEST(FormattingWireEditorScanner, NumbersTheScannerSplitsAreWrittenBackTight) {
    expectFormats("x = 1e6_0;", "x = 1e6_0;\n");
    expectFormats("x = 1.5.3;", "x = 1.5.3;\n");
    expectFormats("x = .5;", "x = .5;\n");
    expectFormats("x = 1__0_;", "x = 1__0_;\n");
}

// ---- Blank lines meeting pending spaces ---------------------------------------

TEST(FormattingWireEditorCorners, BlankLinesBeforeElseKeepTheSpaceBehindTheBrace) {
    expectFormats("if (a) {}\n\n\nelse {}", "if (a) {\n} \n\nelse {\n}\n");
}

TEST(FormattingWireEditorCorners, BlankLinesInsideAForHeaderKeepTheSpaceBehindTheSemicolon) {
    expectFormats("for (a;\n\n\nb;c) {}", "for (a; \n\nb; c) {\n}\n");
}

TEST(FormattingWireEditorCorners, LongDocumentIsFormattedWhole) {
    std::string source;
    std::string formatted;
    for (int i = 0; i < 5000; ++i) {
        source.append("x").append(std::to_string(i)).append("=y+1;\n");
        formatted.append("x").append(std::to_string(i)).append(" = y + 1;\n");
    }
    expectFormats(source, formatted);
}

// ---- Text as the server decoded it ---------------------------------------------

// An escaped non-ASCII character arrives as one "?", which outside a string is
// a conditional operator to the formatter.
TEST(FormattingWireEditorDecodedText, EscapedNonAsciiBecomesAQuestionMark) {
    std::string open = R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":")";
    open.append(DOC_URI).append(R"(","languageId":"quor","version":1,"text":"let caf\u00e9 = \"caf\u00e9\";"}}})");
    std::string middle = frame(open) + frame(formattingRequest(DOC_URI, EDITOR_OPTIONS));
    EXPECT_EQ(answerOf(middle), editAnswer("let caf ? = caf?;\n", 0, 18));
}

TEST(FormattingWireEditorProgram, ModuleEnumMatchAndTest) {
    std::string source =
        "module demo;\n"
        "import std.io;\n"
        "\n"
        "enum Op { Add, Sub }\n"
        "\n"
        "fn apply(op: Op, a: int, b: int): int {\n"
        "    match (op) {\n"
        "        Op.Add => a + b,\n"
        "        Op.Sub => a - b,\n"
        "    }\n"
        "}\n"
        "\n"
        "test \"apply adds\" {\n"
        "    assert(apply(Op.Add, 1, 2) == 3);\n"
        "}\n";
    std::string formatted =
        "module demo;\n"
        "import std.io;\n"
        "\n"
        "enum Op {\n"
        "    Add, Sub\n"
        "}\n"
        "\n"
        "fn apply(op: Op, a: int, b: int): int {\n"
        "    match (op) {\n"
        "        Op.Add => a + b, Op.Sub => a - b,\n"
        "    }\n"
        "}\n"
        "\n"
        "test apply adds {\n"
        "    assert (apply(Op.Add, 1, 2) == 3);\n"
        "}\n";
    expectFormats(source, formatted);
}
