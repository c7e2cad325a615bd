#include "HostTesting.h"
#include "automation/AutomationError.h"
#include "erp/db/Database.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

// Hosts that a scenario file describes.
namespace orv::erp {
namespace {

using namespace testing;
using automation::Argument;
using automation::AutomationError;
using automation::Dictionary;
using automation::get;
using automation::ObjectRef;
using automation::toInt32;
using automation::Value;

constexpr std::string_view smallHost = R"json({
  "classTypes": [
    {"FID": 12, "FName": "入库单", "FNote": null, "TypeList": true, "clsID": 5,
     "pages": [{"FName": "单据头", "FEntryType": 0}, {"FName": "明细", "FEntryType": 1}],
     "period": {"result": false, "year": 2023, "period": 7, "start": "2023-07-01"},
     "tableInfo": {"Setting": {"Lookup": "类别"}, "Number": 7},
     "fields": [
       {"FKey": "FDate", "FCaption": "日期", "FColType": 0, "FPage": 1, "FCondition": "dates", "FScale": 1.5,
        "FBig": 3000000000, "FTags": ["a", 2], "FNothing": null},
       {"FKey": "FQty", "FCaption": "数量", "FColType": 6, "FPage": 2, "FVisible": 0, "Decimal": 1, "FMustGet": 1}]},
    {"FID": 34, "FName": "出库单", "pages": [], "fields": [], "selectList": [{"Fkey": "FX", "FVisible": true}]}],
  "conditions": {"dates": [{"FName": "等于", "FOperate": "=", "FInput": true, "FInputCtlType": "0"}]},
  "baseFields": [{"FClassTypeID": 1, "FFieldName": "FA", "FLookUpType": 2}, {"FClassTypeID": 2, "FFieldName": "FB"}],
  "tables": {"t_Stock": [{"FItemID": 1, "FName": "Bolt", "FQty": 2.5, "FDate": "2024-02-29 08:00:00", "FOk": true},
                         {"FItemID": 2, "FName": "nut"}],
             "t_Empty": {"types": {"FDay": "datetime", "FAmount": "decimal(18,2)"}, "rows": []}},
  "settings": {"QtyDecimal": 3, "Lookup": {"数量": "FQty"}},
  "fieldDefaults": {"FVisible": true, "FSum": 0, "FCaption": "?"}
})json";

TEST(DescribedHost, HandsEveryKeyThroughAsItIsWritten) {
    const auto host = describe(smallHost);
    const ObjectRef service = host->dataService(12);
    const Dictionary field = record(record(get(service, u"TableInfo")).get(u"FDate"));
    EXPECT_EQ(utf8(field.get(u"FCaption")), "日期") << "a default does not replace what is written";
    EXPECT_TRUE(field.get(u"FColType").is<std::int32_t>());
    EXPECT_TRUE(field.get(u"FScale").is<double>());
    EXPECT_TRUE(field.get(u"FBig").is<double>()) << "beyond 32 bits";
    EXPECT_TRUE(field.get(u"FNothing").isNull());
    EXPECT_TRUE(field.get(u"FVisible").is<bool>()) << "from the defaults";
    EXPECT_EQ(utf8(collection(field.get(u"FTags")).item(1)), "a");
    const Dictionary type = record(get(service, u"ClassType"));
    EXPECT_TRUE(type.get(u"FNote").isNull());
    EXPECT_FALSE(type.exists(u"pages")) << "the parts of the description are no entries of the record";
    EXPECT_TRUE(automation::toBoolean(get(service, u"TypeList")));
    EXPECT_FALSE(automation::toBoolean(get(host->dataService(34), u"TypeList")));
    EXPECT_EQ(toInt32(host->defaultSettings().get(u"QtyDecimal")), 3);
}

TEST(DescribedHost, DerivesTheSelectListFromTheFields) {
    const auto host = describe(smallHost);
    const auto list = collection(get(host->dataService(12), u"SelectList"));
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(utf8(list.record(1).get(u"Fkey")), "FDate");
    EXPECT_TRUE(automation::toBoolean(list.record(1).get(u"FVisible")));
    EXPECT_FALSE(automation::toBoolean(list.record(2).get(u"FVisible")));
    EXPECT_EQ(toInt32(list.record(2).get(u"Decimal")), 1);
    EXPECT_EQ(toInt32(list.record(2).get(u"FMustGet")), 1);
    EXPECT_EQ(utf8(collection(get(host->dataService(34), u"SelectList")).record(1).get(u"Fkey")), "FX")
        << "a select list of its own, even of a field that is not there";
    const Dictionary table = record(get(host->dataService(12), u"TableInfo"));
    EXPECT_EQ(toInt32(table.get(u"PageCount")), 2);
    EXPECT_EQ(utf8(collection(table.get(u"Page2")).item(1)), "FQty");
    EXPECT_EQ(utf8(record(table.get(u"Setting")).get(u"Lookup")), "类别");
    EXPECT_EQ(toInt32(table.get(u"Number")), 7);
}

TEST(DescribedHost, ServesComparisonsAndBaseFields) {
    const ObjectRef service = describe(smallHost)->dataService(12);
    EXPECT_EQ(utf8(collection(automation::call(service, u"getCondition", u"dates")).record(1).get(u"FName")), "等于");
    const auto base = recordset(get(service, u"rsAllBase"));
    EXPECT_EQ(base.recordCount(), 2);
    base.setFilter(u"FClassTypeID=2 AND FFieldName='FB'");
    EXPECT_TRUE(base.field(u"FLookUpType").isNull()) << "what a row does not say";
}

