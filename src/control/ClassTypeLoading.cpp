#include "control/ClassTypeLoading.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "control/ClassTypeReload.h"
#include "control/PageBoxes.h"
#include "support/FlagScope.h"

#include <optional>
#include <vector>

namespace orv::control {

using automation::AutomationError;
using automation::Collection;
using automation::Dictionary;
using automation::ObjectRef;

namespace {

/// Tag of the class-type combo box before anything is loaded.
constexpr const char16_t* nothingLoaded = u"-1";

/// The built-in default scheme, under any of its names, is not applied when a class type is loaded.
void applySelectedScheme(FilterState& state) {
    if (state.schemeManager.isUserSchemeSelected())
        state.schemeManager.applySelected();
}

void loadSingleClassType(FilterState& state) {
    ui::ComboBox& box = state.controls->cboClassType;
    const Dictionary classType = state.classType;
    box.clear();
    std::u16string name = automation::toText(classType.get(u"FName"));
    box.clear(); // again: the host may have filled it while it answered
    box.addItem(std::move(name));
    // The click that the selection raises finds the tag equal to it and does nothing.
    box.setTag(u"0");
    box.setListIndex(0);
    reloadClassType(state);
}

void loadClassTypeList(FilterState& state, std::u16string_view classTypeIds, std::int32_t currentId) {
    std::u16string filter = u"FID in (";
    filter += classTypeIds;
    filter += u')';
    const ObjectRef classInfo = state.factory.create(u"ORVMClass.ClassInfo");
    const Collection list(
        automation::toObject(automation::call(classInfo, u"GetClassType", state.userProperties.text(), filter)));

    // Asked first: the host may fill the box with another list while it answers.
    std::vector<std::u16string> names;
    int line = 0;
    std::optional<AutomationError> failure;
    try {
        const std::int32_t count = list.count();
        for (std::int32_t i = 1; i <= count; ++i) {
            const Dictionary item = list.record(i);
            names.push_back(automation::toText(item.get(u"FName")));
            if (automation::toInt32(item.get(u"FID")) == currentId)
                line = static_cast<int>(i) - 1;
        }
    } catch (const AutomationError& error) {
        failure = error;
    }
    state.classTypeList = list;
    ui::ComboBox& box = state.controls->cboClassType;
    box.clear();
    for (std::u16string& name : names)
        box.addItem(std::move(name));
    if (failure)
        throw *failure; // the box keeps what was read until then
    // The tag differs from the selection: the click loads the class type.
    box.setTag(nothingLoaded);
    box.setListIndex(line);
}

} // namespace

void loadClassTypes(FilterState& state, std::u16string_view classTypeIds) {
    const support::FlagScope initializing(state.initializing);
    if (!state.settings)
        state.settings = automation::newRecord(state.factory);
    state.showScheme = automation::toBoolean(state.setting(u"ShowScheme", state.showScheme));
    const ObjectRef service = state.dataService;
    const std::int32_t currentId = service ? automation::toInt32(automation::get(service, u"ClassTypeID")) : 0;

    if (classTypeIds.empty())
        loadSingleClassType(state);
    else
        loadClassTypeList(state, classTypeIds, currentId);
    fixPageBoxes(state);
    applySelectedScheme(state);
    state.controls->vsFilter.setActiveCell(1, 1);
}

void classTypeChosen(FilterState& state) {
    ui::ComboBox& box = state.controls->cboClassType;
    const int selected = box.listIndex();
    if (automation::Val(box.tag()) == selected)
        return;
    const ObjectRef service = state.factory.create(u"ORVClassTpl.DataSrv");
    const Collection list = state.classTypeList;
    automation::let(service, u"ClassTypeID", list.record(selected + 1).get(u"FID"));
    box.setTag(automation::numberToText(selected));
    state.takeDataService(service);
    if (!state.initializing)
        state.selectedPages.clear(); // chosen for the class type before

    FilterControls& controls = *state.controls;
    for (int i = 1; i <= controls.lblFilter.upperBound(); ++i)
        controls.lblFilter(i).setCaption(u"");
    for (int row = 1; row <= controls.vsFilter.maxRows(); ++row) {
        controls.vsFilter.setText(editor::column::field, row, u"");
        state.conditionGrid.comboSelectionChange(editor::column::field, row);
    }
    reloadClassType(state);
    // Initialize fixes the page boxes and applies the scheme itself when it is done.
    if (!state.initializing) {
        fixPageBoxes(state);
        applySelectedScheme(state);
    }
}

} // namespace orv::control
