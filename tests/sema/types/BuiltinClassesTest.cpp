#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;
using quor::sema::testing::describeMethods;
using Texts = std::vector<std::string>;

std::shared_ptr<ClassType> builtin(TypeContext& types, const std::string& name) {
    auto type = types.findUserType(name);
    EXPECT_NE(type, nullptr) << name;
    EXPECT_EQ(type ? type->kind : TypeKind::Void, TypeKind::Class) << name;
    return std::static_pointer_cast<ClassType>(type);
}

const Texts CONSOLE = {
    "println(string) -> void static", "print(string) -> void static", "eprintln(string) -> void static",
    "eprint(string) -> void static",  "readLine() -> string static",  "readln() -> string static",
    "flush() -> void static",         "eflush() -> void static",
};

struct ClassTable {
    const char* name;
    Texts methods;
};

const ClassTable TABLES[] = {
    {"IO", CONSOLE},
    {"Console", CONSOLE},
    {"String",
     {
         "length(string) -> int64 static",
         "upper(string) -> string static",
         "lower(string) -> string static",
         "trim(string) -> string static",
         "contains(string, string) -> bool static",
         "indexOf(string, string) -> int64 static",
         "replace(string, string, string) -> string static",
         "substring(string, int64, int64) -> string static",
         "split(string, string) -> string[] static",
         "reverse(string) -> string static",
     }},
    {"Math",
     {
         "sqrt(double) -> double static",
         "pow(double, double) -> double static",
         "sin(double) -> double static",
         "cos(double) -> double static",
         "tan(double) -> double static",
         "asin(double) -> double static",
         "acos(double) -> double static",
         "atan(double) -> double static",
         "atan2(double, double) -> double static",
         "floor(double) -> double static",
         "ceil(double) -> double static",
         "round(double) -> double static",
         "abs(int) -> int static",
         "abs(int64) -> int64 static",
         "abs(double) -> double static",
         "min(int, int) -> int static",
         "min(int64, int64) -> int64 static",
         "min(double, double) -> double static",
         "max(int, int) -> int static",
         "max(int64, int64) -> int64 static",
         "max(double, double) -> double static",
         "log(double) -> double static",
         "log10(double) -> double static",
         "log2(double) -> double static",
         "exp(double) -> double static",
     }},
    {"FS",
     {
         "readText(string) -> string static",
         "writeText(string, string) -> bool static",
         "appendText(string, string) -> bool static",
         "exists(string) -> bool static",
         "delete(string) -> bool static",
         "deleteFile(string) -> bool static",
         "createDir(string) -> bool static",
         "listDir(string) -> string[] static",
         "isFile(string) -> bool static",
         "isDir(string) -> bool static",
     }},
    {"File",
     {
         "readText(string) -> string static",
         "writeText(string, string) -> bool static",
         "appendText(string, string) -> bool static",
         "exists(string) -> bool static",
         "delete(string) -> bool static",
         "deleteFile(string) -> bool static",
         "isFile(string) -> bool static",
     }},
    {"Time",
     {
         "now() -> int static",
         "nowSeconds() -> int static",
         "nowNanos() -> int64 static",
         "sleep(int) -> void static",
         "sleep(int64) -> void static",
         "sleepSeconds(int) -> void static",
         "sleepSeconds(int64) -> void static",
         "format(int) -> string static",
         "format(int64) -> string static",
         "parse(string) -> int static",
     }},
    {"Duration",
     {
         "fromMillis(int) -> Duration static",
         "fromMillis(int64) -> Duration static",
         "fromSeconds(int) -> Duration static",
         "fromSeconds(int64) -> Duration static",
         "fromMinutes(int) -> Duration static",
         "fromMinutes(int64) -> Duration static",
         "fromHours(int) -> Duration static",
         "fromHours(int64) -> Duration static",
         "toMillis() -> int",
         "toSeconds() -> int",
     }},
    {"OS",
     {
         "getEnv(string) -> string static",
         "setEnv(string, string) -> bool static",
         "platform() -> string static",
         "arch() -> string static",
         "args() -> string[] static",
         "exit(int) -> void static",
         "exit(int64) -> void static",
     }},
    {"Process",
     {
         "exec(string) -> int static",
         "spawn(string) -> int static",
         "run(string) -> string static",
         "pid() -> int static",
     }},
};

TEST(BuiltinClasses, EachClassHasItsMethodsInTableOrderWithTheirStaticFlags) {
    TypeContext types;
    for (const auto& table : TABLES) {
        auto cls = builtin(types, table.name);
        EXPECT_EQ(describeMethods(cls->methods), table.methods) << table.name;
    }
}

TEST(BuiltinClasses, TheTenClassesAreAllThereIsAfterConstruction) {
    TypeContext types;
    ASSERT_EQ(types.userTypes.size(), std::size(TABLES));
    for (const auto& table : TABLES) EXPECT_EQ(types.userTypes.count(table.name), 1u) << table.name;
}

