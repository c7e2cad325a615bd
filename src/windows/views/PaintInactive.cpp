#include "control/Filter.h"
#include "windows/com/Handles.h"
#include "windows/views/ControlView.h"
#include "windows/views/GridPainter.h"
#include "windows/views/Pictures.h"
#include "windows/views/StandardViews.h"
#include "windows/views/SurfaceColor.h"

namespace orv::windows {

namespace {

/// Draws every model where its view would stand, with plain drawing calls that a metafile can keep.
class Picture {
  public:
    Picture(HDC dc, const RECT& bounds, control::FilterControls& controls, const Dressing& dressing)
        : dc_(dc), bounds_(bounds), controls_(controls), dressing_(dressing) {}

    void draw() const {
        fillRect(dc_, bounds_, dressing_.back);
        controls_.forEach([this](ui::Control& model) {
            const ui::Control* container = containerOf(model);
            const bool shown = model.visible() && (!container || container->visible());
            if (shown && &model != &controls_.UserControl && model.bounds().width > 0 && model.bounds().height > 0)
                drawModel(model, placeOf(model));
        });
    }

  private:
    const ui::Control* containerOf(const ui::Control& model) const {
        if (model.name() == controls_.chkPage.name())
            return &controls_.picPageBase;
        if (model.name() == controls_.lblFilter.name() || model.name() == controls_.cmbFilter.name())
            return &controls_.PicPan;
        return &model == &controls_.vsOrder ? &controls_.picOrder : nullptr;
    }
    RECT placeOf(const ui::Control& model) const {
        const ui::Rect& b = model.bounds();
        RECT r{b.left, b.top, b.left + b.width, b.top + b.height};
        if (const ui::Control* container = containerOf(model))
            OffsetRect(&r, container->bounds().left, container->bounds().top);
        OffsetRect(&r, static_cast<int>(bounds_.left), static_cast<int>(bounds_.top));
        return r;
    }

    void drawModel(const ui::Control& model, const RECT& r) const {
        if (const auto* grid = dynamic_cast<const ui::Spread*>(&model))
            drawGrid(*grid, r);
        else if (const auto* label = dynamic_cast<const ui::Label*>(&model))
            text(r, label->caption(), DT_LEFT);
        else if (const auto* button = dynamic_cast<const ui::Button*>(&model))
            drawButton(r, button->caption());
        else if (const auto* check = dynamic_cast<const ui::CheckBox*>(&model))
            drawCheck(r, *check);
        else if (const auto* combo = dynamic_cast<const ui::ComboBox*>(&model))
            drawCombo(r, captionOf(combo->text()));
        else if (const auto* strip = dynamic_cast<const ui::TabStrip*>(&model))
            drawTabs(r, *strip);
        else if (const auto* toolbar = dynamic_cast<const ui::Toolbar*>(&model))
            drawToolbar(r, *toolbar);
        else if (const auto* list = dynamic_cast<const ui::ListView*>(&model))
            drawList(r, *list);
    }

