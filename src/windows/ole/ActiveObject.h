#pragma once

#include "windows/ole/Activation.h"
#include "windows/ole/OlePart.h"

namespace orv::windows {

/// What the container's frame asks of its active object.
class ActiveObject final : public OlePart<IOleInPlaceActiveObject> {
  public:
    ActiveObject(OleSite& site, Activation& activation) noexcept : OlePart(site.control), activation_(activation) {}

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) noexcept override;
    // The focus comes back by itself with the frame's window; there are no tool bars to take out and put back.
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) noexcept override;

  private:
    Activation& activation_;
};

} // namespace orv::windows
