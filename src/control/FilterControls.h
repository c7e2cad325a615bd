#pragma once

#include "ui/ComboBox.h"
#include "ui/Control.h"
#include "ui/ControlArray.h"
#include "ui/ListView.h"
#include "ui/Spread.h"
#include "ui/TabStrip.h"
#include "ui/Toolbar.h"

#include <functional>
#include <string_view>

namespace orv::control {

/// The constituent controls of the filter control, under their names.
struct FilterControls {
    FilterControls();

    ui::PictureBox UserControl{u"UserControl"}; ///< the control's own surface
    ui::Label lblClassType{u"lblClassType"};
    ui::ComboBox cboClassType{u"cboClassType"};
    ui::Label lblProject{u"lblProject"};
    ui::Toolbar tlbProject{u"tlbProject"};
    ui::ListView lvwProject{u"lvwProject"};
    ui::TabStrip tbFilter{u"tbFilter"};

    ui::Spread vsFilter{u"vsFilter"};
    ui::Spread vsOrder{u"vsOrder"};
    ui::Spread vsHideColumn{u"vsHideColumn"};
    ui::Button cmdInsert{u"cmdInsert"};
    ui::Button cmdDel{u"cmdDel"};
    ui::Button cmdDelAll{u"cmdDelAll"};
    ui::ControlArray<ui::Button> cmdHide{u"cmdHide", 0}; ///< up, down, all, none, default

    ui::PictureBox PicPan{u"PicPan"};
    ui::PictureBox picOrder{u"picOrder"};
    ui::PictureBox picPageBase{u"picPageBase"};
    ui::PictureBox picPage{u"picPage"};
    ui::ScrollBar vsPage{u"vsPage"};
    ui::ControlArray<ui::CheckBox> chkPage{u"chkPage", 0}; ///< element i stands for page i + 1
    ui::ControlArray<ui::Label> lblFilter{u"lblFilter", 1};
    ui::ControlArray<ui::ComboBox> cmbFilter{u"cmbFilter", 1};

    ui::Label lblTime{u"lblTime"};
    ui::ComboBox cboTime{u"cboTime"};
    ui::Label lblCheck{u"lblCheck"};
    ui::ComboBox cboCheck{u"cboCheck"};
    ui::Label lblPost{u"lblPost"};
    ui::ComboBox cboPost{u"cboPost"};
    ui::CheckBox chkIsShowAll{u"chkIsShowAll"};

    /// Every constituent control in tab order, elements of control arrays included.
    void forEach(const std::function<void(ui::Control&)>& visit);
    /// The control of a name ("vsFilter") or element of an array ("chkPage(1)"), ignoring letter case; null when
    /// there is none.
    ui::Control* find(std::u16string_view fullName);
};

} // namespace orv::control
