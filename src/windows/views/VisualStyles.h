#pragma once

#include <windows.h>

namespace orv::windows {

/// For its lifetime, windows that this thread makes have the common controls that this module's manifest names: those
/// with visual styles, also in a host whose own manifest names none. Without a manifest, as in a test program, or where
/// the system knows no such controls, they have the host's.
class VisualStyles {
  public:
    VisualStyles() noexcept;
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;
    ~VisualStyles();

  private:
    ULONG_PTR cookie_ = 0;
};

} // namespace orv::windows
