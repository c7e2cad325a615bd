#include "windows/views/GridView.h"

#include <imm.h>

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

/// Whether a key of the keyboard types something: only then is an input method about to compose.
bool typesLetter(WPARAM key) {
    return (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z') || (key >= VK_OEM_1 && key <= VK_OEM_3) ||
           (key >= VK_OEM_4 && key <= VK_OEM_8);
}

} // namespace

bool GridView::wantsKey(const MSG& message) const {
    const WPARAM key = message.wParam;
    if (message.message == WM_SYSKEYDOWN)
        return key == VK_DOWN || key == VK_UP;
    const bool control = isDown(VK_CONTROL);
    if (key == VK_TAB)
        return !control;
    if (control && (key == 'C' || key == 'X' || key == 'V' || key == 'A' || key == 'Z'))
        return true;
    // A host's dialog has its own use for these.
    if (key == VK_ESCAPE || key == VK_RETURN)
        return edit_ || list_ || calendar_;
    return ControlView::wantsKey(message) || key == VK_DELETE || key == VK_BACK || key == VK_F2 || key == VK_F4 ||
           key == VK_F7 || key == VK_INSERT || key == VK_PROCESSKEY;
}

bool GridView::takeKey(MSG& message) {
    // An input method composes in the window that its key goes to: the edit box has to be there by then.
    if (message.wParam != VK_PROCESSKEY || message.hwnd != hwnd() || !typesLetter(ImmGetVirtualKey(hwnd())))
        return false;
    beginComposition();
    if (edit_)
        message.hwnd = edit_->hwnd();
    return false;
}

void GridView::beginComposition() {
    if (!list_ && !calendar_ && !edit_)
        beginEdit(std::u16string());
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

ui::CellRef GridView::edgeOfRow(int row, bool last) const {
    int column = last ? typed().maxCols() : 1;
    while (column >= 1 && column <= typed().maxCols() && typed().columnHidden(column))
        column += last ? -1 : 1;
    return {std::clamp(column, 1, std::max(typed().maxCols(), 1)), row};
}

ui::CellRef GridView::cellBeside(ui::CellRef cell, int columns, int rows) const {
    if (columns == 0)
        return {cell.column, std::clamp(cell.row + rows, 1, std::max(typed().maxRows(), 1))};
    const ui::CellSpan span = typed().spanAt(cell.column, cell.row);
    int column = columns > 0 ? span.lastColumn() + 1 : cell.column - 1;
    while (column >= 1 && column <= typed().maxCols() && typed().columnHidden(column))
        column += columns;
    return column >= 1 && column <= typed().maxCols() ? ui::CellRef{column, cell.row} : cell;
}

void GridView::goTo(ui::CellRef cell) {
    if (!commit() || !ready())
        return;
    unmark();
    if (typed().maxCols() > 0 && typed().maxRows() > 0)
        typed().userMoveTo(cell.column, cell.row);
}

bool GridView::goToNextCell(bool forward) {
    if (!commit() || !ready())
        return true;
    unmark();
    const auto next = nextCell(forward);
    if (!next)
        return false;
    const int losses = focusLosses_;
    // Who refuses and says why, in a box that takes the focus, or asks for another text, keeps the user here.
    return typed().userMoveTo(next->column, next->row) || !ready() || focusLosses_ != losses || typed().editMode();
}

void GridView::tab(bool forward) {
    const auto alive = shared_from_this();
    if (goToNextCell(forward) || !onTabOut)
        return;
    const auto leaveGrid = onTabOut; // the call may destroy the view
    leaveGrid(forward);
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
    case VK_TAB: {
        const auto alive = shared_from_this();
        choose(selected);
        if (ready())
            tab(!isDown(VK_SHIFT));
        return true;
    }
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
    if (keyThatMoves(key, control, shift) || keyOfClipboard(key, control, shift))
        return true;
    switch (key) {
    case VK_RETURN:
        goToNextCell(!shift);
        return true;
    case VK_TAB:
        if (!control)
            tab(!shift);
        return true;
    case VK_F2:
        beginEdit(std::nullopt);
        return true;
    default:
        return key == VK_F7;
    }
}

bool GridView::keyThatMoves(WPARAM key, bool control, bool shift) {
    const int page = std::max(layout_.wholeRows() - 1, 1);
    const ui::CellRef active = typed().activeCell();
    if (active.column < 1 || active.row < 1)
        return false;
    // With Shift, the corner of the block moves that was moved last.
    const ui::CellRef from = shift && block_ ? block_->to : active;
    ui::CellRef to;
    switch (key) {
    case VK_LEFT:
        to = cellBeside(from, -1, 0);
        break;
    case VK_RIGHT:
        to = cellBeside(from, 1, 0);
        break;
    case VK_UP:
        to = cellBeside(from, 0, -1);
        break;
    case VK_DOWN:
        to = cellBeside(from, 0, 1);
        break;
    case VK_PRIOR:
        to = cellBeside(from, 0, -page);
        break;
    case VK_NEXT:
        to = cellBeside(from, 0, page);
        break;
    case VK_HOME:
        to = edgeOfRow(control ? 1 : from.row, false);
        break;
    case VK_END:
        to = edgeOfRow(control ? typed().maxRows() : from.row, true);
        break;
    default:
        return false;
    }
    if (!shift)
        goTo(to);
    else if (commit() && ready())
        extendTo(to.column, to.row);
    return true;
}

bool GridView::keyOfClipboard(WPARAM key, bool control, bool shift) {
    switch (key) {
    case VK_DELETE:
        if (shift)
            cut();
        else
            clearMarked();
        return true;
    case VK_INSERT:
        if (shift)
            paste();
        else if (control)
            copy();
        return true;
    case 'A':
        if (control)
            markAll();
        return control;
    case 'C':
        if (control)
            copy();
        return control;
    case 'X':
        if (control)
            cut();
        return control;
    case 'V':
        if (control)
            paste();
        return control;
    default:
        return false;
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
