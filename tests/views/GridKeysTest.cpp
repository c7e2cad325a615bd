#include "UserInput.h"
#include "automation/Text.h"
#include "ui/Spread.h"
#include "windows/views/Clipboard.h"

#include <gtest/gtest.h>

#include <optional>

// The condition grid under the user's keys, seen through its model.
namespace orv::windows {
namespace {

using namespace testing;
using automation::toUtf8;

/// Columns of the condition grid.
constexpr int bracket = 1;
constexpr int field = 2;
constexpr int comparison = 3;
constexpr int value = 4;

class GridKeys : public ::testing::Test {
  protected:
    void SetUp() override {
        stage.openClassType(1000201);
        pump(stage);
        gridWindow = stage.windowOf(grid);
        ASSERT_NE(gridWindow, nullptr);
        SetFocus(gridWindow);
    }
    std::string active() const {
        return std::to_string(grid.activeCell().column) + "," + std::to_string(grid.activeCell().row);
    }
    std::string shown(int column, int row) const {
        const std::u16string& text = grid.text(column, row);
        return toUtf8(text.substr(0, text.find(u' ')));
    }
    /// The grid lets nobody go below the first line without a condition.
    void useAllLines() {
        for (int row = 1; row <= grid.maxRows(); ++row)
            ASSERT_TRUE(grid.userChoose(field, row, 1));
    }
    /// Chooses a field by its name through the list.
    void chooseField(int row, std::u16string_view name) {
        grid.setActiveCell(field, row);
        press(stage, VK_F4);
        type(stage, name);
        press(stage, VK_RETURN);
    }

    Stage stage;
    ui::Spread& grid = stage.filter->controls().vsFilter;
    HWND gridWindow = nullptr;
};

TEST_F(GridKeys, MoveTheActiveCellOverSpansAndToTheEnds) {
    struct Case {
        const char* keys;
        ui::CellRef from;
        WORD key;
        bool control;
        bool shift;
        const char* to;
    };
    const Case cases[] = {{"Right", {2, 3}, VK_RIGHT, false, false, "3,3"},
                          {"Right over the value's span", {4, 3}, VK_RIGHT, false, false, "7,3"},
                          {"Left over the value's span", {7, 3}, VK_LEFT, false, false, "4,3"},
                          {"Left at the first column", {1, 3}, VK_LEFT, false, false, "1,3"},
                          {"Up", {2, 3}, VK_UP, false, false, "2,2"},
                          {"Up at the first row", {2, 1}, VK_UP, false, false, "2,1"},
                          {"Down", {2, 3}, VK_DOWN, false, false, "2,4"},
                          {"Home", {7, 3}, VK_HOME, false, false, "1,3"},
                          {"End", {2, 3}, VK_END, false, false, "8,3"},
                          {"Ctrl+Home", {7, 9}, VK_HOME, true, false, "1,1"},
                          {"Ctrl+End", {2, 3}, VK_END, true, false, "8,30"},
                          {"Tab", {3, 3}, VK_TAB, false, false, "4,3"},
                          {"Tab at the end of a row", {8, 3}, VK_TAB, false, false, "1,4"},
                          {"Shift+Tab at the start of a row", {1, 3}, VK_TAB, false, true, "8,2"},
                          {"Enter", {4, 3}, VK_RETURN, false, false, "7,3"}};
    useAllLines();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.keys);
        grid.setActiveCell(c.from.column, c.from.row);
        if (c.control)
            press(stage, c.key, {VK_CONTROL});
        else if (c.shift)
            press(stage, c.key, {VK_SHIFT});
        else
            press(stage, c.key);
        EXPECT_EQ(active(), c.to);
        EXPECT_EQ(GetFocus(), gridWindow) << "the grid keeps the focus";
    }
}

TEST_F(GridKeys, PageDownShowsTheCellThatItGoesTo) {
    useAllLines();
    grid.setActiveCell(field, 1);
    press(stage, VK_NEXT);
    ASSERT_GT(grid.activeCell().row, 5);
    press(stage, VK_NEXT);
    EXPECT_GT(GetScrollPos(gridWindow, SB_VERT), 1) << "the grid has scrolled";
    press(stage, VK_PRIOR);
    press(stage, VK_PRIOR);
    EXPECT_EQ(active(), "2,1");
    EXPECT_EQ(GetScrollPos(gridWindow, SB_VERT), 1);
}

TEST_F(GridKeys, ListSearchesAsTheUserTypesAndEnterChooses) {
    chooseField(1, u"单据编");
    EXPECT_EQ(shown(field, 1), "单据编号");
    EXPECT_EQ(shown(comparison, 1), "等于") << "the field's first comparison has been set";
    EXPECT_EQ(active(), "4,1") << "the value is next";
}

