#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sema/SemaTestSupport.h"

// Generic classes, list and set classes, composite type texts and method
// lookup through a class chain, as whole programs show them in the
// checker's messages: each case is one program and the complete list of
// its reports, in order, with their places.

namespace {

using quor::sema::testing::analyzeSource;
using Records = std::vector<std::string>;

const char* const MISMATCH = "E1001|Type mismatch: cannot initialize variable of type '";

std::string mismatch(const std::string& local, const std::string& value, const std::string& place) {
    return MISMATCH + local + "' with value of type '" + value + "'||" + place;
}

// A generic class is specialised by writing its arguments into the text of
// each member's type and reading that text again.
const char* const BOX_WORLD = R"(class Base {
    int baseField;
    fn baseMethod() -> int { return 1; }
}
class Box<T> extends Base {
    T value;
    T[] items;
    T? maybe;
    List<T> list;
    private T secret;
    fn get() -> T { return value; }
    fn put(v: T) { }
}
class Pair<K, V> {
    K first;
    Map<K, V> table;
}
abstract class Shape<T> {
}
)";

std::string boxProgram(const std::string& parameters, const std::string& body) {
    return std::string(BOX_WORLD) + "fn probe(" + parameters + ") {\n" + body + "}\n";
}

// BOX_WORLD has 19 lines, so the probe's first statement is on line 21.
TEST(GenericAndCompositeTypeTextsInPrograms, SpecialisedMembersCarryTheSubstitutedTypes) {
    const std::string source = boxProgram(
        "b: Box<int>, q: Box<int?>, p: Pair<V, int>, bb: Box<Box<string> >",
        "    string s1 = b.get();\n"
        "    string s2 = b.value;\n"
        "    b.put(\"x\");\n"
        "    int s3 = b.items;\n"
        "    int s4 = q.items;\n"
        "    int s5 = q.maybe;\n"
        "    int s6 = b.list;\n"
        "    int s7 = p.table;\n"
        "    int s8 = p.first;\n"
        "    int s9 = bb.value;\n"
        "    int s10 = bb.list;\n"
        "    int s11 = bb.get;\n");
    EXPECT_EQ(analyzeSource(source),
              (Records{
                  mismatch("string", "int", "21:12"),
                  mismatch("string", "int", "22:12"),
                  "E1001|No matching overload for function 'put' with argument types (string)||23:10",
                  mismatch("int", "int[]", "24:9"),
                  // "T[]" and "T?" take the argument as a whole: "int?[]", and
                  // "int??", which is "int?".
                  mismatch("int", "int?[]", "25:9"),
                  mismatch("int", "int?", "26:9"),
                  mismatch("int", "List<int>", "27:9"),
                  // K becomes V first, and then both V become int.
                  mismatch("int", "Map<int, int>", "28:9"),
                  // "K" is replaced at once by "V", which names nothing: any.
                  mismatch("int", "any", "29:9"),
                  mismatch("int", "Box<string>", "30:9"),
                  mismatch("int", "List<Box<string>>", "31:9"),
                  mismatch("int", "fn() -> Box<string>", "32:9"),
              }))
        << source;
}

TEST(GenericAndCompositeTypeTextsInPrograms, ASpecialisationStandsApartFromTheBaseChain) {
    const std::string source = boxProgram("b: Box<int>",
                                          "    Base s1 = b;\n"
                                          "    b.baseMethod();\n"
                                          "    int s2 = b.baseField;\n"
                                          "    string s3 = b.secret;\n"
                                          "    Box s4 = b;\n");
    EXPECT_EQ(analyzeSource(source),
              (Records{
                  mismatch("Base", "Box<int>", "21:10"),
                  "E1003|Undefined function or method 'baseMethod'||22:17",
                  "E1002|Class 'Box<int>' has no member named 'baseField'||23:15",
                  "E1006|Cannot access private field 'secret' of class 'Box<int>'||24:18",
                  mismatch("Box", "Box<int>", "25:9"),
              }))
        << source;
}

