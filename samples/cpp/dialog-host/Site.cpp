#include "Site.h"

#include "Calls.h"

void Site::embed(IUnknown* control, const RECT& place) {
    place_ = place;
    check(control->QueryInterface(IID_IOleObject, object_.putVoid()));
    check(object_->SetClientSite(this));
    ComPtr<IPersistStreamInit> state;
    check(object_->QueryInterface(IID_IPersistStreamInit, state.putVoid()));
    check(state->InitNew());
    check(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, window_, &place_));
    check(object_->QueryInterface(IID_IOleInPlaceObject, inPlace_.putVoid()));
}

void Site::move(const RECT& place) {
    place_ = place;
    if (inPlace_)
        inPlace_->SetObjectRects(&place_, &place_);
}

void Site::activate() {
    object_->DoVerb(OLEIVERB_UIACTIVATE, nullptr, this, 0, window_, &place_);
}

bool Site::takes(MSG& message) {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    const ComPtr<IOleInPlaceActiveObject> active = active_; // it may change inside of the call
    return isKey && active && active->TranslateAccelerator(&message) == S_OK;
}

void Site::close() {
    if (!object_)
        return;
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
    active_ = {};
    inPlace_ = {};
    object_ = {};
}

HRESULT Site::QueryInterface(REFIID id, void** out) {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (id == IID_IUnknown || id == IID_IOleClientSite)
        *out = static_cast<IOleClientSite*>(this);
    else if (id == IID_IOleWindow || id == IID_IOleInPlaceSite)
        *out = static_cast<IOleInPlaceSite*>(this);
    else if (id == IID_IOleInPlaceUIWindow || id == IID_IOleInPlaceFrame)
        *out = static_cast<IOleInPlaceFrame*>(this);
    return *out ? S_OK : E_NOINTERFACE;
}

HRESULT Site::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT Site::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT Site::GetWindow(HWND* window) {
    *window = window_;
    return S_OK;
}

HRESULT Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place, LPRECT clip,
                               LPOLEINPLACEFRAMEINFO info) {
    *frame = this; // with a reference of its own, which this class does not count
    *document = nullptr;
    *place = place_;
    *clip = place_;
    info->fMDIApp = FALSE;
    info->hwndFrame = window_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

HRESULT Site::SetActiveObject(IOleInPlaceActiveObject* active, LPCOLESTR) {
    active_ = ComPtr<IOleInPlaceActiveObject>(active);
    return S_OK;
}

// The control shows a message box or a dialog of its own: this one is disabled meanwhile.
HRESULT Site::EnableModeless(BOOL enable) {
    EnableWindow(window_, enable);
    return S_OK;
}
