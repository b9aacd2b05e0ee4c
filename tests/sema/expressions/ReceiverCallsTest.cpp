// Calls on a receiver: null safety, classes with private methods, interfaces,
// and the built-in methods of strings, arrays, maps and scalar types.
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;

namespace {

// Declares `text` of type string, `nums` of type int[] and `ages` of type
// Map<string, int> on lines 2 to 4, then `line` on line 5.
std::string withCollections(const std::string& line) {
    return "fn main() {\n"
           "    string text = \"abc\";\n"
           "    var nums = [1, 2, 3];\n"
           "    var ages = {\"ann\": 31};\n" +
           line + "\n}\n";
}

// The type of `r` when `expression` is its initializer on line 5.
std::string typeOf(const std::string& expression) {
    Analysis a(withCollections("    var r = " + expression + ";"));
    a.analyze();
    EXPECT_EQ(a.records(), Records{}) << expression;
    return initializerType(a, "r");
}

}  // namespace

TEST(ReceiverCalls, StringMethodsYieldTheirTableTypes) {
    for (const char* name : {"length", "size", "indexOf"}) EXPECT_EQ(typeOf(std::string("text.") + name + "()"), "int");
    for (const char* name : {"upper", "lower", "trim", "replace", "substring", "reverse", "repeat"}) {
        EXPECT_EQ(typeOf(std::string("text.") + name + "()"), "string") << name;
    }
    for (const char* name : {"contains", "startsWith", "endsWith", "isEmpty"}) {
        EXPECT_EQ(typeOf(std::string("text.") + name + "()"), "bool") << name;
    }
    EXPECT_EQ(typeOf("text.charAt(0)"), "char");
    EXPECT_EQ(typeOf("text.split(\",\")"), "string[]");
}

TEST(ReceiverCalls, BuiltinMethodArgumentsAreNotCompared) {
    EXPECT_EQ(typeOf("text.substring(true, \"x\", 3.5, 'c')"), "string");
    EXPECT_EQ(typeOf("nums.push(\"not an int\")"), "void");
}

TEST(ReceiverCalls, ArrayMethodsYieldTheirTableTypes) {
    for (const char* name : {"length", "size"}) EXPECT_EQ(typeOf(std::string("nums.") + name + "()"), "int");
    for (const char* name : {"isEmpty", "contains"}) EXPECT_EQ(typeOf(std::string("nums.") + name + "()"), "bool");
    for (const char* name : {"push", "add", "set", "clear", "removeAt"}) {
        EXPECT_EQ(typeOf(std::string("nums.") + name + "()"), "void") << name;
    }
    for (const char* name : {"pop", "removeLast", "get", "reduce"}) {
        EXPECT_EQ(typeOf(std::string("nums.") + name + "()"), "int") << name;
    }
    for (const char* name : {"map", "filter"}) EXPECT_EQ(typeOf(std::string("nums.") + name + "()"), "int[]");
}

TEST(ReceiverCalls, MapOfAnIntArrayStaysAnIntArrayWhateverTheLambdaReturns) {
    EXPECT_EQ(typeOf("nums.map((int n) => \"text\")"), "int[]");
}

TEST(ReceiverCalls, MapMethodsYieldTheirTableTypes) {
    for (const char* name : {"size", "length"}) EXPECT_EQ(typeOf(std::string("ages.") + name + "()"), "int");
    for (const char* name : {"isEmpty", "contains", "containsKey"}) {
        EXPECT_EQ(typeOf(std::string("ages.") + name + "()"), "bool") << name;
    }
    EXPECT_EQ(typeOf("ages.get(\"ann\")"), "int?");
    for (const char* name : {"set", "remove", "clear"}) EXPECT_EQ(typeOf(std::string("ages.") + name + "()"), "void");
}

TEST(ReceiverCalls, ParseOnScalarTypesAndValues) {
    EXPECT_EQ(typeOf("int.parse(\"1\")"), "int");
    EXPECT_EQ(typeOf("int64.parse(\"1\")"), "int");
    EXPECT_EQ(typeOf("double.parse(\"1\")"), "double");
    EXPECT_EQ(typeOf("float.parse(\"1\")"), "float");
    EXPECT_EQ(typeOf("bool.parse(\"true\")"), "bool");
}

TEST(ReceiverCalls, ParseOnAUint8ValueIsInt) {
    const std::string src =
        "fn main() {\n"
        "    uint8 small = 1;\n"
        "    var r = small.parse(\"7\");\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "int");
}

TEST(ReceiverCalls, UnknownMethodOnAStringNamesString) {
    const std::string src = withCollections("    var r = text.shout();");
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1003", "Type 'string' has no method named 'shout'", at(src, 5, "("))}));
}

TEST(ReceiverCalls, NameOfAnotherKindsTableIsUnknownOnThisKind) {
    const std::string src = withCollections("    var r = ages.push(1);\n    var s = text.parse(\"1\");");
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1003", "Type 'Map<string, int>' has no method named 'push'", at(src, 5, "(")),
                       record("E1003", "Type 'string' has no method named 'parse'", at(src, 6, "("))}));
}

TEST(ReceiverCalls, BrokenReceiverGivesASecondReportNamingTheErrorType) {
    const std::string src =
        "fn main() {\n"
        "    var r = nope.size();\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1002", "Undefined variable or symbol 'nope'", at(src, 2, "nope"),
                              "Ensure the variable is declared before use"),
                       record("E1003", "Type '<type-error>' has no method named 'size'", at(src, 2, "("))}));
}

