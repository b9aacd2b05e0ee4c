// The global functions and constants that every source sees without an
// import, checked entry by entry, and how user declarations meet them.
#include <set>
#include <string>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

struct GlobalFunction {
    const char* name;
    const char* signature;  // as the function type prints
};

// Every global function in order of definition; a repeated name is an overload.
const GlobalFunction GLOBAL_FUNCTIONS[] = {
    {"println", "fn(string) -> void"},
    {"println", "fn(int) -> void"},
    {"println", "fn(double) -> void"},
    {"println", "fn(bool) -> void"},
    {"println", "fn(any) -> void"},
    {"print", "fn(string) -> void"},
    {"print", "fn(any) -> void"},
    {"readln", "fn() -> string"},
    {"readLine", "fn() -> string"},
    {"eprint", "fn(string) -> void"},
    {"eprint", "fn(any) -> void"},
    {"eprintln", "fn(string) -> void"},
    {"eprintln", "fn(any) -> void"},
    {"flush", "fn() -> void"},
    {"eflush", "fn() -> void"},
    {"assert", "fn(bool) -> void"},
    {"assert", "fn(bool, string) -> void"},
    {"panic", "fn(string) -> void"},
    {"len", "fn(any) -> int"},
    {"sqrt", "fn(double) -> double"},
    {"pow", "fn(double, double) -> double"},
    {"sin", "fn(double) -> double"},
    {"cos", "fn(double) -> double"},
    {"tan", "fn(double) -> double"},
    {"asin", "fn(double) -> double"},
    {"acos", "fn(double) -> double"},
    {"atan", "fn(double) -> double"},
    {"atan2", "fn(double, double) -> double"},
    {"floor", "fn(double) -> double"},
    {"ceil", "fn(double) -> double"},
    {"round", "fn(double) -> double"},
    {"abs", "fn(int) -> int"},
    {"abs", "fn(double) -> double"},
    {"min", "fn(int, int) -> int"},
    {"min", "fn(double, double) -> double"},
    {"max", "fn(int, int) -> int"},
    {"max", "fn(double, double) -> double"},
    {"log", "fn(double) -> double"},
    {"log10", "fn(double) -> double"},
    {"log2", "fn(double) -> double"},
    {"exp", "fn(double) -> double"},
    {"readText", "fn(string) -> string"},
    {"writeText", "fn(string, string) -> bool"},
    {"appendText", "fn(string, string) -> bool"},
    {"exists", "fn(string) -> bool"},
    {"deleteFile", "fn(string) -> bool"},
    {"delete", "fn(string) -> bool"},
    {"createDir", "fn(string) -> bool"},
    {"listDir", "fn(string) -> string[]"},
    {"isFile", "fn(string) -> bool"},
    {"isDir", "fn(string) -> bool"},
    {"now", "fn() -> int"},
    {"nowSeconds", "fn() -> int"},
    {"sleep", "fn(int) -> void"},
    {"sleepSeconds", "fn(int) -> void"},
    {"formatTime", "fn(int) -> string"},
    {"parseTime", "fn(string) -> int"},
    {"getEnv", "fn(string) -> string"},
    {"setEnv", "fn(string, string) -> bool"},
    {"platform", "fn() -> string"},
    {"arch", "fn() -> string"},
    {"args", "fn() -> string[]"},
    {"exit", "fn(int) -> void"},
    {"exec", "fn(string) -> int"},
    {"spawn", "fn(string) -> int"},
    {"runCommand", "fn(string) -> string"},
    {"pid", "fn() -> int"},
};

const char* const GLOBAL_CONSTANTS[] = {"PI", "E", "TAU"};

std::vector<std::string> expectedSet(const std::string& name) {
    std::vector<std::string> out;
    for (const auto& f : GLOBAL_FUNCTIONS) {
        if (name == f.name) out.push_back(f.signature);
    }
    return out;
}

std::vector<std::string> actualSet(SymbolTable& table, const std::string& name) {
    std::vector<std::string> out;
    for (const auto& f : table.lookupFunctions(name)) out.push_back(f->functionType->toString());
    return out;
}

void expectBuiltinLocation(const Symbol& symbol) {
    EXPECT_EQ(symbol.location.file, BUILTIN_FILE) << symbol.name;
    EXPECT_EQ(symbol.location.line, 0u) << symbol.name;
    EXPECT_EQ(symbol.location.column, 0u) << symbol.name;
}

