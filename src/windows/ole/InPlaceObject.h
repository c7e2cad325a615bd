#pragma once

#include "windows/ole/Activation.h"
#include "windows/ole/OlePart.h"

namespace orv::windows {

/// What the container does with the control's window.
class InPlaceObject final : public OlePart<IOleInPlaceObject> {
  public:
    InPlaceObject(OleSite& site, Activation& activation) noexcept : OlePart(site.control), activation_(activation) {}

    /// E_FAIL while there is no window.
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() noexcept override;
    HRESULT STDMETHODCALLTYPE UIDeactivate() noexcept override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() noexcept override { return INPLACE_E_NOTUNDOABLE; }

  private:
    Activation& activation_;
};

} // namespace orv::windows
