#pragma once

#include <windows.h>

namespace orv::erp {

// Where the list window stood, kept for the user in the registry. Of no account when it fails.

/// Puts the window where it stood last; false when nothing is known.
bool restorePlacement(HWND window) noexcept;
void savePlacement(HWND window) noexcept;

} // namespace orv::erp
