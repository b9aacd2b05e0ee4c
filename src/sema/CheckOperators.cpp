// Unary, binary and ternary operators. Every rule is one row of
// OPERATOR_RULES: the tokens it covers, what its operands must be, what the
// result is, and the message when the operands fail. The visits only find
// the deciding row and apply it.
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sema/TypeChecker.h"

namespace quor::sema {

namespace {

using lexer::TokenType;

enum class Arity : std::uint8_t { Unary, Binary, Ternary };

// What the operands must be. Unary and ternary rows test their one operand.
enum class OperandTest : std::uint8_t {
    None,          // anything goes
    EitherString,  // one side is a string
    BothInteger,
    BothNumeric,
    BothBool,      // exactly bool, not bool?
    Comparable,    // one side assigns to the other, or null meets a nullable
    Numeric,
    Integer,
    Bool,          // exactly bool
};

enum class ResultRule : std::uint8_t {
    IntArray,  // int[], whatever the integer kinds of the bounds
    String,
    Bool,
    Common,    // the common type of the two operands (of the two branches for a ternary)
    Coalesce,  // the common type of the left side without its "?" and the right side
    Operand,   // the operand's own type
};

// The tokens a row covers; no token at all means every token of its arity
// that no earlier row took.
struct TokenSet {
    std::array<TokenType, 5> items{};
    std::size_t count = 0;

