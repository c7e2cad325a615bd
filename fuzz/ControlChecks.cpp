#include "ControlChecks.h"

#include "Input.h"
#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Text.h"

#include <algorithm>
#include <set>

namespace orv::fuzz {

using automation::AutomationError;
using control::Filter;
using control::FilterControls;
using ui::CellType;
using ui::Spread;

namespace {

void checkGrid(const Spread& grid) {
    const ui::CellRef active = grid.activeCell();
    require(active.column >= 0 && active.column <= grid.maxCols() && active.row >= 0 && active.row <= grid.maxRows(),
            "the active cell lies in its grid");
    for (int row = 1; row <= grid.maxRows(); ++row) {
        for (int column = 1; column <= grid.maxCols(); ++column) {
            const auto& items = grid.comboItems(column, row);
            const int selected = grid.comboSelection(column, row);
            require(selected >= -1 && selected < static_cast<int>(items.size()), "a selection lies in its list");
            if (selected >= 0)
                requireSame(grid.text(column, row), items[static_cast<std::size_t>(selected)],
                            "a selected item is the cell's text");
            if (grid.cellType(column, row) == CellType::checkBox)
                require(grid.text(column, row).size() <= 1, "a check box holds 1, 0 or nothing");
        }
    }
}

void checkConditions(const Spread& grid) {
    require(grid.maxRows() == 30 && grid.maxCols() == 8, "the condition grid keeps its shape");
    for (int row = 1; row <= grid.maxRows(); ++row) {
        if (!grid.text(2, row).empty())
            continue;
        require(grid.comboItems(3, row).empty() && grid.text(3, row).empty(), "no field, no comparison");
        require(grid.cellType(4, row) == CellType::edit, "no field, a plain value cell");
    }
}

void checkSortRows(const Spread& grid) {
    std::set<std::u16string> fields;
    for (int row = 1; row <= grid.maxRows(); ++row) {
        const bool ascends = grid.text(2, row) == u"1";
        const bool descends = grid.text(3, row) == u"1";
        const std::u16string& field = grid.text(1, row);
        require(!(ascends && descends), "one direction a sort row");
        require(!field.empty() || (!ascends && !descends), "no direction without a field");
        require(field.empty() || fields.insert(field).second, "a field sorts once");
    }
}

void checkPages(Filter& filter) {
    const auto& boxes = filter.controls().chkPage;
    require(boxes.count() == 0 || boxes.count() == 4, "a box for each page");
    require(boxes.count() == 0 || boxes(0).isChecked(), "the header takes part");
}

void checkLists(FilterControls& controls) {
    std::vector<ui::ComboBox*> boxes{&controls.cboClassType, &controls.cboTime, &controls.cboCheck, &controls.cboPost};
    for (const auto& box : controls.cmbFilter)
        boxes.push_back(box.get());
    for (const ui::ComboBox* box : boxes)
        require(box->listIndex() >= -1 && box->listIndex() < box->count(), "a list's index lies in its list");
    require(controls.lblFilter.count() == controls.cmbFilter.count(), "a label for each panel list");
    std::set<std::u16string> keys;
    for (const auto& item : controls.lvwProject.items())
        require(keys.insert(item.key).second, "a scheme stands once in the list");
    require(controls.lvwProject.selected() >= 0 && controls.lvwProject.selected() <= controls.lvwProject.count(),
            "the selected scheme is one of the list");
}

template <class Ask>
std::u16string answer(Ask ask) {
    try {
        return ask();
    } catch (const AutomationError& error) {
        return u"error " + automation::numberToText(error.number()) + u": " + error.description();
    }
}

} // namespace

void checkInvariants(Filter& filter) {
    FilterControls& controls = filter.controls();
    for (const Spread* grid : {&controls.vsFilter, &controls.vsOrder, &controls.vsHideColumn})
        checkGrid(*grid);
    checkConditions(controls.vsFilter);
    checkSortRows(controls.vsOrder);
    checkPages(filter);
    checkLists(controls);
}

std::u16string filterText(Filter& filter) {
    return answer([&] {
        std::u16string text;
        filter.GetFilterSql(text, true);
        return text;
    });
}

void checkResults(Filter& filter) {
    const auto same = [](auto ask, const char* property) { requireSame(answer(ask), answer(ask), property); };
    requireSame(filterText(filter), filterText(filter), "the filter asked twice");
    same(
        [&] {
            std::u16string head, entry;
            filter.GetSortString(head, entry);
            return head + u"|" + entry;
        },
        "the sort asked twice");
    same([&] { return filter.EnableMostPage(); }, "the pages asked twice");
    same([&] { return automation::numberToText(filter.get_m_Header().count()); }, "the header asked twice");
    same(
        [&] {
            const automation::Dictionary entry = filter.get_dctProFileEntry();
            std::u16string all;
            for (const std::u16string& key : entry.keys())
                all += key + u"=" + automation::toText(entry.get(key)) + u"\n";
            return all;
        },
        "the entry record asked twice");
}

void checkUsable(Filter& filter, SmallHost& host) {
    host.failIn = 0;
    filter.put_ConditionExtHide({});
    filter.put_dctControl({});
    filter.put_ShowScheme(false);
    filter.put_SetSelectPageList(u",1*,2,");
    filter.put_DataSrv(host.dataService(34));
    require(filter.Initialize(), "the control starts again");
    checkInvariants(filter);
    FilterControls& controls = filter.controls();
    for (int row = 1; row <= controls.vsFilter.maxRows(); ++row)
        controls.vsFilter.userChoose(2, row, 0);
    require(controls.vsFilter.userChoose(2, 1, 1), "a field can be chosen");
    require(controls.vsFilter.userType(4, 1, u"B"), "a value can be typed");
    for (int i = 1; i <= controls.cmbFilter.upperBound(); ++i)
        controls.cmbFilter(i).userSelect(0);
    for (ui::ComboBox* box : {&controls.cboTime, &controls.cboCheck, &controls.cboPost})
        box->setListIndex(box->count() - 1);
    requireSame(filterText(filter), u" ( t1.FNo= 'B'  ) ", "the filter afterwards");
}

} // namespace orv::fuzz
