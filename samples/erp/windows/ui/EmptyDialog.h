#pragma once

#include <windows.h>

#include <cstddef>
#include <cwchar>

namespace orv::erp {

/// A resizable dialog template of a window class of our own, without controls: they are made when the window is there
/// and can be measured.
class EmptyDialog {
  public:
    explicit EmptyDialog(const wchar_t* windowClass) {
        form_.dialog.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
        form_.dialog.dwExtendedStyle = WS_EX_DLGMODALFRAME; // no icon
        std::wcsncpy(form_.windowClass, windowClass, mostLetters - 1);
        WNDCLASSW description{};
        description.style = CS_GLOBALCLASS; // for the program and its DLLs
        description.lpfnWndProc = DefDlgProcW;
        description.cbWndExtra = DLGWINDOWEXTRA;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = windowClass;
        RegisterClassW(&description); // fails from the second time on: the class is there already
    }
    const DLGTEMPLATE* get() const noexcept { return &form_.dialog; }

  private:
    static constexpr std::size_t mostLetters = 32;
    // As the dialog manager reads it: menu, class and title follow the fixed part; the title stands right behind the
    // class's closing zero, and is empty, since the rest of the array is.
    struct Form {
        DLGTEMPLATE dialog;
        WORD menu;
        wchar_t windowClass[mostLetters];
    };
    Form form_{};
};

} // namespace orv::erp
