// Numbers and dates: recognition against the C library where the forms agree, texts that are written and read again,
// date arithmetic at and beyond the ends of the calendar, what typed cells keep.
#include "Input.h"
#include "Models.h"
#include "automation/AutomationError.h"
#include "automation/Calendar.h"
#include "automation/Coercion.h"
#include "automation/LocaleRules.h"
#include "automation/Text.h"
#include "support/Dates.h"
#include "ui/CellFormat.h"

#include <cmath>
#include <cstdlib>
#include <optional>

using namespace orv;
using automation::AutomationError;

namespace {

/// Runs what may fail with one of the errors that it states; anything else escapes and is a finding.
template <class Action>
bool succeeds(Action action) {
    try {
        action();
        return true;
    } catch (const AutomationError& error) {
        fuzz::require(error.number() == automation::errorNumber::invalidCall ||
                          error.number() == automation::errorNumber::overflow ||
                          error.number() == automation::errorNumber::typeMismatch,
                      "a failure is one of those that are stated");
        return false;
    }
}

std::size_t digitsAt(const std::string& text, std::size_t from) {
    std::size_t end = from;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    return end - from;
}

/// The length of the decimal number that a text begins with, by the grammar that the C library shares; 0 without one.
std::size_t plainNumber(const std::string& text) {
    std::size_t at = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    const std::size_t whole = digitsAt(text, at);
    at += whole;
    std::size_t places = 0;
    if (at < text.size() && text[at] == '.') {
        places = digitsAt(text, at + 1);
        at += 1 + places;
    }
    if (whole + places == 0)
        return 0;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        std::size_t exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+'))
            ++exponent;
        if (const std::size_t digits = digitsAt(text, exponent); digits != 0)
            at = exponent + digits;
    }
    return at;
}

