#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>

// What a user's hands do, as input of the system: it goes to whatever window is in front.
namespace orv::tour {

/// Presses and releases a key while others are held.
void press(WORD key, std::initializer_list<WORD> held = {});
void press(WORD key, int times);
/// Types any letters, Chinese ones as well, as an input method sends them.
void type(std::wstring_view text);

/// Points of the screen.
void click(POINT at);
void click(const RECT& area);
/// Turns the wheel; a notch is 1, away from the user.
void wheel(POINT at, int notches);

} // namespace orv::tour
