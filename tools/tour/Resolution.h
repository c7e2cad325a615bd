#pragma once

#include <windows.h>

namespace orv::tour {

/// Another resolution for programs that start while this lives; the one before comes back.
class Resolution {
  public:
    /// Dots an inch. Raises TourError.
    explicit Resolution(DWORD dpi);
    Resolution(const Resolution&) = delete;
    Resolution& operator=(const Resolution&) = delete;
    ~Resolution();

  private:
    DWORD before_ = USER_DEFAULT_SCREEN_DPI;
};

/// Has this program see the screen's own pixels, whatever the resolution is of the programs that it drives.
void seeRealPixels();

} // namespace orv::tour
