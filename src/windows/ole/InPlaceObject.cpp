#include "windows/ole/InPlaceObject.h"

namespace orv::windows {

HRESULT InPlaceObject::GetWindow(HWND* window) noexcept {
    if (!window)
        return E_POINTER;
    *window = activation_.hwnd();
    return *window ? S_OK : E_FAIL;
}

HRESULT InPlaceObject::InPlaceDeactivate() noexcept {
    return run([&] { return activation_.deactivateInPlace(); });
}

HRESULT InPlaceObject::UIDeactivate() noexcept {
    return run([&] { return activation_.deactivateUi(); });
}

HRESULT InPlaceObject::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept {
    if (!position)
        return E_POINTER;
    const RECT where = *position;
    const RECT seen = clip ? *clip : *position;
    return run([&] { return activation_.setRects(where, seen); });
}

} // namespace orv::windows
