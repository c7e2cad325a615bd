#include "tour/FilterScreen.h"

#include "erp/windows/ui/WindowNames.h"
#include "tour/RemoteMemory.h"
#include "tour/Screen.h"
#include "tour/Text.h"

#include <commctrl.h>

#include <climits>
#include <cstdlib>

namespace orv::tour {

namespace names = erp::window;

namespace {

/// A list view's item with room for its text, as the list view of the other program finds it.
struct ListItem {
    LVITEMW item;
    wchar_t text[128];
};

RECT onScreen(HWND window, RECT area) {
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

} // namespace

FilterScreen::FilterScreen() : dialog_(awaitTop(names::filterClass)), control_(awaitChild(dialog_, names::control)) {
    awaited("the control's grid", [this] { return gridWindow(); });
}

HWND FilterScreen::tabs() const {
    return awaitWithin(control_, WC_TABCONTROLW);
}

HWND FilterScreen::toolbar() const {
    return awaitWithin(control_, TOOLBARCLASSNAMEW);
}

HWND FilterScreen::schemes() const {
    return awaitWithin(control_, WC_LISTVIEWW);
}

HWND FilterScreen::gridWindow() const {
    // Of the control's own windows only grids are stops of the Tab key.
    for (const HWND window : shownWithin(control_, L"ORVFilterWindow"))
        if (GetWindowLongW(window, GWL_STYLE) & WS_TABSTOP)
            return window;
    return nullptr;
}

HWND FilterScreen::button(const std::wstring& caption) const {
    return awaitWithin(control_, WC_BUTTONW, caption);
}

HWND FilterScreen::combo(const std::wstring& label) const {
    const RECT text = placeOf(awaitWithin(control_, WC_STATICW, label));
    return awaited("the box behind " + utf8(label), [&] {
        HWND nearest = nullptr;
        LONG distance = LONG_MAX;
        for (const HWND box : shownWithin(control_, WC_COMBOBOXW)) {
            const RECT place = placeOf(box);
            const bool sameLine = std::abs(place.top + place.bottom - text.top - text.bottom) < 16;
            if (sameLine && place.left >= text.right - 4 && place.left - text.right < distance) {
                distance = place.left - text.right;
                nearest = box;
            }
        }
        return nearest;
    });
}

int FilterScreen::page() const {
    return static_cast<int>(SendMessageW(tabs(), TCM_GETCURSEL, 0, 0)) + 1;
}

RECT FilterScreen::tabPlace(int page) const {
    return onScreen(tabs(), ask<RECT>(tabs(), TCM_GETITEMRECT, static_cast<WPARAM>(page - 1), {}));
}

RECT FilterScreen::toolPlace(int tool) const {
    return onScreen(toolbar(), ask<RECT>(toolbar(), TB_GETITEMRECT, static_cast<WPARAM>(tool - 1), {}));
}

int FilterScreen::schemeCount() const {
    return static_cast<int>(SendMessageW(schemes(), LVM_GETITEMCOUNT, 0, 0));
}

std::wstring FilterScreen::schemeName(int item) const {
    const RemoteMemory<ListItem> memory(schemes());
    ListItem asked{};
    asked.item.pszText = reinterpret_cast<wchar_t*>(memory.address() + static_cast<LPARAM>(offsetof(ListItem, text)));
    asked.item.cchTextMax = 128;
    memory.write(asked);
    SendMessageW(schemes(), LVM_GETITEMTEXTW, static_cast<WPARAM>(item), memory.address());
    return memory.read().text;
}

int FilterScreen::selectedScheme() const {
    return static_cast<int>(
        SendMessageW(schemes(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
}

RECT FilterScreen::schemePlace(int item) const {
    return onScreen(schemes(), ask<RECT>(schemes(), LVM_GETITEMRECT, static_cast<WPARAM>(item), {LVIR_LABEL, 0, 0, 0}));
}

int FilterScreen::findScheme(const std::wstring& name) const {
    for (int i = 0; i < schemeCount(); ++i)
        if (schemeName(i) == name)
            return i;
    return -1;
}

std::wstring shownIn(HWND combo) {
    return textOf(combo);
}

std::wstring listText(HWND listBox, int item) {
    const auto length = SendMessageW(listBox, LB_GETTEXTLEN, static_cast<WPARAM>(item), 0);
    if (length < 0)
        return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(listBox, LB_GETTEXT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

int listPosition(HWND listBox, const std::wstring& text) {
    const auto count = static_cast<int>(SendMessageW(listBox, LB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i)
        if (listText(listBox, i) == text)
            return i;
    throw TourError("a list offers no " + utf8(text));
}

} // namespace orv::tour
