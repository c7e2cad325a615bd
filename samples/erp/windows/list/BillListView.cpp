#include "erp/windows/list/BillListView.h"

#include "erp/windows/list/Paint.h"
#include "erp/windows/ui/WindowNames.h"

#include <algorithm>
#include <cmath>

namespace orv::erp {

namespace {

constexpr double millimetresPerInch = 25.4;
/// The width that a column has which nobody ever set (1000 twips): it is fitted to its contents.
constexpr double unsetWidthMm = 17.64;
/// Columns are measured by this many rows.
constexpr int measuredRows = 100;
// Pixels at 96 dots an inch.
constexpr int padding = 4;
constexpr int leastWidth = 44;
constexpr int mostWidth = 230;

RECT inset(RECT area, int by) {
    InflateRect(&area, -by, 0);
    return area;
}

} // namespace

void BillListView::create(HWND parent, const Texts& texts) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    bands_.places = [this] { return columnPlaces(); };
    bands_.resize = [this](std::size_t column, int width) { setWidth(column, width); };
    bands_.fit = [this](std::size_t column) { setWidth(column, contentWidth(column)); };
    notice_ = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | SS_CENTER | SS_NOPREFIX, 0, 0, 0, 0, parent,
                              reinterpret_cast<HMENU>(INT_PTR{window::notice}), instance, nullptr);
    SendMessageW(notice_, WM_SETFONT, reinterpret_cast<WPARAM>(metrics_.font()), FALSE);
    list_ = CreateWindowExW(0, WC_LISTVIEWW, L"",
                            WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | LVS_REPORT | LVS_OWNERDATA |
                                LVS_OWNERDRAWFIXED | LVS_NOCOLUMNHEADER | LVS_SHOWSELALWAYS,
                            0, 0, 0, 0, parent, reinterpret_cast<HMENU>(INT_PTR{window::list}), instance, nullptr);
    SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(metrics_.font()), FALSE);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    SetWindowSubclass(list_, listProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
    bands_.create(parent, texts(L"序号"), texts(L"合计"));
}

