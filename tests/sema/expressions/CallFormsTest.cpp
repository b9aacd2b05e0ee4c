// Calls by name, on receivers and of values: which route a call takes and
// what it reports on each.
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;

TEST(CallForms, UnknownNameIsAnUndefinedCallableSymbol) {
    const std::string src =
        "fn main() {\n"
        "    var r = ghost(1);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1003", "Undefined function or callable symbol 'ghost'", at(src, 2, "("))}));
}

TEST(CallForms, ArgumentsAreCheckedBeforeTheCallee) {
    const std::string src =
        "fn main() {\n"
        "    var r = ghost(nope);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1002", "Undefined variable or symbol 'nope'", at(src, 2, "nope"),
                              "Ensure the variable is declared before use"),
                       record("E1003", "Undefined function or callable symbol 'ghost'", at(src, 2, "("))}));
}

TEST(CallForms, VariableOfAPlainTypeIsNotCallableByName) {
    const std::string src =
        "fn main() {\n"
        "    int n = 1;\n"
        "    var r = n(2);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1003", "Undefined function or callable symbol 'n'", at(src, 3, "("))}));
}

TEST(CallForms, VariableOfFunctionTypeGivesItsReturnTypeWithoutComparingArguments) {
    const std::string src =
        "fn main() {\n"
        "    var twice = (int x) => x * 2;\n"
        "    var r = twice(\"not an int\", 3);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "unknown");
}

TEST(CallForms, ClassNameCalledLikeAFunctionIsThatClassEvenWhenAbstract) {
    const std::string src =
        "abstract class Shape { }\n"
        "class Point { }\n"
        "fn main() {\n"
        "    var p = Point(1, 2);\n"
        "    var s = Shape();\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "p"), "Point");
    EXPECT_EQ(initializerType(a, "s"), "Shape");
}

TEST(CallForms, BareMethodNameInsideAClassResolvesAmongItsMethods) {
    const std::string src =
        "class Counter {\n"
        "    fn step(int by): int { return by; }\n"
        "    fn step(string label): string { return label; }\n"
        "    fn run(): int {\n"
        "        var a = step(1);\n"
        "        var b = step(\"x\");\n"
        "        return a;\n"
        "    }\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "a"), "int");
    EXPECT_EQ(initializerType(a, "b"), "string");
}

TEST(CallForms, SuperCallInASubclassIsVoid) {
    const std::string src =
        "class Base { }\n"
        "class Derived extends Base {\n"
        "    fn init() {\n"
        "        var r = super(1, \"any\");\n"
        "    }\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "void");
}

TEST(CallForms, SuperCallWithoutASuperclassIsRefused) {
    const std::string src =
        "class Alone {\n"
        "    fn init() {\n"
        "        super();\n"
        "    }\n"
        "}\n"
        "fn main() {\n"
        "    super();\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1001", "Cannot call 'super' constructor outside of a subclass", at(src, 3, "(")),
                       record("E1001", "Cannot call 'super' constructor outside of a subclass", at(src, 7, "("))}));
}

TEST(CallForms, CalleeOfAnotherShapeIsCheckedAsAValue) {
    const std::string src =
        "fn main() {\n"
        "    var fs = [(int x) => x];\n"
        "    var r = fs[0](1);\n"
        "    var xs = [1, 2];\n"
        "    var bad = xs[0](1);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(),
              (Records{record("E1001", "Expression is not callable, has type 'int'", at(src, 5, "(", 1))}));
    EXPECT_EQ(initializerType(a, "r"), "unknown");
}

TEST(CallForms, GenericCallWithExplicitTypeArgumentsTakesItsResultFromThem) {
    const std::string src =
        "fn identity<T>(T value): T { return value; }\n"
        "fn main() {\n"
        "    var r = identity<string>(5);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "string");
}

TEST(CallForms, GenericCallArgumentsAreStillHeldToTheParameterTypes) {
    const std::string src =
        "fn pick<T>(T a, int b): T { return a; }\n"
        "fn main() {\n"
        "    var r = pick<string>(\"x\", \"y\");\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1001", "No matching overload for function 'pick' with argument types (string, string)",
                              at(src, 3, "<"))}));
}

TEST(CallForms, GenericCallWithoutTypeArgumentsBindsEachParameterToAWholeArgumentType) {
    const std::string src =
        "fn firstOf<T>(T[] items): T { throw \"unused\"; }\n"
        "fn main() {\n"
        "    var nums = [1, 2, 3];\n"
        "    var r = firstOf(nums);\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "int[]");
}

TEST(CallForms, InferredTypeArgumentsAreWrittenIntoTheCall) {
    const std::string src =
        "fn pair<A, B>(A a, B b): B { return b; }\n"
        "fn main() {\n"
        "    var r = pair(1, \"two\");\n"
        "    var e = pair<bool, char>(true, 'c');\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    const auto* inferred = findVariable(*a.program, "r");
    ASSERT_NE(inferred, nullptr);
    const auto& call = static_cast<const quor::ast::CallExpr&>(*inferred->initializer);
    EXPECT_EQ(call.typeArgs, (std::vector<std::string>{"int", "string"}));
    EXPECT_EQ(initializerType(a, "r"), "string");
    const auto* given = findVariable(*a.program, "e");
    ASSERT_NE(given, nullptr);
    EXPECT_EQ(static_cast<const quor::ast::CallExpr&>(*given->initializer).typeArgs,
              (std::vector<std::string>{"bool", "char"}));
    EXPECT_EQ(initializerType(a, "e"), "char");
}

TEST(CallForms, GenericResultThatNamesNothingFallsBackToTheDeclaredReturnType) {
    const std::string src =
        "fn make<T>(): T { throw \"unused\"; }\n"
        "fn main() {\n"
        "    var r = make();\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "any");
}

TEST(CallForms, ArgumentsAreCheckedBeforeTheReceiver) {
    const std::string src =
        "fn main() {\n"
        "    var r = nope.size(other);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{undefinedRecord(src, 2, "other"), undefinedRecord(src, 2, "nope"),
                       record("E1003", "Type '<type-error>' has no method named 'size'", at(src, 2, "("))}));
}
