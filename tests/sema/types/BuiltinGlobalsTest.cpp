#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/Symbol.h"
#include "sema/TypeContext.h"

namespace {

using namespace quor::sema;
using Texts = std::vector<std::string>;

class BuiltinGlobals : public ::testing::Test {
protected:
    TypeContext types;
    SymbolTable table;
    void SetUp() override { table.initBuiltins(types); }

    // Each overload of the name as its function type's text.
    Texts signatures(const std::string& name) {
        Texts out;
        for (const auto& f : table.lookupFunctions(name)) out.push_back(f->functionType->toString());
        return out;
    }
};

// The whole table, one row per symbol: the overloads of a name in order.
struct GlobalRow {
    const char* name;
    Texts signatures;
};

const GlobalRow GLOBALS[] = {
    {"println",
     {"fn(string) -> void", "fn(int) -> void", "fn(double) -> void", "fn(bool) -> void", "fn(any) -> void"}},
    {"print", {"fn(string) -> void", "fn(any) -> void"}},
    {"readln", {"fn() -> string"}},
    {"readLine", {"fn() -> string"}},
    {"eprint", {"fn(string) -> void", "fn(any) -> void"}},
    {"eprintln", {"fn(string) -> void", "fn(any) -> void"}},
    {"flush", {"fn() -> void"}},
    {"eflush", {"fn() -> void"}},
    {"assert", {"fn(bool) -> void", "fn(bool, string) -> void"}},
    {"panic", {"fn(string) -> void"}},
    {"len", {"fn(any) -> int"}},
    {"sqrt", {"fn(double) -> double"}},
    {"pow", {"fn(double, double) -> double"}},
    {"sin", {"fn(double) -> double"}},
    {"cos", {"fn(double) -> double"}},
    {"tan", {"fn(double) -> double"}},
    {"asin", {"fn(double) -> double"}},
    {"acos", {"fn(double) -> double"}},
    {"atan", {"fn(double) -> double"}},
    {"atan2", {"fn(double, double) -> double"}},
    {"floor", {"fn(double) -> double"}},
    {"ceil", {"fn(double) -> double"}},
    {"round", {"fn(double) -> double"}},
    {"abs", {"fn(int) -> int", "fn(double) -> double"}},
    {"min", {"fn(int, int) -> int", "fn(double, double) -> double"}},
    {"max", {"fn(int, int) -> int", "fn(double, double) -> double"}},
    {"log", {"fn(double) -> double"}},
    {"log10", {"fn(double) -> double"}},
    {"log2", {"fn(double) -> double"}},
    {"exp", {"fn(double) -> double"}},
    {"readText", {"fn(string) -> string"}},
    {"writeText", {"fn(string, string) -> bool"}},
    {"appendText", {"fn(string, string) -> bool"}},
    {"exists", {"fn(string) -> bool"}},
    {"deleteFile", {"fn(string) -> bool"}},
    {"delete", {"fn(string) -> bool"}},
    {"createDir", {"fn(string) -> bool"}},
    {"listDir", {"fn(string) -> string[]"}},
    {"isFile", {"fn(string) -> bool"}},
    {"isDir", {"fn(string) -> bool"}},
    {"now", {"fn() -> int"}},
    {"nowSeconds", {"fn() -> int"}},
    {"sleep", {"fn(int) -> void"}},
    {"sleepSeconds", {"fn(int) -> void"}},
    {"formatTime", {"fn(int) -> string"}},
    {"parseTime", {"fn(string) -> int"}},
    {"getEnv", {"fn(string) -> string"}},
    {"setEnv", {"fn(string, string) -> bool"}},
    {"platform", {"fn() -> string"}},
    {"arch", {"fn() -> string"}},
    {"args", {"fn() -> string[]"}},
    {"exit", {"fn(int) -> void"}},
    {"exec", {"fn(string) -> int"}},
    {"spawn", {"fn(string) -> int"}},
    {"runCommand", {"fn(string) -> string"}},
    {"pid", {"fn() -> int"}},
};

TEST_F(BuiltinGlobals, EveryFunctionHasItsOverloadsInTableOrder) {
    for (const auto& row : GLOBALS) EXPECT_EQ(signatures(row.name), row.signatures) << row.name;
}

TEST_F(BuiltinGlobals, TheGlobalScopeHoldsTheFunctionNamesAndTheThreeConstantsOnly) {
    EXPECT_EQ(table.globalScope->symbols.size(), std::size(GLOBALS) + 3);
}

TEST_F(BuiltinGlobals, PrintlnHasFiveOverloadsStringIntDoubleBoolAny) {
    auto overloads = table.lookupFunctions("println");
    ASSERT_EQ(overloads.size(), 5u);
    const TypePtr expected[] = {types.stringType, types.intType, types.doubleType, types.boolType, types.anyType};
    for (std::size_t i = 0; i < 5; ++i) {
        ASSERT_EQ(overloads[i]->functionType->paramTypes.size(), 1u);
        EXPECT_EQ(overloads[i]->functionType->paramTypes[0], expected[i]);
        EXPECT_EQ(overloads[i]->functionType->returnType, types.voidType);
    }
}

TEST_F(BuiltinGlobals, AssertHasTwoOverloadsOfDifferentParameterCounts) {
    auto overloads = table.lookupFunctions("assert");
    ASSERT_EQ(overloads.size(), 2u);
    EXPECT_EQ(overloads[0]->functionType->paramTypes.size(), 1u);
    EXPECT_EQ(overloads[1]->functionType->paramTypes.size(), 2u);
}

TEST_F(BuiltinGlobals, TheFirstRowOfANameIsTheEntryAndCarriesTheOthers) {
    auto entry = std::dynamic_pointer_cast<FunctionSymbol>(table.lookup("println"));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->functionType->paramTypes[0], types.stringType);
    ASSERT_EQ(entry->overloads.size(), 4u);
    for (const auto& overload : entry->overloads) EXPECT_TRUE(overload->overloads.empty());
}

