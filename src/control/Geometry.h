#pragma once

#include "ui/Control.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace orv::control {

/// The control's size in pixels, at 96 dots an inch times `scale`.
struct ControlSize {
    int width = 640;
    int height = 400;
    double scale = 1.0;
};

/// The page that the selected tab shows.
enum class TabPage : std::uint8_t { conditions, sort, columns };

/// What the geometry depends on.
struct GeometryInput {
    ControlSize size;
    TabPage page = TabPage::conditions;
    bool schemeList = false;    ///< schemes are in use
    bool optionBoxes = false;   ///< the class type has quick filters
    int pageBoxes = 0;          ///< pages of the class type
    int panelPairs = 0;         ///< drop-downs of the filter panel
    int classTypeLabelText = 0; ///< pixels at 96 dots an inch that the label's text takes
    int hideButtonText = 0;     ///< and the longest text of the column buttons
    int pairLabelText = 0;      ///< of the labels of option boxes and filter panel, which the host's metadata name
    int pageBoxText = 0;        ///< and of the page boxes
};

/// Where a control stands; an empty rectangle where there is no room for it.
struct Placement {
    ui::Rect bounds;
    bool visible = false;
};

/// Placements of all controls, relative to the control itself, except: `picPage` to `picPageBase`, the page boxes to
/// `picPage`, the panel's labels and boxes to `PicPan`, `vsOrder` to `picOrder`. What stands on a container that is
/// not visible is not seen, whatever its own placement says.
struct Geometry {
    Placement lblClassType, cboClassType, lblProject, tlbProject, lvwProject, tbFilter;
    Placement vsFilter, cmdInsert, cmdDel, cmdDelAll;
    Placement lblTime, cboTime, lblCheck, cboCheck, lblPost, cboPost;
    Placement PicPan, picPageBase, picPage, vsPage;
    Placement picOrder, vsOrder, vsHideColumn, chkIsShowAll;
    std::array<Placement, 5> cmdHide;
    std::vector<Placement> chkPage;
    std::vector<Placement> lblFilter, cmbFilter;
    int pageScrollMaximum = 0; ///< of `vsPage`, in its steps
};

/// Pixels at 96 dots an inch that a caption takes at most: half a letter's height for Latin letters, a whole one for
/// Chinese ones. Translated captions differ in length, and no font is known here.
int captionWidth(std::u16string_view caption);

/// The smallest size at 96 dots an inch for which the geometry is made; a smaller control is laid out as that size.
inline constexpr int minimumWidth = 320;
inline constexpr int minimumHeight = 240;

/// Lays everything out: the active tab's page takes all space that is left, nothing overlaps or leaves the control.
Geometry computeGeometry(const GeometryInput& input);

} // namespace orv::control
