#pragma once

// Builds a syntactically valid Quor program out of fuzzer bytes, so that
// the resolver and the checker see programs that reach them: classes with
// bases, interfaces, generics, overloads, enums, structs, tests, and bodies
// of every statement and expression form over a small pool of names. The
// names are shared between declarations and uses so that lookups meet
// declarations of every kind, and types are drawn without regard to what
// fits, so that the checker's error paths run as often as its clean ones.

#include <cstddef>
#include <cstdint>
#include <string>

#include "FuzzSupport.h"

namespace quor::fuzz {

class QuorGenerator {
public:
    QuorGenerator(const std::uint8_t* data, std::size_t size) : in(data, size) {}

    std::string program() {
        if (pick(4) == 0) out.append("module fuzzed;\n");
        if (pick(4) == 0) out.append("import std.math;\n");
        // Most programs start from a set of declarations that resolve
        // cleanly, so that the checker runs; the rest leave names undeclared
        // and duplicated, for the resolver.
        if (pick(8) != 0) out.append(PRELUDE);
        int declarations = 1 + static_cast<int>(pick(12));
        for (int i = 0; i < declarations && !in.empty(); ++i) declaration();
        return out;
    }

private:
    ByteReader in;
    std::string out;
    int depth = 0;
    int fresh = 0;  // numbers the declarations that must not clash

    static constexpr const char* PRELUDE =
        "interface I0 {\n    fn m0(): int;\n}\n"
        "interface I1 {\n    fn label(): string;\n}\n"
        "enum E0 { A, B = 5, Z }\n"
        "struct S0 {\n    a: int;\n    b: string;\n}\n"
        "class C0 {\n    public int x0;\n    public string x1;\n    C0() {}\n"
        "    public fn m0(): int { return 1; }\n    public fn m1(p0: int): string { return \"a\"; }\n}\n"
        "class C1 extends C0 implements I0 {\n    public double x2;\n    C1() { super(); }\n"
        "    public override fn m0(): int { return 2; }\n}\n"
        "class C2<T> {\n    private T x0;\n    C2(T x0) { this.x0 = x0; }\n    public fn get(): T { return x0; }\n}\n"
        "class C3 extends C1 implements I1 {\n    C3() { super(); }\n    public fn label(): string { return \"c\"; }\n}\n";

    static constexpr const char* CLASSES[] = {"C0", "C1", "C2", "C3"};
    static constexpr const char* INTERFACES[] = {"I0", "I1"};
    static constexpr const char* FUNCTIONS[] = {"f0", "f1", "f2", "print", "len"};
    static constexpr const char* MEMBERS[] = {"x0", "x1", "x2", "m0", "m1", "length", "push", "get", "size", "map",
                                               "label", "a", "b", "A", "Z", "toString", "keys", "contains"};
    static constexpr const char* LOCALS[] = {"v0", "v1", "p0", "p1", "v0", "this", "x0", "E0", "v1", "C0"};
    static constexpr const char* PRIMITIVES[] = {"int",  "uint", "int64", "uint64", "float", "double", "string",
                                                 "bool", "char", "int16", "byte",   "any",   "void"};
    static constexpr const char* BINARY[] = {"+",  "-",  "*",  "/",  "%",  "==", "!=", "<",  ">",  "<=", ">=",
                                             "&&", "||", "&",  "|",  "^",  "<<", "??"};
    static constexpr const char* ASSIGNMENT[] = {"=", "+=", "-=", "*=", "/=", "%="};
    static constexpr const char* UNARY[] = {"-", "!", "~", "++", "--", "+"};

    template <std::size_t N>
    const char* any(const char* const (&names)[N]) {
        return names[in.number(static_cast<std::uint32_t>(N))];
    }
    std::uint32_t pick(std::uint32_t limit) { return in.number(limit); }
    bool deep() const { return depth > 12 || in.empty(); }

