// Enums: variants in order, values counted up from 0 or set by an integer
// literal, and the enums nested in function bodies.
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <thread>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {

std::int64_t valueOf(const EnumType& type, const std::string& variant) { return type.variantValues.at(variant); }

TEST(ResolverEnums, VariantsCountUpFromZeroInOrder) {
    auto a = resolved("enum Color { Red, Green, Blue }\n");
    EXPECT_TRUE(a->records().empty());
    auto color = userType<EnumType>(*a, "Color");
    ASSERT_TRUE(color);
    EXPECT_EQ(color->variants, (std::vector<std::string>{"Red", "Green", "Blue"}));
    EXPECT_EQ(valueOf(*color, "Red"), 0);
    EXPECT_EQ(valueOf(*color, "Green"), 1);
    EXPECT_EQ(valueOf(*color, "Blue"), 2);
}

TEST(ResolverEnums, ALiteralValueSetsTheCountForTheVariantsBehindIt) {
    auto a = resolved("enum Level { A, B = 10, C }\n");
    auto e = userType<EnumType>(*a, "Level");
    EXPECT_EQ(valueOf(*e, "A"), 0);
    EXPECT_EQ(valueOf(*e, "B"), 10);
    EXPECT_EQ(valueOf(*e, "C"), 11);
}

TEST(ResolverEnums, HexadecimalAndOctalPrefixesAreRead) {
    auto a = resolved("enum Level { A = 0x10, B = 010, C = 0XfF, D }\n");
    auto e = userType<EnumType>(*a, "Level");
    EXPECT_EQ(valueOf(*e, "A"), 16);
    EXPECT_EQ(valueOf(*e, "B"), 8);
    EXPECT_EQ(valueOf(*e, "C"), 255);
    EXPECT_EQ(valueOf(*e, "D"), 256);
}

TEST(ResolverEnums, ReadingStopsAtTheFirstCharacterThatDoesNotFit) {
    // "1_000" is 1; "09" is octal and stops at the 9; "0b101" stops at the b.
    auto a = resolved("enum Level { A = 1_000, B, C = 09, D = 0b101 }\n");
    auto e = userType<EnumType>(*a, "Level");
    EXPECT_EQ(valueOf(*e, "A"), 1);
    EXPECT_EQ(valueOf(*e, "B"), 2);
    EXPECT_EQ(valueOf(*e, "C"), 0);
    EXPECT_EQ(valueOf(*e, "D"), 0);
}

TEST(ResolverEnums, ANegatedLiteralOrAnyOtherExpressionLeavesTheCount) {
    auto a = resolved("enum Level { A = 5, B = -3, C = 2 + 2, D = \"x\", F = 1.5 }\n");
    auto e = userType<EnumType>(*a, "Level");
    EXPECT_EQ(valueOf(*e, "A"), 5);
    EXPECT_EQ(valueOf(*e, "B"), 6);
    EXPECT_EQ(valueOf(*e, "C"), 7);
    EXPECT_EQ(valueOf(*e, "D"), 8);
    EXPECT_EQ(valueOf(*e, "F"), 9);
}

TEST(ResolverEnums, TheLargest64BitValueIsRead) {
    auto a = resolved("enum Level { A = 9223372036854775807 }\n");
    EXPECT_EQ(valueOf(*userType<EnumType>(*a, "Level"), "A"), std::numeric_limits<std::int64_t>::max());
}

TEST(ResolverEnums, TheCountWrapsRoundBehindTheLargestValueInsteadOfOverflowing) {
    auto a = resolved("enum Level { A = 0x7FFFFFFFFFFFFFFF, B }\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(valueOf(*userType<EnumType>(*a, "Level"), "B"), std::numeric_limits<std::int64_t>::min());
}

TEST(ResolverEnums, AValueBeyond64BitsRaisesOutOfRange) {
    Analysis a("enum Level { A = 0x10000000000000000 }\n");
    EXPECT_THROW(a.resolve(), std::out_of_range);
}

TEST(ResolverEnumsDeathTest, AValueBeyond64BitsEndsTheProcessWhenNothingCatchesIt) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // On a thread of its own the exception has no catcher above it, as in the
    // server, and ends the process through the runtime's termination path.
    EXPECT_DEATH(std::thread([] {
                     Analysis a("enum Level { A = 99999999999999999999 }\n");
                     a.resolve();
                 }).join(),
                 "");
}

TEST(ResolverEnums, ARepeatedVariantIsReportedOnceAtTheEnumAndTakesNoValue) {
    auto a = resolved("\n  enum Level { A, B, A, C }\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate enum variant 'A' in enum 'Level'||2:3"}));
    auto e = userType<EnumType>(*a, "Level");
    EXPECT_EQ(e->variants, (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(valueOf(*e, "A"), 0);
    // The count did not move at the duplicate: C takes the value it would have had.
    EXPECT_EQ(valueOf(*e, "C"), 2);
}

TEST(ResolverEnums, ARepeatedVariantsValueIsIgnored) {
    auto a = resolved("enum Level { A = 3, A = 100, B }\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate enum variant 'A' in enum 'Level'||1:1"}));
    auto e = userType<EnumType>(*a, "Level");
    EXPECT_EQ(valueOf(*e, "A"), 3);
    EXPECT_EQ(valueOf(*e, "B"), 4);
}

