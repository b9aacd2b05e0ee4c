// Whole-document formatting driven through the real server binary: every
// expected answer below was worked out by hand from the formatter's token
// rules (blank lines from token line numbers, brace and semicolon actions,
// the fixed spacing decision list) and compared byte for byte.

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

const std::string URI = "file:///home/dev/wire.quor";

// A JSON string literal with the escapes the server itself writes.
std::string jsonString(const std::string& text) {
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
                    char buffer[8];
                    std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(byte));
                    out.append(buffer);
                } else {
                    out.push_back(c);
                }
        }
    }
    out.push_back('"');
    return out;
}

std::string didOpen(const std::string& uri, const std::string& text) {
    std::string body = R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"uri":)";
    body.append(jsonString(uri)).append(R"(,"languageId":"quor","version":1,"text":)");
    body.append(jsonString(text)).append("}}}");
    return frame(body);
}

std::string formattingRequest(const std::string& id, const std::string& uri,
                              const std::string& options = R"({"tabSize":4,"insertSpaces":true})") {
    std::string body = R"({"jsonrpc":"2.0","id":)";
    body.append(id).append(R"(,"method":"textDocument/formatting","params":{"textDocument":{"uri":)");
    body.append(jsonString(uri)).append(R"(},"options":)").append(options).append("}}");
    return frame(body);
}

// The response body whose id text is `id`, or "<missing>".
std::string responseFor(const std::string& stream, const std::string& id) {
    std::string prefix = "{\"id\":";
    prefix.append(id).append(",");
    for (const std::string& body : splitFramed(stream)) {
        if (body.compare(0, prefix.size(), prefix) == 0) return body;
    }
    return "<missing>";
}

std::string editResponse(const std::string& id, const std::string& newText, int endLine, int endCharacter) {
    std::string body = "{\"id\":";
    body.append(id).append(R"(,"jsonrpc":"2.0","result":[{"newText":)").append(jsonString(newText));
    body.append(R"(,"range":{"end":{"character":)").append(std::to_string(endCharacter));
    body.append(R"(,"line":)").append(std::to_string(endLine));
    body.append(R"(},"start":{"character":0,"line":0}}}]})");
    return body;
}

std::string emptyResponse(const std::string& id) {
    std::string body = "{\"id\":";
    body.append(id).append(R"(,"jsonrpc":"2.0","result":[]})");
    return body;
}

// Opens `text`, asks for formatting with id 2 and returns that response.
std::string formatOverWire(const std::string& text) {
    ProcessResult result = runServer(didOpen(URI, text) + formattingRequest("2", URI));
    EXPECT_TRUE(result.exited);
    EXPECT_EQ(result.exitStatus, 0);
    return responseFor(result.out, "2");
}

void expectFormatted(const std::string& source, const std::string& formatted, int endLine, int endCharacter) {
    EXPECT_EQ(formatOverWire(source), editResponse("2", formatted, endLine, endCharacter));
}

}  // namespace

// ---------------------------------------------------------------------------
// The request itself

TEST(FormattingWireRequest, SingleTokenWithoutLineFeedEndsAtItsLength) {
    expectFormatted("a", "a\n", 0, 1);
}

TEST(FormattingWireRequest, TwoLinesEndingInLineFeedEndAtColumnZero) {
    // Two identifiers with nothing between them are written tight.
    expectFormatted("a\nb\n", "ab\n", 2, 0);
}

TEST(FormattingWireRequest, EmptyDocumentGivesEmptyArray) {
    ProcessResult result = runServer(didOpen(URI, "") + formattingRequest("2", URI));
    EXPECT_EQ(responseFor(result.out, "2"), emptyResponse("2"));
}

TEST(FormattingWireRequest, UnknownUriGivesEmptyArray) {
    ProcessResult result = runServer(didOpen(URI, "x;") + formattingRequest("5", "file:///elsewhere.quor"));
    EXPECT_EQ(responseFor(result.out, "5"), emptyResponse("5"));
}

