#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/SemaTestSupport.h"
#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

// The library classes every program knows without an import, each class's
// whole method table written out by hand, with its static marks.

namespace {

using namespace quor::sema;
using quor::sema::testing::Analysis;
using quor::sema::testing::describeMethods;
using Texts = std::vector<std::string>;

const Texts CONSOLE_TABLE = {
    "println(string) -> void static", "print(string) -> void static", "eprintln(string) -> void static",
    "eprint(string) -> void static",  "readLine() -> string static",  "readln() -> string static",
    "flush() -> void static",         "eflush() -> void static",
};

struct LibraryClass {
    const char* name;
    Texts methods;
};

const LibraryClass LIBRARY[] = {
    {"IO", CONSOLE_TABLE},
    {"Console", CONSOLE_TABLE},
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

std::shared_ptr<ClassType> libraryClass(const TypeContext& types, const std::string& name) {
    auto found = types.findUserType(name);
    EXPECT_NE(found, nullptr) << name;
    if (!found || found->kind != TypeKind::Class) return nullptr;
    return std::static_pointer_cast<ClassType>(found);
}

TEST(LibraryClasses, EveryClassHoldsItsTableInOrder) {
    TypeContext types;
    for (const auto& entry : LIBRARY) {
        auto cls = libraryClass(types, entry.name);
        ASSERT_NE(cls, nullptr) << entry.name;
        EXPECT_EQ(cls->name, entry.name);
        EXPECT_EQ(describeMethods(cls->methods), entry.methods) << entry.name;
        for (const auto& m : cls->methods) {
            EXPECT_EQ(m.visibility, "public") << entry.name << "." << m.name;
            EXPECT_FALSE(m.isAbstract) << entry.name << "." << m.name;
            EXPECT_FALSE(m.isOverride) << entry.name << "." << m.name;
        }
        EXPECT_EQ(cls->superclass, nullptr) << entry.name;
        EXPECT_TRUE(cls->interfaces.empty()) << entry.name;
        EXPECT_TRUE(cls->typeParams.empty()) << entry.name;
        EXPECT_EQ(cls->decl, nullptr) << entry.name;
        EXPECT_FALSE(cls->isAbstract) << entry.name;
    }
}

TEST(LibraryClasses, TheTenClassesAreMadeInOrderAndTheCacheHoldsOnlyTheStringArray) {
    TypeContext types;
    Texts names;
    for (const auto& [name, type] : types.userTypes) names.push_back(name);
    EXPECT_EQ(names, (Texts{"IO", "Console", "String", "Math", "FS", "File", "Time", "Duration", "OS", "Process"}));
    ASSERT_EQ(types.typeCache.size(), 1u);
    EXPECT_EQ(types.typeCache.begin()->first, "string[]");
    // Every string[] result is that one object.
    auto strings = types.typeCache.begin()->second;
    EXPECT_EQ(libraryClass(types, "String")->findMethods("split")[0].type->returnType, strings);
    EXPECT_EQ(libraryClass(types, "FS")->findMethods("listDir")[0].type->returnType, strings);
    EXPECT_EQ(libraryClass(types, "OS")->findMethods("args")[0].type->returnType, strings);
}

TEST(LibraryClasses, OnlyMathAndDurationHaveFields) {
    TypeContext types;
    for (const auto& entry : LIBRARY) {
        auto cls = libraryClass(types, entry.name);
        ASSERT_NE(cls, nullptr);
        const std::string name = entry.name;
        if (name == "Math") {
            ASSERT_EQ(cls->fields.size(), 3u);
            for (const char* constant : {"PI", "E", "TAU"}) {
                auto f = cls->findField(constant);
                ASSERT_TRUE(f.has_value()) << constant;
                EXPECT_EQ(f->name, constant);
                EXPECT_EQ(f->type, types.doubleType) << constant;
                EXPECT_EQ(f->visibility, "public") << constant;
                EXPECT_TRUE(f->isStatic) << constant;
                EXPECT_TRUE(f->isConst) << constant;
            }
        } else if (name == "Duration") {
            ASSERT_EQ(cls->fields.size(), 1u);
            auto f = types.resolveType("Duration");
            ASSERT_EQ(f, cls);
            auto millis = cls->findField("millis");
            ASSERT_TRUE(millis.has_value());
            EXPECT_EQ(millis->type, types.intType);
            EXPECT_EQ(millis->visibility, "public");
            EXPECT_FALSE(millis->isStatic);
            EXPECT_FALSE(millis->isConst);
        } else {
            EXPECT_TRUE(cls->fields.empty()) << name;
        }
    }
}

TEST(LibraryClasses, LookupsAnswerOverloadsInTableOrderAndNothingForAbsentNames) {
    TypeContext types;
    auto math = libraryClass(types, "Math");
    EXPECT_EQ(describeMethods(math->findMethods("abs")),
              (Texts{"abs(int) -> int static", "abs(int64) -> int64 static", "abs(double) -> double static"}));
    EXPECT_TRUE(libraryClass(types, "File")->findMethods("listDir").empty());
    EXPECT_TRUE(libraryClass(types, "File")->findMethods("createDir").empty());
    EXPECT_TRUE(libraryClass(types, "File")->findMethods("isDir").empty());
    EXPECT_EQ(libraryClass(types, "FS")->findMethods("listDir").size(), 1u);
    EXPECT_TRUE(libraryClass(types, "Console")->findMethods("readline").empty());
    EXPECT_FALSE(math->findField("pi").has_value());
    // The factories return the class object itself.
    auto duration = libraryClass(types, "Duration");
    for (const auto& m : duration->methods) {
        if (m.isStatic) {
            EXPECT_EQ(m.type->returnType, duration) << m.name;
        }
    }
    // IO and Console are two classes with equal tables.
    EXPECT_NE(libraryClass(types, "IO"), libraryClass(types, "Console"));
}

TEST(LibraryClasses, AUserClassOfALibraryNameReplacesItForThatAnalysis) {
    Analysis analysis("class Console {\n    fn hello(): int { return 1; }\n}\n");
    analysis.resolve();
    auto console = libraryClass(analysis.types(), "Console");
    ASSERT_NE(console, nullptr);
    EXPECT_NE(console->decl, nullptr);
    EXPECT_TRUE(console->findMethods("println").empty());
    EXPECT_EQ(console->findMethods("hello").size(), 1u);
    // The other library classes stay.
    EXPECT_EQ(libraryClass(analysis.types(), "IO")->findMethods("println").size(), 1u);
    // A fresh analysis has the library class again.
    TypeContext fresh;
    EXPECT_EQ(libraryClass(fresh, "Console")->findMethods("println").size(), 1u);
}

}  // namespace