void BillListView::show(const Bills& bills, const std::wstring& notice) {
    bills_ = &bills;
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    ListView_SetItemCountEx(list_, 0, 0);
    while (ListView_DeleteColumn(list_, 0)) {
    }
    const std::size_t count = bills.shown().empty() ? 0 : bills.shown().size() + 1;
    for (std::size_t i = 0; i < count; ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH;
        column.cx = usualWidth(i);
        SendMessageW(list_, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
    ListView_SetItemCountEx(list_, bills.rows(), 0);
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (bills.rows() > 0) {
        ListView_SetItemState(list_, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        ListView_EnsureVisible(list_, 0, FALSE);
    }
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    SetWindowTextW(notice_, notice.c_str());
    ShowWindow(notice_, bills.rows() == 0 ? SW_SHOWNA : SW_HIDE);
    bands_.show(bills);
    place(area_);
    InvalidateRect(list_, nullptr, TRUE);
}

void BillListView::place(const RECT& area) {
    area_ = area;
    const int width = area.right - area.left;
    const int heading = bands_.headingHeight();
    const int totals = bands_.totalsHeight();
    const int rows = std::max(0, static_cast<int>(area.bottom - area.top) - heading - totals);
    MoveWindow(bands_.heading(), area.left, area.top, width, heading, TRUE);
    MoveWindow(list_, area.left, area.top + heading, width, rows, TRUE);
    MoveWindow(bands_.totals(), area.left, area.bottom - totals, width, totals, TRUE);
    const int line = metrics_.control();
    const int inside = metrics_.margin();
    SetWindowPos(notice_, HWND_TOP, area.left + inside, area.top + heading + std::max(0, (rows - line) / 3),
                 std::max(0, width - 2 * inside), std::min(line, rows), SWP_NOACTIVATE);
    bands_.redraw();
}

ColumnPlaces BillListView::columnPlaces() const {
    ColumnPlaces places;
    if (!bills_ || bills_->shown().empty())
        return places;
    int left = -GetScrollPos(list_, SB_HORZ);
    places.lefts.push_back(left);
    for (std::size_t i = 0; i <= bills_->shown().size(); ++i)
        places.lefts.push_back(left += ListView_GetColumnWidth(list_, static_cast<int>(i)));
    return places;
}

int BillListView::usualWidth(std::size_t column) const {
    if (column == 0)
        return contentWidth(0);
    const double millimetres = bills_->shown()[column - 1].widthMm;
    return std::abs(millimetres - unsetWidthMm) < 0.005
               ? contentWidth(column)
               : static_cast<int>(std::lround(millimetres * metrics_.dpi() / millimetresPerInch));
}

int BillListView::contentWidth(std::size_t column) const {
    const auto measured = [this](const std::wstring& text) {
        return metrics_.widthOf(text.c_str(), static_cast<int>(text.size())) + 2 * metrics_.px(padding) + 2;
    };
    if (column == 0)
        return std::max(metrics_.px(leastWidth), measured(std::to_wstring(bills_->rows())));
    const std::wstring& total = bills_->totals()[column - 1];
    int width = metrics_.boldWidthOf(total.c_str(), static_cast<int>(total.size())) + 2 * metrics_.px(padding) + 2;
    for (const HeadingCell& cell : headingOf(bills_->shown()))
        if (cell.from == column - 1 && cell.count == 1)
            width = std::max(width, measured(cell.text));
    for (int row = 0; row < std::min(bills_->rows(), measuredRows); ++row)
        width = std::max(width, measured(bills_->row(row)[column - 1].text));
    return std::clamp(width, metrics_.px(leastWidth), metrics_.px(mostWidth));
}

void BillListView::setWidth(std::size_t column, int widthPx) const {
    ListView_SetColumnWidth(list_, static_cast<int>(column), widthPx);
    bands_.redraw();
}

void BillListView::measure(MEASUREITEMSTRUCT& item) const {
    item.itemHeight = static_cast<UINT>(metrics_.row());
}

void BillListView::drawRow(const DRAWITEMSTRUCT& item) const {
    const auto index = static_cast<int>(item.itemID);
    if (!bills_ || index < 0 || index >= bills_->rows())
        return;
    const HDC dc = item.hDC;
    const int state = SaveDC(dc);
    const bool isSelected = (item.itemState & ODS_SELECTED) != 0;
    const bool hasFocus = GetFocus() == list_;
    COLORREF back = index % 2 ? stripeColour() : GetSysColor(COLOR_WINDOW);
    COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    if (isSelected && hasFocus) {
        back = GetSysColor(COLOR_HIGHLIGHT);
        text = GetSysColor(COLOR_HIGHLIGHTTEXT);
    } else if (isSelected) {
        back = mixed(back, GetSysColor(COLOR_HIGHLIGHT), 22);
    }
    fill(dc, item.rcItem, back);
    SelectObject(dc, metrics_.font());
    SelectObject(dc, GetStockObject(DC_PEN));
    SetBkMode(dc, TRANSPARENT);
    SetDCPenColor(dc, lineColour());
    const ColumnPlaces at = columnPlaces();
    const Bills::Row& row = bills_->row(index);
    for (std::size_t i = 0; i < at.count(); ++i) {
        const RECT cell{at.left(i), item.rcItem.top, at.right(i) - 1, item.rcItem.bottom};
        MoveToEx(dc, cell.right, cell.top, nullptr);
        LineTo(dc, cell.right, cell.bottom);
        const bool isNegative = i > 0 && isNumeric(bills_->shown()[i - 1]) && row[i - 1].text.starts_with(L'-');
        const bool isPale = (i == 0 || row[i - 1].isRepeated) && !(isSelected && hasFocus);
        SetTextColor(dc, isPale                                    ? GetSysColor(COLOR_GRAYTEXT)
                         : isNegative && !(isSelected && hasFocus) ? negativeColour()
                                                                   : text);
        const UINT alignment = i == 0 ? DT_CENTER : isNumeric(bills_->shown()[i - 1]) ? DT_RIGHT : DT_LEFT;
        draw(dc, i == 0 ? std::to_wstring(index + 1) : row[i - 1].text, inset(cell, metrics_.px(padding)), alignment);
    }
    MoveToEx(dc, item.rcItem.left, item.rcItem.bottom - 1, nullptr);
    LineTo(dc, item.rcItem.right, item.rcItem.bottom - 1);
    if (hasFocus && (item.itemState & ODS_FOCUS)) {
        SetTextColor(dc, text);
        DrawFocusRect(dc, &item.rcItem);
    }
    RestoreDC(dc, state);
}

/// The texts are asked for by accessibility tools and by typing ahead; drawing does not need them.
LRESULT BillListView::notified(NMHDR& header) const {
    if (header.hwndFrom != list_ || header.code != LVN_GETDISPINFOW || !bills_)
        return 0;
    LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(header).item;
    if (!(item.mask & LVIF_TEXT) || item.iItem < 0 || item.iItem >= bills_->rows())
        return 0;
    const auto column = static_cast<std::size_t>(item.iSubItem);
    const std::wstring text = column == 0                        ? std::to_wstring(item.iItem + 1)
                              : column <= bills_->shown().size() ? bills_->row(item.iItem)[column - 1].text
                                                                 : std::wstring();
    lstrcpynW(item.pszText, text.c_str(), item.cchTextMax);
    return 0;
}

void BillListView::selectAll() const {
    ListView_SetItemState(list_, -1, LVIS_SELECTED, LVIS_SELECTED);
}

std::wstring BillListView::selectedText() const {
    std::wstring text;
    for (int row = ListView_GetNextItem(list_, -1, LVNI_SELECTED); row >= 0;
         row = ListView_GetNextItem(list_, row, LVNI_SELECTED)) {
        if (text.empty())
            text = headingText(bills_->shown()) + L"\r\n";
        std::wstring line;
        for (const Bills::Cell& cell : bills_->row(row))
            line += L"\t" + cell.text;
        text += line.substr(1) + L"\r\n";
    }
    return text;
}

/// The list scrolls in many ways; captions and totals follow whatever moved it.
LRESULT CALLBACK BillListView::listProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                             DWORD_PTR self) noexcept {
    const LRESULT result = DefSubclassProc(list, message, wParam, lParam);
    auto& view = *reinterpret_cast<BillListView*>(self);
    if (const int at = GetScrollPos(list, SB_HORZ); at != view.scrolledTo_) {
        view.scrolledTo_ = at;
        view.bands_.redraw();
    }
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS)
        InvalidateRect(list, nullptr, FALSE);
    return result;
}

} // namespace orv::erp
