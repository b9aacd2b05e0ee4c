// Member access that is not a call: properties of strings and arrays, fields
// and methods of classes, struct fields, enum variants, "parse" as a value,
// null safety and private fields.
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;

TEST(MemberAccess, LengthAndSizeOfStringsAndArraysAreIntProperties) {
    const std::string src =
        "fn main() {\n"
        "    string text = \"abc\";\n"
        "    var nums = [1, 2];\n"
        "    var a = text.length;\n"
        "    var b = text.size;\n"
        "    var c = nums.length;\n"
        "    var d = nums.size;\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    for (const char* name : {"a", "b", "c", "d"}) EXPECT_EQ(initializerType(a, name), "int") << name;
}

TEST(MemberAccess, LengthAndSizeOfAMapAreNoMembers) {
    const std::string src =
        "fn main() {\n"
        "    var ages = {\"ann\": 31};\n"
        "    var a = ages.size;\n"
        "    var b = ages.length;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1002", "Type 'Map<string, int>' has no member 'size'", at(src, 3, ".")),
                       record("E1002", "Type 'Map<string, int>' has no member 'length'", at(src, 4, "."))}));
}

TEST(MemberAccess, OtherNamesOnStringsAndArraysAreNoMembers) {
    const std::string src =
        "fn main() {\n"
        "    string text = \"abc\";\n"
        "    var a = text.upper;\n"
        "    var nums = [1];\n"
        "    var b = nums.first;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1002", "Type 'string' has no member 'upper'", at(src, 3, ".")),
                       record("E1002", "Type 'int[]' has no member 'first'", at(src, 5, "."))}));
}

namespace {

const std::string BOX_CLASS =
    "class Box {\n"
    "    int value;\n"
    "    fn get(): int { return value; }\n"
    "    fn scale(int by): int { return by; }\n"
    "    fn scale(double by): double { return by; }\n"
    "}\n";

}  // namespace

TEST(MemberAccess, SafeNavigationOnANullableObjectGivesTheMembersOwnType) {
    const std::string src = BOX_CLASS +
                            "fn main() {\n"
                            "    Box? maybe = null;\n"
                            "    var v = maybe?.value;\n"
                            "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "v"), "int");
}

TEST(MemberAccess, SafeNavigationOnANonNullableObjectIsAcceptedInSilence) {
    const std::string src = BOX_CLASS +
                            "fn main() {\n"
                            "    var box = new Box();\n"
                            "    var v = box?.value;\n"
                            "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "v"), "int");
}

TEST(MemberAccess, PlainAccessOnANullableObjectReportsWithAHintAndIsTypedAsSafeAccess) {
    const std::string src = BOX_CLASS +
                            "fn main() {\n"
                            "    Box? maybe = null;\n"
                            "    var v = maybe.value;\n"
                            "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(),
              (Records{record("E1008",
                              "Null safety violation: access on nullable type 'Box?' requires safe navigation '?.'",
                              at(src, 9, "."), "Use obj?.value")}));
    EXPECT_EQ(initializerType(a, "v"), "int");
}

TEST(MemberAccess, NullableReportIsFollowedByTheMemberReport) {
    const std::string src = BOX_CLASS +
                            "fn main() {\n"
                            "    Box? maybe = null;\n"
                            "    var v = maybe.missing;\n"
                            "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1008",
                              "Null safety violation: access on nullable type 'Box?' requires safe navigation '?.'",
                              at(src, 9, "."), "Use obj?.missing"),
                       record("E1002", "Class 'Box' has no member named 'missing'", at(src, 9, "."))}));
}

TEST(MemberAccess, MethodWithoutACallIsTheFirstOverloadsFunctionType) {
    const std::string src = BOX_CLASS +
                            "fn main() {\n"
                            "    var box = new Box();\n"
                            "    var f = box.scale;\n"
                            "    var g = box.get;\n"
                            "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "f"), "fn(int) -> int");
    EXPECT_EQ(initializerType(a, "g"), "fn() -> int");
}

TEST(MemberAccess, InheritedFieldsAreFound) {
    const std::string src =
        "class Base {\n"
        "    string name;\n"
        "}\n"
        "class Derived extends Base { }\n"
        "fn main() {\n"
        "    var d = new Derived();\n"
        "    var n = d.name;\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "n"), "string");
}

TEST(MemberAccess, UnknownClassMemberIsReported) {
    const std::string src = BOX_CLASS +
                            "fn main() {\n"
                            "    var box = new Box();\n"
                            "    var v = box.weight;\n"
                            "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1002", "Class 'Box' has no member named 'weight'", at(src, 9, "."))}));
}