TEST(BuiltinClasses, EveryMethodIsPublicAndNeitherAbstractNorOverride) {
    TypeContext types;
    for (const auto& table : TABLES) {
        for (const auto& m : builtin(types, table.name)->methods) {
            EXPECT_EQ(m.visibility, "public") << table.name << "." << m.name;
            EXPECT_FALSE(m.isAbstract) << table.name << "." << m.name;
            EXPECT_FALSE(m.isOverride) << table.name << "." << m.name;
        }
    }
}

TEST(BuiltinClasses, NoClassHasABaseInterfacesTypeParametersOrADeclaration) {
    TypeContext types;
    for (const auto& table : TABLES) {
        auto cls = builtin(types, table.name);
        EXPECT_EQ(cls->name, table.name);
        EXPECT_EQ(cls->superclass, nullptr) << table.name;
        EXPECT_TRUE(cls->interfaces.empty()) << table.name;
        EXPECT_TRUE(cls->typeParams.empty()) << table.name;
        EXPECT_EQ(cls->decl, nullptr) << table.name;
        EXPECT_FALSE(cls->isAbstract) << table.name;
    }
}

TEST(BuiltinClasses, OnlyMathAndDurationHaveFields) {
    TypeContext types;
    for (const auto& table : TABLES) {
        const std::string name = table.name;
        const std::size_t expected = name == "Math" ? 3u : (name == "Duration" ? 1u : 0u);
        EXPECT_EQ(builtin(types, name)->fields.size(), expected) << name;
    }
}

TEST(BuiltinClasses, MathHasThreeStaticConstantDoubleFields) {
    TypeContext types;
    auto math = builtin(types, "Math");
    for (const char* name : {"PI", "E", "TAU"}) {
        auto f = math->findField(name);
        ASSERT_TRUE(f.has_value()) << name;
        EXPECT_EQ(f->name, name);
        EXPECT_EQ(f->type, types.doubleType) << name;
        EXPECT_EQ(f->visibility, "public") << name;
        EXPECT_TRUE(f->isStatic) << name;
        EXPECT_TRUE(f->isConst) << name;
    }
}

TEST(BuiltinClasses, DurationResolvesByNameAndFindsItsMillisField) {
    TypeContext types;
    auto duration = types.resolveType("Duration");
    ASSERT_EQ(duration, types.findUserType("Duration"));
    auto millis = std::static_pointer_cast<ClassType>(duration)->findField("millis");
    ASSERT_TRUE(millis.has_value());
    EXPECT_EQ(millis->type, types.intType);
    EXPECT_EQ(millis->visibility, "public");
    EXPECT_FALSE(millis->isStatic);
    EXPECT_FALSE(millis->isConst);
}

TEST(BuiltinClasses, DurationFactoriesReturnTheClassItself) {
    TypeContext types;
    auto duration = builtin(types, "Duration");
    for (const auto& m : duration->methods) {
        if (m.isStatic) {
            EXPECT_EQ(m.type->returnType, duration) << m.name;
        }
    }
}

TEST(BuiltinClasses, MathAbsHasThreeOverloadsIntInt64Double) {
    TypeContext types;
    EXPECT_EQ(describeMethods(builtin(types, "Math")->findMethods("abs")),
              (Texts{"abs(int) -> int static", "abs(int64) -> int64 static", "abs(double) -> double static"}));
}

TEST(BuiltinClasses, FileHasNoListDirWhileFSHasOne) {
    TypeContext types;
    EXPECT_TRUE(builtin(types, "File")->findMethods("listDir").empty());
    EXPECT_EQ(builtin(types, "FS")->findMethods("listDir").size(), 1u);
    EXPECT_TRUE(builtin(types, "File")->findMethods("createDir").empty());
    EXPECT_TRUE(builtin(types, "File")->findMethods("isDir").empty());
}

TEST(BuiltinClasses, StringArrayResultsAreTheInternedArrayOfString) {
    TypeContext types;
    auto strings = types.getArrayType(types.stringType);
    EXPECT_EQ(builtin(types, "String")->findMethods("split")[0].type->returnType, strings);
    EXPECT_EQ(builtin(types, "FS")->findMethods("listDir")[0].type->returnType, strings);
    EXPECT_EQ(builtin(types, "OS")->findMethods("args")[0].type->returnType, strings);
}

TEST(BuiltinClasses, IOAndConsoleAreSeparateClassesWithEqualTables) {
    TypeContext types;
    EXPECT_NE(builtin(types, "IO"), builtin(types, "Console"));
    EXPECT_FALSE(builtin(types, "IO")->equals(*builtin(types, "Console")));
}

}  // namespace
