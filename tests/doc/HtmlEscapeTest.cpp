#include <gtest/gtest.h>

#include <string>

#include "RenderTestSupport.h"

using namespace quor::doc::testing;

namespace {

std::string escape(const std::string& text) { return standardGenerator().escapeHtml(text); }

}  // namespace

TEST(EscapeHtml, EachMarkupByteBecomesItsEntity) {
    EXPECT_EQ(escape("\""), "&quot;");
    EXPECT_EQ(escape("'"), "&#39;");
    EXPECT_EQ(escape("&"), "&amp;");
    EXPECT_EQ(escape("<"), "&lt;");
    EXPECT_EQ(escape(">"), "&gt;");
}

TEST(EscapeHtml, GenericSignatureIsEscapedInPlace) {
    EXPECT_EQ(escape("fn first<T>(items: List<T>): T"), "fn first&lt;T&gt;(items: List&lt;T&gt;): T");
}

TEST(EscapeHtml, AnEntityInTheTextIsEscapedAgain) { EXPECT_EQ(escape("&lt;"), "&amp;lt;"); }

TEST(EscapeHtml, EveryOtherByteIsLeftAlone) {
    const std::string text = std::string("a\tb\nc\r /=;#\\`\x01\xff\xc3\xa9") + std::string(1, '\0');
    EXPECT_EQ(escape(text), text);
}

TEST(EscapeHtml, EmptyTextStaysEmpty) { EXPECT_EQ(escape(""), ""); }
