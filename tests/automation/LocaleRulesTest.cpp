#include "automation/LocaleRules.h"

#include "LocaleCases.h"
#include "RunsOn.h"
#include "automation/AutomationError.h"
#include "automation/Calendar.h"
#include "automation/Text.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <ctime>
#include <limits>
#include <string>

namespace orv::automation::tests {
namespace {

constexpr double halfSecond = 0.5 / 86400;

int yearOfToday() {
    const std::time_t now = std::time(nullptr);
    return std::localtime(&now)->tm_year + 1900;
}

double daysOf(const Expected& e) {
    return automation::daysOf(
        {{e.year == thisYear ? yearOfToday() : e.year, e.month, e.day}, {e.hour, e.minute, e.second}});
}

std::string shown(const std::optional<double>& number) {
    return number ? "reads as " + std::to_string(*number) : "is refused";
}

/// True where a case holds as it is written. On the platform's stand-in a marked case must fail: the mark goes when
/// the stand-in learns it.
testing::AssertionResult holds(bool same, const char* wineDiffers) {
    if (wineDiffers == nullptr || !runsOnWine())
        return same ? testing::AssertionSuccess() : testing::AssertionFailure();
    return same ? testing::AssertionFailure() << "no longer true of the stand-in: " << wineDiffers
                : testing::AssertionSuccess();
}

void expectRead(const char16_t* text, const std::optional<double>& expected, const std::optional<double>& actual,
                double tolerance, const char* wineDiffers) {
    const bool same =
        expected.has_value() == actual.has_value() && (!expected || std::fabs(*expected - *actual) <= tolerance);
    EXPECT_TRUE(holds(same, wineDiffers))
        << '"' << toUtf8(text) << "\" " << shown(actual) << "; by the table it " << shown(expected);
}

TEST(ChineseRules, ReadNumbers) {
    for (const NumberCase& c : numberCases)
        expectRead(c.text, c.number, chineseRules().parseNumber(c.text), 0, c.wineDiffers);
}

TEST(ChineseRules, ReadDates) {
    for (const DateCase& c : dateCases) {
        const std::optional<double> expected = c.date ? std::optional(daysOf(*c.date)) : std::nullopt;
        expectRead(c.text, expected, chineseRules().parseDate(c.text), halfSecond, c.wineDiffers);
    }
}

TEST(ChineseRules, WriteDatesInTheShortForm) {
    for (const DateTextCase& c : dateTextCases) {
        const std::u16string text = chineseRules().dateText(daysOf(c.date));
        EXPECT_TRUE(holds(text == c.text, c.wineDiffers)) << toUtf8(text) << " instead of " << toUtf8(c.text);
    }
}

TEST(ChineseRules, ReadBackTheDatesThatTheyWrite) {
    for (double days = firstDay; days < lastDay; days += 9973.37) {
        const std::u16string text = chineseRules().dateText(days);
        const std::optional<double> back = chineseRules().parseDate(text);
        ASSERT_TRUE(back) << toUtf8(text) << " was written but is not read";
        EXPECT_NEAR(*back, days, halfSecond * 1.01) << toUtf8(text);
    }
}

TEST(ChineseRules, CallANumberBeyondADoubleInfinite) {
    for (const char16_t* text : {u"1E400", u"1E99999999999999999999", u"&H10000000000000000"})
        EXPECT_EQ(chineseRules().parseNumber(text), std::numeric_limits<double>::infinity()) << toUtf8(text);
}

TEST(ChineseRules, RefuseATextWithAnEmbeddedNul) {
    const std::u16string text(u"12\0", 3);
    EXPECT_FALSE(chineseRules().parseNumber(text));
    EXPECT_FALSE(chineseRules().parseDate(std::u16string(u"2024/2/5\0", 9)));
}

TEST(ChineseRules, RefuseToWriteADateOutsideOfTheCalendar) {
    for (const double days : {firstDay - 1, lastDay + 1, 1e300, std::nan("")}) {
        SCOPED_TRACE(days);
        try {
            chineseRules().dateText(days);
            ADD_FAILURE() << "a date was written";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), errorNumber::overflow);
        }
    }
}

} // namespace
} // namespace orv::automation::tests
