#include "conditions/DateKeywords.h"
#include "Samples.h"
#include "conditions/ConditionSql.h"

namespace orv::conditions {
namespace {

using namespace sample;

std::string keywordSql(const char* today, const char* word, int days = 0) {
    FakeSource source;
    source.today = today;
    return outcome([&] { return BuildDateKeywordSql(u"F", u" BETWEEN ", fromUtf8(word), days, source); });
}

TEST(DateKeywords, CoverWholeDaysWeeksAndMonths) {
    struct RangeCase {
        const char* today;
        const char* keyword;
        const char* range;
    };
    const RangeCase cases[] = {
        // 29 February 2024 is a Thursday.
        {"2024-02-29", "YESTERDAY", "'2024-02-28' AND '2024-02-28 23:59:59'"},
        {"2024-02-29", "TODAY", "'2024-02-29' AND '2024-02-29 23:59:59'"},
        {"2024-02-29", "TOMORROW", "'2024-03-01' AND '2024-03-01 23:59:59'"},
        {"2024-02-29", "LASTWEEK", "'2024-02-19' AND '2024-02-25 23:59:59'"},
        {"2024-02-29", "THISWEEK", "'2024-02-26' AND '2024-03-03 23:59:59'"},
        {"2024-02-29", "NEXTWEEK", "'2024-03-04' AND '2024-03-10 23:59:59'"},
        {"2024-02-29", "LASTMONTH", "'2024-01-01' AND '2024-01-31 23:59:59'"},
        {"2024-02-29", "THISMONTH", "'2024-02-01' AND '2024-02-29 23:59:59'"},
        {"2024-02-29", "NEXTMONTH", "'2024-03-01' AND '2024-03-31 23:59:59'"},
        // A Sunday ends its week, a Monday begins it.
        {"2024-03-31", "LASTWEEK", "'2024-03-18' AND '2024-03-24 23:59:59'"},
        {"2024-03-31", "THISWEEK", "'2024-03-25' AND '2024-03-31 23:59:59'"},
        {"2024-03-31", "NEXTWEEK", "'2024-04-01' AND '2024-04-07 23:59:59'"},
        {"2024-04-01", "LASTWEEK", "'2024-03-25' AND '2024-03-31 23:59:59'"},
        {"2024-04-01", "THISWEEK", "'2024-04-01' AND '2024-04-07 23:59:59'"},
        {"2024-04-01", "NEXTWEEK", "'2024-04-08' AND '2024-04-14 23:59:59'"},
        // The 31st next to shorter months, in a leap and in a common year.
        {"2024-03-31", "LASTMONTH", "'2024-02-01' AND '2024-02-29 23:59:59'"},
        {"2023-03-31", "LASTMONTH", "'2023-02-01' AND '2023-02-28 23:59:59'"},
        {"2024-03-31", "THISMONTH", "'2024-03-01' AND '2024-03-31 23:59:59'"},
        {"2024-03-31", "NEXTMONTH", "'2024-04-01' AND '2024-04-30 23:59:59'"},
        {"2023-01-31", "NEXTMONTH", "'2023-02-01' AND '2023-02-28 23:59:59'"},
        {"2023-12-31", "NEXTMONTH", "'2024-01-01' AND '2024-01-31 23:59:59'"},
        // The turn of the year.
        {"2023-12-31", "TOMORROW", "'2024-01-01' AND '2024-01-01 23:59:59'"},
        {"2023-12-31", "THISWEEK", "'2023-12-25' AND '2023-12-31 23:59:59'"},
        {"2023-12-31", "THISMONTH", "'2023-12-01' AND '2023-12-31 23:59:59'"},
        {"2024-01-01", "YESTERDAY", "'2023-12-31' AND '2023-12-31 23:59:59'"},
        {"2024-01-01", "LASTWEEK", "'2023-12-25' AND '2023-12-31 23:59:59'"},
        {"2024-01-01", "LASTMONTH", "'2023-12-01' AND '2023-12-31 23:59:59'"},
        // A server without a date: day 0, a Saturday.
        {"1899-12-30", "yesterday", "'1899-12-29' AND '1899-12-29 23:59:59'"},
        {"1899-12-30", "ThisWeek", "'1899-12-25' AND '1899-12-31 23:59:59'"},
        {"1899-12-30", "lastmonth", "'1899-11-01' AND '1899-11-30 23:59:59'"},
    };
    for (const RangeCase& c : cases)
        EXPECT_EQ(keywordSql(c.today, c.keyword), std::string("F BETWEEN  ") + c.range + " ")
            << c.keyword << " on " << c.today;
}

TEST(DateKeywords, CountDaysFromToday) {
    EXPECT_EQ(keywordSql("2024-03-01", "TODAYBEFORE", 1), "F BETWEEN  '2024-02-29' AND '2024-03-01 23:59:59' ");
    EXPECT_EQ(keywordSql("2023-12-31", "TODAYAFTER", 366), "F BETWEEN  '2023-12-31' AND '2024-12-31 23:59:59' ");
    EXPECT_EQ(keywordSql("2024-03-01", "TodayAfter", 0), "F BETWEEN  '2024-03-01' AND '2024-03-01 23:59:59' ");
    EXPECT_EQ(keywordSql("2024-03-01", "TODAYBEFORE", -2), "F BETWEEN  '2024-03-03' AND '2024-03-01 23:59:59' ");
}

TEST(DateKeywords, PassOnDatesBeyondTheCalendar) {
    EXPECT_EQ(keywordSql("2024-03-01", "TODAYBEFORE", 800000), "error 6: 溢出");
    EXPECT_EQ(keywordSql("2024-03-01", "TODAYAFTER", 2147483647), "error 6: 溢出");
    EXPECT_EQ(keywordSql("9999-12-31", "TOMORROW"), "error 6: 溢出");
    EXPECT_EQ(keywordSql("9999-12-31", "NEXTMONTH"), "error 5: 无效的过程调用或参数");
}

TEST(DateKeywords, TestForEmptinessWithoutADate) {
    FakeSource noHost;
    const auto sql = [&](const char16_t* op, const char16_t* word) {
        return toUtf8(BuildDateKeywordSql(u"F", op, word, 9, noHost));
    };
    EXPECT_EQ(sql(u"=", u"ISNULL"), " (F='' OR F IS NULL) ");
    EXPECT_EQ(sql(u" <> ", u"NotIsNull"), " (F <> '' AND NOT F IS NULL) ");
    EXPECT_EQ(sql(u"=", u"NEVER"), "F=  ");
    EXPECT_EQ(sql(u" BETWEEN ", u""), "F BETWEEN   ");
    EXPECT_EQ(noHost.timesAskedToday, 0);
}

TEST(ConditionSql, TakesKeywordsAndDayCountsFromTheRow) {
    struct RowCase {
        int colType;
        CompareEntry entry;
        const char* value;
        const char* expected;
    };
    const char* overflow = "error 6: 溢出";
    const RowCase cases[] = {
        {0, keyword("=", "ISNULL"), "9e99",
         "(  (convert(char(10),F,120)='' OR convert(char(10),F,120) IS NULL)  ) AND"},
        {1, keyword("<>", "NOTISNULL"), "", "(  (F<>'' AND NOT F IS NULL)  ) AND"},
        {2, keyword("<>", ""), "5", "( F<>   ) AND"},
        {0, keyword(" BETWEEN ", "today"), "x",
         "( convert(char(10),F,120) BETWEEN  '2024-02-29' AND '2024-02-29 23:59:59'  ) AND"},
        // The day count is rounded to a whole number, ties to even; what is no number counts no days.
        {0, keyword(" BETWEEN ", "TODAYBEFORE", true), " 2.5 ",
         "( convert(char(10),F,120) BETWEEN  '2024-02-27' AND '2024-02-29 23:59:59'  ) AND"},
        {5, keyword(" BETWEEN ", "todaybefore", true), "3.5 days",
         "( F BETWEEN  '2024-02-25' AND '2024-02-29 23:59:59'  ) AND"},
        {5, keyword(" BETWEEN ", "TODAYAFTER", false), "abc",
         "( F BETWEEN  '2024-02-29' AND '2024-02-29 23:59:59'  ) AND"},
        {0, keyword(" BETWEEN ", "TODAYAFTER", true), "2147483647.5", overflow},
        {0, keyword(" BETWEEN ", "TODAYAFTER", true), "9e99", overflow},
        // With a typed value any other keyword is of no account.
        {0, keyword("=", "TODAY", true), "2024/2/5", "( convert(char(10),F,120)=  '2024-02-05'   ) AND"},
    };
    for (const RowCase& c : cases) {
        FakeSource source;
        source.today = "2024-02-29";
        EXPECT_EQ(outcome([&] { return BuildConditionSql(row(c.colType, c.entry, c.value), source); }), c.expected)
            << toUtf8(c.entry.FValue) << " of type " << c.colType << " with value " << c.value;
    }
}

} // namespace
} // namespace orv::conditions
