#pragma once

#include <windows.h>

#include <string_view>

namespace orv::windows {

/// Draws the control's own picture of a toolbar button (by its key) or of a scheme ("SCHEME") into a square. Pictures
/// are drawn, not stored: they are sharp at every resolution. An unknown key gives a plain sheet.
void drawPicture(HDC dc, const RECT& square, std::u16string_view key);

/// The colour that image lists of these pictures take as transparent.
inline constexpr COLORREF pictureMask = RGB(255, 0, 255);

/// An image list of `count` pictures, to be destroyed by its owner; null when the system refuses.
struct PictureList {
    const char16_t* const* keys;
    int count;
};
HANDLE makeImageList(const PictureList& pictures, int sizePx);

} // namespace orv::windows