TEST(GenericAndCompositeTypeTextsInPrograms, NewNamesTheSpecialisationByItsRawArguments) {
    const std::string source = boxProgram("",
                                          "    new Shape<int>();\n"
                                          "    string s1 = new Box<int>();\n"
                                          "    string s2 = new Box();\n"
                                          "    string s3 = new Box<int32>();\n"
                                          "    Box<int> s4 = new Box<int32>();\n"
                                          "    Box<int> s5 = new Box<int>();\n"
                                          "    string s6 = new Pair<int, string[]?>();\n"
                                          "    string s7 = new List<int32>();\n"
                                          "    string s8 = new Set<byte>();\n"
                                          "    string s9 = new Map<int>();\n"
                                          "    string s10 = new Array<int?>();\n");
    EXPECT_EQ(analyzeSource(source),
              (Records{
                  "E1001|Cannot instantiate abstract class 'Shape'||21:5",
                  mismatch("string", "Box<int>", "22:12"),
                  mismatch("string", "Box", "23:12"),
                  mismatch("string", "Box<int32>", "24:12"),
                  mismatch("Box<int>", "Box<int32>", "25:14"),
                  mismatch("string", "Pair<int, string[]?>", "27:12"),
                  // The collection heads are read as types, so aliases settle.
                  mismatch("string", "List<int>", "28:12"),
                  mismatch("string", "Set<uint8>", "29:12"),
                  mismatch("string", "Map<int, any>", "30:12"),
                  mismatch("string", "int?[]", "31:12"),
              }))
        << source;
}

// A library class written with arguments is specialised too: its fields
// are substituted and its methods copied as they are.
TEST(GenericAndCompositeTypeTextsInPrograms, ALibraryClassWithArgumentsKeepsItsMethodsUnchanged) {
    const std::string source =
        "fn probe(d: Duration<int>, m: Math<string>) {\n"
        "    string s1 = d;\n"
        "    string s2 = d.fromMillis(1);\n"
        "    string s3 = d.millis;\n"
        "    string s4 = m.abs(1);\n"
        "    Duration s5 = d;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source), (Records{
                                         mismatch("string", "Duration<int>", "2:12"),
                                         mismatch("string", "Duration", "3:12"),
                                         mismatch("string", "int", "4:12"),
                                         mismatch("string", "int", "5:12"),
                                         mismatch("Duration", "Duration<int>", "6:14"),
                                     }));
}

