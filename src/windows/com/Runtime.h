#pragma once

#include <windows.h>

namespace orv::windows {

/// Gives back what the C++ runtime linked into this DLL would leave in the process when the DLL is unloaded: its
/// reserve of memory for exceptions (73 KB), and most of what it keeps for the thread that unloads. To be called from
/// DllMain, only when the process goes on.
void releaseRuntime(HINSTANCE instance) noexcept;

} // namespace orv::windows
