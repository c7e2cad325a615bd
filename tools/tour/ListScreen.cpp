#include "tour/ListScreen.h"

#include "erp/windows/ui/WindowNames.h"
#include "tour/Input.h"
#include "tour/RemoteMemory.h"
#include "tour/Screen.h"
#include "tour/Wait.h"

#include <commctrl.h>

#include <array>

namespace orv::tour {

namespace names = erp::window;

namespace {

std::wstring clipboardText() {
    std::wstring text;
    if (!OpenClipboard(nullptr))
        return text;
    if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
        if (const auto* letters = static_cast<const wchar_t*>(GlobalLock(data)))
            text = letters;
        GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
}

} // namespace

ListScreen::ListScreen(HWND window) : window_(window) {
    awaited(
        "the first bills", [this] { return !sql(L"SELECT").empty(); }, 3 * patienceMs);
}

HWND ListScreen::list() const {
    return awaitChild(window_, names::list);
}

HWND ListScreen::filterButton() const {
    return awaitChild(window_, names::filter);
}

HWND ListScreen::classTypes() const {
    return awaitChild(window_, names::classTypes);
}

std::wstring ListScreen::counts() const {
    using Letters = std::array<wchar_t, 256>;
    const Letters text = ask<Letters>(awaitChild(window_, names::status), SB_GETTEXTW, 0, {});
    return std::wstring(text.data()).substr(text[0] == L' ' ? 1 : 0);
}

long ListScreen::bills() const {
    const std::wstring text = counts();
    const std::size_t from = text.find_first_of(L"0123456789");
    long number = 0;
    for (std::size_t at = from; at < text.size() && (text[at] == L',' || iswdigit(static_cast<wint_t>(text[at]))); ++at)
        if (text[at] != L',')
            number = number * 10 + (text[at] - L'0');
    return number;
}

std::wstring ListScreen::sql(const std::wstring& title) const {
    const std::wstring text = textOf(awaitChild(window_, names::sql));
    const std::wstring head = L"-- " + title + L"\r\n";
    const std::size_t at = text.find(head);
    if (at == std::wstring::npos)
        return {};
    const std::size_t from = at + head.size();
    const std::size_t next = text.find(L"\r\n-- ", from);
    const std::size_t end = next != std::wstring::npos ? next : text.size() - 2;
    return text.substr(from, end - from);
}

std::wstring ListScreen::copiedCaptions() const {
    awaitFocus(list(), "the list");
    const DWORD before = GetClipboardSequenceNumber();
    press('C', {VK_CONTROL});
    awaited("the list to copy its rows", [before] { return GetClipboardSequenceNumber() != before; });
    const std::wstring text = awaited("a text on the clipboard", [] {
        struct Text : std::wstring {
            explicit operator bool() const { return !empty(); }
        };
        return Text{clipboardText()};
    });
    return text.substr(0, text.find(L"\r\n"));
}

} // namespace orv::tour
