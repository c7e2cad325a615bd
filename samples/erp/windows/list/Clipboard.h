#pragma once

#include <windows.h>

#include <string>

namespace orv::erp {

/// Puts a text on the clipboard; false when that is not possible at the moment.
inline bool copyText(HWND owner, const std::wstring& text) noexcept {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (!memory)
        return false;
    CopyMemory(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    if (OpenClipboard(owner)) {
        EmptyClipboard();
        const bool isThere = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
        CloseClipboard();
        if (isThere)
            return true; // the clipboard owns it now
    }
    GlobalFree(memory);
    return false;
}

} // namespace orv::erp
