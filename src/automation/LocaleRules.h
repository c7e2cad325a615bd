#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orv::automation {

/// How texts are recognised as numbers and dates, and how dates are written, where that depends on the user's locale.
/// On Windows the platform's own conversion routines answer; elsewhere the system's own rules for zh-CN do.
class LocaleRules {
  public:
    virtual ~LocaleRules() = default;

    /// The number that the whole text stands for, or nothing when it is none; infinite where it is too large for a
    /// Double. Blanks around it, a sign before or after, grouping, the currency sign, parentheses for negatives, an
    /// exponent and "&H"/"&O" are recognised.
    virtual std::optional<double> parseNumber(std::u16string_view text) const = 0;

    /// The date (days since 30 December 1899) that the whole text stands for, or nothing when it is none.
    virtual std::optional<double> parseDate(std::u16string_view text) const = 0;

    /// The text of a date in the locale's short form; no time when it is midnight, no date when the day is 0.
    /// Raises error 6 (overflow) outside of the calendar.
    virtual std::u16string dateText(double days) const = 0;
};

/// The rules in force for this process.
const LocaleRules& localeRules();

/// The rules of zh-CN, whatever the user's locale is.
const LocaleRules& chineseRules();

} // namespace orv::automation