TEST_F(GridKeys, LetterInAComboCellOpensItsList) {
    grid.setActiveCell(field, 2);
    type(stage, u"日");
    press(stage, VK_RETURN);
    EXPECT_EQ(shown(field, 2), "日期");
}

TEST_F(GridKeys, ListUnderARestingPointerKeepsItsSelection) {
    RECT r;
    GetWindowRect(gridWindow, &r);
    SetCursorPos(static_cast<int>(r.left) + 90, static_cast<int>(r.top) + 55);
    pumpFor(stage, 50);
    chooseField(1, u"单据编");
    EXPECT_EQ(shown(field, 1), "单据编号");
}

TEST_F(GridKeys, EscapeClosesTheListWithoutAChoice) {
    grid.setActiveCell(bracket, 1);
    press(stage, VK_DOWN, {VK_MENU});
    press(stage, VK_DOWN);
    press(stage, VK_ESCAPE);
    EXPECT_EQ(shown(bracket, 1), "");
    press(stage, VK_RIGHT);
    EXPECT_EQ(active(), "2,1") << "with the list closed, arrows move";
}

TEST_F(GridKeys, TypedTextIsConfirmedByEnterAndDroppedByEscape) {
    chooseField(1, u"单据编");
    type(stage, u"SK-1");
    EXPECT_TRUE(grid.editMode());
    EXPECT_EQ(shown(value, 1), "") << "nothing is stored before it is confirmed";
    press(stage, VK_RETURN);
    EXPECT_EQ(shown(value, 1), "SK-1");
    EXPECT_FALSE(grid.editMode());
    EXPECT_EQ(active(), "7,1");

    press(stage, VK_LEFT);
    press(stage, VK_F2);
    EXPECT_TRUE(grid.editMode());
    type(stage, u"X");
    press(stage, VK_ESCAPE);
    EXPECT_EQ(shown(value, 1), "SK-1");
    EXPECT_FALSE(grid.editMode());
    EXPECT_EQ(GetFocus(), gridWindow);
}

TEST_F(GridKeys, DateCellTakesDatesAndKeepsItselfOpenForOtherTexts) {
    chooseField(1, u"日期");
    type(stage, u"2024-02-10");
    press(stage, VK_RETURN);
    EXPECT_EQ(shown(value, 1), "02102024");

    grid.setActiveCell(value, 1);
    type(stage, u"abc");
    press(stage, VK_RETURN);
    EXPECT_TRUE(grid.editMode()) << "a text that is no date is not taken";
    EXPECT_EQ(active(), "4,1");
    press(stage, VK_ESCAPE);
    EXPECT_EQ(shown(value, 1), "02102024");
}

TEST_F(GridKeys, CalendarOpensOnTheCellsDateAndEnterTakesIt) {
    chooseField(1, u"日期");
    type(stage, u"2024-02-10");
    press(stage, VK_RETURN);
    grid.setActiveCell(value, 1);
    press(stage, VK_F4);
    EXPECT_NE(GetFocus(), gridWindow) << "the calendar has the focus";
    EXPECT_TRUE(stage.window->focusIsInside());
    press(stage, VK_RIGHT);
    press(stage, VK_RETURN);
    EXPECT_EQ(shown(value, 1), "02112024");
    EXPECT_EQ(GetFocus(), gridWindow);
}

TEST_F(GridKeys, CalendarOfAnEmptyCellOpensOnTheServersDay) {
    chooseField(1, u"日期");
    grid.setActiveCell(value, 1);
    press(stage, VK_F4);
    press(stage, VK_RETURN);
    EXPECT_EQ(shown(value, 1), "02292024");
    press(stage, VK_DELETE);
    stage.host->failNext(u"ORVEBCGLView.GLData", u"getanyrecordset", 5, u"no answer");
    press(stage, VK_F4);
    EXPECT_NE(GetFocus(), gridWindow) << "on the machine's day then";
    EXPECT_EQ(stage.prompts.logged, std::vector<std::string>{"no answer"});
    press(stage, VK_ESCAPE);
    EXPECT_EQ(shown(value, 1), "");
}

TEST_F(GridKeys, DeleteEmptiesACell) {
    chooseField(1, u"单据编");
    type(stage, u"1");
    press(stage, VK_RETURN);
    grid.setActiveCell(value, 1);
    press(stage, VK_DELETE);
    EXPECT_EQ(shown(value, 1), "");
    grid.setActiveCell(field, 1);
    press(stage, VK_DELETE);
    EXPECT_EQ(shown(field, 1), "");
    EXPECT_EQ(shown(comparison, 1), "") << "a cleared field clears its row";
}

