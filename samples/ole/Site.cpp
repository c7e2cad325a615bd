#include "ole/Site.h"

#include "ole/Ambients.h"
#include "ole/Himetric.h"

#include <olectl.h>

namespace orv::ole {

HRESULT Site::QueryInterface(REFIID id, void** out) noexcept {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (id == IID_IUnknown || id == IID_IOleClientSite)
        return give<IOleClientSite>(this, out);
    if (id == IID_IOleWindow || id == IID_IOleInPlaceSite)
        return give<IOleInPlaceSite>(this, out);
    if (id == IID_IOleControlSite)
        return give<IOleControlSite>(this, out);
    if (id == IID_IDispatch)
        return give<IDispatch>(this, out);
    return E_NOINTERFACE;
}

HRESULT Site::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (moniker)
        *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT Site::GetContainer(IOleContainer** container) noexcept {
    if (!container)
        return E_POINTER;
    *container = nullptr; // nobody enumerates the controls of a dialog
    return E_NOINTERFACE;
}

HRESULT Site::GetWindow(HWND* window) noexcept {
    if (!window)
        return E_POINTER;
    *window = owner_ ? owner_->siteWindow() : nullptr;
    return *window ? S_OK : E_FAIL;
}

HRESULT Site::OnUIActivate() noexcept {
    isUiActive_ = true;
    return S_OK;
}

HRESULT Site::OnUIDeactivate(BOOL) noexcept {
    isUiActive_ = false;
    return S_OK;
}

HRESULT Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position, LPRECT clip,
                               LPOLEINPLACEFRAMEINFO info) noexcept {
    if (!frame || !document || !position || !clip || !info)
        return E_POINTER;
    *frame = nullptr;
    *document = nullptr;
    if (!owner_)
        return E_UNEXPECTED;
    GetClientRect(owner_->siteWindow(), position);
    *clip = *position;
    info->fMDIApp = FALSE;
    info->hwndFrame = GetAncestor(owner_->siteWindow(), GA_ROOT);
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return frame_.CopyTo(IID_IOleInPlaceFrame, reinterpret_cast<void**>(frame));
}

HRESULT Site::OnControlInfoChanged() noexcept {
    if (owner_)
        owner_->controlInfoChanged();
    return S_OK;
}

HRESULT Site::GetExtendedControl(IDispatch** control) noexcept {
    if (!control)
        return E_POINTER;
    *control = nullptr;
    return E_NOTIMPL;
}

HRESULT Site::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) noexcept {
    if (!himetric || !container)
        return E_POINTER;
    const double pixels = pixelsPerHimetric();
    if (flags & XFORMCOORDS_HIMETRICTOCONTAINER) {
        container->x = static_cast<FLOAT>(himetric->x * pixels);
        container->y = static_cast<FLOAT>(himetric->y * pixels);
    } else if (flags & XFORMCOORDS_CONTAINERTOHIMETRIC) {
        himetric->x = static_cast<LONG>(double{container->x} / pixels);
        himetric->y = static_cast<LONG>(double{container->y} / pixels);
    } else {
        return E_INVALIDARG;
    }
    return S_OK;
}

HRESULT Site::TranslateAccelerator(MSG* message, DWORD) noexcept {
    if (!message)
        return E_POINTER;
    return owner_ && owner_->offerKey(*message) ? S_OK : S_FALSE;
}

HRESULT Site::GetTypeInfoCount(UINT* count) noexcept {
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT Site::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (!info)
        return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT Site::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) noexcept {
    return flags & DISPATCH_PROPERTYGET ? readAmbient(id, result) : DISP_E_MEMBERNOTFOUND;
}

} // namespace orv::ole
