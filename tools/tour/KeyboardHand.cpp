#include "tour/KeyboardHand.h"

#include "erp/windows/ui/WindowNames.h"
#include "tour/Input.h"
#include "tour/Screen.h"
#include "tour/Text.h"
#include "tour/Wait.h"

#include <commctrl.h>

namespace orv::tour {

namespace {

/// No dialog has more stops than this.
constexpr int mostStops = 60;

std::string cellName(int column, int row) {
    return "cell " + std::to_string(column) + " of line " + std::to_string(row);
}

} // namespace

void KeyboardHand::tabTo(HWND part, const std::string& name, Direction direction) {
    const bool back = direction == Direction::back;
    std::string way;
    for (int i = 0; i < mostStops; ++i) {
        const HWND focus = focusIn(screen().dialog());
        if (focus == part)
            return;
        way += utf8(L", " + classOf(focus) + L" " + textOf(focus));
        // Within a grid Tab goes from cell to cell.
        const HWND grid = screen().gridWindow();
        if (focus == grid || IsChild(grid, focus))
            back ? press(VK_F6, {VK_SHIFT}) : press(VK_F6);
        else
            back ? press(VK_TAB, {VK_SHIFT}) : press(VK_TAB);
        awaited("Tab to move the keyboard on its way to " + name, [&] {
            const HWND now = focusIn(screen().dialog());
            // The control's place in the dialog hands the keyboard on.
            return now && now != focus && now != screen().control();
        });
        awaitHandled(screen().dialog());
    }
    throw TourError("Tab does not lead to " + name + " but to " + way);
}

void KeyboardHand::go(int column, int row) {
    const Grid grid = screen().grid();
    tabTo(grid.window(), "the grid");
    if (grid.isActive(column, row))
        return;
    press(VK_HOME, {VK_CONTROL});
    press(VK_DOWN, row - 1);
    awaited("the keys to reach line " + std::to_string(row), [&] { return grid.isActive(1, row); });
    for (int at = 1; at < column; ++at) {
        press(VK_RIGHT);
        // A cell that spans several columns is one stop.
        int next = at + 1;
        awaited("the right arrow to leave " + cellName(at, row), [&] {
            for (next = at + 1; next <= column && !grid.isActive(next, row); ++next)
                continue;
            return next <= column;
        });
        at = next - 1;
    }
    awaited(cellName(column, row) + " to be reached by keys", [&] { return grid.isActive(column, row); });
}

void KeyboardHand::choose(int column, int row, const std::wstring& caption) {
    go(column, row);
    const Grid grid = screen().grid();
    press(VK_F4);
    const HWND list = awaitTop(L"ListBox");
    const int wanted = listPosition(list, caption);
    const auto current = [list] { return static_cast<int>(SendMessageW(list, LB_GETCURSEL, 0, 0)); };
    type(caption);
    // Captions that begin alike: the letters lead to the first of them.
    if (!comesTrue([&] { return current() == wanted; }, 2000))
        press(current() < wanted ? VK_DOWN : VK_UP, std::abs(wanted - current()));
    awaited(utf8(caption) + " to be marked in its list", [&] { return current() == wanted; });
    press(VK_RETURN);
    awaitGone(list, "a list");
    awaited(cellName(column, row) + " to show " + utf8(caption), [&] { return grid.text(column, row) == caption; });
}

void KeyboardHand::enter(int column, int row, const std::wstring& text) {
    go(column, row);
    const Grid grid = screen().grid();
    type(text);
    const HWND edit = awaitWithin(grid.window(), WC_EDITW);
    awaited("the edit box to hold " + utf8(text), [&] { return textOf(edit) == text; });
    press(VK_TAB);
    awaitGone(edit, "the edit box");
    awaited(cellName(column, row) + " to show a text", [&] { return !grid.text(column, row).empty(); });
}

void KeyboardHand::toggle(int column, int row) {
    go(column, row);
    const Grid grid = screen().grid();
    const bool before = grid.isChecked(column, row);
    press(VK_SPACE);
    awaited("the space bar to switch " + cellName(column, row), [&] { return grid.isChecked(column, row) != before; });
}

void KeyboardHand::openPage(int page) {
    tabTo(screen().tabs(), "the tabs", Direction::back);
    while (screen().page() != page) {
        const int before = screen().page();
        press(before < page ? VK_RIGHT : VK_LEFT);
        awaited("the arrow to turn the page", [&] { return screen().page() != before; });
    }
}

void KeyboardHand::pressButton(HWND button) {
    tabTo(button, utf8(textOf(button)));
    press(VK_SPACE);
}

void KeyboardHand::pressTool(int tool) {
    const HWND toolbar = screen().toolbar();
    tabTo(toolbar, "the toolbar", Direction::back);
    const auto current = [toolbar] { return static_cast<int>(SendMessageW(toolbar, TB_GETHOTITEM, 0, 0)) + 1; };
    press(VK_LEFT, 4);
    press(VK_RIGHT, tool - 1);
    awaited("tool " + std::to_string(tool) + " to be reached by keys", [&] { return current() == tool; });
    press(VK_RETURN);
}

void KeyboardHand::select(HWND combo, const std::wstring& caption) {
    tabTo(combo, "a box");
    press(VK_HOME);
    while (shownIn(combo) != caption) {
        const auto before = SendMessageW(combo, CB_GETCURSEL, 0, 0);
        press(VK_DOWN);
        awaited("the box to offer " + utf8(caption), [&] { return SendMessageW(combo, CB_GETCURSEL, 0, 0) != before; });
    }
}

void KeyboardHand::openScheme(const std::wstring& name) {
    tabTo(screen().schemes(), "the list of schemes", Direction::back);
    const int wanted = awaited("the scheme " + utf8(name), [&] { return screen().findScheme(name) + 1; }) - 1;
    // A scheme is opened by being selected: one that is, by way of another.
    if (screen().selectedScheme() == wanted) {
        press(VK_HOME);
        awaited("another scheme to be selected", [&] { return screen().selectedScheme() != wanted; });
    }
    type(name);
    awaited("the scheme " + utf8(name) + " to be selected by its letters",
            [&] { return screen().selectedScheme() == wanted; });
}

void KeyboardHand::lookUp(int column, int row, const std::wstring& number) {
    go(column, row);
    const Grid grid = screen().grid();
    press(VK_F7);
    const HWND window = awaitTop(erp::window::lookUpClass);
    const HWND search = awaitChild(window, erp::window::search);
    awaitFocus(search, "the look-up window");
    type(number);
    awaited("the search text", [&] { return textOf(search) == number; });
    const HWND records = awaitChild(window, erp::window::records);
    awaited("one record of the number " + utf8(number),
            [&] { return SendMessageW(records, LVM_GETITEMCOUNT, 0, 0) == 1; });
    report_.say(L"the look-up window " + textOf(window) + L": " + textOf(awaitChild(window, erp::window::found)));
    report_.check("the look-up window belongs to the filter dialog", GetWindow(window, GW_OWNER) == screen().dialog());
    report_.shot("03-look-up", window);
    press(VK_RETURN);
    awaitGone(window, "the look-up window");
    awaited("the look-up to fill the cell", [&] { return !grid.text(column, row).empty(); });
    report_.check("the keyboard is back in the grid after the look-up",
                  comesTrue([&] { return focusIn(screen().dialog()) == grid.window(); }, 3000));
}

void KeyboardHand::accept() {
    tabTo(screen().ok(), "the button OK");
    press(VK_RETURN);
    awaitGone(screen().dialog(), "the filter dialog");
}

} // namespace orv::tour
