// Trees and types that the parser and the type context never produce, built
// by hand: the visits give a type without dereferencing what is missing.
#include <memory>
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
using Records = std::vector<std::string>;
namespace ast = quor::ast;

namespace {

ast::ExprPtr name(const std::string& text) { return std::make_unique<ast::IdentifierExpr>(text, WHERE); }

}  // namespace

TEST(MissingPieces, CallWithAMissingArgumentStillResolvesByPosition) {
    Analysis a("");
    a.analyze();
    std::vector<ast::ExprPtr> args;
    args.push_back(nullptr);
    ast::CallExpr call(name("sqrt"), std::move(args), WHERE);
    // The missing argument counts as the error type, which fits any parameter.
    EXPECT_EQ(a.checker().checkExpr(call)->toString(), "double");
    EXPECT_EQ(a.records(), Records{});
}

TEST(MissingPieces, CallWithoutACalleeIsTheErrorTypeSilently) {
    Analysis a("");
    a.analyze();
    ast::CallExpr call(nullptr, {}, WHERE);
    EXPECT_EQ(a.checker().checkExpr(call)->toString(), "<type-error>");
    EXPECT_EQ(a.records(), Records{});
}

TEST(MissingPieces, NullableWithoutAnInnerTypeReadsAsTheErrorType) {
    Analysis a("");
    a.analyze();
    a.symbols().define(std::make_shared<VariableSymbol>("hollow", std::make_shared<NullableType>(nullptr), WHERE));
    ast::MemberExpr member(name("hollow"), "size", true, WHERE);
    EXPECT_EQ(a.checker().checkExpr(member)->toString(), "<type-error>");
    EXPECT_EQ(a.records(), (Records{record("E1002", "Type '<type-error>' has no member 'size'", "1:1")}));
}

TEST(MissingPieces, ListClassNameWithoutAClosingBracketIndexesAsAny) {
    Analysis a("");
    a.analyze();
    a.symbols().define(std::make_shared<VariableSymbol>("odd", a.types().createClassType("List<open"), WHERE));
    ast::IndexExpr index(name("odd"), std::make_unique<ast::LiteralExpr>(ast::LiteralKind::Integer, "0", WHERE),
                         WHERE);
    EXPECT_EQ(a.checker().checkExpr(index)->toString(), "any");
    EXPECT_EQ(a.records(), Records{});
}

TEST(MissingPieces, AssignmentWithoutAValueTakesTheErrorType) {
    Analysis a("");
    a.analyze();
    a.symbols().define(std::make_shared<VariableSymbol>("n", a.types().intType, WHERE));
    ast::AssignExpr assign(name("n"), quor::lexer::TokenType::Equal, nullptr, WHERE);
    EXPECT_EQ(a.checker().checkExpr(assign)->toString(), "int");
    EXPECT_EQ(a.records(), Records{});
}

TEST(MissingPieces, ArrayLiteralWithAMissingElementFoldsTheErrorType) {
    Analysis a("");
    a.analyze();
    std::vector<ast::ExprPtr> elements;
    elements.push_back(std::make_unique<ast::LiteralExpr>(ast::LiteralKind::Integer, "1", WHERE));
    elements.push_back(nullptr);
    ast::ArrayExpr array(std::move(elements), WHERE);
    EXPECT_EQ(a.checker().checkExpr(array)->toString(), "<type-error>[]");
    EXPECT_EQ(a.records(), Records{});
}
