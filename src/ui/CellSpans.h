#pragma once

#include <vector>

namespace orv::ui {

/// A block of cells shown as one: its first cell's. Columns and rows count as in CellRef.
struct CellSpan {
    int column = 0, row = 0, columns = 1, rows = 1;

    int lastColumn() const noexcept { return column + columns - 1; }
    int lastRow() const noexcept { return row + rows - 1; }
    bool covers(int atColumn, int atRow) const noexcept {
        return atColumn >= column && atColumn <= lastColumn() && atRow >= row && atRow <= lastRow();
    }
    friend bool operator==(const CellSpan&, const CellSpan&) = default;
};

/// The spans of a grid: blocks of at least two cells that do not overlap.
class CellSpans {
  public:
    /// Adds a span; those that it overlaps go. A span of a single cell only does the latter.
    void add(const CellSpan& span);
    void removeAt(int column, int row);
    /// The span that covers a cell; its own single cell when none does.
    CellSpan at(int column, int row) const;

    /// Cuts spans off at the new size of the grid.
    void clip(int maxColumns, int maxRows);
    /// Spans below move down; one that the new rows come into the middle of grows by them; all are cut at `maxRows`.
    void insertRows(int row, int count, int maxRows);
    /// Spans below move up; one that loses rows shrinks, and goes when a single cell is left.
    void deleteRows(int row, int count);
    /// A span within one row moves with it. A taller one moves when all its rows shift together, and goes when the
    /// move tears it apart.
    void moveRow(int from, int to);

  private:
    std::vector<CellSpan> spans_;
};

} // namespace orv::ui
