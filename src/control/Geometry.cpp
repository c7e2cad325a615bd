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
constexpr int hideButtonWidth = 76;     ///< at least
constexpr int classTypeLabelWidth = 60; ///< at least
constexpr int buttonPadding = 16;       ///< both sides of a button's text together
constexpr int classTypeBoxWidth = 240;
// Labels and boxes of the options and of the panel below stand in the same columns.
constexpr int pairLabelWidth = 56; ///< at least
constexpr int pairLabelMost = 160;
constexpr int pairLabelPadding = 4;
constexpr int pairBoxMinimum = 40;
// Of a label at its least with its box: a wider label makes the pair wider.
constexpr int pairUsual = 120;
constexpr int pairMinimum = 92; ///< where three usual ones do not stand side by side
constexpr int pairMaximum = 172;
constexpr int pageBoxWidth = 116; ///< at least
constexpr int pageBoxMark = 30;   ///< what a check box needs beside its text
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
        show(out_.tbFilter, takeTop(area, tabHeight, 0));
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
        const int width = std::min(px(std::max(classTypeLabelWidth, in_.classTypeLabelText)), line.width / 2);
        show(out_.lblClassType, takeLeft(line, width));
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
        const int lines = 1 + (in_.optionBoxes && !optionsFitBesideButtons(area.width) ? flowLines(area.width, 3) : 0);
        return lines * (px(lineHeight) + px(gap));
    }

    void placePageBoxes(Rect& area) {
        if (in_.pageBoxes <= 0)
            return;
        const int wanted = px(std::max(pageBoxWidth, in_.pageBoxText + pageBoxMark));
        const int boxWidth = std::max(std::min(wanted, area.width - px(scrollBarWidth)), 1);
        const int columns = std::max((area.width - px(scrollBarWidth)) / boxWidth, 1);
        const int lines = (in_.pageBoxes + columns - 1) / columns;
        const int shownLines = std::min({lines, mostPageLines, std::max(linesThatFit(area, optionsHeight(area)), 1)});
        Rect base = takeBottom(area, shownLines * px(lineHeight));
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
            show(out_.chkPage[i], {column * boxWidth, line * px(lineHeight), boxWidth, px(lineHeight)});
        }
    }

    void placePanel(Rect& area) {
        const int pairs = in_.panelPairs;
        const int lines =
            pairs > 0 ? std::min(flowLines(area.width, pairs), linesThatFit(area, optionsHeight(area))) : 0;
        if (lines <= 0) {
            out_.PicPan = {{}, true}; // the panel's conditions hold, also while there is no room to show them
            for (std::size_t i = 0; i < out_.lblFilter.size(); ++i)
                out_.lblFilter[i].visible = out_.cmbFilter[i].visible = true;
            return;
        }
        const Rect panel = takeBottom(area, lines * px(lineHeight) + (lines - 1) * px(gap));
        show(out_.PicPan, panel);
        const Pairs shape = pairsIn(panel.width);
        for (std::size_t i = 0; i < out_.lblFilter.size(); ++i) {
            out_.lblFilter[i].visible = out_.cmbFilter[i].visible = true;
            if (static_cast<int>(i) < lines * shape.perLine)
                placePair(shape, 0, 0, static_cast<int>(i), out_.lblFilter[i], out_.cmbFilter[i]);
        }
    }

    /// Pixels of a label: as its text wants, while two pairs still stand side by side.
    int pairLabel(int pageWidth) const {
        const int most = (pageWidth - px(gap)) / 2 - px(pairMinimum - pairLabelWidth);
        return std::max(px(pairLabelWidth),
                        std::min({px(in_.pairLabelText + pairLabelPadding), px(pairLabelMost), most}));
    }
    /// Pixels of a label with its box, from those at 96 dots an inch with the least label.
    int pairWidth(int pageWidth, int withLeastLabel) const {
        return pairLabel(pageWidth) + px(withLeastLabel - pairLabelWidth);
    }

    /// Labels with their boxes, all of one width, so that those of several lines stand below each other.
    struct Pairs {
        int width;
        int perLine;
        int label;
    };
    Pairs pairsIn(int pageWidth) const {
        const int space = px(gap);
        const bool beside = in_.optionBoxes && optionsFitBesideButtons(pageWidth);
        const int room = beside ? pageWidth - 3 * (px(buttonWidth) + space) : pageWidth;
        const bool usual = room >= 3 * pairWidth(pageWidth, pairUsual) + 2 * space;
        const int minimum = pairWidth(pageWidth, usual ? pairUsual : pairMinimum);
        const int wanted = beside ? 3 : std::max((room + space) / (minimum + space), 1);
        const int width = std::min((room - (wanted - 1) * space) / wanted, pairWidth(pageWidth, pairMaximum));
        return {width, std::max((pageWidth + space) / (width + space), 1), pairLabel(pageWidth)};
    }
    int flowLines(int pageWidth, int pairs) const {
        const int perLine = pairsIn(pageWidth).perLine;
        return (pairs + perLine - 1) / perLine;
    }
    bool optionsFitBesideButtons(int pageWidth) const {
        return pageWidth >= 3 * (pairWidth(pageWidth, pairUsual) + px(buttonWidth) + 2 * px(gap));
    }

    /// One label with its box, flowing over lines of equal columns.
    void placePair(const Pairs& pairs, int left, int top, int position, Placement& label, Placement& box) const {
        left += position % pairs.perLine * (pairs.width + px(gap));
        top += position / pairs.perLine * (px(lineHeight) + px(gap));
        const int shownLabel = std::min(pairs.label, std::max(pairs.width - px(pairBoxMinimum), pairs.width / 2));
        show(label, {left, top, shownLabel, px(lineHeight)});
        show(box, {left + shownLabel, top, pairs.width - shownLabel, px(lineHeight)});
    }

    void placeButtonsAndOptions(Rect& area) {
        const Pairs pairs = pairsIn(area.width);
        const bool oneLine = optionsFitBesideButtons(area.width);
        if (in_.optionBoxes && !oneLine) {
            const int lines = flowLines(area.width, 3);
            placeOptions(pairs, takeBottom(area, lines * px(lineHeight) + (lines - 1) * px(gap)));
        }
        const Rect line = takeBottom(area, px(lineHeight));
        int right = line.left + line.width;
        const int width = std::min(px(buttonWidth), (line.width - 2 * px(gap)) / 3);
        for (Placement* button : {&out_.cmdDelAll, &out_.cmdDel, &out_.cmdInsert}) {
            show(*button, {right - width, line.top, width, line.height});
            right -= width + px(gap);
        }
        if (in_.optionBoxes && oneLine)
            placeOptions(pairs, line);
    }

    void placeOptions(const Pairs& pairs, const Rect& area) {
        placePair(pairs, area.left, area.top, 0, out_.lblTime, out_.cboTime);
        placePair(pairs, area.left, area.top, 1, out_.lblCheck, out_.cboCheck);
        placePair(pairs, area.left, area.top, 2, out_.lblPost, out_.cboPost);
    }

    void placeColumns(Rect area) {
        show(out_.chkIsShowAll, takeBottom(area, px(lineHeight)));
        const int width = std::min(px(std::max(hideButtonWidth, in_.hideButtonText + buttonPadding)), area.width / 2);
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

int captionWidth(std::u16string_view caption) {
    constexpr int latinWidth = 7;
    constexpr int wideWidth = 13;
    int width = 0;
    for (const char16_t unit : caption)
        width += unit < 0x1100 ? latinWidth : wideWidth;
    return width;
}

Geometry computeGeometry(const GeometryInput& input) {
    return Composer(input).compose();
}

} // namespace orv::control
