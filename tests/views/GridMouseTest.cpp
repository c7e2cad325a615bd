#include "UserInput.h"
#include "ui/Spread.h"
#include "windows/views/Clipboard.h"
#include "windows/views/GridLayout.h"
#include "windows/views/GridPainter.h"

#include <gtest/gtest.h>

// The grids under the user's mouse.
namespace orv::windows {
namespace {

using namespace testing;

class GridMouse : public ::testing::Test {
  protected:
    void SetUp() override {
        stage.openClassType(1000201);
        pump(stage);
        gridWindow = stage.windowOf(grid);
        ASSERT_NE(gridWindow, nullptr);
    }
    GridLayout layout() const {
        RECT client;
        GetClientRect(gridWindow, &client);
        const HDC dc = GetDC(gridWindow);
        const Appearance look = appearanceAt(96);
        const HFONT font = CreateFontIndirectW(&look.font);
        const HGDIOBJ old = SelectObject(dc, font);
        const GridMeasures measures = GridMeasures::of(dc, 96, grid.maxRows());
        SelectObject(dc, old);
        DeleteObject(font);
        ReleaseDC(gridWindow, dc);
        return GridLayout(grid, measures, {client.right, client.bottom}, 4, GetScrollPos(gridWindow, SB_VERT),
                          GetScrollPos(gridWindow, SB_HORZ));
    }
    POINT centreOf(int column, int row) const {
        const RECT r = layout().cellRect(grid, column, row);
        return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
    }

    Stage stage;
    ui::Spread& grid = stage.filter->controls().vsFilter;
    HWND gridWindow = nullptr;
};

TEST_F(GridMouse, ClickGoesToTheCellAndTakesTheFocus) {
    SetFocus(stage.windowOf(stage.filter->controls().cmdDel));
    grid.userChoose(2, 1, 1);
    click(stage, gridWindow, centreOf(3, 2));
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{3, 2}));
    EXPECT_EQ(GetFocus(), gridWindow);
}

TEST_F(GridMouse, ClickAnywhereInASpanGoesToItsFirstCell) {
    const RECT span = layout().cellRect(grid, 4, 1);
    click(stage, gridWindow, {span.right - 4, span.top + 4});
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{4, 1}));
}

TEST_F(GridMouse, SecondClickOpensTheListAndAClickThereChooses) {
    grid.setActiveCell(2, 1);
    click(stage, gridWindow, {layout().cellRect(grid, 1, 1).left + 5, centreOf(1, 1).y});
    ASSERT_EQ(FindWindowW(L"LISTBOX", nullptr), nullptr) << "the first click selects the cell";
    click(stage, gridWindow, {layout().cellRect(grid, 1, 1).left + 5, centreOf(1, 1).y});
    const HWND list = FindWindowW(L"LISTBOX", nullptr);
    ASSERT_NE(list, nullptr) << "the list is open";
    RECT second;
    SendMessageW(list, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&second));
    click(stage, list, {second.left + 5, (second.top + second.bottom) / 2});
    EXPECT_EQ(grid.text(1, 1), u"(");
    EXPECT_EQ(FindWindowW(L"LISTBOX", nullptr), nullptr) << "the list is closed";
    EXPECT_EQ(GetFocus(), gridWindow);
}

TEST_F(GridMouse, ButtonOfALookUpDoesWhatF7Does) {
    std::vector<int> keys;
    const auto subscription = grid.keyDown.subscribe([&keys](int key, int) { keys.push_back(key); });
    ui::CellFormat format;
    format.looksUp = true;
    grid.setFormat(4, 1, format);
    grid.setActiveCell(2, 1);
    const RECT cell = layout().cellRect(grid, 4, 1);
    const POINT button{cell.right - 5, (cell.top + cell.bottom) / 2};
    click(stage, gridWindow, button);
    EXPECT_TRUE(keys.empty()) << "the first click goes to the cell, which has its button from then on";
    click(stage, gridWindow, button);
    EXPECT_EQ(keys, std::vector<int>{ui::key::f7});
    click(stage, gridWindow, {cell.left + 5, button.y});
    ASSERT_TRUE(grid.editMode());
    click(stage, gridWindow, button);
    EXPECT_EQ(keys.size(), 2U) << "the edit box leaves the button free";
    EXPECT_FALSE(grid.editMode());
    grid.setFormat(4, 1, {});
    click(stage, gridWindow, button);
    EXPECT_EQ(keys.size(), 2U);
}

