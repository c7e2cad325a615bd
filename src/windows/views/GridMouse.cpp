#include "windows/views/GridView.h"

#include "windows/com/Handles.h"

#include <algorithm>

// The grid's mouse.
namespace orv::windows {

void GridView::onButtonDown(POINT at, bool doubleClick) {
    const int border = layout_.borderAt(at, dressing().px(3));
    if (!commit() || !ready())
        return;
    const bool wasOpen = list_ != nullptr;
    closePopups();
    SetFocus(hwnd());
    if (!ready())
        return;
    if (border > 0) {
        if (doubleClick) {
            fitColumn(border);
            return;
        }
        draggedColumn_ = border;
        dragFrom_ = static_cast<int>(at.x);
        dragWidth_ = layout_.columnWidth(border);
        SetCapture(hwnd());
        return;
    }
    const ui::CellRef hit = layout_.cellAt(at);
    if (GetKeyState(VK_SHIFT) < 0 && hit.column >= 1 && hit.row >= 1) {
        extendTo(hit.column, hit.row);
        markingFrom_ = block_ ? block_->from : typed().activeCell();
        SetCapture(hwnd());
        return;
    }
    const ui::CellRef before = typed().activeCell();
    unmark();
    typed().userClick(hit.column, hit.row);
    if (!ready() || hit.column > typed().maxCols() || hit.row > typed().maxRows())
        return;
    if (hit.column < 1 || hit.row < 1) {
        markLines(hit, at);
        return;
    }
    const ui::CellSpan span = typed().spanAt(hit.column, hit.row);
    const ui::CellRef cell{span.column, span.row};
    if (typed().activeCell() != cell)
        return; // a leave handler has refused
    const ui::CellType type = typed().cellType(cell.column, cell.row);
    if (type == ui::CellType::checkBox) {
        typed().userToggle(cell.column, cell.row);
        return;
    }
    const RECT r = layout_.cellRect(typed(), cell.column, cell.row);
    const RECT arrow = arrowRect(r, dressing().look.dpi);
    const bool onButton = hasButton(typed(), cell.column, cell.row) && PtInRect(&arrow, at);
    const bool onArrow = onButton && opensPopup(typed(), cell.column, cell.row);
    const bool pureList = type == ui::CellType::comboBox && !typed().format(cell.column, cell.row).freeText;
    if (onButton && !onArrow) {
        // The dialog opens once the button of the mouse is up again; a click that only goes to the cell opens none.
        pressing_ = before == cell;
        if (pressing_)
            SetCapture(hwnd());
        return;
    }
    if (onArrow || (pureList && before == cell)) {
        if (!wasOpen)
            openPopup();
    } else if (doubleClick || (before == cell && !pureList)) {
        beginEdit(std::nullopt);
    }
    if (ready() && !edit_ && !list_ && !calendar_) {
        markingFrom_ = cell;
        SetCapture(hwnd());
    }
}

/// A click on a header marks its row or column, one in the corner all cells.
void GridView::markLines(ui::CellRef hit, POINT at) {
    const bool besideAll = hit == ui::CellRef{0, 0} &&
                           (at.x >= layout_.measures().rowHeaderWidth || at.y >= layout_.measures().headerHeight);
    if (besideAll || typed().maxCols() < 1 || typed().maxRows() < 1)
        return;
    const ui::CellRef from{std::max(hit.column, 1), std::max(hit.row, 1)};
    mark(from, {hit.column > 0 ? hit.column : typed().maxCols(), hit.row > 0 ? hit.row : typed().maxRows()});
    markingFrom_ = hit;
    SetCapture(hwnd());
}

void GridView::onMouseMove(POINT at) {
    if (markingFrom_) {
        markTo(at);
        return;
    }
    if (draggedColumn_ < 1 || draggedColumn_ > typed().maxCols())
        return;
    sizeColumn(draggedColumn_, dragWidth_ + static_cast<int>(at.x) - dragFrom_);
}

void GridView::markTo(POINT at) {
    // Beyond the edge the grid scrolls under the pointer.
    const RECT body = layout_.body();
    if (at.y < body.top && topRow_ > 1)
        scrollTo(topRow_ - 1, leftPx_);
    else if (at.y >= body.bottom)
        scrollTo(topRow_ + 1, leftPx_);
    const auto inside = [](LONG value, LONG low, LONG high) { return std::max(std::min(value, high - 1), low); };
    const int lastRight = layout_.measures().rowHeaderWidth + layout_.columnsWidth() - layout_.leftPx();
    const POINT nearest{inside(at.x, body.left, std::min<LONG>(body.right, lastRight)),
                        inside(at.y, body.top, body.bottom)};
    ui::CellRef hit = layout_.cellAt(nearest);
    if (hit.row < 1)
        hit.row = typed().maxRows(); // below the last row
    if (hit.column < 1)
        hit.column = typed().maxCols();
    const ui::CellRef from{std::max(markingFrom_->column, 1), std::max(markingFrom_->row, 1)};
    if (markingFrom_->column == 0)
        hit.column = typed().maxCols();
    if (markingFrom_->row == 0)
        hit.row = typed().maxRows();
    const ui::CellSpan span = typed().spanAt(hit.column, hit.row);
    const ui::CellRef to{span.column, span.row};
    const ui::CellRef now = block_ ? block_->to : typed().activeCell();
    if (to != now || (block_ && block_->from != from))
        mark(from, to);
}

void GridView::sizeColumn(int column, int widthPx) {
    if (column == stretched_)
        stretched_ = 0;
    typed().setColumnWidth(column,
                           static_cast<double>(std::max(widthPx, measures_.minimumColumn)) / measures_.characterWidth);
}

void GridView::fitColumn(int column) {
    const WindowDc dc(hwnd());
    const Selected font(dc.get(), dressing().font.get());
    int widest = 0;
    const auto measure = [&](const std::u16string& text, int extra) {
        SIZE size{};
        // No column is wider than its grid, and very long texts are slow to measure.
        const int length = static_cast<int>(std::min<std::size_t>(text.size(), 1000));
        GetTextExtentPoint32W(dc.get(), asWide(text), length, &size);
        widest = std::max(widest, static_cast<int>(size.cx) + extra);
    };
    const int margins = dressing().px(8);
    if (headerBlock(typed(), column).columns == 1)
        measure(typed().text(column, 0), margins);
    for (int row = 1; row <= typed().maxRows(); ++row) {
        if (typed().spanAt(column, row).columns > 1)
            continue;
        const bool opens = opensPopup(typed(), column, row) && !typed().text(column, row).empty();
        measure(shownInCell(typed(), column, row), margins + (opens ? dressing().px(17) : 0));
    }
    if (widest > 0)
        sizeColumn(column, std::min(widest, static_cast<int>(layout_.body().right - layout_.body().left)));
}

void GridView::onButtonUp(POINT at) {
    const bool pressed = std::exchange(pressing_, false);
    endDrag();
    if (!pressed)
        return;
    if (GetCapture() == hwnd())
        ReleaseCapture();
    const ui::CellRef cell = typed().activeCell();
    const RECT button = arrowRect(layout_.cellRect(typed(), cell.column, cell.row), dressing().look.dpi);
    if (cell.column >= 1 && PtInRect(&button, at) && hasButton(typed(), cell.column, cell.row))
        typed().userKeyDown(ui::key::f7, 0);
}

void GridView::endDrag() {
    if (draggedColumn_ == 0 && !markingFrom_)
        return;
    draggedColumn_ = 0;
    markingFrom_.reset();
    if (GetCapture() == hwnd())
        ReleaseCapture();
}

bool GridView::onSetCursor() const {
    POINT at;
    GetCursorPos(&at);
    ScreenToClient(hwnd(), &at);
    if (draggedColumn_ == 0 && layout_.borderAt(at, dressing().px(3)) == 0)
        return false;
    SetCursor(LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_SIZEWE)));
    return true;
}

} // namespace orv::windows
