#pragma once

#include <windows.h>

// Containers measure in HIMETRIC (hundredths of a millimetre), the control draws in pixels.
namespace orv::windows {

inline constexpr int himetricPerInch = 2540;

inline int himetricOfPixels(int pixels, int dpi) noexcept {
    return MulDiv(pixels, himetricPerInch, dpi);
}
inline int pixelsOfHimetric(LONG length, int dpi) noexcept {
    return MulDiv(static_cast<int>(length), dpi, himetricPerInch);
}

/// Dots an inch of the device, 96 when it does not know.
inline int dpiOf(HDC device) noexcept {
    const int dpi = GetDeviceCaps(device, LOGPIXELSY);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

inline int screenDpi() noexcept {
    const HDC screen = GetDC(nullptr);
    if (!screen)
        return USER_DEFAULT_SCREEN_DPI;
    const int dpi = dpiOf(screen);
    ReleaseDC(nullptr, screen);
    return dpi;
}

} // namespace orv::windows
