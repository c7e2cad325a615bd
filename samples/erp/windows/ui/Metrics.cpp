#include "erp/windows/ui/Metrics.h"

#include <algorithm>
#include <cwchar>

namespace orv::erp {

namespace {

/// The screen's device context with a font in it.
class Measure {
  public:
    explicit Measure(HFONT font) : dc_(GetDC(nullptr)), before_(font ? SelectObject(dc_, font) : nullptr) {}
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;
    ~Measure() {
        if (before_)
            SelectObject(dc_, before_);
        ReleaseDC(nullptr, dc_);
    }
    HDC dc() const noexcept { return dc_; }

  private:
    HDC dc_;
    HGDIOBJ before_;
};

} // namespace

Metrics::Metrics() {
    dpi_ = GetDeviceCaps(Measure(nullptr).dc(), LOGPIXELSY);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
        font_ = CreateFontIndirectW(&metrics.lfMessageFont);
        metrics.lfMessageFont.lfWeight = FW_BOLD;
        boldFont_ = CreateFontIndirectW(&metrics.lfMessageFont);
    }
    TEXTMETRICW text{};
    GetTextMetricsW(Measure(font_).dc(), &text);
    text_ = text.tmHeight;
}

Metrics::~Metrics() {
    DeleteObject(font_);
    DeleteObject(boldFont_);
}

int Metrics::widthOf(const wchar_t* text, int length) const noexcept {
    SIZE size{};
    GetTextExtentPoint32W(Measure(font_).dc(), text, length, &size);
    return static_cast<int>(size.cx);
}

int Metrics::boldWidthOf(const wchar_t* text, int length) const noexcept {
    SIZE size{};
    GetTextExtentPoint32W(Measure(boldFont_).dc(), text, length, &size);
    return static_cast<int>(size.cx);
}

int Metrics::buttonWidth(const wchar_t* text) const noexcept {
    return std::max(px(80), widthOf(text, static_cast<int>(std::wcslen(text))) + px(24));
}

} // namespace orv::erp
