#include "UserInput.h"
#include "ui/Spread.h"
#include "windows/views/GridLayout.h"
#include "windows/views/GridPainter.h"

#include <gtest/gtest.h>

// What is drawn, and how much of it.
namespace orv::windows {
namespace {

using namespace testing;

/// A picture in memory to draw into.
class Canvas {
  public:
    Canvas(int width, int height) : width_(width), height_(height) {
        const HDC screen = GetDC(nullptr);
        dc_ = CreateCompatibleDC(screen);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        SelectObject(dc_, bitmap_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }
    HDC dc() const { return dc_; }
    bool shows(COLORREF color) const {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                if (GetPixel(dc_, x, y) == color)
                    return true;
            }
        }
        return false;
    }

  private:
    int width_;
    int height_;
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
};

int widthOf(const RECT& r) {
    return static_cast<int>(r.right - r.left);
}
int heightOf(const RECT& r) {
    return static_cast<int>(r.bottom - r.top);
}

TEST(GridLayoutTest, FindsCellsHeadersAndBorders) {
    ui::Spread grid(u"grid");
    grid.setMaxRows(100);
    grid.setMaxCols(3);
    grid.setColumnWidth(1, 10);
    grid.setColumnHidden(2, true);
    grid.setColumnWidth(3, 20);
    GridMeasures measures;
    measures.characterWidth = 10;
    measures.rowHeight = 20;
    measures.headerHeight = 25;
    measures.rowHeaderWidth = 30;
    const GridLayout layout(grid, measures, {230, 125}, 0, 11, 0);

    struct Case {
        const char* what;
        POINT at;
        ui::CellRef cell;
    };
    const Case cases[] = {{"corner", {5, 5}, {0, 0}},
                          {"header", {35, 5}, {1, 0}},
                          {"row header", {5, 26}, {0, 11}},
                          {"first cell", {30, 25}, {1, 11}},
                          {"last pixel", {129, 44}, {1, 11}},
                          {"past the hidden column", {130, 45}, {3, 12}},
                          {"right of the cells", {400, 50}, {0, 0}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(layout.cellAt(c.at), c.cell);
    }
    EXPECT_EQ(layout.wholeRows(), 5);
    EXPECT_EQ(layout.lastTopRow(), 96);
    EXPECT_EQ(layout.lastLeftPx(), 100);
    EXPECT_EQ(layout.borderAt({131, 10}, 3), 1);
    EXPECT_EQ(layout.borderAt({131, 60}, 3), 0) << "below the header there is no border to drag";
}

TEST(GridLayoutTest, WidestColumnTakesTheRoomThatIsLeftOrGivesWay) {
    ui::Spread grid(u"grid");
    grid.setMaxRows(1);
    grid.setMaxCols(2);
    grid.setColumnWidth(2, 20);
    struct Case {
        const char* what;
        LONG client;
        int widest;
        int scrolls;
    };
    // Row headers take 30 px, the first column 8 characters of 7 px; the widest asks for 20.
    const Case cases[] = {{"room to spare", 500, 414, 0},
                          {"too little room", 200, 114, 0},
                          {"no room for a readable column", 100, 56, 42}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const GridLayout layout(grid, GridMeasures{}, {c.client, 100}, widestColumn(grid), 1, 0);
        EXPECT_EQ(layout.columnWidth(1), 56);
        EXPECT_EQ(layout.columnWidth(2), c.widest);
        EXPECT_EQ(layout.lastLeftPx(), c.scrolls);
    }
}

TEST(GridDrawing, ACellUpdateRedrawsThatCellAlone) {
    Stage stage;
    stage.openClassType(1000201);
    pump(stage);
    ui::Spread& grid = stage.filter->controls().vsFilter;
    const HWND window = stage.windowOf(grid);
    UpdateWindow(window);
    ASSERT_FALSE(GetUpdateRect(window, nullptr, FALSE)) << "all is drawn";
    grid.setText(8, 2, u"或");
    RECT dirty;
    ASSERT_TRUE(GetUpdateRect(window, &dirty, FALSE));
    RECT client;
    GetClientRect(window, &client);
    EXPECT_LT(widthOf(dirty), widthOf(client) / 3);
    EXPECT_LT(heightOf(dirty), 30);
}

TEST(GridDrawing, FiveThousandRowsScrollWithoutBeingDrawnAnew) {
    Stage stage;
    stage.openClassType(1000201);
    stage.filter->controls().tbFilter.select(3);
    pump(stage);
    ui::Spread& grid = stage.filter->controls().vsHideColumn;
    grid.setMaxRows(5000);
    for (int row = 1; row <= 5000; ++row)
        grid.setText(1, row, u"列");
    const HWND window = stage.windowOf(grid);
    pump(stage);
    UpdateWindow(window);
    RECT client;
    GetClientRect(window, &client);
    SendMessageW(window, WM_VSCROLL, SB_LINEDOWN, 0);
    RECT dirty;
    ASSERT_TRUE(GetUpdateRect(window, &dirty, FALSE));
    EXPECT_LT(heightOf(dirty), 3 * 24) << "only the line that came into sight is drawn";
    EXPECT_GT(dirty.bottom, client.bottom - 5);

    const DWORD start = GetTickCount();
    for (int i = 0; i < 500; ++i) {
        SendMessageW(window, WM_VSCROLL, SB_LINEDOWN, 0);
        UpdateWindow(window);
    }
    RecordProperty("msFor500Lines", static_cast<int>(GetTickCount() - start));
    EXPECT_EQ(GetScrollPos(window, SB_VERT), 502);
    SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_GT(GetScrollPos(window, SB_VERT), 4900);
}

TEST(GridDrawing, ShowsTheColoursOfCellsAndTheFocus) {
    ui::Spread grid(u"grid");
    grid.setMaxRows(3);
    grid.setMaxCols(2);
    grid.setCellBackColor(2, 2, 0xE8FDFD);
    grid.setActiveCell(1, 1);
    const GridLayout layout(grid, GridMeasures{}, {200, 100}, 0, 1, 0);
    const Canvas canvas(200, 100);
    GridLook look;
    look.focused = true;
    paintGrid(canvas.dc(), {0, 0}, {0, 0, 200, 100}, grid, layout, look);
    EXPECT_TRUE(canvas.shows(0xE8FDFD)) << "the cell's own colour";
    EXPECT_EQ(GetPixel(canvas.dc(), 31, 23), GetSysColor(COLOR_HIGHLIGHT)) << "the frame of the active cell";
    look.focused = false;
    paintGrid(canvas.dc(), {0, 0}, {0, 0, 200, 100}, grid, layout, look);
    EXPECT_NE(GetPixel(canvas.dc(), 31, 23), GetSysColor(COLOR_HIGHLIGHT));
}

TEST(GridDrawing, CellsShowCaptionsAndDatesAsUsersReadThem) {
    ui::Spread grid(u"grid");
    grid.setMaxRows(1);
    grid.setMaxCols(3);
    const std::u16string padded = u"日期" + std::u16string(253, u' ') + u"7";
    grid.setFormat(1, 1, {.type = ui::CellType::comboBox});
    grid.setComboList(1, 1, padded);
    grid.setComboSelection(1, 1, 0);
    grid.setFormat(2, 1, {.type = ui::CellType::date});
    grid.setText(2, 1, u"02292024");
    grid.setText(3, 1, std::u16string(300, u'x'));
    EXPECT_EQ(shownInCell(grid, 1, 1), u"日期");
    EXPECT_EQ(shownInCell(grid, 2, 1), u"2024-02-29");
    EXPECT_EQ(shownInCell(grid, 3, 1).size(), 300U) << "a long text of the user's is no padded item";
}

TEST(GridDrawing, ColumnsOfOneCaptionHaveOneHeaderWhateverTheFirstRowSpans) {
    ui::Spread grid(u"grid");
    grid.setMaxRows(2);
    grid.setMaxCols(6);
    for (const auto& [column, caption] : {std::pair{1, u"field"}, {2, u"value"}, {4, u"value"}, {6, u"end"}})
        grid.setText(column, 0, caption);
    const auto columns = [&grid](int column) {
        const ui::CellSpan block = headerBlock(grid, column);
        return std::pair(block.column, block.lastColumn());
    };
    for (const ui::CellSpan span : {ui::CellSpan{2, 1, 1, 1}, ui::CellSpan{2, 1, 3, 1}, ui::CellSpan{3, 1, 2, 1}}) {
        if (span.columns > 1)
            grid.addSpan(span);
        for (const int column : {2, 3, 4})
            EXPECT_EQ(columns(column), std::pair(2, 4)) << span.column << "+" << span.columns;
        EXPECT_EQ(columns(1), std::pair(1, 1));
        EXPECT_EQ(columns(5), std::pair(5, 5));
        EXPECT_EQ(columns(6), std::pair(6, 6));
        grid.removeSpan(span.column, span.row);
    }
}

TEST(InactivePicture, IsDrawnIntoBitmapsAndMetafiles) {
    Stage stage;
    stage.openClassType(1000201);
    stage.filter->SetBackGroundColor(0x00C0D0E0);
    const Canvas canvas(640, 400);
    paintInactive(canvas.dc(), {0, 0, 640, 400}, *stage.filter, appearanceAt(96));
    EXPECT_EQ(GetPixel(canvas.dc(), 2, 2), COLORREF{0x00C0D0E0}) << "the surface";
    const ui::Rect grid = stage.filter->controls().vsFilter.bounds();
    EXPECT_EQ(GetPixel(canvas.dc(), grid.left + grid.width - 10, grid.top + grid.height - 10),
              GetSysColor(COLOR_WINDOW));

    const HDC metafile = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    paintInactive(metafile, {0, 0, 640, 400}, *stage.filter, appearanceAt(96));
    const HENHMETAFILE recorded = CloseEnhMetaFile(metafile);
    ENHMETAHEADER header{};
    GetEnhMetaFileHeader(recorded, sizeof header, &header);
    DeleteEnhMetaFile(recorded);
    EXPECT_GT(header.nRecords, 200U);
}

/// The bars that a grid shows at an outer size.
DWORD barsAt(HWND grid, int width, int height) {
    SetWindowPos(grid, nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE);
    return static_cast<DWORD>(GetWindowLongW(grid, GWL_STYLE)) & (WS_VSCROLL | WS_HSCROLL);
}

TEST(GridBars, OfWhichEachMakesTheOtherOneNecessaryComeToRest) {
    constexpr int plenty = 4000;
    Stage stage;
    stage.openClassType(1000201);
    stage.filter->SetPagetoTop(3);
    pump(stage);
    const HWND grid = stage.windowOf(stage.filter->controls().vsHideColumn);
    ASSERT_NE(grid, nullptr);
    ASSERT_EQ(barsAt(grid, plenty, plenty), 0u);
    // The least size at which there is no bar.
    int width = plenty, height = plenty;
    for (int step = plenty / 2; step > 0; step /= 2) {
        while (width > step && barsAt(grid, width - step, plenty) == 0)
            width -= step;
        while (height > step && barsAt(grid, plenty, height - step) == 0)
            height -= step;
    }
    EXPECT_EQ(barsAt(grid, width + 100, height - 50), DWORD{WS_VSCROLL});
    EXPECT_EQ(barsAt(grid, width + 2, height + 2), 0u) << "all is to be seen without them";
    EXPECT_EQ(barsAt(grid, width - 50, height + 100), DWORD{WS_HSCROLL});
    EXPECT_EQ(barsAt(grid, width - 50, height - 50), DWORD{WS_VSCROLL | WS_HSCROLL});
}

} // namespace
} // namespace orv::windows
