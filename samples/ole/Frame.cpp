#include "ole/Frame.h"

namespace orv::ole {

void Frame::detach() noexcept {
    window_ = nullptr;
    active_ = nullptr;
}

HRESULT Frame::QueryInterface(REFIID id, void** out) noexcept {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (id == IID_IUnknown || id == IID_IOleWindow || id == IID_IOleInPlaceUIWindow || id == IID_IOleInPlaceFrame)
        return give<IOleInPlaceFrame>(this, out);
    return E_NOINTERFACE;
}

HRESULT Frame::GetWindow(HWND* window) noexcept {
    if (!window)
        return E_POINTER;
    *window = window_;
    return window_ ? S_OK : E_FAIL;
}

HRESULT Frame::SetBorderSpace(LPCBORDERWIDTHS widths) noexcept {
    // Null: the object needs no tools of its own.
    return widths && (widths->left | widths->top | widths->right | widths->bottom) ? INPLACE_E_NOTOOLSPACE : S_OK;
}

HRESULT Frame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept {
    // The last release of the one before may call back.
    const Microsoft::WRL::ComPtr<IOleInPlaceActiveObject> before = active_;
    active_ = window_ ? object : nullptr;
    return S_OK;
}

HRESULT Frame::EnableModeless(BOOL enable) noexcept {
    modalWindows_ += enable ? -1 : 1;
    return S_OK;
}

} // namespace orv::ole
