#include "erp/db/DateText.h"

#include <gtest/gtest.h>

namespace orv::erp {

namespace {

TEST(DbDateText, ReadsTheDateTextsOfAChineseServer) {
    struct Case {
        const char* text;
        const char* stored; // or why it is none
    };
    constexpr Case cases[] = {
        {"2024-02-29", "2024-02-29 00:00:00"},
        {"2024/2/5", "2024-02-05 00:00:00"},
        {"2024.02.05", "2024-02-05 00:00:00"},
        {"20240205", "2024-02-05 00:00:00"},
        {"2024", "2024-01-01 00:00:00"},
        {"  2024-02-05  ", "2024-02-05 00:00:00"},
        {"2024-02-05 7:05", "2024-02-05 07:05:00"},
        {"2024-02-05T23:59:59", "2024-02-05 23:59:59"},
        {"2024-02-05 23:59:59.997", "2024-02-05 23:59:59"},
        {"20240205 01:02:03", "2024-02-05 01:02:03"},
        {"13:30", "1900-01-01 13:30:00"},
        {"", "1900-01-01 00:00:00"},
        {"   ", "1900-01-01 00:00:00"},
        {"1753-01-01", "1753-01-01 00:00:00"},
        {"9999-12-31 23:59:59", "9999-12-31 23:59:59"},
        {"2023-02-29", "out of range"},
        {"2024-13-01", "out of range"},
        {"2024-00-10", "out of range"},
        {"1752-12-31", "out of range"},
        {"2024-02-05 24:00", "out of range"},
        {"2024-02-05 10:60", "out of range"},
        {"29-02-2024", "malformed"},
        {"2024-02/05", "malformed"},
        {"2024-02-05x", "malformed"},
        {"2024-02-0510:00", "malformed"},
        {"2024-02-05 10", "malformed"},
        {"2024-02", "malformed"},
        {"abc", "malformed"},
        {"-", "malformed"},
        {"2024-02-05 10:00:00.1234", "malformed"},
    };
    for (const Case& c : cases) {
        const ReadMoment read = readMoment(c.text);
        const char* fault = read.fault == DateTextFault::malformed ? "malformed" : "out of range";
        EXPECT_EQ(c.stored, read.moment ? storedText(*read.moment) : fault) << "'" << c.text << "'";
    }
}

TEST(DbDateText, WritesTheStylesOfConvert) {
    const Moment afternoon = *makeMoment(2024, 2, 5, 15 * 3600 + 7 * 60 + 9);
    const Moment midnight = *makeMoment(1999, 12, 25);
    EXPECT_EQ("2024-02-05 15:07:09", styledText(afternoon, 120));
    EXPECT_EQ("2024-02-05 15:07:09", styledText(afternoon, 20));
    EXPECT_EQ("2024-02-05 15:07:09.000", styledText(afternoon, 121));
    EXPECT_EQ("2024-02-05", styledText(afternoon, 23));
    EXPECT_EQ("2024/02/05", styledText(afternoon, 111));
    EXPECT_EQ("20240205", styledText(afternoon, 112));
    EXPECT_EQ("15:07:09", styledText(afternoon, 108));
    EXPECT_EQ("Feb  5 2024  3:07PM", styledText(afternoon, 0));
    EXPECT_EQ("Dec 25 1999 12:00AM", styledText(midnight, 0));
    EXPECT_EQ(std::nullopt, styledText(midnight, 5));
}

TEST(DbDateText, GoesToAutomationDatesAndBack) {
    struct Case {
        const char* text;
        double days;
    };
    constexpr Case cases[] = {{"1899-12-30", 0.0},         {"1899-12-31 06:00", 1.25},
                              {"1899-12-29 06:00", -1.25}, {"2024-02-29 12:00", 45351.5},
                              {"1753-01-01", -53688.0},    {"9999-12-31 18:00", 2958465.75}};
    for (const Case& c : cases) {
        const Moment moment = *readMoment(c.text).moment;
        EXPECT_DOUBLE_EQ(c.days, toDate(moment).days) << c.text;
        EXPECT_EQ(moment, fromDate({c.days})) << c.text;
    }
    EXPECT_EQ(std::nullopt, fromDate({-53689.0}));
    EXPECT_EQ(std::nullopt, fromDate({2958466.0}));
    EXPECT_EQ(std::nullopt, fromDate({1e300}));
}

TEST(DbDateText, EverySecondOfADaySurvivesTheWayThroughADouble) {
    const Moment day = *makeMoment(2024, 2, 29);
    for (int second = 0; second < 86400; ++second) {
        const Moment moment{day.seconds + second};
        ASSERT_EQ(moment, fromDate(toDate(moment))) << "second " << second;
    }
}

TEST(DbDateText, CountsTheServersDaysFrom1900) {
    EXPECT_EQ("1900-01-01 00:00:00", storedText(*fromServerDays(0)));
    EXPECT_EQ("1900-01-02 12:00:00", storedText(*fromServerDays(1.5)));
    EXPECT_EQ("1899-12-31 18:00:00", storedText(*fromServerDays(-0.25)));
    EXPECT_EQ(std::nullopt, fromServerDays(-100000));
}

} // namespace

} // namespace orv::erp
