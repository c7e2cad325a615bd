#include "automation/Records.h"
#include "bench/host/LargeHost.h"
#include "control/Filter.h"

#include <gtest/gtest.h>

#include <memory>

// Late-bound calls that reach the host, counted: they are the control's cost, and unlike times the same everywhere.
namespace orv::bench {
namespace {

using automation::Dictionary;

/// A control on a host of many fields.
struct Control {
    explicit Control(std::int32_t fields) : host(fields) {
        service = host.dataService(firstLargeClassType);
        filter.put_SetSelectPageList(u",1*,2,");
    }
    void open() {
        filter.put_DataSrv(service);
        ASSERT_TRUE(filter.Initialize());
    }
    /// The calls that an action makes.
    template <class Action>
    std::size_t callsOf(Action action) {
        host.resetCalls();
        action();
        return host.calls();
    }

    LargeHost host;
    automation::ObjectRef service;
    SilentPrompts prompts;
    control::Filter filter{host, prompts};
};

/// Calls for each further field: what `count` gives for 1,800 fields more, a number that every period of the host's
/// kinds of field divides.
template <class Count>
double callsAField(Count count) {
    constexpr std::int32_t more = 1800;
    const auto few = static_cast<double>(count(200));
    const auto many = static_cast<double>(count(200 + more));
    return (many - few) / more;
}

TEST(CallCounts, InitializeReadsAFieldInEightCalls) {
    // Select list item, its key, its record, and of this one page, caption, key, visibility and panel list.
    EXPECT_EQ(callsAField([](std::int32_t fields) {
                  Control control(fields);
                  return control.callsOf([&] { control.open(); });
              }),
              8);
}

TEST(CallCounts, ClassTypeSwitchReadsAFieldInEightCalls) {
    EXPECT_EQ(callsAField([](std::int32_t fields) {
                  Control control(fields);
                  control.filter.put_DataSrv(control.service);
                  EXPECT_TRUE(control.filter.Initialize(largeClassTypes));
                  ui::ComboBox& box = control.filter.controls().cboClassType;
                  EXPECT_EQ(box.listIndex(), 0);
                  return control.callsOf([&] { box.setListIndex(1); });
              }),
              8);
}

TEST(CallCounts, ColumnListReadsAFieldInSevenCallsAndOneMoreForAnAccessTable) {
    for (const bool withTable : {false, true}) {
        EXPECT_EQ(callsAField([&](std::int32_t fields) {
                      Control control(fields);
                      const Dictionary settings = automation::makeDictionary();
                      if (withTable)
                          settings.set(u"AccessMask", automation::makeDictionary().object());
                      control.filter.put_dctControl(settings);
                      control.filter.put_DataSrv(control.service);
                      return control.callsOf([&] { control.filter.InitHideColumns(); });
                  }),
                  withTable ? 8 : 7);
    }
}

TEST(CallCounts, ListsThatAreFilledAgainAskForNothing) {
    Control control(500);
    control.open();
    EXPECT_EQ(control.callsOf([&] { control.filter.InitHideColumns(); }), 0U);
    auto& pages = control.filter.controls().chkPage;
    EXPECT_LE(control.callsOf([&] { pages(0).setValue(ui::CheckState::unchecked); }), 10U) << "what a page costs";
}

TEST(CallCounts, FirstHeaderBuildReadsAFieldInTwelveCalls) {
    // Eleven reads and the mark on the item. A value list is looked for and entered, an amount's decimal key read.
    constexpr double lists = 1.0 / 4;
    constexpr double amounts = 1.0 / 36;
    EXPECT_NEAR(callsAField([](std::int32_t fields) {
                    Control control(fields);
                    control.open();
                    return control.callsOf([&] { control.filter.get_m_Header(); });
                }),
                12 + 2 * lists + amounts, 1e-9);
}

TEST(CallCounts, FurtherHeaderBuildsOnlyWriteTheMarks) {
    Control control(500);
    control.open();
    control.filter.get_m_Header();
    EXPECT_EQ(control.callsOf([&] { control.filter.get_m_Header(); }), 501U) << "and the class type's number";
}

/// Fills lines with comparisons of text fields, which need nothing of the host.
void enterTexts(control::Filter& filter, int lines) {
    ui::Spread& grid = filter.controls().vsFilter;
    for (int row = 1; row <= lines; ++row) {
        ASSERT_TRUE(grid.userChoose(2, row, 4 * row - 1)); // the third of each four fields is a text
        ASSERT_TRUE(grid.userType(4, row, u"上海"));
        ASSERT_TRUE(grid.userChoose(8, row, 0));
    }
}

TEST(CallCounts, FilterSqlAsksTheHostForNothingThatItKnows) {
    for (const int lines : {1, 30}) {
        Control control(200);
        control.open();
        enterTexts(control.filter, lines);
        std::u16string sql;
        EXPECT_EQ(control.callsOf([&] { control.filter.GetFilterSql(sql, true); }), 0U) << lines;
        EXPECT_NE(sql.find(u"上海"), std::u16string::npos);
    }
}

TEST(CallCounts, FilterSqlAsksForTodayOnceWhateverTheNumberOfLines) {
    std::size_t ofOne = 0;
    for (const int lines : {1, 30}) {
        Control control(200);
        control.open();
        ui::Spread& grid = control.filter.controls().vsFilter;
        for (int row = 1; row <= lines; ++row) {
            ASSERT_TRUE(grid.userChoose(2, row, 4 * row - 3)); // a date
            ASSERT_TRUE(grid.userChoose(3, row, 3));           // this month
        }
        std::u16string sql;
        const std::size_t calls = control.callsOf([&] { control.filter.GetFilterSql(sql, true); });
        if (lines == 1)
            ofOne = calls;
        EXPECT_EQ(calls, ofOne);
        EXPECT_NE(sql.find(u"'2024-02-01' AND '2024-02-29 23:59:59'"), std::u16string::npos);
    }
    EXPECT_EQ(ofOne, 4U) << "the query, the end of its records, the column and its value";
}

TEST(CallCounts, SchemeLoadReadsTheNamesOfTheFieldsOnce) {
    const Dictionary entry = automation::makeDictionary();
    entry.set(u"Relation", u"##<&F3##<&0##<&上海##<&##<&并且##<&||");
    entry.set(u"ColIndex", u"FField2=1|FField1=2|");
    EXPECT_EQ(callsAField([&](std::int32_t fields) {
                  Control control(fields);
                  control.open();
                  return control.callsOf([&] { EXPECT_TRUE(control.filter.RefreshProfile(entry)); });
              }),
              1);
    Control control(500);
    control.open();
    EXPECT_TRUE(control.filter.RefreshProfile(entry));
    EXPECT_EQ(control.callsOf([&] { EXPECT_TRUE(control.filter.RefreshProfile(entry)); }), 0U);
}

} // namespace
} // namespace orv::bench
