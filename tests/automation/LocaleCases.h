#pragma once

#include <optional>

// What zh-CN texts mean as numbers and dates. The same table holds for the system's own rules and for the platform's
// conversion routines.
namespace orv::automation::tests {

struct NumberCase {
    const char16_t* text;
    std::optional<double> number; ///< nothing: the text is no number
    /// Why the stand-in for the platform answers differently; null where it does not.
    const char* wineDiffers = nullptr;
};

inline constexpr const char* noWidthFolding = "does not read full-width forms";
inline constexpr const char* noOldExponent = "does not read the exponent letter D";
inline constexpr const char* shortRadix = "overflows at 32 bits in other bases";
inline constexpr const char* asciiLettersOnly = "reads no Chinese words in dates but a half of the day behind the time";
inline constexpr const char* laterYears = "takes years of two digits up to 2049";
inline constexpr const char* twoDigitHours = "writes the hour with two digits";
inline constexpr std::nullopt_t none = std::nullopt;

inline constexpr NumberCase numberCases[] = {
    {u"0", 0},
    {u"12", 12},
    {u"007", 7},
    {u"12.50", 12.5},
    {u".5", 0.5},
    {u"5.", 5},
    {u"123456789012345", 123456789012345.0},
    // blanks and signs
    {u"  7.50 ", 7.5},
    {u"\t3\r\n", 3},
    {u"-5", -5},
    {u"+5", 5},
    {u"- 5", -5},
    {u"5-", -5},
    {u"5+", 5},
    {u"-0", 0},
    {u"--5", none},
    {u"-5-", none},
    {u"1 2", none},
    // grouping
    {u"1,234.5", 1234.5},
    {u"1,2,3", 123},
    {u"1,", 1},
    {u"1,,2", 12},
    {u"1.2,3", 1.23},
    {u",1", none},
    {u",", none},
    // currency and accounting brackets
    {u"\u00A512", 12},
    {u"12\u00A5", 12},
    {u"-\u00A51,200.5", -1200.5},
    {u"$12", none},
    {u"(5)", -5},
    {u"( 5 )", -5},
    {u"(5", none},
    {u"5)", none},
    {u"((5)", none},
    // exponents
    {u"1e3", 1000},
    {u"1.5E-3", 0.0015},
    {u"1E+2", 100},
    {u"1d3", 1000, noOldExponent},
    {u"1e", none},
    {u"e3", none},
    {u"1e2.5", none},
    // other bases
    {u"&H1f", 31},
    {u"&hFFFF", 65535},
    {u"&H7FFFFFFF", 2147483647},
    {u"&HFFFFFFFF", 4294967295, shortRadix},
    {u"&O17", 15},
    {u"&HG", none},
    {u"&O8", none},
    {u"&", none},
    // full-width forms, as an input method leaves them
    {u"１２．５", 12.5, noWidthFolding},
    {u"－３", -3, noWidthFolding},
    {u"￥５", 5, noWidthFolding},
    {u"\u30005\u3000", 5},
    // no numbers
    {u"", none},
    {u"   ", none},
    {u".", none},
    {u"-", none},
    {u"abc", none},
    {u"12abc", none},
    {u"1.2.3", none},
    {u"十二", none},
    {u"5%", none},
    {u"True", none},
    {u"2024-02-05", none},
    {u"1/2", none},
};

/// A date as it reads, the year of today when `year` is 0. The default is the day without a date.
struct Expected {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

constexpr Expected on(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return {year, month, day, hour, minute, second};
}
constexpr Expected at(int hour, int minute, int second = 0) {
    return {1899, 12, 30, hour, minute, second};
}
inline constexpr int thisYear = 0;

struct DateCase {
    const char16_t* text;
    std::optional<Expected> date; ///< nothing: the text is no date
    const char* wineDiffers = nullptr;
};

inline constexpr DateCase dateCases[] = {
    // the order of the locale, with either separator
    {u"1999/12/25", on(1999, 12, 25)},
    {u"1999-12-25", on(1999, 12, 25)},
    {u"2024/2/5", on(2024, 2, 5)},
    {u"2024-02-05", on(2024, 2, 5)},
    {u"2024-2/5", on(2024, 2, 5)},
    {u"2024 2 5", on(2024, 2, 5)},
    {u"2024,2,5", on(2024, 2, 5)},
    {u"  2024/2/5  ", on(2024, 2, 5)},
    {u"2024 / 2 / 5", on(2024, 2, 5)},
    {u"100/1/1", on(100, 1, 1)},
    {u"9999/12/31", on(9999, 12, 31)},
    {u"10000/1/1", none},
    // years of two digits
    {u"29/1/2", on(2029, 1, 2)},
    {u"30/1/2", on(1930, 1, 2), laterYears},
    {u"99/1/2", on(1999, 1, 2)},
    {u"0/1/2", on(2000, 1, 2)},
    // other orders where the locale's own makes no date
    {u"12/25/1999", on(1999, 12, 25)},
    {u"5/6/2024", on(2024, 5, 6)},
    {u"25/12/1999", on(1999, 12, 25)},
    {u"2024/13/5", on(2024, 5, 13)},
    {u"1/2/3", on(2001, 2, 3)},
    // two numbers: month and day, else year and month
    {u"2/5", on(thisYear, 2, 5)},
    {u"12-25", on(thisYear, 12, 25)},
    {u"25/12", on(thisYear, 12, 25)},
    {u"2024/2", on(2024, 2, 1)},
    {u"2/2024", on(2024, 2, 1)},
    // days that no calendar has
    {u"2024/2/29", on(2024, 2, 29)},
    {u"2000/2/29", on(2000, 2, 29)},
    {u"2023/2/29", none},
    {u"1900/2/29", none},
    {u"2024/2/30", none},
    {u"2024/4/31", none},
    {u"2024/13/32", none},
    {u"2024/0/5", none},
    {u"2024/2/0", none},
    // with a time
    {u"2024/2/5 13:05", on(2024, 2, 5, 13, 5)},
    {u"2024/2/5 13:05:09", on(2024, 2, 5, 13, 5, 9)},
    {u"2024-02-05 1:05:09 PM", on(2024, 2, 5, 13, 5, 9)},
    {u"13:05 2024/2/5", on(2024, 2, 5, 13, 5)},
    {u"2024/2/5 3 pm", on(2024, 2, 5, 15)},
    {u"2/5 13:05", on(thisYear, 2, 5, 13, 5)},
    {u"2024/2/5 24:00", none},
    {u"2024/2/5 12:60", none},
    {u"2024-02-05 02:04:12.017", none},
    {u"2024-02-05T02:04:12", none},
    // times alone
    {u"13:05:09", at(13, 5, 9)},
    {u"1:05", at(1, 5)},
    {u"0:00", at(0, 0)},
    {u"1:05:09 PM", at(13, 5, 9)},
    {u"1:05pm", at(13, 5)},
    {u"1:05 p", at(13, 5)},
    {u"12:00 am", at(0, 0)},
    {u"12:30 pm", at(12, 30)},
    {u"13:00 AM", at(13, 0)},
    {u"3 pm", at(15, 0)},
    {u"1.30", at(1, 30)}, // a point separates hours and minutes, not a date
    {u"1.12.25", at(1, 12, 25)},
    {u"1999.12.25", none},
    {u"24:00", none},
    {u"0:60", none},
    // Chinese words
    {u"2024年2月5日", on(2024, 2, 5), asciiLettersOnly},
    {u"2024年2月5号", on(2024, 2, 5), asciiLettersOnly},
    {u"2024年2月", on(2024, 2, 1), asciiLettersOnly},
    {u"2月5日", on(thisYear, 2, 5), asciiLettersOnly},
    {u"2024年2月5日 13时5分9秒", on(2024, 2, 5, 13, 5, 9), asciiLettersOnly},
    {u"下午 1:05", at(13, 5), asciiLettersOnly},
    {u"2024/2/5 下午1:05:09", on(2024, 2, 5, 13, 5, 9), asciiLettersOnly},
    {u"1:05 上午", at(1, 5)},
    {u"2024年13月5日", none},
    {u"5日", none},
    {u"２０２４／２／５", on(2024, 2, 5), noWidthFolding},
    {u"2024/2/5\u300013:05", on(2024, 2, 5, 13, 5)},
    // no dates
    {u"", none},
    {u"   ", none},
    {u"abc", none},
    {u"True", none},
    {u"20240205", none},
    {u"45000", none},
    {u"-5", none},
    {u"2024/2/5/", none},
    {u"/2024/2/5", none},
    {u"2024/2/5/6", none},
    {u"2024-2-", none},
    {u"1 2 3 4", none},
    {u"1.2.3.4", none},
    {u"1:2:3:4", none},
    {u"1:2 3 pm", none},
    {u"2024/2/5-13:05", none},
    {u"5分13时", none},
    {u"5秒", none},
    {u"1 am 2", none},
    {u"1:2 am 3 pm", none},
    {u"2024*2*5", none},
    {u"(1:2)", none},
    {u"2024/2/5 x", none},
};

struct DateTextCase {
    Expected date;
    const char16_t* text;
    const char* wineDiffers = nullptr;
};

inline constexpr DateTextCase dateTextCases[] = {
    {on(2024, 2, 5), u"2024/2/5"},
    {on(2024, 12, 25), u"2024/12/25"},
    {on(2024, 2, 5, 13, 5, 9), u"2024/2/5 13:05:09"},
    {on(2024, 2, 5, 1, 5), u"2024/2/5 1:05:00", twoDigitHours},
    {at(13, 5, 9), u"13:05:09"},
    {at(0, 0), u"0:00:00", twoDigitHours},
    {on(1899, 12, 29, 6), u"1899/12/29 6:00:00", twoDigitHours},
    {on(9999, 12, 31), u"9999/12/31"},
};

} // namespace orv::automation::tests
