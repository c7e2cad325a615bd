#include "ole/ModalDialog.h"

#include "ole/ControlWindow.h"

namespace orv::ole {

int ModalDialog::run(ControlWindow& control) {
    const HWND owner = GetWindow(dialog_, GW_OWNER);
    isRunning_ = true;
    result_ = IDCANCEL;
    if (owner)
        EnableWindow(owner, FALSE);
    ShowWindow(dialog_, SW_SHOW);
    SetForegroundWindow(dialog_);
    control.activate();
    MSG message{};
    while (isRunning_ && IsWindow(dialog_)) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam)); // the outer loop ends too
            break;
        }
        if (control.translate(message) || IsDialogMessageW(dialog_, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    isRunning_ = false;
    control.deactivate();
    // Before the dialog goes: otherwise the system activates another program's window.
    if (owner) {
        EnableWindow(owner, TRUE);
        SetActiveWindow(owner);
    }
    if (IsWindow(dialog_))
        ShowWindow(dialog_, SW_HIDE);
    return result_;
}

void ModalDialog::end(int result) noexcept {
    result_ = result;
    isRunning_ = false;
    PostMessageW(dialog_, WM_NULL, 0, 0); // wakes the loop
}

} // namespace orv::ole
