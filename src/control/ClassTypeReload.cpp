#include "control/ClassTypeReload.h"

#include "automation/Coercion.h"
#include "conditions/QuickFilters.h"
#include "control/LayOut.h"
#include "control/PageBoxes.h"
#include "metadata/PageSelection.h"
#include "support/PaddedItem.h"

#include <vector>

namespace orv::control {

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

/// What the filter panel has for a field with a panel list.
struct PanelField {
    std::int32_t position = 0;
    std::u16string heading;
    std::u16string list; ///< "已收;@Field=1,未收;@Field=0"
};

std::vector<PanelField> panelFields(metadata::FieldCatalogue& catalogue) {
    std::vector<PanelField> fields;
    for (std::int32_t position = 1; position <= catalogue.count(); ++position) {
        const FieldRef field = catalogue.field(position);
        std::u16string list = field->text(fieldKey::filterPanel);
        if (!list.empty())
            fields.push_back({position, field->text(fieldKey::caption), std::move(list)});
    }
    return fields;
}

/// One label and drop-down for each field with a panel list.
void rebuildFilterPanel(FilterState& state) {
    // Asked first: the host may fail, or have the panel rebuilt while it answers.
    const auto catalogue = state.catalogue();
    const std::vector<PanelField> fields = panelFields(*catalogue);
    auto& labels = state.controls->lblFilter;
    auto& boxes = state.controls->cmbFilter;
    labels.resize(0);
    boxes.resize(0);
    for (const PanelField& field : fields) {
        ui::Label& label = labels.load();
        label.setCaption(field.heading);
        label.setTag(automation::numberToText(field.position));
        ui::ComboBox& box = boxes.load();
        std::u16string_view rest = field.list;
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
    // Asked first: the host may fill the box anew while it answers.
    const std::int32_t classTypeId = state.classTypeId();
    state.optionBoxes = hasQuickFilterBoxes(classTypeId, state.controls->cboClassType.text());
    state.schemeManager.fillList();
    layOutControls(state);
}

} // namespace orv::control
