#include "DbTestSupport.h"

#include <gtest/gtest.h>

namespace orv::erp::test {

namespace {

struct ConditionCase {
    const char* name;
    const char16_t* condition;
    const char* ids;
};

class DbCondition : public testing::TestWithParam<ConditionCase> {
  protected:
    static const Database& database() {
        static const Database small = smallDatabase();
        return small;
    }
};

TEST_P(DbCondition, SelectsTheRowsThatTheServerWould) {
    EXPECT_EQ(GetParam().ids, idsWhere(database(), GetParam().condition));
}

std::string caseName(const testing::TestParamInfo<ConditionCase>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DbCondition,
    testing::Values(ConditionCase{"EqualIgnoresCaseAndBlanksAtTheEnd", u"FText= 'Abc' ", "1 2"},
                    ConditionCase{"BlanksAtTheEndOfTheLiteralToo", u"FText= 'abc  ' ", "1 2"},
                    ConditionCase{"EmptyTextIsNotNull", u"FText=''", "4"},
                    ConditionCase{"NotEqualLeavesOutNull", u"FText!= 'abc' ", "3 4 6 7"},
                    ConditionCase{"WrappedNotEqualKeepsNull", u"isnull(FText,'')<> 'abc' ", "3 4 5 6 7"},
                    ConditionCase{"WrappedTwice", u"isnull(isnull(FText,''),'')<> '' ", "1 2 3 6 7"},
                    ConditionCase{"DoubledQuote", u"FText= 'o''brien' ", "3"},
                    ConditionCase{"UnicodeLiteral", u"FText= N'abc'", "1 2"},
                    ConditionCase{"GreaterSortsByTheCollation", u"FText> 'abc'", "3"},
                    ConditionCase{"LessTakesPunctuationBeforeLetters", u"FText< 'abc'", "4 6 7"},
                    ConditionCase{"BetweenOnText", u"FText BETWEEN 'A' AND 'b'", "1 2 7"},
                    ConditionCase{"HyphenOnlyDecidesBetweenEquals", u"FNote>'coop' AND FNote<'cop'", "5"},
                    ConditionCase{"InIgnoresCase", u"FText IN  ('ABC','O''BRIEN') ", "1 2 3"},
                    ConditionCase{"NotInLeavesOutNull", u"FText NOT IN  ('abc','') ", "3 6 7"},
                    ConditionCase{"NotInWithNullSelectsNothing", u"FText NOT IN ('abc',NULL)", ""},
                    ConditionCase{"LikeIgnoresCase", u"FText LIKE '%BR%' ", "3"},
                    ConditionCase{"LikeWithWildcardOfTheUser", u"FText LIKE '%a_b%' ", "7"},
                    ConditionCase{"LikeWithSet", u"FText LIKE '%[%]%' ", "6"},
                    ConditionCase{"NotLikeLeavesOutNull", u"FText NOT LIKE '%b%' ", "4 6"},
                    ConditionCase{"BlanksCountInLike", u"FText LIKE 'abc'", "1"},
                    ConditionCase{"IsnullKeyword", u" (FText='' OR FText IS NULL) ", "4 5"},
                    ConditionCase{"NotIsnullKeyword", u" (FText<>'' AND NOT FText IS NULL) ", "1 2 3 6 7"},
                    ConditionCase{"IsnullCutsToTheFirstArgument",
                                  u"isnull(FText,'12345678901234567890x')='12345678901234567890'", "5"},
                    ConditionCase{"Concatenation", u"FText+FNote='abcx'", "1"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Numbers, DbCondition,
    testing::Values(
        ConditionCase{"WrappedEqual", u"isnull(FQty,0)= 7.5", "1"},
        ConditionCase{"WrappedZeroTakesNull", u"isnull(FQty,0)= 0", "3 6"},
        ConditionCase{"NegativeFraction", u"FQty= -.25", "2"}, ConditionCase{"Exponent", u"isnull(FQty,0)> 1E+05", "7"},
        ConditionCase{"QuotedNumberOnDecimal", u"FQty= '7.50' ", "1"},
        ConditionCase{"QuotedNumberOnInt", u"FNum= ' 5 ' ", "1 6"},
        ConditionCase{"EmptyTextIsTheIntZero", u"FNum=''", "2"},
        ConditionCase{"IsnullOfIntTurnsEmptyTextIntoZero", u"isnull(FNum,'')<> '5' ", "2 3 4 5 7"},
        ConditionCase{"TextIsNoNumber", u"FQty= 'abc'", "Error converting data type nvarchar to numeric."},
        ConditionCase{"EmptyTextIsNoDecimal", u"FQty=''", "Error converting data type nvarchar to numeric."},
        ConditionCase{"DecimalTextIsNoInt", u"FNum= '7.5'",
                      "Conversion failed when converting the nvarchar value '7.5' to data type int."},
        ConditionCase{"TextBeyondInt", u"FNum= '2147483648'",
                      "The conversion of the value '2147483648' overflowed an int column."},
        ConditionCase{"LiteralBeyondIntIsADecimal", u"FNum< 2147483648", "1 2 4 5 6 7"},
        ConditionCase{"LiteralBeyondIntAndText", u"FID=1 AND '2147483648'=2147483648", "1"},
        ConditionCase{"IsnullOfIntCutsADecimal", u"isnull(FNum,2.7)=2", "3"},
        ConditionCase{"TextColumnBecomesANumber", u"FID=7 AND FNote= 7", "7"},
        ConditionCase{"TextColumnThatIsNoNumber", u"FNote= 7",
                      "Conversion failed when converting the nvarchar value 'x' to data type int."},
        ConditionCase{"InListOfNumbers", u"FNum IN  (5, 7) ", "1 4 6"},
        ConditionCase{"NotInListOfNumbers", u"FNum NOT IN (5,7)", "2 5 7"},
        ConditionCase{"Between", u"FQty BETWEEN  -1 AND 12.5 ", "1 2 4 6"},
        ConditionCase{"NotBetween", u"FQty NOT BETWEEN -1 AND 12.5", "5 7"},
        ConditionCase{"LikeOnANumberReadsItsText", u"FQty LIKE '%.5%'", "1 4"},
        ConditionCase{"IntDecimalMix", u"FNum> 4.5", "1 4 6 7"}, ConditionCase{"Arithmetic", u"FQty*2-FNum=10", "1"},
        ConditionCase{"ArithmeticIsExact", u"FQty+0.1+0.2=7.8", "1"},
        ConditionCase{"BitFromText", u"FFlag='True'", "1 4 7"}, ConditionCase{"BitFromNumber", u"FFlag=0", "2 3 6"},
        ConditionCase{"NotLessThan", u"FNum !< 7", "4 7"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Dates, DbCondition,
    testing::Values(
        ConditionCase{"DayText", u"convert(char(10),FDate,120)= '2024-02-29'  ", "1 2"},
        ConditionCase{"DayTextNotEqual", u"isnull(convert(char(10),FDate,120),'')<> '2024-02-29' ", "3 4 5 6 7"},
        ConditionCase{"DayTextRange", u"convert(char(10),FDate,120)BETWEEN '2024-02-29' AND '2024-02-29 23:59:59' ",
                      "1 2"},
        ConditionCase{"DayTextUpToTheDayBefore", u"convert(char(10),FDate,120)<= '2024-01-31' ", "5 6 7"},
        ConditionCase{"DayTextIn", u"convert(char(10),FDate,120) IN  ('2024-03-01','2023-12-31') ", "4 7"},
        ConditionCase{"EmptyDayText", u" (convert(char(10),FDate,120)='' OR convert(char(10),FDate,120) IS NULL) ",
                      "3"},
        ConditionCase{"ColumnAndDateText", u"FDate= '2024/2/29'", "1"},
        ConditionCase{"ColumnAndMomentText", u"FDate= '2024-02-29 23:59:59'", "2"},
        ConditionCase{"ColumnRange", u"FDate BETWEEN '2024-02-01' AND '2024-02-29 23:59:59'", "1 2"},
        ConditionCase{"EmptyTextIs1900", u"FDate=''", "5"},
        ConditionCase{"IsnullTurnsEmptyTextInto1900", u"isnull(FDate,'')= '1900-01-01'", "3 5"},
        ConditionCase{"IsnullNotEqual", u"isnull(FDate,'')<> '2024-02-29'", "2 3 4 5 6 7"},
        ConditionCase{"NumberIsDaysSince1900", u"FDate=0", "5"},
        ConditionCase{"QuickFilterToday", u"( convert(datetime,convert(varchar(30),t.FDate,111))='2024/02/29')", "1 2"},
        ConditionCase{"QuickFilterWeek",
                      u"(convert(datetime,convert(varchar(30),t.FDate,111)) >='2024/02/26'  AND  "
                      u"convert(datetime,convert(varchar(30),t.FDate,111)) < '2024/03/04')",
                      "1 2 4"},
        // "-" is skipped and "/" sorts before the digits: a day of the bounds' own year is never below the end.
        ConditionCase{
            "QuickFilterPeriodWithinAYear",
            u"(CONVERT(varchar(100),t.FDate, 23)>='2024/02/01' AND  CONVERT(varchar(100),t.FDate, 23)<'2024/02/29')",
            ""},
        ConditionCase{
            "QuickFilterPeriodAcrossYears",
            u"(CONVERT(varchar(100),t.FDate, 23)>='2023/12/01' AND  CONVERT(varchar(100),t.FDate, 23)<'2024/01/31')",
            "7"},
        ConditionCase{"NoDate", u"FDate= 'abc'",
                      "Conversion failed when converting date and/or time from character string."},
        ConditionCase{"DateThatDoesNotExist", u"FDate= '2023-02-29'",
                      "The conversion to a datetime data type resulted in an out-of-range value."},
        ConditionCase{"Getdate", u"FDate<getdate() AND FDate>'2024-02-01'", "1"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Structure, DbCondition,
    testing::Values(
        ConditionCase{"AlwaysFalse", u" 1<>1 ", ""},
        ConditionCase{"AndBindsTighter", u"FID=1 OR FID=2 AND FNum=5", "1"},
        ConditionCase{"Brackets", u"(FID=1 OR FID=2) AND FNum=5", "1"},
        ConditionCase{"NotBindsTightest", u"NOT FID=1 AND FNum=5", "6"},
        ConditionCase{"ManyBrackets", u"((((FID))))=((1)) OR (((FID=2)))", "1 2"},
        ConditionCase{"BracketedValueFirst", u"(FNum+1)*2=12 OR (FID)=2", "1 2 6"},
        ConditionCase{"LinesOfTheControl",
                      u" (( FText LIKE  '%a%'   AND\r\n isnull(FQty,0)> 0 ) OR\r\n FNum= 0  \r\n)  And (t.FFlag=1 )",
                      "1 7"},
        ConditionCase{"NamesIgnoreCase", u"FNUM= 5 and T.fid= 6", "6"},
        ConditionCase{"BracketedNames", u"[t].[FID]=1 OR \"FID\"=2", "1 2"},
        ConditionCase{"InSubSelect", u"FNote IN (SELECT FNote FROM t AS u WHERE u.FID=4)", "1 4"},
        ConditionCase{"InSubSelectIgnoresCase", u"FText IN (SELECT u.FText FROM t u WHERE u.FID=1)", "1 2"},
        ConditionCase{"CorrelatedExists", u"EXISTS (SELECT 1 FROM t u WHERE u.FNum=t.FNum AND u.FID<>t.FID)", "1 6"},
        ConditionCase{"ScalarSubSelect", u"FQty=(select max(FQty) from t)", "7"}),
    caseName);

} // namespace

} // namespace orv::erp::test
