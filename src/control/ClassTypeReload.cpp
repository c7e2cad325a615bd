#include "control/ClassTypeReload.h"

#include "automation/Coercion.h"
#include "conditions/QuickFilters.h"
#include "control/LayOut.h"
#include "control/PageBoxes.h"
#include "metadata/PageSelection.h"
#include "support/PaddedItem.h"

namespace orv::control {

using automation::Collection;
using automation::Dictionary;
using automation::Value;
using metadata::FieldRef;
namespace fieldKey = metadata::fieldKey;

namespace {

/// The page selection of a class type for which nothing else was chosen: header and first entry page.
constexpr const char16_t* usualPages = u",1*,2,";

/// A field whose entry in the hidden-condition map has a `HideType` other than 0 is not offered.
bool isHidden(const FilterState& state, const std::u16string& key) {
    const Dictionary hidden = state.hiddenConditions;
    if (!hidden || !hidden.exists(key))
        return false;
    const Dictionary entry(automation::toObjectOrNothing(hidden.get(key)));
    if (!entry)
        return false;
    const Value type = entry.getValue(u"HideType", std::int32_t{0});
    return !type.isNull() && automation::toInt32(type) != 0;
}

/// One label and drop-down for each field with a panel list ("已收;@Field=1,未收;@Field=0").
void rebuildFilterPanel(FilterState& state) {
    const auto catalogue = state.catalogue();
    auto& labels = state.controls->lblFilter;
    auto& boxes = state.controls->cmbFilter;
    labels.resize(0);
    boxes.resize(0);
    for (std::int32_t position = 1; position <= catalogue->count(); ++position) {
        const FieldRef field = catalogue->field(position);
        const std::u16string list = field->text(fieldKey::filterPanel);
        if (list.empty())
            continue;
        std::u16string heading = field->text(fieldKey::caption); // first: the host may rebuild the panel meanwhile
        ui::Label& label = labels.load();
        label.setCaption(std::move(heading));
        label.setTag(automation::numberToText(position));
        ui::ComboBox& box = boxes.load();
        std::u16string_view rest = list;
        while (!rest.empty()) {
            const std::u16string_view item = rest.substr(0, rest.find(u','));
            const std::u16string_view shown = item.substr(0, item.find(u';'));
            box.addItem(support::PadItem(shown, item.substr(std::min(shown.size() + 1, item.size()))));
            rest.remove_prefix(std::min(item.size() + 1, rest.size()));
        }
        box.setListIndex(0);
    }
}

} // namespace

bool hasQuickFilterBoxes(std::int32_t classTypeId, std::u16string_view classTypeText) {
    const bool without = classTypeId >= 2000001 && classTypeId <= 2000004;
    return !without && !conditions::quickFilterTable(classTypeText).empty();
}

void fillFieldLists(FilterState& state) {
    const auto catalogue = state.catalogue();
    const metadata::PageSelection pages(state.selectedPages);
    // The lists begin with an empty item, by which the user clears a line's field.
    std::u16string items;
    std::u16string sortItems;
    for (std::int32_t position = 1; position <= catalogue->count(); ++position) {
        const FieldRef field = catalogue->field(position);
        if (!pages.contains(field->text(fieldKey::page)))
            continue;
        const std::u16string caption = field->text(fieldKey::caption);
        const std::u16string key = field->text(fieldKey::key);
        sortItems += u'\t';
        sortItems += sortcols::sortItem(caption, key);
        if (isHidden(state, key))
            continue;
        items += u'\t';
        items += editor::fieldItem(caption, position);
    }
    state.conditionGrid.setFieldList(items);
    state.sortGrid.setFieldList(sortItems);
}

void initHideColumns(FilterState& state) {
    const auto catalogue = state.catalogue();
    const Dictionary access(automation::toObjectOrNothing(state.setting(u"AccessMask", Value())));
    state.columnGrid.fill(*catalogue, metadata::PageSelection(state.selectedPages), access);
}

void reloadClassType(FilterState& state) {
    rebuildPageBoxes(state);
    // The host's choice of pages counts for the class type that it was made for.
    selectPages(state, state.selectedPages.empty() ? usualPages : state.selectedPages);
    fillFieldLists(state);
    state.sortGrid.clearAll();
    initHideColumns(state);
    rebuildFilterPanel(state);
    state.optionBoxes = hasQuickFilterBoxes(state.classTypeId(), state.controls->cboClassType.text());
    state.schemeManager.fillList();
    layOutControls(state);
}

} // namespace orv::control