// "List<" and "Set<" classes carry their fixed methods for the element; an
// element that names nothing makes "List<any>", whose methods fall back to
// int64 where the table says so and to void results elsewhere.
TEST(GenericAndCompositeTypeTextsInPrograms, ListAndSetMethodsFollowTheirElement) {
    const std::string source =
        "fn probe(li: List<int32>, lf: List<Foo>, st: Set<int>, sf: Set<Foo>, lm: List<Map<string, int> >) {\n"
        "    string s1 = li.pop();\n"
        "    string s2 = li.get(0);\n"
        "    string s3 = li.map(1);\n"
        "    string s4 = li.filter(1);\n"
        "    string s5 = li.size();\n"
        "    string s6 = li.length();\n"
        "    string s7 = li.isEmpty();\n"
        "    string s8 = li.reduce(0, 1);\n"
        "    li.get(\"a\");\n"
        "    li.set(1, \"a\");\n"
        "    string s9 = lf;\n"
        "    string s10 = lf.contains(1);\n"
        "    string s11 = lf.reduce(1, 2);\n"
        "    string s12 = lf.pop();\n"
        "    string s13 = lf.get(0);\n"
        "    string s14 = st.contains(1);\n"
        "    st.remove(\"a\");\n"
        "    sf.add(\"x\");\n"
        "    string s15 = sf.size();\n"
        "    string s16 = lm.pop();\n"
        "    li.push(1);\n"
        "    li.removeAt(0);\n"
        "    li.clear();\n"
        "    st.add(1);\n"
        "    st.clear();\n"
        "    st.push(1);\n"
        "    string s17 = lf.push;\n"
        "    string s18 = lf.pop;\n"
        "    string s19 = sf.remove;\n"
        "    string s20 = li.reduce;\n"
        "    string s21 = lf.map;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source),
              (Records{
                  mismatch("string", "int", "2:12"),
                  mismatch("string", "int", "3:12"),
                  mismatch("string", "List<int>", "4:12"),
                  mismatch("string", "List<int>", "5:12"),
                  mismatch("string", "int64", "6:12"),
                  mismatch("string", "int64", "7:12"),
                  mismatch("string", "bool", "8:12"),
                  mismatch("string", "int", "9:12"),
                  "E1001|No matching overload for function 'get' with argument types (string)||10:11",
                  "E1001|No matching overload for function 'set' with argument types (int, string)||11:11",
                  mismatch("string", "List<any>", "12:12"),
                  mismatch("string", "bool", "13:12"),
                  mismatch("string", "int64", "14:12"),
                  mismatch("string", "void", "15:12"),
                  mismatch("string", "void", "16:12"),
                  mismatch("string", "bool", "17:12"),
                  "E1001|No matching overload for function 'remove' with argument types (string)||18:14",
                  "E1001|No matching overload for function 'add' with argument types (string)||19:11",
                  mismatch("string", "int64", "20:12"),
                  mismatch("string", "Map<string, int>", "21:12"),
                  "E1003|Undefined function or method 'push'||27:12",
                  // A missing element prints as unknown, and a missing result as void.
                  mismatch("string", "fn(unknown) -> void", "28:12"),
                  mismatch("string", "fn() -> void", "29:12"),
                  mismatch("string", "fn(int64) -> void", "30:12"),
                  mismatch("string", "fn(any, int) -> int", "31:12"),
                  mismatch("string", "fn(any) -> List<any>", "32:12"),
              }))
        << source;
}

// Indexing a list reads its element back out of the class's name.
TEST(GenericAndCompositeTypeTextsInPrograms, ListIndexingReadsTheElementOutOfTheName) {
    const std::string source =
        "fn probe(li: List<int>, la: List<int[]>, lm: List<Map<string, int> >, lf: List<Foo>, st: Set<int>, "
        "n: int[]?) {\n"
        "    string s1 = li[0];\n"
        "    string s2 = li[\"a\"];\n"
        "    string s3 = la[0];\n"
        "    string s4 = lm[0];\n"
        "    string s5 = lf[0];\n"
        "    st[0];\n"
        "    n[0];\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source), (Records{
                                         mismatch("string", "int", "2:12"),
                                         "E1001|List index must be an integer, got 'string'||3:19",
                                         mismatch("string", "int", "3:12"),
                                         mismatch("string", "int[]", "4:12"),
                                         mismatch("string", "Map<string, int>", "5:12"),
                                         mismatch("string", "any", "6:12"),
                                         "E1001|Type 'Set<int>' does not support indexing||7:7",
                                         "E1001|Type 'int[]?' does not support indexing||8:6",
                                     }));
}

// A composite over a name that resolves to nothing: arrays and maps of it
// are the error type and stay silent, but a nullable made around that error
// type is a type of its own, printed "<type-error>?", and is reported.
TEST(GenericAndCompositeTypeTextsInPrograms, CompositesOfUnknownNamesAreSilentUnlessMadeNullable) {
    const std::string source =
        "fn probe(a: Foo[], m: Map<string, Foo>, k: Map<Map<string, int>, int>, p: Foo[]?, "
        "q: Map<string, Foo>?, r: List<Foo[]>, t: Array<Foo>?) {\n"
        "    string s1 = a;\n"
        "    string s2 = m;\n"
        "    string s3 = k;\n"
        "    string s4 = p;\n"
        "    string s5 = q;\n"
        "    string s6 = r;\n"
        "    string s7 = t;\n"
        "    string s8 = r.pop();\n"
        "    p.length;\n"
        "    a.length;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source),
              (Records{
                  mismatch("string", "<type-error>?", "5:12"),
                  mismatch("string", "<type-error>?", "6:12"),
                  mismatch("string", "List<<type-error>>", "7:12"),
                  mismatch("string", "<type-error>?", "8:12"),
                  "E1008|Null safety violation: access on nullable type '<type-error>?' requires safe navigation "
                  "'?.'|Use obj?.length|10:6",
                  "E1002|Type '<type-error>' has no member 'length'||10:6",
                  "E1002|Type '<type-error>' has no member 'length'||11:6",
              }));
}

