#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "sema/TypeContext.h"
#include "sema/types/TypesTestSupport.h"

namespace {

using namespace quor::sema;
using quor::sema::testing::describeMethods;
using quor::sema::testing::field;
using quor::sema::testing::method;
using quor::sema::testing::ParsedSource;
using Texts = std::vector<std::string>;

std::shared_ptr<ClassType> asClass(const TypePtr& type) {
    EXPECT_NE(type, nullptr);
    EXPECT_EQ(type ? type->kind : TypeKind::Void, TypeKind::Class);
    return std::static_pointer_cast<ClassType>(type);
}

TEST(Specialize, TheKeyJoinsTheArgumentsWithACommaAndABlank) {
    TypeContext types;
    auto pair = types.createClassType("Pair");
    pair->typeParams = {"K", "V"};
    auto special = asClass(types.specializeClassType(pair, {"int", "string"}));
    EXPECT_EQ(special->name, "Pair<int, string>");
    EXPECT_EQ(types.findUserType("Pair<int, string>"), special);
}

TEST(Specialize, WithoutArgumentsTheKeyEndsInEmptyBrackets) {
    TypeContext types;
    auto box = types.createClassType("Box");
    EXPECT_EQ(asClass(types.specializeClassType(box, {}))->name, "Box<>");
}

TEST(Specialize, AMissingBaseNamesNothing) {
    TypeContext types;
    EXPECT_EQ(types.specializeClassType(nullptr, {"int"}), nullptr);
    EXPECT_EQ(types.userTypes.size(), 10u);
}

TEST(Specialize, ASecondRequestReturnsTheSameClass) {
    TypeContext types;
    auto box = types.createClassType("Box");
    box->typeParams = {"T"};
    auto first = types.specializeClassType(box, {"int"});
    EXPECT_EQ(types.specializeClassType(box, {"int"}), first);
}

TEST(Specialize, AnEntryOfTheKeyThatIsNoClassIsReplaced) {
    TypeContext types;
    auto box = types.createClassType("Box");
    auto odd = types.createStructType("Box<int>");
    auto special = types.specializeClassType(box, {"int"});
    EXPECT_NE(special, odd);
    EXPECT_EQ(types.findUserType("Box<int>"), special);
}

TEST(Specialize, ArgumentsAreKeptAsRawTextSoAliasesMakeAnotherClass) {
    TypeContext types;
    auto box = types.createClassType("Box");
    box->typeParams = {"T"};
    auto wide = types.resolveType("Box<int32>");
    auto plain = types.resolveType("Box<int>");
    EXPECT_NE(wide, plain);
    EXPECT_FALSE(wide->equals(*plain));
}

TEST(Specialize, CopiesAbstractAndDeclButNoBaseInterfacesOrTypeParameters) {
    TypeContext types;
    ParsedSource source("class Box<T> { }");
    auto base = types.createClassType("Root");
    auto iface = types.createInterfaceType("Shape");
    auto box = types.createClassType("Box");
    box->typeParams = {"T"};
    box->decl = source.classNamed("Box");
    box->isAbstract = true;
    box->setSuperclass(base);
    box->interfaces.push_back(iface);
    auto special = asClass(types.specializeClassType(box, {"int"}));
    EXPECT_TRUE(special->isAbstract);
    EXPECT_EQ(special->decl, box->decl);
    EXPECT_EQ(special->superclass, nullptr);
    EXPECT_TRUE(special->interfaces.empty());
    EXPECT_TRUE(special->typeParams.empty());
    EXPECT_FALSE(special->isSubtypeOf(*base));
    EXPECT_FALSE(special->isSubtypeOf(*box));
}

TEST(Specialize, InheritedMembersAreNotReachableThroughASpecialisation) {
    TypeContext types;
    auto base = types.createClassType("Root");
    base->fields["id"] = field("id", types.intType);
    auto box = types.createClassType("Box");
    box->typeParams = {"T"};
    box->setSuperclass(base);
    auto special = asClass(types.specializeClassType(box, {"int"}));
    EXPECT_TRUE(box->findField("id").has_value());
    EXPECT_FALSE(special->findField("id").has_value());
}

TEST(Specialize, WithoutADeclFieldTypesAreSubstitutedThroughTheirText) {
    TypeContext types;
    auto box = types.createClassType("Box");
    box->typeParams = {"T"};
    // A parameter named T standing in the field types, as a class of no entry.
    auto param = std::make_shared<ClassType>("T");
    auto gone = std::make_shared<ClassType>("Gone");
    box->fields["items"] = field("items", types.getArrayType(param));
    box->fields["lost"] = field("lost", gone);
    box->fields["blank"] = field("blank", nullptr);
    box->fields["items"].visibility = "private";
    box->fields["items"].isConst = true;
    auto special = asClass(types.specializeClassType(box, {"string"}));
    ASSERT_EQ(special->fields.size(), 3u);
    EXPECT_EQ(special->fields.at("items").type, types.getArrayType(types.stringType));
    EXPECT_EQ(special->fields.at("items").visibility, "private");
    EXPECT_TRUE(special->fields.at("items").isConst);
    // "Gone" names nothing, so the old type stays.
    EXPECT_EQ(special->fields.at("lost").type, gone);
    // A missing type prints "unknown", which resolves.
    EXPECT_EQ(special->fields.at("blank").type, types.unknownType);
}

TEST(Specialize, WithoutADeclMethodsAreCopiedWithoutSubstitution) {
    TypeContext types;
    auto box = types.createClassType("Box");
    box->typeParams = {"T"};
    auto signature = types.getFunctionType({std::make_shared<ClassType>("T")}, nullptr);
    box->addMethod(method("put", signature));
    auto special = asClass(types.specializeClassType(box, {"int"}));
    ASSERT_EQ(special->methods.size(), 1u);
    EXPECT_EQ(special->methods[0].type, signature);
    EXPECT_EQ(describeMethods(special->methods), (Texts{"put(T) -> void"}));
}

const char* const BOX_SOURCE = R"(class Box<T> {
    T value;
    private Box<T> next;
    static int count;
    const int LIMIT = 3;
    var extra;
    T[] items;
    T? maybe;
    private static T shared;
    Box(T start) { }
    fn get(): T { return value; }
    fn put(item: T) { }
    fn pick<U>(u: U): U { return u; }
    fn loose(x) { }
    protected static fn make(): Box<T> { return null; }
    abstract fn shape(): Map<string, T>;
    public override fn describe(): string { return ""; }
    println(1);
}
)";

