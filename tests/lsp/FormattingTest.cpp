#include <gtest/gtest.h>

#include <string>

#include "FeatureTestSupport.h"
#include "LspTestSupport.h"

using quor::lsp::JsonValue;
using quor::lsp::LspServer;
using quor::lsp::testing::FeatureTest;
using quor::lsp::testing::parse;

namespace {

class FormattingTest : public FeatureTest {
protected:
    JsonValue format(const std::string& uri, const std::string& options = R"({"tabSize":4,"insertSpaces":true})") {
        std::string text = R"({"textDocument":{"uri":")";
        text.append(uri).append(R"("},"options":)").append(options).append("}");
        return server.handleFormatting(JsonValue(1), parse(text));
    }

    // The serialized single edit that replaces 0:0 to line:character by `newText`.
    static std::string edit(int line, int character, const std::string& newTextJson) {
        std::string text = R"([{"newText":)";
        text.append(newTextJson)
            .append(R"(,"range":{"end":{"character":)")
            .append(std::to_string(character))
            .append(R"(,"line":)")
            .append(std::to_string(line))
            .append(R"(},"start":{"character":0,"line":0}}}])");
        return text;
    }
};

}  // namespace

TEST_F(FormattingTest, ReplacesTheWholeDocumentWithTheFormattedText) {
    server.openDocument("file:///a.quor", "if(a){b();}else{c();}");
    EXPECT_EQ(format("file:///a.quor").serialize(),
              edit(0, 21, R"("if (a) {\n    b();\n} else {\n    c();\n}\n")"));
}

TEST_F(FormattingTest, TextWithoutLineFeedEndsOnLineZero) {
    server.openDocument("file:///a.quor", "a");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(0, 1, R"("a\n")"));
}

TEST_F(FormattingTest, TextEndingInLineFeedEndsAtTheStartOfTheNextLine) {
    server.openDocument("file:///a.quor", "a\nb\n");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(2, 0, R"("ab\n")"));
}

TEST_F(FormattingTest, EndCharacterCountsBytesBehindTheLastLineFeed) {
    server.openDocument("file:///a.quor", "x;\r\n  y  ;");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(1, 6, R"("x;\ny;\n")"));
}

TEST_F(FormattingTest, TextWithoutFinalLineFeedEndsBehindItsLastLine) {
    server.openDocument("file:///a.quor", "a;\nbc");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(1, 2, R"("a;\nbc\n")"));
}

TEST_F(FormattingTest, TrailingCarriageReturnCountsAsACharacter) {
    // Only a line feed starts a line; a carriage return is one more byte.
    server.openDocument("file:///a.quor", "a\r");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(0, 2, R"("a\n")"));
}

TEST_F(FormattingTest, CarriageReturnLineFeedEndsTheLineAtTheLineFeed) {
    server.openDocument("file:///a.quor", "a;\r\nb;\r\n");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(2, 0, R"("a;\nb;\n")"));
}

TEST_F(FormattingTest, LoneCarriageReturnsDoNotStartLines) {
    server.openDocument("file:///a.quor", "a;\rb;\r");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(0, 6, R"("a;\nb;\n")"));
}

TEST_F(FormattingTest, EndCharacterCountsBytesNotCharacters) {
    // A two-byte character inside a comment counts as two.
    server.openDocument("file:///a.quor", "// \xC3\xA9");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(0, 5, "\"// \xC3\xA9\\n\""));
}

TEST_F(FormattingTest, WhitespaceOnlyDocumentIsReplacedByNothing) {
    server.openDocument("file:///a.quor", "  \n\t\n");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(2, 0, R"("")"));
}

TEST_F(FormattingTest, MissingOptionsChangeNothing) {
    server.openDocument("file:///a.quor", "{x;}");
    EXPECT_EQ(server.handleFormatting(JsonValue(1), parse(R"({"textDocument":{"uri":"file:///a.quor"}})")).serialize(),
              edit(0, 4, R"("{\n    x;\n}\n")"));
}

TEST_F(FormattingTest, RequestIdIsNotUsed) {
    server.openDocument("file:///a.quor", "a");
    const JsonValue params = parse(R"({"textDocument":{"uri":"file:///a.quor"}})");
    const std::string expected = edit(0, 1, R"("a\n")");
    EXPECT_EQ(server.handleFormatting(JsonValue("x"), params).serialize(), expected);
    EXPECT_EQ(server.handleFormatting(JsonValue(), params).serialize(), expected);
}

TEST_F(FormattingTest, MultiLineProgramIsFormattedWithFourSpaces) {
    server.openDocument("file:///a.quor", "fn main() {\n\tvar i = 0;\n\n\n\twhile(i<3){i++;}\n}");
    EXPECT_EQ(format("file:///a.quor").serialize(),
              edit(5, 1,
                   R"("fn main() {\n    var i = 0;\n\n    while (i < 3) {\n        i++;\n    }\n}\n")"));
}

TEST_F(FormattingTest, UnknownDocumentGivesEmptyArray) {
    JsonValue result = format("file:///missing.quor");
    EXPECT_TRUE(result.isArray());
    EXPECT_EQ(result.serialize(), "[]");
}

TEST_F(FormattingTest, EmptyDocumentGivesEmptyArray) {
    server.openDocument("file:///empty.quor", "");
    EXPECT_EQ(format("file:///empty.quor").serialize(), "[]");
}

TEST_F(FormattingTest, MissingParamsGiveEmptyArray) {
    EXPECT_EQ(server.handleFormatting(JsonValue(), JsonValue()).serialize(), "[]");
    EXPECT_EQ(server.handleFormatting(JsonValue(), JsonValue("junk")).serialize(), "[]");
}

TEST_F(FormattingTest, ClientOptionsAreIgnored) {
    server.openDocument("file:///a.quor", "{x;}\n\n");
    const std::string fixed = edit(2, 0, R"("{\n    x;\n}\n")");
    EXPECT_EQ(format("file:///a.quor", R"({"tabSize":2,"insertSpaces":true})").serialize(), fixed);
    EXPECT_EQ(format("file:///a.quor", R"({"tabSize":8,"insertSpaces":false})").serialize(), fixed);
    EXPECT_EQ(format("file:///a.quor", "null").serialize(), fixed);
}

TEST_F(FormattingTest, ServerKeepsAtMostOneBlankLine) {
    server.openDocument("file:///a.quor", "a;\n\n\n\nb;\n");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(5, 0, R"("a;\n\nb;\n")"));
}

TEST_F(FormattingTest, EditIsSentAlsoWhenNothingChanges) {
    server.openDocument("file:///a.quor", "x = 1;\n");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(1, 0, R"("x = 1;\n")"));
}

TEST_F(FormattingTest, TextWithScannerErrorsIsReplacedByItself) {
    server.openDocument("file:///a.quor", "x  =  #;");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(0, 8, R"("x  =  #;")"));
}

TEST_F(FormattingTest, StringLiteralsLoseTheirQuotes) {
    server.openDocument("file:///a.quor", "print(\"hi\");");
    EXPECT_EQ(format("file:///a.quor").serialize(), edit(0, 12, R"("print(hi);\n")"));
}

TEST_F(FormattingTest, AnsweredThroughDispatchWithTheRequestId) {
    server.openDocument("file:///a.quor", "a");
    EXPECT_EQ(server.handleMessage(
                  R"({"jsonrpc":"2.0","id":7,"method":"textDocument/formatting","params":{"textDocument":{"uri":"file:///a.quor"},"options":{"tabSize":2}}})"),
              R"({"id":7,"jsonrpc":"2.0","result":)" + edit(0, 1, R"("a\n")") + "}");
}
