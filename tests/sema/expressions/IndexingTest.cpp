// The subscript operator on arrays, lists and maps, and on everything else.
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;

TEST(Indexing, ArrayByIntegerIsItsElement) {
    const std::string src =
        "fn main() {\n"
        "    var names = [\"a\", \"b\"];\n"
        "    uint8 i = 1;\n"
        "    var a = names[0];\n"
        "    var b = names[i];\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "a"), "string");
    EXPECT_EQ(initializerType(a, "b"), "string");
}

TEST(Indexing, ArrayByAStringReportsAndKeepsTheElementType) {
    const std::string src =
        "fn main() {\n"
        "    var nums = [1, 2];\n"
        "    var v = nums[\"x\"];\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1001", "Array index must be an integer, got 'string'", at(src, 3, "["))}));
    EXPECT_EQ(initializerType(a, "v"), "int");
}

TEST(Indexing, StringCannotBeIndexed) {
    const std::string src =
        "fn main() {\n"
        "    string text = \"abc\";\n"
        "    var c = text[0];\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1001", "Type 'string' does not support indexing", at(src, 3, "["))}));
    EXPECT_EQ(initializerType(a, "c"), "<type-error>");
}

TEST(Indexing, MapByAWrongKeyReportsAndIsTheNullableValue) {
    const std::string src =
        "fn main() {\n"
        "    var ages = {\"ann\": 31};\n"
        "    var a = ages[\"ann\"];\n"
        "    var b = ages[1];\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1001", "Map key type mismatch: expected 'string', got 'int'",
                                           at(src, 4, "["))}));
    EXPECT_EQ(initializerType(a, "a"), "int?");
    EXPECT_EQ(initializerType(a, "b"), "int?");
}

TEST(Indexing, ListOfListsYieldsTheInnerListType) {
    const std::string src =
        "fn main() {\n"
        "    var grid = new List<List<int> >();\n"
        "    var row = grid[0];\n"
        "    var cell = row[1];\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "grid"), "List<List<int>>");
    EXPECT_EQ(initializerType(a, "row"), "List<int>");
    EXPECT_EQ(initializerType(a, "cell"), "int");
}

TEST(Indexing, ListByANonIntegerReportsAndKeepsTheElementType) {
    const std::string src =
        "fn main() {\n"
        "    var words = new List<string>();\n"
        "    var w = words[true];\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1001", "List index must be an integer, got 'bool'", at(src, 3, "["))}));
    EXPECT_EQ(initializerType(a, "w"), "string");
}

TEST(Indexing, ListOfAnUnknownElementIsIndexedAsAny) {
    const std::string src =
        "fn main() {\n"
        "    var things = new List<Nothing>();\n"
        "    var t = things[0];\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "things"), "List<any>");
    EXPECT_EQ(initializerType(a, "t"), "any");
}

TEST(Indexing, NullableArrayAnyAndOtherClassesCannotBeIndexed) {
    const std::string src =
        "class Bag {\n"
        "    fn get(int i): int { return i; }\n"
        "}\n"
        "fn main(any thing) {\n"
        "    int[]? maybe = null;\n"
        "    var a = maybe[0];\n"
        "    var b = thing[0];\n"
        "    var bag = new Bag();\n"
        "    var c = bag[0];\n"
        "    var s = new Set<int>();\n"
        "    var d = s[0];\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1001", "Type 'int[]?' does not support indexing", at(src, 6, "[")),
                       record("E1001", "Type 'any' does not support indexing", at(src, 7, "[")),
                       record("E1001", "Type 'Bag' does not support indexing", at(src, 9, "[")),
                       record("E1001", "Type 'Set<int>' does not support indexing", at(src, 11, "["))}));
}

TEST(Indexing, BrokenObjectReportsAgainAndTheIndexIsStillChecked) {
    const std::string src =
        "fn main() {\n"
        "    var v = nope[other];\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1002", "Undefined variable or symbol 'nope'", at(src, 2, "nope"),
                              "Ensure the variable is declared before use"),
                       record("E1002", "Undefined variable or symbol 'other'", at(src, 2, "other"),
                              "Ensure the variable is declared before use"),
                       record("E1001", "Type '<type-error>' does not support indexing", at(src, 2, "["))}));
}

TEST(Indexing, AClassWhoseNameMerelyStartsLikeAListIsIndexable) {
    Analysis a("");
    a.analyze();
    TypeContext& types = a.types();
    auto fake = types.createClassType("List<string> of mine>");
    quor::diagnostics::SourceLocation where{"test.quor", 1, 1};
    auto object = std::make_unique<quor::ast::IdentifierExpr>("fake", where);
    auto index = std::make_unique<quor::ast::LiteralExpr>(quor::ast::LiteralKind::Integer, "0", where);
    quor::ast::IndexExpr node(std::move(object), std::move(index), where);
    a.symbols().define(std::make_shared<VariableSymbol>("fake", fake, where));
    // Between the first "<" and the last ">" stands "string> of mine", which names nothing.
    EXPECT_EQ(a.checker().checkExpr(node)->toString(), "any");
    EXPECT_EQ(a.records(), Records{});
}
