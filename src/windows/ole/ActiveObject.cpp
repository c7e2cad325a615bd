#include "windows/ole/ActiveObject.h"

namespace orv::windows {

HRESULT ActiveObject::GetWindow(HWND* window) noexcept {
    if (!window)
        return E_POINTER;
    *window = activation_.hwnd();
    return *window ? S_OK : E_FAIL;
}

HRESULT ActiveObject::TranslateAccelerator(LPMSG message) noexcept {
    if (!message)
        return E_POINTER;
    return run([&] { return activation_.translateKey(*message); });
}

HRESULT ActiveObject::EnableModeless(BOOL enable) noexcept {
    return run([&] { activation_.enableModeless(enable != FALSE); });
}

} // namespace orv::windows