    void text(RECT r, const std::u16string& shown, UINT align, COLORREF color) const {
        SetTextColor(dc_, color);
        SetBkMode(dc_, TRANSPARENT);
        DrawTextW(dc_, asWide(shown), static_cast<int>(shown.size()), &r,
                  align | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    void text(const RECT& r, const std::u16string& shown, UINT align) const {
        text(r, shown, align, surfaceTextColor(dressing_.look.fore));
    }
    void drawButton(RECT r, const std::u16string& caption) const {
        DrawFrameControl(dc_, &r, DFC_BUTTON, DFCS_BUTTONPUSH);
        text(r, caption, DT_CENTER, GetSysColor(COLOR_BTNTEXT));
    }
    void drawCheck(RECT r, const ui::CheckBox& check) const {
        RECT box{r.left, 0, r.left + dressing_.px(13), 0};
        box.top = (r.top + r.bottom - dressing_.px(13)) / 2;
        box.bottom = box.top + dressing_.px(13);
        DrawFrameControl(dc_, &box, DFC_BUTTON,
                         DFCS_BUTTONCHECK | static_cast<UINT>(check.isChecked() ? DFCS_CHECKED : 0));
        r.left = box.right + dressing_.px(4);
        text(r, check.caption(), DT_LEFT);
    }
    RECT sunken(RECT r) const {
        fillRect(dc_, r, GetSysColor(COLOR_WINDOW));
        DrawEdge(dc_, &r, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
        return r;
    }
    void drawCombo(const RECT& r, const std::u16string& shown) const {
        const RECT inner = sunken(r);
        RECT arrow = arrowRect(inner, dressing_.look.dpi);
        DrawFrameControl(dc_, &arrow, DFC_SCROLL, DFCS_SCROLLCOMBOBOX);
        text({inner.left + dressing_.px(3), inner.top, arrow.left, inner.bottom}, shown, DT_LEFT,
             GetSysColor(COLOR_WINDOWTEXT));
    }
    void drawTabs(const RECT& r, const ui::TabStrip& strip) const {
        LONG left = r.left + 2;
        for (int i = 0; i < static_cast<int>(strip.tabs().size()); ++i) {
            const std::u16string& caption = strip.tabs()[static_cast<std::size_t>(i)].caption;
            SIZE size{};
            GetTextExtentPoint32W(dc_, asWide(caption), static_cast<int>(caption.size()), &size);
            RECT tab{left, i + 1 == strip.selected() ? r.top : r.top + 2, left + size.cx + dressing_.px(14), r.bottom};
            text(tab, caption, DT_CENTER);
            left = tab.right;
            DrawEdge(dc_, &tab, EDGE_RAISED, BF_LEFT | BF_TOP | BF_RIGHT);
        }
    }
    void drawToolbar(const RECT& r, const ui::Toolbar& toolbar) const {
        const int side = dressing_.px(16);
        LONG left = r.left + dressing_.px(4);
        const LONG top = (r.top + r.bottom - side) / 2;
        for (const auto& button : toolbar.buttons()) {
            drawPicture(dc_, {left, top, left + side, top + side}, button.key);
            left += side + dressing_.px(10);
        }
    }
    void drawList(const RECT& r, const ui::ListView& list) const {
        const RECT inner = sunken(r);
        const int line = dressing_.px(20);
        const int side = dressing_.px(16);
        RECT row{inner.left + dressing_.px(2), inner.top, inner.right, inner.top + line};
        for (int i = 0; i < list.count() && row.bottom <= inner.bottom; ++i) {
            drawPicture(dc_, {row.left, row.top + 2, row.left + side, row.top + 2 + side}, u"SCHEME");
            text({row.left + side + dressing_.px(4), row.top, row.right, row.bottom},
                 list.items()[static_cast<std::size_t>(i)].text, DT_LEFT, GetSysColor(COLOR_WINDOWTEXT));
            OffsetRect(&row, 0, line);
        }
    }
    void drawGrid(const ui::Spread& grid, const RECT& r) const {
        const SIZE size{r.right - r.left - 2, r.bottom - r.top - 2};
        const GridMeasures measures = GridMeasures::of(dc_, dressing_.look.dpi, grid.maxRows());
        const GridLayout layout(grid, measures, size, widestColumn(grid), 1, 0);
        const RECT clip{0, 0, size.cx, size.cy};
        const int saved = SaveDC(dc_);
        IntersectClipRect(dc_, static_cast<int>(r.left), static_cast<int>(r.top), static_cast<int>(r.right),
                          static_cast<int>(r.bottom));
        fillRect(dc_, r, GetSysColor(COLOR_BTNSHADOW));
        paintGrid(dc_, {r.left + 1, r.top + 1}, clip, grid, layout,
                  {dressing_.font.get(), dressing_.look.dpi, false, grid.enabled()});
        RestoreDC(dc_, saved);
    }

    HDC dc_;
    RECT bounds_;
    control::FilterControls& controls_;
    const Dressing& dressing_;
};

} // namespace

void paintInactive(HDC dc, const RECT& bounds, control::Filter& filter, const Appearance& look) {
    Dressing dressing(look);
    control::FilterControls& controls = filter.controls();
    dressing.setBack(surfaceColor(controls.UserControl, look.back));
    filter.resize(static_cast<int>(bounds.right - bounds.left), static_cast<int>(bounds.bottom - bounds.top),
                  look.dpi / 96.0);
    const Selected font(dc, dressing.font.get());
    Picture(dc, bounds, controls, dressing).draw();
}

} // namespace orv::windows
