#include "windows/views/GridPainter.h"

#include "automation/Coercion.h"
#include "windows/com/Handles.h"
#include "windows/views/Gdi.h"
#include "windows/views/StandardViews.h"
#include "windows/views/SurfaceColor.h"

#include <algorithm>

namespace orv::windows {

namespace {

using ui::CellType;

class Painter {
  public:
    Painter(HDC dc, const RECT& clip, const ui::Spread& grid, const GridLayout& layout, const GridLook& look)
        : dc_(dc), clip_(clip), grid_(grid), layout_(layout), look_(look), plainColors_(highContrast()) {}

    void paint() const {
        const Selected font(dc_, look_.font ? look_.font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
        SetBkMode(dc_, TRANSPARENT);
        const RECT body = layout_.body();
        const int saved = SaveDC(dc_);
        IntersectClipRect(dc_, static_cast<int>(body.left), static_cast<int>(body.top), static_cast<int>(body.right),
                          static_cast<int>(body.bottom));
        paintBody(body);
        RestoreDC(dc_, saved);
        paintRowHeaders(body);
        paintColumnHeaders(body);
        paintHeaderCell({0, 0, layout_.measures().rowHeaderWidth, layout_.measures().headerHeight}, {}, false, false);
    }

  private:
    int px(int at96) const { return MulDiv(at96, look_.dpi, 96); }
    bool isSeen(const RECT& r) const {
        RECT common;
        return IntersectRect(&common, &r, &clip_) != FALSE;
    }
    int lastRow() const {
        const int height = layout_.measures().rowHeight;
        const int below = static_cast<int>(clip_.bottom) - layout_.measures().headerHeight;
        return std::min(layout_.topRow() + (std::max(below, 0) + height - 1) / height, layout_.rows());
    }
    int firstRow() const {
        const int above = static_cast<int>(clip_.top) - layout_.measures().headerHeight;
        return layout_.topRow() + std::max(above, 0) / layout_.measures().rowHeight;
    }

    void paintBody(const RECT& body) const {
        fillRect(dc_, body, GetSysColor(COLOR_WINDOW));
        const int first = firstRow();
        for (int row = first; row <= lastRow(); ++row) {
            for (int column = 1; column <= layout_.columns(); ++column) {
                const ui::CellSpan span = grid_.spanAt(column, row);
                // A block is drawn by its first cell, or by the highest of its cells that is in sight.
                if (column != span.column || row != std::max(span.row, first))
                    continue;
                const RECT r = layout_.blockRect(span.column, span.row, span.columns, span.rows);
                if (r.right > r.left && isSeen(r))
                    paintCell(r, span.column, span.row);
            }
        }
        paintFocus();
    }

    void paintCell(const RECT& r, int column, int row) const {
        const auto own = plainColors_ ? std::nullopt : grid_.cellBackColor(column, row);
        COLORREF back = own ? plainColor(*own) : GetSysColor(COLOR_WINDOW);
        const bool marked = isMarked(column, row);
        if (marked)
            back = plainColors_ ? GetSysColor(COLOR_HIGHLIGHT)
                                : between(back, GetSysColor(look_.focused ? COLOR_HIGHLIGHT : COLOR_BTNSHADOW), 2);
        fillRect(dc_, r, back);
        fillRect(dc_, {r.right - 1, r.top, r.right, r.bottom}, GetSysColor(COLOR_3DLIGHT));
        fillRect(dc_, {r.left, r.bottom - 1, r.right, r.bottom}, GetSysColor(COLOR_3DLIGHT));
        COLORREF text = own || marked ? readableOn(back) : GetSysColor(COLOR_WINDOWTEXT);
        if (!look_.enabled)
            text = GetSysColor(COLOR_GRAYTEXT);
        const ui::CellFormat& format = grid_.format(column, row);
        if (format.type == CellType::checkBox) {
            paintCheck(r, grid_.isChecked(column, row), text);
            return;
        }
        RECT inner{r.left + px(3), r.top, r.right - px(3), r.bottom - 1};
        if (grid_.activeCell() == ui::CellRef{column, row} && hasButton(grid_, column, row)) {
            const RECT button = arrowRect(r, look_.dpi);
            if (opensPopup(grid_, column, row))
                paintArrow(button, text);
            else
                paintDots(button);
            inner.right = button.left;
        }
        UINT align = DT_LEFT;
        if (format.type == CellType::wholeNumber || format.type == CellType::decimal)
            align = DT_RIGHT;
        if (format.centred)
            align = DT_CENTER;
        drawText(inner, shownInCell(grid_, column, row), text, align);
    }

    /// The active cell keeps its colour, as the place where typing goes.
    bool isMarked(int column, int row) const {
        const ui::CellSpan& m = look_.marked;
        return column >= m.column && column < m.column + m.columns && row >= m.row && row < m.row + m.rows &&
               grid_.activeCell() != ui::CellRef{column, row};
    }

    void drawText(RECT r, const std::u16string& text, COLORREF color, UINT align) const {
        if (text.empty() || r.right <= r.left)
            return;
        SetTextColor(dc_, color);
        // More than a screen's width is never seen, and very long texts are slow to measure.
        const int length = static_cast<int>(std::min<std::size_t>(text.size(), 1000));
        DrawTextW(dc_, asWide(text), length, &r, align | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }

    void paintCheck(const RECT& r, bool checked, COLORREF color) const {
        const int side = std::min(px(13), static_cast<int>(r.bottom - r.top) - 2);
        const int left = static_cast<int>(r.left + r.right - side) / 2;
        const int top = static_cast<int>(r.top + r.bottom - side) / 2;
        // The tick tells the state, its frame stays behind.
        const COLORREF frameColor = plainColors_ ? color : GetSysColor(COLOR_BTNSHADOW);
        const UniquePen frame(CreatePen(PS_SOLID, std::max(px(1), 1), frameColor));
        const UniquePen tick(CreatePen(PS_SOLID, px(2), color));
        const Selected brush(dc_, GetStockObject(NULL_BRUSH));
        {
            const Selected pen(dc_, frame.get());
            Rectangle(dc_, left, top, left + side, top + side);
        }
        if (!checked)
            return;
        const Selected pen(dc_, tick.get());
        const POINT points[] = {{left + side * 3 / 13, top + side * 6 / 13},
                                {left + side * 5 / 13, top + side * 9 / 13},
                                {left + side * 10 / 13, top + side * 3 / 13}};
        Polyline(dc_, points, 3);
    }

    void paintArrow(const RECT& r, COLORREF color) const {
        const int half = px(4);
        const int x = static_cast<int>(r.left + r.right) / 2;
        const int y = static_cast<int>(r.top + r.bottom) / 2 - half / 2;
        const POINT points[] = {{x - half, y}, {x + half, y}, {x, y + half}};
        const UniqueBrush fill(CreateSolidBrush(color));
        const Selected brush(dc_, fill.get());
        const Selected pen(dc_, GetStockObject(NULL_PEN));
        Polygon(dc_, points, 3);
    }

    /// The button of a look-up.
    void paintDots(const RECT& r) const {
        fillRect(dc_, r, GetSysColor(COLOR_BTNFACE));
        fillRect(dc_, {r.left, r.top, r.left + 1, r.bottom}, GetSysColor(COLOR_BTNSHADOW));
        const int side = std::max(px(2), 2);
        const int x = static_cast<int>(r.left + r.right - side) / 2;
        const int y = static_cast<int>(r.top + r.bottom - side) / 2;
        for (const int dot : {x - 2 * side, x, x + 2 * side})
            fillRect(dc_, {dot, y, dot + side, y + side}, GetSysColor(COLOR_BTNTEXT));
    }

    /// The frame of the active cell: strong while the grid has the focus.
    void paintFocus() const {
        const ui::CellRef active = grid_.activeCell();
        if (active.column < 1 || active.row < 1)
            return;
        RECT r = layout_.cellRect(grid_, active.column, active.row);
        const COLORREF color = GetSysColor(look_.focused ? COLOR_HIGHLIGHT : COLOR_BTNSHADOW);
        const int width = look_.focused ? std::max(px(2), 2) : 1;
        fillRect(dc_, {r.left, r.top, r.right, r.top + width}, color);
        fillRect(dc_, {r.left, r.bottom - width, r.right, r.bottom}, color);
        fillRect(dc_, {r.left, r.top, r.left + width, r.bottom}, color);
        fillRect(dc_, {r.right - width, r.top, r.right, r.bottom}, color);
    }

    void paintHeaderCell(const RECT& r, const std::u16string& text, bool active, bool centred) const {
        fillRect(dc_, r, GetSysColor(active ? COLOR_3DLIGHT : COLOR_BTNFACE));
        fillRect(dc_, {r.right - 1, r.top, r.right, r.bottom}, GetSysColor(COLOR_BTNSHADOW));
        fillRect(dc_, {r.left, r.bottom - 1, r.right, r.bottom}, GetSysColor(COLOR_BTNSHADOW));
        drawText({r.left + px(3), r.top, r.right - px(3), r.bottom - 1}, text,
                 GetSysColor(look_.enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT), centred ? DT_CENTER : DT_RIGHT);
    }

    void paintRowHeaders(const RECT& body) const {
        const int width = layout_.measures().rowHeaderWidth;
        RECT below{0, body.top, width, body.bottom};
        if (clip_.left >= width)
            return;
        const int saved = SaveDC(dc_);
        IntersectClipRect(dc_, 0, static_cast<int>(body.top), width, static_cast<int>(body.bottom));
        fillRect(dc_, below, GetSysColor(COLOR_BTNFACE));
        for (int row = firstRow(); row <= lastRow(); ++row) {
            const std::u16string& own = grid_.text(0, row);
            paintHeaderCell(layout_.blockRect(0, row, 1, 1), own.empty() ? automation::numberToText(row) : own,
                            row == grid_.activeCell().row, false);
        }
        RestoreDC(dc_, saved);
    }

    void paintColumnHeaders(const RECT& body) const {
        if (clip_.top >= body.top)
            return;
        const int saved = SaveDC(dc_);
        IntersectClipRect(dc_, static_cast<int>(body.left), 0, static_cast<int>(body.right),
                          static_cast<int>(body.top));
        fillRect(dc_, {body.left, 0, body.right, body.top}, GetSysColor(COLOR_BTNFACE));
        for (int column = 1; column <= layout_.columns(); ++column) {
            const ui::CellSpan block = headerBlock(grid_, column);
            const RECT r = layout_.blockRect(block.column, 0, block.columns, 1);
            if (block.column == column && r.right > r.left && isSeen(r))
                paintHeaderCell(r, grid_.text(column, 0), false, true);
        }
        RestoreDC(dc_, saved);
    }

    HDC dc_;
    const RECT& clip_;
    const ui::Spread& grid_;
    const GridLayout& layout_;
    const GridLook& look_;
    bool plainColors_;
};

/// The columns of one caption around `column`, with blank ones between the first and the last.
ui::CellSpan sameCaption(const ui::Spread& grid, int column) {
    int first = 1, last = 1;
    for (; first <= column; first = last + 1) {
        last = first;
        const std::u16string& caption = grid.text(first, 0);
        for (int other = first + 1; !caption.empty() && other <= grid.maxCols(); ++other) {
            const std::u16string& text = grid.text(other, 0);
            if (text == caption)
                last = other;
            else if (!text.empty())
                break;
        }
        if (column <= last)
            break;
    }
    return {first, 0, last - first + 1, 1};
}

} // namespace

void paintGrid(HDC dc, POINT origin, const RECT& clip, const ui::Spread& grid, const GridLayout& layout,
               const GridLook& look) {
    const int saved = SaveDC(dc);
    OffsetViewportOrgEx(dc, static_cast<int>(origin.x), static_cast<int>(origin.y), nullptr);
    Painter(dc, clip, grid, layout, look).paint();
    RestoreDC(dc, saved);
}

RECT arrowRect(const RECT& cell, int dpi) noexcept {
    const LONG width = std::min<LONG>(MulDiv(17, dpi, 96), cell.right - cell.left);
    return {cell.right - width, cell.top, cell.right, cell.bottom};
}

bool hasButton(const ui::Spread& grid, int column, int row) {
    return opensPopup(grid, column, row) || (grid.format(column, row).looksUp && grid.editable(column, row));
}

bool opensPopup(const ui::Spread& grid, int column, int row) {
    const CellType type = grid.cellType(column, row);
    return (type == CellType::comboBox || type == CellType::date) && grid.editable(column, row);
}

std::u16string shownInCell(const ui::Spread& grid, int column, int row) {
    const std::u16string shown = grid.shownText(column, row);
    const bool padded = shown.size() > 255 && (grid.cellType(column, row) == CellType::comboBox || shown[254] == u' ');
    return padded ? captionOf(shown) : shown;
}

ui::CellSpan headerBlock(const ui::Spread& grid, int column) {
    const ui::CellSpan named = sameCaption(grid, column);
    if (named.columns > 1)
        return named;
    const ui::CellSpan single{column, 0, 1, 1};
    if (grid.maxRows() < 1)
        return single;
    const ui::CellSpan below = grid.spanAt(column, 1);
    const std::u16string& caption = grid.text(below.column, 0);
    for (int other = below.column + 1; other <= below.lastColumn(); ++other) {
        const std::u16string& text = grid.text(other, 0);
        if (!text.empty() && text != caption)
            return single;
    }
    return {below.column, 0, below.columns, 1};
}

} // namespace orv::windows
