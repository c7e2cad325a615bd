#pragma once

#include "automation/Calendar.h"

#include <cstdint>
#include <string>
#include <string_view>

// Arithmetic and texts of automation dates (days since 30 December 1899, the fraction being the time of day). The
// calendar runs from 1 January 100 to 31 December 9999.
namespace orv::support {

/// Appends the date as `pattern` asks: yyyy or yy, mm, dd, hh (24 hours), nn, ss in either letter case, one letter for
/// no leading zero; "mm" right behind the hour means minutes; every other character stands for itself ("/" and ":"
/// too, whatever the locale). Seconds are rounded. Error 6 outside of the calendar.
void appendDate(std::u16string& out, double days, std::u16string_view pattern);
/// Appends the date as "yyyy-mm-dd", the form that most SQL takes. Error 6 outside of the calendar.
void appendIsoDate(std::u16string& out, double days);
std::u16string FormatDate(double days, std::u16string_view pattern);

/// The same of a text: a date by the locale's rules, or a number of days, is written as `pattern` asks; any other
/// text, the empty one included, comes back as it is.
std::u16string FormatDateText(std::u16string_view text, std::u16string_view pattern);

/// Midnight of the day: the date without its time.
double datePart(double days) noexcept;

/// The day, month and year. Error 6 outside of the calendar.
automation::CivilDate civilDateOf(double days);

/// Midnight of a day. Months and days beyond their range count on into the next or previous month and year
/// (month 0 is the December before, day 0 the last of the month before); years 0 to 29 are 2000 to 2029, 30 to 99 are
/// 1930 to 1999. Error 5 outside of the calendar.
double dateSerial(int year, int month, int day);

/// The date that many months on, or back; a day that the month does not have becomes its last one. The time of day
/// stays. Error 5 outside of the calendar.
double addMonths(double days, int months);

/// The date that many days on, or back. Error 6 outside of the calendar.
double addDays(double days, std::int32_t count);

/// Day of the week: Monday 1 ... Sunday 7.
int dayOfWeek(double days) noexcept;

} // namespace orv::support
