#include "erp/windows/lookup/RecordList.h"

#include "windows/com/Handles.h"

#include <algorithm>

namespace orv::erp {

using windows::asWide;

namespace {

/// Columns are measured by this many rows.
constexpr std::size_t measuredRows = 200;

wchar_t* shownText(const std::u16string& text) {
    return const_cast<wchar_t*>(asWide(text)); // the list view only reads it
}

} // namespace

void RecordList::attach(HWND list) {
    list_ = list;
    LPARAM style = LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_DOUBLEBUFFER;
    if (offer_.isMultiple) {
        style |= LVS_EX_CHECKBOXES;
        ListView_SetCallbackMask(list_, LVIS_STATEIMAGEMASK);
    }
    SendMessageW(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style);
    for (std::size_t i = 0; i < offer_.columns.size(); ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.fmt = isAmount(i) ? LVCFMT_RIGHT : LVCFMT_LEFT;
        column.cx = widthOf(i);
        column.pszText = shownText(offer_.columns[i].caption);
        SendMessageW(list_, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
}

int RecordList::widthOf(std::size_t column) const {
    const auto measured = [this](const std::u16string& text) {
        return metrics_.widthOf(asWide(text), static_cast<int>(text.size()));
    };
    int width = measured(offer_.columns[column].caption);
    for (std::size_t row = 0; row < std::min(offer_.rows.size(), measuredRows); ++row)
        width = std::max(width, measured(offer_.rows[row][column]));
    const int box = offer_.isMultiple && column == 0 ? metrics_.px(24) : 0;
    return std::clamp(width + metrics_.px(20) + box, metrics_.px(60), metrics_.px(260));
}

/// Decimals stand to the right; codes of digits are texts.
bool RecordList::isAmount(std::size_t column) const {
    bool hasPoint = false;
    for (const auto& row : offer_.rows) {
        if (row[column].find_first_not_of(u"-0123456789.") != std::u16string::npos)
            return false;
        hasPoint = hasPoint || row[column].find(u'.') != std::u16string::npos;
    }
    return hasPoint && column > 0; // the first column of a list view cannot
}

void RecordList::fitColumns() const {
    if (!list_ || offer_.columns.empty())
        return;
    RECT client{};
    GetClientRect(list_, &client);
    const int last = static_cast<int>(offer_.columns.size()) - 1;
    int used = 0;
    for (int i = 0; i < last; ++i)
        used += ListView_GetColumnWidth(list_, i);
    const int least = widthOf(static_cast<std::size_t>(last));
    ListView_SetColumnWidth(list_, last, std::max(least, static_cast<int>(client.right) - used));
}

void RecordList::show(std::vector<std::size_t> rows) {
    shown_ = std::move(rows);
    ListView_SetItemCountEx(list_, static_cast<int>(shown_.size()), 0);
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (!shown_.empty()) {
        ListView_SetItemState(list_, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        ListView_EnsureVisible(list_, 0, FALSE);
    }
    fitColumns(); // the scroll bar comes and goes
    InvalidateRect(list_, nullptr, TRUE);
}

void RecordList::fill(LVITEMW& item) const {
    const auto at = static_cast<std::size_t>(item.iItem);
    if (at >= shown_.size())
        return;
    const std::size_t row = shown_[at];
    if (const auto column = static_cast<std::size_t>(item.iSubItem);
        (item.mask & LVIF_TEXT) && column < offer_.columns.size())
        item.pszText = shownText(offer_.rows[row][column]);
    if (item.mask & LVIF_STATE)
        item.state = (item.state & ~UINT{LVIS_STATEIMAGEMASK}) |
                     (offer_.isMultiple ? INDEXTOSTATEIMAGEMASK(checked_.contains(row) ? 2u : 1u) : 0u);
}

LRESULT RecordList::dress(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT)
        return CDRF_NOTIFYITEMDRAW;
    const auto item = static_cast<int>(draw.nmcd.dwItemSpec);
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || ListView_GetItemState(list_, item, LVIS_SELECTED) == 0)
        return CDRF_DODEFAULT;
    draw.nmcd.uItemState &= ~UINT{CDIS_SELECTED};
    draw.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
    draw.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    return CDRF_NEWFONT;
}

bool RecordList::toggle(int item) {
    if (!offer_.isMultiple || item < 0 || static_cast<std::size_t>(item) >= shown_.size())
        return false;
    const std::size_t row = shown_[static_cast<std::size_t>(item)];
    if (checked_.erase(row) == 0)
        checked_.insert(row);
    ListView_RedrawItems(list_, item, item);
    return true;
}

bool RecordList::clickedBox(POINT at) {
    LVHITTESTINFO hit{};
    hit.pt = at;
    const auto item = static_cast<int>(SendMessageW(list_, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    return (hit.flags & LVHT_ONITEM) == LVHT_ONITEMSTATEICON && toggle(item);
}

bool RecordList::toggleFocused() {
    return toggle(ListView_GetNextItem(list_, -1, LVNI_FOCUSED));
}

std::optional<std::size_t> RecordList::focused() const {
    const int item = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    if (item < 0 || static_cast<std::size_t>(item) >= shown_.size())
        return std::nullopt;
    return shown_[static_cast<std::size_t>(item)];
}

} // namespace orv::erp
