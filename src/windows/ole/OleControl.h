#pragma once

#include "windows/ole/Activation.h"
#include "windows/ole/OlePart.h"

namespace orv::windows {

/// Accelerators and ambient properties. Enter and Esc stay with the host's dialog.
class OleControl final : public OlePart<IOleControl> {
  public:
    OleControl(OleSite& site, Activation& activation) noexcept : OlePart(site.control), activation_(activation) {}

    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) noexcept override;
    /// No caption of the control has an access key, so the container has none to hand on.
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) noexcept override;
    /// The control raises no events.
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) noexcept override { return S_OK; }

  private:
    Activation& activation_;
};

} // namespace orv::windows
