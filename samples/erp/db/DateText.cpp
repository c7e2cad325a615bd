#include "erp/db/DateText.h"

#include <array>
#include <chrono>
#include <cmath>

namespace orv::erp {

namespace {

constexpr std::int64_t secondsPerDay = 86400;
/// Days from 30 December 1899, the automation date's zero, to 1 January 1970.
constexpr std::int64_t automationEpoch = 25569;
/// 1 January 1900, the zero of the server's dates, as an automation date.
constexpr std::int64_t serverZero = 2;

struct Fields {
    unsigned year = 0, month = 0, day = 0;
    unsigned hour = 0, minute = 0, second = 0;
};

Fields fieldsOf(Moment moment) {
    using namespace std::chrono;
    const auto whole = sys_seconds(seconds(moment.seconds));
    const auto day = floor<days>(whole);
    const year_month_day date(day);
    const auto ofDay = static_cast<unsigned>((whole - day).count());
    return {static_cast<unsigned>(int{date.year()}),
            unsigned{date.month()},
            unsigned{date.day()},
            ofDay / 3600,
            ofDay / 60 % 60,
            ofDay % 60};
}

/// A number filled up at its left to `width` characters.
std::string padded(unsigned number, std::size_t width, char fill = '0') {
    std::string digits = std::to_string(number);
    return digits.size() < width ? std::string(width - digits.size(), fill) + digits : digits;
}

std::string dateOf(const Fields& f, std::string_view separator) {
    std::string text = padded(f.year, 4);
    text.append(separator).append(padded(f.month, 2)).append(separator).append(padded(f.day, 2));
    return text;
}

std::string timeOf(const Fields& f) {
    return padded(f.hour, 2) + ":" + padded(f.minute, 2) + ":" + padded(f.second, 2);
}

/// "Feb  5 2024  3:07PM"
std::string englishText(const Fields& f) {
    static constexpr std::array<const char*, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                           "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const unsigned hour = f.hour % 12 == 0 ? 12 : f.hour % 12;
    return std::string(months[f.month - 1]) + " " + padded(f.day, 2, ' ') + " " + padded(f.year, 4) + " " +
           padded(hour, 2, ' ') + ":" + padded(f.minute, 2) + (f.hour < 12 ? "AM" : "PM");
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Reads a date text piece by piece.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    char peek() const { return rest_.empty() ? '\0' : rest_.front(); }
    bool accept(char c) {
        if (peek() != c)
            return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool skipBlanks() {
        const std::size_t before = rest_.size();
        while (accept(' ')) {
        }
        return rest_.size() != before;
    }
    std::size_t digitsAhead() const {
        std::size_t count = 0;
        while (count < rest_.size() && isDigit(rest_[count]))
            ++count;
        return count;
    }
    bool timeAhead() const {
        const std::size_t digits = digitsAhead();
        return (digits == 1 || digits == 2) && rest_.size() > digits && rest_[digits] == ':';
    }
    /// A number of `least` to `most` digits.
    std::optional<int> number(std::size_t least, std::size_t most) {
        const std::size_t digits = digitsAhead();
        if (digits < least || digits > most)
            return std::nullopt;
        return take(digits);
    }
    int take(std::size_t digits) {
        int value = 0;
        for (std::size_t i = 0; i < digits; ++i)
            value = value * 10 + (rest_[i] - '0');
        rest_.remove_prefix(digits);
        return value;
    }

  private:
    std::string_view rest_;
};

struct CalendarDate {
    int year = 1900;
    unsigned month = 1, day = 1;
};

std::optional<CalendarDate> readDate(Scanner& scanner) {
    const std::size_t digits = scanner.digitsAhead();
    if (digits == 8) {
        const int year = scanner.take(4);
        const auto month = static_cast<unsigned>(scanner.take(2));
        return CalendarDate{year, month, static_cast<unsigned>(scanner.take(2))};
    }
    if (digits != 4)
        return std::nullopt;
    const int year = scanner.take(4);
    const char separator = scanner.peek();
    if (separator != '-' && separator != '/' && separator != '.')
        return CalendarDate{year, 1, 1};
    scanner.accept(separator);
    const auto month = scanner.number(1, 2);
    if (!month || !scanner.accept(separator))
        return std::nullopt;
    const auto day = scanner.number(1, 2);
    if (!day)
        return std::nullopt;
    return CalendarDate{year, static_cast<unsigned>(*month), static_cast<unsigned>(*day)};
}

/// Second of the day; -1 for a time that does not exist.
std::optional<int> readTime(Scanner& scanner) {
    const auto hour = scanner.number(1, 2);
    if (!hour || !scanner.accept(':'))
        return std::nullopt;
    const auto minute = scanner.number(1, 2);
    if (!minute)
        return std::nullopt;
    int second = 0;
    if (scanner.accept(':')) {
        const auto read = scanner.number(1, 2);
        if (!read)
            return std::nullopt;
        second = *read;
        if (scanner.accept('.') && !scanner.number(1, 3)) // parts of a second are not kept
            return std::nullopt;
    }
    if (*hour > 23 || *minute > 59 || second > 59)
        return -1;
    return *hour * 3600 + *minute * 60 + second;
}

} // namespace

std::optional<Moment> makeMoment(int year, unsigned month, unsigned day, int secondOfDay) {
    using namespace std::chrono;
    const year_month_day date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
    if (!date.ok() || year < 1753 || year > 9999)
        return std::nullopt;
    return Moment{sys_days(date).time_since_epoch().count() * secondsPerDay + secondOfDay};
}

ReadMoment readMoment(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    Scanner scanner(text);
    scanner.skipBlanks();
    CalendarDate date;
    bool timeMayFollow = true;
    if (!scanner.atEnd() && !scanner.timeAhead()) {
        const auto read = readDate(scanner);
        if (!read)
            return {};
        date = *read;
        timeMayFollow = scanner.skipBlanks() || scanner.accept('T');
    }
    int secondOfDay = 0;
    if (!scanner.atEnd()) {
        const auto read = timeMayFollow ? readTime(scanner) : std::nullopt;
        if (!read || !scanner.atEnd())
            return {};
        secondOfDay = *read;
    }
    if (secondOfDay < 0)
        return {std::nullopt, DateTextFault::outOfRange};
    return {makeMoment(date.year, date.month, date.day, secondOfDay), DateTextFault::outOfRange};
}

std::string storedText(Moment moment) {
    const Fields f = fieldsOf(moment);
    return dateOf(f, "-") + " " + timeOf(f);
}

std::optional<std::string> styledText(Moment moment, int style) {
    const Fields f = fieldsOf(moment);
    switch (style) {
    case 0:
        return englishText(f);
    case 20:
    case 120:
        return storedText(moment);
    case 21:
    case 121:
        return storedText(moment) + ".000";
    case 23:
        return dateOf(f, "-");
    case 108:
        return timeOf(f);
    case 111:
        return dateOf(f, "/");
    case 112:
        return dateOf(f, "");
    default:
        return std::nullopt;
    }
}

automation::Date toDate(Moment moment) {
    std::int64_t day = moment.seconds / secondsPerDay;
    std::int64_t second = moment.seconds % secondsPerDay;
    if (second < 0) {
        --day;
        second += secondsPerDay;
    }
    const auto whole = static_cast<double>(day + automationEpoch);
    const double fraction = static_cast<double>(second) / static_cast<double>(secondsPerDay);
    // Below zero the time of day is written away from the day: -1.25 is 29 December 1899, 06:00.
    return {whole < 0 ? whole - fraction : whole + fraction};
}

std::optional<Moment> fromDate(automation::Date date) {
    if (!(std::abs(date.days) < 4e6))
        return std::nullopt;
    const double whole = std::trunc(date.days);
    const double second = std::round(std::abs(date.days - whole) * static_cast<double>(secondsPerDay));
    const Moment moment{(static_cast<std::int64_t>(whole) - automationEpoch) * secondsPerDay +
                        static_cast<std::int64_t>(second)};
    static const Moment first = *makeMoment(1753, 1, 1);
    static const Moment last = *makeMoment(9999, 12, 31, static_cast<int>(secondsPerDay - 1));
    if (moment < first || moment > last)
        return std::nullopt;
    return moment;
}

std::optional<Moment> fromServerDays(double days) {
    if (!(std::abs(days) < 4e6))
        return std::nullopt;
    // The server's numbers run on below zero: -0.25 is 31 December 1899, 18:00.
    const double day = std::floor(days);
    const auto zeroBased = automation::Date{day + static_cast<double>(serverZero)};
    const auto midnight = fromDate(zeroBased);
    if (!midnight)
        return std::nullopt;
    const auto second = std::round((days - day) * static_cast<double>(secondsPerDay));
    return Moment{midnight->seconds + static_cast<std::int64_t>(second)};
}

} // namespace orv::erp