TEST(ResolverEnums, ARepeatedVariantsValueIsNotReadEvenWhenTooLarge) {
    auto a = resolved("enum Level { A, A = 99999999999999999999 }\n");
    EXPECT_EQ(a->records(), (Records{"E1004|Duplicate enum variant 'A' in enum 'Level'||1:1"}));
}

TEST(ResolverEnums, AnEnumInsideAFunctionBodyIsVisibleEverywhereAfterPass1) {
    Analysis a("fn setup() {\n  enum Mode { Fast, Slow = 4, Safe }\n}\nfn run(m: Mode) {}\n");
    a.analyzer->resolver.pass1_collectTopLevel(*a.program);
    EXPECT_TRUE(a.records().empty());
    auto symbol = std::dynamic_pointer_cast<EnumSymbol>(a.symbols().lookup("Mode"));
    ASSERT_TRUE(symbol);
    // Filled at once, during pass 1.
    EXPECT_EQ(symbol->enumType->variants, (std::vector<std::string>{"Fast", "Slow", "Safe"}));
    EXPECT_EQ(valueOf(*symbol->enumType, "Safe"), 5);
    EXPECT_EQ(functionNamed(a, "run")->functionType->paramTypes.at(0), symbol->enumType);
}

TEST(ResolverEnums, BodiesAreSearchedForEnumsOnlyWhenTheProgramMayNestThem) {
    // The parser marks a program whose enums all stand at the top level;
    // the resolver then does not look inside bodies. A program that says
    // it may nest them is searched.
    Analysis searched("fn setup() {\n  enum Mode { Fast }\n}\n");
    ASSERT_TRUE(searched.program->mayNestEnums);
    searched.resolve();
    EXPECT_TRUE(userType<EnumType>(searched, "Mode"));

    Analysis skipped("fn setup() {\n  enum Mode { Fast }\n}\n");
    skipped.program->mayNestEnums = false;
    skipped.resolve();
    EXPECT_FALSE(userType<EnumType>(skipped, "Mode"));
}

TEST(ResolverEnums, ANestedEnumIsNotFilledASecondTimeByPass2) {
    auto a = resolved("fn setup() {\n  enum Mode { Fast }\n}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(userType<EnumType>(*a, "Mode")->variants, (std::vector<std::string>{"Fast"}));
}

TEST(ResolverEnums, EnumsAreLiftedThroughNestedPlainBlocksInSourceOrder) {
    auto a = resolved("fn f() {\n  { { enum Inner { A } } }\n  enum Outer { B }\n}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_TRUE(userType<EnumType>(*a, "Inner"));
    EXPECT_TRUE(userType<EnumType>(*a, "Outer"));
}

TEST(ResolverEnums, EnumsInsideOtherStatementsAreNotLifted) {
    auto a = resolved("fn f() {\n  if (true) { enum InIf { A } }\n  while (true) { enum InLoop { B } }\n}\n");
    EXPECT_TRUE(a->records().empty());
    EXPECT_EQ(a->symbols().lookup("InIf"), nullptr);
    EXPECT_EQ(a->symbols().lookup("InLoop"), nullptr);
}

TEST(ResolverEnums, TheSameNestedEnumInTwoFunctionsIsADuplicateWhoseVariantsJoinTheFirst) {
    auto a = resolved("fn f() {\n  enum Mode { A }\n}\nfn g() {\n  enum Mode { A, B }\n}\n");
    EXPECT_EQ(a->records(),
              (Records{"E1004|Duplicate declaration of enum 'Mode'|A symbol with name 'Mode' is already declared in "
                       "this scope|5:3",
                       "E1004|Duplicate enum variant 'A' in enum 'Mode'||5:3"}));
    auto mode = userType<EnumType>(*a, "Mode");
    EXPECT_EQ(mode->variants, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(valueOf(*mode, "B"), 0);
}

TEST(ResolverEnums, ADuplicateEnumDeclarationFillsTheTypeFoundByName) {
    auto a = resolved("enum Level { A }\nenum Level { B }\n");
    EXPECT_EQ(a->records(),
              (Records{"E1004|Duplicate declaration of enum 'Level'|A symbol with name 'Level' is already "
                       "declared in this scope|2:1"}));
    auto e = userType<EnumType>(*a, "Level");
    EXPECT_EQ(e->variants, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(valueOf(*e, "B"), 0);
}

TEST(ResolverEnums, MembersOfAnEnumWhoseNameIsNotAnEnumAreNotApplied) {
    auto a = resolved("class Level {}\nenum Level { A }\n");
    EXPECT_EQ(a->records().size(), 1u);
    EXPECT_EQ(a->types().findUserType("Level")->kind, TypeKind::Class);
}

}  // namespace
}  // namespace quor::sema::testing
