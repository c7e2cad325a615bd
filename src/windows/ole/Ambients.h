#pragma once

#include "windows/views/FilterWindow.h"

#include <ocidl.h>

namespace orv::windows {

/// What the container wishes for all of its controls. A container without ambient properties gets the system's look and
/// a control that works.
struct Ambients {
    bool userMode = true; ///< false: the form is being designed
    bool uiDead = false;  ///< the user's actions shall have no effect (a program is halted)
    Appearance look;

    /// Whether the user may work with the control.
    bool isLive() const noexcept { return userMode && !uiDead; }
};

/// Asks the site for its ambient properties; null stands for a control without a container.
Ambients readAmbients(IOleClientSite* site) noexcept;

} // namespace orv::windows
