#pragma once

#include "ViewsFixture.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>

// What a user does, as real input of the system.
namespace orv::windows::testing {

/// Presses and releases a key while others are held, then handles what came of it.
void press(Stage& stage, WORD key, std::initializer_list<WORD> held = {});
/// Types letters, as an input method delivers them.
void type(Stage& stage, std::u16string_view letters);
/// Clicks a point of a window, in its client coordinates.
void click(Stage& stage, HWND window, POINT at);
/// Presses at one point and releases at another.
void drag(Stage& stage, HWND window, POINT from, POINT to);
/// Turns the wheel over the window that has the focus; a notch is 1, away from the user.
void wheel(Stage& stage, int notches);

} // namespace orv::windows::testing
