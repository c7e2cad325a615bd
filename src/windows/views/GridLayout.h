#pragma once

#include "ui/Spread.h"

#include <windows.h>

#include <vector>

namespace orv::windows {

/// Measures in pixels that a font and a resolution give.
struct GridMeasures {
    int characterWidth = 7;
    int rowHeight = 20;
    int headerHeight = 22;
    int rowHeaderWidth = 30;
    int minimumColumn = 6; ///< narrower a column cannot be dragged

    /// Of the font that is selected into a device context.
    static GridMeasures of(HDC dc, int dpi, int maxRows);
};

/// The column that takes the room that the others leave: the widest one; 0 in a grid without columns.
int widestColumn(const ui::Spread& grid);

/// Where the cells of a grid stand in its client area. Rows scroll one by one, columns pixel by pixel.
class GridLayout {
  public:
    GridLayout() = default;
    /// `stretched` is the column that takes the room that is left, or gives way where there is too little; 0 for none.
    GridLayout(const ui::Spread& grid, const GridMeasures& measures, SIZE client, int stretched, int topRow,
               int leftPx);

    const GridMeasures& measures() const noexcept { return measures_; }
    SIZE client() const noexcept { return client_; }
    int topRow() const noexcept { return topRow_; }
    int leftPx() const noexcept { return leftPx_; }
    /// The client area without both kinds of headers.
    RECT body() const noexcept;

    /// A cell with all that its span covers; headers included, not clipped.
    RECT cellRect(const ui::Spread& grid, int column, int row) const;
    /// The area of a block of cells of one grid line or several, whatever spans there are.
    RECT blockRect(int column, int row, int columns, int rows) const;
    /// The cell at a point, headers included; 0, 0 beside all cells.
    ui::CellRef cellAt(POINT point) const;
    /// The column whose right border in the header is at that point, 0 when none is.
    int borderAt(POINT point, int tolerancePx) const;

    int columns() const noexcept { return static_cast<int>(right_.size()) - 1; }
    int rows() const noexcept { return rows_; }
    int columnsWidth() const noexcept { return right_.back(); }
    int columnWidth(int column) const;
    /// Rows that fit into the body as a whole, at least one.
    int wholeRows() const noexcept;
    int lastTopRow() const noexcept;
    int lastLeftPx() const noexcept;

  private:
    GridMeasures measures_;
    SIZE client_{};
    int rows_ = 0;
    int topRow_ = 1;
    int leftPx_ = 0;
    std::vector<int> right_{0}; ///< right borders of the columns from the first one's left border; [0] is 0
};

} // namespace orv::windows
