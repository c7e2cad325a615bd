#include "automation/Coercion.h"
#include "automation/LocaleRules.h"
#include "automation/Text.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <random>
#include <string>
#include <string_view>

// Plain spellings of numbers and dates have short ways of their own through the readers. A spelling that means the same
// but must go the long way gives the same answer.
namespace orv::automation {
namespace {

constexpr int rounds = 20000;

std::u16string randomText(std::mt19937& random, std::u16string_view letters, std::size_t longest) {
    std::u16string text(random() % (longest + 1), u' ');
    for (char16_t& unit : text)
        unit = letters[random() % letters.size()];
    return text;
}

TEST(PlainForms, NumbersReadLikeThoseBehindABlank) {
    std::mt19937 random(1);
    int numbers = 0;
    for (int i = 0; i < rounds; ++i) {
        const std::u16string text = randomText(random, u"0123456789.-", 18);
        const std::optional<double> plain = chineseRules().parseNumber(text);
        ASSERT_EQ(plain, chineseRules().parseNumber(u" " + text)) << toUtf8(text);
        numbers += plain ? 1 : 0;
    }
    EXPECT_GT(numbers, rounds / 10);
}

TEST(PlainForms, ValReadsNumbersLikeThoseWithATail) {
    std::mt19937 random(2);
    for (int i = 0; i < rounds; ++i) {
        const std::u16string text = randomText(random, u"0123456789.- ", 18);
        ASSERT_EQ(Val(text), Val(text + u"x")) << toUtf8(text);
    }
}

TEST(PlainForms, DatesReadLikeThoseBehindABlank) {
    std::mt19937 random(3);
    int dates = 0;
    for (int i = 0; i < rounds; ++i) {
        const auto year = static_cast<unsigned>(random() % 10000);
        const auto month = static_cast<unsigned>(random() % 15);
        const auto day = static_cast<unsigned>(random() % 40);
        char text[40];
        if (i % 3 == 0)
            std::snprintf(text, sizeof text, "%04u-%02u-%02u", year, month, day);
        else
            std::snprintf(text, sizeof text, i % 3 == 1 ? "%u/%u/%u" : "%u-%u-%u1", year, month, day);
        const std::optional<double> plain = chineseRules().parseDate(fromUtf8(text));
        ASSERT_EQ(plain, chineseRules().parseDate(fromUtf8(std::string(" ") + text))) << text;
        dates += plain ? 1 : 0;
    }
    EXPECT_GT(dates, rounds / 4);
}

TEST(PlainForms, OddDatesReadLikeThoseBehindABlank) {
    std::mt19937 random(4);
    for (int i = 0; i < rounds; ++i) {
        const std::u16string text = randomText(random, u"012-/", 10);
        ASSERT_EQ(chineseRules().parseDate(text), chineseRules().parseDate(u" " + text)) << toUtf8(text);
    }
}

TEST(PlainForms, NumbersWithFewDecimalsAreWrittenWithFifteenDigits) {
    std::mt19937_64 random(5);
    for (int i = 0; i < rounds; ++i) {
        const auto units = static_cast<double>(random() % (i % 2 == 0 ? 1'000'000'000'000'000U : 100'000U));
        const double number = (i % 3 == 0 ? -units : units) / (i % 5 == 0   ? 1
                                                               : i % 5 == 1 ? 100
                                                               : i % 5 == 2 ? 1e4
                                                                            : 1e5);
        // The C library's shortest form of 15 digits; it differs only where it takes an exponent.
        char expected[40];
        std::snprintf(expected, sizeof expected, "%.15g", number);
        if (std::string_view(expected).find('e') == std::string_view::npos) {
            ASSERT_EQ(toUtf8(numberToText(number)), number == 0 ? "0" : expected);
        }
    }
}

} // namespace
} // namespace orv::automation
