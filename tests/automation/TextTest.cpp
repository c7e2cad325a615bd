#include "automation/Text.h"

#include "automation/AutomationError.h"

#include <gtest/gtest.h>

#include <string>

namespace orv::automation::tests {
namespace {

using namespace std::string_literals;

TEST(AutomationError, CarriesNumberSourceAndWording) {
    const AutomationError error = AutomationError::runtime(13);
    EXPECT_EQ(error.number(), 13);
    EXPECT_EQ(error.source(), u"ORVFilter.Filter");
    EXPECT_EQ(error.description(), u"类型不匹配");
    EXPECT_STREQ(error.what(), "error 13: 类型不匹配");
    EXPECT_EQ(runtimeErrorText(5), u"无效的过程调用或参数");
    EXPECT_EQ(runtimeErrorText(1), runtimeErrorText(2)) << "unknown numbers share the general wording";
}

TEST(Utf8, RoundTripsAndReplacesWhatIsMalformed) {
    const std::u16string text = u"a\u00E9\u4E2D\U0001F600\0z"s;
    EXPECT_EQ(fromUtf8(toUtf8(text)), text);
    EXPECT_EQ(toUtf8(u"\u00E9\u4E2D\U0001F600"), "\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x98\x80");
    const std::u16string lone[] = {{0xD800}, {0xDC00}, {0xDC00, 0xD800}};
    EXPECT_EQ(toUtf8(lone[0]), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(lone[1]), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(lone[2]), "\xEF\xBF\xBD\xEF\xBF\xBD");
    const struct {
        const char* name;
        const char* utf8;
        const char16_t* text;
    } malformed[] = {
        {"a lone follower", "a\x80z", u"a\uFFFDz"},
        {"a cut sequence", "\xE4\xB8", u"\uFFFD\uFFFD"},
        {"an overlong slash", "\xC0\xAF", u"\uFFFD\uFFFD"},
        {"an overlong three-byte form", "\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
        {"a surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"beyond the last code point", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"an invalid byte", "\xFFz", u"\uFFFDz"},
    };
    for (const auto& c : malformed)
        EXPECT_EQ(fromUtf8(c.utf8), c.text) << c.name;
}

} // namespace
} // namespace orv::automation::tests
