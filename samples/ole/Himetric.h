#pragma once

#include <windows.h>

namespace orv::ole {

/// Pixels of the screen in a hundredth of a millimetre, the unit of OLE's extents.
inline double pixelsPerHimetric() noexcept {
    constexpr double himetricPerInch = 2540;
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi / himetricPerInch;
}

} // namespace orv::ole