    void type() {
        ++depth;
        switch (deep() ? 0 : pick(8)) {
            case 0:
            case 1: out.append(any(PRIMITIVES)); break;
            case 2: out.append(any(CLASSES)); break;
            case 3: out.append(any(INTERFACES)); break;
            case 4: type(); out.append("[]"); break;
            case 5:
                type();
                if (out.back() != '?') out.append("?");  // "??" would scan as one operator
                break;
            case 6:
                out.append("Map<");
                type();
                out.append(", ");
                type();
                out.append(" >");
                break;
            default:
                switch (pick(4)) {
                    case 0: out.append("E0"); break;
                    case 1: out.append("S0"); break;
                    case 2: out.append("C2<"); type(); out.append(">"); break;
                    default: out.append(pick(2) == 0 ? "T" : "D0"); break;
                }
                break;
        }
        --depth;
    }

    void literal() {
        switch (pick(9)) {
            case 0: out.append(std::to_string(pick(300))); break;
            case 1: out.append(pick(2) == 0 ? "9223372036854775807" : "0x7f"); break;
            case 2: out.append("1.5"); break;
            case 3: out.append("\"text\""); break;
            case 4: out.append("'c'"); break;
            case 5: out.append(pick(2) == 0 ? "true" : "false"); break;
            case 6: out.append("null"); break;
            case 7:
                // A piece ends at the first "}" and may hold no quote, so it
                // stays a simple expression.
                out.append("\"a ${");
                out.append(any(LOCALS));
                if (pick(2) == 0) out.append(".").append(any(MEMBERS));
                if (pick(2) == 0) out.append(" + ").append(std::to_string(pick(10)));
                out.append("} b\"");
                break;
            default: out.append("\"$v0 and ${v1}\""); break;
        }
    }

    void lambda() {
        out.append("(");
        if (pick(2) == 0) {
            out.append(PRIMITIVES[pick(12)]);
            out.append(" p0");
        } else {
            out.append("p0");
        }
        out.append(") => ");
        if (pick(4) == 0) {
            block();
        } else {
            leadingExpression();
        }
    }

    void arguments() {
        out.push_back('(');
        int count = static_cast<int>(pick(4));
        for (int i = 0; i < count; ++i) {
            if (i > 0) out.append(", ");
            if (!deep() && pick(6) == 0) {
                lambda();
            } else {
                expression();
            }
        }
        out.push_back(')');
    }

    void primary() {
        switch (deep() ? pick(2) : pick(14)) {
            case 0: literal(); break;
            case 1: out.append(any(LOCALS)); break;
            case 2:
                out.append(any(FUNCTIONS));
                arguments();
                break;
            case 3:
                out.append("new ");
                out.append(any(CLASSES));
                if (pick(3) == 0) {
                    out.push_back('<');
                    type();
                    out.append(">");
                }
                arguments();
                break;
            case 4:
                out.push_back('(');
                expression();
                out.push_back(')');
                break;
            case 5: {
                out.push_back('[');
                int count = static_cast<int>(pick(4));
                for (int i = 0; i < count; ++i) {
                    if (i > 0) out.append(", ");
                    expression();
                }
                out.push_back(']');
                break;
            }
            case 6: {
                out.push_back('{');
                int count = static_cast<int>(pick(3));
                for (int i = 0; i < count; ++i) {
                    if (i > 0) out.append(", ");
                    expression();
                    out.append(": ");
                    expression();
                }
                out.push_back('}');
                break;
            }
            case 7:
                out.append("(");
                postfix();
                out.append(" ? ");
                postfix();
                out.append(" : ");
                postfix();
                out.append(")");
                break;
            case 8:
                out.append(any(UNARY));
                out.push_back('(');
                expression();
                out.push_back(')');
                break;
            case 9:
                out.append("E0.");
                out.append(pick(2) == 0 ? "A" : "Z");
                break;
            case 10:
                out.append(any(FUNCTIONS));
                out.push_back('<');
                type();
                out.push_back('>');
                arguments();
                break;
            default:
                out.append(pick(2) == 0 ? "this" : "super");
                break;
        }
    }

