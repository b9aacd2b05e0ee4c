#include <gtest/gtest.h>

#include "cli/TokenComparison.h"

using quor::cli::describeChange;
using quor::cli::firstChangedToken;

TEST(TokenComparison, WhiteSpaceAndLayoutAreNoChange) {
    EXPECT_FALSE(firstChangedToken("let   x=1;", "let x = 1;\n"));
    EXPECT_FALSE(firstChangedToken("if(a){b();}", "if (a) {\n    b();\n}\n"));
    EXPECT_FALSE(firstChangedToken("", ""));
}

TEST(TokenComparison, CommentsCountAsTokens) {
    EXPECT_FALSE(firstChangedToken("x; // note", "x;\n// note\n"));
    auto change = firstChangedToken("x; // note", "x;\n");
    ASSERT_TRUE(change);
    EXPECT_EQ(describeChange(*change), "1:4: Comment '// note' would become EndOfFile ''");
}

TEST(TokenComparison, AStringThatLosesItsQuotesIsTheFirstChange) {
    auto change = firstChangedToken("f(1, \"x y\");", "f(1,x y);");
    ASSERT_TRUE(change);
    EXPECT_EQ(describeChange(*change), "1:6: StringLiteral 'x y' would become Identifier 'x'");
}

TEST(TokenComparison, ARewriteThatRunsLongerEndsTheOriginalEarly) {
    auto change = firstChangedToken("a\nb", "a b c");
    ASSERT_TRUE(change);
    EXPECT_EQ(describeChange(*change), "2:2: EndOfFile '' would become Identifier 'c'");
}

TEST(TokenComparison, ControlBytesInALexemeAreShownAsEscapes) {
    auto change = firstChangedToken("s = \"a\\tb\\u0001\";", "s = x;");
    ASSERT_TRUE(change);
    EXPECT_EQ(describeChange(*change), "1:5: StringLiteral 'a\\tb\\x01' would become Identifier 'x'");
}
