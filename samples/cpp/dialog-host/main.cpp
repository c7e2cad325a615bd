// The control in a dialog with two buttons.
//
//   dialog-host.exe            shows it; 确定 shows the SQL and prints it, 取消 ends
//   dialog-host.exe --demo     sets conditions, presses 确定 by itself and prints the SQL
#include "Control.h"
#include "Site.h"

#include <objbase.h>

#include <cwchar>

namespace {

constexpr UINT_PTR demoTimer = 1;

struct FilterDialog {
    FilterDialog(HWND dialog, bool demo) : window(dialog), site(dialog), isDemo(demo) {}
    ~FilterDialog() {
        SetWindowLongPtrW(window, DWLP_USER, 0);
        if (filter)
            filter->ClearMem();
        site.close();
        DestroyWindow(window);
    }
    HWND window;
    Site site;
    ComPtr<_Filter> filter;
    bool isDemo;
    bool isDone = false;
};

/// The buttons stay in the corner; the control takes the rest.
void layOut(FilterDialog& dialog) {
    const HWND window = dialog.window;
    RECT client, button;
    GetClientRect(window, &client);
    GetWindowRect(GetDlgItem(window, IDOK), &button);
    const int width = button.right - button.left, height = button.bottom - button.top, gap = height / 3;
    const int top = client.bottom - gap - height;
    int left = client.right;
    for (const int id : {IDCANCEL, IDOK}) {
        left -= gap + width;
        SetWindowPos(GetDlgItem(window, id), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }
    dialog.site.move({gap, gap, client.right - gap, top - gap});
}

/// Gives out what the user asked for. A condition that is not complete yet keeps the dialog open: the control has said
/// so.
bool takeResult(const FilterDialog& dialog) {
    const ComPtr<_Filter> filter = dialog.filter;
    VARIANT_BOOL done = VARIANT_FALSE;
    Text where, head, entry;
    check(filter->GetFilterSql(where.address(), VARIANT_FALSE, &done));
    if (!done)
        return false;
    check(filter->GetSortString(head.address(), entry.address(), &done));
    const std::wstring texts = L"filter: " + where.string() + L"\nsort: " + head.string();
    printLine(texts); // a program with windows has no console of its own: redirect it to a file to read this
    if (!dialog.isDemo)
        MessageBoxW(dialog.window, texts.c_str(), L"dialog-host", MB_OK);
    return true;
}

// No exception may leave it: Windows is its caller.
INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM) {
    auto* const dialog = reinterpret_cast<FilterDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!dialog)
        return FALSE;
    try {
        if (message == WM_SIZE) {
            layOut(*dialog);
        } else if (message == WM_TIMER) {
            KillTimer(window, demoTimer);
            SendMessageW(GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
        } else if (message == WM_COMMAND) {
            dialog->isDone = LOWORD(first) == IDCANCEL || (LOWORD(first) == IDOK && takeResult(*dialog));
        } else {
            return FALSE;
        }
    } catch (const ComError& error) {
        MessageBoxW(window, error.description.c_str(), L"dialog-host", MB_ICONERROR);
        dialog->isDone = true;
    }
    return TRUE;
}

void run(bool isDemo) {
    FilterDialog dialog(CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1), nullptr, procedure, 0),
                        isDemo);
    SetWindowLongPtrW(dialog.window, DWLP_USER, reinterpret_cast<LONG_PTR>(&dialog));
    dialog.filter = createFilter();
    dialog.site.embed(dialog.filter.get(), {0, 0, 100, 100});
    initialize(dialog.filter.get());
    layOut(dialog);
    ShowWindow(dialog.window, SW_SHOW);
    dialog.site.activate();
    if (isDemo) {
        VARIANT_BOOL applied = VARIANT_FALSE;
        check(dialog.filter->RefreshProfile(sampleScheme().get(), &applied));
        SetTimer(dialog.window, demoTimer, 1500, nullptr); // ms: time to see it
    }

    MSG message;
    while (!dialog.isDone && GetMessageW(&message, nullptr, 0, 0) > 0) {
        // The control first: Tab, arrows and Enter mean something in its grids.
        if (dialog.site.takes(message) || IsDialogMessageW(dialog.window, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const bool isDemo = std::wcsstr(GetCommandLineW(), L"--demo") != nullptr;
    int status = 0;
    try {
        check(OleInitialize(nullptr));
        run(isDemo);
    } catch (const ComError& error) {
        printLine(L"failed: " + error.description);
        if (!isDemo)
            MessageBoxW(nullptr, error.description.c_str(), L"dialog-host", MB_ICONERROR);
        status = 1;
    }
    OleUninitialize();
    return status;
}
