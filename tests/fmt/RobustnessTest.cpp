#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "fmt/FormatTestSupport.h"

using quor::fmt::testing::formatSource;

TEST(FormatterRobustness, DeeplyNestedParenthesesFormatInOnePass) {
    const std::string source = std::string(100000, '(') + "x" + std::string(100000, ')') + ";";
    std::string expected = source;
    expected += '\n';
    EXPECT_EQ(formatSource(source), expected);
}

TEST(FormatterRobustness, ManyUnbalancedClosersStayAtZero) {
    const std::string source = std::string(50000, '}') + "x;" + std::string(50000, ')');
    const std::string result = formatSource(source);
    std::string expectedStart;
    for (int i = 0; i < 3; ++i) expectedStart += "}\n";
    EXPECT_EQ(result.substr(0, expectedStart.size()), expectedStart);
    EXPECT_EQ(result.substr(result.size() - 4), ")))\n");
}

TEST(FormatterRobustness, NestedBlocksIndentEachLevel) {
    const int depth = 300;
    std::string source;
    for (int i = 0; i < depth; ++i) source += "{";
    source += "x;";
    for (int i = 0; i < depth; ++i) source += "}";
    const std::string result = formatSource(source);
    std::string innermost = "\n";
    innermost.append(static_cast<std::size_t>(depth) * 4, ' ');
    innermost += "x;\n";
    EXPECT_NE(result.find(innermost), std::string::npos);
    EXPECT_EQ(result.substr(result.size() - 2), "}\n");
}

TEST(FormatterRobustness, ArbitraryBytesNeverCrash) {
    std::uint32_t state = 12345;
    for (int round = 0; round < 200; ++round) {
        std::string source;
        for (int i = 0; i < 200; ++i) {
            state = state * 1103515245U + 12345U;
            source += static_cast<char>((state >> 16) & 0xFF);
        }
        const std::string result = formatSource(source);
        // Either the scanner rejected it and it is unchanged, or it is a
        // formatted text that ends in a line feed.
        EXPECT_TRUE(result == source || result.empty() || result.back() == '\n');
    }
}

TEST(FormatterRobustness, ArbitraryTokenSoupNeverCrash) {
    const char* pieces[] = {"{", "}", "(", ")", "[", "]", ";", ",", ":", "-", "+", "!", "for", "if",
                            "else", "x", "1", "// c\n", "/* b */", "\n\n\n", "?", "?.", ".", "\"s\""};
    const std::size_t pieceCount = sizeof pieces / sizeof pieces[0];
    std::uint32_t state = 777;
    for (int round = 0; round < 200; ++round) {
        std::string source;
        for (int i = 0; i < 300; ++i) {
            state = state * 1103515245U + 12345U;
            source += pieces[(state >> 16) % pieceCount];
            source += ' ';
        }
        const std::string result = formatSource(source);
        ASSERT_FALSE(result.empty());
        EXPECT_EQ(result.back(), '\n');
    }
}
