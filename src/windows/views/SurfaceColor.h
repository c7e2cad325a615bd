#pragma once

#include "ui/Control.h"

#include <windows.h>

namespace orv::windows {

/// A colour as the automation world writes it: a plain one, or 0x800000nn for the system colour nn.
inline COLORREF plainColor(std::uint32_t color) noexcept {
    constexpr std::uint32_t systemColor = 0x80000000;
    return (color & 0xFF000000) == systemColor ? GetSysColor(static_cast<int>(color & 0xFF)) : color & 0xFFFFFF;
}

/// Whether the user asks for high contrast: then only the system's colours are used.
inline bool highContrast() noexcept {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

/// How light a colour is, from 0 to 255.
inline int brightness(COLORREF color) noexcept {
    return (GetRValue(color) * 299 + GetGValue(color) * 587 + GetBValue(color) * 114) / 1000;
}

/// Black or white, whichever can be read on a colour.
inline COLORREF readableOn(COLORREF back) noexcept {
    return brightness(back) >= 128 ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

/// A colour between two others, at a number of 8ths from the first one.
inline COLORREF between(COLORREF from, COLORREF to, int eighths) noexcept {
    const auto mix = [eighths](int a, int b) { return a + (b - a) * eighths / 8; };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

/// Whether the user has light text on dark windows.
inline bool darkWindows() noexcept {
    return brightness(GetSysColor(COLOR_WINDOW)) < 128;
}

/// The colour of texts on the surface.
inline COLORREF surfaceTextColor(COLORREF ambient) noexcept {
    return highContrast() ? GetSysColor(COLOR_BTNTEXT) : ambient;
}

/// The colour of the control's surface.
inline COLORREF surfaceColor(const ui::Control& userControl, COLORREF ambient) noexcept {
    if (highContrast())
        return GetSysColor(COLOR_BTNFACE);
    return userControl.backColor() ? plainColor(*userControl.backColor()) : ambient;
}

} // namespace orv::windows