TEST(BuiltinGlobalsTable, EveryFunctionNameHasItsOverloadsInOrder) {
    Analysis a("");
    std::set<std::string> seen;
    for (const auto& f : GLOBAL_FUNCTIONS) {
        if (!seen.insert(f.name).second) continue;
        EXPECT_EQ(actualSet(a.symbols(), f.name), expectedSet(f.name)) << f.name;
    }
}

TEST(BuiltinGlobalsTable, EveryFunctionIsAPlainPublicFunctionOfNoDeclaration) {
    Analysis a("");
    std::set<std::string> seen;
    for (const auto& f : GLOBAL_FUNCTIONS) {
        if (!seen.insert(f.name).second) continue;
        const auto set = a.symbols().lookupFunctions(f.name);
        for (std::size_t i = 0; i < set.size(); ++i) {
            const auto& symbol = *set[i];
            SCOPED_TRACE(std::string(f.name) + " #" + std::to_string(i));
            EXPECT_EQ(symbol.name, f.name);
            EXPECT_EQ(symbol.kind, SymbolKind::Function);
            EXPECT_EQ(symbol.visibility, "public");
            EXPECT_FALSE(symbol.isStatic || symbol.isMethod || symbol.isAbstract || symbol.isOverride);
            EXPECT_TRUE(symbol.typeParams.empty());
            EXPECT_EQ(symbol.decl, nullptr);
            EXPECT_EQ(symbol.type, symbol.functionType);
            expectBuiltinLocation(symbol);
            // Only the first symbol of a name carries the others.
            if (i > 0) {
                EXPECT_TRUE(symbol.overloads.empty());
            }
        }
        EXPECT_EQ(set.front(), a.symbols().globalScope->lookupLocal(f.name));
    }
}

TEST(BuiltinGlobalsTable, TheConstantsAreDoublesWithoutAValue) {
    Analysis a("");
    for (const char* name : GLOBAL_CONSTANTS) {
        auto symbol = std::dynamic_pointer_cast<VariableSymbol>(a.symbols().lookup(name));
        ASSERT_TRUE(symbol) << name;
        EXPECT_EQ(symbol->kind, SymbolKind::Constant) << name;
        EXPECT_TRUE(symbol->isConst);
        EXPECT_FALSE(symbol->isParameter);
        EXPECT_EQ(symbol->type, a.types().doubleType) << name;
        EXPECT_EQ(symbol->visibility, "public");
        EXPECT_FALSE(symbol->isStatic);
        expectBuiltinLocation(*symbol);
        EXPECT_TRUE(a.symbols().lookupFunctions(name).empty());
    }
}

TEST(BuiltinGlobalsTable, TheGlobalScopeHoldsTheseNamesAndNoOthers) {
    Analysis a("");
    std::set<std::string> names(std::begin(GLOBAL_CONSTANTS), std::end(GLOBAL_CONSTANTS));
    for (const auto& f : GLOBAL_FUNCTIONS) names.insert(f.name);
    std::set<std::string> actual;
    for (const auto& entry : a.symbols().globalScope->symbols) actual.insert(entry.first);
    EXPECT_EQ(actual, names);
}

TEST(BuiltinGlobalsTable, BuiltinClassesAreInNoScope) {
    Analysis a("");
    for (const char* name : {"IO", "Math", "File", "Console", "String"}) {
        EXPECT_EQ(a.symbols().lookup(name), nullptr) << name;
    }
}

TEST(BuiltinGlobalsTable, AFreshTableHasAnEmptyGlobalScopeUntilFilled) {
    SymbolTable table;
    EXPECT_TRUE(table.globalScope->symbols.empty());
    TypeContext types;
    table.initBuiltins(types);
    EXPECT_EQ(actualSet(table, "println"), expectedSet("println"));
    EXPECT_EQ(table.lookup("PI")->type, types.doubleType);
}

// ---------------------------------------------------------------------------
// User declarations beside the built-ins, through name resolution.

struct MeetingCase {
    const char* title;
    const char* source;
    Records records;
    const char* name;
    std::vector<std::string> setAfter;  // lookupFunctions of `name` afterwards
};

