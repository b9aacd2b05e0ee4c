#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/SemaTestSupport.h"
#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

// The library classes every program knows without an import: the order in
// which they are made, names they do not have, and a user class that takes
// a library class's name. (Each class's table is in BuiltinClassesTest.)

namespace {

using namespace quor::sema;
using quor::sema::testing::Analysis;
using quor::sema::testing::describeMethods;
using Texts = std::vector<std::string>;

std::shared_ptr<ClassType> libraryClass(const TypeContext& types, const std::string& name) {
    auto found = types.findUserType(name);
    EXPECT_NE(found, nullptr) << name;
    if (!found || found->kind != TypeKind::Class) return nullptr;
    return std::static_pointer_cast<ClassType>(found);
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

TEST(LibraryClasses, LookupsAnswerOverloadsInTableOrderAndNothingForNamesAClassLacks) {
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
