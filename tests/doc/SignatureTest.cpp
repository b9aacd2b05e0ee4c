#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ast/AST.h"
#include "doc/Signatures.h"

using namespace quor::ast;
using namespace quor::doc;

namespace {

SourceLocation at(std::uint32_t line) { return SourceLocation{"t.quor", line, 1}; }

std::vector<Parameter> params(std::vector<std::pair<std::string, std::string>> nameAndType) {
    std::vector<Parameter> result;
    for (auto& [name, type] : nameAndType) result.push_back(Parameter{type, name, nullptr});
    return result;
}

struct FunctionShape {
    std::string name = "f";
    std::vector<std::string> typeParams;
    std::vector<Parameter> params;
    std::string returnType = "void";
    std::string visibility;
    bool isStatic = false;
    bool isOverride = false;
    bool isAbstract = false;
    bool isAsync = false;
};

FunctionDecl makeFunction(FunctionShape shape) {
    return FunctionDecl(shape.name, shape.typeParams, std::move(shape.params), shape.returnType, nullptr, nullptr,
                        shape.visibility, shape.isStatic, shape.isOverride, shape.isAbstract, shape.isAsync, at(1));
}

ClassDecl makeClass(std::string visibility, bool isAbstract, std::vector<std::string> typeParams, std::string base,
                    std::vector<std::string> interfaces) {
    return ClassDecl("Box", std::move(typeParams), std::move(base), std::move(interfaces), {}, std::move(visibility),
                     isAbstract, at(1));
}

}  // namespace

TEST(DocSignatures, PublicFunctionWithGenericsAndParameters) {
    FunctionShape shape;
    shape.name = "map";
    shape.typeParams = {"T", "U"};
    shape.params = params({{"xs", "T[]"}, {"f", "(T) -> U"}});
    shape.returnType = "U[]";
    shape.visibility = "public";
    EXPECT_EQ(functionSignature(makeFunction(std::move(shape))), "fn map<T, U>(xs: T[], f: (T) -> U): U[]");
}

TEST(DocSignatures, FunctionWithEmptyVisibilityWritesNone) {
    EXPECT_EQ(functionSignature(makeFunction({})), "fn f(): void");
}

TEST(DocSignatures, PrivateAsyncFunction) {
    FunctionShape shape;
    shape.visibility = "private";
    shape.isAsync = true;
    shape.returnType = "int";
    EXPECT_EQ(functionSignature(makeFunction(std::move(shape))), "private async fn f(): int");
}

TEST(DocSignatures, EmptyReturnTypeReadsVoid) {
    FunctionShape shape;
    shape.returnType = "";
    EXPECT_EQ(functionSignature(makeFunction(std::move(shape))), "fn f(): void");
}

TEST(DocSignatures, UntypedParameterKeepsEmptyType) {
    FunctionShape shape;
    shape.params = params({{"a", "int"}, {"z", ""}});
    EXPECT_EQ(functionSignature(makeFunction(std::move(shape))), "fn f(a: int, z: ): void");
}

TEST(DocSignatures, ClassMethodAlwaysWritesVisibilityAndFlagsInOrder) {
    FunctionShape shape;
    shape.name = "run";
    shape.typeParams = {"T"};
    shape.isStatic = true;
    shape.isOverride = true;
    shape.isAsync = true;
    EXPECT_EQ(classMethodSignature(makeFunction(std::move(shape))), "public static override async fn run(): void");
}

TEST(DocSignatures, ClassMethodWithVisibility) {
    FunctionShape shape;
    shape.name = "get";
    shape.visibility = "protected";
    shape.params = params({{"i", "int"}});
    shape.returnType = "string";
    EXPECT_EQ(classMethodSignature(makeFunction(std::move(shape))), "protected fn get(i: int): string");
}

TEST(DocSignatures, InterfaceMethodHasNoVisibility) {
    FunctionShape shape;
    shape.name = "area";
    shape.visibility = "public";
    shape.isAbstract = true;
    shape.returnType = "float";
    EXPECT_EQ(interfaceMethodSignature(makeFunction(std::move(shape))), "fn area(): float");
}

TEST(DocSignatures, PlainClass) { EXPECT_EQ(classSignature(makeClass("", false, {}, "", {})), "class Box"); }

TEST(DocSignatures, FullClassHeading) {
    EXPECT_EQ(classSignature(makeClass("internal", true, {"K", "V"}, "Base", {"I", "J"})),
              "internal abstract class Box<K, V> extends Base implements I, J");
}

TEST(DocSignatures, PublicClassWritesNoVisibility) {
    EXPECT_EQ(classSignature(makeClass("public", false, {}, "", {"I"})), "class Box implements I");
}

TEST(DocSignatures, VariablesAndFields) {
    VarDeclStmt constant("float", "PI", nullptr, true, false, at(1));
    VarDeclStmt mutableOne("", "count", nullptr, false, true, at(1));
    VarDeclStmt typeFirst("int", "x", nullptr, false, false, "private", true, at(1));
    EXPECT_EQ(variableSignature(constant), "const PI: float");
    EXPECT_EQ(variableSignature(mutableOne), "let count: ");
    EXPECT_EQ(variableSignature(typeFirst), "let x: int");
    EXPECT_EQ(structFieldSignature(typeFirst), "x: int");
}
