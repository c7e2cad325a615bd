#include "support/Dates.h"

#include "automation/AutomationError.h"
#include "automation/Text.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

namespace orv::support::tests {
namespace {

using automation::CivilDate;
using automation::toUtf8;

constexpr double someDay = 45327;                 // Monday, 5 February 2024
constexpr double someMoment = 45327.545243055557; // 13:05:09 on that day

TEST(FormatDate, WritesThePatternsOfTheSystem) {
    const struct {
        double days;
        const char16_t* pattern;
        const char16_t* text;
    } cases[] = {
        {someMoment, u"YYYY-MM-DD", u"2024-02-05"},
        {someMoment, u"yyyy/mm/dd", u"2024/02/05"},
        {someMoment, u"MMDDYYYY", u"02052024"},
        {someMoment, u"HHMMSS", u"130509"},
        {someMoment, u"yyyy-mm-dd hh:mm:ss", u"2024-02-05 13:05:09"},
        {someMoment, u"hh:nn mm", u"13:05 02"},
        {someMoment, u"yy-m-d h:n:s", u"24-2-5 13:5:9"},
        {someDay, u"HHMMSS", u"000000"},
        {0, u"YYYY-MM-DD", u"1899-12-30"},
        {-1.25, u"yyyy-mm-dd hh:mm:ss", u"1899-12-29 06:00:00"},
        {-657434, u"YYYY-MM-DD", u"0100-01-01"},
        {2958465, u"YYYY-MM-DD", u"9999-12-31"},
        {someDay + 86399.7 / 86400, u"yyyy-mm-dd hh:mm:ss", u"2024-02-06 00:00:00"},
        {someDay, u"", u""},
        {someDay, u"日期：yyyy年", u"日期：2024年"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(toUtf8(FormatDate(c.days, c.pattern)), toUtf8(c.text)) << toUtf8(c.pattern);

    std::u16string sql = u"FDate>='";
    appendDate(sql, someDay, u"YYYY-MM-DD");
    EXPECT_EQ(sql, u"FDate>='2024-02-05");
}

TEST(FormatDateText, ReadsTheTextAsADateElseAsANumberElseKeepsIt) {
    EXPECT_EQ(FormatDateText(u"2024/2/5", u"YYYY-MM-DD"), u"2024-02-05");
    EXPECT_EQ(FormatDateText(u"2024-02-05 13:05:09", u"HHMMSS"), u"130509");
    EXPECT_EQ(FormatDateText(u"45327", u"YYYY-MM-DD"), u"2024-02-05");
    EXPECT_EQ(FormatDateText(u"", u"YYYY-MM-DD"), u"");
    EXPECT_EQ(FormatDateText(u"本期", u"YYYY-MM-DD"), u"本期");
}

TEST(Dates, AddMonthsClampToTheLastDay) {
    const struct {
        CivilDate from;
        int months;
        CivilDate to;
    } cases[] = {
        {{2024, 3, 31}, -1, {2024, 2, 29}}, {{2023, 3, 31}, -1, {2023, 2, 28}},  {{2024, 1, 31}, 1, {2024, 2, 29}},
        {{2024, 1, 31}, 3, {2024, 4, 30}},  {{2024, 12, 15}, 1, {2025, 1, 15}},  {{2024, 1, 15}, -1, {2023, 12, 15}},
        {{2024, 2, 29}, 12, {2025, 2, 28}}, {{2024, 2, 29}, -48, {2020, 2, 29}}, {{2024, 5, 5}, 0, {2024, 5, 5}},
    };
    for (const auto& c : cases) {
        const double from = dateSerial(c.from.year, c.from.month, c.from.day);
        EXPECT_EQ(FormatDate(addMonths(from, c.months), u"yyyy-mm-dd"),
                  FormatDate(dateSerial(c.to.year, c.to.month, c.to.day), u"yyyy-mm-dd"))
            << toUtf8(FormatDate(from, u"yyyy-mm-dd")) << " and " << c.months << " months";
    }
    EXPECT_EQ(addMonths(someMoment, 1) - addMonths(someDay, 1), someMoment - someDay) << "the time of day stays";
    EXPECT_EQ(addMonths(-1.25, -1), -31.25) << "6:00 on 29 November 1899";
    EXPECT_EQ(addMonths(-1.25, 1), 30.25) << "6:00 on 29 January 1900";
}

TEST(Dates, SerialsRollOverAndWidenTwoDigitYears) {
    EXPECT_EQ(dateSerial(2024, 2, 5), someDay);
    EXPECT_EQ(dateSerial(2024, 13, 1), dateSerial(2025, 1, 1));
    EXPECT_EQ(dateSerial(2024, 0, 31), dateSerial(2023, 12, 31));
    EXPECT_EQ(dateSerial(2024, -11, 1), dateSerial(2023, 1, 1));
    EXPECT_EQ(dateSerial(2024, 3, 0), dateSerial(2024, 2, 29));
    EXPECT_EQ(dateSerial(2024, 2, 30), dateSerial(2024, 3, 1));
    EXPECT_EQ(civilDateOf(dateSerial(29, 1, 1)), (CivilDate{2029, 1, 1}));
    EXPECT_EQ(civilDateOf(dateSerial(30, 1, 1)), (CivilDate{1930, 1, 1}));
    EXPECT_EQ(civilDateOf(dateSerial(100, 1, 1)), (CivilDate{100, 1, 1}));
}

TEST(Dates, WeeksBeginOnMonday) {
    for (int day = 0; day < 7; ++day) {
        EXPECT_EQ(dayOfWeek(someDay + day), day + 1);
        EXPECT_EQ(dayOfWeek(someDay + day + 0.99), day + 1) << "late on the day";
    }
    EXPECT_EQ(dayOfWeek(0), 6) << "30 December 1899 was a Saturday";
    EXPECT_EQ(dayOfWeek(-1.5), 5);
    EXPECT_EQ(dayOfWeek(-657434), 5) << "1 January 100 was a Friday";
}

TEST(Dates, KeepTheTimeOrDropIt) {
    EXPECT_EQ(datePart(someMoment), someDay);
    EXPECT_EQ(datePart(-1.25), -1);
    EXPECT_EQ(addDays(someMoment, 30), someMoment + 30);
    EXPECT_EQ(addDays(-1.25, 1), 0.25) << "6:00 on the next day, across day 0";
    EXPECT_EQ(addDays(0.25, -1), -1.25);
}

TEST(Dates, RaiseErrorsOutsideOfTheCalendar) {
    constexpr std::int32_t invalidCall = automation::errorNumber::invalidCall;
    constexpr std::int32_t overflow = automation::errorNumber::overflow;
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    const struct {
        const char* name;
        std::int32_t error;
        std::function<void()> action;
    } cases[] = {
        {"writing the day after the last", overflow, [] { FormatDate(2958466, u"YYYY"); }},
        {"writing the day before the first", overflow, [] { FormatDate(-657435, u"YYYY"); }},
        {"writing a text of too large a number", overflow, [] { FormatDateText(u"9999999", u"YYYY"); }},
        {"a month past the end", invalidCall, [] { addMonths(2958465, 1); }},
        {"a month before the beginning", invalidCall, [] { addMonths(-657434, -1); }},
        {"very many months", invalidCall, [] { addMonths(someDay, most); }},
        {"very many months back", invalidCall, [] { addMonths(someDay, least); }},
        {"months from no date", overflow, [] { addMonths(1e9, 1); }},
        {"the year 10000", invalidCall, [] { dateSerial(10000, 1, 1); }},
        {"the day after the last", invalidCall, [] { dateSerial(9999, 12, 32); }},
        {"a negative year", invalidCall, [] { dateSerial(-1, 1, 1); }},
        {"extreme parts", invalidCall, [] { dateSerial(most, most, most); }},
        {"extreme negative parts", invalidCall, [] { dateSerial(least, least, least); }},
        {"very many days", overflow, [] { addDays(someDay, most); }},
        {"very many days back", overflow, [] { addDays(someDay, least); }},
    };
    for (const auto& c : cases) {
        std::int32_t number = 0;
        try {
            c.action();
        } catch (const automation::AutomationError& error) {
            number = error.number();
        }
        EXPECT_EQ(number, c.error) << c.name;
    }
}

} // namespace
} // namespace orv::support::tests
