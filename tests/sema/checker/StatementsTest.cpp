// Conditions, loops, switch, match, return, break and continue, try and
// throw as the checker judges them.
#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

using Records = std::vector<std::string>;

const std::string UNDEFINED_HINT = "Ensure the variable is declared before use";

std::string withParams(const std::string& params, const std::string& statements) {
    return "fn f(" + params + ") {\n    " + statements + "\n}\n";
}

std::string inFunction(const std::string& statements) { return withParams("", statements); }

TEST(CheckerConditions, AnIntIfConditionIsReportedWithItsTypeText) {
    const std::string source = inFunction("if (1) {}");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "If condition must be of type bool, got 'int'", at(source, 2, "if"))});
}

TEST(CheckerConditions, AnUndefinedNameInAConditionIsReportedTwice) {
    const std::string source = inFunction("if (ready) {}");
    EXPECT_EQ(probe(source).records,
              (Records{undefinedRecord(source, 2, "ready"),
                       record("E1001", "If condition must be of type bool, got '<type-error>'", at(source, 2, "if"))}));
}

TEST(CheckerConditions, ANullableBoolConditionIsReported) {
    const std::string source = withParams("flag: bool?", "while (flag) {}");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "While condition must be of type bool, got 'bool?'", at(source, 2, "while"))});
}

TEST(CheckerConditions, AnAnyConditionIsReported) {
    const std::string source = withParams("flag: any", "do {} while (flag);");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Do-while condition must be of type bool, got 'any'", at(source, 2, "do"))});
}

TEST(CheckerConditions, AForConditionIsReported) {
    const std::string source = inFunction("for (var i = 0; \"no\"; i++) {}");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "For loop condition must be of type bool, got 'string'", at(source, 2, "for"))});
}

TEST(CheckerConditions, BoolConditionsAreClean) {
    EXPECT_EQ(probe(withParams("a: bool", "if (a) {} else {}\n    while (!a) {}\n    do {} while (a);\n"
                                          "    for (;a;) {}"))
                  .records,
              Records{});
}

TEST(CheckerIf, BranchesOpenNoScopeOfTheirOwnWithoutABlock) {
    Probe result = probe(withParams("a: bool", "if (a) int x = 1; else {}\n    var probe = x;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "int");
}

TEST(CheckerLoops, DoWhileConditionNoLongerSeesTheBodysVariables) {
    const std::string source = inFunction("do {\n        bool more = false;\n    } while (more);");
    EXPECT_EQ(probe(source).records,
              (Records{undefinedRecord(source, 4, "more"),
                       record("E1001", "Do-while condition must be of type bool, got '<type-error>'",
                              at(source, 2, "do"))}));
}

TEST(CheckerLoops, TheForInitialiserIsLocalToTheLoop) {
    const std::string source = inFunction("for (var i = 0; i < 3; i++) {}\n    var probe = i;");
    EXPECT_EQ(probe(source).records,
              Records{undefinedRecord(source, 3, "i")});
}

TEST(CheckerLoops, TheForUpdateIsCheckedBeforeTheBody) {
    const std::string source = inFunction("for (var i = 0; i < 3; afterward) {\n        inside;\n    }");
    EXPECT_EQ(probe(source).records,
              (Records{undefinedRecord(source, 2, "afterward"), undefinedRecord(source, 3, "inside")}));
}

TEST(CheckerForIn, AStringIsNotIterable) {
    const std::string source = withParams("s: string", "for (x in s) {}");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "For-in loop requires an iterable collection or array, got 'string'",
                             at(source, 2, "for"))});
}

TEST(CheckerForIn, AnAnyOrBrokenCollectionIsReportedAndTheVariableIsAny) {
    const std::string source = withParams("stuff: any", "for (x in stuff) {\n        var probe = x;\n    }");
    Probe result = probe(source);
    EXPECT_EQ(result.records, Records{record("E1001", "For-in loop requires an iterable collection or array, got "
                                                      "'any'", at(source, 2, "for"))});
    EXPECT_EQ(result.type, "any");

    const std::string broken = inFunction("for (x in nowhere) {}");
    EXPECT_EQ(probe(broken).records,
              (Records{undefinedRecord(broken, 2, "nowhere"),
                       record("E1001", "For-in loop requires an iterable collection or array, got '<type-error>'",
                              at(broken, 2, "for"))}));
}

