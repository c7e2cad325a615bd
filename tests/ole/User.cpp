#include "ole/User.h"

namespace orv::windows::test {

namespace {

struct Search {
    std::function<bool(HWND)> wanted;
    HWND found = nullptr;
};

BOOL CALLBACK look(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<Search*>(data);
    if (search.wanted(window))
        search.found = window;
    return search.found == nullptr;
}

HWND childThat(HWND parent, std::function<bool(HWND)> wanted) {
    Search search{std::move(wanted)};
    EnumChildWindows(parent, look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::function<void(HWND)> modalUser;

/// A menu that is open gets its second item, or is left where it has no more.
void useMenu() {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    if (!GetGUIThreadInfo(GetCurrentThreadId(), &thread) || (thread.flags & GUI_INMENUMODE) == 0)
        return;
    PostMessageW(thread.hwndMenuOwner, WM_KEYDOWN, VK_DOWN, 1);
    PostMessageW(thread.hwndMenuOwner, WM_KEYDOWN, VK_DOWN, 1);
    PostMessageW(thread.hwndMenuOwner, WM_KEYDOWN, VK_RETURN, 1);
}

void CALLBACK lookForModal(HWND, UINT, UINT_PTR, DWORD) {
    useMenu();
    const HWND modal = FindWindowW(L"#32770", nullptr);
    DWORD process = 0;
    GetWindowThreadProcessId(modal, &process);
    if (modal && process == GetCurrentProcessId() && modalUser)
        modalUser(modal);
}

} // namespace

void key(WPARAM code) {
    SendMessageW(GetFocus(), WM_KEYDOWN, code, 1);
}

void type(std::u16string_view letters) {
    for (const char16_t letter : letters)
        SendMessageW(GetFocus(), WM_CHAR, letter, 1);
}

HWND childWithText(HWND parent, const wchar_t* text) {
    return childThat(parent, [text](HWND window) {
        wchar_t own[32] = {};
        GetWindowTextW(window, own, 32);
        return IsWindowVisible(window) && lstrcmpW(own, text) == 0;
    });
}

HWND childOfClass(HWND parent, const wchar_t* className) {
    return childThat(parent, [className](HWND window) {
        wchar_t own[64] = {};
        GetClassNameW(window, own, 64);
        return lstrcmpiW(own, className) == 0;
    });
}

void openFields(HWND grid) {
    SetFocus(grid);
    key(VK_HOME);
    key(VK_RIGHT);
    key(VK_F4);
}

void chooseField(HWND grid, std::u16string_view caption) {
    openFields(grid);
    type(caption);
    key(VK_RETURN);
}

ModalUser::ModalUser(std::function<void(HWND)> acts) {
    modalUser = std::move(acts);
    timer_ = SetTimer(nullptr, 0, 30, lookForModal);
}

ModalUser::~ModalUser() {
    KillTimer(nullptr, timer_);
    modalUser = nullptr;
}

} // namespace orv::windows::test
