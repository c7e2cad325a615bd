#include "tour/Input.h"

#include "tour/Wait.h"

namespace orv::tour {

namespace {

/// How long a finger stays on a key or button, and a pointer on its place: programs ask while they handle the one where
/// the other is.
constexpr DWORD heldMs = 30;

void sendKey(WORD key, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    if (SendInput(1, &input, sizeof input) != 1)
        throw TourError("the system takes no keys");
}

void sendVirtualKey(WORD key, DWORD flags) {
    sendKey(key, static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)), flags);
}

/// Of the 65536 steps that the system counts over the screen: the middle of a pixel.
LONG steps(LONG pixel, int metric) {
    const LONG pixels = GetSystemMetrics(metric);
    return (pixel * 65536 + 32768) / pixels;
}

/// What a button or the wheel does and where, as one event: under Wine the display's own pointer stays where it is, and
/// a window that opens or closes may have the system believe that it has come back there.
void sendMouse(POINT at, DWORD flags, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = steps(at.x, SM_CXSCREEN);
    input.mi.dy = steps(at.y, SM_CYSCREEN);
    input.mi.mouseData = data;
    input.mi.dwFlags = flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    if (SendInput(1, &input, sizeof input) != 1)
        throw TourError("the system takes no clicks");
}

} // namespace

void press(WORD key, std::initializer_list<WORD> held) {
    for (const WORD modifier : held)
        sendVirtualKey(modifier, 0);
    sendVirtualKey(key, 0);
    Sleep(heldMs);
    sendVirtualKey(key, KEYEVENTF_KEYUP);
    for (const WORD modifier : held)
        sendVirtualKey(modifier, KEYEVENTF_KEYUP);
}

void press(WORD key, int times) {
    for (int i = 0; i < times; ++i)
        press(key);
}

void type(std::wstring_view text) {
    for (const wchar_t letter : text) {
        sendKey(0, static_cast<WORD>(letter), KEYEVENTF_UNICODE);
        sendKey(0, static_cast<WORD>(letter), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}

void click(POINT at) {
    sendMouse(at, 0);
    Sleep(heldMs);
    sendMouse(at, MOUSEEVENTF_LEFTDOWN);
    Sleep(heldMs);
    sendMouse(at, MOUSEEVENTF_LEFTUP);
}

void click(const RECT& area) {
    click(POINT{(area.left + area.right) / 2, (area.top + area.bottom) / 2});
}

void wheel(POINT at, int notches) {
    sendMouse(at, MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA));
}

} // namespace orv::tour
