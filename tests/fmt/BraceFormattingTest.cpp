#include <gtest/gtest.h>

#include "fmt/FormatTestSupport.h"

using quor::fmt::testing::formatSource;

TEST(FormatterBraces, IfElseGivesFiveLines) {
    EXPECT_EQ(formatSource("if(a){b();}else{c();}"), "if (a) {\n    b();\n} else {\n    c();\n}\n");
}

TEST(FormatterBraces, TryCatchFinallyStayOnTheClosingBraceLine) {
    EXPECT_EQ(formatSource("try{a();}catch(e){b();}finally{c();}"),
              "try {\n    a();\n} catch (e) {\n    b();\n} finally {\n    c();\n}\n");
}

TEST(FormatterBraces, EmptyBlockOpensAndClosesOnTwoLines) {
    EXPECT_EQ(formatSource("if (a) {} else {}"), "if (a) {\n} else {\n}\n");
}

TEST(FormatterBraces, NestedBlocksIndentByLevel) {
    EXPECT_EQ(formatSource("class A{fn f(){return 1;}}"),
              "class A {\n    fn f() {\n        return 1;\n    }\n}\n");
}

TEST(FormatterBraces, OpeningBraceAtLineStartIsIndented) {
    EXPECT_EQ(formatSource("{{x;}}"), "{\n    {\n        x;\n    }\n}\n");
}

TEST(FormatterBraces, ClosingParenSemicolonAndCommaAreGluedToTheBrace) {
    EXPECT_EQ(formatSource("run({});"), "run( {\n});\n");
    EXPECT_EQ(formatSource("x = {};"), "x = {\n};\n");
    EXPECT_EQ(formatSource("f({},a);"), "f( {\n}, a);\n");
}

TEST(FormatterBraces, AnyOtherFollowerStartsANewLine) {
    EXPECT_EQ(formatSource("[{}, {}]"), "[ {\n}, {\n}\n]\n");
    EXPECT_EQ(formatSource("{}x;"), "{\n}\nx;\n");
}

TEST(FormatterBraces, ClosingBraceAtTheEndEndsTheLine) { EXPECT_EQ(formatSource("{}"), "{\n}\n"); }

TEST(FormatterBraces, UnbalancedClosingBracesClampIndentAtZero) {
    EXPECT_EQ(formatSource("}}x;"), "}\n}\nx;\n");
    // Had the level gone below zero, the block after it would not be indented.
    EXPECT_EQ(formatSource("}{x;}"), "}\n{\n    x;\n}\n");
}

TEST(FormatterBraces, UnclosedBracesLeaveTheIndentRaised) {
    EXPECT_EQ(formatSource("{{x;"), "{\n    {\n        x;\n");
}

TEST(FormatterBraces, OpeningBraceAfterSpaceGetsNoSecondSpace) {
    // Inside a for header ";" leaves a space behind it.
    EXPECT_EQ(formatSource("for(;{}"), "for (; {\n}\n");
}
