#pragma once

#include "automation/Value.h"

#include <cstdint>
#include <string>
#include <string_view>

// The coercions of the automation variant, as implicit conversions in a host's language do them.
// Each raises AutomationError 13 (type mismatch) where the content has no such meaning, 6 (overflow) where it does
// not fit, and 94 (invalid use of Null) for Null. Empty reads as "", 0 and False; Missing raises 13. An object is
// asked for its default member first.
namespace orv::automation {

/// Text of a value: numbers with up to 15 significant digits and "." as the decimal sign, True/False for Booleans,
/// dates in the locale's short form.
std::u16string toText(const Value& value);
/// Number of a value; text is recognised by the locale's rules (see LocaleRules), True is -1.
double toNumber(const Value& value);
/// Whole number of a value, ties to even; 16-bit and 32-bit overflow raise error 6.
std::int16_t toInt16(const Value& value);
std::int32_t toInt32(const Value& value);
/// Truth of a value: any number but 0; text as "True"/"False" in any letter case, or as a number.
bool toBoolean(const Value& value);
/// Date of a value; text is recognised by the locale's rules, as a date or else as a number of days. Error 6 outside of
/// the years 100 to 9999.
Date toDate(const Value& value);
/// Object of a value; anything else raises error 424 (object required), Nothing error 91.
ObjectRef toObject(const Value& value);
/// Object of a value, null for Nothing, Empty, Null and Missing; any other content raises error 13.
ObjectRef toObjectOrNothing(const Value& value);

/// Whole number of a double, ties to even (banker's rounding); error 6 beyond the type's range or when not a number.
std::int16_t roundToInt16(double number);
std::int32_t roundToInt32(double number);

/// A double as automation writes it: up to 15 significant digits, no grouping, "." as decimal sign, exponent form
/// ("1E+15", "8.33333333333333E-02") from 1E+15 on, and below 1 where the plain form needs more than 15 decimals.
std::u16string numberToText(double number);

/// `Val`: the longest leading part of a text that reads as a number. Blanks, tabs and line feeds are skipped anywhere
/// in it, "." is the only decimal sign, exponents with E or D count, "&H" and "&O" begin hexadecimal and octal
/// numbers (16-bit two's complement up to four digits' worth, else 32-bit; a closing "&" makes a short one 32-bit).
/// Full-width digits do not count. A text without such a part gives 0. Never fails but by overflow (6).
double Val(std::u16string_view text);

/// What reads as nothing in a record: Empty (an absent entry), Null, or an empty text.
bool isBlank(const Value& value);
/// `IsNumeric` of a text by the locale's rules (blanks around it, sign, grouping, currency sign, exponent, "&H").
bool isNumeric(std::u16string_view text);
inline bool isNumeric(const std::u16string& text) {
    return isNumeric(std::u16string_view(text));
}
inline bool isNumeric(const char16_t* text) {
    return isNumeric(std::u16string_view(text));
}
/// `IsNumeric` of a value: numbers, Booleans and Empty are numeric, dates are not.
bool isNumeric(const Value& value);
/// `IsDate` of a text by the locale's rules.
bool isDate(std::u16string_view text);

} // namespace orv::automation
