#include "windows/views/GridLayout.h"

#include <algorithm>
#include <cmath>

namespace orv::windows {

GridMeasures GridMeasures::of(HDC dc, int dpi, int maxRows) {
    TEXTMETRICW metric{};
    GetTextMetricsW(dc, &metric);
    SIZE digit{};
    GetTextExtentPoint32W(dc, L"0", 1, &digit);
    const auto px = [dpi](int at96) { return MulDiv(at96, dpi, 96); };
    int digits = 2;
    for (int rows = maxRows; rows >= 100; rows /= 10)
        ++digits;
    GridMeasures m;
    m.characterWidth = std::max(static_cast<int>(digit.cx), 1);
    m.rowHeight = static_cast<int>(metric.tmHeight) + px(6);
    m.headerHeight = static_cast<int>(metric.tmHeight) + px(8);
    m.rowHeaderWidth = digits * m.characterWidth + px(12);
    m.minimumColumn = px(6);
    return m;
}

int widestColumn(const ui::Spread& grid) {
    int widest = 0;
    for (int column = 1; column <= grid.maxCols(); ++column) {
        if (!grid.columnHidden(column) && (widest == 0 || grid.columnWidth(column) > grid.columnWidth(widest)))
            widest = column;
    }
    return widest;
}

GridLayout::GridLayout(const ui::Spread& grid, const GridMeasures& measures, SIZE client, int stretched, int topRow,
                       int leftPx)
    : measures_(measures), client_(client), rows_(grid.maxRows()) {
    std::vector<int> widths;
    for (int column = 1; column <= grid.maxCols(); ++column) {
        const bool hidden = grid.columnHidden(column);
        widths.push_back(hidden ? 0
                                : static_cast<int>(std::lround(grid.columnWidth(column) * measures.characterWidth)));
    }
    int total = 0;
    for (const int width : widths)
        total += width;
    const int room = static_cast<int>(client.cx) - measures.rowHeaderWidth - total;
    if (stretched >= 1 && stretched <= grid.maxCols()) {
        int& width = widths[static_cast<std::size_t>(stretched - 1)];
        // It gives way, too, before the grid has to scroll, but stays readable.
        width = std::max(width + room, width * 2 / 5);
    }
    for (const int width : widths)
        right_.push_back(right_.back() + width);
    topRow_ = std::clamp(topRow, 1, lastTopRow());
    leftPx_ = std::clamp(leftPx, 0, lastLeftPx());
}

RECT GridLayout::body() const noexcept {
    return {measures_.rowHeaderWidth, measures_.headerHeight, client_.cx, client_.cy};
}

RECT GridLayout::blockRect(int column, int row, int columns, int rows) const {
    RECT r{0, 0, measures_.rowHeaderWidth, measures_.headerHeight};
    if (column > 0) {
        r.left = measures_.rowHeaderWidth - leftPx_ + right_[static_cast<std::size_t>(column - 1)];
        r.right = measures_.rowHeaderWidth - leftPx_ + right_[static_cast<std::size_t>(column + columns - 1)];
    }
    if (row > 0) {
        r.top = measures_.headerHeight + (row - topRow_) * measures_.rowHeight;
        r.bottom = r.top + rows * measures_.rowHeight;
    }
    return r;
}

RECT GridLayout::cellRect(const ui::Spread& grid, int column, int row) const {
    const ui::CellSpan span = grid.spanAt(column, row);
    return blockRect(span.column, span.row, span.columns, span.rows);
}

ui::CellRef GridLayout::cellAt(POINT point) const {
    ui::CellRef cell{0, 0};
    const int x = static_cast<int>(point.x) - measures_.rowHeaderWidth;
    const int y = static_cast<int>(point.y) - measures_.headerHeight;
    if (x >= 0) {
        const auto found = std::upper_bound(right_.begin(), right_.end(), x + leftPx_);
        if (found == right_.end())
            return {0, 0};
        cell.column = static_cast<int>(found - right_.begin());
    }
    if (y >= 0) {
        cell.row = topRow_ + y / measures_.rowHeight;
        if (cell.row > rows_)
            return {0, 0};
    }
    return cell;
}

int GridLayout::borderAt(POINT point, int tolerancePx) const {
    if (point.y < 0 || point.y >= measures_.headerHeight)
        return 0;
    const int x = static_cast<int>(point.x) - measures_.rowHeaderWidth + leftPx_;
    for (int column = columns(); column >= 1; --column) {
        const int border = right_[static_cast<std::size_t>(column)];
        if (columnWidth(column) > 0 && std::abs(border - x) <= tolerancePx)
            return column;
    }
    return 0;
}

int GridLayout::columnWidth(int column) const {
    return right_[static_cast<std::size_t>(column)] - right_[static_cast<std::size_t>(column - 1)];
}

int GridLayout::wholeRows() const noexcept {
    return std::max((static_cast<int>(client_.cy) - measures_.headerHeight) / measures_.rowHeight, 1);
}

int GridLayout::lastTopRow() const noexcept {
    return std::max(rows_ - wholeRows() + 1, 1);
}

int GridLayout::lastLeftPx() const noexcept {
    return std::max(columnsWidth() - (static_cast<int>(client_.cx) - measures_.rowHeaderWidth), 0);
}

} // namespace orv::windows