TEST_F(BuiltinGlobals, PiEAndTauAreDoubleConstants) {
    for (const char* name : {"PI", "E", "TAU"}) {
        auto symbol = std::dynamic_pointer_cast<VariableSymbol>(table.lookup(name));
        ASSERT_NE(symbol, nullptr) << name;
        EXPECT_EQ(symbol->kind, SymbolKind::Constant) << name;
        EXPECT_EQ(symbol->type, types.doubleType) << name;
        EXPECT_TRUE(symbol->isConst) << name;
        EXPECT_FALSE(symbol->isParameter) << name;
        EXPECT_FALSE(symbol->isStatic) << name;
        EXPECT_EQ(symbol->visibility, "public") << name;
        EXPECT_EQ(symbol->location.file, "<built-in>") << name;
        EXPECT_EQ(symbol->location.line, 0u) << name;
        EXPECT_EQ(symbol->location.column, 0u) << name;
        EXPECT_TRUE(table.lookupFunctions(name).empty()) << name;
    }
}

TEST_F(BuiltinGlobals, EveryFunctionIsAPublicPlainBuiltInFunctionWithoutDeclaration) {
    for (const auto& row : GLOBALS) {
        for (const auto& f : table.lookupFunctions(row.name)) {
            EXPECT_EQ(f->kind, SymbolKind::Function) << row.name;
            EXPECT_EQ(f->name, row.name);
            EXPECT_EQ(f->visibility, "public") << row.name;
            EXPECT_FALSE(f->isStatic || f->isMethod || f->isAbstract || f->isOverride) << row.name;
            EXPECT_TRUE(f->typeParams.empty()) << row.name;
            EXPECT_EQ(f->decl, nullptr) << row.name;
            EXPECT_EQ(f->type, f->functionType) << row.name;
            EXPECT_EQ(f->location.file, "<built-in>") << row.name;
            EXPECT_EQ(f->location.line, 0u) << row.name;
            EXPECT_EQ(f->location.column, 0u) << row.name;
        }
    }
}

TEST_F(BuiltinGlobals, StringArrayResultsAreTheInternedArrayOfString) {
    EXPECT_EQ(table.lookupFunctions("listDir")[0]->functionType->returnType, types.getArrayType(types.stringType));
    EXPECT_EQ(table.lookupFunctions("args")[0]->functionType->returnType, types.getArrayType(types.stringType));
}

TEST_F(BuiltinGlobals, TheBuiltInClassesAreInNoScope) {
    for (const char* name : {"IO", "Console", "String", "Math", "FS", "File", "Time", "Duration", "OS", "Process"}) {
        EXPECT_EQ(table.lookup(name), nullptr) << name;
    }
}

TEST_F(BuiltinGlobals, GlobalAbsMinAndMaxLackTheInt64OverloadsOfMath) {
    EXPECT_EQ(table.lookupFunctions("abs").size(), 2u);
    EXPECT_EQ(table.lookupFunctions("min").size(), 2u);
    EXPECT_EQ(table.lookupFunctions("max").size(), 2u);
}

TEST_F(BuiltinGlobals, AUserFunctionWithTheParametersOfABuiltInIsDroppedSilently) {
    auto mine = std::make_shared<FunctionSymbol>("print", types.getFunctionType({types.stringType}, nullptr),
                                                 quor::diagnostics::SourceLocation{"test.quor", 3, 1});
    EXPECT_TRUE(table.define(mine));
    auto overloads = table.lookupFunctions("print");
    ASSERT_EQ(overloads.size(), 2u);
    EXPECT_EQ(overloads[0]->location.file, "<built-in>");
    EXPECT_EQ(overloads[1]->location.file, "<built-in>");
}

TEST_F(BuiltinGlobals, AUserFunctionWithOtherParametersJoinsTheBuiltInOverloads) {
    auto mine = std::make_shared<FunctionSymbol>("print", types.getFunctionType({types.intType}, nullptr),
                                                 quor::diagnostics::SourceLocation{"test.quor", 3, 1});
    EXPECT_TRUE(table.define(mine));
    auto overloads = table.lookupFunctions("print");
    ASSERT_EQ(overloads.size(), 3u);
    EXPECT_EQ(overloads[2], mine);
}

TEST_F(BuiltinGlobals, AUserVariableOfABuiltInNameIsRefused) {
    EXPECT_FALSE(table.define(std::make_shared<VariableSymbol>("PI", types.doubleType,
                                                               quor::diagnostics::SourceLocation{"t", 1, 1})));
    EXPECT_FALSE(table.define(std::make_shared<VariableSymbol>("print", types.intType,
                                                               quor::diagnostics::SourceLocation{"t", 1, 1})));
}

}  // namespace
