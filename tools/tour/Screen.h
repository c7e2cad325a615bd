#pragma once

#include <windows.h>

#include <string>
#include <vector>

// Windows of other programs: found by class, id and text, and read by messages that the system carries over.
namespace orv::tour {

std::wstring classOf(HWND window);
/// WM_GETTEXT: the title of a window, the contents of an edit.
std::wstring textOf(HWND window);
bool isShown(HWND window);

/// A visible top-level window of a class, the topmost one; null when there is none. `text` "": any.
HWND findTop(const std::wstring& windowClass, const std::wstring& text = {});
/// The same, awaited: an error names class and text.
HWND awaitTop(const std::wstring& windowClass, const std::wstring& text = {});
/// The visible windows within another one, at any depth, in the order of their making.
std::vector<HWND> shownWithin(HWND window, const std::wstring& windowClass);
/// The only visible window of a class, and perhaps with a text, within another one; awaited.
HWND awaitWithin(HWND window, const std::wstring& windowClass, const std::wstring& text = {});
HWND awaitChild(HWND parent, int id);

/// What has the keyboard in the program of a window; null when nothing has.
HWND focusIn(HWND window);
/// Awaits that the keyboard is in a window or within it.
void awaitFocus(HWND window, const std::string& whose);
void awaitGone(HWND window, const std::string& what);
/// Awaits that a program has handled what it was handling.
void awaitHandled(HWND window);
/// Awaits that a program has handled its messages and drawn all of a window and of what stands above it.
void awaitDrawn(HWND window);

RECT placeOf(HWND window);

} // namespace orv::tour
