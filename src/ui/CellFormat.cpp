#include "ui/CellFormat.h"

#include "automation/LocaleRules.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

namespace orv::ui {

namespace {

using Text = std::optional<std::u16string>;

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && text.front() == u' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    return text;
}

std::u16string cut(std::u16string_view text, int maxLength) {
    const auto limit = static_cast<std::size_t>(std::max(maxLength, 0));
    if (limit == 0 || text.size() <= limit)
        return std::u16string(text);
    const bool splitsPair = (text[limit - 1] & 0xFC00) == 0xD800 && (text[limit] & 0xFC00) == 0xDC00;
    return std::u16string(text.substr(0, splitsPair ? limit - 1 : limit));
}

Text plainNumber(std::u16string_view typed, double minimum, double maximum, int decimals) {
    const std::optional<double> number = automation::localeRules().parseNumber(typed);
    if (!number || !std::isfinite(*number) || *number < minimum || *number > maximum)
        return std::nullopt;
    // A double has up to 309 digits before the point; no more than 20 places make sense after it.
    std::array<char, 340> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), *number, std::chars_format::fixed,
                                       std::clamp(decimals, 0, 20));
    std::string_view digits(buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data()));
    // Written with the places allowed it must still be the same number; otherwise it had more of them.
    double reread = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), reread);
    if (reread != *number)
        return std::nullopt;
    if (digits.find('.') != std::string_view::npos) {
        digits.remove_suffix(digits.size() - 1 - digits.find_last_not_of('0'));
        if (digits.back() == '.')
            digits.remove_suffix(1);
    }
    if (digits == "-0")
        digits = "0";
    return std::u16string(digits.begin(), digits.end());
}

/// `value` in decimal, filled with zeros to `width` digits.
void appendDigits(std::u16string& text, unsigned value, int width) {
    std::u16string digits(static_cast<std::size_t>(width), u'0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, value /= 10)
        *digit = static_cast<char16_t>(u'0' + value % 10);
    text += digits;
}

bool allDigits(std::u16string_view text, std::size_t count) {
    return text.size() == count && std::ranges::all_of(text, [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

/// MMDDYYYY as YYYYMMDD, which orders as the days do.
std::u16string sortable(std::u16string_view stored) {
    return std::u16string(stored.substr(4)) + std::u16string(stored.substr(0, 4));
}

Text storedDate(std::u16string_view typed, std::u16string_view earliest) {
    const std::optional<double> days = automation::localeRules().parseDate(typed);
    if (!days)
        return std::nullopt;
    // Before day 0 the fraction still counts forwards within its day: -1.5 is noon of day -1.
    const double day = std::trunc(*days);
    if (day == 0)
        return std::nullopt;
    using namespace std::chrono;
    constexpr sys_days dayZero = year{1899} / December / 30;
    const year_month_day date{dayZero + std::chrono::days{static_cast<int>(day)}};
    std::u16string stored;
    appendDigits(stored, static_cast<unsigned>(date.month()), 2);
    appendDigits(stored, static_cast<unsigned>(date.day()), 2);
    appendDigits(stored, static_cast<unsigned>(static_cast<int>(date.year())), 4);
    if (allDigits(earliest, 8) && sortable(stored) < sortable(earliest))
        return std::nullopt;
    return stored;
}

Text storedTime(std::u16string_view typed) {
    const std::optional<double> days = automation::localeRules().parseDate(typed);
    if (!days || *days < 0 || *days >= 1)
        return std::nullopt;
    constexpr long secondsPerDay = 86400;
    const auto seconds =
        static_cast<unsigned>(std::min(std::lround(*days * static_cast<double>(secondsPerDay)), secondsPerDay - 1));
    std::u16string stored;
    for (const unsigned part : {seconds / 3600, seconds / 60 % 60, seconds % 60})
        appendDigits(stored, part, 2);
    return stored;
}

} // namespace

std::optional<std::u16string> storedFromTyped(const CellFormat& format, std::u16string_view typed) {
    switch (format.type) {
    case CellType::edit:
    case CellType::comboBox:
        return cut(typed, format.maxLength);
    case CellType::checkBox:
    case CellType::staticText:
        return std::nullopt;
    case CellType::wholeNumber:
    case CellType::decimal:
    case CellType::date:
    case CellType::time:
        break;
    }
    const std::u16string_view content = trimmed(typed);
    if (content.empty())
        return std::u16string();
    if (format.type == CellType::date)
        return storedDate(content, format.earliestDate);
    if (format.type == CellType::time)
        return storedTime(content);
    const int places = format.type == CellType::decimal ? format.decimals : 0;
    return plainNumber(content, format.minimum, format.maximum, places);
}

std::u16string shownFromStored(const CellFormat& format, std::u16string_view stored) {
    std::u16string shown;
    if (format.type == CellType::date && allDigits(stored, 8))
        return shown.append(stored, 4, 4).append(u"-").append(stored, 0, 2).append(u"-").append(stored, 2, 2);
    if (format.type == CellType::time && allDigits(stored, 6))
        return shown.append(stored, 0, 2).append(u":").append(stored, 2, 2).append(u":").append(stored, 4, 2);
    return shown.append(stored);
}

} // namespace orv::ui
