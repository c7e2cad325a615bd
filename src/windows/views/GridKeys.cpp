#include "windows/views/GridView.h"

#include <algorithm>

// The grid's keyboard.
namespace orv::windows {

namespace {

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

/// Shift states as key events write them.
constexpr int shiftMask = 1;
constexpr int controlMask = 2;
constexpr int altMask = 4;

} // namespace

bool GridView::wantsKey(const MSG& message) const {
    const WPARAM key = message.wParam;
    if (message.message == WM_SYSKEYDOWN)
        return key == VK_DOWN || key == VK_UP;
    const bool control = isDown(VK_CONTROL);
    if (key == VK_TAB)
        return !control && nextCell(!isDown(VK_SHIFT)).has_value();
    if (control && (key == 'C' || key == 'X' || key == 'V' || key == 'A' || key == 'Z'))
        return true;
    if (key == VK_ESCAPE)
        return edit_ || list_ || calendar_;
    return ControlView::wantsKey(message) || key == VK_RETURN || key == VK_DELETE || key == VK_BACK || key == VK_F2 ||
           key == VK_F4 || key == VK_F7 || key == VK_INSERT;
}

bool GridView::isReachable(int column, int row) const {
    const ui::CellSpan span = typed().spanAt(column, row);
    return !typed().columnHidden(column) && span.column == column && span.row == row;
}

std::optional<ui::CellRef> GridView::nextCell(bool forward) const {
    ui::CellRef at = typed().activeCell();
    while (true) {
        at.column += forward ? 1 : -1;
        if (at.column > typed().maxCols())
            at = {1, at.row + 1};
        else if (at.column < 1)
            at = {typed().maxCols(), at.row - 1};
        if (at.row < 1 || at.row > typed().maxRows() || at.column < 1)
            return std::nullopt;
        if (isReachable(at.column, at.row))
            return at;
    }
}

void GridView::goTo(int column, int row) {
    if (!commit() || !ready())
        return;
    column = std::clamp(column, 1, std::max(typed().maxCols(), 1));
    row = std::clamp(row, 1, std::max(typed().maxRows(), 1));
    if (typed().maxCols() > 0 && typed().maxRows() > 0)
        typed().userMoveTo(column, row);
}

void GridView::goAlong(int columns, int rows) {
    const ui::CellRef active = typed().activeCell();
    if (active.column < 1 || active.row < 1)
        return;
    if (columns == 0) {
        goTo(active.column, active.row + rows);
        return;
    }
    const ui::CellSpan span = typed().spanAt(active.column, active.row);
    int column = columns > 0 ? span.lastColumn() + 1 : active.column - 1;
    while (column >= 1 && column <= typed().maxCols() && typed().columnHidden(column))
        column += columns;
    if (column >= 1 && column <= typed().maxCols())
        goTo(column, active.row);
}

bool GridView::goToNextCell(bool forward) {
    if (!commit() || !ready())
        return true;
    const auto next = nextCell(forward);
    if (next)
        typed().userMoveTo(next->column, next->row);
    return next.has_value();
}

bool GridView::keyInList(WPARAM key) {
    const int selected = list_->selected();
    switch (key) {
    case VK_UP:
        list_->select(selected - 1);
        return true;
    case VK_DOWN:
        list_->select(selected + 1);
        return true;
    case VK_PRIOR:
        list_->select(selected - list_->pageRows());
        return true;
    case VK_NEXT:
        list_->select(selected + list_->pageRows());
        return true;
    case VK_HOME:
        list_->select(0);
        return true;
    case VK_END:
        list_->select(list_->count() - 1);
        return true;
    case VK_RETURN:
        choose(selected);
        return true;
    case VK_TAB:
        choose(selected);
        if (ready())
            goToNextCell(!isDown(VK_SHIFT));
        return true;
    case VK_ESCAPE:
    case VK_F4:
        closePopups();
        return true;
    default:
        return false;
    }
}

bool GridView::onKey(WPARAM key) {
    const bool control = isDown(VK_CONTROL);
    const bool shift = isDown(VK_SHIFT);
    const bool alt = isDown(VK_MENU);
    if (list_ && ((alt && (key == VK_UP || key == VK_DOWN)) || keyInList(key))) {
        if (alt)
            closePopups();
        return true;
    }
    // While a cell is edited, these keys are the edit box's own.
    if (edit_ && !alt &&
        (key == VK_LEFT || key == VK_RIGHT || key == VK_HOME || key == VK_END || key == VK_DELETE || key == VK_BACK ||
         key == VK_SPACE || key == VK_INSERT || key == VK_F2 || (control && key != VK_TAB)))
        return false;
    if (key == VK_ESCAPE && edit_) {
        typed().setEditMode(false);
        return true;
    }
    if (key == VK_F4 || (alt && key == VK_DOWN)) {
        if (commit() && ready())
            openPopup();
        return true;
    }
    if (alt)
        return false;
    // A look-up reads the cell, so what is being typed goes there first.
    if (key >= VK_F1 && key <= VK_F12 && key != VK_F2 && edit_ && !commit())
        return true;
    const auto alive = shared_from_this();
    if (!ready())
        return true;
    typed().userKeyDown(static_cast<int>(key),
                        (shift ? shiftMask : 0) | (control ? controlMask : 0) | (alt ? altMask : 0));
    return !ready() || keyInGrid(key, control, shift);
}

bool GridView::keyInGrid(WPARAM key, bool control, bool shift) {
    const int page = std::max(layout_.wholeRows() - 1, 1);
    const ui::CellRef active = typed().activeCell();
    switch (key) {
    case VK_LEFT:
        goAlong(-1, 0);
        return true;
    case VK_RIGHT:
        goAlong(1, 0);
        return true;
    case VK_UP:
        goAlong(0, -1);
        return true;
    case VK_DOWN:
        goAlong(0, 1);
        return true;
    case VK_PRIOR:
        goAlong(0, -page);
        return true;
    case VK_NEXT:
        goAlong(0, page);
        return true;
    case VK_HOME:
    case VK_END: {
        int column = key == VK_HOME ? 1 : typed().maxCols();
        const int step = key == VK_HOME ? 1 : -1;
        while (column >= 1 && column <= typed().maxCols() && typed().columnHidden(column))
            column += step;
        const int row = !control ? active.row : key == VK_HOME ? 1 : typed().maxRows();
        goTo(column, row);
        return true;
    }
    case VK_RETURN:
        goToNextCell(!shift);
        return true;
    case VK_TAB:
        return control || goToNextCell(!shift);
    case VK_F2:
        beginEdit(std::nullopt);
        return true;
    case VK_DELETE:
        if (shift)
            cut();
        else
            clearCell();
        return true;
    case VK_INSERT:
        if (shift)
            paste();
        else if (control)
            copy();
        return true;
    case 'C':
    case 'X':
    case 'V':
        if (control && key == 'C')
            copy();
        else if (control && key == 'X')
            cut();
        else if (control)
            paste();
        return control;
    default:
        return key == VK_F7;
    }
}

void GridView::onCharacter(char16_t letter) {
    if (list_) {
        if (letter >= u' ' || letter == u'\b')
            list_->search(letter, GetTickCount());
        return;
    }
    if (edit_) {
        // Letters of an input method that were on their way before the edit box had the focus.
        PostMessageW(edit_->hwnd(), WM_CHAR, letter, 0);
        return;
    }
    if (letter < u' ')
        return;
    const ui::CellRef active = typed().activeCell();
    if (active.column < 1 || active.row < 1 || !typed().editable(active.column, active.row))
        return;
    const ui::CellFormat& format = typed().format(active.column, active.row);
    if (format.type == ui::CellType::checkBox) {
        if (letter == u' ')
            typed().userToggle(active.column, active.row);
    } else if (format.type == ui::CellType::comboBox && !format.freeText) {
        openList();
        if (list_ && letter != u' ')
            list_->search(letter, GetTickCount());
    } else {
        beginEdit(std::u16string(1, letter));
    }
}

} // namespace orv::windows
