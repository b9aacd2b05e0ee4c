// Which type texts in signatures and member declarations are reported as
// undefined, and how the silent error type of a wrapped unknown name meets
// the duplicate checks: only a text that resolves to nothing at all is
// reported, while an array, nullable or map around an unknown name becomes
// the error type (and a list of one a "List<any>") without a word.
#include <string>
#include <vector>

#include "sema/resolver/ResolverTestSupport.h"

namespace quor::sema::testing {
namespace {


struct TypeTextCase {
    const char* title;
    std::string source;
    Records records;
    // The printed type of the first parameter of function `f`, when it is one.
    std::string firstParameter;
};

const TypeTextCase TYPE_TEXT_CASES[] = {
    // A generic head that names a class declared above takes any arguments,
    // unknown ones included: the specialisation is made and nothing is said.
    {"AnUnknownArgumentOfAGenericClassIsSilent", "class Box<T> {}\nfn f(x: Box<Ghost>) {}\n", {}, "Box<Ghost>"},
    {"AGenericClassDeclaredBelowIsUndefinedWithItsArguments", "fn f(x: Box<int>) {}\nclass Box<T> {}\n",
     {undefinedType("Box<int>", "1:1")}, "<type-error>"},
    {"AStructTakesNoArguments", "struct S { int x; }\nfn f(x: S<int>) {}\n", {undefinedType("S<int>", "2:1")},
     "<type-error>"},
    {"AnEnumTakesNoArguments", "enum M { A }\nfn f(x: M<string>) {}\n", {undefinedType("M<string>", "2:1")},
     "<type-error>"},
    {"ANestedGenericArgumentIsPrintedAsWritten", "fn f(x: Pair<List<int>, string>) {}\n",
     {undefinedType("Pair<List<int>, string>", "1:1")}, "<type-error>"},
    {"AnUnknownGenericHeadInsideAnArrayIsSilent", "fn f(x: Ghost<int>[]) {}\n", {}, "<type-error>"},
    {"AnUnknownGenericHeadMadeNullableIsSilent", "fn f(x: Ghost<int>?) {}\n", {}, "<type-error>"},
    {"AnUnknownMapKeyIsSilent", "fn f(x: Map<Ghost, int>) {}\n", {}, "<type-error>"},
    {"AMapAsAMapKeyIsSilentlyTheErrorType", "fn f(x: Map<Map<string, int>, int>) {}\n", {}, "<type-error>"},
    {"AMapAsAMapValueIsAType", "fn f(x: Map<string, Map<string, int> >) {}\n", {}, "Map<string, Map<string, int>>"},
    {"AListOfAnUnknownNameInAMapValueIsAListOfAny", "fn f(x: Map<string, List<Ghost> >) {}\n", {},
     "Map<string, List<any>>"},
    {"AnArrayOfAnUnknownNameInTheArrayFormIsSilent", "fn f(x: Array<Ghost>) {}\n", {}, "<type-error>"},
    {"AnUnknownReturnArrayIsSilent", "fn f(x: int) -> Ghost[] {}\n", {}, "int"},
    // Only the innermost suffix meets the missing name; the outer ones wrap
    // the error type like any other.
    {"AnUnknownNameInANullableArrayOfArraysIsSilent", "fn f(x: Ghost[][]?) {}\n", {}, "<type-error>[]?"},
    {"ANullableArrayOfArraysPrintsItsSuffixes", "fn f(x: int[][]?) {}\n", {}, "int[][]?"},
    {"ATypeParameterAsAGenericArgumentOfAClassAboveIsSilent", "class Box<T> {}\nfn f<U>(x: Box<U>) {}\n", {},
     "Box<U>"},
    {"ATypeParameterAsAGenericArgumentOfAnUnknownHeadIsReported", "fn f<U>(x: Ghost<U>) {}\n",
     {undefinedType("Ghost<U>", "1:1")}, "<type-error>"},
    {"AnAliasIsResolvedToItsType", "fn f(x: int32?) {}\n", {}, "int?"},
    {"ByteIsUint8", "fn f(x: byte[]) {}\n", {}, "uint8[]"},
};

class SignatureTypeTexts : public ::testing::TestWithParam<TypeTextCase> {};

TEST_P(SignatureTypeTexts, ReportOnlyWhatResolvesToNothing) {
    const auto& c = GetParam();
    auto a = resolved(c.source);
    EXPECT_EQ(a->records(), c.records) << c.source;
    auto f = functionNamed(*a, "f");
    ASSERT_TRUE(f) << c.source;
    ASSERT_FALSE(f->functionType->paramTypes.empty()) << c.source;
    ASSERT_TRUE(f->functionType->paramTypes[0]) << c.source;
    EXPECT_EQ(f->functionType->paramTypes[0]->toString(), c.firstParameter) << c.source;
}

INSTANTIATE_TEST_SUITE_P(Cases, SignatureTypeTexts, ::testing::ValuesIn(TYPE_TEXT_CASES),
                         [](const ::testing::TestParamInfo<TypeTextCase>& info) { return std::string(info.param.title); });

// ---------------------------------------------------------------------------
// Parameter lists compared for duplicates, with aliases, generic texts and
// the silent error type.

struct OverloadCase {
    const char* title;
    std::string source;
    Records records;
    // lookupFunctions("f") afterwards, as printed function types.
    std::vector<std::string> overloads;
};

const OverloadCase OVERLOAD_CASES[] = {
    {"TwoDifferentUnknownNamesAreTheSameErrorParameter", "fn f(x: Ghost) {}\nfn f(y: Phantom) {}\n",
     {undefinedType("Ghost", "1:1"), undefinedType("Phantom", "2:1"), duplicateFunction("f", "2:1")},
     {"fn(<type-error>) -> void"}},
    {"SilentErrorParametersMakeADuplicateWithNoOtherReport", "fn f(x: Foo[]) {}\nfn f(y: Bar?) {}\n",
     {duplicateFunction("f", "2:1")}, {"fn(<type-error>) -> void"}},
    {"AnErrorParameterIsNoDuplicateOfAKnownOne", "fn f(x: int) {}\nfn f(y: Ghost[]) {}\n", {},
     {"fn(int) -> void", "fn(<type-error>) -> void"}},
    {"TwoTypeParametersAreTheSameAnyParameter", "fn f<T>(x: T) {}\nfn f<U>(y: U) -> int {}\n",
     {duplicateFunction("f", "2:1")}, {"fn(any) -> void"}},
    {"ATypeParameterIsTheSameParameterAsAny", "fn f<T>(x: T) {}\nfn f(y: any) {}\n", {duplicateFunction("f", "2:1")},
     {"fn(any) -> void"}},
    {"AliasesAreTheSameParameter", "fn f(x: byte, y: int32) {}\nfn f(a: uint8, b: int) {}\n",
     {duplicateFunction("f", "2:1")}, {"fn(uint8, int) -> void"}},
    {"SpecialisationsAreComparedByTheirWrittenArguments",
     "class Box<T> {}\nfn f(x: Box<int>) {}\nfn f(x: Box<int32>) {}\nfn f(x: Box<int>) -> int {}\n",
     {duplicateFunction("f", "4:1")}, {"fn(Box<int>) -> void", "fn(Box<int32>) -> void"}},
    {"ListsAreNamedByTheirResolvedElement", "fn f(x: List<int>) {}\nfn f(x: List<int32>) {}\n",
     {duplicateFunction("f", "2:1")}, {"fn(List<int>) -> void"}},
    {"MapsCompareTheirResolvedKeyAndValue", "fn f(x: Map<string, int>) {}\nfn f(x: Map<string, int32>) {}\n",
     {duplicateFunction("f", "2:1")}, {"fn(Map<string, int>) -> void"}},
    {"ArraysOfOtherElementsDiffer", "fn f(x: int[]) {}\nfn f(x: int64[]) {}\nfn f(x: int32[]) {}\n",
     {duplicateFunction("f", "3:1")}, {"fn(int[]) -> void", "fn(int64[]) -> void"}},
    {"ANullableDiffersFromItsInnerType", "fn f(x: int?) {}\nfn f(x: int) {}\nfn f(x: int32?) {}\n",
     {duplicateFunction("f", "3:1")}, {"fn(int?) -> void", "fn(int) -> void"}},
    {"AnUntypedParameterIsTheSameAsVoid", "fn f(x) {}\nfn f(y: void) {}\n", {duplicateFunction("f", "2:1")},
     {"fn(void) -> void"}},
};

class SignatureOverloads : public ::testing::TestWithParam<OverloadCase> {};

TEST_P(SignatureOverloads, AreKeptOrRefusedByTheirResolvedParameters) {
    const auto& c = GetParam();
    auto a = resolved(c.source);
    EXPECT_EQ(a->records(), c.records) << c.source;
    std::vector<std::string> overloads;
    for (const auto& f : a->symbols().lookupFunctions("f")) overloads.push_back(f->functionType->toString());
    EXPECT_EQ(overloads, c.overloads) << c.source;
}

INSTANTIATE_TEST_SUITE_P(Cases, SignatureOverloads, ::testing::ValuesIn(OVERLOAD_CASES),
                         [](const ::testing::TestParamInfo<OverloadCase>& info) { return std::string(info.param.title); });

// ---------------------------------------------------------------------------
// The same rules for the signatures of class methods.

struct MethodCase {
    const char* title;
    std::string source;
    Records records;
    std::vector<std::string> methods;  // the own methods `m` of class C
};

const MethodCase METHOD_CASES[] = {
    {"UnknownParameterTypesMakeADuplicateMethod", "class C {\n  fn m(x: Ghost) {}\n  fn m(y: Phantom) {}\n}\n",
     {undefinedType("Ghost", "2:3"), undefinedType("Phantom", "3:3"), duplicateMethod("m", "C", "3:3")},
     {"fn(<type-error>) -> void"}},
    {"SilentErrorTypesMakeADuplicateMethodWithNoOtherReport",
     "class C {\n  fn m(x: Foo[]) -> Bar? {}\n  fn m(y: Baz?) -> Qux[] {}\n}\n", {duplicateMethod("m", "C", "3:3")},
     {"fn(<type-error>) -> <type-error>"}},
    {"AnUnknownReturnTypeIsNoDuplicateOfAKnownOne", "class C {\n  fn m() -> int {}\n  fn m() -> Ghost[] {}\n}\n", {},
     {"fn() -> int", "fn() -> <type-error>"}},
    {"TheClassTypeParameterIsAnyInEveryMethod", "class C<T> {\n  fn m(x: T) {}\n  fn m(y: any) {}\n}\n",
     {duplicateMethod("m", "C", "3:3")}, {"fn(any) -> void"}},
    {"AMethodsOwnTypeParameterNamedLikeTheClassOnesIsAny", "class C<T> {\n  fn m<T>(x: T) {}\n}\n", {},
     {"fn(any) -> void"}},
    {"TheOwnSpecialisationIsAParameterType", "class C<T> {\n  fn m(x: C<T>) -> C<int> {}\n}\n", {},
     {"fn(C<T>) -> C<int>"}},
};

class MethodSignatures : public ::testing::TestWithParam<MethodCase> {};

TEST_P(MethodSignatures, AreResolvedAndComparedWhole) {
    const auto& c = GetParam();
    auto a = resolved(c.source);
    EXPECT_EQ(a->records(), c.records) << c.source;
    auto cls = classNamed(*a, "C");
    ASSERT_TRUE(cls) << c.source;
    EXPECT_EQ(methodTypes(*cls, "m"), c.methods) << c.source;
}

INSTANTIATE_TEST_SUITE_P(Cases, MethodSignatures, ::testing::ValuesIn(METHOD_CASES),
                         [](const ::testing::TestParamInfo<MethodCase>& info) { return std::string(info.param.title); });

}  // namespace
}  // namespace quor::sema::testing
