#pragma once

#include "ole/References.h"

#include <windows.h>

#include <oleidl.h>
#include <wrl/client.h>

namespace orv::ole {

/// The frame of one top-level window: keeps the active object, which gets the keys first. There is no menu and no tool
/// space to negotiate.
class Frame final : public Counted<IOleInPlaceFrame> {
  public:
    explicit Frame(HWND window) noexcept : window_(window) {}

    /// Lets go of window and active object; calls that still come find none.
    void detach() noexcept;
    Microsoft::WRL::ComPtr<IOleInPlaceActiveObject> activeObject() const noexcept { return active_; }
    /// How many modal windows the objects have open.
    int modalWindows() const noexcept { return modalWindows_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) noexcept override;
    // IOleWindow
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    // IOleInPlaceUIWindow
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS widths) noexcept override;
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) noexcept override;
    // IOleInPlaceFrame
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) noexcept override { return S_FALSE; }

  private:
    ~Frame() override = default;

    HWND window_;
    int modalWindows_ = 0;
    Microsoft::WRL::ComPtr<IOleInPlaceActiveObject> active_;
};

} // namespace orv::ole
