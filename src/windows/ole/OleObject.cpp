#include "windows/ole/OleObject.h"

#include <ORVFilter.h>
#include <olectl.h>

namespace orv::windows {

namespace {

/// Tabbing backwards enters the control at its last part.
FocusStop stopFor(const MSG* message) noexcept {
    const bool isTab = message && message->message == WM_KEYDOWN && message->wParam == VK_TAB;
    return isTab && GetKeyState(VK_SHIFT) < 0 ? FocusStop::last : FocusStop::first;
}

} // namespace

HRESULT OleObject::SetClientSite(IOleClientSite* client) noexcept {
    return run([&] { activation_.setClient(client); });
}

HRESULT OleObject::GetClientSite(IOleClientSite** client) noexcept {
    if (!client)
        return E_POINTER;
    *client = ComPtr<IOleClientSite>(site_.client).detach();
    return S_OK;
}

HRESULT OleObject::Close(DWORD saveOption) noexcept {
    return run([&]() -> HRESULT {
        // There is nobody to ask: a container that wants its user asked does so before it closes.
        HRESULT saved = S_OK;
        if (saveOption != OLECLOSE_NOSAVE && design_.isDirty()) {
            if (const ComPtr<IOleClientSite> client = site_.client)
                saved = client->SaveObject();
            if (SUCCEEDED(saved))
                site_.advice.sendSaved();
        }
        activation_.deactivateInPlace();
        site_.advice.sendClosed();
        return saved;
    });
}

HRESULT OleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (!moniker)
        return E_POINTER;
    *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT OleObject::GetClipboardData(DWORD, IDataObject** data) noexcept {
    if (!data)
        return E_POINTER;
    *data = nullptr;
    return E_NOTIMPL;
}

HRESULT OleObject::DoVerb(LONG verb, MSG* message, IOleClientSite*, LONG, HWND, LPCRECT) noexcept {
    return run([&]() -> HRESULT {
        switch (verb) {
        case OLEIVERB_SHOW:
        case OLEIVERB_INPLACEACTIVATE:
            return activation_.activateInPlace();
        case OLEIVERB_PRIMARY:
        case OLEIVERB_UIACTIVATE:
            return activation_.activateUi(stopFor(message));
        case OLEIVERB_HIDE:
            return activation_.hide();
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK;
        case OLEIVERB_OPEN: // a window of its own, which the control has not
        case OLEIVERB_PROPERTIES:
            return E_NOTIMPL;
        default:
            // An unknown verb of the object counts as its primary one; an unknown verb of the system is refused.
            if (verb < 0)
                return E_NOTIMPL;
            const HRESULT active = activation_.activateUi(stopFor(message));
            return FAILED(active) ? active : OLEOBJ_S_INVALIDVERB;
        }
    });
}

HRESULT OleObject::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
    if (!verbs)
        return E_POINTER;
    *verbs = nullptr;
    return OLEOBJ_E_NOVERBS;
}

HRESULT OleObject::GetUserClassID(CLSID* id) noexcept {
    if (!id)
        return E_POINTER;
    *id = __uuidof(::Filter);
    return S_OK;
}

HRESULT OleObject::GetUserType(DWORD form, LPOLESTR* text) noexcept {
    if (!text)
        return E_POINTER;
    *text = nullptr;
    return OleRegGetUserType(__uuidof(::Filter), form, text);
}

HRESULT OleObject::SetExtent(DWORD aspect, SIZEL* extent) noexcept {
    if (!extent)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (extent->cx < 0 || extent->cy < 0)
        return E_INVALIDARG;
    return run([&] {
        if (extent->cx == design_.extent().cx && extent->cy == design_.extent().cy)
            return;
        design_.setExtent(*extent);
        // A window follows the rectangles of the container instead.
        activation_.layOut(*extent);
        site_.advice.sendViewChange();
    });
}

HRESULT OleObject::GetExtent(DWORD aspect, SIZEL* extent) noexcept {
    if (!extent)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *extent = design_.extent();
    return S_OK;
}

HRESULT OleObject::Advise(IAdviseSink* sink, DWORD* connection) noexcept {
    if (!connection)
        return E_POINTER;
    *connection = 0;
    return run([&] { return site_.advice.advise(sink, connection); });
}

HRESULT OleObject::Unadvise(DWORD connection) noexcept {
    return run([&] { return site_.advice.unadvise(connection); });
}

HRESULT OleObject::EnumAdvise(IEnumSTATDATA** connections) noexcept {
    if (!connections)
        return E_POINTER;
    *connections = nullptr;
    return run([&] { return site_.advice.enumerate(connections); });
}

HRESULT OleObject::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
    if (!status)
        return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? filterMiscStatus : 0;
    return S_OK;
}

} // namespace orv::windows
