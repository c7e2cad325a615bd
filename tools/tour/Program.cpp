#include "tour/Program.h"

#include "erp/windows/ui/WindowNames.h"
#include "tour/Input.h"
#include "tour/Screen.h"
#include "tour/Text.h"
#include "tour/Wait.h"

namespace orv::tour {

Program::Program(std::wstring command, std::wstring desktop) {
    STARTUPINFOW how{};
    how.cb = sizeof how;
    how.lpDesktop = desktop.empty() ? nullptr : desktop.data();
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how, &process_))
        throw TourError("cannot start " + utf8(command) + ": error " + std::to_string(GetLastError()));
}

Program::~Program() {
    if (WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT)
        TerminateProcess(process_.hProcess, 1);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

HWND Program::window() const {
    // The first start makes the database.
    constexpr DWORD startMs = 3 * patienceMs;
    return awaited(
        "the list window",
        [this] {
            if (WaitForSingleObject(process_.hProcess, 0) != WAIT_TIMEOUT)
                throw TourError("the list window's program has ended before it had a window");
            if (const HWND box = findTop(L"#32770"))
                throw TourError("instead of the list window there is a box \"" + utf8(textOf(box)) + "\"");
            return findTop(erp::window::mainClass);
        },
        startMs);
}

DWORD Program::close() {
    press(VK_F4, {VK_MENU});
    awaited("the list window's program to end", [this] { return WaitForSingleObject(process_.hProcess, 0) == 0; });
    DWORD code = 0;
    GetExitCodeProcess(process_.hProcess, &code);
    return code;
}

} // namespace orv::tour
