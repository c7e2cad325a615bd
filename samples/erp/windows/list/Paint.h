#pragma once

#include <windows.h>

#include <string>

namespace orv::erp {

/// A colour between two, `percent` of the way to the second.
inline COLORREF mixed(COLORREF a, COLORREF b, int percent) noexcept {
    const auto part = [percent](int from, int to) { return static_cast<BYTE>(from + (to - from) * percent / 100); };
    return RGB(part(GetRValue(a), GetRValue(b)), part(GetGValue(a), GetGValue(b)), part(GetBValue(a), GetBValue(b)));
}

// The list's colours follow the system's.
inline COLORREF stripeColour() noexcept {
    return mixed(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_HIGHLIGHT), 5);
}
inline COLORREF lineColour() noexcept {
    return mixed(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_BTNSHADOW), 40);
}
/// A red that is read on light and dark windows.
inline COLORREF negativeColour() noexcept {
    return mixed(RGB(255, 0, 0), GetSysColor(COLOR_WINDOWTEXT), 25);
}
inline COLORREF headingColour() noexcept {
    return mixed(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_BTNFACE), 70);
}

inline void fill(HDC dc, const RECT& area, COLORREF colour) noexcept {
    SetDCBrushColor(dc, colour);
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

inline void draw(HDC dc, const std::wstring& text, RECT area, UINT alignment) noexcept {
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area,
              alignment | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
}

/// What is drawn appears at once, when the painter goes.
class BufferedPaint {
  public:
    explicit BufferedPaint(HWND window) noexcept : window_(window), screen_(BeginPaint(window, &paint_)) {
        GetClientRect(window, &client_);
        memory_ = CreateCompatibleDC(screen_);
        bitmap_ = CreateCompatibleBitmap(screen_, client_.right, client_.bottom);
        before_ = SelectObject(memory_, bitmap_);
        SetBkMode(memory_, TRANSPARENT);
    }
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;
    ~BufferedPaint() {
        BitBlt(screen_, 0, 0, client_.right, client_.bottom, memory_, 0, 0, SRCCOPY);
        SelectObject(memory_, before_);
        DeleteObject(bitmap_);
        DeleteDC(memory_);
        EndPaint(window_, &paint_);
    }
    HDC dc() const noexcept { return memory_; }
    const RECT& client() const noexcept { return client_; }

  private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC screen_;
    RECT client_{};
    HDC memory_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

} // namespace orv::erp