TEST(FormattingWireRequest, ClientOptionsChangeNothing) {
    ProcessResult result = runServer(didOpen(URI, "if(a){b();}") +
                                     formattingRequest("2", URI, R"({"tabSize":2,"insertSpaces":false})"));
    EXPECT_EQ(responseFor(result.out, "2"), editResponse("2", "if (a) {\n    b();\n}\n", 0, 11));
}

TEST(FormattingWireRequest, AlreadyFormattedTextStillGetsAnEdit) {
    expectFormatted("x = 1;\n", "x = 1;\n", 1, 0);
}

TEST(FormattingWireRequest, StringIdIsEchoed) {
    ProcessResult result = runServer(didOpen(URI, "x=1;") + formattingRequest("\"fmt-1\"", URI));
    EXPECT_EQ(responseFor(result.out, "\"fmt-1\""), editResponse("\"fmt-1\"", "x = 1;\n", 0, 4));
}

TEST(FormattingWireRequest, FormatsTheTextOfTheLatestChange) {
    std::string change = R"({"jsonrpc":"2.0","method":"textDocument/didChange","params":{"textDocument":{"uri":)";
    change.append(jsonString(URI)).append(R"(,"version":2},"contentChanges":[{"text":"y=2;\n\n\n"}]}})");
    ProcessResult result = runServer(didOpen(URI, "x=1;") + frame(change) + formattingRequest("2", URI));
    EXPECT_EQ(responseFor(result.out, "2"), editResponse("2", "y = 2;\n", 3, 0));
}

TEST(FormattingWireRequest, ClosedDocumentGivesEmptyArray) {
    std::string close = R"({"jsonrpc":"2.0","method":"textDocument/didClose","params":{"textDocument":{"uri":)";
    close.append(jsonString(URI)).append("}}}");
    ProcessResult result = runServer(didOpen(URI, "x=1;") + frame(close) + formattingRequest("2", URI));
    EXPECT_EQ(responseFor(result.out, "2"), emptyResponse("2"));
}

TEST(FormattingWireRequest, MissingParamsReadTheDocumentStoredUnderTheEmptyUri) {
    std::string open = R"({"method":"textDocument/didOpen","params":{"textDocument":{"text":"a=b;"}}})";
    std::string request = R"({"id":4,"method":"textDocument/formatting"})";
    ProcessResult result = runServer(frame(open) + frame(request));
    EXPECT_EQ(responseFor(result.out, "4"), editResponse("4", "a = b;\n", 0, 4));
}

TEST(FormattingWireRequest, ScannerErrorReturnsTheTextUnchanged) {
    // The string is cut off by the line feed, so the scanner rejects the text.
    std::string source = "let s = \"abc;\nx  =  1;";
    expectFormatted(source, source, 1, 8);
}

TEST(FormattingWireRequest, UnexpectedCharacterReturnsTheTextUnchanged) {
    expectFormatted("a # b", "a # b", 0, 5);
}

TEST(FormattingWireRequest, UnclosedBlockCommentReturnsTheTextUnchanged) {
    expectFormatted("x;\n/* never closed\n", "x;\n/* never closed\n", 2, 0);
}

TEST(FormattingWireRequest, NonAsciiOutsideAStringReturnsTheTextUnchanged) {
    std::string source = "let caf\xC3\xA9 = 1;";
    expectFormatted(source, source, 0, 14);
}

TEST(FormattingWireRequest, EndCharacterCountsBytesOfTheLastLine) {
    // "h", "é" (two bytes), "llo": the old text's last line is 17 bytes.
    expectFormatted("x;\nlet s = \"h\xC3\xA9llo\";", "x;\nlet s = h\xC3\xA9llo;\n", 1, 17);
}

// ---------------------------------------------------------------------------
// Layout: braces, semicolons, blank lines

TEST(FormattingWireLayout, IfElseOnOneLineBecomesFiveLines) {
    expectFormatted("if(a){b();}else{c();}", "if (a) {\n    b();\n} else {\n    c();\n}\n", 0, 21);
}