// The printed forms of function types, nullable arrays and literals.
TEST(GenericAndCompositeTypeTextsInPrograms, FunctionAndLiteralTypesPrintInTheirCanonicalForm) {
    const std::string source =
        "fn h(a: int, b: string?) -> int[] { return [a]; }\n"
        "fn k() { }\n"
        "fn probe(z: Array<int?>, w: int[]?, y: List<int?>, x: Map<string, int[]?>) {\n"
        "    string s1 = h;\n"
        "    string s2 = k;\n"
        "    string s3 = (int v) => v;\n"
        "    string s4 = (v) => v;\n"
        "    string s5 = v => 1;\n"
        "    string s6 = (int[] a, string? q) => a;\n"
        "    string s7 = () => 1;\n"
        "    string s8 = [null];\n"
        "    string s9 = [null, 1];\n"
        "    string s10 = [1, null];\n"
        "    string s11 = [\"a\", 'c'];\n"
        "    string s12 = {\"a\": 1, \"b\": 2.5};\n"
        "    string s13 = {};\n"
        "    string s14 = [];\n"
        "    string s15 = z;\n"
        "    string s16 = w;\n"
        "    string s17 = y;\n"
        "    string s18 = x;\n"
        "    string s19 = x[\"k\"];\n"
        "    string s20 = [w];\n"
        "    string s21 = int.parse;\n"
        "    string s22 = [h];\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source), (Records{
                                         mismatch("string", "fn(int, string?) -> int[]", "4:12"),
                                         mismatch("string", "fn() -> void", "5:12"),
                                         mismatch("string", "fn(int) -> unknown", "6:12"),
                                         mismatch("string", "fn(unknown) -> unknown", "7:12"),
                                         mismatch("string", "fn(unknown) -> unknown", "8:12"),
                                         mismatch("string", "fn(int[], string?) -> unknown", "9:12"),
                                         mismatch("string", "fn() -> unknown", "10:12"),
                                         mismatch("string", "null[]", "11:12"),
                                         mismatch("string", "int?[]", "12:12"),
                                         mismatch("string", "int?[]", "13:12"),
                                         mismatch("string", "any[]", "14:12"),
                                         mismatch("string", "Map<string, double>", "15:12"),
                                         mismatch("string", "Map<string, any>", "16:12"),
                                         mismatch("string", "any[]", "17:12"),
                                         mismatch("string", "int?[]", "18:12"),
                                         mismatch("string", "int[]?", "19:12"),
                                         mismatch("string", "List<int?>", "20:12"),
                                         mismatch("string", "Map<string, int[]?>", "21:12"),
                                         mismatch("string", "int[]?", "22:12"),
                                         mismatch("string", "int[]?[]", "23:12"),
                                         mismatch("string", "fn(string) -> int", "24:12"),
                                         mismatch("string", "fn(int, string?) -> int[][]", "25:12"),
                                     }));
}