TEST(CheckerForIn, AnArrayGivesItsElementType) {
    Probe result = probe(withParams("values: int64[]", "for (v in values) {\n        var probe = v;\n    }"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "int64");
}

TEST(CheckerForIn, AMapGivesItsKeyType) {
    Probe result =
        probe(withParams("someMap: Map<string, int>", "for (k in someMap) {\n        var probe = k;\n    }"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "string");
}

TEST(CheckerForIn, AListClassGivesTheElementNamedInItsText) {
    Probe result = probe(withParams("items: List<double>", "for (item in items) {\n        var probe = item;\n"
                                                             "    }"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "double");
}

TEST(CheckerForIn, AListOfAnUnknownElementGivesAny) {
    Probe result = probe(withParams("items: List<Missing>", "for (item in items) {\n        var probe = item;\n"
                                                              "    }"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "any");
}

TEST(CheckerForIn, AWrittenElementTypeReplacesTheFoundOneUnchecked) {
    Probe result = probe(withParams("intArray: int[]", "for (string s in intArray) {\n        var probe = s;\n"
                                                         "    }"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "string");
}

TEST(CheckerForIn, VarAndLetHeadsKeepTheFoundType) {
    Probe result = probe(withParams("values: bool[]", "for (var v in values) {\n        var probe = v;\n    }"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "bool");
}

TEST(CheckerForIn, TheLoopVariableIsGoneBehindTheLoop) {
    const std::string source = withParams("values: int[]", "for (v in values) {}\n    var probe = v;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1002", "Undefined variable or symbol 'v'", at(source, 3, "v;"), UNDEFINED_HINT)});
}

TEST(CheckerBreakContinue, BreakAndContinueInsideLoopsAreClean) {
    EXPECT_EQ(probe(withParams("values: int[]", "while (true) { break; }\n    for (v in values) { continue; }\n"
                                                "    do { continue; } while (false);\n    for (;;) { break; }"))
                  .records,
              Records{});
}

TEST(CheckerBreakContinue, BreakOutsideLoopOrSwitchIsReported) {
    const std::string source = inFunction("break;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "'break' statement outside of loop or switch", at(source, 2, "break"))});
}

TEST(CheckerBreakContinue, ContinueOutsideALoopIsReported) {
    const std::string source = inFunction("continue;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "'continue' statement outside of loop", at(source, 2, "continue"))});
}

TEST(CheckerBreakContinue, BreakInASwitchIsCleanButContinueIsNot) {
    const std::string source = withParams("n: int", "switch (n) {\n        case 1:\n            break;\n"
                                                    "        default:\n            continue;\n    }");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "'continue' statement outside of loop", at(source, 6, "continue"))});
}

TEST(CheckerBreakContinue, ContinueInASwitchInsideALoopIsClean) {
    EXPECT_EQ(probe(withParams("n: int", "while (true) {\n        switch (n) {\n            case 1:\n"
                                         "                continue;\n        }\n    }"))
                  .records,
              Records{});
}

TEST(CheckerBreakContinue, AMatchIsNoSwitchForBreak) {
    const std::string source = withParams("n: int", "match n {\n        1 => { break; },\n        _ => {}\n    }");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "'break' statement outside of loop or switch", at(source, 3, "break"))});
}

TEST(CheckerSwitch, ACaseValueOfAnotherTypeIsReportedAtTheSwitch) {
    const std::string source = withParams("n: int", "switch (n) {\n        case \"one\":\n            break;\n    }");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Case value type 'string' does not match switch expression type 'int'",
                             at(source, 2, "switch"))});
}

TEST(CheckerSwitch, ACaseValueThatWidensToTheSubjectIsClean) {
    EXPECT_EQ(probe(withParams("n: int64", "switch (n) {\n        case 1:\n            break;\n    }")).records,
              Records{});
}

TEST(CheckerSwitch, CasesShareTheEnclosingScope) {
    const std::string source = withParams("n: int", "switch (n) {\n        case 1:\n            int x = 1;\n"
                                                    "        case 2:\n            int x = 2;\n    }\n"
                                                    "    var probe = x;");
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              Records{record("E1004", "Duplicate declaration of variable 'x' in this scope", at(source, 6, "x"))});
    EXPECT_EQ(result.type, "int");
}

TEST(CheckerSwitch, TheDefaultBodyIsChecked) {
    const std::string source = withParams("n: int", "switch (n) {\n        default:\n            unknownThing;\n    }");
    EXPECT_EQ(probe(source).records, Records{undefinedRecord(source, 4, "unknownThing")});
}

TEST(CheckerMatch, APatternOfAnotherTypeIsReported) {
    const std::string source = withParams("n: int", "match n {\n        \"one\" => {},\n        _ => {}\n    }");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Match pattern type 'string' does not match subject type 'int'",
                             at(source, 2, "match"))});
}