TEST(FormattingWireLayout, ThreeBlankLinesShrinkToOne) {
    expectFormatted("a;\n\n\n\nb;\n", "a;\n\nb;\n", 5, 0);
}

TEST(FormattingWireLayout, BlankLineAfterOpeningBraceIsKept) {
    expectFormatted("fn f(){\n\n\n\nx;}", "fn f() {\n\n    x;\n}\n", 4, 3);
}

TEST(FormattingWireLayout, LeadingAndTrailingBlankLinesVanish) {
    expectFormatted("\n\n\nx;\n\n\n", "x;\n", 6, 0);
}

TEST(FormattingWireLayout, CarriageReturnsAreDroppedAndLinesCountedByLineFeeds) {
    expectFormatted("a;\r\n\r\n\r\nb;", "a;\n\nb;\n", 3, 2);
}

TEST(FormattingWireLayout, TabIndentationBecomesFourSpaces) {
    expectFormatted("fn f() {\n\tx;\n}", "fn f() {\n    x;\n}\n", 2, 1);
}

TEST(FormattingWireLayout, NestedBracesIndentByLevel) {
    expectFormatted("{{{}}}", "{\n    {\n        {\n        }\n    }\n}\n", 0, 6);
}

TEST(FormattingWireLayout, StrayClosingBraceClampsTheIndentAtZero) {
    expectFormatted("}\n{\nx;\n}", "}\n{\n    x;\n}\n", 3, 1);
}

TEST(FormattingWireLayout, ClosingBraceBeforeSemicolonStaysTight) {
    expectFormatted("x = {a: 1};", "x = {\n    a: 1\n};\n", 0, 11);
}

TEST(FormattingWireLayout, DoWhileConditionStartsANewLine) {
    expectFormatted("do { x(); } while (c);", "do {\n    x();\n}\nwhile (c);\n", 0, 22);
}

TEST(FormattingWireLayout, TryCatchFinallyShareTheClosingBraceLines) {
    expectFormatted("try { a(); } catch (e) { b(); } finally { c(); }",
                    "try {\n    a();\n} catch (e) {\n    b();\n} finally {\n    c();\n}\n", 0, 48);
}

TEST(FormattingWireLayout, ForHeaderKeepsItsSemicolonsOnOneLine) {
    expectFormatted("for(let i=0;i<n;i++){sum+=i;}",
                    "for (let i = 0; i < n; i++) {\n    sum += i;\n}\n", 0, 29);
}

TEST(FormattingWireLayout, AfterAForEverySemicolonInsideParenthesesIsFollowedByASpace) {
    // Without a for loop before it, the block of the lambda gets one statement per line.
    expectFormatted("call(() => { a(); b(); });", "call(() => {\n    a();\n    b();\n});\n", 0, 26);
    // After a for loop at the top level, the same text keeps both statements
    // on one line, with a space behind each semicolon.
    expectFormatted("for (;;) {}\ncall(() => { a(); b(); });",
                    "for (; ; ) {\n}\ncall(() => {\n    a(); b(); \n});\n", 1, 26);
}

TEST(FormattingWireLayout, ForInHeaderRunsTheWordsTogether) {
    expectFormatted("for (item in items) { print(item); }", "for (iteminitems) {\n    print(item);\n}\n", 0, 36);
}

TEST(FormattingWireLayout, SwitchCasesAndDefault) {
    expectFormatted("switch (x) { case 1: a(); break; case Red: b(); default: c(); }",
                    "switch (x) {\n    case 1: a();\n    break;\n    case Red: b();\n    default : c();\n}\n", 0, 63);
}

TEST(FormattingWireLayout, MatchArmsStayOnOneLine) {
    expectFormatted("match(v){1=>one,_=>other}", "match (v) {\n    1 => one, _ => other\n}\n", 0, 25);
}