TEST(DescribedHost, LoadsTablesWithTheTypesOfTheirValues) {
    const auto host = describe(smallHost);
    const auto rows = recordset(automation::call(host->dataService(12), u"GetData",
                                                 u"SELECT FName, FQty, FDate, FOk FROM t_Stock WHERE FQty>'2'"));
    ASSERT_EQ(rows.recordCount(), 1);
    EXPECT_EQ(utf8(rows.field(u"FName")), "Bolt");
    EXPECT_DOUBLE_EQ(automation::toNumber(rows.field(u"FQty")), 2.5);
    ASSERT_TRUE(rows.field(u"FDate").is<automation::Date>());
    EXPECT_NEAR(automation::toDate(rows.field(u"FDate")).days, 45351 + 8.0 / 24, 1e-6);
    EXPECT_TRUE(rows.field(u"FOk").is<bool>());
    EXPECT_EQ(recordset(automation::call(host->create(u"ORVMClass.ClassInfo"), u"GetData",
                                         u"SELECT FName FROM t_Stock WHERE FQty IS NULL", u""))
                  .recordCount(),
              1);
    EXPECT_TRUE(host->database().query(u"SELECT FDay, FAmount FROM t_Empty").rows.empty());
    EXPECT_TRUE(host->database().query(u"SELECT FBillNo FROM t_RP_RBill").rows.empty())
        << "the sample's tables are there, without rows";
}

TEST(DescribedHost, AnswersPeriodsAsDescribed) {
    const auto host = describe(smallHost);
    const auto ask = [&](const char16_t* member) {
        Value year = std::int32_t{1};
        Value period = std::int32_t{2};
        Value start = automation::Date{3};
        Value end = automation::Date{4};
        const bool known = automation::toBoolean(
            automation::call(host->create(u"ORVListServer.clsListServer"), member, u"", Argument::byReference(year),
                             Argument::byReference(period), Argument::byReference(start), Argument::byReference(end)));
        return std::string(known ? "known " : "unknown ") + utf8(year) + " " + utf8(period) + " " +
               utf8(automation::toNumber(start)) + " " + utf8(automation::toNumber(end));
    };
    EXPECT_EQ(ask(u"GetCurPeriod"), "unknown 2023 7 45108 4") << "what is not described stays the caller's";
    EXPECT_EQ(ask(u"GetGLCurPeriod"), "unknown 1 2 3 4") << "no ledger, no period in the database";
}

// The example of the document is what people start from.
TEST(DescribedHost, TheDocumentedExampleRuns) {
    const auto root = std::filesystem::path(__FILE__).parent_path().parent_path().parent_path();
    std::ifstream file(root / "docs" / "sample-erp-host.md", std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const std::size_t start = text.find("```json\n") + 8;
    const auto host = describe(text.substr(start, text.find("```", start) - start));
    const ListResult all = host->list(12, u"", u"t_Stock.FQty  DESC ", u"", 5);
    EXPECT_EQ(all.firstKeys, (std::vector<std::u16string>{u"RK1", u"RK2"}));
    EXPECT_EQ(host->list(12, u"convert(char(10),t_Stock.FDate,120) BETWEEN '2024-02-01' AND '2024-02-29 23:59:59'", u"",
                         u"", 5)
                  .bills,
              1u);
}

TEST(DescribedHost, NamesWhatIsWrongWithADescription) {
    struct {
        const char* json;
        const char* message;
    } const cases[] = {
        {"{", "host: "},
        {"[]", "host: an object is expected"},
        {R"({"classtypes": []})", "host: \"classtypes\" is not known here"},
        {R"({"classTypes": [{"FName": "x"}]})", "host, class type: \"FID\" is missing"},
        {R"({"classTypes": [{"FID": "x"}]})", "host, class type: \"FID\" must be a whole number"},
        {R"({"classTypes": [{"FID": 1, "fields": [{"FKey": "a"}, {}]}]})",
         "host, class type 1, field 2: \"FKey\" is missing"},
        {R"({"classTypes": [{"FID": 1, "fields": [{"FKey": "a"}, {"FKey": "a"}]}]})",
         "host, class type 1, field 2: the key \"a\" occurs twice"},
        {R"({"classTypes": [{"FID": 1, "period": {"start": "soon"}}]})",
         "host, class type 1, period: \"start\" is not a date"},
        {R"({"classTypes": [{"FID": 1, "period": {"begin": "2024-01-01"}}]})",
         "host, class type 1, period: \"begin\" is not known here"},
        {R"({"conditions": {"1": {}}})", "host, comparison set 1: a list is expected"},
        {R"({"tables": {"t": [{"a": [1]}]}})", "host, table t: a cell must be a number, a text, true, false or null"},
        {R"({"tables": {"t; x": [{"a": 1}]}})", "host, table t; x: names of tables and columns"},
        {R"({"tables": {"t": []}})", "host, table t: a table needs a column"},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.json);
        try {
            describe(expected.json);
            ADD_FAILURE() << "the description was taken";
        } catch (const AutomationError& error) {
            EXPECT_EQ(utf8(error.description()).substr(0, std::string(expected.message).size()), expected.message);
        }
    }
}

} // namespace
} // namespace orv::erp
