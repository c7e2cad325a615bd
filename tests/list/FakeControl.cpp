#include "list/FakeControl.h"

#include <algorithm>

namespace orv::ole::test {

HRESULT FakeControl::QueryInterface(REFIID id, void** out) noexcept {
    *out = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch)
        return give<IDispatch>(this, out);
    if (id == IID_IOleObject)
        return give<IOleObject>(this, out);
    if (id == IID_IOleWindow || id == IID_IOleInPlaceObject)
        return give<IOleInPlaceObject>(this, out);
    if (id == IID_IOleInPlaceActiveObject)
        return give<IOleInPlaceActiveObject>(this, out);
    if (id == IID_IOleControl)
        return give<IOleControl>(this, out);
    if (id == IID_IPersistStreamInit)
        return give<IPersistStreamInit>(this, out);
    return E_NOINTERFACE;
}

HRESULT FakeControl::SetClientSite(IOleClientSite* client) noexcept {
    site = client;
    return told(client ? "site" : "no site");
}

HRESULT FakeControl::InitNew() noexcept {
    return told("new");
}

HRESULT FakeControl::GetMiscStatus(DWORD, DWORD* status) noexcept {
    *status = miscStatus;
    return S_OK;
}

HRESULT FakeControl::Close(DWORD) noexcept {
    UIDeactivate();
    DestroyWindow(window);
    window = nullptr;
    if (const auto place = siteAs<IOleInPlaceSite>())
        place->OnInPlaceDeactivate();
    return told("close");
}

void FakeControl::open() noexcept {
    const auto place = siteAs<IOleInPlaceSite>();
    if (!place || place->CanInPlaceActivate() != S_OK || window)
        return;
    place->OnInPlaceActivate();
    Microsoft::WRL::ComPtr<IOleInPlaceFrame> frame;
    Microsoft::WRL::ComPtr<IOleInPlaceUIWindow> document;
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    place->GetWindowContext(&frame, &document, &position, &clip, &info);
    HWND parent = nullptr;
    place->GetWindow(&parent);
    window = CreateWindowExW(WS_EX_CONTROLPARENT, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
    for (const int number : {1, 2})
        CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 20 * number, 5, 20, 20, window,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(number)), GetModuleHandleW(nullptr), nullptr);
}

void FakeControl::uiActivate(bool fromTab) noexcept {
    told(fromTab ? "active by Tab" : "active");
    Microsoft::WRL::ComPtr<IOleInPlaceFrame> frame;
    Microsoft::WRL::ComPtr<IOleInPlaceUIWindow> document;
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    const auto place = siteAs<IOleInPlaceSite>();
    place->OnUIActivate();
    place->GetWindowContext(&frame, &document, &position, &clip, &info);
    frame->SetActiveObject(this, L"fake");
    SetFocus(edit(1));
}

HRESULT FakeControl::UIDeactivate() noexcept {
    Microsoft::WRL::ComPtr<IOleInPlaceFrame> frame;
    Microsoft::WRL::ComPtr<IOleInPlaceUIWindow> document;
    RECT clip{};
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    if (const auto place = siteAs<IOleInPlaceSite>();
        place && SUCCEEDED(place->GetWindowContext(&frame, &document, &position, &clip, &info))) {
        frame->SetActiveObject(nullptr, nullptr);
        place->OnUIDeactivate(FALSE);
    }
    return S_OK;
}

HRESULT FakeControl::DoVerb(LONG verb, LPMSG message, IOleClientSite*, LONG, HWND, LPCRECT) noexcept {
    if (verb == OLEIVERB_INPLACEACTIVATE) {
        told("in place");
        open();
        return window ? S_OK : E_FAIL;
    }
    if (verb != OLEIVERB_UIACTIVATE)
        return E_NOTIMPL;
    uiActivate(message != nullptr);
    return S_OK;
}

HRESULT FakeControl::SetExtent(DWORD, SIZEL* size) noexcept {
    extent = *size;
    return S_OK;
}

HRESULT FakeControl::GetWindow(HWND* out) noexcept {
    *out = window;
    return window ? S_OK : E_FAIL;
}

HRESULT FakeControl::SetObjectRects(LPCRECT where, LPCRECT) noexcept {
    position = *where;
    MoveWindow(window, where->left, where->top, where->right - where->left, where->bottom - where->top, TRUE);
    return S_OK;
}

HRESULT FakeControl::TranslateAccelerator(LPMSG message) noexcept {
    if (message->message != WM_KEYDOWN)
        return S_FALSE;
    told(("key " + std::to_string(message->wParam)).c_str());
    if (std::ranges::find(wantedKeys, message->wParam) != wantedKeys.end())
        return S_OK;
    const auto keys = siteAs<IOleControlSite>();
    return keys ? keys->TranslateAccelerator(message, 0) : S_FALSE;
}

HRESULT FakeControl::GetControlInfo(CONTROLINFO* info) noexcept {
    info->hAccel = accelerators;
    info->cAccel = accelerators ? 1 : 0;
    info->dwFlags = eats;
    return S_OK;
}

HRESULT FakeControl::OnMnemonic(MSG*) noexcept {
    return told("mnemonic");
}

} // namespace orv::ole::test
