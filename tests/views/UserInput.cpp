#include "UserInput.h"

namespace orv::windows::testing {

namespace {

/// Time in which the X server hands input back.
constexpr int inputMs = 25;

void sendKey(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = up ? static_cast<DWORD>(KEYEVENTF_KEYUP) : 0;
    SendInput(1, &input, sizeof input);
}

void sendMouse(HWND window, POINT at, DWORD flags) {
    ClientToScreen(window, &at);
    SetCursorPos(static_cast<int>(at.x), static_cast<int>(at.y));
    if (flags != 0) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    }
}

} // namespace

void press(Stage& stage, WORD key, std::initializer_list<WORD> held) {
    for (const WORD modifier : held)
        sendKey(modifier, false);
    sendKey(key, false);
    pumpFor(stage, inputMs);
    sendKey(key, true);
    for (const WORD modifier : held)
        sendKey(modifier, true);
    pumpFor(stage, inputMs);
}

void type(Stage& stage, std::u16string_view letters) {
    for (const char16_t letter : letters) {
        PostMessageW(GetFocus(), WM_CHAR, letter, 1);
        pump(stage);
    }
}

void click(Stage& stage, HWND window, POINT at) {
    sendMouse(window, at, MOUSEEVENTF_LEFTDOWN);
    pumpFor(stage, inputMs);
    sendMouse(window, at, MOUSEEVENTF_LEFTUP);
    pumpFor(stage, inputMs);
}

void drag(Stage& stage, HWND window, POINT from, POINT to) {
    sendMouse(window, from, MOUSEEVENTF_LEFTDOWN);
    pumpFor(stage, inputMs);
    sendMouse(window, to, 0);
    pumpFor(stage, inputMs);
    sendMouse(window, to, MOUSEEVENTF_LEFTUP);
    pumpFor(stage, inputMs);
}

void wheel(Stage& stage, int notches) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<DWORD>(notches * WHEEL_DELTA);
    SendInput(1, &input, sizeof input);
    pumpFor(stage, inputMs);
}

} // namespace orv::windows::testing
