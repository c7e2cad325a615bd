#include "control/Geometry.h"

#include <algorithm>
#include <cmath>

namespace orv::control {

using ui::Rect;

namespace {

// Measures in pixels at 96 dots an inch. A Chinese character of the interface font is 12 px wide.
constexpr int margin = 8;
constexpr int gap = 6;
constexpr int lineHeight = 24;
constexpr int tabHeight = 26;
constexpr int toolbarHeight = 28;
constexpr int captionHeight = 18;
constexpr int buttonWidth = 64;
constexpr int hideButtonWidth = 76;
constexpr int classTypeLabelWidth = 60;
constexpr int classTypeBoxWidth = 240;
constexpr int optionLabelWidth = 34;
constexpr int optionPairMinimum = 92;
constexpr int optionPairMaximum = 150;
constexpr int panelLabelWidth = 62;
constexpr int panelPairMinimum = 130;
constexpr int panelPairMaximum = 210;
constexpr int pageBoxWidth = 116;
constexpr int scrollBarWidth = 17;
constexpr int mostPageLines = 3;
/// Heading and two lines of the condition grid stay in sight whatever else there is.
constexpr int gridMinimum = 66;
/// Twips of one step of the page area's scroll bar, and of a pixel at 96 dots an inch.
constexpr int twipsPerStep = 45;
constexpr int twipsPerPixel = 15;

class Composer {
  public:
    explicit Composer(const GeometryInput& input)
        : in_(input), scale_(input.size.scale > 0 ? input.size.scale : 1.0),
          width_(std::max(input.size.width, px(minimumWidth))),
          height_(std::max(input.size.height, px(minimumHeight))) {
        out_.chkPage.resize(static_cast<std::size_t>(std::max(in_.pageBoxes, 0)));
        out_.lblFilter.resize(static_cast<std::size_t>(std::max(in_.panelPairs, 0)));
        out_.cmbFilter.resize(out_.lblFilter.size());
    }

    Geometry compose() {
        Rect area{px(margin), px(margin), width_ - 2 * px(margin), height_ - 2 * px(margin)};
        placeClassType(takeTop(area, lineHeight));
        if (in_.schemeList)
            placeSchemes(takeLeft(area, std::clamp(width_ * 10 / 44, px(100), px(230))));
        show(out_.tbFilter, takeTop(area, tabHeight, 2));
        switch (in_.page) {
        case TabPage::conditions:
            placeConditions(area);
            break;
        case TabPage::sort:
            show(out_.picOrder, area);
            show(out_.vsOrder, {0, 0, area.width, area.height});
            break;
        case TabPage::columns:
            placeColumns(area);
            break;
        }
        return out_;
    }

  private:
    int px(int at96) const { return static_cast<int>(std::lround(at96 * scale_)); }

    static void show(Placement& placement, const Rect& bounds) { placement = {bounds, true}; }

    Rect takeTop(Rect& area, int height, int space = gap) const {
        const int taken = std::min(px(height), area.height);
        const Rect result{area.left, area.top, area.width, taken};
        const int used = std::min(taken + px(space), area.height);
        area.top += used;
        area.height -= used;
        return result;
    }
    Rect takeBottom(Rect& area, int height) const {
        const int taken = std::min(height, area.height);
        const Rect result{area.left, area.top + area.height - taken, area.width, taken};
        area.height = std::max(area.height - taken - px(gap), 0);
        return result;
    }
    Rect takeLeft(Rect& area, int width) const {
        const Rect result{area.left, area.top, width, area.height};
        area.left += width + px(gap);
        area.width -= width + px(gap);
        return result;
    }

    void placeClassType(Rect line) {
        show(out_.lblClassType, takeLeft(line, px(classTypeLabelWidth)));
        line.width = std::min(line.width, px(classTypeBoxWidth));
        show(out_.cboClassType, line);
    }

    void placeSchemes(Rect area) {
        show(out_.lblProject, takeTop(area, captionHeight, 2));
        show(out_.tlbProject, takeTop(area, toolbarHeight, 2));
        show(out_.lvwProject, area);
    }

    void placeConditions(Rect area) {
        placePageBoxes(area);
        placePanel(area);
        placeButtonsAndOptions(area);
        show(out_.vsFilter, area);
    }

    /// Lines that still leave the grid its minimum.
    int linesThatFit(const Rect& area, int reserved) const {
        return std::max((area.height - px(gridMinimum) - reserved) / (px(lineHeight) + px(gap)), 0);
    }

    /// Height that the line of buttons and option boxes needs at least.
    int optionsHeight(const Rect& area) const {
        const int lines = 1 + (in_.optionBoxes && !optionsFitBesideButtons(area) ? optionLines(area) : 0);
        return lines * (px(lineHeight) + px(gap));
    }