TEST_F(GridMouse, ClickOnAHeaderOrBesideTheCellsIsToldButMovesNothing) {
    std::vector<ui::CellRef> clicks;
    const auto subscription = grid.click.subscribe([&](int column, int row) { clicks.push_back({column, row}); });
    const ui::CellRef before = grid.activeCell();
    click(stage, gridWindow, {5, centreOf(1, 2).y});
    click(stage, gridWindow, {centreOf(2, 1).x, 5});
    EXPECT_EQ(clicks, (std::vector<ui::CellRef>{{0, 2}, {2, 0}}));
    EXPECT_EQ(grid.activeCell(), before);
}

TEST_F(GridMouse, DraggingAHeaderBorderResizesItsColumn) {
    const double before = grid.columnWidth(2);
    const RECT r = layout().blockRect(2, 0, 1, 1);
    drag(stage, gridWindow, {r.right, 6}, {r.right + 40, 6});
    EXPECT_GT(grid.columnWidth(2), before + 3);
    EXPECT_LT(grid.columnWidth(2), before + 9);
    const RECT wider = layout().blockRect(2, 0, 1, 1);
    EXPECT_NEAR(static_cast<double>(wider.right), static_cast<double>(r.right + 40), 2.0);
}

TEST_F(GridMouse, DoubleClickOnAHeaderBorderFitsTheColumn) {
    grid.setColumnWidth(2, 40);
    grid.userChoose(2, 1, 1);
    grid.setActiveCell(1, 2);
    pump(stage);
    const RECT r = layout().blockRect(2, 0, 1, 1);
    SendMessageW(gridWindow, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(r.right, 6));
    pump(stage);
    EXPECT_LT(grid.columnWidth(2), 25);
    EXPECT_GT(grid.columnWidth(2), 6) << "the heading still fits";
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{1, 2}));
}

TEST_F(GridMouse, DraggingMarksABlockAndAHeaderItsLine) {
    const auto copied = [this] {
        SendMessageW(gridWindow, WM_COPY, 0, 0);
        return parseBlock(textFromClipboard(gridWindow));
    };
    for (const int row : {1, 2})
        grid.userChoose(2, row, row);
    grid.setActiveCell(1, 1);
    pump(stage);
    drag(stage, gridWindow, centreOf(2, 1), centreOf(3, 2));
    const TextBlock block = copied();
    ASSERT_EQ(block.size(), 2u);
    ASSERT_EQ(block[0].size(), 2u);
    EXPECT_EQ(block[1][0], shownInCell(grid, 2, 2));
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{2, 1}));

    click(stage, gridWindow, {5, centreOf(2, 2).y});
    ASSERT_EQ(copied().size(), 1u);
    EXPECT_EQ(copied()[0].size(), 6u) << "the value's span is one cell";
    click(stage, gridWindow, {centreOf(2, 1).x, 5});
    EXPECT_EQ(copied().size(), static_cast<std::size_t>(grid.maxRows()));
    click(stage, gridWindow, centreOf(3, 1));
    EXPECT_EQ(copied().size(), 1u);
}

TEST_F(GridMouse, WheelScrollsByLines) {
    SetFocus(gridWindow);
    click(stage, gridWindow, centreOf(2, 1));
    wheel(stage, -1);
    const int scrolled = GetScrollPos(gridWindow, SB_VERT);
    EXPECT_GT(scrolled, 1);
    wheel(stage, 1);
    EXPECT_EQ(GetScrollPos(gridWindow, SB_VERT), 1);
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{2, 1})) << "scrolling moves no cell";
}

TEST_F(GridMouse, CheckBoxOfTheColumnGridSwitchesByAClick) {
    ui::Spread& columns = stage.filter->controls().vsHideColumn;
    stage.filter->controls().tbFilter.select(3);
    pump(stage);
    gridWindow = stage.windowOf(columns);
    ASSERT_NE(gridWindow, nullptr);
    RECT client;
    GetClientRect(gridWindow, &client);
    const bool before = columns.isChecked(3, 2);
    // The box stands in the third column; its place is looked for along the second row.
    for (int x = 30; x < client.right && columns.isChecked(3, 2) == before; x += 12)
        click(stage, gridWindow, {x, 50});
    EXPECT_NE(columns.isChecked(3, 2), before);
    EXPECT_EQ(columns.activeCell(), (ui::CellRef{3, 2}));
}

} // namespace
} // namespace orv::windows
