#include "erp/windows/list/MainWindow.h"
#include "erp/windows/list/Options.h"

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

#include <string>
#include <vector>

namespace {

/// The words on the command line, in UTF-8, without the program's name.
std::vector<std::string> argumentsOfProcess() {
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        const int length = WideCharToMultiByte(CP_UTF8, 0, words[i], -1, nullptr, 0, nullptr, nullptr);
        std::string text(static_cast<std::size_t>(length), '\0');
        WideCharToMultiByte(CP_UTF8, 0, words[i], -1, text.data(), length, nullptr, nullptr);
        text.pop_back();
        arguments.push_back(std::move(text));
    }
    LocalFree(words);
    return arguments;
}

/// To where the program was started from, or in a box when that is no terminal or file.
void say(const std::string& text) {
    const HANDLE out = GetStdHandle(STD_ERROR_HANDLE);
    DWORD written = 0;
    if (!out || out == INVALID_HANDLE_VALUE ||
        !WriteFile(out, text.data(), static_cast<DWORD>(text.size()), &written, nullptr))
        MessageBoxA(nullptr, text.c_str(), "orvlist", MB_OK);
}

int runList() {
    try {
        const orv::erp::ListOptions options = orv::erp::readOptions(argumentsOfProcess());
        orv::erp::MainWindow window(options);
        return window.run();
    } catch (const orv::erp::OptionsMessage& message) {
        say(message.what());
        return message.exitCode();
    } catch (const orv::ole::Failure& failure) {
        // Before there are texts: in the language of the sample's users.
        const std::wstring text = failure.code() == REGDB_E_CLASSNOTREG || failure.code() == CO_E_CLASSSTRING
                                      ? L"无法创建组件 " + failure.source() + L"，请先用 regsvr32 注册。"
                                      : failure.description();
        MessageBoxW(nullptr, text.c_str(), L"单据列表", MB_OK | MB_ICONEXCLAMATION);
        return 1;
    } catch (const std::exception& failure) {
        MessageBoxA(nullptr, failure.what(), "orvlist", MB_OK | MB_ICONEXCLAMATION);
        return 1;
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    if (FAILED(OleInitialize(nullptr)))
        return 1;
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    const int exitCode = runList();
    OleUninitialize();
    return exitCode;
}
