#include "faults/Invariants.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"

#include <algorithm>
#include <set>
#include <vector>

namespace orv::faults {

using control::Filter;
using control::FilterControls;
using ui::CellType;
using ui::Spread;

namespace {

/// The first failed check of a run.
class Checks {
  public:
    void that(bool holds, const char* what) {
        if (!holds && broken_.empty())
            broken_ = what;
    }
    const std::string& broken() const noexcept { return broken_; }

  private:
    std::string broken_;
};

void checkGrid(Checks& check, const Spread& grid) {
    const ui::CellRef active = grid.activeCell();
    check.that(active.column >= 0 && active.column <= grid.maxCols() && active.row >= 0 && active.row <= grid.maxRows(),
               "the active cell lies in its grid");
    for (int row = 1; row <= grid.maxRows(); ++row) {
        for (int column = 1; column <= grid.maxCols(); ++column) {
            const auto& items = grid.comboItems(column, row);
            const int selected = grid.comboSelection(column, row);
            check.that(selected >= -1 && selected < static_cast<int>(items.size()), "a selection lies in its list");
            if (selected >= 0 && selected < static_cast<int>(items.size()))
                check.that(grid.text(column, row) == items[static_cast<std::size_t>(selected)],
                           "a selected item is the cell's text");
            if (grid.cellType(column, row) == CellType::checkBox)
                check.that(grid.text(column, row).size() <= 1, "a check box holds 1, 0 or nothing");
        }
    }
}

void checkConditions(Checks& check, const Spread& grid) {
    check.that(grid.maxRows() == 30 && grid.maxCols() == 8, "the condition grid keeps its shape");
    for (int row = 1; row <= grid.maxRows(); ++row) {
        if (grid.text(2, row).empty())
            check.that(grid.comboItems(3, row).empty() && grid.text(3, row).empty(), "no field, no comparison");
    }
}

void checkSortRows(Checks& check, const Spread& grid) {
    std::set<std::u16string> fields;
    for (int row = 1; row <= grid.maxRows(); ++row) {
        const bool ascends = grid.text(2, row) == u"1";
        const bool descends = grid.text(3, row) == u"1";
        const std::u16string& field = grid.text(1, row);
        check.that(!(ascends && descends), "one direction a sort row");
        check.that(!field.empty() || (!ascends && !descends), "no direction without a field");
        check.that(field.empty() || fields.insert(field).second, "a field sorts once");
    }
}

void checkColumns(Checks& check, const Spread& grid) {
    std::set<std::u16string> fields;
    for (int row = 1; row <= grid.maxRows(); ++row)
        check.that(fields.insert(grid.text(6, row)).second, "a field is a column once");
}

void checkLists(Checks& check, FilterControls& controls) {
    std::vector<ui::ComboBox*> boxes{&controls.cboClassType, &controls.cboTime, &controls.cboCheck, &controls.cboPost};
    for (const auto& box : controls.cmbFilter)
        boxes.push_back(box.get());
    for (const ui::ComboBox* box : boxes)
        check.that(box->listIndex() >= -1 && box->listIndex() < box->count(), "a list's index lies in its list");
    check.that(controls.lblFilter.count() == controls.cmbFilter.count(), "a label for each panel list");
    std::set<std::u16string> panel;
    for (const auto& label : controls.lblFilter)
        check.that(panel.insert(label->tag()).second, "a field stands in the panel once");
    std::set<std::u16string> keys;
    for (const auto& item : controls.lvwProject.items())
        check.that(keys.insert(item.key).second, "a scheme stands in the list once");
    check.that(controls.lvwProject.selected() >= 0 && controls.lvwProject.selected() <= controls.lvwProject.count(),
               "the selected scheme is one of the list");
}

} // namespace

std::string brokenInvariant(Filter& filter) {
    FilterControls& controls = filter.controls();
    Checks check;
    for (const Spread* grid : {&controls.vsFilter, &controls.vsOrder, &controls.vsHideColumn})
        checkGrid(check, *grid);
    checkConditions(check, controls.vsFilter);
    checkSortRows(check, controls.vsOrder);
    checkColumns(check, controls.vsHideColumn);
    checkLists(check, controls);
    return check.broken();
}

std::u16string filterText(Filter& filter) {
    try {
        std::u16string text;
        filter.GetFilterSql(text, true);
        return text;
    } catch (const automation::AutomationError& error) {
        return u"error " + automation::numberToText(error.number()) + u": " + error.description();
    }
}

bool enterOneCondition(Filter& filter, const char16_t* value) {
    FilterControls& controls = filter.controls();
    Spread& grid = controls.vsFilter;
    for (int row = 1; row <= grid.maxRows(); ++row)
        grid.userChoose(2, row, 0);
    const bool entered = grid.userChoose(2, 1, 1) && grid.userType(4, 1, value);
    for (const auto& box : controls.cmbFilter)
        box->setListIndex(0);
    for (ui::ComboBox* option : {&controls.cboTime, &controls.cboCheck, &controls.cboPost})
        option->setListIndex(option->count() - 1);
    return entered;
}

} // namespace orv::faults
