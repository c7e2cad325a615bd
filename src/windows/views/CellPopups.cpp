#include "windows/views/CellPopups.h"

#include "support/Letters.h"
#include "windows/com/Handles.h"
#include "windows/views/Gdi.h"
#include "windows/views/SurfaceColor.h"

#include <windowsx.h>

#include <commctrl.h>
#include <imm.h>

#include <algorithm>

namespace orv::windows {

namespace {

/// What Ctrl+A types.
constexpr WPARAM selectAll = 1;

/// Where a popup of a size goes: below the cell, or above it when there is no room; always on the cell's screen.
POINT besideCell(const RECT& cell, SIZE size) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&cell, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    POINT at{cell.left, cell.bottom};
    if (at.y + size.cy > work.bottom && cell.top - size.cy >= work.top)
        at.y = cell.top - size.cy;
    at.x = std::max(std::min(at.x, work.right - size.cx), work.left);
    return at;
}

} // namespace

void CellEdit::open(HWND grid, const RECT& bounds, HFONT font, const std::u16string& text, int maxLength,
                    bool rightAligned) {
    Creation how;
    how.controlClass = L"EDIT";
    how.style = WS_CHILD | ES_AUTOHSCROLL | (rightAligned ? static_cast<DWORD>(ES_RIGHT) : 0);
    how.parent = grid;
    how.bounds = bounds;
    create(how);
    SendMessageW(hwnd(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    SendMessageW(hwnd(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(1, 1));
    if (maxLength > 0)
        SendMessageW(hwnd(), EM_LIMITTEXT, static_cast<WPARAM>(maxLength), 0);
    SetWindowTextW(hwnd(), asWide(text));
    SendMessageW(hwnd(), EM_SETSEL, 0, -1);
    ShowWindow(hwnd(), SW_SHOWNA);
}

std::u16string CellEdit::text() const {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(hwnd())), u'\0');
    GetWindowTextW(hwnd(), reinterpret_cast<wchar_t*>(text.data()), static_cast<int>(text.size() + 1));
    return text;
}

void CellEdit::endComposition() const {
    if (const HIMC context = ImmGetContext(hwnd())) {
        ImmNotifyIME(context, NI_COMPOSITIONSTR, CPS_COMPLETE, 0);
        ImmReleaseContext(hwnd(), context);
    }
}

LRESULT CellEdit::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS | pass(message, wParam, lParam);
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        // A key that ends editing takes the function away.
        if (const auto offer = onKey; offer && offer(wParam))
            return 0;
        break;
    case WM_CHAR:
        // The keys that end editing would beep here.
        if (wParam == VK_RETURN || wParam == VK_TAB || wParam == VK_ESCAPE)
            return 0;
        if (wParam == selectAll) {
            SendMessageW(hwnd(), EM_SETSEL, 0, -1);
            return 0;
        }
        break;
    default:
        break;
    }
    return pass(message, wParam, lParam);
}