TEST(FormattingWireLayout, WhitespaceOnlyDocumentBecomesEmpty) {
    expectFormatted("   \n\t\n", "", 2, 0);
}

TEST(FormattingWireLayout, LoneCarriageReturnIsNoLineBreakForTheEnd) {
    expectFormatted("a;\rb;", "a;\nb;\n", 0, 5);
}

TEST(FormattingWireLayout, BlankLineInsideAnArgumentListBreaksTheLine) {
    expectFormatted("foo(a,\n\n\nb)", "foo(a,\n\nb)\n", 3, 2);
}

TEST(FormattingWireLayout, BlankLineBeforeClosingBraceIsKept) {
    expectFormatted("{\nx;\n\n\n}", "{\n    x;\n\n}\n", 4, 1);
}

TEST(FormattingWireLayout, BlankLineBeforeElseLeavesTheSpaceBehindTheBrace) {
    expectFormatted("if (a) {\n}\n\n\nelse {\n}", "if (a) {\n} \n\nelse {\n}\n", 5, 1);
}

TEST(FormattingWireLayout, CommentBetweenBraceAndElseBreaksTheLine) {
    expectFormatted("if (a) {} // c\nelse {}", "if (a) {\n}\n// c\nelse {\n}\n", 1, 7);
}

TEST(FormattingWireLayout, BracesInsideBracketsAndParentheses) {
    expectFormatted("[{a}, {b}];\nf({});", "[ {\n    a\n}, {\n    b\n}\n];\nf( {\n});\n", 1, 6);
}

TEST(FormattingWireLayout, SemicolonInsideParenthesesWithoutAForBreaksTheLine) {
    expectFormatted("(a;b);", "(a;\nb);\n", 0, 6);
}

TEST(FormattingWireLayout, ParenthesisAroundAForClosesItsHeaderState) {
    // The outer parenthesis closes at the depth where the for header began,
    // so the later statement is broken after its semicolon again.
    expectFormatted("(for(a;b));(c;d);", "(for (a; b));\n(c;\nd);\n", 0, 17);
}

// ---------------------------------------------------------------------------
// Comments

TEST(FormattingWireComments, OnlyCommentsKeepALineEachAndMultiLineTokensOpenABlankLine) {
    // The block comment's token starts on line 2, so the doc comment on line 4
    // is two lines behind it and a blank line is written before it.
    expectFormatted("// a\n/* b\n   c */\n/// d", "// a\n/* b\n   c */\n\n/// d\n", 3, 5);
}

TEST(FormattingWireComments, CommentBehindASemicolonMovesToItsOwnLine) {
    expectFormatted("x = 1; // one\ny = 2;", "x = 1;\n// one\ny = 2;\n", 1, 6);
}

TEST(FormattingWireComments, CommentBehindACommaStaysOnItsLine) {
    expectFormatted("foo(a, // first\n    b);", "foo(a, // first\nb);\n", 1, 7);
}

TEST(FormattingWireComments, CommentAfterOpeningBraceIsIndented) {
    expectFormatted("if (a) { // check\nb();\n}", "if (a) {\n    // check\n    b();\n}\n", 2, 1);
}

TEST(FormattingWireComments, SemicolonAfterACommentLandsAtColumnZero) {
    expectFormatted("fn f() {\n  x // c\n  ;\n}", "fn f() {\n    x // c\n;\n}\n", 3, 1);
}

TEST(FormattingWireComments, CarriageReturnStaysInsideALineComment) {
    expectFormatted("// hi\r\nx;", "// hi\r\nx;\n", 1, 2);
}

TEST(FormattingWireComments, BlockCommentFollowedByCodeGetsABlankLine) {
    expectFormatted("/* a\nb */\nx;", "/* a\nb */\n\nx;\n", 2, 2);
}

// ---------------------------------------------------------------------------
// Spacing

TEST(FormattingWireSpacing, PrefixMinusAfterAssignment) {
    expectFormatted("a=-b;", "a = -b;\n", 0, 5);
}

