// Which reports a program gets, in which order, and which ones are kept
// quiet: several reports of one statement, a broken value that silences
// what depends on it (and the conditions that it does not silence), the
// result a function settles on, the two walks over short forms, class
// members, positions behind modifiers, and interface verification.
#include <cctype>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

const std::string UNDEFINED_HINT = "Ensure the variable is declared before use";

Expected undefined(const std::string& name, int line, int nth = 1) {
    return {"E1002", "Undefined variable or symbol '" + name + "'", line, name, nth, UNDEFINED_HINT};
}

Expected minusOfIntAndBool(int line) {
    return {"E1001", "Operator '-' cannot be applied to types 'int' and 'bool'", line, "-", 1,
            "Operands must be numeric"};
}

Expected missingInterfaceMethod(const std::string& cls, const std::string& method, const std::string& type,
                                const std::string& iface, int line) {
    return {"E1001",
            "Class '" + cls + "' does not implement interface method '" + method + "': " + type + " from interface '" +
                iface + "'",
            line, "class"};
}

Expected missingReturn(const std::string& function, const std::string& type, int line, const std::string& needle) {
    return {"E1005",
            "Missing return statement: function '" + function + "' must return a value of type '" + type +
                "' along all code paths",
            line, needle};
}

Expected caseMismatch(const std::string& value, const std::string& subject, int line) {
    return {"E1001",
            "Case value type '" + value + "' does not match switch expression type '" + subject + "'", line,
            "switch"};
}

Expected patternMismatch(const std::string& value, const std::string& subject, int line) {
    return {"E1001", "Match pattern type '" + value + "' does not match subject type '" + subject + "'", line,
            "match"};
}

class CheckerReportOrderAndCascades : public ::testing::TestWithParam<Case> {};

