// The return type of lambdas built by hand (the parser never writes a return
// annotation or a nameless parameter): what a resolvable annotation keeps,
// what a block body settles when the annotation names nothing, and which
// bodies are not checked at all.
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;
namespace ast = quor::ast;

namespace {

enum class Body {
    ReturnNull,      // { return null; }
    ReturnThis,      // { return this; } outside any class
    ReturnNothing,   // { return; }
    ReturnString,    // { return "s"; }
    ReturnTwice,     // { return 1; return "s"; }
    StringValue,     // "s"
    GhostStatement,  // ghost;  (a statement that is no block)
    ParameterX,      // x
};

std::unique_ptr<ast::ExpressionNode> str() {
    return std::make_unique<ast::LiteralExpr>(ast::LiteralKind::String, "s", WHERE);
}

std::unique_ptr<ast::BlockStmt> block(std::vector<std::unique_ptr<ast::ExpressionNode>> returns) {
    std::vector<ast::StmtPtr> statements;
    for (auto& value : returns) statements.push_back(std::make_unique<ast::ReturnStmt>(std::move(value), WHERE));
    return std::make_unique<ast::BlockStmt>(std::move(statements), WHERE);
}

std::unique_ptr<ast::BlockStmt> blockOf(std::unique_ptr<ast::ExpressionNode> value) {
    std::vector<std::unique_ptr<ast::ExpressionNode>> returns;
    returns.push_back(std::move(value));
    return block(std::move(returns));
}

ast::NodePtr makeBody(Body body) {
    switch (body) {
        case Body::ReturnNull:
            return blockOf(std::make_unique<ast::LiteralExpr>(ast::LiteralKind::Null, "null", WHERE));
        case Body::ReturnThis: return blockOf(std::make_unique<ast::IdentifierExpr>("this", WHERE));
        case Body::ReturnNothing: return blockOf(nullptr);
        case Body::ReturnString: return blockOf(str());
        case Body::ReturnTwice: {
            std::vector<std::unique_ptr<ast::ExpressionNode>> returns;
            returns.push_back(std::make_unique<ast::LiteralExpr>(ast::LiteralKind::Integer, "1", WHERE));
            returns.push_back(str());
            return block(std::move(returns));
        }
        case Body::StringValue: return str();
        case Body::GhostStatement:
            return std::make_unique<ast::ExprStmt>(std::make_unique<ast::IdentifierExpr>("ghost", WHERE), WHERE);
        case Body::ParameterX: return std::make_unique<ast::IdentifierExpr>("x", WHERE);
    }
    return nullptr;
}

struct SlotCase {
    std::string title;
    std::vector<ast::LambdaExpr::Param> params;
    std::string returnType;
    Body body;
    std::string type;
    Records records;  // all at 1:1
};

void PrintTo(const SlotCase& c, std::ostream* out) { *out << c.title; }

std::string rec(const std::string& code, const std::string& message) { return record(code, message, "1:1"); }

const std::string THIS_OUTSIDE = "'this' cannot be used outside of an instance method";

const std::vector<SlotCase> CASES = {
    // An annotation that names nothing lets a block body's first return decide.
    {"UnresolvableAnnotationTakesTheNullTypeOfAReturnedNull", {}, "Nothing", Body::ReturnNull, "fn() -> null", {}},
    {"UnresolvableAnnotationWithABrokenReturnIsInt",
     {},
     "Nothing",
     Body::ReturnThis,
     "fn() -> int",
     {rec("E1001", THIS_OUTSIDE)}},
    {"UnresolvableAnnotationWithAnEmptyReturnIsHeldToUnknownAndIsInt",
     {},
     "Nothing",
     Body::ReturnNothing,
     "fn() -> int",
     {rec("E1005", "Non-void function must return a value of type 'unknown'")}},
    {"UnresolvableAnnotationHoldsLaterReturnsToTheFirst",
     {},
     "Nothing",
     Body::ReturnTwice,
     "fn() -> int",
     {rec("E1005", "Return type mismatch: expected 'int', got 'string'")}},
    {"UnresolvableAnnotationWithABodyOfAnotherClassIsIntAndLeavesItUnchecked",
     {},
     "Nothing",
     Body::GhostStatement,
     "fn() -> int",
     {}},
    // A resolvable annotation stands, whatever the returns do to the slot.
    {"AnyAnnotationStaysAnyAfterAReturnSettledTheSlot", {}, "any", Body::ReturnTwice, "fn() -> any",
     {rec("E1005", "Return type mismatch: expected 'int', got 'string'")}},
    {"VoidAnnotationRefusesAReturnedValue",
     {},
     "void",
     Body::ReturnString,
     "fn() -> void",
     {rec("E1005", "Void function cannot return a value")}},
    {"AnnotationThatResolvesToTheErrorTypeAcceptsAnyReturnAndIsInt",
     {},
     "Missing[]",
     Body::ReturnString,
     "fn() -> int",
     {}},
    {"AnnotationThatResolvesToTheErrorTypeWithAnExpressionBodyIsInt",
     {},
     "Missing?",
     Body::StringValue,
     "fn() -> int",
     {}},
    {"UnannotatedBodyOfAnotherClassIsNotChecked", {}, "", Body::GhostStatement, "fn() -> unknown", {}},
    // Parameters.
    {"NamelessParameterCountsInTheTypeAndDefinesNothing",
     {{"", "int"}, {"x", ""}, {"", "Missing"}},
     "",
     Body::ParameterX,
     "fn(int, unknown, int) -> unknown",
     {}},
    {"NamelessParameterIsNotVisibleUnderAnyName",
     {{"", "string"}},
     "",
     Body::ParameterX,
     "fn(string) -> unknown",
     {record("E1002", "Undefined variable or symbol 'x'", "1:1", "Ensure the variable is declared before use")}},
};

class LambdaReturnSlot : public ::testing::TestWithParam<SlotCase> {};

TEST_P(LambdaReturnSlot, TypeAndReports) {
    const SlotCase& c = GetParam();
    ast::LambdaExpr lambda(c.params, c.returnType, makeBody(c.body), WHERE);
    Analysis analysis("");
    analysis.analyze();
    EXPECT_EQ(analysis.checker().checkExpr(lambda)->toString(), c.type);
    EXPECT_EQ(analysis.records(), c.records);
    // Outside any function the return slot is empty again afterwards.
    EXPECT_EQ(analysis.checker().currentReturnType, nullptr);
}

INSTANTIATE_TEST_SUITE_P(HandBuilt, LambdaReturnSlot, ::testing::ValuesIn(CASES),
                         [](const ::testing::TestParamInfo<SlotCase>& info) { return info.param.title; });

}  // namespace