void CellList::open(HWND grid, const RECT& cell, HFONT font, const std::vector<std::u16string>& captions,
                    int selected) {
    constexpr int mostRows = 12;
    captions_ = captions;
    GetCursorPos(&pointer_);
    Creation how;
    how.controlClass = L"LISTBOX";
    how.style = WS_POPUP | WS_BORDER | WS_VSCROLL | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT;
    how.exStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE;
    how.parent = grid;
    create(how);
    SendMessageW(hwnd(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    const WindowDc dc(hwnd());
    const Selected selectedFont(dc.get(), font);
    int width = static_cast<int>(cell.right - cell.left);
    for (const std::u16string& caption : captions_) {
        SendMessageW(hwnd(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(caption.c_str()));
        SIZE size{};
        GetTextExtentPoint32W(dc.get(), asWide(caption), static_cast<int>(caption.size()), &size);
        width = std::max(width, static_cast<int>(size.cx) + GetSystemMetrics(SM_CXVSCROLL) + 12);
    }
    SendMessageW(hwnd(), LB_SETCURSEL, static_cast<WPARAM>(selected), 0);
    const int rows = std::clamp(static_cast<int>(captions_.size()), 1, mostRows);
    const SIZE size{std::min(width, GetSystemMetrics(SM_CXSCREEN) / 2),
                    rows * static_cast<int>(SendMessageW(hwnd(), LB_GETITEMHEIGHT, 0, 0)) + 2};
    const POINT at = besideCell(cell, size);
    SetWindowPos(hwnd(), HWND_TOPMOST, static_cast<int>(at.x), static_cast<int>(at.y), static_cast<int>(size.cx),
                 static_cast<int>(size.cy), SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

int CellList::selected() const {
    return static_cast<int>(SendMessageW(hwnd(), LB_GETCURSEL, 0, 0));
}

void CellList::select(int position) {
    if (!captions_.empty())
        SendMessageW(hwnd(), LB_SETCURSEL, static_cast<WPARAM>(std::clamp(position, 0, count() - 1)), 0);
}

int CellList::count() const {
    return static_cast<int>(captions_.size());
}

int CellList::pageRows() const {
    RECT client;
    GetClientRect(hwnd(), &client);
    return std::max(
        static_cast<int>(client.bottom) / static_cast<int>(SendMessageW(hwnd(), LB_GETITEMHEIGHT, 0, 0)) - 1, 1);
}

void CellList::search(char16_t letter, DWORD nowMs) {
    // A pause begins a new word.
    constexpr DWORD pauseMs = 1200;
    if (nowMs - typedAtMs_ > pauseMs)
        typed_.clear();
    typedAtMs_ = nowMs;
    if (letter == u'\b') {
        if (!typed_.empty())
            typed_.pop_back();
    } else {
        typed_ += letter;
    }
    int inside = -1;
    for (int i = 0; i < count(); ++i) {
        const std::size_t at = support::findIgnoringCase(captions_[static_cast<std::size_t>(i)], typed_);
        if (at == 0)
            return select(i);
        if (at != std::u16string::npos && inside < 0)
            inside = i;
    }
    if (inside >= 0)
        select(inside);
}

int CellList::itemAt(LPARAM position) const {
    const auto found = SendMessageW(hwnd(), LB_ITEMFROMPOINT, 0, position);
    return HIWORD(found) == 0 && LOWORD(found) < captions_.size() ? LOWORD(found) : -1;
}

LRESULT CellList::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    // A list box takes the focus when it is clicked; this one leaves it with the grid.
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        return 0;
    case WM_MOUSEMOVE: {
        // A list that opens under a pointer at rest is told of a move, too.
        POINT pointer{};
        GetCursorPos(&pointer);
        if (pointer.x == pointer_.x && pointer.y == pointer_.y)
            return 0;
        pointer_ = pointer;
        if (const int item = itemAt(lParam); item >= 0 && item != selected())
            select(item);
        return 0;
    }
    case WM_LBUTTONUP:
        if (const int item = itemAt(lParam); item >= 0 && onChoose) {
            const auto choose = onChoose;
            choose(item);
        }
        return 0;
    default:
        return pass(message, wParam, lParam);
    }
}

namespace {

/// Days that an arrow key moves the date by; 0 for other keys.
int daysOf(WPARAM key) {
    switch (key) {
    case VK_LEFT:
        return -1;
    case VK_RIGHT:
        return 1;
    case VK_UP:
        return -7;
    case VK_DOWN:
        return 7;
    default:
        return 0;
    }
}

void moveDate(HWND month, int days) {
    SYSTEMTIME date{};
    FILETIME file{};
    SendMessageW(month, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&date));
    if (!SystemTimeToFileTime(&date, &file))
        return;
    constexpr LONGLONG unitsPerDay = 24LL * 3600 * 10'000'000; // of 100 ns
    ULARGE_INTEGER units{};
    units.LowPart = file.dwLowDateTime;
    units.HighPart = file.dwHighDateTime;
    units.QuadPart += static_cast<ULONGLONG>(days * unitsPerDay);
    file = {units.LowPart, units.HighPart};
    if (FileTimeToSystemTime(&file, &date))
        SendMessageW(month, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&date));
}

} // namespace

class CellCalendar::Month final : public Window {
  public:
    std::function<bool(WPARAM key)> onKey;
    void open(HWND frame) {
        Creation how;
        how.controlClass = MONTHCAL_CLASSW;
        how.style = WS_CHILD | WS_VISIBLE;
        how.parent = frame;
        create(how);
    }

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_GETDLGCODE)
            return DLGC_WANTALLKEYS;
        if (message == WM_KEYDOWN && onKey && onKey(wParam))
            return 0;
        return pass(message, wParam, lParam);
    }
};

void CellCalendar::open(HWND grid, const RECT& cell, HFONT font, const std::optional<SYSTEMTIME>& date,
                        const std::optional<SYSTEMTIME>& today) {
    Creation how;
    how.style = WS_POPUP | WS_BORDER;
    how.exStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST;
    how.parent = grid;
    create(how);
    month_ = std::make_shared<Month>();
    month_->open(hwnd());
    const HWND month = month_->hwnd();
    SendMessageW(month, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    if (today)
        SendMessageW(month, MCM_SETTODAY, 0, reinterpret_cast<LPARAM>(&*today));
    if (const auto& first = date ? date : today)
        SendMessageW(month, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&*first));
    // The usual colours of the title, which the names of the days have as well, are made for white calendars.
    if (darkWindows()) {
        SendMessageW(month, MCM_SETCOLOR, MCSC_TITLEBK, static_cast<LPARAM>(GetSysColor(COLOR_WINDOWTEXT)));
        SendMessageW(month, MCM_SETCOLOR, MCSC_TITLETEXT, static_cast<LPARAM>(GetSysColor(COLOR_WINDOW)));
    }
    month_->onKey = [this](WPARAM key) {
        if (const int days = daysOf(key); days != 0) {
            moveDate(month_->hwnd(), days);
            return true;
        }
        if (key == VK_RETURN) {
            SYSTEMTIME chosen{};
            SendMessageW(month_->hwnd(), MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&chosen));
            if (const auto choose = onChoose)
                choose(chosen);
            return true;
        }
        if (key == VK_ESCAPE || key == VK_F4 || key == VK_TAB) {
            if (const auto cancel = onCancel)
                cancel();
            return true;
        }
        return false;
    };
    RECT needed{};
    SendMessageW(month, MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&needed));
    const SIZE size{needed.right - needed.left + 2, needed.bottom - needed.top + 2};
    const POINT at = besideCell(cell, size);
    SetWindowPos(month, nullptr, 0, 0, static_cast<int>(size.cx) - 2, static_cast<int>(size.cy) - 2, SWP_NOZORDER);
    SetWindowPos(hwnd(), HWND_TOPMOST, static_cast<int>(at.x), static_cast<int>(at.y), static_cast<int>(size.cx),
                 static_cast<int>(size.cy), SWP_SHOWWINDOW);
    SetFocus(month);
}

LRESULT CellCalendar::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == static_cast<UINT>(MCN_SELECT)) {
        const SYSTEMTIME chosen = reinterpret_cast<const NMSELCHANGE*>(lParam)->stSelStart;
        if (const auto choose = onChoose)
            choose(chosen);
        return 0;
    }
    if (message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE) {
        const LRESULT result = pass(message, wParam, lParam);
        if (const auto cancel = onCancel)
            cancel();
        return result;
    }
    return ContainerWindow::onMessage(message, wParam, lParam);
}

} // namespace orv::windows