    constexpr bool covers(TokenType op) const {
        if (count == 0) return true;
        for (std::size_t i = 0; i < count; ++i) {
            if (items[i] == op) return true;
        }
        return false;
    }
};

template <typename... Tokens>
constexpr TokenSet tokens(Tokens... op) {
    return TokenSet{{op...}, sizeof...(op)};
}

constexpr TokenSet ANY_OTHER_TOKEN{};

// A message pattern names its values as {op} (the operator's text), {L} and
// {R} (the two operand types) and {T} (the one operand, or the condition).
// An empty message means a failed test hands the operator on to the next
// row instead of reporting.
struct OperatorRule {
    Arity arity;
    TokenSet ops;
    OperandTest test;
    ResultRule result;
    std::string_view message;
    std::string_view hint;
};

constexpr std::array OPERATOR_RULES = {
    OperatorRule{Arity::Binary, tokens(TokenType::DotDot), OperandTest::BothInteger, ResultRule::IntArray,
                 "Range operator '..' requires integer operands, got '{L}' and '{R}'", ""},
    OperatorRule{Arity::Binary, tokens(TokenType::Plus), OperandTest::EitherString, ResultRule::String, "", ""},
    OperatorRule{Arity::Binary,
                 tokens(TokenType::Plus, TokenType::Minus, TokenType::Star, TokenType::Slash, TokenType::Percent),
                 OperandTest::BothNumeric, ResultRule::Common,
                 "Operator '{op}' cannot be applied to types '{L}' and '{R}'", "Operands must be numeric"},
    OperatorRule{Arity::Binary,
                 tokens(TokenType::Less, TokenType::Greater, TokenType::LessEqual, TokenType::GreaterEqual),
                 OperandTest::BothNumeric, ResultRule::Bool,
                 "Comparison operator '{op}' cannot be applied to types '{L}' and '{R}'",
                 "Both operands must be numeric"},
    OperatorRule{Arity::Binary, tokens(TokenType::AmpAmp, TokenType::PipePipe), OperandTest::BothBool,
                 ResultRule::Bool, "Logical operator '{op}' requires boolean operands, got '{L}' and '{R}'", ""},
    OperatorRule{Arity::Binary, tokens(TokenType::EqualEqual, TokenType::BangEqual), OperandTest::Comparable,
                 ResultRule::Bool, "Cannot compare incompatible types '{L}' and '{R}'", ""},
    OperatorRule{Arity::Binary,
                 tokens(TokenType::Amp, TokenType::Pipe, TokenType::Caret, TokenType::LessLess,
                        TokenType::GreaterGreater),
                 OperandTest::BothInteger, ResultRule::Common,
                 "Bitwise operator requires integer operands, got '{L}' and '{R}'", ""},
    OperatorRule{Arity::Binary, tokens(TokenType::QuestionQuestion), OperandTest::None, ResultRule::Coalesce, "",
                 ""},
    OperatorRule{Arity::Binary, ANY_OTHER_TOKEN, OperandTest::None, ResultRule::Common, "", ""},
    OperatorRule{Arity::Unary, tokens(TokenType::Plus, TokenType::Minus), OperandTest::Numeric, ResultRule::Operand,
                 "Unary operator '{op}' requires numeric operand, got '{T}'", ""},
    OperatorRule{Arity::Unary, tokens(TokenType::Bang), OperandTest::Bool, ResultRule::Bool,
                 "Logical negation '!' requires boolean operand, got '{T}'", ""},
    OperatorRule{Arity::Unary, tokens(TokenType::Tilde), OperandTest::Integer, ResultRule::Operand,
                 "Bitwise NOT '~' requires integer operand, got '{T}'", ""},
    OperatorRule{Arity::Unary, tokens(TokenType::PlusPlus, TokenType::MinusMinus), OperandTest::Numeric,
                 ResultRule::Operand, "Increment/decrement operator requires numeric operand, got '{T}'", ""},
    OperatorRule{Arity::Unary, ANY_OTHER_TOKEN, OperandTest::None, ResultRule::Operand, "", ""},
    OperatorRule{Arity::Ternary, tokens(TokenType::Question), OperandTest::Bool, ResultRule::Common,
                 "Ternary condition must be of type bool, got '{T}'", ""},
};

// The operands of one application. `second` is null for a unary operator and
// for a ternary condition.
struct Operands {
    const TypePtr& first;
    const TypePtr* second;
};

bool comparable(const Type& a, const Type& b) {
    return a.isAssignableTo(b) || b.isAssignableTo(a) ||
           (a.kind == TypeKind::Null && b.kind == TypeKind::Nullable) ||
           (b.kind == TypeKind::Null && a.kind == TypeKind::Nullable);
}

bool passes(OperandTest test, const Operands& operands) {
    const Type& a = *operands.first;
    const Type& b = operands.second ? **operands.second : a;
    switch (test) {
        case OperandTest::None: return true;
        case OperandTest::EitherString: return a.kind == TypeKind::String || b.kind == TypeKind::String;
        case OperandTest::BothInteger: return a.isInteger() && b.isInteger();
        case OperandTest::BothNumeric: return a.isNumeric() && b.isNumeric();
        case OperandTest::BothBool: return a.kind == TypeKind::Bool && b.kind == TypeKind::Bool;
        case OperandTest::Comparable: return comparable(a, b);
        case OperandTest::Numeric: return a.isNumeric();
        case OperandTest::Integer: return a.isInteger();
        case OperandTest::Bool: return a.kind == TypeKind::Bool;
    }
    return false;
}

TypePtr resultOf(ResultRule rule, TypeContext& types, const Operands& operands) {
    const TypePtr& a = operands.first;
    const TypePtr& b = operands.second ? *operands.second : a;
    switch (rule) {
        case ResultRule::IntArray: return types.getArrayType(types.intType);
        case ResultRule::String: return types.stringType;
        case ResultRule::Bool: return types.boolType;
        case ResultRule::Common: return types.getCommonType(a, b);
        case ResultRule::Coalesce:
            if (a->kind == TypeKind::Nullable) {
                return types.getCommonType(static_cast<const NullableType&>(*a).innerType, b);
            }
            return types.getCommonType(a, b);
        case ResultRule::Operand: return a;
    }
    return types.errorType;
}

// The row that decides an application: the first of the arity that covers
// the token and either accepts the operands or has a message for them.
// Every arity ends in a row for any token, so a row is always found.
const OperatorRule* decidingRule(Arity arity, TokenType op, const Operands& operands, bool& accepted) {
    for (const OperatorRule& rule : OPERATOR_RULES) {
        if (rule.arity != arity || !rule.ops.covers(op)) continue;
        accepted = passes(rule.test, operands);
        if (accepted || !rule.message.empty()) return &rule;
    }
    accepted = false;
    return nullptr;
}

// Fills a message pattern in one pass, so that inserted text is never read
// as a placeholder again.
std::string fillMessage(std::string_view pattern, TokenType op, const Operands& operands) {
    std::string text;
    std::size_t pos = 0;
    while (pos < pattern.size()) {
        std::size_t open = pattern.find('{', pos);
        std::size_t close = open == std::string_view::npos ? open : pattern.find('}', open);
        if (close == std::string_view::npos) {
            text.append(pattern.substr(pos));
            break;
        }
        text.append(pattern.substr(pos, open - pos));
        std::string_view name = pattern.substr(open + 1, close - open - 1);
        if (name == "op") {
            text.append(lexer::tokenTypeToString(op));
        } else if (name == "R" && operands.second) {
            text.append((*operands.second)->toString());
        } else {
            text.append(operands.first->toString());
        }
        pos = close + 1;
    }
    return text;
}

// Applies the deciding row: its result when the operands pass, otherwise
// its report and the error type.
TypePtr applyRules(TypeChecker& checker, Arity arity, TokenType op, const Operands& operands,
                   const diagnostics::SourceLocation& location) {
    bool accepted = false;
    const OperatorRule* rule = decidingRule(arity, op, operands, accepted);
    if (rule == nullptr) return checker.types.errorType;
    if (accepted) return resultOf(rule->result, checker.types, operands);
    checker.report("E1001", fillMessage(rule->message, op, operands), location, rule->hint);
    return checker.types.errorType;
}

const ast::BinaryExpr* leftBinary(const ast::BinaryExpr& node) {
    if (!node.left || node.left->nodeKind != ast::NodeKind::BinaryExpr) return nullptr;
    return static_cast<const ast::BinaryExpr*>(node.left.get());
}

// The operators of a left-nested chain, outermost first. Most chains are a
// single operator or a few, so the first links are kept in place and only
// longer chains (long concatenations) spill to the heap.
class ChainLinks {
public:
    void push(const ast::BinaryExpr* link) {
        if (count < inPlace.size()) {
            inPlace[count] = link;
        } else {
            spilled.push_back(link);
        }
        ++count;
    }
    std::size_t size() const { return count; }
    const ast::BinaryExpr& operator[](std::size_t index) const {
        return index < inPlace.size() ? *inPlace[index] : *spilled[index - inPlace.size()];
    }

private:
    std::array<const ast::BinaryExpr*, 8> inPlace{};
    std::vector<const ast::BinaryExpr*> spilled;
    std::size_t count = 0;
};

}  // namespace

// Both operands are always checked. An operand of the error type makes the
// result the error type without a report; `any` and `unknown` are not
// silenced and fail the rules like any other non-numeric type.
void TypeChecker::visit(const ast::BinaryExpr& node) {
    // "a + b + c" nests to the left, and chains can be long (concatenations,
    // interpolated strings). The left side is walked in a loop and the
    // operators applied from the innermost outwards, in the order a
    // recursive walk would take, so that the stack does not grow with the
    // length of a chain.
    ChainLinks chain;
    for (const ast::BinaryExpr* link = &node; link != nullptr; link = leftBinary(*link)) chain.push(link);

    const ast::BinaryExpr& innermost = chain[chain.size() - 1];
    TypePtr left = innermost.left ? checkExpr(*innermost.left) : types.errorType;
    for (std::size_t index = chain.size(); index-- > 0;) {
        const ast::BinaryExpr& binary = chain[index];
        TypePtr right = binary.right ? checkExpr(*binary.right) : types.errorType;
        if (left->kind == TypeKind::Error || right->kind == TypeKind::Error) {
            left = types.errorType;
        } else {
            left = applyRules(*this, Arity::Binary, binary.op, Operands{left, &right}, binary.location);
        }
        // The outermost node is recorded by the checkExpr that visits it.
        if (&binary != &node) recordType(binary, left);
    }
    currentType = left;
}

void TypeChecker::visit(const ast::UnaryExpr& node) {
    TypePtr operand = node.operand ? checkExpr(*node.operand) : types.errorType;
    if (operand->kind == TypeKind::Error) {
        currentType = types.errorType;
        return;
    }
    currentType = applyRules(*this, Arity::Unary, node.op, Operands{operand, nullptr}, node.location);
}

// The condition is tested before the branches are checked, and without the
// silencing of the other operators: a broken condition is reported with
// "<type-error>" in the message.
void TypeChecker::visit(const ast::TernaryExpr& node) {
    TypePtr condition = node.condition ? checkExpr(*node.condition) : types.errorType;
    bool accepted = false;
    const Operands test{condition, nullptr};
    const OperatorRule* rule = decidingRule(Arity::Ternary, TokenType::Question, test, accepted);
    if (rule != nullptr && !accepted) report("E1001", fillMessage(rule->message, TokenType::Question, test),
                                             node.location, rule->hint);
    TypePtr thenType = node.thenExpr ? checkExpr(*node.thenExpr) : types.errorType;
    TypePtr elseType = node.elseExpr ? checkExpr(*node.elseExpr) : types.errorType;
    currentType = rule != nullptr ? resultOf(rule->result, types, Operands{thenType, &elseType})
                                  : types.getCommonType(thenType, elseType);
}

}  // namespace quor::sema
