#include "support/Dates.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/LocaleRules.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace orv::support {

using automation::AutomationError;
using automation::CivilDate;
using automation::Moment;

namespace {

constexpr int daysPerWeek = 7;
/// Day 0, 30 December 1899, was a Saturday.
constexpr int dayOfWeekOfDayZero = 6;

constexpr CivilDate firstDate{100, 1, 1};

/// The day number of a day of the calendar; error 5 for any other.
std::int32_t requireDay(CivilDate date) {
    const std::optional<std::int32_t> number = automation::dayNumber(date);
    if (!number)
        throw AutomationError::runtime(automation::errorNumber::invalidCall);
    return *number;
}

/// The first of a month counted in months from the year 0.
CivilDate firstOfMonth(std::int64_t monthCount) {
    // Beyond the calendar any year will do that is not in it.
    const std::int64_t inReach = std::clamp<std::int64_t>(monthCount, 0, 12 * 20000);
    return {static_cast<int>(inReach / 12), static_cast<int>(inReach % 12) + 1, 1};
}

/// Day `day` of a moment on midnight of another day, keeping the time: before day 0 the fraction runs the other way.
double withTimeOf(double days, std::int32_t day) {
    const double time = std::fabs(days - std::trunc(days));
    return day < 0 ? day - time : day + time;
}

void appendPadded(std::u16string& out, int number, std::size_t width) {
    char16_t digits[8];
    std::size_t count = 0;
    for (; number != 0 || count == 0; number /= 10)
        digits[count++] = static_cast<char16_t>(u'0' + number % 10);
    if (width > count)
        out.append(width - count, u'0');
    while (count != 0)
        out += digits[--count];
}

char16_t lowerLetter(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

/// Writes a moment by a pattern, a run of one letter at a time.
void appendMoment(std::u16string& out, const Moment& moment, std::u16string_view pattern) {
    bool hourBefore = false;
    while (!pattern.empty()) {
        const char16_t letter = lowerLetter(pattern.front());
        std::size_t run = 1;
        while (run < pattern.size() && lowerLetter(pattern[run]) == letter)
            ++run;
        const std::size_t width = std::min<std::size_t>(run, 2);
        switch (letter) {
        case u'y':
            run > 2 ? appendPadded(out, moment.date.year, 4) : appendPadded(out, moment.date.year % 100, 2);
            break;
        case u'm':
            appendPadded(out, hourBefore ? moment.time.minute : moment.date.month, width);
            break;
        case u'd':
            appendPadded(out, moment.date.day, width);
            break;
        case u'h':
            appendPadded(out, moment.time.hour, width);
            break;
        case u'n':
            appendPadded(out, moment.time.minute, width);
            break;
        case u's':
            appendPadded(out, moment.time.second, width);
            break;
        default:
            out.append(pattern.substr(0, run));
            break;
        }
        // Separators may stand between the hour and its minutes.
        const bool isLetter = letter >= u'a' && letter <= u'z';
        hourBefore = letter == u'h' || (hourBefore && !isLetter);
        pattern.remove_prefix(run);
    }
}

} // namespace

void appendDate(std::u16string& out, double days, std::u16string_view pattern) {
    appendMoment(out, automation::momentOf(days), pattern);
}

void appendIsoDate(std::u16string& out, double days) {
    const CivilDate date = automation::momentOf(days).date;
    char16_t text[] = u"0000-00-00";
    const auto write = [&text](std::size_t last, int number) {
        for (; number != 0; number /= 10)
            text[last--] = static_cast<char16_t>(u'0' + number % 10);
    };
    write(3, date.year);
    write(6, date.month);
    write(9, date.day);
    out += text;
}

std::u16string FormatDate(double days, std::u16string_view pattern) {
    std::u16string out;
    out.reserve(pattern.size());
    appendDate(out, days, pattern);
    return out;
}

std::u16string FormatDateText(std::u16string_view text, std::u16string_view pattern) {
    const automation::LocaleRules& rules = automation::localeRules();
    std::optional<double> days = rules.parseDate(text);
    if (!days)
        days = rules.parseNumber(text);
    return days ? FormatDate(*days, pattern) : std::u16string(text);
}

double datePart(double days) noexcept {
    return std::trunc(days);
}

CivilDate civilDateOf(double days) {
    return automation::momentOf(days).date;
}

double dateSerial(int year, int month, int day) {
    std::int64_t fullYear = year;
    if (year >= 0 && year <= 99)
        fullYear += year < 30 ? 2000 : 1900;
    const CivilDate first = firstOfMonth(fullYear * 12 + month - 1);
    // A first of month before the calendar may still lead into it, but only through absurd day numbers.
    const double days = static_cast<double>(requireDay(first)) + day - 1;
    if (days < automation::firstDay || days > automation::lastDay)
        throw AutomationError::runtime(automation::errorNumber::invalidCall);
    return days;
}

double addMonths(double days, int months) {
    const CivilDate date = civilDateOf(datePart(days));
    CivilDate target = firstOfMonth(std::int64_t{date.year} * 12 + (date.month - 1) + months);
    if (target.year < firstDate.year || target.year > 9999)
        throw AutomationError::runtime(automation::errorNumber::invalidCall);
    target.day = date.day;
    while (!automation::isCivilDate(target.year, target.month, target.day))
        --target.day;
    return withTimeOf(days, requireDay(target));
}

double addDays(double days, std::int32_t count) {
    // The time of day counts forward on both sides of day 0, so the days are added to the date alone.
    const double day = std::trunc(days) + count;
    if (!(day >= automation::firstDay && day <= automation::lastDay))
        throw AutomationError::runtime(automation::errorNumber::overflow);
    return withTimeOf(days, static_cast<std::int32_t>(day));
}

int dayOfWeek(double days) noexcept {
    const double sinceMonday = std::fmod(std::trunc(days) + dayOfWeekOfDayZero - 1, daysPerWeek);
    return static_cast<int>(sinceMonday < 0 ? sinceMonday + daysPerWeek : sinceMonday) + 1;
}

} // namespace orv::support