// A subclass method hides an inherited one only when the whole function
// type is equal; otherwise both stay, the own one first, and the call takes
// the first exact candidate, else the first that fits.
TEST(GenericAndCompositeTypeTextsInPrograms, InheritedMethodsStayBesideOwnOnesOfAnotherType) {
    const std::string source =
        "class A {\n"
        "    fn f() -> int { return 1; }\n"
        "    fn g(x: int) -> int { return x; }\n"
        "    fn h(x: int) -> int { return x; }\n"
        "}\n"
        "class B extends A {\n"
        "    fn f() -> string { return \"b\"; }\n"
        "    fn g(x: double) -> string { return \"b\"; }\n"
        "    fn h(x: int) -> int { return 2; }\n"
        "}\n"
        "class C extends B {\n"
        "    fn f() -> string { return \"c\"; }\n"
        "}\n"
        "fn probe(b: B, c: C, u: uint8) {\n"
        "    int s1 = b.f();\n"
        "    bool s2 = b.g(1);\n"
        "    bool s3 = b.g(u);\n"
        "    bool s4 = c.f();\n"
        "    bool s5 = c.g(2.5);\n"
        "    bool s6 = b.f;\n"
        "    A s7 = b;\n"
        "    A s8 = c;\n"
        "    C s9 = b;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source), (Records{
                                         mismatch("int", "string", "15:9"),
                                         mismatch("bool", "int", "16:10"),
                                         mismatch("bool", "string", "17:10"),
                                         mismatch("bool", "string", "18:10"),
                                         mismatch("bool", "string", "19:10"),
                                         mismatch("bool", "fn() -> string", "20:10"),
                                         mismatch("C", "B", "23:7"),
                                     }));
}

// A generic function's result text has the call's type arguments, or else
// the argument types in order, written into it; the parameters are replaced
// one after the other, so an argument that spells a later parameter's name
// is replaced again.
TEST(GenericAndCompositeTypeTextsInPrograms, GenericResultsAndSelfReferringClassesReadTheirTextAgain) {
    const std::string source =
        "class V {\n"
        "}\n"
        "class Node<T> {\n"
        "    Node<T> next;\n"
        "    T value;\n"
        "    Node<T[]> deeper;\n"
        "}\n"
        "fn id<T>(x: T) -> T { return x; }\n"
        "fn wrap<T>(x: T) -> T[] { return [x]; }\n"
        "fn opt<T>(x: T) -> T? { return x; }\n"
        "fn two<K, V>(k: K, v: V) -> Map<K, V> { return {}; }\n"
        "fn firstOf<K, V>(k: K, v: V) -> K { return k; }\n"
        "fn listOf<T>(x: T) -> List<T> { return new List<T>(); }\n"
        "fn probe(n: Node<int>, v: V, m: Map<string, int>) {\n"
        "    string s1 = n.next.next.value;\n"
        "    string s2 = n.deeper.value;\n"
        "    string s3 = n.deeper.deeper;\n"
        "    string s4 = id<int>(1);\n"
        "    string s5 = id(1.5);\n"
        "    string s6 = wrap(1);\n"
        "    string s7 = opt(\"a\");\n"
        "    string s8 = two(v, 1);\n"
        "    string s9 = firstOf(v, 1);\n"
        "    string s10 = listOf(m);\n"
        "    string s11 = wrap(m);\n"
        "    string s12 = id<int32>(1);\n"
        "    string s13 = id<Foo>(1);\n"
        "    string s14 = opt<int?>(null);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source), (Records{
                                         mismatch("string", "int", "15:12"),
                                         mismatch("string", "int[]", "16:12"),
                                         mismatch("string", "Node<int[][]>", "17:12"),
                                         mismatch("string", "int", "18:12"),
                                         mismatch("string", "double", "19:12"),
                                         mismatch("string", "int[]", "20:12"),
                                         mismatch("string", "string?", "21:12"),
                                         // "Map<K, V>" becomes "Map<V, V>", then "Map<int, int>".
                                         mismatch("string", "Map<int, int>", "22:12"),
                                         // "K" is "V" at once, and V is a class here.
                                         mismatch("string", "V", "23:12"),
                                         mismatch("string", "List<Map<string, int>>", "24:12"),
                                         mismatch("string", "Map<string, int>[]", "25:12"),
                                         mismatch("string", "int", "26:12"),
                                         // A result text that names nothing keeps the declared
                                         // result, which is any inside the declaration.
                                         mismatch("string", "any", "27:12"),
                                         mismatch("string", "int?", "28:12"),
                                     }));
}