TEST(MemberAccess, StructFieldsAndTheirAbsence) {
    const std::string src =
        "struct Point { int x; double y; }\n"
        "fn main(Point p) {\n"
        "    var a = p.y;\n"
        "    var b = p.z;\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1002", "Struct 'Point' has no field named 'z'", at(src, 4, "."))}));
    EXPECT_EQ(initializerType(a, "a"), "double");
}

TEST(MemberAccess, EnumVariantIsOfTheEnumTypeAndAnUnknownOneIsReported) {
    const std::string src =
        "enum Color { Red, Green }\n"
        "fn main() {\n"
        "    var c = Color.Red;\n"
        "    var d = Color.Purple;\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1002", "Enum 'Color' has no variant named 'Purple'", at(src, 4, "."))}));
    EXPECT_EQ(initializerType(a, "c"), "Color");
}

TEST(MemberAccess, ParseReadAsAValueIsAFunctionFromString) {
    const std::string src =
        "fn main() {\n"
        "    var a = int.parse;\n"
        "    int n = 3;\n"
        "    var b = n.parse;\n"
        "    var c = double.parse;\n"
        "    var d = float.parse;\n"
        "    var e = bool.parse;\n"
        "    var f = uint16.parse;\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "a"), "fn(string) -> int");
    EXPECT_EQ(initializerType(a, "b"), "fn(string) -> int");
    EXPECT_EQ(initializerType(a, "c"), "fn(string) -> double");
    EXPECT_EQ(initializerType(a, "d"), "fn(string) -> float");
    EXPECT_EQ(initializerType(a, "e"), "fn(string) -> bool");
    EXPECT_EQ(initializerType(a, "f"), "fn(string) -> int");
}

TEST(MemberAccess, InterfacesFunctionsAndAnyHaveNoReadableMembers) {
    const std::string src =
        "interface Shape {\n"
        "    fn area(): double;\n"
        "}\n"
        "fn main(Shape s, any thing) {\n"
        "    var a = s.area;\n"
        "    var b = thing.area;\n"
        "    var f = () => 1;\n"
        "    var c = f.area;\n"
        "    var d = string.parse;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1002", "Type 'Shape' has no member 'area'", at(src, 5, ".")),
                       record("E1002", "Type 'any' has no member 'area'", at(src, 6, ".")),
                       record("E1002", "Type 'fn() -> unknown' has no member 'area'", at(src, 8, ".")),
                       record("E1002", "Type 'string' has no member 'parse'", at(src, 9, "."))}));
}

TEST(MemberAccess, BrokenObjectGivesASecondReportNamingTheErrorType) {
    const std::string src =
        "fn main() {\n"
        "    var v = nope.size;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1002", "Undefined variable or symbol 'nope'", at(src, 2, "nope"),
                              "Ensure the variable is declared before use"),
                       record("E1002", "Type '<type-error>' has no member 'size'", at(src, 2, "."))}));
}

TEST(MemberAccess, ClassNameAsObjectReachesMembersLikeAnInstance) {
    const std::string src =
        "fn main() {\n"
        "    var pi = Math.PI;\n"
        "    var ms = Duration.millis;\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "pi"), "double");
    EXPECT_EQ(initializerType(a, "ms"), "int");
}

namespace {

const std::string SAFE_CLASS =
    "class Safe {\n"
    "    private int pin;\n"
    "    protected int hint;\n"
    "    fn same(Safe other): int { return other.pin; }\n"
    "}\n";

}  // namespace

TEST(MemberAccess, PrivateFieldIsReadableInsideItsOwnClass) {
    EXPECT_EQ(analyzeSource(SAFE_CLASS), Records{});
}

TEST(MemberAccess, PrivateFieldThroughABaseTypedObjectInASubclassOrFromOutsideIsRefused) {
    const std::string src = SAFE_CLASS +
                            "class Cracker extends Safe {\n"
                            "    fn steal(Safe s): int { return s.pin; }\n"
                            "}\n"
                            "fn main() {\n"
                            "    var s = new Safe();\n"
                            "    var p = s.pin;\n"
                            "    var h = s.hint;\n"
                            "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(),
              (Records{record("E1006", "Cannot access private field 'pin' of class 'Safe'", at(src, 7, ".")),
                       record("E1006", "Cannot access private field 'pin' of class 'Safe'", at(src, 11, "."))}));
    EXPECT_EQ(initializerType(a, "p"), "<type-error>");
    EXPECT_EQ(initializerType(a, "h"), "int");
}

TEST(MemberAccess, PrivateFieldThroughThisInASubclassIsReadableSinceTheObjectIsOfTheCurrentClass) {
    const std::string src = SAFE_CLASS +
                            "class Heir extends Safe {\n"
                            "    fn mine(): int { return this.pin; }\n"
                            "}\n";
    EXPECT_EQ(analyzeSource(src), Records{});
}