class SpecializeFromSource : public ::testing::Test {
protected:
    ParsedSource source{BOX_SOURCE};
    TypeContext types;
    std::shared_ptr<ClassType> box;
    void SetUp() override {
        box = types.createClassType("Box");
        box->decl = source.classNamed("Box");
        ASSERT_NE(box->decl, nullptr);
        box->typeParams = box->decl->typeParams;
    }
};

TEST_F(SpecializeFromSource, FieldsTakeTheSubstitutedTypesAndTheirFlags) {
    auto special = asClass(types.resolveType("Box<int>"));
    ASSERT_EQ(special->fields.size(), 8u);
    struct Row {
        const char* name;
        TypePtr type;
        const char* visibility;
        bool isStatic, isConst;
    };
    const Row rows[] = {
        {"value", types.intType, "public", false, false},
        {"next", special, "private", false, false},
        {"count", types.intType, "public", true, false},
        {"LIMIT", types.intType, "public", false, true},
        {"extra", types.unknownType, "public", false, false},
        {"items", types.getArrayType(types.intType), "public", false, false},
        {"maybe", types.getNullableType(types.intType), "public", false, false},
        {"shared", types.intType, "private", true, false},
    };
    for (const auto& row : rows) {
        ASSERT_EQ(special->fields.count(row.name), 1u) << row.name;
        const auto& f = special->fields.at(row.name);
        EXPECT_EQ(f.name, row.name);
        EXPECT_EQ(f.type, row.type) << row.name;
        EXPECT_EQ(f.visibility, row.visibility) << row.name;
        EXPECT_EQ(f.isStatic, row.isStatic) << row.name;
        EXPECT_EQ(f.isConst, row.isConst) << row.name;
    }
}

