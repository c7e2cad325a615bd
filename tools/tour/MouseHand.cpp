#include "tour/MouseHand.h"

#include "tour/Calendar.h"
#include "tour/Input.h"
#include "tour/Screen.h"
#include "tour/Text.h"
#include "tour/Wait.h"

#include <commctrl.h>

namespace orv::tour {

namespace {

/// From the right border of a cell or box to the middle of its arrow.
constexpr LONG arrowInset = 8;

/// Clicks an item of an open list, after turning the wheel until it is in sight.
void clickItem(HWND list, int item) {
    RECT client{};
    GetClientRect(list, &client);
    const auto place = [&] {
        RECT area{};
        SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&area));
        return area;
    };
    while (place().top < 0 || place().bottom > client.bottom) {
        const auto before = SendMessageW(list, LB_GETTOPINDEX, 0, 0);
        const RECT around = placeOf(list);
        wheel({(around.left + around.right) / 2, (around.top + around.bottom) / 2}, place().top < 0 ? 1 : -1);
        awaited("the wheel to move a list", [&] { return SendMessageW(list, LB_GETTOPINDEX, 0, 0) != before; });
    }
    RECT area = place();
    MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&area), 2);
    click(area);
}

RECT placeInSight(const Grid& grid, int column, int row) {
    RECT place{};
    awaited("cell " + std::to_string(column) + " of line " + std::to_string(row) + " in sight", [&] {
        place = grid.place(column, row);
        return !IsRectEmpty(&place);
    });
    return place;
}

/// Opens what the arrow at the end of a cell opens.
void clickArrow(const Grid& grid, int column, int row) {
    const RECT place = placeInSight(grid, column, row);
    click(POINT{place.right - arrowInset, (place.top + place.bottom) / 2});
}

} // namespace

void MouseHand::go(int column, int row) {
    const Grid grid = screen().grid();
    click(placeInSight(grid, column, row));
    awaited("the clicked cell to become the active one", [&] { return grid.isActive(column, row); });
}

void MouseHand::choose(int column, int row, const std::wstring& caption) {
    const Grid grid = screen().grid();
    clickArrow(grid, column, row);
    const HWND list = awaitTop(L"ListBox");
    clickItem(list, listPosition(list, caption));
    awaitGone(list, "a list");
    awaited("a cell to show " + utf8(caption), [&] { return grid.text(column, row) == caption; });
}

void MouseHand::enter(int column, int row, const std::wstring& text) {
    const Grid grid = screen().grid();
    if (!grid.opensPopup(column, row))
        throw TourError("a cell for " + utf8(text) + " has neither a list nor a calendar: the mouse cannot fill it");
    clickArrow(grid, column, row);
    const HWND frame = awaitTop(L"ORVFilterWindow");
    const HWND calendar = awaitWithin(frame, MONTHCAL_CLASSW);
    report_.shot("05-calendar", screen().dialog());
    pickDate(calendar, text);
    awaitGone(frame, "the calendar");
    awaited("a cell to show " + utf8(text), [&] { return grid.text(column, row) == text; });
}

void MouseHand::toggle(int column, int row) {
    const Grid grid = screen().grid();
    const bool before = grid.isChecked(column, row);
    click(placeInSight(grid, column, row));
    awaited("a click to switch a box", [&] { return grid.isChecked(column, row) != before; });
}

void MouseHand::openPage(int page) {
    click(screen().tabPlace(page));
    awaited("the page to open", [&] { return screen().page() == page && screen().gridWindow(); });
}

void MouseHand::pressButton(HWND button) {
    click(placeOf(button));
}

void MouseHand::pressTool(int tool) {
    click(screen().toolPlace(tool));
}

void MouseHand::select(HWND combo, const std::wstring& caption) {
    const RECT place = placeOf(combo);
    click(POINT{place.right - arrowInset, (place.top + place.bottom) / 2});
    const HWND list = awaitTop(L"ComboLBox");
    clickItem(list, listPosition(list, caption));
    awaitGone(list, "a list");
    awaited("a box to show " + utf8(caption), [&] { return shownIn(combo) == caption; });
}

void MouseHand::openScheme(const std::wstring& name) {
    const int item = awaited("the scheme " + utf8(name), [&] { return screen().findScheme(name) + 1; }) - 1;
    click(screen().schemePlace(item));
    awaited("the scheme " + utf8(name) + " to be selected", [&] { return screen().selectedScheme() == item; });
}

void MouseHand::lookUp(int, int, const std::wstring& number) {
    throw TourError("look-ups open by a key: the mouse cannot pick " + utf8(number));
}

void MouseHand::accept() {
    click(placeOf(screen().ok()));
    awaitGone(screen().dialog(), "the filter dialog");
}

} // namespace orv::tour
