#include "windows/ole/OleControl.h"

namespace orv::windows {

HRESULT OleControl::GetControlInfo(CONTROLINFO* info) noexcept {
    if (!info)
        return E_POINTER;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0; // neither CTRLINFO_EATS_RETURN nor CTRLINFO_EATS_ESCAPE
    return S_OK;
}

HRESULT OleControl::OnAmbientPropertyChange(DISPID) noexcept {
    // All of them: a container that changes several tells so with DISPID_UNKNOWN.
    return run([&] { activation_.refreshAmbients(); });
}

} // namespace orv::windows
