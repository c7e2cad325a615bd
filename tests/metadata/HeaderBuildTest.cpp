#include "metadata/Records.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Text.h"
#include "metadata/HeaderBuild.h"

#include <gtest/gtest.h>

namespace orv::metadata {
namespace {

using automation::Collection;
using automation::Dictionary;
using automation::toUtf8;
using automation::Value;
using tests::CatalogueBuilder;
using tests::NoComponents;
using tests::record;

struct Build {
    explicit Build(const CatalogueBuilder& fields) : catalogue(fields.catalogue()) {}

    Collection run(std::int32_t classTypeId = 1) {
        buildHeader({catalogue, columns, pages, classTypeId, allKeys, factory}, header);
        return header;
    }
    /// "caption/second caption" of each column.
    std::vector<std::string> captions() {
        std::vector<std::string> result;
        for (std::int32_t i = 1; i <= header.count(); ++i)
            result.push_back(entry(i, u"FColCaption") + "/" + entry(i, u"FHeadSecond"));
        return result;
    }
    std::string entry(std::int32_t column, std::u16string_view key) {
        return toUtf8(automation::toText(header.record(column).get(key)));
    }

    FieldCatalogue catalogue;
    std::vector<ColumnSetting> columns;
    PageSelection pages{u",1*,2,"};
    Dictionary allKeys = automation::makeDictionary();
    NoComponents factory;
    Collection header = automation::makeCollection();
};

TEST(HeaderBuild, AFieldHasOneColumnHoweverItsKeyIsWritten) {
    CatalogueBuilder fields;
    fields.field({{u"FKey", u"FAmount"}, {u"FCaption", u"金额"}, {u"FColType", 6}, {u"FPage", 1}}, {});
    Build build(fields);
    build.columns = {{u"famount", true, 17.64}, {u"FAMOUNT", true, 17.64}};
    EXPECT_EQ(build.run().count(), 1);
}

TEST(HeaderBuild, WritesTheKeysOfAColumnInTheirOrder) {
    CatalogueBuilder fields;
    fields.field({{u"FKey", u"FAmount"},
                  {u"FCaption", u"金额"},
                  {u"FColType", -1},
                  {u"FNeedAs", true},
                  {u"FPage", 2},
                  {u"FKeyWord", u"AMOUNT"},
                  {u"FProperty", u"Amt"},
                  {u"FSum", 1},
                  {u"FLookUpList", u"VALUELIST{1=现金,2=支票}"}},
                 {{u"FMustGet", 1}, {u"Decimal", 0}});
    Build build(fields);
    build.columns = {{u"famount", true, 17.64}};
    const Collection header = build.run(1000201);

    ASSERT_EQ(header.count(), 2) << "the must-get column, then the shown one";
    const std::vector<std::u16string> common{u"FColCaption",   u"FHeadSecond", u"FColType",    u"FColName",
                                             u"FFieldNameExt", u"FVisible",    u"FMergerType", u"FKey",
                                             u"FPage",         u"FWidth",      u"FNeedAs",     u"FXOR",
                                             u"DecimalKey",    u"FNeedCount",  u"VALUELIST"};
    auto mustGet = common;
    mustGet.push_back(u"Decimal");
    EXPECT_EQ(header.record(1).keys(), mustGet);
    EXPECT_EQ(header.record(2).keys(), common);

    const std::pair<const char16_t*, Value> shown[] = {{u"FColCaption", u"金额$"},
                                                       {u"FHeadSecond", u""},
                                                       {u"FColType", -1},
                                                       {u"FColName", u"n_FAmount"},
                                                       {u"FFieldNameExt", u"t.FAmount"},
                                                       {u"FVisible", true},
                                                       {u"FMergerType", 0},
                                                       {u"FKey", u"FAmount"},
                                                       {u"FPage", 2},
                                                       {u"FWidth", 17.64},
                                                       {u"FNeedAs", true},
                                                       {u"FXOR", u"t_RP_RBill.FReceiveTypeID"},
                                                       {u"DecimalKey", u"Amt_Decimal"},
                                                       {u"FNeedCount", 1}};
    for (const auto& [key, value] : shown)
        EXPECT_EQ(header.record(2).get(key), value) << toUtf8(key);
    EXPECT_EQ(header.record(1).get(u"FVisible"), Value(false));
    EXPECT_EQ(header.record(1).get(u"FWidth"), Value(0.0));
    EXPECT_EQ(header.record(1).get(u"Decimal"), Value(0));
    EXPECT_EQ(build.allKeys.get(u"FAmount"), Value(3));
}

TEST(HeaderBuild, MapsValueListsBothWaysOnTheColumnsOwnCopy) {
    CatalogueBuilder fields;
    fields.field({{u"FKey", u"FType"}, {u"FLookUpList", u"VALUELIST{1=现金,2=支票,3=1}"}});
    Build build(fields);
    build.columns = {{u"FType", true, 1}};
    const Dictionary list(automation::toObject(build.run().record(1).get(u"VALUELIST")));
    EXPECT_EQ(list.get(u"1"), Value(u"现金"));
    EXPECT_EQ(list.get(u"支票"), Value(u"2"));
    EXPECT_EQ(list.get(u"3"), Value(u"1"));

    const Dictionary own(automation::toObject(fields.tableInfo.get(u"FType")));
    const Dictionary keysToCaptions(automation::toObject(own.get(u"VALUELIST")));
    EXPECT_EQ(keysToCaptions.keys(), (std::vector<std::u16string>{u"1", u"2", u"3"}));
}

TEST(HeaderBuild, GroupsTwoLevelCaptions) {
    struct Case {
        const char* name;
        std::vector<std::u16string> captions; // shown in this order; one that starts with "!" is hidden
        std::vector<std::string> expected;
    };
    const Case cases[] = {
        {"one level ends with $", {u"日期"}, {"日期$/"}},
        {"two and three of a group", {u"金额+借方", u"金额+贷方", u"金额+余额"}, {"金额+|+|/借方", "/贷方", "/余额"}},
        {"a group ends at another", {u"金额+借方", u"数量", u"金额+贷方"}, {"金额/借方", "数量$/", "金额/贷方"}},
        {"a hidden column does not break it", {u"金额+借方", u"!数量", u"金额+贷方"}, {"金额+|/借方", "/贷方"}},
        {"further levels do not count", {u"A+B+C", u"A+D"}, {"A+|/B", "/D"}},
        {"nothing behind the plus is one level", {u"A+", u"A+B"}, {"A+$+|/", "/B"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CatalogueBuilder fields;
        std::vector<ColumnSetting> columns;
        for (const std::u16string& caption : c.captions) {
            const bool shown = !caption.starts_with(u'!');
            const std::u16string key = u"F" + automation::numberToText(static_cast<double>(columns.size()));
            fields.field({{u"FKey", key}, {u"FCaption", shown ? caption : caption.substr(1)}});
            columns.push_back({key, shown, 10});
        }
        Build build(fields);
        build.columns = columns;
        build.run();
        EXPECT_EQ(build.captions(), c.expected);
    }
}

TEST(HeaderBuild, ChoosesFields) {
    CatalogueBuilder fields;
    fields.field({{u"FKey", u"FChild"}, {u"FParentKey", u"FDate"}})
        .field({{u"FKey", u"FInvisible"}}, {{u"FVisible", false}})
        .field({{u"FKey", u"FDate"}})
        .field({{u"FKey", u"FOther"}, {u"FPage", 3}}, {{u"FMustGet", 1}})
        .field({{u"FKey", u"FPlaces"}}, {{u"Decimal", 1}});
    Build build(fields);
    build.columns = {{u"FChild", true, 1}, {u"FInvisible", true, 1}, {u"FDATE", true, 1},
                     {u"FDate", true, 1},  {u"FPlaces", false, 1},   {u"FUnknown", true, 1}};
    build.run();
    ASSERT_EQ(build.header.count(), 2);
    EXPECT_EQ(build.entry(1, u"FKey"), "FPlaces") << "decimal fields of selected pages are always fetched";
    EXPECT_EQ(build.entry(1, u"Decimal"), "1");
    EXPECT_EQ(build.entry(2, u"FKey"), "FDate") << "once, although it stands in two rows";
    const Dictionary date = fields.selectList.record(3);
    EXPECT_EQ(date.get(u"HaveSel"), Value(true));
    EXPECT_EQ(fields.selectList.record(1).get(u"HaveSel"), Value(false));
}

TEST(HeaderBuild, LeavesTheHeaderEmptyWithoutGridRows) {
    CatalogueBuilder fields;
    fields.field({{u"FKey", u"FId"}}, {{u"FMustGet", 1}});
    Build build(fields);
    EXPECT_EQ(build.run().count(), 0);
}

TEST(HeaderBuild, KeepsWhatItHasWhenAFieldIsMissing) {
    CatalogueBuilder fields;
    fields.field({{u"FKey", u"FId"}}, {{u"FMustGet", 1}});
    fields.selectList.add(record({{u"Fkey", u"FLost"}}).object());
    Build build(fields);
    build.columns = {{u"FId", true, 1}};
    EXPECT_THROW(build.run(), automation::AutomationError);
    EXPECT_EQ(build.header.count(), 1);
}

TEST(PageSelection, ReadsNumbersBetweenCommas) {
    const PageSelection pages(u",1*,12,");
    EXPECT_TRUE(pages.contains(u"1"));
    EXPECT_TRUE(pages.contains(u"12"));
    EXPECT_FALSE(pages.contains(u"2"));
    EXPECT_FALSE(PageSelection(u",").contains(u"1"));
}

} // namespace
} // namespace orv::metadata