    void placePageBoxes(Rect& area) {
        if (in_.pageBoxes <= 0)
            return;
        const int columns = std::max((area.width - px(scrollBarWidth)) / px(pageBoxWidth), 1);
        const int lines = (in_.pageBoxes + columns - 1) / columns;
        const int shownLines = std::min({lines, mostPageLines, std::max(linesThatFit(area, optionsHeight(area)), 1)});
        Rect base = takeBottom(area, shownLines * px(lineHeight));
        const int boxWidth = std::min(px(pageBoxWidth), base.width - px(scrollBarWidth));
        if (lines > shownLines) {
            show(out_.vsPage, {base.left + base.width - px(scrollBarWidth), base.top, px(scrollBarWidth), base.height});
            base.width -= px(scrollBarWidth);
            const int hiddenTwips = (lines - shownLines) * px(lineHeight) * twipsPerPixel;
            out_.pageScrollMaximum = (hiddenTwips + twipsPerStep - 1) / twipsPerStep;
        }
        show(out_.picPageBase, base);
        show(out_.picPage, {0, 0, base.width, lines * px(lineHeight)});
        for (std::size_t i = 0; i < out_.chkPage.size(); ++i) {
            const int line = static_cast<int>(i) / columns;
            const int column = static_cast<int>(i) % columns;
            show(out_.chkPage[i], {column * px(pageBoxWidth), line * px(lineHeight), boxWidth, px(lineHeight)});
        }
    }

    void placePanel(Rect& area) {
        const int pairs = in_.panelPairs;
        const int lines = pairs > 0 ? std::min(flowLines(area.width, pairs, panelPairMinimum),
                                               linesThatFit(area, optionsHeight(area)))
                                    : 0;
        if (lines <= 0) {
            out_.PicPan = {{}, true}; // the panel's conditions hold, also while there is no room to show them
            for (std::size_t i = 0; i < out_.lblFilter.size(); ++i)
                out_.lblFilter[i].visible = out_.cmbFilter[i].visible = true;
            return;
        }
        const Rect panel = takeBottom(area, lines * px(lineHeight) + (lines - 1) * px(gap));
        show(out_.PicPan, panel);
        const int columns = std::max(panel.width / px(panelPairMinimum), 1);
        for (std::size_t i = 0; i < out_.lblFilter.size(); ++i) {
            out_.lblFilter[i].visible = out_.cmbFilter[i].visible = true;
            if (static_cast<int>(i) < lines * columns)
                placePair({0, 0, panel.width, panel.height}, static_cast<int>(i), columns, panelPairMaximum,
                          panelLabelWidth, out_.lblFilter[i], out_.cmbFilter[i]);
        }
    }

    int flowLines(int width, int pairs, int pairMinimum) const {
        const int columns = std::max(width / px(pairMinimum), 1);
        return (pairs + columns - 1) / columns;
    }
    int optionLines(const Rect& area) const { return flowLines(area.width, 3, optionPairMinimum); }
    bool optionsFitBesideButtons(const Rect& area) const {
        return area.width >= 3 * px(optionPairMinimum) + 3 * (px(buttonWidth) + px(gap));
    }

    /// One label with its box, flowing over lines of equal columns.
    void placePair(const Rect& area, int position, int columns, int pairMaximum, int labelWidth, Placement& label,
                   Placement& box) const {
        const int pairWidth = std::min((area.width - (columns - 1) * px(gap)) / columns, px(pairMaximum));
        const int left = area.left + position % columns * (pairWidth + px(gap));
        const int top = area.top + position / columns * (px(lineHeight) + px(gap));
        const int shownLabel = std::min(px(labelWidth), pairWidth / 2);
        show(label, {left, top, shownLabel, px(lineHeight)});
        show(box, {left + shownLabel, top, pairWidth - shownLabel, px(lineHeight)});
    }

    void placeButtonsAndOptions(Rect& area) {
        const bool oneLine = optionsFitBesideButtons(area);
        if (in_.optionBoxes && !oneLine) {
            const int lines = optionLines(area);
            placeOptions(takeBottom(area, lines * px(lineHeight) + (lines - 1) * px(gap)));
        }
        Rect line = takeBottom(area, px(lineHeight));
        int right = line.left + line.width;
        const int width = std::min(px(buttonWidth), (line.width - 2 * px(gap)) / 3);
        for (Placement* button : {&out_.cmdDelAll, &out_.cmdDel, &out_.cmdInsert}) {
            show(*button, {right - width, line.top, width, line.height});
            right -= width + px(gap);
        }
        if (in_.optionBoxes && oneLine) {
            line.width = right - line.left;
            placeOptions(line);
        }
    }

    void placeOptions(const Rect& area) {
        const int columns = std::min(std::max(area.width / px(optionPairMinimum), 1), 3);
        placePair(area, 0, columns, optionPairMaximum, optionLabelWidth, out_.lblTime, out_.cboTime);
        placePair(area, 1, columns, optionPairMaximum, optionLabelWidth, out_.lblCheck, out_.cboCheck);
        placePair(area, 2, columns, optionPairMaximum, optionLabelWidth, out_.lblPost, out_.cboPost);
    }

    void placeColumns(Rect area) {
        show(out_.chkIsShowAll, takeBottom(area, px(lineHeight)));
        const int width = std::min(px(hideButtonWidth), area.width / 2);
        const int count = static_cast<int>(out_.cmdHide.size());
        const int space = std::min(px(gap), std::max((area.height - count * px(captionHeight)) / count, 0));
        const int height = std::min(px(lineHeight), (area.height - (count - 1) * space) / count);
        int top = area.top;
        for (Placement& button : out_.cmdHide) {
            show(button, {area.left + area.width - width, top, width, height});
            top += height + space;
        }
        area.width -= width + px(gap);
        show(out_.vsHideColumn, area);
    }

    const GeometryInput& in_;
    double scale_;
    int width_;
    int height_;
    Geometry out_;
};

} // namespace

Geometry computeGeometry(const GeometryInput& input) {
    return Composer(input).compose();
}

} // namespace orv::control