const MeetingCase MEETING_CASES[] = {
    {"AFunctionWithTheParametersOfABuiltinIsDroppedSilently", "fn print(s: string) {}\n", {}, "print",
     {"fn(string) -> void", "fn(any) -> void"}},
    {"TheReturnTypeDoesNotMatterForTheDrop", "fn println(x: int) -> int {}\n", {}, "println",
     {"fn(string) -> void", "fn(int) -> void", "fn(double) -> void", "fn(bool) -> void", "fn(any) -> void"}},
    {"AFunctionMatchingALaterOverloadOfABuiltinIsDroppedToo", "fn max(a: double, b: double) -> int {}\n", {}, "max",
     {"fn(int, int) -> int", "fn(double, double) -> double"}},
    {"OtherParametersJoinTheBuiltinSet", "fn abs(x: int64) -> int64 {}\n", {}, "abs",
     {"fn(int) -> int", "fn(double) -> double", "fn(int64) -> int64"}},
    {"TwoUserOverloadsOfABuiltinNameJoinInOrder", "fn len(a: int, b: int) -> int {}\nfn len() -> int {}\n", {},
     "len", {"fn(any) -> int", "fn(int, int) -> int", "fn() -> int"}},
    {"AUserOverloadRepeatedIsADuplicateFunction", "fn exit(a: string) {}\nfn exit(b: string) {}\n",
     {"E1004|Duplicate declaration of function 'exit' with identical parameter types|Provide unique parameter "
      "types or rename the function|2:1"},
     "exit", {"fn(int) -> void", "fn(string) -> void"}},
    {"AFunctionNamedLikeABuiltinConstantIsADuplicateFunction", "fn PI() -> double {}\n",
     {"E1004|Duplicate declaration of function 'PI' with identical parameter types|Provide unique parameter types "
      "or rename the function|1:1"},
     "PI", {}},
    {"AClassNamedLikeABuiltinFunctionIsADuplicateClass", "class print {}\n",
     {"E1004|Duplicate declaration of class 'print'|A symbol with name 'print' is already declared in this "
      "scope|1:1"},
     "print", {"fn(string) -> void", "fn(any) -> void"}},
    {"AnInterfaceNamedLikeABuiltinFunctionIsADuplicateInterface", "interface sqrt {}\n",
     {"E1004|Duplicate declaration of interface 'sqrt'|A symbol with name 'sqrt' is already declared in this "
      "scope|1:1"},
     "sqrt", {"fn(double) -> double"}},
    {"AnEnumNamedLikeABuiltinConstantIsADuplicateEnum", "enum TAU { A }\n",
     {"E1004|Duplicate declaration of enum 'TAU'|A symbol with name 'TAU' is already declared in this scope|1:1"},
     "TAU", {}},
    {"AClassNamedLikeABuiltinClassIsNoDuplicate", "class IO {}\nclass Math {}\n", {}, "IO", {}},
};

class BuiltinMeeting : public ::testing::TestWithParam<MeetingCase> {};

TEST_P(BuiltinMeeting, ReportsAndLeavesTheSet) {
    const auto& c = GetParam();
    auto a = resolved(c.source);
    EXPECT_EQ(a->records(), c.records);
    EXPECT_EQ(actualSet(a->symbols(), c.name), c.setAfter);
}

INSTANTIATE_TEST_SUITE_P(Cases, BuiltinMeeting, ::testing::ValuesIn(MEETING_CASES),
                         [](const ::testing::TestParamInfo<MeetingCase>& info) { return std::string(info.param.title); });

TEST(BuiltinGlobalsTable, AUserFunctionWithABuiltinsParametersLeavesTheBuiltinInPlace) {
    auto a = resolved("fn print(s: string) {}\n");
    const auto set = a->symbols().lookupFunctions("print");
    ASSERT_EQ(set.size(), 2u);
    EXPECT_EQ(set[0]->location.file, BUILTIN_FILE);
    EXPECT_EQ(set[0]->decl, nullptr);
    EXPECT_EQ(set[1]->location.file, BUILTIN_FILE);
}

TEST(BuiltinGlobalsTable, AUserClassNamedLikeABuiltinClassReplacesItAmongTheTypes) {
    auto a = resolved("class Math { int x; }\n");
    EXPECT_TRUE(a->records().empty());
    auto math = classNamed(*a, "Math");
    ASSERT_TRUE(math);
    EXPECT_TRUE(math->methods.empty());
    EXPECT_EQ(a->symbols().lookup("Math")->kind, SymbolKind::Class);
}

}  // namespace
}  // namespace quor::sema::testing
