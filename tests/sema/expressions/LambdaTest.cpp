// Lambdas: parameter types, the return type that an unannotated lambda
// keeps, the scope of the body, and the fall-backs of a return annotation
// that names nothing (built by hand, since the parser never writes one).
#include <memory>
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;
namespace ast = quor::ast;

namespace {

std::string typeOf(const std::string& expression) {
    Analysis a("fn main() {\n    int outer = 1;\n    var r = " + expression + ";\n}\n");
    a.analyze();
    EXPECT_EQ(a.records(), Records{}) << expression;
    return initializerType(a, "r");
}

std::unique_ptr<ast::BlockStmt> block(std::unique_ptr<ast::StatementNode> only = nullptr) {
    std::vector<ast::StmtPtr> statements;
    if (only) statements.push_back(std::move(only));
    return std::make_unique<ast::BlockStmt>(std::move(statements), WHERE);
}

std::unique_ptr<ast::ExpressionNode> text(const std::string& value) {
    return std::make_unique<ast::LiteralExpr>(ast::LiteralKind::String, value, WHERE);
}

// Checks a lambda built by hand in an analysed empty program.
std::string typeOfNode(const ast::LambdaExpr& lambda) {
    Analysis a("");
    a.analyze();
    std::string type = a.checker().checkExpr(lambda)->toString();
    EXPECT_EQ(a.records(), Records{});
    return type;
}

}  // namespace

TEST(Lambda, TypedParameterAndExpressionBodyKeepsAnUnknownReturnType) {
    EXPECT_EQ(typeOf("(int x) => x + 1"), "fn(int) -> unknown");
}

TEST(Lambda, UntypedParametersAreUnknown) {
    EXPECT_EQ(typeOf("x => x"), "fn(unknown) -> unknown");
    EXPECT_EQ(typeOf("(a, b) => a"), "fn(unknown, unknown) -> unknown");
}

TEST(Lambda, NoParameters) { EXPECT_EQ(typeOf("() => 1"), "fn() -> unknown"); }

TEST(Lambda, BlockBodyWithAReturnStillKeepsAnUnknownReturnType) {
    EXPECT_EQ(typeOf("(int x) => { return \"s\"; }"), "fn(int) -> unknown");
}

TEST(Lambda, KeywordTypedParametersWithMarks) {
    EXPECT_EQ(typeOf("(int[] a, string? b) => a"), "fn(int[], string?) -> unknown");
}

TEST(Lambda, ParameterTypeThatNamesNothingIsIntSilently) {
    EXPECT_EQ(typeOf("(int<Nothing> v) => v"), "fn(int) -> unknown");
    std::vector<ast::LambdaExpr::Param> params{{"v", "Nothing"}};
    ast::LambdaExpr lambda(params, "", std::make_unique<ast::IdentifierExpr>("v", WHERE), WHERE);
    EXPECT_EQ(typeOfNode(lambda), "fn(int) -> unknown");
}

TEST(Lambda, BodySeesEnclosingLocalsAndItsParameters) {
    EXPECT_EQ(typeOf("(int x) => x + outer"), "fn(int) -> unknown");
}

TEST(Lambda, ParametersAreGoneAfterTheLambda) {
    const std::string src =
        "fn main() {\n"
        "    var f = (int q) => q;\n"
        "    var r = q;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1002", "Undefined variable or symbol 'q'", at(src, 3, "q"),
                                                  "Ensure the variable is declared before use")}));
}

TEST(Lambda, ExpressionBodyIsChecked) {
    const std::string src =
        "fn main() {\n"
        "    var f = (int x) => x + missing;\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1002", "Undefined variable or symbol 'missing'",
                                                  at(src, 2, "missing"), "Ensure the variable is declared before use")}));
}

TEST(Lambda, FirstReturnSettlesTheBodysReturnTypeForLaterReturns) {
    const std::string src =
        "fn main() {\n"
        "    var f = () => {\n"
        "        return 1;\n"
        "        return \"s\";\n"
        "    };\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1005", "Return type mismatch: expected 'int', got 'string'",
                                                  at(src, 4, "return"))}));
}

TEST(Lambda, ReturnInsideALambdaLeavesTheEnclosingFunctionsReturnTypeAlone) {
    const std::string src =
        "fn count(): int {\n"
        "    var f = () => { return \"s\"; };\n"
        "    return \"wrong\";\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src), (Records{record("E1005", "Return type mismatch: expected 'int', got 'string'",
                                                  at(src, 3, "return"))}));
}

TEST(Lambda, BreakIsJudgedByTheLoopsAroundTheLambda) {
    const std::string src =
        "fn main() {\n"
        "    while (true) {\n"
        "        var inLoop = () => { break; };\n"
        "    }\n"
        "    var outside = () => { break; };\n"
        "}\n";
    EXPECT_EQ(analyzeSource(src),
              (Records{record("E1001", "'break' statement outside of loop or switch", at(src, 5, "break"))}));
}

TEST(Lambda, UnresolvableReturnAnnotationTakesAnExpressionBodysType) {
    std::vector<ast::LambdaExpr::Param> params;
    ast::LambdaExpr lambda(params, "Nothing", text("s"), WHERE);
    EXPECT_EQ(typeOfNode(lambda), "fn() -> string");
}

TEST(Lambda, UnresolvableReturnAnnotationTakesABlockBodysFirstReturn) {
    std::vector<ast::LambdaExpr::Param> params;
    auto ret = std::make_unique<ast::ReturnStmt>(text("s"), WHERE);
    ast::LambdaExpr lambda(params, "Nothing", block(std::move(ret)), WHERE);
    EXPECT_EQ(typeOfNode(lambda), "fn() -> string");
}

TEST(Lambda, UnresolvableReturnAnnotationWithABlockThatReturnsNothingIsInt) {
    std::vector<ast::LambdaExpr::Param> params;
    ast::LambdaExpr lambda(params, "Nothing", block(), WHERE);
    EXPECT_EQ(typeOfNode(lambda), "fn() -> int");
}

TEST(Lambda, UnresolvableReturnAnnotationWithAnErrorTypedBodyIsInt) {
    std::vector<ast::LambdaExpr::Param> params;
    ast::LambdaExpr lambda(params, "Nothing", std::make_unique<ast::IdentifierExpr>("this", WHERE), WHERE);
    Analysis a("");
    a.analyze();
    EXPECT_EQ(a.checker().checkExpr(lambda)->toString(), "fn() -> int");
    EXPECT_EQ(a.records(), (Records{record("E1001", "'this' cannot be used outside of an instance method", "1:1")}));
}

TEST(Lambda, ResolvableReturnAnnotationStandsWhateverTheBody) {
    std::vector<ast::LambdaExpr::Param> params;
    ast::LambdaExpr lambda(params, "bool", text("s"), WHERE);
    EXPECT_EQ(typeOfNode(lambda), "fn() -> bool");
}

TEST(Lambda, MissingBodyWithAnUnresolvableAnnotationIsInt) {
    std::vector<ast::LambdaExpr::Param> params;
    ast::LambdaExpr lambda(params, "Nothing", nullptr, WHERE);
    EXPECT_EQ(typeOfNode(lambda), "fn() -> int");
}
