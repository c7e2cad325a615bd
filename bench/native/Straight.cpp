#include "bench/native/PlainCondition.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string_view>

// The yardstick: the shortest honest code for the mixed conditions, without any of the control's own parts. It takes
// only the spellings of numbers and dates that occur in them.
namespace orv::bench {

namespace {

using Text = std::u16string_view;
using std::chrono::sys_days;
using std::chrono::year_month_day;

enum class Operator { compare, notEqual, list, range, pattern };

struct Known {
    Text text;
    Operator kind;
};
constexpr Known operators[] = {
    {u"=", Operator::compare},    {u"<>", Operator::notEqual},      {u"<=", Operator::compare},
    {u">=", Operator::compare},   {u">", Operator::compare},        {u"<", Operator::compare},
    {u"IN", Operator::list},      {u"NOT IN", Operator::list},      {u"BETWEEN", Operator::range},
    {u"LIKE", Operator::pattern}, {u"NOT LIKE", Operator::pattern},
};

Text trimmed(Text text) {
    while (!text.empty() && text.front() == u' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    return text;
}

Operator operatorOf(Text text) {
    text = trimmed(text);
    for (const Known& known : operators)
        if (known.text == text)
            return known.kind;
    throw std::invalid_argument("operator");
}

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// A number: an optional sign, digits, and digits behind a point.
double number(Text text) {
    std::array<char, 64> narrow;
    if (text.empty() || text.size() > narrow.size())
        throw std::invalid_argument("number");
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isDigit(text[i]) && text[i] != u'.' && (i != 0 || text[i] != u'-'))
            throw std::invalid_argument("number");
        narrow[i] = static_cast<char>(text[i]);
    }
    double result = 0;
    const auto [end, error] = std::from_chars(narrow.data(), narrow.data() + text.size(), result);
    if (error != std::errc() || end != narrow.data() + text.size())
        throw std::invalid_argument("number");
    return result;
}

int digits(Text text) {
    int result = 0;
    for (const char16_t unit : text) {
        if (!isDigit(unit))
            throw std::invalid_argument("date");
        result = result * 10 + (unit - u'0');
    }
    return result;
}

/// A day written yyyy-mm-dd.
sys_days day(Text text) {
    if (text.size() != 10 || text[4] != u'-' || text[7] != u'-')
        throw std::invalid_argument("date");
    const year_month_day date(std::chrono::year(digits(text.substr(0, 4))),
                              std::chrono::month(static_cast<unsigned>(digits(text.substr(5, 2)))),
                              std::chrono::day(static_cast<unsigned>(digits(text.substr(8, 2)))));
    if (!date.ok())
        throw std::invalid_argument("date");
    return date;
}

void appendDay(std::u16string& out, sys_days moment) {
    const year_month_day date(moment);
    const auto two = [&out](unsigned n) {
        out += static_cast<char16_t>(u'0' + n / 10);
        out += static_cast<char16_t>(u'0' + n % 10);
    };
    const auto year = static_cast<unsigned>(static_cast<int>(date.year()));
    out += u'\'';
    two(year / 100);
    two(year % 100);
    out += u'-';
    two(static_cast<unsigned>(date.month()));
    out += u'-';
    two(static_cast<unsigned>(date.day()));
    out += u'\'';
}

void appendNumber(std::u16string& out, double value) {
    std::array<char, 32> narrow;
    const auto end =
        std::to_chars(narrow.data(), narrow.data() + narrow.size(), value, std::chars_format::general, 15).ptr;
    out.append(narrow.data(), end);
}

void appendQuoted(std::u16string& out, Text text) {
    out += u'\'';
    out += text;
    out += u'\'';
}

void appendItem(std::u16string& out, ColumnKind kind, Text item) {
    if (kind == ColumnKind::text) {
        appendQuoted(out, item);
    } else if (kind == ColumnKind::number) {
        number(item);
        out += item;
    } else {
        appendDay(out, day(item));
    }
}

void appendRange(std::u16string& out, ColumnKind kind, Text value) {
    const std::size_t at = value.find(u"AND");
    if (at == Text::npos)
        throw std::invalid_argument("range");
    const Text low = trimmed(value.substr(0, at));
    const Text high = trimmed(value.substr(at + 3));
    if (kind == ColumnKind::date) {
        const sys_days first = day(low);
        const sys_days last = day(high);
        if (first > last)
            throw std::invalid_argument("range");
        appendDay(out, first);
        out += u" AND ";
        appendDay(out, last);
        return;
    }
    if (number(low) > number(high))
        throw std::invalid_argument("range");
    out += low;
    out += u" AND ";
    out += high;
}

void appendColumn(std::u16string& out, const PlainCondition& condition, bool guarded) {
    if (guarded)
        out += u"isnull(";
    if (condition.kind == ColumnKind::date)
        out += u"convert(char(10),";
    out += condition.column;
    if (condition.kind == ColumnKind::date)
        out += u",120)";
    if (guarded)
        out += u",'')";
}

void appendKeyword(std::u16string& out, const PlainCondition& condition, double today) {
    if (condition.keyword == u"ISNULL") {
        out += u" (";
        appendColumn(out, condition, false);
        out += condition.sqlOperator;
        out += u"'' OR ";
        appendColumn(out, condition, false);
        out += u" IS NULL) ";
        return;
    }
    if (condition.keyword != u"THISMONTH")
        throw std::invalid_argument("keyword");
    const year_month_day date(sys_days(std::chrono::year(1899) / 12 / 30) +
                              std::chrono::days(static_cast<std::int32_t>(today)));
    appendColumn(out, condition, false);
    out += condition.sqlOperator;
    out += u' ';
    appendDay(out, date.year() / date.month() / 1);
    out += u" AND ";
    appendDay(out, date.year() / date.month() / std::chrono::last);
    out.pop_back();
    out += u" 23:59:59' ";
}

void appendValue(std::u16string& out, const PlainCondition& condition, Operator kind) {
    const Text value = trimmed(condition.value);
    out += u' ';
    switch (kind) {
    case Operator::list: {
        out += u'(';
        for (Text rest = value;;) {
            const std::size_t comma = rest.find(u',');
            appendItem(out, condition.kind, trimmed(rest.substr(0, comma)));
            if (comma == Text::npos)
                break;
            out += u',';
            rest.remove_prefix(comma + 1);
        }
        out += u')';
        break;
    }
    case Operator::range:
        appendRange(out, condition.kind, value);
        break;
    case Operator::pattern:
        out += u"'%";
        out += value;
        out += u"%'";
        break;
    case Operator::compare:
    case Operator::notEqual:
        if (condition.kind == ColumnKind::date)
            out += u' ';
        appendItem(out, condition.kind, value);
        if (condition.kind == ColumnKind::date)
            out += u' ';
        break;
    }
    out += u' ';
}

void appendComparison(std::u16string& out, const PlainCondition& condition, double today) {
    if (!condition.keyword.empty()) {
        appendKeyword(out, condition, today);
        return;
    }
    const Operator kind = operatorOf(condition.sqlOperator);
    if (condition.control == u"1") {
        appendColumn(out, condition, false);
        out += condition.sqlOperator;
        out += u' ';
        appendQuoted(out, trimmed(Text(condition.value).substr(255)));
        out += u' ';
    } else if (condition.control == u"0" && condition.kind == ColumnKind::number) {
        out += u"isnull(";
        out += condition.column;
        out += u",0)";
        out += condition.sqlOperator;
        out += u' ';
        appendNumber(out, number(trimmed(condition.value)));
    } else {
        appendColumn(out, condition, kind == Operator::notEqual);
        out += condition.sqlOperator;
        appendValue(out, condition, kind);
    }
}

} // namespace

void appendStraight(std::u16string& out, const PlainCondition& condition, double today) {
    out += condition.left;
    out += u' ';
    appendComparison(out, condition, today);
    out += u' ';
    out += condition.right;
    out += u' ';
    out += trimmed(condition.logic);
}

} // namespace orv::bench