TEST(CheckerMatch, ArmExpressionsAreCheckedAndNotCompared) {
    const std::string source = withParams("n: int", "match n {\n        1 => \"one\",\n        2 => 2.0,\n"
                                                    "        _ => nothing\n    }");
    EXPECT_EQ(probe(source).records, Records{undefinedRecord(source, 5, "nothing")});
}

TEST(CheckerReturn, AReturnOutsideAnyFunctionIsReportedWithoutCheckingItsValue) {
    Analysis analysis("return missing;\n");
    analysis.analyze();
    // Top-level statements other than declarations are not checked by the walk.
    EXPECT_EQ(analysis.records(), Records{});
    analysis.checker().checkStmt(static_cast<const ast::StatementNode&>(*analysis.program->declarations[0]));
    EXPECT_EQ(analysis.records(), Records{record("E1005", "Return statement outside of any function", "1:1")});
}

TEST(CheckerReturn, ABareReturnInANonVoidFunctionNamesTheExpectedType) {
    const std::string source = "fn f(): int {\n    return;\n}\n";
    EXPECT_EQ(probe(source).records,
              Records{record("E1005", "Non-void function must return a value of type 'int'", at(source, 2, "return"))});
}

TEST(CheckerReturn, AVoidFunctionMayNotReturnAValueWhichIsNotChecked) {
    const std::string source = "fn f() {\n    return missing;\n}\n";
    EXPECT_EQ(probe(source).records,
              Records{record("E1005", "Void function cannot return a value", at(source, 2, "return"))});
    EXPECT_EQ(probe("fn f() {\n    return;\n}\n").records, Records{});
}

TEST(CheckerReturn, AValueThatDoesNotFitIsAMismatch) {
    const std::string source = "fn f(): string {\n    return 1;\n}\n";
    EXPECT_EQ(probe(source).records,
              Records{record("E1005", "Return type mismatch: expected 'string', got 'int'", at(source, 2, "return"))});
}

TEST(CheckerReturn, AValueThatWidensFits) {
    EXPECT_EQ(probe("fn f(): int64? {\n    return 1;\n}\n").records, Records{});
}

TEST(CheckerReturn, AnAnyResultTakesTheFirstReturnedTypeAndHoldsLaterReturnsToIt) {
    const std::string source = "fn f(a: bool): any {\n    if (a) {\n        return 1;\n    }\n    return \"s\";\n}\n";
    EXPECT_EQ(probe(source).records,
              Records{record("E1005", "Return type mismatch: expected 'int', got 'string'", at(source, 5, "return"))});
}

TEST(CheckerReturn, ABrokenValueIsReportedOnce) {
    const std::string source = "fn f(): int {\n    return missing;\n}\n";
    EXPECT_EQ(probe(source).records, Records{undefinedRecord(source, 2, "missing")});
}

TEST(CheckerTryCatch, TheCaughtVariableHasItsTypeInItsHandlerOnly) {
    const std::string source = "fn f() {\n    try {\n    } catch (string e) {\n        var probe = e;\n    }\n"
                               "    var after = e;\n}\n";
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              Records{record("E1002", "Undefined variable or symbol 'e'", at(source, 6, "e;"), UNDEFINED_HINT)});
    EXPECT_EQ(result.type, "string");
}

TEST(CheckerTryCatch, AnUnknownExceptionTypeIsAnyWithoutReport) {
    Probe result = probe("fn f() {\n    try {\n    } catch (Oops e) {\n        var probe = e;\n    }\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "any");
}

TEST(CheckerTryCatch, TryHandlersAndFinallyAreAllChecked) {
    const std::string source = "fn f() {\n    try {\n        one;\n    } catch (string e) {\n        two;\n"
                               "    } catch (int e) {\n        three;\n    } finally {\n        four;\n    }\n}\n";
    EXPECT_EQ(probe(source).records,
              (Records{undefinedRecord(source, 3, "one"), undefinedRecord(source, 5, "two"),
                       undefinedRecord(source, 7, "three"), undefinedRecord(source, 9, "four")}));
}

TEST(CheckerThrow, AnyValueMayBeThrownAndItIsChecked) {
    EXPECT_EQ(probe("fn f() {\n    throw 42;\n}\n").records, Records{});
    const std::string source = "fn f() {\n    throw problem;\n}\n";
    EXPECT_EQ(probe(source).records, Records{undefinedRecord(source, 2, "problem")});
}

TEST(CheckerBlocks, StatementsOfABlockAreCheckedInOrder) {
    const std::string source = "fn f() {\n    alpha;\n    beta;\n}\n";
    EXPECT_EQ(probe(source).records,
              (Records{undefinedRecord(source, 2, "alpha"), undefinedRecord(source, 3, "beta")}));
}

}  // namespace
}  // namespace quor::sema::testing
