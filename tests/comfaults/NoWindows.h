#pragma once

#include <windows.h>

namespace orv::windows::test {

/// While it lives, this thread cannot make a window: nothing waits for a user who is not there, and the control meets
/// a desktop that gives it no box and no dialog.
class NoWindows {
  public:
    NoWindows() : hook_(SetWindowsHookExW(WH_CBT, &refuse, nullptr, GetCurrentThreadId())) {}
    NoWindows(const NoWindows&) = delete;
    NoWindows& operator=(const NoWindows&) = delete;
    ~NoWindows() { UnhookWindowsHookEx(hook_); }

  private:
    static LRESULT CALLBACK refuse(int code, WPARAM first, LPARAM second) {
        return code == HCBT_CREATEWND ? 1 : CallNextHookEx(nullptr, code, first, second);
    }
    HHOOK hook_;
};

} // namespace orv::windows::test