std::optional<double> valByModel(const std::u16string& text) {
    std::string plain;
    for (const char16_t unit : text) {
        if (unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r' || unit == u'\u3000')
            continue;
        if (unit >= 0x80 || unit == 0)
            break;
        plain += static_cast<char>(unit == u'd' || unit == u'D' ? u'e' : unit);
    }
    if (plain.starts_with('&'))
        return std::nullopt; // bases are not the C library's
    const std::string number = plain.substr(0, plainNumber(plain));
    return number.empty() ? 0 : std::strtod(number.c_str(), nullptr);
}

void checkNumber(const std::u16string& text) {
    const std::optional<double> number = automation::localeRules().parseNumber(text);
    const bool isAscii = text.find_first_of(u'\0') == std::u16string::npos &&
                         text.find_first_not_of(u"0123456789.+-eE") == std::u16string::npos;
    if (isAscii) {
        const std::string plain(text.begin(), text.end());
        const bool all = !plain.empty() && plainNumber(plain) == plain.size();
        if (all)
            fuzz::require(number && *number == std::strtod(plain.c_str(), nullptr), "a plain number is that number");
    }
    fuzz::require(automation::isNumeric(text) == (number && std::isfinite(*number)),
                  "numeric is what reads as a number");
    if (number && std::isfinite(*number)) {
        const std::u16string written = automation::numberToText(*number);
        const std::optional<double> again = automation::localeRules().parseNumber(written);
        fuzz::require(again.has_value(), "a number's text is a number");
        fuzz::requireSame(automation::numberToText(*again), written, "a number's text stays the same");
        fuzz::require(std::fabs(*again - *number) <= std::fabs(*number) * 1e-14, "15 digits of a number stay");
    }

    std::optional<double> leading;
    if (succeeds([&] { leading = automation::Val(text); }))
        fuzz::require(std::isfinite(*leading), "a leading number is finite");
    if (const std::optional<double> expected = valByModel(text))
        fuzz::require(leading ? *leading == *expected : std::isinf(*expected), "a leading number is that number");
    succeeds([&] { automation::toInt32(text); });
    succeeds([&] { automation::toInt16(text); });
    succeeds([&] { automation::toBoolean(text); });
}

void checkDate(const std::u16string& text) {
    const std::optional<double> days = automation::localeRules().parseDate(text);
    fuzz::require(automation::isDate(text) == days.has_value(), "a date is what reads as a date");
    if (days) {
        fuzz::require(automation::isDateInRange(*days), "a date lies in the calendar");
        const std::u16string written = support::FormatDate(*days, u"yyyy-mm-dd hh:nn:ss");
        const std::optional<double> again = automation::localeRules().parseDate(written);
        fuzz::require(again.has_value(), "a date's text is a date");
        fuzz::requireSame(support::FormatDate(*again, u"yyyy-mm-dd hh:nn:ss"), written, "a date's text stays the same");
        const std::optional<double> localAgain =
            automation::localeRules().parseDate(automation::localeRules().dateText(*days));
        fuzz::require(localAgain && std::fabs(*localAgain - *days) < 0.6 / 86400, "a date's short text is that date");
    }
    succeeds([&] { automation::toDate(text); });
    succeeds([&] { support::FormatDateText(text, u"MMDDYYYY"); });
}

/// The days from 1 January 100 on, counted plainly.
double dayNumber(int year, int month, int day) {
    constexpr int before[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const int y = year - 1;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return 365.0 * y + y / 4 - y / 100 + y / 400 + before[month - 1] + (leap && month > 2 ? 1 : 0) + day;
}

void checkArithmetic(double days, std::int32_t count, int year, int month, int day) {
    const bool inRange = automation::isDateInRange(days);
    std::optional<automation::Moment> moment;
    const bool read = succeeds([&] { moment = automation::momentOf(days); });
    fuzz::require(!read || inRange, "only days of the calendar have a date");
    if (read) {
        const auto& date = moment->date;
        fuzz::require(automation::isCivilDate(date.year, date.month, date.day),
                      "a moment's date is one of the calendar");
        const double distance = dayNumber(date.year, date.month, date.day) - dayNumber(1899, 12, 30);
        fuzz::require(std::fabs(distance - std::trunc(days)) <= 1, "a date is as many days away as it says");
        const int weekday = support::dayOfWeek(distance);
        fuzz::require(weekday >= 1 && weekday <= 7, "a day of the week");
        fuzz::require(support::dayOfWeek(distance + 7) == weekday, "a week has seven days");
        succeeds([&] {
            const double later = support::addDays(distance, count);
            fuzz::require(later == distance + count, "days are added");
        });
        succeeds([&] {
            const auto shifted = support::civilDateOf(support::addMonths(distance, count));
            const std::int64_t months = std::int64_t{date.year} * 12 + date.month + count;
            fuzz::require(std::int64_t{shifted.year} * 12 + shifted.month == months && shifted.day <= date.day,
                          "months are added, a day beyond the month is its last");
        });
    }
    succeeds([&] { support::addDays(days, count); });
    succeeds([&] { support::addMonths(days, count); });
    succeeds([&] {
        const double serial = support::dateSerial(year, month, day);
        fuzz::require(automation::isDateInRange(serial) && serial == std::trunc(serial), "a serial date is a day");
    });
    succeeds([&] { automation::localeRules().dateText(days); });
    succeeds([&] { automation::roundToInt16(days); });
    succeeds([&] { automation::roundToInt32(days); });
    const std::u16string written = automation::numberToText(days);
    if (std::isfinite(days))
        fuzz::require(automation::localeRules().parseNumber(written).has_value(), "any number's text is a number");
}

void checkCell(ui::CellType type, const std::u16string& typed, int decimals) {
    ui::CellFormat format;
    format.type = type;
    format.decimals = decimals;
    format.maxLength = decimals;
    const auto stored = ui::storedFromTyped(format, typed);
    if (!stored)
        return;
    const std::u16string shown = ui::shownFromStored(format, *stored);
    const auto again = ui::storedFromTyped(format, shown);
    fuzz::require(again.has_value(), "what a cell shows can be typed into it");
    fuzz::requireSame(*again, *stored, "typing what a cell shows changes nothing");
    if ((type == ui::CellType::wholeNumber || type == ui::CellType::decimal) && !stored->empty()) {
        const double number = automation::Val(*stored);
        fuzz::require(number >= format.minimum && number <= format.maximum, "a number within the limits");
    }
    if (type == ui::CellType::edit && format.maxLength > 0)
        fuzz::require(stored->size() <= static_cast<std::size_t>(format.maxLength), "a text within its length");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::u16string text = input.line();
    checkNumber(text);
    checkDate(text);
    const int decimals = input.below(22);
    for (const auto type :
         {ui::CellType::edit, ui::CellType::wholeNumber, ui::CellType::decimal, ui::CellType::date, ui::CellType::time})
        checkCell(type, text, decimals);
    const double days = input.number();
    const auto small = [&input] { return static_cast<std::int32_t>(static_cast<std::uint32_t>(input.bits())); };
    const std::int32_t count = small();
    const std::int32_t year = small();
    const std::int32_t month = small();
    checkArithmetic(days, count, year, month, small());
    checkArithmetic(std::fmod(days, 3e6), count % 5000, year % 12000, month % 500, count % 40000);
    return 0;
}
