#include "sqlproof/PlainDates.h"

#include <chrono>
#include <cstdio>

namespace orv::sqlproof {

using namespace std::chrono;

namespace {

constexpr sys_days dayZero = year{1899} / December / 30;

int numberOf(sys_days day) {
    return static_cast<int>((day - dayZero).count());
}

Days daysOf(year_month which) {
    return {numberOf(which / 1), numberOf(which / last)};
}

} // namespace

std::optional<Days> rangeOf(std::u16string_view keyword, int today, int count) {
    const sys_days day = dayZero + days{today};
    const year_month_day civil{day};
    const year_month thisMonth = civil.year() / civil.month();
    const int monday = today - static_cast<int>(weekday{day}.iso_encoding()) + 1;
    struct Named {
        std::u16string_view keyword;
        Days days;
    };
    const Named all[] = {
        {u"YESTERDAY", {today - 1, today - 1}},        {u"TODAY", {today, today}},
        {u"TOMORROW", {today + 1, today + 1}},         {u"LASTWEEK", {monday - 7, monday - 1}},
        {u"THISWEEK", {monday, monday + 6}},           {u"NEXTWEEK", {monday + 7, monday + 13}},
        {u"LASTMONTH", daysOf(thisMonth - months{1})}, {u"THISMONTH", daysOf(thisMonth)},
        {u"NEXTMONTH", daysOf(thisMonth + months{1})}, {u"TODAYBEFORE", {today - count, today}},
        {u"TODAYAFTER", {today, today + count}},
    };
    for (const Named& named : all)
        if (named.keyword == keyword)
            return named.days;
    return std::nullopt;
}

std::u16string isoDay(int day) {
    const year_month_day civil{dayZero + days{day}};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(civil.year()),
                  static_cast<unsigned>(civil.month()), static_cast<unsigned>(civil.day()));
    return std::u16string(text, text + 10);
}

int dayOf(std::string_view iso) {
    int y = 0;
    unsigned m = 0;
    unsigned d = 0;
    std::sscanf(std::string(iso).c_str(), "%d-%u-%u", &y, &m, &d);
    return numberOf(year{y} / month{m} / day{d});
}

} // namespace orv::sqlproof
