#include "windows/views/GridView.h"

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
        draggedColumn_ = border;
        dragFrom_ = static_cast<int>(at.x);
        dragWidth_ = layout_.columnWidth(border);
        SetCapture(hwnd());
        return;
    }
    const ui::CellRef hit = layout_.cellAt(at);
    const ui::CellRef before = typed().activeCell();
    typed().userClick(hit.column, hit.row);
    if (!ready() || hit.column < 1 || hit.row < 1 || hit.column > typed().maxCols() || hit.row > typed().maxRows())
        return;
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
    const bool onArrow = opensPopup(typed(), cell.column, cell.row) && PtInRect(&arrow, at);
    const bool pureList = type == ui::CellType::comboBox && !typed().format(cell.column, cell.row).freeText;
    if (onArrow || (pureList && before == cell)) {
        if (!wasOpen)
            openPopup();
    } else if (doubleClick || (before == cell && !pureList)) {
        beginEdit(std::nullopt);
    }
}

void GridView::onMouseMove(POINT at) {
    if (draggedColumn_ < 1 || draggedColumn_ > typed().maxCols())
        return;
    if (draggedColumn_ == stretched_)
        stretched_ = 0;
    const int width = std::max(dragWidth_ + static_cast<int>(at.x) - dragFrom_, measures_.minimumColumn);
    typed().setColumnWidth(draggedColumn_, static_cast<double>(width) / measures_.characterWidth);
}

void GridView::endDrag() {
    if (draggedColumn_ == 0)
        return;
    draggedColumn_ = 0;
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
