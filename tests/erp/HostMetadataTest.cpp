#include "HostTesting.h"
#include "automation/AutomationError.h"
#include "automation/Records.h"
#include "erp/db/Database.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace orv::erp {
namespace {

using namespace testing;
using automation::AutomationError;
using automation::Collection;
using automation::Dictionary;
using automation::ObjectRef;
using automation::toInt32;
using automation::toText;
using automation::Value;

const std::shared_ptr<ErpHost>& erp() {
    static const auto host = openErp();
    return host;
}

constexpr std::int32_t allClassTypes[] = {1000101, 1000201, 1000202, 1000301, 1000801, 1000901, 1000902};

struct ClassTypeCase {
    std::int32_t id;
    const char16_t* name;
    std::int32_t pages;
    std::int32_t fields;
};

TEST(HostMetadata, ServesTheClassTypesOfTheBuiltInErp) {
    const ClassTypeCase cases[] = {
        {1000101, u"商品档案", 1, 18},   {1000201, u"收款单据", 3, 47}, {1000202, u"付款单据", 2, 26},
        {1000301, u"销售出库单", 4, 38}, {1000801, u"凭证", 2, 22},     {1000901, u"计时工资单", 1, 16},
        {1000902, u"计件工资单", 1, 15},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(utf8(expected.name));
        const ObjectRef service = erp()->create(u"ORVClassTpl.DataSrv");
        automation::let(service, u"ClassTypeID", expected.id);
        EXPECT_EQ(utf8(record(automation::get(service, u"ClassType")).get(u"FName")), utf8(expected.name));
        EXPECT_EQ(collection(automation::get(service, u"ClassTypeEntry")).count(), expected.pages);
        EXPECT_EQ(collection(automation::get(service, u"SelectList")).count(), expected.fields);
    }
}

// Every way of the control to a field record: by the select list, and by the pages.
TEST(HostMetadata, EveryListedKeyLeadsToAFieldRecord) {
    for (const auto id : allClassTypes) {
        SCOPED_TRACE(id);
        const ObjectRef service = erp()->dataService(id);
        const Collection list = collection(automation::get(service, u"SelectList"));
        const Dictionary table = record(automation::get(service, u"TableInfo"));
        for (std::int32_t i = 1; i <= list.count(); ++i) {
            const std::u16string key = toText(list.record(i).get(u"Fkey"));
            EXPECT_EQ(utf8(record(table.get(key)).get(u"FKey")), utf8(key));
        }
        std::int32_t onPages = 0;
        for (std::int32_t page = 1; page <= toInt32(table.get(u"PageCount")); ++page) {
            const Collection keys = collection(table.get(u"Page" + toText(page)));
            onPages += keys.count();
            for (std::int32_t i = 1; i <= keys.count(); ++i)
                EXPECT_EQ(toInt32(record(table.get(toText(keys.item(i)))).get(u"FPage")), page) << utf8(keys.item(i));
        }
        EXPECT_EQ(onPages, list.count()) << "fields on pages and in the select list";
    }
}

// The list window runs what the control makes of a field: its names must be good SQL in condition, sort and selection.
TEST(HostMetadata, EveryFieldNameIsGoodSqlInItsList) {
    for (const auto id : allClassTypes) {
        const ObjectRef service = erp()->dataService(id);
        const Collection list = collection(automation::get(service, u"SelectList"));
        const Dictionary table = record(automation::get(service, u"TableInfo"));
        const std::u16string identifier = toText(list.record(1).get(u"Fkey"));
        const std::u16string some = toText(record(table.get(identifier)).get(u"FFieldNameExt")) + u"<=300";
        const std::size_t bills = erp()->list(id, some, u"", u"", 1).bills;
        EXPECT_GE(bills, 100u);
        for (std::int32_t i = 1; i <= list.count(); ++i) {
            const Dictionary field = record(table.get(toText(list.record(i).get(u"Fkey"))));
            const std::u16string name = toText(field.get(u"FFieldNameExt"));
            const std::u16string condition = some + u" AND (" + name + u" IS NULL OR NOT " + name + u" IS NULL)";
            const std::u16string sort = name + u"  ASC ";
            SCOPED_TRACE(std::to_string(id) + " " + utf8(name));
            ListResult all;
            ASSERT_NO_THROW(all = erp()->list(id, condition, sort, u"", 1));
            EXPECT_EQ(all.bills, bills);
        }
    }
}

TEST(HostMetadata, FieldsCoverEveryColumnTypeAndLookUpType) {
    std::set<std::int32_t> columnTypes;
    std::set<std::int32_t> lookUpTypes;
    std::set<std::string> sets;
    for (const auto id : allClassTypes) {
        const ObjectRef service = erp()->dataService(id);
        const Collection list = collection(automation::get(service, u"SelectList"));
        const Dictionary table = record(automation::get(service, u"TableInfo"));
        for (std::int32_t i = 1; i <= list.count(); ++i) {
            const Dictionary field = record(table.get(toText(list.record(i).get(u"Fkey"))));
            columnTypes.insert(toInt32(field.get(u"FColType")));
            lookUpTypes.insert(toInt32(field.get(u"FLookUpType")));
            const Value condition = field.get(u"FCondition");
            sets.insert(utf8(condition));
            EXPECT_GT(collection(automation::call(service, u"getCondition", condition)).count(), 0)
                << id << " " << utf8(field.get(u"FKey"));
        }
    }
    for (const std::int32_t type : {-1, 0, 1, 2, 4, 6, 7, 8, 9, 10, 500, 501})
        EXPECT_TRUE(columnTypes.contains(type)) << "column type " << type;
    for (const std::int32_t type : {0, 1, 2, 3, 4, 5, 10})
        EXPECT_TRUE(lookUpTypes.contains(type)) << "look-up type " << type;
    EXPECT_GE(sets.size(), 12u);
}

TEST(HostMetadata, SelectItemsCarryTheMarksOfTheirFields) {
    struct {
        const char16_t* key;
        bool visible;
        std::int32_t decimal;
        std::int32_t mustGet;
    } const cases[] = {{u"FDate", true, 0, 0}, {u"FBillID", false, 0, 1}, {u"FAmountFor_Decimal", false, 1, 0}};
    const Collection list = collection(automation::get(erp()->dataService(1000201), u"SelectList"));
    for (const auto& expected : cases) {
        SCOPED_TRACE(utf8(expected.key));
        bool found = false;
        for (std::int32_t i = 1; i <= list.count(); ++i) {
            const Dictionary item = list.record(i);
            if (toText(item.get(u"Fkey")) != expected.key)
                continue;
            found = true;
            EXPECT_EQ(automation::toBoolean(item.get(u"FVisible")), expected.visible);
            EXPECT_EQ(toInt32(item.get(u"Decimal")), expected.decimal);
            EXPECT_EQ(toInt32(item.get(u"FMustGet")), expected.mustGet);
            EXPECT_FALSE(automation::toBoolean(item.get(u"HaveSel")));
        }
        EXPECT_TRUE(found);
    }
}

TEST(HostMetadata, ServicesOfOneClassTypeShareNoRecords) {
    const ObjectRef first = erp()->dataService(1000201);
    const ObjectRef second = erp()->dataService(1000201);
    collection(automation::get(first, u"SelectList")).record(1).set(u"HaveSel", true);
    record(record(automation::get(first, u"TableInfo")).get(u"FDate")).set(u"FCaption", u"changed");
    EXPECT_FALSE(automation::toBoolean(collection(automation::get(second, u"SelectList")).record(1).get(u"HaveSel")));
    EXPECT_EQ(utf8(record(record(automation::get(second, u"TableInfo")).get(u"FDate")).get(u"FCaption")), "日期");
    EXPECT_TRUE(automation::toBoolean(collection(automation::get(first, u"SelectList")).record(1).get(u"HaveSel")));
}

TEST(HostMetadata, AFreshServiceKnowsNoClassType) {
    const ObjectRef service = erp()->create(u"ORVClassTpl.DataSrv");
    EXPECT_EQ(toInt32(automation::get(service, u"ClassTypeID")), 0);
    EXPECT_THROW(automation::get(service, u"SelectList"), AutomationError);
    EXPECT_THROW(automation::let(service, u"ClassTypeID", std::int32_t{4711}), AutomationError);
    EXPECT_EQ(toInt32(automation::get(service, u"ClassTypeID")), 0);
}

TEST(HostMetadata, ComparisonsCoverEveryOperatorAndKeyword) {
    std::set<std::string> operators;
    std::set<std::string> keywords;
    std::set<std::string> inputs;
    const ObjectRef service = erp()->dataService(1000201);
    for (std::int32_t set = 1; set <= 15; ++set) {
        Value byReference = set;
        const Collection entries =
            collection(automation::call(service, u"getCondition", automation::Argument::byReference(byReference)));
        EXPECT_GT(entries.count(), 0) << "set " << set;
        std::set<std::string> names;
        for (std::int32_t i = 1; i <= entries.count(); ++i) {
            const Dictionary entry = entries.record(i);
            std::string operation = utf8(entry.get(u"FOperate"));
            operation.erase(0, operation.find_first_not_of(' '));
            operation.erase(operation.find_last_not_of(' ') + 1);
            operators.insert(operation);
            keywords.insert(utf8(entry.get(u"FValue")));
            inputs.insert(utf8(entry.get(u"FInputCtlType")));
            EXPECT_TRUE(names.insert(utf8(entry.get(u"FName"))).second) << "two comparisons of one caption";
        }
    }
    for (const char* operation : {"=", "!=", "<>", "<", "<=", ">", ">=", "LIKE", "NOT LIKE", "IN", "NOT IN", "BETWEEN"})
        EXPECT_TRUE(operators.contains(operation)) << operation;
    for (const char* keyword : {"ISNULL", "NOTISNULL", "YESTERDAY", "TODAY", "TOMORROW", "LASTWEEK", "THISWEEK",
                                "NEXTWEEK", "LASTMONTH", "THISMONTH", "NEXTMONTH", "TODAYBEFORE", "TODAYAFTER"})
        EXPECT_TRUE(keywords.contains(keyword)) << keyword;
    EXPECT_EQ(inputs, (std::set<std::string>{"0", "1", "2"}));
}

TEST(HostMetadata, AnUnknownSetOffersNoComparisons) {
    const ObjectRef service = erp()->dataService(1000201);
    EXPECT_EQ(collection(automation::call(service, u"getCondition", u"no such set")).count(), 0);
    EXPECT_EQ(collection(automation::call(service, u"getCondition", automation::Null{})).count(), 0);
}

TEST(HostMetadata, ClassInformationFindsTheNamedClassTypes) {
    struct {
        const char16_t* filter;
        std::vector<std::int32_t> ids;
    } const cases[] = {
        {u"FID in (1000201)", {1000201}},
        {u"FID in (1000301,1000201)", {1000201, 1000301}}, // the host's order,
                                                           // not the list's
        {u"fid IN ( 1000202 , 7 )", {1000202}},
        {u"FID in (1000201,1000201)", {1000201}},
        {u"FID in (7)", {}},
    };
    const ObjectRef info = erp()->create(u"ORVMClass.ClassInfo");
    for (const auto& expected : cases) {
        SCOPED_TRACE(utf8(expected.filter));
        const Collection list = collection(automation::call(info, u"GetClassType", erp()->props(), expected.filter));
        std::vector<std::int32_t> ids;
        for (std::int32_t i = 1; i <= list.count(); ++i)
            ids.push_back(toInt32(list.record(i).get(u"FID")));
        EXPECT_EQ(ids, expected.ids);
    }
    for (const char16_t* malformed :
         {u"", u"FID in ()", u"FID in (1,,2)", u"FID in (1", u"FID in (1;2)", u"FName in (1)", u"FID in (1e9999)"})
        EXPECT_THROW(automation::call(info, u"GetClassType", erp()->props(), malformed), AutomationError)
            << utf8(malformed);
}

// t_ClassType is what queries see of the class types.
TEST(HostMetadata, TheDatabaseKnowsTheSameClassTypes) {
    const ResultSet known = erp()->database().query(u"SELECT FID, FName FROM t_ClassType ORDER BY FID");
    std::map<std::int32_t, std::string> names;
    for (const auto& row : known.rows)
        names[toInt32(row[0])] = utf8(row[1]);
    EXPECT_EQ(names.size(), std::size(allClassTypes));
    for (const auto id : allClassTypes)
        EXPECT_EQ(names[id], utf8(record(automation::get(erp()->dataService(id), u"ClassType")).get(u"FName")));
}

TEST(HostMetadata, SettingsAreTheCallersOwn) {
    const Dictionary first = erp()->defaultSettings();
    EXPECT_EQ(toInt32(record(first.get(u"AccessMask")).get(u"SECRET")), 0);
    EXPECT_EQ(utf8(record(first.get(u"Lookup")).get(u"日期")), "FDate");
    first.set(u"ShowScheme", false);
    EXPECT_TRUE(automation::toBoolean(erp()->defaultSettings().get(u"ShowScheme")));
}

} // namespace
} // namespace orv::erp