TEST(ReceiverCalls, AnyStructEnumAndFunctionReceiversHaveNoMethods) {
    const std::string src =
        "struct Point { int x; }\n"
        "enum Color { Red }\n"
        "fn take(any value, Point p) {\n"
        "    value.run();\n"
        "    p.run();\n"
        "    Color.Red.run();\n"
        "    var f = () => 1;\n"
        "    f.run();\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1003", "Type 'any' has no method named 'run'", at(src, 4, "(")),
                       record("E1003", "Type 'Point' has no method named 'run'", at(src, 5, "(")),
                       record("E1003", "Type 'Color' has no method named 'run'", at(src, 6, "(")),
                       record("E1003", "Type 'fn() -> unknown' has no method named 'run'", at(src, 8, "("))}));
}

TEST(ReceiverCalls, NullableReceiverWithoutSafeNavigationReportsAndGoesOn) {
    const std::string src =
        "fn main() {\n"
        "    string? maybe = null;\n"
        "    var r = maybe.upper();\n"
        "    var s = maybe.shout();\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(),
              (Records{record("E1008", "Null safety violation: call on nullable type 'string?' requires safe navigation '?.'",
                              at(src, 3, "("), "Use obj?.upper(...)"),
                       record("E1008", "Null safety violation: call on nullable type 'string?' requires safe navigation '?.'",
                              at(src, 4, "("), "Use obj?.shout(...)"),
                       record("E1003", "Type 'string' has no method named 'shout'", at(src, 4, "("))}));
    EXPECT_EQ(initializerType(a, "r"), "string");
}

TEST(ReceiverCalls, SafeCallKeepsTheMethodsOwnReturnType) {
    const std::string src =
        "fn main() {\n"
        "    string? maybe = null;\n"
        "    var r = maybe?.upper();\n"
        "    string sure = \"x\";\n"
        "    var s = sure?.upper();\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "string");
    EXPECT_EQ(initializerType(a, "s"), "string");
}

TEST(ReceiverCalls, ClassMethodsResolveAmongOwnAndInheritedOverloads) {
    const std::string src =
        "class Animal {\n"
        "    fn speak(): string { return \"...\"; }\n"
        "}\n"
        "class Dog extends Animal {\n"
        "    fn speak(int times): int { return times; }\n"
        "}\n"
        "fn main() {\n"
        "    var d = new Dog();\n"
        "    var a = d.speak();\n"
        "    var b = d.speak(2);\n"
        "    var c = d.fetch();\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1003", "Undefined function or method 'fetch'", at(src, 11, "("))}));
    EXPECT_EQ(initializerType(a, "a"), "string");
    EXPECT_EQ(initializerType(a, "b"), "int");
}

TEST(ReceiverCalls, FieldIsNotFoundByTheMethodRoute) {
    const std::string src =
        "class Button {\n"
        "    int clicks;\n"
        "}\n"
        "fn main() {\n"
        "    var b = new Button();\n"
        "    b.clicks();\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1003", "Undefined function or method 'clicks'", at(src, 6, "("))}));
}

TEST(ReceiverCalls, PrivateMethodIsCallableOnAnotherObjectOfTheSameClass) {
    const std::string src =
        "class Vault {\n"
        "    private fn code(): int { return 42; }\n"
        "    fn peek(Vault other): int { return other.code(); }\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), Records{});
}

TEST(ReceiverCalls, PrivateMethodFromASubclassOrFromOutsideIsRefused) {
    const std::string src =
        "class Vault {\n"
        "    private fn code(): int { return 42; }\n"
        "}\n"
        "class Spy extends Vault {\n"
        "    fn peek(Vault other): int { return other.code(); }\n"
        "}\n"
        "fn main() {\n"
        "    var v = new Vault();\n"
        "    var r = v.code();\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(),
              (Records{record("E1006", "Cannot access private method 'code' of class 'Vault'", at(src, 5, "(", 2)),
                       record("E1006", "Cannot access private method 'code' of class 'Vault'", at(src, 9, "("))}));
    EXPECT_EQ(initializerType(a, "r"), "<type-error>");
}

TEST(ReceiverCalls, PrivateOverloadMetFirstRefusesEvenWhenAPublicOneWouldFit) {
    const std::string src =
        "class Vault {\n"
        "    private fn open(int pin): bool { return true; }\n"
        "    fn open(string word): bool { return true; }\n"
        "}\n"
        "fn main() {\n"
        "    var v = new Vault();\n"
        "    var r = v.open(\"sesame\");\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1006", "Cannot access private method 'open' of class 'Vault'", at(src, 7, "("))}));
}

TEST(ReceiverCalls, InterfaceMethodsResolveLikeClassMethods) {
    const std::string src =
        "interface Shape {\n"
        "    fn area(): double;\n"
        "}\n"
        "fn measure(Shape s) {\n"
        "    var a = s.area();\n"
        "    var p = s.perimeter();\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1003", "Undefined function or method 'perimeter'", at(src, 6, "("))}));
    EXPECT_EQ(initializerType(a, "a"), "double");
}

TEST(ReceiverCalls, BuiltinClassNamesReachTheirStaticMethods) {
    const std::string src =
        "fn main() {\n"
        "    var root = Math.sqrt(2.0);\n"
        "    var whole = Math.abs(3);\n"
        "    var wide = Math.abs(3.5);\n"
        "    var d = Duration.fromSeconds(5);\n"
        "    var ms = d.toMillis();\n"
        "    IO.println(\"hi\");\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "root"), "double");
    EXPECT_EQ(initializerType(a, "whole"), "int");
    EXPECT_EQ(initializerType(a, "wide"), "double");
    EXPECT_EQ(initializerType(a, "d"), "Duration");
    EXPECT_EQ(initializerType(a, "ms"), "int");
}
