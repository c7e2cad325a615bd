#include "windows/ole/OleControl.h"

#include <algorithm>
#include <array>

namespace orv::windows {

HRESULT OleControl::GetControlInfo(CONTROLINFO* info) noexcept {
    if (!info)
        return E_POINTER;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0; // neither CTRLINFO_EATS_RETURN nor CTRLINFO_EATS_ESCAPE
    return run([&] {
        const std::u16string keys = activation_.accessKeys();
        table_.fill(keys);
        info->hAccel = table_.get();
        info->cAccel = table_.get() ? static_cast<USHORT>(keys.size()) : USHORT{0};
    });
}

HRESULT OleControl::OnMnemonic(MSG* message) noexcept {
    if (!message)
        return E_POINTER;
    const auto letter = static_cast<char16_t>(message->wParam);
    return run([&] { activation_.pressAccessKey(letter); });
}

void OleControl::AcceleratorTable::fill(std::u16string_view letters) noexcept {
    if (handle_)
        DestroyAcceleratorTable(handle_);
    std::array<ACCEL, 36> entries{};
    const std::size_t count = std::min(letters.size(), entries.size());
    for (std::size_t i = 0; i < count; ++i)
        entries[i] = {FALT | FVIRTKEY, letters[i], static_cast<WORD>(i)};
    handle_ = count > 0 ? CreateAcceleratorTableW(entries.data(), static_cast<int>(count)) : nullptr;
}

HRESULT OleControl::OnAmbientPropertyChange(DISPID) noexcept {
    // All of them: a container that changes several tells so with DISPID_UNKNOWN.
    return run([&] { activation_.refreshAmbients(); });
}

} // namespace orv::windows
