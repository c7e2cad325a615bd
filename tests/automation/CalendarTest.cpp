#include "automation/Calendar.h"

#include "ErrorOf.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orv::automation::tests {
namespace {

TEST(Calendar, NumbersDaysFromTheEndOf1899) {
    const struct {
        CivilDate date;
        std::int32_t number;
    } cases[] = {
        {{1899, 12, 30}, 0},   {{1899, 12, 31}, 1},    {{1900, 3, 1}, 61},     {{1899, 12, 29}, -1},
        {{1970, 1, 1}, 25569}, {{2024, 2, 29}, 45351}, {{100, 1, 1}, -657434}, {{9999, 12, 31}, 2958465},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(dayNumber(c.date), c.number);
        EXPECT_EQ(momentOf(c.number).date, c.date) << c.number;
    }
    for (const CivilDate& none :
         {CivilDate{99, 12, 31}, CivilDate{10000, 1, 1}, CivilDate{2023, 2, 29}, CivilDate{1900, 2, 29},
          CivilDate{2024, 0, 1}, CivilDate{2024, 13, 1}, CivilDate{2024, 4, 31}, CivilDate{2024, 4, 0}})
        EXPECT_FALSE(dayNumber(none)) << none.year << '-' << none.month << '-' << none.day << " is no day";
}

TEST(Calendar, CountsTheTimeForwardOnBothSidesOfDayZero) {
    const struct {
        double days;
        Moment moment;
    } cases[] = {
        {0.25, {{1899, 12, 30}, {6, 0, 0}}},
        {-1.25, {{1899, 12, 29}, {6, 0, 0}}},
        {-0.25, {{1899, 12, 30}, {6, 0, 0}}},
        {45327.545243, {{2024, 2, 5}, {13, 5, 9}}},
        {45327.0 - 0.4 / 86400, {{2024, 2, 5}, {0, 0, 0}}}, // rounds up to midnight
        {-1.0 - 86399.6 / 86400, {{1899, 12, 30}, {0, 0, 0}}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(momentOf(c.days).date, c.moment.date) << c.days;
        EXPECT_EQ(momentOf(c.days).time, c.moment.time) << c.days;
    }
    EXPECT_EQ(daysOf({{1899, 12, 29}, {6, 0, 0}}), -1.25);
    EXPECT_EQ(daysOf({{2024, 2, 5}, {12, 0, 0}}), 45327.5);
}

TEST(Calendar, EndsAtTheYears100And9999) {
    EXPECT_EQ(momentOf(-657434.75).time, (ClockTime{18, 0, 0}));
    EXPECT_EQ(momentOf(2958465.75).time, (ClockTime{18, 0, 0}));
    for (const double days : {-657435.0, 2958466.0, 2958466.0 - 1e-7, std::nan(""), HUGE_VAL})
        EXPECT_EQ(errorOf([=] { momentOf(days); }), errorNumber::overflow) << days;
    EXPECT_EQ(errorOf([] { daysOf({{2023, 2, 29}, {}}); }), errorNumber::invalidCall);
}

} // namespace
} // namespace orv::automation::tests