TEST(FormattingWireSpacing, PostfixDecrementStaysTight) {
    expectFormatted("x--;", "x--;\n", 0, 4);
}

TEST(FormattingWireSpacing, PrefixAfterCommaOrColonGetsNoSpace) {
    expectFormatted("f(a, -b);", "f(a,-b);\n", 0, 9);
    expectFormatted("x: -1", "x:-1\n", 0, 5);
}

TEST(FormattingWireSpacing, MinusAtStatementStartIsNoPrefix) {
    expectFormatted("a;-x;", "a;\n- x;\n", 0, 5);
}

TEST(FormattingWireSpacing, CallOrIndexAfterClosingParenthesisIsSpaced) {
    expectFormatted("foo()();\nfoo()[0];\na[0][1];", "foo() ();\nfoo() [0];\na[0] [1];\n", 2, 8);
}

TEST(FormattingWireSpacing, MemberAccessAndRangeStayTight) {
    expectFormatted("x = a.b;\ny = a?.b;\nz = 1..2;\nw = a.b().c;", "x = a.b;\ny = a?.b;\nz = 1..2;\nw = a.b().c;\n",
                    3, 12);
}

TEST(FormattingWireSpacing, SuperAndThisAreKeywords) {
    expectFormatted("super(x);\nthis.x = 1;", "super (x);\nthis .x = 1;\n", 1, 11);
}

TEST(FormattingWireSpacing, IdentifierBeforeKeywordGetsNoSpace) {
    expectFormatted("class Foo extends Bar {}", "class Fooextends Bar {\n}\n", 0, 24);
}

TEST(FormattingWireSpacing, UnaryChains) {
    expectFormatted("x = !!a;\ny = - -a;\nz = a - -b;\nreturn -x;\nif (!done) {}",
                    "x = !!a;\ny = --a;\nz = a - -b;\nreturn -x;\nif (!done) {\n}\n", 4, 13);
}

TEST(FormattingWireSpacing, GenericsTernaryAndNullable) {
    expectFormatted("let xs: List<int> = [];\nlet m = a ? b : c;\nlet s: string? = null;",
                    "let xs: List < int > = [];\nlet m = a ? b: c;\nlet s: string ? = null;\n", 2, 22);
}

TEST(FormattingWireSpacing, GenericFunctionHeader) {
    expectFormatted("fn id<T>(x: T): T { return x; }", "fn id < T > (x: T): T {\n    return x;\n}\n", 0, 31);
}

TEST(FormattingWireSpacing, ShiftAssignIsTwoTokens) {
    expectFormatted("x >>= 1;\ny = a ?? b;\nz = p->q;", "x >> = 1;\ny = a ?? b;\nz = p -> q;\n", 2, 9);
}

TEST(FormattingWireSpacing, AnnotationRunsIntoTheNextLineAndTestNameLosesItsQuotes) {
    expectFormatted("@inline\ntest \"adds\" { assert(1+1==2); }",
                    "@ inlinetest adds {\n    assert (1 + 1 == 2);\n}\n", 1, 31);
}

TEST(FormattingWireSpacing, LambdasAndObjectCreation) {
    expectFormatted("let f=(x:int)=>x*2;\nlet ys=map(xs,(x)=>-x);\nlet p=new Point(1,2);",
                    "let f = (x: int) => x * 2;\nlet ys = map(xs, (x) => -x);\nlet p = new Point(1, 2);\n", 2, 21);
}

TEST(FormattingWireSpacing, NumbersKeepTheirSourceText) {
    expectFormatted("x=0xFF+1.5e3f-1_000;", "x = 0xFF + 1.5e3f - 1_000;\n", 0, 20);
}

TEST(FormattingWireSpacing, MinusAsTheFirstTokenIsAPrefix) {
    expectFormatted("-x;", "-x;\n", 0, 3);
}

TEST(FormattingWireSpacing, MinusAfterCaseIsNoPrefix) {
    expectFormatted("case -1: x;", "case - 1: x;\n", 0, 11);
}

