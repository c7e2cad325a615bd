#include "erp/windows/list/ListBands.h"

#include "erp/windows/list/Paint.h"
#include "erp/windows/ui/WindowNames.h"

#include <windowsx.h>

#include <algorithm>
#include <cstdlib>

namespace orv::erp {

namespace {

constexpr int padding = 4;   // pixels at 96 dots an inch
constexpr int edgeReach = 4; // likewise: how near the pointer must be to a line

HWND addBand(HWND parent, const wchar_t* windowClass, WNDPROC procedure, int id, UINT style, void* self) {
    WNDCLASSW description{};
    description.style = style;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = windowClass;
    RegisterClassW(&description); // fails from the second time on: the class is there already
    const HWND made =
        CreateWindowExW(0, windowClass, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), description.hInstance, nullptr);
    SetWindowLongPtrW(made, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    return made;
}

ListBands* bandsOf(HWND window) {
    return reinterpret_cast<ListBands*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

} // namespace

void ListBands::create(HWND parent, const std::wstring& numberCaption, const std::wstring& totalsCaption) {
    numberCaption_ = numberCaption;
    totalsCaption_ = totalsCaption;
    heading_ = addBand(parent, window::headingClass, headingProcedure, window::heading, CS_DBLCLKS, this);
    totals_ = addBand(parent, window::totalsClass, totalsProcedure, window::totals, 0, this);
}

void ListBands::show(const Bills& bills) {
    columns_ = bills.shown();
    cells_ = headingOf(columns_);
    totalTexts_ = bills.totals();
    // For those that read windows and not pictures.
    std::wstring captions, sums;
    for (const HeadingCell& cell : cells_)
        captions += (captions.empty() ? L"" : L"\t") + cell.text;
    for (const std::wstring& sum : totalTexts_)
        sums += (sums.empty() ? L"" : L"\t") + sum;
    SetWindowTextW(heading_, captions.c_str());
    SetWindowTextW(totals_, (totalsCaption_ + L"\t" + sums).c_str());
    redraw();
}

void ListBands::redraw() const {
    InvalidateRect(heading_, nullptr, FALSE);
    InvalidateRect(totals_, nullptr, FALSE);
}

int ListBands::headingHeight() const {
    const bool hasGroups = std::ranges::any_of(cells_, [](const HeadingCell& cell) { return cell.level > 0; });
    return metrics_.row() * (hasGroups ? 2 : 1) + 1;
}

int ListBands::totalsHeight() const {
    return metrics_.row() + 1;
}

LRESULT CALLBACK ListBands::headingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* self = bandsOf(window);
    return self && self->heading_ ? self->onHeading(message, wParam, lParam)
                                  : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK ListBands::totalsProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const auto* self = bandsOf(window);
    if (self && message == WM_PAINT) {
        self->paintTotals();
        return 0;
    }
    return message == WM_ERASEBKGND ? 1 : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT ListBands::onHeading(UINT message, WPARAM wParam, LPARAM lParam) {
    const int x = GET_X_LPARAM(lParam);
    switch (message) {
    case WM_PAINT:
        paintHeading();
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_SETCURSOR: {
        POINT at{};
        GetCursorPos(&at);
        ScreenToClient(heading_, &at);
        SetCursor(LoadCursorW(nullptr, edgeAt(at.x) >= 0 ? IDC_SIZEWE : IDC_ARROW));
        return TRUE;
    }
    case WM_LBUTTONDOWN:
        dragged_ = edgeAt(x);
        if (dragged_ >= 0)
            SetCapture(heading_);
        return 0;
    case WM_MOUSEMOVE:
        if (dragged_ >= 0)
            resize(static_cast<std::size_t>(dragged_),
                   std::max(metrics_.px(16), x - places().left(static_cast<std::size_t>(dragged_))));
        return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        dragged_ = -1;
        if (message == WM_LBUTTONUP)
            ReleaseCapture();
        return 0;
    case WM_LBUTTONDBLCLK:
        if (const int column = edgeAt(x); column >= 0)
            fit(static_cast<std::size_t>(column));
        return 0;
    default:
        return DefWindowProcW(heading_, message, wParam, lParam);
    }
}

int ListBands::edgeAt(int x) const {
    const ColumnPlaces at = places();
    for (std::size_t i = at.count(); i-- > 0;)
        if (std::abs(x - at.right(i)) <= metrics_.px(edgeReach))
            return static_cast<int>(i);
    return -1;
}

void ListBands::drawCaption(HDC dc, const std::wstring& text, const RECT& area) const {
    SetDCPenColor(dc, lineColour());
    MoveToEx(dc, area.left, area.bottom - 1, nullptr);
    LineTo(dc, area.right - 1, area.bottom - 1);
    LineTo(dc, area.right - 1, area.top - 1);
    RECT inside = area;
    InflateRect(&inside, -metrics_.px(padding), 0);
    draw(dc, text, inside, DT_CENTER);
}

void ListBands::paintHeading() const {
    const BufferedPaint paint(heading_);
    const HDC dc = paint.dc();
    fill(dc, paint.client(), headingColour());
    SelectObject(dc, GetStockObject(DC_PEN));
    SelectObject(dc, metrics_.font());
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    const ColumnPlaces at = places();
    const LONG bottom = paint.client().bottom;
    const LONG middle = bottom / 2;
    if (at.count() == 0 || columns_.empty())
        return;
    drawCaption(dc, numberCaption_, {at.left(0), 0, at.right(0), bottom});
    const bool hasGroups = std::ranges::any_of(cells_, [](const HeadingCell& cell) { return cell.level > 0; });
    for (const HeadingCell& cell : cells_) {
        if (cell.from + cell.count >= at.count() + 1 || cell.from + 1 >= at.count())
            continue;
        RECT area{at.left(cell.from + 1), 0, at.right(cell.from + cell.count), bottom};
        if (hasGroups && cell.levels == 1)
            (cell.level == 0 ? area.bottom : area.top) = middle;
        drawCaption(dc, cell.text, area);
    }
}

void ListBands::paintTotals() const {
    const BufferedPaint paint(totals_);
    const HDC dc = paint.dc();
    fill(dc, paint.client(), headingColour());
    SelectObject(dc, GetStockObject(DC_PEN));
    SelectObject(dc, metrics_.boldFont());
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    SetDCPenColor(dc, lineColour());
    MoveToEx(dc, 0, 0, nullptr);
    LineTo(dc, paint.client().right, 0);
    const ColumnPlaces at = places();
    for (std::size_t i = 0; i < at.count() && i <= totalTexts_.size() && !columns_.empty(); ++i) {
        MoveToEx(dc, at.right(i) - 1, 0, nullptr);
        LineTo(dc, at.right(i) - 1, paint.client().bottom);
        RECT area{at.left(i), 0, at.right(i) - 1, paint.client().bottom};
        InflateRect(&area, -metrics_.px(padding), 0);
        if (i == 0)
            draw(dc, totalsCaption_, area, DT_CENTER);
        else
            draw(dc, totalTexts_[i - 1], area, DT_RIGHT);
    }
}

} // namespace orv::erp
