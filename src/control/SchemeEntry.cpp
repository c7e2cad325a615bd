#include "control/SchemeEntry.h"

#include "automation/Coercion.h"
#include "control/ClassTypeReload.h"
#include "control/PageBoxes.h"
#include "support/Letters.h"
#include "support/PairList.h"

namespace orv::control {

using automation::Dictionary;
using automation::Value;
namespace fieldKey = metadata::fieldKey;

namespace {

/// The page selection of a scheme that stores none.
constexpr const char16_t* usualPages = u",1*,2,";
/// The stored index of an option box that a scheme lacks: beyond every list, which is "all".
constexpr const char16_t* usualOption = u"3";

std::u16string textOf(const Dictionary& entry, std::u16string_view key, std::u16string_view fallback = {}) {
    const Value value = entry.getValue(key, fallback);
    return value.isNull() ? std::u16string(fallback) : automation::toText(value);
}

/// The key of the field that a panel drop-down belongs to, by the position in its label's tag.
std::u16string panelFieldKey(FilterState& state, const ui::Label& label) {
    const auto catalogue = state.catalogue();
    return catalogue->field(automation::roundToInt32(automation::Val(label.tag())))->text(fieldKey::key);
}

std::u16string captureRelationExt(FilterState& state) {
    std::u16string list;
    const FilterControls& controls = *state.controls;
    for (int i = 1; i <= controls.cmbFilter.upperBound(); ++i) {
        const int selected = controls.cmbFilter(i).listIndex();
        if (selected > 0)
            support::appendPair(list, panelFieldKey(state, controls.lblFilter(i)), selected);
    }
    return list;
}

void applyRelationExt(FilterState& state, std::u16string_view list) {
    FilterControls& controls = *state.controls;
    for (int i = 1; i <= controls.cmbFilter.upperBound(); ++i) {
        const std::u16string key = panelFieldKey(state, controls.lblFilter(i));
        const double stored = support::storedNumber(support::lookupPair(list, key));
        ui::ComboBox& box = controls.cmbFilter(i);
        if (box.count() > 0)
            box.setListIndex(stored > 0 && stored < box.count() ? static_cast<int>(stored) : 0);
    }
}

/// An index beyond the list selects its last item, which is "all".
void applyOption(ui::ComboBox& box, const std::u16string& stored) {
    // What is no number must not narrow the list: it counts as "all", too.
    const double index = automation::isNumeric(stored) ? support::storedNumber(stored) : -1;
    box.setListIndex(index >= 0 && index < box.count() ? static_cast<int>(index) : box.count() - 1);
}

} // namespace

GridSettings captureGrids(FilterState& state) {
    return {state.conditionGrid.conditionText(), state.sortGrid.orderBy(), state.columnGrid.lists()};
}

void applyGrids(FilterState& state, const GridSettings& settings, editor::MissingField missing) {
    if (support::Trim(settings.Relation).empty())
        state.conditionGrid.clearAll();
    else
        state.conditionGrid.loadConditionText(settings.Relation, missing);
    for (const std::u16string& key : state.sortGrid.loadOrderBy(settings.OrderBy))
        state.log(u"排序字段 " + key + u" 未载入");
    initHideColumns(state);
    state.columnGrid.applyLists(settings.columns);
}

void captureSchemeEntry(FilterState& state, const Dictionary& entry) {
    const GridSettings grids = captureGrids(state);
    const FilterControls& controls = *state.controls;
    entry.set(u"OrderBy", grids.OrderBy);
    entry.set(u"Relation", grids.Relation);
    entry.set(u"RelationExt", captureRelationExt(state));
    entry.set(u"ColWidth", grids.columns.ColWidth);
    entry.set(u"ColHide", grids.columns.ColHide);
    entry.set(u"ColIndex", grids.columns.ColIndex);
    entry.set(u"SelPage", state.selectedPages);
    entry.set(u"cboTime", automation::roundToInt16(controls.cboTime.listIndex()));
    entry.set(u"cboCheck", automation::roundToInt16(controls.cboCheck.listIndex()));
    entry.set(u"cboPost", automation::roundToInt16(controls.cboPost.listIndex()));
    entry.set(u"IsShowAllHead", static_cast<std::int16_t>(controls.chkIsShowAll.value()));
}

void applySchemeEntry(FilterState& state, const Dictionary& entry) {
    GridSettings grids;
    grids.OrderBy = textOf(entry, u"OrderBy");
    grids.Relation = textOf(entry, u"Relation");
    const std::u16string relationExt = textOf(entry, u"RelationExt");
    grids.columns = {textOf(entry, u"ColWidth"), textOf(entry, u"ColHide"), textOf(entry, u"ColIndex")};
    const std::u16string pages = textOf(entry, u"SelPage", usualPages);
    const std::u16string options[] = {textOf(entry, u"cboTime", usualOption), textOf(entry, u"cboCheck", usualOption),
                                      textOf(entry, u"cboPost", usualOption)};
    const bool showAll = support::storedNumber(textOf(entry, u"IsShowAllHead")) != 0;

    selectPages(state, pages.empty() ? usualPages : pages);
    fillFieldLists(state);
    applyGrids(state, grids);
    applyRelationExt(state, relationExt);
    FilterControls& controls = *state.controls;
    applyOption(controls.cboTime, options[0]);
    applyOption(controls.cboCheck, options[1]);
    applyOption(controls.cboPost, options[2]);
    controls.chkIsShowAll.setValue(showAll ? ui::CheckState::checked : ui::CheckState::unchecked);
}

} // namespace orv::control
