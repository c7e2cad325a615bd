#include "DbTestSupport.h"

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "erp/db/SqlError.h"

#include <gtest/gtest.h>

namespace orv::erp::test {

namespace {

using automation::Date;
using automation::Decimal;
using automation::Null;
using automation::Value;

class DbStatement : public testing::Test {
  protected:
    Database database_ = smallDatabase();
};

TEST_F(DbStatement, ValuesComeBackInTheTypesOfTheirColumns) {
    const ResultSet result = database_.query(u"SELECT * FROM t WHERE FID IN (1,2,3,7) ORDER BY FID");
    const std::vector<std::u16string> names = {u"FID", u"FText", u"FNote", u"FQty", u"FNum", u"FDate", u"FFlag"};
    EXPECT_EQ(names, result.columns);
    const std::vector<std::vector<Value>> rows = {
        {1, u"abc", u"x", Decimal{0, 750, 2, false}, 5, Date{45351}, true},
        {2, u"ABC ", Null{}, Decimal{0, 25, 2, true}, 0, Date{45351 + 86399.0 / 86400}, false},
        {3, u"O'Brien", u"", Null{}, Null{}, Null{}, false},
        {7, u"a_b[1]", u"7", Decimal{0, 100000001, 2, false}, 2147483647, Date{45291 + 86399.0 / 86400}, true}};
    EXPECT_EQ(rows, result.rows);
}

TEST_F(DbStatement, SelectListsGiveNamesAndValues) {
    struct Case {
        const char16_t* sql;
        std::vector<std::u16string> columns;
        const char* first;
    };
    const Case cases[] = {
        {u"Select getdate() ", {u""}, "2024/2/29 10:30:00"},
        {u"select fid AS 编号, FText FROM t", {u"编号", u"FText"}, "1 | abc"},
        {u"SELECT t.*, 1 AS [one more] FROM t",
         {u"FID", u"FText", u"FNote", u"FQty", u"FNum", u"FDate", u"FFlag", u"one more"},
         "1 | abc | x | 7.5 | 5 | 2024/2/29 | True | 1"},
        {u"SELECT COUNT(*), COUNT(FQty), COUNT(DISTINCT FNum), SUM(FQty), MIN(FText), MAX(FDate) FROM t",
         {u"", u"", u"", u"", u"", u""},
         "7 | 6 | 5 | 1000119.76 |  | 2024/3/1"},
        {u"SELECT TOP 1 FID FROM t ORDER BY FNum DESC", {u"FID"}, "7"},
        {u"SELECT TOP (1) FText AS n FROM t ORDER BY n DESC", {u"n"}, "O'Brien"},
        {u"SELECT FID, FNum FROM t WHERE FNum>0 ORDER BY 2, t.FID DESC", {u"FID", u"FNum"}, "6 | 5"},
        {u"SELECT FQty FROM t ORDER BY FQty", {u"FQty"}, "NULL"}, // the server sorts NULL first
        {u"SELECT convert(varchar(3),FText)+'!', cast('12' as int)+1, convert(decimal(9,1),FQty*3) FROM t WHERE FID=7",
         {u"", u"", u""},
         "a_b! | 13 | 3000000"},
        {u"SELECT convert(char(10),FDate,120), convert(varchar(5),FNum), convert(varchar(30),FQty) FROM t WHERE FID=2",
         {u"", u"", u""},
         "2024-02-29 | 0 | -0.25"},
        {u"SELECT convert(char(6),FText)+'|' FROM t WHERE FID=1", {u""}, "abc   |"},
        {u"SELECT COUNT(*), (SELECT u.FText FROM t u WHERE u.FID=1) FROM t", {u"", u""}, "7 | abc"},
        {u"SELECT COUNT(a.FID) FROM t a JOIN t b ON a.FID=b.FID", {u""}, "7"},
        {u"SELECT (SELECT FText FROM t u WHERE u.FID=t.FID+1) FROM t WHERE FID=1", {u""}, "ABC "},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.columns, database_.query(c.sql).columns);
        EXPECT_EQ(c.first, firstRow(database_, c.sql));
    }
}

TEST_F(DbStatement, DistinctTakesTextsThatAreEqualForTheCollationAsOne) {
    EXPECT_EQ(6U, database_.query(u"SELECT DISTINCT FText FROM  t").rows.size());
    EXPECT_EQ(7U, database_.query(u"SELECT FText FROM  t").rows.size());
}

TEST_F(DbStatement, JoinsKeepOrDropRowsWithoutAPartner) {
    const auto rows = [&](std::u16string_view tsql) { return database_.query(tsql).rows.size(); };
    EXPECT_EQ(9U, rows(u"SELECT a.FID FROM t a LEFT OUTER JOIN t b ON a.FNum=b.FNum\r\n WHERE  a.FID =a.FID"));
    EXPECT_EQ(1U, rows(u"SELECT a.FID FROM t a LEFT JOIN t b ON a.FNum=b.FNum WHERE b.FID IS NULL"));
    EXPECT_EQ(8U, rows(u"SELECT a.FID FROM t a INNER JOIN t AS b ON a.FNum=b.FNum"));
    EXPECT_EQ(1U, rows(u"SELECT a.FID FROM t a JOIN t b ON a.FText=b.FText AND a.FID<>b.FID WHERE a.FID=1"));
    EXPECT_EQ(49U, rows(u"SELECT a.FID FROM t a CROSS JOIN t b"));
    EXPECT_EQ(7U, rows(u"SELECT a.FID FROM t a, t b WHERE a.FID=b.FID"));
}

TEST_F(DbStatement, ParametersStandForValuesOfTheirOwnType) {
    const auto count = [&](std::u16string_view condition, std::vector<Value> parameters) {
        return database_.query(std::u16string(u"SELECT FID FROM t WHERE ").append(condition), parameters).rows.size();
    };
    EXPECT_EQ(1U, count(u"FText=?", {Value(u"o'brien")}));
    EXPECT_EQ(2U, count(u"FNum=? AND FID>=?", {Value(u"5"), Value(1)}));
    EXPECT_EQ(1U, count(u"FDate=?", {Value(Date{45351})}));
    EXPECT_EQ(3U, count(u"FFlag=?", {Value(true)}));
    EXPECT_EQ(1U, count(u"FQty=?", {Value(7.5)}));
    EXPECT_EQ(1U, count(u"FQty=?", {Value(automation::Currency{75000})}));
    EXPECT_EQ(0U, count(u"FText=?", {Value(Null{})}));

    const auto failure = [&](std::u16string_view condition, std::vector<Value> parameters) {
        try {
            count(condition, std::move(parameters));
        } catch (const automation::AutomationError& error) {
            return automation::toUtf8(error.description());
        }
        return std::string();
    };
    EXPECT_EQ("The statement has more parameters than values were given.", failure(u"FText=?", {}));
    EXPECT_EQ("The statement has 0 parameters, but 1 values were given.", failure(u"FID=1", {Value(1)}));
    EXPECT_EQ("A parameter holds a value that no column can hold.", failure(u"FID=?", {Value(automation::Missing{})}));
}

TEST_F(DbStatement, ChangesConvertToTheTypeOfTheColumn) {
    EXPECT_EQ(1, database_.execute(
                     u"INSERT INTO t (FID, FText, FQty, FDate, FFlag) VALUES ('8', 42, '1.005', '2024/3/5', 7)"));
    EXPECT_EQ("8 | 42 | NULL | 1 | NULL | 2024/3/5 | True", firstRow(database_, u"SELECT * FROM t WHERE FID=8"));
    EXPECT_EQ(2,
              database_.execute(u"UPDATE t SET FNum=FNum+1, FNote=convert(varchar(20),FDate,112) WHERE FText='ABC'"));
    EXPECT_EQ("6 | 20240229", firstRow(database_, u"SELECT FNum, FNote FROM t WHERE FID=1"));
    EXPECT_EQ(3, database_.execute(u"DELETE FROM t WHERE isnull(FNum,0)<=0 OR FID=8"));
    EXPECT_EQ("1 2 4 6 7", idsWhere(database_, u"1=1"));
    EXPECT_EQ(5, database_.execute(u"DELETE t"));
}

TEST_F(DbStatement, AFailedChangeChangesNothing) {
    struct Case {
        const char16_t* sql;
        std::int32_t number;
    };
    const Case cases[] = {
        {u"UPDATE t SET FNum=FText", sqlError::conversion},
        {u"UPDATE t SET FText='a text of more than twenty characters'", sqlError::conversion},
        {u"UPDATE t SET FNum=FDate", sqlError::conversion},
        {u"UPDATE t SET FID=NULL WHERE FID=1", sqlError::constraint},
        {u"INSERT INTO t (FID, FNum) VALUES (100, 1), (1, 1)", sqlError::constraint},
        {u"INSERT INTO t (FID, FNope) VALUES (100, 1)", sqlError::command},
        {u"SELECT FID FROM t", sqlError::command},
    };
    const ResultSet before = database_.rawQuery("SELECT * FROM t");
    for (const Case& c : cases) {
        try {
            database_.execute(c.sql);
            ADD_FAILURE() << "no failure of case " << &c - cases;
        } catch (const automation::AutomationError& error) {
            EXPECT_EQ(c.number, error.number()) << error.what();
        }
        EXPECT_EQ(before.rows, database_.rawQuery("SELECT * FROM t").rows) << "case " << &c - cases;
    }
}

TEST_F(DbStatement, ATransactionTakesEffectAsAWholeOrNotAtAll) {
    {
        Database::Transaction transaction(database_);
        database_.execute(u"DELETE FROM t WHERE FID=1");
    }
    EXPECT_EQ("1", idsWhere(database_, u"FID=1"));
    {
        Database::Transaction transaction(database_);
        database_.execute(u"DELETE FROM t WHERE FID=1");
        transaction.commit();
    }
    EXPECT_EQ("", idsWhere(database_, u"FID=1"));
}

TEST_F(DbStatement, TheClockIsTheHostsToSet) {
    database_.setNow(Date{45000.75});
    EXPECT_EQ(Date{45000.75}, database_.now());
    EXPECT_EQ("2023/3/15 18:00:00", firstRow(database_, u"Select getdate() "));
    EXPECT_THROW(database_.setNow(Date{-1e9}), automation::AutomationError);
}

struct RefusalCase {
    const char* name;
    const char16_t* sql;
    const char* description;
    std::int32_t number = sqlError::command;
};

class DbRefusal : public testing::TestWithParam<RefusalCase> {};

TEST_P(DbRefusal, SaysWhatItDoesNotTake) {
    const Failure failure = failureOf(smallDatabase(), GetParam().sql);
    EXPECT_EQ(GetParam().description, failure.description);
    EXPECT_EQ(GetParam().number, failure.number);
}

std::string refusalName(const testing::TestParamInfo<RefusalCase>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Statements, DbRefusal,
    testing::Values(
        RefusalCase{"UnescapedQuote", u"SELECT FID FROM t WHERE FText= 'O'Brien' ",
                    "Unclosed quotation mark after the character string ' '."},
        RefusalCase{"TextAfterText", u"SELECT FID FROM t WHERE FText= 'a' 'b'", "Incorrect syntax near 'b'."},
        RefusalCase{"UnknownColumn", u"SELECT FNope FROM t", "Invalid column name 'FNope'."},
        RefusalCase{"UnknownQualifiedColumn", u"SELECT u.FID FROM t",
                    "The multi-part identifier \"u.FID\" could not be bound."},
        RefusalCase{"TableHiddenByItsAlias", u"SELECT t.FID FROM t u",
                    "The multi-part identifier \"t.FID\" could not be bound."},
        RefusalCase{"UnknownTable", u"SELECT * FROM t_Nope", "Invalid object name 't_Nope'.", sqlError::noTable},
        RefusalCase{"AmbiguousColumn", u"SELECT FID FROM t a, t b", "Ambiguous column name 'FID'."},
        RefusalCase{"OneNameForTwoTables", u"SELECT t.FID FROM t, T",
                    "The objects 't' and 't' in the FROM clause have the same exposed names."},
        RefusalCase{"UnknownFunction", u"SELECT len(FText) FROM t", "'len' is not an accepted function."},
        RefusalCase{"UnknownStyle", u"SELECT convert(varchar(20),FDate,5) FROM t",
                    "5 is not an accepted style of CONVERT."},
        RefusalCase{"UnknownType", u"SELECT convert(xml,FText) FROM t", "Type xml is not an accepted data type."},
        RefusalCase{"Union", u"SELECT FID FROM t UNION SELECT FID FROM t",
                    "Incorrect syntax near the keyword 'UNION'."},
        RefusalCase{"Grouping", u"SELECT FNum FROM t GROUP BY FNum", "Incorrect syntax near the keyword 'GROUP'."},
        RefusalCase{"CaseExpression", u"SELECT CASE WHEN 1=1 THEN 2 END FROM t",
                    "Incorrect syntax near the keyword 'CASE'."},
        RefusalCase{"RightJoin", u"SELECT a.FID FROM t a RIGHT JOIN t b ON a.FID=b.FID",
                    "Incorrect syntax near the keyword 'RIGHT'."},
        RefusalCase{"LikeEscape", u"SELECT FID FROM t WHERE FText LIKE 'a' ESCAPE '!'",
                    "Incorrect syntax near 'ESCAPE'."},
        RefusalCase{"TwoStatements", u"SELECT FID FROM t; DELETE FROM t", "Incorrect syntax near ';'."},
        RefusalCase{"TwoStatementsWithoutSemicolon", u"SELECT FID FROM t DELETE FROM t",
                    "Incorrect syntax near the keyword 'DELETE'."},
        RefusalCase{"Comment", u"SELECT FID FROM t -- all", "Comments are not accepted."},
        RefusalCase{"BlockComment", u"SELECT /* all */ FID FROM t", "Comments are not accepted."},
        RefusalCase{"Variable", u"SELECT @@version", "Incorrect syntax near '@'."},
        RefusalCase{"DataDefinition", u"DROP TABLE t", "Incorrect syntax near 'DROP'."},
        RefusalCase{"Nothing", u"  ", "Incorrect syntax: the statement ends too early."},
        RefusalCase{"MissingValue", u"SELECT FID FROM t WHERE FID=", "Incorrect syntax: the statement ends too early."},
        RefusalCase{"ValueAsCondition", u"SELECT FID FROM t WHERE (FFlag)",
                    "Incorrect syntax: the statement ends too early."},
        RefusalCase{"OpenBracket", u"SELECT FID FROM t WHERE (FID=1", "Incorrect syntax: a bracket is not closed."},
        RefusalCase{"CloseBracket", u"SELECT FID FROM t WHERE FID=1)", "Incorrect syntax near ')'."},
        RefusalCase{"EmptyInList", u"SELECT FID FROM t WHERE FID IN  () ", "Incorrect syntax near ')'."},
        RefusalCase{"InSubSelectOfAnotherType", u"SELECT FID FROM t WHERE FID IN (SELECT FText FROM t)",
                    "IN with a sub-select of another data type is not accepted."},
        RefusalCase{"AggregateBesideAColumn", u"SELECT FID, COUNT(*) FROM t",
                    "A select list must not mix aggregates and columns outside of them."},
        RefusalCase{"OrderByPosition", u"SELECT FID FROM t ORDER BY 2",
                    "The ORDER BY position number 2 is out of range."},
        RefusalCase{"DateArithmetic", u"SELECT getdate()-7", "The operator '-' is not accepted for these data types."},
        RefusalCase{"NoQuery", u"DELETE FROM t", "The statement returns no rows: it is no SELECT."}),
    refusalName);

TEST(DbRefusalOfDepth, ThousandsOfBracketsEndInAnErrorAndNotInACrash) {
    const Database database = smallDatabase();
    const std::u16string many(5000, u'(');
    EXPECT_EQ("Some part of your SQL statement is nested too deeply.",
              idsWhere(database, many + u"FID=1" + std::u16string(5000, u')')));
    EXPECT_EQ("Some part of your SQL statement is nested too deeply.",
              idsWhere(database, u"FID=" + many + u"1" + std::u16string(5000, u')')));
    std::u16string minuses;
    for (int i = 0; i < 5000; ++i)
        minuses += u"- ";
    EXPECT_EQ("Some part of your SQL statement is nested too deeply.", idsWhere(database, u"FID=" + minuses + u"1"));
}

} // namespace

} // namespace orv::erp::test
