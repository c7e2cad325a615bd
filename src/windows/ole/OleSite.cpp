#include "windows/ole/OleSite.h"

namespace orv::windows {

namespace {

// The modifier bits of IOleControlSite::TranslateAccelerator.
constexpr DWORD shiftBit = 1;
constexpr DWORD controlBit = 2;
constexpr DWORD altBit = 4;

bool isDown(int key) noexcept {
    return GetKeyState(key) < 0;
}

ComPtr<IOleControlSite> controlSiteOf(const ComPtr<IOleClientSite>& client) noexcept {
    ComPtr<IOleControlSite> site;
    if (FAILED(client.as(site)))
        return nullptr;
    return site;
}

} // namespace

HWND OleSite::topWindow() const noexcept {
    const ComPtr<IOleInPlaceSite> current = place;
    HWND window = nullptr;
    if (!current || FAILED(current->GetWindow(&window)) || !window)
        return nullptr;
    return GetAncestor(window, GA_ROOT);
}

void OleSite::sendFocus(bool hasFocus) const noexcept {
    if (const ComPtr<IOleControlSite> site = controlSiteOf(client))
        site->OnFocus(hasFocus);
}

HRESULT OleSite::offerKey(MSG& message) const noexcept {
    const ComPtr<IOleControlSite> site = controlSiteOf(client);
    if (!site)
        return S_FALSE;
    const DWORD modifiers =
        (isDown(VK_SHIFT) ? shiftBit : 0) | (isDown(VK_CONTROL) ? controlBit : 0) | (isDown(VK_MENU) ? altBit : 0);
    return site->TranslateAccelerator(&message, modifiers) == S_OK ? S_OK : S_FALSE;
}

} // namespace orv::windows
