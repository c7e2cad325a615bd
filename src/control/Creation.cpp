#include "control/Creation.h"

#include "automation/AutomationError.h"
#include "control/ControlObject.h"
#include "control/Events.h"
#include "control/LayOut.h"
#include "control/LocalizeControls.h"

namespace orv::control {

using automation::Argument;
using automation::AutomationError;
using automation::ObjectRef;
using automation::Value;

namespace {

/// Has the host's font component dress the constituent controls, in its fixed order. A host without that component
/// keeps the fonts as they are.
void setFonts(FilterState& state) {
    FilterControls& controls = *state.controls;
    try {
        const ObjectRef loader = state.factory.create(u"ORVFrmRes.FrmResLoader");
        const auto setFont = [&](const ui::Control& control) {
            Value reference(makeControlObject(
                [controls = state.controls, name = control.fullName()] { return controls->find(name); },
                control.typeName()));
            automation::call(loader, u"SetCtlFont", Argument::byReference(reference));
        };
        setFont(controls.lblClassType);
        setFont(controls.lblProject);
        setFont(controls.vsFilter);
        setFont(controls.vsHideColumn);
        setFont(controls.vsOrder);
        setFont(controls.lvwProject);
        setFont(controls.tlbProject);
        setFont(controls.tbFilter);
        setFont(controls.cboClassType);
        for (const auto& box : controls.chkPage)
            setFont(*box);
        for (const auto& box : controls.cmbFilter)
            setFont(*box);
        for (const auto& button : controls.cmdHide)
            setFont(*button);
    } catch (const AutomationError& error) {
        state.log(error.description());
    }
}

/// Assigns each tool tip again from itself: the toolbar's view then shows the tool tips that localisation has set.
void reassignToolTips(ui::Toolbar& toolbar) {
    for (int position = 1; position <= toolbar.count(); ++position)
        toolbar.setButton(position, toolbar.buttons()[static_cast<std::size_t>(position - 1)]);
}

} // namespace

void create(FilterState& state) {
    FilterControls& controls = *state.controls;
    setFonts(state);
    state.conditionGrid.layOut();
    state.sortGrid.layOut();
    state.columnGrid.layOut();
    localizeControls(state);
    reassignToolTips(controls.tlbProject);
    controls.vsFilter.setText(editor::column::left, 0, u"(");
    controls.vsFilter.setText(editor::column::right, 0, u")");

    wireEvents(state);
    layOutControls(state);
}

} // namespace orv::control