// The type text of a local is read as a type: some texts name nothing and
// are reported, some are the silent error type, and aliases settle into
// their canonical names.
TEST(GenericAndCompositeTypeTextsInPrograms, LocalTypeTextsResolveReportOrFallSilent) {
    struct Row {
        const char* type;
        const char* init;
        std::string record;  // without the place; empty when nothing is reported
    };
    auto mm = [](const std::string& local, const std::string& value) {
        return std::string(MISMATCH) + local + "' with value of type '" + value + "'|";
    };
    const Row rows[] = {
        // Texts that name nothing.
        {"Map<string>", "1", "E1002|Undefined type 'Map<string>' in declaration of variable 'v'|"},
        {"Shape<int>", "1", "E1002|Undefined type 'Shape<int>' in declaration of variable 'v'|"},
        {"Color<int>", "1", "E1002|Undefined type 'Color<int>' in declaration of variable 'v'|"},
        {"Point<int>", "1", "E1002|Undefined type 'Point<int>' in declaration of variable 'v'|"},
        {"Missing<int>", "1", "E1002|Undefined type 'Missing<int>' in declaration of variable 'v'|"},
        {"Int", "1", "E1002|Undefined type 'Int' in declaration of variable 'v'|"},
        {"List", "1", "E1002|Undefined type 'List' in declaration of variable 'v'|"},
        {"Map", "1", "E1002|Undefined type 'Map' in declaration of variable 'v'|"},
        {"Array", "1", "E1002|Undefined type 'Array' in declaration of variable 'v'|"},
        // Composites over such a name are the error type, which takes anything.
        {"Foo[]", "1", ""},
        {"Foo?", "1", ""},
        {"Array<Foo>", "1", ""},
        {"Map<Foo, int>", "1", ""},
        {"Map<int, Foo>", "1", ""},
        {"Map<Map<string, int>, int>", "1", ""},
        // A nullable around the error type takes an int as a subtype of its inner type.
        {"Foo[]?", "1", ""},
        {"Foo[]?", "null", ""},
        // Aliases and their canonical texts.
        {"int32", "\"a\"", mm("int", "string")},
        {"uint32", "\"a\"", mm("uint", "string")},
        {"byte", "\"a\"", mm("uint8", "string")},
        {"Array<int32>", "1", mm("int[]", "int")},
        {"List<byte>", "1", mm("List<uint8>", "int")},
        {"Map<int32, byte[]>", "1", mm("Map<int, uint8[]>", "int")},
        {"Box<int32>", "1", mm("Box<int32>", "int")},
        {"List<Foo>", "1", mm("List<any>", "int")},
        {"Set<Foo>", "1", mm("Set<any>", "int")},
        // The library class String is not the string type.
        {"String", "\"a\"", mm("String", "string")},
        {"Duration", "1", mm("Duration", "int")},
        // Primitive names that take next to nothing.
        {"void", "1", mm("void", "int")},
        {"unknown", "1", mm("unknown", "int")},
        {"any", "null",
         "E1008|Null safety violation: cannot assign null to non-nullable variable 'v' of type 'any'|Use 'any?' to "
         "declare a nullable variable"},
        {"any?", "null", ""},
    };
    const std::string world =
        "interface Shape {\n}\nenum Color { Red }\nstruct Point {\n    x: int;\n}\nclass Box<T> {\n    T value;\n}\n";
    for (const auto& row : rows) {
        const std::string type = row.type;
        const std::string source = world + "fn probe() {\n    " + type + " v = " + row.init + ";\n}\n";
        Records expected;
        if (!row.record.empty()) {
            expected.push_back(row.record + "|11:" + std::to_string(4 + type.size() + 2));
        }
        EXPECT_EQ(analyzeSource(source), expected) << source;
    }
}

