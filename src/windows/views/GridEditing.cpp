#include "windows/views/GridView.h"

#include "automation/LocaleRules.h"
#include "support/Letters.h"
#include "windows/views/Clipboard.h"

#include <algorithm>

// Editing cells: the edit box, lists, the calendar and the clipboard.
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
    const RECT r = layout_.cellRect(typed(), cell.column, cell.row);
    edit_ = std::make_shared<CellEdit>();
    const bool isNumber = format.type == CellType::wholeNumber || format.type == CellType::decimal;
    edit_->open(hwnd(), {r.left + 2, r.top + 2, r.right - 2, r.bottom - 2}, dressing().font.get(),
                firstText_ ? *firstText_ : editedText_, format.maxLength, isNumber);
    if (firstText_)
        SendMessageW(edit_->hwnd(), EM_SETSEL, firstText_->size(), static_cast<LPARAM>(firstText_->size()));
    edit_->onKey = [this](WPARAM key) { return ready() && onKey(key); };
    edit_->onLeave = [this](HWND to) {
        if (!ready() || committing_ || isWithin(hwnd(), to))
            return;
        // A text that the cell refuses goes when the user goes elsewhere.
        if (!commit() && ready())
            typed().setEditMode(false);
    };
    SetFocus(edit_->hwnd());
}

void GridView::dropEditor() {
    if (!edit_)
        return;
    const auto edit = std::exchange(edit_, nullptr);
    edit->onLeave = nullptr;
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
    calendar_->open(hwnd(), onScreen(layout_.cellRect(typed(), cell.column, cell.row)), dressing().font.get(), date);
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

void GridView::copy() const {
    const ui::CellRef active = typed().activeCell();
    if (active.column >= 1 && active.row >= 1)
        putOnClipboard(hwnd(), shownInCell(typed(), active.column, active.row));
}

void GridView::cut() {
    copy();
    clearCell();
}

void GridView::clearCell() {
    const ui::CellRef active = typed().activeCell();
    if (active.column < 1 || active.row < 1)
        return;
    if (typed().cellType(active.column, active.row) == CellType::checkBox) {
        if (typed().isChecked(active.column, active.row))
            typed().userToggle(active.column, active.row);
    } else {
        typed().userType(active.column, active.row, {});
    }
}

bool GridView::enter(int column, int row, const std::u16string& text) {
    if (!typed().editable(column, row))
        return false;
    switch (typed().cellType(column, row)) {
    case CellType::checkBox: {
        const double number = automation::localeRules().parseNumber(text).value_or(0);
        const bool wanted = number != 0 || support::equalIgnoringCase(text, u"TRUE");
        return wanted == typed().isChecked(column, row) || typed().userToggle(column, row);
    }
    case CellType::comboBox: {
        const std::u16string wanted(support::Trim(text));
        const auto& items = typed().comboItems(column, row);
        const auto found =
            std::ranges::find_if(items, [&](const std::u16string& item) { return captionOf(item) == wanted; });
        if (found != items.end())
            return typed().userChoose(column, row, static_cast<int>(found - items.begin()));
        return typed().userType(column, row, text);
    }
    default:
        return typed().userType(column, row, text);
    }
}

void GridView::paste() {
    const auto alive = shared_from_this();
    const auto block = parseBlock(textFromClipboard(hwnd()));
    const ui::CellRef start = typed().activeCell();
    if (start.column < 1 || start.row < 1)
        return;
    bool refused = false;
    int row = start.row;
    for (const auto& line : block) {
        int column = start.column;
        for (const std::u16string& text : line) {
            // What an entry before has set up decides where this one goes: spans may have come or gone.
            while (ready() && column <= typed().maxCols() && row <= typed().maxRows() && !isReachable(column, row))
                ++column;
            if (!ready() || column > typed().maxCols() || row > typed().maxRows())
                break;
            refused = !enter(column++, row, text) || refused;
        }
        ++row;
    }
    if (refused)
        MessageBeep(MB_ICONWARNING);
    if (ready() && start.column <= typed().maxCols() && start.row <= typed().maxRows())
        typed().userMoveTo(start.column, start.row);
}

} // namespace orv::windows
