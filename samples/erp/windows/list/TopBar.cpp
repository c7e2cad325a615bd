#include "erp/windows/list/TopBar.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>

namespace orv::erp {

namespace {

// Pixels at 96 dots an inch.
constexpr int classTypesWidth = 200;
constexpr int listedClassTypes = 12; ///< lines of the opened combo box
constexpr int timeWidth = 130;
constexpr int userWidth = 220;
constexpr int sqlLines = 7;

} // namespace

void TopBar::add(const wchar_t* windowClass, const std::wstring& text, DWORD style, DWORD exStyle, int id) const {
    const HWND made =
        CreateWindowExW(exStyle, windowClass, text.c_str(), WS_CHILD | style, 0, 0, 0, 0, parent_,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(metrics_.font()), FALSE);
}

void TopBar::create(HWND parent, const Texts& texts, const std::vector<std::pair<long, std::wstring>>& classTypes) {
    parent_ = parent;
    constexpr DWORD stop = WS_VISIBLE | WS_TABSTOP;
    add(L"STATIC", texts(L"单据类型"), WS_VISIBLE | SS_LEFT | SS_CENTERIMAGE, 0, window::classTypesLabel);
    add(L"COMBOBOX", L"", stop | WS_VSCROLL | CBS_DROPDOWNLIST, 0, window::classTypes);
    for (const auto& [id, name] : classTypes)
        SendMessageW(child(window::classTypes), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    add(L"BUTTON", texts(L"过滤") + L" (F3)", stop, 0, window::filter);
    add(L"BUTTON", texts(L"刷新") + L" (F5)", stop, 0, window::refresh);
    add(L"BUTTON", texts(L"显示 SQL") + L" (F4)", stop | BS_AUTOCHECKBOX | BS_PUSHLIKE, 0, window::showSql);
    add(L"EDIT", L"", WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, WS_EX_CLIENTEDGE,
        window::sql);
    SendMessageW(child(window::sql), EM_SETLIMITTEXT, 0, 0);
    add(STATUSCLASSNAMEW, L"", WS_VISIBLE | SBARS_SIZEGRIP, 0, window::status);
}

int TopBar::textWidth(int id) const {
    wchar_t text[80];
    return metrics_.widthOf(text, GetWindowTextW(child(id), text, static_cast<int>(std::size(text))));
}

RECT TopBar::layOut() const {
    RECT client{};
    GetClientRect(parent_, &client);
    SendMessageW(child(window::status), WM_SIZE, 0, 0);
    RECT status{};
    GetWindowRect(child(window::status), &status);
    client.bottom -= status.bottom - status.top;
    const int userLeft = std::max(0, static_cast<int>(client.right) - metrics_.px(userWidth));
    const std::array<int, 3> parts{std::max(0, userLeft - metrics_.px(timeWidth)), userLeft, -1};
    SendMessageW(child(window::status), SB_SETPARTS, parts.size(), reinterpret_cast<LPARAM>(parts.data()));

    const int margin = metrics_.margin();
    const int line = metrics_.control();
    int left = margin;
    const auto move = [&](int id, int width, int height) {
        MoveWindow(child(id), left, margin, width, height, TRUE);
        left += width + metrics_.gap();
    };
    move(window::classTypesLabel, textWidth(window::classTypesLabel), line);
    // The height of a combo box is its own; what is given is that of the opened list.
    move(window::classTypes, metrics_.px(classTypesWidth), listedClassTypes * line);
    left += metrics_.gap();
    for (const int id : {window::filter, window::refresh, window::showSql})
        move(id, textWidth(id) + metrics_.px(28), line);

    RECT rest{0, margin + line + margin, client.right, client.bottom};
    if (showsSql()) {
        const int height = sqlLines * metrics_.text() + metrics_.px(8);
        MoveWindow(child(window::sql), margin, rest.top, client.right - 2 * margin, height, TRUE);
        rest.top += height + margin;
    }
    ShowWindow(child(window::sql), showsSql() ? SW_SHOWNA : SW_HIDE);
    return rest;
}

void TopBar::selectClassType(std::size_t index) const {
    SendMessageW(child(window::classTypes), CB_SETCURSEL, index, 0);
}

std::size_t TopBar::selectedClassType() const {
    return static_cast<std::size_t>(SendMessageW(child(window::classTypes), CB_GETCURSEL, 0, 0));
}

bool TopBar::showsSql() const {
    return IsDlgButtonChecked(parent_, window::showSql) == BST_CHECKED;
}

void TopBar::setShowsSql(bool shows) const {
    CheckDlgButton(parent_, window::showSql, shows ? BST_CHECKED : BST_UNCHECKED);
}

void TopBar::setSql(const std::wstring& sql) const {
    SetWindowTextW(child(window::sql), sql.c_str());
}

void TopBar::setStatus(const std::wstring& counts, const std::wstring& time, const std::wstring& user) const {
    WPARAM part = 0;
    for (const std::wstring* text : {&counts, &time, &user})
        SendMessageW(child(window::status), SB_SETTEXTW, part++, reinterpret_cast<LPARAM>((L" " + *text).c_str()));
}

} // namespace orv::erp
