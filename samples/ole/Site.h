#pragma once

#include "ole/Frame.h"

#include <ocidl.h>

namespace orv::ole {

/// The window that a site speaks for.
class SiteOwner {
  public:
    virtual HWND siteWindow() const noexcept = 0;
    /// A key that the control does not want; true when the container has used it.
    virtual bool offerKey(const MSG& message) noexcept = 0;
    /// The control's access keys have changed.
    virtual void controlInfoChanged() noexcept = 0;

  protected:
    ~SiteOwner() = default;
};

/// The place of one control: what a control asks of its container and tells it. It fills the client area of the owner's
/// window.
class Site final : public Counted<IOleClientSite, IOleInPlaceSite, IOleControlSite, IDispatch> {
  public:
    Site(SiteOwner& owner, Frame& frame) noexcept : owner_(&owner), frame_(&frame) {}

    /// Forgets the owner; calls that still come fail.
    void detach() noexcept { owner_ = nullptr; }
    bool isUiActive() const noexcept { return isUiActive_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return Counted::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return Counted::Release(); }
    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }
    // IOleWindow
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    // IOleInPlaceSite
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override { return owner_ ? S_OK : S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override;
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               LPRECT position, LPRECT clip,
                                               LPOLEINPLACEFRAMEINFO info) noexcept override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override;
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) noexcept override { return S_OK; } // the owner sizes the control
    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override;
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) noexcept override;
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override;
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override { return E_NOTIMPL; }
    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) noexcept override;

  private:
    ~Site() override = default;

    SiteOwner* owner_;
    Microsoft::WRL::ComPtr<Frame> frame_;
    bool isUiActive_ = false;
};

} // namespace orv::ole