    void postfix() {
        ++depth;
        primary();
        int count = deep() ? 0 : static_cast<int>(pick(4));
        for (int i = 0; i < count; ++i) {
            switch (pick(6)) {
                case 0: out.push_back('.'); out.append(any(MEMBERS)); break;
                case 1: out.append("?."); out.append(any(MEMBERS)); break;
                case 2: out.push_back('.'); out.append(any(MEMBERS)); arguments(); break;
                case 3: out.push_back('['); expression(); out.push_back(']'); break;
                case 4: arguments(); break;
                default: out.append(pick(2) == 0 ? "++" : "--"); break;
            }
        }
        --depth;
    }

    void expression() {
        ++depth;
        postfix();
        int count = deep() ? 0 : static_cast<int>(pick(3));
        for (int i = 0; i < count; ++i) {
            out.push_back(' ');
            out.append(any(BINARY));
            out.push_back(' ');
            postfix();
        }
        --depth;
    }

    // An expression written where a statement or a lambda body starts; one
    // that opens with "{" would read as a block, so it goes in parentheses.
    void leadingExpression() {
        std::size_t start = out.size();
        expression();
        if (start < out.size() && out[start] == '{') {
            out.insert(start, 1, '(');
            out.push_back(')');
        }
    }

    void block() {
        ++depth;
        out.append("{\n");
        int count = deep() ? 0 : static_cast<int>(pick(5));
        for (int i = 0; i < count; ++i) statement();
        out.append("}\n");
        --depth;
    }

    void variable() {
        static constexpr const char* KEYWORDS[] = {"let ", "var ", "const "};
        out.append(any(KEYWORDS));
        out.append(pick(2) == 0 ? "v0" : "v1");
        if (pick(2) == 0) {
            out.append(": ");
            type();
        }
        if (pick(6) != 0) {
            out.append(" = ");
            expression();
        }
        out.append(";\n");
    }

    void statement() {
        ++depth;
        switch (deep() ? 0 : pick(17)) {
            case 0:
            case 1:
                leadingExpression();
                out.append(";\n");
                break;
            case 2: variable(); break;
            case 3:
                out.append("if (");
                expression();
                out.append(") ");
                block();
                if (pick(2) == 0) {
                    out.append("else ");
                    block();
                }
                break;
            case 4:
                out.append("while (");
                expression();
                out.append(") ");
                block();
                break;
            case 5:
                out.append("for (v0 in ");
                expression();
                out.append(") ");
                block();
                break;
            case 6:
                out.append("for (var i = 0; i < ");
                expression();
                out.append("; i++) ");
                block();
                break;
            case 7:
                out.append("return");
                if (pick(3) != 0) {
                    out.push_back(' ');
                    expression();
                }
                out.append(";\n");
                break;
            case 8:
                out.append("do ");
                block();
                out.append("while (");
                expression();
                out.append(");\n");
                break;
            case 9:
                out.append("switch (");
                expression();
                out.append(") {\ncase ");
                out.append(pick(2) == 0 ? std::to_string(pick(5)) : std::string("\"one\""));
                out.append(":\n");
                if (pick(2) == 0) {
                    out.append("return ");
                    postfix();
                    out.append(";\n");
                } else {
                    leadingExpression();
                    out.append(";\n");
                }
                out.append("default:\nbreak;\n}\n");
                break;
            case 10:
                out.append("try ");
                block();
                out.append("catch (string e) ");
                block();
                if (pick(2) == 0) {
                    out.append("finally ");
                    block();
                }
                break;
            case 11:
                out.append("throw ");
                expression();
                out.append(";\n");
                break;
            case 12:
                out.append(pick(2) == 0 ? "break;\n" : "continue;\n");
                break;
            case 13:
                out.append("match ");
                expression();
                out.append(" {\n0 => { return 0; },\n_ => { return 1; }\n}\n");
                break;
            case 14: block(); break;
            case 15:
                out.append(any(LOCALS));
                out.push_back(' ');
                out.append(any(ASSIGNMENT));
                out.push_back(' ');
                expression();
                out.append(";\n");
                break;
            default: variable(); break;
        }
        --depth;
    }

