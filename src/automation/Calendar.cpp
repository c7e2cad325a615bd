#include "automation/Calendar.h"

#include "automation/AutomationError.h"

#include <chrono>
#include <cmath>

namespace orv::automation {

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr int secondsPerDay = 86400;

/// Day 0 of the automation calendar.
constexpr sys_days dayZero = std::chrono::year(1899) / 12 / 30;

constexpr year_month_day civil(int year, int month, int day) noexcept {
    return {std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
            std::chrono::day(static_cast<unsigned>(day))};
}

} // namespace

bool isCivilDate(int year, int month, int day) noexcept {
    return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
           civil(year, month, day).ok();
}

std::optional<std::int32_t> dayNumber(CivilDate date) noexcept {
    if (!isCivilDate(date.year, date.month, date.day))
        return std::nullopt;
    return static_cast<std::int32_t>((sys_days(civil(date.year, date.month, date.day)) - dayZero).count());
}

Moment momentOf(double days) {
    if (!isDateInRange(days))
        throw AutomationError::runtime(errorNumber::overflow);
    double wholeDays = std::trunc(days);
    const double time = std::fabs(days - wholeDays);
    int second = time == 0 ? 0 : static_cast<int>(std::lround(time * secondsPerDay));
    if (second == secondsPerDay) { // the last half second of a day rounds up to the next midnight
        second = 0;
        wholeDays += 1;
        if (wholeDays > lastDay)
            throw AutomationError::runtime(errorNumber::overflow);
    }
    const year_month_day date(dayZero + std::chrono::days(static_cast<std::int32_t>(wholeDays)));
    return {{static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
             static_cast<int>(static_cast<unsigned>(date.day()))},
            {second / 3600, second / 60 % 60, second % 60}};
}

double daysOf(const Moment& moment) {
    const std::optional<std::int32_t> number = dayNumber(moment.date);
    if (!number)
        throw AutomationError::runtime(errorNumber::invalidCall);
    const auto& [hour, minute, second] = moment.time;
    const double fraction = static_cast<double>((hour * 60 + minute) * 60 + second) / secondsPerDay;
    return *number < 0 ? *number - fraction : *number + fraction;
}

} // namespace orv::automation
