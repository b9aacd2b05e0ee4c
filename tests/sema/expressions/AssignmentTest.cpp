// Assignment: constants, literal narrowing, null safety and the plain
// mismatch, with compound operators judged as plain assignment.
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;

namespace {

const std::string CONST_HINT = "Constants are immutable and cannot be reassigned";

}  // namespace

TEST(Assignment, ToALocalConstantReportsOnce) {
    const std::string src =
        "fn main() {\n"
        "    const c = 1;\n"
        "    c = 1;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1005", "Cannot assign to constant 'c'", at(src, 3, "="),
                                                  CONST_HINT)}));
}

TEST(Assignment, ToAConstantLeavesTheValueUnchecked) {
    const std::string src =
        "fn main() {\n"
        "    const int c = 1;\n"
        "    c = undefinedName;\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), (Records{record("E1005", "Cannot assign to constant 'c'", at(src, 3, "="), CONST_HINT)}));
    const auto& body = static_cast<const quor::ast::FunctionDecl&>(*a.program->declarations[0]).body;
    const auto& statement = static_cast<const quor::ast::ExprStmt&>(*body->statements[1]);
    const auto& assignment = static_cast<const quor::ast::AssignExpr&>(*statement.expression);
    EXPECT_EQ(a.checker().exprTypes.count(assignment.value.get()), 0u);
    EXPECT_EQ(a.checker().exprTypes.count(assignment.target.get()), 0u);
    EXPECT_EQ(a.checker().exprTypes.at(&assignment)->toString(), "<type-error>");
}

TEST(Assignment, ToABuiltinConstant) {
    const std::string src =
        "fn main() {\n"
        "    PI += 1.0;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1005", "Cannot assign to constant 'PI'", at(src, 2, "+="),
                                                  CONST_HINT)}));
}

TEST(Assignment, ConstantFieldIsProtectedByItsNameButNotThroughMemberAccess) {
    const std::string src =
        "class Config {\n"
        "    const int limit = 3;\n"
        "    fn change() {\n"
        "        this.limit = 4;\n"
        "        limit = 5;\n"
        "    }\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1005", "Cannot assign to constant 'limit'", at(src, 5, "="),
                                                  CONST_HINT)}));
}

TEST(Assignment, CompoundOperatorsHaveNoRulesOfTheirOwn) {
    const std::string src =
        "fn main() {\n"
        "    int x = 1;\n"
        "    x += \"s\";\n"
        "    string s = \"a\";\n"
        "    s += 1;\n"
        "    x *= 2;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1001", "Cannot assign value of type 'string' to variable of type 'int'",
                              at(src, 3, "+=")),
                       record("E1001", "Cannot assign value of type 'int' to variable of type 'string'",
                              at(src, 5, "+="))}));
}

TEST(Assignment, FloatTakesADoubleLiteralButNotADoubleValue) {
    const std::string src =
        "fn main() {\n"
        "    float f = 1.0f;\n"
        "    f = 1.5;\n"
        "    double d = 2.5;\n"
        "    f = d;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1001", "Cannot assign value of type 'double' to variable of type "
                                                           "'float'",
                                                  at(src, 5, "="))}));
}

TEST(Assignment, AnyIntegerLiteralFitsAnyIntegerKindButAVariableDoesNot) {
    const std::string src =
        "fn main() {\n"
        "    int8 small = 1;\n"
        "    small = 300;\n"
        "    uint8 b = 1;\n"
        "    int big = 5;\n"
        "    b = big;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1001", "Cannot assign value of type 'int' to variable of type "
                                                           "'uint8'",
                                                  at(src, 6, "="))}));
}

TEST(Assignment, ResultIsTheTargetType) {
    const std::string src =
        "fn main() {\n"
        "    int64 wide = 1;\n"
        "    int narrow = 2;\n"
        "    var r = wide = narrow;\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "int64");
}

TEST(Assignment, NullIntoANullableIsFine) {
    const std::string src =
        "fn main() {\n"
        "    int? x = 1;\n"
        "    var r = x = null;\n"
        "}\n";
    Analysis a(src);
    a.analyze();
    EXPECT_EQ(a.records(), Records{});
    EXPECT_EQ(initializerType(a, "r"), "int?");
}

TEST(Assignment, NullIntoANonNullableOrAnyIsANullSafetyViolation) {
    const std::string src =
        "fn main(any thing) {\n"
        "    int n = 1;\n"
        "    n = null;\n"
        "    thing = null;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1008", "Null safety violation: cannot assign null to non-nullable type 'int'",
                              at(src, 3, "="), "Change variable type to 'int?' to allow null"),
                       record("E1008", "Null safety violation: cannot assign null to non-nullable type 'any'",
                              at(src, 4, "="), "Change variable type to 'any?' to allow null")}));
}

TEST(Assignment, AnyTargetNeedsNoFormAndIsJudgedByTypesAlone) {
    const std::string src =
        "fn number(): int { return 1; }\n"
        "fn main() {\n"
        "    number() = 2;\n"
        "    number() = \"two\";\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1001", "Cannot assign value of type 'string' to variable of type "
                                                           "'int'",
                                                  at(src, 4, "="))}));
}

TEST(Assignment, ErrorTypedTargetAcceptsAnything) {
    const std::string src =
        "fn main() {\n"
        "    missing = 1;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1002", "Undefined variable or symbol 'missing'",
                                                  at(src, 2, "missing"), "Ensure the variable is declared before use")}));
}

TEST(Assignment, FieldAndIndexTargets) {
    const std::string src =
        "class Box {\n"
        "    int value;\n"
        "}\n"
        "fn main() {\n"
        "    var box = new Box();\n"
        "    box.value = \"no\";\n"
        "    var nums = [1, 2];\n"
        "    nums[0] = 3;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1001", "Cannot assign value of type 'string' to variable of type "
                                                           "'int'",
                                                  at(src, 6, "="))}));
}
