#include "conditions/DateKeywords.h"

#include "support/Dates.h"
#include "support/Letters.h"

namespace orv::conditions {

namespace {

struct Keyword {
    std::u16string_view text;
    DateKeyword keyword;
};

constexpr Keyword keywords[] = {
    {u"ISNULL", DateKeyword::isNull},         {u"NOTISNULL", DateKeyword::notIsNull},
    {u"YESTERDAY", DateKeyword::yesterday},   {u"TODAY", DateKeyword::today},
    {u"TOMORROW", DateKeyword::tomorrow},     {u"LASTWEEK", DateKeyword::lastWeek},
    {u"THISWEEK", DateKeyword::thisWeek},     {u"NEXTWEEK", DateKeyword::nextWeek},
    {u"LASTMONTH", DateKeyword::lastMonth},   {u"THISMONTH", DateKeyword::thisMonth},
    {u"NEXTMONTH", DateKeyword::nextMonth},   {u"TODAYBEFORE", DateKeyword::todayBefore},
    {u"TODAYAFTER", DateKeyword::todayAfter},
};

/// First and last day, both included.
struct DayRange {
    double first;
    double last;
};

/// The first day of the month that lies `months` after the month of `day`.
double firstOfMonth(double day, int months) {
    const double shifted = support::addMonths(day, months);
    return shifted - support::civilDateOf(shifted).day + 1;
}

/// The seven days, Monday first, of the week that lies `weeks` after the week of `day`.
DayRange weekOf(double day, int weeks) {
    const double monday = day + (1 - support::dayOfWeek(day)) + 7 * weeks;
    return {monday, monday + 6};
}

DayRange monthOf(double day, int months) {
    return {firstOfMonth(day, months), firstOfMonth(day, months + 1) - 1};
}

DayRange rangeOf(DateKeyword keyword, double today, std::int32_t days) {
    switch (keyword) {
    case DateKeyword::yesterday:
        return {today - 1, today - 1};
    case DateKeyword::tomorrow:
        return {today + 1, today + 1};
    case DateKeyword::lastWeek:
        return weekOf(today, -1);
    case DateKeyword::thisWeek:
        return weekOf(today, 0);
    case DateKeyword::nextWeek:
        return weekOf(today, 1);
    case DateKeyword::lastMonth:
        return monthOf(today, -1);
    case DateKeyword::thisMonth:
        return monthOf(today, 0);
    case DateKeyword::nextMonth:
        return monthOf(today, 1);
    case DateKeyword::todayBefore:
        return {today - days, today};
    case DateKeyword::todayAfter:
        return {today, today + days};
    case DateKeyword::today:
    case DateKeyword::none:
    case DateKeyword::isNull:
    case DateKeyword::notIsNull:
        break;
    }
    return {today, today};
}

void appendNullTest(std::u16string& out, const ColumnExpression& column, std::u16string_view operatorText,
                    std::u16string_view joiner) {
    out += u" (";
    column.appendTo(out);
    out += operatorText;
    out += u"''";
    out += joiner;
    column.appendTo(out);
    out += u" IS NULL) ";
}

} // namespace

DateKeyword dateKeyword(std::u16string_view text) noexcept {
    if (text.empty()) // a comparison that takes a value: nearly all of them
        return DateKeyword::none;
    for (const Keyword& known : keywords)
        if (text.size() == known.text.size() && support::equalIgnoringCase(text, known.text))
            return known.keyword;
    return DateKeyword::none;
}

void appendDateKeywordSql(std::u16string& out, const ColumnExpression& column, std::u16string_view operatorText,
                          DateKeyword keyword, std::int32_t days, Today& today) {
    if (keyword == DateKeyword::isNull) {
        appendNullTest(out, column, operatorText, u" OR ");
        return;
    }
    if (keyword == DateKeyword::notIsNull) {
        appendNullTest(out, column, operatorText, u" AND NOT ");
        return;
    }
    column.appendTo(out);
    out += operatorText;
    out += u' ';
    if (needsToday(keyword)) {
        const DayRange range = rangeOf(keyword, today.date(), days);
        out += u'\'';
        support::appendIsoDate(out, range.first);
        out += u"' AND '";
        support::appendIsoDate(out, range.last);
        out += u" 23:59:59'"; // the last day counts to its end
    }
    out += u' ';
}

std::u16string BuildDateKeywordSql(std::u16string_view columnExpr, std::u16string_view operatorText,
                                   std::u16string_view keyword, std::int32_t days, Today& today) {
    std::u16string text;
    appendDateKeywordSql(text, ColumnExpression{columnExpr}, operatorText, dateKeyword(keyword), days, today);
    return text;
}

} // namespace orv::conditions
