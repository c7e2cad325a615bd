#pragma once

#include <cstdint>
#include <optional>

// The calendar of automation dates: days since 30 December 1899 as a Double, whose fraction is the time of day. For
// negative dates the fraction still counts forward from midnight (-1.25 is 29 December 1899, 06:00).
namespace orv::automation {

/// 1 January 100 and 31 December 9999, the first and the last day of the calendar.
inline constexpr double firstDay = -657434;
inline constexpr double lastDay = 2958465;

/// True for a moment of a day of the calendar; false for what is no number.
constexpr bool isDateInRange(double days) noexcept {
    return days > firstDay - 1 && days < lastDay + 1;
}

struct CivilDate {
    int year = 1899;
    int month = 12; ///< 1 to 12
    int day = 30;   ///< 1 to 31
    friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

struct ClockTime {
    int hour = 0;
    int minute = 0;
    int second = 0;
    friend bool operator==(const ClockTime&, const ClockTime&) = default;
};

struct Moment {
    CivilDate date;
    ClockTime time;
};

/// True when the calendar has that day (years 100 to 9999, 29 February in leap years only).
bool isCivilDate(int year, int month, int day) noexcept;

/// The day number of a day that the calendar has; nothing for any other.
std::optional<std::int32_t> dayNumber(CivilDate date) noexcept;

/// The date and the time of day, to the nearest second. Error 6 (overflow) outside of the calendar.
Moment momentOf(double days);

/// The date and time as one number; the day must be one of the calendar.
double daysOf(const Moment& moment);

} // namespace orv::automation
