#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "fmt/Formatter.h"

namespace {

std::string nestedBlocks(std::size_t depth) {
    std::string source(depth, '{');
    source.append(depth, '}');
    return source;
}

}  // namespace

TEST(FormatterSizeLimit, DeepButReasonableNestingIsFormattedInFull) {
    const std::string formatted = quor::fmt::Formatter(quor::fmt::FormatOptions{}).format(nestedBlocks(1000));
    EXPECT_EQ(formatted.rfind("{\n    {\n        {\n", 0), 0u);
    // Each of the 1000 levels opens and closes on a line of its own.
    EXPECT_EQ(static_cast<std::size_t>(std::count(formatted.begin(), formatted.end(), '\n')), 2000u);
    EXPECT_LT(formatted.size(), quor::fmt::Formatter::MAX_FORMATTED_SIZE);
}

TEST(FormatterSizeLimit, TextWhoseIndentationWouldPassTheLimitComesBackUnchanged) {
    // 20000 levels would need about 1.6 GB of indentation.
    const std::string source = nestedBlocks(20000);
    quor::fmt::Formatter formatter(quor::fmt::FormatOptions{});
    EXPECT_EQ(formatter.format(source), source);
    EXPECT_TRUE(formatter.isFormatted(source));
}
