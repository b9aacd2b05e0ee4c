// Object creation: the built-in collections first, then user classes, with
// the three refusals.
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;

namespace {

std::string typeOf(const std::string& prelude, const std::string& expression) {
    Analysis a(prelude + "fn main() {\n    var r = " + expression + ";\n}\n");
    a.analyze();
    EXPECT_EQ(a.records(), Records{}) << expression;
    return initializerType(a, "r");
}

}  // namespace

TEST(NewExpression, ListSetArrayAndMapAreBuiltInCollections) {
    EXPECT_EQ(typeOf("", "new List<int>()"), "List<int>");
    EXPECT_EQ(typeOf("", "new List()"), "List<any>");
    EXPECT_EQ(typeOf("", "new Set<string>()"), "Set<string>");
    EXPECT_EQ(typeOf("", "new Set()"), "Set<any>");
    EXPECT_EQ(typeOf("", "new Array<int>()"), "int[]");
    EXPECT_EQ(typeOf("", "new Array()"), "any[]");
    EXPECT_EQ(typeOf("", "new Map()"), "Map<string, any>");
    EXPECT_EQ(typeOf("", "new Map<int>()"), "Map<int, any>");
    EXPECT_EQ(typeOf("", "new Map<int, bool>()"), "Map<int, bool>");
}

TEST(NewExpression, CollectionTypeArgumentsThatNameNothingFallBack) {
    EXPECT_EQ(typeOf("", "new Array<Nothing>()"), "any[]");
    EXPECT_EQ(typeOf("", "new Map<Nothing, Nothing>()"), "Map<string, any>");
}

TEST(NewExpression, CollectionArgumentsAreChecked) {
    const std::string src =
        "fn main() {\n"
        "    var r = new List<int>(missing);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1002", "Undefined variable or symbol 'missing'",
                                                  at(src, 2, "missing"), "Ensure the variable is declared before use")}));
}

TEST(NewExpression, UserClassOfACollectionNameIsNotReachedByNew) {
    EXPECT_EQ(typeOf("class List { }\n", "new List()"), "List<any>");
}

TEST(NewExpression, ClassWithAnyArgumentsIsAccepted) {
    EXPECT_EQ(typeOf("class Foo { }\n", "new Foo(1, 2)"), "Foo");
}

TEST(NewExpression, ClassArgumentsAreStillChecked) {
    const std::string src =
        "class Foo { }\n"
        "fn main() {\n"
        "    var r = new Foo(first, 2, second);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{undefinedRecord(src, 3, "first"), undefinedRecord(src, 3, "second")}));
}

TEST(NewExpression, GenericClassWithAndWithoutTypeArguments) {
    const std::string box =
        "class Box<T> {\n"
        "    T item;\n"
        "}\n";
    EXPECT_EQ(typeOf(box, "new Box<int>(1)"), "Box<int>");
    EXPECT_EQ(typeOf(box, "new Box()"), "Box");
}

TEST(NewExpression, UndefinedClassReportsAndLeavesTheArgumentsUnchecked) {
    const std::string src =
        "fn main() {\n"
        "    var r = new Nothing(missing);\n"
        "    var s = new Nothing<int>();\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(),
              (Records{record("E1002", "Undefined class 'Nothing' in 'new' expression", at(src, 2, "new")),
                       record("E1002", "Undefined class 'Nothing' in 'new' expression", at(src, 3, "new"))}));
    EXPECT_EQ(initializerType(a, "r"), "<type-error>");
}

TEST(NewExpression, StructsInterfacesAndEnumsAreNoClasses) {
    const std::string src =
        "struct Point { int x; }\n"
        "interface Shape {\n"
        "    fn area(): double;\n"
        "}\n"
        "enum Color { Red }\n"
        "fn main() {\n"
        "    var a = new Point(missing);\n"
        "    var b = new Shape();\n"
        "    var c = new Color();\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1001", "Cannot instantiate non-class type 'Point' with 'new'", at(src, 7, "new")),
                       record("E1001", "Cannot instantiate non-class type 'Shape' with 'new'", at(src, 8, "new")),
                       record("E1001", "Cannot instantiate non-class type 'Color' with 'new'", at(src, 9, "new"))}));
}

TEST(NewExpression, AbstractClassReportsAndLeavesTheArgumentsUnchecked) {
    const std::string src =
        "abstract class Shape { }\n"
        "fn main() {\n"
        "    var s = new Shape(missing);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1001", "Cannot instantiate abstract class 'Shape'", at(src, 3, "new"))}));
    EXPECT_EQ(initializerType(a, "s"), "<type-error>");
}

TEST(NewExpression, AbstractGenericClassIsRefusedWithItsPlainName) {
    const std::string src =
        "abstract class Holder<T> { }\n"
        "fn main() {\n"
        "    var h = new Holder<int>();\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1001", "Cannot instantiate abstract class 'Holder'", at(src, 3, "new"))}));
}

TEST(NewExpression, BuiltinLibraryClassesCanBeCreated) {
    EXPECT_EQ(typeOf("", "new Duration()"), "Duration");
}
