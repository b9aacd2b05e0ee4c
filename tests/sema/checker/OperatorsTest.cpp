// The binary, unary and ternary operator rules: what each operator accepts,
// what it gives, how it reports, and the silencing by the error type.
#include <pthread.h>

#include <gtest/gtest.h>

#include "sema/checker/CheckerTestSupport.h"

namespace quor::sema::testing {
namespace {

using Records = std::vector<std::string>;

// A function with the given parameters whose second line holds `statement`.
std::string withParams(const std::string& params, const std::string& statement) {
    return "fn f(" + params + ") {\n    " + statement + "\n}\n";
}

std::string inFunction(const std::string& statement) { return withParams("", statement); }

TEST(CheckerBinary, StringPlusAnythingIsAStringWithoutReport) {
    for (const char* expression : {"\"a\" + 1", "1 + \"a\"", "\"a\" + null", "\"a\" + true", "1.5 + \"a\""}) {
        Probe result = probe(inFunction(std::string("var probe = ") + expression + ";"));
        EXPECT_EQ(result.records, Records{}) << expression;
        EXPECT_EQ(result.type, "string") << expression;
    }
}

TEST(CheckerBinary, StringPlusAVoidCallIsAString) {
    Probe result = probe("fn nothing() {}\nfn f() {\n    var probe = \"a\" + nothing();\n}\n");
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "string");
}

TEST(CheckerBinary, ArithmeticGivesTheCommonType) {
    EXPECT_EQ(probe(inFunction("var probe = 1 + 2;")).type, "int");
    EXPECT_EQ(probe(inFunction("var probe = 1 * 2.0;")).type, "double");
    EXPECT_EQ(probe(withParams("a: int, b: int64", "var probe = a - b;")).type, "int64");
    EXPECT_EQ(probe(withParams("a: uint, b: int", "var probe = a % b;")).type, "int");
    EXPECT_EQ(probe(withParams("a: float, b: int8", "var probe = a / b;")).type, "float");
}

TEST(CheckerBinary, ArithmeticOnNonNumbersReportsWithTheOperatorAndHint) {
    const std::string source = inFunction("var probe = true - 1;");
    Probe result = probe(source);
    EXPECT_EQ(result.records, Records{record("E1001", "Operator '-' cannot be applied to types 'bool' and 'int'",
                                             at(source, 2, "-"), "Operands must be numeric")});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerBinary, AnyBesideAnIntIsNotSilenced) {
    const std::string source = withParams("a: any", "var probe = a + 1;");
    EXPECT_EQ(probe(source).records, Records{record("E1001", "Operator '+' cannot be applied to types 'any' and 'int'",
                                                    at(source, 2, "+"), "Operands must be numeric")});
}

TEST(CheckerBinary, CharIsNotNumeric) {
    const std::string source = inFunction("var probe = 'a' * 2;");
    EXPECT_EQ(probe(source).records, Records{record("E1001", "Operator '*' cannot be applied to types 'char' and 'int'",
                                                    at(source, 2, "*"), "Operands must be numeric")});
}

TEST(CheckerBinary, RangeOfIntegersIsAnArrayOfIntWhateverTheirKinds) {
    EXPECT_EQ(probe(inFunction("var probe = 1 .. 10;")).type, "int[]");
    Probe small = probe(withParams("x: uint8, y: uint8", "var probe = x .. y;"));
    EXPECT_EQ(small.records, Records{});
    EXPECT_EQ(small.type, "int[]");
}

TEST(CheckerBinary, RangeWithANonIntegerBoundIsReported) {
    const std::string source = inFunction("var probe = 1 .. 2.5;");
    Probe result = probe(source);
    EXPECT_EQ(result.records, Records{record("E1001", "Range operator '..' requires integer operands, got 'int' and "
                                                      "'double'", at(source, 2, ".."))});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerBinary, ComparisonOfNumbersIsBoolEvenOfDifferentKinds) {
    Probe result = probe(withParams("a: uint, b: double", "var probe = a <= b;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "bool");
}

TEST(CheckerBinary, ComparisonOfStringsIsReportedWithItsHint) {
    const std::string source = inFunction("var probe = \"a\" < \"b\";");
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              Records{record("E1001", "Comparison operator '<' cannot be applied to types 'string' and 'string'",
                             at(source, 2, "<"), "Both operands must be numeric")});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerBinary, LogicalOperatorsNeedExactlyBool) {
    Probe fine = probe(inFunction("var probe = true && false;"));
    EXPECT_EQ(fine.records, Records{});
    EXPECT_EQ(fine.type, "bool");

    const std::string source = withParams("a: bool?", "var probe = a || true;");
    Probe result = probe(source);
    EXPECT_EQ(result.records, Records{record("E1001", "Logical operator '||' requires boolean operands, got 'bool?' "
                                                      "and 'bool'", at(source, 2, "||"))});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerBinary, NullComparedWithANullableIsBool) {
    for (const char* expression : {"null == x", "x != null"}) {
        Probe result = probe(withParams("x: int?", std::string("var probe = ") + expression + ";"));
        EXPECT_EQ(result.records, Records{}) << expression;
        EXPECT_EQ(result.type, "bool") << expression;
    }
}

TEST(CheckerBinary, EqualityOfAssignableTypesInEitherDirectionIsBool) {
    EXPECT_EQ(probe(withParams("a: int, b: int64", "var probe = a == b;")).records, Records{});
    EXPECT_EQ(probe(withParams("a: int64, b: int", "var probe = a != b;")).type, "bool");
}

TEST(CheckerBinary, EqualityOfIncompatibleTypesIsReported) {
    const std::string source = inFunction("var probe = 1 == \"one\";");
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              Records{record("E1001", "Cannot compare incompatible types 'int' and 'string'", at(source, 2, "=="))});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerBinary, BitwiseOperatorsNeedIntegers) {
    EXPECT_EQ(probe(withParams("a: int, b: int64", "var probe = a << b;")).type, "int64");
    const std::string source = inFunction("var probe = 1 & 2.0;");
    Probe result = probe(source);
    EXPECT_EQ(result.records, Records{record("E1001", "Bitwise operator requires integer operands, got 'int' and "
                                                      "'double'", at(source, 2, "&"))});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerBinary, CoalescingANullableGivesTheCommonTypeOfItsInnerType) {
    Probe result = probe(withParams("a: int?", "var probe = a ?? 0;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "int");
}

TEST(CheckerBinary, CoalescingANonNullableIsSilentAndTheCommonType) {
    Probe result = probe(withParams("a: int, b: double", "var probe = a ?? b;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "double");
    EXPECT_EQ(probe(withParams("a: int", "var probe = a ?? \"s\";")).type, "any");
}

TEST(CheckerBinary, AnErrorOperandOnEitherSideSilencesEveryOperator) {
    for (const char* op : {"+", "-", "*", "/", "%", "<", ">=", "&&", "||", "==", "!=", "&", "|", "^", "<<", ">>",
                           "..", "??"}) {
        for (bool errorOnLeft : {true, false}) {
            const std::string expression =
                errorOnLeft ? std::string("missing ") + op + " \"s\"" : std::string("\"s\" ") + op + " missing";
            const std::string source = inFunction("var probe = " + expression + ";");
            Probe result = probe(source);
            EXPECT_EQ(result.records, Records{record("E1002", "Undefined variable or symbol 'missing'",
                                                     at(source, 2, "missing"),
                                                     "Ensure the variable is declared before use")})
                << expression;
            EXPECT_EQ(result.type, "<type-error>") << expression;
        }
    }
}

TEST(CheckerBinary, BothOperandsAreCheckedLeftThenRight) {
    const std::string source = inFunction("var probe = first * second;");
    EXPECT_EQ(probe(source).records,
              (Records{undefinedRecord(source, 2, "first"), undefinedRecord(source, 2, "second")}));
}

TEST(CheckerBinary, AChainReportsInnerOperatorsFirstAndAnErrorStopsTheCascade) {
    const std::string source = inFunction("var probe = true - 1 - \"s\" * 2;");
    Probe result = probe(source);
    // (true - 1) fails; its error type silences the outer "-", and the right
    // side ("s" * 2) is still checked and reported.
    EXPECT_EQ(result.records,
              (Records{record("E1001", "Operator '-' cannot be applied to types 'bool' and 'int'", at(source, 2, "-"),
                              "Operands must be numeric"),
                       record("E1001", "Operator '*' cannot be applied to types 'string' and 'int'",
                              at(source, 2, "*"), "Operands must be numeric")}));
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerBinary, EveryLinkOfALongChainIsTyped) {
    std::string expression = "1";
    for (int i = 0; i < 50; ++i) expression += " + 1";
    Analysis analysis(inFunction("var probe = " + expression + ";"));
    analysis.analyze();
    EXPECT_EQ(analysis.records(), Records{});
    // One entry per literal and one per operator.
    EXPECT_EQ(analysis.checker().exprTypes.size(), 101u);
    for (const auto& [node, type] : analysis.checker().exprTypes) EXPECT_EQ(type->toString(), "int");
}

// Runs `work` on a thread whose stack holds `bytes`.
void runOnStackOf(std::size_t bytes, void (*work)(void*), void* argument) {
    struct Call {
        void (*work)(void*);
        void* argument;
    } call{work, argument};
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
    pthread_t thread;
    auto entry = [](void* raw) -> void* {
        auto* c = static_cast<Call*>(raw);
        c->work(c->argument);
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, entry, &call), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

TEST(CheckerBinary, AVeryLongChainIsCheckedOnASmallStack) {
    // 20,000 links checked one frame per link would need several megabytes
    // of stack; the chain is walked in a loop, so one mebibyte is plenty.
    // (The tree is built and destroyed on the test's own thread.)
    std::string expression = "\"\"";
    for (int i = 0; i < 20000; ++i) expression += " + 1";
    Analysis analysis(inFunction("var probe = " + expression + ";"));
    runOnStackOf(
        std::size_t{1} << 20, [](void* raw) { static_cast<Analysis*>(raw)->analyze(); }, &analysis);
    EXPECT_EQ(analysis.records(), Records{});
    EXPECT_EQ(typeOfInitializer(analysis, "probe"), "string");
    EXPECT_EQ(analysis.checker().exprTypes.size(), 40001u);
}

TEST(CheckerUnary, NegationAndPlusKeepTheNumericType) {
    EXPECT_EQ(probe(inFunction("var probe = -1.5f;")).type, "float");
    EXPECT_EQ(probe(withParams("a: uint", "var probe = -a;")).type, "uint");
    EXPECT_EQ(probe(withParams("a: int8", "var probe = +a;")).type, "int8");
}

TEST(CheckerUnary, NegationOfANonNumberIsReported) {
    const std::string source = inFunction("var probe = -\"s\";");
    Probe result = probe(source);
    EXPECT_EQ(result.records, Records{record("E1001", "Unary operator '-' requires numeric operand, got 'string'",
                                             at(source, 2, "-"))});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerUnary, UnaryPlusOfABoolNamesThePlus) {
    const std::string source = inFunction("var probe = +true;");
    EXPECT_EQ(probe(source).records, Records{record("E1001", "Unary operator '+' requires numeric operand, got 'bool'",
                                                    at(source, 2, "+"))});
}

TEST(CheckerUnary, LogicalNegationNeedsExactlyBool) {
    EXPECT_EQ(probe(inFunction("var probe = !true;")).type, "bool");
    const std::string source = withParams("x: bool?", "var probe = !x;");
    Probe result = probe(source);
    EXPECT_EQ(result.records, Records{record("E1001", "Logical negation '!' requires boolean operand, got 'bool?'",
                                             at(source, 2, "!"))});
    EXPECT_EQ(result.type, "<type-error>");
}

TEST(CheckerUnary, BitwiseNotNeedsAnInteger) {
    EXPECT_EQ(probe(withParams("a: uint16", "var probe = ~a;")).type, "uint16");
    const std::string source = inFunction("var probe = ~1.5;");
    EXPECT_EQ(probe(source).records, Records{record("E1001", "Bitwise NOT '~' requires integer operand, got 'double'",
                                                    at(source, 2, "~"))});
}

TEST(CheckerUnary, IncrementAndDecrementNeedANumberAndTestNothingElse) {
    // Neither the target's form nor its constness is looked at.
    EXPECT_EQ(probe(inFunction("var probe = 5++;")).records, Records{});
    EXPECT_EQ(probe(inFunction("const int c = 1;\n    var probe = c--;")).type, "int");
    const std::string source = withParams("s: string", "s++;");
    EXPECT_EQ(probe(source).records,
              Records{record("E1001", "Increment/decrement operator requires numeric operand, got 'string'",
                             at(source, 2, "++"))});
    const std::string prefix = withParams("b: bool", "--b;");
    EXPECT_EQ(probe(prefix).records,
              Records{record("E1001", "Increment/decrement operator requires numeric operand, got 'bool'",
                             at(prefix, 2, "--"))});
}

TEST(CheckerUnary, AnErrorOperandIsSilenced) {
    for (const char* op : {"-", "+", "!", "~", "++", "--"}) {
        const std::string source = inFunction(std::string("var probe = ") + op + "missing;");
        Probe result = probe(source);
        EXPECT_EQ(result.records.size(), 1u) << op;
        EXPECT_EQ(result.type, "<type-error>") << op;
    }
}

TEST(CheckerTernary, TheResultIsTheCommonTypeOfTheBranches) {
    Probe result = probe(withParams("c: bool", "var probe = c ? 1 : 2.0;"));
    EXPECT_EQ(result.records, Records{});
    EXPECT_EQ(result.type, "double");
    EXPECT_EQ(probe(withParams("c: bool", "var probe = c ? null : 1;")).type, "int?");
}

TEST(CheckerTernary, ABrokenConditionIsReportedAgainAndTheResultStands) {
    const std::string source = inFunction("var probe = broken ? 1 : 2.0;");
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              (Records{record("E1002", "Undefined variable or symbol 'broken'", at(source, 2, "broken"),
                              "Ensure the variable is declared before use"),
                       record("E1001", "Ternary condition must be of type bool, got '<type-error>'",
                              at(source, 2, "?"))}));
    EXPECT_EQ(result.type, "double");
}

TEST(CheckerTernary, TheConditionIsReportedBeforeTheBranchesAreChecked) {
    const std::string source = inFunction("var probe = 1 ? thenSide : elseSide;");
    EXPECT_EQ(probe(source).records,
              (Records{record("E1001", "Ternary condition must be of type bool, got 'int'", at(source, 2, "?")),
                       undefinedRecord(source, 2, "thenSide"), undefinedRecord(source, 2, "elseSide")}));
}

TEST(CheckerTernary, ANullableBoolConditionIsReported) {
    const std::string source = withParams("c: bool?", "var probe = c ? 1 : 2;");
    Probe result = probe(source);
    EXPECT_EQ(result.records,
              Records{record("E1001", "Ternary condition must be of type bool, got 'bool?'", at(source, 2, "?"))});
    EXPECT_EQ(result.type, "int");
}

}  // namespace
}  // namespace quor::sema::testing
