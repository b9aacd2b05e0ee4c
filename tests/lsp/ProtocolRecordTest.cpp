#include <gtest/gtest.h>

#include "LspTestSupport.h"
#include "lsp/Protocol.h"

using namespace quor::lsp;
using quor::lsp::testing::parse;

TEST(ProtocolPosition, SerializesLineAndCharacter) {
    EXPECT_EQ((Position{3, 7}).toJson().serialize(), R"({"character":7,"line":3})");
}

TEST(ProtocolPosition, FromJsonReadsBothMembers) {
    Position position = Position::fromJson(parse(R"({"line":4,"character":12})"));
    EXPECT_EQ(position.line, 4);
    EXPECT_EQ(position.character, 12);
}

TEST(ProtocolPosition, FromJsonIgnoresNonNumbersAndTruncates) {
    Position position = Position::fromJson(parse(R"({"line":"3","character":2.9})"));
    EXPECT_EQ(position.line, 0);
    EXPECT_EQ(position.character, 2);
}

TEST(ProtocolPosition, FromJsonTruncatesNegativeNumbersTowardZero) {
    Position position = Position::fromJson(parse(R"({"line":-1.5,"character":-0.5})"));
    EXPECT_EQ(position.line, -1);
    EXPECT_EQ(position.character, 0);
}

TEST(ProtocolPosition, FromJsonOfMissingMembersOrNonObjectIsOrigin) {
    Position missing = Position::fromJson(parse("{}"));
    EXPECT_EQ(missing.line, 0);
    EXPECT_EQ(missing.character, 0);
    Position array = Position::fromJson(parse("[1,2]"));
    EXPECT_EQ(array.line, 0);
    EXPECT_EQ(array.character, 0);
    Position null = Position::fromJson(JsonValue());
    EXPECT_EQ(null.line, 0);
    EXPECT_EQ(null.character, 0);
}

TEST(ProtocolRange, SerializesStartAndEnd) {
    Range range{{1, 2}, {3, 4}};
    EXPECT_EQ(range.toJson().serialize(),
              R"({"end":{"character":4,"line":3},"start":{"character":2,"line":1}})");
}

TEST(ProtocolLocation, SerializesUriAndRange) {
    Location location{"file:///a.quor", {{0, 0}, {0, 3}}};
    EXPECT_EQ(location.toJson().serialize(),
              R"({"range":{"end":{"character":3,"line":0},"start":{"character":0,"line":0}},"uri":"file:///a.quor"})");
}

TEST(ProtocolTextEdit, SerializesRangeAndNewText) {
    TextEdit edit{{{1, 1}, {1, 2}}, "y"};
    EXPECT_EQ(edit.toJson().serialize(),
              R"({"newText":"y","range":{"end":{"character":2,"line":1},"start":{"character":1,"line":1}}})");
}

TEST(ProtocolDiagnostic, WritesCodeWhenPresent) {
    Diagnostic diagnostic{{{2, 6}, {2, 7}}, 1, "E1000", "quorls", "Bad"};
    EXPECT_EQ(diagnostic.toJson().serialize(),
              R"({"code":"E1000","message":"Bad","range":{"end":{"character":7,"line":2},"start":{"character":6,"line":2}},"severity":1,"source":"quorls"})");
}

TEST(ProtocolDiagnostic, EmptyCodeHasNoCodeKey) {
    Diagnostic diagnostic{{{0, 0}, {0, 1}}, 2, "", "quorls", "m"};
    EXPECT_EQ(diagnostic.toJson().serialize(),
              R"({"message":"m","range":{"end":{"character":1,"line":0},"start":{"character":0,"line":0}},"severity":2,"source":"quorls"})");
}

TEST(ProtocolDiagnostic, EmptySourceAndMessageAreStillWritten) {
    Diagnostic diagnostic;
    EXPECT_EQ(diagnostic.toJson().serialize(),
              R"({"message":"","range":{"end":{"character":0,"line":0},"start":{"character":0,"line":0}},"severity":1,"source":""})");
}

TEST(ProtocolCompletionItem, LabelOnlyHasKindOneAndNoOptionalKeys) {
    CompletionItem item;
    item.label = "x";
    EXPECT_EQ(item.toJson().serialize(), R"({"kind":1,"label":"x"})");
}

TEST(ProtocolCompletionItem, DocumentationIsAMarkdownObject) {
    CompletionItem item{"fn", 14, "Quor keyword", "Declare `f`", "fn "};
    EXPECT_EQ(item.toJson().serialize(),
              R"({"detail":"Quor keyword","documentation":{"kind":"markdown","value":"Declare `f`"},"insertText":"fn ","kind":14,"label":"fn"})");
}

TEST(ProtocolCompletionItem, DetailWithoutDocumentation) {
    CompletionItem item{"int", 25, "Built-in Quor type", "", ""};
    EXPECT_EQ(item.toJson().serialize(), R"({"detail":"Built-in Quor type","kind":25,"label":"int"})");
}

TEST(ProtocolHover, ContentsAreAlwaysAMarkdownObject) {
    Hover hover;
    EXPECT_EQ(hover.toJson().serialize(), R"({"contents":{"kind":"markdown","value":""}})");
    hover.contents = "**Keyword** `fn`";
    EXPECT_EQ(hover.toJson().serialize(), R"({"contents":{"kind":"markdown","value":"**Keyword** `fn`"}})");
}

TEST(ProtocolHover, RangeIsWrittenOnlyWhenSet) {
    Hover hover;
    hover.contents = "x";
    hover.range = Range{{0, 1}, {0, 2}};
    EXPECT_EQ(hover.toJson().serialize(),
              R"({"contents":{"kind":"markdown","value":"x"},"range":{"end":{"character":2,"line":0},"start":{"character":1,"line":0}}})");
}
