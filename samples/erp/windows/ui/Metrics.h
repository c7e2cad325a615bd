#pragma once

#include <windows.h>

namespace orv::erp {

/// The system's message font and the sizes that follow from it and from the resolution.
class Metrics {
  public:
    /// Those of the screen.
    Metrics();
    Metrics(const Metrics&) = delete;
    Metrics& operator=(const Metrics&) = delete;
    ~Metrics();

    HFONT font() const noexcept { return font_; }
    HFONT boldFont() const noexcept { return boldFont_; }
    int dpi() const noexcept { return dpi_; }
    /// Pixels of a length given at 96 dots an inch.
    int px(int at96) const noexcept { return MulDiv(at96, dpi_, USER_DEFAULT_SCREEN_DPI); }
    int margin() const noexcept { return px(10); }
    int gap() const noexcept { return px(7); }
    /// Height of a line of text, of a button or an edit, of a row of a list.
    int text() const noexcept { return text_; }
    int control() const noexcept { return text_ + px(9); }
    int row() const noexcept { return text_ + px(7); }
    /// Width of a text in the font.
    int widthOf(const wchar_t* text, int length) const noexcept;
    int boldWidthOf(const wchar_t* text, int length) const noexcept;
    /// Width of a button that holds a text.
    int buttonWidth(const wchar_t* text) const noexcept;

  private:
    HFONT font_ = nullptr;
    HFONT boldFont_ = nullptr;
    int dpi_ = USER_DEFAULT_SCREEN_DPI;
    int text_ = 0;
};

} // namespace orv::erp
