#include "Support.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv::ui {
namespace {

/// The texts of column 1 in rows 1..maxRows, "." for an empty one.
std::string rowsOf(const Spread& grid) {
    std::string rows;
    for (int row = 1; row <= grid.maxRows(); ++row)
        rows += grid.text(1, row).empty() ? "." : shown(grid.text(1, row));
    return rows;
}

/// A grid of 8 columns whose rows hold a, b, c, ... in column 1.
struct Lettered : Grid {
    explicit Lettered(int rows) : Grid(8, rows) {
        for (int row = 1; row <= rows; ++row)
            setText(1, row, std::u16string(1, static_cast<char16_t>(u'a' + row - 1)));
    }
};

TEST(SpreadShape, ShrinkingDropsContentAndGrowingBringsEmptyCells) {
    Lettered grid(5);
    grid.setText(8, 2, u"far");
    grid.setMaxRows(3);
    grid.setMaxRows(5);
    EXPECT_EQ(rowsOf(grid), "abc..");
    grid.setColumnWidth(8, 30);
    grid.setMaxCols(4);
    grid.setMaxCols(8);
    EXPECT_EQ(grid.text(8, 2), u"");
    EXPECT_EQ(grid.columnWidth(8), 8.0);
    EXPECT_EQ(errorOf([&] { grid.setMaxRows(-1); }), 5);
    EXPECT_EQ(errorOf([&] { grid.setMaxCols(-1); }), 5);
}

TEST(SpreadShape, CountsRowsUpToTheLastText) {
    Grid grid(3, 6);
    EXPECT_EQ(grid.dataRowCount(), 0);
    grid.setText(1, 0, u"title");
    grid.setText(0, 6, u"row header");
    grid.setFormat(1, 5, {.type = CellType::comboBox});
    EXPECT_EQ(grid.dataRowCount(), 0);
    grid.setText(3, 4, u"x");
    grid.setText(1, 2, u"y");
    EXPECT_EQ(grid.dataRowCount(), 4);
}

TEST(SpreadShape, TheActiveCellStaysWithinTheGrid) {
    Spread grid(u"vsHideColumn");
    EXPECT_EQ(grid.activeCell(), (CellRef{0, 0}));
    grid.setActiveCell(1, 1);
    EXPECT_EQ(grid.activeCell(), (CellRef{0, 0})) << "there is no cell yet";
    std::vector<CellRef> seen;
    const auto view = grid.activeCellChanged.subscribe([&](int column, int row) { seen.push_back({column, row}); });
    grid.setMaxCols(6);
    grid.setMaxRows(10);
    grid.setActiveCell(4, 8);
    grid.setEditMode(true);
    grid.setMaxRows(5);
    EXPECT_FALSE(grid.editMode()) << "the cell that was edited is gone";
    grid.setMaxCols(2);
    grid.setMaxRows(0);
    EXPECT_EQ(seen, (std::vector<CellRef>{{1, 0}, {1, 1}, {4, 8}, {4, 5}, {2, 5}, {2, 0}}));
}

TEST(SpreadShape, RowsMoveWithAllThatTheyHold) {
    struct Case {
        int from, to;
        const char* rows;
    };
    for (const Case& c : {Case{2, 4, "acdbe"}, Case{4, 2, "adbce"}, Case{1, 5, "bcdea"}, Case{3, 3, "abcde"}}) {
        SCOPED_TRACE(testing::Message() << c.from << " to " << c.to);
        Lettered grid(5);
        grid.setFormat(3, c.from, {.type = CellType::comboBox});
        grid.setComboList(3, c.from, u"p\tq");
        grid.setComboSelection(3, c.from, 1);
        grid.setLocked(4, c.from, true);
        grid.setCellBackColor(4, c.from, 0x123456);
        grid.setText(0, c.from, u"header");
        grid.setActiveCell(2, c.from);
        grid.moveRow(c.from, c.to);
        EXPECT_EQ(rowsOf(grid), c.rows);
        EXPECT_EQ(grid.comboSelection(3, c.to), 1);
        EXPECT_EQ(grid.comboItems(3, c.to).size(), 2U);
        EXPECT_TRUE(grid.locked(4, c.to));
        EXPECT_EQ(grid.cellBackColor(4, c.to), 0x123456U);
        EXPECT_EQ(grid.text(0, c.to), u"header");
        EXPECT_EQ(grid.activeCell(), (CellRef{2, c.from})) << "the active cell keeps its position";
    }
}

TEST(SpreadShape, RowsComeAndGoInTheMiddle) {
    struct Case {
        const char* name;
        void (*act)(Spread&);
        const char* rows;
    };
    for (const Case& c : {Case{"insert one", [](Spread& g) { g.insertRows(2, 1); }, "a.bcd"},
                          Case{"insert at the end", [](Spread& g) { g.insertRows(5, 3); }, "abcd."},
                          Case{"insert more than there is room", [](Spread& g) { g.insertRows(3, 99); }, "ab..."},
                          Case{"insert none", [](Spread& g) { g.insertRows(3, 0); }, "abcde"},
                          Case{"delete two", [](Spread& g) { g.deleteRows(2, 2); }, "ade.."},
                          Case{"delete beyond the end", [](Spread& g) { g.deleteRows(4, 99); }, "abc.."}}) {
        SCOPED_TRACE(c.name);
        Lettered grid(5);
        c.act(grid);
        EXPECT_EQ(rowsOf(grid), c.rows);
        EXPECT_EQ(grid.maxRows(), 5);
    }
    Lettered grid(5);
    for (const int row : {0, 6}) {
        EXPECT_EQ(errorOf([&] { grid.insertRows(row, 1); }), 5);
        EXPECT_EQ(errorOf([&] { grid.deleteRows(row, 1); }), 5);
        EXPECT_EQ(errorOf([&] { grid.moveRow(row, 1); }), 5);
        EXPECT_EQ(errorOf([&] { grid.moveRow(1, row); }), 5);
    }
    EXPECT_EQ(errorOf([&] { grid.insertRows(1, -1); }), 5);
    EXPECT_EQ(rowsOf(grid), "abcde");
}

TEST(SpreadShape, ASpanCoversItsCellsUntilItIsRemovedOrOverlapped) {
    Grid grid(8, 10);
    grid.addSpan({4, 2, 3, 1});
    EXPECT_EQ(grid.spanAt(6, 2), (CellSpan{4, 2, 3, 1}));
    EXPECT_EQ(grid.spanAt(7, 2), (CellSpan{7, 2, 1, 1}));
    EXPECT_EQ(grid.spanAt(4, 3), (CellSpan{4, 3, 1, 1}));
    grid.removeSpan(5, 2);
    EXPECT_EQ(grid.spanAt(5, 2), (CellSpan{4, 2, 3, 1})) << "only its first cell names a span";
    grid.addSpan({5, 1, 2, 3});
    EXPECT_EQ(grid.spanAt(4, 2), (CellSpan{4, 2, 1, 1})) << "overlapped";
    grid.removeSpan(5, 1);
    EXPECT_EQ(grid.spanAt(6, 2), (CellSpan{6, 2, 1, 1}));
    for (const CellSpan& wrong : {CellSpan{7, 1, 3, 1}, CellSpan{1, 10, 1, 2}, CellSpan{1, 0, 2, 2},
                                  CellSpan{0, 1, 2, 1}, CellSpan{2, 2, 0, 1}, CellSpan{2, 2, 1, -1}})
        EXPECT_EQ(errorOf([&] { grid.addSpan(wrong); }), 5) << testing::PrintToString(wrong);
    EXPECT_EQ(errorOf([&] { grid.addSpan({4, 0, 3, 1}); }), 0) << "titles may be spanned";
}

TEST(SpreadShape, SpansFollowTheirRows) {
    constexpr CellSpan gone{2, 0, 0, 0};
    struct Case {
        const char* name;
        CellSpan before;
        void (*act)(Spread&);
        CellSpan after; ///< `gone`: the span is no more
    };
    const std::vector<Case> cases = {
        {"insert above", {2, 4, 3, 1}, [](Spread& g) { g.insertRows(4, 2); }, {2, 6, 3, 1}},
        {"insert below", {2, 4, 3, 1}, [](Spread& g) { g.insertRows(5, 2); }, {2, 4, 3, 1}},
        {"insert inside", {2, 4, 1, 2}, [](Spread& g) { g.insertRows(5, 2); }, {2, 4, 1, 4}},
        {"pushed over the end", {2, 9, 3, 1}, [](Spread& g) { g.insertRows(1, 2); }, gone},
        {"partly over the end", {2, 7, 2, 3}, [](Spread& g) { g.insertRows(1, 2); }, {2, 9, 2, 2}},
        {"delete above", {2, 4, 3, 1}, [](Spread& g) { g.deleteRows(1, 2); }, {2, 2, 3, 1}},
        {"delete its row", {2, 4, 3, 1}, [](Spread& g) { g.deleteRows(4, 1); }, gone},
        {"delete its top", {2, 4, 1, 4}, [](Spread& g) { g.deleteRows(3, 2); }, {2, 3, 1, 3}},
        {"delete its middle", {2, 4, 1, 4}, [](Spread& g) { g.deleteRows(5, 2); }, {2, 4, 1, 2}},
        {"delete down to one cell", {2, 4, 1, 2}, [](Spread& g) { g.deleteRows(5, 1); }, gone},
        {"moved", {2, 4, 3, 1}, [](Spread& g) { g.moveRow(4, 9); }, {2, 9, 3, 1}},
        {"shifted by a move", {2, 4, 3, 2}, [](Spread& g) { g.moveRow(9, 1); }, {2, 5, 3, 2}},
        {"torn by a move", {2, 4, 3, 2}, [](Spread& g) { g.moveRow(4, 9); }, gone},
        {"a row moved into it", {2, 4, 3, 2}, [](Spread& g) { g.moveRow(1, 4); }, gone},
        {"cut by fewer rows", {2, 4, 3, 4}, [](Spread& g) { g.setMaxRows(5); }, {2, 4, 3, 2}},
        {"cut by fewer columns", {2, 4, 3, 1}, [](Spread& g) { g.setMaxCols(3); }, {2, 4, 2, 1}},
        {"beyond the columns", {2, 4, 3, 1}, [](Spread& g) { g.setMaxCols(1), g.setMaxCols(8); }, gone},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Grid grid(8, 10);
        grid.addSpan(c.before);
        c.act(grid);
        for (int row = 1; row <= grid.maxRows(); ++row) {
            const bool covered = c.after != gone && c.after.covers(2, row);
            EXPECT_EQ(grid.spanAt(2, row), (covered ? c.after : CellSpan{2, row, 1, 1}));
        }
    }
}

TEST(SpreadShape, TheActiveCellLeavesACoveredCell) {
    Grid grid(8, 3);
    grid.setActiveCell(5, 2);
    grid.addSpan({4, 2, 3, 1});
    EXPECT_EQ(grid.activeCell(), (CellRef{4, 2}));
    grid.setActiveCell(6, 2);
    EXPECT_EQ(grid.activeCell(), (CellRef{4, 2}));
    grid.setActiveCell(5, 1);
    grid.moveRow(2, 1);
    EXPECT_EQ(grid.activeCell(), (CellRef{4, 1})) << "the span came to the active row";
}

} // namespace
} // namespace orv::ui
