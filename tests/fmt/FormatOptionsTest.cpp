#include <gtest/gtest.h>

#include "fmt/FormatTestSupport.h"

using quor::fmt::FormatOptions;
using quor::fmt::testing::formatSource;
using quor::fmt::testing::serverOptions;

TEST(FormatterOptions, DefaultsAreTheServerSettings) {
    FormatOptions options;
    EXPECT_EQ(options.indentSize, 4);
    EXPECT_FALSE(options.useTabs);
    EXPECT_EQ(options.maxBlankLines, 1);
    EXPECT_TRUE(options.spaceAroundOperators);
    EXPECT_TRUE(options.spaceAfterColon);
    EXPECT_TRUE(options.spaceAfterComma);
}

TEST(FormatterOptions, IndentSizeSetsSpacesPerLevel) {
    FormatOptions options = serverOptions();
    options.indentSize = 2;
    EXPECT_EQ(formatSource("{{x;}}", options), "{\n  {\n    x;\n  }\n}\n");
}

TEST(FormatterOptions, IndentSizeZeroGivesNoIndent) {
    FormatOptions options = serverOptions();
    options.indentSize = 0;
    EXPECT_EQ(formatSource("{{x;}}", options), "{\n{\nx;\n}\n}\n");
}

TEST(FormatterOptions, NegativeIndentSizeGivesNoIndent) {
    FormatOptions options = serverOptions();
    options.indentSize = -4;
    EXPECT_EQ(formatSource("{x;}", options), "{\nx;\n}\n");
}

TEST(FormatterOptions, TabsGiveOneTabPerLevelWhateverIndentSizeSays) {
    FormatOptions options = serverOptions();
    options.useTabs = true;
    options.indentSize = 2;
    EXPECT_EQ(formatSource("{{x;}}", options), "{\n\t{\n\t\tx;\n\t}\n}\n");
    options.indentSize = 8;
    EXPECT_EQ(formatSource("{{x;}}", options), "{\n\t{\n\t\tx;\n\t}\n}\n");
}

TEST(FormatterOptions, TabsIndentCommentsAndClosingBraces) {
    FormatOptions options = serverOptions();
    options.useTabs = true;
    EXPECT_EQ(formatSource("if(a){// c\nb();}else{c();}", options),
              "if (a) {\n\t// c\n\tb();\n} else {\n\tc();\n}\n");
}

TEST(FormatterOptions, AllSpacingOptionsOff) {
    FormatOptions options = serverOptions();
    options.spaceAroundOperators = false;
    options.spaceAfterColon = false;
    options.spaceAfterComma = false;
    EXPECT_EQ(formatSource("fn f(a: int, b: int): int { return a + b * -c; }", options),
              "fn f(a:int,b:int):int {\n    return a+b* -c;\n}\n");
}
