#pragma once

#include "windows/com/ComPtr.h"
#include "windows/ole/Advice.h"
#include "windows/ole/Ambients.h"

#include <ocidl.h>

namespace orv::windows {

/// What the parts of the embedded control share of their container. Without a container all of it is empty.
struct OleSite {
    explicit OleSite(IUnknown& outer) noexcept : control(outer) {}

    IUnknown& control; ///< the control's own identity
    ComPtr<IOleClientSite> client;
    Ambients ambients = readAmbients(nullptr);
    Advice advice;

    // Held while the control is active in place only.
    ComPtr<IOleInPlaceSite> place;
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document; ///< null when the frame is the document too

    /// The container's top-level window; null while the control is not active.
    HWND topWindow() const noexcept;
    /// Tells the container that the focus came into the control or left it.
    void sendFocus(bool hasFocus) const noexcept;
    /// Offers a key that the control has no use for; S_OK when the container took it.
    HRESULT offerKey(MSG& message) const noexcept;
};

} // namespace orv::windows
