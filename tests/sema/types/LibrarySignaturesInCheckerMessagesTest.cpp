#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sema/SemaTestSupport.h"

// Every signature of the library classes and of the global functions, as a
// program meets it: each row is called with arguments of exactly its
// parameter types, and the result initialises a local of a type it does not
// assign to, so that the checker's mismatch message prints the result type.
// A wrong parameter type or count ends in "No matching overload" instead,
// and a wrong overload order or result in another type text.

namespace {

using quor::sema::testing::analyzeSource;
using Records = std::vector<std::string>;

// One argument of every parameter type the tables use, as parameters of the
// probe, so that each argument has its type exactly.
const char* const PROBE_HEAD =
    "fn probe(s: string, i: int, l: int64, d: double, b: bool, a: any, u: uint64, du: Duration) {\n";

struct CallRow {
    const char* call;
    const char* result;  // the text of the chosen signature's result type
};

// The result as a local of another type reports it: a bool local for every
// result but bool, a string local for bool.
std::string resultProbe(const CallRow& row) {
    const std::string local = std::string(row.result) == "bool" ? "string" : "bool";
    return std::string(PROBE_HEAD) + "    " + local + " v = " + row.call + ";\n}\n";
}

std::string mismatchRecord(const CallRow& row) {
    const std::string local = std::string(row.result) == "bool" ? "string" : "bool";
    // The declaration is reported at its name: four blanks, the type, a blank.
    const std::size_t column = 4 + local.size() + 2;
    return "E1001|Type mismatch: cannot initialize variable of type '" + local + "' with value of type '" +
           row.result + "'||2:" + std::to_string(column);
}

const CallRow CLASS_CALLS[] = {
    // IO and Console: the same eight methods, string only.
    {"IO.println(s)", "void"},
    {"IO.print(s)", "void"},
    {"IO.eprintln(s)", "void"},
    {"IO.eprint(s)", "void"},
    {"IO.readLine()", "string"},
    {"IO.readln()", "string"},
    {"IO.flush()", "void"},
    {"IO.eflush()", "void"},
    {"Console.println(s)", "void"},
    {"Console.print(s)", "void"},
    {"Console.eprintln(s)", "void"},
    {"Console.eprint(s)", "void"},
    {"Console.readLine()", "string"},
    {"Console.readln()", "string"},
    {"Console.flush()", "void"},
    {"Console.eflush()", "void"},
    // String: the string is the first explicit argument.
    {"String.length(s)", "int64"},
    {"String.upper(s)", "string"},
    {"String.lower(s)", "string"},
    {"String.trim(s)", "string"},
    {"String.contains(s, s)", "bool"},
    {"String.indexOf(s, s)", "int64"},
    {"String.replace(s, s, s)", "string"},
    {"String.substring(s, l, l)", "string"},
    {"String.split(s, s)", "string[]"},
    {"String.reverse(s)", "string"},
    // Math.
    {"Math.sqrt(d)", "double"},
    {"Math.pow(d, d)", "double"},
    {"Math.sin(d)", "double"},
    {"Math.cos(d)", "double"},
    {"Math.tan(d)", "double"},
    {"Math.asin(d)", "double"},
    {"Math.acos(d)", "double"},
    {"Math.atan(d)", "double"},
    {"Math.atan2(d, d)", "double"},
    {"Math.floor(d)", "double"},
    {"Math.ceil(d)", "double"},
    {"Math.round(d)", "double"},
    {"Math.abs(i)", "int"},
    {"Math.abs(l)", "int64"},
    {"Math.abs(d)", "double"},
    {"Math.min(i, i)", "int"},
    {"Math.min(l, l)", "int64"},
    {"Math.min(d, d)", "double"},
    {"Math.max(i, i)", "int"},
    {"Math.max(l, l)", "int64"},
    {"Math.max(d, d)", "double"},
    {"Math.log(d)", "double"},
    {"Math.log10(d)", "double"},
    {"Math.log2(d)", "double"},
    {"Math.exp(d)", "double"},
    // FS and File.
    {"FS.readText(s)", "string"},
    {"FS.writeText(s, s)", "bool"},
    {"FS.appendText(s, s)", "bool"},
    {"FS.exists(s)", "bool"},
    {"FS.delete(s)", "bool"},
    {"FS.deleteFile(s)", "bool"},
    {"FS.createDir(s)", "bool"},
    {"FS.listDir(s)", "string[]"},
    {"FS.isFile(s)", "bool"},
    {"FS.isDir(s)", "bool"},
    {"File.readText(s)", "string"},
    {"File.writeText(s, s)", "bool"},
    {"File.appendText(s, s)", "bool"},
    {"File.exists(s)", "bool"},
    {"File.delete(s)", "bool"},
    {"File.deleteFile(s)", "bool"},
    {"File.isFile(s)", "bool"},
    // Time: now is a 32-bit int, nowNanos an int64, parse an int.
    {"Time.now()", "int"},
    {"Time.nowSeconds()", "int"},
    {"Time.nowNanos()", "int64"},
    {"Time.sleep(i)", "void"},
    {"Time.sleep(l)", "void"},
    {"Time.sleepSeconds(i)", "void"},
    {"Time.sleepSeconds(l)", "void"},
    {"Time.format(i)", "string"},
    {"Time.format(l)", "string"},
    {"Time.parse(s)", "int"},
    // Duration: the factories give the class, the two conversions an int.
    {"Duration.fromMillis(i)", "Duration"},
    {"Duration.fromMillis(l)", "Duration"},
    {"Duration.fromSeconds(i)", "Duration"},
    {"Duration.fromSeconds(l)", "Duration"},
    {"Duration.fromMinutes(i)", "Duration"},
    {"Duration.fromMinutes(l)", "Duration"},
    {"Duration.fromHours(i)", "Duration"},
    {"Duration.fromHours(l)", "Duration"},
    {"du.toMillis()", "int"},
    {"du.toSeconds()", "int"},
    {"Duration.fromMillis(i).toSeconds()", "int"},
    // OS and Process.
    {"OS.getEnv(s)", "string"},
    {"OS.setEnv(s, s)", "bool"},
    {"OS.platform()", "string"},
    {"OS.arch()", "string"},
    {"OS.args()", "string[]"},
    {"OS.exit(i)", "void"},
    {"OS.exit(l)", "void"},
    {"Process.exec(s)", "int"},
    {"Process.spawn(s)", "int"},
    {"Process.run(s)", "string"},
    {"Process.pid()", "int"},
    // Fields, and methods read as values: the first method of the name.
    {"Math.PI", "double"},
    {"Math.E", "double"},
    {"Math.TAU", "double"},
    {"du.millis", "int"},
    {"Duration.fromMillis(l).millis", "int"},
    {"Console.println", "fn(string) -> void"},
    {"Math.abs", "fn(int) -> int"},
    {"Math.max", "fn(int, int) -> int"},
    {"Time.sleep", "fn(int) -> void"},
    {"Duration.fromHours", "fn(int) -> Duration"},
    {"du.toMillis", "fn() -> int"},
    {"String.substring", "fn(string, int64, int64) -> string"},
    // Arguments that only widen pick the first overload that takes them.
    {"Math.abs(u)", "double"},
    {"Math.min(b ? i : i, l)", "int64"},
    {"String.length(s) + i", "int64"},
};

TEST(LibrarySignaturesInCheckerMessages, EveryLibraryClassRowGivesItsResultType) {
    for (const auto& row : CLASS_CALLS) {
        const std::string source = resultProbe(row);
        EXPECT_EQ(analyzeSource(source), Records{mismatchRecord(row)}) << source;
    }
}

const CallRow GLOBAL_CALLS[] = {
    {"println(s)", "void"},
    {"println(i)", "void"},
    {"println(d)", "void"},
    {"println(b)", "void"},
    {"println(a)", "void"},
    {"print(s)", "void"},
    {"print(a)", "void"},
    {"readln()", "string"},
    {"readLine()", "string"},
    {"eprint(s)", "void"},
    {"eprint(a)", "void"},
    {"eprintln(s)", "void"},
    {"eprintln(a)", "void"},
    {"flush()", "void"},
    {"eflush()", "void"},
    {"assert(b)", "void"},
    {"assert(b, s)", "void"},
    {"panic(s)", "void"},
    {"len(a)", "int"},
    {"len(s)", "int"},
    {"PI", "double"},
    {"E", "double"},
    {"TAU", "double"},
    {"sqrt(d)", "double"},
    {"pow(d, d)", "double"},
    {"sin(d)", "double"},
    {"cos(d)", "double"},
    {"tan(d)", "double"},
    {"asin(d)", "double"},
    {"acos(d)", "double"},
    {"atan(d)", "double"},
    {"atan2(d, d)", "double"},
    {"floor(d)", "double"},
    {"ceil(d)", "double"},
    {"round(d)", "double"},
    {"abs(i)", "int"},
    {"abs(d)", "double"},
    {"min(i, i)", "int"},
    {"min(d, d)", "double"},
    {"max(i, i)", "int"},
    {"max(d, d)", "double"},
    {"log(d)", "double"},
    {"log10(d)", "double"},
    {"log2(d)", "double"},
    {"exp(d)", "double"},
    {"readText(s)", "string"},
    {"writeText(s, s)", "bool"},
    {"appendText(s, s)", "bool"},
    {"exists(s)", "bool"},
    {"deleteFile(s)", "bool"},
    {"delete(s)", "bool"},
    {"createDir(s)", "bool"},
    {"listDir(s)", "string[]"},
    {"isFile(s)", "bool"},
    {"isDir(s)", "bool"},
    {"now()", "int"},
    {"nowSeconds()", "int"},
    {"sleep(i)", "void"},
    {"sleepSeconds(i)", "void"},
    {"formatTime(i)", "string"},
    {"parseTime(s)", "int"},
    {"getEnv(s)", "string"},
    {"setEnv(s, s)", "bool"},
    {"platform()", "string"},
    {"arch()", "string"},
    {"args()", "string[]"},
    {"exit(i)", "void"},
    {"exec(s)", "int"},
    {"spawn(s)", "int"},
    {"runCommand(s)", "string"},
    {"pid()", "int"},
    // Without the int64 overloads of Math, an int64 widens to double.
    {"abs(l)", "double"},
    {"min(l, l)", "double"},
    {"max(i, l)", "double"},
    // A function's name as a value is the type of the first overload.
    {"println", "fn(string) -> void"},
    {"assert", "fn(bool) -> void"},
    {"now", "fn() -> int"},
    {"listDir", "fn(string) -> string[]"},
};

TEST(LibrarySignaturesInCheckerMessages, EveryGlobalFunctionAndConstantGivesItsType) {
    for (const auto& row : GLOBAL_CALLS) {
        const std::string source = resultProbe(row);
        EXPECT_EQ(analyzeSource(source), Records{mismatchRecord(row)}) << source;
    }
}

// Calls the tables do not cover, each a statement of its own. The report
// stands at the call's opening parenthesis.
struct MissRow {
    const char* call;
    const char* message;
};

const MissRow MISSES[] = {
    // Names a class lacks, though a sibling class or the globals have them.
    {"File.listDir(s)", "E1003|Undefined function or method 'listDir'|"},
    {"File.createDir(s)", "E1003|Undefined function or method 'createDir'|"},
    {"File.isDir(s)", "E1003|Undefined function or method 'isDir'|"},
    {"Time.formatTime(i)", "E1003|Undefined function or method 'formatTime'|"},
    {"Time.parseTime(s)", "E1003|Undefined function or method 'parseTime'|"},
    {"Process.runCommand(s)", "E1003|Undefined function or method 'runCommand'|"},
    {"Math.PI()", "E1003|Undefined function or method 'PI'|"},
    {"Math.Abs(i)", "E1003|Undefined function or method 'Abs'|"},
    {"IO.len(a)", "E1003|Undefined function or method 'len'|"},
    // Global names that only a class has.
    {"nowNanos()", "E1003|Undefined function or callable symbol 'nowNanos'|"},
    {"run(s)", "E1003|Undefined function or callable symbol 'run'|"},
    {"format(i)", "E1003|Undefined function or callable symbol 'format'|"},
    {"parse(s)", "E1003|Undefined function or callable symbol 'parse'|"},
    {"upper(s)", "E1003|Undefined function or callable symbol 'upper'|"},
    {"fromMillis(i)", "E1003|Undefined function or callable symbol 'fromMillis'|"},
    // Arguments that no row of the name takes.
    {"IO.println(i)", "E1001|No matching overload for function 'println' with argument types (int)|"},
    {"Console.print(a)", "E1001|No matching overload for function 'print' with argument types (any)|"},
    {"OS.exit(u)", "E1001|No matching overload for function 'exit' with argument types (uint64)|"},
    {"Duration.fromHours(d)", "E1001|No matching overload for function 'fromHours' with argument types (double)|"},
    {"Time.sleep(d)", "E1001|No matching overload for function 'sleep' with argument types (double)|"},
    {"String.substring(s, d, i)",
     "E1001|No matching overload for function 'substring' with argument types (string, double, int)|"},
    {"String.upper()", "E1001|No matching overload for function 'upper' with argument types ()|"},
    {"du.toMillis(i)", "E1001|No matching overload for function 'toMillis' with argument types (int)|"},
    {"Math.pow(d)", "E1001|No matching overload for function 'pow' with argument types (double)|"},
    {"sleep(l)", "E1001|No matching overload for function 'sleep' with argument types (int64)|"},
    {"exit(l)", "E1001|No matching overload for function 'exit' with argument types (int64)|"},
    {"formatTime(l)", "E1001|No matching overload for function 'formatTime' with argument types (int64)|"},
    {"exit(i, i)", "E1001|No matching overload for function 'exit' with argument types (int, int)|"},
    {"assert(i)", "E1001|No matching overload for function 'assert' with argument types (int)|"},
    {"assert(b, i)", "E1001|No matching overload for function 'assert' with argument types (bool, int)|"},
    {"readText()", "E1001|No matching overload for function 'readText' with argument types ()|"},
    {"println(s, s)", "E1001|No matching overload for function 'println' with argument types (string, string)|"},
    {"sqrt(s)", "E1001|No matching overload for function 'sqrt' with argument types (string)|"},
};

TEST(LibrarySignaturesInCheckerMessages, CallsOutsideTheTablesAreReportedAtTheirParenthesis) {
    for (const auto& row : MISSES) {
        const std::string call = row.call;
        const std::string source = std::string(PROBE_HEAD) + "    " + call + ";\n}\n";
        const std::size_t column = 4 + call.find('(') + 1;
        EXPECT_EQ(analyzeSource(source), Records{std::string(row.message) + "|2:" + std::to_string(column)})
            << source;
    }
}

// The global constants are protected by name; the constant fields of Math
// are fields, which an assignment only holds to their type.
TEST(LibrarySignaturesInCheckerMessages, TheGlobalConstantsCannotBeAssignedButMathFieldsOnlyKeepTheirType) {
    EXPECT_EQ(analyzeSource("fn probe() {\n    PI = 3.0;\n    TAU += 1.0;\n"
                            "    Math.PI = 1.0;\n    Math.E = \"x\";\n}\n"),
              (Records{"E1005|Cannot assign to constant 'PI'|Constants are immutable and cannot be reassigned|2:8",
                       "E1005|Cannot assign to constant 'TAU'|Constants are immutable and cannot be reassigned|3:9",
                       "E1001|Cannot assign value of type 'string' to variable of type 'double'||5:12"}));
}

TEST(LibrarySignaturesInCheckerMessages, AUserClassOfALibraryNameHidesTheLibraryMethods) {
    const std::string source = "class Console {\n    fn println(n: int) { }\n}\n"
                               "fn probe() {\n    Console.println(1);\n    Console.println(\"x\");\n"
                               "    Console.readLine();\n    IO.println(\"x\");\n}\n";
    EXPECT_EQ(analyzeSource(source),
              (Records{"E1001|No matching overload for function 'println' with argument types (string)||6:20",
                       "E1003|Undefined function or method 'readLine'||7:21"}));
}

// User functions beside the global ones: one with the parameters of a
// global is dropped and calls keep reaching the global; one with other
// parameters joins the set behind the globals, where the first exact
// candidate wins. A local of the name hides the whole set from calls.
TEST(LibrarySignaturesInCheckerMessages, UserFunctionsMeetTheGlobalOverloadsInTableOrder) {
    const std::string source =
        "fn abs(x: int) -> string { return \"a\"; }\n"
        "fn abs(x: int64) -> string { return \"b\"; }\n"
        "fn len(s: string) -> string { return s; }\n"
        "fn probe(l: int64, u: uint8) {\n"
        "    string s1 = abs(1);\n"
        "    bool s2 = abs(l);\n"
        "    string s3 = abs(u);\n"
        "    bool s4 = len(\"a\");\n"
        "    string s5 = len(1);\n"
        "}\n"
        "fn shadow() {\n"
        "    var print = 1;\n"
        "    print(\"x\");\n"
        "    var sqrt = (x) => x;\n"
        "    string s6 = sqrt(2.0);\n"
        "}\n";
    EXPECT_EQ(analyzeSource(source),
              (Records{
                  // The global abs(int) stays; the user's of the same parameters is gone.
                  "E1001|Type mismatch: cannot initialize variable of type 'string' with value of type 'int'||5:12",
                  // The user's abs(int64) is the exact one behind the globals.
                  "E1001|Type mismatch: cannot initialize variable of type 'bool' with value of type 'string'||6:10",
                  // A uint8 widens to int first.
                  "E1001|Type mismatch: cannot initialize variable of type 'string' with value of type 'int'||7:12",
                  "E1001|Type mismatch: cannot initialize variable of type 'bool' with value of type 'string'||8:10",
                  "E1001|Type mismatch: cannot initialize variable of type 'string' with value of type 'int'||9:12",
                  "E1003|Undefined function or callable symbol 'print'||13:10",
                  "E1001|Type mismatch: cannot initialize variable of type 'string' with value of type "
                  "'unknown'||15:12",
              }));
}

}  // namespace
