#include "DbTestSupport.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "erp/db/Schema.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace orv::erp::test {

namespace {

const Database& sample() {
    static const Database database{std::string(Database::inMemory)};
    return database;
}

std::int32_t countOf(std::string_view tableAndCondition) {
    return automation::toInt32(
        sample().rawQuery("SELECT count(*) FROM " + std::string(tableAndCondition)).rows.front().front());
}

/// FNV-1a over every value of every table, by its text in SQLite's notation.
std::uint64_t checksum(const Database& database) {
    std::uint64_t sum = 0xCBF29CE484222325U;
    const auto add = [&](std::u16string_view text) {
        for (const char16_t unit : text)
            sum = (sum ^ unit) * 0x100000001B3U;
    };
    const ResultSet columns = database.rawQuery(
        "SELECT s.name, group_concat('quote(\"' || c.name || '\")', ' || '','' || ') FROM sqlite_schema s, "
        "pragma_table_info(s.name) c WHERE s.type = 'table' GROUP BY s.name ORDER BY s.name");
    for (const auto& table : columns.rows) {
        const std::u16string name = automation::toText(table[0]);
        const std::u16string all = automation::toText(table[1]);
        std::string sql = "SELECT ";
        for (const char16_t unit : all + u" FROM " + name + u" ORDER BY rowid")
            sql.push_back(static_cast<char>(unit)); // names are ASCII
        add(name);
        for (const auto& row : database.rawQuery(sql).rows)
            add(automation::toText(row.front()));
    }
    return sum;
}

TEST(DbSample, HoldsTwentyThousandBills) {
    struct Case {
        const char* table;
        int rows;
    };
    constexpr Case cases[] = {{"t_RP_RBill", 5000},   {"t_RP_PBill", 4000},  {"t_SO_Delivery", 5000},
                              {"ICHourlywage", 2000}, {"ICPiecewage", 2000}, {"t_GL_Voucher", 2000},
                              {"t_user", 4},          {"t_ClassType", 7},    {"ICClassProfile", 0}};
    for (const Case& c : cases)
        EXPECT_EQ(c.rows, countOf(c.table)) << c.table;
}

TEST(DbSample, EveryReferenceHasItsRow) {
    struct Case {
        const char *table, *column, *target, *key;
    };
    constexpr Case cases[] = {{"t_RP_RBill", "FCustomer", "t_Customer", "FItemID"},
                              {"t_RP_RBill", "FEmployee", "t_Employee", "FItemID"},
                              {"t_RP_RBill", "FSettleTypeID", "t_SettleType", "FItemID"},
                              {"t_RP_RBill", "FCurrencyID", "t_Currency", "FItemID"},
                              {"t_RP_RBillEntry", "FBillID", "t_RP_RBill", "FBillID"},
                              {"t_RP_RBillSettle", "FSourceBillNo", "t_SO_Delivery", "FBillNo"},
                              {"t_RP_PBill", "FSupplier", "t_Supplier", "FItemID"},
                              {"t_RP_PBillEntry", "FBillID", "t_RP_PBill", "FBillID"},
                              {"t_SO_Delivery", "FTransportID", "t_AuxData", "FItemID"},
                              {"t_SO_DeliveryEntry1", "FGoodsID", "t_Goods", "FItemID"},
                              {"t_SO_DeliveryEntry2", "FBillID", "t_SO_Delivery", "FBillID"},
                              {"t_SO_DeliveryEntry3", "FBillID", "t_SO_Delivery", "FBillID"},
                              {"ICHourlywage", "FReasonID", "t_AuxData", "FItemID"},
                              {"ICPiecewage", "FGoodsID", "t_Goods", "FItemID"},
                              {"t_GL_VoucherEntry", "FAccountID", "t_Account", "FAccountID"},
                              {"t_Goods", "FUnitID", "t_Unit", "FItemID"},
                              {"t_Customer", "FDepartmentID", "t_Department", "FItemID"}};
    for (const Case& c : cases) {
        const std::string from = c.table;
        EXPECT_GT(countOf(from + " WHERE " + c.column + " IS NOT NULL"), 0) << c.table << "." << c.column;
        EXPECT_EQ(0, countOf(from + " WHERE " + c.column + " IS NOT NULL AND " + c.column + " NOT IN (SELECT " + c.key +
                             " FROM " + c.target + ")"))
            << c.table << "." << c.column;
    }
}

TEST(DbSample, HoldsTheTextsAndDatesThatFiltersStumbleOver) {
    for (const char* condition : {
             "t_RP_RBill WHERE FExplanation IS NULL",
             "t_RP_RBill WHERE FExplanation = ''",
             "t_RP_RBill WHERE FExplanation LIKE '% '",
             "t_RP_RBill WHERE FExplanation LIKE '%''%'",
             "t_RP_RBill WHERE instr(FExplanation, '%') > 0",
             "t_RP_RBill WHERE instr(FExplanation, '_') > 0",
             "t_RP_RBill WHERE instr(FExplanation, '[') > 0",
             "t_RP_RBill WHERE FExplanation = 'abc'",
             "t_RP_RBill WHERE FExplanation = 'ABC'",
             "t_RP_RBill WHERE FDate IS NULL",
             "t_RP_RBill WHERE FDate = '2024-02-29 00:00:00'",
             "t_RP_RBill WHERE FDate = '2024-02-29 23:59:59'",
             "t_RP_RBill WHERE FDate = '2024-03-31 00:00:00'",
             "t_RP_RBill WHERE FDate LIKE '2023%' AND FDate NOT LIKE '% 00:00:00'",
             "t_RP_RBill WHERE FAmount < 0",
             "t_RP_RBill WHERE FAmount IS NULL",
             "t_RP_RBill WHERE FAmount = 0",
             "t_RP_RBill WHERE FAmount <> CAST(FAmount AS INTEGER)",
             "t_RP_RBill WHERE FStatus = 0 AND FChecker IS NULL",
             "t_RP_RBill WHERE FStatus = 1 AND FVoucherId > 0",
             "ICHourlywage WHERE FClsID <> 1",
             "ICPiecewage WHERE FClsID = 2",
         })
        EXPECT_GT(countOf(condition), 0) << condition;
    EXPECT_EQ(0, countOf("t_RP_RBill WHERE FStatus = 0 AND FVoucherId > 0"));
    EXPECT_EQ(2, countOf("t_Period WHERE FCurrent = 1"));
}

// The expected sum is that of the first release: the other platforms and later releases must give the same data.
TEST(DbSample, IsTheSameEveryTimeAndEverywhere) {
    const Database again{std::string(Database::inMemory)};
    EXPECT_EQ(checksum(sample()), checksum(again));
    EXPECT_EQ(13378339539845738235U, checksum(sample()));
}

TEST(DbSample, EveryColumnIsReadableThroughItsDeclaredType) {
    for (const auto& row : sample().rawQuery("SELECT name FROM sqlite_schema WHERE type = 'table'").rows) {
        const std::u16string table = automation::toText(row.front());
        EXPECT_NO_THROW(sample().query(u"SELECT * FROM " + table)) << std::string(table.begin(), table.end());
    }
}

class DbSampleFile : public testing::Test {
  protected:
    ~DbSampleFile() override {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
    }
    const std::filesystem::path path_ =
        std::filesystem::temp_directory_path() /
        ("orv-erp-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
         std::to_string(reinterpret_cast<std::uintptr_t>(this)) + ".db");
};

TEST_F(DbSampleFile, KeepsChangesFromOneOpeningToTheNext) {
    {
        Database database{path_.string()};
        EXPECT_EQ(4, database.execute(u"UPDATE t_user SET FDisabled=1"));
    }
    const Database database{path_.string()};
    EXPECT_EQ("4", firstRow(database, u"SELECT count(*) FROM t_user WHERE FDisabled=1"));
    EXPECT_EQ("5000", firstRow(database, u"SELECT count(*) FROM t_RP_RBill"));
}

TEST_F(DbSampleFile, IsNotAnyFile) {
    std::ofstream(path_) << "this is no database, only a text of some length that a header would fit into ...........";
    EXPECT_THROW(Database{path_.string()}, automation::AutomationError);
    EXPECT_THROW(Database{(path_ / "missing" / "folder.db").string()}, automation::AutomationError);
}

TEST(DbSampleQueries, WholeFiltersFindWhatPlainSqlFinds) {
    struct Case {
        const char* name;
        const char16_t* tsql;
        const char* plain;
    };
    constexpr Case cases[] = {
        {"February's audited receipts",
         u"SELECT t_RP_RBill.FBillID FROM t_RP_RBill WHERE  (  convert(char(10),t_RP_RBill.FDate,120)BETWEEN  "
         u"'2024-02-01' AND "
         u"'2024-02-29 23:59:59'    \r\n)  And (t_RP_RBill.FStatus=1 )",
         "t_RP_RBill WHERE FDate >= '2024-02-01' AND FDate < '2024-03-01' AND FStatus = 1"},
        {"receipts of a customer by any letter case",
         u"SELECT b.FBillID FROM t_RP_RBill b INNER JOIN t_Customer c ON b.FCustomer=c.FItemID WHERE c.FName= 'orion "
         u"TRADING' ",
         "t_RP_RBill WHERE FCustomer IN (SELECT FItemID FROM t_Customer WHERE FNumber IN "
         "('C000002','C000003','C000004'))"},
        {"large amounts or none",
         u"SELECT FBillID FROM t_RP_RBill WHERE  ( isnull(FAmount,0)> 900000.5  OR\r\n isnull(FAmount,0)= 0  \r\n) ",
         "t_RP_RBill WHERE FAmount > 900000.5 OR FAmount = 0 OR FAmount IS NULL"},
        {"this week's deliveries",
         u"SELECT T.FBillID FROM t_SO_Delivery T WHERE (convert(datetime,convert(varchar(30),T.FDate,111)) "
         u">='2024/02/26'  AND  "
         u"convert(datetime,convert(varchar(30),T.FDate,111)) < '2024/03/04')",
         "t_SO_Delivery WHERE FDate >= '2024-02-26' AND FDate < '2024-03-04'"},
        {"wage class", u"SELECT FBillID FROM ICHourlywage WHERE ICHourlywage.FClsID= 1 and ICHourlywage.FVoucherId=0 ",
         "ICHourlywage WHERE FClsID = 1 AND FVoucherId = 0"},
    };
    for (const Case& c : cases) {
        const std::size_t found = sample().query(c.tsql).rows.size();
        EXPECT_GT(found, 0U) << c.name;
        EXPECT_EQ(countOf(c.plain), static_cast<int>(found)) << c.name;
    }
}

TEST(DbSampleQueries, BaseDataStatementReachesTheSecondTable) {
    EXPECT_EQ("销售一部",
              firstRow(sample(),
                       u"SELECT t_Customer_t_Department.FName FROM t_Customer LEFT OUTER JOIN t_Department "
                       u"t_Customer_t_Department ON t_Customer.FDepartmentID=t_Customer_t_Department.FItemID\r\n "
                       u"WHERE  t_Customer.FItemID =7"));
}

TEST(DbSampleQueries, SchemeOwnersAreFound) {
    Database database{std::string(Database::inMemory)};
    database.execute(
        u"INSERT INTO ICClassProfile (FSchemeID, FSchemeName, FTranType, FSysName, FStatus, FIsShare, FUserID) "
        u"VALUES (5, 'O''Brien''s', 1000201, '', 0, 1, 4)");
    EXPECT_EQ("O'Brien",
              firstRow(database, u"select Fname as Fname from t_user where Fuserid=(SELECT Fuserid  as Fuserid FROM "
                                 u"ICClassProfile WHERE FSchemeID=5)"));
    EXPECT_EQ("O'Brien",
              firstRow(database, u"select Fname as Fname from t_user where Fuserid=(select Fuserid from ICClassProfile "
                                 u"where FSchemeName='O''Brien''s' and Fisshare=1  and Ftrantype=1000201)"));
    EXPECT_EQ("no row", firstRow(database, u"select FName  as FName From t_user  where FUserid=99"));
}

} // namespace

} // namespace orv::erp::test
