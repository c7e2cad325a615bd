#include "control/LayOut.h"

#include "control/ClassTypeReload.h"
#include "control/Geometry.h"

#include <algorithm>

namespace orv::control {

namespace {

TabPage pageOf(std::u16string_view tabKey) {
    if (tabKey == u"Sort")
        return TabPage::sort;
    return tabKey == u"HideSet" ? TabPage::columns : TabPage::conditions;
}

void place(ui::Control& control, const Placement& placement) {
    control.setBounds(placement.bounds);
    control.setVisible(placement.visible);
}

} // namespace

void layOutControls(FilterState& state) {
    FilterControls& controls = *state.controls;
    GeometryInput input;
    input.size = state.size;
    input.page = pageOf(controls.tbFilter.selectedKey());
    input.schemeList = state.showScheme;
    input.optionBoxes = state.optionBoxes;
    input.pageBoxes = controls.chkPage.count();
    input.panelPairs = controls.cmbFilter.count();
    input.classTypeLabelText = captionWidth(controls.lblClassType.caption());
    for (int i = 0; i <= controls.cmdHide.upperBound(); ++i)
        input.hideButtonText = std::max(input.hideButtonText, captionWidth(controls.cmdHide(i).caption()));
    for (const ui::Label* label : {&controls.lblTime, &controls.lblCheck, &controls.lblPost})
        input.pairLabelText = std::max(input.pairLabelText, captionWidth(label->caption()));
    for (const auto& label : controls.lblFilter)
        input.pairLabelText = std::max(input.pairLabelText, captionWidth(label->caption()));
    for (const auto& box : controls.chkPage)
        input.pageBoxText = std::max(input.pageBoxText, captionWidth(box->caption()));
    const Geometry g = computeGeometry(input);

    controls.UserControl.setBounds({0, 0, state.size.width, state.size.height});
    const std::pair<ui::Control*, const Placement*> placements[] = {{&controls.lblClassType, &g.lblClassType},
                                                                    {&controls.cboClassType, &g.cboClassType},
                                                                    {&controls.lblProject, &g.lblProject},
                                                                    {&controls.tlbProject, &g.tlbProject},
                                                                    {&controls.lvwProject, &g.lvwProject},
                                                                    {&controls.tbFilter, &g.tbFilter},
                                                                    {&controls.vsFilter, &g.vsFilter},
                                                                    {&controls.cmdInsert, &g.cmdInsert},
                                                                    {&controls.cmdDel, &g.cmdDel},
                                                                    {&controls.cmdDelAll, &g.cmdDelAll},
                                                                    {&controls.lblTime, &g.lblTime},
                                                                    {&controls.cboTime, &g.cboTime},
                                                                    {&controls.lblCheck, &g.lblCheck},
                                                                    {&controls.cboCheck, &g.cboCheck},
                                                                    {&controls.lblPost, &g.lblPost},
                                                                    {&controls.cboPost, &g.cboPost},
                                                                    {&controls.PicPan, &g.PicPan},
                                                                    {&controls.picPageBase, &g.picPageBase},
                                                                    {&controls.picPage, &g.picPage},
                                                                    {&controls.vsPage, &g.vsPage},
                                                                    {&controls.picOrder, &g.picOrder},
                                                                    {&controls.vsOrder, &g.vsOrder},
                                                                    {&controls.vsHideColumn, &g.vsHideColumn},
                                                                    {&controls.chkIsShowAll, &g.chkIsShowAll}};
    for (const auto& [control, placement] : placements)
        place(*control, *placement);
    for (std::size_t i = 0; i < g.cmdHide.size(); ++i)
        place(controls.cmdHide(static_cast<int>(i)), g.cmdHide[i]);
    for (std::size_t i = 0; i < g.chkPage.size(); ++i)
        controls.chkPage(static_cast<int>(i)).setBounds(g.chkPage[i].bounds);
    // The panel's labels and boxes keep their own visibility: their conditions hold on every tab.
    for (std::size_t i = 0; i < g.lblFilter.size(); ++i) {
        controls.lblFilter(static_cast<int>(i) + 1).setBounds(g.lblFilter[i].bounds);
        controls.cmbFilter(static_cast<int>(i) + 1).setBounds(g.cmbFilter[i].bounds);
    }
    controls.vsPage.setMaximum(g.pageScrollMaximum);
}

} // namespace orv::control
