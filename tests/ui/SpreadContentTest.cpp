#include "Support.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orv::ui {
namespace {

TEST(SpreadContent, CellsBeyondTheGridRaiseError5) {
    Grid grid(8, 30);
    EXPECT_EQ(errorOf([&] { grid.setText(0, 0, u"corner"), grid.setText(8, 30, u"last"); }), 0);
    for (const CellRef cell : {CellRef{9, 1}, {1, 31}, {-1, 1}, {1, -1}}) {
        const int column = cell.column, row = cell.row;
        SCOPED_TRACE(testing::Message() << "column " << column << " row " << row);
        EXPECT_EQ(errorOf([&] { grid.text(column, row); }), 5);
        EXPECT_EQ(errorOf([&] { grid.setText(column, row, u""); }), 5);
        EXPECT_EQ(errorOf([&] { grid.setFormat(column, row, {}); }), 5);
        EXPECT_EQ(errorOf([&] { grid.clearText(1, 1, column, row); }), 5);
        EXPECT_EQ(errorOf([&] { grid.setActiveCell(column, row); }), 5);
        EXPECT_EQ(errorOf([&] { grid.userClick(column, row); }), 5);
    }
    EXPECT_EQ(errorOf([&] { grid.setColumnWidth(9, 1); }), 5);
    EXPECT_EQ(errorOf([&] { grid.setActiveCell(1, 0); }), 5) << "a header cell cannot be current";
}

TEST(SpreadContent, ReadsNumbersByTheLocalesRules) {
    Grid grid(1, 1);
    for (const auto& [text, number] : std::vector<std::pair<const char16_t*, double>>{
             {u"17.64", 17.64}, {u" 1,500 ", 1500}, {u"-2", -2}, {u"", 0}, {u"150毫米", 0}}) {
        grid.setText(1, 1, text);
        EXPECT_EQ(grid.number(1, 1), number) << shown(text);
    }
}

TEST(SpreadContent, CheckBoxesClickWhenCodeChangesTheirState) {
    Grid grid(3, 2);
    grid.setFormat(3, 2, checkBox);
    std::vector<CellRef> clicks;
    const auto handler = grid.buttonClicked.subscribe([&](int column, int row) { clicks.push_back({column, row}); });
    struct Step {
        const char16_t* set;
        const char16_t* stored;
        bool clicks;
    };
    for (const Step& step : {Step{u"0", u"0", false}, Step{u"1", u"1", true}, Step{u"-1", u"1", false},
                             Step{u" ", u"", true}, Step{u"abc", u"0", false}, Step{u"2", u"1", true}}) {
        SCOPED_TRACE(shown(step.set));
        clicks.clear();
        grid.setText(3, 2, step.set);
        EXPECT_EQ(shown(grid.text(3, 2)), shown(step.stored));
        EXPECT_EQ(clicks, (step.clicks ? std::vector{CellRef{3, 2}} : std::vector<CellRef>{}));
    }
    clicks.clear();
    grid.clearText(1, 1, 3, 2);
    EXPECT_FALSE(grid.isChecked(3, 2));
    grid.setChecked(1, 1, true);
    EXPECT_TRUE(clicks.empty()) << "neither clearing nor a cell of another type clicks";
}

TEST(SpreadContent, AnOptionPairOfCheckBoxesSettlesUnderItsReentryGuard) {
    Grid grid(3, 1);
    grid.setFormat(2, 1, checkBox);
    grid.setFormat(3, 1, checkBox);
    bool running = false;
    int refused = 0;
    const auto handler = grid.buttonClicked.subscribe([&](int column, int row) {
        if (std::exchange(running, true)) {
            ++refused;
            return;
        }
        grid.setChecked(2, row, false);
        grid.setChecked(3, row, false);
        grid.setChecked(column, row, true);
        running = false;
    });
    grid.setChecked(2, 1, true);
    refused = 0;
    EXPECT_TRUE(grid.userToggle(3, 1));
    EXPECT_FALSE(grid.isChecked(2, 1));
    EXPECT_TRUE(grid.isChecked(3, 1));
    EXPECT_EQ(refused, 3) << "2 off, 3 off, 3 on";
    EXPECT_TRUE(grid.userToggle(3, 1));
    EXPECT_TRUE(grid.isChecked(3, 1)) << "a click on the checked one leaves it checked";
}

TEST(SpreadContent, ComboListsAreSplitAtTabs) {
    Grid grid(1, 1);
    grid.setFormat(1, 1, combo);
    using Items = std::vector<std::u16string>;
    for (const auto& [list, items] : std::vector<std::pair<const char16_t*, Items>>{{u"\t(\t((", {u"", u"(", u"(("}},
                                                                                    {u"并且\t或", {u"并且", u"或"}},
                                                                                    {u"a\t", {u"a", u""}},
                                                                                    {u"one", {u"one"}},
                                                                                    {u"", {}}}) {
        grid.setComboList(1, 1, list);
        EXPECT_EQ(grid.comboItems(1, 1), items) << shown(list);
    }
}

TEST(SpreadContent, AColumnTakesOneListInAllItsRows) {
    Grid grid(2, 3);
    for (int row = 1; row <= 3; ++row)
        grid.setFormat(2, row, combo);
    grid.setText(2, 2, u"b");
    grid.setText(2, 3, u"gone");
    grid.setColumnComboList(2, u"\ta\tb");
    for (int row = 1; row <= 3; ++row)
        EXPECT_EQ(grid.comboItems(2, row), (std::vector<std::u16string>{u"", u"a", u"b"})) << row;
    EXPECT_EQ(grid.comboSelection(2, 1), 0);
    EXPECT_EQ(grid.comboSelection(2, 2), 2);
    EXPECT_EQ(shown(grid.text(2, 3)), "") << "the list does not have the text";
    grid.setFormat(2, 3, {});
    EXPECT_EQ(errorOf([&] { grid.setColumnComboList(2, u"x"); }), 5) << "the last row is no combo cell";
    EXPECT_EQ(errorOf([&] { grid.setColumnComboList(3, u"x"); }), 5) << "no such column";
}

TEST(SpreadContent, AComboTextAndItsSelectionGoTogether) {
    Grid grid(1, 1);
    grid.setFormat(1, 1, combo);
    grid.setComboList(1, 1, u"a\tb\tc");
    EXPECT_EQ(grid.comboSelection(1, 1), -1);
    const auto expect = [&](int selection, const char16_t* text, const char* why) {
        EXPECT_EQ(grid.comboSelection(1, 1), selection) << why;
        EXPECT_EQ(shown(grid.text(1, 1)), shown(text)) << why;
    };
    grid.setComboSelection(1, 1, 1);
    expect(1, u"b", "selected by position");
    grid.setText(1, 1, u"c");
    expect(2, u"c", "selected by text");
    grid.setComboList(1, 1, u"x\tc");
    expect(1, u"c", "the new list still has the text");
    grid.setComboList(1, 1, u"x\ty");
    expect(-1, u"", "the new list has not");
    grid.setText(1, 1, u"other");
    expect(-1, u"other", "a text beyond the list");
    grid.setComboSelection(1, 1, 0);
    grid.setComboSelection(1, 1, 2);
    expect(-1, u"", "a position beyond the list");
    grid.setFormat(1, 1, {.type = CellType::comboBox, .freeText = true});
    grid.setText(1, 1, u"typed");
    grid.setComboList(1, 1, u"p\tq");
    expect(-1, u"typed", "free text survives a list without it");
    grid.setComboSelection(1, 1, 0);
    grid.clearText(1, 1, 1, 1);
    expect(-1, u"", "cleared");
    EXPECT_EQ(grid.comboItems(1, 1).size(), 2U) << "clearing keeps the list";
}

TEST(SpreadContent, OnlyComboCellsHaveLists) {
    Grid grid(2, 1);
    grid.setFormat(1, 1, combo);
    grid.setComboList(1, 1, u"a\tb");
    grid.setComboSelection(1, 1, 1);
    grid.setFormat(1, 1, {.type = CellType::comboBox, .maxLength = 3});
    EXPECT_EQ(grid.comboSelection(1, 1), 1) << "still a combo cell";
    grid.setFormat(1, 1, {});
    EXPECT_TRUE(grid.comboItems(1, 1).empty());
    EXPECT_EQ(grid.comboSelection(1, 1), -1);
    EXPECT_EQ(grid.text(1, 1), u"b");
    EXPECT_EQ(errorOf([&] { grid.setComboList(1, 1, u"a"); }), 5);
    EXPECT_EQ(errorOf([&] { grid.setComboSelection(1, 1, 0); }), 5);
    EXPECT_EQ(errorOf([&] { grid.setComboList(1, 1, u""), grid.setComboSelection(1, 1, -1); }), 0);
    EXPECT_EQ(grid.text(1, 1), u"b");
}

TEST(SpreadContent, FormatsOfCellsAreTheirOwnHoweverManyThereAre) {
    Grid grid(10, 60);
    for (int row = 1; row <= 60; ++row)
        grid.setFormat(1, row, {.type = CellType::edit, .maxLength = row});
    for (int row = 1; row <= 60; ++row)
        grid.setFormat(2, row, {.type = CellType::edit, .maxLength = row % 3});
    grid.setFormat(1, 7, {});
    for (int row = 1; row <= 60; ++row) {
        EXPECT_EQ(grid.format(1, row).maxLength, row == 7 ? 0 : row);
        EXPECT_EQ(grid.format(2, row).maxLength, row % 3);
    }
    EXPECT_EQ(grid.format(3, 1), CellFormat{});
    EXPECT_EQ(&grid.format(1, 2), &grid.format(2, 2)) << "equal formats stand in memory once";
}

TEST(SpreadContent, ALongListStandsInMemoryOnceForAllRows) {
    Grid grid(1, 30);
    std::u16string list;
    for (int i = 0; i < 300; ++i)
        list += std::u16string(i == 0 ? 0 : 1, u'\t') + std::u16string(255, u' ') + static_cast<char16_t>(u'A' + i);
    for (int row = 1; row <= 30; ++row) {
        grid.setFormat(1, row, combo);
        grid.setComboList(1, row, list);
    }
    EXPECT_EQ(&grid.comboItems(1, 1), &grid.comboItems(1, 30));
    grid.setComboList(1, 30, u"a");
    EXPECT_EQ(grid.comboItems(1, 1).size(), 300U) << "another row's list is not touched";
}

TEST(SpreadContent, TellsTheViewWhichCellToRepaint) {
    Grid grid(4, 4);
    grid.setFormat(2, 2, combo);
    std::vector<CellRef> updates;
    const auto view = grid.cellUpdated.subscribe([&](int column, int row) { updates.push_back({column, row}); });
    grid.setComboList(2, 2, u"a\tb");
    grid.setComboSelection(2, 2, 1);
    grid.setText(3, 1, u"x");
    grid.setCellBackColor(4, 4, 15269373);
    grid.clearText(1, 1, 4, 4);
    EXPECT_EQ(updates, (std::vector<CellRef>{{2, 2}, {2, 2}, {3, 1}, {4, 4}, {0, 0}}));
    EXPECT_EQ(grid.cellBackColor(4, 4), 15269373U);
    EXPECT_EQ(grid.cellBackColor(1, 1), std::nullopt);
}

} // namespace
} // namespace orv::ui