TEST_P(CheckerReportOrderAndCascades, ReportsExactlyThisInThisOrder) {
    expectCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    LocalDeclarations, CheckerReportOrderAndCascades,
    ::testing::Values(
        Case{"AVariableCannotSeeItselfInItsInitializer", body("", "var x = x;\n    int y = x;\n    var probe = x;"),
             {undefined("x", 2, 2)}, "<type-error>"},
        Case{"AnInitializerSeesAParameterOfTheSameName", body("x: int", "var x = x;\n    var probe = x;"), {}, "int"},
        Case{"ANullSafetyErrorComesBeforeTheDuplicate", body("", "int x = 1;\n    int x = null;"),
             {{"E1008", "Null safety violation: cannot assign null to non-nullable variable 'x' of type 'int'", 3, "x",
               1, "Use 'int?' to declare a nullable variable"},
              {"E1004", "Duplicate declaration of variable 'x' in this scope", 3, "x"}}},
        Case{"AnInferenceErrorComesBeforeTheDuplicate", body("", "var x = 1;\n    var x = null;"),
             {{"E1001", "Cannot infer type from 'null' without explicit type annotation", 3, "var"},
              {"E1004", "Duplicate declaration of variable 'x' in this scope", 3, "var"}}},
        Case{"AnUndefinedTypeThenTheValueThenTheDuplicate", body("", "int w = 1;\n    Widget w = 1 - true;"),
             {{"E1002", "Undefined type 'Widget' in declaration of variable 'w'", 3, "w ="},
              minusOfIntAndBool(3),
              {"E1004", "Duplicate declaration of variable 'w' in this scope", 3, "w ="}}},
        Case{"ABrokenTypedInitializerLeavesTheWrittenType", body("", "int x = missing;\n    string s = x;"),
             {undefined("missing", 2),
              {"E1001", "Type mismatch: cannot initialize variable of type 'string' with value of type 'int'", 3,
               "s ="}}},
        Case{"ABrokenInferredVariableSilencesUsesButNotConditions",
             body("", "var x = missing;\n    string s = x;\n    if (x) {}\n    var probe = x + 1;"),
             {undefined("missing", 2), {"E1001", "If condition must be of type bool, got '<type-error>'", 4, "if"}},
             "<type-error>"},
        Case{"ACaughtVariableMayBeDeclaredAgainInItsHandlerBody",
             body("", "try {\n    } catch (string e) {\n        int e = 1;\n        var probe = e;\n    }"), {}, "int"},
        Case{"ALoopVariableMayBeDeclaredAgainInItsBody",
             body("xs: string[]", "for (x in xs) {\n        int x = 1;\n        var probe = x;\n    }"), {}, "int"},
        // An unwritten loop type is the text "auto", which names nothing
        // unless the program declares a type of that name.
        Case{"AClassNamedAutoBecomesTheTypeOfUnannotatedLoopVariables",
             "class auto {}\nfn f(xs: int[]) {\n    for (x in xs) {\n        var probe = x;\n    }\n}\n", {}, "auto"},
        Case{"AnUnbracedForInBodySharesTheLoopVariablesScope", body("xs: int[]", "for (x in xs) string x = \"s\";"),
             {{"E1004", "Duplicate declaration of variable 'x' in this scope", 2, "x ="}}},
        Case{"AnUnbracedDoWhileBodyDeclaresInTheEnclosingScope",
             body("", "do int y = 1; while (false);\n    int y = 2;"),
             {{"E1004", "Duplicate declaration of variable 'y' in this scope", 3, "y"}}},
        Case{"ALoopVariableShadowsAnOuterLocal",
             body("xs: string[]", "int x = 1;\n    for (x in xs) {\n        var probe = x;\n    }"), {}, "string"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    SwitchMatchAndLoops, CheckerReportOrderAndCascades,
    ::testing::Values(
        Case{"ABrokenSwitchSubjectSilencesItsCases",
             body("", "switch (missing) {\n        case 1:\n            break;\n        case \"s\":\n            break;\n"
                      "    }"),
             {undefined("missing", 2)}},
        Case{"ABrokenCaseValueIsSilent", body("n: int", "switch (n) {\n        case nothing:\n            break;\n    }"),
             {undefined("nothing", 3)}},
        Case{"ABrokenMatchSubjectSilencesItsPatterns",
             body("", "match missing {\n        1 => {},\n        \"s\" => {}\n    }"), {undefined("missing", 2)}},
        Case{"EachCaseIsJudgedBeforeItsBody",
             body("n: int", "switch (n) {\n        case \"a\":\n            first;\n        case true:\n"
                            "            second;\n        default:\n            third;\n    }"),
             {caseMismatch("string", "int", 2), undefined("first", 4), caseMismatch("bool", "int", 2),
              undefined("second", 6), undefined("third", 8)}},
        Case{"EachPatternIsJudgedBeforeItsArm",
             body("n: int", "match n {\n        \"a\" => first,\n        true => { second; }\n    }"),
             {patternMismatch("string", "int", 2), undefined("first", 3), patternMismatch("bool", "int", 2),
              undefined("second", 4)}},
        Case{"EveryLoopAndSwitchGivesItsLevelBack",
             body("n: int, xs: int[]",
                  "while (true) {}\n    break;\n    for (;;) {}\n    continue;\n    for (x in xs) {}\n    break;\n"
                  "    do {} while (false);\n    continue;\n    switch (n) { case 1: break; }\n    break;"),
             {{"E1001", "'break' statement outside of loop or switch", 3, "break"},
              {"E1001", "'continue' statement outside of loop", 5, "continue"},
              {"E1001", "'break' statement outside of loop or switch", 7, "break"},
              {"E1001", "'continue' statement outside of loop", 9, "continue"},
              {"E1001", "'break' statement outside of loop or switch", 11, "break"}}},
        Case{"ABreakInAMatchOrHandlerInsideALoopIsClean",
             body("n: int", "while (true) {\n        match n { _ => { break; } }\n        try {\n            break;\n"
                            "        } catch (string e) {\n            continue;\n        }\n    }"),
             {}},
        Case{"ABreakInAHandlerOutsideALoopIsReported",
             body("", "try {\n    } catch (string e) {\n        break;\n    } finally {\n        continue;\n    }"),
             {{"E1001", "'break' statement outside of loop or switch", 4, "break"},
              {"E1001", "'continue' statement outside of loop", 6, "continue"}}},
        Case{"RepeatedCasesAndAMissingDefaultAreNoConcern",
             "enum Colour { Red, Green, Blue }\nfn f(c: Colour, n: int) {\n    switch (n) {\n        case 1:\n"
             "        case 1:\n            break;\n    }\n    switch (c) {\n        case Colour.Red:\n"
             "            break;\n    }\n    match c {\n        Colour.Green => {}\n    }\n}\n",
             {}},
        Case{"TheIterableIsJudgedBeforeTheBody",
             body("s: string", "for (c in s) {\n        inside;\n        var probe = c;\n    }"),
             {{"E1001", "For-in loop requires an iterable collection or array, got 'string'", 2, "for"},
              undefined("inside", 3)},
             "any"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    FunctionResults, CheckerReportOrderAndCascades,
    ::testing::Values(
        Case{"AMissingReturnNamesTheWrittenResultNotTheSettledOne",
             "fn f(a: bool): any {\n    if (a) {\n        return 1;\n    }\n}\n", {missingReturn("f", "any", 1, "fn")}},
        Case{"AnUnknownResultIsSettledByTheFirstReturn",
             "fn f(a: bool): unknown {\n    if (a) {\n        return 1;\n    }\n    return \"s\";\n}\n",
             {{"E1005", "Return type mismatch: expected 'int', got 'string'", 5, "return"}}},
        Case{"AGenericResultIsSettledByTheFirstReturn",
             "fn f<T>(a: bool): T {\n    if (a) {\n        return 1;\n    }\n    return \"s\";\n}\n",
             {{"E1005", "Return type mismatch: expected 'int', got 'string'", 5, "return"}}},
        Case{"ABareReturnAfterTheResultIsSettledNamesTheSettledType",
             "fn f(a: bool): any {\n    if (a) {\n        return 1.5;\n    }\n    return;\n}\n",
             {{"E1005", "Non-void function must return a value of type 'double'", 5, "return"}}},
        Case{"AResultSettledOnVoidRefusesLaterValues",
             "fn n() {}\nfn f(a: bool): any {\n    if (a) {\n        return n();\n    }\n    return 1;\n}\n",
             {{"E1005", "Void function cannot return a value", 6, "return"}}},
        Case{"AResultSettledOnNullHoldsLaterValuesToNull",
             "fn f(a: bool): any {\n    if (a) {\n        return null;\n    }\n    return 1;\n}\n",
             {{"E1005", "Return type mismatch: expected 'null', got 'int'", 5, "return"}}},
        Case{"TheSettledResultEndsWithItsFunction",
             "fn f(): any {\n    return 1;\n}\nfn g(): any {\n    return \"s\";\n}\n", {}},
        Case{"ATypeFirstFunctionIsReportedAtItsName", "int count() {\n}\n", {missingReturn("count", "int", 1, "count")}},
        Case{"ABareFunctionIsReportedAtItsName", "count() -> int {\n}\n", {missingReturn("count", "int", 1, "count")}},
        Case{"AMethodBehindModifiersIsReportedAtItsKeyword", "class A {\n    public static fn m(): int {\n    }\n}\n",
             {missingReturn("m", "int", 2, "fn")}},
        Case{"AParameterDefaultIsCheckedBeforeTheBody", "fn f(a: int = \"s\"): int {\n    first;\n}\n",
             {{"E1001", "Default value type 'string' does not match parameter type 'int'", 1, "fn"},
              undefined("first", 2), missingReturn("f", "int", 1, "fn")}},
        Case{"ABrokenDefaultIsReportedOnce", "fn f(a: int = missing) {}\n", {undefined("missing", 1)}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    ShortForms, CheckerReportOrderAndCascades,
    ::testing::Values(
        Case{"ABrokenUnannotatedShortFormIsReportedTwiceAndNothingMore", "fn f() => missing;\n",
             {undefined("missing", 1), undefined("missing", 1)}},
        Case{"AnUnannotatedShortFormChecksItsDefaultsInBothWalks", "fn f(a: int = \"s\") => a;\n",
             {{"E1001", "Default value type 'string' does not match parameter type 'int'", 1, "fn"},
              {"E1001", "Default value type 'string' does not match parameter type 'int'", 1, "fn"}}},
        Case{"AnUnannotatedShortFormReportsADuplicateParameterInBothWalks", "fn f(a: int, a: string) => a;\n",
             {{"E1004", "Duplicate parameter name 'a' in function 'f'", 1, "fn"},
              {"E1004", "Duplicate parameter name 'a' in function 'f'", 1, "fn"}}},
        Case{"AnUnannotatedShortFormMethodIsCheckedOnce", "class A {\n    fn m() => 1 - true;\n}\n",
             {minusOfIntAndBool(2)}},
        Case{"AShortFormInATopLevelBlockIsCheckedOnce", "extern {\n    fn g() => 1 - true;\n}\n",
             {minusOfIntAndBool(2)}},
        Case{"AShortFormSettledOnNullGivesNullToItsCallers",
             "fn nothing() => null;\nfn g() {\n    var x = nothing();\n}\n",
             {{"E1001", "Cannot infer type from 'null' without explicit type annotation", 3, "var"}}},
        Case{"AShortFormSettledOnAMapReadsItsTextBack",
             "fn m() => {\"a\": 1};\nfn g(): Map<string, int64> {\n    return m();\n}\n",
             {{"E1005", "Return type mismatch: expected 'Map<string, int64>', got 'Map<string, int>'", 3, "return"}}},
        // A short-form method's inferred result lives only in its text, which
        // a specialisation of its class reads when it is made.
        Case{"ASpecialisationMadeBeforeTheClassIsCheckedSeesAVoidMethod",
             "class Box<T> {\n    fn size() => 1;\n}\nfn early(b: Box<int>) {\n    var probe = b.size();\n}\n", {},
             "void"},
        Case{"ASpecialisationMadeAfterTheClassIsCheckedSeesTheInferredResult",
             "class Box<T> {\n    fn size() => 1;\n}\nfn late() {\n    var b = new Box<string>();\n"
             "    var probe = b.size();\n}\n",
             {}, "int"},
        Case{"ASpecialisationMadeInAFunctionAboveTheClassSeesAVoidMethod",
             "fn late() {\n    var b = new Box<string>();\n    var probe = b.size();\n}\nclass Box<T> {\n"
             "    fn size() => 1;\n}\n",
             {}, "void"},
        // A function with the parameters of a built-in of its name is
        // dropped beside it: its inferred result reaches no caller.
        Case{"AShortFormBesideABuiltInOfItsParametersInformsNoCaller",
             "fn now() => \"later\";\nfn g(): string {\n    return now();\n}\n",
             {{"E1005", "Return type mismatch: expected 'string', got 'int'", 3, "return"}}},
        Case{"ATopLevelVariableIsNoNameInsideFunctions", "var limit = 1;\nfn f() {\n    var x = limit;\n}\n",
             {undefined("limit", 3)}},
        Case{"ShortFormsAreSettledBeforeAClassAbove",
             "class A {\n    int x = \"s\";\n}\nfn f() => 1 - true;\n",
             {minusOfIntAndBool(4),
              {"E1001", "Type mismatch in field initializer for 'x': expected 'int', got 'string'", 2, "x"},
              minusOfIntAndBool(4)}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    ClassesAndInterfaces, CheckerReportOrderAndCascades,
    ::testing::Values(
        Case{"AFieldInitializerSeesALaterField", "class A {\n    int64 y = x;\n    int x = 1;\n}\n", {}},
        // Fields stand in the class scope with their const flag, so a bare
        // name is protected while a member access is not.
        Case{"AConstFieldIsProtectedUnderItsBareNameOnly",
             "class A {\n    const int max = 1;\n    fn m() {\n        max = 2;\n        this.max = 3;\n    }\n}\n",
             {{"E1005", "Cannot assign to constant 'max'", 4, "=", 1, "Constants are immutable and cannot be reassigned"}}},
        Case{"AParameterNamedLikeAConstFieldMayBeAssigned",
             "class A {\n    const int max = 1;\n    fn m(max: int) {\n        max = 2;\n    }\n}\n", {}},
        Case{"AStaticFieldInitializerIsReportedAtItsName", "class A {\n    private static int count = \"none\";\n}\n",
             {{"E1001", "Type mismatch in field initializer for 'count': expected 'int', got 'string'", 2, "count"}}},
        Case{"FieldsOfATypeParameterTakeAnything", "class Box<T> {\n    T value = 1;\n    T[] values = [\"s\"];\n}\n",
             {}},
        Case{"AnUnannotatedShortFormMethodDoesNotImplementAnInterfaceMethod",
             "interface Named {\n    fn name(): string;\n}\nclass A implements Named {\n    fn name() => \"a\";\n}\n",
             {missingInterfaceMethod("A", "name", "fn() -> string", "Named", 4)}},
        Case{"AClassBehindModifiersIsReportedAtItsKeyword",
             "interface I {\n    fn m();\n}\npublic class A implements I {}\n",
             {missingInterfaceMethod("A", "m", "fn() -> void", "I", 4)}},
        Case{"AnInterfaceHoldingAMethodTwiceIsReportedTwice",
             "interface I {\n    fn m();\n    fn m();\n}\nclass A implements I {}\n",
             {missingInterfaceMethod("A", "m", "fn() -> void", "I", 5),
              missingInterfaceMethod("A", "m", "fn() -> void", "I", 5)}},
        Case{"EachInterfaceOverloadIsRequiredOnItsOwn",
             "interface I {\n    fn put(a: int);\n    fn put(a: string);\n}\nclass A implements I {\n"
             "    fn put(a: int) {}\n}\n",
             {missingInterfaceMethod("A", "put", "fn(string) -> void", "I", 5)}},
        Case{"TwoInterfacesAskingForOneMethodAreReportedOnceEach",
             "interface I {\n    fn m(): int;\n}\ninterface J {\n    fn m(): int;\n}\nclass A implements I, J {}\n",
             {missingInterfaceMethod("A", "m", "fn() -> int", "I", 7),
              missingInterfaceMethod("A", "m", "fn() -> int", "J", 7)}},
        Case{"OneOfTwoMethodsWithTheSameParametersImplements",
             "interface I {\n    fn count(): int64;\n}\nclass A implements I {\n    fn count(): int {\n"
             "        return 1;\n    }\n    fn count(): int64 {\n        return 1;\n    }\n}\n",
             {}},
        Case{"AnInheritedMethodStaysBesideOneOfAnotherResult",
             "interface I {\n    fn m(): int;\n}\nclass B {\n    fn m(): int {\n        return 1;\n    }\n}\n"
             "class A extends B implements I {\n    fn m(): int64 {\n        return 1;\n    }\n}\n",
             {}},
        Case{"InterfaceMessagesCarryTheFullSignature",
             "class Box<T> {}\ninterface I {\n    fn m(a: Map<string, int[]>, b: Box<int>?): string[]?;\n}\n"
             "class A implements I {}\n",
             {missingInterfaceMethod("A", "m", "fn(Map<string, int[]>, Box<int>?) -> string[]?", "I", 5)}},
        Case{"SpecialisedParameterTypesMatchByName",
             "class Box<T> {}\ninterface I {\n    fn m(b: Box<int>?): int[];\n}\nclass A implements I {\n"
             "    fn m(b: Box<int>?): int[] {\n        return [1];\n    }\n}\n",
             {}},
        Case{"AnInterfaceInTheBasePositionComesBeforeTheListedOnes",
             "interface I {\n    fn a();\n}\ninterface J {\n    fn b();\n}\nclass C : I, J {}\n",
             {missingInterfaceMethod("C", "a", "fn() -> void", "I", 7),
              missingInterfaceMethod("C", "b", "fn() -> void", "J", 7)}}),
    caseName);

// A function without a body still has its parameters checked; an
// interface's signatures and declarations nested in a class are not visited.
INSTANTIATE_TEST_SUITE_P(
    BodilessAndNestedDeclarations, CheckerReportOrderAndCascades,
    ::testing::Values(
        Case{"AnAbstractMethodStillHasItsParametersChecked",
             "abstract class A {\n    abstract fn m(a: int, a: string = 1): int;\n}\n",
             {{"E1004", "Duplicate parameter name 'a' in function 'm'", 2, "fn"},
              {"E1001", "Default value type 'int' does not match parameter type 'string'", 2, "fn"}}},
        Case{"AnExternSignatureStillHasItsDefaultsChecked", "extern {\n    int g(int a = \"s\");\n}\n",
             {{"E1001", "Default value type 'string' does not match parameter type 'int'", 2, "g"}}},
        Case{"AnInterfaceSignatureIsNotChecked", "interface I {\n    fn m(a: int, a: string = 1): int;\n}\n", {}},
        Case{"AClassNestedInAClassIsNotChecked",
             "class A {\n    class B {\n        fn m(): int {}\n        int x = \"s\";\n    }\n}\n", {}},
        Case{"AnEnumInAFunctionBodyIsKnownThere",
             "fn f() {\n    enum Mode { On, Off }\n    var probe = Mode.Off;\n}\n", {}, "Mode"}),
    caseName);

TEST(CheckerAnalyze, AnswersWhetherTheAnalysisReportedNothing) {
    struct Row {
        std::string source;
        bool clean;
    };
    const std::vector<Row> rows = {
        {"fn f(): int {\n    return 1;\n}\n", true},
        {"fn f(): int {\n}\n", false},                    // a checker report
        {"class A extends Nowhere {}\n", false},          // a resolver report; the checker does not run
        {"var x = null;\nint y = \"s\";\n", true},        // top-level statements are not checked
    };
    for (const Row& row : rows) {
        Analysis analysis(row.source);
        EXPECT_EQ(analysis.analyzer->analyze(*analysis.program), row.clean) << row.source;
        EXPECT_EQ(analysis.records().empty(), row.clean) << row.source;
    }
}

}  // namespace
}  // namespace quor::sema::testing
