#pragma once

#include <windows.h>

#include <utility>

// Owners of drawing objects.
namespace orv::windows {

/// An owned font, brush, pen, bitmap or region.
template <class Handle>
class GdiObject {
  public:
    GdiObject() = default;
    explicit GdiObject(Handle handle) noexcept : handle_(handle) {}
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    GdiObject& operator=(GdiObject&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~GdiObject() {
        if (handle_)
            DeleteObject(handle_);
    }
    Handle get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != nullptr; }

  private:
    Handle handle_ = nullptr;
};
using UniqueFont = GdiObject<HFONT>;
using UniqueBrush = GdiObject<HBRUSH>;
using UniquePen = GdiObject<HPEN>;
using UniqueBitmap = GdiObject<HBITMAP>;

/// Selects an object into a device context for a scope.
class Selected {
  public:
    Selected(HDC dc, HGDIOBJ object) noexcept : dc_(dc), old_(SelectObject(dc, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected() { SelectObject(dc_, old_); }

  private:
    HDC dc_;
    HGDIOBJ old_;
};

/// A window's device context for measuring.
class WindowDc {
  public:
    explicit WindowDc(HWND window) noexcept : window_(window), dc_(GetDC(window)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { ReleaseDC(window_, dc_); }
    HDC get() const noexcept { return dc_; }

  private:
    HWND window_;
    HDC dc_;
};

/// A picture in memory that goes to a device context in one piece, so that nothing flickers. Draw into `dc()` with the
/// coordinates of the target; `area` alone is copied.
class BackBuffer {
  public:
    BackBuffer(HDC target, const RECT& area) noexcept
        : target_(target), area_(area), dc_(CreateCompatibleDC(target)),
          bitmap_(CreateCompatibleBitmap(target, area.right - area.left, area.bottom - area.top)),
          old_(SelectObject(dc_, bitmap_.get())) {
        SetViewportOrgEx(dc_, -area.left, -area.top, nullptr);
    }
    BackBuffer(const BackBuffer&) = delete;
    BackBuffer& operator=(const BackBuffer&) = delete;
    ~BackBuffer() {
        BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top, dc_, area_.left,
               area_.top, SRCCOPY);
        SelectObject(dc_, old_);
        DeleteDC(dc_);
    }
    HDC dc() const noexcept { return dc_; }

  private:
    HDC target_;
    RECT area_;
    HDC dc_;
    UniqueBitmap bitmap_;
    HGDIOBJ old_;
};

/// Fills with a plain colour, without a brush of its own.
inline void fillRect(HDC dc, const RECT& area, COLORREF color) noexcept {
    const COLORREF old = SetBkColor(dc, color);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
    SetBkColor(dc, old);
}

} // namespace orv::windows