TEST_F(GridKeys, EveryKeyIsToldToTheModel) {
    std::optional<std::pair<int, int>> told;
    const auto subscription = grid.keyDown.subscribe([&told](int key, int shift) { told = std::pair(key, shift); });
    press(stage, VK_F7);
    EXPECT_EQ(told, std::pair(118, 0));
    press(stage, VK_F7, {VK_SHIFT});
    EXPECT_EQ(told, std::pair(118, 1));
}

TEST_F(GridKeys, F7TakesTheTypedTextBeforeItLooksUp) {
    chooseField(1, u"单据编");
    type(stage, u"SK");
    press(stage, VK_F7);
    EXPECT_EQ(shown(value, 1), "SK");
}

TEST_F(GridKeys, LeavingTheGridConfirmsWhatIsTyped) {
    chooseField(1, u"单据编");
    type(stage, u"SK-7");
    SetFocus(stage.windowOf(stage.filter->controls().cmdInsert));
    pump(stage);
    EXPECT_EQ(shown(value, 1), "SK-7");
    EXPECT_FALSE(grid.editMode());
}

TEST_F(GridKeys, ATextThatItsCellRefusesBringsTheFocusBack) {
    chooseField(1, u"日期");
    type(stage, u"abc");
    const HWND editBox = GetFocus();
    SetFocus(stage.windowOf(stage.filter->controls().cmdInsert));
    pump(stage);
    EXPECT_EQ(GetFocus(), editBox);
    wchar_t text[16] = {};
    GetWindowTextW(editBox, text, 16);
    EXPECT_EQ(std::wstring(text), L"abc") << "nothing typed is lost";
    EXPECT_TRUE(grid.editMode());
    press(stage, VK_ESCAPE);
    SetFocus(stage.windowOf(stage.filter->controls().cmdInsert));
    pump(stage);
    EXPECT_EQ(GetFocus(), stage.windowOf(stage.filter->controls().cmdInsert));
}

TEST_F(GridKeys, WhatIsTypedCountsInTheFilterText) {
    chooseField(1, u"单据编");
    type(stage, u"SK-7");
    std::u16string sql;
    EXPECT_TRUE(stage.filter->GetFilterSql(sql));
    EXPECT_NE(sql.find(u"'SK-7'"), std::u16string::npos) << toUtf8(sql);
    EXPECT_FALSE(grid.editMode());
}

TEST_F(GridKeys, AWidthBeyondTheLimitIsRefusedWhenTheGridIsLeft) {
    ui::Spread& columns = stage.filter->controls().vsHideColumn;
    stage.filter->controls().tbFilter.select(3);
    pump(stage);
    columns.setFocus();
    columns.setActiveCell(4, 2);
    type(stage, u"200");
    SetFocus(stage.windowOf(stage.filter->controls().cmdHide(2)));
    pump(stage);
    EXPECT_EQ(stage.prompts.messages, std::vector<std::string>{"列的宽度不应该大于150毫米，请重新输入。"});
    EXPECT_EQ(toUtf8(columns.text(4, 2)), "150");
    EXPECT_TRUE(columns.editMode());
    EXPECT_TRUE(IsChild(stage.windowOf(columns), GetFocus())) << "the cell is edited again";
    press(stage, VK_TAB);
    EXPECT_EQ(columns.activeCell(), (ui::CellRef{1, 3})) << "150 is accepted";
}

TEST_F(GridKeys, CopyGivesTheCaptionAndPasteChoosesByIt) {
    chooseField(1, u"单据编");
    grid.setActiveCell(field, 1);
    press(stage, 'C', {VK_CONTROL});
    grid.setActiveCell(field, 3);
    press(stage, 'V', {VK_CONTROL});
    EXPECT_EQ(grid.text(field, 3), grid.text(field, 1));
    EXPECT_EQ(shown(comparison, 3), "等于");
    grid.setActiveCell(field, 1);
    press(stage, 'X', {VK_CONTROL});
    EXPECT_EQ(shown(field, 1), "");
}

TEST_F(GridKeys, TabLeavesTheGridWhereNoLineMayFollow) {
    chooseField(1, u"单据编");
    type(stage, u"SK");
    for (const char* cell : {"7,1", "8,1", "1,2", "2,2", "3,2", "4,2", "7,2", "8,2"}) {
        press(stage, VK_TAB);
        ASSERT_EQ(active(), cell);
    }
    press(stage, VK_TAB);
    EXPECT_EQ(active(), "8,2") << "the second line is blank: a third one may not follow";
    EXPECT_EQ(GetFocus(), stage.windowOf(stage.filter->controls().cmdInsert));
    press(stage, VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), gridWindow);

    grid.setActiveCell(1, 1);
    press(stage, VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), stage.windowOf(stage.filter->controls().tbFilter));
}

