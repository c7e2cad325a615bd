#include "windows/views/GridView.h"

// Editing cells: the edit box, lists and the calendar.
namespace orv::windows {

using ui::CellType;

void GridView::beginEdit(std::optional<std::u16string> text) {
    const ui::CellRef active = typed().activeCell();
    if (active.column < 1 || active.row < 1 || !typed().editable(active.column, active.row))
        return;
    const ui::CellFormat& format = typed().format(active.column, active.row);
    if (format.type == CellType::checkBox)
        return;
    if (format.type == CellType::comboBox && !format.freeText) {
        openList();
        return;
    }
    firstText_ = std::move(text);
    if (typed().editMode())
        showEditor();
    else
        typed().setEditMode(true);
    firstText_.reset();
}

void GridView::showEditor() {
    if (!ready() || edit_)
        return;
    const ui::CellRef cell = typed().activeCell();
    const ui::CellFormat format = typed().format(cell.column, cell.row);
    if (format.type == CellType::checkBox || (format.type == CellType::comboBox && !format.freeText))
        return;
    closePopups();
    updateScrollBars();
    bringIntoSight(cell.column, cell.row);
    edited_ = cell;
    editedText_ = shownInCell(typed(), cell.column, cell.row);
    edit_ = std::make_shared<CellEdit>();
    const bool isNumber = format.type == CellType::wholeNumber || format.type == CellType::decimal;
    edit_->open(hwnd(), editPlace(cell), dressing().font.get(), firstText_ ? *firstText_ : editedText_,
                format.maxLength, isNumber);
    if (firstText_)
        SendMessageW(edit_->hwnd(), EM_SETSEL, firstText_->size(), static_cast<LPARAM>(firstText_->size()));
    edit_->onKey = [this](WPARAM key) { return ready() && onKey(key); };
    SetFocus(edit_->hwnd());
}

RECT GridView::editPlace(ui::CellRef cell) const {
    RECT r = layout_.cellRect(typed(), cell.column, cell.row);
    if (hasButton(typed(), cell.column, cell.row))
        r.right = arrowRect(r, dressing().look.dpi).left + 2;
    return {r.left + 2, r.top + 2, r.right - 2, r.bottom - 2};
}

void GridView::dropEditor() {
    if (!edit_)
        return;
    const auto edit = std::exchange(edit_, nullptr);
    edit->onKey = nullptr;
    if (GetFocus() == edit->hwnd() && hwnd())
        SetFocus(hwnd());
    edit->destroy();
}

bool GridView::commit() {
    if (!edit_ || committing_)
        return true;
    const auto alive = shared_from_this();
    const auto edit = edit_;
    edit->endComposition();
    const std::u16string text = edit->text();
    committing_ = true;
    bool taken = true;
    if (text != editedText_)
        taken = typed().userType(edited_.column, edited_.row, text);
    committing_ = false;
    if (!ready())
        return false;
    if (!taken) {
        MessageBeep(MB_ICONWARNING);
        if (edit_ == edit)
            SendMessageW(edit->hwnd(), EM_SETSEL, 0, -1);
        return false;
    }
    if (edit_ == edit)
        typed().setEditMode(false);
    return true;
}

void GridView::openPopup() {
    const ui::CellRef active = typed().activeCell();
    if (active.column < 1 || active.row < 1 || !opensPopup(typed(), active.column, active.row))
        return;
    if (typed().cellType(active.column, active.row) == CellType::comboBox)
        openList();
    else
        openCalendar();
}

void GridView::openList() {
    closePopups();
    const ui::CellRef cell = typed().activeCell();
    const auto& items = typed().comboItems(cell.column, cell.row);
    if (items.empty())
        return;
    std::vector<std::u16string> captions;
    captions.reserve(items.size());
    for (const std::u16string& item : items)
        captions.push_back(captionOf(item));
    list_ = std::make_shared<CellList>();
    list_->onChoose = [this](int position) { choose(position); };
    list_->open(hwnd(), onScreen(layout_.cellRect(typed(), cell.column, cell.row)), dressing().font.get(), captions,
                typed().comboSelection(cell.column, cell.row));
}

void GridView::choose(int position) {
    const auto alive = shared_from_this();
    closePopups();
    if (!ready() || position < 0)
        return;
    const ui::CellRef cell = typed().activeCell();
    typed().userChoose(cell.column, cell.row, position);
}

void GridView::openCalendar() {
    closePopups();
    const ui::CellRef cell = typed().activeCell();
    const auto today = dressing().today ? dressing().today() : std::nullopt;
    // The host may have done anything while it answered.
    if (!ready() || edit_ || list_ || calendar_ || typed().activeCell() != cell ||
        !opensPopup(typed(), cell.column, cell.row))
        return;
    const std::u16string shown = typed().shownText(cell.column, cell.row);
    std::optional<SYSTEMTIME> date;
    if (shown.size() == 10) {
        const auto part = [&shown](std::size_t at, std::size_t count) {
            WORD value = 0;
            for (const char16_t c : std::u16string_view(shown).substr(at, count))
                value = static_cast<WORD>(value * 10 + (c - u'0'));
            return value;
        };
        date = SYSTEMTIME{part(0, 4), part(5, 2), 0, part(8, 2), 0, 0, 0, 0};
    }
    calendar_ = std::make_shared<CellCalendar>();
    calendar_->onCancel = [this] { closePopups(); };
    calendar_->onChoose = [this, cell](const SYSTEMTIME& chosen) {
        const auto alive = shared_from_this();
        closePopups();
        wchar_t text[16];
        wsprintfW(text, L"%04u-%02u-%02u", chosen.wYear, chosen.wMonth, chosen.wDay);
        if (ready() && typed().activeCell() == cell)
            typed().userType(cell.column, cell.row, std::u16string(asUtf16(text)));
    };
    calendar_->open(hwnd(), onScreen(layout_.cellRect(typed(), cell.column, cell.row)), dressing().font.get(), date,
                    today);
}

void GridView::closePopups() {
    if (const auto list = std::exchange(list_, nullptr))
        list->destroy();
    if (const auto calendar = std::exchange(calendar_, nullptr)) {
        const bool hadFocus = isWithin(calendar->hwnd(), GetFocus());
        calendar->onCancel = nullptr;
        if (hadFocus && hwnd())
            SetFocus(hwnd());
        calendar->destroy();
    }
}

void GridView::leave() {
    // A page that is gone has finished its edits before; there is no way back to it.
    if (!IsWindowVisible(hwnd()))
        return;
    const HWND focus = GetFocus();
    // Another window, such as a message box, or another program: the user comes back to the cell.
    if (!focus || isWithin(hwnd(), focus) || GetAncestor(focus, GA_ROOT) != GetAncestor(hwnd(), GA_ROOT))
        return;
    const auto alive = shared_from_this();
    if (!typed().userLeave() && ready())
        SetFocus(edit_ ? edit_->hwnd() : hwnd());
}

} // namespace orv::windows
