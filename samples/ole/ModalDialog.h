#pragma once

#include <windows.h>

namespace orv::ole {

class ControlWindow;

/// Runs a modeless dialog as a modal one: its owner is disabled, and an ActiveX control in it gets the keys first.
///
/// The dialog procedure ends it with `end`. `run` returns when it has ended; a quit message is posted again.
class ModalDialog {
  public:
    explicit ModalDialog(HWND dialog) noexcept : dialog_(dialog) {}

    /// Shows the dialog until it ends, and hides it then. The result is that of `end`; IDCANCEL when the window is
    /// gone.
    int run(ControlWindow& control);
    void end(int result) noexcept;

  private:
    HWND dialog_;
    bool isRunning_ = false;
    int result_ = IDCANCEL;
};

} // namespace orv::ole
