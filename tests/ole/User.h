#pragma once

#include <windows.h>

#include <functional>
#include <string_view>

// What a user does: messages as the system sends them to the window that has the focus.
namespace orv::windows::test {

void key(WPARAM code);
void type(std::u16string_view letters);

/// The visible window with that text within another one; null without one.
HWND childWithText(HWND parent, const wchar_t* text);
/// The first window of that class within another one; null without one.
HWND childOfClass(HWND parent, const wchar_t* className);

/// Goes to the field cell of a condition grid's first line and opens its list.
void openFields(HWND grid);
/// The same, and takes the first field whose caption begins like that; the user is in its value cell then.
void chooseField(HWND grid, std::u16string_view caption);

/// What a user does once a modal window of the process has come up: asked by a timer, in the modal window's own loop.
/// Of a menu that is open he takes the second item.
class ModalUser {
  public:
    explicit ModalUser(std::function<void(HWND)> acts);
    ModalUser(const ModalUser&) = delete;
    ModalUser& operator=(const ModalUser&) = delete;
    ~ModalUser();

  private:
    UINT_PTR timer_;
};

} // namespace orv::windows::test
