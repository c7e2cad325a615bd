#pragma once

#include <windows.h>

#include <string>

namespace orv::tour {

/// Picks a date, written yyyy-mm-dd, in a month calendar of the other program by clicks alone.
void pickDate(HWND calendar, const std::wstring& date);

} // namespace orv::tour
