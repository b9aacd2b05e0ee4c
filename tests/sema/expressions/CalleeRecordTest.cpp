// Which parts of a call get a recorded type: a callee named or reached
// through a receiver is never typed as a value (only the receiver object
// is), while a callee of any other shape is.
#include <string>
#include <vector>

#include "ExpressionTestSupport.h"

using namespace quor::sema;
using namespace quor::sema::testing;
namespace ast = quor::ast;

namespace {

const ast::CallExpr& callOf(Analysis& analysis, const std::string& variable) {
    const ast::VarDeclStmt* decl = findVariable(*analysis.program, variable);
    EXPECT_NE(decl, nullptr) << variable;
    return static_cast<const ast::CallExpr&>(*decl->initializer);
}

}  // namespace

TEST(CalleeRecord, OnlyACalleeOfAnotherShapeIsTypedAsAValue) {
    Analysis a(
        "fn three(): int { return 3; }\n"
        "fn main() {\n"
        "    string s = \"x\";\n"
        "    var byName = three();\n"
        "    var onReceiver = s.upper();\n"
        "    var ofValue = (x => x)(1);\n"
        "}\n");
    a.analyze();
    ASSERT_EQ(a.records(), std::vector<std::string>{});
    const auto& types = a.checker().exprTypes;

    const auto& byName = callOf(a, "byName");
    EXPECT_EQ(types.count(byName.callee.get()), 0u);
    EXPECT_EQ(types.at(&byName)->toString(), "int");

    const auto& onReceiver = callOf(a, "onReceiver");
    const auto& member = static_cast<const ast::MemberExpr&>(*onReceiver.callee);
    EXPECT_EQ(types.count(&member), 0u);
    EXPECT_EQ(types.at(member.object.get())->toString(), "string");

    const auto& ofValue = callOf(a, "ofValue");
    EXPECT_EQ(types.at(ofValue.callee.get())->toString(), "fn(unknown) -> unknown");
    EXPECT_EQ(types.at(ofValue.args[0].get())->toString(), "int");
}