// A member without a type text is void in the generic class itself but
// unknown in a specialisation, whose members are read from their text again.
TEST(GenericAndCompositeTypeTextsInPrograms, UntypedMembersAreVoidInTheBaseAndUnknownInASpecialisation) {
    const std::string source =
        "class Box<T> {\n"
        "    var count = 0;\n"
        "    fn take(x) { }\n"
        "    fn give() -> T { return count; }\n"
        "}\n"
        "fn probe(b: Box<int>, bx: Box) {\n"
        "    string s1 = b.count;\n"
        "    string s2 = b.take;\n"
        "    string s3 = bx.count;\n"
        "    string s4 = bx.take;\n"
        "    string s5 = b.give;\n"
        "    string s6 = bx.give;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source),
              (Records{
                  "E1001|Type mismatch in field initializer for 'count': expected 'void', got 'int'||2:5",
                  mismatch("string", "unknown", "7:12"),
                  mismatch("string", "fn(unknown) -> void", "8:12"),
                  mismatch("string", "void", "9:12"),
                  mismatch("string", "fn(void) -> void", "10:12"),
                  mismatch("string", "fn() -> int", "11:12"),
                  // Inside its own declaration a type parameter is any.
                  mismatch("string", "fn() -> any", "12:12"),
              }));
}

// The heads "List<", "Set<", "Map<" with a comma, and "Array<" are read
// before any class name, so user classes of those names are reached only
// by their bare name, or, for Map, with a single argument. Inside a generic
// class a type parameter within a composite names nothing, and the member
// is the silent error type.
TEST(GenericAndCompositeTypeTextsInPrograms, CollectionHeadsComeBeforeUserClassesOfTheirNames) {
    const std::string source =
        "class List<T> {\n"
        "    T item;\n"
        "}\n"
        "class Map<K, V> {\n"
        "    K key;\n"
        "}\n"
        "class Set {\n"
        "    int n;\n"
        "}\n"
        "class Box<T> {\n"
        "    T[] items;\n"
        "    T? maybe;\n"
        "    Map<string, T> table;\n"
        "}\n"
        "fn probe(l: List<int>, bare: List, m: Map<string>, mm: Map<string, int>, st: Set<int>, s0: Set, bx: Box) {\n"
        "    string s1 = l.item;\n"
        "    string s2 = bare.item;\n"
        "    string s3 = m.key;\n"
        "    string s4 = mm;\n"
        "    string s5 = st;\n"
        "    string s6 = s0.n;\n"
        "    string s7 = new List<int>();\n"
        "    string s8 = new List();\n"
        "    string s9 = bx.items;\n"
        "    string s10 = bx.maybe;\n"
        "    string s11 = bx.table;\n"
        "    string s12 = new Set();\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source), (Records{
                                         "E1002|Class 'List<int>' has no member named 'item'||16:18",
                                         mismatch("string", "any", "17:12"),
                                         // "Map<string>" has no comma: the user class, specialised.
                                         mismatch("string", "Map<string, int>", "19:12"),
                                         mismatch("string", "Set<int>", "20:12"),
                                         mismatch("string", "int", "21:12"),
                                         mismatch("string", "List<int>", "22:12"),
                                         mismatch("string", "List<any>", "23:12"),
                                         mismatch("string", "Set<any>", "27:12"),
                                     }));
}

// A specialisation is made when its text is first read and kept: one read
// from a signature ahead of a class declaration finds no such class for its
// member, which falls back to any, while a later one finds the class.
TEST(GenericAndCompositeTypeTextsInPrograms, ASpecialisationKeepsWhatItsMembersNamedWhenItWasMade) {
    const std::string source =
        "class Box<T> {\n"
        "    Later x;\n"
        "    T v;\n"
        "}\n"
        "fn early(b: Box<int>) {\n"
        "    string s1 = b.x;\n"
        "    string s2 = b.v;\n"
        "}\n"
        "class Later {\n"
        "}\n"
        "fn late(b: Box<string>, c: Box<int>) {\n"
        "    int s3 = b.x;\n"
        "    int s4 = c.x;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source), (Records{
                                         mismatch("string", "any", "6:12"),
                                         mismatch("string", "int", "7:12"),
                                         mismatch("int", "Later", "12:9"),
                                         mismatch("int", "any", "13:9"),
                                     }));
}

}  // namespace
