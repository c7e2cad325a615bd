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

/// The colour of the control's surface.
inline COLORREF surfaceColor(const ui::Control& userControl, COLORREF ambient) noexcept {
    if (highContrast())
        return GetSysColor(COLOR_BTNFACE);
    return userControl.backColor() ? plainColor(*userControl.backColor()) : ambient;
}

} // namespace orv::windows
