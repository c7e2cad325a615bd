#include "automation/portable/DateReader.h"

#include "automation/Ascii.h"
#include "automation/Calendar.h"
#include "automation/portable/DateFields.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orv::automation {

namespace {

using Fields = std::span<const DateField>;

/// The first and the last year that two digits stand for are 1930 and 2029.
constexpr int twoDigitYearMax = 29;

int fullYear(int year) noexcept {
    if (year >= 100)
        return year;
    return year <= twoDigitYearMax ? 2000 + year : 1900 + year;
}

/// The date when the calendar has it. A two-digit year counts as the year that it stands for.
std::optional<CivilDate> dateFrom(int year, int month, int day) {
    if (!isCivilDate(fullYear(year), month, day))
        return std::nullopt;
    return CivilDate{fullYear(year), month, day};
}

/// The time fields of a text are one run: numbers joined by time separators, or one number with a half of the day.
struct TimeRun {
    std::size_t first = 0;
    std::size_t count = 0;
};

std::optional<TimeRun> findTime(Fields fields) {
    TimeRun run;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool joined = fields[i].timeFollows || (i > 0 && fields[i - 1].timeFollows);
        const bool belongs = joined || fields[i].isTimeMark() || fields[i].halfDay != HalfDay::none;
        if (!belongs)
            continue;
        if (run.count == 0)
            run.first = i;
        else if (run.first + run.count != i || (!fields[i - 1].timeFollows && !fields[i - 1].isTimeMark()))
            return std::nullopt; // a second time
        ++run.count;
    }
    return run;
}

/// The marks of a marked time name its parts from the hour on, in order.
bool marksFit(Fields time) {
    for (std::size_t i = 0; i < time.size(); ++i) {
        const auto expected = static_cast<FieldMark>(static_cast<std::size_t>(FieldMark::hour) + i);
        if (time[i].mark != FieldMark::none && time[i].mark != expected)
            return false;
    }
    return true;
}

std::optional<ClockTime> readTime(Fields time) {
    if (time.empty())
        return ClockTime{};
    HalfDay half = HalfDay::none;
    for (const DateField& field : time)
        if (field.halfDay != HalfDay::none)
            half = field.halfDay;
    const bool isWhole = time.size() > 1 || half != HalfDay::none || time[0].mark == FieldMark::hour;
    if (time.size() > 3 || !isWhole || !marksFit(time))
        return std::nullopt;

    ClockTime clock{time[0].value, time.size() > 1 ? time[1].value : 0, time.size() > 2 ? time[2].value : 0};
    if (clock.hour > 23 || clock.minute > 59 || clock.second > 59)
        return std::nullopt;
    // From 13 on the hour speaks for itself, whatever half of the day is named.
    if (half == HalfDay::afternoon && clock.hour < 12)
        clock.hour += 12;
    else if (half == HalfDay::morning && clock.hour == 12)
        clock.hour = 0;
    return clock;
}

/// Three numbers: in the locale's order, else in the first other order that makes a date.
std::optional<CivilDate> readThree(int a, int b, int c) {
    if (auto date = dateFrom(a, b, c)) // year, month, day: the order of zh-CN
        return date;
    if (auto date = dateFrom(c, a, b)) // month, day, year
        return date;
    if (auto date = dateFrom(a, c, b)) // year, day, month
        return date;
    return dateFrom(c, b, a); // day, month, year
}

/// Two numbers: a month and a day of this year in either order, else a year and a month (its first day).
std::optional<CivilDate> readTwo(int a, int b, int currentYear) {
    if (auto date = dateFrom(currentYear, a, b))
        return date;
    if (auto date = dateFrom(currentYear, b, a))
        return date;
    if (auto date = dateFrom(a, b, 1))
        return date;
    return dateFrom(b, a, 1);
}

/// Numbers with 年, 月 and 日 behind them: each may stand once, a month must.
std::optional<CivilDate> readMarked(Fields fields, int (*currentYear)()) {
    std::optional<int> year;
    std::optional<int> month;
    std::optional<int> day;
    for (const DateField& field : fields) {
        std::optional<int>& part = field.mark == FieldMark::year ? year : field.mark == FieldMark::month ? month : day;
        if (part || field.mark == FieldMark::none)
            return std::nullopt;
        part = field.value;
    }
    if (!month || (!year && !day))
        return std::nullopt;
    return dateFrom(year ? *year : currentYear(), *month, day.value_or(1));
}

std::optional<CivilDate> readDay(Fields fields, int (*currentYear)()) {
    for (const DateField& field : fields)
        if (field.isDateMark())
            return readMarked(fields, currentYear);
    switch (fields.size()) {
    case 0:
        return CivilDate{};
    case 2:
        return readTwo(fields[0].value, fields[1].value, currentYear());
    case 3:
        return readThree(fields[0].value, fields[1].value, fields[2].value);
    default:
        return std::nullopt;
    }
}

/// A number of one or two digits off the front of a text; 0 without one.
int takeShortNumber(std::u16string_view& text) noexcept {
    int number = 0;
    for (int i = 0; i < 2 && !text.empty() && isAsciiDigit(text.front()); ++i, text.remove_prefix(1))
        number = number * 10 + (text.front() - u'0');
    return number;
}

bool takeDateSign(std::u16string_view& text) noexcept {
    if (text.empty() || (text.front() != u'-' && text.front() != u'/'))
        return false;
    text.remove_prefix(1);
    return true;
}

/// Nearly every date comes as a year of four digits, month and day: read without being taken apart first. Nothing for
/// any other text, and for a day that the calendar does not have in this order.
std::optional<double> readPlainDay(std::u16string_view text) {
    constexpr std::size_t yearDigits = 4;
    int year = 0;
    for (std::size_t i = 0; i < yearDigits; ++i) {
        if (i == text.size() || !isAsciiDigit(text[i]))
            return std::nullopt;
        year = year * 10 + (text[i] - u'0');
    }
    text.remove_prefix(yearDigits);
    if (!takeDateSign(text))
        return std::nullopt;
    const int month = takeShortNumber(text);
    if (!takeDateSign(text))
        return std::nullopt;
    const int day = takeShortNumber(text);
    const std::optional<std::int32_t> number = text.empty() ? dayNumber({year, month, day}) : std::nullopt;
    return number ? std::optional<double>(*number) : std::nullopt;
}

} // namespace

std::optional<double> readDate(std::u16string_view text, int (*currentYear)()) {
    if (const std::optional<double> plain = readPlainDay(text))
        return plain;
    const std::optional<std::vector<DateField>> fields = splitDateFields(text);
    if (!fields)
        return std::nullopt;
    const std::optional<TimeRun> run = findTime(*fields);
    if (!run)
        return std::nullopt;
    // The time stands before the date or behind it, never inside.
    const Fields all(*fields);
    const bool isLast = run->first + run->count == all.size();
    if (run->count != 0 && run->first != 0 && !isLast)
        return std::nullopt;
    const Fields day =
        run->count == 0 || run->first != 0 ? all.first(all.size() - run->count) : all.subspan(run->count);

    const std::optional<ClockTime> clock = readTime(all.subspan(run->first, run->count));
    const std::optional<CivilDate> date = readDay(day, currentYear);
    if (!clock || !date)
        return std::nullopt;
    return daysOf({*date, *clock});
}

} // namespace orv::automation
