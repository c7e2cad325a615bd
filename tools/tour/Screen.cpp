#include "tour/Screen.h"

#include "tour/Text.h"
#include "tour/Wait.h"

#include <algorithm>
#include <functional>

namespace orv::tour {

namespace {

/// Hands every window of an enumeration to a function until that says false.
BOOL CALLBACK hand(HWND window, LPARAM visit) {
    return (*reinterpret_cast<const std::function<bool(HWND)>*>(visit))(window);
}

bool needsDrawing(HWND window) {
    bool needs = GetUpdateRect(window, nullptr, FALSE) != FALSE;
    const std::function<bool(HWND)> visit = [&](HWND child) {
        needs = needs || (IsWindowVisible(child) && GetUpdateRect(child, nullptr, FALSE));
        return !needs;
    };
    EnumChildWindows(window, hand, reinterpret_cast<LPARAM>(&visit));
    return needs;
}

std::string named(const std::wstring& windowClass, const std::wstring& text) {
    return utf8(L"a window of class " + windowClass + (text.empty() ? L"" : L" with the text \"" + text + L"\""));
}

} // namespace

std::wstring classOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

bool isShown(HWND window) {
    return window && IsWindow(window) && IsWindowVisible(window);
}

HWND findTop(const std::wstring& windowClass, const std::wstring& text) {
    HWND found = nullptr;
    const std::function<bool(HWND)> visit = [&](HWND window) {
        if (IsWindowVisible(window) && classOf(window) == windowClass && (text.empty() || textOf(window) == text))
            found = window;
        return !found;
    };
    EnumWindows(hand, reinterpret_cast<LPARAM>(&visit));
    return found;
}

HWND awaitTop(const std::wstring& windowClass, const std::wstring& text) {
    return awaited(named(windowClass, text), [&] { return findTop(windowClass, text); });
}

std::vector<HWND> shownWithin(HWND window, const std::wstring& windowClass) {
    std::vector<HWND> found;
    const std::function<bool(HWND)> visit = [&](HWND child) {
        if (IsWindowVisible(child) && classOf(child) == windowClass)
            found.push_back(child);
        return true;
    };
    EnumChildWindows(window, hand, reinterpret_cast<LPARAM>(&visit));
    return found;
}

HWND awaitWithin(HWND window, const std::wstring& windowClass, const std::wstring& text) {
    return awaited(named(windowClass, text) + " in " + utf8(textOf(window)), [&]() -> HWND {
        std::vector<HWND> found = shownWithin(window, windowClass);
        std::erase_if(found, [&](HWND child) { return !text.empty() && textOf(child) != text; });
        return found.size() == 1 ? found.front() : nullptr;
    });
}

HWND awaitChild(HWND parent, int id) {
    return awaited("the control " + std::to_string(id) + " of " + utf8(textOf(parent)),
                   [&] { return GetDlgItem(parent, id); });
}

HWND focusIn(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) ? info.hwndFocus : nullptr;
}

void awaitFocus(HWND window, const std::string& whose) {
    awaited("the keyboard in " + whose, [&] {
        const HWND focus = focusIn(window);
        return focus == window || IsChild(window, focus);
    });
}

void awaitGone(HWND window, const std::string& what) {
    awaited(what + " to go", [&] { return !isShown(window); });
}

void awaitHandled(HWND window) {
    SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, patienceMs, nullptr);
}

void awaitDrawn(HWND window) {
    int quiet = 0;
    awaited("the screen to be drawn", [&] {
        awaitHandled(window);
        quiet = needsDrawing(GetAncestor(window, GA_ROOT)) ? 0 : quiet + 1;
        return quiet >= 6;
    });
}

RECT placeOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

} // namespace orv::tour