TEST_F(GridKeys, F6LeavesTheGridFromAnyCell) {
    press(stage, VK_F6);
    EXPECT_EQ(GetFocus(), stage.windowOf(stage.filter->controls().cmdInsert));
    SetFocus(gridWindow);
    press(stage, VK_F6, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), stage.windowOf(stage.filter->controls().tbFilter));
}

TEST_F(GridKeys, EnterAndEscapeAreTheHostsUnlessACellIsEdited) {
    const auto takes = [this](WPARAM key) {
        MSG message{};
        message.hwnd = GetFocus();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        return stage.window->translateKey(message);
    };
    EXPECT_FALSE(takes(VK_RETURN));
    EXPECT_FALSE(takes(VK_ESCAPE));
    chooseField(1, u"单据编");
    for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}}) {
        grid.setActiveCell(value, 1);
        type(stage, u"SK");
        EXPECT_TRUE(takes(key));
        EXPECT_FALSE(grid.editMode());
        EXPECT_FALSE(takes(key));
        grid.setActiveCell(field, 1);
        press(stage, VK_F4);
        EXPECT_TRUE(takes(key)) << "the list is open";
    }
}

TEST_F(GridKeys, ShiftAndMovesMarkABlockThatIsCopiedAndEmptiedAsOne) {
    const auto clipboard = [this] { return toUtf8(textFromClipboard(gridWindow)); };
    chooseField(1, u"单据编");
    type(stage, u"SK \"1\"");
    press(stage, VK_RETURN);
    chooseField(2, u"日期");
    type(stage, u"2024-02-10");
    press(stage, VK_RETURN);
    grid.setActiveCell(field, 1);
    press(stage, VK_RIGHT, {VK_SHIFT});
    press(stage, VK_RIGHT, {VK_SHIFT});
    press(stage, VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(active(), "2,1") << "the active cell stays";
    press(stage, 'C', {VK_CONTROL});
    EXPECT_EQ(clipboard(), "单据编号\t等于\t\"SK \"\"1\"\"\"\r\n日期\t等于\t2024-02-10\r\n");

    press(stage, VK_UP, {VK_SHIFT});
    press(stage, VK_DELETE);
    EXPECT_EQ(shown(field, 1), "");
    EXPECT_EQ(shown(value, 1), "");
    EXPECT_EQ(shown(field, 2), "日期") << "not marked any more";

    press(stage, 'A', {VK_CONTROL});
    press(stage, VK_DELETE);
    EXPECT_EQ(shown(field, 2), "");
    press(stage, VK_RIGHT);
    press(stage, 'C', {VK_CONTROL});
    EXPECT_EQ(clipboard(), "") << "a move without Shift marks no block";
}

TEST_F(GridKeys, OneTextIsPastedIntoAllMarkedCells) {
    ui::Spread& columns = stage.filter->controls().vsHideColumn;
    stage.filter->controls().tbFilter.select(3);
    pump(stage);
    columns.setFocus();
    columns.setActiveCell(3, 1);
    press(stage, VK_RIGHT, {VK_SHIFT});
    press(stage, VK_DOWN, {VK_SHIFT});
    putOnClipboard(gridWindow, u"0\r\n");
    press(stage, 'V', {VK_CONTROL});
    for (const int row : {1, 2}) {
        EXPECT_FALSE(columns.isChecked(3, row));
        EXPECT_EQ(toUtf8(columns.text(4, row)), "0");
    }
    EXPECT_TRUE(columns.isChecked(3, 3));
}

TEST_F(GridKeys, AnInputMethodComposesInTheEditBox) {
    chooseField(1, u"单据编");
    ASSERT_FALSE(grid.editMode());
    SendMessageW(gridWindow, WM_IME_STARTCOMPOSITION, 0, 0);
    EXPECT_TRUE(grid.editMode());
    EXPECT_NE(GetFocus(), gridWindow);
    type(stage, u"收款");
    press(stage, VK_RETURN);
    EXPECT_EQ(shown(value, 1), "收款");
}

TEST_F(GridKeys, SpaceSwitchesADirectionOfTheSortGrid) {
    ui::Spread& order = stage.filter->controls().vsOrder;
    stage.filter->controls().tbFilter.select(2);
    pump(stage);
    order.setFocus();
    ASSERT_EQ(GetFocus(), stage.windowOf(order));
    ASSERT_FALSE(order.comboItems(1, 1).empty());
    order.setActiveCell(1, 1);
    type(stage, u"日");
    press(stage, VK_RETURN);
    EXPECT_EQ(toUtf8(order.text(2, 1)), "1") << "a new line sorts ascending";
    order.setActiveCell(3, 1);
    press(stage, VK_SPACE);
    EXPECT_EQ(toUtf8(order.text(2, 1) + u"/" + order.text(3, 1)), "0/1");
}

} // namespace
} // namespace orv::windows