TEST_F(SpecializeFromSource, AFieldOfTheClassOwnSpecialisationFindsTheUnfinishedClass) {
    auto special = asClass(types.resolveType("Box<string>"));
    EXPECT_EQ(special->fields.at("next").type, special);
}

TEST_F(SpecializeFromSource, MethodsFollowTheMembersInOrder) {
    auto special = asClass(types.resolveType("Box<int>"));
    // A method's own type parameter names nothing: any as a parameter, void
    // as a result. A parameter without a type is unknown.
    EXPECT_EQ(describeMethods(special->methods), (Texts{
                                                     "Box(int) -> void",
                                                     "get() -> int",
                                                     "put(int) -> void",
                                                     "pick(any) -> void",
                                                     "loose(unknown) -> void",
                                                     "make() -> Box<int> static",
                                                     "shape() -> Map<string, int>",
                                                     "describe() -> string",
                                                 }));
}

TEST_F(SpecializeFromSource, MethodsTakeTheirVisibilityOrPublicAndTheirFlags) {
    auto special = asClass(types.resolveType("Box<int>"));
    ASSERT_EQ(special->methods.size(), 8u);
    struct Row {
        const char* visibility;
        bool isStatic, isAbstract, isOverride;
    };
    const Row rows[] = {
        {"public", false, false, false},    {"public", false, false, false}, {"public", false, false, false},
        {"public", false, false, false},    {"public", false, false, false}, {"protected", true, false, false},
        {"public", false, true, false},     {"public", false, false, true},
    };
    for (std::size_t i = 0; i < 8; ++i) {
        const auto& m = special->methods[i];
        EXPECT_EQ(m.visibility, rows[i].visibility) << m.name;
        EXPECT_EQ(m.isStatic, rows[i].isStatic) << m.name;
        EXPECT_EQ(m.isAbstract, rows[i].isAbstract) << m.name;
        EXPECT_EQ(m.isOverride, rows[i].isOverride) << m.name;
    }
    EXPECT_EQ(special->methods[5].type->returnType, special);
}

TEST_F(SpecializeFromSource, TheBaseItselfIsLeftUntouched) {
    types.resolveType("Box<int>");
    EXPECT_TRUE(box->fields.empty());
    EXPECT_TRUE(box->methods.empty());
}

TEST(SpecializeNesting, AClassWhoseMemberNamesADeeperSpecialisationOfItselfEnds) {
    ParsedSource source("class Nest<T> {\n    Nest<Nest<T> > inner;\n    T value;\n}\n");
    TypeContext types;
    auto nest = types.createClassType("Nest");
    nest->decl = source.classNamed("Nest");
    ASSERT_NE(nest->decl, nullptr);
    nest->typeParams = {"T"};
    auto current = asClass(types.resolveType("Nest<int>"));
    std::string expected = "Nest<int>";
    int filled = 0;
    while (current->fields.count("inner") == 1) {
        EXPECT_EQ(current->name, expected);
        EXPECT_EQ(current->fields.size(), 2u);
        expected = "Nest<" + expected + ">";
        current = asClass(current->fields.at("inner").type);
        ++filled;
        ASSERT_LT(filled, 100000);
    }
    // The deepest one is made without members, and every level above it
    // was filled in full.
    EXPECT_TRUE(current->fields.empty());
    EXPECT_GE(filled, 32);
}

}  // namespace