TEST(FormattingWireSpacing, TypeKeywordBeforeBracketIsSpaced) {
    expectFormatted("let a: int[] = [];\nif(x)return;", "let a: int [] = [];\nif (x) return;\n", 1, 12);
}

TEST(FormattingWireSpacing, AfterClosingBracketOnlyDotsAndBracketsStayTight) {
    expectFormatted("x = m[0]:1;\ny = f()!;\nz = a[i]?.n;", "x = m[0] : 1;\ny = f() !;\nz = a[i]?.n;\n", 2, 12);
}

TEST(FormattingWireSpacing, OnlyReservedWordsCountAsKeywords) {
    // null and int are reserved words; true and Int are a literal and a name.
    expectFormatted("x = null.y;\nz = true.y;\nlet a: Int[] = b;\nlet c: int[] = d;",
                    "x = null .y;\nz = true.y;\nlet a: Int[] = b;\nlet c: int [] = d;\n", 3, 17);
}

TEST(FormattingWireSpacing, StrayClosingParenthesesDoNotUnderflow) {
    expectFormatted(")))x;\nfor(;;){}", "))) x;\nfor (; ; ) {\n}\n", 1, 9);
}

TEST(FormattingWireLayout, DeepNestingIndentsEveryLevel) {
    const int depth = 100;
    std::string source(depth, '{');
    source.append(depth, '}');
    std::string formatted;
    for (int level = 0; level < depth; ++level) formatted.append(std::size_t(level) * 4, ' ').append("{\n");
    for (int level = depth - 1; level >= 0; --level) formatted.append(std::size_t(level) * 4, ' ').append("}\n");
    expectFormatted(source, formatted, 0, 2 * depth);
}

TEST(FormattingWireComments, NestedBlockCommentIsOneToken) {
    expectFormatted("/* a /* b */ c */ x;", "/* a /* b */ c */\nx;\n", 0, 20);
}

// ---------------------------------------------------------------------------
// Literals are written as their decoded content

TEST(FormattingWireLiterals, StringsAndCharsLoseTheirQuotes) {
    expectFormatted("let s = \"hi there\";\nlet c = 'x';", "let s = hi there;\nlet c = x;\n", 1, 12);
}

TEST(FormattingWireLiterals, EscapesAreDecoded) {
    // \" becomes a quote, \t a tab, \q stays two bytes, \u0041 becomes A.
    expectFormatted("s = \"say \\\"hi\\\"\\t\\q\\u0041\";", "s = say \"hi\"\t\\qA;\n", 0, 27);
}

TEST(FormattingWireLiterals, InterpolationTextIsKeptAsWritten) {
    expectFormatted("print(\"Hello ${name}!\");", "print(Hello ${name}!);\n", 0, 24);
}

TEST(FormattingWireLiterals, ControlByteInsideAStringIsEscapedOnTheWire) {
    // The byte 0x01 is sent raw inside the JSON string, which keeps it.
    std::string open = R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"s = \"a)";
    open.append("\x01").append(R"(b\";"}}})");
    ProcessResult result = runServer(frame(open) + formattingRequest("2", "u"));
    EXPECT_EQ(responseFor(result.out, "2"), editResponse("2", std::string("s = a\x01" "b;\n"), 0, 10));
}

TEST(FormattingWireLiterals, UnicodeEscapeInTheMessageArrivesAsAQuestionMark) {
    std::string open = R"({"method":"textDocument/didOpen","params":{"textDocument":{"uri":"u","text":"s = \"\u00e9\";"}}})";
    ProcessResult result = runServer(frame(open) + formattingRequest("2", "u"));
    EXPECT_EQ(responseFor(result.out, "2"), editResponse("2", "s = ?;\n", 0, 8));
}

