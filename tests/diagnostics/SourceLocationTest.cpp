#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

#include "diagnostics/SourceLocation.h"

namespace quor::diagnostics {
namespace {

TEST(SourceLocationText, FileLineAndColumnSeparatedByColons) {
    SourceLocation location{"file:///a/b.quor", 12, 4};
    EXPECT_EQ(location.toString(), "file:///a/b.quor:12:4");
}

TEST(SourceLocationText, EmptyFilePrintsAsUnknown) {
    SourceLocation location{"", 3, 7};
    EXPECT_EQ(location.toString(), "<unknown>:3:7");
}

TEST(SourceLocationText, NumbersAreDecimalWithoutPadding) {
    SourceLocation location{"x", 0, 4294967295u};
    EXPECT_EQ(location.toString(), "x:0:4294967295");
}

TEST(SourceLocationText, FormatterFileNameIsKept) {
    SourceLocation location{"<format>", 1, 1};
    EXPECT_EQ(location.toString(), "<format>:1:1");
}

TEST(SourceLocationFields, LineAndColumnAreUnsigned32Bit) {
    EXPECT_TRUE((std::is_same_v<decltype(SourceLocation::line), std::uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(SourceLocation::column), std::uint32_t>));
}

}  // namespace
}  // namespace quor::diagnostics
