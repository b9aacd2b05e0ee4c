// Array and map literals, typed from their own elements alone.
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;

namespace {

// The type of `r` initialised with `expression` inside a function.
std::string typeOf(const std::string& expression) {
    Analysis a("fn main() {\n    var r = " + expression + ";\n}\n");
    a.analyze();
    EXPECT_EQ(a.records(), Records{}) << expression;
    return initializerType(a, "r");
}

}  // namespace

TEST(CollectionLiterals, EmptyArrayIsAnArrayOfAny) { EXPECT_EQ(typeOf("[]"), "any[]"); }

TEST(CollectionLiterals, EmptyMapIsAMapFromStringToAny) { EXPECT_EQ(typeOf("{}"), "Map<string, any>"); }

TEST(CollectionLiterals, ElementsMeetAtTheirCommonType) {
    EXPECT_EQ(typeOf("[1, 2, 3]"), "int[]");
    EXPECT_EQ(typeOf("[1, 2.0]"), "double[]");
    EXPECT_EQ(typeOf("[1, 2.0f]"), "float[]");
    EXPECT_EQ(typeOf("[null, 1]"), "int?[]");
}

TEST(CollectionLiterals, ElementsThatDoNotAgreeAreAnyWithoutAReport) {
    EXPECT_EQ(typeOf("[1, \"a\"]"), "any[]");
    EXPECT_EQ(typeOf("[\"a\", 1, 2]"), "any[]");
}

TEST(CollectionLiterals, BraceArrayIsAnArrayLiteralToo) { EXPECT_EQ(typeOf("{1, 2,}"), "int[]"); }

TEST(CollectionLiterals, MapKeysAndValuesFoldSeparately) {
    EXPECT_EQ(typeOf("{\"a\": 1, \"b\": 2.5}"), "Map<string, double>");
    EXPECT_EQ(typeOf("{1: \"one\", 2: \"two\"}"), "Map<int, string>");
    EXPECT_EQ(typeOf("{1: true, \"k\": false}"), "Map<any, bool>");
}

TEST(CollectionLiterals, NestedLiterals) {
    EXPECT_EQ(typeOf("[[1], [2, 3]]"), "int[][]");
    EXPECT_EQ(typeOf("{\"xs\": [1, 2]}"), "Map<string, int[]>");
}

TEST(CollectionLiterals, EveryElementIsCheckedInOrder) {
    const std::string src =
        "fn main() {\n"
        "    var r = [first, 1, second];\n"
        "    var m = {third: fourth};\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{undefinedRecord(src, 2, "first"), undefinedRecord(src, 2, "second"),
                       undefinedRecord(src, 3, "third"), undefinedRecord(src, 3, "fourth")}));
}