    void parameters() {
        out.push_back('(');
        int count = static_cast<int>(pick(4));
        for (int i = 0; i < count; ++i) {
            if (i > 0) out.append(", ");
            std::string name = "p" + std::to_string(pick(8) == 0 ? pick(3) : static_cast<std::uint32_t>(i));
            if (pick(2) == 0) {
                out.append(name).append(": ");
                type();
            } else {
                type();
                out.push_back(' ');
                out.append(name);
            }
        }
        out.push_back(')');
    }

    void function(const char* name) {
        out.append("fn ").append(name);
        if (pick(4) == 0) out.append("<T>");
        parameters();
        if (pick(3) != 0) {
            out.append(": ");
            type();
        }
        out.push_back(' ');
        if (pick(6) == 0) {
            out.append("=> ");
            expression();
            out.append(";\n");
        } else {
            body();
        }
    }

    // A block that first declares the two locals the expressions use.
    void body() {
        out.append("{\nlet v0 = ");
        literal();
        out.append(";\nvar v1 = ");
        literal();
        out.append(";\n");
        int count = static_cast<int>(pick(6));
        for (int i = 0; i < count; ++i) statement();
        out.append("}\n");
    }

    void classBody(const char* name, bool isInterface) {
        out.append(" {\n");
        int members = static_cast<int>(pick(6));
        static constexpr const char* VISIBILITY[] = {"", "public ", "private ", "protected ", "static ", "override ",
                                                      "abstract "};
        for (int i = 0; i < members && !in.empty(); ++i) {
            if (isInterface) {
                out.append("fn ").append(any(MEMBERS));
                parameters();
                out.append(": ");
                type();
                out.append(";\n");
                continue;
            }
            out.append(any(VISIBILITY));
            switch (pick(4)) {
                case 0:
                    type();
                    out.push_back(' ');
                    out.append(pick(2) == 0 ? "x0" : "x1");
                    out.append(";\n");
                    break;
                case 1:
                    out.append(name);
                    parameters();
                    out.push_back(' ');
                    body();
                    break;
                default:
                    function(any(MEMBERS));
                    break;
            }
        }
        out.append("}\n");
    }

    void declaration() {
        depth = 0;
        switch (pick(10)) {
            case 0:
            case 1:
            case 2: {
                const std::string name = pick(6) == 0 ? any(CLASSES) : "D" + std::to_string(fresh++);
                out.append(pick(5) == 0 ? "abstract class " : "class ").append(name);
                if (pick(3) == 0) out.append("<T>");
                if (pick(2) == 0) out.append(" extends ").append(any(CLASSES));
                if (pick(3) == 0) out.append(" implements ").append(any(INTERFACES));
                classBody(name.c_str(), false);
                break;
            }
            case 3:
                out.append("interface ").append(pick(4) == 0 ? std::string(any(INTERFACES)) : "J" + std::to_string(fresh++));
                classBody("", true);
                break;
            case 4: {
                out.append("enum ").append(pick(4) == 0 ? std::string("E0") : "F" + std::to_string(fresh++)).append(" { A");
                if (pick(2) == 0) out.append(" = ").append(std::to_string(pick(1000)));
                out.append(", B, Z");
                if (pick(4) == 0) out.append(" = 9223372036854775807");
                out.append(" }\n");
                break;
            }
            case 5:
                out.append("struct ").append(pick(4) == 0 ? std::string("S0") : "R" + std::to_string(fresh++));
                out.append(" {\n    a: ");
                type();
                out.append(";\n    b: ");
                type();
                out.append(";\n}\n");
                break;
            case 6:
                out.append("test \"case ").append(std::to_string(pick(4))).append("\" ");
                body();
                break;
            case 7:
                variable();
                break;
            default:
                function(any(FUNCTIONS));
                break;
        }
    }
};

}  // namespace quor::fuzz
