#include "erp/host/BillList.h"
#include "HostTesting.h"
#include "automation/AutomationError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace orv::erp {
namespace {

using namespace testing;
using automation::AutomationError;

/// Two bills, one of them with two entries of either page.
constexpr const char* twoBills = R"({
  "classTypes": [{"FID": 7, "FName": "单",
    "pages": [{"FName": "头", "FTableName": "t_B"}, {"FName": "行", "FTableName": "t_E"},
              {"FName": "费", "FTableName": "t_F"}],
    "list": {"from": "t_B", "key": "t_B.FNo", "entryKey": "FEntryID", "joins": [
      {"table": "t_E", "clause": "LEFT OUTER JOIN t_E ON t_E.FBill=t_B.FNo"},
      {"table": "t_Goods", "needs": "t_E", "clause": "LEFT OUTER JOIN t_Goods ON t_Goods.FID=t_E.FGoods"},
      {"table": "t_F", "clause": "LEFT OUTER JOIN t_F ON t_F.FBill=t_B.FNo"}]},
    "fields": [
      {"FKey": "No", "FCaption": "编号", "FFieldName": "t_B.FNo", "FFieldNameExt": "t_B.FNo"},
      {"FKey": "Cur", "FFieldName": "t_B.FCur", "FFieldNameExt": "t_B.FCur", "FSrcTableName": "t_Cur",
       "FSRCFieldName": "FID", "FDSPFieldName": "FName", "FVisible": false},
      {"FKey": "Way", "FFieldName": "t_B.FWay", "FFieldNameExt": "t_B.FWay",
       "FLookUpList": "SQL{SELECT FID, FName FROM t_Way}"}]}],
  "tables": {
    "t_B": [{"FNo": "B1", "FAmount": 10.25, "FCur": 1, "FWay": 2}, {"FNo": "B2", "FAmount": 5, "FCur": 9, "FWay": null}],
    "t_E": [{"FBill": "B1", "FEntryID": 1, "FGoods": 1, "FQty": 3}, {"FBill": "B1", "FEntryID": 2, "FGoods": 2, "FQty": 4}],
    "t_F": [{"FBill": "B1", "FEntryID": 1, "FFee": 0.5}, {"FBill": "B1", "FEntryID": 2, "FFee": 0.25}],
    "t_Goods": [{"FID": 1, "FName": "甲"}, {"FID": 2, "FName": "乙"}],
    "t_Cur": [{"FID": 1, "FName": "人民币"}],
    "t_Way": [{"FID": 2, "FName": "电汇"}]
  }
})";

const BillColumn number{.key = u"No", .expression = u"t_B.FNo"};
const BillColumn amount{.key = u"Amount", .expression = u"t_B.FAmount", .isSummed = true};
const BillColumn quantity{.key = u"Qty", .expression = u"t_E.FQty", .page = 2, .isSummed = true};
const BillColumn goods{.key = u"Goods", .expression = u"t_Goods.FName", .page = 2};
const BillColumn fee{.key = u"Fee", .expression = u"t_F.FFee", .page = 3, .isSummed = true};

/// One text a row, cells with "|" between.
std::vector<std::string> rowsOf(const BillList& list) {
    std::vector<std::string> rows;
    for (const auto& row : list.records.rows) {
        std::string text;
        for (const auto& cell : row)
            text += (text.empty() ? "" : "|") + (cell.isNull() ? "-" : utf8(cell));
        rows.push_back(text);
    }
    return rows;
}

TEST(BillLists, TheHeaderAloneGivesARowForEachBill) {
    const BillColumn columns[] = {number, amount};
    const BillList list = describe(twoBills)->billList(7, columns, u"", u"t_B.FNo", u"");
    EXPECT_EQ(rowsOf(list), (std::vector<std::string>{"B1|10.25|True", "B2|5|True"}));
    EXPECT_EQ(list.sums, (std::vector<double>{0, 15.25}));
    EXPECT_EQ(list.bills, 2u);
}

TEST(BillLists, AConditionOnEntriesRepeatsNoBill) {
    const BillColumn columns[] = {number, amount};
    const BillList list = describe(twoBills)->billList(7, columns, u"t_E.FQty>1", u"", u"");
    EXPECT_EQ(rowsOf(list), (std::vector<std::string>{"B1|10.25|True"}));
    EXPECT_EQ(list.sums[1], 10.25);
}