TEST(FormattingWireLiterals, EmptyStringAtLineStartLeavesTheLineOpen) {
    // The empty lexeme writes nothing, so the comment behind it finds the
    // line feed still last and puts a space in front of itself.
    expectFormatted("x;\n\"\" // c", "x;\n // c\n", 1, 7);
    // A closing brace behind it starts a new line of its own.
    expectFormatted("{\nx;\n\"\"}", "{\n    x;\n    \n}\n", 2, 3);
    // An opening brace behind it takes no space.
    expectFormatted("x;\n\"\"{}", "x;\n{\n}\n", 1, 4);
}

TEST(FormattingWireLiterals, CharacterLiteralLineFeedIsWrittenRaw) {
    expectFormatted("c = '\\n';\nd = 1;", "c = \n;\nd = 1;\n", 1, 6);
}

TEST(FormattingWireLiterals, UnicodeEscapesBecomeUtf8) {
    expectFormatted("s = \"\\u00e9\";", "s = \xC3\xA9;\n", 0, 13);
    // Each half of a surrogate pair is encoded alone, three bytes each.
    expectFormatted("x = \"\\uD83D\\uDE00\";", "x = \xED\xA0\xBD\xED\xB8\x80;\n", 0, 19);
}

TEST(FormattingWireLiterals, NulByteFromAnEscapeIsEscapedOnTheWire) {
    expectFormatted("s = \"\\0\";", std::string("s = \0;\n", 7), 0, 9);
}

TEST(FormattingWireLiterals, EscapedQuotesInsideAnInterpolation) {
    expectFormatted("print(\"v: ${f(\\\"a\\\")}\");", "print(v: ${f(\"a\")});\n", 0, 24);
}

TEST(FormattingWireSpacing, NestedGenericClosesWithOneShiftToken) {
    expectFormatted("let a: List<List<int>> = x;", "let a: List < List < int >> = x;\n", 0, 27);
}

// ---------------------------------------------------------------------------
// A whole program

TEST(FormattingWireProgram, RealisticProgram) {
    std::string source =
        "/// A point in the plane.\n"                // 1
        "class Point{\n"                             // 2
        "  private x:int;\n"                         // 3
        "  private y :int;\n"                        // 4
        "\n"                                         // 5
        "  fn sum():int{\n"                          // 6
        "    return this.x+this.y; // total\n"       // 7
        "  }\n"                                      // 8
        "}\n"                                        // 9
        "\n"                                         // 10
        "\n"                                         // 11
        "fn main(){\n"                               // 12
        "  let p=new Point(1,2);\n"                  // 13
        "  for(let i=0;i<3;i++){\n"                  // 14
        "    if(i==1){\n"                            // 15
        "      print(\"one\");\n"                    // 16
        "    }else if(i>1){\n"                       // 17
        "      print(-i);\n"                         // 18
        "    }else{\n"                               // 19
        "      continue;\n"                          // 20
        "    }\n"                                    // 21
        "  }\n"                                      // 22
        "  let f=(a:int)=>a*2;\n"                    // 23
        "  match(p){\n"                              // 24
        "    _=>f(3)\n"                              // 25
        "  }\n"                                      // 26
        "}\n";                                       // 27
    std::string formatted =
        "/// A point in the plane.\n"
        "class Point {\n"
        "    private x: int;\n"
        "    private y: int;\n"
        "\n"
        "    fn sum(): int {\n"
        "        return this .x + this .y;\n"
        "        // total\n"
        "    }\n"
        "}\n"
        "\n"
        "fn main() {\n"
        "    let p = new Point(1, 2);\n"
        "    for (let i = 0; i < 3; i++) {\n"
        "        if (i == 1) {\n"
        "            print(one);\n"
        "        } else if (i > 1) {\n"
        "            print(-i);\n"
        "        } else {\n"
        "            continue;\n"
        "        }\n"
        "    }\n"
        "    let f = (a: int) => a * 2;\n"
        "    match (p) {\n"
        "        _ => f(3)\n"
        "    }\n"
        "}\n";
    expectFormatted(source, formatted, 27, 0);
}
