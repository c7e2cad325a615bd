#include "erp/windows/list/Placement.h"

namespace orv::erp {

namespace {

constexpr const wchar_t* keyPath = L"Software\\OrvSampleHost";
constexpr const wchar_t* valueName = L"ListPlacement";

} // namespace

bool restorePlacement(HWND window) noexcept {
    WINDOWPLACEMENT placement{};
    DWORD size = sizeof placement;
    if (RegGetValueW(HKEY_CURRENT_USER, keyPath, valueName, RRF_RT_REG_BINARY, nullptr, &placement, &size) !=
            ERROR_SUCCESS ||
        size != sizeof placement || placement.length != sizeof placement)
        return false;
    // The screen may be another one: a place that nothing shows is of no use.
    if (!MonitorFromRect(&placement.rcNormalPosition, MONITOR_DEFAULTTONULL))
        return false;
    if (placement.showCmd != SW_SHOWMAXIMIZED)
        placement.showCmd = SW_SHOWNORMAL;
    return SetWindowPlacement(window, &placement) != FALSE;
}

void savePlacement(HWND window) noexcept {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (GetWindowPlacement(window, &placement))
        RegSetKeyValueW(HKEY_CURRENT_USER, keyPath, valueName, REG_BINARY, &placement, sizeof placement);
}

} // namespace orv::erp