TEST(BillLists, EntriesAreRowsAndTheirBillCountsOnce) {
    const BillColumn columns[] = {number, amount, quantity, goods};
    const BillList list = describe(twoBills)->billList(7, columns, u"", u"t_B.FNo", u"t_E.FQty DESC");
    EXPECT_EQ(rowsOf(list),
              (std::vector<std::string>{"B1|10.25|4|乙|True|True", "B1|10.25|3|甲|False|True", "B2|5|-|-|True|True"}));
    EXPECT_EQ(list.sums, (std::vector<double>{0, 15.25, 7, 0}));
    EXPECT_EQ(list.bills, 2u);
}

TEST(BillLists, TwoEntryPagesCombineAndEachEntryCountsOnce) {
    const BillColumn columns[] = {amount, quantity, fee};
    const BillList list = describe(twoBills)->billList(7, columns, u"", u"", u"");
    EXPECT_EQ(list.records.rows.size(), 5u);
    EXPECT_EQ(list.sums, (std::vector<double>{15.25, 7, 0.75}));
}

TEST(BillLists, StoredKeysAreShownByName) {
    const BillColumn columns[] = {{.key = u"Cur", .expression = u"t_B.FCur"},
                                  {.key = u"Way", .expression = u"t_B.FWay"}};
    const BillList list = describe(twoBills)->billList(7, columns, u"", u"t_B.FNo", u"");
    EXPECT_EQ(rowsOf(list), (std::vector<std::string>{"人民币|电汇|True", "9|-|True"})) << "unknown keys stay";
}

TEST(BillLists, FaultsOfTheTextsAreTheServers) {
    const BillColumn columns[] = {number};
    const auto host = describe(twoBills);
    EXPECT_THROW(host->billList(7, columns, u"t_B.FNoSuch=1", u"", u""), AutomationError);
    EXPECT_THROW(host->billList(8, columns, u"", u"", u""), AutomationError);
}

TEST(BillLists, EveryClassTypeOfTheErpShowsAllItsColumns) {
    const auto erp = openErp();
    const auto types = erp->classTypes();
    EXPECT_EQ(types.count(), 7);
    for (std::int32_t i = 1; i <= types.count(); ++i) {
        const std::int32_t id = automation::toInt32(types.record(i).get(u"FID"));
        SCOPED_TRACE(id);
        const auto service = erp->dataService(id);
        const auto tableInfo = record(automation::get(service, u"TableInfo"));
        const auto selectList = collection(automation::get(service, u"SelectList"));
        std::vector<BillColumn> columns;
        for (std::int32_t item = 1; item <= selectList.count(); ++item) {
            const std::u16string key = automation::toText(selectList.record(item).get(u"Fkey"));
            const auto field = record(tableInfo.get(key));
            const std::int32_t page = automation::toInt32(field.get(u"FPage"));
            if (page <= 2)
                columns.push_back({.key = key,
                                   .expression = automation::toText(field.get(u"FFieldNameExt")),
                                   .page = page,
                                   .isSummed = automation::toInt32(field.get(u"FSum")) != 0});
        }
        const BillList list = erp->billList(id, columns, u"", u"", u"");
        EXPECT_EQ(list.bills, erp->list(id, u"", u"", u"", 0).bills);
        EXPECT_GE(list.records.rows.size(), list.bills);
    }
}

TEST(HostUsers, LogOnMakesAUserOfTheDatabaseTheCurrentOne) {
    const auto erp = openErp();
    erp->logOn(u"李强", u"CHT");
    EXPECT_EQ(utf8(erp->props()), "UserID=3;UserName=李强;Language=CHT;ItemNaming=物料");
    erp->logOn(u"", u"CHS");
    EXPECT_EQ(utf8(erp->props()), "UserID=1;UserName=Admin;Language=CHS;ItemNaming=物料");
    for (const char16_t* nobody : {u"no such user", u"O'Brien"})
        EXPECT_THROW(erp->logOn(nobody, u"CHS"), AutomationError) << utf8(nobody);
    EXPECT_EQ(utf8(erp->props()).substr(0, 8), "UserID=1");
}

} // namespace
} // namespace orv::erp
